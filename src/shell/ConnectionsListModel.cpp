// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/ConnectionsListModel.h"

#include "link/AbstractBackendCommunicator.h"
#include "shell/RuntimePermissionsManager.h"
#include "shell/SqlStorageBase.h"

#include <QDateTime>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJSValue>
#include <QSqlQuery>
#include <algorithm>
#include <utility>

namespace {

// A text that is null instead of empty would go into the table as NULL, which no column takes.
QString stored(const QString &text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

QString storageText(const QVariantMap &storage)
{
    return QString::fromUtf8(SqlStorageBase::toJson(storage));
}

QVariantMap storageMap(const QVariant &text)
{
    return SqlStorageBase::fromJson(text.toString().toUtf8()).toMap();
}

// Objects and arrays of scripts come wrapped, and would be lost on the way to JSON.
QVariant unwrapped(const QVariant &value)
{
    return value.userType() == qMetaTypeId<QJSValue>() ? value.value<QJSValue>().toVariant() : value;
}

DbManager::Client::Bindings identityOf(const ConnectionsListModel::Item &item)
{
    return {{QStringLiteral(":name"), stored(item.name)},
            {QStringLiteral(":address"), stored(item.address)},
            {QStringLiteral(":login"), stored(item.login)}};
}

DbManager::Client::Bindings textsOf(const ConnectionsListModel::Item &item)
{
    auto bindings = identityOf(item);
    bindings.insert(QStringLiteral(":password"), stored(item.password));
    return bindings;
}

bool isConstraintViolation(const QSqlError &error)
{
    constexpr int constraint = 19; // the low byte of all of SQLite's codes for it
    return (error.nativeErrorCode().toInt() & 0xff) == constraint;
}

} // namespace

ConnectionsListModel::ConnectionsListModel(AbstractBackendCommunicator &communicator,
                                           RuntimePermissionsManager &permissions, QObject *parent)
    : QAbstractListModel(parent)
    , m_communicator(communicator)
    , m_database(QStringLiteral("client_connections"), DbManager::SqliteJournalMode::Wal)
{
    // Nothing is opened yet: a platform may have to allow it first.
    connect(&permissions, &RuntimePermissionsManager::storageGranted, this,
            &ConnectionsListModel::onPermissionsGranted);
}

int ConnectionsListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : getCount();
}

QVariant ConnectionsListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const auto &item = m_items.at(index.row());
    switch (role) {
    case Name: return item.name;
    case Address: return item.address;
    case Login: return item.login;
    case Password: return item.password;
    case Storage: return item.storage;
    case Active: return index.row() == m_currentIndex;
    case Temporary: return item.temporary;
    }
    return {};
}

QHash<int, QByteArray> ConnectionsListModel::roleNames() const
{
    return {{Name, "name"},       {Address, "address"}, {Login, "login"},        {Password, "password"},
            {Storage, "storage"}, {Active, "active"},   {Temporary, "temporary"}};
}

QString ConnectionsListModel::getCurrentLogin() const
{
    const auto *item = currentItem();
    return item ? item->login : QString();
}

QString ConnectionsListModel::getCurrentAddress() const
{
    const auto *item = currentItem();
    return item ? item->address : QString();
}

QString ConnectionsListModel::getCurrentConnectionName() const
{
    const auto *item = currentItem();
    return item ? item->name : QString();
}

QString ConnectionsListModel::getCurrentPassword() const
{
    const auto *item = currentItem();
    return item ? item->password : QString();
}

void ConnectionsListModel::setCurrentIndex(int index)
{
    if (index == m_currentIndex)
        return;
    const int previous = std::exchange(m_currentIndex, index);
    emit currentIndexChanged();
    emitActiveChanged(index);
    emitActiveChanged(previous);
    emit currentConnectionChanged();
}

