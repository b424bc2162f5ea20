// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QJSValue>

// The editors of single values, each over the base that chooses it.
class TileFieldsTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage, const QByteArray &properties)
    {
        stage.show("Column { width: 400\n property var told: []\n property var limits: null\n"
                   "TileFieldBase { id: field; objectName: \"field\"; width: 320; label: \"Параметр\"\n"
                   "onValueEdited: parent.told = parent.told.concat([value])\n onLimitsEdited: parent.limits = limits\n"
                   + properties + "}\n QC2.Button { objectName: \"other\"; focusPolicy: Qt.StrongFocus } }");
        return stage.item("field");
    }

    static QVariantList told(QQuickItem *field)
    {
        return field->parentItem()->property("told").value<QJSValue>().toVariant().toList();
    }

    static bool hasError(QQuickItem *field) { return field->property("hasError").toBool(); }

    static void typeInto(Stage &stage, const char *name, const QString &text)
    {
        stage.click(name);
        stage.key(Qt::Key_A, Qt::ControlModifier);
        stage.type(text);
    }

    static void choose(Stage &stage, const char *field, int row)
    {
        stage.click(field);
        const auto name = QStringLiteral("menuRow%1").arg(row);
        QTRY_VERIFY(stage.has(name));
        stage.settle();
        stage.click(name);
    }

