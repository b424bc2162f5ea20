// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ActionValueLimits.h"
#include "model/JsonTexts.h"
#include "support/TestBase.h"

#include <limits>

using Limits = Model::ActionValueLimits;
using EntityType = Limits::EntityType;
using Type = Limits::Type;

Q_DECLARE_METATYPE(Model::ActionValueLimits)
Q_DECLARE_METATYPE(Model::ActionDatatype::Type)

namespace {

constexpr auto int64Max = std::numeric_limits<long long>::max();
constexpr auto int64Min = std::numeric_limits<long long>::min();
constexpr auto doubleMax = std::numeric_limits<double>::max();

QByteArray shown(const Limits &limits)
{
    return JsonTexts::written(limits.toVariant());
}

} // namespace

class ActionValueLimitsTest : public TestBase
{
    Q_OBJECT

private slots:
    void defaultIsVoid();
    void typeAloneHoldsNoLimits();
    void recordsSetTheType();
    void defaultRanges();
    void accessorsFallToDefaults();
    void fillDefaults_data();
    void fillDefaults();
    void clearingKeepsTheType();
    void listTakesLimitsOfElement_data();
    void listTakesLimitsOfElement();
    void listGivesLimitsOfElement_data();
    void listGivesLimitsOfElement();
    void tightens_data();
    void tightens();
    void tightenedLeavesTheOriginal();
    void writes_data();
    void writes();
    void reads_data();
    void reads();
    void readsDamaged_data();
    void readsDamaged();
    void readsElementsOfElementsOfAnyDepth();
    void equalityNeedsTypeAndContents();
};

void ActionValueLimitsTest::defaultIsVoid()
{
    const Limits limits;

    QVERIFY(limits.isVoid());
    QVERIFY(!limits.hasLimits());
}

void ActionValueLimitsTest::typeAloneHoldsNoLimits()
{
    for (const auto type : {Type::Integer, Type::Double, Type::Bool, Type::String, Type::List, Type::Entity}) {
        const Limits limits(type);
        QCOMPARE(limits.type(), type);
        QVERIFY(!limits.hasLimits());
        QVERIFY(!limits.isVoid());
    }
}

void ActionValueLimitsTest::recordsSetTheType()
{
    QCOMPARE(Limits::integer(1, 2).type(), Type::Integer);
    QCOMPARE(Limits::real(1, 2).type(), Type::Double);
    QCOMPARE(Limits::entity(EntityType::Zone, "a").type(), Type::Entity);
    QCOMPARE(Limits::string(1, 2, "a").type(), Type::String);
    QCOMPARE(Limits::enumeration({"a"}).type(), Type::Enum);
    QCOMPARE(Limits::list(Type::Bool, 1, 2).type(), Type::List);
    QVERIFY(Limits::enumeration({}).hasLimits());
    QVERIFY(Limits::list(Type::Void, 0, 0).hasLimits());
}

void ActionValueLimitsTest::defaultRanges()
{
    const Limits limits;

    QCOMPARE(limits.toInteger().min, -9007199254740991LL);
    QCOMPARE(limits.toInteger().max, 9007199254740991LL);
    QCOMPARE(limits.toDouble().min, -doubleMax);
    QCOMPARE(limits.toDouble().max, doubleMax);
    QCOMPARE(limits.toString().minLength, 0);
    QCOMPARE(limits.toString().maxLength, 2147483647);
    QCOMPARE(limits.toString().regex, QString());
    QCOMPARE(limits.toList().listType, Type::Void);
    QVERIFY(limits.toList().elementLimits == Limits::ListLimits::Element());
    QCOMPARE(limits.toList().minLength, 0);
    QCOMPARE(limits.toList().maxLength, 2147483647);
    QCOMPARE(limits.toEntity().entityType, EntityType::Unknown);
    QCOMPARE(limits.toEntity().filter, QString());
    QCOMPARE(limits.toEnum().items, QStringList());
}

