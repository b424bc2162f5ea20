// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ServerTimeController.h"
#include "ScriptTools.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <QJSEngine>
#include <QSemaphore>
#include <QThread>
#include <atomic>

namespace {

QDateTime utc(const QString &text)
{
    return QDateTime::fromString(text, Qt::ISODate);
}

Model::TimeInfo info(const QDateTime &time)
{
    Model::TimeInfo info;
    info.time = time;
    info.timezone = "Europe/Moscow";
    info.ntp = true;
    info.timezones = QStringList{"Europe/Moscow", "UTC"};
    return info;
}

// A link whose request for the time tells from which thread it was made, and takes a while if asked to.
class SlowLink : public FakeCommunicator
{
public:
    void getSystemTime() override
    {
        thread = QThread::currentThread();
        begun.release();
        go.tryAcquire(1, patience);
        finished = true;
    }

    std::atomic<QThread *> thread{nullptr};
    std::atomic<bool> finished{false};
    QSemaphore begun;
    QSemaphore go;
    int patience = 0;
};

} // namespace

class ServerTimeControllerTest : public TestBase
{
    Q_OBJECT

private slots:
    void startsWithTheTimeNow()
    {
        FakeCommunicator link;

        const ServerTimeController controller(link);

        QVERIFY(qAbs(controller.getTime().secsTo(QDateTime::currentDateTimeUtc())) < 60);
        const auto map = controller.getTimeInfo().toMap();
        QCOMPARE(map.keys(), QStringList({"ntp", "time", "timezone", "timezonesList"}));
        QCOMPARE(map["timezone"].toString(), QString("UTC"));
        QCOMPARE(map["ntp"], QVariant(false));
        QCOMPARE(map["timezonesList"].toStringList(), QStringList());
        QVERIFY(map["time"].toDateTime().isValid());
        QCOMPARE(controller.getTimeString(), controller.getTime().toString("HH:mm dd.MM.yyyy"));
    }

    void takesTheTimeOfTheServer()
    {
        FakeCommunicator link;
        ServerTimeController controller(link);
        QSignalSpy changed(&controller, &ServerTimeController::timeChanged);
        QSignalSpy text(&controller, &ServerTimeController::timeStringChanged);

        link.publishTime(utc("2031-02-03T04:05:06Z"));

        QCOMPARE(controller.getTime(), utc("2031-02-03T04:05:06Z"));
        QCOMPARE(controller.getTimeString(), QString("04:05 03.02.2031"));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(text.count(), 1);
    }

    void tellsTheTimeInTheZoneOfTheServer()
    {
        FakeCommunicator link;
        ServerTimeController controller(link);

        link.publishTime(utc("2031-02-03T04:05:06+07:00"));

        QCOMPARE(controller.getTimeString(), QString("04:05 03.02.2031"));
    }

    void takesTheTimeSettingsOfTheServer()
    {
        FakeCommunicator link;
        ServerTimeController controller(link);
        QSignalSpy changed(&controller, &ServerTimeController::timeInfoChanged);

        link.publishSystemTime(info(utc("2031-02-03T04:05:06Z")));

        QCOMPARE(changed.count(), 1);
        QCOMPARE(controller.getTimeInfo().toMap(),
                 (QVariantMap{{"time", utc("2031-02-03T04:05:06Z")},
                              {"timezone", "Europe/Moscow"},
                              {"ntp", true},
                              {"timezonesList", QStringList({"Europe/Moscow", "UTC"})}}));
        QCOMPARE(controller.getTime(), utc("2031-02-03T04:05:06Z"));
    }

    void aControllerMadeLateReadsWhatWasPublished()
    {
        FakeCommunicator link;
        link.publishSystemTime(info(utc("2031-02-03T04:05:06Z")));
        const ServerTimeController first(link);
        link.publishTime(utc("2031-02-03T05:00:00Z"));

        const ServerTimeController second(link);

        QCOMPARE(first.getTimeInfo().toMap().value("timezone").toString(), QString("Europe/Moscow"));
        QCOMPARE(second.getTime(), utc("2031-02-03T05:00:00Z"));
    }

    void ticksASecondAtATime()
    {
        FakeCommunicator link;
        ServerTimeController controller(link, nullptr, 1);
        QSignalSpy changed(&controller, &ServerTimeController::timeChanged);
        link.publishTime(utc("2031-02-03T04:05:06Z"));
        changed.clear();

        QTRY_VERIFY(changed.count() >= 3);

        QCOMPARE(controller.getTime(), utc("2031-02-03T04:05:06Z").addSecs(changed.count()));
    }

