// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/Action.h"
#include "model/JsonTexts.h"
#include "support/TestBase.h"

using Model::Action;
using Model::ParameterDeclaration;

namespace {

const QUuid uid("{11111111-1111-1111-1111-111111111111}");

Action someAction()
{
    return {
        uid,
        "Установить мощность",
        "zones.forEach(function (zone) {\n});\n",
        "Управление",
        {ParameterDeclaration::number("power", "Мощность", 50, 0, 100), ParameterDeclaration::action("then", "Затем")}};
}

const QByteArray fieldsText = R"("name": "Установить мощность", "script": "zones.forEach(function (zone) {\n});\n",
    "category": "Управление", "parametersDeclaration": [
        {"identificator": "power", "description": "Мощность", "type": 1, "defaultValue": 50, "minimumValue": 0,
         "maximumValue": 100},
        {"identificator": "then", "description": "Затем", "type": 3}])";
const QByteArray modelText = R"({"uid": "{11111111-1111-1111-1111-111111111111}", )" + fieldsText + "}";
const QByteArray entityText =
    R"({"type": "action", "id": "{11111111-1111-1111-1111-111111111111}", "attributes": {)" + fieldsText + "}}";

Action readEntity(const QByteArray &attributes)
{
    return JsonAPI::Action::fromVariant(
        JsonTexts::entity(R"({"type": "action", "id": "", "attributes": )" + attributes + "}"));
}

} // namespace

class ActionTest : public TestBase
{
    Q_OBJECT

private slots:
    void writesModelForm();
    void readsModelForm();
    void writesEntity();
    void readsEntity();
    void emptyActionWritesAllItsKeys();
    void readsWhatItCan_data();
    void readsWhatItCan();
    void readsTexts_data();
    void readsTexts();
    void readsUids_data();
    void readsUids();
    void parametersGoThroughALine();
    void parametersThatAreNoMapsAreDevices();
    void readsTenThousandParameters();
    void comparesByAllFields();
};

void ActionTest::writesModelForm()
{
    QCOMPARE(JsonTexts::written(someAction().toVariant()), JsonTexts::compact(modelText));
}

void ActionTest::readsModelForm()
{
    const auto action = Action::fromVariant(JsonTexts::read(modelText));

    QCOMPARE(action.uid, uid);
    QCOMPARE(action.name, QString("Установить мощность"));
    QCOMPARE(action.script, QString("zones.forEach(function (zone) {\n});\n"));
    QCOMPARE(action.category, QString("Управление"));
    QVERIFY(action.parametersDeclaration == someAction().parametersDeclaration);
    QVERIFY(Action::fromVariant(someAction().toVariant()) == someAction());
}

void ActionTest::writesEntity()
{
    QCOMPARE(JsonTexts::written(JsonAPI::Action::toVariant(someAction())), JsonTexts::compact(entityText));
}

void ActionTest::readsEntity()
{
    QVERIFY(JsonAPI::Action::fromVariant(JsonTexts::entity(entityText)) == someAction());
}

void ActionTest::emptyActionWritesAllItsKeys()
{
    QCOMPARE(JsonTexts::written(Action().toVariant()), JsonTexts::compact(R"({
        "uid": "{00000000-0000-0000-0000-000000000000}", "name": "", "script": "", "category": "",
        "parametersDeclaration": []})"));
    QCOMPARE(JsonTexts::written(JsonAPI::Action::toVariant({})), JsonTexts::compact(R"({
        "type": "action", "id": "{00000000-0000-0000-0000-000000000000}",
        "attributes": {"name": "", "script": "", "category": "", "parametersDeclaration": []}})"));
}

void ActionTest::readsWhatItCan_data()
{
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("empty") << QByteArray("{}");
    QTest::newRow("nulls") << QByteArray(
        R"({"uid": null, "name": null, "script": null, "category": null, "parametersDeclaration": null})");
    QTest::newRow("wrong types") << QByteArray(
        R"({"uid": [1], "name": {}, "script": [], "category": {"a": 1}, "parametersDeclaration": "power"})");
    QTest::newRow("map of parameters") << QByteArray(R"({"parametersDeclaration": {"identificator": "power"}})");
    QTest::newRow("other keys") << QByteArray(
        R"({"parameters_declaration": [{"identificator": "power"}], "Name": "x"})");
    QTest::newRow("no map") << QByteArray("[5]");
}

