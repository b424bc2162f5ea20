// SPDX-License-Identifier: GPL-3.0-or-later
#include "schedules/SchedulePointsListModel.h"
#include "Points.h"
#include "data/MirrorList.h"
#include "data/ScriptTools.h"
#include "data/SignalLog.h"
#include "shell/Version.h"
#include "support/TestBase.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Points;
using Records::value;

namespace {

QStringList debugTexts;

void noteDebugText(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtDebugMsg && context.category == QByteArray("default"))
        debugTexts << message;
}

} // namespace

class SchedulePointsListModelTest : public TestBase
{
    Q_OBJECT

private slots:
    void namesItsRoles()
    {
        const SchedulePointsListModel model;
        const QHash<int, QByteArray> expected{{257, "hour"},
                                              {258, "minute"},
                                              {259, "second"},
                                              {260, "time"},
                                              {261, "duration"},
                                              {262, "actions"},
                                              {263, "actionsDescription"},
                                              {264, "color"}};

        QCOMPARE(model.roleNames(), expected);
    }

    void presentsARow()
    {
        SchedulePointsListModel model;

        model.reset({point("00:00:00", 0), point("07:30:15", 5)});

        QCOMPARE(value(model, 1, Role::Hour), QVariant(7));
        QCOMPARE(value(model, 1, Role::Minute), QVariant(30));
        QCOMPARE(value(model, 1, Role::Second), QVariant(15));
        QCOMPARE(value(model, 1, Role::Time), QVariant(QDateTime(QDate(2010, 1, 1), QTime(7, 30, 15))));
        QCOMPARE(value(model, 1, Role::Duration), QVariant(86399 - 27015));
        QCOMPARE(value(model, 1, Role::Actions), actionsMap(5));
        QCOMPARE(value(model, 1, Role::ActionsDescription), QVariant(QString()));
        QCOMPARE(value(model, 1, Role::Color).userType(), int(QMetaType::QColor));
        QCOMPARE(value(model, 0, Role::Color).value<QColor>(), QColor("#f0f0f0"));
        QVERIFY(!value(model, 1, Qt::DisplayRole).isValid());
        QVERIFY(!model.data(QModelIndex(), Role::Hour).isValid());
        QVERIFY(!value(model, 2, Role::Hour).isValid());
        QCOMPARE(model.rowCount(model.index(0)), 0);
    }

    void isEmptyUntilItGetsPoints()
    {
        SchedulePointsListModel model;

        QCOMPARE(model.rowCount(), 0);
        QVERIFY(model.getPoints().empty());

        model.setBlueprints({});
        model.setDevicesModel(nullptr);

        QCOMPARE(model.rowCount(), 0);
    }

    void aDayBeginsAtMidnight_data()
    {
        QTest::addColumn<QStringList>("starts");
        QTest::addColumn<QStringList>("expected");

        QTest::newRow("no points") << QStringList() << QStringList{"00:00:00 86399 0"};
        QTest::newRow("from midnight") << QStringList{"00:00:00", "08:00:00"}
                                       << QStringList{"00:00:00 28800 1", "08:00:00 57599 2"};
        QTest::newRow("late") << QStringList{"08:00:00"} << QStringList{"00:00:00 28800 0", "08:00:00 57599 1"};
        QTest::newRow("a second late") << QStringList{"00:00:01"} << QStringList{"00:00:00 1 0", "00:00:01 86398 1"};
        QTest::newRow("twice the same") << QStringList{"00:00:00", "08:00:00", "08:00:00"}
                                        << QStringList{"00:00:00 28800 1", "08:00:00 0 2", "08:00:00 57599 3"};
        QTest::newRow("at the end") << QStringList{"00:00:00", "23:59:59"}
                                    << QStringList{"00:00:00 86399 1", "23:59:59 0 2"};
    }

    void aDayBeginsAtMidnight()
    {
        QFETCH(QStringList, starts);
        SchedulePointsListModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        SignalLog log(model);
        QSignalSpy changed(&model, &SchedulePointsListModel::pointsChanged);

        model.reset(day(starts));

        QTEST(rows(model), "expected");
        QCOMPARE(log.take(), QStringList({"resetting", "reset"}));
        QCOMPARE(changed.count(), 1);
        model.reset(model.getPoints());
        QTEST(rows(model), "expected");
    }

