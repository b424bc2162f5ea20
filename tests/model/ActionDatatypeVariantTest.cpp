// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ActionDatatype.h"
#include "model/JsonTexts.h"
#include "support/TestBase.h"

#include <QColor>
#include <QDateTime>
#include <QJSEngine>
#include <QJSValue>
#include <QPoint>
#include <QUrl>
#include <limits>

using Model::ActionDatatype;
using EntityDatatype = ActionDatatype::EntityDatatype;
using EntityType = EntityDatatype::EntityType;
using EnumDatatype = ActionDatatype::EnumDatatype;
using Type = ActionDatatype::Type;

Q_DECLARE_METATYPE(Model::ActionDatatype)

namespace {

// A type of ours that knows its way into a script.
struct Scripted
{
    int value = 0;
};

// A type of ours whose way into a script leads back to itself.
struct Circular
{
    QJSEngine *engine = nullptr;
    int *conversions = nullptr;
};

// A type of ours without such a way.
struct Opaque
{
    int value = 0;
};

const QString lampText = QStringLiteral("{11111111-2222-3333-4444-555555555555}");
const QUuid lamp(QStringLiteral("{11111111-2222-3333-4444-555555555555}"));

ActionDatatype integer(long long value)
{
    return ActionDatatype(value);
}

int nesting(ActionDatatype value)
{
    int depth = 0;
    while (value.type() == Type::List && !value.toList().empty()) {
        value = ActionDatatype(value.toList().front());
        ++depth;
    }
    return depth;
}

QByteArray nestedLists(int depth, const QByteArray &innermost)
{
    return QByteArray(R"({"type":"list","value":[)").repeated(depth) + innermost + QByteArray("]}").repeated(depth);
}

} // namespace

Q_DECLARE_METATYPE(Scripted)
Q_DECLARE_METATYPE(Circular)
Q_DECLARE_METATYPE(Opaque)

class ActionDatatypeVariantTest : public TestBase
{
    Q_OBJECT

private slots:
    void writesMap_data();
    void writesMap();
    void voidWritesNothing();
    void readsMap_data();
    void readsMap();
    void readsDamagedMap_data();
    void readsDamagedMap();
    void enumReadFromMapIsTrue();
    void readsListsAsDeepAsADocumentGoes();
    void listsDeeperThanADocumentEnd();
    void readsTenThousandElements();
    void bareValueForEditors();
    void buildsFromVariant_data();
    void buildsFromVariant();
    void buildsFromScriptValue_data();
    void buildsFromScriptValue();
    void scriptValueThatHoldsItselfEnds();
    void typeWithConversionToScriptIsRead();
    void typeThatConvertsToItselfIsVoid();
    void typeWithoutConversionIsVoid();
};

void ActionDatatypeVariantTest::writesMap_data()
{
    QTest::addColumn<ActionDatatype>("value");
    QTest::addColumn<QByteArray>("expected");

    using Bytes = QByteArray;
    const ActionDatatype::List list{integer(1), ActionDatatype(QString("a")), ActionDatatype()};
    QTest::newRow("integer") << integer(-5) << Bytes(R"({"type":"integer","value":-5})");
    QTest::newRow("large integer") << integer(9007199254740991LL)
                                   << Bytes(R"({"type":"integer","value":9007199254740991})");
    QTest::newRow("double") << ActionDatatype(0.5) << Bytes(R"({"type":"double","value":0.5})");
    QTest::newRow("bool") << ActionDatatype(true) << Bytes(R"({"type":"bool","value":true})");
    QTest::newRow("string") << ActionDatatype(QString("да")) << Bytes(R"({"type":"string","value":"да"})");
    QTest::newRow("empty string") << ActionDatatype(QString()) << Bytes(R"({"type":"string","value":""})");
    QTest::newRow("list") << ActionDatatype(list) << Bytes(R"({"type":"list","value":[
        {"type":"integer","value":1},{"type":"string","value":"a"},null]})");
    QTest::newRow("empty list") << ActionDatatype(ActionDatatype::List()) << Bytes(R"({"type":"list","value":[]})");
    QTest::newRow("entity") << ActionDatatype::part(lamp) << Bytes(R"({"type":"entity","value":
        {"type":"part","uid":"{11111111-2222-3333-4444-555555555555}"}})");
    QTest::newRow("enum") << ActionDatatype(EnumDatatype{2}) << Bytes(R"({"type":"enum","value":{"index":2}})");
}

