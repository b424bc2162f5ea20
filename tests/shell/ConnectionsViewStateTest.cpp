// SPDX-License-Identifier: GPL-3.0-or-later
// What the list of connections keeps besides its saved rows: logins under other users, and the view state of screens.
#include "shell/ConnectionsFixture.h"
#include "support/TestBase.h"

#include <QQmlEngine>
#include <QSignalSpy>

using List = ConnectionsListModel;

class ConnectionsViewStateTest : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void reloginAddsATemporaryRow();
    void temporaryRowIsReadOnly();
    void activatingASavedRowDropsTheTemporary();
    void secondReloginReplacesTheFirst();
    void indexFollowsTheRowWhenATemporaryAboveIsDropped();
    void reloginOfNoRowIsIgnored();
    void reloadKeepsTemporaryRows();
    void storedValueSurvivesARestart();
    void storedValueOfATemporaryRowDoesNot();
    void storedValueNeedsACurrentConnection();
    void storedValuesBelongToTheirConnection();
    void storedValueIsTold();
    void scriptsStoreWhatTheyLike();
    void brokenStorageIsEmpty_data();
    void brokenStorageIsEmpty();
    void givesARowAsAMap();
};

void ConnectionsViewStateTest::init()
{
    TestBase::init();
    removeAllLocalFiles();
}

void ConnectionsViewStateTest::reloginAddsATemporaryRow()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("Дом", "10.0.0.1", "user", "1", {{"shopScale", 2.0}}));
    run.model.activate(0);

    run.model.relogin(0, "admin", "secret");

    QCOMPARE(run.model.getCount(), 2);
    QCOMPARE(run.value(1, List::Temporary), QVariant(true));
    QCOMPARE(run.value(1, List::Storage).toMap(), QVariantMap({{"shopScale", 2.0}}));
    QCOMPARE(run.names(), QStringList({"Дом", "Дом"}));
    QCOMPARE(run.activeRows(), QList<int>{1});
    QCOMPARE(run.target(), QString("admin@10.0.0.1"));
    QCOMPARE(run.link.getCurrentPassword(), QString("secret"));
    QCOMPARE(ConnectionsTable().passwords(), QStringList{"1"});
    QCOMPARE(ConnectionsRun().load().model.getCount(), 1);
}

void ConnectionsViewStateTest::temporaryRowIsReadOnly()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("Дом", "10.0.0.1", "user", "1"));
    run.model.relogin(0, "admin", "secret");

    QVERIFY(!run.model.remove(1));
    QVERIFY(!run.model.update(1, "b", "10.0.0.2", "c", "d"));

    QCOMPARE(run.names(), QStringList({"Дом", "Дом"}));
    QCOMPARE(run.value(1, List::Login).toString(), QString("admin"));
}

void ConnectionsViewStateTest::activatingASavedRowDropsTheTemporary()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("Дом", "10.0.0.1", "user", "1"));
    run.model.relogin(0, "admin", "secret");
    QSignalSpy counted(&run.model, &List::countChanged);

    run.model.activate(1);
    QCOMPARE(run.model.getCount(), 2); // it is itself temporary
    run.model.activate(0);

    QCOMPARE(run.model.getCount(), 1);
    QCOMPARE(counted.size(), 1);
    QCOMPARE(run.target(), QString("user@10.0.0.1"));
    QCOMPARE(run.model.getCurrentIndex(), 0);
}

void ConnectionsViewStateTest::secondReloginReplacesTheFirst()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("Дом", "10.0.0.1", "user", "1"));
    run.model.activate(0);
    run.model.relogin(0, "admin", "secret");

    run.model.relogin(run.model.getCurrentIndex(), "guest", "");

    QCOMPARE(run.model.getCount(), 2);
    QCOMPARE(run.model.getCurrentIndex(), 1);
    QCOMPARE(run.activeRows(), QList<int>{1});
    QCOMPARE(run.target(), QString("guest@10.0.0.1"));
    QCOMPARE(run.model.getCurrentLogin(), QString("guest"));
}

