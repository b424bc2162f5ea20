// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/DeviceTypeInfo.h"

#include "model/VariantReading.h"

#include <QVariantList>
#include <algorithm>

namespace Model {

namespace {

using Parameter = DeviceTypeInfo::Parameter;
using StatisticsInfo = DeviceTypeInfo::StatisticsInfo;

QVariantMap defaultValues(const std::vector<Parameter> &parameters)
{
    QVariantMap values;
    for (const auto &parameter : parameters)
        values.insert(parameter.identificator, parameter.defaultValue.valueToVariant());
    return values;
}

template <typename T>
QVariantList toList(const std::vector<T> &records)
{
    QVariantList list;
    list.reserve(static_cast<int>(records.size()));
    for (const auto &record : records)
        list.append(record.toVariant());
    return list;
}

template <typename T>
std::vector<T> fromList(const QVariant &variant)
{
    const auto list = variant.toList();
    std::vector<T> records;
    records.reserve(static_cast<std::size_t>(list.size()));
    for (const auto &record : list)
        records.push_back(T::fromVariant(record));
    return records;
}

// An overlay names the parameters that it describes; those that the type does not have are passed over.
void localizeParameters(std::vector<Parameter> &parameters, const QVariant &overlays)
{
    for (const auto &variant : overlays.toList()) {
        const auto overlay = variant.toMap();
        const auto identificator = overlay.value("identificator").toString();
        const auto found = std::find_if(parameters.begin(), parameters.end(), [&](const auto &parameter) {
            return parameter.identificator == identificator;
        });
        if (found != parameters.end())
            found->localize(overlay);
    }
}

} // namespace

QVariantMap StatisticsInfo::Field::toVariant() const
{
    return {{"name", name}, {"description", description}, {"type", type}};
}

DeviceTypeInfo::StatisticsInfo::Field StatisticsInfo::Field::fromVariant(const QVariant &variant)
{
    const auto map = variant.toMap();
    return {map.value("name").toString(), map.value("description").toString(), map.value("type").toString()};
}

QVariantMap StatisticsInfo::toVariant() const
{
    return {
        {"group", group == Group::Zone ? QStringLiteral("zone") : QStringLiteral("none")},
        {"interface", interface},
        {"fields", toList(fields)},
    };
}

DeviceTypeInfo::StatisticsInfo StatisticsInfo::fromVariant(const QVariant &variant)
{
    const auto map = variant.toMap();
    StatisticsInfo info;
    info.group = map.value("group").toString().toLower() == QLatin1String("zone") ? Group::Zone : Group::None;
    info.interface = map.value("interface").toString();
    info.fields = fromList<Field>(map.value("fields"));
    return info;
}

DeviceTypeInfo::DeviceTypeInfo(const QUrl &url, int version, int sortOrder, const QString &name,
                               const QString &description, const QStringList &tags, const QString &commonType,
                               const QString &locale, const std::vector<Parameter> &parameters,
                               const std::vector<Parameter> &state, const StatisticsInfo &statistics,
                               bool uniqueAddress, const QString &customAddress)
    : url(url)
    , version(version)
    , sortOrder(sortOrder)
    , name(name)
    , description(description)
    , tags(tags)
    , commonType(commonType)
    , locale(locale)
    , parameters(parameters)
    , state(state)
    , statistics(statistics)
    , uniqueAddress(uniqueAddress)
    , customAddress(customAddress)
{}

const DeviceTypeInfo &DeviceTypeInfo::fallback()
{
    static const DeviceTypeInfo info = [] {
        DeviceTypeInfo unknown;
        unknown.name = QStringLiteral("No name");
        unknown.description = QStringLiteral("No description");
        unknown.locale = QStringLiteral("ru_RU");
        return unknown;
    }();
    return info;
}

bool DeviceTypeInfo::isValid() const
{
    return version >= 1 && commonType != QLatin1String("unknown");
}

QVariantMap DeviceTypeInfo::defaultParametersValues() const
{
    return defaultValues(parameters);
}

QVariantMap DeviceTypeInfo::defaultStateValues() const
{
    return defaultValues(state);
}

QVariantMap DeviceTypeInfo::toVariant() const
{
    return {
        {"url", url.toString()},
        {"version", version},
        {"sortOrder", sortOrder},
        {"name", name},
        {"description", description},
        {"tags", tags},
        {"commonType", commonType},
        {"locale", locale},
        {"parameters", toList(parameters)},
        {"state", toList(state)},
        {"statistics", statistics.toVariant()},
        {"uniqueAddress", uniqueAddress},
        {"customAddress", customAddress},
    };
}

DeviceTypeInfo DeviceTypeInfo::fromVariant(const QVariant &variant)
{
    const auto map = variant.toMap();
    DeviceTypeInfo info;
    info.url = QUrl(map.value("url").toString());
    info.version = intFrom(map.value("version"));
    info.sortOrder = intFrom(map.value("sortOrder"));
    info.name = map.value("name").toString();
    info.description = map.value("description").toString();
    info.tags = map.value("tags").toStringList();
    info.commonType = textFrom(map.value("commonType"), info.commonType);
    info.locale = map.value("locale").toString();
    info.parameters = parametersFromVariant(map.value("parameters"));
    info.state = parametersFromVariant(map.value("state"));
    info.statistics = StatisticsInfo::fromVariant(map.value("statistics"));
    info.uniqueAddress = map.value("uniqueAddress").toBool();
    info.customAddress = map.value("customAddress").toString();
    return info;
}

void DeviceTypeInfo::localize(const QVariantMap &overlay)
{
    name = textFrom(overlay.value("name"), name);
    description = textFrom(overlay.value("description"), description);
    locale = textFrom(overlay.value("locale"), locale);
    localizeParameters(parameters, overlay.value("parameters"));
    localizeParameters(state, overlay.value("state"));
}

QVariantList DeviceTypeInfo::parametersToVariant(const std::vector<Parameter> &parameters)
{
    return toList(parameters);
}

std::vector<DeviceTypeInfo::Parameter> DeviceTypeInfo::parametersFromVariant(const QVariant &list)
{
    return fromList<Parameter>(list);
}

bool operator==(const DeviceTypeInfo::StatisticsInfo::Field &left, const DeviceTypeInfo::StatisticsInfo::Field &right)
{
    return left.name == right.name && left.description == right.description && left.type == right.type;
}

bool operator==(const DeviceTypeInfo::StatisticsInfo &left, const DeviceTypeInfo::StatisticsInfo &right)
{
    return left.group == right.group && left.interface == right.interface && left.fields == right.fields;
}

bool operator==(const DeviceTypeInfo &left, const DeviceTypeInfo &right)
{
    return left.url == right.url && left.version == right.version && left.sortOrder == right.sortOrder
        && left.name == right.name && left.description == right.description && left.tags == right.tags
        && left.commonType == right.commonType && left.locale == right.locale && left.parameters == right.parameters
        && left.state == right.state && left.statistics == right.statistics && left.uniqueAddress == right.uniqueAddress
        && left.customAddress == right.customAddress;
}

} // namespace Model
