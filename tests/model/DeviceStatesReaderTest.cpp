// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/DeviceStatesReader.h"

#include "model/BothRoads.h"
#include "support/TestBase.h"

#include <QRandomGenerator>

using BothRoads::plainRoad;
using BothRoads::same;
using JsonAPI::DeviceStatesReader;

namespace {

const QByteArray uid = "{11111111-1111-1111-1111-111111111111}";

QByteArray withState(const QByteArray &state)
{
    return R"({"data":[{"type":"device_state","id":")" + uid + R"(","attributes":{"state":)" + state
        + R"(}}],"server_version":"4.4.0"})";
}

QByteArray withId(const QByteArray &id)
{
    return R"({"data":[{"id":)" + id + "}]}";
}

// A document with every kind of value, in the order in which a server of ours would not write it.
const QByteArray everyKind = R"({"server_version": "4.4.1", "data": [
    {"type": "device_state", "id": "{11111111-1111-1111-1111-111111111111}", "attributes": {"state": {
        "power": 55, "temperature": 21.5, "isOn": true, "fault": null, "name": "Зал", "list": [1, 2.5, "a", {}]}}},
    {"id": "{22222222-2222-2222-2222-222222222222}", "attributes": {"state": {
        "power": 5e1, "temperature": -0.25, "isOn": false, "fault": "", "map": {"b": {"c": []}, "a": 1.0}}},
     "type": "device_state"}]})";

} // namespace

class DeviceStatesReaderTest : public TestBase
{
    Q_OBJECT

private slots:
    void takesUsualDocuments_data();
    void takesUsualDocuments();
    void leavesDoubtsToThePlainRoad_data();
    void leavesDoubtsToThePlainRoad();
    void everyTruncationReadsAsOnThePlainRoad();
    void damagedDocumentsReadAsOnThePlainRoad();
    void spoiltValuesReadAsOnThePlainRoad();
    void randomNumbersReadAsOnThePlainRoad();
    void readsALongList();
    void sharesTheTextsOfKeys();
    void manyKeysStayRight();
    void needsNoRoomBehindTheText();
};

void DeviceStatesReaderTest::takesUsualDocuments_data()
{
    QTest::addColumn<QByteArray>("json");

    QTest::newRow("every kind") << everyKind;
    QTest::newRow("no entities") << QByteArray(R"({"data":[]})");
    QTest::newRow("indented") << QByteArray("\n{ \"data\" :\t[ ] ,\r\n \"server_version\" : \"4.3.0\" }\n ");
    QTest::newRow("no version") << QByteArray(R"({"data":[]})");
    QTest::newRow("short version") << QByteArray(R"({"data":[],"server_version":"4"})");
    QTest::newRow("no version text") << QByteArray(R"({"data":[],"server_version":"new"})");
    QTest::newRow("empty version") << QByteArray(R"({"data":[],"server_version":""})");
    QTest::newRow("more keys") << QByteArray(R"({"included":[{"a":[1,2.5,"x",null,true]}],"meta":{"b":{}},"data":[
        {"id":"{11111111-1111-1111-1111-111111111111}","relationships":{"zones":{"data":[]}},"meta":"x",
         "attributes":{"quality":1,"state":{"on":true},"tags":["a"]}}],"time":5})");
    QTest::newRow("another type") << QByteArray(
        R"({"data":[{"type":"lamp","id":"{11111111-1111-1111-1111-111111111111}"}]})");
    QTest::newRow("no attributes") << withId('"' + uid + '"');
    QTest::newRow("no state") << QByteArray(
        R"({"data":[{"id":"{11111111-1111-1111-1111-111111111111}","attributes":{}}]})");
    QTest::newRow("the same device twice") << QByteArray(
        R"({"data":[{"id":"{11111111-1111-1111-1111-111111111111}","attributes":{"state":{"a":1}}},
                    {"id":"{11111111-1111-1111-1111-111111111111}","attributes":{"state":{"a":2}}}]})");
    QTest::newRow("upper case uid") << withId("\"{ABCDEFAB-1111-1111-1111-111111111111}\"");
    QTest::newRow("empty state") << withState("{}");
    QTest::newRow("empty key") << withState(R"({"":1})");
    QTest::newRow("keys that differ by case") << withState(R"({"a":1,"A":2})");
    QTest::newRow("unsorted keys") << withState(R"({"c":1,"a":2,"b":3})");
    QTest::newRow("Cyrillic key") << withState(R"({"мощность":1})");
    QTest::newRow("texts") << withState(R"({"a":"","b":" ","c":"Зал №1","d":"😀","e":"null","f":"/"})");
    QTest::newRow("whole numbers") << withState(R"({"a":0,"b":-0,"c":-1,"d":9007199254740993,"e":9223372036854775807,
                                   "f":-9223372036854775808})");
    QTest::newRow("fractions") << withState(R"({"a":0.1,"b":-2.5,"c":0.30000000000000004,"d":1e-7,"e":123456.789,
                                                "f":1.7976931348623157e-300,"g":4503599627370495.5})");
    QTest::newRow("whole fractions") << withState(
        R"({"a":1.0,"b":1e2,"c":1E+2,"d":-0.0,"e":0.0,"f":0e5,"g":100.5e1,"h":9007199254740991.0,"i":0.000e-9})");
    QTest::newRow("nested") << withState(R"({"a":{"b":{"c":{"d":[[[1]]]}}},"e":[{"a":1},{"a":2}]})");
    QTest::newRow("nested keys twice at different depths") << withState(R"({"a":{"a":{"a":1}},"b":{"a":2}})");
}

