// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/Rows.h"
#include "data/UidKeyAbstractListModel.h"
#include "model/Devices.h"
#include "model/PlanObjects.h"

#include <QHash>
#include <QJSValue>
#include <QStringList>
#include <QVector>

class AbstractBackendCommunicator;
class UsersListModel;

// The indicators of the parts that the current user may see: what each is itself, what the rules of the server
// override of it, and the value of its device. QML knows it as "indicatorsListModel".
class IndicatorsListModel : public UidKeyAbstractListModel
{
    Q_OBJECT

public:
    enum Role {
        Uid = Qt::UserRole + 1,
        PartUid,
        IndicatorType,
        Visible,
        Opacity,
        Label,
        Text,
        Icon,
        X,
        Y,
        Width,
        Height,
        TextColor,
        IconColor,
        ValueDevice,
        ValueProperty,
        Sort,
        HorizontalAlignment
    };

    struct Item
    {
        Model::Indicator indicator;
        Model::IndicatorState state;
        QVariant value; // of the device's property; invalid as long as none has come
    };

    IndicatorsListModel(AbstractBackendCommunicator &communicator, UsersListModel &users, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    // value: an object with "width", "height", "partUid", any of "textColor", "iconColor", "horizontalAlignment", and
    // "x" and "y", without which a free place is found. The callback gets the array of new uids.
    Q_INVOKABLE void addIndicator(const QJSValue &value, const QJSValue &callback = QJSValue());
    // value: an object with "uid", and what of the indicator is to change. "valueDevice" and "valueProperty" go
    // together; no device means no value.
    Q_INVOKABLE void changeIndicator(const QVariant &value);
    Q_INVOKABLE void removeIndicators(const QStringList &uids);

public slots:
    void onIndicatorsUpdated(const std::vector<Model::Indicator> &indicators);
    void onIndicatorStatesUpdated(const std::vector<Model::IndicatorState> &states);
    void onDeviceStatesUpdated(const std::vector<Model::DeviceState> &states);
    void onBackendStatusChanged();

private:
    static QString textOf(const Item &item);
    QVariant getValue(const QUuid &device, const QString &property) const;
    QVariant valueOf(const Model::Indicator &indicator) const;
    void announceRow(int row, const QVector<int> &roles);

    AbstractBackendCommunicator &m_communicator;
    UsersListModel &m_users;
    Rows<Item> m_items;
    QHash<QUuid, Model::DeviceState> m_deviceStates; // the latest of each device
    QHash<QUuid, Model::IndicatorState> m_states; // the latest of each indicator
};
