// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/StatisticsProvider.h"
#include "data/SharedModels.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <memory>

namespace {

using Grain = AbstractBackendCommunicator::StatisticsGrain;
using Entities = AbstractBackendCommunicator::StatisticsEntities;

const QUuid lamp("{00000001-0000-0000-0000-000000000000}");
const QUuid meter("{00000002-0000-0000-0000-000000000000}");

QDateTime day(int number)
{
    return QDateTime(QDate(2024, 5, 1), QTime(12, 0), Qt::UTC).addDays(number);
}

Model::Statistics answer(int points)
{
    Model::Statistics statistics;
    statistics.from = day(0);
    statistics.to = day(1);
    for (int i = 0; i < points; ++i)
        statistics.addData(lamp, {"power"}, "Lamp.qml", day(0).addSecs(i * 60), {i});
    return statistics;
}

// Answers before the request returns, as the link does when it cannot send.
class InstantCommunicator : public FakeCommunicator
{
public:
    void getStatistics(const QDateTime &start, const QDateTime &end, const StatisticsEntities &entities,
                       StatisticsGrain grain, const QUuid &requestId) override
    {
        FakeCommunicator::getStatistics(start, end, entities, grain, requestId);
        answerStatistics({}, requestId);
    }
};

struct Screen
{
    Screen()
        : provider(std::make_unique<StatisticsProvider>(link))
        , received(provider.get(), &StatisticsProvider::statisticsReceived)
        , raw(provider.get(), &StatisticsProvider::rawStatisticsReceived)
        , loading(provider.get(), &StatisticsProvider::loadingChanged)
    {
        provider->setClock([] { return day(3); });
        provider->setFrom(day(0));
        provider->setTo(day(1));
        provider->setObjects({lamp.toString()});
        provider->setTypes({"Lamp.qml"});
    }

    QUuid ask()
    {
        provider->requestStatistics();
        return link.statisticsRequest;
    }

    int points(int reply) const { return raw.at(reply).at(0).value<Model::Statistics>().size(); }

    FakeCommunicator link;
    std::unique_ptr<StatisticsProvider> provider;
    QSignalSpy received;
    QSignalSpy raw;
    QSignalSpy loading;
};

} // namespace

class StatisticsProviderTest : public TestBase
{
    Q_OBJECT

private slots:
    void asksTheServer()
    {
        Screen screen;
        screen.provider->setObjects({meter.toString(), lamp.toString()});
        screen.provider->setTypes({"a", "b"});

        screen.ask();

        QCOMPARE(screen.link.operations, QStringList({"getStatistics"}));
        QCOMPARE(screen.link.from, day(0));
        QCOMPARE(screen.link.to, day(1));
        QVERIFY(screen.link.statisticsEntities == (Entities{{meter, "a"}, {meter, "b"}, {lamp, "a"}, {lamp, "b"}}));
        QVERIFY(!screen.link.statisticsRequest.isNull());
        QVERIFY(screen.provider->isLoading());
        QCOMPARE(screen.loading.count(), 1);
    }

    void withoutTypesAsksForAllOfEachObject()
    {
        Screen screen;
        screen.provider->setObjects({meter.toString(), lamp.toString()});
        screen.provider->setTypes({});

        screen.ask();

        QVERIFY(screen.link.statisticsEntities == (Entities{{meter, ""}, {lamp, ""}}));
    }

    void deliversTheAnswer()
    {
        Screen screen;
        const auto id = screen.ask();
        const auto statistics = answer(3);

        screen.link.answerStatistics(statistics, id);

        QCOMPARE(screen.received.count(), 1);
        QCOMPARE(screen.raw.count(), 1);
        QCOMPARE(screen.received[0][0].toMap(), statistics.toVariant().toMap());
        QVERIFY(screen.raw[0][0].value<Model::Statistics>() == statistics);
        QVERIFY(!screen.provider->isLoading());
        QCOMPARE(screen.loading.count(), 2);
        screen.link.answerStatistics(statistics, id);
        QCOMPARE(screen.received.count(), 1);
    }

