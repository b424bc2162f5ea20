// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/DeviceTypeInfo.h"
#include "model/JsonTexts.h"
#include "support/TestBase.h"

#include <limits>

using Limits = Model::ActionValueLimits;
using Model::ActionDatatype;
using Parameter = Model::DeviceTypeInfo::Parameter;
using Access = Parameter::Access;
using Type = ActionDatatype::Type;

Q_DECLARE_METATYPE(Model::ActionValueLimits)
Q_DECLARE_METATYPE(Model::ActionDatatype)
Q_DECLARE_METATYPE(Model::DeviceTypeInfo::Parameter::Access)

namespace {

constexpr auto doubleMax = std::numeric_limits<double>::max();

ActionDatatype integer(long long value)
{
    return ActionDatatype(value);
}

ActionDatatype choice(long long index)
{
    return ActionDatatype::EnumDatatype{index};
}

ActionDatatype list(const ActionDatatype::List &elements)
{
    return elements;
}

const Limits widestIntegers = Limits::integer(-9007199254740991LL, 9007199254740991LL);

} // namespace

class DeviceTypeParameterTest : public TestBase
{
    Q_OBJECT

private slots:
    void accessTexts_data();
    void accessTexts();
    void readsAccess_data();
    void readsAccess();
    void readsDataType_data();
    void readsDataType();
    void readsDamagedDataType_data();
    void readsDamagedDataType();
    void unknownTypeIsLogged_data();
    void unknownTypeIsLogged();
    void arrayOfUnknownTypeIsLogged();
    void elementsAreReadAsDeepAsADocumentGoes();
    void elementsDeeperThanADocumentAreVoid();
    void writesDataType_data();
    void writesDataType();
    void voidAndEntityWriteNoType();
    void readsAndWritesWhole();
    void overlayTranslatesChoice();
    void overlayTranslatesText();
    void overlayLeavesNumbers();
    void overlayWithoutTypeTranslatesTheDescription();
    void equalityNeedsEveryField();
};

void DeviceTypeParameterTest::accessTexts_data()
{
    QTest::addColumn<Access>("access");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");

    QTest::newRow("both ways") << Access::InOut << 0 << "in/out";
    QTest::newRow("in") << Access::In << 1 << "in";
    QTest::newRow("out") << Access::Out << 2 << "out";
    QTest::newRow("outside") << static_cast<Access>(3) << 3 << "in/out";
}

void DeviceTypeParameterTest::accessTexts()
{
    QFETCH(Access, access);
    QFETCH(int, code);
    QFETCH(QString, text);

    QCOMPARE(static_cast<int>(access), code);
    QCOMPARE(Parameter::accessToString(access), text);
}

void DeviceTypeParameterTest::readsAccess_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Access>("expected");

    QTest::newRow("in") << "in" << Access::In;
    QTest::newRow("input") << "input" << Access::In;
    QTest::newRow("out") << "out" << Access::Out;
    QTest::newRow("output") << "output" << Access::Out;
    QTest::newRow("letter case is folded") << "InPut" << Access::In;
    QTest::newRow("spaces are trimmed") << "  OUT\t" << Access::Out;
    QTest::newRow("in/out") << "in/out" << Access::InOut;
    QTest::newRow("unknown") << "inside" << Access::InOut;
    QTest::newRow("empty") << "" << Access::InOut;
}

void DeviceTypeParameterTest::readsAccess()
{
    QFETCH(QString, text);
    QFETCH(Access, expected);

    QCOMPARE(Parameter::accessFromString(text), expected);
}

