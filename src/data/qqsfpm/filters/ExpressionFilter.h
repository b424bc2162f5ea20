// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/RowScript.h"
#include "data/qqsfpm/filters/Filter.h"

namespace qqsfpm {

// Passes rows for which a script over `model` is true. Without a script every row passes; a faulty one refuses.
class ExpressionFilter : public Filter
{
    Q_OBJECT
    Q_PROPERTY(QQmlScriptString expression READ expression WRITE setExpression NOTIFY expressionChanged)

public:
    explicit ExpressionFilter(QObject *parent = nullptr);

    const QQmlScriptString &expression() const { return m_script->script(); }
    void setExpression(const QQmlScriptString &expression);

    bool filterRow(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel) const override;
    bool dependsOnPosition() const override { return m_script->readsPosition(); }

signals:
    void expressionChanged();

private:
    RowScript *const m_script;
};

} // namespace qqsfpm