void DeviceStatesReaderTest::takesUsualDocuments()
{
    QFETCH(QByteArray, json);

    const auto read = DeviceStatesReader::read(json);

    QVERIFY(read);
    QVERIFY(same(*read, plainRoad(json)));
}

void DeviceStatesReaderTest::leavesDoubtsToThePlainRoad_data()
{
    QTest::addColumn<QByteArray>("json");

    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no JSON") << QByteArray("hello");
    QTest::newRow("list") << QByteArray("[]");
    QTest::newRow("number") << QByteArray("5");
    QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbf{\"data\":[]}");
    QTest::newRow("something after the document") << QByteArray(R"({"data":[]} {})");
    QTest::newRow("a comma after the document") << QByteArray(R"({"data":[]},)");
    QTest::newRow("a brace too many") << QByteArray(R"({"data":[]}})");
    QTest::newRow("no data") << QByteArray(R"({"server_version":"4.4.0"})");
    QTest::newRow("one entity as an object")
        << QByteArray(R"({"data":{"id":"{11111111-1111-1111-1111-111111111111}"}})");
    QTest::newRow("data is null") << QByteArray(R"({"data":null})");
    QTest::newRow("data twice") << QByteArray(R"({"data":[],"data":[]})");
    QTest::newRow("data twice, one escaped") << QByteArray(R"({"data":[],"\u0064ata":[]})");
    QTest::newRow("errors") << QByteArray(R"({"data":[],"errors":[{"code":"a"}]})");
    QTest::newRow("no errors") << QByteArray(R"({"data":[],"errors":[]})");
    QTest::newRow("version is a number") << QByteArray(R"({"data":[],"server_version":4.5})");
    QTest::newRow("version is null") << QByteArray(R"({"data":[],"server_version":null})");
    QTest::newRow("version twice") << QByteArray(R"({"data":[],"server_version":"4.4","server_version":"4.5"})");
    QTest::newRow("entity is a number") << QByteArray(R"({"data":[5]})");
    QTest::newRow("entity is null") << QByteArray(R"({"data":[null]})");
    QTest::newRow("entity is empty") << QByteArray(R"({"data":[{}]})");
    QTest::newRow("comma after the last entity")
        << QByteArray(R"({"data":[{"id":"{11111111-1111-1111-1111-111111111111}"},]})");
    QTest::newRow("id is null") << withId("null");
    QTest::newRow("id is a number") << withId("5");
    QTest::newRow("id is no uid") << withId("\"lamp\"");
    QTest::newRow("null uid") << withId("\"{00000000-0000-0000-0000-000000000000}\"");
    QTest::newRow("uid without braces") << withId("\"11111111-1111-1111-1111-111111111111\"");
    QTest::newRow("more after the uid") << withId("\"{11111111-1111-1111-1111-111111111111}x\"");
    QTest::newRow("bad digit in the uid") << withId("\"{1111111g-1111-1111-1111-111111111111}\"");
    QTest::newRow("escaped uid") << withId("\"\\u007b11111111-1111-1111-1111-111111111111}\"");
    QTest::newRow("id twice") << withId("\"" + uid + "\",\"id\":\"" + uid + "\"");
    QTest::newRow("attributes twice") << withId("\"" + uid + "\",\"attributes\":{},\"attributes\":{}");
    QTest::newRow("attributes are null") << withId("\"" + uid + "\",\"attributes\":null");
    QTest::newRow("state twice") << withId("\"" + uid + "\",\"attributes\":{\"state\":{},\"state\":{}}");
    QTest::newRow("state is null") << withState("null");
    QTest::newRow("state is a list") << withState("[]");
    QTest::newRow("state is a text") << withState("\"on\"");
    QTest::newRow("key twice") << withState(R"({"a":1,"a":2})");
    QTest::newRow("key twice, unsorted") << withState(R"({"b":1,"a":2,"b":3})");
    QTest::newRow("key twice in a nested map") << withState(R"({"m":{"a":1,"a":2}})");
    QTest::newRow("escaped key") << withState(R"({"a\n":1})");
    QTest::newRow("escaped text") << withState(R"({"a":"\u0416"})");
    QTest::newRow("lone surrogate") << withState(R"({"a":"\ud800"})");
    QTest::newRow("unknown escape") << withState(R"({"a":"\x"})");
    QTest::newRow("escape in an unused text") << withId("\"" + uid + R"(","type":"\u12")");
    QTest::newRow("control character") << withState("{\"a\":\"\x01\"}");
    QTest::newRow("no UTF-8") << withState("{\"a\":\"\xff\"}");
    QTest::newRow("overlong UTF-8") << withState("{\"a\":\"\xc0\xaf\"}");
    QTest::newRow("surrogate in UTF-8") << withState("{\"a\":\"\xed\xa0\x80\"}");
    QTest::newRow("no UTF-8 in an unused text") << withId("\"" + uid + "\",\"type\":\"\xff\"");
    QTest::newRow("number above 64 bit") << withState(R"({"a":9223372036854775808})");
    QTest::newRow("number below 64 bit") << withState(R"({"a":-9223372036854775809})");
    QTest::newRow("many digits") << withState(R"({"a":123456789012345678901234567890})");
    QTest::newRow("more digits than a double holds") << withState(R"({"a":0.325787025358256760209})");
    QTest::newRow("large exponent") << withState(R"({"a":1e300})");
    QTest::newRow("above doubles") << withState(R"({"a":1e400})");
    QTest::newRow("too small for a double") << withState(R"({"a":1e-400})");
    QTest::newRow("denormal") << withState(R"({"a":4.9e-324})");
    QTest::newRow("no number in an unused value") << withId("\"" + uid + R"(","meta":1e400)");
    QTest::newRow("leading zero") << withState(R"({"a":01})");
    QTest::newRow("no digit before the point") << withState(R"({"a":.5})");
    QTest::newRow("no digit after the point") << withState(R"({"a":1.})");
    QTest::newRow("plus") << withState(R"({"a":+1})");
    QTest::newRow("minus alone") << withState(R"({"a":-})");
    QTest::newRow("nan") << withState(R"({"a":nan})");
    QTest::newRow("cut word") << withState(R"({"a":tru})");
    QTest::newRow("long word") << withState(R"({"a":truee})");
    QTest::newRow("nul") << withState(R"({"a":nul})");
    QTest::newRow("missing colon") << withState(R"({"a" 1})");
    QTest::newRow("missing comma") << withState(R"({"a":1 "b":2})");
    QTest::newRow("wrong bracket") << withState(R"({"a":[1}})");
    QTest::newRow("number as a key") << withState("{1:2}");
    QTest::newRow("deep") << withState("{\"a\":" + QByteArray(40, '[') + QByteArray(40, ']') + "}");
    QTest::newRow("deep in an unused value")
        << QByteArray("{\"data\":[],\"x\":") + QByteArray(2000, '[') + QByteArray(2000, ']') + "}";
    QTest::newRow("deep and cut") << QByteArray("{\"data\":") + QByteArray(100000, '[');
}

