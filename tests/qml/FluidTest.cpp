// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QAccessible>
#include <QFontInfo>
#include <QImage>

// Icons, labels, rows and what else the screens are put together from.
class FluidTest : public TestBase
{
    Q_OBJECT

private:
    static int coloured(const QImage &picture, const QColor &color)
    {
        int found = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                found += picture.pixelColor(x, y) == color;
        }
        return found;
    }

    static QVariant evaluate(Stage &stage, const QByteArray &expression)
    {
        auto *subject = stage.show("Item { property var result: " + expression + " }");
        return subject ? subject->property("result") : QVariant();
    }

private slots:
    void anIconIsDrawnInItsColour();
    void anIconIsAsLargeAsItsSize();
    void anIconFollowsItsName();
    void anUnknownIconShowsNothingAndIsToldOnce();
    void anIconUrl_data();
    void anIconUrl();
    void aDarkColourWantsLightText_data();
    void aDarkColourWantsLightText();
    void measuresAreThoseOfAFinger();

    void labelsHaveTheirSizes_data();
    void labelsHaveTheirSizes();
    void labelsShowMarkupAsText_data();
    void labelsShowMarkupAsText();
    void oneLineIsCutAndManyWrap();
    void aLineFeedIsNoSecondLine_data();
    void aLineFeedIsNoSecondLine();

    void aRowIsHighEnoughForAFinger_data();
    void aRowIsHighEnoughForAFinger();
    void aRowIsDrivenByMouseAndKeyboard();
    void aRowTriggersItsAction();
    void aDisabledRowDoesNothing();
    void aRowShowsWhatItIsGiven();
    void aRowKeepsItsValueBesideALongText();
    void aRowTakesItemsAtBothSides();
    void aRowSpeaks();

    void aPlaceholderShowsWhatItIsGiven();
    void aCardHoldsItsContent();
};

void FluidTest::anIconIsDrawnInItsColour()
{
    Stage stage;
    stage.show("FL.Icon { objectName: 'icon'; name: 'av/stop'; color: '#ff0000' }");
    QTRY_COMPARE(stage.item("icon")->property("status").toInt(), 1);
    stage.settle();

    const QImage picture = stage.window()->grabWindow().copy(0, 0, 24, 24);

    QVERIFY(coloured(picture, QColor("#ff0000")) > 24 * 24 / 6);
    QVERIFY(coloured(picture, QColor(Qt::white)) > 24 * 24 / 6);
}

void FluidTest::anIconIsAsLargeAsItsSize()
{
    Stage stage;
    auto *icon = stage.show("FL.Icon { name: 'action/done' }");
    QCOMPARE(icon->size(), QSizeF(24, 24));

    icon->setProperty("size", 72);

    QCOMPARE(icon->size(), QSizeF(72, 72));
    QVERIFY(icon->property("sourceSize").toSize().width() >= 72); // drawn, not blown up
}

void FluidTest::anIconFollowsItsName()
{
    Stage stage;
    auto *icon = stage.show("FL.Icon { name: 'action/done' }");
    QCOMPARE(icon->property("source").toUrl(), QUrl("qrc:/icons/material/action/done.svg"));

    icon->setProperty("name", "qrc:/icons/ondira/grid.svg");
    QCOMPARE(icon->property("source").toUrl(), QUrl("qrc:/icons/ondira/grid.svg"));
    QTRY_COMPARE(icon->property("status").toInt(), 1);
    icon->setProperty("name", "");

    QVERIFY(icon->property("source").toUrl().isEmpty());
}

void FluidTest::anUnknownIconShowsNothingAndIsToldOnce()
{
    Stage stage;
    expectMessage(QtWarningMsg, "There is no icon action/not_there");

    stage.show("Row { FL.Icon { name: 'action/not_there' } FL.Icon { name: 'action/not_there' }\n"
               "FL.ListItem { text: 'Зал'; iconName: 'action/not_there' }\n"
               "QC2.ToolButton { action: FL.Action { iconName: 'action/not_there' } } }");
    stage.settle();

    QCOMPARE(stage.window()->grabWindow().copy(0, 0, 48, 24).pixelColor(12, 12), QColor(Qt::white));
}

