// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "shell/ColorTheme.h"
#include "support/TestBase.h"

using Link = AbstractBackendCommunicator;

class LoadingScreenTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage, const QByteArray &more = {})
    {
        return stage.show("LoadingScreen { anchors.fill: parent; property int adds: 0; onAddRequested: ++adds\n" + more
                          + "}");
    }

private slots:
    void tellsHowLongItLasts_data()
    {
        QTest::addColumn<int>("seconds");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("shown");

        QTest::newRow("at once") << 0 << "Сервер не отвечает больше 0 секунд" << false;
        QTest::newRow("5") << 5 << "Сервер не отвечает больше 5 секунд" << false;
        QTest::newRow("6") << 6 << "Сервер не отвечает больше 5 секунд" << true;
        QTest::newRow("9") << 9 << "Сервер не отвечает больше 5 секунд" << true;
        QTest::newRow("10") << 10 << "Сервер не отвечает больше 10 секунд" << true;
        QTest::newRow("299") << 299 << "Сервер не отвечает больше 295 секунд" << true;
        QTest::newRow("300") << 300 << "Сервер не отвечает больше 300 секунд" << true;
        QTest::newRow("301") << 301 << "Сервер не отвечает больше 5 минут" << true;
        QTest::newRow("599") << 599 << "Сервер не отвечает больше 5 минут" << true;
        QTest::newRow("600") << 600 << "Сервер не отвечает больше 10 минут" << true;
        QTest::newRow("a day") << 86400 << "Сервер не отвечает больше 1440 минут" << true;
    }

    void tellsHowLongItLasts()
    {
        QFETCH(int, seconds);
        QFETCH(bool, shown);
        Stage stage;
        stage.link.enter(Link::Connecting);
        auto *screen = show(stage, "tickInterval: 1000000");

        screen->setProperty("seconds", seconds);

        QTEST(stage.text("waitLabel"), "text");
        QCOMPARE(stage.item("waitLabel")->opacity(), shown ? 1.0 : 0.0);
    }

    void countsWhileItConnects()
    {
        Stage stage;
        stage.link.enter(Link::Connecting);
        auto *screen = show(stage, "tickInterval: 5");

        QTRY_VERIFY(screen->property("seconds").toInt() > 6);
        QTRY_COMPARE(stage.item("waitLabel")->opacity(), 1.0);
        stage.link.enter(Link::Disconnected);
        QCOMPARE(screen->property("seconds").toInt(), 0);
        QCOMPARE(stage.item("waitLabel")->opacity(), 0.0);
        QSignalSpy counted(screen, SIGNAL(secondsChanged()));
        QVERIFY(!counted.wait(100));
        stage.link.enter(Link::Connecting);

        QVERIFY(counted.wait(patience));
    }

    void oneTickIsASecond()
    {
        Stage stage;
        QCOMPARE(show(stage)->property("tickInterval").toInt(), 1000);
    }

    void headlineAndButtonFollowTheStatus()
    {
        Stage stage;
        stage.connections.add("Дом", "127.0.0.1", "", "");
        show(stage);
        QCOMPARE(stage.text("loadingHeadline"), QString("Сервер отключен"));
        QCOMPARE(stage.text("connectButton"), QString("Переподключиться"));
        QCOMPARE(stage.item("loadingLogo")->property("color").value<QColor>(), ColorTheme().blue());

        stage.link.enter(Link::Connecting);
        QCOMPARE(stage.text("loadingHeadline"), QString("Подключение..."));
        QCOMPARE(stage.text("connectButton"), QString("Отключиться"));
        QTRY_COMPARE(stage.item("loadingLogo")->property("color").value<QColor>(), QColor("#00a74b"));
        stage.link.enter(Link::Connected);

        QVERIFY(!stage.has("connectButton"));
    }

    void buttonReconnectsOrDisconnects()
    {
        Stage stage;
        stage.connections.add("Дом", "127.0.0.1", "", "");
        show(stage);

        stage.click("connectButton");
        QTRY_COMPARE(stage.link.getStatus(), Link::Connecting);
        QCOMPARE(stage.link.operations, QStringList({"auth"}));
        stage.click("connectButton");

        QCOMPARE(stage.link.getStatus(), Link::Disconnected);
    }

    void buttonHasTheKeyboard()
    {
        Stage stage;
        stage.connections.add("Дом", "127.0.0.1", "", "");
        show(stage)->forceActiveFocus();
        QCOMPARE(stage.focusName(), QString("connectButton"));

        stage.key(Qt::Key_Return);

        QTRY_COMPARE(stage.link.getStatus(), Link::Connecting);
    }

    void logoPulsesWhileItConnects()
    {
        Stage stage;
        show(stage);
        QCOMPARE(stage.item("loadingLogo")->scale(), 1.0);
        QSignalSpy pulsed(stage.item("loadingLogo"), SIGNAL(scaleChanged()));
        QVERIFY(!pulsed.wait(100));

        stage.link.enter(Link::Connecting);
        QVERIFY(pulsed.wait(patience));
        stage.link.enter(Link::Disconnected);

        QTRY_COMPARE(stage.item("loadingLogo")->scale(), 1.0); // it comes to rest in its own size
    }

    void withoutConnectionsItOffersToMakeOne()
    {
        Stage stage;
        auto *screen = show(stage);
        QCOMPARE(stage.text("placeholderTitle"), QString("Не создано ни одного подключения к серверу"));
        QCOMPARE(stage.text("placeholderButton"), QString("Создать подключение"));
        QCOMPARE(stage.item("noConnections")->height(), 220.0);
        QCOMPARE(stage.item("noConnections")->y(), 0.0);
        QTRY_COMPARE(stage.item("noConnections")->opacity(), 1.0);

        stage.click("placeholderButton");
        QCOMPARE(screen->property("adds").toInt(), 1);
        screen->forceActiveFocus();
        QCOMPARE(stage.focusName(), QString("placeholderButton"));
        stage.connections.add("Дом", "127.0.0.1", "", "");

        QVERIFY(!stage.has("noConnections"));
    }

    void whoseOnlyConnectionIsGoneMayStillStop()
    {
        Stage stage;
        stage.link.enter(Link::Connecting);
        show(stage);

        stage.click("connectButton");

        QCOMPARE(stage.link.getStatus(), Link::Disconnected);
    }

    void aLowWindowScrolls()
    {
        Stage stage;
        stage.show("LoadingScreen { width: 320; height: 264 }", {320, 264});
        auto *flickable = stage.item("loadingFlickable");
        QVERIFY(flickable->property("contentHeight").toReal() > 264);

        flickable->setProperty("contentY", flickable->property("contentHeight").toReal() - 264);

        auto *button = stage.item("connectButton");
        QVERIFY(button->mapToScene(QPointF(0, button->height())).y() <= 264);
        QVERIFY(button->mapToScene(QPointF()).y() >= stage.item("noConnections")->mapToScene(QPointF(0, 220)).y());
    }
};

ONDIRA_TEST(LoadingScreenTest)
#include "LoadingScreenTest.moc"
