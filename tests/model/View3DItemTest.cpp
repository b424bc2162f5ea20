// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/View3DItem.h"
#include "model/JsonTexts.h"
#include "model/OddNumbers.h"
#include "support/TestBase.h"

#include <QtEndian>

namespace {

using Item = Model::View3DItem;

const QUuid uid("{11111111-1111-1111-1111-111111111111}");
const QUuid partUid("{22222222-2222-2222-2222-222222222222}");
const QByteArray mesh("mesh\0\xff\n", 7);

const QByteArray document = R"({
    "type": "view_3d_item", "id": "{11111111-1111-1111-1111-111111111111}",
    "attributes": {"part_uid": "{22222222-2222-2222-2222-222222222222}", "name": "Станок", "x": 1234.5678, "y": -2,
                   "z": 3, "scale_x": 4, "scale_y": 0.5, "scale_z": 6, "rotation_x": 7, "rotation_y": -90,
                   "rotation_z": 9, "opacity": 0.25, "locked": true}})";

Item machine()
{
    Item item;
    item.uid = uid;
    item.partUid = partUid;
    item.name = "Станок";
    item.x = 1234.5678;
    item.y = -2;
    item.z = 3;
    item.scaleX = 4;
    item.scaleY = 0.5;
    item.scaleZ = 6;
    item.rotationX = 7;
    item.rotationY = -90;
    item.rotationZ = 9;
    item.opacity = 0.25;
    item.locked = true;
    return item;
}

// The numbers in the order of the binary form.
const std::vector<std::pair<QByteArray, double Item::*>> numbers{
    {"x", &Item::x},
    {"y", &Item::y},
    {"z", &Item::z},
    {"scale_x", &Item::scaleX},
    {"scale_y", &Item::scaleY},
    {"scale_z", &Item::scaleZ},
    {"rotation_x", &Item::rotationX},
    {"rotation_y", &Item::rotationY},
    {"rotation_z", &Item::rotationZ},
    {"opacity", &Item::opacity},
};

Item withAttributes(const QByteArray &attributes)
{
    return JsonAPI::View3DItem::fromVariant(JsonTexts::entity("{\"attributes\": " + attributes + "}"));
}

QByteArray field(const QByteArray &bytes)
{
    QByteArray length(4, '\0');
    qToLittleEndian<qint32>(bytes.size(), length.data());
    return length + bytes;
}

QByteArray binary(const Item &item)
{
    ZmqBinaryMessage message;
    JsonAPI::View3DItem::toBinaryMessage(message, item);
    return message.toByteArray();
}

Item fromBinary(const std::vector<ZmqBinaryMessage::Entry> &entries)
{
    ZmqBinaryMessage message;
    for (const auto &entry : entries)
        message.add(entry.key, entry.value);
    return JsonAPI::View3DItem::fromBinaryMessage(message);
}

} // namespace

class View3DItemTest : public TestBase
{
    Q_OBJECT

private slots:
    void newItemHasItsOwnSize();
    void writesEveryField();
    void readsEveryField();
    void meshIsNotInTheDocument();
    void absentKeysLeaveTheDefaults();
    void numberThatIsNoneLeavesTheDefault_data();
    void numberThatIsNoneLeavesTheDefault();
    void binaryFormIsExact();
    void binaryFormFollowsWhatIsThere();
    void binaryFormIsReadInAnyOrder();
    void numbersOfTheBinaryFormKeepSixDigits_data();
    void numbersOfTheBinaryFormKeepSixDigits();
    void emptyBinaryFormReadsZeros();
    void binaryNumberThatIsNone_data();
    void binaryNumberThatIsNone();
    void binaryFlagIsANumber_data();
    void binaryFlagIsANumber();
    void binaryUidMustHaveSixteenBytes_data();
    void binaryUidMustHaveSixteenBytes();
    void otherEntitiesAreNoWrapper();
    void hashIsThatOfTheMesh();
    void comparesByAllFields();
};

void View3DItemTest::newItemHasItsOwnSize()
{
    const Item item;

    QCOMPARE(item.scaleX, 1.0);
    QCOMPARE(item.scaleY, 1.0);
    QCOMPARE(item.scaleZ, 1.0);
    QCOMPARE(item.opacity, 1.0);
    QCOMPARE(item.x, 0.0);
    QCOMPARE(item.rotationZ, 0.0);
    QCOMPARE(item.locked, false);
    QVERIFY(item.modelData.isEmpty());
}

void View3DItemTest::writesEveryField()
{
    QCOMPARE(JsonTexts::written(JsonAPI::View3DItem::toVariant(machine())), JsonTexts::compact(document));
}

