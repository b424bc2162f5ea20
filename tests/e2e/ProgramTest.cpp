// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ShopPartsListModel.h"
#include "data/ZonesListModel.h"
#include "e2e/SiteProcess.h"
#include "link/AbstractBackendCommunicator.h"
#include "shell/FrontendManager.h"
#include "support/TestBase.h"
#include "tour/Driver.h"

#include <QQmlContext>
#include <cstdio>

// The whole program in this process, driven through its window, against the demo site. One program is started for
// all tests, which go on from each other as a user would.
class ProgramTest : public TestBase
{
    Q_OBJECT

private:
    using Link = AbstractBackendCommunicator;

    AbstractBackendCommunicator &link() const { return m_manager->getCommunicator(); }

    QAbstractItemModel *model(const char *name) const
    {
        return m_manager->getEngine().rootContext()->contextProperty(name).value<QAbstractItemModel *>();
    }

    QQuickItem *choose(int tile)
    {
        auto *item = m_driver->zoneTiles().at(static_cast<size_t>(tile));
        m_driver->click(item);
        if (!m_driver->waitFor([&] { return isSelected(item) && m_driver->find("brightnessControl"); }, 5000))
            tellWhere(item);
        return item;
    }

    // What stood in the way of a click, for the log of a machine that nobody can look at.
    void tellWhere(QQuickItem *item) const
    {
        const auto middle = item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
        auto *window = m_driver->window();
        std::fprintf(stderr, "window %dx%d exposed %d active %d, click at %g,%g, grabber %s\n", window->width(),
                     window->height(), window->isExposed(), window->isActive(), middle.x(), middle.y(),
                     window->mouseGrabberItem() ? window->mouseGrabberItem()->metaObject()->className() : "none");
        auto *at = window->contentItem()->parentItem() ? window->contentItem()->parentItem() : window->contentItem();
        for (auto *next = at; next; at = next) {
            const auto place = next->mapFromScene(middle);
            std::fprintf(stderr, "  %s \"%s\" %g,%g %gx%g enabled %d\n", next->metaObject()->className(),
                         qPrintable(next->objectName()), next->x(), next->y(), next->width(), next->height(),
                         next->isEnabled());
            next = next->childAt(place.x(), place.y());
        }
        for (const char *name : {"errorPopup", "connectionsDrawer", "brightnessBar", "loadingScreen"}) {
            const auto *object = window->findChild<QObject *>(QString::fromLatin1(name));
            std::fprintf(stderr, "  %s visible %d\n", name, object && object->property("visible").toBool());
        }
    }

    QQuickItem *tab(int index) const
    {
        QQuickItem *item = nullptr;
        QMetaObject::invokeMethod(m_driver->find("partsTabBar"), "itemAt", Q_RETURN_ARG(QQuickItem *, item),
                                  Q_ARG(int, index));
        return item;
    }

    bool isSelected(QQuickItem *tile) const { return tile->property("selected").toBool(); }

private slots:
    void initTestCase();
    void logsInAndShowsThePlanOfTheFirstPart();
    void selectionAccumulatesAndGoesByAClickOnTheCanvas();
    void powerButtonsDriveTheChosenZones_data();
    void powerButtonsDriveTheChosenZones();
    void autoModeReleasesTheZone();
    void tabShowsAnotherPart();
    void zoomStaysInItsBounds();
    void stoppedServerShowsThatItIsConnecting();
    void returnedServerIsFoundByItself();
    void fitsOnAPhone();
    void cleanupTestCase();

private:
    SiteProcess m_site{QStringLiteral("127.0.6.1")};
    std::unique_ptr<FrontendManager> m_manager;
    std::unique_ptr<Driver> m_driver;
};

