// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/ConnectionsFixture.h"
#include "support/TestBase.h"

#include <QSignalSpy>

using List = ConnectionsListModel;

class ConnectionsListModelTest : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void startsEmptyAndClosed();
    void loadsWhenStorageIsGranted();
    void tableHasItsShape();
    void rolesHaveTheirNumbers();
    void oddIndexesGiveNothing();

    void addedConnectionSurvivesARestart_data();
    void addedConnectionSurvivesARestart();
    void duplicateIsRefused();
    void connectionsMayDifferInThePasswordAlone();

    void activationConnects();
    void activationTellsInOrder();
    void activationOfNoRowIsIgnored_data();
    void activationOfNoRowIsIgnored();
    void activationRefreshesStoredValues();
    void listenerMayChangeTheListDuringActivation();
    void settingTheIndexDoesNotConnect();
    void noCurrentConnectionHasNoTexts();

    void removesARow();
    void removalTakesRowsOfOtherPasswordsFromTheTable();
    void removingTheCurrentKeepsTheIndexAndTheLink();
    void removingARowAboveTheCurrentKeepsTheIndex();
    void removingTheCurrentLastActivatesTheNewLast();
    void removingTheOnlyRowKeepsTheLink();
    void removalOfNoRowIsRefused();

    void updatesARow();
    void updateOfTheCurrentReconnects();
    void updateToADuplicateIsRefused();
    void updateFindsTheFirstOfRowsWithOtherPasswords();
    void updateOfNoRowIsRefused();
};

void ConnectionsListModelTest::init()
{
    TestBase::init();
    removeAllLocalFiles();
}

void ConnectionsListModelTest::startsEmptyAndClosed()
{
    ConnectionsRun run;

    QCOMPARE(run.model.getCount(), 0);
    QCOMPARE(run.model.getCurrentIndex(), -1);
    QVERIFY(!run.model.isLoaded());
    QVERIFY(!QFile::exists(ConnectionsTable::path()));
}

void ConnectionsListModelTest::loadsWhenStorageIsGranted()
{
    QVERIFY(ConnectionsRun().load().model.add("Дом", "10.0.0.1", "admin", "1"));
    ConnectionsRun run;
    QSignalSpy loaded(&run.model, &List::loadedChanged);
    QSignalSpy counted(&run.model, &List::countChanged);

    run.permissions.getStoragePermission();

    QVERIFY(loaded.wait(patience));
    QVERIFY(run.model.isLoaded());
    QCOMPARE(run.names(), QStringList{"Дом"});
    QCOMPARE(counted.size(), 1);
    QCOMPARE(run.model.getCurrentIndex(), -1);
    QCOMPARE(run.link.getStatus(), AbstractBackendCommunicator::Disconnected);
}

void ConnectionsListModelTest::tableHasItsShape()
{
    ConnectionsRun run;
    run.load();
    ConnectionsTable table;

    QCOMPARE(table.client.getSchemaVersion(), 1);
    QCOMPARE(table.column("SELECT name FROM pragma_table_info('Connections')"),
             QStringList({"id", "name", "address", "login", "password", "storage"}));
    QCOMPARE(table.column("SELECT type || \"notnull\" || pk FROM pragma_table_info('Connections')"),
             QStringList({"INTEGER11", "TEXT10", "TEXT10", "TEXT10", "TEXT10", "TEXT10"}));
    QCOMPARE(table.column("PRAGMA journal_mode;"), QStringList{"wal"});
    QVERIFY(ConnectionsTable::path().endsWith("/.ondirasmart/db/client_connections.sqlite"));
}

void ConnectionsListModelTest::rolesHaveTheirNumbers()
{
    ConnectionsRun run;
    const QHash<int, QByteArray> expected{{257, "name"},    {258, "address"}, {259, "login"},    {260, "password"},
                                          {261, "storage"}, {262, "active"},  {263, "temporary"}};

    QCOMPARE(run.model.roleNames(), expected);
}

