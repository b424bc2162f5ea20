// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ParameterDeclaration.h"
#include "model/JsonTexts.h"
#include "support/TestBase.h"

#include <QCoreApplication>
#include <QTranslator>

using Declaration = Model::ParameterDeclaration;

Q_DECLARE_METATYPE(Model::ParameterDeclaration)

namespace {

// Knows one text of one context.
class OneTextTranslator : public QTranslator
{
public:
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        const bool known = qstrcmp(context, "DefaultActions") == 0 && qstrcmp(text, "Мощность") == 0;
        return known ? QStringLiteral("Power") : QString();
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class ParameterDeclarationTest : public TestBase
{
    Q_OBJECT

private slots:
    void writes_data();
    void writes();
    void reads_data();
    void reads();
    void readsDamaged_data();
    void readsDamaged();
    void descriptionIsTranslated();
    void factoriesSetTheType();
    void equalityNeedsEveryField();
};

void ParameterDeclarationTest::writes_data()
{
    QTest::addColumn<Declaration>("declaration");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("device") << Declaration::device("lamp", "A lamp", {"Lamp.qml"}, {"name"})
                            << QByteArray(R"({"identificator":"lamp","description":"A lamp","type":0,
        "typeFilter":["Lamp.qml"],"persistentDataFilter":["name"],"stateDataFilter":[]})");
    QTest::newRow("number") << Declaration::number("power", "", 50, 0, 100.5)
                            << QByteArray(R"({"identificator":"power","description":"","type":1,
        "defaultValue":50,"minimumValue":0,"maximumValue":100.5})");
    QTest::newRow("string") << Declaration::string("text", "", "a")
                            << QByteArray(R"({"identificator":"text","description":"","type":2,"defaultValue":"a"})");
    QTest::newRow("action") << Declaration::action("next", "")
                            << QByteArray(R"({"identificator":"next","description":"","type":3})");
    QTest::newRow("property") << Declaration::property("lux", "", {"brightness"})
                              << QByteArray(R"({"identificator":"lux","description":"","type":4,
        "stateDataFilter":["brightness"]})");
}

void ParameterDeclarationTest::writes()
{
    QFETCH(Declaration, declaration);
    QFETCH(QByteArray, expected);

    QCOMPARE(JsonTexts::written(declaration.toVariant()), JsonTexts::compact(expected));
}

void ParameterDeclarationTest::reads_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<Declaration>("expected");

    QTest::newRow("device") << QByteArray(R"({"identificator":"lamp","description":"A lamp","type":0,
        "typeFilter":["Lamp.qml"],"persistentDataFilter":["name"],"stateDataFilter":["power"]})")
                            << Declaration::device("lamp", "A lamp", {"Lamp.qml"}, {"name"});
    QTest::newRow("number") << QByteArray(R"({"identificator":"power","type":1,
        "defaultValue":50,"minimumValue":0,"maximumValue":100.5})")
                            << Declaration::number("power", "", 50, 0, 100.5);
    QTest::newRow("string") << QByteArray(R"({"identificator":"text","type":2,"defaultValue":"a"})")
                            << Declaration::string("text", "", "a");
    QTest::newRow("action") << QByteArray(R"({"identificator":"next","type":3,"defaultValue":"a"})")
                            << Declaration::action("next", "");
    QTest::newRow("property") << QByteArray(R"({"identificator":"lux","type":4,"stateDataFilter":["brightness"]})")
                              << Declaration::property("lux", "", {"brightness"});
    QTest::newRow("type as text") << QByteArray(R"({"identificator":"next","type":"3"})")
                                  << Declaration::action("next", "");
}

void ParameterDeclarationTest::reads()
{
    QFETCH(QByteArray, document);
    QFETCH(Declaration, expected);

    QVERIFY(Declaration::fromVariant(JsonTexts::read(document)) == expected);
}

void ParameterDeclarationTest::readsDamaged_data()
{
    QTest::addColumn<QVariant>("variant");
    QTest::addColumn<Declaration>("expected");

    QTest::newRow("invalid") << QVariant() << Declaration();
    QTest::newRow("null") << QVariant::fromValue(nullptr) << Declaration();
    QTest::newRow("text") << QVariant("number") << Declaration();
    QTest::newRow("empty map is a device") << JsonTexts::read("{}") << Declaration::device("", "", {}, {});
    QTest::newRow("unknown type is a device")
        << JsonTexts::read(R"({"identificator":"a","type":5})") << Declaration::device("a", "", {}, {});
    QTest::newRow("type beyond the range is a device")
        << JsonTexts::read(R"({"identificator":"a","type":1e300})") << Declaration::device("a", "", {}, {});
    QTest::newRow("number without keys is 0")
        << JsonTexts::read(R"({"type":1})") << Declaration::number("", "", 0, 0, 0);
    QTest::newRow("number of other types is 0")
        << JsonTexts::read(R"({"type":1,"defaultValue":{},"minimumValue":null,"maximumValue":"9.5"})")
        << Declaration::number("", "", 0, 0, 9.5);
    QTest::newRow("null lists are empty")
        << JsonTexts::read(R"({"type":0,"typeFilter":null,"persistentDataFilter":{}})") << Declaration();
}

void ParameterDeclarationTest::readsDamaged()
{
    QFETCH(QVariant, variant);
    QFETCH(Declaration, expected);

    QVERIFY(Declaration::fromVariant(variant) == expected);
}

void ParameterDeclarationTest::descriptionIsTranslated()
{
    OneTextTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));

    const auto known = Declaration::fromVariant(QVariantMap{{"type", 3}, {"description", "Мощность"}});
    const auto unknown = Declaration::fromVariant(QVariantMap{{"type", 3}, {"description", "Яркость"}});
    const auto empty = Declaration::fromVariant(QVariantMap{{"type", 3}});
    QCoreApplication::removeTranslator(&translator);

    QCOMPARE(known.description, QString("Power"));
    QCOMPARE(unknown.description, QString("Яркость"));
    QCOMPARE(empty.description, QString());
}

void ParameterDeclarationTest::factoriesSetTheType()
{
    QCOMPARE(static_cast<int>(Declaration::device("", "", {}, {}).type), 0);
    QCOMPARE(static_cast<int>(Declaration::number("", "", 0, 0, 0).type), 1);
    QCOMPARE(static_cast<int>(Declaration::string("", "", "").type), 2);
    QCOMPARE(static_cast<int>(Declaration::action("", "").type), 3);
    QCOMPARE(static_cast<int>(Declaration::property("", "", {}).type), 4);
}

void ParameterDeclarationTest::equalityNeedsEveryField()
{
    const auto number = Declaration::number("a", "b", 1, 0, 2);

    QVERIFY(number == Declaration::number("a", "b", 1, 0, 2));
    QVERIFY(number != Declaration::number("x", "b", 1, 0, 2));
    QVERIFY(number != Declaration::number("a", "x", 1, 0, 2));
    QVERIFY(number != Declaration::number("a", "b", 1, 0, 3));
    QVERIFY(number != Declaration::string("a", "b", "1"));
    QVERIFY(Declaration::string("a", "b", "1") != Declaration::string("a", "b", "2"));
    QVERIFY(Declaration::property("a", "b", {"1"}) != Declaration::property("a", "b", {"2"}));
    QVERIFY(Declaration::device("a", "b", {"1"}, {}) != Declaration::device("a", "b", {}, {"1"}));
}

ONDIRA_TEST(ParameterDeclarationTest)
#include "ParameterDeclarationTest.moc"
