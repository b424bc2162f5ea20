// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "model/StandardBlueprints.h"
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QJSValue>

class ActionInstanceEditorTest : public TestBase
{
    Q_OBJECT

private:
    static Model::NodePropertyInstance exposed(const QString &name, const Model::ActionDatatype &value,
                                               const Model::ActionValueLimits &limits)
    {
        Model::NodePropertyInstance property(Records::uid(70), name);
        property.userDescription = "Имя " + name;
        property.value = value;
        property.valueLimits = limits;
        property.exposed = true;
        return property;
    }

    // A blueprint of its own with two parameters.
    static Model::ActionBlueprint greeting()
    {
        Model::ActionBlueprint blueprint("Приветствие", Records::uid(60));
        Model::NodeInstance node("text", Records::uid(70));
        node.properties = {exposed("word", QString("hello"), Model::ActionValueLimits::string(0, 20, QString())),
                           exposed("rooms", Model::ActionDatatype::List{},
                                   Model::ActionValueLimits::list(Model::ActionValueLimits::real(0, 1), 0, 3))};
        blueprint.nodes = {node};
        return blueprint;
    }

    static QVariantList actions()
    {
        Model::ActionSequence sequence;
        sequence.instances.push_back(
            {Records::uid(60), greeting().getExposedProperties(), QSet<QUuid>{Records::uid(11)}});
        return sequence.toVariant().toList();
    }

    static QQuickItem *show(Stage &stage, const QVariantList &actions, const QByteArray &properties = {})
    {
        stage.publishSite(3);
        stage.link.publishBlueprints({Model::StandardBlueprints::setPower(), greeting()});
        stage.show("QC2.ScrollView { anchors.fill: parent\n contentWidth: 400\n"
                   "ActionInstanceEditor { objectName: \"editor\"; width: 400\n"
                   + properties + "} }");
        auto *editor = stage.item("editor");
        editor->setProperty("actions", actions);
        stage.settle();
        return editor;
    }

    static Model::ActionSequence edited(QQuickItem *editor)
    {
        return Model::ActionSequence::fromVariant(editor->property("editedActions"));
    }

    static void typeInto(Stage &stage, const char *field, const QString &text)
    {
        stage.click(field);
        stage.key(Qt::Key_A, Qt::ControlModifier);
        stage.type(text);
    }

private slots:
    void withoutActionsItSaysSo()
    {
        Stage stage;
        show(stage, {});

        QCOMPARE(stage.text("noActions"), QString("Нет действий"));
        QCOMPARE(stage.text("addAction"), QString("Добавить"));
        QVERIFY(!stage.has("actionCard0"));
    }

    void addsAndRemoves()
    {
        Stage stage;
        auto *editor = show(stage, {});

        stage.click("addAction");
        QTRY_VERIFY(stage.has("actionCard0"));
        stage.settle();
        QVERIFY(!stage.has("noActions"));
        QCOMPARE(edited(editor).instances.size(), std::size_t(1));
        QCOMPARE(edited(editor).instances.front().blueprint, Model::StandardBlueprints::setPowerUid());
        QVERIFY(stage.has("numberField"));

        stage.click("removeAction0");
        QTRY_VERIFY(stage.has("noActions"));
        QVERIFY(edited(editor).instances.empty());
    }

    void showsEachParameter()
    {
        Stage stage;
        show(stage, actions());

        QCOMPARE(stage.item("actionPicker0")->property("selectedText").toString(), QString("Приветствие"));
        QCOMPARE(stage.item("action0Parameter0")->property("label").toString(), QString("Имя word"));
        QCOMPARE(stage.text("stringField"), QString("hello"));
        QCOMPARE(stage.text("listField"), QString("[]"));
    }

    void aValueGoesIntoTheSequence()
    {
        Stage stage;
        auto *editor = show(stage, actions());
        typeInto(stage, "stringField", "good bye");
        const auto word = [&] { return edited(editor).instances.front().properties.front().value.toString(); };
        QCOMPARE(word(), QString("hello")); // not finished yet

        QMetaObject::invokeMethod(editor, "commit");

        QCOMPARE(word(), QString("good bye"));
    }

