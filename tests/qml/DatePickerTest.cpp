// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QDateTime>

class DatePickerTest : public TestBase
{
    Q_OBJECT

private:
    static QObject *show(Stage &stage, const QByteArray &properties = "selectedDate: new Date(2026, 1, 27)",
                         const QSize &size = {1280, 800})
    {
        stage.show("QC2.TextField { objectName: \"other\"; y: 600 }\n"
                   "DatePicker { id: picker; objectName: \"picker\"; width: 240; "
                       + properties + " }",
                   size);
        return stage.window() ? stage.object("picker") : nullptr;
    }

    static QString selected(const QObject *picker)
    {
        return picker->property("selectedDate").toDateTime().toLocalTime().date().toString(Qt::ISODate);
    }

    static void focus(const Stage &stage)
    {
        QMetaObject::invokeMethod(stage.object("picker"), "forceActiveFocus");
        QMetaObject::invokeMethod(stage.object("picker"), "selectAll");
    }

    static bool openCalendar(Stage &stage)
    {
        stage.click("calendarButton");
        return Stage::waitFor([&] { return isOpen(stage); });
    }

    static bool isOpen(const Stage &stage) { return stage.object("calendarDialog")->property("opened").toBool(); }

    static QString shown(const Stage &stage)
    {
        const auto *content = stage.object("calendarDialog")->property("item").value<QObject *>();
        if (!content)
            return {};
        return QStringLiteral("%1-%2-%3")
            .arg(content->property("year").toInt())
            .arg(content->property("month").toInt() + 1)
            .arg(content->property("day").toInt());
    }

private slots:
    void showsTheDateInItsFormat_data()
    {
        QTest::addColumn<QByteArray>("properties");
        QTest::addColumn<QString>("text");

        QTest::newRow("none") << QByteArray() << "";
        QTest::newRow("as it is") << QByteArray("selectedDate: new Date(2026, 1, 7)") << "2026-02-07";
        QTest::newRow("in words") << QByteArray("dateFormat: \"d MMMM yyyy\"; selectedDate: new Date(2026, 1, 7)")
                                  << "7 февраля 2026";
        QTest::newRow("in other words") << QByteArray(
            "dateFormat: \"d MMMM yyyy\"; locale: \"en_GB\"; selectedDate: new Date(2026, 1, 7)")
                                        << "7 February 2026";
    }

    void showsTheDateInItsFormat()
    {
        QFETCH(QByteArray, properties);
        Stage stage;
        show(stage, properties);

        QTEST(stage.text("picker"), "text");
    }

    void digitsGetTheirDashes_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("selected");

