// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/RowScript.h"
#include "data/qqsfpm/sorters/Sorter.h"

namespace qqsfpm {

// Sorts by a script that says whether `modelLeft` goes before `modelRight`.
class ExpressionSorter : public Sorter
{
    Q_OBJECT
    Q_PROPERTY(QQmlScriptString expression READ expression WRITE setExpression NOTIFY expressionChanged)

public:
    explicit ExpressionSorter(QObject *parent = nullptr);

    const QQmlScriptString &expression() const { return m_script->script(); }
    void setExpression(const QQmlScriptString &expression);

    bool lessThan(const QModelIndex &left, const QModelIndex &right,
                  const QQmlSortFilterProxyModel &proxyModel) const override;

signals:
    void expressionChanged();

private:
    RowScript *const m_script;
};

} // namespace qqsfpm
