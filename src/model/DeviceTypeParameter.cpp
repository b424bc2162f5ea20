// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/DeviceTypeInfo.h"
#include "model/VariantReading.h"

#include <QLoggingCategory>
#include <QVariantList>

Q_LOGGING_CATEGORY(deviceTypeCategory, "ondira.model.devicetype")

namespace Model {

namespace {

using Parameter = DeviceTypeInfo::Parameter;

// Elements of elements come from outside; beyond this depth they are read as void, to spare the stack.
constexpr int maxElementDepth = 1024;

QVariantMap elementToMap(const ActionValueLimits::ListLimits &limits)
{
    const auto element = limits.toValueLimits();
    QVariantMap map;
    Parameter::dataTypeToMap(element, ActionDatatype(), map);
    return map;
}

ActionDatatype listFrom(const QVariant &variant)
{
    ActionDatatype::List elements;
    for (const auto &element : variant.toList())
        elements.push_back(ActionDatatype(element));
    return elements;
}

void readDataType(const QVariantMap &map, ActionValueLimits &limits, ActionDatatype &value, int depth)
{
    const auto type = map.value("type").toString();
    const auto given = map.value("def");
    if (type == QLatin1String("int")) {
        const ActionValueLimits::IntegerLimits widest;
        limits = ActionValueLimits::integer(integerFrom(map.value("min"), widest.min),
                                            integerFrom(map.value("max"), widest.max));
        value = integerFrom(given);
    } else if (type == QLatin1String("double")) {
        const ActionValueLimits::DoubleLimits widest;
        limits =
            ActionValueLimits::real(doubleFrom(map.value("min"), widest.min), doubleFrom(map.value("max"), widest.max));
        value = doubleFrom(given);
    } else if (type == QLatin1String("bool")) {
        limits = ActionValueLimits(ActionDatatype::Type::Bool);
        value = given.toBool();
    } else if (type == QLatin1String("string")) {
        const ActionValueLimits::StringLimits widest;
        limits = ActionValueLimits::string(intFrom(map.value("minLength"), widest.minLength),
                                           intFrom(map.value("maxLength"), widest.maxLength),
                                           map.value("validator").toString());
        value = given.toString();
    } else if (type == QLatin1String("array")) {
        const ActionValueLimits::ListLimits widest;
        ActionValueLimits element;
        ActionDatatype elementValue; // an element's own default means nothing
        if (depth < maxElementDepth)
            readDataType(map.value("element").toMap(), element, elementValue, depth + 1);
        limits = ActionValueLimits::list(element, intFrom(map.value("minLength"), widest.minLength),
                                         intFrom(map.value("maxLength"), widest.maxLength));
        value = listFrom(given);
    } else if (type == QLatin1String("choice")) {
        limits = ActionValueLimits::enumeration(map.value("items").toStringList());
        value = ActionDatatype::EnumDatatype{integerFrom(given)};
    } else {
        qCWarning(deviceTypeCategory) << "Unknown parameter type:" << type << "map:" << map;
        limits = ActionValueLimits();
        value = ActionDatatype();
    }
}

} // namespace

QString Parameter::accessToString(Access access)
{
    switch (access) {
    case Access::In: return QStringLiteral("in");
    case Access::Out: return QStringLiteral("out");
    case Access::InOut: break;
    }
    return QStringLiteral("in/out");
}

Parameter::Access Parameter::accessFromString(const QString &text)
{
    const auto word = text.trimmed().toLower();
    if (word == QLatin1String("in") || word == QLatin1String("input"))
        return Access::In;
    if (word == QLatin1String("out") || word == QLatin1String("output"))
        return Access::Out;
    return Access::InOut;
}

void Parameter::dataTypeToMap(const ActionValueLimits &limits, const ActionDatatype &value, QVariantMap &map)
{
    using Type = ActionDatatype::Type;
    switch (limits.type()) {
    case Type::Integer:
        map.insert("type", QStringLiteral("int"));
        map.insert("min", limits.toInteger().min);
        map.insert("max", limits.toInteger().max);
        map.insert("def", value.toInteger());
        break;
    case Type::Double:
        map.insert("type", QStringLiteral("double"));
        map.insert("min", limits.toDouble().min);
        map.insert("max", limits.toDouble().max);
        map.insert("def", value.toDouble());
        break;
    case Type::Bool:
        map.insert("type", QStringLiteral("bool"));
        map.insert("def", value.toBool());
        break;
    case Type::String:
        map.insert("type", QStringLiteral("string"));
        map.insert("minLength", limits.toString().minLength);
        map.insert("maxLength", limits.toString().maxLength);
        map.insert("validator", limits.toString().regex);
        map.insert("def", value.toString());
        break;
    case Type::List:
        map.insert("type", QStringLiteral("array"));
        map.insert("minLength", limits.toList().minLength);
        map.insert("maxLength", limits.toList().maxLength);
        map.insert("element", elementToMap(limits.toList()));
        map.insert("def", ActionDatatype(value.toList()).valueToVariant());
        break;
    case Type::Enum:
        map.insert("type", QStringLiteral("choice"));
        map.insert("items", limits.toEnum().items);
        map.insert("def", value.toEnum().index);
        break;
    case Type::Void:
    case Type::Entity: break; // the map has no word for these
    }
}

void Parameter::dataTypeFromMap(const QVariantMap &map, ActionValueLimits &limits, ActionDatatype &value)
{
    readDataType(map, limits, value, 0);
}

QVariantMap Parameter::toVariant() const
{
    QVariantMap map{{"identificator", identificator}, {"description", description}, {"access", accessToString(access)}};
    dataTypeToMap(limits, defaultValue, map);
    return map;
}

DeviceTypeInfo::Parameter Parameter::fromVariant(const QVariant &variant)
{
    const auto map = variant.toMap();
    Parameter parameter;
    parameter.identificator = map.value("identificator").toString();
    parameter.description = map.value("description").toString();
    parameter.access = accessFromString(map.value("access").toString());
    dataTypeFromMap(map, parameter.limits, parameter.defaultValue);
    return parameter;
}

void Parameter::localize(const QVariantMap &overlay)
{
    using Type = ActionDatatype::Type;
    description = textFrom(overlay.value("description"), description);
    if (!overlay.contains("type"))
        return; // it translates the description alone
    ActionValueLimits translatedLimits;
    ActionDatatype translatedValue;
    dataTypeFromMap(overlay, translatedLimits, translatedValue);
    if (limits.type() == Type::Enum && translatedLimits.type() == Type::Enum)
        limits = translatedLimits;
    if (defaultValue.type() == Type::String && translatedValue.type() == Type::String)
        defaultValue = translatedValue;
}

bool operator==(const DeviceTypeInfo::Parameter &left, const DeviceTypeInfo::Parameter &right)
{
    return left.identificator == right.identificator && left.description == right.description
        && left.access == right.access && left.limits == right.limits && left.defaultValue == right.defaultValue;
}

} // namespace Model
