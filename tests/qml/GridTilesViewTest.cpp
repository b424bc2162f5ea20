// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "qml/Stage.h"
#include "support/TestBase.h"

using namespace Records;

// A layer of tiles over the zones of the fake link, as the plan has it.
class GridTilesViewTest : public TestBase
{
    Q_OBJECT

private:
    // Part 1 on show: its zones as squares of 50, in the order of the model.
    static QQuickItem *show(Stage &stage)
    {
        auto *view =
            stage.show("GridTilesView { objectName: 'view'; width: 1000; height: 700; model: zonesListModel\n"
                       "uidRole: 'partUid'; allowedUids: ['"
                       + text(1).toUtf8()
                       + "']\n property var announced: []\n property int times: 0\n"
                         "onSelectedChanged: { announced = getSelected(); ++times }\n"
                         "delegate: Rectangle { property string uid: model.uid; property string name: model.name\n"
                         "objectName: 'square'; x: index * 60; width: 50; height: 50\n"
                         "property bool selected: DelegateModel.inSelected\n"
                         "MouseArea { anchors.fill: parent; onClicked: parent.DelegateModel.inSelected = "
                         "!parent.DelegateModel.inSelected } } }");
        Stage::waitFor([&] { return view->property("loaded").toBool(); });
        return view;
    }

    static QStringList selected(QQuickItem *view)
    {
        QVariant result;
        QMetaObject::invokeMethod(view, "getSelected", Q_RETURN_ARG(QVariant, result));
        auto uids = result.toStringList();
        uids.sort();
        return uids;
    }

    static int selectedCount(QQuickItem *view)
    {
        QVariant result;
        QMetaObject::invokeMethod(view, "selectedCount", Q_RETURN_ARG(QVariant, result));
        return result.toInt();
    }

    static QStringList texts(std::initializer_list<uint> numbers)
    {
        QStringList uids;
        for (const uint n : numbers)
            uids << text(n);
        uids.sort();
        return uids;
    }

    static int squares(const Stage &stage)
    {
        return static_cast<int>(
            stage.items([](QQuickItem *item) { return item->objectName() == QLatin1String("square"); }).size());
    }

private slots:
    void showsTheTilesOfItsParts()
    {
        Stage stage;
        auto *view = show(stage);

        stage.link.publishZones({zone(11, "a", 1), zone(12, "b", 2), zone(13, "c", 1)});

        QTRY_COMPARE(squares(stage), 2);
        QCOMPARE(view->property("count").toInt(), 2);
        QVERIFY(stage.tile(11));
        QVERIFY(!stage.tile(12));
        view->setProperty("allowedUids", QStringList{text(2)});
        QTRY_VERIFY(stage.tile(12));
        QTRY_COMPARE(squares(stage), 1);
        view->setProperty("allowedUids", QStringList{text(99)});
        QTRY_COMPARE(squares(stage), 0);
    }

    void clicksAccumulate()
    {
        Stage stage;
        auto *view = show(stage);
        stage.link.publishZones({zone(11, {}, 1), zone(12, {}, 1), zone(13, {}, 1)});
        QTRY_VERIFY(stage.tile(13));

        stage.click(stage.tile(11));
        stage.click(stage.tile(13));
        QCOMPARE(selected(view), texts({11, 13}));
        QCOMPARE(selectedCount(view), 2);
        stage.click(stage.tile(11));

        QCOMPARE(selected(view), texts({13}));
        QCOMPARE(view->property("announced").toStringList(), texts({13}));
        QCOMPARE(view->property("times").toInt(), 3);
    }

    void selectionSurvivesAPublication()
    {
        Stage stage;
        auto *view = show(stage);
        stage.link.publishZones({zone(11, "a", 1), zone(12, "b", 1), zone(13, "c", 1)});
        QTRY_VERIFY(stage.tile(13));
        stage.click(stage.tile(12));
        auto *tile = stage.tile(12);

        stage.link.publishZones({zone(11, "a", 1), zone(12, "renamed", 1), zone(13, "c", 1), zone(14, "d", 1)});

        QTRY_VERIFY(stage.tile(14));
        QCOMPARE(stage.tile(12), tile); // the very same tile
        QCOMPARE(tile->property("name").toString(), QString("renamed"));
        QVERIFY(tile->property("selected").toBool());
        QCOMPARE(selected(view), texts({12}));
    }

    void selectionSurvivesARemovedRow()
    {
        Stage stage;
        auto *view = show(stage);
        stage.link.publishZones({zone(11, {}, 1), zone(12, {}, 1), zone(13, {}, 1)});
        QTRY_VERIFY(stage.tile(13));
        stage.click(stage.tile(13));

        stage.link.publishZones({zone(12, {}, 1), zone(13, {}, 1)});

        QTRY_VERIFY(!stage.tile(11));
        QVERIFY(stage.tile(13)->property("selected").toBool());
        QVERIFY(!stage.tile(12)->property("selected").toBool());
        QCOMPARE(selected(view), texts({13}));
    }