void DeviceStatesReaderTest::leavesDoubtsToThePlainRoad()
{
    QFETCH(QByteArray, json);

    QVERIFY(!DeviceStatesReader::read(json));
}

void DeviceStatesReaderTest::everyTruncationReadsAsOnThePlainRoad()
{
    QVERIFY(DeviceStatesReader::read(everyKind));
    for (int size = 0; size < everyKind.size(); ++size)
        QVERIFY2(!DeviceStatesReader::read(everyKind.left(size)), qPrintable(QString::number(size)));
}

void DeviceStatesReaderTest::damagedDocumentsReadAsOnThePlainRoad()
{
    QRandomGenerator random(11);
    int taken = 0;
    int left = 0;
    for (int round = 0; round < 20000; ++round) {
        auto json = everyKind;
        const int damages = random.bounded(1, 4);
        for (int damage = 0; damage < damages; ++damage) {
            const int at = random.bounded(json.size());
            switch (random.bounded(4)) {
            case 0: json[at] = char(random.bounded(256)); break;
            case 1: json.remove(at, random.bounded(1, 6)); break;
            case 2: json.insert(at, json.mid(random.bounded(json.size()), random.bounded(1, 30))); break;
            case 3: json.insert(at, "{}[]:,\"\\ 0123456789.eE-+tfn"[random.bounded(26)]); break;
            }
        }
        const auto read = DeviceStatesReader::read(json);
        ++(read ? taken : left);
        QVERIFY2(!read || same(*read, plainRoad(json)), json.constData());
    }
    QVERIFY2(taken > 1000 && left > 1000, qPrintable(QString("%1 taken, %2 left").arg(taken).arg(left)));
}

