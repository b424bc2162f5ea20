// SPDX-License-Identifier: GPL-3.0-or-later
// The list of connections when its database fails it, and what it takes over from older installations.
#include "shell/ConnectionsFixture.h"
#include "support/TestBase.h"

#include <QDateTime>
#include <QSignalSpy>
#include <QTemporaryDir>

using List = ConnectionsListModel;

class ConnectionsStorageTest : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void filesBelongToTheirOwner();
    void worksWithoutAHome();
    void withoutAHomeRowsLastAsLongAsTheProgram();
    void damagedDatabaseIsLeftAloneAndToldOf_data();
    void damagedDatabaseIsLeftAloneAndToldOf();
    void lockedDatabaseIsToldOfAndNotReplaced();
    void failureWhileRunningIsToldOnce();
    void storageThatComesLaterKeepsTheRows();

    void importsTheOldList();
    void importWaitsForTheDatabase();
    void unchangedOldListIsImportedOnce();
    void changedOldListBringsOnlyWhatIsNew();
    void oddRowsOfTheOldListAreNoHarm();
    void missingOldListIsNoHarm();
    void damagedOldListIsNoHarm();
    void nothingIsImportedIntoMemory();

private:
    // The old list at its path without the suffix, with one row for each name.
    QString oldPath() const { return m_folder->filePath("0a1b2c"); }
    void writeOldList(const QStringList &names, const QDateTime &modified) const;
    QStringList markers() const;
    static QByteArray contentOf(const QString &path);

    std::unique_ptr<QTemporaryDir> m_folder;
    const QDateTime m_monday{QDate(2024, 5, 6), QTime(7, 8, 9)};
};

void ConnectionsStorageTest::init()
{
    TestBase::init();
    removeAllLocalFiles();
    m_folder = std::make_unique<QTemporaryDir>();
}

QByteArray ConnectionsStorageTest::contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("not there");
}

void ConnectionsStorageTest::writeOldList(const QStringList &names, const QDateTime &modified) const
{
    {
        auto client = DbManager(QFileInfo(oldPath() + ".sqlite"), DbManager::SqliteJournalMode::Delete).open();
        QVERIFY(client.exec("CREATE TABLE IF NOT EXISTS ConnectionTabs (id INTEGER PRIMARY KEY, name TEXT, "
                            "address TEXT, login TEXT, password TEXT, scale REAL)"));
        for (const QString &name : names) {
            QVERIFY(client.exec("INSERT INTO ConnectionTabs (name, address, login, password, scale) "
                                "VALUES (:name, '10.0.0.1', 'admin', 'secret', 1.5)",
                                {{":name", name}}));
        }
    }
    QFile file(oldPath() + ".sqlite");
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(modified, QFileDevice::FileModificationTime));
}

QStringList ConnectionsStorageTest::markers() const
{
    return QDir(m_folder->path()).entryList({".ondira-import.*"}, QDir::Files | QDir::Hidden);
}

void ConnectionsStorageTest::filesBelongToTheirOwner()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("Дом", "10.0.0.1", "admin", "secret"));

    for (const char *suffix : {"", "-wal", "-shm"}) {
        QVERIFY(QFile::exists(ConnectionsTable::path() + suffix));
        QCOMPARE(QFile::permissions(ConnectionsTable::path() + suffix)
                     & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
                 QFile::Permissions());
    }
}

void ConnectionsStorageTest::worksWithoutAHome()
{
    QFile obstacle(FileManager::getParentDirectory().path());
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    ConnectionsRun run;
    QSignalSpy failed(&run.model, &List::storageFailed);
    QSignalSpy loaded(&run.model, &List::loadedChanged);
    expectMessage(QtWarningMsg, "Can not open db \\[client_connections");
    allowMessages("Trying to execute SQL on invalid Client:");

    run.load();

    QCOMPARE(loaded.size(), 1);
    QVERIFY(run.model.isLoaded());
    QCOMPARE(failed.size(), 1);
    QCOMPARE(failed.first().at(0).toString(), QString("storage_error"));
    QVERIFY(!failed.first().at(1).toString().isEmpty());
    QVERIFY(failed.first().at(2).toString().contains(ConnectionsTable::path()));

    QVERIFY(run.model.add("Дом", "10.0.0.1", "admin", "1"));
    run.model.activate(run.model.getCount() - 1);
    QCOMPARE(run.target(), QString("admin@10.0.0.1"));
    QCOMPARE(run.value(0, List::Temporary), QVariant(true));
    QVERIFY(run.model.setStoredValue("shopScale", 2.0));
    QCOMPARE(run.model.getStoredValue("shopScale").toDouble(), 2.0);
    QCOMPARE(failed.size(), 1);
}