    void answersOfOthersAreIgnored()
    {
        Screen screen;
        screen.ask();

        screen.link.answerStatistics(answer(3), QUuid::createUuid());
        screen.link.answerStatistics(answer(3), QUuid());

        QCOMPARE(screen.received.count(), 0);
        QVERIFY(screen.provider->isLoading());
    }

    void theSameRequestTwiceIsOne()
    {
        Screen screen;
        const auto id = screen.ask();

        screen.ask();
        QCOMPARE(screen.link.operations.size(), 1);
        screen.link.answerStatistics(answer(3), id);

        QCOMPARE(screen.received.count(), 1);
        QVERIFY(!screen.provider->isLoading());
    }

    void anAnsweredRequestMayBeRepeated()
    {
        Screen screen;
        screen.link.answerStatistics(answer(1), screen.ask());

        screen.link.answerStatistics(answer(2), screen.ask());

        QCOMPARE(screen.link.operations.size(), 2);
        QCOMPARE(screen.points(1), 2);
    }

    void eachParameterMakesAnotherRequest_data()
    {
        QTest::addColumn<QByteArray>("property");
        QTest::addColumn<QVariant>("value");

        QTest::newRow("from") << QByteArray("from") << QVariant(day(-1));
        QTest::newRow("no start") << QByteArray("from") << QVariant(QDateTime());
        QTest::newRow("to") << QByteArray("to") << QVariant(day(2));
        QTest::newRow("resolution") << QByteArray("resolution") << QVariant(1);
        QTest::newRow("objects") << QByteArray("objects") << QVariant(QStringList{meter.toString()});
        QTest::newRow("types") << QByteArray("types") << QVariant(QStringList{"Meter.qml"});
    }

    void eachParameterMakesAnotherRequest()
    {
        QFETCH(QByteArray, property);
        QFETCH(QVariant, value);
        Screen screen;
        const auto older = screen.ask();

        screen.provider->setProperty(property, value);
        const auto newer = screen.ask();
        QVERIFY(newer != older);
        screen.link.answerStatistics(answer(1), older);
        QCOMPARE(screen.received.count(), 0);
        QVERIFY(screen.provider->isLoading());
        screen.link.answerStatistics(answer(2), newer);

        QCOMPARE(screen.received.count(), 1);
        QCOMPARE(screen.points(0), 2);
        QVERIFY(!screen.provider->isLoading());
    }

    void theOrderOfObjectsCounts()
    {
        Screen screen;
        screen.provider->setObjects({lamp.toString(), meter.toString()});
        screen.ask();

        screen.provider->setObjects({meter.toString(), lamp.toString()});
        screen.ask();

        QCOMPARE(screen.link.operations.size(), 2);
    }

    void aSupersededAnswerThatComesLastIsThrownAway()
    {
        Screen screen;
        const auto older = screen.ask();
        screen.provider->setTo(day(2));
        const auto newer = screen.ask();

        screen.link.answerStatistics(answer(2), newer);
        QVERIFY(!screen.provider->isLoading());
        screen.link.answerStatistics(answer(1), older);

        QCOMPARE(screen.received.count(), 1);
        QCOMPARE(screen.points(0), 2);
    }

    void backToTheFirstIsAThirdRequest()
    {
        Screen screen;
        const auto first = screen.ask();
        screen.provider->setTo(day(2));
        const auto second = screen.ask();
        screen.provider->setTo(day(1));

        const auto third = screen.ask();
        QCOMPARE(screen.link.operations.size(), 3);
        screen.link.answerStatistics(answer(1), first);
        screen.link.answerStatistics(answer(2), second);
        QCOMPARE(screen.received.count(), 0);
        screen.link.answerStatistics(answer(3), third);

        QCOMPARE(screen.received.count(), 1);
        QCOMPARE(screen.points(0), 3);
    }

    void aSupersededRequestServesNobody()
    {
        Screen screen;
        screen.ask(); // its answer is late
        screen.provider->setTo(day(2));
        screen.link.answerStatistics(answer(2), screen.ask());
        screen.provider->setTo(day(1));

        const auto again = screen.ask();
        QCOMPARE(screen.link.operations.size(), 3);
        screen.link.answerStatistics(answer(3), again);

        QCOMPARE(screen.points(1), 3);
    }

