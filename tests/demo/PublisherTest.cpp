// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/Publisher.h"
#include "SiteFixture.h"
#include "demo/IndicatorRules.h"
#include "demo/SiteLoader.h"
#include "link/document/Response.h"
#include "support/TestBase.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>
#include <functional>

using Demo::DemoSite;
using Demo::Publisher;
using namespace SiteFixture;
using Change = std::function<void(DemoSite &site)>;

Q_DECLARE_METATYPE(Change)

namespace {

// The document of a publication's frames, when they are as they should be.
QJsonObject documentOf(const QList<QByteArray> &frames)
{
    if (frames.size() != 4 || !frames.at(1).isEmpty() || frames.at(2) != QByteArray("\0\6", 2))
        return {};
    return QJsonDocument::fromJson(qUncompress(frames.at(3))).object();
}

QByteArrayList topicsOf(const QSignalSpy &published)
{
    QByteArrayList topics;
    for (const auto &signal : published)
        topics << signal.first().value<QList<QByteArray>>().first();
    return topics;
}

QStringList idsOf(const QJsonObject &document)
{
    QStringList ids;
    for (const auto &entity : document.value("data").toArray())
        ids << entity.toObject().value("id").toString();
    return ids;
}

struct Bench
{
    explicit Bench(const Demo::SiteData &given = data())
        : site(given)
        , publisher(site, QVersionNumber(4, 4, 1))
        , published(&publisher, &Publisher::published)
    {}

    QJsonObject last() const { return documentOf(published.last().first().value<QList<QByteArray>>()); }

    DemoSite site;
    Publisher publisher;
    QSignalSpy published;
};

} // namespace

class PublisherTest : public TestBase
{
    Q_OBJECT

private slots:
    void knowsEveryTopic();
    void subscriptionGetsItsListAtOnce_data();
    void subscriptionGetsItsListAtOnce();
    void listsOfRecordsThatTheSiteDoesNotHoldAreEmpty_data();
    void listsOfRecordsThatTheSiteDoesNotHoldAreEmpty();
    void subscriptionGetsObjectsAtOnce_data();
    void subscriptionGetsObjectsAtOnce();
    void changedObjectRepublishesItsList_data();
    void changedObjectRepublishesItsList();
    void buttonStatesFollowPresses();
    void indicatorStatesFollowRules();
    void filesStayOutOfLists();
    void blueprintsSpeakTheAskedLanguage_data();
    void blueprintsSpeakTheAskedLanguage();
    void nodesSpeakTheAskedLanguage_data();
    void nodesSpeakTheAskedLanguage();
    void everyBlueprintIsANodeButTheOneOfAllNodes();
    void settingsAreOneRecord();
    void runHoursComeInTheOrderOfDevices();
    void everySubscriptionCounts();
    void deviceTypesSpeakTheAskedLanguage_data();
    void deviceTypesSpeakTheAskedLanguage();
    void modesNameDrivenDevicesAlone();
    void usersComeWithoutPasswords();
    void statesAreWhatRecordsWouldWrite();
    void siteWithoutDevicesHasAnEmptyListOfStates();
    void changeRepublishesItsListOnce();
    void changeOfOneListLeavesOthers();
    void unsubscribedTopicStaysSilent();
    void newSubscriberSeesAPendingChange();
    void removedDeviceLeavesItsState();
    void prefixStandsForItsTopics_data();
    void prefixStandsForItsTopics();
    void strangeSubscriptionIsIgnored_data();
    void strangeSubscriptionIsIgnored();
    void subscriptionsAreBounded();
    void publicationTellsTheVersion();
};

void PublisherTest::knowsEveryTopic()
{
    auto topics = Publisher::plainTopics() + Publisher::localizedTopics();
    std::sort(topics.begin(), topics.end());

    QCOMPARE(topics,
             (QList<QByteArray>{"action_nodes", "blueprints", "button_states", "buttons", "device_modes",
                                "device_states", "device_types", "devices", "image_items", "indicator_states",
                                "indicators", "power_on_statistics", "schedules", "settings", "shop_parts", "users",
                                "view_3d_items", "zones"}));
    QCOMPARE(Publisher::localizedTopics(), (QList<QByteArray>{"action_nodes", "blueprints", "device_types"}));
}

