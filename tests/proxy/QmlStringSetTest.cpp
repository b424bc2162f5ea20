// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/QmlStringSet.h"
#include "support/TestBase.h"

#include <QQmlComponent>
#include <QQmlEngine>

class QmlStringSetTest : public TestBase
{
    Q_OBJECT

private slots:
    void insertsOnce();
    void removesWhatIsThere();
    void clearIsAlwaysTold();
    void worksFromQml();
};

void QmlStringSetTest::insertsOnce()
{
    QmlStringSet set;
    QSignalSpy told(&set, &QmlStringSet::valuesChanged);

    set.insert("a");
    set.insert("a");
    set.insert("");

    QCOMPARE(told.count(), 2);
    QVERIFY(set.contains("a"));
    QVERIFY(set.contains(""));
    QVERIFY(!set.contains("A"));
    QCOMPARE(set.values().size(), 2);
}

void QmlStringSetTest::removesWhatIsThere()
{
    QmlStringSet set;
    set.insert("a");
    QSignalSpy told(&set, &QmlStringSet::valuesChanged);

    QVERIFY(!set.remove("b"));
    QCOMPARE(told.count(), 0);
    QVERIFY(set.remove("a"));
    QCOMPARE(told.count(), 1);
    QVERIFY(!set.remove("a"));
    QCOMPARE(told.count(), 1);
    QVERIFY(set.values().isEmpty());
}

void QmlStringSetTest::clearIsAlwaysTold()
{
    QmlStringSet set;
    set.insert("a");
    QSignalSpy told(&set, &QmlStringSet::valuesChanged);

    set.clear();
    QVERIFY(!set.contains("a"));
    set.clear();

    QCOMPARE(told.count(), 2);
}

void QmlStringSetTest::worksFromQml()
{
    qmlRegisterType<QmlStringSet>("StringSet", 1, 0, "StringSet");
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData(R"(import StringSet 1.0
        import QtQml 2.12
        QtObject {
            property StringSet set: StringSet {}
            property string all: set.values.slice().sort().join()
            Component.onCompleted: { set.insert('b'); set.insert('a'); set.insert('c'); set.remove('b') }
        })",
                      QUrl("test.qml"));

    const std::unique_ptr<QObject> root(component.create());

    QVERIFY2(root, qPrintable(component.errorString()));
    QCOMPARE(root->property("all").toString(), QString("a,c"));
}

ONDIRA_TEST(QmlStringSetTest)

#include "QmlStringSetTest.moc"
