// SPDX-License-Identifier: GPL-3.0-or-later
#include "PublishedDocuments.h"
#include "TestLink.h"
#include "support/JsonLeaks.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <random>

namespace {

class BareLink : public JsonBackendCommunicator
{
public:
    BareLink()
        : JsonBackendCommunicator(WithoutSockets(), nullptr)
    {}

    using JsonBackendCommunicator::onSubMessageReceived;

    void receive(const QByteArray &topic, const QByteArray &document)
    {
        onSubMessageReceived({topic, QByteArray(), FakeServer::header(FakeServer::Json, topic), document});
    }
};

// How many records the cache holds of each topic, in the order of subscription. Settings are one record or none.
std::vector<std::size_t> sizes(const BackendDataCache &cache)
{
    return {cache.getDeviceStates().size(),
            cache.getDeviceTypes().size(),
            cache.getActionNodes().size(),
            cache.getButtonStates().size(),
            cache.getDeviceModes().size(),
            cache.getUsers().size(),
            std::size_t(!(cache.getSettings() == Model::Settings())),
            cache.getShopParts().size(),
            cache.getZones().size(),
            cache.getButtons().size(),
            cache.getIndicators().size(),
            cache.getDeviceDescriptors().size(),
            cache.getBlueprints().size(),
            cache.getScheduleDays().size(),
            cache.getImageItems().size(),
            cache.getIndicatorStates().size(),
            cache.getView3DItems().size(),
            cache.getPowerOnStatistics().size()};
}

const QString unknownType("^Unknown parameter type"); // the one warning that a damaged list may give

using Path = QVariantList; // keys of maps and indexes of lists

void collectPaths(const QJsonValue &value, const Path &path, std::vector<Path> &paths)
{
    if (!path.isEmpty())
        paths.push_back(path);
    if (value.isObject()) {
        const auto object = value.toObject();
        for (auto it = object.begin(); it != object.end(); ++it)
            collectPaths(it.value(), path + Path{it.key()}, paths);
    } else if (value.isArray()) {
        const auto array = value.toArray();
        for (int i = 0; i < array.size(); ++i)
            collectPaths(array.at(i), path + Path{i}, paths);
    }
}

// The value with what stands at that path replaced, or taken away by an undefined one.
QJsonValue replaced(const QJsonValue &value, const Path &path, const QJsonValue &by)
{
    if (path.isEmpty())
        return by;
    const auto rest = path.mid(1);
    if (value.isObject()) {
        auto object = value.toObject();
        const auto key = path.front().toString();
        const auto inner = replaced(object.value(key), rest, by);
        if (inner.isUndefined())
            object.remove(key);
        else
            object.insert(key, inner);
        return object;
    }
    auto array = value.toArray();
    const int index = path.front().toInt();
    const auto inner = replaced(array.at(index), rest, by);
    if (inner.isUndefined())
        array.removeAt(index);
    else
        array.replace(index, inner);
    return array;
}

std::vector<QJsonValue> damages()
{
    return {QJsonValue(QJsonValue::Undefined),
            QJsonValue(QJsonValue::Null),
            true,
            -1,
            1e300,
            -1e300,
            9007199254740993.0,
            "",
            "wide",
            "nan",
            "-inf",
            "{11111111-1111-1111-1111-111111111111}",
            QString(100000, 'x'),
            QString(QChar(0)) + "zero",
            QJsonArray(),
            QJsonArray{1, QJsonValue(QJsonValue::Null), "a", QJsonObject()},
            QJsonObject(),
            QJsonObject{{"type", "list"}, {"value", QJsonArray{1}}, {"id", 7}}};
}

QByteArray spoiled(QByteArray bytes, std::mt19937 &random)
{
    static const QByteArrayList pieces{"null",    "[]",      "{}",      "\"\"",    "1e308",
                                       "-1",      "true",    "\\u0000", "\\ud800", "\xff",
                                       "[[[[[[[", "\"id\":", ",",       "\"",      "99999999999999999999"};
    const auto number = [&random](int below) { return below > 0 ? int(random() % quint32(below)) : 0; };
    for (int i = number(4); i >= 0; --i) {
        const int at = number(bytes.size());
        switch (number(5)) {
        case 0: bytes.replace(at, 1, QByteArray(1, char(number(256)))); break;
        case 1: bytes.remove(at, 1 + number(20)); break;
        case 2: bytes.insert(at, pieces.at(number(pieces.size()))); break;
        case 3: bytes.insert(at, bytes.mid(number(bytes.size()), number(60))); break;
        default: bytes.replace(at, 1 + number(8), pieces.at(number(pieces.size()))); break;
        }
    }
    return bytes;
}

} // namespace

