// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/DbManager.h"
#include "support/TestBase.h"

#include <QFile>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QThread>

using Mode = DbManager::SqliteJournalMode;

Q_DECLARE_METATYPE(DbManager::SqliteJournalMode)

class DbManagerTest : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void liesInTheFolderOfDatabases();
    void liesInANamedFolder();
    void takesAFileAsItIs();
    void removesCompanions();
    void removalTellsOfTheLastFile();
    void missingDatabaseIsNotRemoved();

    void eachOpenIsAConnectionOfItsOwn();
    void connectionsAreGivenBack();
    void movedClientKeepsTheConnection();
    void closedClientMayBeReopened();
    void setsTheJournalMode_data();
    void setsTheJournalMode();
    void waitsBrieflyForALock();
    void filesBelongToTheirOwner();
    void wideOpenFilesAreClosed();
    void worksInAnotherThread();

    void bindsValues();
    void listStandsForItsValues_data();
    void listStandsForItsValues();
    void listLeavesLikeNamesAlone();
    void textIsNoList();
    void batchRunsOneRowEach();
    void batchRepeatsPlainValues();
    void batchOfNothingDoesNothing();
    void batchWithoutBindingsRunsOnce();
    void batchOfUnequalListsIsRefused();

    void invalidClientOnlyWarns();
    void unknownConnectionIsInvalid();
    void badStatementIsToldOf();
    void failedStatementIsToldOfWithoutPasswords();
    void statementErrorIsForgottenAfterASuccess();
    void showsAQueryWithItsValues();
    void keepsTheSchemaVersion();
    void damagedFileStaysAsItIs();

private:
    QString path() const { return m_folder->filePath("lamps.sqlite"); }
    DbManager::Client openLamps(Mode mode = Mode::Delete) const;
    static QVariantList column(DbManager::Client &client, const QString &sql,
                               const DbManager::Client::Bindings &bindings = {});
    static QFile::Permissions permissionsOfOthers(const QString &file);
    static QByteArray contentOf(const QString &file);

    std::unique_ptr<QTemporaryDir> m_folder;
};

void DbManagerTest::init()
{
    TestBase::init();
    m_folder = std::make_unique<QTemporaryDir>();
}

DbManager::Client DbManagerTest::openLamps(Mode mode) const
{
    auto client = DbManager(QFileInfo(path()), mode).open();
    client.exec("CREATE TABLE IF NOT EXISTS Lamps (id INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE, power INTEGER)");
    return client;
}

QVariantList DbManagerTest::column(DbManager::Client &client, const QString &sql,
                                   const DbManager::Client::Bindings &bindings)
{
    QVariantList values;
    const bool done = client.exec(sql, bindings, [&values](QSqlQuery &query) {
        while (query.next())
            values << query.value(0);
    });
    return done ? values : QVariantList{"failed"};
}

QFile::Permissions DbManagerTest::permissionsOfOthers(const QString &file)
{
    return QFile::permissions(file)
        & (QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther
           | QFile::ExeOther);
}

QByteArray DbManagerTest::contentOf(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("not there");
}

void DbManagerTest::liesInTheFolderOfDatabases()
{
    const DbManager database("lamps", Mode::Delete);
    const QDir folder = FileManager("db", FileManager::Root::PerUser).getDirectory();

    QCOMPARE(database.getDatabaseName(), QString("lamps"));
    QCOMPARE(database.getDatabasePath(), folder.path() + "/lamps.sqlite");
    QVERIFY(folder.exists());
    QVERIFY(!database.exists());
}

void DbManagerTest::liesInANamedFolder()
{
    const DbManager database("accounts", "users", Mode::Delete);
    const FileManager folder("accounts", FileManager::Root::PerUser);

    QCOMPARE(database.getDatabasePath(), DbManager::pathForName(folder, "users"));
    QCOMPARE(database.getDatabasePath(), folder.getDirectory().path() + "/users.sqlite");
    QVERIFY(folder.getDirectory().exists());
}

