// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ButtonsListModel.h"
#include "ListMirror.h"
#include "Records.h"
#include "ScriptTools.h"
#include "SignalLog.h"
#include "data/UsersListModel.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <QAbstractItemModelTester>
#include <QJSEngine>
#include <QtNumeric>
#include <algorithm>

using namespace Records;
using Role = ButtonsListModel::Role;
using State = Model::ButtonState::State;

namespace {

struct Site
{
    Site()
        : users(link)
        , buttons(link, users)
    {}

    FakeCommunicator link;
    UsersListModel users;
    ButtonsListModel buttons;
    QJSEngine engine;
};

Model::Button button(uint n, uint part = 3, const QString &name = {})
{
    Model::Button record;
    record.uid = uid(n);
    record.partUid = uid(part);
    record.name = name;
    return record;
}

Model::Button placed(uint n, double x, double y, double width, double height)
{
    auto record = button(n);
    record.position = {x, y};
    record.width = width;
    record.height = height;
    return record;
}

QVariantList someActions()
{
    Model::ActionBlueprintInstance instance;
    instance.blueprint = uid(50);
    return Model::ActionSequence{{instance}}.toVariant().toList();
}

} // namespace

class ButtonsListModelTest : public TestBase
{
    Q_OBJECT

private slots:
    void namesItsRoles()
    {
        Site site;
        const QHash<int, QByteArray> expected{
            {257, "uid"},     {258, "name"},     {259, "toggle"},   {260, "affectedZonesNames"},
            {261, "x"},       {262, "y"},        {263, "height"},   {264, "width"},
            {265, "state"},   {266, "onColor"},  {267, "offColor"}, {268, "actions"},
            {269, "partUid"}, {270, "partName"}, {271, "sort"}};

        QCOMPARE(site.buttons.roleNames(), expected);
    }

    void presentsAButton()
    {
        Site site;
        auto record = placed(7, 10.5, 20.25, 300, 400);
        record.name = "Light";
        record.toggle = true;
        record.onColor = "green";
        record.offColor = "#ff0000";
        record.blueprints = Model::ActionSequence::fromVariant(someActions());
        site.link.publishShopParts({part(3, "Floor")});
        site.link.publishButtonStates({{uid(7), State::On}});

        site.link.publishButtons({record});

        QCOMPARE(site.buttons.getByUid(text(7)),
                 (QVariantMap{{"uid", text(7)},
                              {"name", "Light"},
                              {"toggle", true},
                              {"affectedZonesNames", QStringList()},
                              {"x", 10.5},
                              {"y", 20.25},
                              {"height", 400.0},
                              {"width", 300.0},
                              {"state", 1},
                              {"onColor", "green"},
                              {"offColor", "#ff0000"},
                              {"actions", record.blueprints.toVariant()},
                              {"partUid", text(3)},
                              {"partName", "Floor"},
                              {"sort", "Floor" + text(3) + "Light"}}));
        QCOMPARE(value(site.buttons, 0, Role::State).userType(), int(QMetaType::Int));
        QCOMPARE(value(site.buttons, 0, Role::Toggle).userType(), int(QMetaType::Bool));
        QCOMPARE(value(site.buttons, 0, Role::Actions).toList().size(), 1);
    }

    void aRowThatIsNotThereHasNoValue()
    {
        Site site;
        site.link.publishButtons({button(1)});

        QVERIFY(!value(site.buttons, 1, Role::Uid).isValid());
        QVERIFY(!value(site.buttons, 0, Qt::DisplayRole).isValid());
        QVERIFY(!value(site.buttons, 0, Role::Sort + 1).isValid());
        QCOMPARE(site.buttons.rowCount(site.buttons.index(0)), 0);
    }

    void withoutItsPartAButtonHasNoPartName()
    {
        Site site;

        site.link.publishButtons({button(1, 3, "a")});

        QCOMPARE(value(site.buttons, 0, Role::PartName), QVariant(QString()));
        QCOMPARE(value(site.buttons, 0, Role::Sort).toString(), text(3) + "a");
    }

