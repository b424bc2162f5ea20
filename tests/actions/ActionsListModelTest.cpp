// SPDX-License-Identifier: GPL-3.0-or-later
#include "actions/ActionsListModel.h"
#include "data/ListMirror.h"
#include "data/MirrorList.h"
#include "data/Records.h"
#include "data/ScriptTools.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Records;
using Model::ActionDatatype;
using Role = ActionsListModel::Role;
using Blueprints = std::vector<Model::ActionBlueprint>;

namespace {

Model::NodeInstance node(uint n, bool exposed = true)
{
    Model::NodeInstance node(QStringLiteral("constant"), uid(n));
    Model::NodePropertyInstance property(QStringLiteral("value"));
    property.globalName = QStringLiteral("property %1").arg(n);
    property.value = ActionDatatype(static_cast<long long>(n));
    property.exposed = exposed;
    node.properties.push_back(property);
    return node;
}

Model::ActionBlueprint blueprint(uint n, const std::vector<Model::NodeInstance> &nodes = {})
{
    Model::ActionBlueprint record(QStringLiteral("Blueprint %1").arg(n), uid(n));
    record.nodes = nodes;
    return record;
}

Model::NodeDescription description(const QString &type, const QString &category)
{
    Model::NodeDescription node(type, "Name of " + type);
    node.category = category;
    return node;
}

QVariantList order(const QList<uint> &nodes)
{
    QVariantList list;
    for (const uint n : nodes)
        list << QVariantMap{{"uid", text(n)}};
    return list;
}

void clip(const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
}

} // namespace

class ActionsListModelTest : public TestBase
{
    Q_OBJECT

private slots:
    void namesItsRoles()
    {
        FakeCommunicator link;
        const QHash<int, QByteArray> expected{{257, "uid"},   {258, "name"},       {259, "system"},
                                              {260, "nodes"}, {261, "parameters"}, {262, "sort"}};

        QCOMPARE(ActionsListModel(link).roleNames(), expected);
    }

    void presentsABlueprint()
    {
        FakeCommunicator link;
        auto system = blueprint(1, {node(21), node(22, false)});
        system.system = true;
        link.publishBlueprints({system, blueprint(2)});
        const ActionsListModel model(link);

        const auto row = model.getByUid(text(1));

        QCOMPARE(row.value("uid"), QVariant(text(1)));
        QCOMPARE(row.value("name"), QVariant("Blueprint 1"));
        QCOMPARE(row.value("system"), QVariant(true));
        QCOMPARE(row.value("nodes"), QVariant(QVariantList{node(21).toVariant(), node(22, false).toVariant()}));
        const Model::ExposedPropertyValue parameter("property 21", ActionDatatype(21LL));
        QCOMPARE(row.value("parameters"), QVariant(QVariantList{parameter.toVariant()}));
        QCOMPARE(row.value("sort"), QVariant("0Blueprint 1"));
        QCOMPARE(model.getByUid(text(2)).value("sort"), QVariant("1Blueprint 2"));
        QVERIFY(Model::ActionBlueprint::fromVariant(row) == system);
        QVERIFY(!value(model, 2, Role::Uid).isValid());
        QVERIFY(model.getBlueprints() == Blueprints({system, blueprint(2)}));
    }

    void addsAnEmptyBlueprint()
    {
        FakeCommunicator link;
        ActionsListModel model(link);
        QJSEngine engine;
        expose(engine, "model", model);

        engine.evaluate("var given; model.add(function(uids) { given = uids })");

        QCOMPARE(link.operations, QStringList({"addBlueprints"}));
        QVERIFY(link.blueprints == Blueprints({Model::ActionBlueprint("Новое действие", QUuid())}));
        link.uidsCallback({uid(5), uid(6)});
        QCOMPARE(engine.evaluate("given.join()").toString(), text(5) + ',' + text(6));
        QCOMPARE(model.rowCount(), 0);
    }

