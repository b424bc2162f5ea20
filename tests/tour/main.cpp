// SPDX-License-Identifier: GPL-3.0-or-later
// Starts the program as it is, and drives it.
//   --prepare             only saves the connection "Демо" to 127.0.0.1 in the present data home
//   --pictures FOLDER     takes the tour and leaves its pictures there
//   --gallery FOLDER      leaves a picture of every screen there; --site ADDRESS tells where the demo site listens
//   --first-frame NS      prints how long after that moment (nanoseconds since the epoch) the first frame was on
//                         screen, and the resident memory then
//   --idle SECONDS        prints how much of a core the program takes on the plan when nobody touches it
//   --stall SECONDS       prints the longest stall of the main loop on a live site while the plan is panned, and the
//                         resident memory at the end
//   --growth SECONDS      prints by how much the memory grows in an hour with the plan open on a live site
//   --shell               prints what pages, dialogs and a new language take
//   --plan TILES          prints what a plan of that many tiles takes, against a site of its own
//   --zone DEVICES        prints what the page of a zone with that many devices takes, against a site of its own
// What is left of the arguments goes to the program.
#include "link/JsonBackendCommunicator.h"
#include "shell/ConnectionsListModel.h"
#include "shell/FrontendManager.h"
#include "shell/ProcessSetup.h"
#include "tour/Driver.h"
#include "tour/Gallery.h"
#include "tour/Measurements.h"
#include "tour/ScreenMeasurements.h"
#include "tour/Tour.h"
#include "tour/WiredSite.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDateTime>
#include <QTextStream>
#include <QtTest>
#include <chrono>
#include <memory>