void ActionTest::readsWhatItCan()
{
    QFETCH(QByteArray, text);

    QVERIFY(Action::fromVariant(JsonTexts::read(text)) == Action());
    QVERIFY(readEntity(text) == Action());
}

void ActionTest::readsTexts_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("expected");

    QTest::newRow("text") << QByteArray("\"Свет\"") << "Свет";
    QTest::newRow("number") << QByteArray("5") << "5";
    QTest::newRow("flag") << QByteArray("true") << "true";
    QTest::newRow("null") << QByteArray("null") << "";
}

void ActionTest::readsTexts()
{
    QFETCH(QByteArray, value);
    QFETCH(QString, expected);

    const QByteArray text = R"({"name": )" + value + R"(, "script": )" + value + R"(, "category": )" + value + "}";
    for (const auto &action : {Action::fromVariant(JsonTexts::read(text)), readEntity(text)}) {
        QCOMPARE(action.name, expected);
        QCOMPARE(action.script, expected);
        QCOMPARE(action.category, expected);
    }
}

void ActionTest::readsUids_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QUuid>("expected");

    QTest::newRow("braces") << QByteArray("\"{11111111-1111-1111-1111-111111111111}\"") << uid;
    QTest::newRow("no braces") << QByteArray("\"11111111-1111-1111-1111-111111111111\"") << uid;
    QTest::newRow("no uid") << QByteArray("\"power\"") << QUuid();
    QTest::newRow("null") << QByteArray("null") << QUuid();
    QTest::newRow("number") << QByteArray("1") << QUuid();
}

void ActionTest::readsUids()
{
    QFETCH(QByteArray, text);
    QFETCH(QUuid, expected);

    QCOMPARE(Action::fromVariant(JsonTexts::read("{\"uid\": " + text + "}")).uid, expected);
    QCOMPARE(JsonAPI::Action::fromVariant(JsonTexts::entity("{\"id\": " + text + "}")).uid, expected);
}

void ActionTest::parametersGoThroughALine()
{
    const std::vector<ParameterDeclaration> parameters{
        ParameterDeclaration::device("lamp", "Лампа", {"lamp"}, {"name"}),
        ParameterDeclaration::number("power", "Мощность", 1, 0, 2),
        ParameterDeclaration::string("text", "Текст", "да"),
        ParameterDeclaration::action("then", "Затем"),
        ParameterDeclaration::property("value", "Свойство", {"power"}),
    };

    const auto list = Action::parametersToList(parameters);

    QCOMPARE(list.size(), 5);
    QCOMPARE(list.at(2).toMap().value("identificator").toString(), QString("text"));
    QVERIFY(Action::parametersFromList(list) == parameters);
    QVERIFY(Action::parametersToList({}).isEmpty());
    QVERIFY(Action::parametersFromList({}).empty());
}

void ActionTest::parametersThatAreNoMapsAreDevices()
{
    const auto parameters = Action::parametersFromList({5, QVariant(), QVariantMap{{"type", 17}}});

    QVERIFY(parameters == std::vector<ParameterDeclaration>(3));
}

void ActionTest::readsTenThousandParameters()
{
    auto action = someAction();
    action.parametersDeclaration.assign(10000, action.parametersDeclaration.front());

    QVERIFY(JsonAPI::Action::fromVariant(JsonTexts::entity(JsonTexts::written(JsonAPI::Action::toVariant(action))))
            == action);
    QVERIFY(Action::fromVariant(action.toVariant()) == action);
}

void ActionTest::comparesByAllFields()
{
    const auto differs = [](void (*change)(Action &)) {
        auto action = someAction();
        change(action);
        return !(action == someAction());
    };
    QVERIFY(someAction() == someAction());
    QVERIFY(differs([](auto &action) { action.uid = QUuid(); }));
    QVERIFY(differs([](auto &action) { action.name = "x"; }));
    QVERIFY(differs([](auto &action) { action.script.chop(1); }));
    QVERIFY(differs([](auto &action) { action.category.clear(); }));
    QVERIFY(differs([](auto &action) { action.parametersDeclaration.pop_back(); }));
}

ONDIRA_TEST(ActionTest)
#include "ActionTest.moc"