    void givesBackItsPoints()
    {
        SchedulePointsListModel model;
        const auto points = day({"00:00:00", "08:00:00", "12:30:45"});

        QVERIFY(model.setProperty("points", QVariant::fromValue(points)));

        QVERIFY(model.getPoints() == points);
        QVERIFY(model.property("points").value<std::vector<Model::ScheduleDayPoint>>() == points);
    }

    void laysASegmentOverTheDay_data()
    {
        QTest::addColumn<QStringList>("starts");
        QTest::addColumn<QTime>("start");
        QTest::addColumn<int>("duration");
        QTest::addColumn<QStringList>("expected"); // the new row is 9

        const QStringList one{"00:00:00"};
        const QStringList three{"00:00:00", "08:00:00", "12:00:00"};
        QTest::newRow("into the only row")
            << one << QTime(8, 0) << 3600 << QStringList{"00:00:00 28800 1", "08:00:00 3600 9", "09:00:00 53999 1"};
        QTest::newRow("over the start of a row")
            << three << QTime(7, 0) << 7200
            << QStringList{"00:00:00 25200 1", "07:00:00 7200 9", "09:00:00 10800 2", "12:00:00 43199 3"};
        QTest::newRow("over a whole row and the start of the next")
            << three << QTime(6, 0) << 28800 << QStringList{"00:00:00 21600 1", "06:00:00 28800 9", "14:00:00 35999 3"};
        QTest::newRow("in place of a row")
            << three << QTime(8, 0) << 14400 << QStringList{"00:00:00 28800 1", "08:00:00 14400 9", "12:00:00 43199 3"};
        QTest::newRow("over the first half of a row")
            << three << QTime(8, 0) << 7200
            << QStringList{"00:00:00 28800 1", "08:00:00 7200 9", "10:00:00 7200 2", "12:00:00 43199 3"};
        QTest::newRow("over the second half of a row")
            << three << QTime(10, 0) << 7200
            << QStringList{"00:00:00 28800 1", "08:00:00 7200 2", "10:00:00 7200 9", "12:00:00 43199 3"};
        QTest::newRow("from midnight") << three << QTime(0, 0) << 3600
                                       << QStringList{"00:00:00 3600 9", "01:00:00 25200 1", "08:00:00 14400 2",
                                                      "12:00:00 43199 3"};
        QTest::newRow("the whole day") << three << QTime(0, 0) << 86399 << QStringList{"00:00:00 86399 9"};
        QTest::newRow("past midnight") << three << QTime(23, 30) << 7200
                                       << QStringList{"00:00:00 28800 1", "08:00:00 14400 2", "12:00:00 41400 3",
                                                      "23:30:00 1799 9"};
        QTest::newRow("to the last second")
            << three << QTime(23, 30) << 1799
            << QStringList{"00:00:00 28800 1", "08:00:00 14400 2", "12:00:00 41400 3", "23:30:00 1799 9"};
        QTest::newRow("a second before the end") << three << QTime(23, 30) << 1798
                                                 << QStringList{"00:00:00 28800 1", "08:00:00 14400 2",
                                                                "12:00:00 41400 3", "23:30:00 1798 9", "23:59:58 1 3"};
        QTest::newRow("the last second itself")
            << three << QTime(23, 59, 59) << 1
            << QStringList{"00:00:00 28800 1", "08:00:00 14400 2", "12:00:00 43199 3", "23:59:59 0 9"};
        QTest::newRow("no duration") << three << QTime(9, 0) << 0
                                     << QStringList{"00:00:00 28800 1", "08:00:00 3600 2", "09:00:00 0 9",
                                                    "09:00:00 10800 2", "12:00:00 43199 3"};
        QTest::newRow("no duration at the start of a row")
            << three << QTime(8, 0) << 0
            << QStringList{"00:00:00 28800 1", "08:00:00 0 9", "08:00:00 14400 2", "12:00:00 43199 3"};
        QTest::newRow("no duration at midnight")
            << three << QTime(0, 0) << 0
            << QStringList{"00:00:00 0 9", "00:00:00 28800 1", "08:00:00 14400 2", "12:00:00 43199 3"};
        QTest::newRow("negative") << three << QTime(9, 0) << -1
                                  << QStringList{"00:00:00 28800 1", "08:00:00 3600 2", "09:00:00 53999 9"};
        // The clock wraps: an hour before midnight is 23:00, which is after the start.
        QTest::newRow("negative over midnight")
            << three << QTime(0, 0) << -3600 << QStringList{"00:00:00 82800 9", "23:00:00 3599 3"};
        // A whole day ends where it began, and counts as none.
        QTest::newRow("86400 seconds") << three << QTime(9, 0) << 86400
                                       << QStringList{"00:00:00 28800 1", "08:00:00 3600 2", "09:00:00 0 9",
                                                      "09:00:00 10800 2", "12:00:00 43199 3"};
        QTest::newRow("a day and an hour") << three << QTime(9, 0) << 90000
                                           << QStringList{"00:00:00 28800 1", "08:00:00 3600 2", "09:00:00 3600 9",
                                                          "10:00:00 7200 2", "12:00:00 43199 3"};
    }

