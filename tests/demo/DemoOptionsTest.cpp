// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/DemoOptions.h"
#include "demo/SiteLoader.h"
#include "support/TestBase.h"

#include <QTemporaryDir>

using Demo::DemoOptions;
using Action = DemoOptions::Action;

namespace {

DemoOptions parse(const QStringList &arguments)
{
    return DemoOptions::parse(QStringList("OndiraDemoSite") + arguments);
}

} // namespace

class DemoOptionsTest : public TestBase
{
    Q_OBJECT

private slots:
    void defaults();
    void takesEveryOption();
    void refuses_data();
    void refuses();
    void helpNamesTheOptions();
    void loadsTheSiteAsOften_data();
    void loadsTheSiteAsOften();
    void loadsSiteFile();
    void missingSiteFileIsTold();
};

void DemoOptionsTest::defaults()
{
    const auto options = parse({});

    QCOMPARE(options.action, Action::Run);
    QCOMPARE(options.settings.bind, QString("127.0.0.1"));
    QCOMPARE(options.settings.controlPort, 23140);
    QCOMPARE(options.settings.updatePort, 23141);
    QCOMPARE(options.settings.version, QVersionNumber(4, 5, 2));
    QCOMPARE(options.settings.tick, 1000);
    QCOMPARE(options.settings.faults.silent, false);
    QCOMPARE(options.settings.faults.garbage, false);
    QCOMPARE(options.settings.faults.noPublications, false);
    QCOMPARE(options.settings.faults.drop, 0);
    QCOMPARE(options.settings.faults.slow, 0);
    QCOMPARE(options.siteFile, QString());
}

void DemoOptionsTest::takesEveryOption()
{
    const auto options = parse({"--control-port",
                                "1",
                                "--update-port=2",
                                "--bind",
                                "0.0.0.0",
                                "--site",
                                "a.json",
                                "--scale",
                                "3",
                                "--devices",
                                "500",
                                "--seed",
                                "42",
                                "--version",
                                "4.2.5",
                                "--tick",
                                "20",
                                "--silent",
                                "--slow",
                                "30",
                                "--drop",
                                "4",
                                "--garbage",
                                "--no-publications"});

    QCOMPARE(options.text, QString());
    QCOMPARE(options.action, Action::Run);
    QCOMPARE(options.settings.controlPort, 1);
    QCOMPARE(options.settings.updatePort, 2);
    QCOMPARE(options.settings.bind, QString("0.0.0.0"));
    QCOMPARE(options.siteFile, QString("a.json"));
    QCOMPARE(options.scale, 3);
    QCOMPARE(options.devices, 500);
    QCOMPARE(options.settings.seed, 42u);
    QCOMPARE(options.settings.version, QVersionNumber(4, 2, 5));
    QCOMPARE(options.settings.tick, 20);
    QVERIFY(options.settings.faults.silent);
    QCOMPARE(options.settings.faults.slow, 30);
    QCOMPARE(options.settings.faults.drop, 4);
    QVERIFY(options.settings.faults.garbage);
    QVERIFY(options.settings.faults.noPublications);
}

void DemoOptionsTest::refuses_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("named");

    QTest::newRow("unknown option") << QStringList{"--fast"} << "fast";
    QTest::newRow("argument") << QStringList{"site.json"} << "site.json";
    QTest::newRow("missing value") << QStringList{"--slow"} << "slow";
    QTest::newRow("port is a word") << QStringList{"--control-port", "http"} << "control-port";
    QTest::newRow("port too large") << QStringList{"--update-port", "65536"} << "update-port";
    QTest::newRow("port below 0") << QStringList{"--update-port=-1"} << "update-port";
    QTest::newRow("no copies") << QStringList{"--scale", "0"} << "scale";
    QTest::newRow("too many devices") << QStringList{"--devices", "10001"} << "devices";
    QTest::newRow("drop none") << QStringList{"--drop", "0"} << "drop";
    QTest::newRow("short version") << QStringList{"--version", "4.5"} << "version";
    QTest::newRow("version with a tail") << QStringList{"--version", "4.5.2-rc"} << "version";
    QTest::newRow("fraction of a tick") << QStringList{"--tick", "0.5"} << "tick";
}

void DemoOptionsTest::refuses()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, named);

    const auto options = parse(arguments);

    QCOMPARE(options.action, Action::Fail);
    QVERIFY2(options.text.contains(named), qPrintable(options.text));
}

void DemoOptionsTest::helpNamesTheOptions()
{
    const auto options = parse({"--help"});

    QCOMPARE(options.action, Action::ShowText);
    for (const auto *name : {"--control-port", "--update-port", "--site", "--scale", "--garbage", "--no-publications"})
        QVERIFY2(options.text.contains(name), name);
}

void DemoOptionsTest::loadsTheSiteAsOften_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("devices");

    const int own = int(Demo::SiteLoader::builtIn().devices.size());
    QTest::newRow("once") << QStringList() << own;
    QTest::newRow("twice") << QStringList{"--scale", "2"} << 2 * own;
    QTest::newRow("no more than ten thousand") << QStringList{"--scale", "1000"} << 10000;
    QTest::newRow("exactly so many") << QStringList{"--devices", "777"} << 777;
    QTest::newRow("fewer than it has") << QStringList{"--devices", "5"} << 5;
}

void DemoOptionsTest::loadsTheSiteAsOften()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, devices);
    Demo::SiteData site;
    QString error;

    QVERIFY(parse(arguments).loadSite(&site, &error));

    QCOMPARE(int(site.devices.size()), devices);
}

void DemoOptionsTest::loadsSiteFile()
{
    QTemporaryDir folder;
    const auto path = folder.filePath("site.json");
    auto written = Demo::SiteLoader::builtIn();
    written.name = "Другой";
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(Demo::SiteLoader::toJson(written));
    file.close();
    Demo::SiteData site;
    QString error;

    QVERIFY(parse({"--site", path}).loadSite(&site, &error));

    QCOMPARE(site.name, QString("Другой"));
}

void DemoOptionsTest::missingSiteFileIsTold()
{
    Demo::SiteData site;
    QString error;

    QVERIFY(!parse({"--site", "/nowhere/site.json"}).loadSite(&site, &error));

    QVERIFY(!error.isEmpty());
}

ONDIRA_TEST(DemoOptionsTest)
#include "DemoOptionsTest.moc"