void ConnectionsViewStateTest::indexFollowsTheRowWhenATemporaryAboveIsDropped()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("Дом", "10.0.0.1", "user", "1"));
    run.model.relogin(0, "admin", "secret");
    QVERIFY(run.model.add("Склад", "10.0.0.2", "user", "1"));
    QSignalSpy indexed(&run.model, &List::currentIndexChanged);

    run.model.activate(2);

    QCOMPARE(run.names(), QStringList({"Дом", "Склад"}));
    QCOMPARE(run.model.getCurrentIndex(), 1);
    QCOMPARE(indexed.size(), 2);
    QCOMPARE(run.model.getCurrentConnectionName(), QString("Склад"));
    QVERIFY(run.model.setStoredValue("shopScale", 3.0));
    QCOMPARE(run.value(1, List::Storage).toMap().value("shopScale").toDouble(), 3.0);
}

void ConnectionsViewStateTest::reloginOfNoRowIsIgnored()
{
    ConnectionsRun run;
    run.load();

    run.model.relogin(-1, "admin", "secret");
    run.model.relogin(0, "admin", "secret");

    QCOMPARE(run.model.getCount(), 0);
    QCOMPARE(run.link.getStatus(), AbstractBackendCommunicator::Disconnected);
}

void ConnectionsViewStateTest::reloadKeepsTemporaryRows()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("Дом", "10.0.0.1", "user", "1"));
    run.model.relogin(0, "admin", "secret");

    run.load();

    QCOMPARE(run.model.getCount(), 2);
    QCOMPARE(run.model.getCurrentLogin(), QString("admin"));
    QVERIFY(run.model.add("Склад", "10.0.0.2", "user", "1"));
}

void ConnectionsViewStateTest::storedValueSurvivesARestart()
{
    {
        ConnectionsRun run;
        run.load();
        QVERIFY(run.model.add("Дом", "10.0.0.1", "admin", "1"));
        run.model.activate(0);
        QVERIFY(run.model.setStoredValue("shopUid", "{5}"));
        QVERIFY(run.model.setStoredValue("shopScale", 1.25));
        QVERIFY(run.model.setStoredValue("shopZoomLocked", true));
        QVERIFY(run.model.setStoredValue("shopUid", "{6}"));
        QCOMPARE(run.model.getStoredValue("shopUid").toString(), QString("{6}"));
    }

    ConnectionsRun run;
    run.load();
    run.model.activate(0);

    QCOMPARE(run.model.getCurrentStorage().toMap(),
             QVariantMap({{"shopUid", "{6}"}, {"shopScale", 1.25}, {"shopZoomLocked", true}}));
    QCOMPARE(run.model.getStoredValue("shopScale", 1.0).toDouble(), 1.25);
    QCOMPARE(run.model.getStoredValue("shopContentX", 7).toInt(), 7);
    QVERIFY(!run.model.getStoredValue("shopContentX").isValid());
}

void ConnectionsViewStateTest::storedValueOfATemporaryRowDoesNot()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("Дом", "10.0.0.1", "user", "1", {{"shopScale", 1.0}}));
    run.model.relogin(0, "admin", "secret");

    QVERIFY(run.model.setStoredValue("shopScale", 2.0));

    QCOMPARE(run.model.getStoredValue("shopScale").toDouble(), 2.0);
    ConnectionsRun next;
    next.load();
    next.model.activate(0);
    QCOMPARE(next.model.getStoredValue("shopScale").toDouble(), 1.0);
}

void ConnectionsViewStateTest::storedValueNeedsACurrentConnection()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("Дом", "10.0.0.1", "user", "1"));
    QSignalSpy stored(&run.model, &List::storedValueChanged);

    QVERIFY(!run.model.setStoredValue("shopScale", 2.0));

    QCOMPARE(stored.size(), 0);
    QCOMPARE(run.value(0, List::Storage).toMap(), QVariantMap());
}