void PublisherTest::subscriptionGetsItsListAtOnce_data()
{
    QTest::addColumn<QByteArray>("topic");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QStringList>("ids");

    QTest::newRow("plans") << QByteArray("shop_parts") << "shop_part" << QStringList{hall};
    QTest::newRow("zones") << QByteArray("zones") << "zone" << QStringList{till, door};
    QTest::newRow("devices") << QByteArray("devices") << "device" << QStringList{lamp, manualLamp, sensor, contactor};
    QTest::newRow("states") << QByteArray("device_states") << "device_state"
                            << QStringList{lamp, manualLamp, sensor, contactor};
    QTest::newRow("modes") << QByteArray("device_modes") << "device_mode" << QStringList{lamp, manualLamp, contactor};
    QTest::newRow("users") << QByteArray("users") << "user" << QStringList{"admin", "user"};
}

void PublisherTest::subscriptionGetsItsListAtOnce()
{
    QFETCH(QByteArray, topic);
    QFETCH(QString, type);
    QFETCH(QStringList, ids);
    Bench bench;

    bench.publisher.onSubscription("\1" + topic);

    QCOMPARE(topicsOf(bench.published), QByteArrayList{topic});
    const auto document = bench.last();
    QCOMPARE(idsOf(document), ids);
    for (const auto &entity : document.value("data").toArray())
        QCOMPARE(entity.toObject().value("type").toString(), type);
}

void PublisherTest::listsOfRecordsThatTheSiteDoesNotHoldAreEmpty_data()
{
    QTest::addColumn<QByteArray>("topic");

    for (const auto *topic : {"button_states", "buttons", "image_items", "indicator_states", "indicators",
                              "power_on_statistics", "schedules", "view_3d_items"})
        QTest::newRow(topic) << QByteArray(topic);
}

void PublisherTest::listsOfRecordsThatTheSiteDoesNotHoldAreEmpty()
{
    QFETCH(QByteArray, topic);
    Bench bench;

    bench.publisher.onSubscription("\1" + topic);

    QCOMPARE(topicsOf(bench.published), QByteArrayList{topic});
    QVERIFY(bench.last().value("data").isArray());
    QVERIFY(bench.last().value("data").toArray().isEmpty());
    QVERIFY(!bench.last().contains("errors"));
}

void PublisherTest::subscriptionGetsObjectsAtOnce_data()
{
    QTest::addColumn<QByteArray>("topic");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("id");

    QTest::newRow("buttons") << QByteArray("buttons") << "button" << button;
    QTest::newRow("button states") << QByteArray("button_states") << "button_state" << button;
    QTest::newRow("indicators") << QByteArray("indicators") << "indicator" << indicator;
    QTest::newRow("pictures") << QByteArray("image_items") << "image_item" << picture;
    QTest::newRow("meshes") << QByteArray("view_3d_items") << "view_3d_item" << mesh;
    QTest::newRow("schedules") << QByteArray("schedules") << "schedule_day" << schedule;
}

void PublisherTest::subscriptionGetsObjectsAtOnce()
{
    QFETCH(QByteArray, topic);
    QFETCH(QString, type);
    QFETCH(QString, id);
    Bench bench(fullData());

    bench.publisher.onSubscription("\1" + topic);

    QCOMPARE(topicsOf(bench.published), QByteArrayList{topic});
    QCOMPARE(idsOf(bench.last()), QStringList{id});
    QCOMPARE(bench.last().value("data").toArray().first().toObject().value("type").toString(), type);
}

void PublisherTest::changedObjectRepublishesItsList_data()
{
    QTest::addColumn<QByteArrayList>("topics");
    QTest::addColumn<Change>("change");

    QTest::newRow("button") << QByteArrayList{"buttons"}
                            << Change([](DemoSite &site) { site.put(site.button(QUuid(button))->button); });
    QTest::newRow("removed button") << QByteArrayList{"button_states", "buttons"}
                                    << Change([](DemoSite &site) { site.removeButtons({QUuid(button)}); });
    QTest::newRow("indicator") << QByteArrayList{"indicators"}
                               << Change([](DemoSite &site) { site.put(site.indicator(QUuid(indicator))->indicator); });
    QTest::newRow("removed picture") << QByteArrayList{"image_items"}
                                     << Change([](DemoSite &site) { site.removeImages({QUuid(picture)}); });
    QTest::newRow("removed mesh") << QByteArrayList{"view_3d_items"}
                                  << Change([](DemoSite &site) { site.removeView3DItems({QUuid(mesh)}); });
    QTest::newRow("removed blueprint") << QByteArrayList{"action_nodes/en_US", "blueprints/ru_RU"}
                                       << Change([](DemoSite &site) { site.removeBlueprints({QUuid(blueprint)}); });
    QTest::newRow("removed schedule") << QByteArrayList{"schedules"}
                                      << Change([](DemoSite &site) { site.removeDays({QUuid(schedule)}); });
    QTest::newRow("settings") << QByteArrayList{"settings"}
                              << Change([](DemoSite &site) { site.setSettings(Model::Settings()); });
}

