// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

class PlaceholderControlTest : public TestBase
{
    Q_OBJECT

private slots:
    void saysWhatIsMissingAndOffersWhatToDo()
    {
        Stage stage;
        auto *placeholder =
            stage.show("PlaceholderControl { anchors.fill: parent; title: 'Пусто'; text: '<b>Совсем</b>'\n"
                       "property int clicks: 0; onClicked: ++clicks }");
        QCOMPARE(stage.text("placeholderTitle"), QString("Пусто"));
        QCOMPARE(stage.text("placeholderText"), QString("<b>Совсем</b>"));
        QCOMPARE(stage.text("placeholderButton"), QString("Добавить"));

        stage.click("placeholderButton");
        stage.item("placeholderButton")->forceActiveFocus();
        stage.key(Qt::Key_Return);
        stage.key(Qt::Key_Space);

        QCOMPARE(placeholder->property("clicks").toInt(), 3);
    }

    void whatItDoesNotHaveTakesNoRoom()
    {
        Stage stage;
        stage.show("PlaceholderControl { anchors.fill: parent; title: 'Пусто'; button.visible: false }");

        QVERIFY(!stage.has("placeholderText"));
        QVERIFY(!stage.has("placeholderButton"));
        const auto *title = stage.item("placeholderTitle");
        QVERIFY(qAbs(title->mapToScene(QPointF(0, title->height() / 2)).y() - 400) < 2);
    }

    void swallowsTheMouse()
    {
        Stage stage;
        stage.show("MouseArea { anchors.fill: parent; hoverEnabled: true; property int events: 0\n"
                   "objectName: 'below'; onClicked: ++events; onWheel: ++events\n"
                   "PlaceholderControl { anchors.fill: parent; title: 'Пусто' } }");

        stage.clickAt({100, 100});
        stage.wheel({100, 100}, 3);

        QCOMPARE(stage.item("below")->property("events").toInt(), 0);
    }

    void comesAfterAMoment()
    {
        Stage stage;
        auto *placeholder = stage.show("PlaceholderControl { anchors.fill: parent; title: 'Пусто'; visible: false }");

        placeholder->setVisible(true);
        QVERIFY(placeholder->opacity() < 0.1);
        QTRY_COMPARE(placeholder->opacity(), 1.0);
        placeholder->setVisible(false);
        placeholder->setVisible(true);

        QVERIFY(placeholder->opacity() < 0.1);
        QTRY_COMPARE(placeholder->opacity(), 1.0);
    }
};

ONDIRA_TEST(PlaceholderControlTest)
#include "PlaceholderControlTest.moc"
