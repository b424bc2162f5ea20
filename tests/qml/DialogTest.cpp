// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QSignalSpy>

class DialogTest : public TestBase
{
    Q_OBJECT

private:
    // A window with one field, that dialog, and what it told.
    static QObject *show(Stage &stage, const QByteArray &body, const QSize &size = {1280, 800})
    {
        stage.show("property var log: []\nQC2.TextField { objectName: \"outside\"; focus: true }\n"
                   "Dialog { id: dialog; objectName: \"dialog\"\n"
                       + body + "}",
                   size);
        return stage.window() ? stage.object("dialog") : nullptr;
    }

    static void open(QObject *dialog)
    {
        QMetaObject::invokeMethod(dialog, "open");
        QTRY_VERIFY(dialog->property("opened").toBool());
    }

    static void close(QObject *dialog)
    {
        QMetaObject::invokeMethod(dialog, "close");
        QTRY_VERIFY(isClosed(dialog));
    }

    static bool isClosed(QObject *dialog) { return !dialog->property("visible").toBool(); }

    static QVariantList log(const Stage &stage)
    {
        return stage.window()->property("log").value<QJSValue>().toVariant().toList();
    }

    static QRectF place(const Stage &stage)
    {
        const auto *dialog = stage.object("dialog");
        return {dialog->property("x").toReal(), dialog->property("y").toReal(), dialog->property("width").toReal(),
                dialog->property("height").toReal()};
    }

    static constexpr const char *form = R"(
        Column {
            objectName: "content"
            property alias text: first.text
            property bool refuse: false
            function aboutToShow() { log = log.concat("aboutToShow") }
            function accept() { log = log.concat("accept " + first.text); return !refuse }
            QC2.Label { text: "Label" }
            QC2.TextField { id: first; objectName: "first" }
            QC2.TextField { objectName: "second" }
            QC2.TextArea { objectName: "area" }
        })";

