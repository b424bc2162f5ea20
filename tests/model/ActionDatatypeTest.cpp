// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ActionDatatype.h"
#include "support/TestBase.h"

#include <limits>

using Model::ActionDatatype;
using EntityDatatype = ActionDatatype::EntityDatatype;
using EntityType = EntityDatatype::EntityType;
using EnumDatatype = ActionDatatype::EnumDatatype;
using Type = ActionDatatype::Type;

Q_DECLARE_METATYPE(Model::ActionDatatype)
Q_DECLARE_METATYPE(Model::ActionDatatype::Type)
Q_DECLARE_METATYPE(Model::ActionDatatype::EntityDatatype::EntityType)

namespace {

const QString lampText = QStringLiteral("{11111111-2222-3333-4444-555555555555}");
const QUuid lamp(QStringLiteral("{11111111-2222-3333-4444-555555555555}"));
const QUuid hall(QStringLiteral("{aaaaaaaa-bbbb-cccc-dddd-eeeeeeeeeeee}"));

ActionDatatype integer(long long value)
{
    return ActionDatatype(value);
}

} // namespace

class ActionDatatypeTest : public TestBase
{
    Q_OBJECT

private slots:
    void defaultIsVoid();
    void constructorsSetTheTag();
    void typeTexts_data();
    void typeTexts();
    void unknownTypeTextIsVoid_data();
    void unknownTypeTextIsVoid();
    void codeOutsideTheTypesHasNoText();
    void entityTypeTexts_data();
    void entityTypeTexts();
    void unknownEntityTypeTextIsDevice();
    void entityFromUidIsOfUnknownType();
    void factoriesMakeEntities();
    void convertsToEveryKind_data();
    void convertsToEveryKind();
    void doublesTruncateTowardZero_data();
    void doublesTruncateTowardZero();
    void textBeforeColonIsUid_data();
    void textBeforeColonIsUid();
    void writtenEntityDoesNotReadBackAsEntity();
    void textOfDoubleHasSixDigits_data();
    void textOfDoubleHasSixDigits();
    void listTextNestsBrackets();
    void othersConvertToListOfThemselves();
    void toTypeGivesTheAlternative();
    void setValueOnVoidTakesValueAndTag();
    void setValueOnVoidMayTakeVoid();
    void setValueKeepsTheTag();
    void setValueOfOwnElementIsSafe();
    void setValueOnEntity_data();
    void setValueOnEntity();
    void equalityNeedsTagAndContents();
};

void ActionDatatypeTest::defaultIsVoid()
{
    const ActionDatatype value;

    QVERIFY(value.isVoid());
    QCOMPARE(value.type(), Type::Void);
    QVERIFY(value.toType(Type::Void) == ActionDatatype::Union(0LL));
}

void ActionDatatypeTest::constructorsSetTheTag()
{
    QCOMPARE(integer(5).type(), Type::Integer);
    QCOMPARE(ActionDatatype(0.5).type(), Type::Double);
    QCOMPARE(ActionDatatype(false).type(), Type::Bool);
    QCOMPARE(ActionDatatype(QString("x")).type(), Type::String);
    QCOMPARE(ActionDatatype(ActionDatatype::List()).type(), Type::List);
    QCOMPARE(ActionDatatype(EntityDatatype(lamp)).type(), Type::Entity);
    QCOMPARE(ActionDatatype(EnumDatatype{1}).type(), Type::Enum);
    QVERIFY(!ActionDatatype(false).isVoid());
}

void ActionDatatypeTest::typeTexts_data()
{
    QTest::addColumn<Type>("type");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");

    QTest::newRow("void") << Type::Void << 0 << "void";
    QTest::newRow("integer") << Type::Integer << 1 << "integer";
    QTest::newRow("double") << Type::Double << 2 << "double";
    QTest::newRow("bool") << Type::Bool << 3 << "bool";
    QTest::newRow("string") << Type::String << 4 << "string";
    QTest::newRow("list") << Type::List << 5 << "list";
    QTest::newRow("entity") << Type::Entity << 6 << "entity";
    QTest::newRow("enum") << Type::Enum << 7 << "enum";
}

