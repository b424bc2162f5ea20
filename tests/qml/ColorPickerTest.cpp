// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QColor>
#include <QQmlExpression>

class ColorPickerTest : public TestBase
{
    Q_OBJECT

private:
    static constexpr const char *red500 = "#f44336";
    static constexpr const char *pink500 = "#e91e63";
    static constexpr const char *pink50 = "#fce4ec";

    static QObject *show(Stage &stage)
    {
        stage.show("ColorPicker { objectName: \"picker\"; focus: true; property var log: []\n"
                   "onPicked: log = log.concat(String(color)) }");
        return stage.window() ? stage.object("picker") : nullptr;
    }

    static QObject *showDialog(Stage &stage, const QSize &size = {1280, 800})
    {
        stage.show("property string taken\nproperty int calls: 0\n"
                   "QC2.Button { id: caller; objectName: \"caller\"; x: 100; y: 50; focus: true }\n"
                   "ColorPickerDialog { id: dialog; objectName: \"dialog\" }",
                   size);
        return stage.window() ? stage.object("dialog") : nullptr;
    }

    static void pickColor(const Stage &stage, const QString &arguments)
    {
        QQmlExpression call(qmlContext(stage.window()), stage.window(), "dialog.pickColor(" + arguments + ")");
        call.evaluate();
        QVERIFY2(!call.hasError(), qPrintable(call.error().toString()));
        QTRY_VERIFY(stage.object("dialog")->property("opened").toBool());
    }

    static QString color(const QObject *picker) { return picker->property("shadedColor").value<QColor>().name(); }

    static QVariantList log(const QObject *picker)
    {
        return picker->property("log").value<QJSValue>().toVariant().toList();
    }

    static constexpr const char *take = "function(color) { taken = String(color); ++calls }";

private slots:
    void isRedAtFirst()
    {
        Stage stage;
        auto *picker = show(stage);

        QCOMPARE(color(picker), QString(red500));
        QVERIFY(!picker->property("isChoosingShade").toBool());
        QVERIFY(stage.has("color18"));
        QVERIFY(!stage.has("color19"));
    }

    void picksInTwoSteps()
    {
        Stage stage;
        auto *picker = show(stage);

        stage.click("color1");
        QVERIFY(picker->property("isChoosingShade").toBool());
        QCOMPARE(color(picker), QString(pink500));
        QCOMPARE(log(picker), QVariantList());
        QVERIFY(stage.has("color13"));
        QVERIFY(!stage.has("color14"));
        stage.click("color0");

        QCOMPARE(color(picker), QString(pink50));
        QCOMPARE(log(picker), QVariantList({pink50}));
    }

    void everyColourOfThePaletteIsThere()
    {
        Stage stage;
        auto *picker = show(stage);
        QStringList seen;

        for (int i = 0; i < 19; ++i) {
            QMetaObject::invokeMethod(picker, "restart");
            stage.click(QString("color%1").arg(i));
            seen << color(picker);
        }

        seen.removeDuplicates();
        QCOMPARE(seen.size(), 19);
    }

    void everyShadeIsThere()
    {
        Stage stage;
        auto *picker = show(stage);
        stage.click("color0");
        QStringList seen;

        for (int i = 0; i < 14; ++i) {
            stage.click(QString("color%1").arg(i));
            seen << color(picker);
        }

        seen.removeDuplicates();
        QCOMPARE(seen.size(), 14);
        QCOMPARE(log(picker).size(), 14);
    }

    void keysPick()
    {
        Stage stage;
        auto *picker = show(stage);

        stage.key(Qt::Key_Right);
        stage.key(Qt::Key_Return);
        QCOMPARE(color(picker), QString(pink500));
        stage.key(Qt::Key_Up); // from 500, the first of the second row, to 50
        stage.key(Qt::Key_Space);

        QCOMPARE(log(picker), QVariantList({pink50}));
    }

    void backspaceGoesBack()
    {
        Stage stage;
        auto *picker = show(stage);
        stage.click("color1");

        stage.key(Qt::Key_Backspace);

        QVERIFY(!picker->property("isChoosingShade").toBool());
        QCOMPARE(log(picker), QVariantList());
    }

    void theDialogTellsWhatWasPicked()
    {
        Stage stage;
        auto *dialog = showDialog(stage);
        pickColor(stage, QString("caller, 10, 60, ") + take);
        auto *picker = stage.item("colorPicker");
        QCOMPARE(picker->mapToScene({0, 0}), QPointF(110 + 8, 110 + 8));
        stage.click("color1");
        QCOMPARE(stage.window()->property("calls").toInt(), 0);

        stage.click("color0");

        QTRY_VERIFY(!dialog->property("visible").toBool());
        QCOMPARE(stage.window()->property("taken").toString(), QString(pink50));
        QCOMPARE(stage.window()->property("calls").toInt(), 1);
        QTRY_COMPARE(stage.focusName(), QString("caller"));
    }

    void theDialogBeginsAnew()
    {
        Stage stage;
        auto *dialog = showDialog(stage);
        pickColor(stage, QString("caller, 0, 0, ") + take);
        stage.click("color1");
        stage.key(Qt::Key_Escape);
        QTRY_VERIFY(!dialog->property("visible").toBool());
        QCOMPARE(stage.window()->property("calls").toInt(), 0);

        pickColor(stage, "caller, 0, 0, null");

        QVERIFY(!stage.item("colorPicker")->property("isChoosingShade").toBool());
        stage.click("color2");
        stage.click("color2");
        QTRY_VERIFY(!dialog->property("visible").toBool());
        QCOMPARE(stage.window()->property("calls").toInt(), 0);
    }

    void theDialogStaysInTheWindow()
    {
        Stage stage;
        showDialog(stage, {360, 640});

        pickColor(stage, "caller, 5000, 5000, null");

        auto *picker = stage.item("colorPicker");
        QVERIFY(QRectF(0, 0, 360, 640).contains(picker->mapRectToScene(picker->boundingRect())));
    }
};

ONDIRA_TEST(ColorPickerTest)
#include "ColorPickerTest.moc"