void PublisherTest::changedObjectRepublishesItsList()
{
    QFETCH(QByteArrayList, topics);
    QFETCH(Change, change);
    Bench bench(fullData());
    for (const auto *topic : {"action_nodes/en_US", "blueprints/ru_RU", "button_states", "buttons", "image_items",
                              "indicator_states", "indicators", "schedules", "settings", "view_3d_items"})
        bench.publisher.onSubscription(QByteArray("\1") + topic);
    bench.published.clear();

    change(bench.site);
    bench.publisher.flush();

    QCOMPARE(topicsOf(bench.published), topics);
}

void PublisherTest::buttonStatesFollowPresses()
{
    Bench bench(fullData());
    bench.publisher.onSubscription("\1button_states");

    bench.site.setButtonState(QUuid(button), Model::ButtonState::State::On);
    bench.publisher.flush();

    const auto state = bench.last().value("data").toArray().first().toObject();
    QCOMPARE(state.value("attributes").toObject().value("state"), QJsonValue(1));
}

void PublisherTest::indicatorStatesFollowRules()
{
    auto given = fullData();
    Demo::IndicatorRule rule;
    rule.looks.emplace_back();
    rule.looks.back().text = QString("%1");
    given.indicators.front().rule = rule;
    Bench bench(given);
    Demo::IndicatorRules rules(bench.site);

    bench.publisher.onSubscription("\1indicator_states");

    const auto state = bench.last().value("data").toArray().first().toObject();
    QCOMPARE(state.value("id").toString(), QString(indicator));
    QCOMPARE(state.value("attributes").toObject().value("text").toString(), QString("0"));
    QVERIFY(!state.value("attributes").toObject().contains("icon"));
}

void PublisherTest::filesStayOutOfLists()
{
    DemoSite site(Demo::SiteLoader::builtIn());
    Publisher publisher(site, QVersionNumber(4, 5, 2));

    QVERIFY(publisher.document("image_items").size() < 2000);
    QVERIFY(publisher.document("view_3d_items").size() < 2000);
}

void PublisherTest::blueprintsSpeakTheAskedLanguage_data()
{
    QTest::addColumn<QByteArray>("locale");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("label");

    QTest::newRow("Russian") << QByteArray("ru_RU") << "Установить мощность"
                             << "Мощность";
    QTest::newRow("English") << QByteArray("en_GB") << "Set power"
                             << "Power";
    QTest::newRow("another language sees English") << QByteArray("de_DE") << "Set power"
                                                   << "Power";
}

void PublisherTest::blueprintsSpeakTheAskedLanguage()
{
    QFETCH(QByteArray, locale);
    QFETCH(QString, name);
    QFETCH(QString, label);
    Bench bench(fullData());

    bench.publisher.onSubscription("\1blueprints/" + locale);

    QCOMPARE(topicsOf(bench.published), QByteArrayList{"blueprints/" + locale});
    const auto list = bench.last().value("data").toArray();
    QCOMPARE(list.size(), 7);
    const auto setPower = list.at(1).toObject();
    QCOMPARE(setPower.value("id").toString(), QString("{00000ec0-0002-0000-0000-000000000002}"));
    const auto attributes = setPower.value("attributes").toObject();
    QCOMPARE(attributes.value("name").toString(), name);
    QVERIFY(attributes.value("system").toBool());
    const auto node = attributes.value("nodes").toArray().first().toObject();
    const auto property = node.value("properties").toArray().first().toObject();
    QCOMPARE(property.value("user_description").toString(), label);
}