void ActionDatatypeVariantTest::writesMap()
{
    QFETCH(ActionDatatype, value);
    QFETCH(QByteArray, expected);

    QCOMPARE(JsonTexts::written(value.toVariantMap()), JsonTexts::compact(expected));
}

void ActionDatatypeVariantTest::voidWritesNothing()
{
    QVERIFY(!ActionDatatype().toVariantMap().isValid());
}

void ActionDatatypeVariantTest::readsMap_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<ActionDatatype>("expected");

    using Bytes = QByteArray;
    QTest::newRow("integer") << Bytes(R"({"type":"integer","value":-5})") << integer(-5);
    QTest::newRow("double") << Bytes(R"({"type":"double","value":0.5})") << ActionDatatype(0.5);
    QTest::newRow("whole double") << Bytes(R"({"type":"double","value":2})") << ActionDatatype(2.0);
    QTest::newRow("bool") << Bytes(R"({"type":"bool","value":true})") << ActionDatatype(true);
    QTest::newRow("string") << Bytes(R"({"type":"string","value":"да"})") << ActionDatatype(QString("да"));
    QTest::newRow("list") << Bytes(R"({"type":"list","value":[{"type":"integer","value":1},null]})")
                          << ActionDatatype(ActionDatatype::List{integer(1), ActionDatatype()});
    QTest::newRow("entity") << Bytes(R"({"type":"entity","value":{"type":"zone",
        "uid":"{11111111-2222-3333-4444-555555555555}"}})")
                            << ActionDatatype::zone(lamp);
    QTest::newRow("entity without braces") << Bytes(R"({"type":"entity","value":{"type":"zone",
        "uid":"11111111-2222-3333-4444-555555555555"}})")
                                           << ActionDatatype::zone(lamp);
    QTest::newRow("enum") << Bytes(R"({"type":"enum","value":{"index":2}})") << ActionDatatype(EnumDatatype{2});
    QTest::newRow("extra keys are passed over")
        << Bytes(R"({"type":"bool","value":true,"unit":"lx"})") << ActionDatatype(true);
    QTest::newRow("number as text") << Bytes(R"({"type":"integer","value":"12"})") << integer(12);
    QTest::newRow("double as text") << Bytes(R"({"type":"double","value":"1.5"})") << ActionDatatype(1.5);
    QTest::newRow("text as number") << Bytes(R"({"type":"string","value":12})") << ActionDatatype(QString("12"));
}

void ActionDatatypeVariantTest::readsMap()
{
    QFETCH(QByteArray, document);
    QFETCH(ActionDatatype, expected);

    const auto value = ActionDatatype::fromVariantMap(JsonTexts::read(document));

    QVERIFY2(value == expected, qPrintable(value.toString()));
}