    void sortsNodesAsTheUserChose_data()
    {
        QTest::addColumn<QVariantList>("sortOrder");
        QTest::addColumn<QList<uint>>("expected"); // of nodes 1 to 5

        QTest::newRow("none") << QVariantList() << QList<uint>{1, 2, 3, 4, 5};
        QTest::newRow("all") << order({5, 4, 3, 2, 1}) << QList<uint>{5, 4, 3, 2, 1};
        QTest::newRow("some") << order({4, 2}) << QList<uint>{1, 3, 5, 4, 2};
        QTest::newRow("one that is unknown") << order({99}) << QList<uint>{1, 2, 3, 4, 5};
        QTest::newRow("with one that is unknown") << order({99, 3}) << QList<uint>{1, 2, 4, 5, 3};
        QTest::newRow("twice") << order({3, 1, 3}) << QList<uint>{2, 4, 5, 1, 3};
        QTest::newRow("no maps") << QVariantList{5, "x", QVariant()} << QList<uint>{1, 2, 3, 4, 5};
    }

    void sortsNodesAsTheUserChose()
    {
        QFETCH(QVariantList, sortOrder);
        QFETCH(QList<uint>, expected);
        FakeCommunicator link;
        ActionsListModel model(link);
        const auto given = blueprint(7, {node(1), node(2), node(3), node(4), node(5)});

        model.change(given.toVariant(), sortOrder);

        QCOMPARE(link.operations, QStringList({"changeBlueprints"}));
        auto sent = blueprint(7);
        for (const uint n : expected)
            sent.nodes.push_back(node(n));
        QVERIFY(link.blueprints == Blueprints{sent});
    }

    void scriptsChangeABlueprint()
    {
        FakeCommunicator link;
        ActionsListModel model(link);
        link.publishBlueprints({blueprint(7, {node(1), node(2)})});
        QJSEngine engine;
        expose(engine, "model", model);

        const auto result = engine.evaluate("model.change(model.getByUid('" + text(7) + "'), [{ uid: '" + text(2)
                                            + "' }, { uid: '" + text(1) + "' }])");

        QVERIFY2(!result.isError(), qPrintable(result.toString()));
        QVERIFY(link.blueprints == Blueprints({blueprint(7, {node(2), node(1)})}));
    }

    void removesByTheUidAlone()
    {
        FakeCommunicator link;
        ActionsListModel model(link);
        link.publishBlueprints({blueprint(1, {node(2)})});

        model.remove(text(1));

        QCOMPARE(link.operations, QStringList({"removeBlueprints"}));
        QVERIFY(link.blueprints == Blueprints({Model::ActionBlueprint({}, uid(1))}));
        QCOMPARE(model.rowCount(), 1);
    }

    void copiesABlueprintAsIndentedJson()
    {
        FakeCommunicator link;
        ActionsListModel model(link);
        const auto copied = blueprint(1, {node(2), node(3)});
        link.publishBlueprints({copied});
        clip("before");

        model.copyToClipboard(text(9));
        QCOMPARE(QGuiApplication::clipboard()->text(), QString("before"));

        model.copyToClipboard(text(1));
        const auto text = QGuiApplication::clipboard()->text().toUtf8();
        auto json = QJsonDocument::fromJson(text).object();
        QCOMPARE(text, QJsonDocument(json).toJson(QJsonDocument::Indented));
        QCOMPARE(json.take("meta_info").toString(), QString("OndiraSmart blueprint data, version 4.5.2"));
        QVERIFY(Model::ActionBlueprint::fromVariant(json.toVariantMap()) == copied);
    }

    void pastesACopyOfASystemBlueprintAsAUsersOwn()
    {
        FakeCommunicator link;
        ActionsListModel model(link);
        auto system = blueprint(1, {node(2)});
        system.system = true;
        link.publishBlueprints({system});
        QJSEngine engine;
        expose(engine, "model", model);
        model.copyToClipboard(text(1));

        engine.evaluate("var given; model.addFromClipboard(function(uids) { given = uids })");

        QCOMPARE(link.operations, QStringList({"addBlueprints"}));
        auto expected = blueprint(1, {node(2)});
        expected.uid = QUuid();
        expected.name = "Blueprint 1 Копия";
        QVERIFY(link.blueprints == Blueprints{expected});
        link.uidsCallback({uid(7)});
        QCOMPARE(engine.evaluate("given.join()").toString(), text(7));
    }