void ActionValueLimitsTest::accessorsFallToDefaults()
{
    const auto limits = Limits::integer(1, 2);

    QVERIFY((limits.toInteger() == Limits::IntegerLimits{1, 2}));
    QVERIFY(limits.toDouble() == Limits::DoubleLimits());
    QVERIFY(limits.toString() == Limits::StringLimits());
    QVERIFY(limits.toEntity() == Limits::EntityLimits());
    QVERIFY(limits.toEnum() == Limits::EnumLimits());
    QVERIFY(limits.toList() == Limits::ListLimits());
    QVERIFY((Limits::entity(EntityType::Part, "a").toEntity() == Limits::EntityLimits{EntityType::Part, "a"}));
    QVERIFY(Limits::enumeration({"a"}).toEnum().items == QStringList("a"));
}

void ActionValueLimitsTest::fillDefaults_data()
{
    QTest::addColumn<Limits>("limits");
    QTest::addColumn<Limits>("expected");

    QTest::newRow("integer") << Limits(Type::Integer) << Limits(Limits::IntegerLimits());
    QTest::newRow("held integer") << Limits::integer(1, 2) << Limits(Limits::IntegerLimits());
    QTest::newRow("double") << Limits::real(1, 2) << Limits(Limits::DoubleLimits());
    QTest::newRow("string") << Limits::string(1, 2, "a") << Limits(Limits::StringLimits());
    QTest::newRow("entity") << Limits::entity(EntityType::Zone, "a") << Limits(Limits::EntityLimits());
    QTest::newRow("enum") << Limits::enumeration({"a"}) << Limits(Limits::EnumLimits());
    QTest::newRow("list") << Limits::list(Type::Bool, 1, 2) << Limits(Limits::ListLimits());
    QTest::newRow("void stays") << Limits() << Limits();
    QTest::newRow("bool stays") << Limits(Type::Bool) << Limits(Type::Bool);
}

void ActionValueLimitsTest::fillDefaults()
{
    QFETCH(Limits, limits);
    QFETCH(Limits, expected);

    limits.fillDefaultLimits();

    QVERIFY2(limits == expected, shown(limits).constData());
}

void ActionValueLimitsTest::clearingKeepsTheType()
{
    auto limits = Limits::integer(1, 2);

    limits.clearLimits();

    QVERIFY(limits == Limits(Type::Integer));
}

void ActionValueLimitsTest::listTakesLimitsOfElement_data()
{
    QTest::addColumn<Limits>("element");
    QTest::addColumn<Type>("listType");
    QTest::addColumn<bool>("keepsLimits");

    QTest::newRow("integer") << Limits::integer(1, 2) << Type::Integer << true;
    QTest::newRow("double") << Limits::real(1, 2) << Type::Double << true;
    QTest::newRow("string") << Limits::string(1, 2, "a") << Type::String << true;
    QTest::newRow("entity") << Limits::entity(EntityType::Zone, "a") << Type::Entity << true;
    QTest::newRow("integer without range") << Limits(Type::Integer) << Type::Integer << false;
    QTest::newRow("enum") << Limits::enumeration({"a"}) << Type::Enum << false;
    QTest::newRow("list") << Limits::list(Type::Bool, 1, 2) << Type::List << false;
    QTest::newRow("bool") << Limits(Type::Bool) << Type::Bool << false;
    QTest::newRow("void") << Limits() << Type::Void << false;
}

void ActionValueLimitsTest::listTakesLimitsOfElement()
{
    QFETCH(Limits, element);
    QFETCH(Type, listType);
    QFETCH(bool, keepsLimits);

    const auto list = Limits::list(element, 3, 4).toList();
    const auto unbounded = Limits::ListLimits::fromValueLimits(element);

    QCOMPARE(list.listType, listType);
    QCOMPARE(list.minLength, 3);
    QCOMPARE(list.maxLength, 4);
    QCOMPARE(!boost::get<boost::blank>(&list.elementLimits), keepsLimits);
    if (keepsLimits)
        QVERIFY(list.toValueLimits() == element);
    QCOMPARE(unbounded.minLength, 0);
    QCOMPARE(unbounded.maxLength, 2147483647);
    QVERIFY(unbounded.elementLimits == list.elementLimits);
}

