// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

// The rules of the source tree that no compiler checks: which folder may include which, the licence line of each file,
// and the words that no finished file holds. Each list of violations names the file and the line.
class SourceRules
{
public:
    explicit SourceRules(const QString &root);

    QStringList includeViolations() const; // in src/ and demo/
    QStringList licenceViolations() const; // in src/, demo/, tests/, qml/ and bench/
    QStringList wordViolations() const; // in all that is written here

    int checkedIncludes() const { return m_checkedIncludes; } // includes of ours that includeViolations() has seen
    int checkedFiles() const { return m_checkedFiles; } // files that the last list of violations has seen

private:
    // The layer of a file, by its path from the root; empty for a file that belongs to none.
    QString layerOf(const QString &path) const;
    QString includeViolation(const QString &file, const QString &included, bool quoted) const;
    QStringList filesIn(const QStringList &folders) const; // paths from the root, sorted
    QByteArray contentOf(const QString &file) const;

    QDir m_root;
    QSet<QString> m_baseFiles; // of src/shell/, without suffix
    mutable int m_checkedIncludes = 0;
    mutable int m_checkedFiles = 0;
};
