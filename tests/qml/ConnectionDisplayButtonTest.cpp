// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "shell/ColorTheme.h"
#include "support/TestBase.h"

#include <QQmlProperty>
#include <QTimeZone>

using Link = AbstractBackendCommunicator;

class ConnectionDisplayButtonTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage)
    {
        return stage.show("ConnectionDisplayButton { width: 200; height: 56; property int clicks: 0\n"
                          "onClicked: ++clicks }");
    }

    static QColor dot(const Stage &stage) { return stage.item("statusDot")->property("color").value<QColor>(); }

private slots:
    void showsTheStatus()
    {
        Stage stage;
        show(stage);
        QCOMPARE(stage.text("statusLabel"), QString("Отключен"));
        QCOMPARE(dot(stage), ColorTheme().red());

        stage.link.enter(Link::Connecting);
        QCOMPARE(stage.text("statusLabel"), QString("Подключение..."));
        QCOMPARE(dot(stage), ColorTheme().orange());
        stage.link.enter(Link::Connected);
        stage.link.publishTime(QDateTime({2024, 2, 29}, {13, 5}, QTimeZone::utc()));

        QCOMPARE(stage.text("statusLabel"), QString("13:05 29.02.2024"));
        QCOMPARE(dot(stage), ColorTheme().green());
    }

    void showsTheTitleOfThePage()
    {
        Stage stage;
        auto *button = show(stage);

        button->setProperty("title", "<i>Дом</i> & сад");

        QCOMPARE(stage.text("connectionName"), QString("<i>Дом</i> & сад"));
        QCOMPARE(stage.item("connectionName")->property("textFormat").toInt(), static_cast<int>(Qt::PlainText));
        QCOMPARE(button->property("text").toString(), QString("<i>Дом</i> & сад"));
    }

    void aNarrowWindowHasItInItsSidebar()
    {
        Stage stage;
        auto *button = show(stage);
        stage.resize({960, 600});
        QVERIFY(button->isVisible());
        QCOMPARE(button->implicitWidth(), 200.0);

        stage.resize({959, 600});

        QVERIFY(!button->isVisible());
    }

    void aClickOpensTheConnectionsOverIt()
    {
        Stage stage;
        auto *button = show(stage);

        stage.click(button);

        QCOMPARE(QQmlProperty::read(stage.window(), "connectionsDrawer.caller").value<QQuickItem *>(), button);
    }

    void aLongNameIsCut_data()
    {
        QTest::addColumn<QString>("name");

        QTest::newRow("letters") << QString(10000, QChar(u'Ж'));
        QTest::newRow("lines") << QString("строка\n").repeated(1000);
        QTest::newRow("right to left") << QStringLiteral("מסדרון ").repeated(200);
    }

    void aLongNameIsCut()
    {
        QFETCH(QString, name);
        Stage stage;
        auto *button = show(stage);

        button->setProperty("title", name);
        stage.settle();

        auto *label = stage.item("connectionName");
        QVERIFY(label->mapToItem(button, QPointF(label->width(), 0)).x() <= 200);
        QVERIFY(label->property("contentWidth").toReal() <= label->width() + 1);
        QVERIFY(label->height() < 30);
    }

    void isPressedByMouseAndKeyboard()
    {
        Stage stage;
        auto *button = show(stage);

        stage.click(button);
        stage.key(Qt::Key_Tab);
        stage.key(Qt::Key_Return);
        stage.key(Qt::Key_Space);

        QCOMPARE(button->property("clicks").toInt(), 3);
    }
};

ONDIRA_TEST(ConnectionDisplayButtonTest)
#include "ConnectionDisplayButtonTest.moc"
