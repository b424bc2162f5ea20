// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProxyTest.h"
#include "data/qqsfpm/filters/ValueFilter.h"
#include "data/qqsfpm/proxyroles/ExpressionRole.h"
#include "data/qqsfpm/proxyroles/FilterRole.h"
#include "data/qqsfpm/proxyroles/JoinRole.h"
#include "data/qqsfpm/proxyroles/RegExpRole.h"
#include "data/qqsfpm/proxyroles/SwitchRole.h"

using namespace qqsfpm;

class ProxyRolesTest : public TestBase
{
    Q_OBJECT

private slots:
    void givesValuesInQml_data();
    void givesValuesInQml();
    void takesNumbersAboveTheSource();
    void regExpRoleGivesARolePerNamedGroup();
    void regExpRoleIgnoresCaseWhenTold();
    void changedPatternRenamesTheRoles();
    void changedNameIsFollowedByAReset();
    void roleWithoutANameIsNone();
    void roleOfTheSourceIsReplaced();
    void expressionOfItselfComesToAnEnd();
    void rolesOfEachOtherComeToAnEnd();
    void changeOfARoleIsTold_data();
    void changeOfARoleIsTold();
    void changeOfTheSourceIsToldForTheRoles();
    void ownChangeIsNotToldTwice();
    void switchRoleWarnsOfAFilterWithoutAValue();
    void switchRoleOnAnotherObjectWarns();
    void valueAttachedLaterIsTold();
    void filterAndSortByAProxyRole();
    void simpleFilterAndSortByAProxyRole();
    void roleOverRoleOfAChainedProxy();
    void deletedRoleLeaves();
    void rolesAreChangedFromQml();
    void viewSeesTheRoles();
};

void ProxyRolesTest::givesValuesInQml_data()
{
    QTest::addColumn<QByteArray>("role");
    QTest::addColumn<QVariantList>("expected");
    const auto row = [](const char *name, const QByteArray &role, const QVariantList &expected) {
        QTest::newRow(name) << role << expected;
    };

    row("join", "JoinRole { name: 'made'; roleNames: ['name', 'age']; separator: '/' }",
        {"carol/30", "alice/25", "Bob/30"});
    row("join by a blank", "JoinRole { name: 'made'; roleNames: ['name', 'town'] }",
        {"carol Omsk", "alice Perm", "Bob Perm"});
    row("join of nothing", "JoinRole { name: 'made' }", {"", "", ""});
    row("join with a missing role", "JoinRole { name: 'made'; roleNames: ['name', 'height']; separator: '-' }",
        {"carol-", "alice-", "Bob-"});
    row("switch",
        "SwitchRole { name: 'made'; defaultValue: 'other';"
        " ValueFilter { roleName: 'name'; value: 'carol'; SwitchRole.value: 1 }"
        " ValueFilter { roleName: 'age'; value: 30; SwitchRole.value: 2 } }",
        {1, "other", 2});
    row("switch with a default role",
        "SwitchRole { name: 'made'; defaultRoleName: 'town'; defaultValue: 'other';"
        " filters: ValueFilter { roleName: 'age'; value: 30; SwitchRole.value: 'thirty' } }",
        {"thirty", "Perm", "thirty"});
    row("switch without filters", "SwitchRole { name: 'made'; defaultValue: 7 }", {7, 7, 7});
    row("switch with nothing", "SwitchRole { name: 'made' }", {QVariant(), QVariant(), QVariant()});
    row("switch passes over a disabled filter",
        "SwitchRole { name: 'made'; defaultValue: 0;"
        " ValueFilter { enabled: false; SwitchRole.value: 1 } }",
        {0, 0, 0});
    row("expression", "ExpressionRole { name: 'made'; expression: model.age + 1 }", {31, 26, 31});
    row("expression of text", "ExpressionRole { name: 'made'; expression: model.name.toUpperCase() }",
        {"CAROL", "ALICE", "BOB"});
    row("expression of the row number", "ExpressionRole { name: 'made'; expression: model.index }", {0, 1, 2});
    row("expression of an array", "ExpressionRole { name: 'made'; expression: [model.age, 'x'] }",
        {QVariantList{30, "x"}, QVariantList{25, "x"}, QVariantList{30, "x"}});
    row("no expression", "ExpressionRole { name: 'made' }", {QVariant(), QVariant(), QVariant()});
    row("filter", "FilterRole { name: 'made'; ValueFilter { roleName: 'age'; value: 30 } }", {true, false, true});
    row("filter of two",
        "FilterRole { name: 'made'; filters: [ValueFilter { roleName: 'age'; value: 30 },"
        " ValueFilter { roleName: 'town'; value: 'Perm' }] }",
        {false, false, true});
    row("filter of nothing", "FilterRole { name: 'made' }", {true, true, true});
}

