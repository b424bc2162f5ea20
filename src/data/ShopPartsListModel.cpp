// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ShopPartsListModel.h"

#include "data/JsValues.h"
#include "data/UsersListModel.h"
#include "link/AbstractBackendCommunicator.h"

ShopPartsListModel::ShopPartsListModel(AbstractBackendCommunicator &communicator, UsersListModel &users,
                                       QObject *parent)
    : UidKeyAbstractListModel(parent)
    , m_communicator(communicator)
    , m_users(users)
{
    auto &cache = communicator.getDataCache();
    connect(&cache, &BackendDataCache::shopPartsChanged, this, &ShopPartsListModel::onPartsReceived);
    // Users and parts come in any order, so the rights that came last choose anew among the last list.
    connect(&users, &UsersListModel::currentUserChanged, this,
            [this] { onPartsReceived(m_communicator.getDataCache().getShopParts()); });
    onPartsReceived(cache.getShopParts());
}

int ShopPartsListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_parts.size();
}

QVariant ShopPartsListModel::data(const QModelIndex &index, int role) const
{
    if (!holds(index))
        return {};
    const auto &part = m_parts.at(index.row());
    switch (role) {
    case Uid: return part.uid.toString();
    case Name: return part.name;
    case Sort: return part.name;
    }
    return {};
}

QHash<int, QByteArray> ShopPartsListModel::roleNames() const
{
    static const QHash<int, QByteArray> names{{Uid, "uid"}, {Name, "name"}, {Sort, "sort"}};
    return names;
}

void ShopPartsListModel::addShopPart(const QJSValue &callback)
{
    m_communicator.addShopParts({Model::ShopPart()}, JsValues::uidsCompletion(this, callback));
}

void ShopPartsListModel::addShopPart(const QJSValue &, const QJSValue &callback)
{
    addShopPart(callback);
}

void ShopPartsListModel::changeShopPartName(const QString &uid, const QString &name)
{
    const QUuid wanted(uid);
    const auto part = std::find_if(m_parts.begin(), m_parts.end(), [&](const auto &row) { return row.uid == wanted; });
    if (part == m_parts.end())
        return;
    auto changed = *part;
    changed.name = name;
    m_communicator.changeShopParts({changed});
}

void ShopPartsListModel::removeShopParts(const QStringList &uids)
{
    std::vector<Model::ShopPart> parts;
    for (const auto &uid : uids) {
        Model::ShopPart part;
        part.uid = QUuid(uid);
        if (!part.uid.isNull())
            parts.push_back(part);
    }
    if (!parts.empty())
        m_communicator.removeShopParts(parts);
}

void ShopPartsListModel::onPartsReceived(const std::vector<Model::ShopPart> &parts)
{
    const auto user = m_users.getCurrentUser();
    std::vector<Model::ShopPart> allowed;
    std::copy_if(parts.begin(), parts.end(), std::back_inserter(allowed),
                 [&](const auto &part) { return user.hasAccess(part.uid); });
    using Merge = DiffTransform<Rows<Model::ShopPart>, Model::ShopPart>;
    Merge(
        m_parts, std::move(allowed), [](const auto &part) { return part.uid; }, *this)
        .transform();
}
