// SPDX-License-Identifier: GPL-3.0-or-later
#include "OperationsTestBase.h"

#include <QUrl>
#include <zmq.h>

using Grain = AbstractBackendCommunicator::StatisticsGrain;
using Entities = AbstractBackendCommunicator::StatisticsEntities;

Q_DECLARE_METATYPE(Grain)
Q_DECLARE_METATYPE(Entities)

namespace {

const QUuid requestId("{77777777-7777-7777-7777-777777777777}");
const QDateTime start(QDate(2026, 1, 2), QTime(3, 4, 5), Qt::UTC);
const QDateTime end(QDate(2026, 1, 3), QTime(0, 0), Qt::UTC);

const QByteArray statisticsDocument = R"({"data":[
    {"type":"statistics","id":"","attributes":{"from":"2026-01-02T03:04:05Z","to":"2026-01-03T00:00:00Z",
        "data":[{"entity":"{11111111-1111-1111-1111-111111111111}","type":"Lamp.qml","schema":["power"],
                 "values":[["2026-01-02T03:05:00Z",40],["2026-01-02T03:06:00Z",50]]}]}},
    {"type":"statistics","id":"second"}]})";

class BareLink : public JsonBackendCommunicator
{
public:
    BareLink()
        : JsonBackendCommunicator(WithoutSockets(), nullptr)
    {}
};

// The answers to statistics requests, in order.
struct Answers
{
    std::vector<std::pair<Model::Statistics, QUuid>> list;

    explicit Answers(AbstractBackendCommunicator &link)
    {
        QObject::connect(
            &link, &AbstractBackendCommunicator::statisticsReceived, &link,
            [this](const Model::Statistics &statistics, const QUuid &id) { list.emplace_back(statistics, id); });
    }

    // Exactly one answer, that says nothing.
    bool isOneEmpty() const
    {
        return list.size() == 1 && list.front().first == Model::Statistics() && list.front().second == requestId;
    }
};

void ask(AbstractBackendCommunicator &link)
{
    link.getStatistics(start, end, {{hallUid, "Lamp.qml"}}, Grain::Minute, requestId);
}

} // namespace

// Statistics, the journal and the state of the radios.
class StatisticsOperationsTest : public OperationsTestBase
{
    Q_OBJECT

private slots:
    void queryTellsWhatIsAskedFor_data();
    void queryTellsWhatIsAskedFor();
    void statisticsTakeTheLongTime();
    void statisticsAreAnswered();
    void replyWithoutThemIsAnsweredEmpty_data();
    void replyWithoutThemIsAnsweredEmpty();
    void binaryReplyIsAnsweredEmpty();
    void lostConnectionIsAnsweredEmpty();
    void lostReplyIsAnsweredEmpty();
    void refusedRequestIsAnsweredEmpty();
    void brokenTransportIsAnsweredEmpty();
    void requestsAreToldApart();
    void journalIsAskedForInMilliseconds();
    void journalReachesTheCallback();
    void journalOfAnErrorIsEmpty();
    void storeReachesTheCallback();
    void storeThatIsMissingIsNotTold_data();
    void storeThatIsMissingIsNotTold();
    void radiosAreAnnounced();
    void radiosWithErrorsAreNot();
    void errorsAreReportedTwice_data();
    void errorsAreReportedTwice();
};