void PublisherTest::nodesSpeakTheAskedLanguage_data()
{
    QTest::addColumn<QByteArray>("locale");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("category");
    QTest::addColumn<QString>("item");

    QTest::newRow("Russian") << QByteArray("ru_RU") << "Установить режим"
                             << "Выходы"
                             << "Ручной";
    QTest::newRow("English") << QByteArray("en_US") << "Set the mode"
                             << "Outputs"
                             << "Manual";
    QTest::newRow("another language sees English") << QByteArray("fr_FR") << "Set the mode"
                                                   << "Outputs"
                                                   << "Manual";
}

void PublisherTest::nodesSpeakTheAskedLanguage()
{
    QFETCH(QByteArray, locale);
    QFETCH(QString, name);
    QFETCH(QString, category);
    QFETCH(QString, item);
    Bench bench(fullData());

    bench.publisher.onSubscription("\1action_nodes/" + locale);

    const auto list = bench.last().value("data").toArray();
    const auto row = idsOf(bench.last()).indexOf("output_mode");
    QVERIFY(row >= 0);
    const auto attributes = list.at(row).toObject().value("attributes").toObject();
    QCOMPARE(attributes.value("name").toString(), name);
    QCOMPARE(attributes.value("category").toString(), category);
    const auto mode = attributes.value("properties").toArray().first().toObject();
    QCOMPARE(mode.value("valueLimits").toObject().value("items").toArray().first().toString(), item);
}

void PublisherTest::everyBlueprintIsANodeButTheOneOfAllNodes()
{
    Bench bench(fullData());

    bench.publisher.onSubscription("\1action_nodes/en_US");

    const auto nested = idsOf(bench.last()).filter("nested_action/");
    QCOMPARE(nested.size(), 6);
    QCOMPARE(nested.last(), QString("nested_action/") + blueprint);
    const auto node = bench.last().value("data").toArray().last().toObject().value("attributes").toObject();
    QCOMPARE(node.value("name").toString(), QString("Twice"));
    QCOMPARE(node.value("properties").toArray().size(), 1);
    QCOMPARE(node.value("properties").toArray().first().toObject().value("name").toString(), QString("half"));
}

void PublisherTest::settingsAreOneRecord()
{
    Bench bench;

    bench.publisher.onSubscription("\1settings");

    QCOMPARE(bench.last().value("data").toArray().size(), 1);
    QVERIFY(!bench.last().value("data").toArray().first().toObject().value("attributes").toObject().isEmpty());
}

void PublisherTest::runHoursComeInTheOrderOfDevices()
{
    Bench bench;
    for (const auto *device : {contactor, lamp}) {
        Model::DevicePowerOnInfo info;
        info.uid = QUuid(device);
        info.powerOnHours = 12.5;
        bench.site.put(info);
    }

    bench.publisher.onSubscription("\1power_on_statistics");
    QCOMPARE(idsOf(bench.last()), (QStringList{lamp, contactor}));

    bench.site.removeDevices({QUuid(lamp)});
    bench.publisher.flush();
    QCOMPARE(idsOf(bench.last()), QStringList{contactor});
}

void PublisherTest::everySubscriptionCounts()
{
    Bench bench;

    bench.publisher.onSubscription("\1zones");
    bench.publisher.onSubscription("\1zones");

    QCOMPARE(topicsOf(bench.published), (QByteArrayList{"zones", "zones"}));
}

void PublisherTest::deviceTypesSpeakTheAskedLanguage_data()
{
    QTest::addColumn<QByteArray>("locale");
    QTest::addColumn<QString>("name");

    QTest::newRow("Russian") << QByteArray("ru_RU") << "Светильник";
    QTest::newRow("Russian elsewhere") << QByteArray("ru_BY") << "Светильник";
    QTest::newRow("language alone") << QByteArray("ru") << "Светильник";
    QTest::newRow("American") << QByteArray("en_US") << "Lamp";
    QTest::newRow("British") << QByteArray("en_GB") << "Lamp";
    QTest::newRow("another language sees English") << QByteArray("de_DE") << "Lamp";
    QTest::newRow("no language at all") << QByteArray("C") << "Lamp";
}

