// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QAccessible>

class TextFieldTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage, const QByteArray &properties)
    {
        auto *box = stage.show("Column { width: 400; spacing: 8; property int accepts: 0; property int clicks: 0\n"
                               "TextField { objectName: \"field\"; width: 400; onAccepted: ++parent.accepts;"
                               " onClicked: ++parent.clicks; "
                               + properties + "}\nTextField { objectName: \"next\"; width: 400; label: \"Next\" } }");
        return box ? box->childItems().value(0) : nullptr;
    }

    static QObject *input(QQuickItem *field) { return field->property("textInput").value<QObject *>(); }

    static QQuickItem *part(QQuickItem *field, const QString &name) { return field->findChild<QQuickItem *>(name); }

    static int labelSize(QQuickItem *field)
    {
        return part(field, "fieldLabel")->property("font").value<QFont>().pixelSize();
    }

    static QColor labelColor(QQuickItem *field) { return part(field, "fieldLabel")->property("color").value<QColor>(); }

private slots:
    void defaults()
    {
        Stage stage;
        auto *field = show(stage, "");

        for (const auto *name : {"label", "placeholderText", "helperText", "errorText", "text", "inputMask"})
            QCOMPARE(field->property(name).toString(), QString());
        QCOMPARE(field->property("floatingLabel").toBool(), true);
        QCOMPARE(field->property("hasError").toBool(), false);
        QCOMPARE(field->property("characterLimit").toInt(), -1);
        QCOMPARE(field->property("length").toInt(), 0);
        QCOMPARE(field->property("readOnly").toBool(), false);
        QCOMPARE(field->property("acceptableInput").toBool(), true);
        const auto font = input(field)->property("font").value<QFont>();
        QCOMPARE(font.family(), QString("Roboto"));
        QCOMPARE(font.pixelSize(), 16);
        QVERIFY(field->height() >= 48);
    }

    void theLabelFloatsUnderFocusAndOverText()
    {
        Stage stage;
        auto *field = show(stage, "label: \"Имя\"");
        QCOMPARE(labelSize(field), 16);

        field->forceActiveFocus();
        QTRY_COMPARE(labelSize(field), 12);
        stage.item("next")->forceActiveFocus();
        QTRY_COMPARE(labelSize(field), 16);
        field->setProperty("text", "x");
        QTRY_COMPARE(labelSize(field), 12);
        // Above the text.
        QVERIFY(part(field, "fieldLabel")->y() + part(field, "fieldLabel")->height()
                <= input(field)->property("topPadding").toReal());
    }

    void aReadOnlyFieldsLabelStaysDownUnderFocus()
    {
        Stage stage;
        auto *field = show(stage, "label: \"Имя\"; readOnly: true");

        field->forceActiveFocus();

        QCOMPARE(field->property("isLabelFloating").toBool(), false);
        field->setProperty("text", "x");
        QCOMPARE(field->property("isLabelFloating").toBool(), true);
    }

    void aLabelThatDoesNotFloatIsUpAlways()
    {
        Stage stage;
        auto *field = show(stage, "label: \"Имя\"; floatingLabel: false; placeholderText: \"как в паспорте\"");

        QCOMPARE(labelSize(field), 12);
        QCOMPARE(input(field)->property("placeholderText").toString(), QString("как в паспорте"));
    }

    void thePlaceholderWaitsForTheLabelToRise()
    {
        Stage stage;
        auto *field = show(stage, "label: \"Адрес\"; placeholderText: \"10.0.0.1\"");
        QCOMPARE(input(field)->property("placeholderText").toString(), QString());

        field->forceActiveFocus();

        QCOMPARE(input(field)->property("placeholderText").toString(), QString("10.0.0.1"));
    }

    void theErrorBeatsTheHelper()
    {
        Stage stage;
        auto *field = show(stage, "helperText: \"помощь\"; errorText: \"ошибка\"; characterLimit: 3");
        QCOMPARE(part(field, "fieldText")->property("text").toString(), QString("помощь"));
        const qreal height = field->height();

        field->setProperty("text", "abcd");

        QCOMPARE(field->property("hasError").toBool(), true);
        QCOMPARE(part(field, "fieldText")->property("text").toString(), QString("ошибка"));
        QCOMPARE(field->height(), height);
        field->setProperty("errorText", "");
        QCOMPARE(part(field, "fieldText")->property("text").toString(), QString("помощь"));
    }

    void anErrorTextAloneShowsNothingUntilThereIsAnError()
    {
        Stage stage;
        auto *field = show(stage, "errorText: \"ошибка\"");

        QCOMPARE(part(field, "fieldText")->property("text").toString(), QString());
    }

    void aLongErrorIsWrapped()
    {
        Stage stage;
        auto *field = show(stage, "errorText: \"очень длинный текст ошибки \".repeat(8); hasError: true");

        QTRY_VERIFY(field->height() > 80);
        QVERIFY(part(field, "fieldText")->width() <= 400);
    }

    void countsCharacters_data()
    {
        QTest::addColumn<int>("limit");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("hasError");
        QTest::addColumn<QString>("counter");

        QTest::newRow("no limit") << -1 << QString(500, 'a') << false << "";
        QTest::newRow("below") << 5 << "abcd" << false << "4 / 5";
        QTest::newRow("at the limit") << 5 << "abcde" << false << "5 / 5";
        QTest::newRow("above") << 5 << "abcdef" << true << "6 / 5";
        QTest::newRow("nothing allowed") << 0 << "a" << true << "1 / 0";
        QTest::newRow("nothing there") << 0 << "" << false << "0 / 0";
    }

    void countsCharacters()
    {
        QFETCH(int, limit);
        QFETCH(QString, text);
        QFETCH(QString, counter);
        Stage stage;
        auto *field = show(stage, "");

        field->setProperty("characterLimit", limit);
        field->setProperty("text", text);

        QTEST(field->property("hasError").toBool(), "hasError");
        QCOMPARE(field->property("text").toString(), text); // more than allowed is kept
        auto *label = field->property("characterLimitLabel").value<QQuickItem *>();
        QVERIFY(label);
        QCOMPARE(label->property("text").toString(), counter);
        QCOMPARE(label->isVisible(), !counter.isEmpty());
    }

    void anUnacceptableInputIsAnError()
    {
        Stage stage;
        auto *field = show(stage, "validator: IntValidator { bottom: 10; top: 99 }");
        field->forceActiveFocus();
        QCOMPARE(field->property("hasError").toBool(), true); // nothing is no number

        stage.type("5");
        QCOMPARE(field->property("hasError").toBool(), true);
        stage.key(Qt::Key_Return);
        QCOMPARE(field->parentItem()->property("accepts").toInt(), 0);
        stage.type("0");
        QCOMPARE(field->property("hasError").toBool(), false);
        stage.key(Qt::Key_Return);

        QCOMPARE(field->property("text").toString(), QString("50"));
        QCOMPARE(field->parentItem()->property("accepts").toInt(), 1);
    }

    void colorsTellErrorAndFocus()
    {
        Stage stage;
        auto *field = show(stage, "label: \"Имя\"; characterLimit: 1");
        const auto resting = labelColor(field);

        field->forceActiveFocus();
        const auto focused = labelColor(field);
        field->setProperty("text", "ab");
        const auto wrong = labelColor(field);

        QVERIFY(resting != focused);
        QCOMPARE(focused, QColor("#1483dc"));
        QCOMPARE(wrong, field->property("errorColor").value<QColor>());
        stage.item("next")->forceActiveFocus();
        QCOMPARE(labelColor(field), wrong);
    }

    void aDisabledFieldIsHalfThere()
    {
        Stage stage;
        auto *field = show(stage, "");
        QCOMPARE(field->opacity(), 1.0);

        field->setEnabled(false);

        QCOMPARE(field->opacity(), 0.5);
        stage.click(field);
        QCOMPARE(field->parentItem()->property("clicks").toInt(), 0);
    }

    void aPasswordIsHiddenAndMayBeRevealed()
    {
        Stage stage;
        auto *field = show(stage, "echoMode: TextInput.Password");
        QCOMPARE(input(field)->property("font").value<QFont>().family(), QString("Default"));
        QVERIFY(!part(field, "revealButton")->isVisible());
        field->forceActiveFocus();
        stage.type("тайна");
        QCOMPARE(field->property("displayText").toString(), QString(5, QChar(0x25cf)));

        stage.click("revealButton");

        QCOMPARE(field->property("displayText").toString(), QString("тайна"));
        QCOMPARE(stage.focusName(), QString("field"));
        QVERIFY(part(field, "revealButton")->height() >= 48);
        field->setProperty("text", "");
        field->setProperty("text", "other");
        QCOMPARE(field->property("displayText").toString(), QString(5, QChar(0x25cf)));
    }

    void aHiddenFieldConcealsItsPasswordAgain()
    {
        Stage stage;
        auto *field = show(stage, "echoMode: TextInput.Password; text: \"abc\"");
        stage.click("revealButton");
        QCOMPARE(field->property("displayText").toString(), QString("abc"));

        field->setVisible(false);
        field->setVisible(true);

        QCOMPARE(field->property("displayText").toString(), QString(3, QChar(0x25cf)));
    }

    void passesPropertiesOn()
    {
        Stage stage;
        auto *field = show(stage, "inputMethodHints: Qt.ImhDigitsOnly; inputMask: \"99.99\"; text: \"1234\"");

        QCOMPARE(input(field)->property("inputMethodHints").toInt(), int(Qt::ImhDigitsOnly));
        QCOMPARE(input(field)->property("displayText").toString(), QString("12.34"));
        QCOMPARE(field->property("text").toString(), QString("12.34"));
        QCOMPARE(field->property("isLabelFloating").toBool(), true);
    }

    void aClickFocusesAndIsTold()
    {
        Stage stage;
        auto *field = show(stage, "label: \"Имя\"; readOnly: true");

        stage.click(field);
        QCOMPARE(field->parentItem()->property("clicks").toInt(), 1);
        QCOMPARE(stage.focusName(), QString("field"));
        // On the label as well.
        stage.clickAt(field->mapToScene(QPointF(10, 10)).toPoint());
        QCOMPARE(field->parentItem()->property("clicks").toInt(), 2);
        stage.drag(stage.middleOf(field), stage.middleOf(field) + QPoint(0, 300));
        QCOMPARE(field->parentItem()->property("clicks").toInt(), 2);
    }

    void aReadOnlyFieldTakesNoText()
    {
        Stage stage;
        auto *field = show(stage, "readOnly: true; text: \"x\"");
        field->forceActiveFocus();

        stage.type("abc");

        QCOMPARE(field->property("text").toString(), QString("x"));
    }

    void tabGoesOnAndReturnAccepts()
    {
        Stage stage;
        auto *field = show(stage, "");
        field->forceActiveFocus();
        stage.type("текст");

        stage.key(Qt::Key_Return);
        stage.key(Qt::Key_Enter);
        QCOMPARE(field->parentItem()->property("accepts").toInt(), 2);
        stage.key(Qt::Key_Tab);
        QCOMPARE(stage.focusName(), QString("next"));
        stage.key(Qt::Key_Backtab);

        QCOMPARE(stage.focusName(), QString("field"));
        QCOMPARE(field->property("text").toString(), QString("текст"));
    }

    void escapeIsLeftToTheDialog()
    {
        Stage stage;
        stage.show("Item { anchors.fill: parent; property int escapes: 0; Keys.onEscapePressed: ++escapes\n"
                   "TextField { objectName: \"field\"; width: 300; text: \"x\" } }");
        auto *field = stage.item("field");
        field->forceActiveFocus();

        stage.key(Qt::Key_Escape);

        QCOMPARE(field->parentItem()->property("escapes").toInt(), 1);
        QCOMPARE(field->property("text").toString(), QString("x"));
    }

    void aHugeTextStaysInside()
    {
        Stage stage;
        auto *field = show(stage, "label: \"Имя\".repeat(1000)");
        const qreal height = field->height();

        field->setProperty("text", QString(10000, 'w'));

        QCOMPARE(field->width(), 400.0);
        QCOMPARE(field->height(), height);
        QVERIFY(part(field, "fieldLabel")->width() <= 400);
    }

    void isAccessibleByItsLabel()
    {
        Stage stage;
        auto *field = show(stage, "label: \"Имя\"; helperText: \"помощь\"");

        auto *accessible = QAccessible::queryAccessibleInterface(input(field));
        QVERIFY(accessible);
        QCOMPARE(accessible->role(), QAccessible::EditableText);
        QCOMPARE(accessible->text(QAccessible::Name), QString("Имя"));
        QCOMPARE(accessible->text(QAccessible::Description), QString("помощь"));
    }
};

ONDIRA_TEST(TextFieldTest)
#include "TextFieldTest.moc"
