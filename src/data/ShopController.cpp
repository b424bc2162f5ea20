// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ShopController.h"

#include "link/AbstractBackendCommunicator.h"

ShopController::ShopController(AbstractBackendCommunicator &communicator, QObject *parent)
    : AbstractQmlController(communicator, parent)
{
    connect(&communicator, &AbstractBackendCommunicator::shopReceived, this, &ShopController::onShopReceived);
    connect(&communicator, &AbstractBackendCommunicator::statusChanged, this, &ShopController::onBackendStatusChanged);
}

void ShopController::onShopReceived(const Model::Shop &shop)
{
    const bool isFactoryNew = m_shop.name != shop.name;
    const bool isTerminalNew = m_shop.terminalName != shop.terminalName;
    m_shop = shop;
    if (isFactoryNew)
        emit factoryNameChanged(m_shop.name);
    if (isTerminalNew)
        emit terminalNameChanged(m_shop.terminalName);
    emit shopUpdated();
}

void ShopController::enableEditing(bool value)
{
    m_isEditingEnabled = value;
    emit isEditingEnabledChanged(value);
}

int ShopController::getZonesCount() const
{
    return m_shop.zones.size();
}

QStringList ShopController::getZonesUids() const
{
    QStringList uids;
    for (auto zone = m_shop.zones.cbegin(); zone != m_shop.zones.cend(); ++zone)
        uids.append(zone.key().toString());
    return uids;
}

void ShopController::runActionSequence(const Model::ActionSequence &sequence)
{
    communicator().runActionSequences({sequence});
}

// Whoever may not edit loses the editing mode that the user before had left on.
void ShopController::onBackendStatusChanged()
{
    if (communicator().getStatus() == AbstractBackendCommunicator::Connected
        && communicator().getUserGroup() != QLatin1String("admin"))
        enableEditing(false);
}
