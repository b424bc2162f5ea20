// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/UidKeyAbstractListModel.h"

QVariantMap UidKeyAbstractListModel::getByUid(const QString &uid) const
{
    static const QByteArray uidName("uid");
    const auto names = roleNames();
    const auto uidRole = std::find(names.cbegin(), names.cend(), uidName);
    if (uidRole == names.cend())
        return {};
    for (int row = 0; row < rowCount(); ++row) {
        const auto place = index(row);
        if (data(place, uidRole.key()).toString() != uid)
            continue;
        QVariantMap record;
        for (auto name = names.cbegin(); name != names.cend(); ++name)
            record.insert(QString::fromUtf8(name.value()), data(place, name.key()));
        return record;
    }
    return {};
}

Qt::ItemFlags UidKeyAbstractListModel::flags(const QModelIndex &index) const
{
    return index.isValid() ? Qt::ItemIsSelectable | Qt::ItemIsEnabled : Qt::NoItemFlags;
}

bool UidKeyAbstractListModel::holds(const QModelIndex &index) const
{
    return index.isValid() && index.model() == this && index.row() < rowCount();
}