// Publications damaged in every way go the whole road into the cache.
class PublicationMutationTest : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void soundDocumentIsHeld_data();
    void soundDocumentIsHeld();
    void everyKeyMayBeDamaged_data();
    void everyKeyMayBeDamaged();
    void furtherKeysChangeNothing_data();
    void furtherKeysChangeNothing();
    void oddEntitiesKeepTheirPlace_data();
    void oddEntitiesKeepTheirPlace();
    void tenThousandEntitiesAreHeld_data();
    void tenThousandEntitiesAreHeld();
    void tenThousandElementsOfEachListAreTaken_data();
    void tenThousandElementsOfEachListAreTaken();
    void deepDocumentIsSurvived_data();
    void deepDocumentIsSurvived();
    void spoiltBytesAreSurvived_data();
    void spoiltBytesAreSurvived();

private:
    void addTopics()
    {
        QTest::addColumn<int>("index");
        int index = 0;
        for (const auto &published : publishedDocuments())
            QTest::newRow(published.topic) << index++;
    }

    // What the cache holds of that topic.
    std::size_t held(int index) const { return sizes(m_link->getDataCache()).at(static_cast<std::size_t>(index)); }

    static const PublishedDocument &at(int index) { return publishedDocuments().at(static_cast<std::size_t>(index)); }

    static QJsonObject entityOf(const PublishedDocument &published)
    {
        const auto document = QJsonDocument::fromJson(published.entity);
        return document.object();
    }

    void receive(const QByteArray &topic, const QJsonArray &entities)
    {
        m_link->receive(topic, QJsonDocument(QJsonObject{{"data", entities}}).toJson(QJsonDocument::Compact));
    }

    static bool isSettings(int index) { return at(index).topic == "settings"; }

    std::unique_ptr<BareLink> m_link;
    int m_errors = 0;
};

void PublicationMutationTest::init()
{
    TestBase::init();
    m_link = std::make_unique<BareLink>();
    m_errors = 0;
    connect(m_link.get(), &AbstractBackendCommunicator::errorsReceived, this, [this] { ++m_errors; });
}

void PublicationMutationTest::cleanup()
{
    m_link.reset();
    TestBase::cleanup();
}

void PublicationMutationTest::soundDocumentIsHeld_data()
{
    addTopics();
}

void PublicationMutationTest::soundDocumentIsHeld()
{
    QFETCH(int, index);
    QVERIFY(!entityOf(at(index)).isEmpty());

    m_link->receive(at(index).topic, at(index).document());

    std::vector<std::size_t> expected(publishedDocuments().size());
    expected.at(static_cast<std::size_t>(index)) = 1;
    QCOMPARE(sizes(m_link->getDataCache()), expected);
}

void PublicationMutationTest::everyKeyMayBeDamaged_data()
{
    addTopics();
}

void PublicationMutationTest::everyKeyMayBeDamaged()
{
    QFETCH(int, index);
    allowMessages(unknownType);
    const auto topic = at(index).topic;
    const auto entity = entityOf(at(index));
    std::vector<Path> paths;
    collectPaths(entity, {}, paths);
    QVERIFY(paths.size() >= 4); // the type, the id, the attributes and one of them at least

    for (const auto &path : paths) {
        for (const auto &damage : damages()) {
            receive(topic, {replaced(entity, path, damage), entity});
            if (!isSettings(index))
                QCOMPARE(held(index), std::size_t(2));
        }
    }

    // Nothing of it stays behind.
    receive(topic, {entity});
    QCOMPARE(held(index), std::size_t(1));
    QCOMPARE(m_errors, 0);
}

void PublicationMutationTest::furtherKeysChangeNothing_data()
{
    addTopics();
}

void PublicationMutationTest::furtherKeysChangeNothing()
{
    QFETCH(int, index);
    const auto topic = at(index).topic;
    auto entity = entityOf(at(index));
    auto attributes = entity.value("attributes").toObject();
    for (int i = 0; i < 10000; ++i)
        attributes.insert("unknown key " + QString::number(i), QJsonArray{i});
    entity.insert("attributes", attributes);
    entity.insert("links", QJsonObject{{"self", "a"}});
    entity.insert("", QJsonValue());

    receive(topic, {entity});

    QCOMPARE(held(index), std::size_t(1));
    QCOMPARE(m_errors, 0);
}

void PublicationMutationTest::oddEntitiesKeepTheirPlace_data()
{
    addTopics();
}