private slots:
    void theTypeChoosesTheEditor_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("editor");

        QTest::newRow("enum") << "enum"
                              << "enumField";
        QTest::newRow("integer") << "integer"
                                 << "numberField";
        QTest::newRow("double") << "double"
                                << "numberField";
        QTest::newRow("string") << "string"
                                << "stringField";
        QTest::newRow("list") << "list"
                              << "listField";
        QTest::newRow("entity") << "entity"
                                << "entityField";
        QTest::newRow("bool") << "bool"
                              << "boolField";
        QTest::newRow("unknown") << "matrix"
                                 << "defaultField";
    }

    void theTypeChoosesTheEditor()
    {
        QFETCH(QString, type);
        QFETCH(QString, editor);
        Stage stage;

        auto *field = show(stage, "type: \"" + type.toUtf8() + "\"");

        QVERIFY(stage.has(editor));
        QVERIFY(field->height() >= 24);
        QVERIFY(told(field).isEmpty());
        field->setProperty("interactive", false);
        QVERIFY(type == "matrix" || !stage.item(editor)->isEnabled());
    }

    void voidHasNoEditor()
    {
        Stage stage;
        auto *field = show(stage, "type: \"void\"");

        QVERIFY(!field->property("editor").value<QObject *>());
        QCOMPARE(field->height(), 0.0);
        field->setProperty("type", "");
        QVERIFY(!field->property("editor").value<QObject *>());
    }

    void aNumberStaysWithinItsLimits()
    {
        Stage stage;
        auto *field = show(stage, "type: \"integer\"; definition: ({ min: 2, max: 10 }); value: 5");
        QCOMPARE(stage.text("numberField"), QString("5"));

        typeInto(stage, "numberField", "7");
        QCOMPARE(told(field), QVariantList({7}));
        typeInto(stage, "numberField", "11");
        QVERIFY(hasError(field));
        QVERIFY(!told(field).contains(11));
        typeInto(stage, "numberField", "10");
        QVERIFY(!hasError(field));
        QCOMPARE(told(field).last(), QVariant(10));
    }

    void anIntegerHasNoFraction()
    {
        Stage stage;
        auto *field = show(stage, "type: \"integer\"; value: 5");

        QCOMPARE(field->property("editor").value<QObject *>()->property("decimals").toInt(), 0);
        field->setProperty("type", "double");
        auto *editor = field->property("editor").value<QObject *>();
        QCOMPARE(editor->property("decimals").toInt(), 9);
        QCOMPARE(editor->property("minimumValue").toDouble(), -9007199254740991.0);
        QCOMPARE(editor->property("maximumValue").toDouble(), 9007199254740991.0);
    }

    void limitsUpsideDownAreTurned()
    {
        Stage stage;
        auto *field = show(stage, "type: \"integer\"; definition: ({ min: 10, max: 2 }); value: 5");

        QVERIFY(!hasError(field));
        typeInto(stage, "numberField", "1");
        QVERIFY(hasError(field));
    }

    void aValueOfOutsideIsShown()
    {
        Stage stage;
        auto *field = show(stage, "type: \"integer\"; value: 5");
        typeInto(stage, "numberField", "7");
        stage.click("other");

        field->setProperty("value", 9);

        QCOMPARE(stage.text("numberField"), QString("9"));
        field->setProperty("value", QVariant());
        QCOMPARE(stage.text("numberField"), QString());
    }

    void aTextIsToldWhenItIsFinished()
    {
        Stage stage;
        auto *field = show(stage, "type: \"string\"; definition: ({ maxLength: 5 }); value: \"abc\"");
        QCOMPARE(stage.text("stringField"), QString("abc"));

        typeInto(stage, "stringField", "xyz");
        QVERIFY(told(field).isEmpty());
        stage.click("other");
        QCOMPARE(told(field), QVariantList({"xyz"}));

        typeInto(stage, "stringField", "longer");
        QVERIFY(hasError(field));
        typeInto(stage, "stringField", "short");
        QVERIFY(!hasError(field));
        QMetaObject::invokeMethod(field, "commit");
        QCOMPARE(told(field).last().toString(), QString("short"));
    }

    void theLengthOfATextMayBeUnlimited()
    {
        Stage stage;
        auto *field = show(stage, "type: \"string\"; definition: ({ maxLength: 2147483647 })");

        QCOMPARE(field->property("editor").value<QObject *>()->property("characterLimit").toInt(), -1);
    }

    void aTextFollowsItsExpression()
    {
        Stage stage;
        auto *field = show(stage, "type: \"string\"; definition: ({ regex: \"[0-9]+\" }); value: \"12\"");
        QVERIFY(!hasError(field));

        stage.click("stringField");
        stage.key(Qt::Key_A, Qt::ControlModifier);
        stage.key(Qt::Key_Delete);
        QVERIFY(hasError(field));
        stage.click("other");
        QVERIFY(told(field).isEmpty());
        typeInto(stage, "stringField", "a7");
        stage.click("other");
        QCOMPARE(told(field), QVariantList({"7"}));
    }

    void aBrokenExpressionIsNone()
    {
        Stage stage;
        auto *field = show(stage, "type: \"string\"; definition: ({ regex: \"([\" }); value: \"any\"");

        QVERIFY(!hasError(field));
        QCOMPARE(stage.text("stringField"), QString("any"));
    }

    void yesAndNo()
    {
        Stage stage;
        auto *field = show(stage, "type: \"bool\"; value: true");
        QCOMPARE(stage.text("menuFieldText"), QString("Да"));

        choose(stage, "boolField", 0);

        QTRY_COMPARE(told(field), QVariantList({false}));
        QCOMPARE(stage.text("menuFieldText"), QString("Нет"));
    }

    void aChoiceIsAnIndex()
    {
        Stage stage;
        auto *field = show(stage, "type: \"enum\"; definition: ({ items: [\"a\", \"b\", \"c\"] }); value: 1");
        QCOMPARE(stage.text("menuFieldText"), QString("b"));
        QVERIFY(!stage.has("editItemsButton"));

        choose(stage, "enumField", 2);
        QTRY_COMPARE(told(field), QVariantList({2}));

        field->setProperty("value", 7); // beyond the items
        QCOMPARE(stage.text("menuFieldText"), QString());
    }

    void aChoiceWithoutItemsGetsThem()
    {
        Stage stage;
        auto *field = show(stage, "type: \"enum\"; canEditLimits: true");
        stage.click("editItemsButton");
        QTRY_VERIFY(stage.has("element0"));
        QVERIFY(!stage.item("removeElement0")->isEnabled()); // one there must be
        stage.settle();

        typeInto(stage, "stringField", "red");
        stage.click("positiveButton");

        const auto limits = [&] {
            return field->parentItem()->property("limits").value<QJSValue>().toVariant().toMap();
        };
        QTRY_COMPARE(limits().value("items").toList(), QVariantList({"red"}));
        QCOMPARE(limits().value("type").toString(), QString("enum"));
    }

    void aListIsShownAsText()
    {
        Stage stage;
        auto *field = show(stage,
                           "type: \"list\"; definition: ({ listType: \"integer\", minLength: 1, maxLength: 2 });"
                           "value: [1, 2]");
        QCOMPARE(stage.text("listField"), QString("[1,2]"));
        QVERIFY(!hasError(field));

        field->setProperty("value", QVariantList({1, 2, 3}));
        QVERIFY(hasError(field));
        field->setProperty("value", QVariantList());
        QVERIFY(hasError(field));
        field->setProperty("displayValue", "пусто");
        QCOMPARE(stage.text("listField"), QString("пусто"));
    }

    void aListIsEditedInADialog()
    {
        Stage stage;
        auto *field = show(stage,
                           "type: \"list\"; value: [4]\n"
                           "definition: ({ listType: \"integer\", minLength: 2, maxLength: 3 })");
        stage.click("listField");
        QTRY_VERIFY(stage.has("element1")); // padded
        stage.settle();
        QVERIFY(!stage.has("listTypeMenu") || !stage.item("listTypeMenu")->isEnabled());
        QVERIFY(!stage.item("removeElement0")->isEnabled());

        stage.click("addElement");
        QTRY_VERIFY(stage.has("element2"));
        QVERIFY(!stage.item("addElement")->isEnabled());
        stage.settle();
        stage.click("removeElement0");
        QTRY_VERIFY(!stage.has("element2"));
        stage.click("positiveButton");

        QTRY_COMPARE(told(field), QVariantList({QVariant(QVariantList{0, 0})}));
    }

    void aLongListIsCut()
    {
        Stage stage;
        auto *field = show(stage,
                           "type: \"list\"; value: [1, 2, 3, 4]\n"
                           "definition: ({ listType: \"integer\", maxLength: 2 })");
        stage.click("listField");
        QTRY_VERIFY(stage.has("element1"));
        QVERIFY(!stage.has("element2"));
        stage.settle();
        stage.click("positiveButton");

        QTRY_COMPARE(told(field), QVariantList({QVariant(QVariantList{1, 2})}));
    }

    void aListOfAnyTypeGetsOne()
    {
        Stage stage;
        auto *field = show(stage,
                           "type: \"list\"; typedElements: true; value: [1.5]\n"
                           "definition: ({ listType: \"void\" })");
        stage.click("listField");
        QTRY_VERIFY(stage.has("listTypeMenu"));
        stage.settle();
        QCOMPARE(stage.item("listTypeMenu")->isEnabled(), true);

        choose(stage, "listTypeMenu", 3);
        stage.settle();
        stage.click("positiveButton");

        const QVariantMap element{{"type", "string"}, {"value", "1.5"}};
        QTRY_COMPARE(told(field), QVariantList({QVariant(QVariantList{element})}));
    }

    void aListThatNobodyCanFillOpens()
    {
        Stage stage;
        show(stage, "type: \"list\"; definition: ({ listType: \"string\", minLength: 2147483647, maxLength: -5 })");

        stage.click("listField");

        QTRY_VERIFY(stage.has("element0"));
    }

    void anObjectIsChosenByItsUid()
    {
        Stage stage;
        stage.link.publishShopParts({Records::part(1, "Зал")});
        stage.link.publishZones({Records::zone(11, "Склад", 1), Records::zone(12, "Касса", 1)});
        auto *field = show(stage,
                           "type: \"entity\"; definition: ({ entityType: \"zone\", filter: \"\" }); value: \""
                               + Records::text(12).toUtf8() + "\"");
        QCOMPARE(stage.text("menuFieldText"), QString("Касса"));

        choose(stage, "entityField", 1);

        QTRY_COMPARE(told(field), QVariantList({Records::text(11)}));
    }

    void objectsAreFiltered()
    {
        Stage stage;
        stage.link.publishDeviceTypes(
            {Records::type("file:///lamp.qml", "Лампа"), Records::type("file:///meter.qml", "Счётчик")});
        stage.link.publishDevices(
            {Records::device(21, 0, "file:///lamp.qml", 1), Records::device(22, 0, "file:///meter.qml", 2)});
        auto *field = show(stage, "type: \"entity\"; definition: ({ entityType: \"device\", filter: \"LAMP\" })");
        auto *editor = field->property("editor").value<QObject *>();
        QCOMPARE(editor->property("count").toInt(), 1);

        stage.link.publishShopParts({Records::part(1, "Зал"), Records::part(2, "Кафе")});
        field->setProperty("definition", QVariantMap{{"entityType", "part"}, {"filter", "каф"}});
        QCOMPARE(editor->property("count").toInt(), 1);
    }

    void objectsOfAnUnknownKindAreNone()
    {
        Stage stage;
        stage.link.publishShopParts({Records::part(1, "Зал")});
        auto *field = show(stage, "type: \"entity\"; definition: ({ entityType: \"spaceship\" }); value: \"x\"");

        QCOMPARE(field->property("editor").value<QObject *>()->property("count").toInt(), 0);
        QVERIFY(told(field).isEmpty());
    }

    void aValueOfAnUnknownTypeIsRead()
    {
        Stage stage;
        show(stage, "type: \"matrix\"; value: ({ a: 1 })");

        QCOMPARE(stage.text("defaultField"), QString("{\"a\":1}"));
        stage.click("defaultField");
        stage.type("x");
        QCOMPARE(stage.text("defaultField"), QString("{\"a\":1}"));
    }
};

ONDIRA_TEST(TileFieldsTest)
#include "TileFieldsTest.moc"
