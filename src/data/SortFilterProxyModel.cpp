// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/SortFilterProxyModel.h"

#include <QQmlEngine>

SortFilterProxyModel::SortFilterProxyModel(QObject *parent)
    : QSortFilterProxyModel(parent)
{
    connect(this, &QAbstractItemModel::rowsInserted, this, &SortFilterProxyModel::countChanged);
    connect(this, &QAbstractItemModel::rowsRemoved, this, &SortFilterProxyModel::countChanged);
    connect(this, &QAbstractItemModel::modelReset, this, &SortFilterProxyModel::countChanged);
    connect(this, &QAbstractItemModel::layoutChanged, this, &SortFilterProxyModel::countChanged);
}

void SortFilterProxyModel::setSource(QObject *source)
{
    setSourceModel(qobject_cast<QAbstractItemModel *>(source));
    applySortRole();
    applyFilterRole();
    sort(0, sortOrder());
    emit sourceChanged();
    emit countChanged();
}

void SortFilterProxyModel::setSortRole(const QByteArray &sortRole)
{
    if (m_sortRole == sortRole)
        return;
    m_sortRole = sortRole;
    applySortRole();
    emit sortRoleChanged();
}

void SortFilterProxyModel::setSortOrder(Qt::SortOrder sortOrder)
{
    sort(0, sortOrder);
}

void SortFilterProxyModel::setFilterRole(const QByteArray &filterRole)
{
    if (m_filterRole == filterRole)
        return;
    m_filterRole = filterRole;
    applyFilterRole();
    emit filterRoleChanged();
}

void SortFilterProxyModel::setFilterString(const QString &filterString)
{
    setFilterRegExp(QRegExp(filterString, filterCaseSensitivity(), QRegExp::PatternSyntax(filterSyntax())));
}

void SortFilterProxyModel::setFilterSyntax(FilterSyntax filterSyntax)
{
    setFilterRegExp(QRegExp(filterString(), filterCaseSensitivity(), QRegExp::PatternSyntax(filterSyntax)));
}

QJSValue SortFilterProxyModel::get(int index) const
{
    auto *engine = qmlEngine(this);
    if (!engine)
        return {};
    QJSValue row = engine->newObject();
    if (index < 0)
        return row;
    const auto names = roleNames();
    const QModelIndex modelIndex = this->index(index, 0);
    for (auto it = names.cbegin(); it != names.cend(); ++it)
        row.setProperty(QString::fromUtf8(it.value()), engine->toScriptValue(modelIndex.data(it.key())));
    return row;
}

void SortFilterProxyModel::classBegin() {}

void SortFilterProxyModel::componentComplete()
{
    applySortRole();
    applyFilterRole();
}

bool SortFilterProxyModel::filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const
{
    const QRegExp pattern = filterRegExp();
    if (pattern.isEmpty())
        return true;
    const QModelIndex sourceIndex = sourceModel()->index(sourceRow, 0, sourceParent);
    const auto names = sourceModel()->roleNames();
    for (auto it = names.cbegin(); it != names.cend(); ++it) {
        const bool isAsked = m_filterRole.isEmpty() || it.value() == m_filterRole;
        if (isAsked && sourceIndex.data(it.key()).toString().contains(pattern))
            return true;
    }
    return false;
}

void SortFilterProxyModel::applySortRole()
{
    if (!m_sortRole.isEmpty())
        QSortFilterProxyModel::setSortRole(roleNumber(m_sortRole));
}

void SortFilterProxyModel::applyFilterRole()
{
    const int role = m_filterRole.isEmpty() ? int(Qt::DisplayRole) : roleNumber(m_filterRole);
    if (role == QSortFilterProxyModel::filterRole())
        invalidateFilter(); // no role and one of this number do not mean the same
    else
        QSortFilterProxyModel::setFilterRole(role);
}