void ConnectionsListModelTest::oddIndexesGiveNothing()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("Дом", "10.0.0.1", "admin", "1"));
    allowMessages("is not valid \\(expected valid\\)");

    QVERIFY(!run.model.data(QModelIndex(), List::Name).isValid());
    QVERIFY(!run.model.data(run.model.index(1, 0), List::Name).isValid());
    QVERIFY(!run.model.data(run.model.index(0, 0), Qt::DisplayRole).isValid());
    QCOMPARE(run.model.rowCount(run.model.index(0, 0)), 0);
}

void ConnectionsListModelTest::addedConnectionSurvivesARestart_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("plain") << "Дом";
    QTest::newRow("empty") << "";
    QTest::newRow("null") << QString();
    QTest::newRow("quotes") << "'\"`; DROP TABLE Connections; --";
    QTest::newRow("line feeds") << "one\r\ntwo\n";
    QTest::newRow("right to left") << QString::fromUtf8("\u05d1\u05d9\u05ea \u0628\u064a\u062a");
    QTest::newRow("placeholders") << ":name %1 :password %n";
    QTest::newRow("long") << QString(10000, QChar(u'Ж'));
    QTest::newRow("beyond the first plane") << QString::fromUtf8("\U0001F4A1");
}

void ConnectionsListModelTest::addedConnectionSurvivesARestart()
{
    QFETCH(QString, text);
    {
        ConnectionsRun run;
        run.load();
        QSignalSpy counted(&run.model, &List::countChanged);
        QVERIFY(run.model.add(text, text, text, text, {{"shopUid", text}}));
        QCOMPARE(counted.size(), 1);
        QCOMPARE(run.model.getCount(), 1);
    }

    ConnectionsRun run;
    run.load();

    QCOMPARE(run.model.getCount(), 1);
    for (const int role : {List::Name, List::Address, List::Login, List::Password})
        QVERIFY(run.value(0, role).toString() == text);
    QVERIFY(run.value(0, List::Storage).toMap().value("shopUid").toString() == text);
    QCOMPARE(run.value(0, List::Temporary), QVariant(false));
    QCOMPARE(run.value(0, List::Active), QVariant(false));
}

void ConnectionsListModelTest::duplicateIsRefused()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("Дом", "10.0.0.1", "admin", "tOpSecret"));
    QSignalSpy counted(&run.model, &List::countChanged);
    QSignalSpy failed(&run.model, &List::storageFailed);
    expectMessage(QtWarningMsg, "(?s)^Can not execute sql: (?!.*tOpSecret).*UNIQUE constraint failed");

    QVERIFY(!run.model.add("Дом", "10.0.0.1", "admin", "tOpSecret"));

    QCOMPARE(run.model.getCount(), 1);
    QCOMPARE(counted.size(), 0);
    QCOMPARE(failed.size(), 0);
    QCOMPARE(ConnectionsTable().names(), QStringList{"Дом"});
}

void ConnectionsListModelTest::connectionsMayDifferInThePasswordAlone()
{
    ConnectionsRun run;
    run.load();

    QVERIFY(run.model.add("Дом", "10.0.0.1", "admin", "1"));
    QVERIFY(run.model.add("Дом", "10.0.0.1", "admin", "2"));

    QCOMPARE(run.model.getCount(), 2);
    QCOMPARE(ConnectionsTable().passwords(), QStringList({"1", "2"}));
}

void ConnectionsListModelTest::activationConnects()
{
    ConnectionsRun run;
    run.load();
    run.link.setControlPort(4001);
    run.link.setUpdatePort(4002);
    QVERIFY(run.model.add("Дом", "10.0.0.1", "admin", "secret"));

    run.model.activate(0);

    QCOMPARE(run.link.getStatus(), AbstractBackendCommunicator::Connecting);
    QCOMPARE(run.target(), QString("admin@10.0.0.1"));
    QCOMPARE(run.link.getCurrentPassword(), QString("secret"));
    QCOMPARE(run.link.getControlPort(), 4001);
    QCOMPARE(run.link.getUpdatePort(), 4002);
    QCOMPARE(run.model.getCurrentIndex(), 0);
    QCOMPARE(run.model.getCurrentConnectionName(), QString("Дом"));
    QCOMPARE(run.model.getCurrentAddress(), QString("10.0.0.1"));
    QCOMPARE(run.model.getCurrentLogin(), QString("admin"));
    QCOMPARE(run.model.getCurrentPassword(), QString("secret"));
    QCOMPARE(run.activeRows(), QList<int>{0});
}