void DbManagerTest::takesAFileAsItIs()
{
    const DbManager database(QFileInfo(m_folder->filePath("old/list.db")), Mode::Delete);

    QCOMPARE(database.getDatabaseName(), QString("list.db"));
    QCOMPARE(database.getDatabasePath(), m_folder->filePath("old/list.db"));
    QVERIFY(!QFile::exists(m_folder->filePath("old")));
}

void DbManagerTest::removesCompanions()
{
    DbManager database(QFileInfo(path()), Mode::Wal);
    auto client = openLamps(Mode::Wal);
    QVERIFY(QFile::exists(path() + "-wal"));
    QVERIFY(QFile::exists(path() + "-shm"));

    QVERIFY(database.remove());

    QVERIFY(!database.exists());
    QVERIFY(!QFile::exists(path() + "-wal"));
    QVERIFY(!QFile::exists(path() + "-shm"));
}

void DbManagerTest::removalTellsOfTheLastFile()
{
    DbManager database(QFileInfo(path()), Mode::Delete);
    openLamps();

    QVERIFY(!database.remove()); // there were no companions

    QVERIFY(!database.exists());
}

void DbManagerTest::missingDatabaseIsNotRemoved()
{
    QFile bystander(path() + "-wal");
    QVERIFY(bystander.open(QIODevice::WriteOnly));

    QVERIFY(!DbManager(QFileInfo(path()), Mode::Delete).remove());

    QVERIFY(bystander.exists());
}

void DbManagerTest::eachOpenIsAConnectionOfItsOwn()
{
    const int before = QSqlDatabase::connectionNames().size();
    auto first = openLamps();
    auto second = openLamps();
    QCOMPARE(QSqlDatabase::connectionNames().size(), before + 2);

    first.close();

    QVERIFY(!first.isValid());
    QVERIFY(second.isValid());
    QVERIFY(second.exec("INSERT INTO Lamps (name) VALUES ('hall')"));
}

void DbManagerTest::connectionsAreGivenBack()
{
    const QStringList before = QSqlDatabase::connectionNames();
    {
        auto client = openLamps();
        QVERIFY(client.isValid());
        auto closed = openLamps();
        closed.close();
        expectMessage(QtWarningMsg, "Can not open db \\[list.db\\{[0-9a-f-]{36}\\}\\]!");
        auto failed = DbManager(QFileInfo(m_folder->filePath("missing/list.db")), Mode::Delete).open();
        QVERIFY(!failed.isValid());
        QVERIFY(failed.lastError().isValid());
    }

    QCOMPARE(QSqlDatabase::connectionNames(), before);
}

void DbManagerTest::movedClientKeepsTheConnection()
{
    auto first = openLamps();
    auto second = std::move(first);
    QVERIFY(!first.isValid()); // NOLINT(bugprone-use-after-move): a moved client is an invalid one
    QVERIFY(second.isValid());

    auto third = openLamps();
    const int connections = QSqlDatabase::connectionNames().size();
    third = std::move(second);

    QVERIFY(third.exec("INSERT INTO Lamps (name) VALUES ('hall')"));
    QCOMPARE(QSqlDatabase::connectionNames().size(), connections - 1);
    third = DbManager::Client();
    QVERIFY(!third.isValid());
    QCOMPARE(QSqlDatabase::connectionNames().size(), connections - 2);
}

void DbManagerTest::closedClientMayBeReopened()
{
    auto client = openLamps();
    client.close();

    QVERIFY(client.reopen());

    QVERIFY(client.exec("INSERT INTO Lamps (name) VALUES ('hall')"));
}