void ActionDatatypeTest::typeTexts()
{
    QFETCH(Type, type);
    QFETCH(int, code);
    QFETCH(QString, text);

    QCOMPARE(static_cast<int>(type), code);
    QCOMPARE(ActionDatatype::typeToString(type), text);
    QCOMPARE(ActionDatatype::typeFromString(text), type);
}

void ActionDatatypeTest::unknownTypeTextIsVoid_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("letter case counts") << "Integer";
    QTest::newRow("spaces count") << " integer";
    QTest::newRow("unknown") << "quaternion";
    QTest::newRow("empty") << "";
    QTest::newRow("number") << "1";
}

void ActionDatatypeTest::unknownTypeTextIsVoid()
{
    QFETCH(QString, text);

    QCOMPARE(ActionDatatype::typeFromString(text), Type::Void);
}

void ActionDatatypeTest::codeOutsideTheTypesHasNoText()
{
    QCOMPARE(ActionDatatype::typeToString(static_cast<Type>(8)), QString());
    QCOMPARE(ActionDatatype::typeToString(static_cast<Type>(-1)), QString());
    QVERIFY(integer(5).toType(static_cast<Type>(8)) == ActionDatatype::Union(0LL));
}

void ActionDatatypeTest::entityTypeTexts_data()
{
    QTest::addColumn<EntityType>("type");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");

    QTest::newRow("device") << EntityType::Device << 0 << "device";
    QTest::newRow("zone") << EntityType::Zone << 1 << "zone";
    QTest::newRow("button") << EntityType::Button << 2 << "button";
    QTest::newRow("part") << EntityType::Part << 3 << "part";
    QTest::newRow("indicator") << EntityType::Indicator << 4 << "indicator";
    QTest::newRow("unknown") << EntityType::Unknown << 5 << "unknown";
}

void ActionDatatypeTest::entityTypeTexts()
{
    QFETCH(EntityType, type);
    QFETCH(int, code);
    QFETCH(QString, text);

    QCOMPARE(static_cast<int>(type), code);
    QCOMPARE(EntityDatatype::typeToString(type), text);
    QCOMPARE(EntityDatatype::typeFromString(text), type);
}

void ActionDatatypeTest::unknownEntityTypeTextIsDevice()
{
    QCOMPARE(EntityDatatype::typeFromString("staircase"), EntityType::Device);
    QCOMPARE(EntityDatatype::typeFromString("Zone"), EntityType::Device);
    QCOMPARE(EntityDatatype::typeFromString(""), EntityType::Device);
}

void ActionDatatypeTest::entityFromUidIsOfUnknownType()
{
    const EntityDatatype entity(lamp);

    QCOMPARE(entity.type, EntityType::Unknown);
    QCOMPARE(entity.uid, lamp);
    QVERIFY(!(entity == EntityDatatype(EntityType::Device, lamp)));
    QVERIFY(!(entity == EntityDatatype(hall)));
}

void ActionDatatypeTest::factoriesMakeEntities()
{
    QVERIFY(ActionDatatype::device(lamp).toEntity() == EntityDatatype(EntityType::Device, lamp));
    QVERIFY(ActionDatatype::zone(lamp).toEntity() == EntityDatatype(EntityType::Zone, lamp));
    QVERIFY(ActionDatatype::button(lamp).toEntity() == EntityDatatype(EntityType::Button, lamp));
    QVERIFY(ActionDatatype::part(lamp).toEntity() == EntityDatatype(EntityType::Part, lamp));
    QVERIFY(ActionDatatype::indicator(lamp).toEntity() == EntityDatatype(EntityType::Indicator, lamp));
}

