// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/ConnectionsListModel.h"
#include "shell/DbManager.h"
#include "shell/FileManager.h"
#include "shell/RuntimePermissionsManager.h"
#include "support/FakeCommunicator.h"

#include <QAbstractItemModelTester>
#include <QSqlQuery>

// The list of connections as one run of the program has it: made, then allowed to open its database.
struct ConnectionsRun
{
    ConnectionsRun() { link.setControlPort(23140); }

    // Ready for use. Not the constructor, so that a test may attach its spies first.
    ConnectionsRun &load()
    {
        model.onPermissionsGranted();
        return *this;
    }

    QStringList names() const
    {
        QStringList result;
        for (int row = 0; row < model.rowCount(); ++row)
            result << value(row, ConnectionsListModel::Name).toString();
        return result;
    }

    QVariant value(int row, int role) const { return model.data(model.index(row, 0), role); }

    // The rows that show themselves as active.
    QList<int> activeRows() const
    {
        QList<int> result;
        for (int row = 0; row < model.rowCount(); ++row) {
            if (value(row, ConnectionsListModel::Active).toBool())
                result << row;
        }
        return result;
    }

    // "login@address" of what the link was last told to reach.
    QString target() const { return link.getCurrentLogin() + '@' + link.getAddress(); }

    FakeCommunicator link;
    RuntimePermissionsManager permissions;
    ConnectionsListModel model{link, permissions};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Warning};
};

// The database as another program sees it.
struct ConnectionsTable
{
    DbManager::Client client{DbManager("client_connections", DbManager::SqliteJournalMode::Wal).open()};

    static QString path()
    {
        return DbManager("client_connections", DbManager::SqliteJournalMode::Wal).getDatabasePath();
    }

    QStringList column(const QString &sql)
    {
        QStringList values;
        const bool done = client.exec(sql, [&values](QSqlQuery &query) {
            while (query.next())
                values << query.value(0).toString();
        });
        return done ? values : QStringList{"failed"};
    }

    QStringList names() { return column("SELECT name FROM Connections ORDER BY id"); }
    QStringList passwords() { return column("SELECT password FROM Connections ORDER BY id"); }
};

inline void removeAllLocalFiles()
{
    const QString root = FileManager::getParentDirectory().path();
    QFile::remove(root);
    QDir(root).removeRecursively();
}
