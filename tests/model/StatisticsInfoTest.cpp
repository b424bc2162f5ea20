// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/StatisticsInfo.h"
#include "model/JsonTexts.h"
#include "support/TestBase.h"

using Model::StatisticsInfo;

namespace {

const QDateTime start({2023, 5, 1}, {0, 0}, Qt::UTC);
const QDateTime end({2024, 5, 1}, {12, 0, 30}, Qt::UTC);

StatisticsInfo withAttributes(const QByteArray &attributes)
{
    return JsonAPI::StatisticsInfo::fromVariant(JsonTexts::entity("{\"attributes\": " + attributes + "}"));
}

} // namespace

class StatisticsInfoTest : public TestBase
{
    Q_OBJECT

private slots:
    void newRecordIsEmpty();
    void writesEveryField();
    void writesAnEmptyRecord();
    void readsEveryField();
    void readsSizes_data();
    void readsSizes();
    void readsTimes_data();
    void readsTimes();
    void readsWhatItCan_data();
    void readsWhatItCan();
    void largeSizesGoThroughTheText();
    void comparesByAllFields();
};

void StatisticsInfoTest::newRecordIsEmpty()
{
    const StatisticsInfo info;

    QVERIFY(!info.dataStart.isValid() && !info.dataEnd.isValid());
    QCOMPARE(info.statisticsSize, 0LL);
    QCOMPARE(info.logSize, 0LL);
    QCOMPARE(info.availableSize, 0LL);
}

void StatisticsInfoTest::writesEveryField()
{
    const StatisticsInfo info{start, end, 5000000000, 2, 3};

    const auto map = JsonAPI::StatisticsInfo::toVariant(info).toMap();

    QCOMPARE(map.value("type").toString(), QString("statistics_info"));
    QCOMPARE(JsonTexts::written(map.value("attributes")), JsonTexts::compact(R"({
        "data_from": "2023-05-01T00:00:00Z", "data_to": "2024-05-01T12:00:30Z", "statistics_size": 5000000000,
        "log_size": 2, "available_size": 3})"));
}

void StatisticsInfoTest::writesAnEmptyRecord()
{
    QCOMPARE(JsonTexts::written(JsonAPI::StatisticsInfo::toVariant({}).toMap().value("attributes")),
             JsonTexts::compact(R"({"data_from": "", "data_to": "", "statistics_size": 0, "log_size": 0,
                                    "available_size": 0})"));
}

void StatisticsInfoTest::readsEveryField()
{
    const auto info = JsonAPI::StatisticsInfo::fromVariant(JsonTexts::entity(R"({
        "type": "statistics_info", "id": "1", "attributes": {
        "data_from": "2023-05-01T00:00:00Z", "data_to": "2024-05-01T12:00:30Z", "statistics_size": 5000000000,
        "log_size": 2, "available_size": 3, "colour": "red"}})"));

    QVERIFY((info == StatisticsInfo{start, end, 5000000000, 2, 3}));
}

void StatisticsInfoTest::readsSizes_data()
{
    QTest::addColumn<QByteArray>("size");
    QTest::addColumn<qint64>("expected");

    QTest::newRow("small") << QByteArray("7") << 7LL;
    QTest::newRow("beyond 32 bits") << QByteArray("1099511627776") << 1099511627776LL;
    QTest::newRow("text") << QByteArray("\"1099511627776\"") << 1099511627776LL;
    QTest::newRow("negative") << QByteArray("-1") << -1LL;
    QTest::newRow("beyond 64 bits") << QByteArray("1e300") << std::numeric_limits<qint64>::max();
    QTest::newRow("far below") << QByteArray("-1e300") << std::numeric_limits<qint64>::min();
    QTest::newRow("no number") << QByteArray("\"large\"") << 0LL;
    QTest::newRow("nan") << QByteArray("\"nan\"") << 0LL;
    QTest::newRow("null") << QByteArray("null") << 0LL;
    QTest::newRow("list") << QByteArray("[7]") << 0LL;
    QTest::newRow("map") << QByteArray("{}") << 0LL;
}