bool ConnectionsListModel::add(const QString &name, const QString &address, const QString &login,
                               const QString &password, const QVariantMap &storage)
{
    Item item{name, address, login, password, storage};
    auto bindings = textsOf(item);
    bindings.insert(QStringLiteral(":storage"), storageText(storage));
    const bool isStored =
        m_client.exec(QStringLiteral("INSERT INTO Connections (name, address, login, password, storage) "
                                     "VALUES (:name, :address, :login, :password, :storage)"),
                      bindings);
    if (!isStored) {
        if (m_client.isValid()) {
            reportStatementFailure(tr("Не удалось сохранить подключение"));
            return false;
        }
        // With no database at all, one must still be able to reach a server.
        if (isKnown(item))
            return false;
        item.temporary = true;
        item.session = true;
    }
    append(item);
    return true;
}

bool ConnectionsListModel::remove(int index)
{
    if (!contains(index) || m_items.at(index).temporary)
        return false;
    // The password is compared with itself, so rows that differ in nothing else go from the table together.
    const bool isDeleted = m_client.exec(QStringLiteral("DELETE FROM Connections     "
                                                        "WHERE name == :name          "
                                                        "AND address == :address    "
                                                        "AND login == :login        "
                                                        "AND password == password"),
                                         identityOf(m_items.at(index)));
    if (!isDeleted) {
        reportStatementFailure(tr("Не удалось удалить подключение"));
        return false;
    }
    removeRowFromModel(index);
    if (m_currentIndex >= getCount()) {
        activate(getCount() - 1);
    } else if (index <= m_currentIndex) {
        // The index stays and so does the link, but another row stands there now.
        emitActiveChanged(m_currentIndex);
        emitActiveChanged(m_currentIndex - 1);
    }
    emit countChanged();
    return true;
}

bool ConnectionsListModel::update(int row, const QString &name, const QString &address, const QString &login,
                                  const QString &password)
{
    if (!contains(row) || m_items.at(row).temporary)
        return false;
    const qint64 id = findDbId(m_items.at(row));
    if (id < 0) {
        reportStatementFailure(tr("Не удалось сохранить подключение"));
        return false;
    }
    Item changed = m_items.at(row);
    changed.name = name;
    changed.address = address;
    changed.login = login;
    changed.password = password;
    auto bindings = textsOf(changed);
    bindings.insert(QStringLiteral(":id"), id);
    const bool isStored = m_client.exec(QStringLiteral("UPDATE Connections             "
                                                       "SET name = :name,               "
                                                       "address = :address,         "
                                                       "login = :login,             "
                                                       "password = :password  "
                                                       "WHERE id = :id             "),
                                        bindings);
    if (!isStored) {
        reportStatementFailure(tr("Не удалось сохранить подключение"));
        return false;
    }
    m_items.at(row) = changed;
    emit dataChanged(this->index(row), this->index(row), {Name, Address, Login, Password});
    if (row == m_currentIndex)
        activate(row);
    return true;
}

void ConnectionsListModel::activate(int row)
{
    if (!contains(row))
        return;
    const Item item = m_items.at(row); // a copy: whoever hears of it may change the list
    m_communicator.init(item.address, item.login, item.password, m_communicator.getControlPort(),
                        m_communicator.getUpdatePort());
    const int previous = std::exchange(m_currentIndex, row);
    emit currentIndexChanged();
    emitActiveChanged(row);
    emitActiveChanged(previous);
    emit currentConnectionChanged();
    for (auto value = item.storage.begin(); value != item.storage.end(); ++value)
        emit storedValueChanged(value.key(), value.value());
    if (!item.temporary)
        removeTemporaryConnections();
}

void ConnectionsListModel::relogin(int row, const QString &login, const QString &password)
{
    if (!contains(row))
        return;
    Item item = m_items.at(row);
    item.login = login;
    item.password = password;
    item.temporary = true;
    item.session = false;
    removeTemporaryConnections();
    append(item);
    activate(getCount() - 1);
}

QVariant ConnectionsListModel::getCurrentStorage() const
{
    const auto *item = currentItem();
    return item ? QVariant(item->storage) : QVariant();
}