void ActionDatatypeTest::convertsToEveryKind_data()
{
    QTest::addColumn<ActionDatatype>("value");
    QTest::addColumn<long long>("asInteger");
    QTest::addColumn<double>("asDouble");
    QTest::addColumn<bool>("asBool");
    QTest::addColumn<QString>("asString");
    QTest::addColumn<long long>("asIndex");

    const auto list = [](const ActionDatatype::List &elements) { return ActionDatatype(elements); };
    QTest::newRow("void") << ActionDatatype() << 0LL << 0.0 << false << "" << 0LL;
    QTest::newRow("integer") << integer(-7) << -7LL << -7.0 << true << "-7" << -7LL;
    QTest::newRow("integer 0") << integer(0) << 0LL << 0.0 << false << "0" << 0LL;
    QTest::newRow("double") << ActionDatatype(2.75) << 2LL << 2.75 << true << "2.75" << 0LL;
    QTest::newRow("double 0") << ActionDatatype(0.0) << 0LL << 0.0 << false << "0" << 0LL;
    QTest::newRow("small double is true") << ActionDatatype(0.25) << 0LL << 0.25 << true << "0.25" << 0LL;
    QTest::newRow("true") << ActionDatatype(true) << 1LL << 1.0 << true << "True" << 0LL;
    QTest::newRow("false") << ActionDatatype(false) << 0LL << 0.0 << false << "False" << 0LL;
    QTest::newRow("string") << ActionDatatype(QString("12")) << 0LL << 0.0 << true << "12" << 0LL;
    QTest::newRow("empty string") << ActionDatatype(QString()) << 0LL << 0.0 << false << "" << 0LL;
    QTest::newRow("list") << list({integer(1), ActionDatatype(true)}) << 0LL << 0.0 << true << "[1, True]" << 0LL;
    QTest::newRow("empty list") << list({}) << 0LL << 0.0 << false << "[]" << 0LL;
    QTest::newRow("entity") << ActionDatatype::zone(lamp) << 0LL << 0.0 << true << "zone: " + lampText << 0LL;
    QTest::newRow("null entity") << ActionDatatype::zone({}) << 0LL << 0.0 << false
                                 << "zone: {00000000-0000-0000-0000-000000000000}" << 0LL;
    QTest::newRow("enum") << ActionDatatype(EnumDatatype{2}) << 2LL << 2.0 << true << "2" << 2LL;
    QTest::newRow("enum 0") << ActionDatatype(EnumDatatype{0}) << 0LL << 0.0 << false << "0" << 0LL;
}

void ActionDatatypeTest::convertsToEveryKind()
{
    QFETCH(ActionDatatype, value);
    QFETCH(long long, asInteger);
    QFETCH(double, asDouble);
    QFETCH(bool, asBool);
    QFETCH(QString, asString);
    QFETCH(long long, asIndex);

    QCOMPARE(value.toInteger(), asInteger);
    QCOMPARE(value.toDouble(), asDouble);
    QCOMPARE(value.toBool(), asBool);
    QCOMPARE(value.toString(), asString);
    QCOMPARE(value.toEnum().index, asIndex);
    if (value.type() != Type::Entity)
        QVERIFY(value.toEntity() == EntityDatatype(EntityType::Unknown, {}));
}

void ActionDatatypeTest::doublesTruncateTowardZero_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<long long>("expected");

    constexpr auto largest = std::numeric_limits<long long>::max();
    constexpr auto least = std::numeric_limits<long long>::min();
    QTest::newRow("up") << 1.9 << 1LL;
    QTest::newRow("down") << -1.9 << -1LL;
    QTest::newRow("beyond the largest") << 1e300 << largest;
    QTest::newRow("exactly 2^63") << 9223372036854775808.0 << largest;
    QTest::newRow("exactly -2^63") << -9223372036854775808.0 << least;
    QTest::newRow("beyond the least") << -1e300 << least;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << largest;
    QTest::newRow("minus infinite") << -std::numeric_limits<double>::infinity() << least;
    QTest::newRow("not a number is 0") << std::numeric_limits<double>::quiet_NaN() << 0LL;
}

void ActionDatatypeTest::doublesTruncateTowardZero()
{
    QFETCH(double, value);
    QFETCH(long long, expected);

    QCOMPARE(ActionDatatype(value).toInteger(), expected);
}