    void aRenamedPartReachesItsButtons()
    {
        Site site;
        site.link.publishShopParts({part(3, "Floor"), part(4, "Roof")});
        site.link.publishButtons({button(1, 3, "a"), button(2, 4, "b"), button(5, 3, "c")});

        site.link.publishShopParts({part(3, "Hall"), part(4, "Roof")});

        QCOMPARE(column(site.buttons, Role::PartName), QStringList({"Hall", "Roof", "Hall"}));
        QCOMPARE(value(site.buttons, 0, Role::Sort).toString(), "Hall" + text(3) + "a");
        site.link.publishShopParts({});
        QCOMPARE(column(site.buttons, Role::PartName), QStringList({"", "", ""}));
    }

    void statesAreReplacedAsAWhole()
    {
        Site site;
        site.link.publishButtons({button(1), button(2), button(3)});
        QCOMPARE(column(site.buttons, Role::State), QStringList({"0", "0", "0"}));
        QAbstractItemModelTester tester(&site.buttons, QAbstractItemModelTester::FailureReportingMode::Warning);
        SignalLog log(site.buttons);

        site.link.publishButtonStates({{uid(1), State::On}, {uid(3), State::On}, {uid(99), State::On}});
        QCOMPARE(log.take(), QStringList({"changed 0-2: 265"}));
        QCOMPARE(column(site.buttons, Role::State), QStringList({"1", "0", "1"}));
        site.link.publishButtonStates({{uid(2), State::On}});
        QCOMPARE(log.take(), QStringList({"changed 0-2: 265"}));
        QCOMPARE(column(site.buttons, Role::State), QStringList({"0", "1", "0"}));
    }

    void aStateBeforeItsButtonIsKept()
    {
        Site site;
        SignalLog log(site.buttons);

        site.link.publishButtonStates({{uid(1), State::On}});
        QCOMPARE(log.take(), QStringList());
        site.link.publishButtons({button(1), button(2)});

        QCOMPARE(column(site.buttons, Role::State), QStringList({"1", "0"}));
    }

    void aFreshListKeepsTheStates()
    {
        Site site;
        site.link.publishButtons({button(1)});
        site.link.publishButtonStates({{uid(1), State::On}});

        site.link.publishButtons({button(2), button(1)});

        QCOMPARE(column(site.buttons, Role::Uid), QStringList({text(1), text(2)}));
        QCOMPARE(column(site.buttons, Role::State), QStringList({"1", "0"}));
    }

    void aModelMadeLateReadsWhatWasPublished()
    {
        Site site;
        site.link.publishShopParts({part(3, "Floor")});
        site.link.publishButtonStates({{uid(1), State::On}});
        site.link.publishButtons({button(1)});

        const ButtonsListModel late(site.link, site.users);

        QCOMPARE(column(late, Role::PartName), QStringList({"Floor"}));
        QCOMPARE(column(late, Role::State), QStringList({"1"}));
    }

    void followsRandomPublications()
    {
        allowMessages("topLeft.isValid|bottomRight.isValid"); // a list that becomes empty is announced all the same
        Site site;
        followRandomPublications(site.buttons, site.link, [&](const std::vector<Placed> &list) {
            std::vector<Model::Button> buttons;
            for (const auto &one : list)
                buttons.push_back(button(one.uid, one.part));
            site.link.publishButtons(buttons);
        });
    }

    void rightsGoByThePart()
    {
        Site site;
        site.link.logIn("anna", "user");
        site.link.publishButtons({button(1, 3), button(2, 4)});

        site.link.publishUsers({limitedUser("anna", {uid(4)})});
        QCOMPARE(column(site.buttons, Role::Uid), QStringList({text(2)}));
        site.link.publishUsers({limitedUser("anna", {uid(1)})});
        QCOMPARE(site.buttons.rowCount(), 0);
        site.link.publishUsers({user("anna")});
        QCOMPARE(site.buttons.rowCount(), 2);
    }

    void aClosedLinkEmptiesIt()
    {
        Site site;
        site.link.logIn("anna", "user");
        site.link.publishButtons({button(1)});

        site.link.enter(FakeCommunicator::Connecting);
        QCOMPARE(site.buttons.rowCount(), 1);
        site.link.enter(FakeCommunicator::Disconnected);
        QCOMPARE(site.buttons.rowCount(), 0);
    }

