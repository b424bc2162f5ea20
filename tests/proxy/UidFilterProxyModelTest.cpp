// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/UidFilterProxyModel.h"
#include "ProxyTest.h"

class UidFilterProxyModelTest : public TestBase
{
    Q_OBJECT

private slots:
    void filtersByTheFilterRole();
    void filtersByAnyRoleWithoutOne();
    void comparesTexts();
    void unknownRoleHasNoText();
    void subsetLeavesTheSetUnchanged();
    void onlyAddedUidsAreAllowed();
    void emptyListLeavesTheSetUnchanged();
    void settingIsNotTold();
    void nothingIsAllowedAtFirst();
    void filterCanBeSwitchedOff();
    void switchingIsAlwaysTold();
    void isFilteredBeforeCompletionToo();
    void filtersOfTheBaseClassDoNotCount();
    void sortsLikeTheBaseClass();
};

static RowsModel *zones()
{
    return new RowsModel({"uid", "part", "number"},
                         {{{"uid", "{c}"}, {"part", "{x}"}, {"number", 1}},
                          {{"uid", "{a}"}, {"part", "{y}"}, {"number", 2}},
                          {{"uid", "{b}"}, {"part", "{x}"}, {"number", 3}}});
}

void UidFilterProxyModelTest::filtersByTheFilterRole()
{
    const std::unique_ptr<RowsModel> model(zones());
    UidFilterProxyModel proxy;
    proxy.setSourceModel(model.get());
    proxy.setFilterRoleName("part");
    proxy.componentComplete();
    QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::Warning);

    proxy.setAllowedUids({"{x}", "{a}"});

    QCOMPARE(shown(proxy, "uid"), QString("{c} {b}"));
}

void UidFilterProxyModelTest::filtersByAnyRoleWithoutOne()
{
    const std::unique_ptr<RowsModel> model(zones());
    UidFilterProxyModel proxy;
    proxy.setSourceModel(model.get());
    proxy.componentComplete();

    proxy.setAllowedUids({"{y}", "{b}"});

    QCOMPARE(shown(proxy, "uid"), QString("{a} {b}"));
}

void UidFilterProxyModelTest::comparesTexts()
{
    const std::unique_ptr<RowsModel> model(zones());
    UidFilterProxyModel proxy;
    proxy.setSourceModel(model.get());
    proxy.setFilterRoleName("number");
    proxy.componentComplete();

    proxy.setAllowedUids({"3"});

    QCOMPARE(shown(proxy, "uid"), QString("{b}"));
}

void UidFilterProxyModelTest::unknownRoleHasNoText()
{
    const std::unique_ptr<RowsModel> model(zones());
    UidFilterProxyModel proxy;
    proxy.setSourceModel(model.get());
    proxy.setFilterRoleName("nothing");
    proxy.componentComplete();

    proxy.setAllowedUids({"{a}"});
    QCOMPARE(proxy.count(), 0);
    proxy.setAllowedUids({""});
    QCOMPARE(proxy.count(), 3);
}

void UidFilterProxyModelTest::subsetLeavesTheSetUnchanged()
{
    const std::unique_ptr<RowsModel> model(zones());
    UidFilterProxyModel proxy;
    proxy.setSourceModel(model.get());
    proxy.setFilterRoleName("uid");
    proxy.componentComplete();
    proxy.setAllowedUids({"{a}", "{b}"});
    QSignalSpy removed(&proxy, &QAbstractItemModel::rowsRemoved);

    proxy.setAllowedUids({"{a}"});

    QVERIFY(removed.isEmpty());
    QCOMPARE(shown(proxy, "uid"), QString("{a} {b}"));
    auto allowed = proxy.allowedUids();
    allowed.sort();
    QCOMPARE(allowed, QStringList({"{a}", "{b}"}));
}

void UidFilterProxyModelTest::onlyAddedUidsAreAllowed()
{
    const std::unique_ptr<RowsModel> model(zones());
    UidFilterProxyModel proxy;
    proxy.setSourceModel(model.get());
    proxy.setFilterRoleName("uid");
    proxy.componentComplete();
    proxy.setAllowedUids({"{a}", "{b}"});

    proxy.setAllowedUids({"{a}", "{b}", "{c}"});
    QCOMPARE(proxy.allowedUids(), QStringList{"{c}"});
    QCOMPARE(shown(proxy, "uid"), QString("{c}"));

    proxy.setAllowedUids({"{a}", "{b}", "{c}"});
    QCOMPARE(shown(proxy, "uid"), QString("{a} {b}"));
}