void ActionDatatypeTest::textBeforeColonIsUid_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QUuid>("expected");

    QTest::newRow("bare") << lampText << lamp;
    QTest::newRow("with a tail") << lampText + ":power" << lamp;
    QTest::newRow("with two tails") << lampText + ":power:1" << lamp;
    QTest::newRow("without braces") << "11111111-2222-3333-4444-555555555555" << lamp;
    QTest::newRow("no uid") << "lamp" << QUuid();
    QTest::newRow("uid in the tail") << "device:" + lampText << QUuid();
    QTest::newRow("empty") << "" << QUuid();
}

void ActionDatatypeTest::textBeforeColonIsUid()
{
    QFETCH(QString, text);
    QFETCH(QUuid, expected);

    const auto entity = ActionDatatype(text).toEntity();

    QCOMPARE(entity.uid, expected);
    QCOMPARE(entity.type, EntityType::Unknown);
}

void ActionDatatypeTest::writtenEntityDoesNotReadBackAsEntity()
{
    const auto text = ActionDatatype::device(lamp).toString();

    QCOMPARE(text, "device: " + lampText);
    QVERIFY(ActionDatatype(text).toEntity().uid.isNull());
}

void ActionDatatypeTest::textOfDoubleHasSixDigits_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("expected");

    QTest::newRow("rounded") << 3.14159265 << "3.14159";
    QTest::newRow("exponent") << 12345678.0 << "1.23457e+07";
    QTest::newRow("whole") << 100.0 << "100";
    QTest::newRow("point, whatever the locale") << 0.5 << "0.5";
}

void ActionDatatypeTest::textOfDoubleHasSixDigits()
{
    QFETCH(double, value);
    QFETCH(QString, expected);

    QCOMPARE(ActionDatatype(value).toString(), expected);
}

void ActionDatatypeTest::listTextNestsBrackets()
{
    const ActionDatatype::List inner{ActionDatatype(QString("a")), ActionDatatype()};

    const ActionDatatype list(ActionDatatype::List{ActionDatatype(inner), ActionDatatype(false)});

    QCOMPARE(list.toString(), QString("[[a, ], False]"));
}

void ActionDatatypeTest::othersConvertToListOfThemselves()
{
    const auto value = integer(5);

    QVERIFY(value.toList() == ActionDatatype::List{value});
    QVERIFY(ActionDatatype::zone(hall).toList() == ActionDatatype::List{ActionDatatype::zone(hall)});
    QVERIFY(ActionDatatype().toList().empty());
    QVERIFY(ActionDatatype(value.toList()).toList() == value.toList());
}

void ActionDatatypeTest::toTypeGivesTheAlternative()
{
    using Union = ActionDatatype::Union;
    const ActionDatatype value(2.5);

    QVERIFY(value.toType(Type::Void) == Union(0LL));
    QVERIFY(value.toType(Type::Integer) == Union(2LL));
    QVERIFY(value.toType(Type::Double) == Union(2.5));
    QVERIFY(value.toType(Type::Bool) == Union(true));
    QVERIFY(value.toType(Type::String) == Union(QString("2.5")));
    QVERIFY(value.toType(Type::List) == Union(ActionDatatype::List{value}));
    QVERIFY(value.toType(Type::Entity) == Union(EntityDatatype()));
    QVERIFY(value.toType(Type::Enum) == Union(EnumDatatype()));
}

void ActionDatatypeTest::setValueOnVoidTakesValueAndTag()
{
    ActionDatatype value;

    value.setValue(ActionDatatype(EnumDatatype{1}));

    QVERIFY(value == ActionDatatype(EnumDatatype{1}));
}

void ActionDatatypeTest::setValueOnVoidMayTakeVoid()
{
    ActionDatatype value;

    value.setValue(ActionDatatype());

    QVERIFY(value.isVoid());
}