void PublisherTest::deviceTypesSpeakTheAskedLanguage()
{
    QFETCH(QByteArray, locale);
    QFETCH(QString, name);
    Bench bench;

    bench.publisher.onSubscription("\1device_types/" + locale);

    QCOMPARE(topicsOf(bench.published), QByteArrayList{"device_types/" + locale});
    const auto types = bench.last().value("data").toArray();
    QCOMPARE(size_t(types.size()), bench.site.data().deviceTypes.size());
    QCOMPARE(types.first().toObject().value("id").toString(), QString("Lamp.qml"));
    QCOMPARE(types.first().toObject().value("attributes").toObject().value("name").toString(), name);
}

void PublisherTest::modesNameDrivenDevicesAlone()
{
    Bench bench;

    bench.publisher.onSubscription("\1device_modes");

    const auto modes = bench.last().value("data").toArray();
    const auto modeOf = [&modes](int row) {
        return modes.at(row).toObject().value("attributes").toObject().value("mode").toString();
    };
    QCOMPARE(modes.size(), 3);
    QCOMPARE(modeOf(0), QString("Auto"));
    QCOMPARE(modeOf(1), QString("Manual"));
}

void PublisherTest::usersComeWithoutPasswords()
{
    Bench bench;

    bench.publisher.onSubscription("\1users");

    for (const auto &user : bench.last().value("data").toArray())
        QVERIFY(!user.toObject().value("attributes").toObject().contains("password"));
}

void PublisherTest::statesAreWhatRecordsWouldWrite()
{
    DemoSite site(Demo::SiteLoader::builtIn());
    auto odd = site.data().devices.front().state;
    odd.insert("name", "Лампа \"у двери\"\n\\");
    site.setState(site.data().devices.front().descriptor.uid, odd);
    Publisher publisher(site, QVersionNumber(4, 5, 2));

    const auto response = JsonAPI::Response::fromByteArray(publisher.document("device_states"));

    QVERIFY(response.errors.isEmpty());
    QCOMPARE(response.serverVersion, QVersionNumber(4, 5, 2));
    QCOMPARE(response.data.size(), site.data().devices.size());
    for (size_t row = 0; row < response.data.size(); ++row) {
        const auto &device = site.data().devices[row];
        const auto &entity = response.data[row];
        QCOMPARE(entity.type, QString("device_state"));
        QCOMPARE(entity.id, device.descriptor.uid.toString());
        QCOMPARE(QJsonObject::fromVariantMap(entity.attributes.value("state").toMap()),
                 QJsonObject::fromVariantMap(device.state));
    }
}

void PublisherTest::siteWithoutDevicesHasAnEmptyListOfStates()
{
    auto given = data();
    given.devices.clear();
    DemoSite site(given);
    Publisher publisher(site, QVersionNumber(4, 5, 2));

    QCOMPARE(publisher.document("device_states"), QByteArray(R"({"data":[],"server_version":"4.5.2"})"));
}

void PublisherTest::changeRepublishesItsListOnce()
{
    Bench bench;
    bench.publisher.onSubscription("\1device_states");
    bench.published.clear();

    bench.site.setZonesPower({QUuid(till)}, 11);
    bench.site.setZonesPower({QUuid(till)}, 12);
    QVERIFY(bench.published.isEmpty());

    QTRY_COMPARE(bench.published.size(), 1);
    const auto state = bench.last().value("data").toArray().first().toObject().value("attributes").toObject();
    QCOMPARE(state.value("state").toObject().value("power").toInt(), 12);
}

void PublisherTest::changeOfOneListLeavesOthers()
{
    Bench bench;
    bench.publisher.onSubscription("\1zones");
    bench.publisher.onSubscription("\1devices");
    bench.publisher.onSubscription("\1users");
    bench.published.clear();
    auto zone = bench.site.zone(QUuid(till))->zone;
    zone.name = "Другая";

    bench.site.put(zone);
    bench.publisher.flush();

    QCOMPARE(topicsOf(bench.published), QByteArrayList{"zones"});
    const auto first = bench.last().value("data").toArray().first().toObject();
    QCOMPARE(first.value("attributes").toObject().value("name").toString(), QString("Другая"));
    bench.published.clear();
    bench.publisher.flush();
    QVERIFY(bench.published.isEmpty());
}

