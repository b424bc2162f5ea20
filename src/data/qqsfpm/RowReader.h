// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJSValue>
#include <QModelIndex>
#include <QObject>
#include <QVariant>

class QJSEngine;

namespace qqsfpm {

class QQmlSortFilterProxyModel;

// One source row as a script sees it: an object with a getter for each role and for `index`, so that an evaluation
// reads those roles alone that it touches. Owned by the script; the row changes from evaluation to evaluation.
class RowReader : public QObject
{
    Q_OBJECT

public:
    explicit RowReader(QObject *parent);

    // The object for the roles that the proxy has now.
    QJSValue makeRow(QJSEngine &engine, const QQmlSortFilterProxyModel &proxyModel);

    // Called by the getters.
    Q_INVOKABLE QVariant read(int role);

    // The row that is read until the object goes out of scope, with a mark of what was read, in which order.
    class Scope
    {
    public:
        Scope(RowReader &reader, const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel);
        ~Scope();

        Scope(const Scope &) = delete;
        Scope &operator=(const Scope &) = delete;

        uint trail() const { return m_reader.m_trail; }

    private:
        RowReader &m_reader;
        // Evaluations nest when a script reads a role that is made by the same script.
        const QModelIndex m_outerIndex;
        const QQmlSortFilterProxyModel *const m_outerProxyModel;
        const uint m_outerTrail;
    };

    bool hasReadPosition() const { return m_hasReadPosition; }

private:
    QModelIndex m_sourceIndex;
    const QQmlSortFilterProxyModel *m_proxyModel = nullptr;
    uint m_trail = 0;
    bool m_hasReadPosition = false;
};

} // namespace qqsfpm
