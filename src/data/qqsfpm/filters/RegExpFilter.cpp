// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/filters/RegExpFilter.h"

namespace qqsfpm {

void RegExpFilter::setPattern(const QString &pattern)
{
    if (m_regExp.pattern() == pattern)
        return;
    m_regExp.setPattern(pattern);
    emit patternChanged();
    invalidate();
}

void RegExpFilter::setSyntax(PatternSyntax syntax)
{
    if (this->syntax() == syntax)
        return;
    m_regExp.setPatternSyntax(QRegExp::PatternSyntax(syntax));
    emit syntaxChanged();
    invalidate();
}

void RegExpFilter::setCaseSensitivity(Qt::CaseSensitivity caseSensitivity)
{
    if (m_regExp.caseSensitivity() == caseSensitivity)
        return;
    m_regExp.setCaseSensitivity(caseSensitivity);
    emit caseSensitivityChanged();
    invalidate();
}

bool RegExpFilter::filterRow(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel) const
{
    return m_regExp.indexIn(sourceData(sourceIndex, proxyModel).toString()) != -1;
}

} // namespace qqsfpm