    void findsAFreePlace_data()
    {
        QTest::addColumn<double>("x");
        QTest::addColumn<double>("y");
        QTest::addColumn<double>("width"); // of the button that stands there
        QTest::addColumn<double>("height");
        QTest::addColumn<double>("newWidth");
        QTest::addColumn<double>("expectedX");
        QTest::addColumn<double>("expectedY");

        QTest::newRow("behind it") << 0. << 0. << 80. << 80. << 80. << 80. << 0.;
        QTest::newRow("up to the edge") << 3936. << 0. << 80. << 80. << 80. << 4016. << 0.;
        QTest::newRow("past the edge") << 3936. << 0. << 80.5 << 80. << 80. << 0. << 80.;
        QTest::newRow("wide one wraps") << 2000. << 0. << 1000. << 500. << 3000. << 0. << 500.;
        QTest::newRow("lower line") << 50. << 700. << 100. << 100. << 80. << 150. << 700.;
        QTest::newRow("same line after rounding") << 0. << -0.4 << 100. << 10. << 80. << 100. << double(-0.4F);
        QTest::newRow("another line after rounding") << 0. << -0.6 << 100. << 10. << 80. << 0. << 0.;
        QTest::newRow("above the canvas counts for nothing") << 0. << -50. << 100. << 10. << 80. << 0. << 0.;
        QTest::newRow("left of the canvas counts for nothing") << -500. << 0. << 100. << 10. << 80. << 0. << 0.;
        QTest::newRow("single precision")
            << 0.1 << 0.1 << 0.2 << 10. << 80. << double(float(0.1 + 0.2)) << double(0.1F);
        QTest::newRow("single precision after a wrap")
            << 4080. << 0.1 << 5. << 0.2 << 80. << 0. << double(float(0.1 + 0.2));
        QTest::newRow("not a number counts for nothing") << qQNaN() << qQNaN() << 10. << 10. << 80. << 0. << 0.;
        QTest::newRow("beyond all numbers") << 0. << 1e308 << 10. << 1e308 << 80. << 0. << 0.;
    }

    void findsAFreePlace()
    {
        QFETCH(double, x);
        QFETCH(double, y);
        QFETCH(double, width);
        QFETCH(double, height);
        QFETCH(double, newWidth);
        Site site;
        site.link.publishButtons({placed(1, x, y, width, height)});
        auto value = site.engine.newObject();
        value.setProperty("width", newWidth);
        value.setProperty("height", 80);
        value.setProperty("partUid", text(3));

        site.buttons.addButton(value);

        QCOMPARE(site.link.buttons.size(), std::size_t(1));
        QTEST(site.link.buttons[0].position.x, "expectedX");
        QTEST(site.link.buttons[0].position.y, "expectedY");
    }

    void theFirstButtonOfAPartGoesToTheCorner()
    {
        Site site;
        auto other = placed(1, 500, 600, 80, 80);
        other.partUid = uid(4);
        site.link.publishButtons({other});

        site.buttons.addButton(site.engine.evaluate(QString("({partUid: '%1'})").arg(text(3))));

        QCOMPARE(site.link.buttons.at(0).position, (Model::Position{0, 0}));
    }

    void aFullLineGoesOnInTheNext()
    {
        Site site;
        std::vector<Model::Button> line;
        for (uint n = 0; n <= 50; ++n)
            line.push_back(placed(n + 1, n * 80.0, 0, 80, 80));
        site.link.publishButtons(line);
        const auto value = site.engine.evaluate(QString("({width: 80, height: 80, partUid: '%1'})").arg(text(3)));

        site.buttons.addButton(value);

        QCOMPARE(site.link.buttons.at(0).position, (Model::Position{0, 80}));
    }

