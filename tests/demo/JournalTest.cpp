// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/Journal.h"
#include "SiteFixture.h"
#include "demo/SiteLoader.h"
#include "support/TestBase.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QTimeZone>
#include <algorithm>

using namespace SiteFixture;
using Cause = Model::LogEntry::Cause;
using Demo::Journal;
namespace Texts = Demo::JournalTexts;

namespace {

QDateTime noon()
{
    return QDateTime(QDate(2026, 11, 21), QTime(12, 0), Qt::UTC);
}

Model::LogEntry entryAt(const QDateTime &time, const QString &action)
{
    return {time, Cause::User, "admin", action};
}

QStringList actions(const std::vector<Model::LogEntry> &entries)
{
    QStringList actions;
    for (const auto &entry : entries)
        actions << entry.action;
    return actions;
}

Journal threeEntries()
{
    Journal journal;
    journal.add(entryAt(noon(), "first"));
    journal.add(entryAt(noon().addSecs(10), "second"));
    journal.add(entryAt(noon().addSecs(20), "third"));
    return journal;
}

std::vector<Model::LogEntry> all(const Journal &journal)
{
    return {journal.entries().begin(), journal.entries().end()};
}

} // namespace

class JournalTest : public TestBase
{
    Q_OBJECT

private slots:
    void keepsWholeSeconds();
    void newestStay();
    void longTextsAreCut();
    void passesOverTimesThatCannotBeTold_data();
    void passesOverTimesThatCannotBeTold();
    void rangeHasBothEnds_data();
    void rangeHasBothEnds();
    void clockSetBackGivesOrderByTime();
    void writtenJournalIsReadAgain();
    void writesDocuments();
    void missingListIsEmpty();
    void refuses_data();
    void refuses();
    void inventsAYear();
    void inventedEntriesAreOfTheSite();
    void inventedDaysFollowTheSchedules();
    void inventedDayDoesNotDependOnTheHour();
    void otherSeedInventsOtherDays();
    void inventsForAnEmptySite();
    void inventsForASiteOfManySchedules();
};

void JournalTest::keepsWholeSeconds()
{
    Journal journal;

    journal.add(entryAt(noon().addMSecs(999), "first"));

    QCOMPARE(journal.entries().front(), entryAt(noon(), "first"));
}

void JournalTest::newestStay()
{
    Journal journal;
    for (int i = 0; i < int(Journal::capacity) + 5; ++i)
        journal.add(entryAt(noon().addSecs(i), QString::number(i)));

    QCOMPARE(journal.entries().size(), Journal::capacity);
    QCOMPARE(journal.entries().front().action, QString("5"));
    QCOMPARE(journal.entries().back().action, QString::number(Journal::capacity + 4));
}

void JournalTest::longTextsAreCut()
{
    Journal journal;

    journal.add({noon(), Cause::User, QString(100000, 'u'), QString(100000, 'a')});

    QCOMPARE(journal.entries().front().username, QString(200, 'u'));
    QCOMPARE(journal.entries().front().action, QString(1000, 'a'));
}

void JournalTest::passesOverTimesThatCannotBeTold_data()
{
    QTest::addColumn<QDateTime>("time");

    QTest::newRow("none") << QDateTime();
    QTest::newRow("year of five digits") << QDateTime(QDate(10000, 1, 1), QTime(0, 0), Qt::UTC);
    QTest::newRow("before the first year") << QDateTime(QDate(-1, 1, 1), QTime(0, 0), Qt::UTC);
}

void JournalTest::passesOverTimesThatCannotBeTold()
{
    QFETCH(QDateTime, time);
    auto journal = threeEntries();

    journal.add(entryAt(time, "never"));

    QCOMPARE(journal.entries().size(), size_t(3));
}

void JournalTest::rangeHasBothEnds_data()
{
    QTest::addColumn<qint64>("from"); // milliseconds after noon
    QTest::addColumn<qint64>("to");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("all") << -100000LL << 100000LL << QStringList{"first", "second", "third"};
    QTest::newRow("both ends") << 0LL << 10000LL << QStringList{"first", "second"};
    QTest::newRow("a millisecond later") << 1LL << 10000LL << QStringList{"second"};
    QTest::newRow("a millisecond earlier") << 0LL << 9999LL << QStringList{"first"};
    QTest::newRow("one moment") << 20000LL << 20000LL << QStringList{"third"};
    QTest::newRow("the wrong way round") << 20000LL << 0LL << QStringList();
    QTest::newRow("before") << -5000LL << -1LL << QStringList();
    QTest::newRow("after") << 20001LL << 90000LL << QStringList();
}