    void aSelectedRowThatGoesLeavesTheSelection()
    {
        Stage stage;
        auto *view = show(stage);
        stage.link.publishZones({zone(11, {}, 1), zone(12, {}, 1), zone(13, {}, 1)});
        QTRY_VERIFY(stage.tile(13));
        for (const uint n : {11, 12, 13})
            stage.click(stage.tile(n));

        stage.link.publishZones({zone(11, {}, 1), zone(13, {}, 1)});
        QTRY_COMPARE(view->property("announced").toStringList().size(), 2);
        QCOMPARE(selected(view), texts({11, 13}));
        stage.link.publishZones({});

        QTRY_VERIFY(view->property("announced").toStringList().isEmpty());
        QCOMPARE(selectedCount(view), 0);
        stage.link.publishZones({zone(11, {}, 1)});
        QTRY_VERIFY(stage.tile(11));
        QVERIFY(!stage.tile(11)->property("selected").toBool());
    }

    void aSelectedTileThatMovesToAnotherPartLeavesTheSelection()
    {
        Stage stage;
        auto *view = show(stage);
        stage.link.publishZones({zone(11, {}, 1), zone(12, {}, 1)});
        QTRY_VERIFY(stage.tile(12));
        stage.click(stage.tile(12));

        stage.link.publishZones({zone(11, {}, 1), zone(12, {}, 2)});

        QTRY_VERIFY(!stage.tile(12));
        QTRY_VERIFY(view->property("announced").toStringList().isEmpty());
        QCOMPARE(selected(view), QStringList());
    }

    void selectionSurvivesAnotherOrder()
    {
        Stage stage;
        auto *view = show(stage);
        stage.link.publishZones({zone(11, "a", 1), zone(12, "b", 1), zone(13, "c", 1)});
        QTRY_VERIFY(stage.tile(13));
        stage.click(stage.tile(11));
        auto *filtered = view->property("filteredModel").value<QObject *>();
        QVERIFY(filtered);

        filtered->setProperty("sortRoleName", "name");
        filtered->setProperty("ascendingSortOrder", false);

        QTRY_COMPARE(stage.tile(11)->x(), 120.0);
        QTRY_VERIFY(stage.tile(11)->property("selected").toBool());
        QCOMPARE(selected(view), texts({11}));
        stage.link.publishZones({zone(11, "z", 1), zone(12, "b", 1), zone(13, "c", 1)});
        QTRY_COMPARE(stage.tile(11)->x(), 0.0);
        QTRY_VERIFY(stage.tile(11)->property("selected").toBool());
        QCOMPARE(view->property("announced").toStringList(), texts({11}));
    }

    void allMayBeSelectedAndDeselected()
    {
        Stage stage;
        auto *view = show(stage);
        QMetaObject::invokeMethod(view, "selectAll");
        QMetaObject::invokeMethod(view, "deselectAll");
        QCOMPARE(view->property("times").toInt(), 0);
        std::vector<Model::Zone> list;
        for (uint n = 0; n < 300; ++n)
            list.push_back(zone(1000 + n, {}, 1));
        stage.link.publishZones(list);
        QTRY_COMPARE(squares(stage), 300);

        QMetaObject::invokeMethod(view, "selectAll");
        QCOMPARE(selectedCount(view), 300);
        QCOMPARE(view->property("times").toInt(), 1);
        QMetaObject::invokeMethod(view, "selectAll");
        QCOMPARE(selectedCount(view), 300);
        QMetaObject::invokeMethod(view, "deselectAll");

        QCOMPARE(selectedCount(view), 0);
        QVERIFY(!stage.tile(1000)->property("selected").toBool());
    }

    void rowsOfOneUidAreShownOnce()
    {
        Stage stage;
        auto *view = show(stage);

        stage.link.publishZones({zone(11, "a", 1), zone(12, "b", 1), zone(11, "again", 1)});

        QTRY_VERIFY(stage.tile(12));
        const int rows = stage.zones.rowCount();
        QTRY_COMPARE(squares(stage), rows);
        stage.click(stage.tile(12));
        QCOMPARE(selected(view), texts({12}));
        stage.link.publishZones({zone(12, "b", 1)});
        QTRY_COMPARE(squares(stage), 1);
        QCOMPARE(selected(view), texts({12}));
    }
};

ONDIRA_TEST(GridTilesViewTest)
#include "GridTilesViewTest.moc"
