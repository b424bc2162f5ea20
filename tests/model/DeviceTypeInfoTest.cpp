// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/DeviceTypeInfo.h"
#include "model/JsonTexts.h"
#include "model/json/DeviceType.h"
#include "support/TestBase.h"

using Model::ActionDatatype;
using Model::DeviceTypeInfo;
using Limits = Model::ActionValueLimits;
using Access = DeviceTypeInfo::Parameter::Access;
using Group = DeviceTypeInfo::StatisticsInfo::Group;

Q_DECLARE_METATYPE(Model::DeviceTypeInfo::StatisticsInfo::Group)

namespace {

ActionDatatype integer(long long value)
{
    return ActionDatatype(value);
}

DeviceTypeInfo someLamp()
{
    return {QUrl("qrc:/drivers/Lamp.qml"),
            1,
            7,
            "Лампа",
            "Описание",
            {"light", "radio"},
            "lamp",
            "ru_RU",
            {{"name", "Имя", Access::In, Limits::string(0, 9, ""), ActionDatatype(QString("a"))}},
            {{"power", "Мощность", Access::Out, Limits::integer(0, 100), integer(50)},
             {"on", "Включена", Access::InOut, Limits(ActionDatatype::Type::Bool), ActionDatatype(true)}},
            {Group::Zone, "Lamp.qml", {{"power", "Мощность", "int"}}},
            true,
            "rsAddress"};
}

const QByteArray listsText = R"(
    "parameters":[{"identificator":"name","description":"Имя","access":"in",
        "type":"string","minLength":0,"maxLength":9,"validator":"","def":"a"}],
    "state":[{"identificator":"power","description":"Мощность","access":"out",
        "type":"int","min":0,"max":100,"def":50},
        {"identificator":"on","description":"Включена","access":"in/out","type":"bool","def":true}],
    "statistics":{"group":"zone","interface":"Lamp.qml",
        "fields":[{"name":"power","description":"Мощность","type":"int"}]})";

QByteArray mapText()
{
    return R"({"url":"qrc:/drivers/Lamp.qml","version":1,"sortOrder":7,"name":"Лампа","description":"Описание",
        "tags":["light","radio"],"commonType":"lamp","locale":"ru_RU","uniqueAddress":true,
        "customAddress":"rsAddress",)"
        + listsText + '}';
}

QByteArray entityText()
{
    return R"({"type":"device_type","id":"qrc:/drivers/Lamp.qml","attributes":{"sort_order":7,"name":"Лампа",
        "description":"Описание","tags":["light","radio"],"common_type":"lamp","locale":"ru_RU",
        "unique_address":true,"custom_address":"rsAddress",)"
        + listsText + "}}";
}

} // namespace

class DeviceTypeInfoTest : public TestBase
{
    Q_OBJECT

private slots:
    void writesMap();
    void readsMap();
    void readsEmptyMap();
    void readsDamagedMap();
    void writesDocument();
    void readsDocument();
    void versionOfADocumentIsOne();
    void readsDocumentWithoutAttributes();
    void readsDamagedDocument();
    void commonTypes_data();
    void commonTypes();
    void parameterThatIsNoMapIsLogged();
    void readsTenThousandParameters();
    void readsStatistics_data();
    void readsStatistics();
    void writesStatistics();
    void validity();
    void defaultsByIdentificator();
    void fallbackRecord();
    void overlayTranslates();
    void emptyOverlayChangesNothing();
    void overlayOfUnknownParametersChangesNothing();
    void equalityNeedsEveryField();
};

void DeviceTypeInfoTest::writesMap()
{
    QCOMPARE(JsonTexts::written(someLamp().toVariant()), JsonTexts::compact(mapText()));
}

void DeviceTypeInfoTest::readsMap()
{
    QVERIFY(DeviceTypeInfo::fromVariant(JsonTexts::read(mapText())) == someLamp());
    QVERIFY(DeviceTypeInfo::fromVariant(someLamp().toVariant()) == someLamp());
}

