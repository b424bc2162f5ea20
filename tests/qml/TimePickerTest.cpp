// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QDateTime>
#include <QtMath>

class TimePickerTest : public TestBase
{
    Q_OBJECT

private:
    static QObject *show(Stage &stage, const QByteArray &properties = "selectedTime: new Date(2026, 1, 27, 9, 5, 30)",
                         const QSize &size = {1280, 800})
    {
        stage.show("QC2.TextField { objectName: \"other\"; y: 600 }\n"
                   "TimePicker { id: picker; objectName: \"picker\"; width: 240; "
                       + properties + " }",
                   size);
        return stage.window() ? stage.object("picker") : nullptr;
    }

    static QString selected(const QObject *picker)
    {
        return picker->property("selectedTime").toDateTime().toLocalTime().time().toString("HH:mm:ss");
    }

    static void focus(const Stage &stage)
    {
        QMetaObject::invokeMethod(stage.object("picker"), "forceActiveFocus");
        QMetaObject::invokeMethod(stage.object("picker"), "selectAll");
    }

    static bool isOpen(const Stage &stage) { return stage.object("timeDialog")->property("opened").toBool(); }

    static bool openDial(Stage &stage)
    {
        stage.click("dialButton");
        return Stage::waitFor([&] { return isOpen(stage); });
    }

    static int part(const Stage &stage)
    {
        return stage.object("timeDialog")->property("item").value<QObject *>()->property("part").toInt();
    }

    static QString shown(const Stage &stage)
    {
        const auto *content = stage.object("timeDialog")->property("item").value<QObject *>();
        QStringList texts;
        for (const auto &value : content->property("values").value<QJSValue>().toVariant().toList())
            texts << value.toString();
        return texts.join(':');
    }

    // So many of 60 around the dial.
    static QPoint onDial(const Stage &stage, int sixtieth, const char *radius = "outerRadius")
    {
        auto *dial = stage.item("dial");
        const auto reach = dial->property(radius).toReal();
        const auto angle = 2 * M_PI * sixtieth / 60;
        return dial->mapToScene({dial->width() / 2 + reach * qSin(angle), dial->height() / 2 - reach * qCos(angle)})
            .toPoint();
    }

private slots:
    void showsTheTime_data()
    {
        QTest::addColumn<QByteArray>("properties");
        QTest::addColumn<QString>("text");

        QTest::newRow("none") << QByteArray() << "";
        QTest::newRow("with seconds") << QByteArray("selectedTime: new Date(2026, 1, 27, 9, 5, 30)") << "09:05:30";
        QTest::newRow("in a format") << QByteArray("timeFormat: \"HH:mm\"; selectedTime: new Date(2026, 1, 7, 9, 5)")
                                     << "09:05";
    }

    void showsTheTime()
    {
        QFETCH(QByteArray, properties);
        Stage stage;
        show(stage, properties);

        QTEST(stage.text("picker"), "text");
    }

    void readsWhatIsTyped_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("selected");
        QTest::addColumn<bool>("hasError");

