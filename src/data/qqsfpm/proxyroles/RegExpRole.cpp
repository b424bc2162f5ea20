// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/proxyroles/RegExpRole.h"

#include "data/qqsfpm/QQmlSortFilterProxyModel.h"

namespace qqsfpm {

void RegExpRole::setRoleName(const QString &roleName)
{
    if (m_roleName == roleName)
        return;
    m_roleName = roleName;
    emit roleNameChanged();
    emit invalidated();
}

void RegExpRole::setPattern(const QString &pattern)
{
    if (m_regExp.pattern() == pattern)
        return;
    const QStringList before = names();
    m_regExp.setPattern(pattern);
    emit patternChanged();
    if (names() != before)
        emit namesChanged();
    else
        emit invalidated();
}

Qt::CaseSensitivity RegExpRole::caseSensitivity() const
{
    return m_regExp.patternOptions() & QRegularExpression::CaseInsensitiveOption ? Qt::CaseInsensitive
                                                                                 : Qt::CaseSensitive;
}

void RegExpRole::setCaseSensitivity(Qt::CaseSensitivity caseSensitivity)
{
    if (this->caseSensitivity() == caseSensitivity)
        return;
    auto options = m_regExp.patternOptions();
    options.setFlag(QRegularExpression::CaseInsensitiveOption, caseSensitivity == Qt::CaseInsensitive);
    m_regExp.setPatternOptions(options);
    emit caseSensitivityChanged();
    emit invalidated();
}

QStringList RegExpRole::names() const
{
    if (!m_regExp.isValid())
        return {};
    QStringList names = m_regExp.namedCaptureGroups();
    names.removeAll(QString()); // groups without a name
    return names;
}

QVariant RegExpRole::data(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel,
                          const QString &name) const
{
    if (!m_regExp.isValid())
        return {};
    return m_regExp.match(proxyModel.sourceData(sourceIndex, m_roleName).toString()).captured(name);
}

} // namespace qqsfpm
