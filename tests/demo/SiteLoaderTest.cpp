// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/SiteLoader.h"
#include "SiteFixture.h"
#include "support/TestBase.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QRectF>
#include <cmath>
#include <functional>

using Demo::SiteData;
using Demo::SiteLoader;

Q_DECLARE_METATYPE(std::function<void(QJsonObject &)>)

namespace {

using Change = std::function<void(QJsonObject &)>;

// Changes one record of a list of the site's document.
Change inRecord(const QString &list, const QString &key, const QJsonValue &value, int row = 0)
{
    return [=](QJsonObject &site) {
        auto records = site.value(list).toArray();
        auto record = records.at(row).toObject();
        if (value.isUndefined())
            record.remove(key);
        else
            record.insert(key, value);
        records.replace(row, record);
        site.insert(list, records);
    };
}

Change inSite(const QString &key, const QJsonValue &value)
{
    return [=](QJsonObject &site) {
        if (value.isUndefined())
            site.remove(key);
        else
            site.insert(key, value);
    };
}

bool onGrid(double value)
{
    return std::fmod(value, 16) == 0;
}

QRectF placeOf(const Demo::SiteZone &zone)
{
    return {zone.zone.position.x, zone.zone.position.y, zone.zone.width, zone.zone.height};
}

QStringList namesOf(const std::vector<Model::DeviceTypeInfo::Parameter> &fields)
{
    QStringList names;
    for (const auto &field : fields)
        names << field.identificator;
    return names;
}

QStringList sorted(QStringList names)
{
    names.sort();
    return names;
}

} // namespace

class SiteLoaderTest : public TestBase
{
    Q_OBJECT

private slots:
    void builtInSiteIsOfTheToldSize();
    void builtInUidsAreUnique();
    void builtInRecordsReferToEachOther();
    void builtInZonesStandTidily();
    void builtInZonesDoNotOverlap();
    void firstPlanFillsTheFirstScreen();
    void firstPlanHasAllSortsOfLight();
    void builtInTypesCoverTheVocabulary_data();
    void builtInTypesCoverTheVocabulary();
    void builtInDevicesHaveWhatTheirTypesTell();
    void builtInTypesSpeakEnglish();
    void writtenSiteReadsBack();
    void refusesText_data();
    void refusesText();
    void refusesSite_data();
    void refusesSite();
    void scaledSiteRepeatsItself();
    void scaledSiteStaysWithinItsLimit();
    void scalingIsRepeatable();
    void siteWithoutDevicesStaysWithout();
};

void SiteLoaderTest::builtInSiteIsOfTheToldSize()
{
    const auto site = SiteLoader::builtIn();

    QCOMPARE(site.parts.size(), size_t(3));
    QVERIFY(site.zones.size() >= 38 && site.zones.size() <= 48);
    QVERIFY(site.devices.size() >= 140 && site.devices.size() <= 170);
    QStringList logins;
    for (const auto &user : site.users) {
        logins << user.login + "/" + QString::fromUtf8(*user.password) + "/" + user.group;
    }
    QCOMPARE(logins, (QStringList{"admin/admin/admin", "user/user/user"}));
}

void SiteLoaderTest::builtInUidsAreUnique()
{
    const auto site = SiteLoader::builtIn();
    QSet<QUuid> uids{site.uid};

    for (const auto &part : site.parts)
        uids.insert(part.uid);
    for (const auto &zone : site.zones)
        uids.insert(zone.zone.uid);
    for (const auto &device : site.devices)
        uids.insert(device.descriptor.uid);

    QCOMPARE(size_t(uids.size()), 1 + site.parts.size() + site.zones.size() + site.devices.size());
    QVERIFY(!uids.contains(QUuid()));
}

void SiteLoaderTest::builtInRecordsReferToEachOther()
{
    const auto site = SiteLoader::builtIn();
    QSet<QUuid> parts;
    QSet<QUuid> zones;
    QSet<QUrl> types;
    for (const auto &part : site.parts)
        parts.insert(part.uid);
    for (const auto &type : site.deviceTypes)
        types.insert(type.info.url);

    for (const auto &zone : site.zones) {
        QVERIFY2(parts.contains(zone.zone.partUid), qPrintable(zone.zone.name));
        zones.insert(zone.zone.uid);
    }
    QSet<QUuid> filled;
    for (const auto &device : site.devices) {
        QVERIFY(zones.contains(device.descriptor.zoneUid));
        QVERIFY(types.contains(device.descriptor.url));
        filled.insert(device.descriptor.zoneUid);
    }
    QCOMPARE(filled, zones); // no zone without a device
}