void PublisherTest::unsubscribedTopicStaysSilent()
{
    Bench bench;
    bench.publisher.onSubscription("\1device_modes");
    bench.publisher.onSubscription(QByteArray("\0device_modes", 13));
    bench.published.clear();

    bench.site.setMode(QUuid(lamp), Model::DeviceMode::Mode::Manual);
    bench.publisher.flush();
    QVERIFY(bench.published.isEmpty());

    bench.publisher.onSubscription("\1device_modes"); // what it gets now is not from before
    const auto first = bench.last().value("data").toArray().first().toObject();
    QCOMPARE(first.value("attributes").toObject().value("mode").toString(), QString("Manual"));
}

void PublisherTest::newSubscriberSeesAPendingChange()
{
    Bench bench;
    bench.publisher.onSubscription("\1device_modes");

    bench.site.setMode(QUuid(lamp), Model::DeviceMode::Mode::Manual);
    bench.publisher.onSubscription("\1device_modes");

    const auto first = bench.last().value("data").toArray().first().toObject();
    QCOMPARE(first.value("attributes").toObject().value("mode").toString(), QString("Manual"));
}

void PublisherTest::removedDeviceLeavesItsState()
{
    Bench bench;
    bench.publisher.onSubscription("\1device_states");

    bench.site.removeDevices({QUuid(lamp)});
    bench.publisher.flush();

    QCOMPARE(idsOf(bench.last()), (QStringList{manualLamp, sensor, contactor}));
    const auto first = bench.last().value("data").toArray().first().toObject();
    QCOMPARE(first.value("attributes").toObject().value("state").toObject().value("power").toInt(), 60);
}

void PublisherTest::prefixStandsForItsTopics_data()
{
    QTest::addColumn<QByteArray>("prefix");
    QTest::addColumn<QByteArrayList>("topics");

    QTest::newRow("part of a name") << QByteArray("indicator_") << QByteArrayList{"indicator_states"};
    QTest::newRow("two names") << QByteArray("button") << QByteArrayList{"button_states", "buttons"};
    QTest::newRow("no locale") << QByteArray("device_types/")
                               << QByteArrayList{"device_types/ru_RU", "device_types/en_US"};
    QTest::newRow("a name that begins another")
        << QByteArray("indicator") << QByteArrayList{"indicator_states", "indicators"};
}

void PublisherTest::prefixStandsForItsTopics()
{
    QFETCH(QByteArray, prefix);
    QFETCH(QByteArrayList, topics);
    Bench bench;

    bench.publisher.onSubscription("\1" + prefix);

    QCOMPARE(topicsOf(bench.published), topics);
}

void PublisherTest::strangeSubscriptionIsIgnored_data()
{
    QTest::addColumn<QByteArray>("frame");

    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("no subscription") << QByteArray("zones");
    QTest::newRow("unknown topic") << QByteArray("\1weather");
    QTest::newRow("longer than a topic") << QByteArray("\1zones/ru_RU");
    QTest::newRow("no locale") << QByteArray("\1device_types/../etc");
    QTest::newRow("very long locale") << "\1device_types/" + QByteArray(1000, 'a');
    QTest::newRow("unsubscription of nothing") << QByteArray("\0zones", 6);
}

void PublisherTest::strangeSubscriptionIsIgnored()
{
    QFETCH(QByteArray, frame);
    Bench bench;

    bench.publisher.onSubscription(frame);
    bench.site.reset();
    bench.publisher.flush();

    QVERIFY(bench.published.isEmpty());
}

void PublisherTest::subscriptionsAreBounded()
{
    Bench bench;
    for (int i = 0; i < 1000; ++i)
        bench.publisher.onSubscription("\1device_types/x_" + QByteArray::number(i));
    QCOMPARE(bench.published.size(), 1000);
    bench.published.clear();

    bench.site.reset();
    bench.publisher.flush();

    QCOMPARE(bench.published.size(), 256);
}

void PublisherTest::publicationTellsTheVersion()
{
    Bench bench;

    bench.publisher.onSubscription("\1zones");
    QCOMPARE(bench.last().value("server_version").toString(), QString("4.4.1"));

    bench.publisher.onSubscription("\1device_states");
    QCOMPARE(bench.last().value("server_version").toString(), QString("4.4.1"));
}

ONDIRA_TEST(PublisherTest)
#include "PublisherTest.moc"
