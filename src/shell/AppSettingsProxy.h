// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QObject>
#include <QSettings>
#include <QString>
#include <QVariant>
#include <QVariantList>
#include <QVariantMap>

// Settings by key, for scripts: plain values, and arrays whose rows are maps. QML knows it as "appSettings".
// Values come back from the file as texts; keys follow the rules of QSettings ("group/key").
class AppSettingsProxy : public QObject
{
    Q_OBJECT

public:
    // The file lies in that folder below the place for application data of the user.
    AppSettingsProxy(const QString &fileName, const QString &folder, QObject *parent = nullptr);

    Q_INVOKABLE void setValue(const QString &key, const QVariant &value);
    Q_INVOKABLE QVariant getValue(const QString &key, const QVariant &fallback = QVariant()) const;

    Q_INVOKABLE void appendToArray(const QString &key, const QVariantMap &values);
    Q_INVOKABLE void removeArray(const QString &key);
    Q_INVOKABLE void removeArrayEntry(const QString &key, int index); // an index outside the array does nothing
    Q_INVOKABLE QVariantList getArray(const QString &key) const; // the values of each row as texts
    Q_INVOKABLE QVariantList getVariantArray(const QString &key) const; // as they are stored
    // Both write line feeds as "<br>".
    Q_INVOKABLE QString getArrayJson(const QString &key) const;
    Q_INVOKABLE QString getArrayXml(const QString &key) const;
    // Whether, and in which row first, that column holds the value; compared as texts. -1 for none.
    Q_INVOKABLE bool checkValueArray(const QString &key, const QString &arrayKey, const QVariant &value) const;
    Q_INVOKABLE int getIndexOfValueInArray(const QString &key, const QString &arrayKey, const QVariant &value) const;

    Q_INVOKABLE double getTimeZone() const; // local time less UTC, in hours
    Q_INVOKABLE QDateTime stringToDate(const QString &text) const; // "yyyy-MM-ddThh:mm:ss"

    QString fileName() const { return m_settings.fileName(); }

private:
    QList<QVariantMap> readRows(const QString &key) const;
    void writeRows(const QString &key, const QList<QVariantMap> &rows);

    mutable QSettings m_settings; // reading an array moves its cursor
};
