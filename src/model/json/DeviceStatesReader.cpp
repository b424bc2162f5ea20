// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/DeviceStatesReader.h"

#include "shell/Version.h"

#include <QString>
#include <QVariant>
#include <QVariantList>
#include <QVariantMap>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <simdjson.h>
#include <string>
#include <string_view>
#include <utility>

namespace JsonAPI {

namespace {

namespace Json = simdjson::ondemand;

constexpr int maxDepth = 16; // of values within a state; the plain road goes on to 1024
constexpr int safeDigits = 19; // of a fraction: with more the parser's last bit and Qt's differ at times
constexpr double exactIntegers = 9007199254740992.0; // 2^53: from here on a double may stand for several numbers

// The keys of states as shared texts: every device of a type has the same ones, in the same order.
class KeyTexts
{
public:
    const QString &text(std::string_view key)
    {
        if (m_next >= m_keys.size())
            m_next = 0;
        if (m_next < m_keys.size() && m_keys[m_next].first == key)
            return m_keys[m_next++].second;
        const auto found =
            std::find_if(m_keys.begin(), m_keys.end(), [key](const auto &known) { return known.first == key; });
        if (found != m_keys.end()) {
            m_next = static_cast<size_t>(found - m_keys.begin()) + 1;
            return found->second;
        }
        if (m_keys.size() == maxKeys) // keys that never come again must not slow the search down
            m_keys.clear();
        m_keys.emplace_back(std::string(key), QString::fromUtf8(key.data(), static_cast<int>(key.size())));
        m_next = m_keys.size();
        return m_keys.back().second;
    }

private:
    static constexpr size_t maxKeys = 64;

    std::vector<std::pair<std::string, QString>> m_keys;
    size_t m_next = 0; // where the key after the last one is expected
};

// Reads one document. Every function returns false on a doubt, which ends the reading. Every value is looked at, those
// too that no record keeps: the parser checks only what is asked for.
class Reader
{
public:
    bool readDocument(Json::document &document, FastDeviceStates &result)
    {
        Json::object object;
        if (document.get_object().get(object))
            return false;
        bool hasData = false;
        bool hasVersion = false;
        for (auto member : object) {
            std::string_view key;
            Json::value value;
            if (!readMember(member, key, value))
                return false;
            if (key == "data") {
                if (std::exchange(hasData, true) || !readEntities(value, result.states))
                    return false;
            } else if (key == "server_version") {
                QString version;
                if (std::exchange(hasVersion, true) || !readText(value, version))
                    return false;
                result.serverVersion = QVersionNumber::fromString(version);
            } else if (key == "errors" || !passOver(value, 0)) {
                return false;
            }
        }
        return hasData && document.current_location().error() == simdjson::OUT_OF_BOUNDS; // nothing follows
    }

private:
    using Member = simdjson::simdjson_result<Json::field>;

    static bool readMember(Member &member, std::string_view &key, Json::value &value)
    {
        Json::field field;
        if (std::move(member).get(field))
            return false;
        // The parser has found the closing quote already, so this search ends inside the text.
        const char *start = field.key().raw();
        const char *end = start;
        while (*end != '"') {
            if (*end == '\\')
                return false;
            ++end;
        }
        key = std::string_view(start, static_cast<size_t>(end - start));
        value = field.value();
        return true;
    }

    bool readEntities(Json::value &value, std::vector<Model::DeviceState> &states)
    {
        Json::array entities;
        if (value.get_array().get(entities))
            return false;
        for (auto element : entities) {
            Json::value entity;
            Model::DeviceState state;
            if (std::move(element).get(entity) || !readEntity(entity, state))
                return false;
            states.push_back(std::move(state));
        }
        return true;
    }

    bool readEntity(Json::value &value, Model::DeviceState &state)
    {
        Json::object entity;
        if (value.get_object().get(entity))
            return false;
        bool hasAttributes = false;
        for (auto member : entity) {
            std::string_view key;
            Json::value part;
            if (!readMember(member, key, part))
                return false;
            if (key == "id") {
                if (!state.uid.isNull() || !readUid(part, state.uid))
                    return false;
            } else if (key == "attributes") {
                if (std::exchange(hasAttributes, true) || !readAttributes(part, state.state))
                    return false;
            } else if (!passOver(part, 0)) {
                return false;
            }
        }
        return !state.uid.isNull();
    }

    static bool readUid(Json::value &value, QUuid &uid)
    {
        // Only the form that the link writes: Qt reads others too, with rules of its own.
        constexpr size_t uidLength = 38;
        std::string_view text;
        if (!readPlainText(value, text) || text.size() != uidLength || text.front() != '{' || text.back() != '}')
            return false;
        uid = QUuid::fromString(QLatin1String(text.data(), static_cast<int>(text.size())));
        return !uid.isNull();
    }

    bool readAttributes(Json::value &value, QVariantMap &state)
    {
        Json::object attributes;
        if (value.get_object().get(attributes))
            return false;
        bool hasState = false;
        for (auto member : attributes) {
            std::string_view key;
            Json::value attribute;
            if (!readMember(member, key, attribute))
                return false;
            if (key == "state" ? std::exchange(hasState, true) || !readMap(attribute, state, 0)
                               : !passOver(attribute, 0))
                return false;
        }
        return true;
    }