void DeviceTypeInfoTest::readsEmptyMap()
{
    for (const auto &variant : {QVariant(), QVariant::fromValue(nullptr), QVariant(QVariantMap()), QVariant(5)}) {
        const auto info = DeviceTypeInfo::fromVariant(variant);
        QVERIFY(info == DeviceTypeInfo());
        QCOMPARE(info.version, 0);
        QCOMPARE(info.sortOrder, 0);
        QCOMPARE(info.commonType, QString("unknown"));
        QVERIFY(!info.isValid());
    }
}

void DeviceTypeInfoTest::readsDamagedMap()
{
    const auto nulls = DeviceTypeInfo::fromVariant(JsonTexts::read(R"({"url":null,"version":null,"sortOrder":null,
        "name":null,"description":null,"tags":null,"commonType":null,"locale":null,"parameters":null,"state":null,
        "statistics":null,"uniqueAddress":null,"customAddress":null})"));
    QVERIFY(nulls == DeviceTypeInfo());

    const auto wrong = DeviceTypeInfo::fromVariant(JsonTexts::read(R"({"url":[1],"version":"new","sortOrder":{},
        "name":{},"description":[],"tags":5,"commonType":{},"locale":[],"parameters":"a","state":{"a":1},
        "statistics":[1],"uniqueAddress":{},"customAddress":[]})"));
    QVERIFY(wrong == DeviceTypeInfo());

    const auto texts = DeviceTypeInfo::fromVariant(JsonTexts::read(R"({"version":"2","sortOrder":"3","extra":1})"));
    QCOMPARE(texts.version, 2);
    QCOMPARE(texts.sortOrder, 3);
}

void DeviceTypeInfoTest::writesDocument()
{
    QCOMPARE(JsonTexts::written(JsonAPI::DeviceType::toVariant(someLamp())), JsonTexts::compact(entityText()));
}

void DeviceTypeInfoTest::readsDocument()
{
    QVERIFY(JsonAPI::DeviceType::fromVariant(JsonTexts::entity(entityText())) == someLamp());
}

void DeviceTypeInfoTest::versionOfADocumentIsOne()
{
    const auto info = JsonAPI::DeviceType::fromVariant(JsonTexts::entity(R"({"id":"a","attributes":{"version":5}})"));

    QCOMPARE(info.version, 1);
}

void DeviceTypeInfoTest::readsDocumentWithoutAttributes()
{
    DeviceTypeInfo expected;
    expected.url = QUrl("qrc:/drivers/Lamp.qml");
    expected.version = 1;

    const auto info = JsonAPI::DeviceType::fromVariant(JsonAPI::Entity("device_type", "qrc:/drivers/Lamp.qml"));

    QVERIFY(info == expected);
    QCOMPARE(info.commonType, QString("unknown"));
    QVERIFY(!info.isValid());
}

void DeviceTypeInfoTest::readsDamagedDocument()
{
    DeviceTypeInfo expected;
    expected.version = 1;

    const auto nulls = JsonAPI::DeviceType::fromVariant(JsonTexts::entity(R"({"id":null,"attributes":{
        "sort_order":null,"name":null,"description":null,"tags":null,"common_type":null,"locale":null,
        "parameters":null,"state":null,"statistics":null,"unique_address":null,"custom_address":null}})"));
    QVERIFY(nulls == expected);

    const auto wrong = JsonAPI::DeviceType::fromVariant(JsonTexts::entity(R"({"attributes":{
        "sort_order":"first","name":{},"description":[],"tags":7,"common_type":[],"locale":{},
        "parameters":5,"state":"on","statistics":"zone","unique_address":[],"custom_address":{}}})"));
    QVERIFY(wrong == expected);
}

void DeviceTypeInfoTest::commonTypes_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QString>("expected");

    QTest::newRow("given") << QByteArray(R"({"common_type":"lamp"})") << "lamp";
    QTest::newRow("not known to us") << QByteArray(R"({"common_type":"door"})") << "door";
    QTest::newRow("empty stays") << QByteArray(R"({"common_type":""})") << "";
    QTest::newRow("absent") << QByteArray("{}") << "unknown";
    QTest::newRow("null") << QByteArray(R"({"common_type":null})") << "unknown";
    QTest::newRow("map") << QByteArray(R"({"common_type":{"a":1}})") << "unknown";
}

