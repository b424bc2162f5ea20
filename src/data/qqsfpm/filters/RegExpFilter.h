// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/qqsfpm/filters/RoleFilter.h"

#include <QRegExp>

namespace qqsfpm {

// Passes rows in whose role text a pattern is found, anywhere.
class RegExpFilter : public RoleFilter
{
    Q_OBJECT
    Q_PROPERTY(QString pattern READ pattern WRITE setPattern NOTIFY patternChanged)
    Q_PROPERTY(PatternSyntax syntax READ syntax WRITE setSyntax NOTIFY syntaxChanged)
    Q_PROPERTY(
        Qt::CaseSensitivity caseSensitivity READ caseSensitivity WRITE setCaseSensitivity NOTIFY caseSensitivityChanged)

public:
    enum PatternSyntax {
        RegExp = QRegExp::RegExp,
        Wildcard = QRegExp::Wildcard,
        FixedString = QRegExp::FixedString,
        RegExp2 = QRegExp::RegExp2,
        WildcardUnix = QRegExp::WildcardUnix,
        W3CXmlSchema11 = QRegExp::W3CXmlSchema11
    };
    Q_ENUM(PatternSyntax)

    using RoleFilter::RoleFilter;

    QString pattern() const { return m_regExp.pattern(); }
    void setPattern(const QString &pattern);

    PatternSyntax syntax() const { return PatternSyntax(m_regExp.patternSyntax()); }
    void setSyntax(PatternSyntax syntax);

    Qt::CaseSensitivity caseSensitivity() const { return m_regExp.caseSensitivity(); }
    void setCaseSensitivity(Qt::CaseSensitivity caseSensitivity);

    bool filterRow(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel) const override;

signals:
    void patternChanged();
    void syntaxChanged();
    void caseSensitivityChanged();

private:
    QRegExp m_regExp;
};

} // namespace qqsfpm
