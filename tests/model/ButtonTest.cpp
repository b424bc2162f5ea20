// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/Button.h"
#include "link/document/Response.h"
#include "model/JsonTexts.h"
#include "model/OddNumbers.h"
#include "support/TestBase.h"

namespace {

const QUuid uid("{11111111-1111-1111-1111-111111111111}");
const QUuid partUid("{22222222-2222-2222-2222-222222222222}");
const QUuid zoneUid("{33333333-3333-3333-3333-333333333333}");

const QByteArray document = R"({
    "type": "button", "id": "{11111111-1111-1111-1111-111111111111}",
    "attributes": {"part_uid": "{22222222-2222-2222-2222-222222222222}", "name": "Свет", "x": 1.5, "y": -2,
                   "width": 120, "height": 0.25, "on_color": "#00FF00", "off_color": "gray", "toggle": true,
                   "blueprints": [{"blueprint": "{44444444-4444-4444-4444-444444444444}",
                                   "properties": [{"node": "00000000-0000-0000-0000-000000000000",
                                                   "property": "power", "value": {"type": "double", "value": 40}}],
                                   "zones": ["{33333333-3333-3333-3333-333333333333}"]}]}})";

Model::Button lightButton()
{
    Model::ActionBlueprintInstance instance;
    instance.blueprint = QUuid("{44444444-4444-4444-4444-444444444444}");
    instance.properties = {Model::ExposedPropertyValue("power", Model::ActionDatatype(40.0))};
    instance.zones = {zoneUid};
    return {uid, partUid, "Свет", {1.5, -2}, 120, 0.25, "#00FF00", "gray", true, {{instance}}};
}

Model::Button withAttributes(const QByteArray &attributes)
{
    return JsonAPI::Button::fromVariant(JsonTexts::entity(R"({"type": "button", "attributes": )" + attributes + "}"));
}

} // namespace

class ButtonTest : public TestBase
{
    Q_OBJECT

private slots:
    void newButtonIsEightyWide();
    void writesEveryField();
    void readsEveryField();
    void absentKeysLeaveTheDefaults();
    void keysOfNoConcernArePassedOver();
    void numberThatIsNoneLeavesTheDefault_data();
    void numberThatIsNoneLeavesTheDefault();
    void numberAsTextIsRead();
    void readsTheToggle_data();
    void readsTheToggle();
    void readsTexts_data();
    void readsTexts();
    void blueprintsThatAreNoListAreEmpty_data();
    void blueprintsThatAreNoListAreEmpty();
    void blueprintsThatAreNoMapsAreEmptyInstances();
    void tenThousandButtonsAreReadInOrder();
    void comparesByAllFields();
};

void ButtonTest::newButtonIsEightyWide()
{
    const Model::Button button;

    QVERIFY(button.uid.isNull());
    QVERIFY(button.partUid.isNull());
    QVERIFY(button.name.isEmpty());
    QCOMPARE(button.position, Model::Position());
    QCOMPARE(button.width, 80.0);
    QCOMPARE(button.height, 80.0);
    QVERIFY(button.onColor.isEmpty());
    QVERIFY(button.offColor.isEmpty());
    QCOMPARE(button.toggle, false);
    QVERIFY(button.blueprints.instances.empty());
}

void ButtonTest::writesEveryField()
{
    QCOMPARE(JsonTexts::written(JsonAPI::Button::toVariant(lightButton())), JsonTexts::compact(document));
}

void ButtonTest::readsEveryField()
{
    QVERIFY(JsonAPI::Button::fromVariant(JsonTexts::entity(document)) == lightButton());
}

void ButtonTest::absentKeysLeaveTheDefaults()
{
    QVERIFY(withAttributes("{}") == Model::Button());
    QVERIFY(JsonAPI::Button::fromVariant(JsonAPI::Entity()) == Model::Button());
}

void ButtonTest::keysOfNoConcernArePassedOver()
{
    const auto button = withAttributes(R"({"name": "A", "uid": 5, "onColor": "red", "blueprint": [{}], "": null})");

    QCOMPARE(button.name, QString("A"));
    QVERIFY(button.onColor.isEmpty());
    QVERIFY(button.blueprints.instances.empty());
}

void ButtonTest::numberThatIsNoneLeavesTheDefault_data()
{
    QTest::addColumn<QByteArray>("number");

    for (const auto &number : oddNumbers)
        QTest::newRow(number.first) << number.second;
}

void ButtonTest::numberThatIsNoneLeavesTheDefault()
{
    QFETCH(QByteArray, number);

    const auto button = withAttributes(QByteArray(R"({"x": %, "y": %, "width": %, "height": %})").replace("%", number));

    QVERIFY(button == Model::Button());
}

void ButtonTest::numberAsTextIsRead()
{
    const auto button = withAttributes(R"({"x": "1e2", "y": "-0.5", "width": "7", "height": true})");

    QCOMPARE(button.position, (Model::Position{100, -0.5}));
    QCOMPARE(button.width, 7.0);
    QCOMPARE(button.height, 1.0);
}