void ConnectionsListModelTest::activationTellsInOrder()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("a", "10.0.0.1", "admin", "1"));
    QVERIFY(run.model.add("b", "10.0.0.2", "admin", "1", {{"shopScale", 2.0}}));
    run.model.activate(0);
    QStringList told;
    connect(&run.link, &AbstractBackendCommunicator::userCredentialsChanged, this, [&] { told << "link"; });
    connect(&run.model, &List::currentIndexChanged, this, [&] { told << "index"; });
    connect(&run.model, &List::dataChanged, this,
            [&](const QModelIndex &from, const QModelIndex &to, const auto &roles) {
                QCOMPARE(from, to);
                QCOMPARE(roles, QVector<int>{262});
                told << QString("row %1").arg(from.row());
            });
    connect(&run.model, &List::currentConnectionChanged, this, [&] { told << "connection"; });
    connect(&run.model, &List::storedValueChanged, this, [&](const QString &key) { told << key; });

    run.model.activate(1);

    QCOMPARE(told, QStringList({"link", "index", "row 1", "row 0", "connection", "shopScale"}));
}

void ConnectionsListModelTest::activationOfNoRowIsIgnored_data()
{
    QTest::addColumn<int>("row");

    QTest::newRow("negative") << -1;
    QTest::newRow("past the end") << 1;
    QTest::newRow("far away") << 1000000;
}

void ConnectionsListModelTest::activationOfNoRowIsIgnored()
{
    QFETCH(int, row);
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("Дом", "10.0.0.1", "admin", "1"));
    QSignalSpy indexed(&run.model, &List::currentIndexChanged);

    run.model.activate(row);

    QCOMPARE(indexed.size(), 0);
    QCOMPARE(run.model.getCurrentIndex(), -1);
    QCOMPARE(run.link.getStatus(), AbstractBackendCommunicator::Disconnected);
}

void ConnectionsListModelTest::activationRefreshesStoredValues()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("Дом", "10.0.0.1", "admin", "1", {{"shopScale", 2.0}, {"shopUid", "{x}"}}));
    QSignalSpy stored(&run.model, &List::storedValueChanged);

    run.model.activate(0);

    QCOMPARE(stored.size(), 2);
    QCOMPARE(stored.at(0), QVariantList({"shopScale", 2.0}));
    QCOMPARE(stored.at(1), QVariantList({"shopUid", "{x}"}));
}

void ConnectionsListModelTest::listenerMayChangeTheListDuringActivation()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("a", "10.0.0.1", "admin", "1", {{"one", 1}, {"two", 2}, {"three", 3}}));
    connect(&run.model, &List::storedValueChanged, this, [&run](const QString &key) {
        if (key.startsWith("more"))
            return;
        run.model.setStoredValue("more " + key, true);
        run.model.add("added at " + key, "10.0.0.2", "admin", "1");
    });

    run.model.activate(0);

    QCOMPARE(run.model.getCount(), 4);
    QCOMPARE(run.model.getCurrentStorage().toMap().size(), 6);
}

void ConnectionsListModelTest::settingTheIndexDoesNotConnect()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("Дом", "10.0.0.1", "admin", "1"));
    QSignalSpy indexed(&run.model, &List::currentIndexChanged);

    run.model.setCurrentIndex(0);
    run.model.setCurrentIndex(0);

    QCOMPARE(indexed.size(), 1);
    QCOMPARE(run.model.getCurrentConnectionName(), QString("Дом"));
    QCOMPARE(run.activeRows(), QList<int>{0});
    QCOMPARE(run.link.getStatus(), AbstractBackendCommunicator::Disconnected);
}

