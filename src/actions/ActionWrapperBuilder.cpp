// SPDX-License-Identifier: GPL-3.0-or-later
#include "actions/ActionWrapperBuilder.h"

#include "data/JsValues.h"

void ActionWrapperBuilder::setAction(const QString &action)
{
    if (action == m_action)
        return;
    m_action = action;
    emit actionChanged();
}

void ActionWrapperBuilder::setZones(const QStringList &zones)
{
    if (zones == m_zones)
        return;
    m_zones = zones;
    emit zonesChanged();
}

void ActionWrapperBuilder::setParams(const QVariant &params)
{
    // Kept as plain values: two script objects are never equal, and one lives no longer than its engine.
    const auto value = JsValues::plain(params);
    if (value.userType() == m_params.userType() && value == m_params)
        return;
    m_params = value;
    emit paramsChanged();
}

Model::ActionWrapper ActionWrapperBuilder::toWrapper() const
{
    Model::ActionWrapper wrapper;
    wrapper.action = QUuid(m_action);
    for (const auto &zone : m_zones)
        wrapper.controlledZones.insert(QUuid(zone));
    wrapper.passedParameters = m_params.toMap();
    return wrapper;
}
