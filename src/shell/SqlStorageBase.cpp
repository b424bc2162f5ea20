// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/SqlStorageBase.h"

#include <QJsonDocument>
#include <QSqlQuery>

SqlStorageBase::SqlStorageBase(DbManager &database, const QString &tableName, int version)
    : m_client(database.open())
    , m_tableName(tableName)
    , m_wantedVersion(version)
{
    createMetaTable();
    m_client.exec(QStringLiteral("PRAGMA foreign_keys = ON;"));
}

bool SqlStorageBase::createMetaTable()
{
    return m_client.exec(QStringLiteral("CREATE TABLE IF NOT EXISTS `%1_version_table` ("
                                        "  id      INTEGER PRIMARY KEY NOT NULL UNIQUE,"
                                        "  version INTEGER NOT NULL);")
                             .arg(m_tableName));
}

int SqlStorageBase::getVersion()
{
    int version = 0;
    m_client.exec(QStringLiteral("SELECT version              "
                                 "FROM `%1_version_table`  "
                                 "WHERE id == 0            ")
                      .arg(m_tableName),
                  [&version](QSqlQuery &query) {
                      if (query.next())
                          version = query.value(0).toInt();
                  });
    return version;
}

bool SqlStorageBase::setVersion(int version)
{
    return m_client.exec(
        QStringLiteral("INSERT OR REPLACE INTO `%1_version_table` (id, version) VALUES (0, :version)").arg(m_tableName),
        {{QStringLiteral(":version"), version}});
}

QByteArray SqlStorageBase::toJson(const QVariant &value)
{
    return QJsonDocument::fromVariant(value).toJson();
}

QVariant SqlStorageBase::fromJson(const QByteArray &json)
{
    return QJsonDocument::fromJson(json).toVariant();
}
