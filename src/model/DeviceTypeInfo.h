// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/ActionDatatype.h"
#include "model/ActionValueLimits.h"

#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QVariant>
#include <QVariantList>
#include <QVariantMap>
#include <vector>

namespace Model {

// What the server says a kind of device is: what it can be told and what it reports.
struct DeviceTypeInfo
{
    // One parameter or state field.
    struct Parameter
    {
        enum class Access { InOut = 0, In = 1, Out = 2 };

        QString identificator; // key into a device's data or state
        QString description; // label of the form field
        Access access = Access::InOut;
        ActionValueLimits limits;
        ActionDatatype defaultValue;

        static QString accessToString(Access access); // "in", "out", otherwise "in/out"
        static Access accessFromString(const QString &text);

        // Limits and default stand inside the parameter's own map, shaped by its key "type".
        static void dataTypeToMap(const ActionValueLimits &limits, const ActionDatatype &value, QVariantMap &map);
        static void dataTypeFromMap(const QVariantMap &map, ActionValueLimits &limits, ActionDatatype &value);

        QVariantMap toVariant() const;
        static Parameter fromVariant(const QVariant &map);

        void localize(const QVariantMap &overlay);
    };

    struct StatisticsInfo
    {
        enum class Group { None = 0, Zone = 1 };

        struct Field
        {
            QString name;
            QString description;
            QString type;

            QVariantMap toVariant() const;
            static Field fromVariant(const QVariant &map);
        };

        Group group = Group::None; // whether statistics are kept for each zone rather than for each device
        QString interface; // name of the statistics interface, such as "Lamp.qml"
        std::vector<Field> fields;

        QVariantMap toVariant() const;
        static StatisticsInfo fromVariant(const QVariant &map);
    };

    DeviceTypeInfo() = default;
    DeviceTypeInfo(const QUrl &url, int version, int sortOrder, const QString &name, const QString &description,
                   const QStringList &tags, const QString &commonType, const QString &locale,
                   const std::vector<Parameter> &parameters, const std::vector<Parameter> &state,
                   const StatisticsInfo &statistics, bool uniqueAddress, const QString &customAddress);

    QUrl url;
    int version = 0;
    int sortOrder = 0;
    QString name;
    QString description;
    QStringList tags;
    QString commonType = QStringLiteral("unknown");
    QString locale;
    std::vector<Parameter> parameters;
    std::vector<Parameter> state;
    StatisticsInfo statistics;
    bool uniqueAddress = false;
    QString customAddress; // the key of data that stands for the address; empty: the plain address counts

    static const DeviceTypeInfo &fallback(); // for a device whose url is not among the known types

    bool isValid() const;
    QVariantMap defaultParametersValues() const;
    QVariantMap defaultStateValues() const;

    QVariantMap toVariant() const; // the map form, camelCase keys
    static DeviceTypeInfo fromVariant(const QVariant &map);

    void localize(const QVariantMap &overlay);

    // What the map form and the document read and write alike.
    static QVariantList parametersToVariant(const std::vector<Parameter> &parameters);
    static std::vector<Parameter> parametersFromVariant(const QVariant &list);
};

bool operator==(const DeviceTypeInfo::Parameter &left, const DeviceTypeInfo::Parameter &right);
bool operator==(const DeviceTypeInfo::StatisticsInfo &left, const DeviceTypeInfo::StatisticsInfo &right);
bool operator==(const DeviceTypeInfo::StatisticsInfo::Field &left, const DeviceTypeInfo::StatisticsInfo::Field &right);
bool operator==(const DeviceTypeInfo &left, const DeviceTypeInfo &right);

} // namespace Model

Q_DECLARE_METATYPE(Model::DeviceTypeInfo)
Q_DECLARE_METATYPE(std::vector<Model::DeviceTypeInfo>)