void FluidTest::anIconUrl_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("expected");

    QTest::newRow("of the set") << QByteArray("'maps/map'") << "qrc:/icons/material/maps/map.svg";
    QTest::newRow("of ours") << QByteArray("'qrc:/icons/ondira/wrench.svg'") << "qrc:/icons/ondira/wrench.svg";
    QTest::newRow("of the server") << QByteArray("'image://image_layer/{1}'") << "image://image_layer/{1}";
    QTest::newRow("no name") << QByteArray("''") << "";
    QTest::newRow("undefined") << QByteArray("undefined") << "";
    QTest::newRow("null") << QByteArray("null") << "";
}

void FluidTest::anIconUrl()
{
    QFETCH(QByteArray, name);
    QFETCH(QString, expected);
    Stage stage;

    QCOMPARE(evaluate(stage, "FLC.Utils.iconUrl(" + name + ")").toString(), expected);
}

void FluidTest::aDarkColourWantsLightText_data()
{
    QTest::addColumn<QByteArray>("color");
    QTest::addColumn<bool>("expected");

    QTest::newRow("black") << QByteArray("'black'") << true;
    QTest::newRow("white") << QByteArray("'#ffffff'") << false;
    QTest::newRow("accent") << QByteArray("Colors.blue") << true;
    QTest::newRow("yellow") << QByteArray("Colors.yellow") << false;
    QTest::newRow("red") << QByteArray("Qt.rgba(0.6, 0, 0, 1)") << true;
    QTest::newRow("nothing to be seen") << QByteArray("'transparent'") << false;
    QTest::newRow("no colour") << QByteArray("'lamp'") << false;
    QTest::newRow("undefined") << QByteArray("undefined") << false;
    QTest::newRow("null") << QByteArray("null") << false;
}

void FluidTest::aDarkColourWantsLightText()
{
    QFETCH(QByteArray, color);
    QFETCH(bool, expected);
    Stage stage;

    QCOMPARE(evaluate(stage, "FLC.Color.isDarkColor(" + color + ")"), QVariant(expected));
}

void FluidTest::measuresAreThoseOfAFinger()
{
    Stage stage;

    const auto measures = evaluate(stage, "[FLC.Device.gridUnit, FLC.Device.touchSize]").toList();

    QCOMPARE(measures, (QVariantList{32, 48}));
}

void FluidTest::labelsHaveTheirSizes_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<int>("size");

    QTest::newRow("headline") << QByteArray("FL.HeadlineLabel") << 24;
    QTest::newRow("title") << QByteArray("FL.TitleLabel") << 20;
    QTest::newRow("subheading") << QByteArray("FL.SubheadingLabel") << 16;
    QTest::newRow("body") << QByteArray("FL.BodyLabel") << 14;
    QTest::newRow("caption") << QByteArray("FL.CaptionLabel") << 12;
}

void FluidTest::labelsHaveTheirSizes()
{
    QFETCH(QByteArray, type);
    QFETCH(int, size);
    Stage stage;

    auto *label = stage.show(type + " { text: 'Освещение' }");

    const auto font = label->property("font").value<QFont>();
    QCOMPARE(font.pixelSize(), size);
    QCOMPARE(QFontInfo(font).family(), QString("Roboto"));
}

void FluidTest::labelsShowMarkupAsText_data()
{
    labelsHaveTheirSizes_data();
}

void FluidTest::labelsShowMarkupAsText()
{
    QFETCH(QByteArray, type);
    QFETCH(int, size);
    Stage stage;

    auto *label = stage.show(type + " { text: '<img src=\"http://127.0.0.1:1/x.png\"><b>x</b>' }");

    QVERIFY(label->implicitWidth() > 20 * size); // the letters of the markup take their room
}