void View3DItemTest::readsEveryField()
{
    QVERIFY(JsonAPI::View3DItem::fromVariant(JsonTexts::entity(document)) == machine());
}

void View3DItemTest::meshIsNotInTheDocument()
{
    auto item = machine();
    item.modelData = mesh;

    QCOMPARE(JsonTexts::written(JsonAPI::View3DItem::toVariant(item)), JsonTexts::compact(document));
    QVERIFY(withAttributes(R"({"model_data": "mesh"})").modelData.isEmpty());
}

void View3DItemTest::absentKeysLeaveTheDefaults()
{
    QVERIFY(withAttributes("{}") == Item());
    QVERIFY(withAttributes(R"({"locked": null, "name": null, "part_uid": 5, "scaleX": 7})") == Item());
}

void View3DItemTest::numberThatIsNoneLeavesTheDefault_data()
{
    QTest::addColumn<QByteArray>("number");

    for (const auto &number : oddNumbers)
        QTest::newRow(number.first) << number.second;
}

void View3DItemTest::numberThatIsNoneLeavesTheDefault()
{
    QFETCH(QByteArray, number);

    QByteArray attributes;
    for (const auto &known : numbers)
        attributes += QByteArray(attributes.isEmpty() ? "" : ",") + "\"" + known.first + "\": " + number;

    QVERIFY(withAttributes("{" + attributes + "}") == Item());
}

void View3DItemTest::binaryFormIsExact()
{
    auto item = machine();
    item.modelData = mesh;

    QCOMPARE(binary(item),
             field("uid") + field(QByteArray(16, '\x11')) + field("part_uid") + field(QByteArray(16, '\x22'))
                 + field("name") + field("Станок") + field("x") + field("1234.57") + field("y") + field("-2")
                 + field("z") + field("3") + field("scale_x") + field("4") + field("scale_y") + field("0.5")
                 + field("scale_z") + field("6") + field("rotation_x") + field("7") + field("rotation_y") + field("-90")
                 + field("rotation_z") + field("9") + field("opacity") + field("0.25") + field("locked") + field("1")
                 + field("model_data") + field(mesh));
}

void View3DItemTest::binaryFormFollowsWhatIsThere()
{
    ZmqBinaryMessage message("view_3d_items");

    JsonAPI::View3DItem::toBinaryMessage(message, Item());

    QCOMPARE(message.entries().size(), size_t(16));
    QCOMPARE(message.entries().front().key, QByteArray("topic"));
    QCOMPARE(message.entries().at(1).value, QByteArray(16, '\0'));
    QCOMPARE(*message.get("locked"), QByteArray("0"));
    QCOMPARE(*message.get("scale_x"), QByteArray("1"));
    QCOMPARE(message.entries().back().key, QByteArray("model_data"));
    QCOMPARE(message.entries().back().value, QByteArray());
}

void View3DItemTest::binaryFormIsReadInAnyOrder()
{
    auto item = machine();
    item.x = 1234.57;
    item.modelData = mesh;
    auto entries = ZmqBinaryMessage::fromByteArray(binary(item)).entries();
    std::reverse(entries.begin(), entries.end());
    entries.push_back({"topic", "view_3d_items"});
    entries.push_back({"\xff odd key", "1"});
    entries.push_back({"", ""});

    QVERIFY(fromBinary(entries) == item);
}

void View3DItemTest::numbersOfTheBinaryFormKeepSixDigits_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("expected");

    QTest::newRow("long") << 1234.5678 << 1234.57;
    QTest::newRow("third") << 1.0 / 3 << 0.333333;
    QTest::newRow("large") << 12345678.0 << 12345700.0;
    QTest::newRow("small") << -0.00000123456789 << -0.00000123457;
    QTest::newRow("zero") << 0.0 << 0.0;
}

void View3DItemTest::numbersOfTheBinaryFormKeepSixDigits()
{
    QFETCH(double, value);
    QFETCH(double, expected);

    for (const auto &number : numbers) {
        Item item;
        item.*number.second = value;
        Item wanted;
        wanted.*number.second = expected;
        const auto read = JsonAPI::View3DItem::fromBinaryMessage(ZmqBinaryMessage::fromByteArray(binary(item)));
        QVERIFY2(read == wanted, number.first);
    }
}

void View3DItemTest::emptyBinaryFormReadsZeros()
{
    Item expected;
    for (const auto &number : numbers)
        expected.*number.second = 0;

    QVERIFY(fromBinary({}) == expected);
    QVERIFY(fromBinary({{"topic", "view_3d_items"}}) == expected);
}

