// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QSignalSpy>

class ActionsVisibilityAdapterTest : public TestBase
{
    Q_OBJECT

private:
    static QObject *show(Stage &stage, const QByteArray &actions)
    {
        stage.show("Item { ActionsVisibilityAdapter { objectName: 'adapter'\n" + actions + "} }");
        return stage.object("adapter");
    }
    static QString visible(QObject *adapter)
    {
        QStringList names;
        const auto actions = adapter->property("visibleActions").toList();
        for (const auto &action : actions)
            names << action.value<QObject *>()->objectName();
        return names.join(' ');
    }

    static constexpr const char *three =
        "FL.Action { objectName: 'a' }\nFL.Action { objectName: 'b'; visible: false }\n"
        "FL.Action { objectName: 'c' }\n";

private slots:
    void listsTheVisibleOnesInTheirOrder()
    {
        Stage stage;

        QCOMPARE(visible(show(stage, three)), QString("a c"));
    }

    void followsEachAction()
    {
        Stage stage;
        auto *adapter = show(stage, three);

        stage.object("b")->setProperty("visible", true);
        QCOMPARE(visible(adapter), QString("a b c"));
        stage.object("a")->setProperty("visible", false);
        stage.object("c")->setProperty("visible", false);
        QCOMPARE(visible(adapter), QString("b"));
        stage.object("b")->setProperty("visible", false);

        QCOMPARE(visible(adapter), QString());
    }

    void announcesOnlyAnotherList()
    {
        Stage stage;
        auto *adapter = show(stage, three);
        QSignalSpy changed(adapter, SIGNAL(visibleActionsChanged()));

        stage.object("a")->setProperty("visible", true); // it was
        stage.object("a")->setProperty("enabled", false);
        QCOMPARE(changed.count(), 0);
        stage.object("a")->setProperty("visible", false);

        QCOMPARE(changed.count(), 1);
    }

    void isEmptyWithoutActions()
    {
        Stage stage;

        QCOMPARE(visible(show(stage, "")), QString());
    }

    void passesOverWhatKnowsNoVisibility()
    {
        Stage stage;

        QCOMPARE(visible(show(stage, "QtObject { objectName: 'x' }\nFL.Action { objectName: 'a' }\n")), QString("a"));
    }

    void feedsABarOfActions()
    {
        Stage stage;
        stage.show("Item { ActionsVisibilityAdapter { id: adapter\n" + QByteArray(three)
                   + "}\nRow { Repeater { model: adapter.visibleActions\n"
                     "FL.ToolAction { action: modelData; text: modelData.objectName } } } }");
        QVERIFY(!stage.has("b"));

        stage.object("b")->setProperty("visible", true);

        QTRY_VERIFY(stage.has("b"));
        QTRY_VERIFY(stage.item("b")->x() > stage.item("a")->x());
        QTRY_VERIFY(stage.item("b")->x() < stage.item("c")->x());
    }
};

ONDIRA_TEST(ActionsVisibilityAdapterTest)
#include "ActionsVisibilityAdapterTest.moc"
