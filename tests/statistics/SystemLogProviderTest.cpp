// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/SystemLogProvider.h"
#include "data/Records.h"
#include "data/SharedModels.h"
#include "data/SignalLog.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <QAbstractItemModelTester>
#include <QMetaEnum>
#include <memory>

using namespace Records;
using Role = SystemLogProvider::Role;

namespace {

QDateTime hour(int number)
{
    return QDateTime(QDate(2024, 5, 1), QTime(number, 0), Qt::UTC);
}

Model::LogEntry entry(int number, const QString &action)
{
    Model::LogEntry record;
    record.time = hour(number);
    record.cause = Model::LogEntry::Cause::Schedule;
    record.username = "anna";
    record.action = action;
    return record;
}

} // namespace

class SystemLogProviderTest : public TestBase
{
    Q_OBJECT

private slots:
    void namesItsRolesAndCauses()
    {
        FakeCommunicator link;
        const SystemLogProvider provider(link);

        QCOMPARE(provider.roleNames(),
                 (QHash<int, QByteArray>{{257, "time"}, {258, "cause"}, {259, "username"}, {260, "action"}}));
        const auto causes = QMetaEnum::fromType<SystemLogProvider::Cause>();
        QCOMPARE(causes.keyToValue("User"), 0);
        QCOMPARE(causes.keyToValue("System"), 1);
        QCOMPARE(causes.keyToValue("Schedule"), 2);
        QCOMPARE(provider.property("model").value<QAbstractItemModel *>(),
                 static_cast<const QAbstractItemModel *>(&provider));
    }

    void showsTheJournal()
    {
        FakeCommunicator link;
        SystemLogProvider provider(link);
        QAbstractItemModelTester tester(&provider, QAbstractItemModelTester::FailureReportingMode::Warning);
        provider.setFrom(hour(1));
        provider.setTo(hour(5));

        provider.update();
        QCOMPARE(link.operations, QStringList({"getLog"}));
        QCOMPARE(link.from, hour(1));
        QCOMPARE(link.to, hour(5));
        SignalLog log(provider);
        link.logCallback({entry(2, "on"), entry(3, "off")});

        QCOMPARE(log.take(), QStringList({"resetting", "reset"}));
        QCOMPARE(provider.rowCount(), 2);
        QCOMPARE(value(provider, 0, Role::Time).toDateTime(), hour(2));
        QCOMPARE(value(provider, 0, Role::CauseRole), QVariant(2));
        QCOMPARE(value(provider, 0, Role::Username).toString(), QString("anna"));
        QCOMPARE(column(provider, Role::Action), QStringList({"on", "off"}));
        QVERIFY(!value(provider, 0, 261).isValid());
        QVERIFY(!provider.data(QModelIndex(), Role::Time).isValid());
    }

    void aLateAnswerToAnOlderUpdateIsPassedOver()
    {
        FakeCommunicator link;
        SystemLogProvider provider(link);
        provider.update();
        const auto older = link.logCallback;
        provider.update();
        const auto newer = link.logCallback;

        newer({entry(2, "new")});
        older({entry(1, "old")});
        QCOMPARE(column(provider, Role::Action), QStringList({"new"}));
        provider.update();
        link.logCallback({entry(3, "newest")});

        QCOMPARE(column(provider, Role::Action), QStringList({"newest"}));
    }

    void anOlderAnswerServesUntilTheNewerOneComes()
    {
        FakeCommunicator link;
        SystemLogProvider provider(link);
        provider.update();
        const auto older = link.logCallback;
        provider.update();
        const auto newer = link.logCallback;

        older({entry(1, "old")});
        QCOMPARE(column(provider, Role::Action), QStringList({"old"}));
        newer({entry(2, "new")});

        QCOMPARE(column(provider, Role::Action), QStringList({"new"}));
    }

    void anAnswerAfterItIsGoneIsPassedOver()
    {
        FakeCommunicator link;
        auto provider = std::make_unique<SystemLogProvider>(link);
        QSignalSpy reset(provider.get(), &QAbstractItemModel::modelReset);
        provider->update();

        provider.reset();
        link.logCallback({entry(1, "on")});

        QCOMPARE(reset.count(), 0);
    }

    void settersSignalChangesOnly()
    {
        FakeCommunicator link;
        SystemLogProvider provider(link);
        QSignalSpy from(&provider, &SystemLogProvider::fromChanged);
        QSignalSpy to(&provider, &SystemLogProvider::toChanged);

        for (int i = 0; i < 2; ++i) {
            provider.setProperty("from", QDateTime::fromMSecsSinceEpoch(0, Qt::UTC));
            provider.setProperty("to", hour(2));
        }

        QCOMPARE(from.count(), 1);
        QCOMPARE(to.count(), 1);
        QVERIFY(provider.getFrom().isValid());
    }

    void thePlainOneTakesTheSharedCommunicator()
    {
        FakeCommunicator link;
        SystemLogProvider lonely;
        SharedModels::instance().communicator = &link;
        SystemLogProvider provider;
        SharedModels::instance() = SharedModels();

        lonely.update();
        QCOMPARE(link.operations, QStringList());
        provider.update();
        QCOMPARE(link.operations, QStringList({"getLog"}));
    }
};

ONDIRA_TEST(SystemLogProviderTest)
#include "SystemLogProviderTest.moc"