    void laysASegmentOverTheDay()
    {
        QFETCH(QStringList, starts);
        QFETCH(QTime, start);
        QFETCH(int, duration);
        SchedulePointsListModel model;
        model.reset(day(starts));
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        MirrorList mirror(model);

        model.add(start.hour(), start.minute(), start.second(), duration, actionsMap(9));

        QTEST(rows(model), "expected");
        QCOMPARE(mirror.difference(), QString());
    }

    void tellsEachStepOfAnAddition()
    {
        SchedulePointsListModel model;
        model.reset(day({"00:00:00", "08:00:00", "10:00:00", "12:00:00"}));
        SignalLog log(model);
        debugTexts.clear();
        const auto handler = qInstallMessageHandler(noteDebugText);

        model.add(7, 0, 0, 6 * 3600, actionsMap(9));

        qInstallMessageHandler(handler);
        QCOMPARE(debugTexts,
                 QStringList({"Adding", "After point: 3", "After point done", "Erasing 1  <  3", "Place index 1"}));
        QCOMPARE(log.take(),
                 QStringList({"changed 3-3: 257 258 259 260", "changed 0-3: 261", "removing 1-2", "removed 1-2",
                              "inserting 1-1", "inserted 1-1", "changed 0-2: 261"}));

        model.add(1, 0, 0, 60, actionsMap(8));

        QCOMPARE(log.take(),
                 QStringList({"inserting 1-1", "inserted 1-1", "inserting 2-2", "inserted 2-2", "changed 0-4: 261"}));
    }

    void addsToADayWithoutRows()
    {
        SchedulePointsListModel model;

        model.add(8, 0, 0, 3600, actionsMap(9));

        QCOMPARE(rows(model), QStringList({"08:00:00 57599 9"}));
    }

    void refusesATimeThatIsNone_data()
    {
        QTest::addColumn<int>("hour");
        QTest::addColumn<int>("minute");
        QTest::addColumn<int>("second");

        QTest::newRow("hour 24") << 24 << 0 << 0;
        QTest::newRow("hour -1") << -1 << 0 << 0;
        QTest::newRow("minute 60") << 0 << 60 << 0;
        QTest::newRow("second 60") << 0 << 0 << 60;
        QTest::newRow("extreme") << INT_MAX << INT_MIN << INT_MAX;
    }

    void refusesATimeThatIsNone()
    {
        QFETCH(int, hour);
        QFETCH(int, minute);
        QFETCH(int, second);
        SchedulePointsListModel model;
        model.reset(day({"00:00:00", "08:00:00"}));
        SignalLog log(model);
        const auto before = rows(model);

        expectMessage(QtWarningMsg, "There is no such time");
        model.add(hour, minute, second, 60, actionsMap(9));
        expectMessage(QtWarningMsg, "There is no such time");
        model.change(1, QVariantMap{{"hour", hour}, {"minute", minute}, {"second", second}});

        QCOMPARE(rows(model), before);
        QCOMPARE(log.take(), QStringList());
    }