void PublicationMutationTest::oddEntitiesKeepTheirPlace()
{
    QFETCH(int, index);
    const auto topic = at(index).topic;
    const auto entity = entityOf(at(index));
    const auto withId = [&entity](const QJsonValue &id) { return replaced(entity, {"id"}, id); };
    const QJsonArray entities{QJsonValue(),
                              5,
                              "text",
                              QJsonArray(),
                              QJsonObject(),
                              withId(""),
                              withId(QJsonValue()),
                              withId("{00000000-0000-0000-0000-000000000000}"),
                              withId("no uid"),
                              withId(7),
                              entity,
                              entity,
                              entity};

    receive(topic, entities);

    QCOMPARE(held(index), std::size_t(isSettings(index) ? 1 : entities.size()));
    QCOMPARE(m_errors, 0);
}

void PublicationMutationTest::tenThousandEntitiesAreHeld_data()
{
    addTopics();
}

void PublicationMutationTest::tenThousandEntitiesAreHeld()
{
    QFETCH(int, index);
    constexpr int count = 10000;
    QByteArrayList entities;
    for (int i = 0; i < count; ++i) {
        auto entity = at(index).entity;
        if (i % 3) // of three, two have a uid of their own
            entity.replace("11111111-1111-1111-1111-111111111111",
                           "00000000-0000-0000-0000-" + QByteArray::number(i).rightJustified(12, '0'));
        entities << entity;
    }

    m_link->receive(at(index).topic, PublishedDocument::list(entities.join(',')));

    QCOMPARE(held(index), std::size_t(isSettings(index) ? 1 : count));
    m_link->receive(at(index).topic, PublishedDocument::list({}));
    QCOMPARE(held(index), std::size_t(isSettings(index) ? 1 : 0));
}

void PublicationMutationTest::tenThousandElementsOfEachListAreTaken_data()
{
    addTopics();
}

void PublicationMutationTest::tenThousandElementsOfEachListAreTaken()
{
    QFETCH(int, index);
    allowMessages(unknownType);
    const auto entity = entityOf(at(index));
    std::vector<Path> paths;
    collectPaths(entity, {}, paths);

    for (const auto &path : paths) {
        QJsonValue value = entity;
        for (const auto &step : path)
            value = value.isObject() ? value.toObject().value(step.toString()) : value.toArray().at(step.toInt());
        if (!value.isArray())
            continue;
        QJsonArray many;
        for (int i = 0; i < 10000; ++i)
            many.append(value.toArray().isEmpty() ? QJsonValue(i) : value.toArray().first());
        receive(at(index).topic, {replaced(entity, path, many)});
        QCOMPARE(held(index), std::size_t(1));
    }
    receive(at(index).topic, {entity});
    QCOMPARE(held(index), std::size_t(1));
}

void PublicationMutationTest::deepDocumentIsSurvived_data()
{
    addTopics();
}

void PublicationMutationTest::deepDocumentIsSurvived()
{
    const JsonLeaks uncounted;
    QFETCH(int, index);
    allowMessages(unknownType);
    const auto entity = entityOf(at(index));
    QJsonValue list = 1;
    QJsonValue map = QJsonObject{{"type", "double"}};
    for (int i = 0; i < 400; ++i) {
        list = QJsonArray{list};
        map = QJsonObject{{"type", "list"}, {"listType", "list"}, {"value", QJsonArray{map}}, {"elementLimits", map}};
        if (i > 8) // each level doubles the map above
            map = QJsonObject{{"type", "list"}, {"elementLimits", map.toObject().value("elementLimits")}};
    }
    std::vector<Path> paths;
    collectPaths(entity, {}, paths);

    for (const auto &path : paths)
        receive(at(index).topic, {replaced(entity, path, list), entity});
    for (const char *key : {"properties", "valueLimits", "value_limits", "state", "parameters", "blueprints"}) {
        auto deep = entity;
        deep.insert("attributes", QJsonObject{{key, QJsonArray{map, QJsonObject{{key, map}, {"value", list}}}}});
        receive(at(index).topic, {deep, entity});
    }

    QCOMPARE(held(index), std::size_t(isSettings(index) ? 1 : 2));
}

void PublicationMutationTest::spoiltBytesAreSurvived_data()
{
    addTopics();
}

void PublicationMutationTest::spoiltBytesAreSurvived()
{
    const JsonLeaks uncounted;
    QFETCH(int, index);
    allowMessages(unknownType);
    std::mt19937 random(static_cast<quint32>(index) + 1);
    const auto document = at(index).document();

    for (int i = 0; i < 1500; ++i)
        m_link->receive(at(index).topic, spoiled(document, random));

    m_link->receive(at(index).topic, document);
    QCOMPARE(held(index), std::size_t(1));
}

ONDIRA_TEST(PublicationMutationTest)
#include "PublicationMutationTest.moc"
