// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/SiteObjects.h"
#include "SiteFixture.h"
#include "demo/SiteLoader.h"
#include "support/TestBase.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

using namespace SiteFixture;
using Demo::SiteData;
using Demo::SiteLoader;

namespace {

QJsonObject fileOf(const SiteData &site)
{
    return QJsonDocument::fromJson(SiteLoader::toJson(site)).object();
}

SiteData ruledData()
{
    auto site = fullData();
    Demo::IndicatorRule rule;
    rule.measure = Demo::IndicatorRule::Measure::DeviceValue;
    rule.scope = QUuid(sensor);
    rule.property = "brightness";
    rule.looks.resize(2);
    rule.looks[1].from = 500;
    rule.looks[1].opacity = 0.5;
    rule.looks[1].icon = QString(""); // none, unlike an absent one
    site.indicators.front().rule = rule;
    site.buttons.front().state = Model::ButtonState::State::On;
    Model::DevicePowerOnInfo hours;
    hours.uid = QUuid(lamp);
    hours.powerOnHours = 123.5;
    hours.lastUpdate = QDateTime(QDate(2026, 11, 20), QTime(12, 0), Qt::UTC);
    site.powerOn.insert(hours.uid, hours);
    site.settings.pwm.byteFor20Power = 77;
    site.settings.mrf.resize(2);
    site.settings.lora.resize(1);
    site.settings.rs485.resize(1);
    site.settings.rs485[0].portName = "ttyS0";
    site.journal.add({hours.lastUpdate, Model::LogEntry::Cause::User, "anna", "Кнопка «Свет»"});
    return site;
}

} // namespace

class SiteObjectsTest : public TestBase
{
    Q_OBJECT

private slots:
    void writtenSiteIsReadAgain();
    void siteWithoutObjectsIsReadable();
    void standardBlueprintsAreInNoFile();
    void refuses_data();
    void refuses();
    void refusesServiceData_data();
    void refusesServiceData();
    void builtInSiteHasEveryKind();
    void builtInSettingsSuitItsDevices();
    void builtInFilesAreWhatTheySay();
    void builtInBlueprintsSpeakEnglish();
    void scaledSiteRepeatsButtonsAndIndicators();
    void cutSiteHoldsTogether();
};

void SiteObjectsTest::writtenSiteIsReadAgain()
{
    const auto given = ruledData();
    QString error;

    const auto read = SiteLoader::fromJson(SiteLoader::toJson(given), &error);

    QVERIFY2(read, qPrintable(error));
    QCOMPARE(read->buttons.front().button, given.buttons.front().button);
    QCOMPARE(read->buttons.front().state, Model::ButtonState::State::On);
    QCOMPARE(read->indicators.front().indicator, given.indicators.front().indicator);
    const auto &rule = *read->indicators.front().rule;
    QCOMPARE(rule.measure, Demo::IndicatorRule::Measure::DeviceValue);
    QCOMPARE(rule.scope, QUuid(sensor));
    QCOMPARE(rule.looks.size(), size_t(2));
    QVERIFY(!rule.looks[0].icon);
    QCOMPARE(*rule.looks[1].icon, QString(""));
    QCOMPARE(rule.looks[1].opacity, 0.5);
    QCOMPARE(read->images.front().item, given.images.front().item);
    QCOMPARE(read->images.front().image, given.images.front().image);
    QCOMPARE(read->view3DItems, given.view3DItems);
    QCOMPARE(read->days, given.days);
    QCOMPARE(read->blueprints.size(), size_t(7));
    QCOMPARE(read->blueprints.back().blueprint, given.blueprints.back().blueprint);
    QCOMPARE(read->blueprints.back().localized("en").name, QString("Twice"));
    QCOMPARE(read->powerOn.value(QUuid(lamp)).powerOnHours, 123.5);
    QCOMPARE(read->settings, given.settings);
    QVERIFY(read->journal.entries() == given.journal.entries());
}

