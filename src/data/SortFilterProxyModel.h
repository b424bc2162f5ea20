// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJSValue>
#include <QQmlParserStatus>
#include <QSortFilterProxyModel>

// A plain sorting and filtering proxy by role names. Not to be mistaken for the QML type of this name, which is
// qqsfpm::QQmlSortFilterProxyModel.
class SortFilterProxyModel : public QSortFilterProxyModel, public QQmlParserStatus
{
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(QObject *source READ source WRITE setSource NOTIFY sourceChanged)
    Q_PROPERTY(QByteArray sortRole READ sortRole WRITE setSortRole NOTIFY sortRoleChanged)
    Q_PROPERTY(Qt::SortOrder sortOrder READ sortOrder WRITE setSortOrder)
    Q_PROPERTY(QByteArray filterRole READ filterRole WRITE setFilterRole NOTIFY filterRoleChanged)
    Q_PROPERTY(QString filterString READ filterString WRITE setFilterString)
    Q_PROPERTY(FilterSyntax filterSyntax READ filterSyntax WRITE setFilterSyntax)

public:
    enum FilterSyntax { RegExp = 0, Wildcard = 1, FixedString = 2 }; // numbers of QRegExp::PatternSyntax
    Q_ENUM(FilterSyntax)

    explicit SortFilterProxyModel(QObject *parent = nullptr);

    int count() const { return rowCount(); }

    QObject *source() const { return sourceModel(); }
    // Nothing that isn't an item model.
    void setSource(QObject *source);

    const QByteArray &sortRole() const { return m_sortRole; }
    void setSortRole(const QByteArray &sortRole);
    void setSortOrder(Qt::SortOrder sortOrder);

    // Empty: the text is looked for in all roles.
    const QByteArray &filterRole() const { return m_filterRole; }
    void setFilterRole(const QByteArray &filterRole);

    QString filterString() const { return filterRegExp().pattern(); }
    void setFilterString(const QString &filterString);

    FilterSyntax filterSyntax() const { return FilterSyntax(filterRegExp().patternSyntax()); }
    void setFilterSyntax(FilterSyntax filterSyntax);

    // An object with a property for each role; empty for a negative row.
    Q_INVOKABLE QJSValue get(int index) const;

    void classBegin() override;
    void componentComplete() override;

signals:
    void countChanged();
    void sourceChanged();
    void sortRoleChanged();
    void filterRoleChanged();

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;

private:
    int roleNumber(const QByteArray &name) const { return roleNames().key(name, -1); }
    void applySortRole();
    void applyFilterRole();

    QByteArray m_sortRole;
    QByteArray m_filterRole;
};
