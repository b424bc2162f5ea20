// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/QQmlSortFilterProxyModel.h"

#include "data/qqsfpm/Variants.h"

#include <QQmlInfo>
#include <algorithm>

namespace qqsfpm {

namespace {

// After so many passes in a row that were raised from within the one before, a script is taken to chase itself.
const int selfMadePassesAtMost = 10;

class Depth
{
public:
    explicit Depth(int &depth)
        : m_depth(depth)
    {
        ++m_depth;
    }
    ~Depth() { --m_depth; }

    Depth(const Depth &) = delete;
    Depth &operator=(const Depth &) = delete;

private:
    int &m_depth;
};

} // namespace

QQmlSortFilterProxyModel::QQmlSortFilterProxyModel(QObject *parent)
    : QSortFilterProxyModel(parent)
{
    updateRoleNames(nullptr);
    m_sortRoleKeys.reset(this);
    connect(this, &QAbstractItemModel::rowsInserted, this, &QQmlSortFilterProxyModel::updateCount);
    connect(this, &QAbstractItemModel::rowsRemoved, this, &QQmlSortFilterProxyModel::updateCount);
    connect(this, &QAbstractItemModel::modelReset, this, &QQmlSortFilterProxyModel::updateCount);
    connect(this, &QAbstractItemModel::layoutChanged, this, &QQmlSortFilterProxyModel::updateCount);
    connect(this, &QAbstractItemModel::dataChanged, this, &QQmlSortFilterProxyModel::onDataChanged);
}

QQmlSortFilterProxyModel::~QQmlSortFilterProxyModel() = default;

int QQmlSortFilterProxyModel::count() const
{
    if (m_isComplete)
        return rowCount();
    // Until then every row passes. To ask the base class would make it list them all, only to take them out again.
    return sourceModel() ? sourceModel()->rowCount() : 0;
}

void QQmlSortFilterProxyModel::setDelayed(bool delayed)
{
    if (m_delayed == delayed)
        return;
    m_delayed = delayed;
    emit delayedChanged();
}

void QQmlSortFilterProxyModel::setFilterRoleName(const QString &filterRoleName)
{
    if (m_filterRoleName == filterRoleName)
        return;
    m_filterRoleName = filterRoleName;
    updateRoleNumbers();
    emit filterRoleNameChanged();
    queueInvalidateFilter();
}

void QQmlSortFilterProxyModel::setFilterPattern(const QString &filterPattern)
{
    if (m_filterPattern == filterPattern)
        return;
    m_filterPattern = filterPattern;
    m_isFilterPatternNew = true;
    emit filterPatternChanged();
    queueInvalidateFilter();
}

void QQmlSortFilterProxyModel::setFilterPatternSyntax(PatternSyntax filterPatternSyntax)
{
    if (m_filterPatternSyntax == filterPatternSyntax)
        return;
    m_filterPatternSyntax = filterPatternSyntax;
    m_isFilterPatternNew = true;
    emit filterPatternSyntaxChanged();
    queueInvalidateFilter();
}

void QQmlSortFilterProxyModel::setFilterValue(const QVariant &filterValue)
{
    const QVariant plain = plainVariant(filterValue);
    if (isSameVariant(m_filterValue, plain))
        return;
    m_filterValue = plain;
    emit filterValueChanged();
    queueInvalidateFilter();
}

void QQmlSortFilterProxyModel::setSortRoleName(const QString &sortRoleName)
{
    if (m_sortRoleName == sortRoleName)
        return;
    m_sortRoleName = sortRoleName;
    updateRoleNumbers();
    emit sortRoleNameChanged();
    queueInvalidate();
}

void QQmlSortFilterProxyModel::setAscendingSortOrder(bool ascendingSortOrder)
{
    if (m_ascendingSortOrder == ascendingSortOrder)
        return;
    m_ascendingSortOrder = ascendingSortOrder;
    emit ascendingSortOrderChanged();
    queueInvalidate();
}

void QQmlSortFilterProxyModel::classBegin() {}

void QQmlSortFilterProxyModel::componentComplete()
{
    if (m_isComplete)
        return;
    m_isComplete = true;
    followSorters();
    if (m_areRoleNamesNew && sourceModel()) {
        announceRoleNames(true);
    } else {
        const Depth passing(m_passing);
        m_areRoleNamesNew = false;
        updateBaseSorting();
        if (!updateBaseFilter())
            QSortFilterProxyModel::invalidateFilter();
    }
    updateCount();
}

QVariant QQmlSortFilterProxyModel::data(const QModelIndex &index, int role) const
{
    if (!isProxyRole(role))
        return QSortFilterProxyModel::data(index, role);
    return sourceData(mapToSource(index), role);
}

QVariantMap QQmlSortFilterProxyModel::get(int row) const
{
    QVariantMap values;
    const QModelIndex proxyIndex = index(row, 0);
    if (!proxyIndex.isValid())
        return values;
    for (auto it = m_roleNumbers.cbegin(); it != m_roleNumbers.cend(); ++it)
        values.insert(it.key(), data(proxyIndex, it.value()));
    return values;
}

QVariant QQmlSortFilterProxyModel::get(int row, const QString &roleName) const
{
    const int role = roleForName(roleName);
    const QModelIndex proxyIndex = index(row, 0);
    return role < 0 || !proxyIndex.isValid() ? QVariant() : data(proxyIndex, role);
}

QModelIndex QQmlSortFilterProxyModel::mapToSource(const QModelIndex &proxyIndex) const
{
    return QSortFilterProxyModel::mapToSource(proxyIndex);
}

int QQmlSortFilterProxyModel::mapToSource(int proxyRow) const
{
    return mapToSource(index(proxyRow, 0)).row();
}

QModelIndex QQmlSortFilterProxyModel::mapFromSource(const QModelIndex &sourceIndex) const
{
    return QSortFilterProxyModel::mapFromSource(sourceIndex);
}

int QQmlSortFilterProxyModel::mapFromSource(int sourceRow) const
{
    return sourceModel() ? mapFromSource(sourceModel()->index(sourceRow, 0)).row() : -1;
}

QVariant QQmlSortFilterProxyModel::sourceData(const QModelIndex &sourceIndex, int role) const
{
    if (role >= m_firstProxyRole && sourceIndex.isValid()) {
        const auto named = m_namedRoles.constFind(role);
        if (named != m_namedRoles.cend())
            return named->proxyRole->roleData(sourceIndex, *this, named->name);
    }
    return role < 0 ? QVariant() : sourceIndex.data(role); // -1: there is no role of that name
}

QVariant QQmlSortFilterProxyModel::sourceData(const QModelIndex &sourceIndex, const QString &roleName) const
{
    return sourceData(sourceIndex, roleForName(roleName));
}

bool QQmlSortFilterProxyModel::filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const
{
    if (!m_isComplete)
        return true;
    const Depth judging(m_judging);
    if (m_filterValue.isValid()) {
        const QModelIndex sourceIndex = sourceModel()->index(sourceRow, 0, sourceParent);
        if (m_filterValue != plainVariant(sourceData(sourceIndex, m_filterRole)))
            return false;
    }
    if (!passesFilterPattern(sourceRow, sourceParent))
        return false;
    return filters().isEmpty() || allFiltersAccept(sourceModel()->index(sourceRow, 0, sourceParent), *this);
}

bool QQmlSortFilterProxyModel::passesFilterPattern(int sourceRow, const QModelIndex &sourceParent) const
{
    if (!isProxyRole(m_baseFilterRole) && m_baseFilterRole >= 0)
        return QSortFilterProxyModel::filterAcceptsRow(sourceRow, sourceParent);
    // The base class would ask the source, which doesn't know this role.
    const QRegExp pattern = filterRegExp();
    if (pattern.isEmpty())
        return true;
    const QModelIndex sourceIndex = sourceModel()->index(sourceRow, 0, sourceParent);
    return sourceData(sourceIndex, m_baseFilterRole).toString().contains(pattern);
}

void QQmlSortFilterProxyModel::onChildrenChanged(const Filter *)
{
    queueInvalidateFilter();
}

void QQmlSortFilterProxyModel::onChildInvalidated(const Filter *)
{
    queueInvalidateFilter();
}

void QQmlSortFilterProxyModel::onChildAppended(Sorter *sorter)
{
    sorter->keepKeysFor(this);
}

void QQmlSortFilterProxyModel::onChildRemoved(Sorter *sorter)
{
    sorter->keepKeysFor(nullptr);
}

void QQmlSortFilterProxyModel::onChildrenChanged(const Sorter *)
{
    followSorters(); // at once, also when delayed: one of them may be gone
    queueInvalidate();
}

void QQmlSortFilterProxyModel::onChildInvalidated(const Sorter *)
{
    followSorters();
    queueInvalidate();
}

void QQmlSortFilterProxyModel::onChildAppended(ProxyRole *proxyRole)
{
    connect(proxyRole, &ProxyRole::namesChanged, this,
            [this] { onChildrenChanged(static_cast<ProxyRole *>(nullptr)); });
}

void QQmlSortFilterProxyModel::onChildrenChanged(const ProxyRole *)
{
    updateRoleNames(sourceModel());
    announceRoleNames(true);
}

void QQmlSortFilterProxyModel::onChildInvalidated(const ProxyRole *)
{
    dropKeys();
    queueInvalidateProxyRoles();
}

void QQmlSortFilterProxyModel::invalidate()
{
    if (isBusy())
        request(Everything);
    else
        run(Everything);
}

void QQmlSortFilterProxyModel::invalidateFilter()
{
    if (isBusy())
        request(Rows);
    else
        run(Rows);
}

void QQmlSortFilterProxyModel::invalidateProxyRoles()
{
    if (isBusy())
        request(Roles);
    else
        run(Roles);
}

void QQmlSortFilterProxyModel::queueInvalidate()
{
    request(Order);
}

void QQmlSortFilterProxyModel::queueInvalidateFilter()
{
    request(Rows);
}

void QQmlSortFilterProxyModel::queueInvalidateProxyRoles()
{
    request(Roles);
}

void QQmlSortFilterProxyModel::request(Pass pass)
{
    if (!m_isComplete)
        return;
    // The base class walks its tables while it asks for rows: a pass within a pass would pull them away under it.
    if (isBusy())
        m_isRaisedWhileBusy = true;
    else
        m_selfMadePasses = 0;
    if (m_delayed || isBusy())
        post(pass);
    else
        run(pass);
}

void QQmlSortFilterProxyModel::post(Pass pass)
{
    const bool isCovered = (m_pending & pass) || ((m_pending & Everything) && pass != Roles);
    if (isCovered)
        return;
    m_pending |= pass;
    const auto runPosted = [this, pass] {
        if (!(m_pending & pass))
            return;
        m_pending &= ~pass;
        if (isBusy()) // in an event loop that a script has opened
            post(pass);
        else
            run(pass);
    };
    QMetaObject::invokeMethod(this, runPosted, Qt::QueuedConnection);
}

void QQmlSortFilterProxyModel::run(Pass pass)
{
    if (!m_isComplete)
        return;
    m_pending &= pass == Everything ? Roles : ~pass;
    if (m_isRaisedWhileBusy)
        ++m_selfMadePasses;
    m_isRaisedWhileBusy = false;
    if (m_selfMadePasses > selfMadePassesAtMost) {
        if (m_selfMadePasses == selfMadePassesAtMost + 1)
            qmlWarning(this) << "Filtering or sorting changes what it depends on; the model stays as it is";
        return;
    }

    const Depth passing(m_passing);
    switch (pass) {
    case Everything:
        dropKeys();
        updateBaseSorting();
        updateBaseFilter();
        QSortFilterProxyModel::invalidate();
        break;
    case Order:
        dropKeys();
        if (!updateBaseSorting())
            QSortFilterProxyModel::invalidate();
        break;
    case Rows:
        if (!updateBaseFilter())
            QSortFilterProxyModel::invalidateFilter();
        break;
    case Roles:
        dropKeys();
        if (!m_proxyRoleNumbers.isEmpty() && rowCount() > 0)
            emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1), m_proxyRoleNumbers);
        break;
    }
}

