// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/ShopPart.h"
#include "model/JsonTexts.h"
#include "support/TestBase.h"

class ShopPartTest : public TestBase
{
    Q_OBJECT

private slots:
    void newPartHasAName();
    void writesEveryField();
    void readsTheName_data();
    void readsTheName();
    void comparesByAllFields();
};

void ShopPartTest::newPartHasAName()
{
    QCOMPARE(Model::ShopPart().name, QString("Объект"));
    QVERIFY(Model::ShopPart().uid.isNull());
}

void ShopPartTest::writesEveryField()
{
    const Model::ShopPart part{QUuid("{11111111-1111-1111-1111-111111111111}"), "Этаж 1"};

    QCOMPARE(JsonTexts::written(JsonAPI::ShopPart::toVariant(part)), JsonTexts::compact(R"({
        "type": "shop_part", "id": "{11111111-1111-1111-1111-111111111111}", "attributes": {"name": "Этаж 1"}})"));
}

void ShopPartTest::readsTheName_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QString>("name");

    QTest::newRow("given") << QByteArray(R"({"name": "Этаж 1"})") << "Этаж 1";
    QTest::newRow("empty stays empty") << QByteArray(R"({"name": ""})") << "";
    QTest::newRow("absent") << QByteArray("{}") << "Объект";
    QTest::newRow("no attributes") << QByteArray("null") << "Объект";
    QTest::newRow("null") << QByteArray(R"({"name": null})") << "";
    QTest::newRow("number") << QByteArray(R"({"name": 2})") << "2";
    QTest::newRow("list") << QByteArray(R"({"name": []})") << "";
}

void ShopPartTest::readsTheName()
{
    QFETCH(QByteArray, attributes);

    const auto part = JsonAPI::ShopPart::fromVariant(
        JsonTexts::entity(R"({"id": "{11111111-1111-1111-1111-111111111111}", "attributes": )" + attributes + "}"));

    QCOMPARE(part.uid, QUuid("{11111111-1111-1111-1111-111111111111}"));
    QTEST(part.name, "name");
}

void ShopPartTest::comparesByAllFields()
{
    const QUuid uid("{11111111-1111-1111-1111-111111111111}");

    QVERIFY((Model::ShopPart{uid, "a"} == Model::ShopPart{uid, "a"}));
    QVERIFY(!(Model::ShopPart{uid, "a"} == Model::ShopPart{uid, "b"}));
    QVERIFY(!(Model::ShopPart{uid, "a"} == Model::ShopPart{QUuid(), "a"}));
}

ONDIRA_TEST(ShopPartTest)
#include "ShopPartTest.moc"