void StatisticsOperationsTest::queryTellsWhatIsAskedFor_data()
{
    QTest::addColumn<QDateTime>("from");
    QTest::addColumn<QDateTime>("to");
    QTest::addColumn<Entities>("entities");
    QTest::addColumn<Grain>("grain");
    QTest::addColumn<QStringList>("expected");

    const QUuid kitchen("{22222222-2222-2222-2222-222222222222}");
    const QString from("from=2026-01-02T03:04:05Z");
    const QString to("to=2026-01-03T00:00:00Z");
    QTest::newRow("one series") << start << end << Entities{{hallUid, "Lamp.qml"}} << Grain::Minute
                                << QStringList{from, to,
                                               R"(entities={"{11111111-1111-1111-1111-111111111111}":["Lamp.qml"]})",
                                               "resolution=minute"};
    QTest::newRow("several") << start << end << Entities{{kitchen, "a"}, {hallUid, "b"}, {hallUid, "a"}} << Grain::Hour
                             << QStringList{from, to,
                                            R"(entities={"{11111111-1111-1111-1111-111111111111}":["b","a"],)"
                                            R"("{22222222-2222-2222-2222-222222222222}":["a"]})",
                                            "resolution=hour"};
    QTest::newRow("every series") << start << end << Entities{{hallUid, ""}} << Grain::Hour
                                  << QStringList{from, to,
                                                 R"(entities={"{11111111-1111-1111-1111-111111111111}":[""]})",
                                                 "resolution=hour"};
    QTest::newRow("odd type") << start << end << Entities{{hallUid, "a&b=#c% +\"я"}} << Grain::Hour
                              << QStringList{from, to,
                                             R"(entities={"{11111111-1111-1111-1111-111111111111}":["a&b=#c% +\"я"]})",
                                             "resolution=hour"};
    QTest::newRow("nothing") << QDateTime() << QDateTime() << Entities() << Grain::Minute
                             << QStringList{"entities={}", "resolution=minute"};
}

void StatisticsOperationsTest::queryTellsWhatIsAskedFor()
{
    QFETCH(QDateTime, from);
    QFETCH(QDateTime, to);
    QFETCH(Entities, entities);
    QFETCH(Grain, grain);

    m_link->getStatistics(from, to, entities, grain, requestId);
    const auto request = awaitRequest("statistics");

    QCOMPARE(request.method(), QString("GET"));
    QVERIFY(request.document.value("data").toArray().isEmpty());
    const auto parts = request.link().split('?');
    QCOMPARE(parts.size(), 2);
    QCOMPARE(parts.at(0), QString("statistics"));
    QStringList items;
    for (const auto &item : parts.at(1).split('&'))
        items << QUrl::fromPercentEncoding(item.toUtf8());
    QTEST(items, "expected");
}

void StatisticsOperationsTest::statisticsTakeTheLongTime()
{
    ask(*m_link);
    const auto statistics = m_link->takeReplyHandle(awaitRequest("statistics").id);
    m_link->getLog(start, end, {});
    const auto log = m_link->takeReplyHandle(awaitRequest("system_log").id);

    for (const auto &handler : {statistics, log}) {
        QVERIFY(handler);
        QVERIFY(handler->remainingTime() > testTimings().reply - 5000);
    }
}

void StatisticsOperationsTest::statisticsAreAnswered()
{
    Answers answers(*m_link);
    ask(*m_link);

    answerNext("statistics", statisticsDocument);

    QCOMPARE(answers.list.size(), size_t(1));
    QCOMPARE(answers.list.front().second, requestId);
    const auto &statistics = answers.list.front().first;
    QCOMPARE(statistics.from, start);
    QCOMPARE(statistics.to, end);
    QCOMPARE(statistics.categories.size(), size_t(1));
    QCOMPARE(statistics.categories.front().uid, hallUid);
    QCOMPARE(statistics.categories.front().type, QString("Lamp.qml"));
    QCOMPARE(statistics.size(), 2);
    m_link->disconnectFromServer();
    QCOMPARE(answers.list.size(), size_t(1));
}

void StatisticsOperationsTest::replyWithoutThemIsAnsweredEmpty_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<int>("errors");

    QTest::newRow("no data") << QByteArray(R"({"data":[]})") << 0;
    QTest::newRow("nothing") << QByteArray("{}") << 0;
    QTest::newRow("null") << QByteArray("null") << 0;
    QTest::newRow("no document") << QByteArray("{\"data\":") << 0;
    QTest::newRow("errors") << failed << 1;
}

void StatisticsOperationsTest::replyWithoutThemIsAnsweredEmpty()
{
    QFETCH(QByteArray, document);
    Answers answers(*m_link);
    ask(*m_link);

    answerNext("statistics", document);

    QVERIFY(answers.isOneEmpty());
    QTEST(static_cast<int>(m_link->errors.size()), "errors");
}

void StatisticsOperationsTest::binaryReplyIsAnsweredEmpty()
{
    Answers answers(*m_link);
    ask(*m_link);

    m_server->replyBinary(awaitRequest("statistics"), entry("data", "x"));

    QTRY_VERIFY(answers.isOneEmpty());
}

