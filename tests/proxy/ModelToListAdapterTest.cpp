// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ModelToListAdapter.h"
#include "ProxyTest.h"

class ModelToListAdapterTest : public TestBase
{
    Q_OBJECT

private slots:
    void oneRoleGivesBareValues();
    void noRoleGivesMapsOfAll();
    void severalRolesGiveMapsOfThose();
    void unknownRoleGivesInvalidValues();
    void withoutAModelTheArrayIsEmpty();
    void insertedRowsGoToTheirPlace();
    void firstRowsRereadTheRoles();
    void removedRowsGo();
    void removalBeyondTheArrayIsIgnored();
    void changedRowsAreReadAgain();
    void changeOfAnotherRoleIsReadToo();
    void movedAndReversedRowsAreFollowed();
    void resetIsFollowed();
    void replacedModelIsLeft();
    void deletedModelLeavesNothing();
    void settersCompare();
    void actionMakesTheElements();
    void actionWithoutAnEngineIsLeftOut();
    void worksFromQml();
};

void ModelToListAdapterTest::oneRoleGivesBareValues()
{
    PeopleModel people;
    ModelToListAdapter adapter;
    adapter.setRoles({"age"});

    adapter.setModel(&people);

    QCOMPARE(adapter.array(), QVariantList({30, 25, 30, 41, 25}));
}

void ModelToListAdapterTest::noRoleGivesMapsOfAll()
{
    PeopleModel people;
    ModelToListAdapter adapter;

    adapter.setModel(&people);

    QCOMPARE(adapter.array().size(), 5);
    QCOMPARE(adapter.array().at(1).toMap(), (QVariantMap{{"name", "alice"}, {"age", 25}, {"town", "Perm"}}));
}

void ModelToListAdapterTest::severalRolesGiveMapsOfThose()
{
    PeopleModel people;
    ModelToListAdapter adapter;
    adapter.setRoles({"town", "name", "height"});

    adapter.setModel(&people);

    QCOMPARE(adapter.array().at(1).toMap(), (QVariantMap{{"name", "alice"}, {"town", "Perm"}}));
}

void ModelToListAdapterTest::unknownRoleGivesInvalidValues()
{
    PeopleModel people;
    ModelToListAdapter adapter;
    adapter.setModel(&people);

    adapter.setRoles({"height"});

    QCOMPARE(adapter.array(), QVariantList({QVariant(), QVariant(), QVariant(), QVariant(), QVariant()}));
}

void ModelToListAdapterTest::withoutAModelTheArrayIsEmpty()
{
    ModelToListAdapter adapter;
    QSignalSpy arrays(&adapter, &ModelToListAdapter::arrayChanged);

    adapter.setRoles({"uid"});

    QVERIFY(adapter.array().isEmpty());
    QCOMPARE(arrays.count(), 1);
    QCOMPARE(adapter.model(), nullptr);
}

void ModelToListAdapterTest::insertedRowsGoToTheirPlace()
{
    PeopleModel people;
    ModelToListAdapter adapter;
    adapter.setRoles({"name"});
    adapter.setModel(&people);
    QSignalSpy arrays(&adapter, &ModelToListAdapter::arrayChanged);

    people.insert(1, {{{"name", "x"}}, {{"name", "y"}}});
    people.append({{"name", "z"}});

    QCOMPARE(arrays.count(), 2);
    QCOMPARE(adapter.array(), QVariantList({"carol", "x", "y", "alice", "Bob", "dave", "eve", "z"}));
}

void ModelToListAdapterTest::firstRowsRereadTheRoles()
{
    const QmlProxy qml("QtObject { property var list: ListModel {} }", nullptr);
    ModelToListAdapter adapter;
    adapter.setRoles({"name"});
    adapter.setModel(qml.child<QAbstractItemModel>("list"));

    qml.run("list.append({ name: 'a' })");
    qml.run("list.append({ name: 'b' })");

    QCOMPARE(adapter.array(), QVariantList({"a", "b"}));
}