        QTest::newRow("an hour") << "7"
                                 << "07:00:00" << false;
        QTest::newRow("hours and minutes") << "7:15"
                                           << "07:15:00" << false;
        QTest::newRow("all") << "07:15:42"
                             << "07:15:42" << false;
        QTest::newRow("one digit each") << "1:2:3"
                                        << "01:02:03" << false;
        QTest::newRow("digits alone") << "071542"
                                      << "07:15:42" << false;
        QTest::newRow("other marks") << "7.15-42"
                                     << "07:15:42" << false;
        QTest::newRow("words around") << "at 7 h 15 m"
                                      << "07:15:00" << false;
        QTest::newRow("the last second") << "23:59:59"
                                         << "23:59:59" << false;
        QTest::newRow("no hour") << "24"
                                 << "02:00:00" << true; // what "2" said stays
        QTest::newRow("no minute") << "7:60"
                                   << "07:06:00" << true;
        QTest::newRow("no second") << "7:15:60"
                                   << "07:15:06" << true;
        QTest::newRow("no time") << "soon"
                                 << "09:05:30" << true;
    }

    void readsWhatIsTyped()
    {
        QFETCH(QString, typed);
        Stage stage;
        auto *picker = show(stage);
        focus(stage);

        stage.type(typed);

        QCOMPARE(stage.text("picker"), typed);
        QTEST(selected(picker), "selected");
        QTEST(picker->property("hasError").toBool(), "hasError");
    }

    void tidiesUpWhenItIsLeft()
    {
        Stage stage;
        auto *picker = show(stage);
        focus(stage);
        stage.type("7:5");

        stage.click("other");

        QCOMPARE(stage.text("picker"), QString("07:05:00"));
        focus(stage);
        stage.type("99");
        stage.click("other");
        QCOMPARE(stage.text("picker"), selected(picker));
        QVERIFY(!picker->property("hasError").toBool());
    }

    void tidiesUpByReturn()
    {
        Stage stage;
        show(stage);
        focus(stage);
        stage.type("7");

        stage.key(Qt::Key_Return);

        QCOMPARE(stage.text("picker"), QString("07:00:00"));
    }

    void keepsTheDay()
    {
        Stage stage;
        auto *picker = show(stage);
        focus(stage);

        stage.type("12");

        QCOMPARE(picker->property("selectedTime").toDateTime().toLocalTime(),
                 QDateTime(QDate(2026, 2, 27), QTime(12, 0)));
    }

    void opensTheDialAtItsTime()
    {
        Stage stage;
        show(stage);

        QVERIFY(openDial(stage));

        QCOMPARE(shown(stage), QString("9:5:30"));
        QCOMPARE(part(stage), 0);
        QVERIFY(stage.has("mark0"));
        QVERIFY(stage.has("mark23"));
        QCOMPARE(stage.focusName(), QString("dial"));
    }

    void aPressPicksHoursThenMinutesThenSeconds()
    {
        Stage stage;
        auto *picker = show(stage);
        QVERIFY(openDial(stage));

        stage.clickAt(onDial(stage, 15)); // a quarter of the way around
        QCOMPARE(shown(stage), QString("3:5:30"));
        QCOMPARE(part(stage), 1);
        QVERIFY(stage.has("mark55"));
        stage.clickAt(onDial(stage, 22));
        QCOMPARE(shown(stage), QString("3:22:30"));
        stage.clickAt(onDial(stage, 59));
        QCOMPARE(shown(stage), QString("3:22:59"));
        QCOMPARE(part(stage), 2);
        stage.click("positiveButton");

        QCOMPARE(selected(picker), QString("03:22:59"));
        QCOMPARE(stage.text("picker"), QString("03:22:59"));
    }

    void theInnerRingIsAfterNoon_data()
    {
        QTest::addColumn<int>("sixtieth");
        QTest::addColumn<QString>("hour");

        QTest::newRow("noon") << 0 << "12";
        QTest::newRow("afternoon") << 15 << "15";
        QTest::newRow("late") << 55 << "23";
    }

    void theInnerRingIsAfterNoon()
    {
        QFETCH(int, sixtieth);
        Stage stage;
        show(stage);
        QVERIFY(openDial(stage));

        stage.clickAt(onDial(stage, sixtieth, "innerRadius"));

        QTEST(shown(stage).section(':', 0, 0), "hour");
    }

    void aDragTurnsTheHand()
    {
        Stage stage;
        show(stage);
        QVERIFY(openDial(stage));
        stage.click("part1");

        stage.drag(onDial(stage, 10), onDial(stage, 40));

        QCOMPARE(shown(stage), QString("9:40:30"));
        QCOMPARE(part(stage), 2);
    }

    void keysTurnTheHand()
    {
        Stage stage;
        auto *picker = show(stage, "selectedTime: new Date(2026, 1, 27, 23, 0, 59)");
        QVERIFY(openDial(stage));

        stage.key(Qt::Key_Up);
        QCOMPARE(shown(stage), QString("0:0:59"));
        stage.key(Qt::Key_Left);
        QCOMPARE(shown(stage), QString("23:0:59"));
        stage.click("part1");
        stage.key(Qt::Key_Down);
        QCOMPARE(shown(stage), QString("23:59:59"));
        stage.click("part2");
        stage.key(Qt::Key_Right);
        QCOMPARE(shown(stage), QString("23:59:0"));
        stage.key(Qt::Key_Return);

        QTRY_VERIFY(!isOpen(stage));
        QCOMPARE(selected(picker), QString("23:59:00"));
    }

    void cancellingPicksNothing()
    {
        Stage stage;
        auto *picker = show(stage);
        QVERIFY(openDial(stage));
        stage.key(Qt::Key_Up);

        stage.key(Qt::Key_Escape);

        QTRY_VERIFY(!isOpen(stage));
        QCOMPARE(selected(picker), QString("09:05:30"));
    }

    void fitsATelephone()
    {
        Stage stage;
        show(stage, "selectedTime: new Date(2026, 1, 27, 9, 5)", {360, 640});

        QVERIFY(openDial(stage));

        for (const char *name : {"dial", "part0", "part2", "positiveButton"}) {
            auto *item = stage.item(name);
            QVERIFY2(item, name);
            QVERIFY2(QRectF(0, 0, 360, 640).contains(item->mapRectToScene(item->boundingRect())), name);
        }
    }
};

ONDIRA_TEST(TimePickerTest)
#include "TimePickerTest.moc"