void DbManagerTest::setsTheJournalMode_data()
{
    QTest::addColumn<Mode>("mode");
    QTest::addColumn<QString>("word");

    QTest::newRow("delete") << static_cast<Mode>(0) << "delete";
    QTest::newRow("truncate") << static_cast<Mode>(1) << "truncate";
    QTest::newRow("persist") << static_cast<Mode>(2) << "persist";
    QTest::newRow("memory") << static_cast<Mode>(3) << "memory";
    QTest::newRow("wal") << static_cast<Mode>(4) << "wal";
    QTest::newRow("off") << static_cast<Mode>(5) << "off";
    QTest::newRow("unknown") << static_cast<Mode>(6) << "delete";
    QTest::newRow("negative") << static_cast<Mode>(-1) << "delete";
}

void DbManagerTest::setsTheJournalMode()
{
    QFETCH(Mode, mode);
    QFETCH(QString, word);

    auto client = openLamps(mode);

    QCOMPARE(column(client, "PRAGMA journal_mode;"), QVariantList{word});
}

void DbManagerTest::waitsBrieflyForALock()
{
    auto client = openLamps();

    QCOMPARE(column(client, "PRAGMA busy_timeout;"), QVariantList{300});
}

void DbManagerTest::filesBelongToTheirOwner()
{
    auto client = openLamps(Mode::Wal);
    QVERIFY(client.exec("INSERT INTO Lamps (name) VALUES ('hall')"));

    for (const char *suffix : {"", "-wal", "-shm"}) {
        QVERIFY(QFile::exists(path() + suffix));
        QCOMPARE(permissionsOfOthers(path() + suffix), QFile::Permissions());
    }
    QVERIFY(QFile::permissions(path()) & QFile::WriteOwner);
}

void DbManagerTest::wideOpenFilesAreClosed()
{
    auto first = openLamps(Mode::Wal);
    const auto everybody = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther;
    for (const char *suffix : {"", "-wal", "-shm"})
        QVERIFY(QFile::setPermissions(path() + suffix, everybody));

    auto second = openLamps(Mode::Wal);

    QVERIFY(second.isValid());
    for (const char *suffix : {"", "-wal", "-shm"})
        QCOMPARE(permissionsOfOthers(path() + suffix), QFile::Permissions());
}

void DbManagerTest::worksInAnotherThread()
{
    auto here = openLamps(Mode::Wal);
    bool done = false;
    const std::unique_ptr<QThread> thread(QThread::create([this, &done] {
        auto there = openLamps(Mode::Wal);
        done = there.exec("INSERT INTO Lamps (name) VALUES ('hall')");
    }));
    thread->start();
    QVERIFY(thread->wait());

    QVERIFY(done);
    QCOMPARE(column(here, "SELECT name FROM Lamps"), QVariantList{"hall"});
}

void DbManagerTest::bindsValues()
{
    auto client = openLamps();
    const QString name = "О'Брайен \"%1\";\n-- \u202e\u05d0";

    QVERIFY(client.exec("INSERT INTO Lamps (id, name, power) VALUES (:id, :name, :power)",
                        {{":id", 7}, {":name", name}, {":power", QVariant()}}));

    QCOMPARE(column(client, "SELECT name FROM Lamps WHERE id == :id AND power IS NULL", {{":id", 7}}),
             QVariantList{name});
}

void DbManagerTest::listStandsForItsValues_data()
{
    QTest::addColumn<QVariant>("ids");
    QTest::addColumn<QVariantList>("names");

    QTest::newRow("several") << QVariant(QVariantList{1, 3}) << QVariantList{"a", "c"};
    QTest::newRow("one") << QVariant(QVariantList{2}) << QVariantList{"b"};
    QTest::newRow("empty") << QVariant(QVariantList()) << QVariantList();
    QTest::newRow("list of texts") << QVariant(QStringList{"1", "2"}) << QVariantList{"a", "b"};
    QTest::newRow("twelve, of which names begin alike")
        << QVariant(QVariantList{1, 90, 91, 92, 93, 94, 95, 96, 97, 98, 99, 3}) << QVariantList{"a", "c"};
}

