// SPDX-License-Identifier: GPL-3.0-or-later
#include "schedules/SchedulePointTexts.h"
#include "data/Records.h"
#include "data/UidKeyAbstractListModel.h"
#include "shell/ColorTheme.h"
#include "support/TestBase.h"

using namespace Records;
using Model::ActionDatatype;
using Model::ActionValueLimits;

namespace {

// Objects that have a uid and one text.
class Objects : public UidKeyAbstractListModel
{
public:
    enum Role { Uid = Qt::UserRole + 1, Text };

    Objects(const QByteArray &role, const std::vector<std::pair<QUuid, QString>> &rows)
        : m_role(role)
        , m_rows(rows)
    {}

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        const auto &row = m_rows.at(static_cast<std::size_t>(index.row()));
        return role == Uid ? row.first.toString() : row.second;
    }

    QHash<int, QByteArray> roleNames() const override { return {{Uid, "uid"}, {Text, m_role}}; }

private:
    QByteArray m_role;
    std::vector<std::pair<QUuid, QString>> m_rows;
};

struct Parameter
{
    QString id;
    QString label;
    ActionDatatype value;
    ActionValueLimits limits;
};

Model::ActionBlueprint blueprint(uint n, const QString &name, const std::vector<Parameter> &parameters)
{
    Model::ActionBlueprint record(name, uid(n));
    Model::NodeInstance node(QStringLiteral("constant"), uid(n + 1000));
    for (const auto &parameter : parameters) {
        Model::NodePropertyInstance property(parameter.id);
        property.globalName = parameter.id;
        property.userDescription = parameter.label;
        property.value = parameter.value;
        property.valueLimits = parameter.limits;
        property.exposed = true;
        node.properties.push_back(property);
    }
    record.nodes.push_back(node);
    return record;
}

SchedulePointTexts texts(const std::vector<Model::ActionBlueprint> &blueprints)
{
    SchedulePointTexts texts;
    for (const auto &one : blueprints)
        texts.blueprints.insert(one.uid, one);
    return texts;
}

Model::ActionBlueprintInstance instance(uint n, const std::vector<Model::ExposedPropertyValue> &properties = {})
{
    return {uid(n), properties, {}};
}

Parameter power()
{
    return {"power", "Мощность", ActionDatatype(0LL), ActionValueLimits::integer(0, 100)};
}

QColor neutral()
{
    return QColor("#f0f0f0");
}

} // namespace

Q_DECLARE_METATYPE(ActionDatatype)
Q_DECLARE_METATYPE(ActionValueLimits)

class SchedulePointTextsTest : public TestBase
{
    Q_OBJECT

private slots:
    void nothingIsNeutral()
    {
        const auto info = texts({}).describe({});

        QCOMPARE(info.text, QString());
        QCOMPARE(info.color, neutral());
    }

    void anUnknownBlueprintIsGrey()
    {
        const auto info = texts({}).describe({{instance(1, {{"power", ActionDatatype(40LL)}})}});

        QCOMPARE(info.text, QString());
        QCOMPARE(info.color, ColorTheme().grey().lighter(150));
    }

    void powerHasTheColourOfItsBrightness_data()
    {
        QTest::addColumn<ActionDatatype>("power");
        QTest::addColumn<QColor>("color");

        QTest::newRow("40") << ActionDatatype(40LL) << QColor("#ff7900");
        QTest::newRow("a double") << ActionDatatype(40.0) << QColor("#ff7900");
        QTest::newRow("0") << ActionDatatype(0LL) << ColorTheme::brightnessToColor(0);
        QTest::newRow("100") << ActionDatatype(100LL) << ColorTheme::brightnessToColor(100);
        QTest::newRow("negative") << ActionDatatype(-5LL) << ColorTheme::brightnessToColor(0);
        QTest::newRow("beyond an int") << ActionDatatype(1LL << 40) << ColorTheme::brightnessToColor(100);
    }

    void powerHasTheColourOfItsBrightness()
    {
        QFETCH(ActionDatatype, power);
        const auto described = texts({blueprint(1, "Lamp", {::power()})});

        QTEST(described.describe({{instance(1, {{"power", power}})}}).color, "color");
    }

