// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

class ButtonTileTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage, const QByteArray &more = {})
    {
        return stage.show("ButtonTile { objectName: 'tile'; place: Qt.rect(40, 40, 80, 80); name: 'Свет'\n"
                          "onColor: 'white'; offColor: '#202020'; property var states: []; property int toggles: 0\n"
                          "onStateRequested: asked(state); function asked(state) { states = states.concat([state]) }\n"
                          "onToggled: ++toggles\n"
                          + more + "}");
    }

private slots:
    void aReleaseAsksForTheOtherState()
    {
        Stage stage;
        auto *tile = show(stage);

        stage.click(tile);
        QCOMPARE(tile->property("states").toList(), QVariantList({1}));
        tile->setProperty("active", true);
        stage.click(tile);
        QCOMPARE(tile->property("states").toList(), QVariantList({1, 0}));
        stage.drag({80, 80}, {400, 400}); // let go beside it

        QCOMPARE(tile->property("states").toList(), QVariantList({1, 0}));
        QCOMPARE(tile->property("toggles").toInt(), 0);
    }

    void editedItIsSelectedInstead()
    {
        Stage stage;
        auto *tile = show(stage, "editable: true");

        stage.click(tile);

        QCOMPARE(tile->property("toggles").toInt(), 1);
        QVERIFY(tile->property("states").toList().isEmpty());
    }

    void selectionEndsWithEditMode()
    {
        Stage stage;
        auto *tile = show(stage, "editable: true; selected: true");

        tile->setProperty("editable", false);

        QCOMPARE(tile->property("toggles").toInt(), 1);
    }

    void theFaceFollowsTheState()
    {
        Stage stage;
        auto *tile = show(stage);
        auto *face = stage.item("buttonFace");
        QCOMPARE(face->property("faceColor").value<QColor>(), QColor("#202020"));
        QCOMPARE(stage.item("buttonName")->property("color").value<QColor>().lightness(), 255); // on a dark face

        tile->setProperty("active", true);

        QCOMPARE(face->property("faceColor").value<QColor>(), QColor("white"));
        QVERIFY(stage.item("buttonName")->property("color").value<QColor>().lightness() < 80);
        QCOMPARE(stage.text("buttonName"), QString("Свет"));
    }

    void isPressedByKeys()
    {
        Stage stage;
        auto *tile = show(stage);
        tile->forceActiveFocus();

        stage.key(Qt::Key_Space);
        stage.key(Qt::Key_Return);

        QCOMPARE(tile->property("states").toList(), QVariantList({1, 1}));
    }
};

ONDIRA_TEST(ButtonTileTest)
#include "ButtonTileTest.moc"
