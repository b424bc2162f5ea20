// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/IsoTime.h"
#include "support/TestBase.h"

#include <QRandomGenerator>
#include <ctime>

namespace {

// Another time zone while it lives; the tests run in UTC, where no hour is missing and none comes twice.
class TimeZone
{
public:
    explicit TimeZone(const char *name)
    {
        qputenv("TZ", name);
        tzset();
    }

    ~TimeZone()
    {
        qputenv("TZ", m_before);
        tzset();
    }

private:
    const QByteArray m_before = qgetenv("TZ");
};

bool same(const QDateTime &left, const QDateTime &right)
{
    return left.isValid() == right.isValid() && left.isNull() == right.isNull() && left.timeSpec() == right.timeSpec()
        && left.offsetFromUtc() == right.offsetFromUtc() && left.toMSecsSinceEpoch() == right.toMSecsSinceEpoch()
        && left.date() == right.date() && left.time() == right.time();
}

} // namespace

class IsoTimeTest : public TestBase
{
    Q_OBJECT

private slots:
    void readsLocalAndUniversalTime();
    void readsVariants();
    void agreesWithTheGeneralReader_data();
    void agreesWithTheGeneralReader();
    void agreesInEveryHourOfAYear_data();
    void agreesInEveryHourOfAYear();
    void agreesOnDamagedTexts();
};

void IsoTimeTest::readsLocalAndUniversalTime()
{
    const TimeZone moscow("Europe/Moscow");

    const auto local = JsonAPI::isoTime(QString("2024-05-01T12:00:30"));
    QCOMPARE(local.timeSpec(), Qt::LocalTime);
    QCOMPARE(local.toMSecsSinceEpoch(), 1714554030000LL);

    const auto universal = JsonAPI::isoTime(QString("2024-05-01T12:00:30Z"));
    QCOMPARE(universal.timeSpec(), Qt::UTC);
    QCOMPARE(universal.toMSecsSinceEpoch(), 1714564830000LL);
}

void IsoTimeTest::readsVariants()
{
    const QDateTime noon({2024, 5, 1}, {12, 0});

    QCOMPARE(JsonAPI::isoTime(QVariant("2024-05-01T12:00:00")), noon);
    QCOMPARE(JsonAPI::isoTime(QVariant(noon)), noon);
    for (const auto &variant : {QVariant(), QVariant::fromValue(nullptr), QVariant(5), QVariant(QVariantList{"2024"}),
                                QVariant(QVariantMap()), QVariant(true)})
        QVERIFY(!JsonAPI::isoTime(variant).isValid());
}

void IsoTimeTest::agreesWithTheGeneralReader_data()
{
    QTest::addColumn<QString>("text");

    for (const auto *text : {"2024-05-01T12:00:30",
                             "2024-05-01T12:00:30Z",
                             "2024-05-01T12:00:30z",
                             "2024-05-01 12:00:30",
                             "2024-05-01t12:00:30",
                             "2024-05-01T12:00:30.250",
                             "2024-05-01T12:00:30.250Z",
                             "2024-05-01T12:00:30,5",
                             "2024-05-01T12:00:30+03:00",
                             "2024-05-01T12:00:30-0330",
                             "2024-05-01T12:00",
                             "2024-05-01T12",
                             "2024-05-01",
                             "2024-05-01T",
                             "2024-02-29T00:00:00",
                             "2023-02-29T00:00:00",
                             "2024-13-01T00:00:00",
                             "2024-00-10T00:00:00",
                             "2024-01-00T00:00:00",
                             "2024-01-32T00:00:00Z",
                             "2024-01-01T24:00:00",
                             "2024-12-31T24:00:00Z",
                             "2024-01-01T24:00:01",
                             "2024-01-01T23:60:00",
                             "2024-01-01T23:59:60",
                             "2024-01-01T23:59:60Z",
                             "0000-01-01T00:00:00",
                             "0001-01-01T00:00:00",
                             "0001-01-01T00:00:00Z",
                             "1582-10-10T00:00:00",
                             "1899-12-31T23:59:59",
                             "1970-01-01T00:00:00",
                             "1969-12-31T23:59:59Z",
                             "9999-12-31T23:59:59",
                             "9999-12-31T23:59:59Z",
                             "2024-5-01T12:00:300",
                             "+024-05-01T12:00:30",
                             "-024-05-01T12:00:30",
                             "2024-+5-01T12:00:30",
                             "2024-05- 1T12:00:30",
                             "2024-05-01T+2:00:30",
                             "2024-05-01T12:-1:30",
                             "2024-05-01T12:00: 3",
                             "2024/05/01T12:00:30",
                             "2024-05-01T12.00.30",
                             "12024-05-01T12:00:30",
                             " 2024-05-01T12:00:30",
                             "2024-05-01T12:00:30 ",
                             "2024-05-01T12:00:30ZZ",
                             "2024-05-01T12:00:3Z",
                             "2024-05-01T12:00:0Z0",
                             "2024-05-01T12:00:30X",
                             "20240501T120030",
                             "",
                             "Z",
                             "-",
                             "T",
                             "nothing of the kind",
                             "1714564830000",
                             "٢٠٢٤-٠٥-٠١T١٢:٠٠:٣٠",
                             "２０２４-05-01T12:00:30"})
        QTest::newRow(text) << QString(text);
    QTest::newRow("null text") << QString();
    QTest::newRow("long") << QString(1000000, '2');
}

void IsoTimeTest::agreesWithTheGeneralReader()
{
    QFETCH(QString, text);

    for (const auto *zone : {"UTC", "Europe/Berlin", "America/Sao_Paulo", "Asia/Kathmandu"}) {
        const TimeZone other(zone);
        QVERIFY2(same(JsonAPI::isoTime(text), QDateTime::fromString(text, Qt::ISODate)), zone);
    }
}

void IsoTimeTest::agreesInEveryHourOfAYear_data()
{
    QTest::addColumn<QByteArray>("zone");

    for (const auto *zone : {"UTC", "Europe/Berlin", "Europe/Moscow", "America/New_York", "Australia/Lord_Howe"})
        QTest::newRow(zone) << QByteArray(zone);
}

void IsoTimeTest::agreesInEveryHourOfAYear()
{
    QFETCH(QByteArray, zone);
    const TimeZone other(zone.constData());

    for (int quarter = 0; quarter < 366 * 96; ++quarter) {
        const auto text =
            QDateTime({2024, 1, 1}, {0, 0}, Qt::UTC).addSecs(quarter * 900).toString("yyyy-MM-ddTHH:mm:ss");
        QVERIFY2(same(JsonAPI::isoTime(text), QDateTime::fromString(text, Qt::ISODate)), qPrintable(text));
    }
}

void IsoTimeTest::agreesOnDamagedTexts()
{
    QRandomGenerator random(1);
    const QString characters = QStringLiteral("0123456789-:TZ+. /x");
    for (int i = 0; i < 20000; ++i) {
        QString text = i % 2 ? "2024-05-01T12:00:30" : "2024-05-01T12:00:30Z";
        for (int changes = random.bounded(1, 4); changes > 0; --changes)
            text[random.bounded(text.size())] = characters.at(random.bounded(characters.size()));
        QVERIFY2(same(JsonAPI::isoTime(text), QDateTime::fromString(text, Qt::ISODate)), qPrintable(text));
    }
}

ONDIRA_TEST(IsoTimeTest)
#include "IsoTimeTest.moc"
