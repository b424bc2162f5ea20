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

ONDIRA_TEST(FakeCommunicatorTest)
#include "FakeCommunicatorTest.moc"
