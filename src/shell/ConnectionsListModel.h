// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/DbManager.h"

#include <QAbstractListModel>
#include <QString>
#include <QVariant>
#include <vector>

class AbstractBackendCommunicator;
class RuntimePermissionsManager;

// The saved connections, one of them current, each with a map of view state that screens keep per server. Decides
// which server the link talks to. Without a working database it keeps its rows in memory, so that one can connect.
class ConnectionsListModel : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(QString currentLogin READ getCurrentLogin NOTIFY currentConnectionChanged)
    Q_PROPERTY(QString currentAddress READ getCurrentAddress NOTIFY currentConnectionChanged)
    Q_PROPERTY(QString currentConnectionName READ getCurrentConnectionName NOTIFY currentConnectionChanged)
    Q_PROPERTY(QString currentPassword READ getCurrentPassword NOTIFY currentConnectionChanged)
    Q_PROPERTY(int currentIndex READ getCurrentIndex WRITE setCurrentIndex NOTIFY currentIndexChanged)
    Q_PROPERTY(int count READ getCount NOTIFY countChanged)
    Q_PROPERTY(bool loaded READ isLoaded NOTIFY loadedChanged)

public:
    enum Roles {
        Name = Qt::UserRole + 1,
        Address,
        Login,
        Password,
        Storage,
        Active,
        Temporary,
    };
    Q_ENUM(Roles)

    struct Item
    {
        QString name;
        QString address;
        QString login;
        QString password;
        QVariantMap storage;
        bool temporary = false; // not in the database
        bool session = false; // temporary for want of a database: stays as long as the program runs
    };

    ConnectionsListModel(AbstractBackendCommunicator &communicator, RuntimePermissionsManager &permissions,
                         QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    QString getCurrentLogin() const;
    QString getCurrentAddress() const;
    QString getCurrentConnectionName() const;
    QString getCurrentPassword() const;
    int getCurrentIndex() const { return m_currentIndex; }
    void setCurrentIndex(int index); // does not connect
    int getCount() const { return static_cast<int>(m_items.size()); }
    bool isLoaded() const { return m_loaded; }

    // False if the connection is there already or was not stored. While there is no database at all, the connection
    // becomes a temporary row that lasts as long as the program.
    Q_INVOKABLE bool add(const QString &name, const QString &address, const QString &login, const QString &password,
                         const QVariantMap &storage = {});
    Q_INVOKABLE bool remove(int index);
    Q_INVOKABLE bool update(int row, const QString &name, const QString &address, const QString &login,
                            const QString &password);
    Q_INVOKABLE void activate(int row);
    // The same server under another user, until another connection is activated or the program ends.
    Q_INVOKABLE void relogin(int row, const QString &login, const QString &password);
    Q_INVOKABLE QVariant getCurrentStorage() const;
    Q_INVOKABLE QVariant getStoredValue(const QString &key, const QVariant &defaultValue = {}) const;
    Q_INVOKABLE bool setStoredValue(const QString &key, const QVariant &value);
    Q_INVOKABLE QVariant get(int index) const;

    // The list of old installations, at that path without its ".sqlite". Read once for each change of the file, as
    // soon as the own database is open.
    void importDeprecatedDatabase(const QString &path);

public slots:
    void onPermissionsGranted();

signals:
    void currentConnectionChanged();
    void currentIndexChanged();
    void countChanged();
    void storedValueChanged(const QString &key, const QVariant &value);
    void loadedChanged();
    // The connections cannot be read or written. Sent once, with what ErrorsListModel shows.
    void storageFailed(const QString &code, const QString &title, const QString &detail);

private:
    bool openStorage();
    bool load();
    void append(const Item &item);
    void removeRowFromModel(int row);
    void removeTemporaryConnections();
    void importFile(const QString &path);
    bool isKnown(const Item &item) const;
    qint64 findDbId(const Item &item); // -1 if there is none
    const Item *currentItem() const;
    bool contains(int row) const { return row >= 0 && row < getCount(); }
    void emitActiveChanged(int row);
    void reportStatementFailure(const QString &title);
    void reportFailure(const QString &title, const QString &detail);

    AbstractBackendCommunicator &m_communicator;
    DbManager m_database;
    DbManager::Client m_client;
    std::vector<Item> m_items;
    int m_currentIndex = -1;
    bool m_loaded = false;
    bool m_failureReported = false;
    QString m_pendingImport; // waits for the database
};
