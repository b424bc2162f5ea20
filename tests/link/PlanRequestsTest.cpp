// SPDX-License-Identifier: GPL-3.0-or-later
#include "OperationsTestBase.h"

#include <QJsonDocument>

using Operation = std::function<void(TestCommunicator &)>;
Q_DECLARE_METATYPE(Operation)

namespace {

const QByteArray dayEntity = R"({"type":"schedule_day","id":"{11111111-1111-1111-1111-111111111111}","attributes":{
    "name":"Будни","week_days":[0],"points":[]}})";
const QByteArray buttonEntity = R"({"type":"button","id":"{11111111-1111-1111-1111-111111111111}","attributes":{
    "part_uid":"{22222222-2222-2222-2222-222222222222}","name":"Свет","x":0,"y":0,"width":80,"height":80,
    "on_color":"","off_color":"","toggle":true,"blueprints":[]}})";
const QByteArray indicatorEntity = R"({"type":"indicator","id":"{11111111-1111-1111-1111-111111111111}","attributes":{
    "part_uid":"{22222222-2222-2222-2222-222222222222}","indicator_type":0,"label":"Авария","icon":"","x":0,"y":0,
    "width":100,"height":100,"text_color":"#000000","icon_color":"#F00000","horizontal_alignment":0}})";
const QByteArray pictureEntity = R"({"type":"image_item","id":"{11111111-1111-1111-1111-111111111111}","attributes":{
    "part_uid":"{22222222-2222-2222-2222-222222222222}","name":"План","x":1234.5678,"y":-0.5,"width":30,"height":0,
    "crop_x":0,"crop_y":0,"crop_width":0,"crop_height":0,"opacity":1,"on_top":false,"locked":false}})";
const QByteArray machineEntity = R"({"type":"view_3d_item","id":"{11111111-1111-1111-1111-111111111111}","attributes":{
    "part_uid":"{22222222-2222-2222-2222-222222222222}","name":"Станок","x":1.5,"y":0,"z":0,"scale_x":1,"scale_y":1,
    "scale_z":1,"rotation_x":0,"rotation_y":0,"rotation_z":0,"opacity":1,"locked":false}})";
const QByteArray blueprintEntity = R"({"type":"action_blueprint","id":"{11111111-1111-1111-1111-111111111111}",
    "attributes":{"name":"Вечер","system":false,"nodes":[]}})";
const QByteArray stateEntity =
    R"({"type":"button_state","id":"{11111111-1111-1111-1111-111111111111}","attributes":{"state":1}})";
const QByteArray powerOnEntity = R"({"type":"device_power_on_info","id":"{11111111-1111-1111-1111-111111111111}",
    "attributes":{"power_on_hours":12.5,"last_update":"2026-01-02T03:04:05Z"}})";
const QByteArray settingsEntity = R"({"type":"settings","id":"1","attributes":{
    "pwm":{"100":255,"80":204,"60":153,"40":102,"20":51,"0":0},
    "mrf":[{"pan":0,"address":12288,"channel":15,"duty_cycle":"duty50"}],
    "radio":{"pan":0,"address":12288,"channel":15,"duty_cycle":"duty50"},"lora":[],"rs485":[]}})";

QByteArray document(const QByteArray &method, const QByteArray &link, const QByteArray &data)
{
    return R"({"method":")" + method + R"(","link":")" + link + R"(","data":[)" + data
        + R"(],"included":[],"client_version":"4.5.2"})";
}

Model::DevicePowerOnInfo runHours()
{
    return {hallUid, 12.5, QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5), Qt::UTC)};
}

} // namespace

// What the operations on schedules, things of a plan, blueprints and hardware send, and how long each may take.
class PlanRequestsTest : public OperationsTestBase
{
    Q_OBJECT

private slots:
    void documentIsExact_data();
    void documentIsExact();
};