void ActionValueLimitsTest::listGivesLimitsOfElement_data()
{
    QTest::addColumn<Type>("listType");
    QTest::addColumn<Limits>("expected");

    QTest::newRow("integer") << Type::Integer << Limits(Limits::IntegerLimits());
    QTest::newRow("double") << Type::Double << Limits(Limits::DoubleLimits());
    QTest::newRow("string") << Type::String << Limits(Limits::StringLimits());
    QTest::newRow("entity") << Type::Entity << Limits(Limits::EntityLimits());
    QTest::newRow("enum has none") << Type::Enum << Limits(Type::Enum);
    QTest::newRow("list has none") << Type::List << Limits(Type::List);
    QTest::newRow("bool has none") << Type::Bool << Limits(Type::Bool);
    QTest::newRow("void has none") << Type::Void << Limits();
}

void ActionValueLimitsTest::listGivesLimitsOfElement()
{
    QFETCH(Type, listType);
    QFETCH(Limits, expected);

    const auto limits = Limits::list(listType, 1, 2).toList().toValueLimits();

    QVERIFY2(limits == expected, shown(limits).constData());
}

void ActionValueLimitsTest::tightens_data()
{
    QTest::addColumn<Limits>("own");
    QTest::addColumn<Limits>("other");
    QTest::addColumn<Limits>("expected");

    const auto row = [](const char *name, const Limits &own, const Limits &other, const Limits &expected) {
        QTest::newRow(name) << own << other << expected;
    };
    const auto text = [](const char *regex) { return Limits::string(0, 10, regex); };
    const auto integers = Limits::integer(0, 10);
    row("void takes the other", Limits(), integers, integers);
    row("void takes a bare type", Limits(), Limits(Type::Bool), Limits(Type::Bool));
    row("void by void", Limits(), Limits(), Limits());
    row("integer by void", integers, Limits(), integers);
    row("integer by double", integers, Limits::real(1, 2), integers);
    row("integer by a bare type", integers, Limits(Type::Integer), integers);
    row("integer inside", integers, Limits::integer(2, 5), Limits::integer(2, 5));
    row("integer overlapping", integers, Limits::integer(-2, 5), Limits::integer(0, 5));
    row("integer apart turns round", integers, Limits::integer(20, 30), Limits::integer(20, 10));
    row("bare integer by a range", Limits(Type::Integer), Limits::integer(2, int64Max),
        Limits::integer(2, 9007199254740991LL));
    row("double", Limits::real(0.5, 2), Limits::real(-1, 1.5), Limits::real(0.5, 1.5));
    row("bool", Limits(Type::Bool), Limits(Type::Bool), Limits(Type::Bool));
    row("string lengths", Limits::string(1, 10, ""), Limits::string(0, 5, ""), Limits::string(1, 5, ""));
    row("own regex is dropped", text("a"), text(""), text(""));
    row("other regex is taken", text("a"), text("b"), text("b"));
    row("entity keeps its own", Limits::entity(EntityType::Zone, "a"), Limits::entity(EntityType::Part, "b"),
        Limits::entity(EntityType::Zone, "a"));
    row("unknown entity takes the type", Limits::entity(EntityType::Unknown, "a"),
        Limits::entity(EntityType::Part, "b"), Limits::entity(EntityType::Part, "a"));
    row("empty filter takes the filter", Limits::entity(EntityType::Zone, ""), Limits::entity(EntityType::Part, "b"),
        Limits::entity(EntityType::Zone, "b"));
    row("enum keeps its items", Limits::enumeration({"a"}), Limits::enumeration({"b"}), Limits::enumeration({"a"}));
    row("enum without items takes them", Limits::enumeration({}), Limits::enumeration({"b"}),
        Limits::enumeration({"b"}));
    row("bare enum takes items", Limits(Type::Enum), Limits::enumeration({"b"}), Limits::enumeration({"b"}));
    row("list of another type", Limits::list(Type::Bool, 1, 9), Limits::list(Type::Enum, 2, 5),
        Limits::list(Type::Bool, 1, 9));
    row("list by a list of void", Limits::list(Type::Bool, 1, 9), Limits::list(Type::Void, 2, 5),
        Limits::list(Type::Bool, 1, 9));
    row("list lengths", Limits::list(Type::Bool, 1, 9), Limits::list(Type::Bool, 2, 15),
        Limits::list(Type::Bool, 2, 9));
    row("list of void takes the element", Limits::list(Type::Void, 1, 9), Limits::list(integers, 0, 5),
        Limits::list(integers, 1, 5));
    row("bare list takes the other", Limits(Type::List), Limits::list(integers, 0, 5), Limits::list(integers, 0, 5));
    row("list elements narrow", Limits::list(integers, 0, 9), Limits::list(Limits::integer(5, 20), 0, 9),
        Limits::list(Limits::integer(5, 10), 0, 9));
    row("list elements without range take the default", Limits::list(Type::Integer, 0, 9),
        Limits::list(Type::Integer, 0, 9), Limits::list(Limits(Limits::IntegerLimits()), 0, 9));
    row("list of texts drops the regex", Limits::list(text("a"), 0, 9), Limits::list(text(""), 0, 9),
        Limits::list(text(""), 0, 9));
}

