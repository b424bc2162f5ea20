// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/DbManager.h"
#include "support/TestBase.h"

#include <QSqlQuery>
#include <QTemporaryDir>

using Locker = DbManager::TransactionLocker;

class TransactionLockerTest : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void commitsAtTheEndOfItsScope();
    void holdsTheRowsUntilThen();
    void commitsOnce();
    void rollsBack();
    void innerLockerDecidesNothing();
    void clientMayLockAgain();
    void movedLockerHandsOver();
    void lockerOnAnInvalidClientDoesNothing();
    void refusedCommitLeavesNoTransactionOpen();

private:
    DbManager::Client open() const;
    static int rows(DbManager::Client &client);

    std::unique_ptr<QTemporaryDir> m_folder;
    DbManager::Client m_client;
    DbManager::Client m_other; // sees what is committed
};

DbManager::Client TransactionLockerTest::open() const
{
    return DbManager(QFileInfo(m_folder->filePath("lamps.sqlite")), DbManager::SqliteJournalMode::Wal).open();
}

int TransactionLockerTest::rows(DbManager::Client &client)
{
    int count = -1;
    client.exec("SELECT COUNT(*) FROM Lamps", [&count](QSqlQuery &query) {
        if (query.next())
            count = query.value(0).toInt();
    });
    return count;
}

void TransactionLockerTest::init()
{
    TestBase::init();
    m_folder = std::make_unique<QTemporaryDir>();
    m_client = open();
    m_other = open();
    QVERIFY(m_client.exec("CREATE TABLE Lamps (name TEXT)"));
}

void TransactionLockerTest::cleanup()
{
    m_client = DbManager::Client();
    m_other = DbManager::Client();
    TestBase::cleanup();
}

void TransactionLockerTest::commitsAtTheEndOfItsScope()
{
    {
        Locker locker(m_client);
        QVERIFY(locker.isValid());
        QVERIFY(m_client.exec("INSERT INTO Lamps VALUES ('hall')"));
    }

    QCOMPARE(rows(m_other), 1);
}

void TransactionLockerTest::holdsTheRowsUntilThen()
{
    Locker locker(m_client);
    QVERIFY(m_client.exec("INSERT INTO Lamps VALUES ('hall')"));

    QCOMPARE(rows(m_other), 0);
    QCOMPARE(rows(m_client), 1);
}

void TransactionLockerTest::commitsOnce()
{
    Locker locker(m_client);
    QVERIFY(m_client.exec("INSERT INTO Lamps VALUES ('hall')"));

    QVERIFY(locker.commit());
    QVERIFY(!locker.commit());
    QVERIFY(!locker.rollback());

    QCOMPARE(rows(m_other), 1);
}

void TransactionLockerTest::rollsBack()
{
    {
        Locker locker(m_client);
        QVERIFY(m_client.exec("INSERT INTO Lamps VALUES ('hall')"));

        QVERIFY(locker.rollback());

        QVERIFY(!locker.isValid());
        QVERIFY(!locker.commit());
    }
    QCOMPARE(rows(m_client), 0);
    QVERIFY(m_client.exec("INSERT INTO Lamps VALUES ('kitchen')"));
    QCOMPARE(rows(m_other), 1);
}

void TransactionLockerTest::innerLockerDecidesNothing()
{
    Locker outer(m_client);
    {
        Locker inner(m_client);
        QVERIFY(!inner.isValid());
        QVERIFY(m_client.exec("INSERT INTO Lamps VALUES ('hall')"));
        QVERIFY(!inner.commit());
        QVERIFY(!inner.rollback());
    }
    QCOMPARE(rows(m_other), 0);

    QVERIFY(outer.commit());

    QCOMPARE(rows(m_other), 1);
}

void TransactionLockerTest::clientMayLockAgain()
{
    {
        Locker locker(m_client);
    }

    Locker locker(m_client);

    QVERIFY(locker.isValid());
}

void TransactionLockerTest::movedLockerHandsOver()
{
    auto first = std::make_unique<Locker>(m_client);
    QVERIFY(m_client.exec("INSERT INTO Lamps VALUES ('hall')"));
    {
        Locker second(std::move(*first));
        QVERIFY(second.isValid());
        QVERIFY(!first->isValid());
        first.reset();
        QCOMPARE(rows(m_other), 0);
    }

    QCOMPARE(rows(m_other), 1);
}

void TransactionLockerTest::lockerOnAnInvalidClientDoesNothing()
{
    DbManager::Client invalid;
    expectMessage(QtWarningMsg, "Can not begin a transaction:");

    Locker locker(invalid);

    QVERIFY(!locker.isValid());
    QVERIFY(!locker.commit());
}

void TransactionLockerTest::refusedCommitLeavesNoTransactionOpen()
{
    QVERIFY(m_client.exec("PRAGMA foreign_keys = ON;"));
    QVERIFY(m_client.exec("CREATE TABLE Rooms (id INTEGER PRIMARY KEY)"));
    QVERIFY(m_client.exec("CREATE TABLE Doors (room INTEGER REFERENCES Rooms (id) DEFERRABLE INITIALLY DEFERRED)"));
    expectMessage(QtWarningMsg, "Can not commit a transaction: .*FOREIGN KEY constraint failed");
    Locker locker(m_client);
    QVERIFY(m_client.exec("INSERT INTO Doors VALUES (7)"));

    QVERIFY(!locker.commit());

    QVERIFY(m_client.exec("INSERT INTO Lamps VALUES ('hall')"));
    QCOMPARE(rows(m_other), 1);
}

ONDIRA_TEST(TransactionLockerTest)
#include "TransactionLockerTest.moc"
