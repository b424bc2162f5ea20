// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Result.h"
#include "support/TestBase.h"

using Model::Result;

Q_DECLARE_METATYPE(Result)

class ResultTest : public TestBase
{
    Q_OBJECT

private slots:
    void successHasKeyAndValue_data();
    void successHasKeyAndValue();
    void failureHasNoResult();
    void failureMayLackADetail();
    void comparesByAllFields();
};

void ResultTest::successHasKeyAndValue_data()
{
    QTest::addColumn<Result>("result");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QVariant>("value");

    const QUuid uid("{11111111-1111-1111-1111-111111111111}");
    QTest::newRow("ok") << Result::ok() << QByteArray() << QVariant();
    QTest::newRow("ok with a key") << Result::ok("moved", "7") << QByteArray("moved/uid") << QVariant("7");
    QTest::newRow("added") << Result::added(QString("7")) << QByteArray("added/uid") << QVariant("7");
    QTest::newRow("added uid") << Result::added(uid) << QByteArray("added/uid") << QVariant(uid.toString());
    QTest::newRow("changed") << Result::changed(QString("7")) << QByteArray("changed/uid") << QVariant("7");
    QTest::newRow("changed uid") << Result::changed(uid) << QByteArray("changed/uid") << QVariant(uid.toString());
    QTest::newRow("deleted") << Result::deleted(QString("7")) << QByteArray("deleted/uid") << QVariant("7");
    QTest::newRow("deleted uid") << Result::deleted(uid) << QByteArray("deleted/uid") << QVariant(uid.toString());
    QTest::newRow("custom") << Result::custom("progress", 50) << QByteArray("progress") << QVariant(50);
    QTest::newRow("data") << Result::data(QVariantMap{{"id", "1"}}) << QByteArray("data")
                          << QVariant(QVariantMap{{"id", "1"}});
}

void ResultTest::successHasKeyAndValue()
{
    QFETCH(Result, result);

    const auto success = result.getResult();

    QVERIFY(!result.getError());
    QVERIFY(success);
    QTEST(success->key, "key");
    QTEST(success->value, "value");
}

void ResultTest::failureHasNoResult()
{
    const auto result = Result::error("code", "title", "detail");

    QVERIFY(!result.getResult());
    QVERIFY(result.getError());
    QCOMPARE(result.getError()->code, QString("code"));
    QCOMPARE(result.getError()->title, QString("title"));
    QCOMPARE(result.getError()->detail, QString("detail"));
    QVERIFY(result.key.isEmpty());
    QVERIFY(!result.value.isValid());
}

void ResultTest::failureMayLackADetail()
{
    const auto result = Result::error("code", "title");

    QVERIFY(result.getError());
    QCOMPARE(result.getError()->detail, QString());
    QVERIFY(Result::error({}, {}).getError());
}

void ResultTest::comparesByAllFields()
{
    QVERIFY(Result::added(QString("1")) == Result::ok("added", "1"));
    QVERIFY(!(Result::added(QString("1")) == Result::changed(QString("1"))));
    QVERIFY(!(Result::added(QString("1")) == Result::added(QString("2"))));
    QVERIFY(!(Result::ok() == Result::error({}, {})));
    QVERIFY(Result::error("a", "b", "c") == Result::error("a", "b", "c"));
    QVERIFY(!(Result::error("a", "b", "c") == Result::error("a", "b", "d")));
    QVERIFY(!(Result::error("a", "b") == Result::error("a", "c")));
    QVERIFY(!(Result::error("a", "b") == Result::error("c", "b")));
}

ONDIRA_TEST(ResultTest)
#include "ResultTest.moc"