void DbManagerTest::listStandsForItsValues()
{
    QFETCH(QVariant, ids);
    QFETCH(QVariantList, names);
    auto client = openLamps();
    QVERIFY(client.exec("INSERT INTO Lamps (id, name) VALUES (1, 'a'), (2, 'b'), (3, 'c')"));

    QCOMPARE(column(client, "SELECT name FROM Lamps WHERE id IN (:ids) ORDER BY id", {{":ids", ids}}), names);
}

void DbManagerTest::listLeavesLikeNamesAlone()
{
    auto client = openLamps();
    QVERIFY(client.exec("INSERT INTO Lamps (id, name, power) VALUES (1, ':id', 10), (2, 'b', 10), (3, 'c', 30)"));

    QCOMPARE(column(client, "SELECT id FROM Lamps WHERE id IN (:id) AND power == :idle AND name <> 'x:id' ORDER BY id",
                    {{":id", QVariantList{1, 2, 3}}, {":idle", 10}}),
             QVariantList({1, 2}));
    QCOMPARE(column(client, "SELECT id FROM Lamps WHERE name == ':id' AND id IN (:id)", {{":id", QVariantList{1}}}),
             QVariantList{1});
}

void DbManagerTest::textIsNoList()
{
    auto client = openLamps();

    QVERIFY(client.exec("INSERT INTO Lamps (name, power) VALUES (:name, :power)",
                        {{":name", QByteArray("bytes")}, {":power", "text"}}));

    QCOMPARE(column(client, "SELECT power FROM Lamps"), QVariantList{"text"});
}

void DbManagerTest::batchRunsOneRowEach()
{
    auto client = openLamps();

    QVERIFY(client.execBatch("INSERT INTO Lamps (id, name) VALUES (:id, :name)",
                             {{":id", QVariantList{5, 6}}, {":name", QStringList{"e", "f"}}}));

    QCOMPARE(column(client, "SELECT name FROM Lamps ORDER BY id"), QVariantList({"e", "f"}));
}

void DbManagerTest::batchRepeatsPlainValues()
{
    auto client = openLamps();

    QVERIFY(client.execBatch("INSERT INTO Lamps (name, power) VALUES (:name, :power)",
                             {{":name", QVariantList{"e", "f", "g"}}, {":power", 40}}));

    QCOMPARE(column(client, "SELECT power FROM Lamps"), QVariantList({40, 40, 40}));

    QVERIFY(client.execBatch("INSERT INTO Lamps (name) VALUES (:name)", {{":name", "alone"}}));
    QCOMPARE(column(client, "SELECT COUNT(*) FROM Lamps"), QVariantList{4});
}

void DbManagerTest::batchOfNothingDoesNothing()
{
    auto client = openLamps();

    QVERIFY(client.execBatch("INSERT INTO Lamps (name, power) VALUES (:name, :power)",
                             {{":name", QVariantList()}, {":power", 40}}));

    QCOMPARE(column(client, "SELECT COUNT(*) FROM Lamps"), QVariantList{0});
}

void DbManagerTest::batchWithoutBindingsRunsOnce()
{
    auto client = openLamps();

    QVERIFY(client.execBatch("INSERT INTO Lamps (name) VALUES ('hall')", {}));

    QCOMPARE(column(client, "SELECT COUNT(*) FROM Lamps"), QVariantList{1});
}

void DbManagerTest::batchOfUnequalListsIsRefused()
{
    auto client = openLamps();
    expectMessage(QtWarningMsg, "Can not execute sql: .*INSERT INTO Lamps");

    QVERIFY(!client.execBatch("INSERT INTO Lamps (id, name) VALUES (:id, :name)",
                              {{":id", QVariantList{5, 6}}, {":name", QVariantList{"e"}}}));

    QCOMPARE(column(client, "SELECT COUNT(*) FROM Lamps"), QVariantList{0});
}