void FluidTest::oneLineIsCutAndManyWrap()
{
    Stage stage;
    stage.show("Column { width: 120\n"
               "FL.TitleLabel { objectName: 'title'; width: 120; text: 'Название помещения торгового зала' }\n"
               "FL.SubheadingLabel { objectName: 'row'; width: 120; text: 'Название помещения торгового зала' }\n"
               "FL.BodyLabel { objectName: 'body'; width: 120; text: 'Название помещения торгового зала' } }");

    QCOMPARE(stage.item("title")->property("lineCount").toInt(), 1);
    QVERIFY(stage.item("title")->property("truncated").toBool());
    QCOMPARE(stage.item("row")->property("lineCount").toInt(), 1);
    QVERIFY(stage.item("body")->property("lineCount").toInt() > 1);
    QVERIFY(!stage.item("body")->property("truncated").toBool());
}

void FluidTest::aLineFeedIsNoSecondLine_data()
{
    QTest::addColumn<QByteArray>("type");

    QTest::newRow("title") << QByteArray("FL.TitleLabel");
    QTest::newRow("subheading") << QByteArray("FL.SubheadingLabel");
}

void FluidTest::aLineFeedIsNoSecondLine()
{
    QFETCH(QByteArray, type);
    Stage stage;

    auto *label = stage.show(type + " { width: 120; text: 'Название помещения\\nторгового зала' }");

    QCOMPARE(label->property("lineCount").toInt(), 1);
    QVERIFY(label->property("contentWidth").toReal() <= 120);
}

void FluidTest::aRowIsHighEnoughForAFinger_data()
{
    QTest::addColumn<QByteArray>("properties");
    QTest::addColumn<int>("height");

    QTest::newRow("empty") << QByteArray() << 48;
    QTest::newRow("one line") << QByteArray("text: 'Зал'") << 48;
    QTest::newRow("two lines") << QByteArray("text: 'Зал'; subText: 'Первый этаж'") << 64;
    QTest::newRow("with an icon") << QByteArray("text: 'Зал'; iconName: 'maps/map'") << 48;
}

void FluidTest::aRowIsHighEnoughForAFinger()
{
    QFETCH(QByteArray, properties);
    QFETCH(int, height);
    Stage stage;

    auto *row = stage.show("FL.ListItem { " + properties + " }");

    QCOMPARE(row->height(), qreal(height));
}

void FluidTest::aRowIsDrivenByMouseAndKeyboard()
{
    Stage stage;
    auto *row = stage.show("FL.ListItem { objectName: 'row'; width: 300; text: 'Зал'; property int clicks: 0\n"
                           "onClicked: ++clicks }");

    row->forceActiveFocus(Qt::TabFocusReason);
    QVERIFY(row->property("visualFocus").toBool());
    stage.key(Qt::Key_Return);
    stage.key(Qt::Key_Enter);
    stage.key(Qt::Key_Space);
    QCOMPARE(row->property("clicks").toInt(), 3);
    stage.clickAt({290, 4}); // anywhere on it

    QCOMPARE(row->property("clicks").toInt(), 4);
}

void FluidTest::aRowTriggersItsAction()
{
    Stage stage;
    auto *row = stage.show("FL.ListItem { id: row; property int count: 0; width: 300\n"
                           "action: FL.Action { text: 'Зал'; onTriggered: ++row.count } }");
    QCOMPARE(stage.text("listItemText"), QString("Зал"));

    row->forceActiveFocus(Qt::TabFocusReason);
    stage.key(Qt::Key_Return);
    stage.key(Qt::Key_Space);
    stage.clickAt({290, 4});

    QCOMPARE(row->property("count").toInt(), 3);
}

void FluidTest::aDisabledRowDoesNothing()
{
    Stage stage;
    auto *row = stage.show("FL.ListItem { width: 300; text: 'Зал'; enabled: false; property int clicks: 0\n"
                           "onClicked: ++clicks }");
    const auto grey = stage.item("listItemText")->property("color");

    stage.clickAt({150, 24});
    row->setEnabled(true);

    QCOMPARE(row->property("clicks").toInt(), 0);
    QVERIFY(stage.item("listItemText")->property("color") != grey);
}

