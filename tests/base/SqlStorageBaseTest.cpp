// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/SqlStorageBase.h"
#include "support/TestBase.h"

#include <QFile>
#include <QSqlQuery>
#include <QTemporaryDir>

namespace {

class Lamps : public SqlStorageBase
{
public:
    explicit Lamps(DbManager &database)
        : SqlStorageBase(database, "Lamps", 3)
    {}

    using SqlStorageBase::client;
    using SqlStorageBase::tableName;
    using SqlStorageBase::wantedVersion;
};

} // namespace

class SqlStorageBaseTest : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void versionIsNoneAtFirst();
    void versionIsKept();
    void versionsOfTablesAreTheirOwn();
    void foreignKeysAreWatched();
    void keepsWhatItWasMadeWith();
    void databaseThatCannotOpenIsOnlyWarnedOf();
    void writesJson();
    void readsJson_data();
    void readsJson();

private:
    QString path() const { return m_folder->filePath("lamps.sqlite"); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void SqlStorageBaseTest::init()
{
    TestBase::init();
    m_folder = std::make_unique<QTemporaryDir>();
}

void SqlStorageBaseTest::versionIsNoneAtFirst()
{
    DbManager database(QFileInfo(path()), DbManager::SqliteJournalMode::Delete);
    Lamps lamps(database);

    QCOMPARE(lamps.getVersion(), 0);
}

void SqlStorageBaseTest::versionIsKept()
{
    DbManager database(QFileInfo(path()), DbManager::SqliteJournalMode::Delete);
    {
        Lamps lamps(database);
        QVERIFY(lamps.setVersion(2));
        QVERIFY(lamps.setVersion(3));
    }

    Lamps lamps(database);

    QCOMPARE(lamps.getVersion(), 3);
    int rows = 0;
    QVERIFY(lamps.client().exec("SELECT COUNT(*) FROM `Lamps_version_table`", [&rows](QSqlQuery &query) {
        QVERIFY(query.next());
        rows = query.value(0).toInt();
    }));
    QCOMPARE(rows, 1);
}

void SqlStorageBaseTest::versionsOfTablesAreTheirOwn()
{
    DbManager database(QFileInfo(path()), DbManager::SqliteJournalMode::Delete);
    SqlStorageBase first(database, "First", 1);
    SqlStorageBase second(database, "Second", 1);

    QVERIFY(first.setVersion(7));

    QCOMPARE(first.getVersion(), 7);
    QCOMPARE(second.getVersion(), 0);
}

void SqlStorageBaseTest::foreignKeysAreWatched()
{
    DbManager database(QFileInfo(path()), DbManager::SqliteJournalMode::Delete);
    Lamps lamps(database);
    int watched = 0;

    QVERIFY(lamps.client().exec("PRAGMA foreign_keys;", [&watched](QSqlQuery &query) {
        QVERIFY(query.next());
        watched = query.value(0).toInt();
    }));

    QCOMPARE(watched, 1);
}

void SqlStorageBaseTest::keepsWhatItWasMadeWith()
{
    DbManager database(QFileInfo(path()), DbManager::SqliteJournalMode::Delete);
    Lamps lamps(database);

    QCOMPARE(lamps.tableName(), QString("Lamps"));
    QCOMPARE(lamps.wantedVersion(), 3);
}

void SqlStorageBaseTest::databaseThatCannotOpenIsOnlyWarnedOf()
{
    DbManager database(QFileInfo(m_folder->filePath("missing/lamps.sqlite")), DbManager::SqliteJournalMode::Delete);
    expectMessage(QtWarningMsg, "Can not open db");
    allowMessages("Trying to execute SQL on invalid Client:");

    Lamps lamps(database);

    QCOMPARE(lamps.getVersion(), 0);
    QVERIFY(!lamps.setVersion(1));
    QVERIFY(!lamps.createMetaTable());
}

void SqlStorageBaseTest::writesJson()
{
    const QByteArray json = SqlStorageBase::toJson(QVariantMap{{"shopScale", 1.5}});

    QCOMPARE(json, QByteArray("{\n    \"shopScale\": 1.5\n}\n"));
}

void SqlStorageBaseTest::readsJson_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QVariant>("expected");

    QTest::newRow("object") << QByteArray("{\"a\": \"б\"}") << QVariant(QVariantMap{{"a", "б"}});
    QTest::newRow("array") << QByteArray("[true]") << QVariant(QVariantList{true});
    QTest::newRow("broken") << QByteArray("{\"a\": ") << QVariant();
    QTest::newRow("empty") << QByteArray() << QVariant();
    QTest::newRow("plain text") << QByteArray("Дом") << QVariant();
}

void SqlStorageBaseTest::readsJson()
{
    QFETCH(QByteArray, json);
    QFETCH(QVariant, expected);

    const QVariant value = SqlStorageBase::fromJson(json);

    QCOMPARE(value.isNull(), expected.isNull());
    QCOMPARE(value.toMap(), expected.toMap());
    QCOMPARE(value.toList(), expected.toList());
}

ONDIRA_TEST(SqlStorageBaseTest)
#include "SqlStorageBaseTest.moc"
