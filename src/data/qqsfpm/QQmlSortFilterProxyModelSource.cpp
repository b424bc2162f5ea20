// SPDX-License-Identifier: GPL-3.0-or-later
// The half of the proxy that follows its source: role names, kept keys and the order made of them.
#include "data/qqsfpm/QQmlSortFilterProxyModel.h"
#include "data/qqsfpm/Variants.h"

#include <algorithm>

namespace qqsfpm {

namespace {

quint64 nextRoleGeneration()
{
    static quint64 generation = 0;
    return ++generation;
}

} // namespace

void QQmlSortFilterProxyModel::setSourceModel(QAbstractItemModel *sourceModel)
{
    if (this->sourceModel() && !m_source)
        letGoOfDyingSource();
    else if (sourceModel == this->sourceModel())
        return;
    m_source = sourceModel;
    for (const auto &connection : qAsConst(m_sourceConnections))
        disconnect(connection);
    m_sourceConnections.clear();

    // Before the base class announces the new model: views read the names then.
    updateRoleNames(sourceModel);
    m_areRoleNamesNew = false;
    dropKeys();
    if (m_isComplete) {
        ++m_passing;
        updateBaseSorting();
        updateBaseFilter();
        --m_passing;
    }
    if (sourceModel)
        connectEarly(*sourceModel);
    QSortFilterProxyModel::setSourceModel(sourceModel);
    if (sourceModel)
        connectLate(*sourceModel);
}

QHash<int, QByteArray> QQmlSortFilterProxyModel::roleNames() const
{
    return m_roleNames;
}

int QQmlSortFilterProxyModel::roleForName(const QString &roleName) const
{
    return m_roleNumbers.value(roleName, -1);
}

void QQmlSortFilterProxyModel::connectEarly(QAbstractItemModel &model)
{
    const auto rowsChanged = [this] { dropKeys(); };
    const auto rolesMayChange = [this, &model] {
        dropKeys();
        followSourceRoleNames(model);
    };
    m_sourceConnections << connect(&model, &QAbstractItemModel::dataChanged, this,
                                   &QQmlSortFilterProxyModel::onSourceDataChangedEarly)
                        << connect(&model, &QAbstractItemModel::rowsInserted, this, rolesMayChange)
                        << connect(&model, &QAbstractItemModel::modelReset, this, rolesMayChange)
                        << connect(&model, &QAbstractItemModel::rowsRemoved, this, rowsChanged)
                        << connect(&model, &QAbstractItemModel::rowsMoved, this, rowsChanged)
                        << connect(&model, &QAbstractItemModel::columnsInserted, this, rowsChanged)
                        << connect(&model, &QAbstractItemModel::columnsRemoved, this, rowsChanged)
                        << connect(&model, &QAbstractItemModel::columnsMoved, this, rowsChanged)
                        << connect(&model, &QAbstractItemModel::layoutChanged, this, rowsChanged);
}

void QQmlSortFilterProxyModel::connectLate(QAbstractItemModel &model)
{
    const auto rowsInserted = [this, &model](const QModelIndex &parent, int first, int last) {
        announceRoleNames(model.rowCount(parent) > last - first + 1);
        onSourceRowsChangedLate();
    };
    m_sourceConnections
        << connect(&model, &QAbstractItemModel::rowsInserted, this, rowsInserted)
        << connect(&model, &QAbstractItemModel::dataChanged, this, [this] { announceRoleNames(true); })
        << connect(&model, &QAbstractItemModel::modelReset, this, [this] { announceRoleNames(false); })
        << connect(&model, &QAbstractItemModel::rowsRemoved, this, &QQmlSortFilterProxyModel::onSourceRowsChangedLate)
        << connect(&model, &QAbstractItemModel::rowsMoved, this, &QQmlSortFilterProxyModel::onSourceRowsChangedLate)
        << connect(&model, &QAbstractItemModel::layoutChanged, this, &QQmlSortFilterProxyModel::onSourceRowsChangedLate)
        << connect(&model, &QObject::destroyed, this, &QQmlSortFilterProxyModel::onSourceDestroyed);
}

void QQmlSortFilterProxyModel::onSourceDataChangedEarly(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                                                        const QVector<int> &roles)
{
    // A proxy role of one row may rest on another row.
    if (m_namedRoles.isEmpty() && topLeft.isValid() && bottomRight.isValid()) {
        dropComparisons();
        m_sortRoleKeys.drop(topLeft.row(), bottomRight.row());
        for (auto *sorter : sorters())
            sorter->dropKeys(topLeft.row(), bottomRight.row());
    } else {
        dropKeys();
    }
    // A ListModel of QML takes in new roles with the first value of one.
    const bool isUnknown =
        std::any_of(roles.cbegin(), roles.cend(), [this](int role) { return !m_sourceRoleNames.contains(role); });
    if (isUnknown)
        followSourceRoleNames(*sourceModel());
}

void QQmlSortFilterProxyModel::onSourceRowsChangedLate()
{
    // The base class asks about the rows that came only; here rows that stayed have got another number. Later, so that
    // many changes of one turn cost one pass.
    if (m_isComplete && filtersDependOnPosition())
        post(Rows);
}

void QQmlSortFilterProxyModel::onSourceDestroyed()
{
    m_sourceConnections.clear();
    updateRoleNames(nullptr);
    m_areRoleNamesNew = false;
    dropKeys();
    // The base class has let go of the model by now, but tells nobody.
    QSortFilterProxyModel::setSourceModel(nullptr);
}

void QQmlSortFilterProxyModel::letGoOfDyingSource()
{
    // A binding on the source is evaluated when the source is destroyed, before the base class has heard of it: left
    // alone, it would call functions of a model that is no model any more.
    disconnect(sourceModel(), nullptr, this, nullptr);
    QMetaObject::invokeMethod(this, "_q_sourceModelDestroyed", Qt::DirectConnection);
}

void QQmlSortFilterProxyModel::updateRoleNames(const QAbstractItemModel *model)
{
    m_sourceRoleNames = model ? model->roleNames() : QHash<int, QByteArray>();
    m_roleNames = m_sourceRoleNames;
    m_roleNumbers.clear();
    m_namedRoles.clear();
    m_proxyRoleNumbers.clear();

    int largest = Qt::UserRole - 1;
    if (!m_sourceRoleNames.isEmpty()) {
        const auto roles = m_sourceRoleNames.keys();
        largest = *std::max_element(roles.cbegin(), roles.cend());
    }
    m_firstProxyRole = largest + 1;
    for (auto it = m_sourceRoleNames.cbegin(); it != m_sourceRoleNames.cend(); ++it)
        m_roleNumbers.insert(QString::fromUtf8(it.value()), it.key());
    for (auto *proxyRole : proxyRoles()) {
        const auto names = proxyRole->names();
        for (const auto &name : names) {
            if (name.isEmpty())
                continue;
            ++largest;
            m_roleNames.insert(largest, name.toUtf8());
            m_roleNumbers.insert(name, largest); // goes before a role of the source with the same name
            m_namedRoles.insert(largest, {proxyRole, name});
            m_proxyRoleNumbers.append(largest);
        }
    }
    m_roleGeneration = nextRoleGeneration();
    m_areRoleNamesNew = true;
    updateRoleNumbers();
}

void QQmlSortFilterProxyModel::followSourceRoleNames(const QAbstractItemModel &model)
{
    if (model.roleNames() != m_sourceRoleNames)
        updateRoleNames(&model);
}

void QQmlSortFilterProxyModel::announceRoleNames(bool haveViewsSeenRows)
{
    if (!m_areRoleNamesNew || !m_isComplete)
        return;
    m_areRoleNamesNew = false;
    ++m_passing;
    if (haveViewsSeenRows) {
        // A view asks for the names once only.
        beginResetModel();
        endResetModel();
    }
    dropKeys();
    const bool hasSorted = updateBaseSorting();
    const bool hasFiltered = updateBaseFilter();
    if (haveViewsSeenRows && !(hasSorted && hasFiltered))
        QSortFilterProxyModel::invalidate(); // the rows were judged and sorted without the new roles
    --m_passing;
}

void QQmlSortFilterProxyModel::updateRoleNumbers()
{
    m_filterRole = m_filterRoleName.isEmpty() ? int(Qt::DisplayRole) : roleForName(m_filterRoleName);
    m_sortRole = m_sortRoleName.isEmpty() ? int(Qt::DisplayRole) : roleForName(m_sortRoleName);
}

bool QQmlSortFilterProxyModel::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    if (!m_isComplete)
        return QSortFilterProxyModel::lessThan(left, right);
    ++m_judging;
    bool isLess = false;
    if (m_areSortersSteady && !isProxyRole(m_baseSortRole)) {
        isLess = isBefore(left, right);
    } else {
        // The sort of the standard library runs over the end of its range when the same question gets another answer,
        // as from a script with Math.random(). It repeats itself within a few questions, and those are remembered.
        const auto known =
            std::find_if(m_comparisons.cbegin(), m_comparisons.cend(), [&](const Comparison &comparison) {
                return comparison.left == left && comparison.right == right;
            });
        if (known != m_comparisons.cend()) {
            isLess = known->isLess;
        } else {
            isLess = isBefore(left, right);
            m_comparisons[m_nextComparison++ % m_comparisons.size()] = {left, right, isLess};
        }
    }
    --m_judging;
    return isLess;
}