    void searchKeepsSinglePrecisionFromStepToStep()
    {
        Site site;
        // 0.7 in single precision is less than 0.7, so that the second button of the line counts as a lower one.
        site.link.publishButtons({placed(1, 0, 0.7, 500, 5), placed(2, 0, 0.7, 70, 5)});

        site.buttons.addButton(site.engine.evaluate(QString("({partUid: '%1'})").arg(text(3))));

        QCOMPARE(site.link.buttons.at(0).position, (Model::Position{70, double(0.7F)}));
    }

    void searchesAmongButtonsThatTheUserMayNotSee()
    {
        Site site;
        site.link.logIn("anna", "user");
        site.link.publishUsers({limitedUser("anna", {})});
        site.link.publishButtons({placed(2, 0, 0, 200, 50)});

        site.buttons.addButton(site.engine.evaluate(QString("({partUid: '%1'})").arg(text(3))));

        QCOMPARE(site.link.buttons.at(0).position, (Model::Position{200, 0}));
    }

    void addsAButtonAtTheGivenPlace()
    {
        Site site;
        site.link.publishButtons({placed(1, 0, 0, 100, 100)});

        site.buttons.addButton(site.engine.evaluate(
            QString("({x: 1.5, y: -2, width: 30, height: 40, partUid: '%1', onColor: 'green', offColor: 'red'})")
                .arg(text(3))));

        QCOMPARE(site.link.operations, QStringList({"addButtons"}));
        auto expected = placed(0, 1.5, -2, 30, 40);
        expected.uid = QUuid();
        expected.name = "Кнопка";
        expected.onColor = "green";
        expected.offColor = "red";
        QCOMPARE(site.link.buttons, std::vector<Model::Button>{expected});
        QCOMPARE(site.buttons.rowCount(), 1);
    }

    void aButtonWithoutSizeHasTheUsualOne_data()
    {
        QTest::addColumn<QString>("value");

        QTest::newRow("empty object") << "({})";
        QTest::newRow("no numbers") << "({width: 'wide', height: undefined, x: NaN, y: {}, onColor: null})";
        QTest::newRow("infinite") << "({width: Infinity, height: -Infinity, x: Infinity, y: 5})";
        QTest::newRow("texts that are no finite numbers") << "({width: 'inf', height: 'nan', x: 5, y: 'nan'})";
        QTest::newRow("null") << "({width: null, height: null, x: null, y: null, onColor: undefined})";
        QTest::newRow("one coordinate") << "({x: 50})";
        QTest::newRow("array") << "[1, 2]";
    }

    void aButtonWithoutSizeHasTheUsualOne()
    {
        QFETCH(QString, value);
        Site site;

        site.buttons.addButton(site.engine.evaluate(value));

        Model::Button expected;
        expected.name = "Кнопка";
        QCOMPARE(site.link.buttons, std::vector<Model::Button>{expected});
    }

    void addsNothingFromWhatIsNoObject()
    {
        Site site;

        for (const auto *const text : {"undefined", "null", "'button'", "5"})
            site.buttons.addButton(site.engine.evaluate(text));

        QCOMPARE(site.link.operations, QStringList());
    }

    void callsBackWithTheNewUids()
    {
        Site site;
        expose(site.engine, "buttons", site.buttons);
        site.engine.evaluate("buttons.addButton({}, function(uids) { got = uids.join(); })");

        site.link.uidsCallback({uid(1), uid(2)});

        QCOMPARE(site.engine.globalObject().property("got").toString(), text(1) + ',' + text(2));
    }

    void changesACopyFromAScript()
    {
        Site site;
        auto record = placed(1, 1, 2, 3, 4);
        record.onColor = "red";
        site.link.publishButtons({record});
        expose(site.engine, "buttons", site.buttons);
        site.engine.globalObject().setProperty("steps", site.engine.toScriptValue(someActions()));
        SignalLog log(site.buttons);

        const auto result = site.engine.evaluate(QString("buttons.changeButton({uid: '%1', name: 'New', toggle: true, "
                                                         "onColor: 'green', offColor: 'blue', actions: steps})")
                                                     .arg(text(1)));

        QVERIFY2(!result.isError(), qPrintable(result.toString()));
        record.name = "New";
        record.toggle = true;
        record.onColor = "green";
        record.offColor = "blue";
        record.blueprints = Model::ActionSequence::fromVariant(someActions());
        QCOMPARE(record.blueprints.instances.size(), std::size_t(1));
        QCOMPARE(site.link.operations, QStringList({"changeButtons"}));
        QCOMPARE(site.link.buttons, std::vector<Model::Button>{record});
        QCOMPARE(log.take(), QStringList());
    }

