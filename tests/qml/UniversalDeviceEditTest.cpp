// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QJSValue>

class UniversalDeviceEditTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage)
    {
        stage.show("QC2.ScrollView { anchors.fill: parent\n DevicePropertiesEdit { objectName: \"edit\"; width: 320 }\n"
                   "}");
        return stage.item("edit");
    }

    static QVariantMap parameter(const QString &id, const QVariantMap &definition, const QVariant &value = {})
    {
        QVariantMap map{{"identificator", id}, {"description", "Имя " + id}, {"definition", definition}};
        if (value.isValid())
            map.insert("defaultValue", value);
        return map;
    }

    static QVariantMap integer(const QString &id, const QVariant &value = {})
    {
        return parameter(id, {{"type", "integer"}, {"min", 0}, {"max", 100}}, value);
    }

    static void setDefaults(QQuickItem *edit, const QVariant &list)
    {
        QMetaObject::invokeMethod(edit, "setDefaultParameters", Q_ARG(QVariant, list));
    }

    static QVariantMap data(QQuickItem *edit)
    {
        const auto value = edit->property("deviceData");
        return value.userType() == qMetaTypeId<QJSValue>() ? value.value<QJSValue>().toVariant().toMap()
                                                           : value.toMap();
    }

    static bool hasErrors(QQuickItem *edit) { return edit->property("hasErrors").toBool(); }

    static void typeInto(Stage &stage, const QString &parameter, const QString &text)
    {
        stage.settle(); // fields take their places before a frame
        stage.click(parameter);
        stage.key(Qt::Key_A, Qt::ControlModifier);
        stage.type(text);
    }

private slots:
    void eachParameterHasItsField()
    {
        Stage stage;
        auto *edit = show(stage);

        setDefaults(edit,
                    QVariantList{integer("a", 7), parameter("b", {{"type", "void"}}),
                                 parameter("c", {{"type", "bool"}}, true), parameter("d", {{"type", "?"}}, 1),
                                 parameter("e", {{"type", "list"}, {"listType", "integer"}}, QVariantList{1})});

        QTRY_VERIFY(stage.has("parameter_a"));
        QVERIFY(stage.has("numberField"));
        QVERIFY(!stage.has("parameter_b"));
        QVERIFY(stage.has("boolField"));
        QVERIFY(stage.has("defaultField"));
        QCOMPARE(stage.text("listField"), QString("[1]"));
        QCOMPARE(stage.item("parameter_a")->property("label").toString(), QString("Имя a"));
        QCOMPARE(data(edit).value("a").toInt(), 7);
        QCOMPARE(data(edit).value("c").toBool(), true);
    }

    void defaultsFillOnlyWhatIsMissing()
    {
        Stage stage;
        auto *edit = show(stage);

        QMetaObject::invokeMethod(edit, "setDeviceParameters",
                                  Q_ARG(QVariant, (QVariantList{integer("a", 7), integer("b", 8)})),
                                  Q_ARG(QVariant, (QVariantMap{{"a", 1}, {"other", "x"}})));

        QCOMPARE(data(edit), (QVariantMap{{"a", 1}, {"b", 8}, {"other", "x"}}));
    }

    void otherDefaultsReplaceAll()
    {
        Stage stage;
        auto *edit = show(stage);
        setDefaults(edit, QVariantList{integer("a", 7)});

        setDefaults(edit, QVariantList{integer("b", 8)});

        QCOMPARE(data(edit), (QVariantMap{{"b", 8}}));
        QTRY_VERIFY(!stage.has("parameter_a"));
        QVERIFY(stage.has("parameter_b"));
    }

    void whatIsTypedGoesIntoTheData()
    {
        Stage stage;
        auto *edit = show(stage);
        setDefaults(edit, QVariantList{integer("a", 7), parameter("s", {{"type", "string"}}, "x")});
        QTRY_VERIFY(stage.has("parameter_s"));

        typeInto(stage, "parameter_a", "42");
        typeInto(stage, "parameter_s", "text");
        QMetaObject::invokeMethod(edit, "commit");

        QCOMPARE(data(edit), (QVariantMap{{"a", 42}, {"s", "text"}}));
    }

    void errorsAreCounted()
    {
        Stage stage;
        auto *edit = show(stage);
        setDefaults(edit, QVariantList{integer("a", 7), integer("b", 8)});
        QTRY_VERIFY(stage.has("parameter_b"));
        QVERIFY(!hasErrors(edit));

        typeInto(stage, "parameter_a", "500");
        QVERIFY(hasErrors(edit));
        typeInto(stage, "parameter_a", "5");
        QVERIFY(!hasErrors(edit));

        typeInto(stage, "parameter_a", "500");
        setDefaults(edit, QVariantList{integer("c", 1)});
        QVERIFY(!hasErrors(edit));
    }

    void errorsAreRegisteredOnce()
    {
        Stage stage;
        auto *edit = show(stage);
        auto *form = edit->property("item").value<QObject *>();

        QMetaObject::invokeMethod(form, "registerError", Q_ARG(QVariant, "a"));
        QMetaObject::invokeMethod(form, "registerError", Q_ARG(QVariant, "a"));
        QMetaObject::invokeMethod(form, "removeError", Q_ARG(QVariant, "b"));
        QVERIFY(hasErrors(edit));
        QMetaObject::invokeMethod(form, "removeError", Q_ARG(QVariant, "a"));
        QVERIFY(!hasErrors(edit));
    }

    void aListOfAWrongLengthIsAnError()
    {
        Stage stage;
        auto *edit = show(stage);

        setDefaults(edit, QVariantList{parameter("l", {{"type", "list"}, {"minLength", 2}}, QVariantList{1})});

        QTRY_VERIFY(hasErrors(edit));
    }

    void brokenParametersAreHarmless()
    {
        Stage stage;
        auto *edit = show(stage);

        setDefaults(edit,
                    QVariantList{QVariant(), 5, "text", QVariantMap(), parameter("", {{"type", "integer"}}),
                                 QVariantMap{{"identificator", "x"}}, integer("a")});
        QTRY_VERIFY(stage.has("parameter_a"));
        QVERIFY(!stage.has("parameter_x"));
        QVERIFY(data(edit).isEmpty());
        setDefaults(edit, QVariant());
        QTRY_VERIFY(!stage.has("parameter_a"));
        setDefaults(edit, "no list");
        QVERIFY(!hasErrors(edit));
    }

    void aHundredParametersAreShown()
    {
        Stage stage;
        auto *edit = show(stage);
        QVariantList list;
        for (int i = 0; i < 100; ++i)
            list << integer(QStringLiteral("p%1").arg(i), i);

        setDefaults(edit, list);

        QTRY_VERIFY(stage.has("parameter_p99"));
        QCOMPARE(data(edit).size(), 100);
        QVERIFY(!hasErrors(edit));
    }

    void mayBeReadOnly()
    {
        Stage stage;
        auto *edit = show(stage);
        setDefaults(edit, QVariantList{integer("a", 7)});
        QTRY_VERIFY(stage.has("numberField"));

        edit->setProperty("interactive", false);

        QVERIFY(!stage.item("numberField")->isEnabled());
    }
};

ONDIRA_TEST(UniversalDeviceEditTest)
#include "UniversalDeviceEditTest.moc"
