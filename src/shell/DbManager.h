// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/FileManager.h"

#include <QFileInfo>
#include <QMap>
#include <QMutex>
#include <QObject>
#include <QSqlDatabase>
#include <QSqlError>
#include <QString>
#include <QVariant>
#include <functional>
#include <memory>

class QSqlQuery;

// Names an SQLite file and hands out connections to it. Every file opened here may hold passwords, so it and its
// companions are made readable by their owner only.
class DbManager : public QObject
{
    Q_OBJECT

public:
    enum class SqliteJournalMode { Delete = 0, Truncate = 1, Persist = 2, Memory = 3, Wal = 4, Off = 5 };

    class Client;
    class TransactionLocker;

    // The file lies in the folder "db" below the per-user root, or in the named folder; the folder is created.
    DbManager(const QString &name, SqliteJournalMode mode, QObject *parent = nullptr);
    DbManager(const QString &directoryName, const QString &name, SqliteJournalMode mode, QObject *parent = nullptr);
    // A database at that very file; nothing is created.
    DbManager(const QFileInfo &file, SqliteJournalMode mode, QObject *parent = nullptr);

    static QString pathForName(const FileManager &directory, const QString &name);
    // The last query text with the bound names replaced by their values, for log lines. Passwords are masked.
    static QString getQueryWithBinding(const QSqlQuery &query);

    QString getDatabaseName() const { return m_databaseName; }
    QString getDatabasePath() const { return m_databasePath; }
    bool exists() const;
    bool remove();
    Client open();
    QString createConnection(); // gives the name of a new connection, not yet opened

private:
    FileManager m_directory;
    QString m_databaseName;
    QString m_databasePath;
    SqliteJournalMode m_journalMode;
};

// One connection, through which statements run. Belongs to the thread that opened it. A callback steps through the
// rows itself and must not run a statement on the same client.
class DbManager::Client
{
public:
    using Bindings = QMap<QString, QVariant>; // by the name with its colon
    using Callback = std::function<void(QSqlQuery &query)>;

    Client(); // invalid
    Client(const QString &connectionName, SqliteJournalMode mode);
    ~Client();
    Client(Client &&other) noexcept;
    Client &operator=(Client &&other) noexcept;
    Client(const Client &) = delete;
    Client &operator=(const Client &) = delete;

    bool isValid() const;
    bool reopen();
    void close();
    QSqlError lastError() const; // of the database
    QSqlError lastStatementError() const { return m_statementError; } // none after a statement that worked

    // A list stands for as many values as it has, so that ":uids" may be written in an IN clause.
    bool exec(const QString &sql, const Bindings &bindings, const Callback &callback = {});
    bool exec(const QString &sql, const Callback &callback = {});
    // Lists run one row each; a plain value is the same in every row.
    bool execBatch(const QString &sql, const Bindings &bindings, const Callback &callback = {});

    int getSchemaVersion();
    bool setSchemaVersion(int version);

private:
    friend class DbManager::TransactionLocker;

    bool open();
    bool checkValid(const QString &sql) const;
    bool prepare(QSqlQuery &query, const QString &sql);
    bool finish(bool executed, QSqlQuery &query, const Callback &callback);
    void release();

    QSqlDatabase m_database;
    std::unique_ptr<QMutex> m_executionMutex;
    QSqlError m_statementError;
    bool m_inTransaction = false;
};

// Holds a transaction for a scope and commits at its end. On a client that already stands in a transaction it does
// nothing, so that the outermost locker decides.
class DbManager::TransactionLocker
{
public:
    explicit TransactionLocker(Client &client);
    ~TransactionLocker();
    TransactionLocker(TransactionLocker &&other) noexcept;
    TransactionLocker(const TransactionLocker &) = delete;
    TransactionLocker &operator=(const TransactionLocker &) = delete;
    TransactionLocker &operator=(TransactionLocker &&) = delete;

    bool isValid() const { return !m_invalid; }
    bool commit();
    bool rollback();

private:
    Client &m_client;
    bool m_invalid;
};
