// SPDX-License-Identifier: GPL-3.0-or-later
#include "Documents.h"
#include "SiteFixture.h"
#include "demo/SiteLoader.h"
#include "support/TestBase.h"

#include <QJsonArray>
#include <QSignalSpy>

using namespace SiteFixture;
using List = Demo::DemoSite::List;
using State = Model::ButtonState::State;

namespace {

const QByteArray nullUid = "{00000000-0000-0000-0000-000000000000}";

int powerOf(const Desk &desk, const char *device)
{
    return desk.site.device(QUuid(device))->state.value("power", -1).toInt();
}

QByteArray press(const char *uid, const QByteArray &state)
{
    return listOf({entity("button_state", uid, R"({"state": )" + state + "}")});
}

QByteArray onHall(const QByteArray &more)
{
    return QByteArray(R"({"part_uid": ")") + hall + "\"" + more + "}";
}

} // namespace

class PlanResourcesTest : public TestBase
{
    Q_OBJECT

private slots:
    void addsButton();
    void changesButtonAndKeepsItsState();
    void removesButton();
    void refusesButton_data();
    void refusesButton();
    void pressRunsTheSequence();
    void pressedTwiceRunsOnce();
    void releaseOfToggleButtonRunsNothing();
    void momentaryButtonLetsItselfGo();
    void toggleButtonStays();
    void buttonWithoutSequenceChangesItsStateAlone();
    void userMayPress();
    void whitelistBoundsPresses();
    void refusesPress_data();
    void refusesPress();
    void addsIndicator();
    void indicatorLosesItsValueWhenSentWithout();
    void refusesIndicator_data();
    void refusesIndicator();
    void removedPlanTakesItsObjectsAlong();
    void removedZoneLeavesSequencesAndSchedules();
    void removedDeviceIsShownNoMore();
    void siteRecordBringsObjects();
    void siteRecordWithABadObjectChangesNothing_data();
    void siteRecordWithABadObjectChangesNothing();
};

void PlanResourcesTest::addsButton()
{
    Desk desk(fullData());
    QSignalSpy changed(&desk.site, &Demo::DemoSite::changed);

    const auto reply =
        desk.post("buttons",
                  listOf({entity("button", nullUid,
                                 onHall(R"(, "name": "Касса", "x": 8, "y": 9.5, "on_color": "#00ff00", "toggle": true,
                                 "blueprints": [)"
                                        + powerStep(listOf({quoted(till)}), "30") + "]"))}));

    QCOMPARE(codes(reply), QStringList());
    const auto added = related(reply, "added");
    QCOMPARE(added.size(), 1);
    const auto *record = desk.site.button(QUuid(added.first()));
    QVERIFY(record);
    QCOMPARE(record->button.name, QString("Касса"));
    QCOMPARE(record->button.position.y, 9.5);
    QCOMPARE(record->button.width, 80.0);
    QVERIFY(record->button.toggle);
    QCOMPARE(record->button.blueprints.instances.size(), size_t(1));
    QCOMPARE(record->button.blueprints.instances.front().zones, QSet<QUuid>{QUuid(till)});
    QCOMPARE(record->state, State::Off);
    QCOMPARE(changed.size(), 2);
    QCOMPARE(changed[0].first().value<List>(), List::Buttons);
    QCOMPARE(changed[1].first().value<List>(), List::ButtonStates);
}

void PlanResourcesTest::changesButtonAndKeepsItsState()
{
    Desk desk(fullData());
    desk.post("button_states", press(button, "1"));

    const auto reply = desk.post("buttons", listOf({entity("button", button, R"({"name": "Другая"})")}));

    QCOMPARE(related(reply, "changed"), QStringList(button));
    const auto *record = desk.site.button(QUuid(button));
    QCOMPARE(record->button.name, QString("Другая"));
    QVERIFY(record->button.toggle);
    QCOMPARE(record->button.blueprints.instances.size(), size_t(1));
    QCOMPARE(record->state, State::On);
}

