// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "qml/Stage.h"
#include "support/TestBase.h"

class IndicatorEditTest : public TestBase
{
    Q_OBJECT

private:
    static Model::Indicator indicator(int type)
    {
        Model::Indicator indicator;
        indicator.uid = Records::uid(41);
        indicator.partUid = Records::uid(1);
        indicator.indicatorType = type;
        indicator.label = "Вход";
        indicator.icon = "alert/warning";
        indicator.position = {48, 64};
        indicator.width = 160;
        indicator.horizontalAlignment = 2;
        return indicator;
    }

    static QObject *show(Stage &stage, const Model::Indicator &record, const QSize &size = {1280, 800})
    {
        stage.publishSite(1);
        auto sensor = Records::type("file:///sensor.qml", "Датчик", 1);
        sensor.state.push_back({"lux", "Освещённость", {}, Model::ActionValueLimits(), {}});
        sensor.state.push_back({"motion", "Движение", {}, Model::ActionValueLimits(), {}});
        stage.link.publishDeviceTypes({sensor});
        stage.link.publishDevices(
            {Records::device(21, 11, "file:///sensor.qml", 5), Records::device(22, 11, "file:///sensor.qml", 6)});
        stage.link.publishDeviceStates({Records::state(21, {{"lux", 300}, {"motion", true}})});
        stage.link.publishIndicators({record});
        stage.show("Dialog { objectName: \"dialog\"; width: 480; IndicatorEdit { objectName: \"edit\"; uid: \""
                       + Records::text(41).toUtf8() + "\"; partUid: \"" + Records::text(1).toUtf8() + "\" } }",
                   size);
        auto *dialog = stage.object("dialog");
        QMetaObject::invokeMethod(dialog, "open");
        stage.settle();
        return dialog;
    }

    static QString chosen(const Stage &stage, const char *menu)
    {
        return stage.item(menu)->property("selectedText").toString();
    }

    static void choose(Stage &stage, const char *menu, int row)
    {
        stage.item(menu)->forceActiveFocus();
        stage.settle();
        stage.click(menu);
        const auto name = QStringLiteral("menuRow%1").arg(row);
        QTRY_VERIFY(stage.has(name));
        stage.settle();
        stage.click(name);
        QTRY_VERIFY(!stage.has(name));
        stage.settle();
    }

    static Model::Indicator sent(const Stage &stage) { return stage.link.indicators.front(); }

private slots:
    void showsATextIndicator()
    {
        Stage stage;
        show(stage, indicator(0));

        QCOMPARE(chosen(stage, "typeMenu"), QString("Текст"));
        QCOMPARE(stage.text("labelField"), QString("Вход"));
        QCOMPARE(stage.item("alignmentMenu")->property("label").toString(), QString("Горзонтальное выравнивание"));
        QCOMPARE(chosen(stage, "alignmentMenu"), QString("По центру"));
        QCOMPARE(stage.item("alignmentMenu")->property("selectedIcon").toString(),
                 QString("editor/format_align_center"));
        QVERIFY(!stage.has("devicePicker"));
        QVERIFY(!stage.has("propertyMenu"));
        QCOMPARE(chosen(stage, "iconMenu"), QString("warning"));
        QCOMPARE(stage.item("textColorField")->property("value").value<QColor>(), QColor("#000000"));
        QCOMPARE(stage.item("iconColorField")->property("value").value<QColor>(), QColor("#F00000"));
    }

    void savesAllButThePlace()
    {
        Stage stage;
        auto *dialog = show(stage, indicator(0));
        stage.click("labelField");
        stage.key(Qt::Key_A, Qt::ControlModifier);
        stage.type("Выход");
        choose(stage, "alignmentMenu", 3);

        stage.click("positiveButton");

        QTRY_VERIFY(!dialog->property("visible").toBool());
        QCOMPARE(stage.link.operations.last(), QString("changeIndicators"));
        auto expected = indicator(0);
        expected.label = "Выход";
        expected.horizontalAlignment = 3;
        expected.textColor = sent(stage).textColor;
        expected.iconColor = sent(stage).iconColor;
        QVERIFY(sent(stage) == expected);
        QCOMPARE(QColor(expected.textColor), QColor("#000000"));
        QCOMPARE(QColor(expected.iconColor), QColor("#F00000"));
    }

    void withoutADeviceThereIsNoValue()
    {
        Stage stage;
        show(stage, indicator(1));
        QVERIFY(stage.has("devicePicker"));
        QVERIFY(!stage.has("labelField"));

        stage.click("positiveButton");

        QCOMPARE(sent(stage).indicatorType, 1);
        QVERIFY(!sent(stage).displayValue);
    }