    void removingGivesTheTimeToTheRowBefore()
    {
        SchedulePointsListModel model;
        model.reset(day({"00:00:00", "08:00:00", "12:00:00"}));
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        SignalLog log(model);

        model.remove(1);

        QCOMPARE(rows(model), QStringList({"00:00:00 43200 1", "12:00:00 43199 3"}));
        QCOMPARE(log.take(), QStringList({"removing 1-1", "removed 1-1", "changed 0-1: 261"}));
    }

    void withoutItsFirstRowADayStartsLateUntilItIsRead()
    {
        SchedulePointsListModel model;
        model.reset(day({"00:00:00", "08:00:00", "12:00:00"}));

        model.remove(0);

        QCOMPARE(rows(model), QStringList({"08:00:00 14400 2", "12:00:00 43199 3"}));
        model.reset(model.getPoints());
        QCOMPARE(rows(model), QStringList({"00:00:00 28800 0", "08:00:00 14400 2", "12:00:00 43199 3"}));
    }

    void removingTheOnlyRowLeavesADefaultOne()
    {
        SchedulePointsListModel model;
        model.reset(day({"00:00:00"}));
        int inserted = 0;
        connect(&model, &QAbstractItemModel::rowsInserted, this,
                [&] { inserted = value(model, 0, Role::Duration).toInt(); });
        SignalLog log(model);

        model.remove(0);

        QCOMPARE(inserted, 86400);
        QCOMPARE(rows(model), QStringList({"00:00:00 86399 0"}));
        QCOMPARE(log.take(),
                 QStringList({"removing 0-0", "removed 0-0", "inserting 0-0", "inserted 0-0", "changed 0-0: 261"}));
    }

    void changeIsARemovalAndAnAddition_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QVariant>("object");
        QTest::addColumn<QStringList>("expected"); // of rows at 00:00, 08:00 and 12:00

