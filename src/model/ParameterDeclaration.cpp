// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ParameterDeclaration.h"

#include "model/VariantReading.h"

#include <QCoreApplication>
#include <QVariantMap>

namespace Model {

namespace {

// Adds the keys of the properties to the declaration's own map.
class PropertiesWriter : public boost::static_visitor<>
{
public:
    explicit PropertiesWriter(QVariantMap &map)
        : m_map(map)
    {}

    void operator()(const boost::blank &) const {}

    void operator()(const ParameterDeclaration::DeviceProperties &properties) const
    {
        m_map.insert("typeFilter", properties.typeFilter);
        m_map.insert("persistentDataFilter", properties.persistentDataFilter);
        // The key belongs to the form of a device, which filters nothing by its state.
        m_map.insert("stateDataFilter", QStringList());
    }

    void operator()(const ParameterDeclaration::NumberProperties &properties) const
    {
        m_map.insert("defaultValue", properties.defaultValue);
        m_map.insert("minimumValue", properties.minimum);
        m_map.insert("maximumValue", properties.maximum);
    }

    void operator()(const ParameterDeclaration::StringProperties &properties) const
    {
        m_map.insert("defaultValue", properties.defaultValue);
    }

    void operator()(const ParameterDeclaration::PropertyProperties &properties) const
    {
        m_map.insert("stateDataFilter", properties.stateDataFilter);
    }

private:
    QVariantMap &m_map;
};

QString translated(const QString &text)
{
    return text.isEmpty() ? text : QCoreApplication::translate("DefaultActions", text.toUtf8().constData());
}

} // namespace

ParameterDeclaration ParameterDeclaration::action(const QString &identificator, const QString &description)
{
    return {identificator, description, Type::Action, boost::blank()};
}

ParameterDeclaration ParameterDeclaration::number(const QString &identificator, const QString &description,
                                                  double defaultValue, double minimum, double maximum)
{
    return {identificator, description, Type::Number, NumberProperties{defaultValue, minimum, maximum}};
}

ParameterDeclaration ParameterDeclaration::property(const QString &identificator, const QString &description,
                                                    const QStringList &stateDataFilter)
{
    return {identificator, description, Type::Property, PropertyProperties{stateDataFilter}};
}

ParameterDeclaration ParameterDeclaration::device(const QString &identificator, const QString &description,
                                                  const QStringList &typeFilter,
                                                  const QStringList &persistentDataFilter)
{
    return {identificator, description, Type::Device, DeviceProperties{typeFilter, persistentDataFilter}};
}

ParameterDeclaration ParameterDeclaration::string(const QString &identificator, const QString &description,
                                                  const QString &defaultValue)
{
    return {identificator, description, Type::String, StringProperties{defaultValue}};
}

QVariant ParameterDeclaration::toVariant() const
{
    QVariantMap map{{"identificator", identificator}, {"description", description}, {"type", static_cast<int>(type)}};
    boost::apply_visitor(PropertiesWriter(map), properties);
    return map;
}

ParameterDeclaration ParameterDeclaration::fromVariant(const QVariant &variant)
{
    const auto map = variant.toMap();
    const auto identificator = map.value("identificator").toString();
    const auto description = translated(map.value("description").toString());
    switch (static_cast<Type>(intFrom(map.value("type")))) {
    case Type::Device: break;
    case Type::Number:
        return number(identificator, description, doubleFrom(map.value("defaultValue")),
                      doubleFrom(map.value("minimumValue")), doubleFrom(map.value("maximumValue")));
    case Type::String: return string(identificator, description, map.value("defaultValue").toString());
    case Type::Action: return action(identificator, description);
    case Type::Property: return property(identificator, description, map.value("stateDataFilter").toStringList());
    }
    return device(identificator, description, map.value("typeFilter").toStringList(),
                  map.value("persistentDataFilter").toStringList());
}

bool operator==(const ParameterDeclaration &left, const ParameterDeclaration &right)
{
    return left.identificator == right.identificator && left.description == right.description && left.type == right.type
        && left.properties == right.properties;
}

bool operator==(const ParameterDeclaration::DeviceProperties &left, const ParameterDeclaration::DeviceProperties &right)
{
    return left.typeFilter == right.typeFilter && left.persistentDataFilter == right.persistentDataFilter;
}

bool operator==(const ParameterDeclaration::NumberProperties &left, const ParameterDeclaration::NumberProperties &right)
{
    return left.defaultValue == right.defaultValue && left.minimum == right.minimum && left.maximum == right.maximum;
}

bool operator==(const ParameterDeclaration::StringProperties &left, const ParameterDeclaration::StringProperties &right)
{
    return left.defaultValue == right.defaultValue;
}

bool operator==(const ParameterDeclaration::PropertyProperties &left,
                const ParameterDeclaration::PropertyProperties &right)
{
    return left.stateDataFilter == right.stateDataFilter;
}

} // namespace Model
