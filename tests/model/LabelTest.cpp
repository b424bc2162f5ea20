// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/Label.h"
#include "model/JsonTexts.h"
#include "support/TestBase.h"

namespace {

const QUuid uid("{11111111-1111-1111-1111-111111111111}");
const QUuid partUid("{22222222-2222-2222-2222-222222222222}");

} // namespace

class LabelTest : public TestBase
{
    Q_OBJECT

private slots:
    void newLabelHasNoSize();
    void writesEveryField();
    void readsEveryField();
    void readsWhatItCan_data();
    void readsWhatItCan();
    void comparesByAllFields();
};

void LabelTest::newLabelHasNoSize()
{
    const Model::TextLabel label;

    QCOMPARE(label.width, 0.0);
    QCOMPARE(label.height, 0.0);
    QCOMPARE(label.text, QString());
}

void LabelTest::writesEveryField()
{
    const Model::TextLabel label{uid, partUid, "Вход", {1.5, -2}, 300, 0.25};

    QCOMPARE(JsonTexts::written(JsonAPI::Label::toVariant(label)), JsonTexts::compact(R"({
        "type": "label", "id": "{11111111-1111-1111-1111-111111111111}",
        "attributes": {"part_uid": "{22222222-2222-2222-2222-222222222222}", "text": "Вход",
                       "x": 1.5, "y": -2, "width": 300, "height": 0.25}})"));
}

void LabelTest::readsEveryField()
{
    const auto label = JsonAPI::Label::fromVariant(JsonTexts::entity(R"({
        "type": "label", "id": "{11111111-1111-1111-1111-111111111111}",
        "attributes": {"part_uid": "{22222222-2222-2222-2222-222222222222}", "text": "Вход", "name": "no",
                       "x": "1.5", "y": -2, "width": 300, "height": 0.25}})"));

    QVERIFY((label == Model::TextLabel{uid, partUid, "Вход", {1.5, -2}, 300, 0.25}));
}

void LabelTest::readsWhatItCan_data()
{
    QTest::addColumn<QByteArray>("attributes");

    QTest::newRow("empty") << QByteArray("{}");
    QTest::newRow("nulls") << QByteArray(
        R"({"part_uid": null, "text": null, "x": null, "y": null, "width": null, "height": null})");
    QTest::newRow("wrong types") << QByteArray(
        R"({"part_uid": 5, "text": [1], "x": {}, "y": [1], "width": "wide", "height": {"a": 1}})");
    QTest::newRow("no finite numbers") << QByteArray(R"({"x": "nan", "y": "inf", "width": "-inf", "height": "NaN"})");
    QTest::newRow("no map") << QByteArray("[1]");
}

void LabelTest::readsWhatItCan()
{
    QFETCH(QByteArray, attributes);

    const auto label = JsonAPI::Label::fromVariant(JsonTexts::entity("{\"attributes\": " + attributes + "}"));

    QVERIFY(label == Model::TextLabel());
}

void LabelTest::comparesByAllFields()
{
    const Model::TextLabel label{uid, partUid, "Hall", {1, 2}, 3, 4};

    QVERIFY((label == Model::TextLabel{uid, partUid, "Hall", {1, 2}, 3, 4}));
    QVERIFY(!(label == Model::TextLabel{partUid, partUid, "Hall", {1, 2}, 3, 4}));
    QVERIFY(!(label == Model::TextLabel{uid, uid, "Hall", {1, 2}, 3, 4}));
    QVERIFY(!(label == Model::TextLabel{uid, partUid, "hall", {1, 2}, 3, 4}));
    QVERIFY(!(label == Model::TextLabel{uid, partUid, "Hall", {2, 1}, 3, 4}));
    QVERIFY(!(label == Model::TextLabel{uid, partUid, "Hall", {1, 2}, 0, 4}));
    QVERIFY(!(label == Model::TextLabel{uid, partUid, "Hall", {1, 2}, 3, 0}));
}

ONDIRA_TEST(LabelTest)
#include "LabelTest.moc"
