// SPDX-License-Identifier: GPL-3.0-or-later
#include "schedules/SchedulePointWrapper.h"
#include "Points.h"
#include "support/TestBase.h"

#include <QQmlComponent>
#include <QQmlEngine>

class SchedulePointWrapperTest : public TestBase
{
    Q_OBJECT

private slots:
    void startsAtMidnightWithNothing()
    {
        const SchedulePointWrapper point;

        QCOMPARE(point.getHours(), 0);
        QCOMPARE(point.getMinutes(), 0);
        QCOMPARE(point.getSeconds(), 0);
        QCOMPARE(point.getDuration(), 0);
        QCOMPARE(point.getActions(), QVariantList());
    }

    void takesAPointOfADay()
    {
        const auto point = SchedulePointWrapper::fromDayPoint(Points::point("07:30:15", 5), 3600);

        QCOMPARE(point->getHours(), 7);
        QCOMPARE(point->getMinutes(), 30);
        QCOMPARE(point->getSeconds(), 15);
        QCOMPARE(point->getDuration(), 3600);
        QCOMPARE(point->getActions(), Points::actionsMap(5).toList());
    }

    void takesAPointWithoutATime()
    {
        const auto point = SchedulePointWrapper::fromDayPoint({QTime(), {}}, -1);

        QCOMPARE(point->getHours(), 0);
        QCOMPARE(point->getMinutes(), 0);
        QCOMPARE(point->getSeconds(), 0);
        QCOMPARE(point->getDuration(), -1);
    }

    void drawsTheClockToItsEnds_data()
    {
        QTest::addColumn<QByteArray>("property");
        QTest::addColumn<int>("given");
        QTest::addColumn<int>("expected");

        QTest::newRow("hours at the end") << QByteArray("hours") << 23 << 23;
        QTest::newRow("hours past the end") << QByteArray("hours") << 24 << 23;
        QTest::newRow("hours extreme") << QByteArray("hours") << INT_MAX << 23;
        QTest::newRow("hours negative") << QByteArray("hours") << -1 << 0;
        QTest::newRow("minutes at the end") << QByteArray("minutes") << 59 << 59;
        QTest::newRow("minutes past the end") << QByteArray("minutes") << 60 << 59;
        QTest::newRow("minutes negative") << QByteArray("minutes") << INT_MIN << 0;
        QTest::newRow("seconds at the end") << QByteArray("seconds") << 59 << 59;
        QTest::newRow("seconds past the end") << QByteArray("seconds") << 60 << 59;
        QTest::newRow("seconds negative") << QByteArray("seconds") << -5 << 0;
    }

    void drawsTheClockToItsEnds()
    {
        QFETCH(QByteArray, property);
        QFETCH(int, given);
        SchedulePointWrapper point;
        point.setProperty(property, 7);

        QVERIFY(point.setProperty(property, given));

        QTEST(point.property(property).toInt(), "expected");
    }

    void announcesWhatChangesAlone()
    {
        SchedulePointWrapper point;
        QSignalSpy hours(&point, &SchedulePointWrapper::hoursChanged);
        QSignalSpy minutes(&point, &SchedulePointWrapper::minutesChanged);
        QSignalSpy seconds(&point, &SchedulePointWrapper::secondsChanged);
        QSignalSpy actions(&point, &SchedulePointWrapper::actionsChanged);

        for (int turn = 0; turn < 2; ++turn) {
            point.setHours(30);
            point.setMinutes(70);
            point.setSeconds(80);
            point.setActions(Points::actionsMap(5).toList());
        }
        point.setHours(23);
        point.setMinutes(59);
        point.setSeconds(59);

        QCOMPARE(hours.count(), 1);
        QCOMPARE(minutes.count(), 1);
        QCOMPARE(seconds.count(), 1);
        QCOMPARE(actions.count(), 1);
        point.setHours(-1);
        QCOMPARE(hours.count(), 2);
    }

    void isDeclaredInADocument()
    {
        qmlRegisterType<SchedulePointWrapper>("SchedulePoint", 1, 0, "SchedulePoint");
        QQmlEngine engine;
        QQmlComponent component(&engine);
        component.setData("import SchedulePoint 1.0\n SchedulePoint { hours: 25; minutes: 5; actions: [{ \"a\": 1 }] }",
                          QUrl());

        const std::unique_ptr<QObject> object(component.create());

        QVERIFY2(object, qPrintable(component.errorString()));
        QCOMPARE(object->property("hours").toInt(), 23);
        QCOMPARE(object->property("minutes").toInt(), 5);
        QCOMPARE(object->property("actions").toList(), (QVariantList{QVariantMap{{"a", 1}}}));
        QVERIFY(!object->setProperty("duration", 5));
    }
};

ONDIRA_TEST(SchedulePointWrapperTest)
#include "SchedulePointWrapperTest.moc"