QVariant ConnectionsListModel::getStoredValue(const QString &key, const QVariant &defaultValue) const
{
    const auto *item = currentItem();
    return item ? item->storage.value(key, defaultValue) : defaultValue;
}

bool ConnectionsListModel::setStoredValue(const QString &key, const QVariant &value)
{
    if (!contains(m_currentIndex))
        return false;
    auto &item = m_items.at(m_currentIndex);
    const QVariant plain = unwrapped(value);
    item.storage.insert(key, plain);
    bool isStored = true;
    if (!item.temporary) {
        auto bindings = textsOf(item);
        bindings.insert(QStringLiteral(":storage"), storageText(item.storage));
        isStored = m_client.exec(QStringLiteral("UPDATE Connections            "
                                                "SET storage = :storage   "
                                                "WHERE name = :name           "
                                                "AND address = :address     "
                                                "AND login = :login         "
                                                "AND password = :password"),
                                 bindings);
        if (!isStored)
            reportStatementFailure(tr("Не удалось сохранить вид подключения"));
    }
    emit dataChanged(index(m_currentIndex), index(m_currentIndex), {Storage});
    emit storedValueChanged(key, plain);
    return isStored;
}

QVariant ConnectionsListModel::get(int index) const
{
    if (!contains(index))
        return {};
    const auto &item = m_items.at(index);
    return QVariantMap{{QStringLiteral("name"), item.name},
                       {QStringLiteral("address"), item.address},
                       {QStringLiteral("login"), item.login},
                       {QStringLiteral("password"), item.password},
                       {QStringLiteral("storage"), item.storage}};
}

void ConnectionsListModel::importDeprecatedDatabase(const QString &path)
{
    // The manager calls this before the permission to open the own database is there.
    if (!m_loaded)
        m_pendingImport = path;
    else if (m_client.isValid())
        importFile(path);
}

void ConnectionsListModel::onPermissionsGranted()
{
    if (openStorage()) {
        if (!m_pendingImport.isEmpty())
            importFile(std::exchange(m_pendingImport, QString()));
    } else {
        const auto error = m_client.isValid() ? m_client.lastStatementError() : m_client.lastError();
        m_client.close(); // each statement would fail again, and wait for it: all goes on in memory
        reportFailure(tr("Не удалось открыть сохранённые подключения"),
                      tr("Добавленные подключения будут действовать до выхода из программы. Файл: %1. Причина: %2")
                          .arg(m_database.getDatabasePath(), error.databaseText()));
    }
    m_loaded = true;
    emit loadedChanged();
}

bool ConnectionsListModel::openStorage()
{
    m_client = m_database.open();
    const int version = m_client.getSchemaVersion();
    if (!m_client.isValid() || m_client.lastStatementError().isValid())
        return false;
    if (version == 0) {
        const bool isCreated = m_client.exec(QStringLiteral("CREATE TABLE IF NOT EXISTS Connections ("
                                                            "id INTEGER PRIMARY KEY NOT NULL UNIQUE, "
                                                            "name TEXT NOT NULL, "
                                                            "address TEXT NOT NULL, "
                                                            "login TEXT NOT NULL, "
                                                            "password TEXT NOT NULL, "
                                                            "storage TEXT NOT NULL, "
                                                            "UNIQUE (name, address, login, password))"));
        if (!isCreated || !m_client.setSchemaVersion(1))
            return false;
    }
    return load();
}

bool ConnectionsListModel::load()
{
    std::vector<Item> items;
    const bool isRead = m_client.exec(QStringLiteral("SELECT name, address, login, password, storage   "
                                                     "FROM Connections"),
                                      [&items](QSqlQuery &query) {
                                          while (query.next()) {
                                              items.push_back({query.value(0).toString(), query.value(1).toString(),
                                                               query.value(2).toString(), query.value(3).toString(),
                                                               storageMap(query.value(4))});
                                          }
                                      });
    if (!isRead)
        return false;
    // What lives in memory only is not lost by a second reading.
    std::copy_if(m_items.begin(), m_items.end(), std::back_inserter(items),
                 [](const Item &item) { return item.temporary; });
    beginResetModel();
    m_items = std::move(items);
    endResetModel();
    emit countChanged();
    return true;
}

