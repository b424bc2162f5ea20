// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/QQmlSortFilterProxyModel.h"

#include <QSet>

// Passes the rows that name one of the allowed uids, in the filter role or, without one, in any role. The filters of
// the base class count for nothing here.
class UidFilterProxyModel : public qqsfpm::QQmlSortFilterProxyModel
{
    Q_OBJECT
    Q_PROPERTY(QStringList allowedUids READ allowedUids WRITE setAllowedUids NOTIFY allowedUidsChanged)
    Q_PROPERTY(bool filterEnabled READ filterEnabled WRITE setFilterEnabled NOTIFY filterEnabledChanged)

public:
    using qqsfpm::QQmlSortFilterProxyModel::QQmlSortFilterProxyModel;

    QStringList allowedUids() const { return m_allowedUids.values(); }
    // Uneven on purpose: uids that are allowed already don't count. If that leaves none, nothing happens at all; else
    // those left are the ones allowed from now on.
    void setAllowedUids(const QStringList &allowedUids);

    bool filterEnabled() const { return m_filterEnabled; }
    void setFilterEnabled(bool filterEnabled);

signals:
    void allowedUidsChanged();
    void filterEnabledChanged();

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;

private:
    QSet<QString> m_allowedUids;
    bool m_filterEnabled = true;
};