void ConnectionsStorageTest::withoutAHomeRowsLastAsLongAsTheProgram()
{
    QFile obstacle(FileManager::getParentDirectory().path());
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    ConnectionsRun run;
    allowMessages("Can not open db|Trying to execute SQL on invalid Client:");
    run.load();
    QVERIFY(run.model.add("a", "10.0.0.1", "user", "1"));
    QVERIFY(run.model.add("b", "10.0.0.2", "user", "1"));
    QVERIFY(!run.model.add("b", "10.0.0.2", "user", "1"));

    run.model.activate(0);
    run.model.relogin(0, "admin", "2");
    QCOMPARE(run.names(), QStringList({"a", "b", "a"}));
    run.model.relogin(1, "admin", "2");

    QCOMPARE(run.names(), QStringList({"a", "b", "b"}));
    QCOMPARE(run.target(), QString("admin@10.0.0.2"));
    run.model.activate(0);
    QCOMPARE(run.target(), QString("user@10.0.0.1"));
    QVERIFY(!run.model.remove(0));
    QVERIFY(!run.model.update(0, "c", "10.0.0.3", "user", "1"));
}

void ConnectionsStorageTest::damagedDatabaseIsLeftAloneAndToldOf_data()
{
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("garbage") << QByteArray("no database at all\n").repeated(500);
    QTest::newRow("header only") << QByteArray("SQLite format 3\0", 16);
    QTest::newRow("header and garbage") << QByteArray("SQLite format 3\0", 16) + QByteArray(8000, '\x7f');
}

void ConnectionsStorageTest::damagedDatabaseIsLeftAloneAndToldOf()
{
    QFETCH(QByteArray, content);
    const QString path = ConnectionsTable::path();
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
    file.close();
    {
        ConnectionsRun run;
        QSignalSpy failed(&run.model, &List::storageFailed);
        allowMessages("Can not (prepare|execute) sql|Trying to execute SQL on invalid Client:");

        run.load();

        QCOMPARE(failed.size(), 1);
        QVERIFY(run.model.isLoaded());
        QVERIFY(run.model.add("Дом", "10.0.0.1", "admin", "1"));
        run.model.activate(0);
        QCOMPARE(run.target(), QString("admin@10.0.0.1"));
        QCOMPARE(failed.size(), 1);
    }
    QCOMPARE(contentOf(path), content);
}

void ConnectionsStorageTest::lockedDatabaseIsToldOfAndNotReplaced()
{
    QVERIFY(ConnectionsRun().load().model.add("Дом", "10.0.0.1", "admin", "1"));
    {
        ConnectionsTable other;
        QVERIFY(other.client.exec("PRAGMA locking_mode = EXCLUSIVE;"));
        QVERIFY(other.client.exec("UPDATE Connections SET storage = '{}'"));
        ConnectionsRun run;
        QSignalSpy failed(&run.model, &List::storageFailed);
        allowMessages("(?s)Can not (prepare|execute) sql.*locked");
        allowMessages("Trying to execute SQL on invalid Client:");

        run.load();

        QCOMPARE(failed.size(), 1);
        QCOMPARE(run.model.getCount(), 0);
        QVERIFY(run.model.add("Склад", "10.0.0.2", "admin", "1"));
    }

    QCOMPARE(ConnectionsRun().load().names(), QStringList{"Дом"});
}

void ConnectionsStorageTest::failureWhileRunningIsToldOnce()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("Дом", "10.0.0.1", "admin", "1"));
    run.model.activate(0);
    QSignalSpy failed(&run.model, &List::storageFailed);
    QVERIFY(ConnectionsTable().client.exec("DROP TABLE Connections"));
    allowMessages("Can not (prepare|execute) sql");

    QVERIFY(!run.model.add("Склад", "10.0.0.2", "admin", "1"));
    QCOMPARE(failed.size(), 1);
    QCOMPARE(failed.first().at(0).toString(), QString("storage_error"));
    QVERIFY(!run.model.remove(0));
    QVERIFY(!run.model.update(0, "a", "b", "c", "d"));
    QVERIFY(!run.model.setStoredValue("shopScale", 2.0));

    QCOMPARE(failed.size(), 1);
    QCOMPARE(run.names(), QStringList{"Дом"});
    QCOMPARE(run.model.getStoredValue("shopScale").toDouble(), 2.0);
}

void ConnectionsStorageTest::storageThatComesLaterKeepsTheRows()
{
    QVERIFY(ConnectionsRun().load().model.add("Дом", "10.0.0.1", "admin", "1"));
    ConnectionsRun run;
    allowMessages("Trying to execute SQL on invalid Client:");
    QVERIFY(run.model.add("Склад", "10.0.0.2", "admin", "1")); // before the permission

    run.load();

    QCOMPARE(run.names(), QStringList({"Дом", "Склад"}));
    QCOMPARE(run.value(1, List::Temporary), QVariant(true));
    QCOMPARE(ConnectionsTable().names(), QStringList{"Дом"});
}

void ConnectionsStorageTest::importsTheOldList()
{
    writeOldList({"a", "b"}, m_monday);
    ConnectionsRun run;
    run.load();

    run.model.importDeprecatedDatabase(oldPath());

    QCOMPARE(run.names(), QStringList({"a", "b"}));
    QCOMPARE(run.value(0, List::Address).toString(), QString("10.0.0.1"));
    QCOMPARE(run.value(0, List::Login).toString(), QString("admin"));
    QCOMPARE(run.value(0, List::Password).toString(), QString("secret"));
    QCOMPARE(run.value(0, List::Storage).toMap(), QVariantMap({{"scale", 1.5}}));
    QCOMPARE(run.value(0, List::Temporary), QVariant(false));
    QCOMPARE(ConnectionsTable().names(), QStringList({"a", "b"}));
    QCOMPARE(markers(), QStringList{".ondira-import.0a1b2c.sqlite.Mon May 6 07:08:09 2024"});
}

