// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/DevicePowerOnStatisticsListModel.h"
#include "data/Records.h"
#include "data/SignalLog.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <QAbstractItemModelTester>
#include <QtNumeric>

using namespace Records;
using Role = DevicePowerOnStatisticsListModel::Role;

namespace {

const QDateTime noon(QDate(2024, 5, 1), QTime(12, 0), Qt::UTC);

Model::DevicePowerOnInfo info(uint n, double hours, const QDateTime &time = noon)
{
    return {uid(n), hours, time};
}

} // namespace

class DevicePowerOnStatisticsListModelTest : public TestBase
{
    Q_OBJECT

private slots:
    void showsRunHours()
    {
        FakeCommunicator link;
        DevicePowerOnStatisticsListModel model(link);
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        SignalLog log(model);

        link.publishPowerOnStatistics({info(1, 12.75), info(2, 3)});

        QCOMPARE(log.take(), QStringList({"resetting", "reset"}));
        QCOMPARE(model.roleNames(), (QHash<int, QByteArray>{{257, "uid"}, {258, "lastUpdate"}, {259, "hours"}}));
        QCOMPARE(model.getByUid(text(1)), (QVariantMap{{"uid", text(1)}, {"lastUpdate", noon}, {"hours", 12.75}}));
        QCOMPARE(model.rowCount(), 2);
        QVERIFY(!value(model, 0, 260).isValid());
        QVERIFY(!model.data(QModelIndex(), Role::Uid).isValid());
        link.publishPowerOnStatistics({info(3, 1)});
        QCOMPARE(column(model, Role::Uid), QStringList({text(3)}));
    }

    void aModelMadeLateReadsWhatWasPublished()
    {
        FakeCommunicator link;
        link.publishPowerOnStatistics({info(1, 5)});

        const DevicePowerOnStatisticsListModel late(link);

        QCOMPARE(column(late, Role::Hours), QStringList({"5"}));
    }

    void setsHoursAsOfNow()
    {
        FakeCommunicator link;
        DevicePowerOnStatisticsListModel model(link);
        model.setClock([] { return noon; });

        model.setPowerOnHours({text(1), "no uid", text(2)}, 7.5);

        QCOMPARE(link.operations, QStringList({"setPowerOnStatistics"}));
        QVERIFY(link.powerOnInfos == (std::vector<Model::DevicePowerOnInfo>{info(1, 7.5), info(2, 7.5)}));
        QCOMPARE(model.rowCount(), 0);
    }

    void setsTheDateFromWhichTheServerCounts()
    {
        FakeCommunicator link;
        DevicePowerOnStatisticsListModel model(link);

        model.setPowerOnDate({text(1)}, noon.addDays(-9));

        QVERIFY(link.powerOnInfos == (std::vector<Model::DevicePowerOnInfo>{info(1, 0, noon.addDays(-9))}));
    }

    void whatMakesNoSenseIsNotSent()
    {
        FakeCommunicator link;
        DevicePowerOnStatisticsListModel model(link);

        model.setPowerOnHours({}, 5);
        model.setPowerOnHours({"no uid"}, 5);
        model.setPowerOnHours({text(1)}, qQNaN());
        model.setPowerOnHours({text(1)}, qInf());
        model.setPowerOnDate({text(1)}, QDateTime());
        model.setPowerOnDate({}, noon);

        QCOMPARE(link.operations, QStringList());
    }
};

ONDIRA_TEST(DevicePowerOnStatisticsListModelTest)
#include "DevicePowerOnStatisticsListModelTest.moc"