void ConnectionsViewStateTest::storedValuesBelongToTheirConnection()
{
    {
        ConnectionsRun run;
        run.load();
        QVERIFY(run.model.add("Дом", "10.0.0.1", "admin", "1"));
        QVERIFY(run.model.add("Дом", "10.0.0.1", "admin", "2"));
        run.model.activate(1);
        QVERIFY(run.model.setStoredValue("shopScale", 2.0));
    }

    ConnectionsRun run;
    run.load();

    QCOMPARE(run.value(0, List::Storage).toMap(), QVariantMap());
    QCOMPARE(run.value(1, List::Storage).toMap(), QVariantMap({{"shopScale", 2.0}}));
}

void ConnectionsViewStateTest::storedValueIsTold()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("Дом", "10.0.0.1", "admin", "1"));
    run.model.activate(0);
    QSignalSpy stored(&run.model, &List::storedValueChanged);
    QSignalSpy changed(&run.model, &List::dataChanged);

    QVERIFY(run.model.setStoredValue("shopScale", 2.0));

    QCOMPARE(stored.size(), 1);
    QCOMPARE(stored.first(), QVariantList({"shopScale", 2.0}));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.first().at(2).value<QVector<int>>(), QVector<int>{List::Storage});
}

void ConnectionsViewStateTest::scriptsStoreWhatTheyLike()
{
    {
        ConnectionsRun run;
        run.load();
        QQmlEngine engine;
        QQmlEngine::setObjectOwnership(&run.model, QQmlEngine::CppOwnership);
        engine.globalObject().setProperty("list", engine.newQObject(&run.model));

        const QJSValue result = engine.evaluate("list.add('Дом', '10.0.0.1', 'admin', '', {});"
                                                "list.activate(list.count - 1);"
                                                "list.setStoredValue('view', { tabs: [1, 'два', { x: null }] });"
                                                "list.getStoredValue('view').tabs[1]");

        QVERIFY2(!result.isError(), qPrintable(result.toString()));
        QCOMPARE(result.toString(), QString("два"));
    }

    ConnectionsRun run;
    run.load();

    const auto tabs = run.value(0, List::Storage).toMap().value("view").toMap().value("tabs").toList();
    QCOMPARE(tabs.size(), 3);
    QCOMPARE(tabs.at(0).toInt(), 1);
    QCOMPARE(tabs.at(1).toString(), QString("два"));
    QVERIFY(tabs.at(2).toMap().contains("x"));
}

void ConnectionsViewStateTest::brokenStorageIsEmpty_data()
{
    QTest::addColumn<QString>("storage");

    QTest::newRow("empty") << "";
    QTest::newRow("cut off") << "{\"shopScale\": 1";
    QTest::newRow("no JSON") << "Дом";
    QTest::newRow("an array") << "[1, 2]";
    QTest::newRow("null") << "null";
    QTest::newRow("nested without end") << QString(100000, '[');
}

void ConnectionsViewStateTest::brokenStorageIsEmpty()
{
    QFETCH(QString, storage);
    ConnectionsRun().load();
    QVERIFY(ConnectionsTable().client.exec("INSERT INTO Connections (name, address, login, password, storage) "
                                           "VALUES ('a', 'b', 'c', 'd', :storage)",
                                           {{":storage", storage}}));

    ConnectionsRun run;
    run.load();

    QCOMPARE(run.names(), QStringList{"a"});
    QCOMPARE(run.value(0, List::Storage).toMap(), QVariantMap());
    run.model.activate(0);
    QVERIFY(run.model.setStoredValue("shopScale", 2.0));
    QCOMPARE(run.model.getStoredValue("shopScale").toDouble(), 2.0);
}

void ConnectionsViewStateTest::givesARowAsAMap()
{
    ConnectionsRun run;
    run.load();
    QVERIFY(run.model.add("Дом", "10.0.0.1", "admin", "1", {{"shopScale", 2.0}}));

    QCOMPARE(run.model.get(0).toMap(),
             QVariantMap({{"name", "Дом"},
                          {"address", "10.0.0.1"},
                          {"login", "admin"},
                          {"password", "1"},
                          {"storage", QVariantMap{{"shopScale", 2.0}}}}));
    QVERIFY(!run.model.get(-1).isValid());
    QVERIFY(!run.model.get(1).isValid());
}

ONDIRA_TEST(ConnectionsViewStateTest)
#include "ConnectionsViewStateTest.moc"