void SiteLoaderTest::builtInZonesStandTidily()
{
    const auto site = SiteLoader::builtIn();
    const QRectF canvas(0, 0, 4096, 4096);
    QSet<QString> names;

    for (const auto &zone : site.zones) {
        const auto place = placeOf(zone);
        const auto name = qPrintable(zone.zone.name);
        QVERIFY2(onGrid(place.x()) && onGrid(place.y()) && onGrid(place.width()) && onGrid(place.height()), name);
        QVERIFY2(place.width() >= 96 && place.height() >= 96, name);
        QVERIFY2(canvas.contains(place), name);
        QVERIFY2(!zone.zone.name.isEmpty(), name);
        names.insert(zone.zone.partUid.toString() + zone.zone.name);
    }
    QCOMPARE(size_t(names.size()), site.zones.size()); // no name twice on a plan
}

void SiteLoaderTest::builtInZonesDoNotOverlap()
{
    const auto site = SiteLoader::builtIn();

    for (const auto &zone : site.zones) {
        for (const auto &other : site.zones) {
            if (zone.zone.uid == other.zone.uid || zone.zone.partUid != other.zone.partUid)
                continue;
            QVERIFY2(!placeOf(zone).intersects(placeOf(other)), qPrintable(zone.zone.name + " and " + other.zone.name));
        }
    }
}

void SiteLoaderTest::firstPlanFillsTheFirstScreen()
{
    const auto site = SiteLoader::builtIn();
    QRectF all;
    int zones = 0;
    for (const auto &zone : site.zones) {
        if (zone.zone.partUid != site.parts.front().uid)
            continue;
        all |= placeOf(zone);
        ++zones;
    }

    QVERIFY(zones >= 20);
    QCOMPARE(all.topLeft(), QPointF(64, 64));
    QVERIFY(all.right() > 1700 && all.right() <= 1800);
    QVERIFY(all.bottom() > 1000 && all.bottom() <= 1104);
}

void SiteLoaderTest::firstPlanHasAllSortsOfLight()
{
    const auto site = SiteLoader::builtIn();
    QHash<QUuid, int> power;
    QSet<QUuid> manual;
    for (const auto &device : site.devices) {
        if (device.state.contains("power"))
            power.insert(device.descriptor.zoneUid, device.state.value("power").toInt());
        if (device.mode == Model::DeviceMode::Mode::Manual)
            manual.insert(device.descriptor.zoneUid);
    }
    QSet<int> seen;
    int manuals = 0;
    for (const auto &zone : site.zones) {
        if (zone.zone.partUid != site.parts.front().uid)
            continue;
        seen.insert(power.value(zone.zone.uid, -1));
        manuals += manual.contains(zone.zone.uid) ? 1 : 0;
    }

    QVERIFY(seen.contains(0));
    QVERIFY(seen.contains(100));
    QVERIFY(!seen.contains(-1)); // every zone can be driven
    QVERIFY(seen.size() >= 10);
    QVERIFY(manuals >= 3 && manuals <= 12);
}

void SiteLoaderTest::builtInTypesCoverTheVocabulary_data()
{
    QTest::addColumn<QString>("commonType");
    QTest::addColumn<QStringList>("parameters");
    QTest::addColumn<QStringList>("state");

    const auto row = [](const char *type, const QStringList &parameters, const QStringList &state) {
        QTest::newRow(type) << QString(type) << parameters << state;
    };
    row("lamp", {"name", "pollingInterval"}, {"power", "errors", "rssidBm"});
    row("polling_lamp", {"name", "pollingInterval"}, {"power", "errors", "rssidBm"});
    row("lamp_group", {"groupNumber", "addresses"}, {"power"});
    row("polling_light_sensor", {"pollingInterval"}, {"brightness", "errors"});
    row("polling_temp_sensor", {"pollingInterval"}, {"temperature", "errors"});
    row("polling_contactor", {"contactorAddress", "switch1", "switch16"}, {"power", "errors"});
    row("polling_rs_electric_meter", {"rsAddress"}, {"voltages", "amperages", "powers", "cosines", "energy", "state"});
    row("sensor_contact", {"contactAddress", "contactFunction", "input1", "input6"}, {"input1", "input6"});
    row("beacon", {"name"}, {"activeTime", "inactiveTime", "rssidBm"});
}