void PlanResourcesTest::removesButton()
{
    Desk desk(fullData());

    QCOMPARE(related(desk.remove("buttons", listOf({entity("button", button)})), "deleted"), QStringList(button));

    QVERIFY(!desk.site.button(QUuid(button)));
    QCOMPARE(codes(desk.remove("buttons", listOf({entity("button", button)}))), QStringList("unknown_uid_error"));
    QCOMPARE(codes(desk.post("button_states", press(button, "1"))), QStringList("unknown_uid_error"));
}

void PlanResourcesTest::refusesButton_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("code");

    QTest::newRow("no plan") << entity("button", nullUid, R"({"name": "A"})") << "unknown_uid_error";
    QTest::newRow("unknown plan") << entity("button", button, QByteArray(R"({"part_uid": ")") + nobody + "\"}")
                                  << "unknown_uid_error";
    QTest::newRow("other type") << entity("zone", button) << "invalid_data_error";
    QTest::newRow("x is a text") << entity("button", button, R"({"x": "1"})") << "invalid_data_error";
    QTest::newRow("toggle is a number") << entity("button", button, R"({"toggle": 1})") << "invalid_data_error";
    QTest::newRow("colour is a list") << entity("button", button, R"({"on_color": []})") << "invalid_data_error";
    QTest::newRow("name is null") << entity("button", button, R"({"name": null})") << "invalid_data_error";
    QTest::newRow("sequence is a text") << entity("button", button, R"({"blueprints": "all"})") << "invalid_data_error";
    QTest::newRow("step is a text") << entity("button", button, R"({"blueprints": ["all"]})") << "invalid_data_error";
    QTest::newRow("step of nothing") << entity("button", button, R"({"blueprints": [{}]})") << "invalid_data_error";
    QTest::newRow("zone is a word") << entity("button", button,
                                              R"({"blueprints": [)" + powerStep(R"(["till"])", "1") + "]}")
                                    << "invalid_data_error";
    QTest::newRow("unknown zone") << entity("button", button,
                                            R"({"blueprints": [)" + powerStep(listOf({quoted(nobody)}), "1") + "]}")
                                  << "unknown_uid_error";
    QTest::newRow("unknown blueprint") << entity(
        "button", button, QByteArray(R"({"blueprints": [{"blueprint": ")") + nobody + R"(", "zones": []}]})")
                                       << "unknown_blueprint_error";
}

void PlanResourcesTest::refusesButton()
{
    QFETCH(QByteArray, data);
    QFETCH(QString, code);
    Desk desk(fullData());
    QSignalSpy changed(&desk.site, &Demo::DemoSite::changed);

    QCOMPARE(codes(desk.post("buttons", listOf({data}))), QStringList(code));
    QVERIFY(changed.isEmpty());
}

void PlanResourcesTest::pressRunsTheSequence()
{
    Desk desk(fullData());

    const auto reply = desk.post("button_states", press(button, "1"));

    QCOMPARE(related(reply, "changed"), QStringList(button));
    QCOMPARE(desk.site.button(QUuid(button))->state, State::On);
    QCOMPARE(powerOf(desk, lamp), 70);
    QCOMPARE(powerOf(desk, contactor), 70);
}

void PlanResourcesTest::pressedTwiceRunsOnce()
{
    Desk desk(fullData());
    desk.post("button_states", press(button, "1"));
    desk.site.setZonesPower({QUuid(till)}, 11);

    QCOMPARE(codes(desk.post("button_states", press(button, "1"))), QStringList());

    QCOMPARE(powerOf(desk, lamp), 11);
}

void PlanResourcesTest::releaseOfToggleButtonRunsNothing()
{
    Desk desk(fullData());
    desk.post("button_states", press(button, "1"));
    desk.site.setZonesPower({QUuid(till)}, 11);

    desk.post("button_states", press(button, "0"));

    QCOMPARE(desk.site.button(QUuid(button))->state, State::Off);
    QCOMPARE(powerOf(desk, lamp), 11);
}

