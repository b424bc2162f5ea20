// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <cmath>
#include <limits>

using namespace Records;

// The whole program on a site whose lists hold what no sane site holds: it shows what it can, says nothing of it in the
// log, and goes on.
class BadSiteTest : public TestBase
{
    Q_OBJECT

private:
    static void start(Stage &stage, const QString &connection = QStringLiteral("Демо"))
    {
        stage.connections.add(connection, "192.168.100.200", "admin", "admin");
        stage.showMain();
        stage.link.logIn("admin", "admin");
        stage.publishSite(1, "Зал");
        QTRY_VERIFY(stage.tile(11));
        QTRY_VERIFY(stage.item("shopScreen")->property("loaded").toBool());
    }

    static bool showPage(Stage &stage, const QString &link, const QVariantMap &properties = {})
    {
        QMetaObject::invokeMethod(stage.object("nav"), "show", Q_ARG(QVariant, link), Q_ARG(QVariant, properties));
        return QTest::qWaitFor([&] { return stage.object("nav")->property("currentLink").toString() == link; },
                               patience);
    }

    static Model::ImageItem picture(uint n, const QRectF &place)
    {
        Model::ImageItem item;
        item.uid = uid(n);
        item.partUid = uid(1);
        item.x = place.x();
        item.y = place.y();
        item.width = place.width();
        item.height = place.height();
        return item;
    }

    static bool answer(Stage &stage, const QByteArray &bytes)
    {
        if (!QTest::qWaitFor([&] { return bool(stage.link.imageCallback); }, patience))
            return false;
        Model::ImageItem::Image image;
        image.data = bytes;
        std::exchange(stage.link.imageCallback, {})(image);
        return true;
    }

    static void goOn(Stage &stage)
    {
        stage.publishSite(2, "Зал");
        QTRY_VERIFY(stage.tile(12));
        stage.settle();
        stage.click(stage.tile(12));
        QTRY_VERIFY(stage.has("powerButton100"));
        stage.settle();
        stage.link.operations.clear();
        stage.click("powerButton100");
        QCOMPARE(stage.link.operations, QStringList({"runActionSequences"}));
    }

private slots:
    void placesAndSizesOfNoSense()
    {
        Stage stage;
        start(stage);
        const double nothing = std::numeric_limits<double>::quiet_NaN();
        const double endless = std::numeric_limits<double>::infinity();
        std::vector<Model::Zone> zones;
        uint n = 20;
        for (const double place : {-1e9, -500.0, 4096.0, 1e9, nothing, endless, -endless}) {
            for (const double size : {0.0, -10.0, 1e9, nothing, endless}) {
                auto zone = Records::zone(n++, "z", 1);
                zone.position = {place, place};
                zone.width = size;
                zone.height = size;
                zones.push_back(zone);
            }
        }
        stage.link.publishZones(zones);
        QTRY_VERIFY(stage.tile(n - 1));
        stage.settle();

        stage.shop.enableEditing(true);
        stage.settle();
        stage.resize({420, 800});
        stage.settle();
        stage.resize({1280, 800});
        stage.shop.enableEditing(false);

        goOn(stage);
    }

    void twoThousandZonesAtOneSpot()
    {
        Stage stage;
        start(stage);
        std::vector<Model::Zone> zones;
        for (uint n = 0; n < 2000; ++n) {
            auto zone = Records::zone(1000 + n, QStringLiteral("Зона %1").arg(n), 1);
            zone.position = {64, 64};
            zone.width = 144;
            zone.height = 144;
            zones.push_back(zone);
        }
        QElapsedTimer time;
        time.start();
        stage.link.publishZones(zones);
        QTRY_VERIFY_WITH_TIMEOUT(stage.tile(2999), 20000);
        stage.settle();
        QVERIFY2(time.elapsed() < 20000, qPrintable(QString::number(time.elapsed())));

        stage.click(stage.tile(1000));

        QCOMPARE(stage.item("shopScreen")->property("selectedZones").toStringList().size(), 1);
    }

    void picturesThatAreNone_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("isShown");