void SiteObjectsTest::siteWithoutObjectsIsReadable()
{
    auto file = fileOf(ruledData());
    for (const auto *key : {"buttons", "indicators", "image_items", "view_3d_items", "schedule_days", "blueprints",
                            "settings", "power_on_statistics", "journal"})
        file.remove(key);
    QString error;

    const auto read = SiteLoader::fromJson(QJsonDocument(file).toJson(), &error);

    QVERIFY2(read, qPrintable(error));
    QVERIFY(read->buttons.empty());
    QVERIFY(read->days.empty());
    QCOMPARE(read->blueprints.size(), size_t(6)); // the system's
    QCOMPARE(read->settings, Model::Settings());
    QVERIFY(read->journal.entries().empty());
}

void SiteObjectsTest::standardBlueprintsAreInNoFile()
{
    const auto list = fileOf(ruledData()).value("blueprints").toArray();

    QCOMPARE(list.size(), 1);
    QCOMPARE(list.first().toObject().value("id").toString(), QString(blueprint));
}

void SiteObjectsTest::refuses_data()
{
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QJsonValue>("value");

    const auto text = [](const char *value) { return QJsonValue(QString(value)); };
    QTest::newRow("button without uid") << "buttons"
                                        << "id" << text("");
    QTest::newRow("button of another type") << "buttons"
                                            << "type" << text("zone");
    QTest::newRow("button without plan") << "buttons"
                                         << "attributes" << QJsonValue(QJsonObject());
    QTest::newRow("unknown measure") << "indicators"
                                     << "rule" << QJsonValue(QJsonObject{{"measure", "temperature of the moon"}});
    QTest::newRow("picture without bytes") << "image_items"
                                           << "data" << text("");
    QTest::newRow("mesh without bytes") << "view_3d_items"
                                        << "data" << QJsonValue(7);
    QTest::newRow("file outside of the program") << "view_3d_items"
                                                 << "data" << QJsonValue();
    QTest::newRow("schedule of an eighth day") << "schedule_days"
                                               << "attributes" << QJsonValue(QJsonObject{{"week_days", QJsonArray{7}}});
    QTest::newRow("hours of nobody") << "power_on_statistics"
                                     << "id" << text(nobody);
    QTest::newRow("system blueprint") << "blueprints"
                                      << "id" << text("{00000ec0-0002-0000-0000-000000000002}");
}

void SiteObjectsTest::refuses()
{
    QFETCH(QString, list);
    QFETCH(QString, key);
    QFETCH(QJsonValue, value);
    auto file = fileOf(ruledData());
    auto records = file.value(list).toArray();
    auto record = records.first().toObject();
    record.insert(key, value);
    if (value.isNull())
        record.insert("resource", "../../etc/passwd");
    records[0] = record;
    file.insert(list, records);
    QString error;

    QVERIFY(!SiteLoader::fromJson(QJsonDocument(file).toJson(), &error));
    QVERIFY2(error.startsWith(list + "[0]"), qPrintable(error));
}

void SiteObjectsTest::refusesServiceData_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("complaint");

    QTest::newRow("channel that no radio has")
        << "settings" << QByteArray(R"({"mrf": [{"hostChannel": 27}]})") << "settings: \"channel\" of \"mrf[0]\"";
    QTest::newRow("speed of no line") << "settings" << QByteArray(R"({"rs485": [{}, {"speed": 0}]})")
                                      << "settings: \"speed\" of \"rs485[1]\"";
    QTest::newRow("journal of nothing") << "journal" << QByteArray("[{}]") << "journal[0] is not an entry";
    QTest::newRow("journal is a map") << "journal" << QByteArray("{}") << "journal is not a list";
}

void SiteObjectsTest::refusesServiceData()
{
    QFETCH(QString, key);
    QFETCH(QByteArray, value);
    QFETCH(QString, complaint);
    auto file = fileOf(ruledData());
    const auto document = QJsonDocument::fromJson(value);
    file.insert(key, document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object()));
    QString error;

    QVERIFY(!SiteLoader::fromJson(QJsonDocument(file).toJson(), &error));
    QCOMPARE(error, complaint);
}

