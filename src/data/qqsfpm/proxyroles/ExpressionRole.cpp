// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/proxyroles/ExpressionRole.h"

namespace qqsfpm {

ExpressionRole::ExpressionRole(QObject *parent)
    : SingleRole(parent)
    , m_script(new RowScript({QStringLiteral("model")}, this))
{
    connect(m_script, &RowScript::dependenciesChanged, this, &ExpressionRole::invalidated);
}

void ExpressionRole::setExpression(const QQmlScriptString &expression)
{
    if (!m_script->setScript(expression))
        return;
    emit expressionChanged();
    emit invalidated();
}

QVariant ExpressionRole::data(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel,
                              const QString &) const
{
    return m_script->isEmpty() ? QVariant() : m_script->evaluate({sourceIndex}, proxyModel);
}

} // namespace qqsfpm