void ProxyRolesTest::givesValuesInQml()
{
    QFETCH(QByteArray, role);
    QFETCH(QVariantList, expected);
    PeopleModel people;

    const QmlProxy qml("SortFilterProxyModel { sourceModel: people; proxyRoles: " + role + " }", &people);

    QVERIFY(qml.proxy);
    QAbstractItemModelTester tester(qml.proxy, QAbstractItemModelTester::FailureReportingMode::Warning);
    for (int row = 0; row < expected.size(); ++row) {
        QCOMPARE(qml.proxy->get(row, "made"), expected.at(row));
        QCOMPARE(qml.proxy->get(row).value("made"), expected.at(row));
    }
}

void ProxyRolesTest::takesNumbersAboveTheSource()
{
    PeopleModel people;
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        proxyRoles: [JoinRole { name: 'first' }, JoinRole { name: 'second' }]
    })",
                       &people);

    const auto names = qml.proxy->roleNames();
    QCOMPARE(names.size(), 5);
    QCOMPARE(names.value(Qt::UserRole + 1), QByteArray("name"));
    QCOMPARE(names.value(Qt::UserRole + 4), QByteArray("first"));
    QCOMPARE(names.value(Qt::UserRole + 5), QByteArray("second"));
    QCOMPARE(qml.proxy->roleForName("second"), Qt::UserRole + 5);
}

void ProxyRolesTest::regExpRoleGivesARolePerNamedGroup()
{
    RowsModel model({"time"}, {{{"time", "12:34"}}, {{"time", "noon"}}, {}});
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        proxyRoles: RegExpRole { roleName: 'time'; pattern: '(?<hours>\\d+)(:)(?<minutes>\\d+)' }
    })",
                       &model);

    QCOMPARE(qml.proxy->roleNames().size(), 3);
    QCOMPARE(shown(*qml.proxy, "hours"), QString("12  "));
    QCOMPARE(shown(*qml.proxy, "minutes"), QString("34  "));
}

void ProxyRolesTest::regExpRoleIgnoresCaseWhenTold()
{
    PeopleModel people;
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        proxyRoles: RegExpRole { roleName: 'name'; pattern: '(?<found>BO)' }
    })",
                       &people);
    auto *role = qobject_cast<RegExpRole *>(qml.proxy->proxyRoles().first());
    QCOMPARE(role->caseSensitivity(), Qt::CaseSensitive);
    QCOMPARE(qml.proxy->get(2, "found").toString(), QString());
    QSignalSpy changed(qml.proxy, &QAbstractItemModel::dataChanged);

    role->setCaseSensitivity(Qt::CaseInsensitive);

    QCOMPARE(qml.proxy->get(2, "found").toString(), QString("Bo"));
    QCOMPARE(changed.count(), 1);
}

void ProxyRolesTest::changedPatternRenamesTheRoles()
{
    PeopleModel people;
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        proxyRoles: RegExpRole { roleName: 'name'; pattern: '(?<first>.)' }
    })",
                       &people);
    auto *role = qobject_cast<RegExpRole *>(qml.proxy->proxyRoles().first());
    QSignalSpy resets(qml.proxy, &QAbstractItemModel::modelReset);

    role->setPattern("(?<first>..)");
    QCOMPARE(resets.count(), 0); // the names are the same
    QCOMPARE(qml.proxy->get(0, "first").toString(), QString("ca"));

    role->setPattern("(?<start>.)(?<rest>.*)");
    QCOMPARE(resets.count(), 1);
    QCOMPARE(qml.proxy->roleForName("first"), -1);
    QCOMPARE(qml.proxy->get(0, "rest").toString(), QString("arol"));

    role->setPattern("(?<broken>");
    QCOMPARE(qml.proxy->roleNames().size(), 3);
}

void ProxyRolesTest::changedNameIsFollowedByAReset()
{
    PeopleModel people;
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        filterRoleName: 'after'
        filterValue: 'carol'
        proxyRoles: JoinRole { name: 'before'; roleNames: ['name'] }
    })",
                       &people);
    QAbstractItemModelTester tester(qml.proxy, QAbstractItemModelTester::FailureReportingMode::Warning);
    QSignalSpy resets(qml.proxy, &QAbstractItemModel::modelReset);
    QCOMPARE(qml.proxy->count(), 0);

    qobject_cast<SingleRole *>(qml.proxy->proxyRoles().first())->setName("after");

    QCOMPARE(resets.count(), 1);
    QCOMPARE(qml.proxy->roleForName("before"), -1);
    QCOMPARE(shown(*qml.proxy, "after"), QString("carol"));
}