bool QQmlSortFilterProxyModel::isBefore(const QModelIndex &left, const QModelIndex &right) const
{
    if (!m_sortRoleName.isEmpty()) {
        const int order = compareBySortRole(left, right);
        if (order != 0)
            return (order < 0) == m_ascendingSortOrder;
    }
    // By number: a script among the sorters may change the list.
    for (int i = 0; i < m_orderedSorters.size(); ++i) {
        const int order = m_orderedSorters.at(i)->compareRows(left, right, *this);
        if (order != 0)
            return order < 0;
    }
    return left.row() < right.row();
}

int QQmlSortFilterProxyModel::compareBySortRole(const QModelIndex &left, const QModelIndex &right) const
{
    // Plain texts and numbers are compared as the base class does it, with what has been fetched before.
    if (!isProxyRole(m_baseSortRole) && !isSortLocaleAware()) {
        if (m_sortRoleKeysCase != sortCaseSensitivity()) {
            m_sortRoleKeysCase = sortCaseSensitivity();
            m_sortRoleKeys.dropAll();
        }
        if (m_sortRoleKeys.cover(left, right, *this)) {
            const SortKey *leftKey = m_sortRoleKeys.find(left);
            const SortKey *rightKey = m_sortRoleKeys.find(right);
            if (!leftKey || !rightKey) {
                const auto fetch = [this](const QModelIndex &index) {
                    return SortKey::make(sourceData(index, m_baseSortRole), m_sortRoleKeysCase);
                };
                m_sortRoleKeys.at(left, fetch);
                rightKey = &m_sortRoleKeys.at(right, fetch);
                leftKey = &m_sortRoleKeys.at(left, fetch);
            }
            if (SortKey::areComparable(*leftKey, *rightKey))
                return SortKey::compare(*leftKey, *rightKey, m_sortRoleKeysCase);
        }
    }
    if (isBeforeBySortRole(left, right))
        return -1;
    return isBeforeBySortRole(right, left) ? 1 : 0;
}

