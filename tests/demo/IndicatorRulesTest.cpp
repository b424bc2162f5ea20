// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/IndicatorRules.h"
#include "SiteFixture.h"
#include "support/TestBase.h"

#include <QSignalSpy>

using namespace SiteFixture;
using Demo::DemoSite;
using Demo::IndicatorRule;
using Demo::IndicatorRules;
using List = DemoSite::List;
using Measure = IndicatorRule::Measure;

namespace {

Demo::SiteData siteWith(const IndicatorRule &rule)
{
    auto site = fullData();
    site.indicators.front().rule = rule;
    return site;
}

IndicatorRule::Look look(double from, const QString &text)
{
    IndicatorRule::Look look;
    look.from = from;
    look.text = text;
    return look;
}

IndicatorRule failures(const char *scope = "")
{
    IndicatorRule rule;
    rule.measure = Measure::FailedDevices;
    rule.scope = QUuid(scope);
    rule.looks = {look(0, "good"), look(1, "%1 failed"), look(2, "%1 %1!")};
    rule.looks.back().iconColor = QString("#ff0000");
    return rule;
}

void fail(DemoSite &site, const char *device)
{
    auto state = site.device(QUuid(device))->state;
    state.insert("errors", 4);
    site.setState(QUuid(device), state);
}

QString textOf(const DemoSite &site)
{
    return site.indicatorStates().size() == 1 ? site.indicatorStates().front().text.value_or("none") : "no state";
}

} // namespace

class IndicatorRulesTest : public TestBase
{
    Q_OBJECT

private slots:
    void indicatorWithoutRuleHasNoState();
    void evaluatesWhenMade();
    void followsFailures();
    void equalLookAnnouncesNothing();
    void scopeBoundsTheCount_data();
    void scopeBoundsTheCount();
    void measuresMeanPower();
    void measuresDeviceValue_data();
    void measuresDeviceValue();
    void valueBelowAllLooksLeavesTheIndicatorsOwn();
    void ruleWithoutLooksLeavesTheIndicatorsOwn();
    void changedIndicatorKeepsItsRule();
    void removedIndicatorTakesItsStateAlong();
};

void IndicatorRulesTest::indicatorWithoutRuleHasNoState()
{
    DemoSite site(fullData());
    IndicatorRules rules(site);

    QVERIFY(site.indicatorStates().empty());
}

void IndicatorRulesTest::evaluatesWhenMade()
{
    DemoSite site(siteWith(failures()));
    IndicatorRules rules(site);

    QCOMPARE(textOf(site), QString("good"));
    QCOMPARE(site.indicatorStates().front().uid, QUuid(indicator));
    QCOMPARE(site.indicatorStates().front().opacity, 1.0);
    QVERIFY(!site.indicatorStates().front().icon);
}

void IndicatorRulesTest::followsFailures()
{
    DemoSite site(siteWith(failures()));
    IndicatorRules rules(site);

    fail(site, lamp);
    QTRY_COMPARE(textOf(site), QString("1 failed"));
    QVERIFY(!site.indicatorStates().front().iconColor);

    fail(site, sensor);
    QTRY_COMPARE(textOf(site), QString("2 2!"));
    QCOMPARE(*site.indicatorStates().front().iconColor, QString("#ff0000"));

    site.removeDevices({QUuid(lamp)});
    QTRY_COMPARE(textOf(site), QString("1 failed"));
}

void IndicatorRulesTest::equalLookAnnouncesNothing()
{
    DemoSite site(siteWith(failures()));
    IndicatorRules rules(site);
    QSignalSpy changed(&site, &DemoSite::changed);

    site.setZonesPower({QUuid(till)}, 7);
    const auto before = changed.size();
    rules.evaluate();

    QCOMPARE(changed.size(), before);
}

void IndicatorRulesTest::scopeBoundsTheCount_data()
{
    QTest::addColumn<QByteArray>("scope");
    QTest::addColumn<QString>("text");

    QTest::newRow("whole site") << QByteArray() << "1 failed";
    QTest::newRow("plan") << QByteArray(hall) << "1 failed";
    QTest::newRow("its zone") << QByteArray(till) << "1 failed";
    QTest::newRow("another zone") << QByteArray(door) << "good";
    QTest::newRow("a zone that is gone") << QByteArray(nobody) << "good";
}

void IndicatorRulesTest::scopeBoundsTheCount()
{
    QFETCH(QByteArray, scope);
    QFETCH(QString, text);
    DemoSite site(siteWith(failures(scope)));
    fail(site, lamp);
    IndicatorRules rules(site);

    QCOMPARE(textOf(site), text);
}

void IndicatorRulesTest::measuresMeanPower()
{
    IndicatorRule rule;
    rule.measure = Measure::MeanPower;
    rule.scope = QUuid(till);
    rule.looks = {look(0, "%1 %")};
    DemoSite site(siteWith(rule));
    IndicatorRules rules(site);
    QCOMPARE(textOf(site), QString("50 %")); // 40 and 60; the sensor has none

    site.removeDevices({QUuid(lamp), QUuid(manualLamp)});
    rules.evaluate();
    QVERIFY(site.indicatorStates().empty()); // nothing to measure
}

void IndicatorRulesTest::measuresDeviceValue_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");

    QTest::newRow("whole") << QVariant(20) << "20 lx";
    QTest::newRow("with a fraction") << QVariant(20.25) << "20.3 lx";
    QTest::newRow("nearly whole") << QVariant(19.99) << "20 lx";
    QTest::newRow("high") << QVariant(500.0) << "bright";
    QTest::newRow("a word") << QVariant("bright") << "no state";
    QTest::newRow("no number") << QVariant(qQNaN()) << "no state";
}

void IndicatorRulesTest::measuresDeviceValue()
{
    QFETCH(QVariant, value);
    QFETCH(QString, text);
    IndicatorRule rule;
    rule.measure = Measure::DeviceValue;
    rule.scope = QUuid(sensor);
    rule.property = "brightness";
    rule.looks = {look(-10, "%1 lx"), look(500, "bright")};
    DemoSite site(siteWith(rule));
    site.setState(QUuid(sensor), {{"brightness", value}});
    IndicatorRules rules(site);

    QCOMPARE(textOf(site), text);
}

void IndicatorRulesTest::valueBelowAllLooksLeavesTheIndicatorsOwn()
{
    auto rule = failures();
    rule.looks.erase(rule.looks.begin());
    DemoSite site(siteWith(rule));
    IndicatorRules rules(site);

    QCOMPARE(textOf(site), QString("none"));
    QCOMPARE(site.indicatorStates().front().opacity, 1.0);
}

void IndicatorRulesTest::ruleWithoutLooksLeavesTheIndicatorsOwn()
{
    auto rule = failures();
    rule.looks.clear();
    DemoSite site(siteWith(rule));
    IndicatorRules rules(site);

    QCOMPARE(textOf(site), QString("none"));
}

void IndicatorRulesTest::changedIndicatorKeepsItsRule()
{
    DemoSite site(siteWith(failures()));
    IndicatorRules rules(site);
    auto record = site.indicator(QUuid(indicator))->indicator;
    record.label = "Другой";

    site.put(record);
    fail(site, lamp);

    QTRY_COMPARE(textOf(site), QString("1 failed"));
}

void IndicatorRulesTest::removedIndicatorTakesItsStateAlong()
{
    DemoSite site(siteWith(failures()));
    IndicatorRules rules(site);

    site.removeIndicators({QUuid(indicator)});

    QVERIFY(site.indicatorStates().empty());
}

ONDIRA_TEST(IndicatorRulesTest)
#include "IndicatorRulesTest.moc"