void DeviceTypeParameterTest::readsDataType_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<Limits>("limits");
    QTest::addColumn<ActionDatatype>("value");

    const auto row = [](const char *name, const QByteArray &document, const Limits &limits,
                        const ActionDatatype &value) { QTest::newRow(name) << document << limits << value; };
    row("int", R"({"type":"int","min":-5,"max":100,"def":7})", Limits::integer(-5, 100), integer(7));
    row("int without keys", R"({"type":"int"})", widestIntegers, integer(0));
    row("large int", R"({"type":"int","def":5000000000})", widestIntegers, integer(5000000000LL));
    row("double", R"({"type":"double","min":-0.5,"max":1.5,"def":0.25})", Limits::real(-0.5, 1.5),
        ActionDatatype(0.25));
    row("double without keys", R"({"type":"double"})", Limits::real(-doubleMax, doubleMax), ActionDatatype(0.0));
    row("whole double", R"({"type":"double","min":0,"max":1,"def":1})", Limits::real(0, 1), ActionDatatype(1.0));
    row("bool", R"({"type":"bool","def":true})", Limits(Type::Bool), ActionDatatype(true));
    row("bool without default", R"({"type":"bool"})", Limits(Type::Bool), ActionDatatype(false));
    row("string", R"({"type":"string","minLength":1,"maxLength":9,"validator":"[a-z]+","def":"a"})",
        Limits::string(1, 9, "[a-z]+"), ActionDatatype(QString("a")));
    row("string without keys", R"({"type":"string"})", Limits::string(0, 2147483647, ""), ActionDatatype(QString()));
    row("array", R"({"type":"array","minLength":1,"maxLength":9,"element":{"type":"int","min":0,"max":5},
        "def":[1,2]})",
        Limits::list(Limits::integer(0, 5), 1, 9), list({integer(1), integer(2)}));
    row("array of bools without lengths", R"({"type":"array","element":{"type":"bool"}})",
        Limits::list(Type::Bool, 0, 2147483647), list({}));
    row("array of choices", R"({"type":"array","element":{"type":"choice","items":["a"]}})",
        Limits::list(Type::Enum, 0, 2147483647), list({}));
    row("array of arrays", R"({"type":"array","element":{"type":"array","maxLength":3,"element":{"type":"int"}},
        "def":[[1],[]]})",
        Limits::list(Type::List, 0, 2147483647), list({list({integer(1)}), list({})}));
    row("choice", R"({"type":"choice","items":["a","b"],"def":1})", Limits::enumeration({"a", "b"}), choice(1));
    row("choice without items", R"({"type":"choice","items":[]})", Limits::enumeration({}), choice(0));
    row("choice without keys", R"({"type":"choice"})", Limits::enumeration({}), choice(0));
    row("index beyond the items stays", R"({"type":"choice","items":["a"],"def":5000000000})",
        Limits::enumeration({"a"}), choice(5000000000LL));
}

void DeviceTypeParameterTest::readsDataType()
{
    QFETCH(QByteArray, document);
    QFETCH(Limits, limits);
    QFETCH(ActionDatatype, value);
    Limits readLimits;
    ActionDatatype readValue;

    Parameter::dataTypeFromMap(JsonTexts::read(document).toMap(), readLimits, readValue);

    QVERIFY2(readLimits == limits, JsonTexts::written(readLimits.toVariant()).constData());
    QCOMPARE(readValue.type(), value.type());
    QVERIFY2(readValue == value, qPrintable(readValue.toString()));
}

void DeviceTypeParameterTest::readsDamagedDataType_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<Limits>("limits");
    QTest::addColumn<ActionDatatype>("value");

    const auto row = [](const char *name, const QByteArray &document, const Limits &limits,
                        const ActionDatatype &value) { QTest::newRow(name) << document << limits << value; };
    row("numbers as text", R"({"type":"int","min":"-5","max":"100","def":"7"})", Limits::integer(-5, 100), integer(7));
    row("int of wrong types takes the defaults", R"({"type":"int","min":"low","max":{},"def":[7]})", widestIntegers,
        integer(0));
    row("int of nulls takes the defaults", R"({"type":"int","min":null,"max":null,"def":null})", widestIntegers,
        integer(0));
    row("int beyond the range", R"({"type":"int","def":-1e300})", widestIntegers,
        integer(std::numeric_limits<long long>::min()));
    row("double of wrong types takes the defaults", R"({"type":"double","min":"low","max":null,"def":{}})",
        Limits::real(-doubleMax, doubleMax), ActionDatatype(0.0));
    row("bool of null", R"({"type":"bool","def":null})", Limits(Type::Bool), ActionDatatype(false));
    row("string of wrong types", R"({"type":"string","minLength":"a","maxLength":null,"validator":[],"def":{}})",
        Limits::string(0, 2147483647, ""), ActionDatatype(QString()));
    row("array of wrong types", R"({"type":"array","minLength":{},"maxLength":"x","element":{"type":"bool"},
        "def":"ab"})",
        Limits::list(Type::Bool, 0, 2147483647), list({}));
    row("array of null default", R"({"type":"array","element":{"type":"bool"},"def":[null,true]})",
        Limits::list(Type::Bool, 0, 2147483647), list({ActionDatatype(), ActionDatatype(true)}));
    row("choice of wrong types", R"({"type":"choice","items":5,"def":"second"})", Limits::enumeration({}), choice(0));
    row("items of null", R"({"type":"choice","items":null,"def":null})", Limits::enumeration({}), choice(0));
}

void DeviceTypeParameterTest::readsDamagedDataType()
{
    readsDataType();
}

