// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/Indicator.h"
#include "model/JsonTexts.h"
#include "model/OddNumbers.h"
#include "support/TestBase.h"

#include <limits>

namespace {

const QUuid uid("{11111111-1111-1111-1111-111111111111}");
const QUuid partUid("{22222222-2222-2222-2222-222222222222}");
const QUuid deviceUid("{33333333-3333-3333-3333-333333333333}");

const QByteArray document = R"({
    "type": "indicator", "id": "{11111111-1111-1111-1111-111111111111}",
    "attributes": {"part_uid": "{22222222-2222-2222-2222-222222222222}", "indicator_type": 1,
                   "label": "Температура", "icon": "alert/error_outline", "x": 1.5, "y": -2, "width": 300,
                   "height": 0.25, "text_color": "white", "icon_color": "#00FF00", "horizontal_alignment": 3,
                   "display_value_device": "{33333333-3333-3333-3333-333333333333}",
                   "display_value_property": "temperature"}})";

Model::Indicator thermometer()
{
    Model::Indicator indicator;
    indicator.uid = uid;
    indicator.partUid = partUid;
    indicator.indicatorType = Model::Indicator::deviceValue;
    indicator.label = "Температура";
    indicator.icon = "alert/error_outline";
    indicator.position = {1.5, -2};
    indicator.width = 300;
    indicator.height = 0.25;
    indicator.textColor = "white";
    indicator.iconColor = "#00FF00";
    indicator.horizontalAlignment = 3;
    indicator.displayValue = Model::Indicator::DisplayValue{deviceUid, "temperature"};
    return indicator;
}

Model::Indicator withAttributes(const QByteArray &attributes)
{
    return JsonAPI::Indicator::fromVariant(JsonTexts::entity("{\"attributes\": " + attributes + "}"));
}

} // namespace

class IndicatorTest : public TestBase
{
    Q_OBJECT

private slots:
    void newIndicatorHasItsColours();
    void writesEveryField();
    void readsEveryField();
    void indicatorWithoutAValueWritesNoKeysOfIt();
    void absentKeysLeaveTheDefaults();
    void numberThatIsNoneLeavesTheDefault_data();
    void numberThatIsNoneLeavesTheDefault();
    void readsColours_data();
    void readsColours();
    void readsIntegers_data();
    void readsIntegers();
    void displayValueNeedsBothKeys_data();
    void displayValueNeedsBothKeys();
    void comparesByAllFields();
};

void IndicatorTest::newIndicatorHasItsColours()
{
    const Model::Indicator indicator;

    QVERIFY(indicator.uid.isNull());
    QVERIFY(indicator.partUid.isNull());
    QCOMPARE(indicator.indicatorType, 0);
    QVERIFY(indicator.label.isEmpty());
    QVERIFY(indicator.icon.isEmpty());
    QCOMPARE(indicator.position, Model::Position());
    QCOMPARE(indicator.width, 100.0);
    QCOMPARE(indicator.height, 100.0);
    QCOMPARE(indicator.textColor, QString("#000000"));
    QCOMPARE(indicator.iconColor, QString("#F00000"));
    QCOMPARE(indicator.horizontalAlignment, 0u);
    QVERIFY(!indicator.displayValue);
}

void IndicatorTest::writesEveryField()
{
    QCOMPARE(JsonTexts::written(JsonAPI::Indicator::toVariant(thermometer())), JsonTexts::compact(document));
}

void IndicatorTest::readsEveryField()
{
    QVERIFY(JsonAPI::Indicator::fromVariant(JsonTexts::entity(document)) == thermometer());
}

void IndicatorTest::indicatorWithoutAValueWritesNoKeysOfIt()
{
    auto indicator = thermometer();
    indicator.displayValue = boost::none;

    const JsonAPI::Entity entity(JsonAPI::Indicator::toVariant(indicator));

    QVERIFY(!entity.attributes.contains("display_value_device"));
    QVERIFY(!entity.attributes.contains("display_value_property"));
    QVERIFY(JsonAPI::Indicator::fromVariant(entity) == indicator);
}

void IndicatorTest::absentKeysLeaveTheDefaults()
{
    QVERIFY(withAttributes("{}") == Model::Indicator());
    QVERIFY(withAttributes(R"({"textColor": "red", "alignment": 2, "type": 1})") == Model::Indicator());
}

void IndicatorTest::numberThatIsNoneLeavesTheDefault_data()
{
    QTest::addColumn<QByteArray>("number");

    for (const auto &number : oddNumbers)
        QTest::newRow(number.first) << number.second;
}

void IndicatorTest::numberThatIsNoneLeavesTheDefault()
{
    QFETCH(QByteArray, number);
    const QByteArray attributes = R"({"x": %, "y": %, "width": %, "height": %, "indicator_type": %,
                                      "horizontal_alignment": %})";

    QVERIFY(withAttributes(QByteArray(attributes).replace("%", number)) == Model::Indicator());
}

