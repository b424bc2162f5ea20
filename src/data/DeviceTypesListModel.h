// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DeviceTypeInfo.h"

#include <QAbstractListModel>
#include <QVariant>
#include <vector>

class AbstractBackendCommunicator;

// The device types for the form that adds devices, by their sort order. Each list resets it. Unlike in all other
// models the numbers of its roles begin at 0. QML knows it as "deviceTypesListModel".
class DeviceTypesListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role {
        Url = 0,
        Version,
        Name,
        Description,
        Tags,
        CommonType,
        Parameters,
        Statistics,
        UniqueAddress,
        CustomAddress,
        SortOrder
    };

    explicit DeviceTypesListModel(AbstractBackendCommunicator &communicator, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    // All roles of the row of that url by their names; an empty map if there is none.
    Q_INVOKABLE QVariant getByUrl(const QUrl &url) const;

public slots:
    void onDeviceTypesUpdated(const std::vector<Model::DeviceTypeInfo> &types);

private:
    std::vector<Model::DeviceTypeInfo> m_types;
};