void ActionValueLimitsTest::tightens()
{
    QFETCH(Limits, own);
    QFETCH(Limits, other);
    QFETCH(Limits, expected);

    own.tighten(other);

    QVERIFY2(own == expected, shown(own).constData());
}

void ActionValueLimitsTest::tightenedLeavesTheOriginal()
{
    const auto own = Limits::integer(0, 10);

    const auto narrow = own.tightened(Limits::integer(2, 20));

    QVERIFY(narrow == Limits::integer(2, 10));
    QVERIFY(own == Limits::integer(0, 10));
}

void ActionValueLimitsTest::writes_data()
{
    QTest::addColumn<Limits>("limits");
    QTest::addColumn<QByteArray>("expected");

    const auto row = [](const char *name, const Limits &limits, const QByteArray &expected) {
        QTest::newRow(name) << limits << expected;
    };
    row("void", Limits(), R"({"type":"void"})");
    row("bool", Limits(Type::Bool), R"({"type":"bool"})");
    row("integer", Limits::integer(-1, 5), R"({"type":"integer","min":-1,"max":5})");
    row("whole 64 bits are clamped", Limits::integer(int64Min, int64Max),
        R"({"type":"integer","min":-9007199254740991,"max":9007199254740991})");
    row("integer without range writes the default", Limits(Type::Integer),
        R"({"type":"integer","min":-9007199254740991,"max":9007199254740991})");
    row("double", Limits::real(-0.5, 5), R"({"type":"double","min":-0.5,"max":5})");
    row("string", Limits::string(1, 5, "a+"), R"({"type":"string","minLength":1,"maxLength":5,"regex":"a+"})");
    row("list of a type", Limits::list(Type::Bool, 1, 5),
        R"({"type":"list","minLength":1,"maxLength":5,"listType":"bool"})");
    row("list with limits", Limits::list(Limits::integer(0, int64Max), 1, 5),
        R"({"type":"list","minLength":1,"maxLength":5,"listType":"integer",
            "elementLimits":{"type":"integer","min":0,"max":9007199254740991}})");
    row("entity", Limits::entity(EntityType::Button, "a"), R"({"type":"entity","entityType":"button","filter":"a"})");
    row("enum", Limits::enumeration({"a", "b"}), R"({"type":"enum","editable":false,"items":["a","b"]})");
    row("enum without items is editable", Limits::enumeration({}), R"({"type":"enum","editable":true,"items":[]})");
}