void DeviceStatesReaderTest::spoiltValuesReadAsOnThePlainRoad()
{
    const QByteArrayList values{"0",     "-0",     "1",    "1.0",  "1.5",     "1e3", "1e-3", "1e18",
                                "1e19",  "1e-400", "true", "null", "\"\"",    "{}",  "[]",   "\"\\u0041\"",
                                "\"x\"", "01",     "-",    "[1,]", "{\"a\"}", ""};
    const QByteArrayList places{R"({"data":[],"server_version":%})",
                                R"({"data":%})",
                                R"({"data":[%]})",
                                R"({"data":[],"extra":%})",
                                withId("%"),
                                withId("\"" + uid + "\",\"type\":%"),
                                withId("\"" + uid + "\",\"attributes\":%"),
                                withState("%"),
                                withState("{\"a\":%}"),
                                withState("{\"a\":[%,%]}"),
                                withState("{\"a\":{\"b\":%},\"c\":%}"),
                                withState("{%:1}")};
    for (auto place : places) {
        for (const auto &value : values) {
            auto json = place;
            json.replace('%', value);
            const auto read = DeviceStatesReader::read(json);
            QVERIFY2(!read || same(*read, plainRoad(json)), json.constData());
        }
    }
}

void DeviceStatesReaderTest::randomNumbersReadAsOnThePlainRoad()
{
    QRandomGenerator random(5);
    int taken = 0;
    for (int round = 0; round < 20000; ++round) {
        QByteArray number = random.bounded(2) ? "-" : "";
        const int digits = random.bounded(1, 22);
        for (int digit = 0; digit < digits; ++digit)
            number += char('0' + random.bounded(digit == 0 && digits > 1 ? 1 : 0, 10));
        if (random.bounded(2)) {
            number += '.';
            const int fraction = random.bounded(1, 22);
            for (int digit = 0; digit < fraction; ++digit)
                number += char('0' + random.bounded(10));
        }
        if (random.bounded(3) == 0)
            number += "e" + QByteArray::number(random.bounded(-330, 330));
        const auto json = withState("{\"a\":" + number + "}");
        const auto read = DeviceStatesReader::read(json);
        taken += read ? 1 : 0;
        QVERIFY2(!read || same(*read, plainRoad(json)), number.constData());
    }
    QVERIFY2(taken > 5000, qPrintable(QString::number(taken)));
}