void JournalTest::rangeHasBothEnds()
{
    QFETCH(qint64, from);
    QFETCH(qint64, to);
    QFETCH(QStringList, expected);
    const auto start = noon().toMSecsSinceEpoch();

    QCOMPARE(actions(threeEntries().between(start + from, start + to)), expected);
}

void JournalTest::clockSetBackGivesOrderByTime()
{
    auto journal = threeEntries();

    journal.add(entryAt(noon(), "noon again"));

    const auto start = noon().toMSecsSinceEpoch();
    QCOMPARE(actions(journal.between(start, start + 60000)), (QStringList{"first", "noon again", "second", "third"}));
    QCOMPARE(journal.entries().back().action, QString("noon again")); // the ring keeps what was told last
}

void JournalTest::writtenJournalIsReadAgain()
{
    auto journal = threeEntries();
    journal.add({noon().toOffsetFromUtc(3 * 3600), Cause::Schedule, {}, "Будни, 08:00"});
    journal.add({noon(), Cause::System, {}, {}});
    QString error;

    const auto read = Journal::fromJson(journal.toJson(), &error);

    QVERIFY2(read, qPrintable(error));
    QCOMPARE(all(*read), all(journal));
    QCOMPARE(read->entries().at(3).time.offsetFromUtc(), 3 * 3600);
}

void JournalTest::writesDocuments()
{
    Journal journal;
    journal.add({noon(), Cause::User, "anna", "Кнопка «Свет»"});

    QCOMPARE(QString::fromUtf8(QJsonDocument(journal.toJson()).toJson(QJsonDocument::Compact)),
             QString(R"([{"attributes":{"action":"Кнопка «Свет»","cause":"user","time":"2026-11-21T12:00:00Z",)"
                     R"("username":"anna"},"id":"1795262400000","type":"log_entry"}])"));
}

void JournalTest::missingListIsEmpty()
{
    QString error;

    const auto read = Journal::fromJson(QJsonValue(QJsonValue::Undefined), &error);

    QVERIFY(read);
    QVERIFY(read->entries().empty());
    QVERIFY(error.isEmpty());
}

void JournalTest::refuses_data()
{
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<QString>("complaint");

    const auto entry = [](const QByteArray &attributes) {
        return R"([{"type": "log_entry", "id": "0", "attributes": )" + attributes + "}]";
    };
    const QString first("journal[0] is not an entry");
    QTest::newRow("a map") << QByteArray(R"({"list": {}})") << "journal is not a list";
    QTest::newRow("null") << QByteArray(R"({"list": null})") << "journal is not a list";
    QTest::newRow("a number inside") << QByteArray("[1]") << first;
    QTest::newRow("no attributes") << QByteArray("[{}]") << first;
    QTest::newRow("no time") << entry(R"({"cause": "user", "username": "", "action": ""})") << first;
    QTest::newRow("bad time") << entry(R"({"time": "noon", "cause": "user", "username": "", "action": ""})") << first;
    QTest::newRow("unknown cause") << entry(
        R"({"time": "2026-11-21T12:00:00Z", "cause": "fate", "username": "", "action": ""})")
                                   << first;
    QTest::newRow("user is a number") << entry(
        R"({"time": "2026-11-21T12:00:00Z", "cause": "user", "username": 1, "action": ""})")
                                      << first;
    QTest::newRow("no action") << entry(R"({"time": "2026-11-21T12:00:00Z", "cause": "user", "username": ""})")
                               << first;
}

void JournalTest::refuses()
{
    QFETCH(QByteArray, list);
    QFETCH(QString, complaint);
    const auto document = QJsonDocument::fromJson(list);
    const QJsonValue value = document.isArray() ? QJsonValue(document.array()) : document.object().value("list");
    QString error;

    QVERIFY(!Journal::fromJson(value, &error));
    QCOMPARE(error, complaint);
}

