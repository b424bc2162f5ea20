// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "qml/Stage.h"
#include "support/TestBase.h"

class QuickScheduleDialogTest : public TestBase
{
    Q_OBJECT

private:
    static Model::ScheduleDay day(uint n, const QString &name, const QSet<QUuid> &zones)
    {
        Model::ScheduleDay day(Records::uid(n), name, {}, {});
        day.zones = zones;
        return day;
    }

    static QObject *show(Stage &stage, const QVariantList &zones)
    {
        stage.publishSite(4);
        stage.link.publishSchedules({day(31, "Выходной", {Records::uid(12)}),
                                     day(32, "Будни", {Records::uid(11), Records::uid(13)}),
                                     day(33, "Ночь", {Records::uid(13)})});
        stage.show("QuickScheduleDialog { objectName: \"dialog\" }");
        auto *dialog = stage.object("dialog");
        QMetaObject::invokeMethod(dialog, "showDialog", Q_ARG(QVariant, zones));
        stage.settle();
        return dialog;
    }

    static bool canAccept(const Stage &stage) { return stage.item("positiveButton")->isEnabled(); }

    static QSet<QUuid> zonesOf(const Stage &stage, uint n)
    {
        for (const auto &day : stage.link.days) {
            if (day.uid == Records::uid(n))
                return day.zones;
        }
        return {};
    }

private slots:
    void theOnlyScheduleIsSelected()
    {
        Stage stage;
        auto *dialog = show(stage, {Records::text(11)});

        QCOMPARE(dialog->property("title").toString(), QString("Установка расписания"));
        QCOMPARE(dialog->property("width").toInt(), 480);
        QCOMPARE(stage.text("positiveButton"), QString("Установить"));
        QCOMPARE(stage.text("menuFieldText"), QString("Будни"));
        QVERIFY(canAccept(stage));
    }

    void withoutAScheduleNothingIsSelected()
    {
        Stage stage;
        show(stage, {Records::text(14)});

        QCOMPARE(stage.text("menuFieldText"), QString("Нет расписания"));
        QVERIFY(!canAccept(stage));
    }

    void severalSchedulesSelectNothing()
    {
        Stage stage;
        show(stage, {Records::text(11), Records::text(12)});

        QCOMPARE(stage.text("menuFieldText"), QString("Разные расписания"));
        QVERIFY(!canAccept(stage));
    }

    void zonesAreListedWithTheirSchedules()
    {
        Stage stage;
        show(stage, {Records::text(13), Records::text(14)});

        QCOMPARE(stage.text("chosenZone0"), QString("Зона 3"));
        QCOMPARE(stage.item("chosenZone0")->property("subText").toString(), QString("Будни, Ночь"));
        QCOMPARE(stage.text("chosenZone1"), QString("Зона 4"));
        QCOMPARE(stage.item("chosenZone1")->property("subText").toString(), QString());
    }

    void theChosenScheduleIsSet()
    {
        Stage stage;
        auto *dialog = show(stage, {Records::text(11), Records::text(14)});
        stage.click("schedulePicker");
        QTRY_VERIFY(stage.has("menuSearchField"));
        stage.settle();
        stage.type("НОЧЬ");
        QTRY_VERIFY(stage.has("menuRow0") && !stage.has("menuRow1"));
        stage.settle();
        stage.click("menuRow0");
        QTRY_COMPARE(stage.text("menuFieldText"), QString("Ночь"));

        stage.settle();
        stage.click("positiveButton");

        QTRY_VERIFY(!dialog->property("visible").toBool());
        QCOMPARE(stage.link.operations.last(), QString("changeDays"));
        QCOMPARE(zonesOf(stage, 33), (QSet<QUuid>{Records::uid(11), Records::uid(13), Records::uid(14)}));
        QCOMPARE(zonesOf(stage, 32), QSet<QUuid>{Records::uid(13)});
    }

    void aScheduleThatGoesMeanwhileCannotBeSet()
    {
        Stage stage;
        show(stage, {Records::text(11)});
        QVERIFY(canAccept(stage));

        stage.link.publishSchedules({});

        QTRY_VERIFY(!canAccept(stage));
        stage.click("positiveButton");
        QVERIFY(!stage.link.operations.contains("changeDays"));
    }

    void opensForNothing()
    {
        Stage stage;
        show(stage, {});
        QVERIFY(!canAccept(stage));

        auto *dialog = stage.object("dialog");
        QMetaObject::invokeMethod(dialog, "close");
        QTRY_VERIFY(!dialog->property("visible").toBool());
        QMetaObject::invokeMethod(dialog, "showDialog", Q_ARG(QVariant, QVariant()));
        QTRY_VERIFY(dialog->property("opened").toBool());
        QVERIFY(!canAccept(stage));
    }
};

ONDIRA_TEST(QuickScheduleDialogTest)
#include "QuickScheduleDialogTest.moc"
