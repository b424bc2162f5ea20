// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/DefaultsManager.h"
#include "model/Site.h"
#include "model/StandardBlueprints.h"
#include "support/TestBase.h"

#include <QJSEngine>

using Type = Model::ParameterDeclaration::Type;

namespace {

// What stands in for the host of the scripts: it notes what a script does, one line each.
const char *const host = R"(
    var log = [];
    function makeZone(power) {
        var zone = {};
        Object.defineProperty(zone, "power", {get: function () { return power; },
                                              set: function (value) { log.push("power " + value); }});
        Object.defineProperty(zone, "mode", {set: function (value) { log.push("mode " + value); }});
        return zone;
    }
    var zones = powers.map(makeZone);
    var devices = {
        state: function (uid) { return states[uid] === undefined ? null : states[uid]; },
        value: function (property) { return values[property]; },
        setValue: function (property, value) { log.push("set " + property + " " + value); }
    };
    var actions = {
        run: function (action) { log.push("run " + action); },
        runAfter: function (action, time) { log.push("run " + action + " after " + time); }
    };
)";

QString scriptOf(const QString &name)
{
    QFile file(":/defaults/" + name + ".js");
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// Runs a script as the body of a function for zones of those powers.
QStringList run(const QString &script, const QString &parameters, const QString &powers = "[]",
                const QString &known = "{}")
{
    QJSEngine engine;
    const QString program = "(function (powers, states, values) {" + QString(host)
        + "(function (parameters, zones, devices, actions) {\n" + scriptOf(script) + "\n})(" + parameters
        + ", zones, devices, actions); return log; })(" + powers + ", " + known + ", " + known + ")";
    const auto result = engine.evaluate(program, script);
    if (result.isError())
        return {"error in line " + result.property("lineNumber").toString() + ": " + result.toString()};
    return result.toVariant().toStringList();
}

const Model::Action *actionNamed(const Model::Shop &shop, const QString &name)
{
    const auto found =
        std::find_if(shop.actions.begin(), shop.actions.end(), [&](const auto &action) { return action.name == name; });
    return found == shop.actions.end() ? nullptr : &*found;
}

} // namespace

class DefaultsManagerTest : public TestBase
{
    Q_OBJECT

private slots:
    void uidsAreThoseOfTheStandardBlueprints();
    void fillsTenActions();
    void actions_data();
    void actions();
    void parametersAreOfTheirKind();
    void addsAFirstPart();
    void keepsThePartsThatAreThere();
    void fillingTwiceAddsNothing();
    void keepsOtherActions();
    void unreadableScriptIsLogged();
    void emptyScriptIsAnAction();
    void scripts_data();
    void scripts();
    void scriptsTellWhatTheyNeed_data();
    void scriptsTellWhatTheyNeed();
};

void DefaultsManagerTest::uidsAreThoseOfTheStandardBlueprints()
{
    QCOMPARE(DefaultsManager::uidForDefault(101).toString(), QString("{00000ec0-0065-0000-0000-000000000065}"));
    for (const int number : {0, 1, 10, 255, 256, 65535}) {
        const auto n = static_cast<unsigned short>(number);
        QCOMPARE(DefaultsManager::uidForDefault(n), Model::StandardBlueprints::persistentUID(n));
    }
}

void DefaultsManagerTest::fillsTenActions()
{
    Model::Shop shop;

    DefaultsManager(shop).fillDefaultActions();

    QCOMPARE(shop.actions.size(), 10);
    for (unsigned short number = 1; number <= 10; ++number) {
        const auto action = shop.actions.value(DefaultsManager::uidForDefault(number));
        QCOMPARE(action.uid, DefaultsManager::uidForDefault(number));
        QVERIFY(!action.script.isEmpty());
    }
}

void DefaultsManagerTest::actions_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("category");
    QTest::addColumn<QString>("script");
    QTest::addColumn<QStringList>("parameters");

    const auto row = [](int number, const char *name, const char *category, const char *script,
                        const QStringList &parameters) {
        QTest::newRow(script) << number << name << category << script << parameters;
    };
    row(1, "Мощность по внутреннему датчику освещенности", "Алгоритмы устройств", "simpleIndoorLightSensor",
        {"targetLux", "lightSensor", "lowerBound", "upperBound", "errorMargin"});
    row(2, "Установить мощность", "Управление", "setPower", {"power"});
    row(3, "Перевести в автоматический режим", "Управление", "setAuto", {});
    row(4, "Мощность по внешнему датчику освещенности", "Алгоритмы устройств", "outdoorLightSensor",
        {"minBrightness", "maxBrightness", "lightSensor"});
    row(5, "Перевести в ручной режим", "Управление", "setManual", {});
    row(6, "Действия по датчику контакта", "Алгоритмы устройств", "contactorRelay",
        {"sensor", "onAction", "offAction"});
    row(7, "Сравнение с константой", "Логические операции", "compareWithConstant",
        {"cmpProp", "constant", "lessAction", "equalAction", "greaterAction"});
    row(8, "Сравнение со свойством", "Логические операции", "compareWithProperty",
        {"firstProp", "secondProp", "lessAction", "equalAction", "greaterAction"});
    row(9, "Выполнить с задержкой", "Логические операции", "executeWithTimeout", {"action", "timeout"});
    row(10, "Установить свойство", "Логические операции", "setProperty", {"cmpProp", "constant"});
}