void JournalTest::inventsAYear()
{
    const auto journal = Journal::invented(Demo::SiteLoader::builtIn(), 1, noon());

    const auto &entries = journal.entries();
    QVERIFY(entries.size() > 4000);
    QVERIFY(entries.size() < Journal::capacity);
    QVERIFY(entries.back().time <= noon());
    QVERIFY(entries.back().time.secsTo(noon()) < 86400);
    QVERIFY(entries.front().time.daysTo(noon()) >= 364);
    QVERIFY(entries.front().time.daysTo(noon()) <= 366);
    QVERIFY(std::is_sorted(entries.begin(), entries.end(),
                           [](const auto &left, const auto &right) { return left.time < right.time; }));
    QSet<QDate> days;
    for (const auto &entry : entries)
        days.insert(entry.time.date());
    QVERIFY(days.size() >= 365); // no day without a trace
}

void JournalTest::inventedEntriesAreOfTheSite()
{
    const auto site = Demo::SiteLoader::builtIn();
    QSet<QString> byPeople{Texts::loggedIn()};
    for (const auto &button : site.buttons)
        byPeople.insert(Texts::buttonPressed(button.button.name));
    for (const auto &blueprint : site.blueprints)
        byPeople.insert(blueprint.blueprint.name);
    QSet<QString> users;
    for (const auto &user : site.users)
        users.insert(user.login);
    int failures = 0;
    int recoveries = 0;

    for (const auto &entry : all(Journal::invented(site, 1, noon()))) {
        if (entry.cause == Cause::User) {
            QVERIFY2(byPeople.contains(entry.action), qPrintable(entry.action));
            QVERIFY2(users.contains(entry.username), qPrintable(entry.username));
        } else {
            QCOMPARE(entry.username, QString());
            QVERIFY(!entry.action.isEmpty());
        }
        failures += entry.cause == Cause::System && entry.action.endsWith(Texts::noAnswer({})) ? 1 : 0;
        recoveries += entry.cause == Cause::System && entry.action.endsWith(Texts::answersAgain({})) ? 1 : 0;
    }

    QVERIFY(failures > 100);
    QVERIFY(failures - recoveries >= 0);
    QVERIFY(failures - recoveries <= 2); // the last may still last
}

void JournalTest::inventedDaysFollowTheSchedules()
{
    auto site = fullData();
    site.timezone = "Europe/Moscow";
    QStringList morning;
    int weekend = 0;

    for (const auto &entry : all(Journal::invented(site, 1, noon()))) {
        if (entry.cause != Cause::Schedule)
            continue;
        QCOMPARE(entry.time.offsetFromUtc(), 3 * 3600);
        weekend += entry.time.date().dayOfWeek() > Qt::Friday ? 1 : 0;
        if (entry.time.date() == QDate(2026, 11, 20))
            morning << entry.time.time().toString("HH:mm") + " " + entry.action;
    }

    QCOMPARE(morning, (QStringList{"08:00 Будни, 08:00", "20:00 Будни, 20:00"}));
    QCOMPARE(weekend, 0);
}

void JournalTest::inventedDayDoesNotDependOnTheHour()
{
    const auto early = all(Journal::invented(fullData(), 1, noon()));
    const auto late = all(Journal::invented(fullData(), 1, noon().addSecs(3600 * 11)));

    QVERIFY(late.size() > early.size());
    QCOMPARE(std::vector<Model::LogEntry>(late.begin(), late.begin() + std::ptrdiff_t(early.size())), early);
}

void JournalTest::otherSeedInventsOtherDays()
{
    QVERIFY(all(Journal::invented(fullData(), 1, noon())) != all(Journal::invented(fullData(), 2, noon())));
    QCOMPARE(all(Journal::invented(fullData(), 2, noon())), all(Journal::invented(fullData(), 2, noon())));
}

void JournalTest::inventsForAnEmptySite()
{
    Demo::SiteData site;
    site.timezone = "Mars/Olympus"; // as UTC

    QVERIFY(all(Journal::invented(site, 1, noon())).empty());

    site.users.resize(1);
    site.users[0].login = "anna";
    for (const auto &entry : all(Journal::invented(site, 1, noon()))) {
        QCOMPARE(entry.action, Texts::loggedIn());
        QCOMPARE(entry.time.offsetFromUtc(), 0);
    }
}

void JournalTest::inventsForASiteOfManySchedules()
{
    auto site = fullData();
    const auto day = site.days.front();
    site.days.resize(5000, day);

    const auto journal = Journal::invented(site, 1, noon());

    QCOMPARE(journal.entries().size(), Journal::capacity);
    QVERIFY(journal.entries().back().time <= noon());
}

ONDIRA_TEST(JournalTest)
#include "JournalTest.moc"
