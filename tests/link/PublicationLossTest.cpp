// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestLink.h"

#include <QElapsedTimer>

using Link = AbstractBackendCommunicator;

// The publication port dies while the pings go on as if nothing had happened.
class PublicationLossTest : public TestBase
{
    Q_OBJECT

private slots:
    void standingPublicationsAreAlive();
    void portThatDiesAloneReconnectsAndGoesOnTrying();
    void portThatComesBackInTimeIsNoReconnect();
    void portThatNeverStoodIsNotAliveButNoReconnect();
    void oversizePublicationIsHealedByAReconnect();
    void serverThatDiesWhollyIsFoundAgain();
    void disconnectForgetsTheLoss();
    void anotherServerStartsWithoutTheLoss();
};

namespace {

const QByteArray oneZone = R"({"data":[{"type":"zone","id":"{11111111-1111-1111-1111-111111111111}"}]})";

LinkTimings lossTimings()
{
    auto timings = testTimings();
    timings.publicationHealing = 150;
    timings.publicationRetry = 400;
    timings.pingInterval = 30;
    return timings;
}

void answerAll(FakeServer &server)
{
    server.answer = [&server](const FakeServer::Request &request) {
        server.reply(request, request.resource() == "auth" ? server.loginReply : QByteArray("{}"));
    };
}

void idle(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace

void PublicationLossTest::standingPublicationsAreAlive()
{
    FakeServer server;
    answerAll(server);
    TestCommunicator link(lossTimings());
    QSignalSpy alive(&link, &Link::publicationsAliveChanged);

    QVERIFY(logIn(link, server));
    idle(400); // longer than the healing takes

    QVERIFY(link.property("publicationsAlive").toBool());
    QCOMPARE(alive.size(), 0);
    QCOMPARE(link.logins, 1);
}

void PublicationLossTest::portThatDiesAloneReconnectsAndGoesOnTrying()
{
    FakeServer server;
    answerAll(server);
    TestCommunicator link(lossTimings());
    QVERIFY(logIn(link, server));
    QSignalSpy alive(&link, &Link::publicationsAliveChanged);
    QElapsedTimer elapsed;
    elapsed.start();

    server.closePublications();

    QTRY_VERIFY(!link.getPublicationsAlive());
    QTRY_COMPARE(link.logins, 2);
    QVERIFY(elapsed.elapsed() >= 140);
    elapsed.start();
    QTRY_COMPARE(link.logins, 3);
    QVERIFY2(elapsed.elapsed() >= 350, qPrintable(QString::number(elapsed.elapsed())));
    QTRY_COMPARE(link.logins, 4);
    QVERIFY(!link.getPublicationsAlive());
    QCOMPARE(alive.size(), 1);
    QTRY_COMPARE(link.getStatus(), Link::Connected); // requests are answered all the while
    const int pings = server.count("ping");
    QTRY_VERIFY(server.count("ping") > pings);

    server.openPublications();
    QTRY_VERIFY(link.getPublicationsAlive());
    QTRY_COMPARE(server.subscriptions.size(), 18);
    server.publish("zones", oneZone);
    QTRY_COMPARE(link.getDataCache().getZones().size(), size_t(1));
    QCOMPARE(alive.size(), 2);
    QTRY_COMPARE(link.getStatus(), Link::Connected);
    const int logins = link.logins;
    idle(800);
    QCOMPARE(link.logins, logins);
}

void PublicationLossTest::portThatComesBackInTimeIsNoReconnect()
{
    auto timings = lossTimings();
    timings.publicationHealing = 8000;
    FakeServer server;
    answerAll(server);
    TestCommunicator link(timings);
    QVERIFY(logIn(link, server));

    server.closePublications();
    QTRY_VERIFY(!link.getPublicationsAlive());
    server.openPublications();

    QTRY_VERIFY(link.getPublicationsAlive());
    QTRY_COMPARE(server.subscriptions.size(), 18); // the library repeats them by itself
    server.publish("zones", oneZone);
    QTRY_COMPARE(link.getDataCache().getZones().size(), size_t(1));
    QCOMPARE(link.logins, 1);
}

void PublicationLossTest::portThatNeverStoodIsNotAliveButNoReconnect()
{
    FakeServer server;
    answerAll(server);
    server.closePublications();
    TestCommunicator link(lossTimings());

    link.initFor(server);
    QTRY_COMPARE(link.getStatus(), Link::Connected);
    QVERIFY(link.getPublicationsAlive()); // it has not had the time yet
    QTRY_VERIFY(!link.getPublicationsAlive());
    idle(700);
    QCOMPARE(link.logins, 1);

    server.openPublications();
    QTRY_VERIFY(link.getPublicationsAlive());
    QCOMPARE(link.logins, 1);
}

void PublicationLossTest::oversizePublicationIsHealedByAReconnect()
{
    FakeServer server;
    answerAll(server);
    TestCommunicator link(lossTimings());
    link.setLargestMessage(100000);
    QVERIFY(logIn(link, server));

    server.publishFrames({"zones", "", FakeServer::header(FakeServer::Json, "zones"), QByteArray(100001, ' ')});

    QTRY_VERIFY(!link.getPublicationsAlive());
    QTRY_COMPARE(link.logins, 2);
    QTRY_VERIFY(link.getPublicationsAlive());
    QTRY_VERIFY(server.subscriptions.size() >= 18);
    server.publish("zones", oneZone);
    QTRY_COMPARE(link.getDataCache().getZones().size(), size_t(1));
    QCOMPARE(link.getStatus(), Link::Connected);
}

void PublicationLossTest::serverThatDiesWhollyIsFoundAgain()
{
    auto timings = lossTimings();
    timings.quickReply = 100;
    FakeServer server;
    answerAll(server);
    TestCommunicator link(timings);
    QVERIFY(logIn(link, server));
    server.publish("zones", oneZone);
    QTRY_COMPARE(link.getDataCache().getZones().size(), size_t(1));

    server.closeControl();
    server.closePublications();
    QTRY_COMPARE(link.getStatus(), Link::Connecting);
    QTRY_VERIFY(link.logins >= 4);
    QVERIFY(!link.getPublicationsAlive());
    QCOMPARE(link.getDataCache().getZones().size(), size_t(1)); // stays on screen meanwhile
    server.openControl();
    server.openPublications();

    QTRY_COMPARE(link.getStatus(), Link::Connected);
    QTRY_VERIFY(link.getPublicationsAlive());
}

void PublicationLossTest::disconnectForgetsTheLoss()
{
    FakeServer server;
    answerAll(server);
    TestCommunicator link(lossTimings());
    QVERIFY(logIn(link, server));
    server.closePublications();
    QTRY_VERIFY(!link.getPublicationsAlive());

    link.disconnectFromServer();

    QVERIFY(link.getPublicationsAlive());
    const int logins = link.logins;
    idle(700);
    QCOMPARE(link.logins, logins);
    QCOMPARE(link.getStatus(), Link::Disconnected);
}

void PublicationLossTest::anotherServerStartsWithoutTheLoss()
{
    FakeServer first;
    FakeServer second;
    answerAll(first);
    answerAll(second);
    second.closePublications();
    TestCommunicator link(lossTimings());
    QVERIFY(logIn(link, first));
    first.closePublications();
    QTRY_VERIFY(!link.getPublicationsAlive());

    link.initFor(second);
    QTRY_COMPARE(link.getStatus(), Link::Connected);
    const int logins = link.logins;
    QTRY_VERIFY(!link.getPublicationsAlive());
    idle(700);

    QCOMPARE(link.logins, logins); // its port never stood
}

ONDIRA_TEST(PublicationLossTest)
#include "PublicationLossTest.moc"