        QByteArray png;
        QBuffer buffer(&png);
        QImage image(8, 4, QImage::Format_RGB32);
        image.fill(Qt::red);
        image.save(&buffer, "PNG");
        // Its header promises 20,000 by 20,000 pixels.
        QImage wide(20000, 20000, QImage::Format_Mono);
        wide.fill(0);
        QByteArray huge;
        QBuffer hugeBuffer(&huge);
        wide.save(&hugeBuffer, "PNG");
        QTest::newRow("a picture") << png << true;
        QTest::newRow("nothing") << QByteArray() << false;
        QTest::newRow("a text") << QByteArray("no picture") << false;
        QTest::newRow("cut short") << png.left(png.size() / 2) << false;
        QTest::newRow("twenty thousand pixels a side") << huge << false;
        QTest::newRow("drawn") << QByteArray(
            "<svg xmlns='http://www.w3.org/2000/svg' width='40' height='20'><rect width='40' height='20'"
            " fill='red'/></svg>")
                               << true;
        QTest::newRow("drawn without a size") << QByteArray("<svg xmlns='http://www.w3.org/2000/svg'/>") << false;
        QTest::newRow("drawn, broken") << QByteArray("<svg><rect") << false;
    }

    void picturesThatAreNone()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, isShown);
        allowMessages("mage|svg|SVG|picture|Start tag|Premature|parse");
        Stage stage;
        start(stage);

        stage.link.publishImageItems({picture(41, {200, 100, 64, 32})});
        QVERIFY(answer(stage, bytes));
        QTRY_COMPARE(stage.tile(41)->property("tries").toInt(), isShown ? 0 : 3);
        stage.settle();

        QCOMPARE(stage.tile(41)->property("ratio").toDouble() > 0, isShown);
        QVERIFY(!stage.link.imageCallback);
        stage.link.publishImageItems({});
        goOn(stage);
    }

    void coloursAndIconsThatAreNone()
    {
        allowMessages("There is no icon");
        Stage stage;
        start(stage);
        Model::Button button;
        button.uid = uid(31);
        button.partUid = uid(1);
        button.onColor = "no colour";
        button.offColor = "#12";
        button.position = {300, 300};
        Model::Indicator indicator;
        indicator.uid = uid(41);
        indicator.partUid = uid(1);
        indicator.icon = "../../no/such icon";
        indicator.textColor = "nothing";
        indicator.iconColor = "#zzzzzz";
        indicator.indicatorType = 77;
        indicator.horizontalAlignment = 99;
        indicator.position = {500, 300};
        stage.link.publishButtons({button});
        stage.link.publishIndicators({indicator});
        QTRY_VERIFY(stage.tile(41));
        stage.settle();
        stage.link.operations.clear();

        stage.click(stage.tile(31));

        QCOMPARE(stage.link.operations, QStringList({"setButtonStates"}));
        for (const uint n : {31U, 41U}) {
            stage.shop.enableEditing(true);
            stage.click(stage.tile(n));
            QMetaObject::invokeMethod(stage.item("shopScreen"), "editSelected");
            QTRY_VERIFY(stage.has("positiveButton"));
            stage.settle();
            stage.key(Qt::Key_Escape);
            QTRY_VERIFY(!stage.has("positiveButton"));
            QMetaObject::invokeMethod(stage.item("shopScreen"), "deselectAll");
        }
        stage.shop.enableEditing(false);
        goOn(stage);
    }

    void namesOfTenThousandLetters_data()
    {
        QTest::addColumn<QString>("name");

        QTest::newRow("one word") << QString(10000, QChar('W'));
        QTest::newRow("words") << QStringLiteral("длинное имя ").repeated(850);
        QTest::newRow("lines") << QStringLiteral("строка\n").repeated(1500);
        QTest::newRow("markup") << QStringLiteral("<b>&amp;<img src='qrc:/none.png'>").repeated(330);
    }

    void namesOfTenThousandLetters()
    {
        QFETCH(QString, name);
        Stage stage;
        QElapsedTimer time;
        time.start();
        start(stage, name);
        stage.link.publishShopParts({part(1, name), part(2, name)});
        auto zone = Records::zone(11, name, 1);
        zone.position = {64, 64};
        zone.width = 144;
        zone.height = 144;
        stage.link.publishZones({zone, Records::zone(12, name, 1)});
        stage.link.publishDeviceTypes({type("lamp:1", name)});
        stage.link.publishDevices({device(21, 11, "lamp:1", 1)});
        Model::Button button;
        button.uid = uid(31);
        button.partUid = uid(1);
        button.name = name;
        button.position = {300, 300};
        stage.link.publishButtons({button});
        Model::Indicator indicator;
        indicator.uid = uid(41);
        indicator.partUid = uid(1);
        indicator.label = name;
        indicator.position = {500, 300};
        stage.link.publishIndicators({indicator});
        stage.link.reportErrors({{"500", name, name}});
        stage.settle();
        stage.key(Qt::Key_Escape);

        stage.shop.enableEditing(true);
        stage.settle();
        for (const char *tab : {"zonesTab", "buttonsTab", "partsTab"}) {
            stage.click(tab);
            stage.settle();
        }
        stage.shop.enableEditing(false);
        stage.settle();
        QVERIFY(showPage(stage, "sliders"));
        stage.settle();
        QVERIFY(showPage(stage, "zone", {{"uid", text(11)}}));
        stage.settle();
        stage.resize({420, 800});
        stage.settle();
        stage.resize({1280, 800});
        QVERIFY(showPage(stage, "desktop"));
        stage.settle();

        QVERIFY2(time.elapsed() < 30000, qPrintable(QString::number(time.elapsed())));
        goOn(stage);
    }

    void aPartThatGoesWhileItIsEdited()
    {
        Stage stage;
        start(stage);
        stage.link.publishShopParts({part(1, "Зал"), part(2, "Двор")});
        stage.shop.enableEditing(true);
        stage.settle();
        QMetaObject::invokeMethod(stage.object("objectDialog"), "openFor", Q_ARG(QVariant, text(1)),
                                  Q_ARG(QVariant, "Зал"));
        QTRY_VERIFY(stage.has("nameField"));
        stage.settle();
        stage.link.operations.clear();

        stage.link.publishShopParts({part(2, "Двор")});
        stage.item("nameField")->setProperty("text", "Холл");
        stage.settle();
        stage.click("positiveButton");

        // It was of a part that is no more; none other takes its name.
        for (const auto &sent : stage.link.shopParts)
            QVERIFY(sent.uid != uid(2));
        QTRY_COMPARE_WITH_TIMEOUT(stage.item("shopScreen")->property("uid").toString(), text(2), 3000);
    }

    void everythingTwiceAndInTheWrongOrder()
    {
        Stage stage;
        start(stage);
        auto zone = Records::zone(12, "Зона", 1);
        zone.position = {320, 64};
        zone.width = 144;
        zone.height = 144;
        stage.link.publishDeviceStates({state(21, {{"power", "sixty"}}), state(21, {{"power", QVariantList{1}}})});
        stage.link.publishDeviceModes({manual(21), automatic(21)});
        stage.link.publishDevices({device(21, 12, "lamp:1", 1), device(21, 12, "lamp:1", 1)});
        stage.link.publishZones({zone, zone});
        stage.link.publishShopParts({part(1, "Зал"), part(1, "Зал")});
        stage.link.publishDeviceTypes({type("lamp:1", "Лампа"), type("lamp:1", "Лампа")});
        stage.settle();
        QVERIFY(showPage(stage, "zone", {{"uid", text(12)}}));
        stage.settle();
        QVERIFY(showPage(stage, "zone", {{"uid", text(77)}})); // there is none
        stage.settle();
        QVERIFY(showPage(stage, "sliders"));
        stage.settle();
        QVERIFY(showPage(stage, "desktop"));

        goOn(stage);
    }
};

ONDIRA_TEST(BadSiteTest)
#include "BadSiteTest.moc"