void DeviceStatesReaderTest::readsALongList()
{
    std::vector<JsonAPI::Entity> entities;
    for (int i = 0; i < 10000; ++i) {
        Model::DeviceState state;
        state.uid = QUuid(uint(i + 1), 1, 2, 3, 4, 5, 6, 7, 8, 9, 10);
        state.state = {{"power", i % 101}, {"temperature", i / 8.0}, {"isOn", i % 2 == 0}, {"mode", "Auto"}};
        entities.emplace_back(JsonAPI::DeviceState::toVariant(state));
    }
    const auto json = JsonAPI::Response(entities).toByteArray();

    const auto read = DeviceStatesReader::read(json);

    QVERIFY(read);
    QCOMPARE(read->states.size(), size_t(10000));
    QVERIFY(same(*read, plainRoad(json)));
}

void DeviceStatesReaderTest::sharesTheTextsOfKeys()
{
    const auto read = DeviceStatesReader::read(
        R"({"data":[{"id":"{11111111-1111-1111-1111-111111111111}","attributes":{"state":{"power":1,"mode":2}}},
                    {"id":"{22222222-2222-2222-2222-222222222222}","attributes":{"state":{"mode":1,"power":2}}}]})");

    QVERIFY(read);
    const auto &first = read->states.at(0).state;
    const auto &second = read->states.at(1).state;
    QCOMPARE(first.firstKey().constData(), second.firstKey().constData());
    QCOMPARE(first.lastKey().constData(), second.lastKey().constData());
}

void DeviceStatesReaderTest::manyKeysStayRight()
{
    QByteArray state = "{\"map\":{";
    for (int i = 0; i < 500; ++i)
        state += "\"k" + QByteArray::number(i * 37 % 500) + "\":" + QByteArray::number(i) + ",";
    state += "\"last\":{\"k1\":1}},\"k499\":1}";
    const auto json = withState(state);

    const auto read = DeviceStatesReader::read(json);

    QVERIFY(read);
    QVERIFY(same(*read, plainRoad(json)));
}

void DeviceStatesReaderTest::needsNoRoomBehindTheText()
{
    const auto roomy = [] {
        auto json = everyKind;
        json.reserve(json.size() + 100);
        return json;
    }();
    const auto borrowed = QByteArray::fromRawData(everyKind.constData(), everyKind.size());
    const auto expected = plainRoad(everyKind);

    for (const auto &json : {roomy, borrowed, everyKind}) {
        const auto read = DeviceStatesReader::read(json);
        QVERIFY(read);
        QVERIFY(same(*read, expected));
    }
}

ONDIRA_TEST(DeviceStatesReaderTest)
#include "DeviceStatesReaderTest.moc"
