// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/StatisticsInfoProvider.h"
#include "data/Records.h"
#include "data/SharedModels.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <memory>

using namespace Records;

class StatisticsInfoProviderTest : public TestBase
{
    Q_OBJECT

private slots:
    void countsWhatTheSiteHas()
    {
        FakeCommunicator link;
        StatisticsInfoProvider provider(link);
        QSignalSpy updated(&provider, &StatisticsInfoProvider::shopInfoUpdated);

        link.publishDevices({device(1, 0, "lamp.qml"), device(2, 0, "meter.qml"), device(3, 0, "lamp.qml"), device(4)});
        QCOMPARE(updated.count(), 1);
        link.publishZones({zone(1), zone(2)});
        QCOMPARE(updated.count(), 2);
        link.publishShopParts({part(1, "a")});
        QCOMPARE(updated.count(), 3);

        QCOMPARE(provider.property("devicesCount").toInt(), 4);
        QCOMPARE(provider.property("zonesCount").toInt(), 2);
        QCOMPARE(provider.property("partsCount").toInt(), 1);
        QCOMPARE(provider.property("countByUrl").toMap(), (QVariantMap{{"lamp.qml", 2}, {"meter.qml", 1}, {"", 1}}));
        link.publishDevices({device(1, 0, "lamp.qml")});
        QCOMPARE(provider.getCountByUrl(), (QVariantMap{{"lamp.qml", 1}}));
        QCOMPARE(provider.getDevicesCount(), 1);
    }

    void oneMadeLateReadsWhatWasPublished()
    {
        FakeCommunicator link;
        link.publishDevices({device(1, 0, "lamp.qml")});
        link.publishZones({zone(1), zone(2)});
        link.publishShopParts({part(1, "a")});
        SharedModels::instance().communicator = &link;

        const StatisticsInfoProvider provider;
        SharedModels::instance() = SharedModels();

        QCOMPARE(provider.getDevicesCount(), 1);
        QCOMPARE(provider.getZonesCount(), 2);
        QCOMPARE(provider.getPartsCount(), 1);
    }

    void asksForTheFiguresOfTheStore()
    {
        FakeCommunicator link;
        StatisticsInfoProvider provider(link);
        QSignalSpy updated(&provider, &StatisticsInfoProvider::statisticsInfoUpdated);
        Model::StatisticsInfo info;
        info.dataStart = QDateTime(QDate(2024, 1, 1), QTime(0, 0), Qt::UTC);
        info.dataEnd = info.dataStart.addDays(5);
        info.statisticsSize = 1536 * 1024 + 1023; // the rest of a kilobyte is cut off
        info.logSize = 1023;
        info.availableSize = 5LL * 1024 * 1024 * 1024 * 1024;

        provider.refresh();
        QCOMPARE(link.operations, QStringList({"getStatisticsInfo"}));
        QCOMPARE(updated.count(), 0);
        link.statisticsInfoCallback(info);

        QCOMPARE(updated.count(), 1);
        QCOMPARE(provider.property("statisticsStart").toDateTime(), info.dataStart);
        QCOMPARE(provider.property("statisticsEnd").toDateTime(), info.dataEnd);
        QCOMPARE(provider.property("databaseSizeMb").toDouble(), 1.5);
        QCOMPARE(provider.property("logSizeMb").toDouble(), 0.0);
        QCOMPARE(provider.property("availableSpaceMb").toDouble(), 5.0 * 1024 * 1024);
    }

    void anAnswerAfterItIsGoneIsPassedOver()
    {
        FakeCommunicator link;
        auto provider = std::make_unique<StatisticsInfoProvider>(link);
        QSignalSpy updated(provider.get(), &StatisticsInfoProvider::statisticsInfoUpdated);
        provider->refresh();

        provider.reset();
        link.statisticsInfoCallback({});

        QCOMPARE(updated.count(), 0);
    }

    void withoutACommunicatorItIsEmpty()
    {
        StatisticsInfoProvider provider;

        provider.refresh();

        QCOMPARE(provider.getDevicesCount(), 0);
        QCOMPARE(provider.getCountByUrl(), QVariantMap());
    }
};

ONDIRA_TEST(StatisticsInfoProviderTest)
#include "StatisticsInfoProviderTest.moc"