void StatisticsInfoTest::readsSizes()
{
    QFETCH(QByteArray, size);
    QFETCH(qint64, expected);

    const auto info = withAttributes("{\"statistics_size\": " + size + ", \"log_size\": " + size
                                     + ", \"available_size\": " + size + "}");

    QCOMPARE(info.statisticsSize, expected);
    QCOMPARE(info.logSize, expected);
    QCOMPARE(info.availableSize, expected);
}

void StatisticsInfoTest::readsTimes_data()
{
    QTest::addColumn<QByteArray>("time");
    QTest::addColumn<QDateTime>("expected");

    QTest::newRow("UTC") << QByteArray("\"2024-05-01T12:00:30Z\"") << end;
    QTest::newRow("offset") << QByteArray("\"2024-05-01T15:00:30+03:00\"") << end;
    QTest::newRow("local") << QByteArray("\"2024-05-01T12:00:30\"") << QDateTime({2024, 5, 1}, {12, 0, 30});
    QTest::newRow("bad") << QByteArray("\"yesterday\"") << QDateTime();
    QTest::newRow("null") << QByteArray("null") << QDateTime();
    QTest::newRow("number") << QByteArray("1714564830000") << QDateTime();
}

void StatisticsInfoTest::readsTimes()
{
    QFETCH(QByteArray, time);
    QFETCH(QDateTime, expected);

    const auto info = withAttributes("{\"data_from\": " + time + ", \"data_to\": " + time + "}");

    QCOMPARE(info.dataStart.isValid(), expected.isValid());
    QCOMPARE(info.dataStart, expected);
    QCOMPARE(info.dataEnd, expected);
}

void StatisticsInfoTest::readsWhatItCan_data()
{
    QTest::addColumn<QByteArray>("attributes");

    QTest::newRow("empty") << QByteArray("{}");
    QTest::newRow("nulls") << QByteArray(R"({"data_from": null, "data_to": null, "statistics_size": null,
                                             "log_size": null, "available_size": null})");
    QTest::newRow("wrong types") << QByteArray(R"({"data_from": {}, "data_to": [], "statistics_size": {},
                                                   "log_size": [], "available_size": "x"})");
    QTest::newRow("other keys") << QByteArray(R"({"dataStart": "2024-05-01T12:00:30Z", "statisticsSize": 5})");
    QTest::newRow("no map") << QByteArray("5");
}

void StatisticsInfoTest::readsWhatItCan()
{
    QFETCH(QByteArray, attributes);

    QVERIFY(withAttributes(attributes) == StatisticsInfo());
}

void StatisticsInfoTest::largeSizesGoThroughTheText()
{
    const StatisticsInfo info{start, end, 9007199254740991, 1LL << 50, 5};

    const auto text = JsonTexts::written(JsonAPI::StatisticsInfo::toVariant(info));

    QVERIFY(JsonAPI::StatisticsInfo::fromVariant(JsonTexts::entity(text)) == info);
}

void StatisticsInfoTest::comparesByAllFields()
{
    const StatisticsInfo info{start, end, 1, 2, 3};

    QVERIFY((info == StatisticsInfo{start, end, 1, 2, 3}));
    QVERIFY(!(info == StatisticsInfo{end, end, 1, 2, 3}));
    QVERIFY(!(info == StatisticsInfo{start, start, 1, 2, 3}));
    QVERIFY(!(info == StatisticsInfo{start, end, 0, 2, 3}));
    QVERIFY(!(info == StatisticsInfo{start, end, 1, 0, 3}));
    QVERIFY(!(info == StatisticsInfo{start, end, 1, 2, 0}));
}

ONDIRA_TEST(StatisticsInfoTest)
#include "StatisticsInfoTest.moc"
