// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/Zone.h"
#include "model/JsonTexts.h"
#include "support/TestBase.h"

namespace {

const QUuid uid("{11111111-1111-1111-1111-111111111111}");
const QUuid partUid("{22222222-2222-2222-2222-222222222222}");

Model::Zone withAttributes(const QByteArray &attributes)
{
    return JsonAPI::Zone::fromVariant(JsonTexts::entity("{\"type\": \"zone\", \"attributes\": " + attributes + "}"));
}

} // namespace

class ZoneTest : public TestBase
{
    Q_OBJECT

private slots:
    void newZoneIsAHundredWide();
    void writesEveryField();
    void readsEveryField();
    void readsNumbers_data();
    void readsNumbers();
    void readsTexts_data();
    void readsTexts();
    void readsUids_data();
    void readsUids();
    void comparesByAllFields();
};

void ZoneTest::newZoneIsAHundredWide()
{
    const Model::Zone zone;

    QCOMPARE(zone.width, 100.0);
    QCOMPARE(zone.height, 100.0);
    QVERIFY(zone.uid.isNull());
    QVERIFY(zone.partUid.isNull());
    QCOMPARE(zone.position, Model::Position());
}

void ZoneTest::writesEveryField()
{
    const Model::Zone zone{uid, partUid, "Зал", {1.5, -2}, 300, 0.25};

    QCOMPARE(JsonTexts::written(JsonAPI::Zone::toVariant(zone)), JsonTexts::compact(R"({
        "type": "zone", "id": "{11111111-1111-1111-1111-111111111111}",
        "attributes": {"part_uid": "{22222222-2222-2222-2222-222222222222}", "name": "Зал",
                       "x": 1.5, "y": -2, "width": 300, "height": 0.25}})"));
}

void ZoneTest::readsEveryField()
{
    const auto zone = JsonAPI::Zone::fromVariant(JsonTexts::entity(R"({
        "type": "zone", "id": "{11111111-1111-1111-1111-111111111111}",
        "attributes": {"part_uid": "{22222222-2222-2222-2222-222222222222}", "name": "Зал",
                       "x": 1.5, "y": -2, "width": 300, "height": 0.25, "color": "red"}})"));

    QVERIFY((zone == Model::Zone{uid, partUid, "Зал", {1.5, -2}, 300, 0.25}));
}

void ZoneTest::readsNumbers_data()
{
    QTest::addColumn<QByteArray>("number");
    QTest::addColumn<double>("expected");

    QTest::newRow("whole") << QByteArray("7") << 7.0;
    QTest::newRow("fraction") << QByteArray("-0.5") << -0.5;
    QTest::newRow("large") << QByteArray("1e300") << 1e300;
    QTest::newRow("text") << QByteArray("\"12.5\"") << 12.5;
    QTest::newRow("text with a comma") << QByteArray("\"12,5\"") << 0.0;
    QTest::newRow("text that is no number") << QByteArray("\"wide\"") << 0.0;
    QTest::newRow("empty text") << QByteArray("\"\"") << 0.0;
    QTest::newRow("nan") << QByteArray("\"nan\"") << 0.0;
    QTest::newRow("inf") << QByteArray("\"inf\"") << 0.0;
    QTest::newRow("minus inf") << QByteArray("\"-inf\"") << 0.0;
    QTest::newRow("text beyond doubles") << QByteArray("\"1e999\"") << 0.0;
    QTest::newRow("true") << QByteArray("true") << 1.0;
    QTest::newRow("null") << QByteArray("null") << 0.0;
    QTest::newRow("list") << QByteArray("[7]") << 0.0;
    QTest::newRow("map") << QByteArray("{\"x\": 7}") << 0.0;
    QTest::newRow("absent") << QByteArray() << 0.0;
}

void ZoneTest::readsNumbers()
{
    QFETCH(QByteArray, number);
    QFETCH(double, expected);

    QByteArray attributes = number.isEmpty() ? "{}" : R"({"x": %, "y": %, "width": %, "height": %})";
    const auto read = withAttributes(attributes.replace("%", number));

    QCOMPARE(read.position.x, expected);
    QCOMPARE(read.position.y, expected);
    QCOMPARE(read.width, expected);
    QCOMPARE(read.height, expected);
}

void ZoneTest::readsTexts_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QString>("name");

    QTest::newRow("text") << QByteArray(R"({"name": "Зал"})") << "Зал";
    QTest::newRow("number") << QByteArray(R"({"name": 5})") << "5";
    QTest::newRow("absent") << QByteArray("{}") << "";
    QTest::newRow("null") << QByteArray(R"({"name": null})") << "";
    QTest::newRow("map") << QByteArray(R"({"name": {}})") << "";
    QTest::newRow("list") << QByteArray(R"({"name": [1]})") << "";
}

void ZoneTest::readsTexts()
{
    QFETCH(QByteArray, attributes);

    QTEST(withAttributes(attributes).name, "name");
}

void ZoneTest::readsUids_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QUuid>("expected");

    QTest::newRow("braces") << QByteArray("\"{11111111-1111-1111-1111-111111111111}\"") << uid;
    QTest::newRow("no braces") << QByteArray("\"11111111-1111-1111-1111-111111111111\"") << uid;
    QTest::newRow("no uid") << QByteArray("\"hall\"") << QUuid();
    QTest::newRow("cut") << QByteArray("\"{11111111-1111\"") << QUuid();
    QTest::newRow("empty") << QByteArray("\"\"") << QUuid();
    QTest::newRow("null") << QByteArray("null") << QUuid();
    QTest::newRow("number") << QByteArray("11111111") << QUuid();
}

void ZoneTest::readsUids()
{
    QFETCH(QByteArray, text);
    QFETCH(QUuid, expected);

    const auto zone = JsonAPI::Zone::fromVariant(
        JsonTexts::entity("{\"id\": " + text + ", \"attributes\": {\"part_uid\": " + text + "}}"));

    QCOMPARE(zone.uid, expected);
    QCOMPARE(zone.partUid, expected);
}

void ZoneTest::comparesByAllFields()
{
    const Model::Zone zone{uid, partUid, "Hall", {1, 2}, 3, 4};

    QVERIFY((zone == Model::Zone{uid, partUid, "Hall", {1, 2}, 3, 4}));
    QVERIFY(!(zone == Model::Zone{partUid, partUid, "Hall", {1, 2}, 3, 4}));
    QVERIFY(!(zone == Model::Zone{uid, uid, "Hall", {1, 2}, 3, 4}));
    QVERIFY(!(zone == Model::Zone{uid, partUid, "hall", {1, 2}, 3, 4}));
    QVERIFY(!(zone == Model::Zone{uid, partUid, "Hall", {0, 2}, 3, 4}));
    QVERIFY(!(zone == Model::Zone{uid, partUid, "Hall", {1, 0}, 3, 4}));
    QVERIFY(!(zone == Model::Zone{uid, partUid, "Hall", {1, 2}, 0, 4}));
    QVERIFY(!(zone == Model::Zone{uid, partUid, "Hall", {1, 2}, 3, 0}));
}

ONDIRA_TEST(ZoneTest)
#include "ZoneTest.moc"
