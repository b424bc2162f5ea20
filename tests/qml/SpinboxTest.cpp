// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QLocale>
#include <cmath>
#include <limits>

class SpinboxTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage, const QByteArray &properties)
    {
        auto *box = stage.show("Column { width: 300; property int modifications: 0\n"
                               "Spinbox { objectName: \"box\"; width: 300; onValueModified: ++parent.modifications; "
                               + properties + "}\nTextField { objectName: \"next\"; width: 300 } }");
        return box ? box->childItems().value(0) : nullptr;
    }

    static QString format(QQuickItem *box, const QVariant &value)
    {
        QVariant text;
        QMetaObject::invokeMethod(box, "format", Q_RETURN_ARG(QVariant, text), Q_ARG(QVariant, value));
        return text.toString();
    }

    static void retype(Stage &stage, QQuickItem *box, const QString &text)
    {
        box->forceActiveFocus();
        QMetaObject::invokeMethod(box, "clear");
        stage.type(text);
    }

private slots:
    void defaults()
    {
        Stage stage;
        auto *box = show(stage, "");

        QCOMPARE(box->property("value").toDouble(), 0.0);
        QCOMPARE(box->property("text").toString(), QString("0"));
        QCOMPARE(box->property("decimals").toInt(), 0);
        QCOMPARE(box->property("minimumValue").toDouble(), -9007199254740991.0);
        QCOMPARE(box->property("maximumValue").toDouble(), 9007199254740991.0);
        QCOMPARE(box->property("step").toDouble(), 1.0);
        QCOMPARE(box->property("errorText").toString(), QString("Числовое значение"));
    }

    void formats_data()
    {
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("text");

        QTest::newRow("integer") << 2 << QVariant(12) << "12";
        QTest::newRow("integer of a real") << 2 << QVariant(12.0) << "12";
        QTest::newRow("round hundred") << 0 << QVariant(100) << "100";
        QTest::newRow("negative") << 0 << QVariant(-40) << "-40";
        QTest::newRow("zeros are cut") << 3 << QVariant(1.5) << "1.5";
        QTest::newRow("all digits") << 3 << QVariant(1.125) << "1.125";
        QTest::newRow("noise") << 2 << QVariant(0.1 + 0.2) << "0.3";
        QTest::newRow("single precision") << 2 << QVariant(double(0.7F)) << "0.7";
        QTest::newRow("rounds to whole") << 2 << QVariant(9.999) << "10";
        QTest::newRow("no decimals") << 0 << QVariant(10.4) << "10";
        QTest::newRow("small negative") << 1 << QVariant(-0.01) << "0";
        QTest::newRow("text of a number") << 2 << QVariant("2.50") << "2.5";
        QTest::newRow("not a number") << 2 << QVariant(std::numeric_limits<double>::quiet_NaN()) << "";
        QTest::newRow("infinite") << 2 << QVariant(std::numeric_limits<double>::infinity()) << "";
        QTest::newRow("nothing") << 2 << QVariant() << "";
        QTest::newRow("null") << 2 << QVariant::fromValue(nullptr) << "";
        QTest::newRow("words") << 2 << QVariant("зал") << "";
        QTest::newRow("largest safe") << 0 << QVariant(9007199254740991.0) << "9007199254740991";
        QTest::newRow("many decimals") << 1000 << QVariant(0.5) << "0.5";
        QTest::newRow("negative decimals") << -1 << QVariant(0.75) << "1";
    }

    void formats()
    {
        QFETCH(int, decimals);
        QFETCH(QVariant, value);
        Stage stage;
        auto *box = show(stage, "");

        box->setProperty("decimals", decimals);
        box->setProperty("value", value);

        QTEST(format(box, value), "text");
        QTEST(box->property("text").toString(), "text");
    }

    void takesAPointOnAnyLocale_data()
    {
        QTest::addColumn<QLocale>("locale");

        QTest::newRow("Russian") << QLocale("ru_RU");
        QTest::newRow("German") << QLocale("de_DE");
        QTest::newRow("English") << QLocale("en_US");
        QTest::newRow("C") << QLocale::c();
    }

    void takesAPointOnAnyLocale()
    {
        QFETCH(QLocale, locale);
        const QLocale before;
        QLocale::setDefault(locale);
        {
            Stage stage;
            auto *box = show(stage, "decimals: 2");

            retype(stage, box, "1.5");
            QCOMPARE(box->property("text").toString(), QString("1.5"));
            QCOMPARE(box->property("hasError").toBool(), false);
            QCOMPARE(box->property("value").toDouble(), 1.5);

            for (const auto *wrong : {"1,5", "1,500", "1 500", "1e3"}) {
                box->setProperty("text", wrong);
                QVERIFY2(box->property("hasError").toBool(), wrong);
            }
            retype(stage, box, "2,5");
            QVERIFY(box->property("value").toDouble() != 2.5);
        }
        QLocale::setDefault(before);
    }

    void theTextFollowsTheValueOnlyWithoutFocus()
    {
        Stage stage;
        auto *box = show(stage, "decimals: 1; value: 5");
        QCOMPARE(box->property("text").toString(), QString("5"));
        box->setProperty("value", 6.5);
        QCOMPARE(box->property("text").toString(), QString("6.5"));

        box->forceActiveFocus();
        box->setProperty("value", 7);
        QCOMPARE(box->property("text").toString(), QString("6.5"));
        stage.item("next")->forceActiveFocus();

        QCOMPARE(box->property("text").toString(), QString("7"));
        box->setProperty("value", 8);
        QCOMPARE(box->property("text").toString(), QString("8"));
    }

    void typingIsNotDisturbed()
    {
        Stage stage;
        auto *box = show(stage, "decimals: 2");

        retype(stage, box, "007.50");
        QCOMPARE(box->property("text").toString(), QString("007.50"));
        QCOMPARE(box->property("value").toDouble(), 7.5);
        stage.key(Qt::Key_Tab);

        QCOMPARE(box->property("text").toString(), QString("7.5"));
    }

    void aWrongTextLeavesTheValue()
    {
        Stage stage;
        auto *box = show(stage, "minimumValue: 10; maximumValue: 100; value: 50");

        retype(stage, box, "5");
        QCOMPARE(box->property("hasError").toBool(), true);
        QCOMPARE(box->property("value").toDouble(), 50.0);
        retype(stage, box, "");
        QCOMPARE(box->property("value").toDouble(), 50.0);
        stage.key(Qt::Key_Tab);

        QCOMPARE(box->property("text").toString(), QString("50"));
        QCOMPARE(box->property("hasError").toBool(), false);
    }

    void saysItsBounds_data()
    {
        QTest::addColumn<QByteArray>("bounds");
        QTest::addColumn<QString>("text");

        QTest::newRow("none") << QByteArray() << "Числовое значение";
        QTest::newRow("both") << QByteArray("minimumValue: 0; maximumValue: 100") << "Значение от 0 до 100";
        QTest::newRow("least") << QByteArray("minimumValue: -5") << "Значение от -5";
        QTest::newRow("most") << QByteArray("maximumValue: 1.5; decimals: 1") << "Значение до 1.5";
        QTest::newRow("infinite") << QByteArray("minimumValue: -Infinity; maximumValue: Infinity")
                                  << "Числовое значение";
    }

    void saysItsBounds()
    {
        QFETCH(QByteArray, bounds);
        Stage stage;
        auto *box = show(stage, bounds);

        QTEST(box->property("errorText").toString(), "text");
    }

    void aValueOutOfBoundsIsShownAsWrong_data()
    {
        QTest::addColumn<double>("value");

        QTest::newRow("below") << -1.0;
        QTest::newRow("above") << 101.0;
        QTest::newRow("huge") << 1e300;
        QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN();
    }

    void aValueOutOfBoundsIsShownAsWrong()
    {
        QFETCH(double, value);
        Stage stage;
        auto *box = show(stage, "minimumValue: 0; maximumValue: 100");

        box->setProperty("value", value);

        QCOMPARE(box->property("hasError").toBool(), true);
        QCOMPARE(box->property("shownText").toString(), QString("Значение от 0 до 100"));
        box->setProperty("value", 100);
        QCOMPARE(box->property("hasError").toBool(), false);
    }

    void arrowsStep()
    {
        Stage stage;
        auto *box = show(stage, "minimumValue: 0; maximumValue: 1; decimals: 1; step: 0.1; value: 0.8");
        box->forceActiveFocus();

        stage.key(Qt::Key_Up);
        QCOMPARE(box->property("text").toString(), QString("0.9"));
        QCOMPARE(box->property("value").toDouble(), 0.9);
        stage.key(Qt::Key_Up);
        stage.key(Qt::Key_Up);
        QCOMPARE(box->property("value").toDouble(), 1.0);
        QCOMPARE(box->parentItem()->property("modifications").toInt(), 2); // not where there is no way on
        stage.key(Qt::Key_Down);

        QCOMPARE(box->property("text").toString(), QString("0.9"));
    }

    void stepsFromNothingAndFromOutside()
    {
        Stage stage;
        auto *box = show(stage, "minimumValue: 5; maximumValue: 10");
        box->forceActiveFocus();
        box->setProperty("value", QVariant());

        stage.key(Qt::Key_Up);
        QCOMPARE(box->property("value").toDouble(), 5.0);
        box->setProperty("value", 1000);
        stage.key(Qt::Key_Down);

        QCOMPARE(box->property("value").toDouble(), 10.0);
    }

    void aReadOnlyBoxDoesNotStep()
    {
        Stage stage;
        auto *box = show(stage, "readOnly: true; value: 3");
        box->forceActiveFocus();

        stage.key(Qt::Key_Up);

        QCOMPARE(box->property("value").toDouble(), 3.0);
    }

    void tellsOnlyWhatTheUserChanged()
    {
        Stage stage;
        auto *box = show(stage, "");
        box->setProperty("value", 5);
        QCOMPARE(box->parentItem()->property("modifications").toInt(), 0);

        retype(stage, box, "12");

        QCOMPARE(box->parentItem()->property("modifications").toInt(), 2);
        QCOMPARE(box->property("value").toDouble(), 12.0);
    }

    void wholeNumbersTakeNoPoint()
    {
        Stage stage;
        auto *box = show(stage, "");

        retype(stage, box, "1.5");

        QCOMPARE(box->property("value").toDouble(), 1.0); // nothing is let in after the point
    }

    void keyboardsAreOfNumbers()
    {
        Stage stage;
        auto *box = show(stage, "");
        QCOMPARE(box->property("inputMethodHints").toInt(), int(Qt::ImhFormattedNumbersOnly));

        box->setProperty("minimumValue", 0);

        QCOMPARE(box->property("inputMethodHints").toInt(), int(Qt::ImhDigitsOnly));
    }
};

ONDIRA_TEST(SpinboxTest)
#include "SpinboxTest.moc"