void DefaultsManagerTest::actions()
{
    QFETCH(int, number);
    QFETCH(QString, name);
    QFETCH(QString, category);
    QFETCH(QString, script);
    QFETCH(QStringList, parameters);
    Model::Shop shop;

    DefaultsManager(shop).fillDefaultActions();

    const auto action = shop.actions.value(DefaultsManager::uidForDefault(static_cast<unsigned short>(number)));
    QCOMPARE(action.name, name);
    QCOMPARE(action.category, category);
    QCOMPARE(action.script, scriptOf(script));
    QVERIFY(!action.script.isEmpty());
    QStringList identificators;
    for (const auto &parameter : action.parametersDeclaration) {
        identificators << parameter.identificator;
        QVERIFY(!parameter.description.isEmpty());
    }
    QCOMPARE(identificators, parameters);
}

void DefaultsManagerTest::parametersAreOfTheirKind()
{
    static const QHash<QString, Type> types{
        {"targetLux", Type::Number},     {"lightSensor", Type::Device},   {"lowerBound", Type::Number},
        {"upperBound", Type::Number},    {"errorMargin", Type::Number},   {"power", Type::Number},
        {"minBrightness", Type::Number}, {"maxBrightness", Type::Number}, {"sensor", Type::Property},
        {"onAction", Type::Action},      {"offAction", Type::Action},     {"cmpProp", Type::Property},
        {"constant", Type::Number},      {"lessAction", Type::Action},    {"equalAction", Type::Action},
        {"greaterAction", Type::Action}, {"firstProp", Type::Property},   {"secondProp", Type::Property},
        {"action", Type::Action},        {"timeout", Type::Number},
    };
    Model::Shop shop;
    DefaultsManager(shop).fillDefaultActions();

    for (const auto &action : qAsConst(shop.actions)) {
        for (const auto &parameter : action.parametersDeclaration) {
            QVERIFY2(types.contains(parameter.identificator), qPrintable(parameter.identificator));
            QCOMPARE(parameter.type, types.value(parameter.identificator));
            if (const auto *number = boost::get<Model::ParameterDeclaration::NumberProperties>(&parameter.properties)) {
                QVERIFY(number->minimum < number->maximum);
                QVERIFY(number->defaultValue >= number->minimum && number->defaultValue <= number->maximum);
            }
        }
    }
}

void DefaultsManagerTest::addsAFirstPart()
{
    Model::Shop shop;

    DefaultsManager(shop).fillDefaultActions();

    QCOMPARE(shop.shopParts.size(), 1);
    const auto part = *shop.shopParts.begin();
    QCOMPARE(part.name, QString("Объект"));
    QVERIFY(!part.uid.isNull());
    QCOMPARE(shop.shopParts.begin().key(), part.uid);
}

void DefaultsManagerTest::keepsThePartsThatAreThere()
{
    Model::Shop shop;
    const QUuid uid("{11111111-1111-1111-1111-111111111111}");
    shop.shopParts.insert(uid, {uid, "Первый этаж"});

    DefaultsManager(shop).fillDefaultActions();

    QCOMPARE(shop.shopParts.keys(), QList<QUuid>{uid});
    QCOMPARE(shop.shopParts.value(uid).name, QString("Первый этаж"));
}

void DefaultsManagerTest::fillingTwiceAddsNothing()
{
    Model::Shop shop;
    DefaultsManager manager(shop);
    manager.fillDefaultActions();
    const auto parts = shop.shopParts.keys();

    manager.fillDefaultActions();

    QCOMPARE(shop.actions.size(), 10);
    QCOMPARE(shop.shopParts.keys(), parts);
}

void DefaultsManagerTest::keepsOtherActions()
{
    Model::Shop shop;
    const QUuid uid("{11111111-1111-1111-1111-111111111111}");
    shop.actions.insert(uid, {uid, "Моё", "", "", {}});

    DefaultsManager(shop).fillDefaultActions();

    QCOMPARE(shop.actions.size(), 11);
    QVERIFY(actionNamed(shop, "Моё"));
}

void DefaultsManagerTest::unreadableScriptIsLogged()
{
    Model::Shop shop;
    expectMessage(QtWarningMsg, "^Can not read resource path :/defaults/none\\.js$");

    DefaultsManager(shop).createAction("Нет", "Управление", {}, ":/defaults/none.js", 20);

    QVERIFY(shop.actions.isEmpty());
}

