// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "model/StandardBlueprints.h"
#include "qml/Stage.h"
#include "support/TestBase.h"

class ButtonEditScreenTest : public TestBase
{
    Q_OBJECT

private:
    static Model::ActionBlueprint greeting()
    {
        Model::ActionBlueprint blueprint("Приветствие", Records::uid(60));
        Model::NodeInstance node("text", Records::uid(70));
        Model::NodePropertyInstance property(Records::uid(70), "word");
        property.value = QString("hello");
        property.valueLimits = Model::ActionValueLimits::string(0, 20, QString());
        property.exposed = true;
        node.properties = {property};
        blueprint.nodes = {node};
        return blueprint;
    }

    static Model::Button button()
    {
        Model::Button button;
        button.uid = Records::uid(31);
        button.partUid = Records::uid(1);
        button.name = "Свет";
        button.position = {32, 48};
        button.onColor = "#ffff00";
        button.offColor = "#808080";
        button.blueprints.instances.push_back(
            {Records::uid(60), greeting().getExposedProperties(), QSet<QUuid>{Records::uid(11)}});
        return button;
    }

    static QObject *show(Stage &stage, uint n = 31, const QSize &size = {1280, 800})
    {
        stage.publishSite(2);
        stage.link.publishBlueprints({Model::StandardBlueprints::setPower(), greeting()});
        stage.link.publishButtons({button()});
        stage.show("Dialog { objectName: \"dialog\"; width: 480; ButtonEditScreen { uid: \"" + Records::text(n).toUtf8()
                       + "\" } }",
                   size);
        auto *dialog = stage.object("dialog");
        QMetaObject::invokeMethod(dialog, "open");
        stage.settle();
        return dialog;
    }

    static void typeInto(Stage &stage, const char *field, const QString &text)
    {
        stage.item(field)->forceActiveFocus();
        stage.settle();
        stage.click(field);
        stage.key(Qt::Key_A, Qt::ControlModifier);
        stage.type(text);
    }

private slots:
    void showsTheButton()
    {
        Stage stage;
        show(stage);

        QCOMPARE(stage.text("nameField"), QString("Свет"));
        QCOMPARE(stage.item("nameField")->property("label").toString(), QString("Название кнопки"));
        QCOMPARE(stage.item("toggleBox")->property("checked").toBool(), false);
        QCOMPARE(stage.item("onColorField")->property("value").value<QColor>(), QColor("#ffff00"));
        QCOMPARE(stage.item("offColorField")->property("value").value<QColor>(), QColor("#808080"));
        QCOMPARE(stage.text("stringField"), QString("hello"));
        QCOMPARE(stage.text("tableCaption"), QString("Зоны действия"));
    }

    void savesWhatWasChanged()
    {
        Stage stage;
        auto *dialog = show(stage);
        typeInto(stage, "nameField", "Тень");
        stage.click("toggleBox");
        stage.item("onColorField")->forceActiveFocus();
        stage.key(Qt::Key_Space);
        QTRY_VERIFY(stage.has("colorPicker"));
        stage.settle();
        QMetaObject::invokeMethod(stage.item("colorPicker"), "picked", Q_ARG(QColor, QColor("#123456")));
        QTRY_VERIFY(!stage.has("colorPicker"));
        stage.settle();
        stage.click("positiveButton");

        QTRY_VERIFY(!dialog->property("visible").toBool());
        QCOMPARE(stage.link.operations.last(), QString("changeButtons"));
        auto expected = button();
        expected.name = "Тень";
        expected.toggle = true;
        expected.onColor = "#123456";
        QVERIFY(stage.link.buttons.front() == expected);
    }

    void actionsAreCommittedFirst()
    {
        Stage stage;
        show(stage);
        typeInto(stage, "stringField", "good bye");

        QMetaObject::invokeMethod(stage.object("dialog"), "submit"); // the text has the keyboard still

        QCOMPARE(stage.link.operations.count("changeButtons"), 1);
        const auto action = stage.link.buttons.front().blueprints.instances.front();
        QCOMPARE(action.properties.front().value.toString(), QString("good bye"));
        QCOMPARE(action.zones, QSet<QUuid>{Records::uid(11)});
    }

    void aValueInErrorDoesNotHoldTheRestBack()
    {
        Stage stage;
        auto *dialog = show(stage);
        auto strict = greeting();
        strict.nodes.front().properties.front().valueLimits = Model::ActionValueLimits::string(0, 20, "[0-9]+");
        stage.link.publishBlueprints({Model::StandardBlueprints::setPower(), strict});
        QMetaObject::invokeMethod(dialog, "close");
        QTRY_VERIFY(!dialog->property("visible").toBool());
        QMetaObject::invokeMethod(dialog, "open");
        QTRY_VERIFY(stage.has("stringField"));
        stage.settle();
        QVERIFY(stage.item("stringField")->property("hasError").toBool());

        typeInto(stage, "nameField", "Тень");
        stage.click("positiveButton");

        QTRY_VERIFY(!dialog->property("visible").toBool());
        QCOMPARE(stage.link.operations.count("changeButtons"), 1);
        QCOMPARE(stage.link.buttons.front().name, QString("Тень"));
        QVERIFY(stage.link.buttons.front().blueprints == button().blueprints);
    }

    void aPublicationLeavesWhatIsTyped()
    {
        Stage stage;
        show(stage);
        typeInto(stage, "nameField", "Тень");

        auto other = button();
        other.name = "Другая";
        stage.link.publishButtons({other});
        stage.settle();
        stage.click("positiveButton");

        QCOMPARE(stage.link.buttons.front().name, QString("Тень"));
    }

    void aButtonThatGoesMeanwhileIsLeftAlone()
    {
        Stage stage;
        show(stage);

        stage.link.publishButtons({});
        stage.click("positiveButton");

        QVERIFY(!stage.link.operations.contains("changeButtons"));
    }

    void aButtonThatIsNotThereShowsNothing()
    {
        Stage stage;
        show(stage, 99, {360, 640});

        QCOMPARE(stage.text("nameField"), QString());
        stage.click("positiveButton");
        QVERIFY(!stage.link.operations.contains("changeButtons"));
    }
};

ONDIRA_TEST(ButtonEditScreenTest)
#include "ButtonEditScreenTest.moc"
