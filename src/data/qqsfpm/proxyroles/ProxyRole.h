// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QModelIndex>
#include <QMutex>
#include <QObject>
#include <QVariant>

namespace qqsfpm {

class QQmlSortFilterProxyModel;

// Base of the roles that a proxy adds to those of its source.
class ProxyRole : public QObject
{
    Q_OBJECT

public:
    explicit ProxyRole(QObject *parent = nullptr);

    virtual QStringList names() const = 0;
    virtual QVariant data(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel,
                          const QString &name) const = 0;

    // The data; invalid while this role is being computed already, which is how a role that reads itself comes to an
    // end.
    QVariant roleData(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel, const QString &name);

signals:
    void invalidated();
    void namesChanged();

private:
    QMutex m_mutex;
};

} // namespace qqsfpm
