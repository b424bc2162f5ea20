// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QJSValue>

class ZonesTableViewTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage, int zones, const QByteArray &properties = {})
    {
        stage.publishSite(zones);
        stage.show("Column { width: 320\n property int edits: 0\n"
                   "ZonesTableView { objectName: \"table\"; width: 320; caption: \"Зоны действия\"\n"
                   "model: zonesListModel; onEdited: ++parent.edits\n"
                   + properties + "} }");
        stage.settle();
        return qobject_cast<QQuickItem *>(stage.object("table"));
    }

    static QString row(uint n) { return "zoneRow_" + Records::text(n); }

    static QStringList selected(QQuickItem *table)
    {
        const auto value = table->property("selectedUids");
        return value.userType() == qMetaTypeId<QJSValue>() ? value.value<QJSValue>().toVariant().toStringList()
                                                           : value.toStringList();
    }

    static bool isChecked(const Stage &stage, uint n) { return stage.item(row(n))->property("isChecked").toBool(); }

private slots:
    void ticksWhatIsSelected()
    {
        Stage stage;
        auto *table = show(stage, 3, "selectedUids: [\"" + Records::text(12).toUtf8() + "\"]");

        QCOMPARE(stage.text("tableCaption"), QString("Зоны действия"));
        QVERIFY(!isChecked(stage, 11));
        QVERIFY(isChecked(stage, 12));
        QCOMPARE(table->parentItem()->property("edits").toInt(), 0);

        table->setProperty("selectedUids", QStringList{Records::text(13)});
        QVERIFY(!isChecked(stage, 12));
        QVERIFY(isChecked(stage, 13));
    }

    void aClickTicksARow()
    {
        Stage stage;
        auto *table = show(stage, 3);

        stage.click(row(12));
        QCOMPARE(selected(table), QStringList{Records::text(12)});
        stage.click(row(11));
        QCOMPARE(selected(table), (QStringList{Records::text(12), Records::text(11)}));
        stage.click(row(12));
        QCOMPARE(selected(table), QStringList{Records::text(11)});
        QCOMPARE(table->parentItem()->property("edits").toInt(), 3);
    }

    void keysTickARow()
    {
        Stage stage;
        auto *table = show(stage, 3);
        stage.item("zonesTable")->forceActiveFocus();

        stage.key(Qt::Key_Down);
        stage.key(Qt::Key_Space);

        QCOMPARE(selected(table), QStringList{Records::text(12)});
        stage.key(Qt::Key_Return);
        QVERIFY(selected(table).isEmpty());
    }

    void whatIsInNoRowStays()
    {
        Stage stage;
        const auto other = Records::text(99);
        auto *table = show(stage, 2, "selectedUids: [\"" + other.toUtf8() + "\"]");

        stage.click("checkAll");
        QCOMPARE(selected(table), (QStringList{other, Records::text(11), Records::text(12)}));
        stage.click("checkAll");
        QCOMPARE(selected(table), QStringList{other});
    }

    void countsWhatIsTicked()
    {
        Stage stage;
        show(stage, 3);
        QCOMPARE(stage.text("checkAll"), QString("Выбрано: 0"));
        QCOMPARE(stage.item("checkAll")->property("checkState").toInt(), int(Qt::Unchecked));

        stage.click(row(12));
        QCOMPARE(stage.text("checkAll"), QString("Выбрано: 1"));
        QCOMPARE(stage.item("checkAll")->property("checkState").toInt(), int(Qt::PartiallyChecked));
        stage.click("checkAll");
        QCOMPARE(stage.item("checkAll")->property("checkState").toInt(), int(Qt::Checked));
        stage.publishSite(4);
        QTRY_COMPARE(stage.item("checkAll")->property("checkState").toInt(), int(Qt::PartiallyChecked));
    }

    void manyRowsAreSearched()
    {
        Stage stage;
        auto *table = show(stage, 20);
        stage.click("tableSearch");
        stage.type("зона 20");
        QTRY_VERIFY(stage.has(row(30)));
        stage.settle();
        QVERIFY(!stage.has(row(11)));

        stage.click("checkAll");

        QCOMPARE(selected(table), QStringList{Records::text(30)});
    }

    void fewRowsAreNotSearched()
    {
        Stage stage;
        show(stage, 10);

        QVERIFY(!stage.has("tableSearch"));
    }

    void withoutRowsNothingShows()
    {
        Stage stage;
        show(stage, 0);

        QVERIFY(!stage.has("tableCaption"));
        stage.publishSite(1);
        QTRY_VERIFY(stage.has("tableCaption"));
    }

    void tellsADetailOfEachRow()
    {
        Stage stage;
        show(stage, 1, "detail: uid => uid.length + \" знаков\"");

        QCOMPARE(stage.text("zoneNote"), QString("38 знаков"));
    }

    void aListThatIsNoneSelectsNothing()
    {
        Stage stage;
        auto *table = show(stage, 1, "selectedUids: undefined");
        QVERIFY(!isChecked(stage, 11));
        table->setProperty("selectedUids", 7);
        QVERIFY(!isChecked(stage, 11));

        stage.click(row(11));

        QCOMPARE(selected(table), QStringList{Records::text(11)});
    }

    void thousandsOfRows()
    {
        Stage stage;
        auto *table = show(stage, 2000);

        stage.click("checkAll");

        QCOMPARE(selected(table).size(), 2000);
        const auto rows = stage.items([](QQuickItem *item) { return item->objectName().startsWith("zoneRow_"); });
        QVERIFY(!rows.empty());
        QVERIFY(rows.size() < 50);
        for (const auto *row : rows)
            QVERIFY(row->property("isChecked").toBool());
    }
};

ONDIRA_TEST(ZonesTableViewTest)
#include "ZonesTableViewTest.moc"