void SiteLoaderTest::builtInTypesCoverTheVocabulary()
{
    QFETCH(QString, commonType);
    QFETCH(QStringList, parameters);
    QFETCH(QStringList, state);
    const auto site = SiteLoader::builtIn();
    const auto type = std::find_if(site.deviceTypes.begin(), site.deviceTypes.end(),
                                   [&](const auto &type) { return type.info.commonType == commonType; });

    QVERIFY(type != site.deviceTypes.end());
    for (const auto &name : parameters)
        QVERIFY2(namesOf(type->info.parameters).contains(name), qPrintable(name));
    for (const auto &name : state)
        QVERIFY2(namesOf(type->info.state).contains(name), qPrintable(name));
    QVERIFY(std::any_of(site.devices.begin(), site.devices.end(),
                        [&](const auto &device) { return device.descriptor.url == type->info.url; }));
}

void SiteLoaderTest::builtInDevicesHaveWhatTheirTypesTell()
{
    const auto site = SiteLoader::builtIn();
    QHash<QUrl, Model::DeviceTypeInfo> types;
    for (const auto &type : site.deviceTypes)
        types.insert(type.info.url, type.info);

    for (const auto &device : site.devices) {
        const auto &type = types[device.descriptor.url];
        QCOMPARE(device.state.keys(), sorted(namesOf(type.state)));
        QCOMPARE(device.descriptor.data.keys(), sorted(namesOf(type.parameters)));
        QVERIFY(device.descriptor.address >= 0 && device.descriptor.address <= 65535);
    }
}

void SiteLoaderTest::builtInTypesSpeakEnglish()
{
    const auto cyrillic = QRegularExpression("[а-яА-ЯёЁ]");

    for (const auto &type : SiteLoader::builtIn().deviceTypes) {
        auto english = type.info;
        QVERIFY(type.info.name.contains(cyrillic));
        english.localize(type.translations.value("en"));
        QVERIFY2(!english.name.contains(cyrillic), qPrintable(english.name));
        QVERIFY2(!english.description.contains(cyrillic), qPrintable(english.description));
        for (const auto *fields : {&english.parameters, &english.state}) {
            for (const auto &field : *fields)
                QVERIFY2(!field.description.contains(cyrillic), qPrintable(field.description));
        }
    }
}

void SiteLoaderTest::writtenSiteReadsBack()
{
    auto site = SiteFixture::data();
    site.users[1].zonesWhitelist = QSet<QUuid>{QUuid(SiteFixture::till)};
    site.users[1].accessList = QSet<QString>();
    site.zones[0].level = 7;
    QString error;

    const auto read = SiteLoader::fromJson(SiteLoader::toJson(site), &error);

    QVERIFY2(read, qPrintable(error));
    QCOMPARE(read->uid, site.uid);
    QCOMPARE(read->name, site.name);
    QCOMPARE(read->timezone, site.timezone);
    QCOMPARE(read->comPorts, site.comPorts);
    QCOMPARE(read->users, site.users);
    QCOMPARE(read->parts, site.parts);
    QCOMPARE(read->zones.size(), site.zones.size());
    for (size_t i = 0; i < site.zones.size(); ++i) {
        QCOMPARE(read->zones[i].zone, site.zones[i].zone);
        QCOMPARE(read->zones[i].level, site.zones[i].level);
        QCOMPARE(read->zones[i].swing, site.zones[i].swing);
    }
    QCOMPARE(read->devices.size(), site.devices.size());
    for (size_t i = 0; i < site.devices.size(); ++i) {
        QCOMPARE(read->devices[i].descriptor, site.devices[i].descriptor);
        QCOMPARE(read->devices[i].state, site.devices[i].state);
        QCOMPARE(read->devices[i].mode, site.devices[i].mode);
    }
    QCOMPARE(read->deviceTypes.size(), site.deviceTypes.size());
    for (size_t i = 0; i < site.deviceTypes.size(); ++i)
        QCOMPARE(read->deviceTypes[i].info, site.deviceTypes[i].info);
}

void SiteLoaderTest::refusesText_data()
{
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no JSON") << QByteArray("site");
    QTest::newRow("a list") << QByteArray("[]");
    QTest::newRow("an empty object") << QByteArray("{}");
    QTest::newRow("broken off") << SiteLoader::toJson(SiteFixture::data()).chopped(5);
}

void SiteLoaderTest::refusesText()
{
    QFETCH(QByteArray, text);
    QString error;

    QVERIFY(!SiteLoader::fromJson(text, &error));
    QVERIFY(!error.isEmpty());
    QVERIFY(!SiteLoader::fromJson(text, nullptr));
}