void PlanResourcesTest::momentaryButtonLetsItselfGo()
{
    Desk desk(fullData());
    desk.post("buttons", listOf({entity("button", button, R"({"toggle": false})")}));
    QSignalSpy changed(&desk.site, &Demo::DemoSite::changed);

    desk.post("button_states", press(button, "1"));
    QCOMPARE(desk.site.button(QUuid(button))->state, State::On);

    QTRY_COMPARE(desk.site.button(QUuid(button))->state, State::Off);
    QCOMPARE(changed.last().first().value<List>(), List::ButtonStates);
}

void PlanResourcesTest::toggleButtonStays()
{
    Desk desk(fullData());
    desk.post("buttons", listOf({entity("button", nobody, onHall(R"(, "toggle": false)"))}));

    desk.post(
        "button_states",
        listOf({entity("button_state", button, R"({"state": 1})"), entity("button_state", nobody, R"({"state": 1})")}));

    QTRY_COMPARE(desk.site.button(QUuid(nobody))->state, State::Off); // pressed together, so released by now too
    QCOMPARE(desk.site.button(QUuid(button))->state, State::On);
}

void PlanResourcesTest::buttonWithoutSequenceChangesItsStateAlone()
{
    Desk desk(fullData());
    desk.post("buttons", listOf({entity("button", button, R"({"blueprints": []})")}));
    QSignalSpy changed(&desk.site, &Demo::DemoSite::changed);

    desk.post("button_states", press(button, "1"));

    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.first().first().value<List>(), List::ButtonStates);
}

void PlanResourcesTest::userMayPress()
{
    Desk desk(fullData());
    QSignalSpy noted(&desk.site, &Demo::DemoSite::noted);

    QCOMPARE(codes(desk.ask(document("POST", "button_states", press(button, "1")), "user")), QStringList());

    QCOMPARE(powerOf(desk, lamp), 70);
    QCOMPARE(noted.size(), 1);
    QCOMPARE(noted.first().at(1).toString(), QString("user"));
    QVERIFY(noted.first().at(2).toString().contains("Свет"));
}

void PlanResourcesTest::whitelistBoundsPresses()
{
    Desk desk(fullData());
    auto user = *desk.site.user("user");
    user.zonesWhitelist = QSet<QUuid>{QUuid(till)};
    desk.site.put(user);

    QCOMPARE(codes(desk.ask(document("POST", "button_states", press(button, "1")), "user")),
             QStringList("access_denied_error"));

    QCOMPARE(desk.site.button(QUuid(button))->state, State::Off);
    QCOMPARE(powerOf(desk, lamp), 40);
}

void PlanResourcesTest::refusesPress_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("code");

    QTest::newRow("unknown button") << press(nobody, "1") << "unknown_uid_error";
    QTest::newRow("a zone") << press(till, "1") << "unknown_uid_error";
    QTest::newRow("beyond on") << press(button, "2") << "invalid_data_error";
    QTest::newRow("below off") << press(button, "-1") << "invalid_data_error";
    QTest::newRow("null") << listOf({entity("button_state", button, "{}")}) << "invalid_data_error";
    QTest::newRow("other type") << listOf({entity("button", button, R"({"state": 1})")}) << "invalid_data_error";
    QTest::newRow("second is bad") << listOf(
        {entity("button_state", button, R"({"state": 1})"), entity("button_state", nobody, R"({"state": 1})")})
                                   << "unknown_uid_error";
}

void PlanResourcesTest::refusesPress()
{
    QFETCH(QByteArray, data);
    QFETCH(QString, code);
    Desk desk(fullData());
    QSignalSpy changed(&desk.site, &Demo::DemoSite::changed);

    QCOMPARE(codes(desk.post("button_states", data)), QStringList(code));
    QVERIFY(changed.isEmpty());
}