    void theTextChangesOnceAMinute()
    {
        FakeCommunicator link;
        ServerTimeController controller(link, nullptr, 1);
        link.publishTime(utc("2031-02-03T04:05:50Z"));
        QSignalSpy changed(&controller, &ServerTimeController::timeChanged);
        QSignalSpy text(&controller, &ServerTimeController::timeStringChanged);
        int ticksBefore = -1;
        connect(&controller, &ServerTimeController::timeStringChanged, &controller,
                [&] { ticksBefore = ticksBefore < 0 ? changed.count() : ticksBefore; });

        QTRY_VERIFY(changed.count() >= 15);

        QVERIFY(ticksBefore == 9 || ticksBefore == 10); // the spy may count the tick before or after the text
        QCOMPARE(text.count(), changed.count() < 70 ? 1 : 2);
        QVERIFY(controller.getTimeString().startsWith("04:0"));
    }

    void aMessageStartsTheSecondAnew()
    {
        FakeCommunicator link;
        ServerTimeController controller(link, nullptr, 1);
        QSignalSpy changed(&controller, &ServerTimeController::timeChanged);
        QTRY_VERIFY(changed.count() >= 1);

        link.publishTime(utc("2031-02-03T04:05:06Z"));

        QCOMPARE(controller.getTime(), utc("2031-02-03T04:05:06Z"));
    }

    void aSlotMaySetTheTime()
    {
        FakeCommunicator link;
        ServerTimeController controller(link);
        bool once = true;
        connect(&controller, &ServerTimeController::timeChanged, &controller, [&] {
            if (once) {
                once = false;
                controller.update(utc("2032-01-01T00:00:00Z"));
            }
        });

        link.publishTime(utc("2031-02-03T04:05:06Z"));

        QCOMPARE(controller.getTime(), utc("2032-01-01T00:00:00Z"));
        QCOMPARE(controller.getTimeString(), QString("00:00 01.01.2032"));
    }

    void anInvalidTimeReadsAsNoText()
    {
        FakeCommunicator link;
        ServerTimeController controller(link, nullptr, 1);

        link.publishTime(QDateTime());
        QSignalSpy changed(&controller, &ServerTimeController::timeChanged);
        QTRY_VERIFY(changed.count() >= 2);

        QVERIFY(!controller.getTime().isValid());
        QCOMPARE(controller.getTimeString(), QString());
    }

    void ticksOnWhenTheLinkIsClosed()
    {
        FakeCommunicator link;
        link.logIn("anna", "user");
        ServerTimeController controller(link);
        link.publishTime(utc("2031-02-03T04:05:06Z"));

        link.enter(FakeCommunicator::Disconnected);

        QCOMPARE(controller.getTime(), utc("2031-02-03T04:05:06Z"));
    }

    void setsTheTimeOfTheServer()
    {
        FakeCommunicator link;
        ServerTimeController controller(link);
        QJSEngine engine;

        controller.setTime(utc("2031-02-03T04:05:06Z"), "UTC", true,
                           engine.evaluate("(function() { got = arguments.length; })"));
        QVERIFY(engine.globalObject().property("got").isUndefined());
        link.doneCallback();

        QCOMPARE(link.operations, QStringList({"setSystemTime"}));
        QCOMPARE(link.timeInfo.time, utc("2031-02-03T04:05:06Z"));
        QCOMPARE(link.timeInfo.timezone, QString("UTC"));
        QVERIFY(link.timeInfo.ntp);
        QVERIFY(link.timeInfo.timezones.isEmpty());
        QCOMPARE(engine.globalObject().property("got").toInt(), 0);
        QVERIFY(engine.globalObject().property("got").isNumber());
    }

    void scriptsMaySetTheTime()
    {
        // Qt warns of arguments that it cannot convert.
        allowMessages("Could not convert argument|%entry@|incompatible arguments|TypeError in future");
        FakeCommunicator link;
        QJSEngine engine;
        ServerTimeController controller(link);
        expose(engine, "clock", controller);

        engine.evaluate("clock.setTime(new Date(Date.UTC(2031, 1, 3, 4, 5, 6)), 'UTC', false, null)");

        QCOMPARE(link.timeInfo.time.toUTC(), utc("2031-02-03T04:05:06Z"));
        link.doneCallback();
        engine.evaluate("clock.setTime(undefined, null, 'x')");
        QVERIFY(!link.timeInfo.time.isValid());
    }

    void asksForTheTimeElsewhere()
    {
        SlowLink link;
        ServerTimeController controller(link);

        controller.refreshTimeInfo();
        QVERIFY(link.begun.tryAcquire(1, 5000));

        QVERIFY(link.thread.load() != nullptr);
        QVERIFY(link.thread.load() != QThread::currentThread());
    }

    void aRequestOnItsWayEndsBeforeTheController()
    {
        SlowLink link;
        link.patience = 100;
        {
            ServerTimeController controller(link);
            for (int i = 0; i < 3; ++i)
                controller.refreshTimeInfo();
            QVERIFY(link.begun.tryAcquire(1, 5000));
            link.finished = false;
        }

        QVERIFY(link.finished.load());
        QVERIFY(link.begun.tryAcquire(2)); // the other two have run as well
    }
};

ONDIRA_TEST(ServerTimeControllerTest)
#include "ServerTimeControllerTest.moc"