void DeviceTypeParameterTest::unknownTypeIsLogged_data()
{
    QTest::addColumn<QByteArray>("document");

    QTest::newRow("unknown") << QByteArray(R"({"type":"colour","def":"red"})");
    QTest::newRow("letter case counts") << QByteArray(R"({"type":"Int","def":5})");
    QTest::newRow("word of the limits") << QByteArray(R"({"type":"integer","def":5})");
    QTest::newRow("absent") << QByteArray(R"({"def":5})");
    QTest::newRow("null") << QByteArray(R"({"type":null})");
}

void DeviceTypeParameterTest::unknownTypeIsLogged()
{
    QFETCH(QByteArray, document);
    const auto map = JsonTexts::read(document).toMap();
    expectMessage(QtWarningMsg, "^Unknown parameter type: \"" + map.value("type").toString() + "\" map: QMap\\(");
    auto limits = Limits::integer(1, 2);
    auto value = integer(1);

    Parameter::dataTypeFromMap(map, limits, value);

    QVERIFY(limits == Limits());
    QVERIFY(value.isVoid());
}

void DeviceTypeParameterTest::arrayOfUnknownTypeIsLogged()
{
    expectMessage(QtWarningMsg, "^Unknown parameter type: \"colour\" map: .*shade");
    Limits limits;
    ActionDatatype value;

    Parameter::dataTypeFromMap(
        JsonTexts::read(R"({"type":"array","maxLength":4,"element":{"type":"colour","shade":1},"def":["red"]})")
            .toMap(),
        limits, value);

    QVERIFY(limits == Limits::list(Limits(), 0, 4));
    QVERIFY(value == list({ActionDatatype(QString("red"))}));
}

void DeviceTypeParameterTest::elementsAreReadAsDeepAsADocumentGoes()
{
    // The innermost element is read: it is the one that has no known type.
    expectMessage(QtWarningMsg, "^Unknown parameter type: \"colour\"");
    const int depth = 1023;
    Limits limits;
    ActionDatatype value;

    Parameter::dataTypeFromMap(JsonTexts::read(QByteArray(R"({"type":"array","element":)").repeated(depth)
                                               + R"({"type":"colour"})" + QByteArray("}").repeated(depth))
                                   .toMap(),
                               limits, value);

    QVERIFY(limits == Limits::list(Type::List, 0, 2147483647));
}

void DeviceTypeParameterTest::elementsDeeperThanADocumentAreVoid()
{
    QVariantMap map{{"type", "colour"}};
    for (int i = 0; i < 3000; ++i)
        map = QVariantMap{{"type", "array"}, {"element", map}};
    Limits limits;
    ActionDatatype value;

    // No warning: reading ends before the innermost element.
    Parameter::dataTypeFromMap(map, limits, value);

    QVERIFY(limits == Limits::list(Type::List, 0, 2147483647));
}

void DeviceTypeParameterTest::writesDataType_data()
{
    QTest::addColumn<Limits>("limits");
    QTest::addColumn<ActionDatatype>("value");
    QTest::addColumn<QByteArray>("expected");

    const auto row = [](const char *name, const Limits &limits, const ActionDatatype &value,
                        const QByteArray &expected) { QTest::newRow(name) << limits << value << expected; };
    row("int", Limits::integer(-5, 100), integer(7), R"({"type":"int","min":-5,"max":100,"def":7})");
    row("double", Limits::real(-0.5, 1.5), ActionDatatype(0.25),
        R"({"type":"double","min":-0.5,"max":1.5,"def":0.25})");
    row("bool", Limits(Type::Bool), ActionDatatype(true), R"({"type":"bool","def":true})");
    row("string", Limits::string(1, 9, "[a-z]+"), ActionDatatype(QString("a")),
        R"({"type":"string","minLength":1,"maxLength":9,"validator":"[a-z]+","def":"a"})");
    row("array", Limits::list(Limits::integer(0, 5), 1, 9), list({integer(1), integer(2)}),
        R"({"type":"array","minLength":1,"maxLength":9,"element":{"type":"int","min":0,"max":5,"def":0},"def":[1,2]})");
    row("array of bools", Limits::list(Type::Bool, 1, 9), list({}),
        R"({"type":"array","minLength":1,"maxLength":9,"element":{"type":"bool","def":false},"def":[]})");
    row("choice", Limits::enumeration({"a", "b"}), choice(1), R"({"type":"choice","items":["a","b"],"def":1})");
    row("value of another kind is converted", Limits::integer(0, 5), ActionDatatype(2.5),
        R"({"type":"int","min":0,"max":5,"def":2})");
}

void DeviceTypeParameterTest::writesDataType()
{
    QFETCH(Limits, limits);
    QFETCH(ActionDatatype, value);
    QFETCH(QByteArray, expected);
    QVariantMap map;

    Parameter::dataTypeToMap(limits, value, map);

    QCOMPARE(JsonTexts::written(map), JsonTexts::compact(expected));
}