void DbManagerTest::invalidClientOnlyWarns()
{
    DbManager::Client client;
    bool called = false;
    expectMessage(QtWarningMsg, "^Trying to execute SQL on invalid Client: SELECT 1$");
    expectMessage(QtWarningMsg, "^Trying to execute SQL on invalid Client: SELECT 2$");
    expectMessage(QtWarningMsg, "^Trying to execute SQL on invalid Client: PRAGMA user_version;$");

    QVERIFY(!client.exec("SELECT 1", [&called](QSqlQuery &) { called = true; }));
    QVERIFY(!client.execBatch("SELECT 2", {}));
    QCOMPARE(client.getSchemaVersion(), 0);

    client.close();
    QVERIFY(!client.reopen());
    QVERIFY(!called);
}

void DbManagerTest::unknownConnectionIsInvalid()
{
    expectMessage(QtWarningMsg, "^Can not open db \\[nobody\\]!$");

    DbManager::Client client("nobody", Mode::Delete);

    QVERIFY(!client.isValid());
}

void DbManagerTest::badStatementIsToldOf()
{
    auto client = openLamps();
    expectMessage(QtWarningMsg, "^Can not prepare sql: \"SELECT %1 FROM Nowhere\";\nError: .*syntax error");

    QVERIFY(!client.exec("SELECT %1 FROM Nowhere"));

    QVERIFY(client.lastStatementError().isValid());
}

void DbManagerTest::failedStatementIsToldOfWithoutPasswords()
{
    auto client = openLamps();
    QVERIFY(client.exec("INSERT INTO Lamps (name) VALUES ('hall')"));
    expectMessage(QtWarningMsg,
                  "^Can not execute sql: \"INSERT INTO Lamps \\(name, power\\) VALUES \\(hall, \\*\\*\\*\\)\";\n"
                  "Error: .*UNIQUE constraint failed");

    QVERIFY(!client.exec("INSERT INTO Lamps (name, power)   VALUES (:name, :password)",
                         {{":name", "hall"}, {":password", "secret"}}));
}

void DbManagerTest::statementErrorIsForgottenAfterASuccess()
{
    auto client = openLamps();
    allowMessages("Can not prepare sql");
    QVERIFY(!client.exec("nonsense"));

    QVERIFY(client.exec("SELECT 1"));

    QVERIFY(!client.lastStatementError().isValid());
}

void DbManagerTest::showsAQueryWithItsValues()
{
    auto client = openLamps();
    QString shown;

    QVERIFY(client.exec("SELECT *   FROM Lamps\n WHERE name == :name AND id == :id AND name <> ':id'",
                        {{":name", ":id"}, {":id", 4}},
                        [&shown](QSqlQuery &query) { shown = DbManager::getQueryWithBinding(query); }));

    QCOMPARE(shown, QString("SELECT * FROM Lamps WHERE name == :id AND id == 4 AND name <> ':id'"));
}

void DbManagerTest::keepsTheSchemaVersion()
{
    {
        auto client = openLamps();
        QCOMPARE(client.getSchemaVersion(), 0);
        QVERIFY(client.setSchemaVersion(12));
    }

    QCOMPARE(openLamps().getSchemaVersion(), 12);
}

void DbManagerTest::damagedFileStaysAsItIs()
{
    const QByteArray garbage = QByteArray("this is no database at all\n").repeated(400);
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(garbage), qint64(garbage.size()));
    file.close();
    allowMessages("Can not (prepare|execute) sql: .*\n?.*Error: .*not a database");
    {
        auto client = openLamps(Mode::Wal);
        QVERIFY(client.isValid());
        QCOMPARE(client.getSchemaVersion(), 0);
        QVERIFY(client.lastStatementError().isValid());
        QVERIFY(!client.setSchemaVersion(1));
    }

    QCOMPARE(contentOf(path()), garbage);
}

ONDIRA_TEST(DbManagerTest)
#include "DbManagerTest.moc"