        QTest::newRow("only duration") << 1 << QVariant(QVariantMap{{"duration", 3600}})
                                       << QStringList{"00:00:00 28800 1", "08:00:00 3600 2", "09:00:00 10800 1",
                                                      "12:00:00 43199 3"};
        QTest::newRow("nothing") << 1 << QVariant()
                                 << QStringList{"00:00:00 28800 1", "08:00:00 14400 2", "12:00:00 43199 3"};
        QTest::newRow("no map") << 2 << QVariant("nonsense")
                                << QStringList{"00:00:00 28800 1", "08:00:00 14400 2", "12:00:00 43199 3"};
        QTest::newRow("only actions") << 1 << QVariant(QVariantMap{{"actions", actionsMap(9)}})
                                      << QStringList{"00:00:00 28800 1", "08:00:00 14400 9", "12:00:00 43199 3"};
        QTest::newRow("lands elsewhere") << 1 << QVariant(QVariantMap{{"hour", 14}, {"duration", 60}})
                                         << QStringList{"00:00:00 43200 1", "12:00:00 7200 3", "14:00:00 60 2",
                                                        "14:01:00 35939 3"};
        QTest::newRow("minute and second")
            << 1 << QVariant(QVariantMap{{"minute", 5}, {"second", 7}, {"duration", 14400 - 307}})
            << QStringList{"00:00:00 29107 1", "08:05:07 14093 2", "12:00:00 43199 3"};
        // The first row has nothing before it that could go on after it: the next row is where it ends.
        QTest::newRow("the first one shorter")
            << 0 << QVariant(QVariantMap{{"duration", 60}})
            << QStringList{"00:00:00 28800 1", "08:00:00 14400 2", "12:00:00 43199 3"};
        QTest::newRow("numbers as texts") << 1 << QVariant(QVariantMap{{"hour", "9"}, {"duration", "10800"}})
                                          << QStringList{"00:00:00 32400 1", "09:00:00 10800 2", "12:00:00 43199 3"};
    }

    void changeIsARemovalAndAnAddition()
    {
        QFETCH(int, row);
        QFETCH(QVariant, object);
        SchedulePointsListModel model;
        model.reset(day({"00:00:00", "08:00:00", "12:00:00"}));
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        MirrorList mirror(model);

        model.change(row, object);

        QTEST(rows(model), "expected");
        QCOMPARE(mirror.difference(), QString());
    }

    void swapMovesActionsAndKeepsTimes_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::addColumn<QStringList>("labels");

        QTest::newRow("down") << 0 << 1 << QStringList{"2", "1", "3"};
        QTest::newRow("up") << 1 << 0 << QStringList{"2", "1", "3"};
        QTest::newRow("far down") << 0 << 2 << QStringList{"3", "2", "1"};
        QTest::newRow("far up") << 2 << 0 << QStringList{"3", "2", "1"};
        QTest::newRow("itself") << 1 << 1 << QStringList{"1", "2", "3"};
    }

    void swapMovesActionsAndKeepsTimes()
    {
        QFETCH(int, from);
        QFETCH(int, to);
        QFETCH(QStringList, labels);
        SchedulePointsListModel model;
        model.reset(day({"00:00:00", "08:00:00", "12:00:00"}));
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        QSignalSpy moved(&model, &QAbstractItemModel::rowsMoved);
        SignalLog log(model);

        model.swap(from, to);

        QCOMPARE(
            rows(model),
            QStringList({"00:00:00 28800 " + labels[0], "08:00:00 14400 " + labels[1], "12:00:00 43199 " + labels[2]}));
        const auto lines = log.take();
        if (from == to) {
            QCOMPARE(moved.count(), 0);
            QCOMPARE(lines, QStringList());
            return;
        }
        QCOMPARE(moved.count(), 1);
        QCOMPARE(moved[0].at(1).toInt(), from);
        QCOMPARE(moved[0].at(2).toInt(), from);
        QCOMPARE(moved[0].at(4).toInt(), from < to ? to + 1 : to);
        QStringList expected{"changed 0-2: 261", "changed 0-2: 257 258 259 260"};
        if (qAbs(from - to) > 1)
            expected << "changed 0-2: 262 263 264"; // the move alone would leave the rows between in wrong places
        QCOMPARE(lines, expected);
    }

    void splitHalvesARowWithoutSayingSo()
    {
        SchedulePointsListModel model;
        model.reset(day({"00:00:00", "08:00:00", "08:00:05"}));
        QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
        QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
        SignalLog log(model);

        model.split(1);

        QCOMPARE(rows(model), QStringList({"00:00:00 28800 1", "08:00:00 2 2", "08:00:02 3 2", "08:00:05 57594 3"}));
        QCOMPARE(inserted.count(), 0);
        QCOMPARE(reset.count(), 0);
        QCOMPARE(log.take(), QStringList({"changed 0-3: 261"}));
        QCOMPARE(model.getPoints().size(), std::size_t(4));
    }

    void splitRefusesARowThatIsNotThere()
    {
        SchedulePointsListModel model;
        model.reset(day({"00:00:00", "08:00:00"}));
        SignalLog log(model);

        expectMessage(QtWarningMsg, "^Point index '2' is out of bounds$");
        model.split(2);
        expectMessage(QtWarningMsg, "^Point index '-1' is out of bounds$");
        model.split(-1);

        QCOMPARE(model.rowCount(), 2);
        QCOMPARE(log.take(), QStringList());
    }

    void refusesRowsThatAreNotThere_data()
    {
        QTest::addColumn<QString>("call");

        for (const auto row : {"2", "-1", "2147483647", "-2147483648"}) {
            for (const auto call :
                 {"change(%1, {})", "remove(%1)", "swap(%1, 0)", "swap(0, %1)", "copyToClipboard(%1)"})
                QTest::addRow("%s, %s", call, row) << QString(call).arg(row);
        }
    }

    void refusesRowsThatAreNotThere()
    {
        QFETCH(QString, call);
        SchedulePointsListModel model;
        model.reset(day({"00:00:00", "08:00:00"}));
        QGuiApplication::clipboard()->setText("before");
        SignalLog log(model);
        QJSEngine engine;
        expose(engine, "day", model);
        const auto before = rows(model);
        expectMessage(QtWarningMsg, "^The day has no point -?\\d+$");

        const auto result = engine.evaluate("day." + call);

        QVERIFY2(!result.isError(), qPrintable(result.toString()));
        QCOMPARE(rows(model), before);
        QCOMPARE(log.take(), QStringList());
        QCOMPARE(QGuiApplication::clipboard()->text(), QString("before"));
    }

    void scriptsHandOverPlainObjects()
    {
        SchedulePointsListModel model;
        model.reset({});
        QJSEngine engine;
        expose(engine, "day", model);

        auto result = engine.evaluate("day.add(8, 0, 0, 3600, [{ blueprint: "
                                      "'{00000005-0000-0000-0000-000000000000}', zones: [], properties: [] }])");
        QVERIFY2(!result.isError(), qPrintable(result.toString()));
        QCOMPARE(rows(model), QStringList({"00:00:00 28800 0", "08:00:00 3600 5", "09:00:00 53999 0"}));

        result = engine.evaluate("day.change(1, { hour: 7, duration: 7200 })");

        QVERIFY2(!result.isError(), qPrintable(result.toString()));
        QCOMPARE(rows(model), QStringList({"00:00:00 25200 0", "07:00:00 7200 5", "09:00:00 53999 0"}));
    }

    void scriptsBindListsOfOtherModels()
    {
        qRegisterMetaType<std::vector<Model::ScheduleDayPoint>>();
        qRegisterMetaType<std::vector<Model::ActionBlueprint>>();
        SchedulePointsListModel source;
        source.reset(day({"00:00:00", "08:00:00"}));
        source.setBlueprints({Model::ActionBlueprint("Evening", Records::uid(2))});
        SchedulePointsListModel model;
        QJSEngine engine;
        expose(engine, "source", source);
        expose(engine, "model", model);

        const auto result = engine.evaluate("model.points = source.points; model.blueprints = source.blueprints");

        QVERIFY2(!result.isError(), qPrintable(result.toString()));
        QCOMPARE(rows(model), rows(source));
        QCOMPARE(value(model, 1, Role::ActionsDescription).toString(), QString("Evening"));
    }

    void copiesAPointAsIndentedJson()
    {
        SchedulePointsListModel model;
        model.reset(day({"00:00:00", "08:05:06"}));

        model.copyToClipboard(1);

        const auto text = QGuiApplication::clipboard()->text();
        const auto copied = QJsonDocument::fromJson(text.toUtf8());
        const QJsonObject expected{
            {"meta_info", "OndiraSmart schedule point data, version 4.5.2"},
            {"hours", 8},
            {"minutes", 5},
            {"seconds", 6},
            {"duration", 86399 - 8 * 3600 - 306},
            {"actions", QJsonArray::fromVariantList(actionsMap(2).toList())},
        };
        QCOMPARE(copied.object(), expected);
        QCOMPARE(text.toUtf8(), copied.toJson(QJsonDocument::Indented));
        QCOMPARE(Version::text(), QString("4.5.2"));
    }

    void readsItsPointsAgainWithNewBlueprints()
    {
        SchedulePointsListModel model;
        model.reset(day({"00:00:00", "08:00:00"}));
        model.split(0);
        SignalLog log(model);
        QSignalSpy blueprints(&model, &SchedulePointsListModel::blueprintsChanged);
        QSignalSpy devices(&model, &SchedulePointsListModel::devicesModelChanged);

        model.setBlueprints({Model::ActionBlueprint("Evening", Records::uid(2))});

        QCOMPARE(log.take(), QStringList({"resetting", "reset"}));
        QCOMPARE(blueprints.count(), 1);
        QCOMPARE(model.getBlueprints().size(), std::size_t(1));
        QCOMPARE(rows(model), QStringList({"00:00:00 14400 1", "04:00:00 14400 1", "08:00:00 57599 2"}));
        QCOMPARE(value(model, 2, Role::ActionsDescription).toString(), QString("Evening"));

        model.setDevicesModel(nullptr);

        QCOMPARE(log.take(), QStringList({"resetting", "reset"}));
        QCOMPARE(devices.count(), 1);
    }
};

ONDIRA_TEST(SchedulePointsListModelTest)
#include "SchedulePointsListModelTest.moc"