void ProgramTest::initTestCase()
{
    QVERIFY(m_site.start());
    QVERIFY(
        saveConnection(QStringLiteral("Проверка"), m_site.address(), QStringLiteral("admin"), QStringLiteral("admin")));
    m_manager = std::make_unique<FrontendManager>(QCoreApplication::applicationDirPath(), QStringList());
    m_driver = std::make_unique<Driver>(*m_manager);
    QVERIFY(m_driver->window());
    QVERIFY(m_driver->waitFor([this] { return m_driver->window()->isExposed(); }, 20000));
    m_driver->resize(1280, 800);
}

void ProgramTest::logsInAndShowsThePlanOfTheFirstPart()
{
    QVERIFY(m_driver->waitForPlan(4));
    QVERIFY(!m_driver->settledPicture().isNull());

    QCOMPARE(link().getUserGroup(), QStringLiteral("admin"));
    QVERIFY(!m_driver->find("loadingScreen"));
    QStringList names;
    auto *parts = model("shopPartsListModel");
    for (int row = 0; row < parts->rowCount(); ++row)
        names << parts->index(row, 0).data(ShopPartsListModel::Name).toString();
    names.sort();
    auto *zones = model("zonesListModel");
    int expected = 0;
    for (int row = 0; row < zones->rowCount(); ++row)
        expected += zones->index(row, 0).data(ZonesListModel::PartName).toString() == names.first() ? 1 : 0;
    QTRY_COMPARE(static_cast<int>(m_driver->zoneTiles().size()), expected);
    for (auto *tile : m_driver->zoneTiles()) {
        const auto zone = qobject_cast<ZonesListModel *>(zones)->getByUid(tile->property("uid").toString());
        QCOMPARE(tile->x(), zone.value("x").toReal());
        QCOMPARE(tile->width(), zone.value("width").toReal());
        QCOMPARE(tile->property("powerPercent").toInt(), zone.value("power").toInt());
        QCOMPARE(tile->property("manual").toBool(), zone.value("manual").toBool());
    }
}

void ProgramTest::selectionAccumulatesAndGoesByAClickOnTheCanvas()
{
    auto *first = choose(0);
    QVERIFY(isSelected(first));
    QTRY_VERIFY(m_driver->find("powerButton60"));
    auto *second = choose(1);
    QVERIFY(isSelected(first));
    QVERIFY(isSelected(second));

    auto *plan = m_driver->find("GridCanvas");
    const QPointF right(first->x() - 16, first->y() - 16);
    QTest::mouseClick(m_driver->window(), Qt::LeftButton, Qt::NoModifier, plan->mapToScene(right).toPoint());

    QTRY_VERIFY(!isSelected(first));
    QVERIFY(!isSelected(second));
    QTRY_VERIFY(!m_driver->find("powerButton60"));
}

void ProgramTest::powerButtonsDriveTheChosenZones_data()
{
    QTest::addColumn<int>("percent");

    for (const int percent : {20, 40, 60, 80, 100, 0})
        QTest::newRow(qPrintable(QString::number(percent))) << percent;
}

void ProgramTest::powerButtonsDriveTheChosenZones()
{
    QFETCH(int, percent);
    auto *first = choose(0);
    auto *second = choose(2);
    QVERIFY(m_driver->press(QStringLiteral("powerButton%1").arg(percent)));

    QTRY_COMPARE(first->property("powerPercent").toInt(), percent);
    QTRY_COMPARE(second->property("powerPercent").toInt(), percent);
    QVERIFY(first->property("manual").toBool());
    QTRY_VERIFY(!isSelected(first));
    QTRY_VERIFY(!m_driver->find("powerButton60"));
}

void ProgramTest::autoModeReleasesTheZone()
{
    auto *tile = choose(0);
    QVERIFY(tile->property("manual").toBool());
    QVERIFY(m_driver->press("autoModeButton"));

    QTRY_VERIFY(!tile->property("manual").toBool());
}

