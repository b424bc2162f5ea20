// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/AbstractQmlController.h"
#include "model/Actions.h"
#include "model/Site.h"

#include <QStringList>

// The whole site record, the editing flag, and sequences that run at once. QML knows it as "shopController".
class ShopController : public AbstractQmlController
{
    Q_OBJECT
    Q_PROPERTY(bool isEditingEnabled READ getIsEditingEnabled WRITE enableEditing NOTIFY isEditingEnabledChanged)
    Q_PROPERTY(Model::Shop shop READ getShop NOTIFY shopUpdated)

public:
    explicit ShopController(AbstractBackendCommunicator &communicator, QObject *parent = nullptr);

    bool getIsEditingEnabled() const { return m_isEditingEnabled; }

public slots:
    void onShopReceived(const Model::Shop &shop);
    void enableEditing(bool value);
    int getZonesCount() const;
    QStringList getZonesUids() const;
    Model::Shop getShop() const { return m_shop; }
    void runActionSequence(const Model::ActionSequence &sequence);

signals:
    void isEditingEnabledChanged(bool value);
    void showBrightnessControlChanged(bool value);
    void zoneSelectionChanged();
    void factoryNameChanged(const QString &value);
    void terminalNameChanged(const QString &value);
    void shopUpdated();
    void buttonStatesUpdated();

private:
    void onBackendStatusChanged();

    Model::Shop m_shop;
    bool m_isEditingEnabled = false;
};