void ActionValueLimitsTest::writes()
{
    QFETCH(Limits, limits);
    QFETCH(QByteArray, expected);

    QCOMPARE(shown(limits), JsonTexts::compact(expected));
}

void ActionValueLimitsTest::reads_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<Limits>("expected");

    const auto row = [](const char *name, const QByteArray &document, const Limits &expected) {
        QTest::newRow(name) << document << expected;
    };
    row("void", R"({"type":"void"})", Limits());
    row("bool", R"({"type":"bool","min":1})", Limits(Type::Bool));
    row("integer", R"({"type":"integer","min":-1,"max":5})", Limits::integer(-1, 5));
    row("large integer is not clamped", R"({"type":"integer","min":0,"max":9223372036854775807})",
        Limits::integer(0, int64Max));
    row("double", R"({"type":"double","min":-0.5,"max":5})", Limits::real(-0.5, 5));
    row("string", R"({"type":"string","minLength":1,"maxLength":5,"regex":"a+"})", Limits::string(1, 5, "a+"));
    row("list of a type", R"({"type":"list","minLength":1,"maxLength":5,"listType":"bool"})",
        Limits::list(Type::Bool, 1, 5));
    row("list with limits", R"({"type":"list","minLength":1,"maxLength":5,"listType":"integer",
        "elementLimits":{"type":"integer","min":0,"max":7}})",
        Limits::list(Limits::integer(0, 7), 1, 5));
    row("element limits win over the list type", R"({"type":"list","minLength":1,"maxLength":5,"listType":"bool",
        "elementLimits":{"type":"double","min":0,"max":7}})",
        Limits::list(Limits::real(0, 7), 1, 5));
    row("elements without a record leave the list type", R"({"type":"list","minLength":1,"maxLength":5,
        "listType":"string","elementLimits":{"type":"bool"}})",
        Limits::list(Type::String, 1, 5));
    row("list of lists", R"({"type":"list","minLength":1,"maxLength":5,"listType":"string",
        "elementLimits":{"type":"list","minLength":3,"maxLength":4,"listType":"bool"}})",
        Limits::list(Type::List, 1, 5));
    row("list of enums keeps no items", R"({"type":"list","minLength":1,"maxLength":5,
        "elementLimits":{"type":"enum","items":["a"]}})",
        Limits::list(Type::Enum, 1, 5));
    row("entity", R"({"type":"entity","entityType":"button","filter":"a"})", Limits::entity(EntityType::Button, "a"));
    row("enum", R"({"type":"enum","editable":true,"items":["a","b"]})", Limits::enumeration({"a", "b"}));
}

void ActionValueLimitsTest::reads()
{
    QFETCH(QByteArray, document);
    QFETCH(Limits, expected);

    const auto limits = Limits::fromVariant(JsonTexts::read(document));

    QVERIFY2(limits == expected, shown(limits).constData());
}

