// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/filters/ExpressionFilter.h"

namespace qqsfpm {

ExpressionFilter::ExpressionFilter(QObject *parent)
    : Filter(parent)
    , m_script(new RowScript({QStringLiteral("model")}, this))
{
    connect(m_script, &RowScript::dependenciesChanged, this, [this] { invalidate(); });
}

void ExpressionFilter::setExpression(const QQmlScriptString &expression)
{
    if (!m_script->setScript(expression))
        return;
    emit expressionChanged();
    invalidate();
}

bool ExpressionFilter::filterRow(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel) const
{
    return m_script->isEmpty() || m_script->evaluateBoolExpression({sourceIndex}, proxyModel);
}

} // namespace qqsfpm
