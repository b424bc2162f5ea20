// SPDX-License-Identifier: GPL-3.0-or-later
#include "schedules/ScheduleWeeksListModel.h"
#include "Points.h"
#include "data/SignalLog.h"
#include "support/TestBase.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>

using namespace Records;
using WeekRole = ScheduleWeeksListModel::Role;

namespace {

// Weeks of these uids, named so that they stand in the order of the uids.
Model::Shop site(const QList<uint> &weeks)
{
    Model::Shop shop;
    for (const uint n : weeks) {
        const auto name = QStringLiteral("Week %1").arg(n, 4, 10, QLatin1Char('0'));
        shop.scheduleWeeks.insert(uid(n), {uid(n), name, {}});
    }
    return shop;
}

} // namespace

class ScheduleWeeksListModelTest : public TestBase
{
    Q_OBJECT

private slots:
    void namesItsRoles()
    {
        const QHash<int, QByteArray> expected{{257, "days"}, {258, "name"}, {259, "uid"}};

        QCOMPARE(ScheduleWeeksListModel().roleNames(), expected);
    }

    void presentsAWeekWithItsDays()
    {
        auto shop = site({4});
        shop.scheduleWeeks[uid(4)].days = {uid(21), uid(20), uid(21), uid(99)};
        const auto late = Points::point("12:00:00", 2);
        const auto early = Points::point("08:00:00", 1);
        shop.scheduleDays.insert(uid(20), {uid(20), "Unsorted", {late, early}, {0}});
        shop.scheduleDays.insert(uid(21), {uid(21), "Free", {}, {}});
        ScheduleWeeksListModel model;

        model.update(shop);

        const auto days = value(model, 0, WeekRole::Days).toList();
        QCOMPARE(days.size(), 4);
        QCOMPARE(days[0], shop.scheduleDays.value(uid(21)).toVariant());
        QCOMPARE(days[1], Model::ScheduleDay(uid(20), "Unsorted", {early, late}, {0}).toVariant());
        QCOMPARE(days[2], days[0]);
        QCOMPARE(days[3], Model::ScheduleDay().toVariant());
        QCOMPARE(value(model, 0, WeekRole::Name), QVariant("Week 0004"));
        QCOMPARE(value(model, 0, WeekRole::Uid), QVariant(text(4)));
        QVERIFY(!value(model, 0, Qt::DisplayRole).isValid());
        QVERIFY(!value(model, 1, WeekRole::Name).isValid());
    }

    void convertsBetweenRowAndUid()
    {
        ScheduleWeeksListModel model;
        model.update(site({3, 5}));

        QCOMPARE(model.indexForUid(text(3)), 0);
        QCOMPARE(model.indexForUid(text(5)), 1);
        QCOMPARE(model.indexForUid(text(4)), -1);
        QCOMPARE(model.indexForUid("nonsense"), -1);
        QCOMPARE(model.uidForIndex(1), text(5));
        QCOMPARE(model.uidForIndex(2), QString());
        QCOMPARE(model.uidForIndex(-1), QString());
    }

    void rowsComeAndGoAtTheEnd()
    {
        ScheduleWeeksListModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        SignalLog log(model);

        model.update(site({}));
        QCOMPARE(log.take(), QStringList());
        model.update(site({1, 2}));
        QCOMPARE(log.take(), QStringList({"inserting 0-1", "inserted 0-1"}));
        model.update(site({2, 3, 4}));
        QCOMPARE(log.take(), QStringList({"inserting 2-2", "inserted 2-2", "changed 0-1: "}));
        QCOMPARE(column(model, WeekRole::Uid), QStringList({text(2), text(3), text(4)}));
        model.update(site({7, 8, 9}));
        QCOMPARE(log.take(), QStringList({"changed 0-2: "}));
        model.update(site({9}));
        QCOMPARE(log.take(), QStringList({"removing 1-2", "removed 1-2", "changed 0-0: "}));
        model.update(site({}));
        QCOMPARE(log.take(), QStringList({"removing 0-0", "removed 0-0"}));
    }

    void followsRandomSites()
    {
        ScheduleWeeksListModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        QRandomGenerator random(3);
        for (int round = 0; round < 200; ++round) {
            QList<uint> weeks;
            QStringList expected;
            for (uint n = 1; n <= 9; ++n) {
                if (random.bounded(2) == 0) {
                    weeks << n;
                    expected << text(n);
                }
            }

            model.update(site(weeks));

            QCOMPARE(column(model, WeekRole::Uid), expected);
        }
    }
};

ONDIRA_TEST(ScheduleWeeksListModelTest)
#include "ScheduleWeeksListModelTest.moc"