void FluidTest::aRowShowsWhatItIsGiven()
{
    Stage stage;
    auto *row = stage.show("FL.ListItem { width: 300; text: 'Зал' }");
    QCOMPARE(stage.text("listItemText"), QString("Зал"));
    QVERIFY(!stage.has("listItemSubText"));
    QVERIFY(!stage.has("listItemValue"));

    row->setProperty("subText", "Первый этаж");
    row->setProperty("valueText", "40 %");
    stage.settle();

    QCOMPARE(stage.text("listItemSubText"), QString("Первый этаж"));
    QCOMPARE(stage.text("listItemValue"), QString("40 %"));
    QVERIFY(stage.item("listItemSubText")->mapToScene({0, 0}).y()
            >= stage.item("listItemText")->mapToScene({0, 0}).y() + stage.item("listItemText")->height() - 0.5);
}

void FluidTest::aRowKeepsItsValueBesideALongText()
{
    Stage stage;
    stage.show("FL.ListItem { width: 200; text: '" + QByteArray(10000, 'x') + "'; subText: '" + QByteArray(10000, 'y')
               + "'; valueText: '100 %' }");
    stage.settle();
    auto *value = stage.item("listItemValue");

    QVERIFY(!value->property("truncated").toBool());
    QVERIFY(value->mapToScene({value->width(), 0}).x() <= 200);
    QVERIFY(stage.item("listItemText")->property("truncated").toBool());
    QVERIFY(stage.item("listItemSubText")->property("truncated").toBool());
    QCOMPARE(stage.item("listItemSubText")->property("lineCount").toInt(), 1);
}

void FluidTest::aRowTakesItemsAtBothSides()
{
    Stage stage;
    stage.show("FL.ListItem { width: 300; text: 'Зал'; iconName: 'maps/map'\n"
               "leftItem: Rectangle { objectName: 'left'; implicitWidth: 40; implicitHeight: 40 }\n"
               "rightItem: QC2.Switch { objectName: 'right' } }");
    stage.settle();
    const auto leftOf = [&](const char *name) { return stage.item(name)->mapToScene({0, 0}).x(); };

    QCOMPARE(leftOf("left"), 16.0); // the icon gives way to it
    QVERIFY(leftOf("left") + 40 < leftOf("listItemText"));
    QVERIFY(leftOf("listItemText") < leftOf("right"));
    stage.click("right");
    QVERIFY(stage.item("right")->property("checked").toBool());
}

void FluidTest::aRowSpeaks()
{
    Stage stage;
    auto *row = stage.show("FL.ListItem { text: 'Зал'; valueText: '40 %' }");
    auto *spoken = QAccessible::queryAccessibleInterface(row);

    QVERIFY(spoken);
    QCOMPARE(spoken->role(), QAccessible::ListItem);
    QCOMPARE(spoken->text(QAccessible::Name), QString("Зал"));
    QCOMPARE(spoken->text(QAccessible::Description), QString("40 %"));
}

void FluidTest::aPlaceholderShowsWhatItIsGiven()
{
    Stage stage;
    auto *placeholder = stage.show("FL.Placeholder { width: 300; height: 300; text: 'Нет зон' }");
    QCOMPARE(stage.text("placeholderTitle"), QString("Нет зон"));
    QVERIFY(!stage.has("placeholderText"));
    const qreal height = placeholder->implicitHeight();

    placeholder->setProperty("icon", "maps/map");
    placeholder->setProperty("subText", "Создайте первую зону, чтобы управлять освещением этого помещения");
    stage.settle();

    QCOMPARE(stage.text("placeholderText").left(7), QString("Создайт"));
    QVERIFY(placeholder->implicitHeight() > height + 72);
    auto *text = stage.item("placeholderText");
    QVERIFY(text->width() <= 300);
    QVERIFY(text->property("lineCount").toInt() > 1);
}

void FluidTest::aCardHoldsItsContent()
{
    Stage stage;
    auto *card = stage.show("FL.Card { FL.BodyLabel { objectName: 'inside'; text: 'Зал' } }");

    QCOMPARE(card->implicitWidth(), stage.item("inside")->implicitWidth());
    QCOMPARE(card->implicitHeight(), stage.item("inside")->implicitHeight());
    QCOMPARE(stage.item("inside")->mapToScene({0, 0}), QPointF(0, 0));
}

ONDIRA_TEST(FluidTest)
#include "FluidTest.moc"
