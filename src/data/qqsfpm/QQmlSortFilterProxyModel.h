// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/RowKeys.h"
#include "data/qqsfpm/SortKey.h"
#include "data/qqsfpm/filters/FilterContainer.h"
#include "data/qqsfpm/proxyroles/ProxyRoleContainer.h"
#include "data/qqsfpm/sorters/SorterContainer.h"

#include <QHash>
#include <QPointer>
#include <QQmlParserStatus>
#include <QSortFilterProxyModel>
#include <QVector>
#include <array>

namespace qqsfpm {

// A proxy that is put together in QML: filters, sorters and added roles are child objects. It passes every row until
// the component is complete. In QML its name is SortFilterProxyModel.
class QQmlSortFilterProxyModel : public QSortFilterProxyModel,
                                 public QQmlParserStatus,
                                 public FilterContainer,
                                 public SorterContainer,
                                 public ProxyRoleContainer
{
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    Q_INTERFACES(qqsfpm::FilterContainer)
    Q_INTERFACES(qqsfpm::SorterContainer)
    Q_INTERFACES(qqsfpm::ProxyRoleContainer)

    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(bool delayed READ delayed WRITE setDelayed NOTIFY delayedChanged)

    Q_PROPERTY(QString filterRoleName READ filterRoleName WRITE setFilterRoleName NOTIFY filterRoleNameChanged)
    Q_PROPERTY(QString filterPattern READ filterPattern WRITE setFilterPattern NOTIFY filterPatternChanged)
    Q_PROPERTY(PatternSyntax filterPatternSyntax READ filterPatternSyntax WRITE setFilterPatternSyntax NOTIFY
                   filterPatternSyntaxChanged)
    Q_PROPERTY(QVariant filterValue READ filterValue WRITE setFilterValue NOTIFY filterValueChanged)

    Q_PROPERTY(QString sortRoleName READ sortRoleName WRITE setSortRoleName NOTIFY sortRoleNameChanged)
    Q_PROPERTY(
        bool ascendingSortOrder READ ascendingSortOrder WRITE setAscendingSortOrder NOTIFY ascendingSortOrderChanged)

    Q_PROPERTY(QQmlListProperty<qqsfpm::Filter> filters READ filtersListProperty)
    Q_PROPERTY(QQmlListProperty<qqsfpm::Sorter> sorters READ sortersListProperty)
    Q_PROPERTY(QQmlListProperty<qqsfpm::ProxyRole> proxyRoles READ proxyRolesListProperty)

public:
    enum PatternSyntax {
        RegExp = QRegExp::RegExp,
        Wildcard = QRegExp::Wildcard,
        FixedString = QRegExp::FixedString,
        RegExp2 = QRegExp::RegExp2,
        WildcardUnix = QRegExp::WildcardUnix,
        W3CXmlSchema11 = QRegExp::W3CXmlSchema11
    };
    Q_ENUM(PatternSyntax)

    explicit QQmlSortFilterProxyModel(QObject *parent = nullptr);
    ~QQmlSortFilterProxyModel() override;

    int count() const;

    // Whether changes of one turn of the event loop are answered by one pass at its end.
    bool delayed() const { return m_delayed; }
    void setDelayed(bool delayed);

    const QString &filterRoleName() const { return m_filterRoleName; }
    void setFilterRoleName(const QString &filterRoleName);

    const QString &filterPattern() const { return m_filterPattern; }
    void setFilterPattern(const QString &filterPattern);

    PatternSyntax filterPatternSyntax() const { return m_filterPatternSyntax; }
    void setFilterPatternSyntax(PatternSyntax filterPatternSyntax);

    const QVariant &filterValue() const { return m_filterValue; }
    void setFilterValue(const QVariant &filterValue);

    const QString &sortRoleName() const { return m_sortRoleName; }
    void setSortRoleName(const QString &sortRoleName);

    bool ascendingSortOrder() const { return m_ascendingSortOrder; }
    void setAscendingSortOrder(bool ascendingSortOrder);

    void classBegin() override;
    void componentComplete() override;

    void setSourceModel(QAbstractItemModel *sourceModel) override;
    QHash<int, QByteArray> roleNames() const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

    // All roles of a row; empty for a row that isn't there.
    Q_INVOKABLE QVariantMap get(int row) const;
    Q_INVOKABLE QVariant get(int row, const QString &roleName) const;
    // -1: there is none of that name.
    Q_INVOKABLE int roleForName(const QString &roleName) const;

    Q_INVOKABLE QModelIndex mapToSource(const QModelIndex &proxyIndex) const override;
    Q_INVOKABLE int mapToSource(int proxyRow) const;
    Q_INVOKABLE QModelIndex mapFromSource(const QModelIndex &sourceIndex) const override;
    Q_INVOKABLE int mapFromSource(int sourceRow) const;

    // The value of a role of the source or of a proxy role.
    QVariant sourceData(const QModelIndex &sourceIndex, int role) const;
    QVariant sourceData(const QModelIndex &sourceIndex, const QString &roleName) const;

    const QHash<QString, int> &roleNumbers() const { return m_roleNumbers; }
    // Another number after each change of the role names, and another one in each proxy.
    quint64 roleGeneration() const { return m_roleGeneration; }

public slots:
    void invalidate();
    void invalidateFilter();
    void invalidateProxyRoles();

    void queueInvalidate();
    void queueInvalidateFilter();
    void queueInvalidateProxyRoles();

signals:
    void countChanged();
    void delayedChanged();
    void filterRoleNameChanged();
    void filterPatternChanged();
    void filterPatternSyntaxChanged();
    void filterValueChanged();
    void sortRoleNameChanged();
    void ascendingSortOrderChanged();

protected:
    bool isComplete() const { return m_isComplete; }
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

private:
    enum Pass { Everything = 1, Order = 2, Rows = 4, Roles = 8 };

    struct NamedRole
    {
        ProxyRole *proxyRole = nullptr;
        QString name;
    };

    struct Comparison
    {
        QModelIndex left;
        QModelIndex right;
        bool isLess = false;
    };

    // The object that the three containers are part of.
    QObject *object() override { return this; }
    void onChildrenChanged(const Filter *) override;
    void onChildInvalidated(const Filter *) override;
    void onChildAppended(Sorter *sorter) override;
    void onChildRemoved(Sorter *sorter) override;
    void onChildrenChanged(const Sorter *) override;
    void onChildInvalidated(const Sorter *) override;
    void onChildAppended(ProxyRole *proxyRole) override;
    void onChildrenChanged(const ProxyRole *) override;
    void onChildInvalidated(const ProxyRole *) override;

    // Passes: at once, or queued while one runs, while a row is judged, or when delayed.
    void request(Pass pass);
    void post(Pass pass);
    void run(Pass pass);
    bool isBusy() const { return m_judging > 0 || m_passing > 0; }
    // Both hand over to the base class what has changed, and tell whether that has made it do the work.
    bool updateBaseFilter();
    bool updateBaseSorting();
    bool passesFilterPattern(int sourceRow, const QModelIndex &sourceParent) const;

    // The source; "early" runs before the base class has followed the change, "late" after.
    void connectEarly(QAbstractItemModel &model);
    void connectLate(QAbstractItemModel &model);
    void onSourceDataChangedEarly(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                                  const QVector<int> &roles);
    void onSourceRowsChangedLate();
    void onSourceDestroyed();
    void letGoOfDyingSource();
    void onDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight, const QVector<int> &roles);
    void updateCount();

