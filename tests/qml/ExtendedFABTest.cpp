// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

// The button and its variant for this version of Qt behave alike.
class ExtendedFABTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage, const QByteArray &properties)
    {
        QFETCH(QByteArray, file);
        stage.show("Item { id: root; anchors.fill: parent; property int clicks: 0; objectName: 'root'\n"
                   "Loader { x: 100; y: 100; source: 'qrc:/EnhancedMaterial/"
                   + file
                   + "'\nonLoaded: { item.objectName = 'fab'; item.clicked.connect(function() { ++root.clicks })\n"
                   + properties + " } } }");
        return stage.item("fab");
    }
    static int clicks(Stage &stage) { return stage.item("root")->property("clicks").toInt(); }
    static QQuickItem *face(QQuickItem *fab) { return fab->property("background").value<QQuickItem *>(); }

    static void files()
    {
        QTest::addColumn<QByteArray>("file");

        QTest::newRow("any version") << QByteArray("ExtendedFAB.qml");
        QTest::newRow("5.15") << QByteArray("+qt515/ExtendedFAB.qml");
    }

private slots:
    void isRound_data() { files(); }

    void isRound()
    {
        Stage stage;
        auto *fab = show(stage, "item.text = 'Добавить'; item.icon.source = 'qrc:/images/plan.svg'");
        QVERIFY(fab);

        QCOMPARE(face(fab)->size(), QSizeF(56, 56));
        QCOMPARE(face(fab)->property("radius").toReal(), 28.0);
        QVERIFY(!stage.has("fabText"));
        fab->setProperty("mini", true);

        QCOMPARE(face(fab)->size(), QSizeF(40, 40));
        QCOMPARE(face(fab)->property("radius").toReal(), 20.0);
    }

    void showsItsTextWhileExtended_data() { files(); }

    void showsItsTextWhileExtended()
    {
        Stage stage;
        auto *fab = show(stage, "item.text = 'Добавить'; item.icon.source = 'qrc:/images/plan.svg'");
        QVERIFY(fab);

        fab->setProperty("extended", true);
        QTRY_VERIFY(stage.has("fabText"));
        QTRY_VERIFY(face(fab)->width() > 100);
        QCOMPARE(face(fab)->height(), 56.0);
        auto *text = stage.item("fabText");
        QVERIFY(text->mapToItem(face(fab), QPointF(text->width(), 0)).x() <= face(fab)->width() - 15);
        const qreal width = face(fab)->width();
        fab->setProperty("text", "Добавить устройство");
        QTRY_VERIFY(face(fab)->width() > width + 40);
        fab->setProperty("extended", false);

        QTRY_COMPARE(face(fab)->width(), 56.0);
        QVERIFY(!stage.has("fabText"));
    }

    void anExtendedOneWithoutTextIsRound_data() { files(); }

    void anExtendedOneWithoutTextIsRound()
    {
        Stage stage;
        auto *fab = show(stage, "item.icon.source = 'qrc:/images/plan.svg'; item.extended = true");
        QVERIFY(fab);

        QCOMPARE(face(fab)->size(), QSizeF(56, 56));
    }

    void isDrivenByMouseAndKeyboard_data() { files(); }

    void isDrivenByMouseAndKeyboard()
    {
        Stage stage;
        auto *fab = show(stage, "item.text = 'Добавить'; item.icon.source = 'qrc:/images/plan.svg'");
        QVERIFY(fab);

        stage.click("fab");
        QCOMPARE(clicks(stage), 1);
        fab->forceActiveFocus();
        stage.key(Qt::Key_Return);
        stage.key(Qt::Key_Space);
        QCOMPARE(clicks(stage), 3);
        fab->setEnabled(false);
        stage.click("fab");

        QCOMPARE(clicks(stage), 3);
    }

    void aSmallOneIsHitByAFinger_data() { files(); }

    void aSmallOneIsHitByAFinger()
    {
        Stage stage;
        auto *fab = show(stage, "item.text = 'Добавить'; item.icon.source = 'qrc:/images/plan.svg'; item.mini = true");
        QVERIFY(fab);
        const QPoint middle = stage.middleOf(fab);

        stage.clickAt(middle + QPoint(22, 22));
        stage.clickAt(middle - QPoint(23, 23));
        QCOMPARE(clicks(stage), 2);
        stage.clickAt(middle + QPoint(32, 0));

        QCOMPARE(clicks(stage), 2);
    }

    void disabledItLooksSo_data() { files(); }

    void disabledItLooksSo()
    {
        Stage stage;
        auto *fab = show(stage, "item.text = 'Добавить'; item.extended = true");
        QVERIFY(fab);
        const auto color = face(fab)->property("color").value<QColor>();
        QCOMPARE(color, QColor("#1483dc"));

        fab->setEnabled(false);

        QVERIFY(face(fab)->property("color").value<QColor>() != color);
    }
};

ONDIRA_TEST(ExtendedFABTest)
#include "ExtendedFABTest.moc"