    void withoutObjectsAnswersAtOnce()
    {
        Screen screen;
        screen.provider->setObjects({});

        screen.provider->requestStatistics();

        QCOMPARE(screen.link.operations, QStringList());
        QCOMPARE(screen.received.count(), 1);
        const auto map = screen.received[0][0].toMap();
        QCOMPARE(map.value("data").toList(), QVariantList());
        QVERIFY(!map.value("from").toDateTime().isValid());
        QVERIFY(!map.value("to").toDateTime().isValid());
        QVERIFY(!screen.provider->isLoading());
        QVERIFY(screen.loading.count() >= 1);
    }

    void anEmptyAnswerIsNotReplacedByAnOlderOne()
    {
        Screen screen;
        const auto older = screen.ask();
        screen.provider->setObjects({});

        screen.provider->requestStatistics();
        QVERIFY(!screen.provider->isLoading());
        screen.link.answerStatistics(answer(1), older);
        QCOMPARE(screen.received.count(), 1);
        screen.provider->setObjects({lamp.toString()});
        screen.link.answerStatistics(answer(2), screen.ask());

        QCOMPARE(screen.received.count(), 2);
        QCOMPARE(screen.points(1), 2);
    }

    void choosesTheGrain_data()
    {
        QTest::addColumn<int>("resolution");
        QTest::addColumn<QDateTime>("from");
        QTest::addColumn<QDateTime>("to");
        QTest::addColumn<int>("seconds"); // the present is day 100
        QTest::addColumn<bool>("hourly");

        QTest::newRow("seven days") << 0 << day(93) << day(100) << 60 << false;
        QTest::newRow("seven days and a second") << 0 << day(93) << day(100).addSecs(1) << 3600 << true;
        QTest::newRow("eight days") << 0 << day(92) << day(100) << 3600 << true;
        QTest::newRow("89 days ago") << 0 << day(11) << day(12) << 60 << false;
        QTest::newRow("almost 90 days ago") << 0 << day(10).addSecs(1) << day(12) << 60 << false;
        QTest::newRow("90 days ago") << 0 << day(10) << day(11) << 3600 << true;
        QTest::newRow("in the future") << 0 << day(200) << day(201) << 60 << false;
        QTest::newRow("backwards") << 0 << day(100) << day(50) << 60 << false;
        QTest::newRow("no bounds") << 0 << QDateTime() << QDateTime() << 60 << false;
        QTest::newRow("no start") << 0 << QDateTime() << day(100) << 60 << false;
        QTest::newRow("no end, old") << 0 << day(0) << QDateTime() << 3600 << true;
        QTest::newRow("minutes of old days") << 1 << day(0) << day(100) << 60 << false;
        QTest::newRow("hours of today") << 2 << day(100) << day(100) << 3600 << true;
        QTest::newRow("unknown") << 3 << day(93) << day(100) << 0 << false;
        QTest::newRow("negative") << -1 << day(93) << day(100) << 0 << false;
    }

    void choosesTheGrain()
    {
        QFETCH(int, resolution);
        QFETCH(QDateTime, from);
        QFETCH(QDateTime, to);
        QFETCH(bool, hourly);
        Screen screen;
        screen.provider->setClock([] { return day(100); });
        screen.provider->setResolution(resolution);
        screen.provider->setFrom(from);
        screen.provider->setTo(to);

        screen.ask();

        QTEST(screen.provider->getResolutionSeconds(), "seconds");
        QVERIFY(screen.link.statisticsGrain == (hourly ? Grain::Hour : Grain::Minute));
    }