bool QQmlSortFilterProxyModel::updateBaseFilter()
{
    bool hasFiltered = false;
    if (m_baseFilterRole != m_filterRole) {
        m_baseFilterRole = m_filterRole;
        hasFiltered = filterRole() != m_filterRole;
        setFilterRole(m_filterRole);
    }
    if (m_isFilterPatternNew) {
        m_isFilterPatternNew = false;
        setFilterRegExp(
            QRegExp(m_filterPattern, filterCaseSensitivity(), QRegExp::PatternSyntax(m_filterPatternSyntax)));
        hasFiltered = true;
    }
    return hasFiltered;
}

bool QQmlSortFilterProxyModel::updateBaseSorting()
{
    bool hasSorted = false;
    if (m_baseSortRole != m_sortRole) {
        m_baseSortRole = m_sortRole;
        m_sortRoleKeys.dropAll();
        hasSorted = sortRole() != m_sortRole && sortColumn() == 0;
        setSortRole(m_sortRole);
    }
    // With nothing to sort by, the order is that of the source, which costs the base class no comparison.
    const int column = m_sortRoleName.isEmpty() && m_orderedSorters.isEmpty() ? -1 : 0;
    if (sortColumn() != column) {
        sort(column);
        hasSorted = true;
    }
    return hasSorted;
}

void QQmlSortFilterProxyModel::onDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                                             const QVector<int> &roles)
{
    // A proxy role may rest on what has changed.
    if (!m_proxyRoleNumbers.isEmpty() && roles != m_proxyRoleNumbers)
        emit dataChanged(topLeft, bottomRight, m_proxyRoleNumbers);
}

void QQmlSortFilterProxyModel::updateCount()
{
    const int newCount = count();
    if (m_count == newCount)
        return;
    m_count = newCount;
    emit countChanged();
}

} // namespace qqsfpm
