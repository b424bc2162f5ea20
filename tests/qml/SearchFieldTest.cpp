// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

class SearchFieldTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage)
    {
        stage.show("Item { anchors.fill: parent; property int escapes: 0; property int accepts: 0\n"
                   "Keys.onEscapePressed: ++escapes\n"
                   "SearchField { objectName: \"search\"; width: 300; onAccepted: ++parent.accepts } }");
        return stage.item("search");
    }

private slots:

    void whatIsTypedIsTheText()
    {
        Stage stage;
        auto *field = show(stage);
        QCOMPARE(field->property("placeholderText").toString(), QString("Поиск"));
        stage.click(field);

        stage.type("Зал");
        stage.key(Qt::Key_Return);

        QCOMPARE(field->property("text").toString(), QString("Зал"));
        QCOMPARE(field->parentItem()->property("accepts").toInt(), 1);
        QCOMPARE(stage.focusName(), QString("search"));
    }

    void theCrossEmptiesIt()
    {
        Stage stage;
        auto *field = show(stage);
        QVERIFY(!stage.has("clearSearchButton"));
        field->setProperty("text", "Зал");

        stage.click("clearSearchButton");

        QCOMPARE(field->property("text").toString(), QString());
        QCOMPARE(stage.focusName(), QString("search"));
        QVERIFY(!stage.has("clearSearchButton"));
    }

    void escapeEmptiesItAndThenIsForOthers()
    {
        Stage stage;
        auto *field = show(stage);
        field->forceActiveFocus();
        stage.type("Зал");

        stage.key(Qt::Key_Escape);
        QCOMPARE(field->property("text").toString(), QString());
        QCOMPARE(field->parentItem()->property("escapes").toInt(), 0);
        stage.key(Qt::Key_Escape);

        QCOMPARE(field->parentItem()->property("escapes").toInt(), 1);
    }

    void escapeInADialogEmptiesItFirst()
    {
        Stage stage;
        stage.show("Item { QC2.Popup { id: dialog; objectName: \"dialog\"; parent: QC2.Overlay.overlay; modal: true;"
                   " focus: true; visible: true; width: 400; height: 300;"
                   " SearchField { objectName: \"search\"; focus: true; text: \"x\" } } }");
        auto *dialog = stage.object("dialog");
        QTRY_VERIFY(dialog->property("opened").toBool());
        auto *field = stage.item("search");
        field->forceActiveFocus();

        stage.key(Qt::Key_Escape);
        QCOMPARE(field->property("text").toString(), QString());
        QVERIFY(dialog->property("opened").toBool());
        stage.key(Qt::Key_Escape);

        QTRY_VERIFY(!dialog->property("visible").toBool());
    }
};

ONDIRA_TEST(SearchFieldTest)
#include "SearchFieldTest.moc"