void ConnectionsListModelTest::noCurrentConnectionHasNoTexts()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("Дом", "10.0.0.1", "admin", "1"));

    for (const int index : {-1, 1, -5, 1000}) {
        run.model.setCurrentIndex(index);
        QCOMPARE(run.model.getCurrentConnectionName(), QString());
        QCOMPARE(run.model.getCurrentAddress(), QString());
        QCOMPARE(run.model.getCurrentLogin(), QString());
        QCOMPARE(run.model.getCurrentPassword(), QString());
        QVERIFY(!run.model.getCurrentStorage().isValid());
        QCOMPARE(run.model.getStoredValue("shopScale", 1.0), QVariant(1.0));
    }
}

void ConnectionsListModelTest::removesARow()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("a", "10.0.0.1", "admin", "1"));
    QVERIFY(run.model.add("b", "10.0.0.2", "admin", "1"));
    QSignalSpy removed(&run.model, &List::rowsRemoved);
    QSignalSpy counted(&run.model, &List::countChanged);

    QVERIFY(run.model.remove(0));

    QCOMPARE(removed.size(), 1);
    QCOMPARE(counted.size(), 1);
    QCOMPARE(run.names(), QStringList{"b"});
    QCOMPARE(ConnectionsTable().names(), QStringList{"b"});
}

void ConnectionsListModelTest::removalTakesRowsOfOtherPasswordsFromTheTable()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("Дом", "10.0.0.1", "admin", "1"));
    QVERIFY(run.model.add("Дом", "10.0.0.1", "admin", "2"));
    QVERIFY(run.model.add("Дом", "10.0.0.1", "user", "1"));

    QVERIFY(run.model.remove(0));

    QCOMPARE(run.model.getCount(), 2);
    QCOMPARE(run.value(0, List::Password).toString(), QString("2"));
    QCOMPARE(ConnectionsTable().column("SELECT login FROM Connections"), QStringList{"user"});
    QCOMPARE(ConnectionsRun().load().model.getCount(), 1);
}

void ConnectionsListModelTest::removingTheCurrentKeepsTheIndexAndTheLink()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("a", "10.0.0.1", "admin", "1"));
    QVERIFY(run.model.add("b", "10.0.0.2", "admin", "1"));
    run.model.activate(0);
    run.link.enter(AbstractBackendCommunicator::Connected);
    QSignalSpy indexed(&run.model, &List::currentIndexChanged);

    QVERIFY(run.model.remove(0));

    QCOMPARE(run.model.getCurrentIndex(), 0);
    QCOMPARE(indexed.size(), 0);
    QCOMPARE(run.model.getCurrentConnectionName(), QString("b"));
    QCOMPARE(run.target(), QString("admin@10.0.0.1"));
    QCOMPARE(run.link.getStatus(), AbstractBackendCommunicator::Connected);
}

void ConnectionsListModelTest::removingARowAboveTheCurrentKeepsTheIndex()
{
    ConnectionsRun run;
    run.load();
    for (const char *name : {"a", "b", "c"})
        QVERIFY(run.model.add(name, "10.0.0.1", "admin", "1"));
    run.model.activate(1);
    QList<int> changedRows;
    connect(&run.model, &List::dataChanged, this, [&](const QModelIndex &from) { changedRows << from.row(); });

    QVERIFY(run.model.remove(0));

    QCOMPARE(run.model.getCurrentIndex(), 1);
    QCOMPARE(run.activeRows(), QList<int>{1});
    std::sort(changedRows.begin(), changedRows.end());
    QCOMPARE(changedRows, QList<int>({0, 1}));
}

void ConnectionsListModelTest::removingTheCurrentLastActivatesTheNewLast()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("a", "10.0.0.1", "admin", "1"));
    QVERIFY(run.model.add("b", "10.0.0.2", "admin", "1"));
    run.model.activate(1);
    run.link.enter(AbstractBackendCommunicator::Connected);

    QVERIFY(run.model.remove(1));

    QCOMPARE(run.model.getCurrentIndex(), 0);
    QCOMPARE(run.target(), QString("admin@10.0.0.1"));
    QCOMPARE(run.link.getStatus(), AbstractBackendCommunicator::Connecting);
}

