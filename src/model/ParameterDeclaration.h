// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <boost/blank.hpp>
#include <boost/variant.hpp>

namespace Model {

// What one parameter of a script action may be given.
struct ParameterDeclaration
{
    enum class Type { Device = 0, Number = 1, String = 2, Action = 3, Property = 4 };

    struct DeviceProperties
    {
        QStringList typeFilter;
        QStringList persistentDataFilter;
    };

    struct NumberProperties
    {
        double defaultValue = 0.0;
        double minimum = 0.0;
        double maximum = 0.0;
    };

    struct StringProperties
    {
        QString defaultValue;
    };

    struct PropertyProperties
    {
        QStringList stateDataFilter;
    };

    // The alternative goes with the type; an action has none.
    using Properties =
        boost::variant<boost::blank, DeviceProperties, NumberProperties, StringProperties, PropertyProperties>;

    QString identificator;
    QString description;
    Type type = Type::Device;
    Properties properties = DeviceProperties();

    static ParameterDeclaration action(const QString &identificator, const QString &description);
    static ParameterDeclaration number(const QString &identificator, const QString &description, double defaultValue,
                                       double minimum, double maximum);
    static ParameterDeclaration property(const QString &identificator, const QString &description,
                                         const QStringList &stateDataFilter);
    static ParameterDeclaration device(const QString &identificator, const QString &description,
                                       const QStringList &typeFilter, const QStringList &persistentDataFilter);
    static ParameterDeclaration string(const QString &identificator, const QString &description,
                                       const QString &defaultValue);

    QVariant toVariant() const;
    // The description is shown in the user's language; an unknown type is Device.
    static ParameterDeclaration fromVariant(const QVariant &map);
};

bool operator==(const ParameterDeclaration &left, const ParameterDeclaration &right);
inline bool operator!=(const ParameterDeclaration &left, const ParameterDeclaration &right)
{
    return !(left == right);
}
bool operator==(const ParameterDeclaration::DeviceProperties &left,
                const ParameterDeclaration::DeviceProperties &right);
bool operator==(const ParameterDeclaration::NumberProperties &left,
                const ParameterDeclaration::NumberProperties &right);
bool operator==(const ParameterDeclaration::StringProperties &left,
                const ParameterDeclaration::StringProperties &right);
bool operator==(const ParameterDeclaration::PropertyProperties &left,
                const ParameterDeclaration::PropertyProperties &right);

} // namespace Model