void ActionValueLimitsTest::readsDamaged_data()
{
    QTest::addColumn<QVariant>("variant");
    QTest::addColumn<Limits>("expected");

    const auto row = [](const char *name, const QByteArray &document, const Limits &expected) {
        QTest::newRow(name) << JsonTexts::read(document) << expected;
    };
    QTest::newRow("invalid") << QVariant() << Limits();
    QTest::newRow("null") << QVariant::fromValue(nullptr) << Limits();
    QTest::newRow("text") << QVariant("integer") << Limits();
    QTest::newRow("list") << QVariant(QVariantList{1}) << Limits();
    row("no type", R"({"min":1,"max":2})", Limits());
    row("unknown type", R"({"type":"Integer","min":1,"max":2})", Limits());
    row("integer without keys is 0", R"({"type":"integer"})", Limits::integer(0, 0));
    row("integer with nulls is 0", R"({"type":"integer","min":null,"max":null})", Limits::integer(0, 0));
    row("integer with texts", R"({"type":"integer","min":"-3","max":"many"})", Limits::integer(-3, 0));
    row("integer beyond the range", R"({"type":"integer","min":-1e300,"max":1e300})",
        Limits::integer(int64Min, int64Max));
    row("double without keys is 0", R"({"type":"double"})", Limits::real(0, 0));
    row("double with texts", R"({"type":"double","min":"-1.5","max":"many"})", Limits::real(-1.5, 0));
    row("string without keys is 0", R"({"type":"string"})", Limits::string(0, 0, ""));
    row("lengths beyond the range", R"({"type":"string","minLength":-1e300,"maxLength":1e300,"regex":[]})",
        Limits::string(std::numeric_limits<int>::min(), 2147483647, ""));
    row("length of 2^32", R"({"type":"string","minLength":0,"maxLength":4294967296})",
        Limits::string(0, 2147483647, ""));
    row("list without keys", R"({"type":"list"})", Limits::list(Type::Void, 0, 0));
    row("list with damaged elements", R"({"type":"list","listType":7,"elementLimits":[1]})",
        Limits::list(Type::Void, 0, 0));
    row("entity without keys is a device", R"({"type":"entity"})", Limits::entity(EntityType::Device, ""));
    row("entity of an unknown type", R"({"type":"entity","entityType":"door","filter":5})",
        Limits::entity(EntityType::Device, "5"));
    row("enum without items", R"({"type":"enum"})", Limits::enumeration({}));
    row("enum with null items", R"({"type":"enum","items":null})", Limits::enumeration({}));
    row("enum with numbers", R"({"type":"enum","items":[1,true,null]})", Limits::enumeration({"1", "true", ""}));
}

void ActionValueLimitsTest::readsDamaged()
{
    QFETCH(QVariant, variant);
    QFETCH(Limits, expected);

    const auto limits = Limits::fromVariant(variant);

    QVERIFY2(limits == expected, shown(limits).constData());
}

void ActionValueLimitsTest::readsElementsOfElementsOfAnyDepth()
{
    QVariant map = QVariantMap{{"type", "integer"}, {"min", 1}, {"max", 2}};
    for (int i = 0; i < 20000; ++i)
        map = QVariantMap{{"type", "list"}, {"elementLimits", map}};

    const auto limits = Limits::fromVariant(map);

    QVERIFY(limits == Limits::list(Type::List, 0, 0));
    // Taken apart from the outside, since a variant destroys what it holds by recursion.
    while (map.toMap().contains("elementLimits")) {
        const auto inner = map.toMap().value("elementLimits");
        map = inner;
    }
}

void ActionValueLimitsTest::equalityNeedsTypeAndContents()
{
    QVERIFY(!(Limits(Type::Integer) == Limits(Type::Double)));
    QVERIFY(!(Limits(Type::Integer) == Limits(Limits::IntegerLimits())));
    QVERIFY(!(Limits::integer(1, 2) == Limits::integer(1, 3)));
    QVERIFY(!(Limits::real(1, 2) == Limits::real(0, 2)));
    QVERIFY(!(Limits::string(1, 2, "a") == Limits::string(1, 2, "b")));
    QVERIFY(!(Limits::entity(EntityType::Zone, "") == Limits::entity(EntityType::Part, "")));
    QVERIFY(!(Limits::enumeration({"a"}) == Limits::enumeration({"b"})));
    QVERIFY(!(Limits::list(Type::Bool, 1, 2) == Limits::list(Type::Bool, 1, 3)));
    QVERIFY(!(Limits::list(Limits::integer(1, 2), 0, 1) == Limits::list(Limits::integer(1, 3), 0, 1)));
    QVERIFY(Limits::list(Limits::integer(1, 2), 0, 1) == Limits::list(Limits::integer(1, 2), 0, 1));
}

ONDIRA_TEST(ActionValueLimitsTest)
#include "ActionValueLimitsTest.moc"
