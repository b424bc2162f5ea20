// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/document/Errors.h"
#include "model/JsonTexts.h"
#include "support/TestBase.h"

using JsonAPI::Errors;

class ErrorsTest : public TestBase
{
    Q_OBJECT

private slots:
    void startsEmpty();
    void readsInOrder();
    void readsEmptyTextsForWhatIsMissing();
    void whatIsNoListHasNoErrors_data();
    void whatIsNoListHasNoErrors();
    void writesAllThreeTexts();
};

void ErrorsTest::startsEmpty()
{
    QVERIFY(Errors().isEmpty());
    QVERIFY(Errors().toVariant().isEmpty());
}

void ErrorsTest::readsInOrder()
{
    const Errors errors(JsonTexts::read(R"([
        {"code": "auth_error", "title": "Вход", "detail": "Пароль"}, {"code": "b", "title": "c"}])"));

    QCOMPARE(errors.list().size(), size_t(2));
    QCOMPARE(errors.list().at(0).code, QString("auth_error"));
    QCOMPARE(errors.list().at(0).title, QString("Вход"));
    QCOMPARE(errors.list().at(0).detail, QString("Пароль"));
    QCOMPARE(errors.list().at(1).code, QString("b"));
    QCOMPARE(errors.list().at(1).detail, QString());
}

void ErrorsTest::readsEmptyTextsForWhatIsMissing()
{
    const Errors errors(JsonTexts::read(R"([{}, 5, null, {"code": [], "title": {}, "detail": null}])"));

    QCOMPARE(errors.list().size(), size_t(4)); // an error that cannot be read is still one
    for (const auto &error : errors.list())
        QCOMPARE(error.code + error.title + error.detail, QString());
}

void ErrorsTest::whatIsNoListHasNoErrors_data()
{
    QTest::addColumn<QVariant>("variant");

    QTest::newRow("invalid") << QVariant();
    QTest::newRow("null") << QVariant::fromValue(nullptr);
    QTest::newRow("map") << QVariant(QVariantMap{{"code", "auth_error"}});
    QTest::newRow("text") << QVariant("auth_error");
    QTest::newRow("empty list") << QVariant(QVariantList());
}

void ErrorsTest::whatIsNoListHasNoErrors()
{
    QFETCH(QVariant, variant);

    QVERIFY(Errors(variant).isEmpty());
}

void ErrorsTest::writesAllThreeTexts()
{
    Errors errors;
    errors.add("a", "b");
    errors.add("c", "d", "e");

    QVERIFY(!errors.isEmpty());
    QCOMPARE(JsonTexts::written(errors.toVariant()), JsonTexts::compact(R"([
        {"code": "a", "title": "b", "detail": ""}, {"code": "c", "title": "d", "detail": "e"}])"));
}

ONDIRA_TEST(ErrorsTest)
#include "ErrorsTest.moc"
