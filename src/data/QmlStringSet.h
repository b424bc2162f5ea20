// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QSet>
#include <QStringList>

// A set of strings for QML, where it is known as StringSet.
class QmlStringSet : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QStringList values READ values NOTIFY valuesChanged)

public:
    explicit QmlStringSet(QObject *parent = nullptr);

    QStringList values() const { return m_values.values(); }

    Q_INVOKABLE void insert(const QString &value);
    Q_INVOKABLE bool contains(const QString &value) const { return m_values.contains(value); }
    // False: it wasn't there.
    Q_INVOKABLE bool remove(const QString &value);
    Q_INVOKABLE void clear();

signals:
    void valuesChanged();

private:
    QSet<QString> m_values;
};