    void namesTheBlueprintAndItsParameters()
    {
        const auto described = texts({blueprint(1, "Lamp", {power(), {"ramp", "Ramp", ActionDatatype(1.5), {}}})});

        const auto info = described.describe({{instance(
            1, {{"ramp", ActionDatatype(2.5)}, {"other", ActionDatatype(1LL)}, {"power", ActionDatatype(7LL)}})}});

        QCOMPARE(info.text, QString("Lamp\n    Мощность = 7\n    Ramp = 2.5"));
    }

    void parametersWithoutAValueAreLeftOut()
    {
        const auto described = texts({blueprint(1, "Lamp", {power()})});

        const auto info = described.describe({{instance(1)}});

        QCOMPARE(info.text, QString("Lamp"));
        QCOMPARE(info.color, neutral());
    }

    void severalParametersAreBlueWithoutPower()
    {
        const Parameter a{"a", "A", ActionDatatype(1LL), {}};
        const Parameter b{"Power", "B", ActionDatatype(1LL), {}}; // not exactly "power"
        const auto described = texts({blueprint(1, "Two", {a, b}), blueprint(2, "One", {a})});

        QCOMPARE(described.describe({{instance(1, {{"Power", ActionDatatype(40LL)}})}}).color, ColorTheme().blue());
        QCOMPARE(described.describe({{instance(2, {{"a", ActionDatatype(40LL)}})}}).color, neutral());
    }

    void severalActionsAreDarkenedByTheirNumber()
    {
        const auto described = texts({blueprint(1, "Lamp", {power()}), blueprint(2, "Fan", {})});
        const auto lamp = instance(1, {{"power", ActionDatatype(40LL)}});

        const auto two = described.describe({{lamp, instance(2)}});
        const auto three = described.describe({{lamp, instance(9), lamp}});

        QCOMPARE(two.text, QString("Lamp\n    Мощность = 40\n\nFan"));
        QCOMPARE(two.color, ColorTheme().blue().darker(120));
        QCOMPARE(three.text, QString("Lamp\n    Мощность = 40\n\n\n\nLamp\n    Мощность = 40"));
        QCOMPARE(three.color, ColorTheme().blue().darker(130));
    }

    void indentsAndNests()
    {
        const auto described = texts({blueprint(1, "Lamp", {power()})});
        const auto lamp = instance(1, {{"power", ActionDatatype(40LL)}});

        QCOMPARE(described.extractWrapperInfo(lamp, false, 0).text, QString("Lamp\n    Мощность = 40"));
        QCOMPARE(described.extractWrapperInfo(lamp, true, 0).text, QString("Lamp Мощность = 40"));
        QCOMPARE(described.extractWrapperInfo(lamp, false, 1).text, QString("    Lamp\n            Мощность = 40"));
        QCOMPARE(described.extractWrapperInfo(lamp, true, 1).text, QString("    Lamp     Мощность = 40"));
    }

    void namesTheObjectsOfTheSite_data()
    {
        QTest::addColumn<ActionDatatype>("object");
        QTest::addColumn<bool>("models");
        QTest::addColumn<QString>("expected");

        QTest::newRow("device") << ActionDatatype::device(uid(5)) << true << "Lamp 5";
        QTest::newRow("button") << ActionDatatype::button(uid(6)) << true << "Button 6";
        QTest::newRow("indicator") << ActionDatatype::indicator(uid(7)) << true << "Label 7";
        QTest::newRow("missing device") << ActionDatatype::device(uid(9)) << true << "Отсутствующее устройство";
        QTest::newRow("missing button") << ActionDatatype::button(uid(5)) << true << "Отсутствующая кнопка";
        QTest::newRow("missing indicator") << ActionDatatype::indicator(QUuid()) << true << "Отсутствующий индикатор";
        QTest::newRow("device, no model") << ActionDatatype::device(uid(5)) << false << "Устройство: " + text(5);
        QTest::newRow("button, no model") << ActionDatatype::button(uid(5)) << false << "Кнопка: " + text(5);
        QTest::newRow("indicator, no model") << ActionDatatype::indicator(uid(5)) << false << "Индикатор: " + text(5);
    }

