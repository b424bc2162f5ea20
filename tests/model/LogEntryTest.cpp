// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/LogEntry.h"
#include "model/JsonTexts.h"
#include "support/TestBase.h"

using Model::LogEntry;
using Cause = LogEntry::Cause;

namespace {

const QDateTime noon({2024, 5, 1}, {12, 0, 30}, Qt::UTC);

LogEntry withAttributes(const QByteArray &attributes)
{
    return JsonAPI::LogEntry::fromVariant(JsonTexts::entity("{\"attributes\": " + attributes + "}"));
}

} // namespace

class LogEntryTest : public TestBase
{
    Q_OBJECT

private slots:
    void newEntryIsOfTheSystem();
    void writesEveryField();
    void idCountsMilliseconds();
    void writesAnEmptyEntry();
    void readsEveryField();
    void theTimeIsTheAttribute();
    void causes_data();
    void causes();
    void readsCauses_data();
    void readsCauses();
    void readsTimes_data();
    void readsTimes();
    void readsTexts_data();
    void readsTexts();
    void readsWhatItCan_data();
    void readsWhatItCan();
    void readsTenThousandEntries();
    void comparesByAllFields();
};

void LogEntryTest::newEntryIsOfTheSystem()
{
    const LogEntry entry;

    QVERIFY(!entry.time.isValid());
    QCOMPARE(entry.cause, Cause::System);
    QVERIFY(entry.username.isEmpty() && entry.action.isEmpty());
}

void LogEntryTest::writesEveryField()
{
    const LogEntry entry{noon, Cause::User, "admin", "Изменена зона"};

    QCOMPARE(JsonTexts::written(JsonAPI::LogEntry::toVariant(entry)), JsonTexts::compact(R"({
        "type": "log_entry", "id": "1714564830000", "attributes": {
            "time": "2024-05-01T12:00:30Z", "cause": "user", "username": "admin", "action": "Изменена зона"}})"));
}

void LogEntryTest::idCountsMilliseconds()
{
    const auto idOf = [](const QDateTime &time) {
        return JsonAPI::LogEntry::toVariant(LogEntry{time, Cause::User, "", ""}).toMap().value("id").toString();
    };

    QCOMPARE(idOf(noon.addMSecs(250)), QString("1714564830250"));
    QCOMPARE(idOf(noon.toOffsetFromUtc(3 * 3600)), QString("1714564830000"));
    QCOMPARE(idOf(QDateTime({1969, 12, 31}, {23, 59, 59}, Qt::UTC)), QString("-1000"));
}

void LogEntryTest::writesAnEmptyEntry()
{
    QCOMPARE(JsonTexts::written(JsonAPI::LogEntry::toVariant({})), JsonTexts::compact(R"({
        "type": "log_entry", "id": "0", "attributes": {"time": "", "cause": "system", "username": "", "action": ""}})"));
}

void LogEntryTest::readsEveryField()
{
    const auto entry = JsonAPI::LogEntry::fromVariant(JsonTexts::entity(R"({
        "type": "log_entry", "id": "1714564830000", "attributes": {"time": "2024-05-01T12:00:30Z",
            "cause": "schedule", "username": "admin", "action": "Изменена зона", "level": 5}})"));

    QVERIFY((entry == LogEntry{noon, Cause::Schedule, "admin", "Изменена зона"}));
}

void LogEntryTest::theTimeIsTheAttribute()
{
    QCOMPARE(JsonAPI::LogEntry::fromVariant(
                 JsonTexts::entity(R"({"id": "5", "attributes": {"time": "2024-05-01T12:00:30Z"}})"))
                 .time,
             noon);
    QVERIFY(!JsonAPI::LogEntry::fromVariant(JsonTexts::entity(R"({"id": "1714564830000"})")).time.isValid());
}

void LogEntryTest::causes_data()
{
    QTest::addColumn<int>("cause");
    QTest::addColumn<QString>("text");

    QTest::newRow("user") << 0 << "user";
    QTest::newRow("system") << 1 << "system";
    QTest::newRow("schedule") << 2 << "schedule";
}

void LogEntryTest::causes()
{
    QFETCH(int, cause);
    QFETCH(QString, text);

    QCOMPARE(LogEntry::causeToString(static_cast<Cause>(cause)), text);
    QCOMPARE(static_cast<int>(LogEntry::causeFromString(text)), cause);
}

