// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/IndicatorState.h"
#include "model/JsonTexts.h"
#include "model/OddNumbers.h"
#include "support/TestBase.h"

namespace {

using State = Model::IndicatorState;

const QUuid uid("{11111111-1111-1111-1111-111111111111}");

const QByteArray document = R"({
    "type": "indicator_state", "id": "{11111111-1111-1111-1111-111111111111}",
    "attributes": {"opacity": 0.5, "icon": "alert/error", "icon_color": "red", "text": "Авария",
                   "text_color": "#FFFFFF"}})";

State alarm()
{
    State state;
    state.uid = uid;
    state.opacity = 0.5;
    state.text = QString("Авария");
    state.textColor = QString("#FFFFFF");
    state.icon = QString("alert/error");
    state.iconColor = QString("red");
    return state;
}

// The four texts in the order of the struct, with the key under which each is sent.
struct Text
{
    const char *key;
    boost::optional<QString> State::*field;
};

const Text texts[] = {{"text", &State::text},
                      {"text_color", &State::textColor},
                      {"icon", &State::icon},
                      {"icon_color", &State::iconColor}};

State withAttributes(const QByteArray &attributes)
{
    return JsonAPI::IndicatorState::fromVariant(JsonTexts::entity("{\"attributes\": " + attributes + "}"));
}

} // namespace

class IndicatorStateTest : public TestBase
{
    Q_OBJECT

private slots:
    void newStateOverridesNothing();
    void writesEveryField();
    void readsEveryField();
    void eachTextIsWrittenOnlyWhenItIsSet();
    void eachTextIsReadOnlyWhenItsKeyIsThere();
    void readsTexts_data();
    void readsTexts();
    void readsTheOpacity_data();
    void readsTheOpacity();
    void comparesByAllFields();
};

void IndicatorStateTest::newStateOverridesNothing()
{
    const State state;

    QCOMPARE(state.opacity, 1.0);
    for (const auto &text : texts)
        QVERIFY(!(state.*text.field));
    QVERIFY(withAttributes("{}") == state);
}

void IndicatorStateTest::writesEveryField()
{
    QCOMPARE(JsonTexts::written(JsonAPI::IndicatorState::toVariant(alarm())), JsonTexts::compact(document));
    QCOMPARE(JsonTexts::written(JsonAPI::IndicatorState::toVariant({})), JsonTexts::compact(R"({
        "type": "indicator_state", "id": "{00000000-0000-0000-0000-000000000000}", "attributes": {"opacity": 1}})"));
}

void IndicatorStateTest::readsEveryField()
{
    QVERIFY(JsonAPI::IndicatorState::fromVariant(JsonTexts::entity(document)) == alarm());
}

void IndicatorStateTest::eachTextIsWrittenOnlyWhenItIsSet()
{
    for (const auto &text : texts) {
        State state;
        state.*text.field = QString();

        const auto attributes = JsonAPI::Entity(JsonAPI::IndicatorState::toVariant(state)).attributes;

        QCOMPARE(attributes.size(), 2);
        QVERIFY2(attributes.contains(text.key), text.key);
    }
}

void IndicatorStateTest::eachTextIsReadOnlyWhenItsKeyIsThere()
{
    for (const auto &text : texts) {
        const auto state = withAttributes("{\"" + QByteArray(text.key) + "\": \"\"}");

        for (const auto &other : texts)
            QCOMPARE(bool(state.*other.field), other.field == text.field);
        QCOMPARE(*(state.*text.field), QString()); // an empty one overrides
    }
}

void IndicatorStateTest::readsTexts_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("expected");

    QTest::newRow("text") << QByteArray("\"a\"") << "a";
    QTest::newRow("empty") << QByteArray("\"\"") << "";
    QTest::newRow("null") << QByteArray("null") << "";
    QTest::newRow("number") << QByteArray("21.5") << "21.5";
    QTest::newRow("true") << QByteArray("true") << "true";
    QTest::newRow("list") << QByteArray("[\"a\"]") << "";
    QTest::newRow("map") << QByteArray("{}") << "";
}

void IndicatorStateTest::readsTexts()
{
    QFETCH(QByteArray, value);
    QFETCH(QString, expected);

    const auto state =
        withAttributes(QByteArray(R"({"text": %, "text_color": %, "icon": %, "icon_color": %})").replace("%", value));

    for (const auto &text : texts) {
        QVERIFY2(state.*text.field, text.key);
        QCOMPARE(*(state.*text.field), expected);
    }
}

void IndicatorStateTest::readsTheOpacity_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<double>("opacity");

    QTest::newRow("fraction") << QByteArray("0.25") << 0.25;
    QTest::newRow("zero") << QByteArray("0") << 0.0;
    QTest::newRow("negative") << QByteArray("-3") << -3.0;
    QTest::newRow("above one") << QByteArray("7") << 7.0;
    QTest::newRow("text") << QByteArray("\"0.5\"") << 0.5;
    for (const auto &number : oddNumbers)
        QTest::newRow(number.first) << number.second << 1.0;
}

void IndicatorStateTest::readsTheOpacity()
{
    QFETCH(QByteArray, value);

    QTEST(withAttributes("{\"opacity\": " + value + "}").opacity, "opacity");
}

void IndicatorStateTest::comparesByAllFields()
{
    const auto differs = [](const std::function<void(State &)> &change) {
        auto other = alarm();
        change(other);
        return !(other == alarm());
    };

    QVERIFY(alarm() == alarm());
    QVERIFY(differs([](State &other) { other.uid = QUuid(); }));
    QVERIFY(differs([](State &other) { other.opacity = 1; }));
    for (const auto &text : texts) {
        QVERIFY(differs([&](State &other) { other.*text.field = boost::none; }));
        QVERIFY(differs([&](State &other) { other.*text.field = QString(); }));
    }
}

ONDIRA_TEST(IndicatorStateTest)
#include "IndicatorStateTest.moc"
