// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/DbManager.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QLoggingCategory>
#include <QRegularExpression>
#include <QSqlQuery>
#include <QUuid>
#include <algorithm>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(sqlLog, "ondira.sql", QtInfoMsg)

// The main thread runs the statements, so a database that another process holds must not stop it for longer.
const char connectOptions[] = "QSQLITE_BUSY_TIMEOUT=300";

QString journalWord(DbManager::SqliteJournalMode mode)
{
    using Mode = DbManager::SqliteJournalMode;
    switch (mode) {
    case Mode::Delete: return QStringLiteral("DELETE");
    case Mode::Truncate: return QStringLiteral("TRUNCATE");
    case Mode::Persist: return QStringLiteral("PERSIST");
    case Mode::Memory: return QStringLiteral("MEMORY");
    case Mode::Wal: return QStringLiteral("WAL");
    case Mode::Off: return QStringLiteral("OFF");
    }
    return QStringLiteral("DELETE");
}

QStringList companionsOf(const QString &path)
{
    return {path + QStringLiteral("-shm"), path + QStringLiteral("-wal")};
}

// SQLite gives new companion files the permissions of the database, so it is enough that the database is there first.
void keepForOwner(const QString &path)
{
    if (!QFile::exists(path)) {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
            return;
    }
    const auto ownerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    const auto others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    const QStringList names = companionsOf(path) << path;
    for (const QString &name : names) {
        const auto permissions = QFile::permissions(name);
        if (permissions & others)
            QFile::setPermissions(name, permissions & ownerOnly);
    }
}

// Gives the text with each name such as ":login" outside quotes put through the function.
template <typename Replacement>
QString replacePlaceholders(const QString &sql, const Replacement &replacement)
{
    static const QRegularExpression pattern(QStringLiteral("'[^']*'|\"[^\"]*\"|`[^`]*`|:[A-Za-z_][A-Za-z0-9_]*"));
    QString result;
    int position = 0;
    auto matches = pattern.globalMatch(sql);
    while (matches.hasNext()) {
        const auto match = matches.next();
        const QString name = match.captured();
        result += sql.mid(position, match.capturedStart() - position);
        result += name.startsWith(':') ? replacement(name) : name;
        position = match.capturedEnd();
    }
    return result + sql.mid(position);
}

bool isList(const QVariant &value)
{
    return value.canConvert<QVariantList>();
}

void warnPrepare(const QString &sql, const QString &error)
{
    qWarning().noquote() << QStringLiteral("Can not prepare sql: \"%1\";\nError: %2").arg(sql, error);
}

void warnExecute(const QString &sql, const QString &error)
{
    qWarning().noquote() << QStringLiteral("Can not execute sql: \"%1\";\nError: %2").arg(sql, error);
}

} // namespace

DbManager::DbManager(const QString &name, SqliteJournalMode mode, QObject *parent)
    : DbManager(QStringLiteral("db"), name, mode, parent)
{}

DbManager::DbManager(const QString &directoryName, const QString &name, SqliteJournalMode mode, QObject *parent)
    : QObject(parent)
    , m_directory(directoryName, FileManager::Root::PerUser)
    , m_databaseName(name)
    , m_databasePath(pathForName(m_directory, name))
    , m_journalMode(mode)
{
    m_directory.createDirectory();
}

DbManager::DbManager(const QFileInfo &file, SqliteJournalMode mode, QObject *parent)
    : QObject(parent)
    , m_directory(file.absoluteDir())
    , m_databaseName(file.fileName())
    , m_databasePath(file.absoluteFilePath())
    , m_journalMode(mode)
{}

QString DbManager::pathForName(const FileManager &directory, const QString &name)
{
    return QDir::toNativeSeparators(directory.getDirectory().path() + QDir::separator() + name
                                    + QStringLiteral(".sqlite"));
}