        QTest::newRow("a year") << "2026"
                                << "2026"
                                << "2026-02-27";
        QTest::newRow("a month") << "20261"
                                 << "2026-1"
                                 << "2026-02-27";
        QTest::newRow("a date") << "20261231"
                                << "2026-12-31"
                                << "2026-12-31";
        QTest::newRow("dashes typed") << "2026-12-31"
                                      << "2026-12-31"
                                      << "2026-12-31";
        QTest::newRow("more than a date") << "202612319"
                                          << "2026-12-31"
                                          << "2026-12-31";
        QTest::newRow("letters") << "2x0y26"
                                 << "2026"
                                 << "2026-02-27";
        QTest::newRow("a leap day") << "20280229"
                                    << "2028-02-29"
                                    << "2028-02-29";
        QTest::newRow("no leap day") << "20270229"
                                     << "2027-02-29"
                                     << "2026-02-27";
        QTest::newRow("no month") << "20271301"
                                  << "2027-13-01"
                                  << "2026-02-27";
        QTest::newRow("no day") << "20271200"
                                << "2027-12-00"
                                << "2026-02-27";
        QTest::newRow("no year") << "00001201"
                                 << "0000-12-01"
                                 << "2026-02-27";
        QTest::newRow("an early year") << "00991201"
                                       << "0099-12-01"
                                       << "0099-12-01";
    }

    void digitsGetTheirDashes()
    {
        QFETCH(QString, typed);
        Stage stage;
        auto *picker = show(stage);
        focus(stage);

        stage.type(typed);

        QTEST(stage.text("picker"), "text");
        QTEST(selected(picker), "selected");
        QCOMPARE(picker->property("hasError").toBool(), stage.text("picker") != selected(picker));
    }

    void theCursorStaysWhereItTypes()
    {
        Stage stage;
        auto *picker = show(stage);
        focus(stage);
        stage.key(Qt::Key_Home);
        for (int i = 0; i < 3; ++i)
            stage.key(Qt::Key_Right);
        stage.key(Qt::Key_Backspace); // 206-02-27 becomes 2060-22-7

        stage.type("2");

        QCOMPARE(stage.text("picker").left(4), QString("2026"));
        QCOMPARE(picker->property("textInput").value<QObject *>()->property("cursorPosition").toInt(), 3);
    }

    void whatIsNoDateGivesWay()
    {
        Stage stage;
        auto *picker = show(stage);
        focus(stage);
        stage.type("2027");
        QVERIFY(picker->property("hasError").toBool());

        stage.click("other");

        QCOMPARE(stage.text("picker"), QString("2026-02-27"));
        QVERIFY(!picker->property("hasError").toBool());
    }

    void opensTheCalendarAtItsDate()
    {
        Stage stage;
        show(stage);

        QVERIFY(openCalendar(stage));

        QCOMPARE(shown(stage), QString("2026-2-27"));
        QCOMPARE(stage.text("yearLabel"), QString("2026"));
        QVERIFY(!stage.text("monthLabel").compare("февраль", Qt::CaseInsensitive));
        QVERIFY(!stage.text("weekday0").compare("пн", Qt::CaseInsensitive));
        QVERIFY(stage.has("day28"));
        QVERIFY(!stage.has("day29"));
        // The 1st of February 2026 is a Sunday, the last day of a Russian week; the 2nd begins the next.
        QVERIFY(stage.item("day1")->x() > stage.item("day2")->x());
        QVERIFY(stage.item("day1")->y() < stage.item("day2")->y());
    }

    void theWeekBeginsByTheLocale()
    {
        Stage stage;
        show(stage, "locale: \"en_US\"; selectedDate: new Date(2026, 1, 27)");

        QVERIFY(openCalendar(stage));

        QCOMPARE(stage.text("weekday0"), QString("Sun"));
        QCOMPARE(stage.text("monthLabel"), QString("February"));
        QCOMPARE(stage.item("day1")->x(), 0.0);
        QCOMPARE(stage.item("day1")->y(), stage.item("day7")->y());
    }

    void opensAtTodayWithoutADate()
    {
        Stage stage;
        show(stage, "");

        QVERIFY(openCalendar(stage));

        QCOMPARE(shown(stage), QDate::currentDate().toString("yyyy-M-d"));
    }

    void picksADay()
    {
        Stage stage;
        auto *picker = show(stage);
        QVERIFY(openCalendar(stage));

        stage.click("day12");
        QCOMPARE(selected(picker), QString("2026-02-27")); // not before it is accepted
        stage.click("positiveButton");

        QCOMPARE(selected(picker), QString("2026-02-12"));
        QCOMPARE(stage.text("picker"), QString("2026-02-12"));
    }

    void cancellingPicksNothing()
    {
        Stage stage;
        auto *picker = show(stage);
        QVERIFY(openCalendar(stage));
        stage.click("day12");

        stage.key(Qt::Key_Escape);

        QTRY_VERIFY(!isOpen(stage));
        QCOMPARE(selected(picker), QString("2026-02-27"));
    }

    void keysMoveTheDay_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QString>("expected");

        QTest::newRow("left") << int(Qt::Key_Left) << 0 << "2026-3-30";
        QTest::newRow("right") << int(Qt::Key_Right) << 0 << "2026-4-1";
        QTest::newRow("up") << int(Qt::Key_Up) << 0 << "2026-3-24";
        QTest::newRow("down") << int(Qt::Key_Down) << 0 << "2026-4-7";
        QTest::newRow("to a shorter month") << int(Qt::Key_PageUp) << 0 << "2026-2-28";
        QTest::newRow("next month") << int(Qt::Key_PageDown) << 0 << "2026-4-30";
        QTest::newRow("year before") << int(Qt::Key_PageUp) << int(Qt::ShiftModifier) << "2025-3-31";
        QTest::newRow("next year") << int(Qt::Key_PageDown) << int(Qt::ShiftModifier) << "2027-3-31";
        QTest::newRow("first") << int(Qt::Key_Home) << 0 << "2026-3-1";
        QTest::newRow("last") << int(Qt::Key_End) << 0 << "2026-3-31";
    }

    void keysMoveTheDay()
    {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(QString, expected);
        Stage stage;
        auto *picker = show(stage, "selectedDate: new Date(2026, 2, 31)");
        QVERIFY(openCalendar(stage));
        QCOMPARE(stage.focusName(), QString("days"));

        stage.key(Qt::Key(key), Qt::KeyboardModifiers(modifiers));

        QCOMPARE(shown(stage), expected);
        stage.key(Qt::Key_Return);
        QTRY_VERIFY(!isOpen(stage));
        QCOMPARE(selected(picker), QDate::fromString(expected, "yyyy-M-d").toString(Qt::ISODate));
    }

    void buttonsTurnThePages()
    {
        Stage stage;
        show(stage, "selectedDate: new Date(2026, 0, 31)");
        QVERIFY(openCalendar(stage));

        stage.click("monthBack");
        QCOMPARE(shown(stage), QString("2025-12-31"));
        stage.click("yearForward");
        stage.click("monthForward");
        stage.click("monthForward");
        QCOMPARE(shown(stage), QString("2027-2-28"));
        stage.click("yearBack");
        QCOMPARE(shown(stage), QString("2026-2-28"));
    }

    void endsWithTheYears()
    {
        Stage stage;
        auto *picker = show(stage);
        focus(stage);
        stage.type("99991231");
        QCOMPARE(selected(picker), QString("9999-12-31"));
        QVERIFY(openCalendar(stage));

        stage.key(Qt::Key_Right);
        stage.key(Qt::Key_PageDown);

        QCOMPARE(shown(stage), QString("9999-12-31"));
    }

    void altDownOpensTheCalendar()
    {
        Stage stage;
        show(stage);
        focus(stage);

        stage.key(Qt::Key_Down, Qt::AltModifier);

        QTRY_VERIFY(isOpen(stage));
        stage.key(Qt::Key_Escape);
        QTRY_COMPARE(stage.focusName(), QString("picker"));
    }

    void fitsATelephone()
    {
        Stage stage;
        show(stage, "selectedDate: new Date(2026, 1, 27)", {360, 640});

        QVERIFY(openCalendar(stage));

        for (const char *name : {"day1", "day2", "day28", "yearForward", "positiveButton"}) {
            auto *item = stage.item(name);
            QVERIFY2(item, name);
            QVERIFY2(QRectF(0, 0, 360, 640).contains(item->mapRectToScene(item->boundingRect())), name);
        }
    }
};

ONDIRA_TEST(DatePickerTest)
#include "DatePickerTest.moc"
