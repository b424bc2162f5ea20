// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

// The icons that the program carries, by their names "group/name".
class IconSet : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    Q_INVOKABLE bool contains(const QString &name) const;
    // The address of the picture. Empty for no name and, with one warning for each, for a name that nobody has; what
    // is an address already is left as it is.
    Q_INVOKABLE QString url(const QString &name);
    Q_INVOKABLE QStringList names() const; // in the order of the groups and, within one, of the names

private:
    QStringList m_unknown; // those that were warned of
};
