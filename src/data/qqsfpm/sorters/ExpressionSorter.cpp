// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/sorters/ExpressionSorter.h"

namespace qqsfpm {

ExpressionSorter::ExpressionSorter(QObject *parent)
    : Sorter(parent)
    , m_script(new RowScript({QStringLiteral("modelLeft"), QStringLiteral("modelRight")}, this))
{
    connect(m_script, &RowScript::dependenciesChanged, this, [this] { invalidate(); });
}

void ExpressionSorter::setExpression(const QQmlScriptString &expression)
{
    if (!m_script->setScript(expression))
        return;
    emit expressionChanged();
    invalidate();
}

bool ExpressionSorter::lessThan(const QModelIndex &left, const QModelIndex &right,
                                const QQmlSortFilterProxyModel &proxyModel) const
{
    return !m_script->isEmpty() && m_script->evaluateBoolExpression({left, right}, proxyModel);
}

} // namespace qqsfpm