void DefaultsManagerTest::emptyScriptIsAnAction()
{
    Model::Shop shop;
    QTemporaryFile file;
    QVERIFY(file.open());

    DefaultsManager(shop).createAction("Пусто", "Управление", {Model::ParameterDeclaration::action("a", "b")},
                                       file.fileName(), 20);

    const auto *action = actionNamed(shop, "Пусто");
    QVERIFY(action);
    QCOMPARE(action->uid, DefaultsManager::uidForDefault(20));
    QCOMPARE(action->category, QString("Управление"));
    QCOMPARE(action->script, QString());
    QCOMPARE(action->parametersDeclaration.size(), std::size_t(1));
}

void DefaultsManagerTest::scripts_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("parameters");
    QTest::addColumn<QString>("powers");
    QTest::addColumn<QString>("known");
    QTest::addColumn<QStringList>("expected");

    const auto row = [](const char *script, const char *name, const char *parameters, const char *powers,
                        const char *known, const QStringList &expected) {
        QTest::addRow("%s: %s", script, name) << script << parameters << powers << known << expected;
    };

    row("setPower", "each zone", "{power: 60}", "[0, 100]", "{}", {"power 60", "power 60"});
    row("setPower", "no zones", "{power: 60}", "[]", "{}", {});
    row("setPower", "text", "{power: '40'}", "[0]", "{}", {"power 40"});
    row("setPower", "too much", "{power: 140}", "[0]", "{}", {"power 100"});
    row("setPower", "below zero", "{power: -1}", "[0]", "{}", {"power 0"});
    row("setPower", "nothing given", "{}", "[50]", "{}", {});
    row("setPower", "null", "{power: null}", "[50]", "{}", {});
    row("setPower", "no number", "{power: 'all'}", "[50]", "{}", {});

    row("setAuto", "each zone", "{}", "[0, 100]", "{}", {"mode Auto", "mode Auto"});
    row("setAuto", "no zones", "{}", "[]", "{}", {});
    row("setManual", "each zone", "{}", "[0, 100]", "{}", {"mode Manual", "mode Manual"});

    const auto *indoor = "{lightSensor: 's', targetLux: 300, errorMargin: 20, lowerBound: 10, upperBound: 90}";
    row("simpleIndoorLightSensor", "too dark", indoor, "[20, 50]", "{s: {brightness: 100}}", {"power 30", "power 60"});
    row("simpleIndoorLightSensor", "too bright", indoor, "[50]", "{s: {brightness: 400}}", {"power 45"});
    row("simpleIndoorLightSensor", "near enough", indoor, "[50]", "{s: {brightness: 319}}", {});
    row("simpleIndoorLightSensor", "at the margin", indoor, "[50]", "{s: {brightness: 280}}", {});
    row("simpleIndoorLightSensor", "upper bound", indoor, "[89]", "{s: {brightness: 0}}", {"power 90"});
    row("simpleIndoorLightSensor", "lower bound", indoor, "[11]", "{s: {brightness: 9000}}", {"power 10"});
    row("simpleIndoorLightSensor", "unknown sensor", indoor, "[50]", "{}", {});
    row("simpleIndoorLightSensor", "sensor without a reading", indoor, "[50]", "{s: {errors: 3}}", {});
    row("simpleIndoorLightSensor", "null reading", indoor, "[50]", "{s: {brightness: null}}", {});

    const auto *outdoor = "{lightSensor: 's', minBrightness: 100, maxBrightness: 300}";
    row("outdoorLightSensor", "dark", outdoor, "[0, 50]", "{s: {brightness: 10}}", {"power 100", "power 100"});
    row("outdoorLightSensor", "lower end", outdoor, "[0]", "{s: {brightness: 100}}", {"power 100"});
    row("outdoorLightSensor", "in between", outdoor, "[0]", "{s: {brightness: 250}}", {"power 25"});
    row("outdoorLightSensor", "upper end", outdoor, "[5]", "{s: {brightness: 300}}", {"power 0"});
    row("outdoorLightSensor", "bright", outdoor, "[5]", "{s: {brightness: 9000}}", {"power 0"});
    row("outdoorLightSensor", "ends that meet", "{lightSensor: 's', minBrightness: 100, maxBrightness: 100}", "[5]",
        "{s: {brightness: 101}}", {"power 0"});
    row("outdoorLightSensor", "unknown sensor", outdoor, "[5]", "{}", {});
    row("outdoorLightSensor", "null reading", outdoor, "[5]", "{s: {brightness: null}}", {});

    const auto *relay = "{sensor: 'p', onAction: 'A', offAction: 'B'}";
    row("contactorRelay", "closed", relay, "[]", "{p: true}", {"run A"});
    row("contactorRelay", "open", relay, "[]", "{p: false}", {"run B"});
    row("contactorRelay", "one", relay, "[]", "{p: 1}", {"run A"});
    row("contactorRelay", "zero", relay, "[]", "{p: 0}", {"run B"});
    row("contactorRelay", "never read", relay, "[]", "{}", {});
    row("contactorRelay", "null", relay, "[]", "{p: null}", {});
    row("contactorRelay", "no action for closed", "{sensor: 'p', offAction: 'B'}", "[]", "{p: true}", {});
    row("contactorRelay", "no action for open", "{sensor: 'p', onAction: 'A', offAction: null}", "[]", "{p: false}",
        {});

    const auto *constant = "{cmpProp: 'p', constant: 5, lessAction: 'L', equalAction: 'E', greaterAction: 'G'}";
    row("compareWithConstant", "less", constant, "[]", "{p: 4.9}", {"run L"});
    row("compareWithConstant", "equal", constant, "[]", "{p: 5}", {"run E"});
    row("compareWithConstant", "greater", constant, "[]", "{p: 6}", {"run G"});
    row("compareWithConstant", "never read", constant, "[]", "{}", {});
    row("compareWithConstant", "null", constant, "[]", "{p: null}", {});
    row("compareWithConstant", "no number", constant, "[]", "{p: 'warm'}", {});
    row("compareWithConstant", "no action", "{cmpProp: 'p', constant: 5, lessAction: 'L'}", "[]", "{p: 6}", {});

    const auto *property = "{firstProp: 'a', secondProp: 'b', lessAction: 'L', equalAction: 'E', greaterAction: 'G'}";
    row("compareWithProperty", "less", property, "[]", "{a: 1, b: 2}", {"run L"});
    row("compareWithProperty", "equal", property, "[]", "{a: 2, b: 2}", {"run E"});
    row("compareWithProperty", "greater", property, "[]", "{a: 3, b: 2}", {"run G"});
    row("compareWithProperty", "neither read", property, "[]", "{}", {});
    row("compareWithProperty", "first never read", property, "[]", "{b: 2}", {});
    row("compareWithProperty", "second null", property, "[]", "{a: 1, b: null}", {});
    row("compareWithProperty", "no action", "{firstProp: 'a', secondProp: 'b'}", "[]", "{a: 1, b: 2}", {});

    row("executeWithTimeout", "later", "{action: 'A', timeout: 1.5}", "[]", "{}", {"run A after 1500"});
    row("executeWithTimeout", "at once", "{action: 'A', timeout: 0}", "[]", "{}", {"run A after 0"});
    row("executeWithTimeout", "below zero", "{action: 'A', timeout: -5}", "[]", "{}", {"run A after 0"});
    row("executeWithTimeout", "no time", "{action: 'A'}", "[]", "{}", {"run A after 0"});
    row("executeWithTimeout", "no action", "{timeout: 5}", "[]", "{}", {});

    row("setProperty", "number", "{cmpProp: 'p', constant: 7}", "[]", "{}", {"set p 7"});
    row("setProperty", "zero", "{cmpProp: 'p', constant: 0}", "[]", "{}", {"set p 0"});
    row("setProperty", "no property", "{constant: 7}", "[]", "{}", {});
}

