// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ErrorsListModel.h"
#include "Records.h"
#include "SignalLog.h"
#include "support/TestBase.h"

#include <QAbstractItemModelTester>

using namespace Records;
using Role = ErrorsListModel::Role;

namespace {

using Errors = std::vector<Model::Result::Error>;

// Counts what the model announces besides its rows, in order.
class Announcements : public QObject
{
public:
    explicit Announcements(ErrorsListModel &model)
    {
        connect(&model, &ErrorsListModel::lastErrorChanged, this, [this] { lines << "last"; });
        connect(&model, &ErrorsListModel::haveUnreadChanged, this, [this] { lines << "have"; });
        connect(&model, &ErrorsListModel::unreadErrorsChanged, this, [this] { lines << "unread"; });
        connect(&model, &ErrorsListModel::newError, this, [this] { lines << "new"; });
    }

    QStringList lines;
};

} // namespace

class ErrorsListModelTest : public TestBase
{
    Q_OBJECT

private slots:
    void isEmptyAtFirst()
    {
        const ErrorsListModel model;

        QCOMPARE(model.rowCount(), 0);
        QVERIFY(!model.getHaveUnread());
        QVERIFY(!model.getLastError().isValid());
        QCOMPARE(model.getSummary(), QString());
        QCOMPARE(model.getUnreadErrors(), QVariantList());
    }

    void logsAnError()
    {
        ErrorsListModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        SignalLog log(model);
        Announcements announcements(model);

        model.logError("auth_error", "Refused", "Wrong password");

        QCOMPARE(log.take(), QStringList({"inserting 0-0", "inserted 0-0"}));
        QCOMPARE(announcements.lines, QStringList({"last", "have", "unread", "new"}));
        QCOMPARE(model.getLastError().toMap(),
                 (QVariantMap{{"code", "auth_error"}, {"title", "Refused"}, {"detail", "Wrong password"}}));
        QVERIFY(model.getHaveUnread());
        QCOMPARE(model.getUnreadErrors(),
                 QVariantList({QVariantMap{{"error", "Refused"}, {"source", "Wrong password"}, {"unread", true}}}));
    }

    void presentsRowsWithoutDetail()
    {
        ErrorsListModel model;

        model.logError("code", "title", "detail");

        QCOMPARE(model.roleNames(),
                 (QHash<int, QByteArray>{{257, "code"}, {258, "title"}, {259, "detail"}, {260, "unread"}}));
        QCOMPARE(value(model, 0, Role::Code).toString(), QString("code"));
        QCOMPARE(value(model, 0, Role::Title).toString(), QString("title"));
        QVERIFY(!value(model, 0, Role::Detail).isValid());
        QCOMPARE(value(model, 0, Role::Unread), QVariant(true));
        QVERIFY(!value(model, 0, 261).isValid());
        QVERIFY(!model.data(QModelIndex(), Role::Code).isValid());
    }

    void logsABlockAtOnce()
    {
        ErrorsListModel model;
        model.logError("a", "A", "");
        SignalLog log(model);
        Announcements announcements(model);

        model.logErrors(Errors{{"b", "B", "bb"}, {"c", "C", "cc"}});

        QCOMPARE(log.take(), QStringList({"inserting 1-2", "inserted 1-2"}));
        QCOMPARE(announcements.lines, QStringList({"last", "have", "unread", "new"}));
        QCOMPARE(model.getLastError().toMap().value("code").toString(), QString("c"));
    }

    void anEmptyBlockIsNothing()
    {
        ErrorsListModel model;
        SignalLog log(model);
        Announcements announcements(model);

        model.logErrors({});

        QCOMPARE(log.take(), QStringList());
        QCOMPARE(announcements.lines, QStringList());
    }