void ProxyRolesTest::roleWithoutANameIsNone()
{
    PeopleModel people;
    const QmlProxy qml("SortFilterProxyModel { sourceModel: people; proxyRoles: [JoinRole {}, RegExpRole {}] }",
                       &people);

    QCOMPARE(qml.proxy->roleNames(), people.roleNames());
}

void ProxyRolesTest::roleOfTheSourceIsReplaced()
{
    PeopleModel people;
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        proxyRoles: SwitchRole { name: 'town'; defaultValue: 'Kazan' }
        filters: ValueFilter { roleName: 'town'; value: 'Kazan' }
    })",
                       &people);

    QCOMPARE(qml.proxy->count(), 5);
    QCOMPARE(qml.proxy->get(0, "town").toString(), QString("Kazan"));
    QCOMPARE(qml.proxy->get(0).value("town").toString(), QString("Kazan"));
}

void ProxyRolesTest::expressionOfItselfComesToAnEnd()
{
    PeopleModel people;
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        proxyRoles: ExpressionRole { name: 'self'; expression: '<' + model.self + '>' }
    })",
                       &people);

    QCOMPARE(qml.proxy->get(0, "self").toString(), QString("<undefined>"));
    QCOMPARE(qml.proxy->get(1, "self").toString(), QString("<undefined>"));
}

void ProxyRolesTest::rolesOfEachOtherComeToAnEnd()
{
    PeopleModel people;
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        proxyRoles: [
            ExpressionRole { name: 'a'; expression: 'a' + model.b + model.name },
            ExpressionRole { name: 'b'; expression: 'b' + model.a + model.name }
        ]
    })",
                       &people);

    QCOMPARE(qml.proxy->get(0, "a").toString(), QString("abundefinedcarolcarol"));
    QCOMPARE(qml.proxy->get(1, "b").toString(), QString("baundefinedalicealice"));
}

void ProxyRolesTest::changeOfARoleIsTold_data()
{
    QTest::addColumn<QByteArray>("role");
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("expected");

    QTest::newRow("separator") << QByteArray("JoinRole { name: 'made'; roleNames: ['name', 'age'] }")
                               << "proxy.proxyRoles[0].separator = '+'"
                               << "carol+30";
    QTest::newRow("role names") << QByteArray("JoinRole { name: 'made'; roleNames: ['name', 'age'] }")
                                << "proxy.proxyRoles[0].roleNames = ['town']"
                                << "Omsk";
    QTest::newRow("default value") << QByteArray("SwitchRole { name: 'made'; defaultValue: 1 }")
                                   << "proxy.proxyRoles[0].defaultValue = 2"
                                   << "2";
    QTest::newRow("default role") << QByteArray("SwitchRole { name: 'made'; defaultValue: 1 }")
                                  << "proxy.proxyRoles[0].defaultRoleName = 'town'"
                                  << "Omsk";
    const QByteArray switching = "SwitchRole { name: 'made'; filters: ValueFilter { roleName: 'age'; value: 30;"
                                 " SwitchRole.value: number } }";
    QTest::newRow("attached value") << switching << "number = 5"
                                    << "5";
    QTest::newRow("filter of a switch") << switching << "proxy.proxyRoles[0].filters[0].value = 1"
                                        << "";
    QTest::newRow("filters of a switch") << switching << "proxy.proxyRoles[0].filters = []"
                                         << "";
    QTest::newRow("dependency of an expression")
        << QByteArray("ExpressionRole { name: 'made'; expression: model.age + number }") << "number = 12"
        << "42";
    QTest::newRow("filter of a filter role")
        << QByteArray("FilterRole { name: 'made'; ValueFilter { roleName: 'age'; value: 30 } }")
        << "proxy.proxyRoles[0].filters[0].inverted = true"
        << "false";
    QTest::newRow("role name of a pattern") << QByteArray("RegExpRole { roleName: 'name'; pattern: '(?<made>.)' }")
                                            << "proxy.proxyRoles[0].roleName = 'town'"
                                            << "O";
}