void DefaultsManagerTest::scripts()
{
    QFETCH(QString, script);
    QFETCH(QString, parameters);
    QFETCH(QString, powers);
    QFETCH(QString, known);

    QVERIFY(!scriptOf(script).isEmpty());
    QTEST(run(script, parameters, powers, known), "expected");
}

void DefaultsManagerTest::scriptsTellWhatTheyNeed_data()
{
    actions_data();
}

void DefaultsManagerTest::scriptsTellWhatTheyNeed()
{
    QFETCH(QString, script);
    QFETCH(QStringList, parameters);

    const auto text = scriptOf(script);
    const auto code = QString(text).remove(QRegularExpression("^\\s*//.*$", QRegularExpression::MultilineOption));
    const auto comment = text.section("\n\n", 0, 0);

    for (const auto &parameter : parameters) {
        QVERIFY2(code.contains("parameters." + parameter), qPrintable(parameter));
        QVERIFY2(comment.contains("parameters." + parameter), qPrintable(parameter));
    }
    auto used = QRegularExpression("\\bparameters\\.(\\w+)").globalMatch(code);
    while (used.hasNext()) {
        const auto name = used.next().captured(1);
        QVERIFY2(parameters.contains(name), qPrintable(name));
    }
    for (const auto *name : {"zones", "devices.", "actions."}) {
        if (code.contains(name))
            QVERIFY2(comment.contains(name), name);
    }
}

ONDIRA_TEST(DefaultsManagerTest)
#include "DefaultsManagerTest.moc"