    void changesWhatAMapNames()
    {
        Site site;
        auto record = button(1, 3, "Light");
        record.offColor = "red";
        record.blueprints = Model::ActionSequence::fromVariant(someActions());
        site.link.publishButtons({record});

        site.buttons.changeButton(QVariantMap{{"uid", text(1)}, {"offColor", ""}, {"actions", QVariantList()}});

        record.offColor = "";
        record.blueprints = {};
        QCOMPARE(site.link.buttons, std::vector<Model::Button>{record});
    }

    void changesNothingOfAButtonThatIsNotThere()
    {
        Site site;
        site.link.publishButtons({button(1)});

        site.buttons.changeButton(QVariantMap{{"name", "New"}});
        site.buttons.changeButton(QVariantMap{{"uid", text(2)}, {"name", "New"}});
        site.buttons.changeButton(QVariantMap{{"uid", QVariant()}});
        site.buttons.changeButton(QVariant());
        site.buttons.changeButton("text");
        site.buttons.changeButtonGeometry(text(2), 1, 2, 3, 4);
        site.buttons.changeButtonGeometry("", 1, 2, 3, 4);

        QCOMPARE(site.link.operations, QStringList());
    }

    void changesGeometryOfACopy()
    {
        Site site;
        auto record = placed(1, 1, 2, 3, 4);
        record.name = "Light";
        site.link.publishButtons({record});

        site.buttons.changeButtonGeometry(text(1), 10, 20, 30, 40);

        record.position = {10, 20};
        record.width = 30;
        record.height = 40;
        QCOMPARE(site.link.operations, QStringList({"changeButtons"}));
        QCOMPARE(site.link.buttons, std::vector<Model::Button>{record});
        QCOMPARE(value(site.buttons, 0, Role::X).toDouble(), 1.0);
    }

    void refusesGeometryThatIsNotFinite()
    {
        Site site;
        site.link.publishButtons({button(1)});

        for (const double bad : {qQNaN(), qInf(), -qInf()}) {
            site.buttons.changeButtonGeometry(text(1), bad, 2, 3, 4);
            site.buttons.changeButtonGeometry(text(1), 1, bad, 3, 4);
            site.buttons.changeButtonGeometry(text(1), 1, 2, bad, 4);
            site.buttons.changeButtonGeometry(text(1), 1, 2, 3, bad);
        }

        QCOMPARE(site.link.operations, QStringList());
    }

    void setsAStateThroughTheServer()
    {
        Site site;
        site.link.publishButtons({button(1)});

        site.buttons.setButtonState(text(1), 1);
        QCOMPARE(site.link.buttonStates, (std::vector<Model::ButtonState>{{uid(1), State::On}}));
        QCOMPARE(value(site.buttons, 0, Role::State).toInt(), 0);
        site.buttons.setButtonState(text(1), 0);
        QCOMPARE(site.link.buttonStates, (std::vector<Model::ButtonState>{{uid(1), State::Off}}));
        site.buttons.setButtonState("nothing", 1);
        QCOMPARE(site.link.operations, QStringList({"setButtonStates", "setButtonStates"}));
    }

    void removesByUid()
    {
        Site site;

        site.buttons.removeButtons({text(1), "nonsense", QUuid().toString(), text(2)});

        QCOMPARE(site.link.operations, QStringList({"removeButtons"}));
        Model::Button first;
        first.uid = uid(1);
        Model::Button second;
        second.uid = uid(2);
        QCOMPARE(site.link.buttons, (std::vector<Model::Button>{first, second}));
        site.buttons.removeButtons({});
        site.buttons.removeButtons({"nonsense"});
        QCOMPARE(site.link.operations.size(), 1);
    }
};

ONDIRA_TEST(ButtonsListModelTest)
#include "ButtonsListModelTest.moc"