void DeviceTypeInfoTest::commonTypes()
{
    QFETCH(QByteArray, attributes);
    QFETCH(QString, expected);

    const auto info = JsonAPI::DeviceType::fromVariant(JsonTexts::entity(R"({"attributes":)" + attributes + "}"));

    QCOMPARE(info.commonType, expected);
}

void DeviceTypeInfoTest::parameterThatIsNoMapIsLogged()
{
    expectMessage(QtWarningMsg, "^Unknown parameter type: \"\" map: QMap\\(\\)");

    const auto info = DeviceTypeInfo::fromVariant(JsonTexts::read(R"({"parameters":[5]})"));

    QCOMPARE(info.parameters.size(), std::size_t(1));
    QVERIFY(info.parameters.front() == DeviceTypeInfo::Parameter());
}

void DeviceTypeInfoTest::readsTenThousandParameters()
{
    QVariantList list;
    for (int i = 0; i < 10000; ++i)
        list.append(QVariantMap{{"identificator", QString::number(i)}, {"type", "int"}, {"def", i}});

    const auto info = DeviceTypeInfo::fromVariant(QVariantMap{{"parameters", list}});

    QCOMPARE(info.parameters.size(), std::size_t(10000));
    QCOMPARE(info.parameters.back().identificator, QString("9999"));
    QCOMPARE(info.defaultParametersValues().value("9999"), QVariant(9999LL));
}

void DeviceTypeInfoTest::readsStatistics_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<Group>("group");
    QTest::addColumn<QString>("interface");
    QTest::addColumn<int>("fields");

    QTest::newRow("zone") << QByteArray(R"({"group":"zone","interface":"Lamp.qml","fields":[{},{}]})") << Group::Zone
                          << "Lamp.qml" << 2;
    QTest::newRow("none") << QByteArray(R"({"group":"none"})") << Group::None << "" << 0;
    QTest::newRow("letter case is folded") << QByteArray(R"({"group":"ZONE"})") << Group::Zone << "" << 0;
    QTest::newRow("unknown group") << QByteArray(R"({"group":"site"})") << Group::None << "" << 0;
    QTest::newRow("number") << QByteArray(R"({"group":1})") << Group::None << "" << 0;
    QTest::newRow("empty") << QByteArray("{}") << Group::None << "" << 0;
    QTest::newRow("wrong types") << QByteArray(R"({"group":[],"interface":{},"fields":"power"})") << Group::None << ""
                                 << 0;
    QTest::newRow("field that is no map") << QByteArray(R"({"fields":[5]})") << Group::None << "" << 1;
}

void DeviceTypeInfoTest::readsStatistics()
{
    QFETCH(QByteArray, document);
    QFETCH(Group, group);
    QFETCH(QString, interface);
    QFETCH(int, fields);

    const auto statistics = DeviceTypeInfo::StatisticsInfo::fromVariant(JsonTexts::read(document));

    QCOMPARE(statistics.group, group);
    QCOMPARE(statistics.interface, interface);
    QCOMPARE(static_cast<int>(statistics.fields.size()), fields);
}

void DeviceTypeInfoTest::writesStatistics()
{
    QCOMPARE(static_cast<int>(Group::None), 0);
    QCOMPARE(static_cast<int>(Group::Zone), 1);
    QCOMPARE(JsonTexts::written(DeviceTypeInfo::StatisticsInfo().toVariant()),
             JsonTexts::compact(R"({"group":"none","interface":"","fields":[]})"));
}

void DeviceTypeInfoTest::validity()
{
    auto info = someLamp();
    QVERIFY(info.isValid());

    info.version = 0;
    QVERIFY(!info.isValid());

    info = someLamp();
    info.commonType = "unknown";
    QVERIFY(!info.isValid());
}

