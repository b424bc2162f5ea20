// SPDX-License-Identifier: GPL-3.0-or-later
#include "schedules/ScheduleDaysListModel.h"
#include "Points.h"
#include "data/ListMirror.h"
#include "data/MirrorList.h"
#include "data/ScriptTools.h"
#include "data/SignalLog.h"
#include "model/StandardBlueprints.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>

using namespace Records;
using DayRole = ScheduleDaysListModel::Role;
using Days = std::vector<Model::ScheduleDay>;

namespace {

Model::ScheduleDay schedule(uint n, const QSet<uint> &zones, const QSet<int> &days = {0, 1, 2, 3, 4})
{
    Model::ScheduleDay day(uid(n), QStringLiteral("Day %1").arg(n), Points::day({"00:00:00", "08:00:00"}), days);
    for (const uint zone : zones)
        day.zones.insert(uid(zone));
    return day;
}

QSet<QString> setOf(const QStringList &texts)
{
    return {texts.begin(), texts.end()};
}

void clip(const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
}

QJsonObject clipped()
{
    return QJsonDocument::fromJson(QGuiApplication::clipboard()->text().toUtf8()).object();
}

} // namespace

class ScheduleDaysListModelTest : public TestBase
{
    Q_OBJECT

private slots:
    void namesItsRoles()
    {
        FakeCommunicator link;
        const ScheduleDaysListModel model(link);
        const QHash<int, QByteArray> expected{
            {257, "uid"}, {258, "name"}, {259, "points"}, {260, "days"}, {261, "zones"}};

        QCOMPARE(model.roleNames(), expected);
    }

    void initTestCase() { qRegisterMetaType<std::vector<Model::ScheduleDayPoint>>(); }