void UidFilterProxyModelTest::emptyListLeavesTheSetUnchanged()
{
    const std::unique_ptr<RowsModel> model(zones());
    UidFilterProxyModel proxy;
    proxy.setSourceModel(model.get());
    proxy.setFilterRoleName("uid");
    proxy.componentComplete();
    proxy.setAllowedUids({"{a}"});

    proxy.setAllowedUids({});

    QCOMPARE(shown(proxy, "uid"), QString("{a}"));
}

void UidFilterProxyModelTest::settingIsNotTold()
{
    UidFilterProxyModel proxy;
    proxy.componentComplete();
    QSignalSpy told(&proxy, &UidFilterProxyModel::allowedUidsChanged);

    proxy.setAllowedUids({"{a}"});

    QVERIFY(told.isEmpty());
    QCOMPARE(proxy.allowedUids(), QStringList{"{a}"});
}

void UidFilterProxyModelTest::nothingIsAllowedAtFirst()
{
    const std::unique_ptr<RowsModel> model(zones());
    UidFilterProxyModel proxy;
    proxy.setSourceModel(model.get());
    proxy.componentComplete();

    QCOMPARE(proxy.count(), 0);
}

void UidFilterProxyModelTest::filterCanBeSwitchedOff()
{
    const std::unique_ptr<RowsModel> model(zones());
    UidFilterProxyModel proxy;
    proxy.setSourceModel(model.get());
    proxy.componentComplete();
    proxy.setAllowedUids({"{a}"});
    QVERIFY(proxy.filterEnabled());
    QCOMPARE(proxy.count(), 1);

    proxy.setFilterEnabled(false);
    QCOMPARE(proxy.count(), 3);
    proxy.setFilterEnabled(true);
    QCOMPARE(proxy.count(), 1);
}

void UidFilterProxyModelTest::switchingIsAlwaysTold()
{
    UidFilterProxyModel proxy;
    QSignalSpy told(&proxy, &UidFilterProxyModel::filterEnabledChanged);

    proxy.setFilterEnabled(true);
    proxy.setFilterEnabled(true);
    proxy.setFilterEnabled(false);

    QCOMPARE(told.count(), 3);
}

void UidFilterProxyModelTest::isFilteredBeforeCompletionToo()
{
    const std::unique_ptr<RowsModel> model(zones());
    UidFilterProxyModel proxy;
    proxy.setAllowedUids({"{a}"});
    proxy.setSourceModel(model.get());
    QCOMPARE(shown(proxy, "uid"), QString("{a}"));

    proxy.setAllowedUids({"{a}", "{b}"}); // not looked at until the component is complete
    QCOMPARE(shown(proxy, "uid"), QString("{a}"));

    proxy.componentComplete();
    QCOMPARE(shown(proxy, "uid"), QString("{b}"));
}

void UidFilterProxyModelTest::filtersOfTheBaseClassDoNotCount()
{
    const std::unique_ptr<RowsModel> model(zones());
    UidFilterProxyModel proxy;
    proxy.setSourceModel(model.get());
    proxy.setFilterRoleName("uid");
    proxy.setFilterValue("{b}");
    proxy.setFilterPattern("nothing");
    proxy.componentComplete();

    proxy.setAllowedUids({"{a}"});

    QCOMPARE(shown(proxy, "uid"), QString("{a}"));
}

void UidFilterProxyModelTest::sortsLikeTheBaseClass()
{
    qqsfpm::registerTypes();
    qmlRegisterType<UidFilterProxyModel>("UidFilterProxyModel", 0, 1, "UidFilterProxyModel");
    const std::unique_ptr<RowsModel> model(zones());
    const QmlProxy qml(R"(import UidFilterProxyModel 0.1
        UidFilterProxyModel {
            sourceModel: people
            filterRoleName: 'part'
            allowedUids: ['{x}']
            sorters: RoleSorter { roleName: 'uid' }
        })",
                       model.get());

    QVERIFY(qml.proxy);
    QCOMPARE(shown(*qml.proxy, "uid"), QString("{b} {c}"));
}

ONDIRA_TEST(UidFilterProxyModelTest)

#include "UidFilterProxyModelTest.moc"
