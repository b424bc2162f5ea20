// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

class IntervalSelectorTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage)
    {
        return stage.show("IntervalSelector { width: 320; label: \"Период\"; property int modifications: 0;"
                          " onIntervalModified: ++modifications }");
    }

    static QString word(QQuickItem *selector, const QVariant &value, int unit)
    {
        QVariant text;
        QMetaObject::invokeMethod(selector, "l10nFunction", Q_RETURN_ARG(QVariant, text), Q_ARG(QVariant, value),
                                  Q_ARG(QVariant, unit));
        return text.toString();
    }

    static QString unit(Stage &stage) { return stage.item("intervalUnit")->property("selectedText").toString(); }

private slots:

    void chooses_data()
    {
        QTest::addColumn<QVariant>("minutes");
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("unit");
        QTest::addColumn<double>("interval");

        QTest::newRow("minutes") << QVariant(90) << 90 << "Минут" << 90.0;
        QTest::newRow("hours") << QVariant(120) << 2 << "Часа" << 120.0;
        QTest::newRow("days") << QVariant(2880) << 2 << "Дня" << 2880.0;
        QTest::newRow("one") << QVariant(1) << 1 << "Минута" << 1.0;
        QTest::newRow("one hour") << QVariant(60) << 1 << "Час" << 60.0;
        QTest::newRow("one day") << QVariant(1440) << 1 << "День" << 1440.0;
        QTest::newRow("a day and an hour") << QVariant(1500) << 25 << "Часов" << 1500.0;
        QTest::newRow("nothing") << QVariant(0) << 0 << "Дней" << 0.0;
        QTest::newRow("negative is nothing") << QVariant(-60) << 0 << "Дней" << 0.0;
        QTest::newRow("fraction") << QVariant(4.6) << 5 << "Минут" << 5.0;
        QTest::newRow("undefined") << QVariant() << 0 << "Дней" << 0.0;
        QTest::newRow("text") << QVariant("ночь") << 0 << "Дней" << 0.0;
        QTest::newRow("long") << QVariant(1440 * 100000) << 100000 << "Дней" << 144000000.0;
    }

    void chooses()
    {
        QFETCH(QVariant, minutes);
        Stage stage;
        auto *selector = show(stage);

        QMetaObject::invokeMethod(selector, "setInterval", Q_ARG(QVariant, minutes));

        QTEST(selector->property("value").toInt(), "value");
        QTEST(unit(stage), "unit");
        QTEST(selector->property("intervalMinutes").toDouble(), "interval");
        QCOMPARE(stage.item("intervalNumber")->property("text").toString(),
                 QString::number(selector->property("value").toInt()));
        QCOMPARE(selector->property("modifications").toInt(), 0);
    }

    void declines_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("words");

        for (int one : {1, 21, 31, 91, 101, 121, 201, 1001})
            QTest::newRow(qPrintable(QString::number(one))) << one << "Минута Час День";
        for (int few : {2, 3, 4, 22, 34, 102, 104, 122, 1002})
            QTest::newRow(qPrintable(QString::number(few))) << few << "Минуты Часа Дня";
        for (int many : {0, 5, 6, 9, 10, 11, 12, 14, 19, 20, 25, 30, 100, 105, 111, 112, 114, 120, 200, 211, 1000})
            QTest::newRow(qPrintable(QString::number(many))) << many << "Минут Часов Дней";
    }

    void declines()
    {
        QFETCH(int, value);
        Stage stage;
        auto *selector = show(stage);

        const QStringList words{word(selector, value, 0), word(selector, value, 1), word(selector, value, 2)};

        QTEST(words.join(' '), "words");
    }

    void theWordFollowsWhatIsTyped()
    {
        Stage stage;
        auto *selector = show(stage);
        QMetaObject::invokeMethod(selector, "setInterval", Q_ARG(QVariant, 300));
        auto *number = stage.item("intervalNumber");
        number->forceActiveFocus();
        QMetaObject::invokeMethod(number, "clear");

        stage.type("2");
        QCOMPARE(unit(stage), QString("Часа"));
        stage.type("1");
        QCOMPARE(unit(stage), QString("Час"));

        QCOMPARE(selector->property("intervalMinutes").toDouble(), 21.0 * 60);
        QCOMPARE(selector->property("savedIndex").toInt(), 1);
        QCOMPARE(selector->property("modifications").toInt(), 2);
    }

    void anotherUnitIsChosen()
    {
        Stage stage;
        auto *selector = show(stage);
        QMetaObject::invokeMethod(selector, "setInterval", Q_ARG(QVariant, 5));
        auto *menu = stage.item("intervalUnit");

        stage.click(menu);
        QTRY_VERIFY(stage.has("menuRow2"));
        QTRY_VERIFY(menu->property("popup").value<QObject *>()->property("opened").toBool());
        stage.click("menuRow2");

        QCOMPARE(selector->property("intervalMinutes").toDouble(), 5.0 * 1440);
        QCOMPARE(unit(stage), QString("Дней"));
        selector->setProperty("value", 1);
        QCOMPARE(unit(stage), QString("День"));
        QCOMPARE(menu->property("selectedIndex").toInt(), 2);
        QMetaObject::invokeMethod(selector, "setInterval", Q_ARG(QVariant, 120));
        QCOMPARE(unit(stage), QString("Часа"));
        QCOMPARE(menu->property("selectedIndex").toInt(), 1);
    }
};

ONDIRA_TEST(IntervalSelectorTest)
#include "IntervalSelectorTest.moc"
