// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/UsersController.h"
#include "Records.h"
#include "ScriptTools.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <QJSEngine>

using namespace Records;

class UsersControllerTest : public TestBase
{
    Q_OBJECT

private slots:
    void asksForTheList()
    {
        FakeCommunicator link;
        UsersController controller(link);
        QSignalSpy updated(&controller, &UsersController::usersListUpdated);

        controller.requestUserList();
        QCOMPARE(link.operations, QStringList({"getUserList"}));
        QCOMPARE(updated.count(), 0);
        link.usersCallback({user("anna"), user("boris")});

        QCOMPARE(updated.count(), 1);
        QCOMPARE(updated[0][0].value<std::vector<Model::UserInfo>>().size(), std::size_t(2));
    }

    void asksForTheListAtEachLogin()
    {
        FakeCommunicator link;
        UsersController controller(link);

        link.enter(FakeCommunicator::Connecting);
        QCOMPARE(link.operations.count("getUserList"), 0);
        link.enter(FakeCommunicator::Connected);
        QCOMPARE(link.operations.count("getUserList"), 1);
        link.enter(FakeCommunicator::Connecting);
        link.enter(FakeCommunicator::Connected);
        QCOMPARE(link.operations.count("getUserList"), 2);
        link.enter(FakeCommunicator::Disconnected);
        QCOMPARE(link.operations.count("getUserList"), 2);
    }

    void anAnswerAfterItsEndIsPassedOver()
    {
        FakeCommunicator link;
        {
            UsersController controller(link);
            controller.requestUserList();
            controller.removeUser("anna");
        }
        link.operations.clear();

        link.usersCallback({});
        link.doneCallback();

        QCOMPARE(link.operations, QStringList());
    }

    void addsAUser()
    {
        FakeCommunicator link;
        UsersController controller(link);
        QJSEngine engine;

        controller.addUser("anna", "пароль", "admin", QStringList({text(1), text(2)}),
                           engine.evaluate("(function(done) { got = done; })"));
        link.doneCallback();

        QCOMPARE(link.operations, QStringList({"addUsers"}));
        QCOMPARE(link.users.size(), std::size_t(1));
        const auto &added = link.users[0];
        QCOMPARE(added.login, QString("anna"));
        QCOMPARE(added.group, QString("admin"));
        QCOMPARE(*added.password, QByteArray("пароль"));
        QVERIFY(*added.zonesWhitelist == (QSet<QUuid>{uid(1), uid(2)}));
        QVERIFY(!added.accessList);
        QVERIFY(engine.globalObject().property("got").toBool());
    }

    void readsAWhitelist_data()
    {
        QTest::addColumn<QString>("value"); // as a script passes it
        QTest::addColumn<bool>("restricted");
        QTest::addColumn<int>("count");

        QTest::newRow("null is no restriction") << "null" << false << 0;
        QTest::newRow("undefined is no restriction") << "undefined" << false << 0;
        QTest::newRow("empty allows no zone") << "[]" << true << 0;
        QTest::newRow("one") << QString("['%1']").arg(text(1)) << true << 1;
        QTest::newRow("twice the same") << QString("['%1', '%1']").arg(text(1)) << true << 1;
        QTest::newRow("what is no uid") << QString("['x', 5, null, {}, '%1']").arg(text(1)) << true << 1;
        QTest::newRow("text allows no zone") << "'text'" << true << 0;
    }

    void readsAWhitelist()
    {
        FakeCommunicator link;
        QJSEngine engine;
        UsersController controller(link);
        expose(engine, "users", controller);
        QFETCH(QString, value);
        QFETCH(bool, restricted);
        QFETCH(int, count);

        for (const auto *const operation : {"addUser", "changeUser"}) {
            link.users.clear();
            engine.evaluate(QString("users.%1('anna', 'secret', 'user', %2, null)").arg(operation, value));

            QCOMPARE(link.users.size(), std::size_t(1));
            QCOMPARE(bool(link.users[0].zonesWhitelist), restricted);
            if (restricted)
                QCOMPARE(link.users[0].zonesWhitelist->size(), count);
            QCOMPARE(*link.users[0].password, QByteArray("secret"));
        }
    }

    void aNullPasswordKeepsTheOldOne()
    {
        FakeCommunicator link;
        QJSEngine engine;
        UsersController controller(link);
        expose(engine, "users", controller);

        engine.evaluate("users.changeUser('anna', null, 'user', null, null)");
        QCOMPARE(link.operations, QStringList({"changeUsers"}));
        QVERIFY(!link.users.at(0).password);
        engine.evaluate("users.changeUser('anna', '', 'user', null, null)");
        QCOMPARE(*link.users.at(0).password, QByteArray(""));
        link.doneCallback(); // no callback was given
    }

    void callsBackAfterAChange()
    {
        FakeCommunicator link;
        QJSEngine engine;
        UsersController controller(link);
        expose(engine, "users", controller);

        engine.evaluate("calls = 0; users.changeUser('anna', null, 'user', null, function() { calls += 1; })");
        QCOMPARE(engine.globalObject().property("calls").toInt(), 0);
        link.doneCallback();

        QCOMPARE(engine.globalObject().property("calls").toInt(), 1);
    }

    void removesAUserAndAsksAgain()
    {
        FakeCommunicator link;
        UsersController controller(link);

        controller.removeUser("anna");
        QCOMPARE(link.operations, QStringList({"removeUsers"}));
        QCOMPARE(link.users.at(0).login, QString("anna"));
        QVERIFY(!link.users.at(0).password);
        link.doneCallback();

        QCOMPARE(link.operations, QStringList({"removeUsers", "getUserList"}));
    }
};

ONDIRA_TEST(UsersControllerTest)
#include "UsersControllerTest.moc"