void ActionDatatypeVariantTest::readsDamagedMap_data()
{
    QTest::addColumn<QVariant>("variant");
    QTest::addColumn<ActionDatatype>("expected");

    const auto row = [](const char *name, const QByteArray &document, const ActionDatatype &expected) {
        QTest::newRow(name) << JsonTexts::read(document) << expected;
    };
    const auto unnamed = ActionDatatype::device(QUuid());
    QTest::newRow("invalid") << QVariant() << ActionDatatype();
    QTest::newRow("null") << QVariant::fromValue(nullptr) << ActionDatatype();
    QTest::newRow("number for a map") << QVariant(5) << ActionDatatype();
    QTest::newRow("list for a map") << QVariant(QVariantList{1}) << ActionDatatype();
    row("no type", R"({"value":5})", ActionDatatype());
    row("unknown type", R"({"type":"Integer","value":5})", ActionDatatype());
    row("void with a value", R"({"type":"void","value":5})", ActionDatatype());
    row("null type", R"({"type":null,"value":5})", ActionDatatype());
    row("integer without value", R"({"type":"integer"})", integer(0));
    row("null integer", R"({"type":"integer","value":null})", integer(0));
    row("half below zero", R"({"type":"integer","value":-2.5})", integer(-2));
    row("half", R"({"type":"integer","value":2.5})", integer(3));
    row("less than half below zero", R"({"type":"integer","value":-0.5})", integer(0));
    row("text for an integer", R"({"type":"integer","value":"many"})", integer(0));
    row("map for an integer", R"({"type":"integer","value":{}})", integer(0));
    row("integer beyond the range", R"({"type":"integer","value":1e300})",
        integer(std::numeric_limits<long long>::max()));
    row("integer below the range", R"({"type":"integer","value":-1e300})",
        integer(std::numeric_limits<long long>::min()));
    row("null double", R"({"type":"double","value":null})", ActionDatatype(0.0));
    row("list for a double", R"({"type":"double","value":[1]})", ActionDatatype(0.0));
    row("null bool", R"({"type":"bool","value":null})", ActionDatatype(false));
    row("null string", R"({"type":"string","value":null})", ActionDatatype(QString()));
    row("map for a string", R"({"type":"string","value":{"a":1}})", ActionDatatype(QString()));
    row("null list", R"({"type":"list","value":null})", ActionDatatype(ActionDatatype::List()));
    row("text for a list", R"({"type":"list","value":"ab"})", ActionDatatype(ActionDatatype::List()));
    row("bare elements are void", R"({"type":"list","value":[5,"a"]})",
        ActionDatatype(ActionDatatype::List{ActionDatatype(), ActionDatatype()}));
    row("entity without value is a device", R"({"type":"entity"})", unnamed);
    row("entity with an unknown type", R"({"type":"entity","value":{"type":"door","uid":"x"}})", unnamed);
    row("text for an entity", R"({"type":"entity","value":"zone"})", unnamed);
    row("enum without value", R"({"type":"enum"})", ActionDatatype(EnumDatatype{0}));
    row("bare index", R"({"type":"enum","value":2})", ActionDatatype(EnumDatatype{0}));
    row("negative index stays", R"({"type":"enum","value":{"index":-1}})", ActionDatatype(EnumDatatype{-1}));
}

void ActionDatatypeVariantTest::readsDamagedMap()
{
    QFETCH(QVariant, variant);
    QFETCH(ActionDatatype, expected);

    const auto value = ActionDatatype::fromVariantMap(variant);

    QCOMPARE(value.type(), expected.type());
    QVERIFY2(value == expected, qPrintable(value.toString()));
}

void ActionDatatypeVariantTest::enumReadFromMapIsTrue()
{
    const auto value = ActionDatatype::fromVariantMap(JsonTexts::read(R"({"type":"enum","value":{"index":2}})"));

    QVERIFY(value.toBool());
}

void ActionDatatypeVariantTest::readsListsAsDeepAsADocumentGoes()
{
    // A list takes two levels of a document, which holds 1024 of them.
    const auto value =
        ActionDatatype::fromVariantMap(JsonTexts::read(nestedLists(511, R"({"type":"bool","value":true})")));

    QCOMPARE(nesting(value), 511);
    QVERIFY(value == ActionDatatype(value));
    QCOMPARE(value.toString().size(), 511 + 4 + 511);
    QVERIFY(ActionDatatype::fromVariantMap(value.toVariantMap()) == value);
}

void ActionDatatypeVariantTest::listsDeeperThanADocumentEnd()
{
    QVariant map = QVariantMap{{"type", "bool"}, {"value", true}};
    QVariant list = true;
    for (int i = 0; i < 3000; ++i) {
        map = QVariantMap{{"type", "list"}, {"value", QVariantList{map}}};
        list = QVariantList{list};
    }

    QCOMPARE(nesting(ActionDatatype::fromVariantMap(map)), 1024);
    QCOMPARE(nesting(ActionDatatype(list)), 1024);
}