    void showsTheLiveValue()
    {
        Stage stage;
        auto record = indicator(1);
        record.displayValue = Model::Indicator::DisplayValue{Records::uid(21), "lux"};
        show(stage, record);

        QCOMPARE(chosen(stage, "devicePicker"), QString("Датчик: 5"));
        QCOMPARE(chosen(stage, "propertyMenu"), QString("Освещённость"));
        const auto helper = [&] { return stage.item("propertyMenu")->property("helperText").toString(); };
        QCOMPARE(helper(), QString("Текущее значение = 300"));
        stage.link.publishDeviceStates({Records::state(21, {{"lux", 310}})});
        QTRY_COMPARE(helper(), QString("Текущее значение = 310"));
    }

    void choosesTheValue()
    {
        Stage stage;
        show(stage, indicator(1));

        choose(stage, "devicePicker", 1);
        choose(stage, "propertyMenu", 1);
        stage.click("positiveButton");

        QVERIFY(sent(stage).displayValue);
        QCOMPARE(sent(stage).displayValue->device, Records::uid(22));
        QCOMPARE(sent(stage).displayValue->property, QString("motion"));
    }

    void anotherDeviceKeepsTheParameter()
    {
        Stage stage;
        auto record = indicator(1);
        record.displayValue = Model::Indicator::DisplayValue{Records::uid(21), "motion"};
        show(stage, record);

        choose(stage, "devicePicker", 1);

        QCOMPARE(chosen(stage, "propertyMenu"), QString("Движение"));
        stage.click("positiveButton");
        QCOMPARE(sent(stage).displayValue->device, Records::uid(22));
        QCOMPARE(sent(stage).displayValue->property, QString("motion"));
    }

    void iconsAreSearchedByGroupAndName()
    {
        Stage stage;
        show(stage, indicator(0));
        auto *edit = stage.object("edit");
        const auto rows = edit->property("iconsListModel").value<QJSValue>();
        QVERIFY(rows.property("length").toInt() > 900);
        QCOMPARE(rows.property(0).property("text").toString(), QString("Нет иконки"));
        QCOMPARE(rows.property(0).property("icon").toString(), QString());

        stage.item("iconMenu")->forceActiveFocus();
        stage.key(Qt::Key_Return);
        QTRY_VERIFY(stage.has("menuSearchField"));
        stage.settle();
        stage.type("ALERT/err");
        QTRY_VERIFY(!stage.has("menuRow3"));
        stage.settle();
        stage.click("menuRow0");
        QTRY_COMPARE(chosen(stage, "iconMenu"), QString("error"));
        QTRY_COMPARE(stage.item("iconPreview")->property("name").toString(), QString("alert/error"));
        stage.settle();
        stage.click("positiveButton");

        QCOMPARE(sent(stage).icon, QString("alert/error"));
    }

    void noIcon()
    {
        Stage stage;
        auto record = indicator(0);
        record.icon.clear();
        show(stage, record);

        QCOMPARE(chosen(stage, "iconMenu"), QString("Нет иконки"));
        stage.click("positiveButton");
        QCOMPARE(sent(stage).icon, QString());
    }

    void anIconThatTheProgramLacksStays()
    {
        Stage stage;
        auto record = indicator(0);
        record.icon = "space/rocket";
        show(stage, record);

        stage.click("positiveButton");

        QCOMPARE(sent(stage).icon, QString("space/rocket"));
    }

    void aColorIsPicked()
    {
        Stage stage;
        show(stage, indicator(0));
        stage.item("textColorField")->forceActiveFocus();
        stage.key(Qt::Key_Return);
        QTRY_VERIFY(stage.has("colorPicker"));
        stage.settle();

        QMetaObject::invokeMethod(stage.item("colorPicker"), "picked", Q_ARG(QColor, QColor("#123456")));
        stage.settle();
        QTRY_VERIFY(!stage.has("colorPicker"));
        stage.click("positiveButton");

        QCOMPARE(QColor(sent(stage).textColor), QColor("#123456"));
        QCOMPARE(QColor(sent(stage).iconColor), QColor("#F00000"));
    }

    void anIndicatorThatGoesMeanwhileIsLeftAlone()
    {
        Stage stage;
        show(stage, indicator(0));

        stage.link.publishIndicators({});
        stage.click("positiveButton");

        QVERIFY(!stage.link.operations.contains("changeIndicators"));
    }

    void brokenRecordsAreShown()
    {
        Stage stage;
        auto record = indicator(7);
        record.horizontalAlignment = 99;
        record.textColor = "no colour";
        show(stage, record, {360, 640});

        QCOMPARE(chosen(stage, "typeMenu"), QString("Текст"));
        QCOMPARE(chosen(stage, "alignmentMenu"), QString("По левому краю"));
    }
};

ONDIRA_TEST(IndicatorEditTest)
#include "IndicatorEditTest.moc"