    void anEqualErrorIsNotNew()
    {
        ErrorsListModel model;
        model.logError("a", "A", "aa");
        Announcements announcements(model);

        model.logError("a", "A", "aa");
        QCOMPARE(announcements.lines, QStringList({"last", "have", "unread"}));
        announcements.lines.clear();
        model.logError("a", "a", "aa");
        QCOMPARE(announcements.lines, QStringList({"last", "have", "unread", "new"}));
        QCOMPARE(model.rowCount(), 3);
    }

    void summaryNamesEachTitleOnce()
    {
        ErrorsListModel model;

        model.logErrors(Errors{{"1", "B", ""}, {"2", "A", ""}, {"3", "B", ""}, {"4", "b", ""}});

        QCOMPARE(model.getSummary(), QString("B\nA\nb"));
    }

    void readingForgetsTheRows()
    {
        ErrorsListModel model;
        model.logErrors(Errors{{"1", "A", ""}, {"2", "B", ""}});
        SignalLog log(model);
        Announcements announcements(model);

        model.readAll();

        QCOMPARE(log.take(), QStringList({"resetting", "reset"}));
        QCOMPARE(announcements.lines, QStringList({"have"}));
        QVERIFY(!model.getHaveUnread());
        QCOMPARE(model.getSummary(), QString());
        QCOMPARE(model.getUnreadErrors(), QVariantList());
    }

    void readingNothingIsAnnounced()
    {
        ErrorsListModel model;
        Announcements announcements(model);

        model.readAll();

        QCOMPARE(announcements.lines, QStringList({"have"}));
    }

    void mayBeReadFromItsOwnSignals()
    {
        ErrorsListModel model;
        connect(&model, &ErrorsListModel::lastErrorChanged, &model, &ErrorsListModel::readAll);
        QSignalSpy isNew(&model, &ErrorsListModel::newError);

        model.logErrors(Errors{{"1", "A", ""}, {"2", "B", ""}});
        model.logError("3", "C", "");

        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(isNew.count(), 2);
    }

    void keepsTheNewest()
    {
        ErrorsListModel model(nullptr, 3);
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        model.logErrors(Errors{{"1", "A", ""}, {"2", "B", ""}});
        SignalLog log(model);

        model.logErrors(Errors{{"3", "C", ""}, {"4", "D", ""}});
        QCOMPARE(log.take(), QStringList({"removing 0-0", "removed 0-0", "inserting 1-2", "inserted 1-2"}));
        QCOMPARE(column(model, Role::Code), QStringList({"2", "3", "4"}));
        model.logErrors(Errors{{"5", "", ""}, {"6", "", ""}, {"7", "", ""}, {"8", "", ""}, {"9", "", ""}});
        QCOMPARE(log.take(), QStringList({"removing 0-2", "removed 0-2", "inserting 0-2", "inserted 0-2"}));
        QCOMPARE(column(model, Role::Code), QStringList({"7", "8", "9"}));
        model.logError("10", "", "");
        QCOMPARE(column(model, Role::Code), QStringList({"8", "9", "10"}));
    }

    void keepsTenThousand()
    {
        ErrorsListModel model;

        model.logErrors(Errors(10001, {"c", "t", "d"}));

        QCOMPARE(model.rowCount(), 10000);
    }

    void survivesAThousandErrorsInARow()
    {
        ErrorsListModel model;
        qint64 maps = 0;
        connect(&model, &ErrorsListModel::unreadErrorsChanged, &model,
                [&] { maps += model.getUnreadErrors().size() + model.getSummary().size(); });
        QSignalSpy isNew(&model, &ErrorsListModel::newError);

        for (int i = 0; i < 1000; ++i)
            model.logError("code", "t", QString::number(i));

        QCOMPARE(model.rowCount(), 1000);
        QCOMPARE(isNew.count(), 1000);
        QCOMPARE(maps, qint64(1000 * 1001 / 2 + 1000));
        QCOMPARE(model.getLastError().toMap().value("detail").toString(), QString("999"));
    }
};

ONDIRA_TEST(ErrorsListModelTest)
#include "ErrorsListModelTest.moc"