    void aListKeepsTheTypeOfItsElements()
    {
        Stage stage;
        auto *editor = show(stage, actions());
        stage.click("listField");
        QTRY_VERIFY(stage.has("addElement"));
        stage.settle();
        stage.click("addElement");
        QTRY_VERIFY(stage.has("element0"));
        stage.settle();
        typeInto(stage, "element0", "1");
        stage.click("positiveButton");

        const auto rooms = edited(editor).instances.front().properties.back().value.toList();
        QCOMPARE(rooms.size(), std::size_t(1));
        QCOMPARE(rooms.front(), Model::ActionDatatype(1.0));
        QTRY_COMPARE(stage.text("listField"), QString("[1]"));
    }

    void anotherBlueprintHasOtherParameters()
    {
        Stage stage;
        auto *editor = show(stage, actions());
        stage.item("actionPicker0")->forceActiveFocus();

        stage.key(Qt::Key_Home);

        QTRY_COMPARE(edited(editor).instances.front().blueprint, Model::StandardBlueprints::setPowerUid());
        QTRY_VERIFY(stage.has("numberField"));
        QVERIFY(!stage.has("stringField"));
        QCOMPARE(edited(editor).instances.front().zones, QSet<QUuid>{Records::uid(11)});
    }

    void zonesAreChosenForEachAction()
    {
        Stage stage;
        auto *editor = show(stage, actions(), "showZoneSelector: true");
        QCOMPARE(stage.text("tableCaption"), QString("Зоны действия"));

        stage.click("zoneRow_" + Records::text(12));

        QCOMPARE(edited(editor).instances.front().zones, (QSet<QUuid>{Records::uid(11), Records::uid(12)}));
        QTRY_COMPARE(stage.text("checkAll"), QString("Выбрано: 2"));
    }

    void zonesAreNotShownUnlessAskedFor()
    {
        Stage stage;
        show(stage, actions());

        QVERIFY(!stage.has("tableCaption"));
    }

    void theBackgroundTellsTheDepth()
    {
        Stage stage;
        auto *editor = show(stage, actions());
        const auto color = [&](int nested) {
            editor->setProperty("nested", nested);
            return editor->property("cardColor").value<QColor>();
        };

        QCOMPARE(color(0), QColor("#F5F5F5"));
        QCOMPARE(color(1), QColor("#FFF9C4"));
        QCOMPARE(color(2), QColor("#C8E6C9"));
        QCOMPARE(color(3), QColor("#BBDEFB"));
        QCOMPARE(color(4), QColor("#FFE0B2"));
        QCOMPARE(color(5), QColor("#FFCDD2"));
        QCOMPARE(color(6), QColor("#F5F5F5"));
        QCOMPARE(color(12), QColor("white"));
        QCOMPARE(color(100), QColor("white"));
    }

    void anUnknownBlueprintIsKept()
    {
        Stage stage;
        Model::ActionSequence sequence;
        sequence.instances.push_back({Records::uid(99), {}, {}});

        auto *editor = show(stage, sequence.toVariant().toList());

        QCOMPARE(stage.item("actionPicker0")->property("selectedText").toString(), QString());
        QVERIFY(!stage.has("action0Parameter0"));
        QMetaObject::invokeMethod(editor, "commit");
        QCOMPARE(edited(editor).instances.front().blueprint, Records::uid(99));
    }

    void blueprintsMayComeLater()
    {
        Stage stage;
        stage.show("ActionInstanceEditor { objectName: \"editor\"; width: 400 }");
        stage.item("editor")->setProperty("actions", actions());
        QVERIFY(!stage.has("stringField"));

        stage.link.publishBlueprints({greeting()});

        QTRY_VERIFY(stage.has("stringField"));
    }

    void whatIsNoSequenceIsEmpty()
    {
        Stage stage;
        auto *editor = show(stage, actions());

        editor->setProperty("actions", QVariant());
        QTRY_VERIFY(stage.has("noActions"));
        editor->setProperty("actions", "text");
        QVERIFY(stage.has("noActions"));
    }

    void errorsAreCounted()
    {
        Stage stage;
        auto *editor = show(stage, {});
        stage.click("addAction");
        QTRY_VERIFY(stage.has("numberField"));
        stage.settle();
        QVERIFY(!editor->property("hasErrors").toBool());

        typeInto(stage, "numberField", "900");
        QVERIFY(editor->property("hasErrors").toBool());
        stage.click("removeAction0");
        QTRY_VERIFY(!editor->property("hasErrors").toBool());
    }
};

ONDIRA_TEST(ActionInstanceEditorTest)
#include "ActionInstanceEditorTest.moc"
