// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/UsersListModel.h"
#include "Records.h"
#include "SignalLog.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <QAbstractItemModelTester>

using namespace Records;
using Role = UsersListModel::Role;

class UsersListModelTest : public TestBase
{
    Q_OBJECT

private slots:
    void presentsAccounts()
    {
        FakeCommunicator link;
        UsersListModel model(link);
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        auto boris = limitedUser("boris", {uid(2), uid(1)});
        boris.accessList = QSet<QString>{"b", "a"};

        link.publishUsers({user("anna", "admin"), boris, user("vera", "guest")});

        QCOMPARE(model.roleNames(),
                 (QHash<int, QByteArray>{
                     {257, "login"}, {258, "role"}, {259, "localRole"}, {260, "zonesWhitelist"}, {261, "acl"}}));
        QCOMPARE(column(model, Role::Login), QStringList({"anna", "boris", "vera"}));
        QCOMPARE(column(model, Role::UserRole), QStringList({"admin", "user", "guest"}));
        QCOMPARE(column(model, Role::LocalRole), QStringList({"Администратор", "Пользователь", "Пользователь"}));
        QCOMPARE(value(model, 1, Role::ZonesWhitelist).toStringList(), QStringList({text(1), text(2)}));
        QCOMPARE(value(model, 1, Role::Acl).toStringList(), QStringList({"a", "b"}));
    }

    void noRestrictionReadsOtherwiseThanAnEmptyList()
    {
        FakeCommunicator link;
        UsersListModel model(link);
        auto limited = limitedUser("boris", {});
        limited.accessList = QSet<QString>();

        link.publishUsers({user("anna"), limited});

        QVERIFY(!value(model, 0, Role::ZonesWhitelist).isValid());
        QVERIFY(!value(model, 0, Role::Acl).isValid());
        QVERIFY(value(model, 1, Role::ZonesWhitelist).isValid());
        QCOMPARE(value(model, 1, Role::ZonesWhitelist).toList(), QVariantList());
        QVERIFY(value(model, 1, Role::Acl).isValid());
    }

    void unknownPlacesAndRolesReadAsInvalid()
    {
        FakeCommunicator link;
        UsersListModel model(link);
        link.publishUsers({user("anna")});

        QVERIFY(!model.data(QModelIndex(), Role::Login).isValid());
        QVERIFY(!value(model, 0, 262).isValid());
        QCOMPARE(model.flags(model.index(0)), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    }

    void eachListResetsIt()
    {
        FakeCommunicator link;
        UsersListModel model(link);
        QSignalSpy changed(&model, &UsersListModel::usersChanged);
        SignalLog log(model);

        link.publishUsers({user("anna")});

        QCOMPARE(log.take(), QStringList({"resetting", "reset"}));
        QCOMPARE(changed.count(), 1);
    }

    void everythingIsAllowedUntilAListCame()
    {
        FakeCommunicator link;
        const UsersListModel model(link);

        QVERIFY(model.getCurrentUser().hasAccess(uid(1)));
        QVERIFY(model.getCurrentUser().login.isEmpty());
    }

    void knowsTheCurrentUser()
    {
        FakeCommunicator link;
        UsersListModel model(link);
        QSignalSpy changed(&model, &UsersListModel::currentUserChanged);
        link.logIn("boris", "user");

        link.publishUsers({user("anna"), limitedUser("boris", {uid(1)})});

        QCOMPARE(changed.count(), 1);
        QCOMPARE(model.getCurrentUser().login, QString("boris"));
        QVERIFY(!model.getCurrentUser().hasAccess(uid(2)));
    }

    void anEqualRecordIsNoChange()
    {
        FakeCommunicator link;
        UsersListModel model(link);
        link.logIn("boris", "user");
        link.publishUsers({limitedUser("boris", {uid(1)})});
        QSignalSpy changed(&model, &UsersListModel::currentUserChanged);

        link.publishUsers({user("anna"), limitedUser("boris", {uid(1)})});
        QCOMPARE(changed.count(), 0);
        link.publishUsers({user("boris")});
        QCOMPARE(changed.count(), 1);
    }

    void aListWithoutTheCurrentLoginChangesNoRights()
    {
        FakeCommunicator link;
        UsersListModel model(link);
        link.logIn("boris", "user");
        link.publishUsers({limitedUser("boris", {uid(1)})});
        QSignalSpy changed(&model, &UsersListModel::currentUserChanged);

        link.publishUsers({user("anna")});

        QCOMPARE(changed.count(), 0);
        QCOMPARE(model.getCurrentUser().login, QString("boris"));
        QCOMPARE(model.rowCount(), 1);
    }

    void takesTheListThatTheControllerAskedFor()
    {
        FakeCommunicator link;
        UsersListModel model(link);

        model.getUsersController().requestUserList();
        link.usersCallback({user("anna"), user("boris")});

        QCOMPARE(column(model, Role::Login), QStringList({"anna", "boris"}));
    }

    void aModelMadeLateReadsWhatWasPublished()
    {
        FakeCommunicator link;
        link.logIn("boris", "user");
        link.publishUsers({limitedUser("boris", {uid(1)})});

        const UsersListModel late(link);

        QCOMPARE(late.rowCount(), 1);
        QCOMPARE(late.getCurrentUser().login, QString("boris"));
    }

    void duplicateLoginsCountByTheFirst()
    {
        FakeCommunicator link;
        UsersListModel model(link);
        link.logIn("boris", "user");

        link.publishUsers({limitedUser("boris", {uid(1)}), user("boris")});

        QCOMPARE(model.rowCount(), 2);
        QVERIFY(!model.getCurrentUser().hasAccess(uid(2)));
    }
};

ONDIRA_TEST(UsersListModelTest)
#include "UsersListModelTest.moc"