namespace {

constexpr int controlPort = 23140; // where the program looks for its server
constexpr int updatePort = 23141;
constexpr int frameMs = 16;

int prepare()
{
    JsonBackendCommunicator link;
    RuntimePermissionsManager permissions(nullptr);
    ConnectionsListModel connections(link, permissions);
    permissions.getStoragePermission();
    QCoreApplication::sendPostedEvents();
    if (connections.rowCount() > 0)
        return 0;
    return connections.add(QStringLiteral("Демо"), QStringLiteral("127.0.0.1"), QStringLiteral("admin"),
                           QStringLiteral("admin"), {})
        ? 0
        : 1;
}

int measureFirstFrame(Driver &driver, qint64 startNs)
{
    using namespace std::chrono;
    qint64 shownNs = 0;
    QObject::connect(driver.window(), &QQuickWindow::frameSwapped, driver.window(), [&] {
        if (shownNs == 0)
            shownNs = duration_cast<nanoseconds>(system_clock::now().time_since_epoch()).count();
    });
    if (!driver.waitFor([&] { return shownNs != 0; }))
        return 1;
    QTextStream(stdout) << "first_frame_ms " << (shownNs - startNs) / 1000000.0 << "\nresident_mb "
                        << Measurements::residentMemory() / 1048576.0 << '\n';
    return 0;
}

int measureStall(Driver &driver, int seconds)
{
    driver.resize(1280, 800);
    if (!driver.waitForPlan(4))
        return 1;
    ScreenMeasurements screens(driver);
    screens.settle(); // how long the plan takes to open is another figure
    QTimer finger;
    QObject::connect(&finger, &QTimer::timeout, &finger, [&screens] { screens.pan(); });
    finger.start(frameMs);
    const double stall = Measurements::longestStall(seconds * 1000);
    QTextStream(stdout) << "longest_stall_ms " << stall << "\nresident_mb "
                        << Measurements::residentMemory() / 1048576.0 << '\n';
    return 0;
}

// Straight through what was measured each second, so that a collection of garbage at the wrong moment says little.
int measureGrowth(Driver &driver, int seconds)
{
    driver.resize(1280, 800);
    if (!driver.waitForPlan(4))
        return 1;
    const auto perHour = Measurements::growth(qMin(60, seconds / 2), seconds);
    QTextStream(stdout) << "own_memory_growth_mb_per_hour " << perHour.own / 1048576.0 << "\nheap_growth_mb_per_hour "
                        << perHour.heap / 1048576.0 << "\nresident_mb " << Measurements::residentMemory() / 1048576.0
                        << '\n';
    return 0;
}

int measureIdle(Driver &driver, int seconds)
{
    driver.resize(1280, 800);
    if (!driver.waitForPlan(4))
        return 1;
    QTest::qWait(2000); // what follows the login has been painted by then
    const double before = Measurements::processorTime();
    QEventLoop loop;
    QTimer::singleShot(seconds * 1000, &loop, &QEventLoop::quit);
    loop.exec();
    QTextStream(stdout) << "processor_percent " << (Measurements::processorTime() - before) / seconds * 100 << '\n';
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    const QString directory = ProcessSetup::beforeApplication(argc, argv);
    QApplication application(argc, argv);
    ProcessSetup::afterApplication();

    QCommandLineParser parser;
    parser.addOption({QStringLiteral("prepare"), QString()});
    parser.addOption({QStringLiteral("pictures"), QString(), QStringLiteral("folder")});
    parser.addOption({QStringLiteral("gallery"), QString(), QStringLiteral("folder")});
    parser.addOption({QStringLiteral("site"), QString(), QStringLiteral("address"), QStringLiteral("127.0.0.1")});
    parser.addOption({QStringLiteral("first-frame"), QString(), QStringLiteral("ns")});
    parser.addOption({QStringLiteral("idle"), QString(), QStringLiteral("seconds")});
    parser.addOption({QStringLiteral("stall"), QString(), QStringLiteral("seconds")});
    parser.addOption({QStringLiteral("growth"), QString(), QStringLiteral("seconds")});
    parser.addOption({QStringLiteral("shell"), QString()});
    parser.addOption({QStringLiteral("plan"), QString(), QStringLiteral("tiles")});
    parser.addOption({QStringLiteral("zone"), QString(), QStringLiteral("devices")});
    parser.parse(QCoreApplication::arguments());
    if (parser.isSet(QStringLiteral("prepare")))
        return prepare();

    const int tiles = parser.value(QStringLiteral("plan")).toInt();
    const int devices = parser.value(QStringLiteral("zone")).toInt();
    std::unique_ptr<WiredSite> site;
    if (tiles > 0 || devices > 0) {
        site = std::make_unique<WiredSite>(tiles > 0 ? WiredSite::withTiles(tiles) : WiredSite::withDevices(devices));
        if (!site->start(controlPort, updatePort)) {
            QTextStream(stderr) << "The site did not start: is a server running on its ports?\n";
            return 1;
        }
    }

    FrontendManager manager(directory, QCoreApplication::arguments());
    Driver driver(manager);
    if (!driver.window()) {
        QTextStream(stderr) << "The program opened no window.\n";
        return 1;
    }
    if (parser.isSet(QStringLiteral("first-frame")))
        return measureFirstFrame(driver, parser.value(QStringLiteral("first-frame")).toLongLong());
    if (tiles > 0)
        return ScreenMeasurements(driver).plan(*site) ? 0 : 1;
    if (devices > 0)
        return ScreenMeasurements(driver).zone(*site) ? 0 : 1;
    if (parser.isSet(QStringLiteral("shell")))
        return ScreenMeasurements(driver).shell() ? 0 : 1;
    if (parser.isSet(QStringLiteral("growth")))
        return measureGrowth(driver, parser.value(QStringLiteral("growth")).toInt());
    if (parser.isSet(QStringLiteral("stall")))
        return measureStall(driver, parser.value(QStringLiteral("stall")).toInt());
    if (parser.isSet(QStringLiteral("idle")))
        return measureIdle(driver, parser.value(QStringLiteral("idle")).toInt());
    if (parser.isSet(QStringLiteral("gallery"))) {
        Gallery gallery(driver, parser.value(QStringLiteral("gallery")), parser.value(QStringLiteral("site")));
        return gallery.run() ? 0 : 1;
    }
    return Tour(driver, parser.value(QStringLiteral("pictures"))).run() ? 0 : 1;
}
