// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/DbManager.h"

#include <QByteArray>
#include <QString>
#include <QVariant>

// Base of a table that versions itself: keeps the version in a small table beside it, by the table's name.
class SqlStorageBase
{
public:
    SqlStorageBase(DbManager &database, const QString &tableName, int version);
    virtual ~SqlStorageBase() = default;

    bool createMetaTable();
    int getVersion(); // 0 if none was ever set
    bool setVersion(int version);

    static QByteArray toJson(const QVariant &value);
    static QVariant fromJson(const QByteArray &json);

protected:
    DbManager::Client &client() { return m_client; }
    QString tableName() const { return m_tableName; }
    int wantedVersion() const { return m_wantedVersion; }

private:
    DbManager::Client m_client;
    QString m_tableName;
    int m_wantedVersion;
};
