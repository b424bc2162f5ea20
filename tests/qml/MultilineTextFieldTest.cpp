// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <utility>

class MultilineTextFieldTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage, const QByteArray &properties)
    {
        auto *box = stage.show("Column { width: 300; property int accepts: 0; property int clicks: 0\n"
                               "MultilineTextField { objectName: \"field\"; width: 300; onAccepted: ++parent.accepts;"
                               " onClicked: ++parent.clicks; "
                               + properties + "}\nTextField { objectName: \"next\"; width: 300 } }");
        return box ? box->childItems().value(0) : nullptr;
    }

    // Rows of the picture that are painted at the right end of the field, one for what is painted without a gap.
    static int paintedLines(const Stage &stage, QQuickItem *field)
    {
        const QImage picture = stage.window()->grabWindow();
        const auto place = field->mapRectToScene(field->boundingRect()).toAlignedRect();
        int lines = 0;
        bool isPainted = false;
        for (int y = place.top(); y <= place.bottom(); ++y) {
            const bool wasPainted = std::exchange(isPainted, picture.pixelColor(place.right() - 20, y) != Qt::white);
            lines += isPainted && !wasPainted ? 1 : 0;
        }
        return lines;
    }

private slots:
    void hasOneLineUnderItsText()
    {
        Stage stage;
        auto *field = show(stage, "text: \"a\\nb\"");
        stage.window()->setColor(Qt::white);
        stage.settle();

        QCOMPARE(paintedLines(stage, field), 1);
        field->forceActiveFocus();
        stage.settle();
        QCOMPARE(paintedLines(stage, field), 1);
    }

    void growsWithItsLines()
    {
        Stage stage;
        auto *field = show(stage, "label: \"Описание\"");
        const qreal height = field->height();
        QVERIFY(height >= 48);

        field->setProperty("text", "1\n2\n3\n4");

        QTRY_VERIFY(field->height() >= height + 3 * 16);
        field->setProperty("text", QString("слова ").repeated(60));
        QTRY_VERIFY(field->height() >= height + 5 * 16);
    }

    void scrollsWhereItHasNoRoom()
    {
        Stage stage;
        auto *field = show(stage, "height: 120; text: \"строка\\n\".repeat(50)");
        auto *flickable = field->property("textInput").value<QQuickItem *>()->parentItem()->parentItem();
        QTRY_VERIFY(flickable->property("contentHeight").toReal() > 600);
        field->forceActiveFocus();

        stage.key(Qt::Key_End, Qt::ControlModifier);

        QTRY_VERIFY(flickable->property("contentY").toReal() > 300); // the cursor stays in sight
        QCOMPARE(field->height(), 120.0);
    }

    void returnBreaksTheLineAndControlReturnAccepts()
    {
        Stage stage;
        auto *field = show(stage, "");
        field->forceActiveFocus();

        stage.type("a");
        stage.key(Qt::Key_Return);
        stage.type("b");
        QCOMPARE(field->parentItem()->property("accepts").toInt(), 0);
        stage.key(Qt::Key_Return, Qt::ControlModifier);
        stage.key(Qt::Key_Enter, Qt::ControlModifier);

        QCOMPARE(field->property("text").toString(), QString("a\nb"));
        QCOMPARE(field->parentItem()->property("accepts").toInt(), 2);
    }

    void tabGoesOn()
    {
        Stage stage;
        auto *field = show(stage, "text: \"x\"");
        field->forceActiveFocus();
        QCOMPARE(stage.focusName(), QString("field"));

        stage.key(Qt::Key_Tab);
        QCOMPARE(stage.focusName(), QString("next"));
        stage.key(Qt::Key_Backtab);

        QCOMPARE(stage.focusName(), QString("field"));
        QCOMPARE(field->property("text").toString(), QString("x"));
    }

    void tooManyCharactersAreAnError()
    {
        Stage stage;
        auto *field = show(stage, "characterLimit: 3; helperText: \"помощь\"; errorText: \"ошибка\"");
        QCOMPARE(field->property("hasError").toBool(), false);
        QCOMPARE(field->property("shownText").toString(), QString("помощь"));

        field->setProperty("text", "a\nbc");

        QCOMPARE(field->property("length").toInt(), 4);
        QCOMPARE(field->property("hasError").toBool(), true);
        QCOMPARE(field->property("shownText").toString(), QString("ошибка"));
        auto *counter = field->property("characterLimitLabel").value<QQuickItem *>();
        QCOMPARE(counter->property("text").toString(), QString("4 / 3"));
    }

    void theLabelFloatsUnderFocusAndOverText()
    {
        Stage stage;
        auto *field = show(stage, "label: \"Описание\"");
        QCOMPARE(field->property("isLabelFloating").toBool(), false);

        field->forceActiveFocus();
        QCOMPARE(field->property("isLabelFloating").toBool(), true);
        field->setProperty("readOnly", true);
        QCOMPARE(field->property("isLabelFloating").toBool(), false);
        field->setProperty("text", "x");

        QCOMPARE(field->property("isLabelFloating").toBool(), true);
    }

    void aClickAnywhereFocuses()
    {
        Stage stage;
        auto *field = show(stage, "label: \"Описание\"; height: 200");

        stage.clickAt(field->mapToScene(QPointF(20, 8)).toPoint());
        QCOMPARE(stage.focusName(), QString("field"));
        stage.item("next")->forceActiveFocus();
        stage.clickAt(field->mapToScene(QPointF(20, 150)).toPoint());

        QCOMPARE(stage.focusName(), QString("field"));
        QCOMPARE(field->parentItem()->property("clicks").toInt(), 2);
    }

    void markupIsText()
    {
        Stage stage;
        auto *field = show(stage, "");

        field->setProperty("text", "<b>x</b>");

        QCOMPARE(field->property("length").toInt(), 8);
    }
};

ONDIRA_TEST(MultilineTextFieldTest)
#include "MultilineTextFieldTest.moc"
