// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/sorters/RoleSorter.h"

#include <QCollator>
#include <boost/optional.hpp>

namespace qqsfpm {

// Sorts by the text of one role as people of a language do.
class StringSorter : public RoleSorter
{
    Q_OBJECT
    Q_PROPERTY(
        Qt::CaseSensitivity caseSensitivity READ caseSensitivity WRITE setCaseSensitivity NOTIFY caseSensitivityChanged)
    Q_PROPERTY(bool ignorePunctation READ ignorePunctation WRITE setIgnorePunctation NOTIFY ignorePunctationChanged)
    Q_PROPERTY(QLocale locale READ locale WRITE setLocale NOTIFY localeChanged)
    Q_PROPERTY(bool numericMode READ numericMode WRITE setNumericMode NOTIFY numericModeChanged)

public:
    using RoleSorter::RoleSorter;

    Qt::CaseSensitivity caseSensitivity() const { return m_collator.caseSensitivity(); }
    void setCaseSensitivity(Qt::CaseSensitivity caseSensitivity);

    bool ignorePunctation() const { return m_collator.ignorePunctuation(); }
    void setIgnorePunctation(bool ignorePunctation);

    QLocale locale() const { return m_collator.locale(); }
    void setLocale(const QLocale &locale);

    bool numericMode() const { return m_collator.numericMode(); }
    void setNumericMode(bool numericMode);

    int compare(const QModelIndex &left, const QModelIndex &right,
                const QQmlSortFilterProxyModel &proxyModel) const override;

    void keepKeysFor(const QQmlSortFilterProxyModel *owner) override;
    void dropKeys() override;
    void dropKeys(int firstRow, int lastRow) override;

signals:
    void caseSensitivityChanged();
    void ignorePunctationChanged();
    void localeChanged();
    void numericModeChanged();

private:
    // The text as the collator prepares it, which compares many times as fast, and gives the same.
    struct Key
    {
        QString text;
        boost::optional<QCollatorSortKey> sortKey;
    };

    Key makeKey(const QString &text) const;
    int compareKeys(const Key &left, const Key &right) const;

    QCollator m_collator;
    mutable RowKeys<Key> m_keys;
};

} // namespace qqsfpm