void SiteLoaderTest::refusesSite_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("named");

    const auto gone = QJsonValue(QJsonValue::Undefined);
    const auto row = [](const char *name, const Change &change, const char *named) {
        QTest::newRow(name) << change << QString(named);
    };
    row("other format", inSite("format", "recipe"), "format");
    row("later version", inSite("version", 2), "version");
    row("no name", inSite("name", gone), "name");
    row("null uid", inSite("uid", "{00000000-0000-0000-0000-000000000000}"), "uid");
    row("no users", inSite("users", gone), "users");
    row("nobody to administer", inSite("users", QJsonArray()), "users");
    row("users is a map", inSite("users", QJsonObject()), "users");
    row("a user that is a text", inSite("users", QJsonArray{"admin"}), "users[0]");
    row("a login twice", inRecord("users", "login", "admin", 1), "users[1]");
    row("an empty login", inRecord("users", "login", ""), "users[0]");
    row("password is a number", inRecord("users", "password", 5), "password");
    row("a type without a url", inRecord("device_types", "info", QJsonObject{{"commonType", "lamp"}}),
        "device_types[0]");
    row("no devices", inSite("devices", gone), "devices");
    row("a plan's uid twice", inRecord("zones", "uid", SiteFixture::hall), "zones[0]");
    row("a zone's uid twice", inRecord("zones", "uid", SiteFixture::till, 1), "zones[1]");
    row("zone of no plan", inRecord("zones", "part_uid", SiteFixture::till), "part_uid");
    row("x is a text", inRecord("zones", "x", "64"), "zones[0]: \"x\"");
    row("no width", inRecord("zones", "width", gone), "width");
    row("level above 100", inRecord("zones", "level", 101), "level");
    row("level with a fraction", inRecord("zones", "level", 1.5), "level");
    row("device of no zone", inRecord("devices", "zone_uid", SiteFixture::nobody, 2), "devices[2]");
    row("device of no type", inRecord("devices", "url", "Toaster.qml"), "url");
    row("address too large", inRecord("devices", "address", 65536), "address");
    row("state is a list", inRecord("devices", "state", QJsonArray()), "state");
    row("mode is a number", inRecord("devices", "mode", 1), "mode");
}

void SiteLoaderTest::refusesSite()
{
    QFETCH(Change, change);
    QFETCH(QString, named);
    auto site = QJsonDocument::fromJson(SiteLoader::toJson(SiteFixture::data())).object();
    change(site);
    QString error;

    QVERIFY(!SiteLoader::fromJson(QJsonDocument(site).toJson(), &error));

    QVERIFY2(error.contains(named), qPrintable(error));
}

void SiteLoaderTest::scaledSiteRepeatsItself()
{
    const auto site = SiteFixture::data();

    const auto scaled = SiteLoader::scaled(site, 3, 10000);

    QCOMPARE(scaled.parts.size(), size_t(3));
    QCOMPARE(scaled.zones.size(), size_t(6));
    QCOMPARE(scaled.devices.size(), size_t(12));
    QCOMPARE(scaled.parts[0].name, QString("Зал"));
    QCOMPARE(scaled.parts[2].name, QString("Зал 3"));
    QCOMPARE(scaled.users.size(), size_t(2));
    QString error;
    QVERIFY2(SiteLoader::fromJson(SiteLoader::toJson(scaled), &error), qPrintable(error)); // uids, references
    QSet<int> addresses;
    for (const auto &device : scaled.devices)
        addresses.insert(device.descriptor.address);
    QCOMPARE(addresses.size(), 12);
}

void SiteLoaderTest::scaledSiteStaysWithinItsLimit()
{
    const auto scaled = SiteLoader::scaled(SiteLoader::builtIn(), 1000, SiteLoader::mostDevices);

    QCOMPARE(scaled.devices.size(), size_t(10000));
    for (const auto &device : scaled.devices)
        QVERIFY(device.descriptor.address >= 0 && device.descriptor.address <= 65535);
    QString error;
    QVERIFY2(SiteLoader::fromJson(SiteLoader::toJson(scaled), &error), qPrintable(error));
}

void SiteLoaderTest::scalingIsRepeatable()
{
    const auto site = SiteFixture::data();

    const auto first = SiteLoader::withDevices(site, 11);
    const auto second = SiteLoader::withDevices(site, 11);

    QCOMPARE(first.devices.size(), size_t(11));
    QCOMPARE(SiteLoader::toJson(first), SiteLoader::toJson(second));
}

void SiteLoaderTest::siteWithoutDevicesStaysWithout()
{
    auto site = SiteFixture::data();
    site.devices.clear();

    QCOMPARE(SiteLoader::withDevices(site, 100).devices.size(), size_t(0));
    QCOMPARE(SiteLoader::scaled(site, 3, 100).zones.size(), size_t(6));
}

ONDIRA_TEST(SiteLoaderTest)
#include "SiteLoaderTest.moc"