void ButtonTest::readsTheToggle_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<bool>("toggle");

    QTest::newRow("true") << QByteArray("true") << true;
    QTest::newRow("false") << QByteArray("false") << false;
    QTest::newRow("one") << QByteArray("1") << true;
    QTest::newRow("zero") << QByteArray("0") << false;
    QTest::newRow("text true") << QByteArray("\"true\"") << true;
    QTest::newRow("text false") << QByteArray("\"false\"") << false;
    QTest::newRow("null") << QByteArray("null") << false;
    QTest::newRow("list") << QByteArray("[true]") << false;
    QTest::newRow("map") << QByteArray("{\"toggle\": true}") << false;
}

void ButtonTest::readsTheToggle()
{
    QFETCH(QByteArray, value);

    QTEST(withAttributes("{\"toggle\": " + value + "}").toggle, "toggle");
}

void ButtonTest::readsTexts_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("text");

    QTest::newRow("text") << QByteArray("\"#FF0000\"") << "#FF0000";
    QTest::newRow("number") << QByteArray("5") << "5";
    QTest::newRow("null") << QByteArray("null") << "";
    QTest::newRow("list") << QByteArray("[\"red\"]") << "";
    QTest::newRow("map") << QByteArray("{}") << "";
}

void ButtonTest::readsTexts()
{
    QFETCH(QByteArray, value);
    QFETCH(QString, text);

    const auto button = withAttributes(QByteArray(R"({"name": %, "on_color": %, "off_color": %})").replace("%", value));

    QCOMPARE(button.name, text);
    QCOMPARE(button.onColor, text);
    QCOMPARE(button.offColor, text);
}

void ButtonTest::blueprintsThatAreNoListAreEmpty_data()
{
    QTest::addColumn<QByteArray>("value");

    QTest::newRow("null") << QByteArray("null");
    QTest::newRow("empty list") << QByteArray("[]");
    QTest::newRow("map") << QByteArray("{\"blueprint\": \"{44444444-4444-4444-4444-444444444444}\"}");
    QTest::newRow("text") << QByteArray("\"[]\"");
    QTest::newRow("number") << QByteArray("7");
}

void ButtonTest::blueprintsThatAreNoListAreEmpty()
{
    QFETCH(QByteArray, value);

    QVERIFY(withAttributes("{\"blueprints\": " + value + "}").blueprints.instances.empty());
}

void ButtonTest::blueprintsThatAreNoMapsAreEmptyInstances()
{
    const auto button = withAttributes(R"({"blueprints": [null, 5, [], "text"]})");

    QCOMPARE(button.blueprints.instances.size(), size_t(4));
    QVERIFY(button.blueprints.instances.at(1).blueprint.isNull());
}

void ButtonTest::tenThousandButtonsAreReadInOrder()
{
    constexpr int count = 10000;
    QByteArray entities;
    for (int i = 0; i < count; ++i) {
        // Every tenth has no uid, and every other one the same.
        const QByteArray id = i % 10 ? "{11111111-1111-1111-1111-111111111111}" : "";
        entities += QByteArray(i ? "," : "") + R"({"type": "button", "id": ")" + id + R"(", "attributes": {"name": ")"
            + QByteArray::number(i) + R"("}})";
    }

    const auto reply = JsonAPI::Response::fromByteArray("{\"data\": [" + entities + "]}");
    const auto buttons = JsonAPI::Entity::toType(reply.data, JsonAPI::Button::fromVariant);

    QCOMPARE(buttons.size(), size_t(count));
    for (int i = 0; i < count; ++i) {
        const auto &button = buttons.at(static_cast<size_t>(i));
        QCOMPARE(button.name, QString::number(i));
        QCOMPARE(button.uid, i % 10 ? uid : QUuid());
    }
}

void ButtonTest::comparesByAllFields()
{
    const auto differs = [](const std::function<void(Model::Button &)> &change) {
        auto other = lightButton();
        change(other);
        return !(other == lightButton());
    };

    QVERIFY(lightButton() == lightButton());
    QVERIFY(differs([](Model::Button &other) { other.uid = partUid; }));
    QVERIFY(differs([](Model::Button &other) { other.partUid = uid; }));
    QVERIFY(differs([](Model::Button &other) { other.name = "свет"; }));
    QVERIFY(differs([](Model::Button &other) { other.position.x = 0; }));
    QVERIFY(differs([](Model::Button &other) { other.position.y = 0; }));
    QVERIFY(differs([](Model::Button &other) { other.width = 0; }));
    QVERIFY(differs([](Model::Button &other) { other.height = 0; }));
    QVERIFY(differs([](Model::Button &other) { other.onColor = "#00ff00"; }));
    QVERIFY(differs([](Model::Button &other) { other.offColor.clear(); }));
    QVERIFY(differs([](Model::Button &other) { other.toggle = false; }));
    QVERIFY(differs([](Model::Button &other) { other.blueprints.instances.clear(); }));
}

ONDIRA_TEST(ButtonTest)
#include "ButtonTest.moc"
