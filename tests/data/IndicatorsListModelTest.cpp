// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/IndicatorsListModel.h"
#include "ListMirror.h"
#include "Records.h"
#include "ScriptTools.h"
#include "SignalLog.h"
#include "data/UsersListModel.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <QAbstractItemModelTester>
#include <QColor>
#include <QJSEngine>
#include <QtNumeric>

using namespace Records;
using Role = IndicatorsListModel::Role;

namespace {

struct Site
{
    Site()
        : users(link)
        , indicators(link, users)
    {}

    FakeCommunicator link;
    UsersListModel users;
    IndicatorsListModel indicators;
    QJSEngine engine;
};

Model::Indicator indicator(uint n, uint part = 3)
{
    Model::Indicator record;
    record.uid = uid(n);
    record.partUid = uid(part);
    record.label = QStringLiteral("Label");
    return record;
}

Model::Indicator showing(uint n, uint device, const QString &property)
{
    auto record = indicator(n);
    record.indicatorType = 1;
    record.displayValue = Model::Indicator::DisplayValue{uid(device), property};
    return record;
}

Model::IndicatorState stateOf(uint n)
{
    Model::IndicatorState state;
    state.uid = uid(n);
    return state;
}

} // namespace

class IndicatorsListModelTest : public TestBase
{
    Q_OBJECT

private slots:
    void namesItsRoles()
    {
        Site site;
        const QHash<int, QByteArray> expected{{257, "uid"},
                                              {258, "partUid"},
                                              {259, "indicatorType"},
                                              {260, "visible"},
                                              {261, "opacity"},
                                              {262, "label"},
                                              {263, "text"},
                                              {264, "icon"},
                                              {265, "x"},
                                              {266, "y"},
                                              {267, "width"},
                                              {268, "height"},
                                              {269, "textColor"},
                                              {270, "iconColor"},
                                              {271, "valueDevice"},
                                              {272, "valueProperty"},
                                              {273, "sort"},
                                              {274, "horizontalAlignment"}};

        QCOMPARE(site.indicators.roleNames(), expected);
    }

    void presentsAnIndicator()
    {
        Site site;
        auto record = showing(7, 9, "temperature");
        record.icon = "alert/error";
        record.position = {10.5, 20.25};
        record.width = 300;
        record.height = 400;
        record.textColor = "#010203";
        record.iconColor = "red";
        record.horizontalAlignment = 2;
        site.link.publishDeviceStates({state(9, {{"temperature", 21.5}})});

        site.link.publishIndicators({record});

        QCOMPARE(site.indicators.getByUid(text(7)),
                 (QVariantMap{{"uid", text(7)},
                              {"partUid", uid(3)},
                              {"indicatorType", 1},
                              {"visible", true},
                              {"opacity", 1.0},
                              {"label", "Label"},
                              {"text", "21.5"},
                              {"icon", "alert/error"},
                              {"x", 10.5},
                              {"y", 20.25},
                              {"width", 300.0},
                              {"height", 400.0},
                              {"textColor", QColor(1, 2, 3)},
                              {"iconColor", QColor(Qt::red)},
                              {"valueDevice", text(9)},
                              {"valueProperty", "temperature"},
                              {"sort", text(3) + ":Label"},
                              {"horizontalAlignment", 2U}}));
        QCOMPARE(value(site.indicators, 0, Role::HorizontalAlignment).userType(), int(QMetaType::UInt));
        QCOMPARE(value(site.indicators, 0, Role::PartUid).toString(), text(3));
        QVERIFY(!value(site.indicators, 1, Role::Uid).isValid());
        QVERIFY(!value(site.indicators, 0, Role::HorizontalAlignment + 1).isValid());
    }

    void withoutADisplayValueThereIsNoDevice()
    {
        Site site;

        site.link.publishIndicators({indicator(1)});

        QVERIFY(!value(site.indicators, 0, Role::ValueDevice).isValid());
        QVERIFY(!value(site.indicators, 0, Role::ValueProperty).isValid());
    }

    void coloursThatCannotBeReadAreNone()
    {
        Site site;
        auto record = indicator(1);
        record.textColor = "no such colour";
        record.iconColor = "";

        site.link.publishIndicators({record});

        QCOMPARE(value(site.indicators, 0, Role::TextColor), QVariant(QColor()));
        QCOMPARE(value(site.indicators, 0, Role::IconColor), QVariant(QColor()));
    }