private slots:
    void contentIsThereWhileItIsOpen()
    {
        Stage stage;
        auto *dialog = show(stage, form);
        QVERIFY(dialog);
        QVERIFY(!stage.object("content"));
        QVERIFY(!dialog->property("item").value<QObject *>());

        open(dialog);
        QVERIFY(stage.has("content"));
        QCOMPARE(dialog->property("item").value<QObject *>()->objectName(), QString("content"));

        close(dialog);
        QTRY_VERIFY(!dialog->property("item").value<QObject *>());
    }

    void opensFresh()
    {
        Stage stage;
        auto *dialog = show(stage, form);
        open(dialog);
        stage.type("typed");
        QCOMPARE(stage.text("first"), QString("typed"));
        close(dialog);

        open(dialog);

        QCOMPARE(stage.text("first"), QString());
    }

    void keepsWhatWasTypedWithoutUnloading()
    {
        Stage stage;
        auto *dialog = show(stage, QByteArray("unloadOnClose: false\n") + form);
        QVERIFY(!stage.object("content"));
        open(dialog);
        stage.type("typed");
        close(dialog);
        QVERIFY(dialog->property("item").value<QObject *>());

        open(dialog);

        QCOMPARE(stage.text("first"), QString("typed"));
        QCOMPARE(log(stage), QVariantList({"aboutToShow", "aboutToShow"}));
    }

    void tellsTheContentFirst()
    {
        Stage stage;
        auto *dialog = show(stage,
                            QByteArray("aboutToShowCallback: function(item) {"
                                       "log = log.concat(\"shown \" + item.objectName) }\n"
                                       "acceptCallback: function(item) {"
                                       "log = log.concat(\"taken \" + item.text) }\n"
                                       "onAccepted: log = log.concat(\"accepted\")\n"
                                       "onRejected: log = log.concat(\"rejected\")\n")
                                + form);
        open(dialog);
        stage.type("x");

        stage.click("positiveButton");

        QTRY_VERIFY(isClosed(dialog));
        QCOMPARE(log(stage), QVariantList({"aboutToShow", "shown content", "accept x", "taken x", "accepted"}));
    }

    void acceptingByCodeTellsTheContentToo()
    {
        Stage stage;
        auto *dialog = show(stage, form);
        open(dialog);

        QMetaObject::invokeMethod(dialog, "accept");

        QCOMPARE(log(stage), QVariantList({"aboutToShow", "accept "}));
    }

    void staysOpenWhereTheContentRefuses()
    {
        Stage stage;
        auto *dialog = show(stage,
                            QByteArray("acceptCallback: function() { log = log.concat(\"taken\") }\n"
                                       "aboutToShowCallback: function(item) { item.refuse = true }\n")
                                + form);
        open(dialog);

        stage.click("positiveButton");
        stage.settle();

        QVERIFY(dialog->property("opened").toBool());
        QCOMPARE(log(stage), QVariantList({"aboutToShow", "accept "}));
        stage.click("positiveButton");
        QCOMPARE(log(stage).size(), 3);
    }

    void contentNeedsNoFunctions()
    {
        Stage stage;
        auto *dialog = show(stage,
                            "onAccepted: log = log.concat(\"accepted\")\n"
                            "Item { implicitHeight: 40; property int accept: 1; property var aboutToShow: null }");
        open(dialog);

        stage.click("positiveButton");

        QTRY_VERIFY(isClosed(dialog));
        QCOMPARE(log(stage), QVariantList({"accepted"}));
    }

    void contentMayBeMissing()
    {
        Stage stage;
        auto *dialog = show(stage, "title: \"Question?\"");
        open(dialog);
        QCOMPARE(stage.text("dialogTitle"), QString("Question?"));
        QCOMPARE(stage.focusName(), QString("positiveButton"));

        stage.key(Qt::Key_Return);

        QTRY_VERIFY(isClosed(dialog));
    }

    void buttonsHaveTheirTexts()
    {
        Stage stage;
        auto *dialog = show(stage, form);
        open(dialog);
        QCOMPARE(stage.text("positiveButton"), QString("Ок"));
        QCOMPARE(stage.text("negativeButton"), QString("Отмена"));

        dialog->setProperty("positiveButtonText", "Да");
        dialog->setProperty("negativeButtonText", "");
        QCOMPARE(stage.text("positiveButton"), QString("Да"));
        QVERIFY(!stage.has("negativeButton"));

        dialog->setProperty("positiveButtonText", "");
        QVERIFY(!stage.has("positiveButton"));
        stage.key(Qt::Key_Return); // no button, nothing to accept with
        QCOMPARE(log(stage), QVariantList({"aboutToShow"}));
    }

    void theNegativeButtonRejects()
    {
        Stage stage;
        auto *dialog = show(stage, QByteArray("onRejected: log = log.concat(\"rejected\")\n") + form);
        open(dialog);

        stage.click("negativeButton");

        QTRY_VERIFY(isClosed(dialog));
        QCOMPARE(log(stage), QVariantList({"aboutToShow", "rejected"}));
    }

    void escapeRejects()
    {
        Stage stage;
        auto *dialog = show(stage, QByteArray("onRejected: log = log.concat(\"rejected\")\n") + form);
        open(dialog);

        stage.key(Qt::Key_Escape);

        QTRY_VERIFY(isClosed(dialog));
        QCOMPARE(log(stage), QVariantList({"aboutToShow", "rejected"}));
    }

    void aClickBesideChangesNothing()
    {
        Stage stage;
        auto *dialog = show(stage, form);
        open(dialog);
        stage.type("typed");

        stage.clickAt({5, 5});
        stage.settle();

        QVERIFY(dialog->property("opened").toBool());
        QCOMPARE(stage.text("first"), QString("typed"));
        QCOMPARE(stage.focusName(), QString("first"));
    }

    void returnInAFieldAcceptsOnce()
    {
        Stage stage;
        auto *dialog = show(stage, R"(
            aboutToShowCallback: function(item) { item.refuse = true }
            QC2.TextField {
                property bool refuse
                objectName: "first"
                onAccepted: dialog.submit()
                function accept() { log = log.concat(text); return !refuse }
            })");
        open(dialog);
        stage.type("a");

        stage.key(Qt::Key_Return); // told by the field, and by the key that goes on to the dialog
        QCOMPARE(log(stage), QVariantList({"a"}));
        stage.type("b");
        stage.key(Qt::Key_Enter);
        QCOMPARE(log(stage), QVariantList({"a", "ab"}));
    }

    void returnInATextOfLinesIsALine()
    {
        Stage stage;
        auto *dialog = show(stage, form);
        open(dialog);
        stage.click("area");

        stage.key(Qt::Key_Return);

        QCOMPARE(stage.text("area"), QString("\n"));
        QVERIFY(dialog->property("opened").toBool());
    }

    void aDisabledButtonAcceptsByNoKey()
    {
        Stage stage;
        auto *dialog = show(stage,
                            "positiveButton.enabled: item !== null && item.acceptable\n"
                            "QC2.TextField { property bool acceptable: text !== \"\"; objectName: \"first\"\n"
                            "function accept() { log = log.concat(text) } }");
        open(dialog);
        QVERIFY(!stage.item("positiveButton")->isEnabled());

        stage.key(Qt::Key_Return);
        QMetaObject::invokeMethod(dialog, "submit");
        QVERIFY(dialog->property("opened").toBool());
        QCOMPARE(log(stage), QVariantList());

        stage.type("a");
        QVERIFY(stage.item("positiveButton")->isEnabled());
        stage.key(Qt::Key_Return);
        QTRY_VERIFY(isClosed(dialog));
        QCOMPARE(log(stage), QVariantList({"a"}));
    }

    void focusGoesToTheFirstFieldAndBack()
    {
        Stage stage;
        auto *dialog = show(stage, form);
        QTRY_COMPARE(stage.focusName(), QString("outside"));

        QMetaObject::invokeMethod(dialog, "open");
        QCOMPARE(stage.focusName(), QString("first")); // what is typed during the animation is not lost
        close(dialog);

        QTRY_COMPARE(stage.focusName(), QString("outside"));
    }

    void contentMayChooseItsFocus()
    {
        Stage stage;
        auto *dialog = show(stage,
                            "Column { QC2.TextField { objectName: \"first\" }\n"
                            "QC2.TextField { objectName: \"second\"; focus: true } }");

        open(dialog);

        QCOMPARE(stage.focusName(), QString("second"));
    }

    void tabStaysInside()
    {
        Stage stage;
        auto *dialog = show(stage,
                            "Column { QC2.TextField { objectName: \"first\" }\n"
                            "QC2.TextField { objectName: \"second\" } }");
        open(dialog);
        QStringList order;

        for (int i = 0; i < 12; ++i) {
            order << stage.focusName();
            stage.key(Qt::Key_Tab);
        }

        QVERIFY(!order.contains("outside"));
        for (const char *name : {"first", "second", "positiveButton", "negativeButton"})
            QVERIFY2(order.contains(name), name);
    }

    void isInTheMiddle()
    {
        Stage stage;
        auto *dialog = show(stage, QByteArray("width: 480\n") + form);
        open(dialog);
        QVERIFY((place(stage).center() - QPointF(640, 400)).manhattanLength() <= 1);
        QCOMPARE(place(stage).width(), 480.0);

        stage.resize({900, 700});

        QVERIFY((place(stage).center() - QPointF(450, 350)).manhattanLength() <= 1);
    }

    // An edge between two pixels is a torn line.
    void standsOnWholePixels()
    {
        Stage stage;
        auto *dialog = show(stage, "Item { implicitWidth: 301.3; implicitHeight: 100.7 }\n");
        open(dialog);

        for (const auto size : {QSize(1280, 800), QSize(901, 701), QSize(420, 801)}) {
            stage.resize(size);
            QTRY_COMPARE(qRound(place(stage).center().x()), qRound(size.width() / 2.0));
            const auto top = place(stage);
            QCOMPARE(top.y(), qRound(top.y()) * 1.0);
            QCOMPARE(top.x(), qRound(top.x()) * 1.0);
            QCOMPARE(top.height(), qRound(top.height()) * 1.0);
        }
    }

    void staysWithinTheWindow_data()
    {
        QTest::addColumn<QByteArray>("size");

        QTest::newRow("by its size") << QByteArray("width: 900; height: 900\n");
        QTest::newRow("by its implicit size") << QByteArray("implicitWidth: 900; implicitHeight: 900\n");
    }

    void staysWithinTheWindow()
    {
        QFETCH(QByteArray, size);
        Stage stage;
        auto *dialog = show(stage, size + "Item { implicitWidth: 852; implicitHeight: 900 }", {1280, 1000});
        open(dialog);
        QCOMPARE(place(stage).width(), 900.0);

        stage.resize({360, 640});
        QTRY_COMPARE(place(stage), QRectF(32, 16, 360 - 2 * 32, 640 - 32));

        stage.resize({1280, 1000});
        QTRY_COMPARE(place(stage).width(), 900.0);
        QVERIFY(place(stage).height() >= 900 && place(stage).height() <= 968);
    }

    void growsWithItsContentToWhatReadsWell()
    {
        Stage stage;
        auto *dialog = show(stage, "Item { property int wish: 100; implicitWidth: wish; implicitHeight: 100 }");
        open(dialog);
        QCOMPARE(place(stage).width(), 280.0);

        dialog->property("item").value<QObject *>()->setProperty("wish", 400);
        QTRY_COMPARE(place(stage).width(), 448.0);
        dialog->property("item").value<QObject *>()->setProperty("wish", 4000);
        QTRY_COMPARE(place(stage).width(), 560.0);
    }

    void tallContentScrollsBetweenDividers()
    {
        Stage stage;
        auto *dialog = show(stage, "Item { implicitHeight: 2000 }");
        open(dialog);
        auto *flickable = dialog->property("flickable").value<QQuickItem *>();
        QVERIFY(flickable);
        QCOMPARE(flickable->property("contentHeight").toReal(), 2000.0);
        QVERIFY(!stage.has("topDivider"));
        QVERIFY(stage.has("bottomDivider"));

        stage.wheel({640, 400}, -1);
        QTRY_VERIFY(flickable->property("contentY").toReal() > 0);
        QVERIFY(stage.has("topDivider"));
        QVERIFY(stage.has("bottomDivider"));

        QTRY_VERIFY(!flickable->property("flicking").toBool());
        flickable->setProperty("contentY", 2000 - flickable->height());
        QVERIFY(stage.has("topDivider"));
        QVERIFY(!stage.has("bottomDivider"));
        close(dialog);
        open(dialog);
        QCOMPARE(flickable->property("contentY").toReal(), 0.0);
    }

    void contentThatFitsHasNoDividers()
    {
        Stage stage;
        auto *dialog = show(stage, form);
        open(dialog);

        QVERIFY(!stage.has("topDivider"));
        QVERIFY(!stage.has("bottomDivider"));
        QVERIFY(dialog->property("hardScroll").value<QObject *>());
    }

    void focusScrollsIntoView()
    {
        Stage stage;
        auto *dialog = show(stage,
                            "Column { QC2.TextField { objectName: \"first\" } Item { width: 10; height: 1500 }\n"
                            "QC2.TextField { objectName: \"last\" } }");
        open(dialog);

        stage.key(Qt::Key_Tab);

        QCOMPARE(stage.focusName(), QString("last"));
        const auto middle = stage.middleOf(stage.item("last"));
        QVERIFY2(middle.y() > 16 && middle.y() < 784 - 48, qPrintable(QString::number(middle.y())));
    }

    void aDialogOpensOverADialog()
    {
        Stage stage;
        auto *dialog = show(stage, R"(
            Column {
                QC2.TextField { objectName: "first" }
                Dialog { id: inner; objectName: "inner"; QC2.TextField { objectName: "innerField" } }
                QC2.Button { objectName: "opener"; onClicked: inner.open() }
            })");
        open(dialog);
        auto *inner = stage.object("inner");
        stage.key(Qt::Key_Tab);
        stage.key(Qt::Key_Space);
        QTRY_VERIFY(inner->property("opened").toBool());
        QCOMPARE(stage.focusName(), QString("innerField"));

        stage.key(Qt::Key_Escape);

        QTRY_VERIFY(isClosed(inner));
        QVERIFY(dialog->property("opened").toBool());
        QTRY_COMPARE(stage.focusName(), QString("opener"));
    }

    void longTextsStayInside()
    {
        Stage stage;
        auto *dialog = show(stage,
                            "title: \"" + QByteArray(200, 'w') + " " + QByteArray(200, 'w')
                                + "\"\n"
                                  "positiveButtonText: \"Restore the configuration\"\n"
                                  "negativeButtonText: \"Leave everything as it is\"\n"
                                  "QC2.Label { text: \"Text\" }",
                            {360, 640});
        open(dialog);

        for (const char *name : {"positiveButton", "negativeButton", "dialogTitle"}) {
            auto *item = stage.item(name);
            QVERIFY2(item, name);
            const QRectF shape = item->mapRectToScene(item->boundingRect());
            QVERIFY2(place(stage).adjusted(-1, -1, 1, 1).contains(shape), name);
        }
        QVERIFY(!stage.item("positiveButton")
                     ->property("contentItem")
                     .value<QQuickItem *>()
                     ->property("truncated")
                     .toBool());
    }
};

ONDIRA_TEST(DialogTest)
#include "DialogTest.moc"