QString DbManager::getQueryWithBinding(const QSqlQuery &query)
{
    const auto values = query.boundValues();
    return replacePlaceholders(query.lastQuery(),
                               [&values](const QString &name) {
                                   const auto value = values.find(name);
                                   if (value == values.end())
                                       return name;
                                   // Log lines go where everybody may read them.
                                   if (name.contains(QStringLiteral("password"), Qt::CaseInsensitive))
                                       return QStringLiteral("***");
                                   return value->toString();
                               })
        .simplified();
}

bool DbManager::exists() const
{
    return QFileInfo::exists(m_databasePath);
}

bool DbManager::remove()
{
    bool removed = QFile::remove(m_databasePath);
    if (removed) {
        for (const QString &companion : companionsOf(m_databasePath))
            removed = QFile::remove(companion);
    }
    return removed;
}

DbManager::Client DbManager::open()
{
    return Client(createConnection(), m_journalMode);
}

QString DbManager::createConnection()
{
    const QString connectionName = m_databaseName + QUuid::createUuid().toString();
    auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connectionName);
    database.setDatabaseName(m_databasePath);
    database.setConnectOptions(QString::fromLatin1(connectOptions));
    return connectionName;
}

DbManager::Client::Client() = default;

DbManager::Client::Client(const QString &connectionName, SqliteJournalMode mode)
    : m_database(QSqlDatabase::database(connectionName, false))
    , m_executionMutex(std::make_unique<QMutex>())
{
    if (!open()) {
        qWarning().noquote() << QStringLiteral("Can not open db [%1]!").arg(connectionName);
        return;
    }
    exec(QStringLiteral("PRAGMA journal_mode = %1;").arg(journalWord(mode)));
}

DbManager::Client::~Client()
{
    release();
}

DbManager::Client::Client(Client &&other) noexcept
    : m_database(std::exchange(other.m_database, QSqlDatabase()))
    , m_executionMutex(std::move(other.m_executionMutex))
    , m_statementError(std::exchange(other.m_statementError, QSqlError()))
    , m_inTransaction(std::exchange(other.m_inTransaction, false))
{}

DbManager::Client &DbManager::Client::operator=(Client &&other) noexcept
{
    if (this == &other)
        return *this;
    release();
    m_database = std::exchange(other.m_database, QSqlDatabase());
    m_executionMutex = std::move(other.m_executionMutex);
    m_statementError = std::exchange(other.m_statementError, QSqlError());
    m_inTransaction = std::exchange(other.m_inTransaction, false);
    return *this;
}

bool DbManager::Client::isValid() const
{
    return m_database.isValid() && m_database.isOpen();
}

bool DbManager::Client::reopen()
{
    close();
    return open();
}

void DbManager::Client::close()
{
    if (m_database.isValid())
        m_database.close();
    m_inTransaction = false;
}

QSqlError DbManager::Client::lastError() const
{
    return m_database.lastError();
}

bool DbManager::Client::exec(const QString &sql, const Callback &callback)
{
    return exec(sql, Bindings(), callback);
}

bool DbManager::Client::exec(const QString &sql, const Bindings &bindings, const Callback &callback)
{
    if (!checkValid(sql))
        return false;
    QMutexLocker locker(m_executionMutex.get());

    Bindings values;
    QHash<QString, QString> expansions;
    for (auto binding = bindings.begin(); binding != bindings.end(); ++binding) {
        if (!isList(binding.value())) {
            values.insert(binding.key(), binding.value());
            continue;
        }
        QStringList names;
        for (const QVariant &element : binding->toList()) {
            names << binding.key() + QString::number(names.size());
            values.insert(names.last(), element);
        }
        expansions.insert(binding.key(), names.join(QStringLiteral(", ")));
    }
    const QString text = expansions.isEmpty()
        ? sql
        : replacePlaceholders(sql, [&expansions](const QString &name) { return expansions.value(name, name); });

    QSqlQuery query(m_database);
    if (!prepare(query, text))
        return false;
    for (auto value = values.begin(); value != values.end(); ++value)
        query.bindValue(value.key(), value.value());
    return finish(query.exec(), query, callback);
}

