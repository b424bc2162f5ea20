// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/SettingsChecks.h"

#include "demo/RequestErrors.h"
#include "demo/RequestReader.h"
#include "model/RadioDutyCycle.h"

#include <QVariantList>
#include <QVariantMap>
#include <algorithm>
#include <utility>
#include <vector>

namespace Demo {

namespace {

using Kind = RequestReader::Kind;
using JsonAPI::Errors;

constexpr int longestPort = 64; // characters
constexpr int largestAddress = 65535;

struct Field
{
    const char *key;
    bool (*isGood)(const QVariant &value);
};

using Fields = std::vector<Field>;

template <int least, int most>
bool inRange(const QVariant &value)
{
    return RequestReader::isOfKind(value, Kind::Integer) && value.toDouble() >= least && value.toDouble() <= most;
}

bool isFrequency(const QVariant &value)
{
    constexpr int mega = 1000000;
    return inRange<410 * mega, 510 * mega>(value) || inRange<862 * mega, 893 * mega>(value);
}

bool isPort(const QVariant &value)
{
    return RequestReader::isOfKind(value, Kind::Text) && value.toString().size() <= longestPort;
}

bool isDutyCycle(const QVariant &value)
{
    const auto text = value.toString(); // an unknown text reads as one that it is not
    return RequestReader::isOfKind(value, Kind::Text)
        && RadioDutyCycle::toString(RadioDutyCycle::fromString(text)) == text;
}

const Fields &pwmFields()
{
    static const Fields fields{{"100", inRange<0, 255>}, {"80", inRange<0, 255>}, {"60", inRange<0, 255>},
                               {"40", inRange<0, 255>},  {"20", inRange<0, 255>}, {"0", inRange<0, 255>}};
    return fields;
}

const Fields &mrfFields()
{
    static const Fields fields{{"pan", inRange<0, largestAddress>},
                               {"address", inRange<0, largestAddress>},
                               {"channel", inRange<11, 26>},
                               {"duty_cycle", isDutyCycle}};
    return fields;
}

const Fields &loraFields()
{
    static const Fields fields{{"frequency", isFrequency},
                               {"power", inRange<10, 30>},
                               {"bandwidth", inRange<6, 9>},
                               {"spreading_factor", inRange<6, 12>},
                               {"coding_rate", inRange<1, 8>},
                               {"address", inRange<0, largestAddress>},
                               {"port_name", isPort},
                               {"duty_cycle", isDutyCycle},
                               {"maximum_reply_length", inRange<4, 256>}};
    return fields;
}

const Fields &rs485Fields()
{
    static const Fields fields{{"address", inRange<0, largestAddress>},
                               {"speed", inRange<1200, 115200>},
                               {"reply_wait_time", inRange<0, 10000>},
                               {"duty_cycle", isDutyCycle},
                               {"port_name", isPort}};
    return fields;
}

// A key that is left out has its default, and a key that is not known does no harm.
void checkMap(const QVariant &value, const Fields &fields, const QString &where, Errors &errors)
{
    if (!RequestReader::isOfKind(value, Kind::Map))
        return RequestErrors::invalidData(errors, QStringLiteral("\"%1\"").arg(where));
    const auto map = value.toMap();
    for (const auto &field : fields) {
        const auto key = QLatin1String(field.key);
        if (map.contains(key) && !field.isGood(map.value(key)))
            RequestErrors::invalidData(errors, QStringLiteral("\"%1\" of \"%2\"").arg(key, where));
    }
}

void checkList(const QVariant &value, const Fields &fields, const QString &where, Errors &errors)
{
    const auto list = value.toList();
    if (!RequestReader::isOfKind(value, Kind::List) || list.size() > SettingsChecks::mostTransports)
        return RequestErrors::invalidData(errors, QStringLiteral("\"%1\"").arg(where));
    for (int i = 0; i < list.size(); ++i)
        checkMap(list.at(i), fields, QStringLiteral("%1[%2]").arg(where).arg(i), errors);
}

} // namespace

void SettingsChecks::settings(const JsonAPI::Entity &entity, JsonAPI::Errors &errors)
{
    RequestReader::check(entity, "settings", {}, errors);
    const auto &attributes = entity.attributes;
    const auto check = [&](const char *key, auto *checkValue, const Fields &fields) {
        const auto found = attributes.constFind(QLatin1String(key));
        if (found != attributes.constEnd())
            checkValue(*found, fields, QLatin1String(key), errors);
    };
    check("pwm", checkMap, pwmFields());
    check("mrf", checkList, mrfFields());
    check("radio", checkMap, mrfFields());
    check("lora", checkList, loraFields());
    check("rs485", checkList, rs485Fields());
}

} // namespace Demo
