// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <QElapsedTimer>

namespace {

class BareCommunicator : public FakeCommunicator
{
public:
    using AbstractBackendCommunicator::createSubscriberSocket;
    using AbstractBackendCommunicator::sendRequest;
    using AbstractBackendCommunicator::subscribe;
};

} // namespace

// A communicator without sockets keeps the whole face of the link.
class FakeCommunicatorTest : public TestBase
{
    Q_OBJECT

private slots:
    void initStoresConnectsAndLogsIn();
    void requestIsRefused();
    void socketOperationsDoNothing();
    void endsWithoutAPause();
    void statusAndGroupFollowTheLogin();
    void everyOperationIsNoted();
    void argumentsAndCallbacksAreKept();
};

void FakeCommunicatorTest::initStoresConnectsAndLogsIn()
{
    FakeCommunicator link;
    QSignalSpy credentials(&link, &AbstractBackendCommunicator::userCredentialsChanged);

    QVERIFY(link.init("  10.0.0.5\t", "engineer", "secret", 1111, 2222));

    QCOMPARE(link.getAddress(), QString("10.0.0.5"));
    QCOMPARE(link.getCurrentLogin(), QString("engineer"));
    QCOMPARE(link.getCurrentPassword(), QString("secret"));
    QCOMPARE(link.getControlPort(), 1111);
    QCOMPARE(link.getUpdatePort(), 2222);
    QCOMPARE(link.getStatus(), AbstractBackendCommunicator::Connecting);
    QCOMPARE(link.operations, QStringList{"auth"});
    QCOMPARE(credentials.size(), 1);
}

void FakeCommunicatorTest::requestIsRefused()
{
    BareCommunicator link;

    const auto handler = link.sendRequest(ZmqMessageHeader({ZmqMessageHeader::Flags::Json}, "zones"), "{}", 1000);

    QVERIFY(handler->receivedReply());
    QVERIFY(handler->id().isEmpty());
}

void FakeCommunicatorTest::socketOperationsDoNothing()
{
    BareCommunicator link;

    link.createSubscriberSocket();
    link.subscribe({"zones"});
    link.reconnect();
    link.disconnectFromServer();

    QCOMPARE(link.getStatus(), AbstractBackendCommunicator::Disconnected);
    QVERIFY(link.getPublicationsAlive());
}

void FakeCommunicatorTest::endsWithoutAPause()
{
    QElapsedTimer elapsed;
    elapsed.start();
    {
        FakeCommunicator link;
    }
    QVERIFY(elapsed.elapsed() < 250); // a link with sockets waits for twice that
}

void FakeCommunicatorTest::statusAndGroupFollowTheLogin()
{
    FakeCommunicator link;
    QSignalSpy status(&link, &AbstractBackendCommunicator::statusChanged);
    QSignalSpy group(&link, &AbstractBackendCommunicator::userGroupChanged);

    link.logIn("engineer", "admin");

    QCOMPARE(link.getStatus(), AbstractBackendCommunicator::Connected);
    QCOMPARE(link.getUserGroup(), QString("admin"));
    QCOMPARE(status.size(), 2);
    QCOMPARE(group.size(), 1);
}

void FakeCommunicatorTest::everyOperationIsNoted()
{
    FakeCommunicator fake;
    AbstractBackendCommunicator &link = fake;

    link.addZones({}, {});
    link.changeZones({});
    link.removeZones({});
    link.addDays({}, {});
    link.changeDays({});
    link.removeDays({});
    link.addButtons({}, {});
    link.changeButtons({});
    link.removeButtons({});
    link.setButtonStates({});
    link.addShopParts({}, {});
    link.changeShopParts({});
    link.removeShopParts({});
    link.addDevices({}, {});
    link.changeDevices({});
    link.removeDevices({});
    link.setDeviceState({});
    link.runActionSequences({});
    link.addUsers({}, {});
    link.removeUsers({}, {});
    link.changeUsers({}, {});
    link.changeUsersRoles({}, {});
    link.getUserList({});
    link.ping();
    link.getStatistics({}, {}, {}, AbstractBackendCommunicator::StatisticsGrain::Hour, {});
    link.getLog({}, {}, {});
    link.getStatisticsInfo({});
    link.setSystemTime({}, {});
    link.getSystemTime();
    link.addImageItem({}, {});
    link.changeImageItem({}, {});
    link.removeImageItems({}, {});
    link.getImage({}, {}, {});
    link.addIndicators({}, {});
    link.changeIndicators({});
    link.removeIndicators({});
    link.addBlueprints({}, {});
    link.changeBlueprints({});
    link.removeBlueprints({});
    link.getBackup({});
    link.restoreBackup({}, {});
    link.factoryReset();
    link.setShop({});
    link.setSettings({});
    link.getRadioStatus();
    link.getAvailableComPorts();
    link.addView3DItem({}, {});
    link.changeView3DItem({}, {});
    link.removeView3DItems({}, {});
    link.getView3DItem({}, {}, {});
    link.setPowerOnStatistics({});

    QCOMPARE(fake.operations,
             (QStringList{"addZones",
                          "changeZones",
                          "removeZones",
                          "addDays",
                          "changeDays",
                          "removeDays",
                          "addButtons",
                          "changeButtons",
                          "removeButtons",
                          "setButtonStates",
                          "addShopParts",
                          "changeShopParts",
                          "removeShopParts",
                          "addDevices",
                          "changeDevices",
                          "removeDevices",
                          "setDeviceState",
                          "runActionSequences",
                          "addUsers",
                          "removeUsers",
                          "changeUsers",
                          "changeUsersRoles",
                          "getUserList",
                          "ping",
                          "getStatistics",
                          "getLog",
                          "getStatisticsInfo",
                          "setSystemTime",
                          "getSystemTime",
                          "addImageItem",
                          "changeImageItem",
                          "removeImageItems",
                          "getImage",
                          "addIndicators",
                          "changeIndicators",
                          "removeIndicators",
                          "addBlueprints",
                          "changeBlueprints",
                          "removeBlueprints",
                          "getBackup",
                          "restoreBackup",
                          "factoryReset",
                          "setShop",
                          "setSettings",
                          "getRadioStatus",
                          "getAvailableComPorts",
                          "addView3DItem",
                          "changeView3DItem",
                          "removeView3DItems",
                          "getView3DItem",
                          "setPowerOnStatistics"}));
}

void FakeCommunicatorTest::argumentsAndCallbacksAreKept()
{
    FakeCommunicator link;
    const QUuid uid("{11111111-1111-1111-1111-111111111111}");
    Model::Button button;
    button.uid = uid;
    std::vector<QUuid> added;
    QByteArray received;
    int failures = 0;

    link.addButtons({button}, [&](const std::vector<QUuid> &uids) { added = uids; });
    link.getImage(
        uid, [&](const Model::ImageItem::Image &image) { received = image.data; }, [&] { ++failures; });
    link.uidsCallback({uid});
    link.imageCallback({"bytes", "png"});
    link.failedCallback();

    QCOMPARE(link.buttons, std::vector<Model::Button>{button});
    QCOMPARE(link.requestedUid, uid);
    QCOMPARE(added, std::vector<QUuid>{uid});
    QCOMPARE(received, QByteArray("bytes"));
    QCOMPARE(failures, 1);
}

ONDIRA_TEST(FakeCommunicatorTest)
#include "FakeCommunicatorTest.moc"