    void showsTheValueOfItsDevice_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("expected");

        QTest::newRow("number") << QVariant(21.5) << "21.5";
        QTest::newRow("whole number") << QVariant(21) << "21";
        QTest::newRow("text") << QVariant("open") << "open";
        QTest::newRow("truth") << QVariant(true) << "true";
        QTest::newRow("null") << QVariant::fromValue(nullptr) << "";
        QTest::newRow("none") << QVariant() << "";
        QTest::newRow("list") << QVariant(QVariantList{1, "two"}) << R"([1,"two"])";
        QTest::newRow("map") << QVariant(QVariantMap{{"b", 1}, {"a", QVariantList{2.5}}}) << R"({"a":[2.5],"b":1})";
        QTest::newRow("empty list") << QVariant(QVariantList()) << "[]";
        QTest::newRow("empty map") << QVariant(QVariantMap()) << "{}";
        QTest::newRow("markup stays a text") << QVariant("<b>1</b>") << "<b>1</b>";
    }

    void showsTheValueOfItsDevice()
    {
        QFETCH(QVariant, value);
        Site site;
        site.link.publishIndicators({showing(1, 9, "p")});

        site.link.publishDeviceStates({state(9, {{"p", value}})});

        QTEST(Records::value(site.indicators, 0, Role::Text).toString(), "expected");
    }

    void withoutAValueTheTextIsEmpty()
    {
        Site site;

        site.link.publishIndicators({showing(1, 9, "p")});
        QCOMPARE(value(site.indicators, 0, Role::Text), QVariant(QString()));
        site.link.publishDeviceStates({state(9, {{"other", 5}}), state(8, {{"p", 5}})});
        QCOMPARE(value(site.indicators, 0, Role::Text), QVariant(QString()));
    }

    void withoutADeviceTheTextIsTheLabel()
    {
        Site site;
        auto record = indicator(1);
        record.indicatorType = 1;
        auto textual = showing(2, 9, "p");
        textual.indicatorType = 0;
        auto strange = showing(3, 9, "p");
        strange.indicatorType = 7;
        site.link.publishDeviceStates({state(9, {{"p", 5}})});

        site.link.publishIndicators({record, textual, strange});

        QCOMPARE(column(site.indicators, Role::Text), QStringList({"Label", "Label", "Label"}));
    }

    void theRulesWinOverTheDevice()
    {
        Site site;
        site.link.publishDeviceStates({state(9, {{"p", 5}})});
        site.link.publishIndicators({showing(1, 9, "p"), showing(2, 9, "p"), indicator(3)});
        auto said = stateOf(1);
        said.text = QStringLiteral("alarm");
        auto empty = stateOf(2);
        empty.text = QString("");

        site.link.publishIndicatorStates({said, empty});
        QCOMPARE(column(site.indicators, Role::Text), QStringList({"alarm", "", "Label"}));
        site.link.publishDeviceStates({state(9, {{"p", 6}})});
        QCOMPARE(column(site.indicators, Role::Text), QStringList({"alarm", "", "Label"}));
        site.link.publishIndicatorStates({stateOf(1), stateOf(2)});
        QCOMPARE(column(site.indicators, Role::Text), QStringList({"6", "6", "Label"}));
    }

    void announcesTheTextsOfTheDevicesThatReport()
    {
        Site site;
        site.link.publishIndicators({showing(1, 9, "p"), indicator(2), showing(3, 9, "q"), showing(4, 8, "p")});
        site.link.publishDeviceStates({state(9, {{"p", 1}, {"q", 1}})});
        QAbstractItemModelTester tester(&site.indicators, QAbstractItemModelTester::FailureReportingMode::Warning);
        SignalLog log(site.indicators);

        site.link.publishDeviceStates({state(9, {{"p", 1}, {"q", 2}})});
        QCOMPARE(log.take(), QStringList({"changed 0-0: 263", "changed 2-2: 263"}));
        site.link.publishDeviceStates({state(9, {{"p", true}, {"q", 2}}), state(8, {{"p", "x"}})});
        QCOMPARE(log.take(), QStringList({"changed 0-0: 263", "changed 2-2: 263", "changed 3-3: 263"}));
        site.link.publishDeviceStates({state(8, {{"p", "X"}}), state(8, {{"p", "X"}})});
        QCOMPARE(log.take(), QStringList({"changed 3-3: 263"}));
        site.link.publishDeviceStates({state(7, {{"p", "X"}})});
        QCOMPARE(log.take(), QStringList());
        site.link.publishDeviceStates({state(8, {})});
        QCOMPARE(column(site.indicators, Role::Text), QStringList({"true", "Label", "2", ""}));
    }

    void announcesOnlyWhatTheRulesChanged_data()
    {
        QTest::addColumn<Model::IndicatorState>("next");
        QTest::addColumn<QStringList>("expected");

        auto all = stateOf(2);
        all.opacity = 0.5;
        all.text = QString("t");
        all.textColor = QString("red");
        all.icon = QString("i");
        all.iconColor = QString("blue");
        QTest::newRow("all") << all << QStringList{"changed 1-1: 260 261 263 269 264 270"};
        QTest::newRow("nothing") << stateOf(2) << QStringList();
        auto opacity = stateOf(2);
        opacity.opacity = 0;
        QTest::newRow("opacity") << opacity << QStringList{"changed 1-1: 260 261"};
        auto text = stateOf(2);
        text.text = QString("");
        QTest::newRow("empty text") << text << QStringList{"changed 1-1: 263"};
        auto textColor = stateOf(2);
        textColor.textColor = QString("red");
        QTest::newRow("text colour") << textColor << QStringList{"changed 1-1: 269"};
        auto icon = stateOf(2);
        icon.icon = QString("");
        QTest::newRow("empty icon") << icon << QStringList{"changed 1-1: 264"};
        auto iconColor = stateOf(2);
        iconColor.iconColor = QString("red");
        QTest::newRow("icon colour") << iconColor << QStringList{"changed 1-1: 270"};
        QTest::newRow("unknown indicator") << stateOf(5) << QStringList();
    }

    void announcesOnlyWhatTheRulesChanged()
    {
        QFETCH(Model::IndicatorState, next);
        Site site;
        site.link.publishIndicators({indicator(1), indicator(2)});
        QAbstractItemModelTester tester(&site.indicators, QAbstractItemModelTester::FailureReportingMode::Warning);
        SignalLog log(site.indicators);

        site.link.publishIndicatorStates({next});
        QTEST(log.take(), "expected");
        site.link.publishIndicatorStates({next});
        QCOMPARE(log.take(), QStringList());
    }

    void overridesOfTheRulesShow()
    {
        Site site;
        auto record = indicator(1);
        record.icon = "own";
        record.textColor = "#111111";
        record.iconColor = "#222222";
        site.link.publishIndicators({record});
        auto over = stateOf(1);
        over.opacity = 0.0;
        over.icon = QString("");
        over.textColor = QString("#333333");
        over.iconColor = QString("#444444");

        site.link.publishIndicatorStates({over});
        QCOMPARE(value(site.indicators, 0, Role::Visible).toBool(), false);
        QCOMPARE(value(site.indicators, 0, Role::Opacity).toDouble(), 0.0);
        QCOMPARE(value(site.indicators, 0, Role::Icon), QVariant(QString("")));
        QCOMPARE(value(site.indicators, 0, Role::TextColor), QVariant(QColor("#333333")));
        QCOMPARE(value(site.indicators, 0, Role::IconColor), QVariant(QColor("#444444")));
        site.link.publishIndicatorStates({stateOf(1)});
        QCOMPARE(value(site.indicators, 0, Role::Visible).toBool(), true);
        QCOMPARE(value(site.indicators, 0, Role::Icon), QVariant(QString("own")));
        QCOMPARE(value(site.indicators, 0, Role::TextColor), QVariant(QColor("#111111")));
        QCOMPARE(value(site.indicators, 0, Role::IconColor), QVariant(QColor("#222222")));
    }

    void statesBeforeTheirIndicatorAreKept()
    {
        Site site;
        auto over = stateOf(1);
        over.text = QString("early");

        site.link.publishIndicatorStates({over});
        site.link.publishDeviceStates({state(9, {{"p", 5}})});
        site.link.publishDeviceStates({state(8, {{"p", 6}})}); // a list need not name every device
        site.link.publishIndicators({indicator(1), showing(2, 9, "p")});

        QCOMPARE(column(site.indicators, Role::Text), QStringList({"early", "5"}));
        const IndicatorsListModel late(site.link, site.users);
        QCOMPARE(column(late, Role::Text), QStringList({"early", ""}));
    }

    void aClosedLinkForgetsStates()
    {
        Site site;
        site.link.logIn("anna", "user");
        auto over = stateOf(1);
        over.text = QString("old");
        site.link.publishIndicatorStates({over});
        site.link.publishDeviceStates({state(9, {{"p", 5}})});
        site.link.publishIndicators({indicator(1), showing(2, 9, "p")});

        site.link.enter(FakeCommunicator::Connecting);
        QCOMPARE(column(site.indicators, Role::Text), QStringList({"old", "5"}));
        site.link.enter(FakeCommunicator::Disconnected);
        QCOMPARE(site.indicators.rowCount(), 0);
        site.link.publishIndicators({indicator(1), showing(2, 9, "p")});
        QCOMPARE(column(site.indicators, Role::Text), QStringList({"Label", ""}));
    }

    void followsRandomPublications()
    {
        allowMessages("topLeft.isValid|bottomRight.isValid"); // a list that becomes empty is announced all the same
        Site site;
        followRandomPublications(site.indicators, site.link, [&](const std::vector<Placed> &list) {
            std::vector<Model::Indicator> indicators;
            for (const auto &one : list)
                indicators.push_back(indicator(one.uid, one.part));
            site.link.publishIndicators(indicators);
        });
    }

    void addsAnIndicatorAtAFreePlace()
    {
        Site site;
        auto present = indicator(1);
        present.position = {10, 20};
        site.link.publishIndicators({present});
        const auto value = site.engine.evaluate(QString("({width: 60, height: 40, partUid: '%1'})").arg(text(3)));

        site.indicators.addIndicator(value);

        Model::Indicator expected;
        expected.partUid = uid(3);
        expected.label = "Индикатор";
        expected.position = {110, 20};
        expected.width = 60;
        expected.height = 40;
        expected.textColor = "#000000";
        expected.iconColor = "#F00000";
        QCOMPARE(site.link.operations, QStringList({"addIndicators"}));
        QCOMPARE(site.link.indicators, std::vector<Model::Indicator>{expected});
    }

    void addsAnIndicatorAsItIsGiven()
    {
        Site site;
        expose(site.engine, "indicators", site.indicators);

        site.engine.evaluate(QString("indicators.addIndicator({x: 1, y: 2, width: 3, height: 4, partUid: '%1', "
                                     "textColor: '#123456', iconColor: '#654321', horizontalAlignment: 3}, "
                                     "function(uids) { got = uids.join(); })")
                                 .arg(text(3)));
        site.link.uidsCallback({uid(5)});

        const auto added = site.link.indicators.at(0);
        QCOMPARE(added.position, (Model::Position{1, 2}));
        QCOMPARE(added.textColor, QString("#123456"));
        QCOMPARE(added.iconColor, QString("#654321"));
        QCOMPARE(added.horizontalAlignment, 3U);
        QCOMPARE(site.engine.globalObject().property("got").toString(), text(5));
    }

    void whatCannotBeReadLeavesTheUsual()
    {
        Site site;

        site.indicators.addIndicator(site.engine.evaluate(
            "({width: NaN, height: Infinity, x: 1, y: NaN, textColor: null, horizontalAlignment: -1, partUid: 5})"));
        site.indicators.addIndicator(site.engine.evaluate("'text'"));

        Model::Indicator expected;
        expected.label = "Индикатор";
        QCOMPARE(site.link.operations, QStringList({"addIndicators"}));
        QCOMPARE(site.link.indicators, std::vector<Model::Indicator>{expected});
    }

    void changesOnlyWhatIsNamed()
    {
        Site site;
        auto record = showing(1, 9, "p");
        record.position = {1, 2};
        site.link.publishIndicators({record});
        expose(site.engine, "indicators", site.indicators);

        const auto result = site.engine.evaluate(
            QString("indicators.changeIndicator({uid: '%1', x: 10, y: 20, width: 30, height: 40})").arg(text(1)));

        QVERIFY2(!result.isError(), qPrintable(result.toString()));
        record.position = {10, 20};
        record.width = 30;
        record.height = 40;
        QCOMPARE(site.link.operations, QStringList({"changeIndicators"}));
        QCOMPARE(site.link.indicators, std::vector<Model::Indicator>{record});
    }

    void changesAllThatADialogKnows()
    {
        Site site;
        auto record = indicator(1);
        site.link.publishIndicators({record});

        site.indicators.changeIndicator(QVariantMap{{"uid", text(1)},
                                                    {"indicatorType", 1},
                                                    {"label", "New"},
                                                    {"icon", ""},
                                                    {"textColor", QColor(Qt::red)},
                                                    {"iconColor", "#00ff00"},
                                                    {"valueDevice", text(9)},
                                                    {"valueProperty", "p"},
                                                    {"horizontalAlignment", 1}});

        record.indicatorType = 1;
        record.label = "New";
        record.textColor = "#ff0000";
        record.iconColor = "#00ff00";
        record.displayValue = Model::Indicator::DisplayValue{uid(9), "p"};
        record.horizontalAlignment = 1;
        QCOMPARE(site.link.indicators, std::vector<Model::Indicator>{record});
    }

    void deviceAndPropertyGoTogether_data()
    {
        QTest::addColumn<QVariantMap>("fields");
        QTest::addColumn<QString>("expected"); // empty: no value

        QTest::newRow("neither") << QVariantMap{} << text(9) + " p";
        QTest::newRow("both") << QVariantMap{{"valueDevice", text(8)}, {"valueProperty", "q"}} << text(8) + " q";
        QTest::newRow("device alone") << QVariantMap{{"valueDevice", text(8)}} << text(9) + " p";
        QTest::newRow("property alone") << QVariantMap{{"valueProperty", "q"}} << text(9) + " p";
        QTest::newRow("null device") << QVariantMap{{"valueDevice", QVariant::fromValue(nullptr)},
                                                    {"valueProperty", "q"}}
                                     << QString();
        QTest::newRow("empty device") << QVariantMap{{"valueDevice", ""}, {"valueProperty", ""}} << QString();
        QTest::newRow("uid") << QVariantMap{{"valueDevice", uid(8)}, {"valueProperty", "q"}} << text(8) + " q";
    }

    void deviceAndPropertyGoTogether()
    {
        QFETCH(QVariantMap, fields);
        Site site;
        site.link.publishIndicators({showing(1, 9, "p")});

        fields.insert("uid", text(1));
        site.indicators.changeIndicator(fields);

        const auto display = site.link.indicators.at(0).displayValue;
        QTEST(display ? display->device.toString() + ' ' + display->property : QString(), "expected");
    }

    void changesNothingThatIsNotThereOrNotFinite()
    {
        Site site;
        const auto record = indicator(1);
        site.link.publishIndicators({record});

        site.indicators.changeIndicator(QVariantMap{{"uid", text(2)}, {"label", "New"}});
        site.indicators.changeIndicator(QVariantMap{{"label", "New"}});
        site.indicators.changeIndicator(QVariant());
        QCOMPARE(site.link.operations, QStringList());
        site.indicators.changeIndicator(
            QVariantMap{{"uid", text(1)}, {"x", qQNaN()}, {"y", qInf()}, {"width", "nan"}, {"height", QVariantMap()}});
        QCOMPARE(site.link.indicators, std::vector<Model::Indicator>{record});
    }

    void removesByUid()
    {
        Site site;

        site.indicators.removeIndicators({text(1), "nonsense", QUuid().toString()});
        site.indicators.removeIndicators({});
        site.indicators.removeIndicators({QUuid().toString()});

        Model::Indicator expected;
        expected.uid = uid(1);
        QCOMPARE(site.link.operations, QStringList({"removeIndicators"}));
        QCOMPARE(site.link.indicators, std::vector<Model::Indicator>{expected});
    }
};

ONDIRA_TEST(IndicatorsListModelTest)
#include "IndicatorsListModelTest.moc"