void ModelToListAdapterTest::removedRowsGo()
{
    PeopleModel people;
    ModelToListAdapter adapter;
    adapter.setRoles({"name"});
    adapter.setModel(&people);
    QSignalSpy arrays(&adapter, &ModelToListAdapter::arrayChanged);

    people.remove(1, 3);

    QCOMPARE(arrays.count(), 1);
    QCOMPARE(adapter.array(), QVariantList({"carol", "eve"}));
}

void ModelToListAdapterTest::removalBeyondTheArrayIsIgnored()
{
    // A row that comes without a signal and goes with one.
    class Unruly : public RowsModel
    {
    public:
        Unruly()
            : RowsModel({"name"}, {{{"name", "a"}}, {{"name", "b"}}})
        {}
        void announceRemoval(int first, int last)
        {
            beginRemoveRows({}, first, last);
            endRemoveRows();
        }
    } model;
    ModelToListAdapter adapter;
    adapter.setRoles({"name"});
    adapter.setModel(&model);
    QSignalSpy arrays(&adapter, &ModelToListAdapter::arrayChanged);

    model.announceRemoval(1, 2);

    QVERIFY(arrays.isEmpty());
    QCOMPARE(adapter.array(), QVariantList({"a", "b"}));
}

void ModelToListAdapterTest::changedRowsAreReadAgain()
{
    PeopleModel people;
    ModelToListAdapter adapter;
    adapter.setRoles({"name"});
    adapter.setModel(&people);
    QSignalSpy arrays(&adapter, &ModelToListAdapter::arrayChanged);

    people.set(2, "name", "bert");

    QCOMPARE(arrays.count(), 1);
    QCOMPARE(adapter.array(), QVariantList({"carol", "alice", "bert", "dave", "eve"}));
}

void ModelToListAdapterTest::changeOfAnotherRoleIsReadToo()
{
    PeopleModel people;
    ModelToListAdapter adapter;
    adapter.setRoles({"name"});
    adapter.setModel(&people);
    people.setSilently(0, "name", "cecil");

    people.set(0, "age", 3);

    QCOMPARE(adapter.array().first().toString(), QString("cecil"));
}

void ModelToListAdapterTest::movedAndReversedRowsAreFollowed()
{
    PeopleModel people;
    ModelToListAdapter adapter;
    adapter.setRoles({"name"});
    adapter.setModel(&people);

    people.move(0, 4);
    QCOMPARE(adapter.array(), QVariantList({"alice", "Bob", "dave", "eve", "carol"}));
    people.reverse();
    QCOMPARE(adapter.array(), QVariantList({"carol", "eve", "dave", "Bob", "alice"}));
}

void ModelToListAdapterTest::resetIsFollowed()
{
    PeopleModel people;
    ModelToListAdapter adapter;
    adapter.setRoles({"name"});
    adapter.setModel(&people);
    QSignalSpy arrays(&adapter, &ModelToListAdapter::arrayChanged);

    people.reset({{{"name", "only"}}});
    QCOMPARE(adapter.array(), QVariantList({"only"}));
    people.reset({});
    QVERIFY(adapter.array().isEmpty());
    QCOMPARE(arrays.count(), 2);
}

void ModelToListAdapterTest::replacedModelIsLeft()
{
    PeopleModel people;
    RowsModel others({"name"}, {{{"name", "x"}}});
    ModelToListAdapter adapter;
    adapter.setRoles({"name"});
    adapter.setModel(&people);
    QSignalSpy models(&adapter, &ModelToListAdapter::modelChanged);

    adapter.setModel(&others);
    people.remove(0);

    QCOMPARE(models.count(), 1);
    QCOMPARE(adapter.array(), QVariantList({"x"}));
    adapter.setModel(nullptr);
    QVERIFY(adapter.array().isEmpty());
}