void ProxyRolesTest::changeOfARoleIsTold()
{
    QFETCH(QByteArray, role);
    QFETCH(QString, change);
    QFETCH(QString, expected);
    PeopleModel people;
    const QmlProxy qml("QtObject { property int number: 3; property var proxy: SortFilterProxyModel {"
                       " sourceModel: people; proxyRoles: "
                           + role + " } }",
                       &people);
    const QString before = qml.proxy->get(0, "made").toString();
    QSignalSpy changed(qml.proxy, &QAbstractItemModel::dataChanged);
    QSignalSpy resets(qml.proxy, &QAbstractItemModel::modelReset);

    qml.run(change);

    QVERIFY(changed.count() >= 1);
    QCOMPARE(resets.count(), 0);
    QCOMPARE(changed.first().at(0).toModelIndex().row(), 0);
    QCOMPARE(changed.first().at(1).toModelIndex().row(), 4);
    QCOMPARE(changed.first().at(2).value<QVector<int>>(), QVector<int>{qml.proxy->roleForName("made")});
    QVERIFY(before != expected);
    QCOMPARE(qml.proxy->get(0, "made").toString(), expected);
}

void ProxyRolesTest::changeOfTheSourceIsToldForTheRoles()
{
    PeopleModel people;
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        proxyRoles: JoinRole { name: 'made'; roleNames: ['name'] }
    })",
                       &people);
    QCOMPARE(qml.proxy->count(), 5);
    QSignalSpy changed(qml.proxy, &QAbstractItemModel::dataChanged);

    people.set(2, "name", "zoe");

    QCOMPARE(changed.count(), 2);
    QList<QVector<int>> roles;
    for (const auto &arguments : qAsConst(changed)) {
        QCOMPARE(arguments.at(0).toModelIndex().row(), 2);
        QCOMPARE(arguments.at(1).toModelIndex().row(), 2);
        roles << arguments.at(2).value<QVector<int>>();
    }
    QVERIFY(roles.contains({Qt::UserRole + 1}));
    QVERIFY(roles.contains({qml.proxy->roleForName("made")}));
}

void ProxyRolesTest::ownChangeIsNotToldTwice()
{
    PeopleModel people;
    const QmlProxy qml("SortFilterProxyModel { sourceModel: people; proxyRoles: JoinRole { name: 'made' } }", &people);
    QSignalSpy changed(qml.proxy, &QAbstractItemModel::dataChanged);

    qml.proxy->invalidateProxyRoles();

    QCOMPARE(changed.count(), 1);
}

void ProxyRolesTest::switchRoleWarnsOfAFilterWithoutAValue()
{
    PeopleModel people;
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        proxyRoles: SwitchRole {
            name: 'made'
            defaultValue: 'default'
            ValueFilter { roleName: 'age'; value: 30 }
            ValueFilter { roleName: 'name'; value: 'Bob'; SwitchRole.value: 'bob' }
        }
    })",
                       &people);
    expectMessage(QtWarningMsg, "No SwitchRole.value provided for this filter"); // once for all rows

    QCOMPARE(shown(*qml.proxy, "made"), QString("default default bob default default"));
}

void ProxyRolesTest::switchRoleOnAnotherObjectWarns()
{
    PeopleModel people;
    expectMessage(QtWarningMsg, "SwitchRole must be attached to a Filter");

    const QmlProxy qml("SortFilterProxyModel { sourceModel: people; SwitchRole.value: 1 }", &people);

    QVERIFY(qml.proxy);
}

void ProxyRolesTest::valueAttachedLaterIsTold()
{
    PeopleModel people;
    Proxy proxy;
    SwitchRole role;
    role.setName("made");
    ValueFilter filter;
    qqsfpm::registerTypes();
    role.appendFilter(&filter);
    proxy.setSourceModel(&people);
    proxy.appendProxyRole(&role);
    proxy.componentComplete();
    QSignalSpy changed(&proxy, &QAbstractItemModel::dataChanged);

    auto *attached = qobject_cast<SwitchRoleAttached *>(qmlAttachedPropertiesObject<SwitchRole>(&filter));
    QVERIFY(attached);
    attached->setValue("later");

    QCOMPARE(changed.count(), 1);
    QCOMPARE(proxy.get(0, "made").toString(), QString("later"));
}

void ProxyRolesTest::filterAndSortByAProxyRole()
{
    PeopleModel people;
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        proxyRoles: [
            ExpressionRole { name: 'initial'; expression: model.name[0].toLowerCase() },
            FilterRole { name: 'thirty'; ValueFilter { roleName: 'age'; value: 30 } }
        ]
        filters: ValueFilter { roleName: 'thirty'; value: false }
        sorters: RoleSorter { roleName: 'initial'; ascendingOrder: false }
    })",
                       &people);
    QAbstractItemModelTester tester(qml.proxy, QAbstractItemModelTester::FailureReportingMode::Warning);
    QCOMPARE(shown(*qml.proxy), QString("eve dave alice"));

    people.set(1, "name", "zoe");
    QCOMPARE(shown(*qml.proxy), QString("zoe eve dave"));

    people.set(4, "age", 30);
    QCOMPARE(shown(*qml.proxy), QString("zoe dave"));
}