void StatisticsOperationsTest::lostConnectionIsAnsweredEmpty()
{
    Answers answers(*m_link);
    ask(*m_link);
    awaitRequest("statistics");

    m_link->disconnectFromServer();

    QVERIFY(answers.isOneEmpty());
}

void StatisticsOperationsTest::lostReplyIsAnsweredEmpty()
{
    auto timings = testTimings();
    timings.reply = 80;
    FakeServer server;
    server.answer = [&](const FakeServer::Request &request) {
        if (request.resource() != "statistics")
            server.reply(request, request.resource() == "auth" ? server.loginReply : "{}");
    };
    TestCommunicator link(timings);
    QVERIFY(logIn(link, server));
    Answers answers(link);

    ask(link);

    QTRY_VERIFY(answers.isOneEmpty());
    QTRY_COMPARE(link.getStatus(), AbstractBackendCommunicator::Connected);
    QCOMPARE(link.logins, 2);
    QCOMPARE(answers.list.size(), size_t(1));
}

void StatisticsOperationsTest::refusedRequestIsAnsweredEmpty()
{
    BareLink link;
    Answers answers(link);

    ask(link);
    QVERIFY(answers.list.empty()); // its caller is still asking

    QTRY_VERIFY(answers.isOneEmpty());
}

void StatisticsOperationsTest::brokenTransportIsAnsweredEmpty()
{
    allowMessages("^Exception during poll: Context was terminated");
    expectMessage(QtWarningMsg, "^A request could not be sent: Context was terminated");
    zmq_ctx_shutdown(m_link->requestContext()->handle());
    Answers answers(*m_link);

    ask(*m_link);
    QVERIFY(answers.list.empty());

    QTRY_VERIFY(answers.isOneEmpty());
}

void StatisticsOperationsTest::requestsAreToldApart()
{
    const QUuid other("{88888888-8888-8888-8888-888888888888}");
    Answers answers(*m_link);
    ask(*m_link);
    m_link->getStatistics(start, end, {}, Grain::Hour, other);
    QTRY_COMPARE(m_server->count("statistics"), 2);
    const auto requests = m_server->requestsFor("statistics");

    m_server->reply(requests.at(1), "{}");
    m_server->reply(requests.at(0), statisticsDocument);

    QTRY_COMPARE(answers.list.size(), size_t(2));
    QCOMPARE(answers.list.at(0).second, other);
    QCOMPARE(answers.list.at(0).first.size(), 0);
    QCOMPARE(answers.list.at(1).second, requestId);
    QCOMPARE(answers.list.at(1).first.size(), 2);
}

void StatisticsOperationsTest::journalIsAskedForInMilliseconds()
{
    m_link->getLog(start, end, {});
    const auto request = awaitRequest("system_log");

    QCOMPARE(request.method(), QString("GET"));
    QCOMPARE(request.link(), QString("system_log?from=1767323045000&to=1767398400000"));
}

void StatisticsOperationsTest::journalReachesTheCallback()
{
    std::vector<std::vector<Model::LogEntry>> calls;
    m_link->getLog(start, end, [&](const std::vector<Model::LogEntry> &entries) { calls.push_back(entries); });

    answerNext("system_log", R"({"data":[
        {"type":"log_entry","id":"1","attributes":{"time":"2026-01-02T03:04:05Z","cause":"user","username":"admin",
            "action":"Вход"}},
        {"type":"log_entry","id":"2","attributes":{"cause":"schedule"}}]})");

    QCOMPARE(calls.size(), size_t(1));
    QCOMPARE(calls.front().size(), size_t(2));
    QCOMPARE(calls.front().at(0).time, start);
    QCOMPARE(calls.front().at(0).username, QString("admin"));
    QCOMPARE(calls.front().at(0).action, QString("Вход"));
    QVERIFY(calls.front().at(0).cause == Model::LogEntry::Cause::User);
    QVERIFY(calls.front().at(1).cause == Model::LogEntry::Cause::Schedule);
}