    void pastesWhatHoldsTheMarkerAlone_data()
    {
        QTest::addColumn<QString>("clipboard");
        QTest::addColumn<bool>("pasted");
        QTest::addColumn<QString>("name");

        QTest::newRow("empty") << QString() << false << QString();
        QTest::newRow("the editor's own copy") << R"({"name": "N", "nodes": []})" << false << QString();
        QTest::newRow("a schedule") << R"({"meta_info": "OndiraSmart schedule data, version 4.5.2"})" << false
                                    << QString();
        QTest::newRow("another version") << R"({"meta_info": "OndiraSmart blueprint data, version 0", "name": "N"})"
                                         << true << "N Копия";
        QTest::newRow("marker elsewhere")
            << R"({"name": "OndiraSmart blueprint data"})" << true << "OndiraSmart blueprint data Копия";
        QTest::newRow("broken document") << R"({"meta_info": "OndiraSmart blueprint data", "name": )" << true
                                         << " Копия";
        QTest::newRow("the marker alone") << "OndiraSmart blueprint data" << true << " Копия";
        QTest::newRow("wrong types")
            << R"({"meta_info": "OndiraSmart blueprint data", "name": "N", "uid": [], "nodes": 5, "system": {}})"
            << true << "N Копия";
    }

    void pastesWhatHoldsTheMarkerAlone()
    {
        QFETCH(QString, clipboard);
        QFETCH(bool, pasted);
        QFETCH(QString, name);
        FakeCommunicator link;
        ActionsListModel model(link);
        clip(clipboard);

        model.addFromClipboard();

        QCOMPARE(link.operations, pasted ? QStringList{"addBlueprints"} : QStringList());
        QVERIFY(link.blueprints == (pasted ? Blueprints{Model::ActionBlueprint(name, QUuid())} : Blueprints()));
    }

    void offersTheTypesOfNodes()
    {
        FakeCommunicator link;
        ActionsListModel model(link);
        QSignalSpy changed(&model, &ActionsListModel::availableNodesChanged);
        const std::vector<Model::NodeDescription> nodes{description("b", "Math"), description("a", "math"),
                                                        description("c", "Math"), description("d", QString())};

        link.publishActionNodes(nodes);

        QCOMPARE(changed.count(), 1);
        QVERIFY(changed[0][0].value<std::vector<Model::NodeDescription>>() == nodes);
        QVERIFY(model.getAvailableNodes() == nodes);
        QCOMPARE(model.getAvailableNodeCategories(), QStringList({"Math", "math", QString()}));
        const auto all = Model::ActionBlueprint::fromVariant(model.getAvailableNodesBlueprint());
        QCOMPARE(all.name, QString("All nodes"));
        QVERIFY(all.uid.isNull());
        QStringList types;
        QSet<QUuid> uids;
        for (const auto &node : all.nodes) {
            types << node.type;
            uids << node.uid;
        }
        QCOMPARE(types, QStringList({"b", "a", "c", "d"}));
        QCOMPARE(uids.size(), 4);
        QVERIFY(!uids.contains(QUuid()));
    }

    void followsRandomPublications()
    {
        FakeCommunicator link;
        ActionsListModel model(link);
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        allowMessages("topLeft.isValid|bottomRight.isValid"); // an empty list is announced all the same
        ListMirror mirror(model);
        QSignalSpy changed(&model, &ActionsListModel::blueprintsChanged);
        QRandomGenerator random(5);
        QStringList expected;
        for (int round = 1; round <= 300; ++round) {
            Blueprints list;
            for (uint n = 1; n <= 12; ++n) {
                if (random.bounded(3) > 0)
                    list.push_back(blueprint(n, {node(1 + random.bounded(50U))}));
            }
            std::shuffle(list.begin(), list.end(), random);
            QStringList fresh;
            QHash<QString, QVariant> nodes;
            for (const auto &one : list) {
                fresh << one.uid.toString();
                nodes.insert(fresh.last(), QVariantList{one.nodes[0].toVariant()});
            }
            expected = MirrorList::merged(expected, fresh);

            link.publishBlueprints(list);

            QCOMPARE(column(model, Role::Uid), expected);
            QCOMPARE(mirror.uids, expected);
            for (int row = 0; row < model.rowCount(); ++row)
                QCOMPARE(value(model, row, Role::Nodes), nodes.value(expected.at(row)));
            QCOMPARE(changed.count(), round);
        }
        QCOMPARE(mirror.resets, 0);
    }
};

ONDIRA_TEST(ActionsListModelTest)
#include "ActionsListModelTest.moc"
