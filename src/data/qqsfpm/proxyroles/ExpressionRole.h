// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/RowScript.h"
#include "data/qqsfpm/proxyroles/SingleRole.h"

namespace qqsfpm {

// The result of a script over `model`.
class ExpressionRole : public SingleRole
{
    Q_OBJECT
    Q_PROPERTY(QQmlScriptString expression READ expression WRITE setExpression NOTIFY expressionChanged)

public:
    explicit ExpressionRole(QObject *parent = nullptr);

    const QQmlScriptString &expression() const { return m_script->script(); }
    void setExpression(const QQmlScriptString &expression);

    QVariant data(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel,
                  const QString &name) const override;

signals:
    void expressionChanged();

private:
    RowScript *const m_script;
};

} // namespace qqsfpm