void StatisticsOperationsTest::journalOfAnErrorIsEmpty()
{
    std::vector<std::vector<Model::LogEntry>> calls;
    m_link->getLog({}, {}, [&](const std::vector<Model::LogEntry> &entries) { calls.push_back(entries); });

    answerNext("system_log", failed);

    QCOMPARE(calls.size(), size_t(1));
    QVERIFY(calls.front().empty());
    QCOMPARE(m_link->errorCodes, QStringList{"failed"});
}

void StatisticsOperationsTest::storeReachesTheCallback()
{
    std::vector<Model::StatisticsInfo> calls;
    m_link->getStatisticsInfo([&](const Model::StatisticsInfo &info) { calls.push_back(info); });

    answerNext("statistics_info", R"({"data":[
        {"type":"statistics_info","id":"","attributes":{"data_from":"2026-01-02T03:04:05Z","statistics_size":5000000000,
            "log_size":7,"available_size":8}},
        {"type":"statistics_info","id":"second"}]})");

    QCOMPARE(calls.size(), size_t(1));
    QCOMPARE(calls.front().dataStart, start);
    QVERIFY(!calls.front().dataEnd.isValid());
    QCOMPARE(calls.front().statisticsSize, qint64(5000000000));
    QCOMPARE(calls.front().logSize, qint64(7));
    QCOMPARE(calls.front().availableSize, qint64(8));
}

void StatisticsOperationsTest::storeThatIsMissingIsNotTold_data()
{
    QTest::addColumn<QByteArray>("document");

    QTest::newRow("no data") << QByteArray(R"({"data":[]})");
    QTest::newRow("errors") << failed;
}

void StatisticsOperationsTest::storeThatIsMissingIsNotTold()
{
    QFETCH(QByteArray, document);
    int calls = 0;
    m_link->getStatisticsInfo([&](const Model::StatisticsInfo &) { ++calls; });

    answerNext("statistics_info", document);

    QCOMPARE(calls, 0);
}

void StatisticsOperationsTest::radiosAreAnnounced()
{
    std::vector<std::vector<Model::RadioStatus>> calls;
    connect(m_link.get(), &AbstractBackendCommunicator::radioStatusReceived, this,
            [&](const std::vector<Model::RadioStatus> &status) { calls.push_back(status); });
    m_link->getRadioStatus();

    answerNext("radio_status", R"({"data":[
        {"type":"radio_status","id":"mrf_0","attributes":{"device_type":"mrf","device_index":0,"device_open":true,
            "low_queue_latency":1,"normal_queue_latency":2,"high_queue_latency":3}},
        {"type":"radio_status","id":"lora_1","attributes":{"device_type":"lora","device_index":1}}]})");
    m_server->requests.clear();
    m_link->getRadioStatus();
    answerNext("radio_status", R"({"data":[]})");

    using Type = Model::RadioStatus::DeviceType;
    QCOMPARE(calls.size(), size_t(2));
    QCOMPARE(calls.at(0),
             (std::vector<Model::RadioStatus>{{Type::Mrf, 0, true, 1, 2, 3}, {Type::LoRa, 1, false, 0, 0, 0}}));
    QVERIFY(calls.at(1).empty());
}

void StatisticsOperationsTest::radiosWithErrorsAreNot()
{
    QSignalSpy radios(m_link.get(), &AbstractBackendCommunicator::radioStatusReceived);
    m_link->getRadioStatus();

    answerNext("radio_status", failed);

    QCOMPARE(radios.size(), 0);
}

void StatisticsOperationsTest::errorsAreReportedTwice_data()
{
    QTest::addColumn<QByteArray>("resource");

    QTest::newRow("radios") << QByteArray("radio_status");
    QTest::newRow("run hours") << QByteArray("power_on_statistics");
}

void StatisticsOperationsTest::errorsAreReportedTwice()
{
    QFETCH(QByteArray, resource);
    if (resource == "radio_status")
        m_link->getRadioStatus();
    else
        m_link->setPowerOnStatistics({});

    answerNext(resource, failed);

    QCOMPARE(m_link->errorCodes, (QStringList{"failed", "failed"}));
    QCOMPARE(m_link->errors.size(), size_t(2));
}

ONDIRA_TEST(StatisticsOperationsTest)
#include "StatisticsOperationsTest.moc"
