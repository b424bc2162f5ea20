// SPDX-License-Identifier: GPL-3.0-or-later
// Starts the program as it is, and drives it.
//   --prepare             only saves the connection "Демо" to 127.0.0.1 in the present data home
//   --pictures FOLDER     takes the tour and leaves its pictures there
//   --gallery FOLDER      leaves a picture of every screen there; --site ADDRESS tells where the demo site listens
//   --first-frame NS      prints how long after that moment (nanoseconds since the epoch) the first frame was on
//                         screen, and the resident memory then
//   --idle SECONDS        prints how much of a core the program takes on the plan when nobody touches it
//   --stall SECONDS       prints the longest stall of the main loop on a live site, and the resident memory at the end
// What is left of the arguments goes to the program.
#include "link/JsonBackendCommunicator.h"
#include "shell/ConnectionsListModel.h"
#include "shell/FrontendManager.h"
#include "shell/ProcessSetup.h"
#include "tour/Driver.h"
#include "tour/Gallery.h"
#include "tour/Measurements.h"
#include "tour/Tour.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDateTime>
#include <QTextStream>
#include <QtTest>
#include <chrono>

namespace {

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
    const double stall = Measurements::longestStall(seconds * 1000);
    QTextStream(stdout) << "longest_stall_ms " << stall << "\nresident_mb "
                        << Measurements::residentMemory() / 1048576.0 << '\n';
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
    parser.parse(QCoreApplication::arguments());
    if (parser.isSet(QStringLiteral("prepare")))
        return prepare();

    FrontendManager manager(directory, QCoreApplication::arguments());
    Driver driver(manager);
    if (!driver.window()) {
        QTextStream(stderr) << "The program opened no window.\n";
        return 1;
    }
    if (parser.isSet(QStringLiteral("first-frame")))
        return measureFirstFrame(driver, parser.value(QStringLiteral("first-frame")).toLongLong());
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