void PlanRequestsTest::documentIsExact_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QByteArray>("resource");
    QTest::addColumn<QByteArray>("expected");
    QTest::addColumn<int>("timeout");

    const auto test = testTimings();
    const auto row = [&test](const char *name, const QByteArray &method, const QByteArray &link, const QByteArray &data,
                             const Operation &operation, int timeout = 0) {
        QTest::newRow(name) << operation << link.split('/').first() << document(method, link, data)
                            << (timeout ? timeout : test.reply);
    };
    using L = TestCommunicator;

    row("addDays", "POST", "schedule_days", dayEntity, [](L &l) { l.addDays({workday()}, {}); });
    row("changeDays", "POST", "schedule_days", dayEntity + "," + dayEntity, [](L &l) {
        l.changeDays({workday(), workday()});
    });
    row("removeDays", "DELETE", "schedule_days", dayEntity, [](L &l) { l.removeDays({workday()}); });
    row("addButtons", "POST", "buttons", buttonEntity, [](L &l) { l.addButtons({lightButton()}, {}); });
    row("changeButtons", "POST", "buttons", buttonEntity, [](L &l) { l.changeButtons({lightButton()}); });
    row("removeButtons", "DELETE", "buttons", buttonEntity, [](L &l) { l.removeButtons({lightButton()}); });
    row("setButtonStates", "POST", "button_states", stateEntity, [](L &l) {
        l.setButtonStates({Model::ButtonState{hallUid, Model::ButtonState::State::On}});
    });
    row("addIndicators", "POST", "indicators", indicatorEntity, [](L &l) { l.addIndicators({alarm()}, {}); });
    row("changeIndicators", "POST", "indicators", indicatorEntity, [](L &l) { l.changeIndicators({alarm()}); });
    row("removeIndicators", "DELETE", "indicators", indicatorEntity, [](L &l) { l.removeIndicators({alarm()}); });
    row("no indicators", "DELETE", "indicators", "", [](L &l) { l.removeIndicators({}); });
    row("addBlueprints", "POST", "blueprints", blueprintEntity, [](L &l) { l.addBlueprints({evening()}, {}); });
    row("changeBlueprints", "POST", "blueprints", blueprintEntity, [](L &l) { l.changeBlueprints({evening()}); });
    row("removeBlueprints", "DELETE", "blueprints", blueprintEntity, [](L &l) { l.removeBlueprints({evening()}); });
    row("changeImageItem", "POST", "image_items/", pictureEntity, [](L &l) { l.changeImageItem(picture(), {}); });
    row("removeImageItems", "DELETE", "image_items", pictureEntity, [](L &l) { l.removeImageItems({picture()}, {}); });
    row("getImage", "GET", "image_items/{11111111-1111-1111-1111-111111111111}", "",
        [](L &l) { l.getImage(hallUid, {}, {}); });
    row("changeView3DItem", "POST", "view_3d_items/", machineEntity, [](L &l) { l.changeView3DItem(machine(), {}); });
    row("removeView3DItems", "DELETE", "view_3d_items", machineEntity,
        [](L &l) { l.removeView3DItems({machine()}, {}); });
    row("getView3DItem", "GET", "view_3d_items/{11111111-1111-1111-1111-111111111111}", "",
        [](L &l) { l.getView3DItem(hallUid, {}, {}); });
    row("setPowerOnStatistics", "POST", "power_on_statistics", powerOnEntity,
        [](L &l) { l.setPowerOnStatistics({runHours()}); });
    row("setSettings", "POST", "settings/1", settingsEntity, [](L &l) {
        Model::Settings settings;
        settings.mrf.resize(1);
        l.setSettings(settings);
    });
    row("getRadioStatus", "GET", "radio_status", "", [](L &l) { l.getRadioStatus(); });
    row(
        "getStatisticsInfo", "GET", "statistics_info", "", [](L &l) { l.getStatisticsInfo({}); }, test.quickReply);
}

void PlanRequestsTest::documentIsExact()
{
    QFETCH(Operation, operation);
    QFETCH(QByteArray, resource);
    QFETCH(QByteArray, expected);
    QFETCH(int, timeout);
    m_server->answer = nullptr;

    operation(*m_link);
    const auto request = awaitRequest(resource);

    QCOMPARE(request.resource(), resource);
    QCOMPARE(int(request.flags), FakeServer::Json | FakeServer::Compressed);
    const auto wanted = QJsonDocument::fromJson(expected);
    QVERIFY(!wanted.isNull());
    QCOMPARE(QJsonDocument(request.document).toJson(), wanted.toJson());
    QCOMPARE(m_server->requests.size(), size_t(1));
    const auto handler = m_link->takeReplyHandle(request.id);
    QVERIFY(handler);
    QVERIFY(handler->remainingTime() <= timeout && handler->remainingTime() > timeout - 5000);
}

ONDIRA_TEST(PlanRequestsTest)
#include "PlanRequestsTest.moc"