    void namesTheObjectsOfTheSite()
    {
        QFETCH(ActionDatatype, object);
        QFETCH(bool, models);
        QFETCH(QString, expected);
        Objects devices("prettyString", {{uid(5), "Lamp 5"}});
        Objects buttons("name", {{uid(6), "Button 6"}});
        Objects indicators("label", {{uid(7), "Label 7"}});
        auto described = texts({blueprint(1, "Watch", {{"what", "What", ActionDatatype::device(QUuid()), {}}})});
        if (models) {
            described.devices = &devices;
            described.buttons = &buttons;
            described.indicators = &indicators;
        }

        const auto info = described.describe({{instance(1, {{"what", object}})}});

        QCOMPARE(info.text, "Watch\n    What = " + expected);
        QCOMPARE(info.color, ColorTheme().blue());
    }

    void aModelThatIsGoneCountsAsNone()
    {
        auto described = texts({blueprint(1, "Watch", {{"what", "What", ActionDatatype::device(QUuid()), {}}})});
        auto devices = std::make_unique<Objects>("prettyString", std::vector<std::pair<QUuid, QString>>());
        described.devices = devices.get();
        devices.reset();

        const auto info = described.describe({{instance(1, {{"what", ActionDatatype::device(uid(5))}})}});

        QCOMPARE(info.text, "Watch\n    What = Устройство: " + text(5));
    }

    void writesValues_data()
    {
        QTest::addColumn<ActionDatatype>("value");
        QTest::addColumn<ActionValueLimits>("limits");
        QTest::addColumn<QString>("expected");

        const auto items = ActionValueLimits::enumeration({"low", "high"});
        const auto choice = [](long long index) { return ActionDatatype(ActionDatatype::EnumDatatype{index}); };
        QTest::newRow("void") << ActionDatatype() << ActionValueLimits() << "Не задано";
        QTest::newRow("integer") << ActionDatatype(-12LL) << ActionValueLimits() << "-12";
        QTest::newRow("large") << ActionDatatype(9007199254740991LL) << ActionValueLimits() << "9007199254740991";
        QTest::newRow("double") << ActionDatatype(1234.5678) << ActionValueLimits() << "1234.57";
        QTest::newRow("huge double") << ActionDatatype(1e20) << ActionValueLimits() << "1e+20";
        QTest::newRow("true") << ActionDatatype(true) << ActionValueLimits() << "Да";
        QTest::newRow("false") << ActionDatatype(false) << ActionValueLimits() << "Нет";
        QTest::newRow("text") << ActionDatatype(QString("a\nb")) << ActionValueLimits() << "a\nb";
        QTest::newRow("list") << ActionDatatype(
            ActionDatatype::List{ActionDatatype(1LL), ActionDatatype(true), ActionDatatype()})
                              << ActionValueLimits() << "[1, Да, Не задано]";
        QTest::newRow("empty list") << ActionDatatype(ActionDatatype::List()) << ActionValueLimits() << "[]";
        QTest::newRow("zone") << ActionDatatype::zone(uid(5)) << ActionValueLimits() << text(5);
        QTest::newRow("first item") << choice(0) << items << "low";
        QTest::newRow("last item") << choice(1) << items << "high";
        QTest::newRow("past the items") << choice(2) << items << "2: Enum name error";
        QTest::newRow("before the items") << choice(-1) << items << "-1: Enum name error";
        QTest::newRow("far past the items") << choice(1LL << 40) << items << "1099511627776: Enum name error";
        QTest::newRow("no items") << choice(0) << ActionValueLimits() << "0: Enum name error";
    }

    void writesValues()
    {
        QFETCH(ActionDatatype, value);
        QFETCH(ActionValueLimits, limits);

        QTEST(SchedulePointTexts::datatypeValueToString(value, limits), "expected");
    }
};

ONDIRA_TEST(SchedulePointTextsTest)
#include "SchedulePointTextsTest.moc"
