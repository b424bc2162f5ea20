// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/Rows.h"
#include "data/UidKeyAbstractListModel.h"
#include "model/Site.h"

#include <QJSValue>
#include <QStringList>

class AbstractBackendCommunicator;
class UsersListModel;

// The parts of the site (floors, plans) that the current user may see. QML knows it as "shopPartsListModel".
class ShopPartsListModel : public UidKeyAbstractListModel
{
    Q_OBJECT

public:
    enum Role { Uid = Qt::UserRole + 1, Name, Sort };

    ShopPartsListModel(AbstractBackendCommunicator &communicator, UsersListModel &users, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    // The callback gets the array of new uids. The row comes with the next list.
    Q_INVOKABLE void addShopPart(const QJSValue &callback = QJSValue());
    Q_INVOKABLE void addShopPart(const QJSValue &value, const QJSValue &callback); // the value counts for nothing
    Q_INVOKABLE void changeShopPartName(const QString &uid, const QString &name);
    Q_INVOKABLE void removeShopParts(const QStringList &uids);

public slots:
    void onPartsReceived(const std::vector<Model::ShopPart> &parts);

private:
    AbstractBackendCommunicator &m_communicator;
    UsersListModel &m_users;
    Rows<Model::ShopPart> m_parts;
};