bool DbManager::Client::execBatch(const QString &sql, const Bindings &bindings, const Callback &callback)
{
    if (!checkValid(sql))
        return false;
    QMutexLocker locker(m_executionMutex.get());

    int rows = -1;
    for (const QVariant &value : bindings) {
        if (!isList(value))
            continue;
        const int size = value.toList().size();
        if (rows >= 0 && size != rows) {
            // Qt would read past the end of the shorter list.
            warnExecute(sql.simplified(), QStringLiteral("Lists of different lengths"));
            return false;
        }
        rows = size;
    }
    if (rows < 0)
        rows = 1;

    QSqlQuery query(m_database);
    if (!prepare(query, sql))
        return false;
    for (auto binding = bindings.begin(); binding != bindings.end(); ++binding) {
        QVariantList list = binding->toList();
        if (!isList(binding.value())) {
            list.clear();
            std::fill_n(std::back_inserter(list), rows, binding.value());
        }
        query.bindValue(binding.key(), list);
    }
    if (bindings.isEmpty())
        return finish(query.exec(), query, callback);
    return finish(rows == 0 || query.execBatch(), query, callback);
}

int DbManager::Client::getSchemaVersion()
{
    int version = 0;
    exec(QStringLiteral("PRAGMA user_version;"), [&version](QSqlQuery &query) {
        if (query.next())
            version = query.value(0).toInt();
    });
    return version;
}

bool DbManager::Client::setSchemaVersion(int version)
{
    return exec(QStringLiteral("PRAGMA user_version = %1;").arg(version));
}

bool DbManager::Client::open()
{
    if (!m_database.isValid())
        return false;
    keepForOwner(m_database.databaseName());
    return m_database.open();
}

bool DbManager::Client::checkValid(const QString &sql) const
{
    if (isValid())
        return true;
    qWarning().noquote() << "Trying to execute SQL on invalid Client:" << sql;
    return false;
}

bool DbManager::Client::prepare(QSqlQuery &query, const QString &sql)
{
    if (query.prepare(sql))
        return true;
    m_statementError = query.lastError();
    warnPrepare(sql, m_statementError.text());
    return false;
}

bool DbManager::Client::finish(bool executed, QSqlQuery &query, const Callback &callback)
{
    if (!executed) {
        m_statementError = query.lastError();
        warnExecute(getQueryWithBinding(query), m_statementError.text());
        return false;
    }
    m_statementError = QSqlError();
    qCDebug(sqlLog).noquote() << getQueryWithBinding(query);
    if (callback)
        callback(query);
    return true;
}

void DbManager::Client::release()
{
    if (!m_database.isValid())
        return;
    // The handle goes before the connection, which Qt takes for still in use otherwise.
    const QString connectionName = m_database.connectionName();
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(connectionName);
}

DbManager::TransactionLocker::TransactionLocker(Client &client)
    : m_client(client)
    , m_invalid(client.m_inTransaction)
{
    if (m_invalid)
        return;
    m_client.m_inTransaction = m_client.m_database.transaction();
    if (!m_client.m_inTransaction) {
        m_invalid = true;
        qWarning().noquote() << "Can not begin a transaction:" << m_client.lastError().text();
    }
}

DbManager::TransactionLocker::~TransactionLocker()
{
    commit();
}

DbManager::TransactionLocker::TransactionLocker(TransactionLocker &&other) noexcept
    : m_client(other.m_client)
    , m_invalid(std::exchange(other.m_invalid, true))
{}

bool DbManager::TransactionLocker::commit()
{
    if (m_invalid || !m_client.m_inTransaction)
        return false;
    m_client.m_inTransaction = false;
    if (m_client.m_database.commit())
        return true;
    qWarning().noquote() << "Can not commit a transaction:" << m_client.lastError().text();
    m_client.m_database.rollback(); // or all that follows would stand in it unnoticed
    return false;
}

bool DbManager::TransactionLocker::rollback()
{
    if (m_invalid || !m_client.m_inTransaction)
        return false;
    m_client.m_inTransaction = false;
    m_invalid = true;
    return m_client.m_database.rollback();
}