void ModelToListAdapterTest::deletedModelLeavesNothing()
{
    auto people = std::make_unique<PeopleModel>();
    ModelToListAdapter adapter;
    adapter.setModel(people.get());
    QSignalSpy arrays(&adapter, &ModelToListAdapter::arrayChanged);
    QSignalSpy models(&adapter, &ModelToListAdapter::modelChanged);

    people.reset();

    QVERIFY(adapter.array().isEmpty());
    QCOMPARE(adapter.model(), nullptr);
    QCOMPARE(arrays.count(), 1);
    QCOMPARE(models.count(), 1);
}

void ModelToListAdapterTest::settersCompare()
{
    PeopleModel people;
    ModelToListAdapter adapter;
    adapter.setModel(&people);
    adapter.setRoles({"name"});
    QSignalSpy arrays(&adapter, &ModelToListAdapter::arrayChanged);
    QSignalSpy models(&adapter, &ModelToListAdapter::modelChanged);
    QSignalSpy roles(&adapter, &ModelToListAdapter::rolesChanged);
    QSignalSpy actions(&adapter, &ModelToListAdapter::actionChanged);

    adapter.setModel(&people);
    adapter.setRoles({"name"});
    adapter.setAction(QJSValue());
    QVERIFY(arrays.isEmpty() && models.isEmpty() && roles.isEmpty() && actions.isEmpty());

    adapter.setRoles({"age"});
    adapter.setAction(QJSValue(3));
    QCOMPARE(roles.count(), 1);
    QCOMPARE(actions.count(), 1);
    QCOMPARE(arrays.count(), 2);
    QCOMPARE(adapter.array().first(), QVariant(30)); // what isn't a function makes nothing
}

void ModelToListAdapterTest::actionMakesTheElements()
{
    qmlRegisterType<ModelToListAdapter>("ModelToArrayAdapter", 1, 0, "ModelToArrayAdapter");
    PeopleModel people;
    const QmlProxy qml(R"(import ModelToArrayAdapter 1.0
        ModelToArrayAdapter {
            model: people
            roles: ['name', 'age']
            action: function(row) { return row.name + row.age }
        })",
                       &people);
    auto *adapter = qobject_cast<ModelToListAdapter *>(qml.root.get());
    QVERIFY(adapter);
    QCOMPARE(adapter->array(), QVariantList({"carol30", "alice25", "Bob30", "dave41", "eve25"}));

    qml.run("action = function(row) { return { length: row.name.length } }");
    QCOMPARE(adapter->array().at(2).toMap(), (QVariantMap{{"length", 3}}));

    people.append({{"name", "frank"}});
    QCOMPARE(adapter->array().last().toMap(), (QVariantMap{{"length", 5}}));
}

void ModelToListAdapterTest::actionWithoutAnEngineIsLeftOut()
{
    QJSEngine engine;
    PeopleModel people;
    ModelToListAdapter adapter;
    adapter.setRoles({"age"});
    adapter.setModel(&people);

    adapter.setAction(engine.evaluate("(function(age) { return age + 1 })"));

    QCOMPARE(adapter.array().first(), QVariant(30));
}

void ModelToListAdapterTest::worksFromQml()
{
    qmlRegisterType<ModelToListAdapter>("ModelToArrayAdapter", 1, 0, "ModelToArrayAdapter");
    PeopleModel people;
    const QmlProxy qml(R"(import ModelToArrayAdapter 1.0
        QtObject {
            id: root
            property var proxy: SortFilterProxyModel {
                sourceModel: people
                filters: ValueFilter { roleName: 'age'; value: 25; inverted: true }
                sorters: RoleSorter { roleName: 'name' }
            }
            property var adapter: ModelToArrayAdapter { model: root.proxy; roles: ['name'] }
            property string names: adapter.array.join()
        })",
                       &people);
    QCOMPARE(qml.root->property("names").toString(), QString("Bob,carol,dave"));

    people.set(1, "age", 26);
    QCOMPARE(qml.root->property("names").toString(), QString("alice,Bob,carol,dave"));
    people.set(1, "name", "zoe");
    QCOMPARE(qml.root->property("names").toString(), QString("Bob,carol,dave,zoe"));
}

ONDIRA_TEST(ModelToListAdapterTest)

#include "ModelToListAdapterTest.moc"