void DeviceTypeInfoTest::defaultsByIdentificator()
{
    QCOMPARE(someLamp().defaultParametersValues(), (QVariantMap{{"name", "a"}}));
    QCOMPARE(someLamp().defaultStateValues(), (QVariantMap{{"power", 50LL}, {"on", true}}));
    QVERIFY(DeviceTypeInfo().defaultParametersValues().isEmpty());
}

void DeviceTypeInfoTest::fallbackRecord()
{
    const auto &info = DeviceTypeInfo::fallback();

    QVERIFY(info.url.isEmpty());
    QCOMPARE(info.commonType, QString("unknown"));
    QCOMPARE(info.name, QString("No name"));
    QCOMPARE(info.description, QString("No description"));
    QCOMPARE(info.locale, QString("ru_RU"));
    QVERIFY(info.parameters.empty());
    QVERIFY(info.state.empty());
    QVERIFY(info.customAddress.isEmpty());
    QVERIFY(!info.isValid());
}

void DeviceTypeInfoTest::overlayTranslates()
{
    auto info = someLamp();
    auto expected = someLamp();
    expected.name = "Lamp";
    expected.description = "Description";
    expected.locale = "en_US";
    expected.parameters.at(0).description = "Name";
    expected.parameters.at(0).defaultValue = ActionDatatype(QString("b"));
    expected.state.at(1).description = "Is on";

    info.localize(JsonTexts::read(R"({"name":"Lamp","description":"Description","locale":"en_US","commonType":"door",
        "parameters":[{"identificator":"name","description":"Name","type":"string","def":"b"}],
        "state":[{"identificator":"on","description":"Is on","type":"bool"}]})")
                      .toMap());

    QVERIFY(info == expected);
}

void DeviceTypeInfoTest::emptyOverlayChangesNothing()
{
    auto info = someLamp();

    info.localize({});
    info.localize(
        JsonTexts::read(R"({"name":null,"description":{},"locale":null,"parameters":null,"state":5})").toMap());

    QVERIFY(info == someLamp());
}

void DeviceTypeInfoTest::overlayOfUnknownParametersChangesNothing()
{
    auto info = someLamp();

    // "power" belongs to the state, not to the parameters.
    info.localize(JsonTexts::read(R"({"parameters":[{"identificator":"power","description":"Power"},
        {"description":"Nobody"},5,null]})")
                      .toMap());

    QVERIFY(info == someLamp());
}

void DeviceTypeInfoTest::equalityNeedsEveryField()
{
    const auto changed = [](const auto &change) {
        auto info = someLamp();
        change(info);
        return info;
    };
    QVERIFY(someLamp() == someLamp());
    QVERIFY(!(someLamp() == changed([](auto &info) { info.url = QUrl("a"); })));
    QVERIFY(!(someLamp() == changed([](auto &info) { info.version = 2; })));
    QVERIFY(!(someLamp() == changed([](auto &info) { info.sortOrder = 2; })));
    QVERIFY(!(someLamp() == changed([](auto &info) { info.name = "a"; })));
    QVERIFY(!(someLamp() == changed([](auto &info) { info.description = "a"; })));
    QVERIFY(!(someLamp() == changed([](auto &info) { info.tags.clear(); })));
    QVERIFY(!(someLamp() == changed([](auto &info) { info.commonType = "a"; })));
    QVERIFY(!(someLamp() == changed([](auto &info) { info.locale = "a"; })));
    QVERIFY(!(someLamp() == changed([](auto &info) { info.parameters.clear(); })));
    QVERIFY(!(someLamp() == changed([](auto &info) { info.state.clear(); })));
    QVERIFY(!(someLamp() == changed([](auto &info) { info.statistics.group = Group::None; })));
    QVERIFY(!(someLamp() == changed([](auto &info) { info.statistics.interface = "a"; })));
    QVERIFY(!(someLamp() == changed([](auto &info) { info.statistics.fields.at(0).type = "a"; })));
    QVERIFY(!(someLamp() == changed([](auto &info) { info.uniqueAddress = false; })));
    QVERIFY(!(someLamp() == changed([](auto &info) { info.customAddress = "a"; })));
}

ONDIRA_TEST(DeviceTypeInfoTest)
#include "DeviceTypeInfoTest.moc"