    // Names.
    void updateRoleNames(const QAbstractItemModel *model);
    void followSourceRoleNames(const QAbstractItemModel &model);
    void announceRoleNames(bool haveViewsSeenRows);
    void updateRoleNumbers();
    bool isProxyRole(int role) const { return role >= m_firstProxyRole && m_namedRoles.contains(role); }

    // Order.
    bool isBefore(const QModelIndex &left, const QModelIndex &right) const;
    int compareBySortRole(const QModelIndex &left, const QModelIndex &right) const;
    bool isBeforeBySortRole(const QModelIndex &left, const QModelIndex &right) const;
    void followSorters();
    void dropKeys();
    void dropComparisons();

    bool m_isComplete = false;
    bool m_delayed = false;
    int m_count = 0;

    QString m_filterRoleName;
    QString m_filterPattern;
    PatternSyntax m_filterPatternSyntax = RegExp;
    bool m_isFilterPatternNew = false; // and the base class doesn't know it yet
    QVariant m_filterValue;
    QString m_sortRoleName;
    bool m_ascendingSortOrder = true;

    // The numbers of the two names, and those that the base class has been given.
    int m_filterRole = Qt::DisplayRole;
    int m_baseFilterRole = Qt::DisplayRole;
    int m_sortRole = Qt::DisplayRole;
    int m_baseSortRole = Qt::DisplayRole;

    QPointer<QAbstractItemModel> m_source; // null as soon as the source is being destroyed
    QVector<QMetaObject::Connection> m_sourceConnections;

    QHash<int, QByteArray> m_sourceRoleNames;
    QHash<int, QByteArray> m_roleNames;
    QHash<QString, int> m_roleNumbers;
    QHash<int, NamedRole> m_namedRoles; // the proxy roles by number
    QVector<int> m_proxyRoleNumbers;
    int m_firstProxyRole = 0;
    quint64 m_roleGeneration = 0;
    bool m_areRoleNamesNew = false; // and the base class and the views don't know them yet

    mutable RowKeys<SortKey> m_sortRoleKeys;
    mutable Qt::CaseSensitivity m_sortRoleKeysCase = Qt::CaseSensitive;
    QList<Sorter *> m_orderedSorters;
    bool m_areSortersSteady = true; // of all enabled ones
    mutable std::array<Comparison, 16> m_comparisons; // the latest; see lessThan()
    mutable size_t m_nextComparison = 0;

    mutable int m_judging = 0; // depth of evaluations
    int m_passing = 0;
    int m_pending = 0; // Pass flags
    bool m_isRaisedWhileBusy = false;
    int m_selfMadePasses = 0;
};

} // namespace qqsfpm
