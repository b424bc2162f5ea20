// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/TestBase.h"

#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>

// The module "scripts" on an engine of its own. Each row is an expression that holds.
class ScriptsTest : public TestBase
{
    Q_OBJECT

private slots:
    void holds_data();
    void holds();
    void aLongListIsCopiedWhole();
};

void ScriptsTest::holds_data()
{
    QTest::addColumn<QString>("script");

    QTest::newRow("plain values stay") << R"([1, 1.5, "a", "", true, false].every(x => Clone.clone(x) === x))";
    QTest::newRow("nothing stays nothing") << "Clone.clone(undefined) === undefined && Clone.clone(null) === null";
    QTest::newRow("no number stays none") << "isNaN(Clone.clone(NaN))";
    QTest::newRow("the copy of a map is another")
        << "var a = {n: 1}, b = Clone.clone(a); b.n = 2; a.n === 1 && b.n === 2";
    QTest::newRow("the copy is deep")
        << "var a = {l: [{n: 1}]}, b = Clone.clone(a); b.l[0].n = 2; b.l.push(3); a.l[0].n === 1 && a.l.length === 1";
    QTest::newRow("a list stays a list") << "var b = Clone.clone([1, [2]]); Array.isArray(b) && Array.isArray(b[1])";
    QTest::newRow("empty ones stay empty")
        << R"(Clone.clone([]).length === 0 && JSON.stringify(Clone.clone({})) === "{}")";
    QTest::newRow("null and undefined within") << R"(var b = Clone.clone({a: null, b: undefined});
                                                     b.a === null && "b" in b && b.b === undefined)";
    QTest::newRow("a date is copied") << R"(var a = {d: new Date(5000)}, b = Clone.clone(a); b.d.setTime(1);
                                            a.d.getTime() === 5000 && b.d instanceof Date)";
    QTest::newRow("functions are kept") << "var f = function() { return 5 }; Clone.clone({f: f}).f() === 5";
    QTest::newRow("what holds itself ends")
        << "var a = {n: 1}; a.me = a; var b = Clone.clone(a); b.me === b && b !== a";
    QTest::newRow("one that stands twice") << "var p = {n: 1}, b = Clone.clone([p, p]); b[0] !== p && b[1].n === 1";
    QTest::newRow("a list of C++") << R"(var b = Clone.clone(texts); b.push("c"); b[0] = "x";
                                         b.join() === "x,b,c" && texts.length === 2 && texts[0] === "a")";
    QTest::newRow("a map of C++") << "var b = Clone.clone(map); b.inner.n = 9; map.inner.n === 1";
    QTest::newRow("objects stay the same") << "Clone.clone({o: living}).o === living && Clone.clone(living) === living";
    QTest::newRow("geometry stays") << "var b = Clone.clone({p: Qt.point(3, 4)}); b.p.x === 3 && b.p.y === 4";
    QTest::newRow("a null prototype") << "var a = Object.create(null); a.n = 1; Clone.clone(a).n === 1";

    QTest::newRow("the null uid") << R"(Uid.nullUid() === "{00000000-0000-0000-0000-000000000000}")";
    QTest::newRow("the null uid is null") << "Uid.isNull(Uid.nullUid())";
    QTest::newRow("no text is null") << R"(Uid.isNull("") && Uid.isNull(undefined) && Uid.isNull(null))";
    QTest::newRow("without braces") << R"(Uid.isNull("00000000-0000-0000-0000-000000000000"))";
    QTest::newRow("a uid is not null") << R"(!Uid.isNull("{00000000-0000-0000-0000-000000000001}"))";
    QTest::newRow("another text is not null") << R"(!Uid.isNull("zone") && !Uid.isNull("{}"))";
}

void ScriptsTest::holds()
{
    QFETCH(QString, script);
    QQmlEngine engine;
    engine.addImportPath("qrc:/");
    QObject living;
    QQmlEngine::setObjectOwnership(&living, QQmlEngine::CppOwnership);
    engine.rootContext()->setContextProperty("texts", QStringList{"a", "b"});
    engine.rootContext()->setContextProperty("map", QVariantMap{{"inner", QVariantMap{{"n", 1}}}});
    engine.rootContext()->setContextProperty("living", &living);

    QQmlComponent component(&engine);
    component.setData("import QtQuick 2.15\nimport scripts 1.0\nQtObject { function run() { return eval(script) } }",
                      QUrl("qrc:/holds.qml"));
    engine.rootContext()->setContextProperty("script", script);
    const std::unique_ptr<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
    QVariant result;

    QVERIFY(QMetaObject::invokeMethod(object.get(), "run", Q_RETURN_ARG(QVariant, result)));

    QCOMPARE(result, QVariant(true));
}

// A form with a long list of rows is copied before each edit.
void ScriptsTest::aLongListIsCopiedWhole()
{
    QQmlEngine engine;
    engine.addImportPath("qrc:/");
    QQmlComponent component(&engine);
    component.setData(R"(import QtQuick 2.15
                         import scripts 1.0
                         QtObject {
                             function run() {
                                 var rows = []
                                 for (var i = 0; i < 2000; ++i)
                                     rows.push({n: i, inner: [{n: i}]})
                                 var copy = Clone.clone(rows)
                                 rows[1999].inner[0].n = -1
                                 return copy.length === 2000 && copy[1999].inner[0].n === 1999
                             }
                         })",
                      QUrl("qrc:/deep.qml"));
    const std::unique_ptr<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
    QVariant result;

    QVERIFY(QMetaObject::invokeMethod(object.get(), "run", Q_RETURN_ARG(QVariant, result)));

    QCOMPARE(result, QVariant(true));
}

ONDIRA_TEST(ScriptsTest)
#include "ScriptsTest.moc"