void DeviceTypeParameterTest::voidAndEntityWriteNoType()
{
    QVariantMap map{{"access", "in"}};

    Parameter::dataTypeToMap(Limits(), ActionDatatype(), map);
    Parameter::dataTypeToMap(Limits::entity(Limits::EntityType::Zone, ""), ActionDatatype::zone({}), map);

    QCOMPARE(map, (QVariantMap{{"access", "in"}}));
}

void DeviceTypeParameterTest::readsAndWritesWhole()
{
    const QByteArray document = R"({"identificator":"power","description":"Мощность","access":"in",
        "type":"int","min":0,"max":100,"def":50})";

    const auto parameter = Parameter::fromVariant(JsonTexts::read(document));

    QCOMPARE(parameter.identificator, QString("power"));
    QCOMPARE(parameter.description, QString("Мощность"));
    QCOMPARE(parameter.access, Access::In);
    QVERIFY(parameter.limits == Limits::integer(0, 100));
    QVERIFY(parameter.defaultValue == integer(50));
    QCOMPARE(JsonTexts::written(parameter.toVariant()), JsonTexts::compact(document));
}

void DeviceTypeParameterTest::overlayTranslatesChoice()
{
    Parameter parameter{"mode", "Mode", Access::In, Limits::enumeration({"on", "off"}), choice(1)};

    parameter.localize(JsonTexts::read(R"({"identificator":"mode","description":"Режим","access":"out",
        "type":"choice","items":["вкл","выкл"],"def":0})")
                           .toMap());

    const Parameter expected{"mode", "Режим", Access::In, Limits::enumeration({"вкл", "выкл"}), choice(1)};
    QVERIFY(parameter == expected);
}

void DeviceTypeParameterTest::overlayTranslatesText()
{
    Parameter parameter{"label", "Label", Access::In, Limits::string(0, 9, "a"), ActionDatatype(QString("lamp"))};

    parameter.localize(JsonTexts::read(R"({"description":"Надпись","type":"string","def":"лампа"})").toMap());

    const Parameter expected{"label", "Надпись", Access::In, Limits::string(0, 9, "a"),
                             ActionDatatype(QString("лампа"))};
    QVERIFY(parameter == expected);
}

void DeviceTypeParameterTest::overlayLeavesNumbers()
{
    Parameter parameter{"power", "Power", Access::In, Limits::integer(0, 100), integer(50)};

    parameter.localize(JsonTexts::read(R"({"description":"Мощность","type":"int","min":5,"def":1})").toMap());
    QVERIFY((parameter == Parameter{"power", "Мощность", Access::In, Limits::integer(0, 100), integer(50)}));

    parameter.localize(JsonTexts::read(R"({"type":"choice","items":["a"]})").toMap());
    QVERIFY((parameter == Parameter{"power", "Мощность", Access::In, Limits::integer(0, 100), integer(50)}));
}

void DeviceTypeParameterTest::overlayWithoutTypeTranslatesTheDescription()
{
    Parameter parameter{"mode", "Mode", Access::In, Limits::enumeration({"on"}), choice(0)};

    parameter.localize(QVariantMap{{"description", "Режим"}});
    parameter.localize(QVariantMap{{"description", QVariant::fromValue(nullptr)}});
    parameter.localize(QVariantMap());

    QVERIFY((parameter == Parameter{"mode", "Режим", Access::In, Limits::enumeration({"on"}), choice(0)}));
}

void DeviceTypeParameterTest::equalityNeedsEveryField()
{
    const Parameter parameter{"power", "Power", Access::In, Limits::integer(0, 100), integer(50)};

    QVERIFY((parameter == Parameter{"power", "Power", Access::In, Limits::integer(0, 100), integer(50)}));
    QVERIFY(!(parameter == Parameter{"x", "Power", Access::In, Limits::integer(0, 100), integer(50)}));
    QVERIFY(!(parameter == Parameter{"power", "x", Access::In, Limits::integer(0, 100), integer(50)}));
    QVERIFY(!(parameter == Parameter{"power", "Power", Access::Out, Limits::integer(0, 100), integer(50)}));
    QVERIFY(!(parameter == Parameter{"power", "Power", Access::In, Limits::integer(0, 99), integer(50)}));
    QVERIFY(!(parameter == Parameter{"power", "Power", Access::In, Limits::integer(0, 100), integer(51)}));
}

ONDIRA_TEST(DeviceTypeParameterTest)
#include "DeviceTypeParameterTest.moc"