void ProgramTest::tabShowsAnotherPart()
{
    auto *tabs = m_driver->find("partsTabBar");
    QVERIFY(tabs);
    QCOMPARE(tabs->property("currentIndex").toInt(), 0);
    const QString before = m_driver->zoneTiles().front()->property("uid").toString();

    m_driver->click(tab(1));
    QTRY_COMPARE(tabs->property("currentIndex").toInt(), 1);
    QTRY_VERIFY(!m_driver->zoneTiles().empty());
    QTRY_VERIFY(m_driver->zoneTile(before) == nullptr);

    m_driver->click(tab(0));
    QTRY_VERIFY(m_driver->zoneTile(before) != nullptr);
}

void ProgramTest::zoomStaysInItsBounds()
{
    auto *plan = m_driver->find("GridCanvas");
    const QPointF middle(m_driver->window()->width() / 2.0, m_driver->window()->height() / 2.0);
    const auto wheel = [&](int notches) {
        for (int i = 0; i < qAbs(notches); ++i) {
            QWheelEvent event(middle, middle, QPoint(), QPoint(0, notches < 0 ? -120 : 120), Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(m_driver->window(), &event);
        }
    };

    QCOMPARE(plan->scale(), 1.0);
    wheel(1);
    QVERIFY(qAbs(plan->scale() - 1.1) < 0.001);
    wheel(60);
    QVERIFY(plan->scale() < 4.0);
    QVERIFY(plan->scale() > 3.5);
    wheel(-60);
    auto *page = m_driver->find("desktop");
    QVERIFY(plan->scale() * 4096 >= page->width() - 1);
    QVERIFY(plan->scale() < 0.5);

    // An administrator resets it at the foot of the panel of the edit mode.
    QVERIFY(m_driver->press("editModeAction"));
    QVERIFY(m_driver->press("scaleLabel"));
    QTRY_VERIFY(qAbs(plan->scale() - 1.0) < 0.001);
    QVERIFY(m_driver->press("editModeAction"));
    QTRY_VERIFY(!m_driver->find("scaleLabel"));
}

void ProgramTest::stoppedServerShowsThatItIsConnecting()
{
    QVERIFY(m_driver->find("statusLabel"));

    m_site.stop();

    QTRY_COMPARE_WITH_TIMEOUT(static_cast<int>(link().getStatus()), static_cast<int>(Link::Connecting), 20000);
    QTRY_VERIFY(m_driver->find("loadingHeadline"));
    QCOMPARE(m_driver->find("loadingHeadline")->property("text").toString(), QStringLiteral("Подключение..."));
    // What was shown last is kept while the link looks for the server.
    QVERIFY(model("zonesListModel")->rowCount() > 0);
}

void ProgramTest::returnedServerIsFoundByItself()
{
    QSignalSpy zones(&link(), &Link::zonesReceived);
    QSignalSpy states(&link(), &Link::devicesStatesReceived);

    QVERIFY(m_site.start());

    QTRY_COMPARE_WITH_TIMEOUT(static_cast<int>(link().getStatus()), static_cast<int>(Link::Connected), 10000);
    QTRY_VERIFY_WITH_TIMEOUT(!zones.isEmpty() && !states.isEmpty(), 10000);
    QTRY_VERIFY(!m_driver->find("loadingHeadline"));
    QVERIFY(m_driver->waitForPlan(4));
}

void ProgramTest::fitsOnAPhone()
{
    m_driver->resize(420, 800);
    auto *tile = choose(0);
    QTRY_VERIFY(m_driver->find("powerButton100"));

    for (const int percent : {0, 20, 40, 60, 80, 100}) {
        auto *button = m_driver->find(QStringLiteral("powerButton%1").arg(percent));
        QVERIFY(button->mapToScene(QPointF()).x() >= 0);
        QVERIFY(button->mapToScene(QPointF(button->width(), 0)).x() <= 420);
    }
    m_driver->click(tile);
    QTRY_VERIFY(!m_driver->find("powerButton100"));
}

void ProgramTest::cleanupTestCase()
{
    m_driver.reset();
    m_manager.reset();
}

ONDIRA_TEST(ProgramTest)
#include "ProgramTest.moc"