bool QQmlSortFilterProxyModel::isBeforeBySortRole(const QModelIndex &left, const QModelIndex &right) const
{
    if (m_baseSortRole < 0)
        return false; // a ListModel of QML doesn't bear to be asked for a role that it lacks
    if (!isProxyRole(m_baseSortRole))
        return QSortFilterProxyModel::lessThan(left, right);
    // The base class would ask the source, which doesn't know this role.
    const QVariant leftValue = sourceData(left, m_baseSortRole);
    const QVariant rightValue = sourceData(right, m_baseSortRole);
    if (leftValue.type() != QVariant::String)
        return compareVariants(leftValue, rightValue) < 0;
    if (isSortLocaleAware())
        return leftValue.toString().localeAwareCompare(rightValue.toString()) < 0;
    return leftValue.toString().compare(rightValue.toString(), sortCaseSensitivity()) < 0;
}

void QQmlSortFilterProxyModel::followSorters()
{
    m_orderedSorters = orderedSorters();
    m_areSortersSteady = std::all_of(m_orderedSorters.cbegin(), m_orderedSorters.cend(),
                                     [](const Sorter *sorter) { return sorter->isSteady(); });
    dropKeys();
}

void QQmlSortFilterProxyModel::dropKeys()
{
    dropComparisons();
    m_sortRoleKeys.dropAll();
    for (auto *sorter : sorters())
        sorter->dropKeys();
}

void QQmlSortFilterProxyModel::dropComparisons()
{
    if (m_nextComparison == 0)
        return;
    m_comparisons.fill({});
    m_nextComparison = 0;
}

} // namespace qqsfpm