void SiteObjectsTest::builtInSettingsSuitItsDevices()
{
    using Type = Model::RadioStatus::DeviceType;
    const auto site = SiteLoader::builtIn();
    const QMap<Type, size_t> transports{{Type::Mrf, site.settings.mrf.size()},
                                        {Type::LoRa, site.settings.lora.size()},
                                        {Type::Rs485, site.settings.rs485.size()}};

    for (const auto &device : site.devices) {
        const auto &descriptor = device.descriptor;
        QVERIFY(descriptor.radioIndex >= 0);
        QVERIFY(size_t(descriptor.radioIndex) < transports.value(descriptor.radioType));
    }
    QVERIFY(site.comPorts.contains(site.settings.lora.front().portName));
    QVERIFY(site.comPorts.contains(site.settings.rs485.front().portName));
}

void SiteObjectsTest::builtInSiteHasEveryKind()
{
    const auto site = SiteLoader::builtIn();

    QVERIFY(site.buttons.size() >= 8);
    QVERIFY(site.indicators.size() >= 6);
    QVERIFY(site.images.size() >= 2);
    QCOMPARE(site.view3DItems.size(), size_t(2));
    QVERIFY(site.blueprints.size() >= 8);
    QSet<int> days;
    for (const auto &day : site.days)
        days += day.daysOfWeek;
    QCOMPARE(days.size(), 7);
    QVERIFY(std::any_of(site.indicators.begin(), site.indicators.end(), [](const auto &record) {
        return record.rule && record.rule->measure == Demo::IndicatorRule::Measure::FailedDevices;
    }));
}

void SiteObjectsTest::builtInFilesAreWhatTheySay()
{
    const auto site = SiteLoader::builtIn();

    for (const auto &image : site.images) {
        const auto &data = image.image.data;
        QVERIFY(image.image.format == "svg" ? data.contains("<svg ") : data.startsWith("\x89PNG\r\n\x1a\n"));
    }
    for (const auto &item : site.view3DItems) {
        QCOMPARE(item.modelData.left(4).toHex(), QByteArray("4d7fa0c8"));
        QCOMPARE(item.modelData.right(16).left(4).toHex(), QByteArray("d97d2021")); // the table at the end
    }
}

void SiteObjectsTest::builtInBlueprintsSpeakEnglish()
{
    const auto site = SiteLoader::builtIn();

    for (const auto &record : site.blueprints) {
        const auto &russian = record.blueprint;
        const auto english = record.localized("en");
        QVERIFY2(english.name != russian.name, qPrintable(russian.name));
        for (size_t i = 0; i < russian.nodes.size(); ++i) {
            for (const auto &property : russian.nodes[i].properties) {
                QVERIFY2(!property.exposed
                             || english.nodes[i].globalProperty(property.globalName)->userDescription
                                 != property.userDescription,
                         qPrintable(property.globalName));
            }
        }
    }
}

void SiteObjectsTest::scaledSiteRepeatsButtonsAndIndicators()
{
    const auto site = SiteLoader::builtIn();

    const auto twice = SiteLoader::scaled(site, 2, SiteLoader::mostDevices);
    const auto large = SiteLoader::scaled(site, 60, SiteLoader::mostDevices);

    QCOMPARE(twice.buttons.size(), 2 * site.buttons.size());
    QCOMPARE(twice.indicators.size(), 2 * site.indicators.size());
    QCOMPARE(twice.images.size(), site.images.size());
    QCOMPARE(large.buttons.size(), 16 * site.buttons.size());
    QString error;
    QVERIFY2(SiteLoader::fromJson(SiteLoader::toJson(twice), &error), qPrintable(error));
}

void SiteObjectsTest::cutSiteHoldsTogether()
{
    QString error;

    const auto read = SiteLoader::fromJson(SiteLoader::toJson(SiteLoader::withDevices(ruledData(), 1)), &error);

    QVERIFY2(read, qPrintable(error));
    QVERIFY(!read->indicators.front().indicator.displayValue); // its sensor was cut off
    QCOMPARE(read->powerOn.size(), 1);
}

ONDIRA_TEST(SiteObjectsTest)
#include "SiteObjectsTest.moc"