    void presentsADay()
    {
        FakeCommunicator link;
        const auto day = schedule(1, {11, 10}, {6, 0, 3});
        link.publishSchedules({day});

        const ScheduleDaysListModel model(link); // a list that came before the model counts

        QCOMPARE(model.rowCount(), 1);
        QCOMPARE(value(model, 0, DayRole::Uid), QVariant(text(1)));
        QCOMPARE(value(model, 0, DayRole::Name), QVariant("Day 1"));
        const auto points = value(model, 0, DayRole::Points);
        QCOMPARE(points.userType(), qMetaTypeId<std::vector<Model::ScheduleDayPoint>>());
        QVERIFY(points.value<std::vector<Model::ScheduleDayPoint>>() == day.points);
        const auto days = value(model, 0, DayRole::Days);
        QCOMPARE(days.userType(), qMetaTypeId<QList<int>>());
        QCOMPARE(days.value<QList<int>>(), QList<int>({0, 3, 6}));
        const auto zones = value(model, 0, DayRole::Zones);
        QCOMPARE(zones.userType(), int(QMetaType::QStringList));
        QCOMPARE(setOf(zones.toStringList()), QSet<QString>({text(10), text(11)}));
        QCOMPARE(model.flags(model.index(0)), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        QVERIFY(!value(model, 0, Qt::DisplayRole).isValid());
        QVERIFY(!value(model, 1, DayRole::Uid).isValid());
        QCOMPARE(model.getByUid(text(1)).value("name"), QVariant("Day 1"));
    }

    void countsItsDays()
    {
        FakeCommunicator link;
        ScheduleDaysListModel model(link);
        QSignalSpy counted(&model, &ScheduleDaysListModel::countChanged);
        QCOMPARE(model.property("count"), QVariant(0));

        link.publishSchedules({schedule(1, {}), schedule(2, {})});

        QCOMPARE(counted.count(), 1);
        QCOMPARE(model.property("count"), QVariant(2));
    }

    void newDaysSwitchOffAtMidnight()
    {
        FakeCommunicator link;
        ScheduleDaysListModel model(link);
        QJSEngine engine;
        expose(engine, "model", model);

        engine.evaluate("var given; model.addDay(function(uids) { given = uids })");

        QCOMPARE(link.operations, QStringList({"addDays"}));
        QCOMPARE(link.days.size(), std::size_t(1));
        const auto &day = link.days[0];
        QVERIFY(day.uid.isNull());
        QCOMPARE(day.name, QString("День"));
        QVERIFY(day.daysOfWeek.isEmpty());
        QVERIFY(day.zones.isEmpty());
        QCOMPARE(day.points.size(), std::size_t(1));
        QCOMPARE(day.points[0].time, QTime(0, 0));
        const Model::ActionBlueprintInstance off{
            Model::StandardBlueprints::setPowerUid(), {{"power", Model::ActionDatatype(0LL)}}, {}};
        QVERIFY(day.points[0].actions == Model::ActionSequence{{off}});
        QCOMPARE(day.points[0].actions.instances[0].properties[0].value.type(), Model::ActionDatatype::Type::Integer);

        link.uidsCallback({uid(5)});

        QCOMPARE(engine.evaluate("given.join()").toString(), text(5));
        QCOMPARE(model.rowCount(), 0);
    }

    void addsWithoutACallback()
    {
        FakeCommunicator link;
        ScheduleDaysListModel model(link);

        model.addDay();
        link.uidsCallback({uid(5)});

        QCOMPARE(link.operations, QStringList({"addDays"}));
    }

    void changesADay()
    {
        FakeCommunicator link;
        ScheduleDaysListModel model(link);
        link.publishSchedules({schedule(1, {10}), schedule(2, {10})});
        SignalLog log(model);
        const auto points = Points::day({"00:00:00", "20:00:00"});

        model.changeDay(text(2), "Evening", QVariant::fromValue(points), {5, 6, 6}, {text(11), text(12), "nonsense"});

        QCOMPARE(link.operations, QStringList({"changeDays"}));
        Model::ScheduleDay expected(uid(2), "Evening", points, {5, 6});
        expected.zones = {uid(11), uid(12)};
        QVERIFY(link.days == Days{expected});
        QCOMPARE(log.take(), QStringList());
        QCOMPARE(value(model, 1, DayRole::Name), QVariant("Day 2"));
    }

    void takesPointsAsMaps()
    {
        FakeCommunicator link;
        ScheduleDaysListModel model(link);
        link.publishSchedules({schedule(1, {10})});
        const auto points = Points::day({"00:00:00", "20:00:00"});

        model.changeDay(text(1), "Day", QVariantList{points[0].toVariant(), points[1].toVariant()}, {}, {});

        QVERIFY(link.days == Days({Model::ScheduleDay(uid(1), "Day", points, {})}));
    }

    void scriptsChangeADay()
    {
        FakeCommunicator link;
        ScheduleDaysListModel model(link);
        link.publishSchedules({schedule(1, {10})});
        SchedulePointsListModel timeline;
        timeline.reset(Points::day({"00:00:00", "20:00:00"}));
        QJSEngine engine;
        expose(engine, "model", model);
        expose(engine, "timeline", timeline);

        const auto result = engine.evaluate("model.changeDay('" + text(1) + "', 'Day', timeline.getPoints(), [6, 0], ['"
                                            + text(11) + "'])");

        QVERIFY2(!result.isError(), qPrintable(result.toString()));
        Model::ScheduleDay expected(uid(1), "Day", timeline.getPoints(), {0, 6});
        expected.zones = {uid(11)};
        QCOMPARE(link.operations, QStringList({"changeDays"}));
        QCOMPARE(link.days[0].daysOfWeek, expected.daysOfWeek);
        QCOMPARE(link.days[0].zones, expected.zones);
        QCOMPARE(link.days[0].points.size(), std::size_t(2));
        QVERIFY(link.days == Days{expected});
    }

    void anUnknownDayIsNotChanged()
    {
        FakeCommunicator link;
        ScheduleDaysListModel model(link);
        link.publishSchedules({schedule(1, {})});
        clip("before");

        model.changeDay(text(9), "Day", {}, {}, {});
        model.changeDay("nonsense", "Day", {}, {}, {});
        model.changeDay({}, "Day", {}, {}, {});
        model.copyToClipboard(text(9));

        QCOMPARE(link.operations, QStringList());
        QCOMPARE(QGuiApplication::clipboard()->text(), QString("before"));
    }

    void removesByTheUidAlone()
    {
        FakeCommunicator link;
        ScheduleDaysListModel model(link);
        link.publishSchedules({schedule(1, {10})});

        model.removeDay(text(1));

        QCOMPARE(link.operations, QStringList({"removeDays"}));
        QVERIFY(link.days == Days({Model::ScheduleDay(uid(1), {}, {}, {})}));
        QCOMPARE(model.rowCount(), 1);
        model.removeDay("nonsense");
        QCOMPARE(link.operations.size(), 1);
    }

    void setsOneField_data()
    {
        QTest::addColumn<int>("role");
        QTest::addColumn<QVariant>("given");

        QTest::newRow("name") << int(DayRole::Name) << QVariant("Other");
        QTest::newRow("points") << int(DayRole::Points) << QVariant::fromValue(Points::day({"00:00:00"}));
        QTest::newRow("days") << int(DayRole::Days) << QVariant::fromValue(QList<int>{5, 6});
        QTest::newRow("days as a list of variants") << int(DayRole::Days) << QVariant(QVariantList{5, 6.0});
        QTest::newRow("zones") << int(DayRole::Zones) << QVariant(QStringList{text(12)});
        QTest::newRow("zones as a list of variants") << int(DayRole::Zones) << QVariant(QVariantList{text(12)});
    }

    void setsOneField()
    {
        QFETCH(int, role);
        QFETCH(QVariant, given);
        FakeCommunicator link;
        ScheduleDaysListModel model(link);
        const auto before = schedule(1, {10});
        link.publishSchedules({before});
        auto expected = before;
        switch (role) {
        case DayRole::Name: expected.name = "Other"; break;
        case DayRole::Points: expected.points = Points::day({"00:00:00"}); break;
        case DayRole::Days: expected.daysOfWeek = {5, 6}; break;
        case DayRole::Zones: expected.zones = {uid(12)}; break;
        }

        QVERIFY(model.setData(model.index(0), given, role));

        QCOMPARE(link.operations, QStringList({"changeDays"}));
        QVERIFY(link.days == Days{expected});
    }

    void doesNotSetOtherFields()
    {
        FakeCommunicator link;
        ScheduleDaysListModel model(link);
        link.publishSchedules({schedule(1, {10})});

        QVERIFY(!model.setData(model.index(0), text(2), DayRole::Uid));
        QVERIFY(!model.setData(model.index(0), "x", Qt::EditRole));
        QVERIFY(!model.setData(model.index(1), "x", DayRole::Name));
        QVERIFY(!model.setData(QModelIndex(), "x", DayRole::Name));

        QCOMPARE(link.operations, QStringList());
    }

    void namesTheSchedulesThatUseAZone_data()
    {
        QTest::addColumn<uint>("zone");
        QTest::addColumn<uint>("edited");
        QTest::addColumn<QList<int>>("days");
        QTest::addColumn<QStringList>("expected");

        QTest::newRow("without the edited one") << 10U << 1U << QList<int>{0, 6} << QStringList{"Day 2"};
        QTest::newRow("by a new one") << 10U << 9U << QList<int>{0, 6} << QStringList{"Day 1", "Day 2"};
        QTest::newRow("on one day") << 10U << 9U << QList<int>{6} << QStringList{"Day 2"};
        QTest::newRow("on no day") << 10U << 9U << QList<int>() << QStringList();
        QTest::newRow("on a day without schedules") << 10U << 9U << QList<int>{5} << QStringList();
        QTest::newRow("another zone") << 12U << 9U << QList<int>{0, 1, 2, 3, 4, 5, 6} << QStringList();
        QTest::newRow("a schedule of no day") << 11U << 9U << QList<int>{0, 1, 2, 3, 4, 5, 6} << QStringList{"Day 2"};
    }

    void namesTheSchedulesThatUseAZone()
    {
        QFETCH(uint, zone);
        QFETCH(uint, edited);
        QFETCH(QList<int>, days);
        FakeCommunicator link;
        ScheduleDaysListModel model(link);
        link.publishSchedules({schedule(1, {10}, {0, 1}), schedule(2, {10, 11}, {0, 6}), schedule(3, {11}, {})});

        QTEST(model.usedBy(text(zone), text(edited), days), "expected");
    }

    void findsTheSchedulesThatZonesShare()
    {
        FakeCommunicator link;
        ScheduleDaysListModel model(link);
        link.publishSchedules({schedule(1, {10, 11}), schedule(2, {12}), schedule(3, {11})});
        const auto shared = [&](const QStringList &zones) { return setOf(model.commonScheduleForZones(zones)); };

        QCOMPARE(shared({}), QSet<QString>());
        QCOMPARE(shared({"nonsense", QString()}), QSet<QString>());
        QCOMPARE(shared({text(13)}), QSet<QString>());
        QCOMPARE(shared({text(10)}), QSet<QString>({text(1)}));
        QCOMPARE(shared({text(10), text(13)}), QSet<QString>({text(1)}));
        QCOMPARE(shared({text(11)}), QSet<QString>({text(1), text(3)}));
        QCOMPARE(model.commonScheduleForZones({text(10), text(11), text(12)}).size(), 3);
    }

    void aZoneMovesToOneSchedule_data()
    {
        QTest::addColumn<QStringList>("zones");
        QTest::addColumn<QString>("target");
        QTest::addColumn<QVariantMap>("expected"); // schedule to its zones: those that are sent

        const auto zones = [](const QList<uint> &list) {
            QStringList texts;
            for (const uint n : list)
                texts << text(n);
            return QVariant(texts);
        };
        QTest::newRow("from one to another")
            << QStringList{text(12)} << text(1) << QVariantMap{{text(1), zones({10, 11, 12})}, {text(2), zones({})}};
        QTest::newRow("from two to one of them")
            << QStringList{text(11)} << text(3) << QVariantMap{{text(1), zones({10})}, {text(3), zones({11})}};
        QTest::newRow("already there") << QStringList{text(12)} << text(2) << QVariantMap{{text(2), zones({12})}};
        QTest::newRow("to none") << QStringList{text(11), text(12)} << text(9)
                                 << QVariantMap{{text(1), zones({10})}, {text(2), zones({})}, {text(3), zones({})}};
        QTest::newRow("no zones") << QStringList() << text(2) << QVariantMap{{text(2), zones({12})}};
        QTest::newRow("a free zone") << QStringList{text(20)} << text(2) << QVariantMap{{text(2), zones({12, 20})}};
    }

    void aZoneMovesToOneSchedule()
    {
        QFETCH(QStringList, zones);
        QFETCH(QString, target);
        QFETCH(QVariantMap, expected);
        FakeCommunicator link;
        ScheduleDaysListModel model(link);
        const Days before{schedule(1, {10, 11}), schedule(2, {12}), schedule(3, {11}), schedule(4, {13})};
        link.publishSchedules(before);

        model.quickSetSchedule(zones, target);

        QCOMPARE(link.operations, QStringList({"changeDays"}));
        QVariantMap sent;
        for (const auto &day : link.days) {
            QStringList list;
            for (const auto &zone : day.zones)
                list << zone.toString();
            list.sort();
            sent.insert(day.uid.toString(), list);
            const auto old =
                std::find_if(before.begin(), before.end(), [&](const auto &one) { return one.uid == day.uid; });
            QVERIFY(old != before.end());
            QCOMPARE(day.name, old->name);
            QVERIFY(day.points == old->points);
            QCOMPARE(day.daysOfWeek, old->daysOfWeek);
        }
        QCOMPARE(sent, expected);
        QCOMPARE(link.days.size(), std::size_t(expected.size()));
    }

    void sendsNothingWhereNothingMoves()
    {
        FakeCommunicator link;
        ScheduleDaysListModel model(link);
        link.publishSchedules({schedule(1, {10})});

        model.quickSetSchedule({text(20)}, text(9));

        QCOMPARE(link.operations, QStringList());
    }

    void copiesADayAsIndentedJson()
    {
        FakeCommunicator link;
        ScheduleDaysListModel model(link);
        const auto day = schedule(1, {10});
        link.publishSchedules({day});

        model.copyToClipboard(text(1));

        auto copied = clipped();
        QCOMPARE(QGuiApplication::clipboard()->text().toUtf8(), QJsonDocument(copied).toJson(QJsonDocument::Indented));
        QCOMPARE(copied.take("meta_info").toString(), QString("OndiraSmart schedule data, version 4.5.2"));
        QCOMPARE(copied.keys(), QStringList({"daysOfWeek", "name", "points", "uid", "zones"}));
        QVERIFY(Model::ScheduleDay::fromVariant(copied.toVariantMap()) == day);
    }

    void pastesACopyOfADay()
    {
        FakeCommunicator link;
        ScheduleDaysListModel model(link);
        const auto day = schedule(1, {10, 11}, {5, 6});
        link.publishSchedules({day});
        QJSEngine engine;
        expose(engine, "model", model);
        model.copyToClipboard(text(1));

        engine.evaluate("var given; model.addFromClipboard(function(uids) { given = uids })");

        QCOMPARE(link.operations, QStringList({"addDays"}));
        auto expected = day;
        expected.uid = QUuid();
        expected.name = "Day 1 Копия";
        QVERIFY(link.days == Days{expected});
        link.uidsCallback({uid(7)});
        QCOMPARE(engine.evaluate("given.join()").toString(), text(7));
    }

    void pastesWhatHoldsTheMarkerAlone_data()
    {
        QTest::addColumn<QString>("clipboard");
        QTest::addColumn<bool>("pasted");
        QTest::addColumn<QString>("name");

        QTest::newRow("empty") << QString() << false << QString();
        QTest::newRow("any text") << "OndiraSmart" << false << QString();
        QTest::newRow("a point") << R"({"meta_info": "OndiraSmart schedule point data, version 4.5.2", "name": "N"})"
                                 << false << QString();
        QTest::newRow("a blueprint") << R"({"meta_info": "OndiraSmart blueprint data, version 4.5.2", "name": "N"})"
                                     << false << QString();
        QTest::newRow("other case") << R"({"meta_info": "ondirasmart schedule data", "name": "N"})" << false
                                    << QString();
        QTest::newRow("no marker") << R"({"name": "N", "daysOfWeek": [1]})" << false << QString();
        QTest::newRow("another version") << R"({"meta_info": "OndiraSmart schedule data, version 99", "name": "N"})"
                                         << true << "N Копия";
        QTest::newRow("marker elsewhere")
            << R"({"other": ["OndiraSmart schedule data"], "name": "N"})" << true << "N Копия";
        QTest::newRow("broken document") << R"({"meta_info": "OndiraSmart schedule data", "name": )" << true
                                         << " Копия";
        QTest::newRow("the marker alone") << "OndiraSmart schedule data" << true << " Копия";
        QTest::newRow("a list") << R"(["OndiraSmart schedule data"])" << true << " Копия";
        QTest::newRow("wrong types")
            << R"({"meta_info": "OndiraSmart schedule data", "name": "N", "uid": 5, "points": "x", "zones": {}, "daysOfWeek": null})"
            << true << "N Копия";
    }

    void pastesWhatHoldsTheMarkerAlone()
    {
        QFETCH(QString, clipboard);
        QFETCH(bool, pasted);
        QFETCH(QString, name);
        FakeCommunicator link;
        ScheduleDaysListModel model(link);
        clip(clipboard);

        model.addFromClipboard();

        QCOMPARE(link.operations, pasted ? QStringList{"addDays"} : QStringList());
        QVERIFY(link.days == (pasted ? Days{Model::ScheduleDay(QUuid(), name, {}, {})} : Days()));
    }

    void pastedPointsAreSorted()
    {
        FakeCommunicator link;
        ScheduleDaysListModel model(link);
        clip(
            R"({"meta_info": "OndiraSmart schedule data", "points": [{"time": "12:00:00"}, {"time": "08:00:00.250"}]})");

        model.addFromClipboard();

        QCOMPARE(link.days.at(0).points.size(), std::size_t(2));
        QCOMPARE(link.days[0].points[0].time, QTime(8, 0));
        QCOMPARE(link.days[0].points[1].time, QTime(12, 0));
    }

    void followsRandomPublications()
    {
        FakeCommunicator link;
        ScheduleDaysListModel model(link);
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        ListMirror mirror(model);
        allowMessages("topLeft.isValid|bottomRight.isValid"); // an empty list is announced all the same
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        QRandomGenerator random(5);
        QStringList expected;
        for (int round = 0; round < 300; ++round) {
            Days list;
            QStringList fresh;
            QHash<QString, QString> names;
            for (uint n = 1; n <= 12; ++n) {
                if (random.bounded(3) > 0)
                    list.push_back(schedule(n, {random.bounded(5U)}, {static_cast<int>(random.bounded(7))}));
            }
            std::shuffle(list.begin(), list.end(), random);
            for (auto &day : list) {
                day.name = QString::number(random.bounded(1000));
                fresh << day.uid.toString();
                names.insert(fresh.last(), day.name);
            }
            expected = MirrorList::merged(expected, fresh);

            link.publishSchedules(list);

            QCOMPARE(column(model, DayRole::Uid), expected);
            for (int row = 0; row < model.rowCount(); ++row)
                QCOMPARE(value(model, row, DayRole::Name).toString(), names.value(expected.at(row)));
            QCOMPARE(mirror.uids, expected);
        }
        QCOMPARE(resets.count(), 0);
    }

    void aLateAnswerAfterItsEndIsLost()
    {
        FakeCommunicator link;
        QJSEngine engine;
        auto model = std::make_unique<ScheduleDaysListModel>(link);
        engine.evaluate("var given = 'none'");
        model->addDay(engine.evaluate("(function(uids) { given = uids })"));
        model.reset();

        link.uidsCallback({uid(5)});

        QCOMPARE(engine.evaluate("given").toString(), QString("none"));
    }
};

ONDIRA_TEST(ScheduleDaysListModelTest)
#include "ScheduleDaysListModelTest.moc"