void ConnectionsListModel::append(const Item &item)
{
    beginInsertRows({}, getCount(), getCount());
    m_items.push_back(item);
    endInsertRows();
    emit countChanged();
}

void ConnectionsListModel::removeRowFromModel(int row)
{
    beginRemoveRows({}, row, row);
    m_items.erase(m_items.begin() + row);
    endRemoveRows();
}

void ConnectionsListModel::removeTemporaryConnections()
{
    const int countBefore = getCount();
    const int currentBefore = m_currentIndex;
    for (int row = countBefore - 1; row >= 0; --row) {
        if (!m_items.at(row).temporary || m_items.at(row).session)
            continue;
        beginRemoveRows({}, row, row);
        m_items.erase(m_items.begin() + row);
        if (row < m_currentIndex)
            --m_currentIndex; // a row added after the temporary one may be the current one
        endRemoveRows();
    }
    if (m_currentIndex != currentBefore)
        emit currentIndexChanged();
    if (getCount() != countBefore)
        emit countChanged();
}

void ConnectionsListModel::importFile(const QString &path)
{
    const QFileInfo file(path + QStringLiteral(".sqlite"));
    if (!file.isFile())
        return;
    const QString markerName =
        QStringLiteral(".ondira-import.%1.%2").arg(file.fileName(), file.lastModified().toString());
    QFile marker(file.absoluteDir().filePath(markerName));
    if (marker.exists())
        return;
    if (!marker.open(QIODevice::WriteOnly))
        qWarning().noquote() << "Can not mark the old connections as imported:" << marker.fileName();
    marker.close();

    DbManager oldDatabase(file, DbManager::SqliteJournalMode::Memory);
    oldDatabase.open().exec(QStringLiteral("SELECT name, address, login, password, scale   "
                                           "FROM ConnectionTabs"),
                            [this](QSqlQuery &query) {
                                while (query.next()) {
                                    add(query.value(0).toString(), query.value(1).toString(), query.value(2).toString(),
                                        query.value(3).toString(),
                                        {{QStringLiteral("scale"), query.value(4).toDouble()}});
                                }
                            });
}

bool ConnectionsListModel::isKnown(const Item &item) const
{
    return std::any_of(m_items.begin(), m_items.end(), [&item](const Item &known) {
        return known.name == item.name && known.address == item.address && known.login == item.login
            && known.password == item.password;
    });
}

qint64 ConnectionsListModel::findDbId(const Item &item)
{
    qint64 id = -1;
    m_client.exec(QStringLiteral("SELECT id                    "
                                 "FROM Connections          "
                                 "WHERE name == :name          "
                                 "AND address == :address    "
                                 "AND login == :login        "
                                 "AND password == password"),
                  identityOf(item), [&id](QSqlQuery &query) {
                      if (query.next())
                          id = query.value(0).toLongLong();
                  });
    return id;
}

const ConnectionsListModel::Item *ConnectionsListModel::currentItem() const
{
    return contains(m_currentIndex) ? &m_items.at(m_currentIndex) : nullptr;
}

void ConnectionsListModel::emitActiveChanged(int row)
{
    if (contains(row))
        emit dataChanged(index(row), index(row), {Active});
}

void ConnectionsListModel::reportStatementFailure(const QString &title)
{
    const auto error = m_client.lastStatementError();
    // A refused duplicate is an answer, and a row that is not there is no failure of the database.
    if (!error.isValid() || isConstraintViolation(error))
        return;
    reportFailure(title, tr("Файл: %1. Причина: %2").arg(m_database.getDatabasePath(), error.databaseText()));
}

void ConnectionsListModel::reportFailure(const QString &title, const QString &detail)
{
    if (std::exchange(m_failureReported, true))
        return;
    emit storageFailed(QStringLiteral("storage_error"), title, detail);
}
