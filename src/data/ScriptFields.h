// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUuid>
#include <QVariant>
#include <QVariantMap>

// What a script wants a record to hold: an object of the script or a map. Each take() overwrites the field if the key
// is there with something that can be read as such a field; a number that is not finite can't.
class ScriptFields
{
public:
    explicit ScriptFields(const QVariant &fields);

    bool contains(const QString &key) const { return m_fields.contains(key); }
    QVariant value(const QString &key) const;
    QUuid uid(const QString &key) const { return QUuid(value(key).toString()); }

    bool take(const QString &key, double &field) const;
    bool take(const QString &key, int &field) const;
    bool take(const QString &key, unsigned int &field) const;
    bool take(const QString &key, bool &field) const;
    bool take(const QString &key, QString &field) const;
    bool take(const QString &key, QUuid &field) const;
    bool take(const QString &key, double &x, double &y, double &z) const; // out of a vector

private:
    QVariantMap m_fields;
};