void LogEntryTest::readsCauses_data()
{
    QTest::addColumn<QByteArray>("cause");
    QTest::addColumn<int>("expected");

    QTest::newRow("user") << QByteArray("\"user\"") << 0;
    QTest::newRow("system") << QByteArray("\"system\"") << 1;
    QTest::newRow("schedule") << QByteArray("\"schedule\"") << 2;
    QTest::newRow("unknown") << QByteArray("\"weather\"") << 1;
    QTest::newRow("another case") << QByteArray("\"User\"") << 1;
    QTest::newRow("empty") << QByteArray("\"\"") << 1;
    QTest::newRow("null") << QByteArray("null") << 1;
    QTest::newRow("number") << QByteArray("0") << 1;
    QTest::newRow("list") << QByteArray("[\"user\"]") << 1;
}

void LogEntryTest::readsCauses()
{
    QFETCH(QByteArray, cause);
    QFETCH(int, expected);

    QCOMPARE(static_cast<int>(withAttributes("{\"cause\": " + cause + "}").cause), expected);
}

void LogEntryTest::readsTimes_data()
{
    QTest::addColumn<QByteArray>("time");
    QTest::addColumn<QDateTime>("expected");

    QTest::newRow("UTC") << QByteArray("\"2024-05-01T12:00:30Z\"") << noon;
    QTest::newRow("offset") << QByteArray("\"2024-05-01T15:00:30+03:00\"") << noon;
    QTest::newRow("local") << QByteArray("\"2024-05-01T12:00:30\"") << QDateTime({2024, 5, 1}, {12, 0, 30});
    QTest::newRow("milliseconds") << QByteArray("\"2024-05-01T12:00:30.250Z\"") << noon.addMSecs(250);
    QTest::newRow("bad") << QByteArray("\"noon\"") << QDateTime();
    QTest::newRow("null") << QByteArray("null") << QDateTime();
    QTest::newRow("number") << QByteArray("1714564830000") << QDateTime();
}

void LogEntryTest::readsTimes()
{
    QFETCH(QByteArray, time);
    QFETCH(QDateTime, expected);

    const auto entry = withAttributes("{\"time\": " + time + "}");

    QCOMPARE(entry.time.isValid(), expected.isValid());
    QCOMPARE(entry.time, expected);
}

void LogEntryTest::readsTexts_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("expected");

    QTest::newRow("text") << QByteArray("\"<b>Свет</b>\"") << "<b>Свет</b>";
    QTest::newRow("number") << QByteArray("5") << "5";
    QTest::newRow("null") << QByteArray("null") << "";
    QTest::newRow("list") << QByteArray("[1]") << "";
}

void LogEntryTest::readsTexts()
{
    QFETCH(QByteArray, value);
    QFETCH(QString, expected);

    const auto entry = withAttributes("{\"username\": " + value + ", \"action\": " + value + "}");

    QCOMPARE(entry.username, expected);
    QCOMPARE(entry.action, expected);
}

void LogEntryTest::readsWhatItCan_data()
{
    QTest::addColumn<QByteArray>("attributes");

    QTest::newRow("empty") << QByteArray("{}");
    QTest::newRow("nulls") << QByteArray(R"({"time": null, "cause": null, "username": null, "action": null})");
    QTest::newRow("wrong types") << QByteArray(R"({"time": {}, "cause": {}, "username": [], "action": {}})");
    QTest::newRow("no map") << QByteArray("[5]");
}

void LogEntryTest::readsWhatItCan()
{
    QFETCH(QByteArray, attributes);

    QVERIFY(withAttributes(attributes) == LogEntry());
}

void LogEntryTest::readsTenThousandEntries()
{
    std::vector<JsonAPI::Entity> entities;
    for (int i = 0; i < 10000; ++i) {
        const LogEntry entry{noon.addSecs(i), Cause::User, "admin", QString::number(i)};
        entities.push_back(JsonTexts::entity(JsonTexts::written(JsonAPI::LogEntry::toVariant(entry))));
    }

    const auto entries = JsonAPI::Entity::toType(entities, JsonAPI::LogEntry::fromVariant);

    QCOMPARE(entries.size(), std::size_t(10000));
    QVERIFY((entries.back() == LogEntry{noon.addSecs(9999), Cause::User, "admin", "9999"}));
}

void LogEntryTest::comparesByAllFields()
{
    const LogEntry entry{noon, Cause::User, "admin", "Свет"};

    QVERIFY((entry == LogEntry{noon, Cause::User, "admin", "Свет"}));
    QVERIFY(!(entry == LogEntry{noon.addMSecs(1), Cause::User, "admin", "Свет"}));
    QVERIFY(!(entry == LogEntry{noon, Cause::System, "admin", "Свет"}));
    QVERIFY(!(entry == LogEntry{noon, Cause::User, "user", "Свет"}));
    QVERIFY(!(entry == LogEntry{noon, Cause::User, "admin", "свет"}));
}

ONDIRA_TEST(LogEntryTest)
#include "LogEntryTest.moc"