void IndicatorTest::readsColours_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("textColor");
    QTest::addColumn<QString>("iconColor");

    QTest::newRow("text") << QByteArray("\"blue\"") << "blue"
                          << "blue";
    QTest::newRow("empty") << QByteArray("\"\"") << ""
                           << "";
    QTest::newRow("no colour") << QByteArray("\"nothing\"") << "nothing"
                               << "nothing";
    QTest::newRow("number") << QByteArray("5") << "5"
                            << "5";
    QTest::newRow("null") << QByteArray("null") << "#000000"
                          << "#F00000";
    QTest::newRow("list") << QByteArray("[\"blue\"]") << "#000000"
                          << "#F00000";
    QTest::newRow("map") << QByteArray("{}") << "#000000"
                         << "#F00000";
}

void IndicatorTest::readsColours()
{
    QFETCH(QByteArray, value);

    const auto indicator = withAttributes(QByteArray(R"({"text_color": %, "icon_color": %})").replace("%", value));

    QTEST(indicator.textColor, "textColor");
    QTEST(indicator.iconColor, "iconColor");
}

void IndicatorTest::readsIntegers_data()
{
    QTest::addColumn<QByteArray>("number");
    QTest::addColumn<int>("type");
    QTest::addColumn<unsigned int>("alignment");

    constexpr int least = std::numeric_limits<int>::min();
    constexpr int largest = std::numeric_limits<int>::max();
    constexpr unsigned int all = std::numeric_limits<unsigned int>::max();
    QTest::newRow("known") << QByteArray("1") << 1 << 1u;
    QTest::newRow("text") << QByteArray("\"2\"") << 2 << 2u;
    QTest::newRow("unknown") << QByteArray("77") << 77 << 77u;
    QTest::newRow("rounded") << QByteArray("1.6") << 2 << 2u;
    QTest::newRow("negative") << QByteArray("-1") << -1 << 0u;
    QTest::newRow("beyond int") << QByteArray("3000000000") << largest << 3000000000u;
    QTest::newRow("beyond 32 bits") << QByteArray("4294967296") << largest << all;
    QTest::newRow("huge") << QByteArray("1e300") << largest << all;
    QTest::newRow("hugely negative") << QByteArray("-1e300") << least << 0u;
}

void IndicatorTest::readsIntegers()
{
    QFETCH(QByteArray, number);

    const auto indicator =
        withAttributes(QByteArray(R"({"indicator_type": %, "horizontal_alignment": %})").replace("%", number));

    QTEST(indicator.indicatorType, "type");
    QTEST(indicator.horizontalAlignment, "alignment");
}

void IndicatorTest::displayValueNeedsBothKeys_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<bool>("present");
    QTest::addColumn<QUuid>("device");
    QTest::addColumn<QString>("property");

    const auto row = [](const char *name, const QByteArray &attributes, bool present, const QUuid &device,
                        const QString &property) {
        QTest::newRow(name) << attributes << present << device << property;
    };
    row("both", R"({"display_value_device": "{33333333-3333-3333-3333-333333333333}", "display_value_property": "t"})",
        true, deviceUid, "t");
    row("no property", R"({"display_value_device": "{33333333-3333-3333-3333-333333333333}"})", false, {}, {});
    row("no device", R"({"display_value_property": "t"})", false, {}, {});
    row("neither", "{}", false, {}, {});
    row("no uid", R"({"display_value_device": "lamp", "display_value_property": "t"})", true, {}, "t");
    row("nulls", R"({"display_value_device": null, "display_value_property": null})", true, {}, {});
    row("lists", R"({"display_value_device": [1], "display_value_property": [2]})", true, {}, {});
}

void IndicatorTest::displayValueNeedsBothKeys()
{
    QFETCH(QByteArray, attributes);
    QFETCH(bool, present);

    const auto indicator = withAttributes(attributes);

    QCOMPARE(bool(indicator.displayValue), present);
    if (present) {
        QTEST(indicator.displayValue->device, "device");
        QTEST(indicator.displayValue->property, "property");
    }
}

void IndicatorTest::comparesByAllFields()
{
    using Indicator = Model::Indicator;
    const auto differs = [](const std::function<void(Indicator &)> &change) {
        auto other = thermometer();
        change(other);
        return !(other == thermometer());
    };

    QVERIFY(thermometer() == thermometer());
    QVERIFY(differs([](Indicator &other) { other.uid = partUid; }));
    QVERIFY(differs([](Indicator &other) { other.partUid = uid; }));
    QVERIFY(differs([](Indicator &other) { other.indicatorType = 0; }));
    QVERIFY(differs([](Indicator &other) { other.label.clear(); }));
    QVERIFY(differs([](Indicator &other) { other.icon.clear(); }));
    QVERIFY(differs([](Indicator &other) { other.position.x = 0; }));
    QVERIFY(differs([](Indicator &other) { other.width = 0; }));
    QVERIFY(differs([](Indicator &other) { other.height = 0; }));
    QVERIFY(differs([](Indicator &other) { other.textColor.clear(); }));
    QVERIFY(differs([](Indicator &other) { other.iconColor.clear(); }));
    QVERIFY(differs([](Indicator &other) { other.horizontalAlignment = 0; }));
    QVERIFY(differs([](Indicator &other) { other.displayValue = boost::none; }));
    QVERIFY(differs([](Indicator &other) { other.displayValue->device = uid; }));
    QVERIFY(differs([](Indicator &other) { other.displayValue->property = "Temperature"; }));
}

ONDIRA_TEST(IndicatorTest)
#include "IndicatorTest.moc"
