// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/ButtonState.h"
#include "model/JsonTexts.h"
#include "support/TestBase.h"

using State = Model::ButtonState::State;

Q_DECLARE_METATYPE(Model::ButtonState::State)

namespace {

const QUuid uid("{11111111-1111-1111-1111-111111111111}");

} // namespace

class ButtonStateTest : public TestBase
{
    Q_OBJECT

private slots:
    void newStateIsOff();
    void writesANumber_data();
    void writesANumber();
    void readsTheState_data();
    void readsTheState();
    void readsTheUid_data();
    void readsTheUid();
    void comparesByAllFields();
};

void ButtonStateTest::newStateIsOff()
{
    QVERIFY(Model::ButtonState().state == State::Off);
    QVERIFY(Model::ButtonState().uid.isNull());
    QVERIFY(JsonAPI::ButtonState::fromVariant(JsonAPI::Entity()) == Model::ButtonState());
}

void ButtonStateTest::writesANumber_data()
{
    QTest::addColumn<State>("state");
    QTest::addColumn<QByteArray>("number");

    QTest::newRow("off") << State::Off << QByteArray("0");
    QTest::newRow("on") << State::On << QByteArray("1");
}

void ButtonStateTest::writesANumber()
{
    QFETCH(State, state);
    QFETCH(QByteArray, number);

    QCOMPARE(JsonTexts::written(JsonAPI::ButtonState::toVariant({uid, state})),
             JsonTexts::compact(R"({"type": "button_state", "id": "{11111111-1111-1111-1111-111111111111}",
                                    "attributes": {"state": )"
                                + number + "}}"));
}

void ButtonStateTest::readsTheState_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<State>("state");

    QTest::newRow("off") << QByteArray(R"({"state": 0})") << State::Off;
    QTest::newRow("on") << QByteArray(R"({"state": 1})") << State::On;
    QTest::newRow("on as a fraction") << QByteArray(R"({"state": 1.0})") << State::On;
    QTest::newRow("on as text") << QByteArray(R"({"state": "1"})") << State::On;
    QTest::newRow("true") << QByteArray(R"({"state": true})") << State::On;
    QTest::newRow("false") << QByteArray(R"({"state": false})") << State::Off;
    QTest::newRow("absent") << QByteArray("{}") << State::Off;
    QTest::newRow("null") << QByteArray(R"({"state": null})") << State::Off;
    QTest::newRow("unknown") << QByteArray(R"({"state": 2})") << State::Off;
    QTest::newRow("negative") << QByteArray(R"({"state": -1})") << State::Off;
    QTest::newRow("huge") << QByteArray(R"({"state": 1e300})") << State::Off;
    QTest::newRow("one in the low half of 64 bits") << QByteArray(R"({"state": 4294967297})") << State::Off;
    QTest::newRow("word") << QByteArray(R"({"state": "on"})") << State::Off;
    QTest::newRow("list") << QByteArray(R"({"state": [1]})") << State::Off;
    QTest::newRow("map") << QByteArray(R"({"state": {"state": 1}})") << State::Off;
    QTest::newRow("another key") << QByteArray(R"({"State": 1, "on": true})") << State::Off;
}

void ButtonStateTest::readsTheState()
{
    QFETCH(QByteArray, attributes);

    const auto state = JsonAPI::ButtonState::fromVariant(
        JsonTexts::entity(R"({"id": "{11111111-1111-1111-1111-111111111111}", "attributes": )" + attributes + "}"));

    QTEST(state.state, "state");
    QCOMPARE(state.uid, uid);
}

void ButtonStateTest::readsTheUid_data()
{
    QTest::addColumn<QByteArray>("id");
    QTest::addColumn<QUuid>("expected");

    QTest::newRow("braces") << QByteArray("\"{11111111-1111-1111-1111-111111111111}\"") << uid;
    QTest::newRow("no braces") << QByteArray("\"11111111-1111-1111-1111-111111111111\"") << uid;
    QTest::newRow("no uid") << QByteArray("\"hall\"") << QUuid();
    QTest::newRow("null") << QByteArray("null") << QUuid();
    QTest::newRow("list") << QByteArray("[]") << QUuid();
}

void ButtonStateTest::readsTheUid()
{
    QFETCH(QByteArray, id);

    const auto state =
        JsonAPI::ButtonState::fromVariant(JsonTexts::entity("{\"id\": " + id + R"(, "attributes": {"state": 1}})"));

    QTEST(state.uid, "expected");
    QVERIFY(state.state == State::On);
}

void ButtonStateTest::comparesByAllFields()
{
    const Model::ButtonState state{uid, State::On};

    QVERIFY((state == Model::ButtonState{uid, State::On}));
    QVERIFY(!(state == Model::ButtonState{QUuid(), State::On}));
    QVERIFY(!(state == Model::ButtonState{uid, State::Off}));
}

ONDIRA_TEST(ButtonStateTest)
#include "ButtonStateTest.moc"