    bool readMap(Json::value &value, QVariantMap &map, int depth)
    {
        Json::object object;
        if (value.get_object().get(object))
            return false;
        int size = 0;
        for (auto member : object) {
            std::string_view key;
            Json::value item;
            QVariant variant;
            if (!readMember(member, key, item))
                return false;
            const QString text = m_keys.text(key); // a copy: a map within this one may renew the list
            if (!readValue(item, variant, depth + 1))
                return false;
            map.insert(map.cend(), text, variant); // keys come sorted more often than not
            if (map.size() != ++size)
                return false; // a key twice
        }
        return true;
    }

    bool readList(Json::value &value, QVariantList &list, int depth)
    {
        Json::array array;
        if (value.get_array().get(array))
            return false;
        for (auto element : array) {
            Json::value item;
            QVariant variant;
            if (std::move(element).get(item) || !readValue(item, variant, depth + 1))
                return false;
            list.append(variant);
        }
        return true;
    }

    bool readValue(Json::value &value, QVariant &variant, int depth)
    {
        Json::json_type type;
        if (depth > maxDepth || value.type().get(type))
            return false;
        switch (type) {
        case Json::json_type::number: return readNumber(value, variant);
        case Json::json_type::string: {
            QString text;
            if (!readText(value, text))
                return false;
            variant = text;
            return true;
        }
        case Json::json_type::boolean: {
            bool boolean = false;
            if (value.get_bool().get(boolean))
                return false;
            variant = boolean;
            return true;
        }
        case Json::json_type::null: {
            bool isNull = false;
            if (value.is_null().get(isNull) || !isNull)
                return false;
            variant = QVariant::fromValue(nullptr);
            return true;
        }
        case Json::json_type::object: {
            QVariantMap map;
            if (!readMap(value, map, depth))
                return false;
            variant = map;
            return true;
        }
        case Json::json_type::array: {
            QVariantList list;
            if (!readList(value, list, depth))
                return false;
            variant = list;
            return true;
        }
        }
        return false;
    }

    // Checks a value that no record keeps.
    bool passOver(Json::value &value, int depth)
    {
        Json::json_type type;
        if (value.type().get(type))
            return false;
        std::string_view text;
        if (type == Json::json_type::string)
            return readPlainText(value, text);
        QVariant variant;
        return readValue(value, variant, depth + 1);
    }

    // Whole numbers become integers however they are written ("1.0", "1e2"), others doubles.
    static bool readNumber(Json::value &value, QVariant &variant)
    {
        const auto token = value.raw_json_token();
        const bool isInteger = token.find_first_of(".eE") == std::string_view::npos;
        if (isInteger) {
            int64_t number = 0;
            if (value.get_int64().get(number))
                return false;
            variant = static_cast<qlonglong>(number);
            return true;
        }
        const auto mantissa = token.substr(0, token.find_first_of("eE"));
        const auto digits =
            std::count_if(mantissa.begin(), mantissa.end(), [](char c) { return c >= '0' && c <= '9'; });
        double number = 0;
        if (digits > safeDigits || value.get_double().get(number) || !(std::abs(number) < exactIntegers))
            return false;
        if (std::abs(number) < std::numeric_limits<double>::min()) {
            // What is too small for a double is no number for Qt: only a written zero passes.
            if (mantissa.find_first_of("123456789") != std::string_view::npos)
                return false;
            number = 0;
        }
        const auto whole = static_cast<qlonglong>(number);
        if (static_cast<double>(whole) == number)
            variant = whole;
        else
            variant = number;
        return true;
    }

    static bool readText(Json::value &value, QString &text)
    {
        std::string_view plain;
        if (!readPlainText(value, plain))
            return false;
        text = QString::fromUtf8(plain.data(), static_cast<int>(plain.size()));
        return true;
    }

    // A text that stands in the document as it is; escapes are rare in states and left to the plain road.
    static bool readPlainText(Json::value &value, std::string_view &text)
    {
        Json::raw_json_string raw;
        if (value.get_raw_json_string().get(raw))
            return false;
        const char *start = raw.raw();
        const char *end = start;
        while (*end != '"') {
            if (*end == '\\')
                return false;
            ++end;
        }
        text = std::string_view(start, static_cast<size_t>(end - start));
        return true;
    }

    KeyTexts m_keys;
};

} // namespace

boost::optional<FastDeviceStates> DeviceStatesReader::read(const QByteArray &json)
{
    // The parser looks at a few bytes behind the text, which must be readable.
    QByteArray padded = json;
    constexpr int padding = simdjson::SIMDJSON_PADDING;
    if (padded.capacity() < padded.size() + padding) {
        if (padded.size() > std::numeric_limits<int>::max() / 2 - padding)
            return boost::none;
        padded.reserve(padded.size() + padding);
    }

    Json::parser parser;
    Json::document document;
    const auto size = static_cast<size_t>(padded.size());
    if (parser.iterate(padded.constData(), size, size + padding).get(document))
        return boost::none;
    FastDeviceStates result;
    result.serverVersion = Version::number();
    if (!Reader().readDocument(document, result))
        return boost::none;
    return result;
}

} // namespace JsonAPI
