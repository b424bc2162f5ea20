// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ShopController.h"
#include "Records.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <QJSEngine>

using namespace Records;

class ShopControllerTest : public TestBase
{
    Q_OBJECT

private slots:
    void takesASite()
    {
        FakeCommunicator link;
        ShopController controller(link);
        QSignalSpy factory(&controller, &ShopController::factoryNameChanged);
        QSignalSpy terminal(&controller, &ShopController::terminalNameChanged);
        QSignalSpy updated(&controller, &ShopController::shopUpdated);
        Model::Shop shop;
        shop.name = "Works";
        shop.zones.insert(uid(1), zone(1));

        emit link.shopReceived(shop);

        QCOMPARE(factory.count(), 1);
        QCOMPARE(factory[0][0].toString(), QString("Works"));
        QCOMPARE(terminal.count(), 0);
        QCOMPARE(updated.count(), 1);
        QVERIFY(controller.getShop() == shop);
        QCOMPARE(controller.getZonesCount(), 1);
        QCOMPARE(controller.getZonesUids(), QStringList({text(1)}));
    }

    void announcesNamesThatDiffer()
    {
        FakeCommunicator link;
        ShopController controller(link);
        QSignalSpy factory(&controller, &ShopController::factoryNameChanged);
        QSignalSpy terminal(&controller, &ShopController::terminalNameChanged);
        QSignalSpy updated(&controller, &ShopController::shopUpdated);
        Model::Shop shop;
        shop.terminalName = "Wall";

        controller.onShopReceived(Model::Shop());
        QCOMPARE(factory.count() + terminal.count(), 0);
        controller.onShopReceived(shop);
        controller.onShopReceived(shop);

        QCOMPARE(factory.count(), 0);
        QCOMPARE(terminal.count(), 1);
        QCOMPARE(terminal[0][0].toString(), QString("Wall"));
        QCOMPARE(updated.count(), 3);
    }

    void switchesEditing()
    {
        FakeCommunicator link;
        ShopController controller(link);
        QSignalSpy changed(&controller, &ShopController::isEditingEnabledChanged);
        QVERIFY(!controller.getIsEditingEnabled());

        controller.enableEditing(true);
        QVERIFY(controller.property("isEditingEnabled").toBool());
        controller.setProperty("isEditingEnabled", false);

        QCOMPARE(changed.count(), 2);
        QCOMPARE(changed[0][0].toBool(), true);
        QCOMPARE(changed[1][0].toBool(), false);
        QVERIFY(!controller.getIsEditingEnabled());
    }

    void aUserLosesEditingAtEachLogin()
    {
        FakeCommunicator link;
        ShopController controller(link);
        QSignalSpy changed(&controller, &ShopController::isEditingEnabledChanged);

        for (int i = 0; i < 2; ++i) {
            controller.enableEditing(true);
            changed.clear();
            link.enter(FakeCommunicator::Connecting);
            QCOMPARE(changed.count(), 0);
            QVERIFY(controller.getIsEditingEnabled());
            link.logIn("boris", "user");
            QCOMPARE(changed.count(), 1);
            QCOMPARE(changed[0][0].toBool(), false);
            QVERIFY(!controller.getIsEditingEnabled());
        }
    }

    void anAdminKeepsEditing()
    {
        FakeCommunicator link;
        ShopController controller(link);
        controller.enableEditing(true);
        QSignalSpy changed(&controller, &ShopController::isEditingEnabledChanged);

        link.enter(FakeCommunicator::Connecting);
        link.logIn("anna", "admin");
        link.enter(FakeCommunicator::Disconnected);

        QCOMPARE(changed.count(), 0);
        QVERIFY(controller.getIsEditingEnabled());
    }

    void runsASequence()
    {
        FakeCommunicator link;
        ShopController controller(link);
        Model::ActionBlueprintInstance step;
        step.blueprint = uid(1);
        const Model::ActionSequence sequence{{step, step}};

        controller.runActionSequence(sequence);

        QCOMPARE(link.operations, QStringList({"runActionSequences"}));
        QVERIFY(link.sequences == std::vector<Model::ActionSequence>{sequence});
    }
};

ONDIRA_TEST(ShopControllerTest)
#include "ShopControllerTest.moc"