void PlanResourcesTest::addsIndicator()
{
    Desk desk(fullData());

    const auto reply = desk.post("indicators",
                                 listOf({entity("indicator", nullUid,
                                                onHall(QByteArray(R"(, "indicator_type": 1, "label": "Мощность",
                                            "horizontal_alignment": 3, "display_value_property": "power",
                                            "display_value_device": ")")
                                                       + lamp + "\""))}));

    const auto added = related(reply, "added");
    QCOMPARE(added.size(), 1);
    const auto record = desk.site.indicator(QUuid(added.first()))->indicator;
    QCOMPARE(record.label, QString("Мощность"));
    QCOMPARE(record.horizontalAlignment, 3u);
    QCOMPARE(record.displayValue->device, QUuid(lamp));
    QCOMPARE(record.textColor, QString("#000000"));
}

void PlanResourcesTest::indicatorLosesItsValueWhenSentWithout()
{
    Desk desk(fullData());

    desk.post("indicators", listOf({entity("indicator", indicator, R"({"label": "Текст"})")}));

    const auto record = desk.site.indicator(QUuid(indicator))->indicator;
    QCOMPARE(record.label, QString("Текст"));
    QVERIFY(!record.displayValue);
    QCOMPARE(record.partUid, QUuid(hall));
}

void PlanResourcesTest::refusesIndicator_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("code");

    const auto of = [](const QByteArray &attributes) { return entity("indicator", indicator, attributes); };
    QTest::newRow("unknown plan") << of(QByteArray(R"({"part_uid": ")") + nobody + "\"}") << "unknown_uid_error";
    QTest::newRow("unknown device") << of(QByteArray(R"({"display_value_property": "a", "display_value_device": ")")
                                          + nobody + "\"}")
                                    << "unknown_uid_error";
    QTest::newRow("device is a word") << of(R"({"display_value_device": "lamp"})") << "invalid_data_error";
    QTest::newRow("unknown kind") << of(R"({"indicator_type": 2})") << "invalid_data_error";
    QTest::newRow("kind is a text") << of(R"({"indicator_type": "text"})") << "invalid_data_error";
    QTest::newRow("unknown alignment") << of(R"({"horizontal_alignment": 4})") << "invalid_data_error";
    QTest::newRow("alignment below 0") << of(R"({"horizontal_alignment": -1})") << "invalid_data_error";
    QTest::newRow("label is a map") << of(R"({"label": {}})") << "invalid_data_error";
}

void PlanResourcesTest::refusesIndicator()
{
    QFETCH(QByteArray, data);
    QFETCH(QString, code);
    Desk desk(fullData());
    QSignalSpy changed(&desk.site, &Demo::DemoSite::changed);

    QCOMPARE(codes(desk.post("indicators", listOf({data}))), QStringList(code));
    QVERIFY(changed.isEmpty());
}

void PlanResourcesTest::removedPlanTakesItsObjectsAlong()
{
    Desk desk(fullData());

    const auto gone = related(desk.remove("shop_parts", listOf({entity("shop_part", hall)})), "deleted");

    for (const auto *uid : {hall, till, lamp, button, indicator, picture, mesh})
        QVERIFY2(gone.contains(uid), uid);
    QVERIFY(desk.site.data().buttons.empty());
    QVERIFY(desk.site.data().indicators.empty());
    QVERIFY(desk.site.data().images.empty());
    QVERIFY(desk.site.data().view3DItems.empty());
    QVERIFY(desk.site.day(QUuid(schedule))->zones.isEmpty());
}