void ActionDatatypeVariantTest::readsTenThousandElements()
{
    QVariantList maps;
    for (int i = 0; i < 10000; ++i)
        maps.append(QVariantMap{{"type", "integer"}, {"value", i}});

    const auto list = ActionDatatype::fromVariantMap(QVariantMap{{"type", "list"}, {"value", maps}}).toList();

    QCOMPARE(list.size(), std::size_t(10000));
    QVERIFY(list.back() == integer(9999));
}

void ActionDatatypeVariantTest::bareValueForEditors()
{
    const ActionDatatype::List list{integer(1), ActionDatatype::zone(lamp)};

    QCOMPARE(integer(5).valueToVariant(), QVariant(5LL));
    QCOMPARE(integer(5).valueToVariant().userType(), int(QMetaType::LongLong));
    QCOMPARE(ActionDatatype(0.5).valueToVariant(), QVariant(0.5));
    QCOMPARE(ActionDatatype(true).valueToVariant(), QVariant(true));
    QCOMPARE(ActionDatatype(QString("a")).valueToVariant(), QVariant("a"));
    QCOMPARE(ActionDatatype(list).valueToVariant(), QVariant(QVariantList{1LL, lampText}));
    QCOMPARE(ActionDatatype::zone(lamp).valueToVariant().userType(), int(QMetaType::QString));
    QCOMPARE(ActionDatatype::zone(lamp).valueToVariant().toString(), lampText);
    QCOMPARE(ActionDatatype(EnumDatatype{3}).valueToVariant(), QVariant(3LL));
    QCOMPARE(ActionDatatype(EnumDatatype{3}).valueToVariant().userType(), int(QMetaType::LongLong));
    QVERIFY(!ActionDatatype().valueToVariant().isValid());
}

void ActionDatatypeVariantTest::buildsFromVariant_data()
{
    QTest::addColumn<QVariant>("variant");
    QTest::addColumn<ActionDatatype>("expected");

    const ActionDatatype nothing;
    QTest::newRow("bool") << QVariant(true) << ActionDatatype(true);
    QTest::newRow("int") << QVariant(-5) << integer(-5);
    QTest::newRow("unsigned int") << QVariant(4000000000U) << integer(4000000000LL);
    QTest::newRow("long long") << QVariant(5000000000LL) << integer(5000000000LL);
    QTest::newRow("unsigned long long") << QVariant(5000000000ULL) << integer(5000000000LL);
    QTest::newRow("double") << QVariant(2.0) << ActionDatatype(2.0);
    QTest::newRow("float") << QVariant(0.5F) << ActionDatatype(0.5);
    QTest::newRow("string") << QVariant("a") << ActionDatatype(QString("a"));
    QTest::newRow("char") << QVariant(QChar('a')) << ActionDatatype(QString("a"));
    QTest::newRow("map is a written value")
        << QVariant(QVariantMap{{"type", "enum"}, {"value", QVariantMap{{"index", 2}}}})
        << ActionDatatype(EnumDatatype{2});
    QTest::newRow("other map is void") << QVariant(QVariantMap{{"a", 1}}) << nothing;
    QTest::newRow("list of bare values") << QVariant(QVariantList{1, "a", QVariantList{true}})
                                         << ActionDatatype(ActionDatatype::List{
                                                integer(1), ActionDatatype(QString("a")),
                                                ActionDatatype(ActionDatatype::List{ActionDatatype(true)})});
    QTest::newRow("list of maps") << QVariant(QVariantList{QVariantMap{{"type", "bool"}, {"value", true}}})
                                  << ActionDatatype(ActionDatatype::List{ActionDatatype(true)});
    QTest::newRow("empty list") << QVariant(QVariantList()) << ActionDatatype(ActionDatatype::List());
    QTest::newRow("uid") << QVariant(lamp) << ActionDatatype(EntityDatatype(lamp));
    QTest::newRow("invalid") << QVariant() << nothing;
    QTest::newRow("null") << QVariant::fromValue(nullptr) << nothing;
    QTest::newRow("date") << QVariant(QDateTime::fromSecsSinceEpoch(0)) << nothing;
    QTest::newRow("url") << QVariant(QUrl("qrc:/a")) << nothing;
    QTest::newRow("bytes") << QVariant(QByteArray("a")) << nothing;
    QTest::newRow("colour") << QVariant(QColor(Qt::red)) << nothing;
    QTest::newRow("point") << QVariant(QPoint(1, 2)) << nothing;
}