void View3DItemTest::binaryNumberThatIsNone_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<bool>("isZero"); // otherwise the default stays: what is not finite must not reach a scene

    QTest::newRow("empty") << QByteArray() << true;
    QTest::newRow("word") << QByteArray("wide") << true;
    QTest::newRow("nan") << QByteArray("nan") << false;
    QTest::newRow("inf") << QByteArray("inf") << false;
    QTest::newRow("minus inf") << QByteArray("-inf") << false;
    QTest::newRow("too large") << QByteArray("1e999") << false;
    QTest::newRow("bytes") << QByteArray("\xff\0\x01", 3) << true;
    QTest::newRow("long") << QByteArray(100000, 'x') << true;
}

void View3DItemTest::binaryNumberThatIsNone()
{
    QFETCH(QByteArray, value);

    QFETCH(bool, isZero);

    for (const auto &number : numbers) {
        const auto item = fromBinary({{number.first, value}});
        QVERIFY2(item.*number.second == (isZero ? 0.0 : Item().*number.second), number.first);
    }
}

void View3DItemTest::binaryFlagIsANumber_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<bool>("locked");

    QTest::newRow("one") << QByteArray("1") << true;
    QTest::newRow("zero") << QByteArray("0") << false;
    QTest::newRow("fraction") << QByteArray("0.5") << true;
    QTest::newRow("zero with a fraction") << QByteArray("0.0") << false;
    QTest::newRow("word") << QByteArray("true") << false;
}

void View3DItemTest::binaryFlagIsANumber()
{
    QFETCH(QByteArray, value);

    QTEST(fromBinary({{"locked", value}}).locked, "locked");
}

void View3DItemTest::binaryUidMustHaveSixteenBytes_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QUuid>("expected");

    QTest::newRow("sixteen") << QByteArray(16, '\x11') << uid;
    QTest::newRow("fifteen") << QByteArray(15, '\x11') << QUuid();
    QTest::newRow("seventeen") << QByteArray(17, '\x11') << QUuid();
    QTest::newRow("none") << QByteArray() << QUuid();
    QTest::newRow("text") << QByteArray("{11111111-1111-1111-1111-111111111111}") << QUuid();
}

void View3DItemTest::binaryUidMustHaveSixteenBytes()
{
    QFETCH(QByteArray, value);

    QTEST(fromBinary({{"uid", value}}).uid, "expected");
    QTEST(fromBinary({{"part_uid", value}}).partUid, "expected");
}

void View3DItemTest::otherEntitiesAreNoWrapper()
{
    for (const char *type : {"view_3d_item", "", "Binary_wrapper"}) {
        JsonAPI::Entity entity(type, "1");
        entity.setAttribute("uid", QByteArray(16, '\x11'));
        entity.setAttribute("scale_x", QByteArray("7"));
        QVERIFY2(JsonAPI::View3DItem::fromBinaryWrapper(entity) == Item(), type);
    }

    JsonAPI::Entity wrapper("binary_wrapper", {});
    wrapper.setAttribute("uid", QByteArray(16, '\x11'));
    wrapper.setAttribute("scale_x", QByteArray("7"));
    const auto item = JsonAPI::View3DItem::fromBinaryWrapper(wrapper);
    QCOMPARE(item.uid, uid);
    QCOMPARE(item.scaleX, 7.0);
    QCOMPARE(item.scaleY, 0.0);
}

void View3DItemTest::hashIsThatOfTheMesh()
{
    Item item;
    QCOMPARE(item.hash().toHex(), QByteArray("e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"));

    item.modelData = "abc";

    QCOMPARE(item.hash().toHex(), QByteArray("ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"));
}

void View3DItemTest::comparesByAllFields()
{
    const auto differs = [](const std::function<void(Item &)> &change) {
        auto other = machine();
        change(other);
        return !(other == machine());
    };

    QVERIFY(machine() == machine());
    QVERIFY(differs([](Item &other) { other.uid = partUid; }));
    QVERIFY(differs([](Item &other) { other.partUid = uid; }));
    QVERIFY(differs([](Item &other) { other.name.clear(); }));
    for (const auto &number : numbers)
        QVERIFY2(differs([&](Item &other) { other.*number.second += 1; }), number.first);
    QVERIFY(differs([](Item &other) { other.locked = false; }));
    QVERIFY(differs([](Item &other) { other.modelData = mesh; }));
}

ONDIRA_TEST(View3DItemTest)
#include "View3DItemTest.moc"
