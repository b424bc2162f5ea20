// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/AbstractQmlController.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>

namespace {

// Two tiles that a repeater makes, one in a named frame, one that is no item, and others that are no tiles.
const char *const scene = R"(
    import QtQuick 2.15
    Item {
        property alias plain: plainTile
        property alias framed: framedTile
        property alias named: namedTile
        property int selectedCount: 0
        Repeater {
            model: 2
            Item {
                objectName: "tileControl"
                property bool selected: false
                onSelectedChanged: parent.selectedCount += selected ? 1 : -1
            }
        }
        Item {
            objectName: "frame"
            Item {
                id: framedTile
                objectName: "tileControl"
                property bool selected: false
                Item { id: plainTile; objectName: "tileControl" }
            }
        }
        Item { id: namedTile; objectName: "TileControl"; property bool selected: false }
        QtObject { objectName: "tileControl"; property bool selected: false }
    }
)";

} // namespace

class AbstractQmlControllerTest : public TestBase
{
    Q_OBJECT

private slots:
    void init()
    {
        TestBase::init();
        QQmlComponent component(&m_engine);
        component.setData(scene, QUrl());
        m_root.reset(component.create());
        QVERIFY2(m_root, qPrintable(component.errorString()));
    }

    void findsTilesOfTheVisualTree()
    {
        const auto controls = m_controller.getControls(m_root.get());

        QCOMPARE(controls.size(), 4);
        QVERIFY(controls.contains(item("framed")));
        QVERIFY(controls.contains(item("plain")));
        QVERIFY(!controls.contains(item("named")));
        QCOMPARE(m_controller.getControls(nullptr), QList<QObject *>());
        QCOMPARE(m_controller.getControls(&m_engine), QList<QObject *>());
    }

    void selectsAndDeselectsAllTiles()
    {
        m_controller.selectAllControls(m_root.get());
        QVERIFY(item("framed")->property("selected").toBool());
        QVERIFY(!item("named")->property("selected").toBool());
        QCOMPARE(m_root->property("selectedCount").toInt(), 2);
        QCOMPARE(m_controller.getSelectedControlsCount(m_root.get()), 3);

        m_controller.deselectAllControls(m_root.get());
        QVERIFY(!item("framed")->property("selected").toBool());
        QCOMPARE(m_controller.getSelectedControlsCount(m_root.get()), 0);
    }

    void selectsTilesThatAreNoItems()
    {
        QObject root;
        auto *const child = new QQuickItem;
        child->setParent(&root);
        auto *const tile = new QObject(child);
        tile->setObjectName("tileControl");

        m_controller.selectAllControls(&root);

        QVERIFY(!tile->property("selected").isValid()); // it has no such property, and gets none
    }

    void selectsTilesOfOneParent()
    {
        m_controller.selectAllControls(m_root.get(), "frame");

        QVERIFY(item("framed")->property("selected").toBool());
        QCOMPARE(m_controller.getSelectedControlsCount(m_root.get()), 1);
        m_controller.selectAllControls(m_root.get(), "nobody");
        QCOMPARE(m_controller.getSelectedControlsCount(m_root.get()), 1);
    }

    void nothingHasNoTiles()
    {
        m_controller.selectAllControls(nullptr);
        m_controller.selectAllControls(nullptr, "frame");
        m_controller.deselectAllControls(nullptr);

        QCOMPARE(m_controller.getSelectedControlsCount(nullptr), 0);
    }

    void theRootItselfIsNoDescendant()
    {
        m_controller.selectAllControls(item("framed"));

        QVERIFY(!item("framed")->property("selected").toBool());
    }

private:
    QObject *item(const char *name) const { return m_root->property(name).value<QObject *>(); }

    QQmlEngine m_engine;
    FakeCommunicator m_link;
    AbstractQmlController m_controller{m_link};
    std::unique_ptr<QObject> m_root;
};

ONDIRA_TEST(AbstractQmlControllerTest)
#include "AbstractQmlControllerTest.moc"