void ActionDatatypeVariantTest::buildsFromVariant()
{
    QFETCH(QVariant, variant);
    QFETCH(ActionDatatype, expected);

    const ActionDatatype value(variant);

    QCOMPARE(value.type(), expected.type());
    QVERIFY2(value == expected, qPrintable(value.toString()));
}

void ActionDatatypeVariantTest::buildsFromScriptValue_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<ActionDatatype>("expected");

    const ActionDatatype nothing;
    QTest::newRow("bool") << "true" << ActionDatatype(true);
    QTest::newRow("integer") << "5" << integer(5);
    QTest::newRow("double") << "0.5" << ActionDatatype(0.5);
    QTest::newRow("string") << "'a'" << ActionDatatype(QString("a"));
    QTest::newRow("array") << "[1, 'a']"
                           << ActionDatatype(ActionDatatype::List{integer(1), ActionDatatype(QString("a"))});
    QTest::newRow("object is a written value") << "({type: 'bool', value: true})" << ActionDatatype(true);
    QTest::newRow("other object is void") << "({a: 1})" << nothing;
    QTest::newRow("undefined") << "undefined" << nothing;
    QTest::newRow("null") << "null" << nothing;
    QTest::newRow("function") << "(function() { return 1 })" << nothing;
    QTest::newRow("array of a function") << "[function() {}]" << ActionDatatype(ActionDatatype::List{nothing});
    QTest::newRow("symbol") << "Symbol('a')" << nothing;
}

void ActionDatatypeVariantTest::buildsFromScriptValue()
{
    QFETCH(QString, script);
    QFETCH(ActionDatatype, expected);
    QJSEngine engine;

    const ActionDatatype value(QVariant::fromValue(engine.evaluate(script)));

    QCOMPARE(value.type(), expected.type());
    QVERIFY2(value == expected, qPrintable(value.toString()));
}

void ActionDatatypeVariantTest::scriptValueThatHoldsItselfEnds()
{
    QJSEngine engine;

    const ActionDatatype list(QVariant::fromValue(engine.evaluate("var a = [1]; a.push(a); a")));

    QCOMPARE(list.type(), Type::List);
    QVERIFY(list.toList().front() == integer(1));
    QVERIFY(nesting(list) <= 1024);
}

void ActionDatatypeVariantTest::typeWithConversionToScriptIsRead()
{
    if (!QMetaType::hasRegisteredConverterFunction<Scripted, QJSValue>())
        QVERIFY((QMetaType::registerConverter<Scripted, QJSValue>(
            [](const Scripted &scripted) { return QJSValue(scripted.value); })));

    QVERIFY(ActionDatatype(QVariant::fromValue(Scripted{7})) == integer(7));
}

void ActionDatatypeVariantTest::typeThatConvertsToItselfIsVoid()
{
    if (!QMetaType::hasRegisteredConverterFunction<Circular, QJSValue>())
        QVERIFY((QMetaType::registerConverter<Circular, QJSValue>([](const Circular &circular) {
            ++*circular.conversions;
            return circular.engine->toScriptValue(circular);
        })));
    QJSEngine engine;
    int conversions = 0;

    const ActionDatatype value(QVariant::fromValue(Circular{&engine, &conversions}));

    QVERIFY(value.isVoid());
    QVERIFY(conversions > 1);
}

void ActionDatatypeVariantTest::typeWithoutConversionIsVoid()
{
    QVERIFY(ActionDatatype(QVariant::fromValue(Opaque{7})).isVoid());
}

ONDIRA_TEST(ActionDatatypeVariantTest)
#include "ActionDatatypeVariantTest.moc"