void ActionDatatypeTest::setValueKeepsTheTag()
{
    ActionDatatype number(0.5);
    number.setValue(integer(3));
    QVERIFY(number == ActionDatatype(3.0));

    ActionDatatype flag(false);
    flag.setValue(ActionDatatype(QString("x")));
    QVERIFY(flag == ActionDatatype(true));

    ActionDatatype text(QString("x"));
    text.setValue(ActionDatatype());
    QVERIFY(text == ActionDatatype(QString()));

    ActionDatatype choice(EnumDatatype{1});
    choice.setValue(ActionDatatype(2.5));
    QVERIFY(choice == ActionDatatype(EnumDatatype{0}));

    ActionDatatype list(ActionDatatype::List{});
    list.setValue(integer(1));
    QVERIFY(list == ActionDatatype(ActionDatatype::List{integer(1)}));

    auto whole = integer(1);
    whole.setValue(ActionDatatype(-2.9));
    QVERIFY(whole == integer(-2));
}

void ActionDatatypeTest::setValueOfOwnElementIsSafe()
{
    ActionDatatype list(ActionDatatype::List{integer(1), integer(2)});

    list.setValue(list);

    QVERIFY(list == ActionDatatype(ActionDatatype::List{integer(1), integer(2)}));
}

void ActionDatatypeTest::setValueOnEntity_data()
{
    QTest::addColumn<ActionDatatype>("value");
    QTest::addColumn<ActionDatatype>("other");
    QTest::addColumn<ActionDatatype>("expected");

    const auto unknown = [](const QUuid &uid) { return ActionDatatype(EntityDatatype(uid)); };
    QTest::newRow("same type takes the uid")
        << ActionDatatype::zone(lamp) << ActionDatatype::zone(hall) << ActionDatatype::zone(hall);
    QTest::newRow("another type changes nothing")
        << ActionDatatype::device(lamp) << ActionDatatype::zone(hall) << ActionDatatype::device(lamp);
    QTest::newRow("unknown other gives its uid")
        << ActionDatatype::device(lamp) << unknown(hall) << ActionDatatype::device(hall);
    QTest::newRow("unknown own takes both")
        << unknown(lamp) << ActionDatatype::zone(hall) << ActionDatatype::zone(hall);
    QTest::newRow("both unknown") << unknown(lamp) << unknown(hall) << unknown(hall);
    QTest::newRow("text is read as a uid")
        << ActionDatatype::zone(lamp) << ActionDatatype(hall.toString() + ":x") << ActionDatatype::zone(hall);
    QTest::newRow("number gives the null uid")
        << ActionDatatype::zone(lamp) << integer(1) << ActionDatatype::zone(QUuid());
    QTest::newRow("void gives the null uid")
        << ActionDatatype::zone(lamp) << ActionDatatype() << ActionDatatype::zone(QUuid());
}

void ActionDatatypeTest::setValueOnEntity()
{
    QFETCH(ActionDatatype, value);
    QFETCH(ActionDatatype, other);
    QFETCH(ActionDatatype, expected);

    value.setValue(other);

    QVERIFY2(value == expected, qPrintable(value.toString()));
}

void ActionDatatypeTest::equalityNeedsTagAndContents()
{
    QVERIFY(integer(1) == integer(1));
    QVERIFY(integer(1) != integer(2));
    QVERIFY(integer(1) != ActionDatatype(1.0));
    QVERIFY(integer(1) != ActionDatatype(EnumDatatype{1}));
    QVERIFY(integer(0) != ActionDatatype());
    QVERIFY(ActionDatatype(QString("a")) != ActionDatatype(QString("A")));
    QVERIFY(ActionDatatype(ActionDatatype::List{integer(1)}) != ActionDatatype(ActionDatatype::List{integer(2)}));
    QVERIFY(ActionDatatype(ActionDatatype::List{integer(1)}) == ActionDatatype(ActionDatatype::List{integer(1)}));
    QVERIFY(ActionDatatype::zone(lamp) != ActionDatatype::part(lamp));
    QVERIFY(ActionDatatype(EnumDatatype{1}) != ActionDatatype(EnumDatatype{2}));
}

ONDIRA_TEST(ActionDatatypeTest)
#include "ActionDatatypeTest.moc"