void ProxyRolesTest::simpleFilterAndSortByAProxyRole()
{
    PeopleModel people;
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: people
        proxyRoles: JoinRole { name: 'made'; roleNames: ['age', 'name'] }
        filterRoleName: 'made'
        filterPattern: '^\\d+ [a-e]'
        sortRoleName: 'made'
    })",
                       &people);
    QAbstractItemModelTester tester(qml.proxy, QAbstractItemModelTester::FailureReportingMode::Warning);

    QCOMPARE(shown(*qml.proxy), QString("alice eve carol dave"));
}

void ProxyRolesTest::roleOverRoleOfAChainedProxy()
{
    PeopleModel people;
    const QmlProxy qml(R"(SortFilterProxyModel {
        sourceModel: SortFilterProxyModel {
            sourceModel: people
            filters: ValueFilter { roleName: 'age'; value: 25; inverted: true }
            sorters: RoleSorter { roleName: 'name' }
            proxyRoles: JoinRole { name: 'inner'; roleNames: ['name', 'age']; separator: '-' }
        }
        proxyRoles: ExpressionRole { name: 'outer'; expression: '[' + model.inner + ']' }
        sorters: RoleSorter { roleName: 'outer'; ascendingOrder: false }
    })",
                       &people);
    QAbstractItemModelTester tester(qml.proxy, QAbstractItemModelTester::FailureReportingMode::Warning);
    QCOMPARE(shown(*qml.proxy, "outer"), QString("[dave-41] [carol-30] [Bob-30]"));
    QCOMPARE(qml.proxy->roleNames().size(), 5);

    people.set(2, "name", "Zoe");
    QCOMPARE(shown(*qml.proxy, "outer"), QString("[Zoe-30] [dave-41] [carol-30]"));

    people.set(0, "age", 25);
    QCOMPARE(shown(*qml.proxy, "outer"), QString("[Zoe-30] [dave-41]"));
}

void ProxyRolesTest::deletedRoleLeaves()
{
    PeopleModel people;
    Proxy proxy;
    auto role = std::make_unique<JoinRole>();
    role->setName("made");
    proxy.setSourceModel(&people);
    proxy.appendProxyRole(role.get());
    proxy.componentComplete();
    const int number = proxy.roleForName("made");
    QSignalSpy resets(&proxy, &QAbstractItemModel::modelReset);

    role.reset();

    QCOMPARE(resets.count(), 1);
    QCOMPARE(proxy.roleForName("made"), -1);
    QVERIFY(!proxy.index(0, 0).data(number).isValid());
}

void ProxyRolesTest::rolesAreChangedFromQml()
{
    PeopleModel people;
    const QmlProxy qml(R"(QtObject {
        property var role: JoinRole { name: 'made'; roleNames: ['town', 'name'] }
        property var proxy: SortFilterProxyModel { sourceModel: people }
    })",
                       &people);

    qml.run("proxy.proxyRoles.push(role)");
    QCOMPARE(qml.proxy->get(0, "made").toString(), QString("Omsk carol"));

    qml.run("proxy.proxyRoles = []");
    QCOMPARE(qml.proxy->roleForName("made"), -1);
}

void ProxyRolesTest::viewSeesTheRoles()
{
    PeopleModel people;
    const QmlProxy qml(R"(QtObject {
        id: root
        property alias rows: rows
        property var proxy: SortFilterProxyModel {
            id: model
            sourceModel: people
            filters: ValueFilter { roleName: 'age'; value: 30 }
            sorters: RoleSorter { roleName: 'made'; ascendingOrder: false }
            proxyRoles: ExpressionRole { name: 'made'; expression: 'made of ' + model.name }
        }
        property var view: Instantiator {
            id: rows
            model: root.proxy
            QtObject { property string text: model.made; property string from: model.town }
        }
    })",
                       &people);
    const auto texts = [&] { return qml.run("[rows.objectAt(0).text, rows.objectAt(1).from]").toStringList(); };
    QCOMPARE(qml.run("rows.count").toInt(), 2);
    QCOMPARE(texts(), QStringList({"made of carol", "Perm"}));

    people.set(0, "name", "cecil");

    QCOMPARE(texts(), QStringList({"made of cecil", "Perm"}));
}

ONDIRA_TEST(ProxyRolesTest)

#include "ProxyRolesTest.moc"