    void settersSignalChangesOnly()
    {
        FakeCommunicator link;
        StatisticsProvider provider(link);
        provider.setClock([] { return day(100); });
        QSignalSpy from(&provider, &StatisticsProvider::fromChanged);
        QSignalSpy to(&provider, &StatisticsProvider::toChanged);
        QSignalSpy resolution(&provider, &StatisticsProvider::resolutionChanged);
        QSignalSpy seconds(&provider, &StatisticsProvider::resolutionSecondsChanged);
        QSignalSpy objects(&provider, &StatisticsProvider::objectsChanged);
        QSignalSpy types(&provider, &StatisticsProvider::typesChanged);

        for (int i = 0; i < 2; ++i) {
            provider.setFrom(day(99));
            provider.setTo(day(100));
            provider.setResolution(2);
            provider.setObjects({lamp.toString()});
            provider.setTypes({"a"});
        }

        QCOMPARE(from.count(), 1);
        QCOMPARE(to.count(), 1);
        QCOMPARE(resolution.count(), 1);
        QCOMPARE(seconds.count(), 1);
        QCOMPARE(objects.count(), 2); // always
        QCOMPARE(types.count(), 1);
        QCOMPARE(provider.getObjects(), QStringList({lamp.toString()}));
        provider.setFrom(QDateTime::fromMSecsSinceEpoch(0, Qt::UTC));
        provider.setFrom(QDateTime());
        QCOMPARE(from.count(), 3);
        QVERIFY(!provider.getFrom().isValid());
    }

    void aTextThatIsNoUidIsTheNullOne()
    {
        Screen screen;
        screen.provider->setObjects({"no uid"});

        screen.ask();

        QVERIFY(screen.link.statisticsEntities == (Entities{{QUuid(), "Lamp.qml"}}));
    }

    void aSlotMayAskForMore()
    {
        Screen screen;
        auto *const provider = screen.provider.get();
        int replies = 0;
        connect(provider, &StatisticsProvider::statisticsReceived, provider, [&] {
            if (++replies > 1)
                return;
            provider->setTo(day(2));
            provider->requestStatistics();
        });

        screen.link.answerStatistics(answer(1), screen.ask());
        QCOMPARE(screen.link.operations.size(), 2);
        QVERIFY(provider->isLoading());
        screen.link.answerStatistics(answer(2), screen.link.statisticsRequest);

        QCOMPARE(screen.received.count(), 2);
        QVERIFY(!provider->isLoading());
    }

    void aSlotMayDestroyTheProvider_data()
    {
        QTest::addColumn<bool>("atRaw");

        QTest::newRow("at the raw answer") << true;
        QTest::newRow("at the answer") << false;
    }

    void aSlotMayDestroyTheProvider()
    {
        QFETCH(bool, atRaw);
        Screen screen;
        if (atRaw)
            connect(screen.provider.get(), &StatisticsProvider::rawStatisticsReceived, this,
                    [&] { screen.provider.reset(); });
        else
            connect(screen.provider.get(), &StatisticsProvider::statisticsReceived, this,
                    [&] { screen.provider.reset(); });
        const auto id = screen.ask();

        screen.link.answerStatistics(answer(1), id);
        screen.link.answerStatistics(answer(1), id);

        QVERIFY(!screen.provider);
        QCOMPARE(screen.raw.count(), 1);
    }

    void anAnswerMayComeBeforeTheCallReturns()
    {
        InstantCommunicator link;
        StatisticsProvider provider(link);
        QSignalSpy received(&provider, &StatisticsProvider::statisticsReceived);
        provider.setObjects({lamp.toString()});

        provider.requestStatistics();
        provider.requestStatistics();

        QCOMPARE(received.count(), 2);
        QVERIFY(!provider.isLoading());
    }

    void requestsGoWithTheProvider()
    {
        Screen screen;
        const auto id = screen.ask();

        screen.provider.reset();
        screen.link.answerStatistics(answer(1), id);

        QCOMPARE(screen.received.count(), 0);
    }

    void thePlainOneTakesTheSharedCommunicator()
    {
        FakeCommunicator link;
        SharedModels::instance().communicator = &link;
        StatisticsProvider provider;
        SharedModels::instance() = SharedModels();
        provider.setObjects({lamp.toString()});

        provider.requestStatistics();

        QCOMPARE(link.operations, QStringList({"getStatistics"}));
    }

    void withoutACommunicatorItWarns()
    {
        StatisticsProvider provider;
        provider.setObjects({lamp.toString()});
        expectMessage(QtWarningMsg, "Trying to perform a null chunked request");

        provider.requestStatistics();

        QVERIFY(provider.isLoading());
    }
};

ONDIRA_TEST(StatisticsProviderTest)
#include "StatisticsProviderTest.moc"