void ConnectionsListModelTest::removingTheOnlyRowKeepsTheLink()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("a", "10.0.0.1", "admin", "1"));
    run.model.activate(0);
    run.link.enter(AbstractBackendCommunicator::Connected);

    QVERIFY(run.model.remove(0));

    QCOMPARE(run.model.getCount(), 0);
    QCOMPARE(run.link.getStatus(), AbstractBackendCommunicator::Connected);
    QCOMPARE(run.model.getCurrentConnectionName(), QString());
    QVERIFY(!run.model.setStoredValue("shopScale", 2));
}

void ConnectionsListModelTest::removalOfNoRowIsRefused()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("a", "10.0.0.1", "admin", "1"));

    QVERIFY(!run.model.remove(-1));
    QVERIFY(!run.model.remove(1));

    QCOMPARE(run.model.getCount(), 1);
    QCOMPARE(ConnectionsTable().names(), QStringList{"a"});
}

void ConnectionsListModelTest::updatesARow()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("a", "10.0.0.1", "admin", "1", {{"shopScale", 2.0}}));
    QSignalSpy changed(&run.model, &List::dataChanged);

    QVERIFY(run.model.update(0, "b", "10.0.0.2", "user", QString()));

    QCOMPARE(changed.size(), 1);
    QCOMPARE(run.link.getStatus(), AbstractBackendCommunicator::Disconnected);
    ConnectionsRun next;
    next.load();
    for (const auto *seen : {&run, &next}) {
        QCOMPARE(seen->names(), QStringList{"b"});
        QCOMPARE(seen->value(0, List::Address).toString(), QString("10.0.0.2"));
        QCOMPARE(seen->value(0, List::Login).toString(), QString("user"));
        QCOMPARE(seen->value(0, List::Password).toString(), QString());
        QCOMPARE(seen->value(0, List::Storage).toMap(), QVariantMap({{"shopScale", 2.0}}));
    }
}

void ConnectionsListModelTest::updateOfTheCurrentReconnects()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("a", "10.0.0.1", "admin", "1"));
    run.model.activate(0);
    run.link.enter(AbstractBackendCommunicator::Connected);

    QVERIFY(run.model.update(0, "a", "10.0.0.9", "admin", "1"));

    QCOMPARE(run.target(), QString("admin@10.0.0.9"));
    QCOMPARE(run.link.getStatus(), AbstractBackendCommunicator::Connecting);
}

void ConnectionsListModelTest::updateToADuplicateIsRefused()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("a", "10.0.0.1", "admin", "1"));
    QVERIFY(run.model.add("b", "10.0.0.1", "admin", "1"));
    QSignalSpy changed(&run.model, &List::dataChanged);
    expectMessage(QtWarningMsg, "Can not execute sql");

    QVERIFY(!run.model.update(1, "a", "10.0.0.1", "admin", "1"));

    QCOMPARE(changed.size(), 0);
    QCOMPARE(run.names(), QStringList({"a", "b"}));
    QCOMPARE(ConnectionsTable().names(), QStringList({"a", "b"}));
}

void ConnectionsListModelTest::updateFindsTheFirstOfRowsWithOtherPasswords()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("a", "10.0.0.1", "admin", "1"));
    QVERIFY(run.model.add("a", "10.0.0.1", "admin", "2"));

    QVERIFY(run.model.update(1, "b", "10.0.0.1", "admin", "3"));

    QCOMPARE(run.names(), QStringList({"a", "b"}));
    QCOMPARE(ConnectionsTable().names(), QStringList({"b", "a"}));
    QCOMPARE(ConnectionsTable().passwords(), QStringList({"3", "2"}));
}

void ConnectionsListModelTest::updateOfNoRowIsRefused()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("a", "10.0.0.1", "admin", "1"));

    QVERIFY(!run.model.update(-1, "b", "b", "b", "b"));
    QVERIFY(!run.model.update(1, "b", "b", "b", "b"));
    QVERIFY(ConnectionsTable().client.exec("DELETE FROM Connections"));
    QVERIFY(!run.model.update(0, "b", "b", "b", "b"));

    QCOMPARE(run.names(), QStringList{"a"});
}

ONDIRA_TEST(ConnectionsListModelTest)
#include "ConnectionsListModelTest.moc"