void PlanResourcesTest::removedZoneLeavesSequencesAndSchedules()
{
    Desk desk(fullData());
    QSignalSpy changed(&desk.site, &Demo::DemoSite::changed);

    desk.remove("zones", listOf({entity("zone", till)}));

    QCOMPARE(desk.site.button(QUuid(button))->button.blueprints.instances.front().zones, QSet<QUuid>{QUuid(door)});
    QVERIFY(desk.site.day(QUuid(schedule))->zones.isEmpty());
    QSet<int> lists;
    for (const auto &signal : changed)
        lists.insert(int(signal.first().value<List>()));
    QVERIFY(lists.contains(int(List::Buttons)));
    QVERIFY(lists.contains(int(List::Schedules)));
    QVERIFY(!lists.contains(int(List::ImageItems)));
    QString error;
    QVERIFY2(Demo::SiteLoader::fromJson(Demo::SiteLoader::toJson(desk.site.data()), &error), qPrintable(error));
}

void PlanResourcesTest::removedDeviceIsShownNoMore()
{
    Desk desk(fullData());

    desk.remove("devices", listOf({entity("device", lamp)}));
    QVERIFY(desk.site.indicator(QUuid(indicator))->indicator.displayValue);

    desk.remove("devices", listOf({entity("device", sensor)}));
    QVERIFY(!desk.site.indicator(QUuid(indicator))->indicator.displayValue);
}

void PlanResourcesTest::siteRecordBringsObjects()
{
    Desk desk;
    const QByteArray shop = site;

    const auto reply = desk.post(
        "shops/" + shop,
        R"([{"type": "shop", "id": ")" + shop + R"(", "attributes": {}, "relationships": {
                     "buttons": {"data": [{"type": "button", "id": ")"
            + button + R"("}]}, "indicators": {"data": [{"type": "indicator", "id": ")" + indicator
            + R"("}]}, "schedule_days": {"data": [{"type": "schedule_day", "id": ")" + schedule + R"("}]}}}])",
        listOf({entity("button", button, onHall(R"(, "name": "Новая")")),
                entity("indicator", indicator, onHall(R"(, "label": "Новый")")),
                entity("schedule_day", schedule, R"({"name": "День", "week_days": [0]})")}));

    QCOMPARE(codes(reply), QStringList());
    QCOMPARE(desk.site.button(QUuid(button))->button.name, QString("Новая"));
    QCOMPARE(desk.site.indicator(QUuid(indicator))->indicator.label, QString("Новый"));
    QCOMPARE(desk.site.day(QUuid(schedule))->daysOfWeek, QSet<int>{0});
}

void PlanResourcesTest::siteRecordWithABadObjectChangesNothing_data()
{
    QTest::addColumn<QByteArray>("record");
    QTest::addColumn<QString>("code");

    QTest::newRow("button on no plan") << entity("button", button) << "unknown_uid_error";
    QTest::newRow("button of a wrong kind") << entity("button", button, R"({"toggle": "yes"})") << "invalid_data_error";
    QTest::newRow("indicator of a wrong kind")
        << entity("indicator", indicator, R"({"indicator_type": 7})") << "invalid_data_error";
    QTest::newRow("day of no week") << entity("schedule_day", schedule, R"({"week_days": [7]})")
                                    << "invalid_data_error";
}

void PlanResourcesTest::siteRecordWithABadObjectChangesNothing()
{
    QFETCH(QByteArray, record);
    QFETCH(QString, code);
    Desk desk;
    const QByteArray shop = site;
    QSignalSpy changed(&desk.site, &Demo::DemoSite::changed);

    const auto reply = desk.post("shops/" + shop,
                                 R"([{"type": "shop", "id": ")" + shop + R"(", "attributes": {"name": "A"},
                     "relationships": {"buttons": {"data": [{"type": "button", "id": ")"
                                     + button + R"("}]}}}])",
                                 listOf({record}));

    QCOMPARE(codes(reply), QStringList(code));
    QCOMPARE(desk.site.data().name, QString("Магазин"));
    QVERIFY(changed.isEmpty());
}

ONDIRA_TEST(PlanResourcesTest)
#include "PlanResourcesTest.moc"