void ConnectionsStorageTest::importWaitsForTheDatabase()
{
    writeOldList({"a"}, m_monday);
    ConnectionsRun run;
    run.model.importDeprecatedDatabase(oldPath());
    QCOMPARE(run.model.getCount(), 0);
    QVERIFY(markers().isEmpty());
    QStringList namesWhenLoaded;
    connect(&run.model, &List::loadedChanged, this, [&] { namesWhenLoaded = run.names(); });

    run.load();

    QCOMPARE(namesWhenLoaded, QStringList{"a"});
    QCOMPARE(ConnectionsTable().names(), QStringList{"a"});
}

void ConnectionsStorageTest::unchangedOldListIsImportedOnce()
{
    writeOldList({"a", "b"}, m_monday);
    {
        ConnectionsRun run;
        run.load().model.importDeprecatedDatabase(oldPath());
        QVERIFY(run.model.remove(0));
    }

    ConnectionsRun run;
    run.load().model.importDeprecatedDatabase(oldPath());

    QCOMPARE(run.names(), QStringList{"b"});
    QCOMPARE(markers().size(), 1);
}

void ConnectionsStorageTest::changedOldListBringsOnlyWhatIsNew()
{
    writeOldList({"a", "b"}, m_monday);
    ConnectionsRun().load().model.importDeprecatedDatabase(oldPath());
    writeOldList({"c"}, m_monday.addDays(1));
    ConnectionsRun run;
    run.load();
    QSignalSpy failed(&run.model, &List::storageFailed);
    allowMessages("(?s)Can not execute sql.*UNIQUE constraint failed");

    run.model.importDeprecatedDatabase(oldPath());

    QCOMPARE(run.names(), QStringList({"a", "b", "c"}));
    QCOMPARE(markers().size(), 2);
    QCOMPARE(failed.size(), 0);
}

void ConnectionsStorageTest::oddRowsOfTheOldListAreNoHarm()
{
    writeOldList({"a"}, m_monday);
    {
        auto client = DbManager(QFileInfo(oldPath() + ".sqlite"), DbManager::SqliteJournalMode::Delete).open();
        QVERIFY(client.exec("INSERT INTO ConnectionTabs (name) VALUES (NULL)"));
        QVERIFY(client.exec("INSERT INTO ConnectionTabs (name, address, login, password, scale) "
                            "VALUES (7, x'00ff', 3.5, '', 'wide')"));
    }
    ConnectionsRun run;

    run.load().model.importDeprecatedDatabase(oldPath());

    QCOMPARE(run.names(), QStringList({"a", "", "7"}));
    QCOMPARE(run.value(1, List::Storage).toMap(), QVariantMap({{"scale", 0.0}}));
    QCOMPARE(run.value(2, List::Storage).toMap(), QVariantMap({{"scale", 0.0}}));
}

void ConnectionsStorageTest::missingOldListIsNoHarm()
{
    ConnectionsRun run;
    run.load();

    run.model.importDeprecatedDatabase(oldPath());
    run.model.importDeprecatedDatabase(QString());

    QCOMPARE(run.model.getCount(), 0);
    QVERIFY(markers().isEmpty());
    QVERIFY(!QFile::exists(oldPath() + ".sqlite"));
}

void ConnectionsStorageTest::damagedOldListIsNoHarm()
{
    const QByteArray garbage = QByteArray("no database\n").repeated(500);
    {
        QFile file(oldPath() + ".sqlite");
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(garbage), qint64(garbage.size()));
    }
    ConnectionsRun run;
    run.load();
    QSignalSpy failed(&run.model, &List::storageFailed);
    allowMessages("Can not (prepare|execute) sql");

    run.model.importDeprecatedDatabase(oldPath());

    QCOMPARE(run.model.getCount(), 0);
    QCOMPARE(contentOf(oldPath() + ".sqlite"), garbage);
    QVERIFY(run.model.add("Дом", "10.0.0.1", "admin", "1"));
    QCOMPARE(failed.size(), 0);
}

void ConnectionsStorageTest::nothingIsImportedIntoMemory()
{
    writeOldList({"a"}, m_monday);
    QFile obstacle(FileManager::getParentDirectory().path());
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    ConnectionsRun run;
    allowMessages("Can not open db|Trying to execute SQL on invalid Client:");

    run.model.importDeprecatedDatabase(oldPath());
    run.load();
    run.model.importDeprecatedDatabase(oldPath());

    QCOMPARE(run.model.getCount(), 0);
    QVERIFY(markers().isEmpty()); // so that it comes when there is a database again
}

ONDIRA_TEST(ConnectionsStorageTest)
#include "ConnectionsStorageTest.moc"
