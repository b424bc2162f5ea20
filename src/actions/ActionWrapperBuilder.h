// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Actions.h"

#include <QObject>
#include <QStringList>
#include <QVariant>

// One step of a sequence declared in QML, where it is called "ActionWrapper".
class ActionWrapperBuilder : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString action READ getAction WRITE setAction NOTIFY actionChanged)
    Q_PROPERTY(QStringList zones READ getZones WRITE setZones NOTIFY zonesChanged)
    Q_PROPERTY(QVariant params READ getParams WRITE setParams NOTIFY paramsChanged)

public:
    using QObject::QObject;

    QString getAction() const { return m_action; } // uid text
    void setAction(const QString &action);
    QStringList getZones() const { return m_zones; } // uid texts
    void setZones(const QStringList &zones);
    QVariant getParams() const { return m_params; } // map of bare values by parameter name
    void setParams(const QVariant &params);

    Q_INVOKABLE Model::ActionWrapper toWrapper() const;

signals:
    void actionChanged();
    void zonesChanged();
    void paramsChanged();

private:
    QString m_action;
    QStringList m_zones;
    QVariant m_params;
};
