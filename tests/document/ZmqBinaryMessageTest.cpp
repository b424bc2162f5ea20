// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/document/ZmqBinaryMessage.h"
#include "support/TestBase.h"

namespace {

const char *const consumerWarning = "^Byte consumer trying to consume ";

} // namespace

class ZmqBinaryMessageTest : public TestBase
{
    Q_OBJECT

private slots:
    void startsWithTheTopic();
    void writesLengthsInLittleEndian();
    void emptyArrayIsTheMessageWithoutEntries();
    void emptyEntryTakesEightBytes();
    void keepsTheOrderOfEntries();
    void getGivesTheFirstOfEqualKeys();
    void getGivesNullForAnUnknownKey();
    void anEmptyValueIsNoMissingOne();
    void carriesAnyBytes();
    void stopsAtADamagedEntry_data();
    void stopsAtADamagedEntry();
    void keepsCompleteEntriesOfEveryTruncation();
    void warnsInOneLine();
    void warningOfALargeBodyIsBounded();
};

void ZmqBinaryMessageTest::startsWithTheTopic()
{
    const ZmqBinaryMessage message("image_items");

    QCOMPARE(message.entries().size(), size_t(1));
    QCOMPARE(message.entries().front().key, QByteArray("topic"));
    QVERIFY(message.get("topic"));
    QCOMPARE(*message.get("topic"), QByteArray("image_items"));
}

void ZmqBinaryMessageTest::writesLengthsInLittleEndian()
{
    ZmqBinaryMessage message;
    message.add("key", QByteArray(258, 'v'));

    QCOMPARE(message.toByteArray(), QByteArray("\x03\x00\x00\x00key\x02\x01\x00\x00", 11) + QByteArray(258, 'v'));
}

void ZmqBinaryMessageTest::emptyArrayIsTheMessageWithoutEntries()
{
    QVERIFY(ZmqBinaryMessage().toByteArray().isEmpty());
    QVERIFY(ZmqBinaryMessage::fromByteArray({}).entries().empty());
    QVERIFY(ZmqBinaryMessage::fromByteArray("").entries().empty());
}

void ZmqBinaryMessageTest::emptyEntryTakesEightBytes()
{
    ZmqBinaryMessage message;
    message.add({}, {});

    const auto bytes = message.toByteArray();

    QCOMPARE(bytes, QByteArray(8, '\0'));
    const auto read = ZmqBinaryMessage::fromByteArray(bytes);
    QCOMPARE(read.entries().size(), size_t(1));
    QVERIFY(read.entries().front().key.isEmpty());
    QVERIFY(read.entries().front().value.isEmpty());
}

void ZmqBinaryMessageTest::keepsTheOrderOfEntries()
{
    const auto read =
        ZmqBinaryMessage::fromByteArray(QByteArray("\x01\x00\x00\x00z\x01\x00\x00\x00\x31\x01\x00\x00\x00"
                                                   "a\x01\x00\x00\x00\x32\x01\x00\x00\x00z\x01\x00\x00\x00\x33",
                                                   30));

    QCOMPARE(read.entries().size(), size_t(3));
    QCOMPARE(read.entries().at(0).key + read.entries().at(0).value, QByteArray("z1"));
    QCOMPARE(read.entries().at(1).key + read.entries().at(1).value, QByteArray("a2"));
    QCOMPARE(read.entries().at(2).key + read.entries().at(2).value, QByteArray("z3"));
}

void ZmqBinaryMessageTest::getGivesTheFirstOfEqualKeys()
{
    ZmqBinaryMessage message("first");
    message.add("topic", "second");

    QCOMPARE(*message.get("topic"), QByteArray("first"));
    QCOMPARE(*ZmqBinaryMessage::fromByteArray(message.toByteArray()).get("topic"), QByteArray("first"));
}

void ZmqBinaryMessageTest::getGivesNullForAnUnknownKey()
{
    const ZmqBinaryMessage message("image_items");

    QVERIFY(!message.get("image"));
    QVERIFY(!message.get("Topic"));
    QVERIFY(!ZmqBinaryMessage().get({}));
}

void ZmqBinaryMessageTest::anEmptyValueIsNoMissingOne()
{
    ZmqBinaryMessage message;
    message.add("image", {});

    const auto read = ZmqBinaryMessage::fromByteArray(message.toByteArray());

    QVERIFY(read.get("image"));
    QVERIFY(read.get("image")->isEmpty());
}

void ZmqBinaryMessageTest::carriesAnyBytes()
{
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all.append(char(byte));
    ZmqBinaryMessage message;
    message.add(all, all + all);

    const auto read = ZmqBinaryMessage::fromByteArray(message.toByteArray());

    QVERIFY(read.get(all));
    QCOMPARE(*read.get(all), all + all);
}

void ZmqBinaryMessageTest::stopsAtADamagedEntry_data()
{
    QTest::addColumn<QByteArray>("rest");
    QTest::addColumn<QString>("warning");

    QTest::newRow("one byte of a length") << QByteArray("\x01") << "consume 4 bytes when only 1 bytes are left on:";
    QTest::newRow("key cut") << QByteArray("\x05\x00\x00\x00key", 7)
                             << "consume 5 bytes when only 3 bytes are left on:";
    QTest::newRow("no value length") << QByteArray("\x03\x00\x00\x00key", 7)
                                     << "consume 4 bytes when only 0 bytes are left on:";
    QTest::newRow("value cut") << QByteArray("\x01\x00\x00\x00k\x02\x00\x00\x00v", 10)
                               << "consume 2 bytes when only 1 bytes are left on:";
    QTest::newRow("negative key length") << QByteArray("\xFF\xFF\xFF\xFFkey", 7)
                                         << "consume -1 bytes when only 3 bytes are left on:";
    QTest::newRow("lowest key length") << QByteArray("\x00\x00\x00\x80key", 7)
                                       << "consume -2147483648 bytes when only 3 bytes are left on:";
    QTest::newRow("negative value length")
        << QByteArray("\x01\x00\x00\x00k\xF8\xFF\xFF\xFFv", 10) << "consume -8 bytes when only 1 bytes are left on:";
    QTest::newRow("overflowing length") << QByteArray("\xFF\xFF\xFF\x7Fkey", 7)
                                        << "consume 2147483647 bytes when only 3 bytes are left on:";
}

void ZmqBinaryMessageTest::stopsAtADamagedEntry()
{
    QFETCH(QByteArray, rest);
    QFETCH(QString, warning);
    expectMessage(QtWarningMsg, warning); // once: a second warning would fail the test

    const auto read = ZmqBinaryMessage::fromByteArray(ZmqBinaryMessage("kept").toByteArray() + rest);

    QCOMPARE(read.entries().size(), size_t(1));
    QCOMPARE(*read.get("topic"), QByteArray("kept"));
}

void ZmqBinaryMessageTest::keepsCompleteEntriesOfEveryTruncation()
{
    allowMessages(consumerWarning);
    ZmqBinaryMessage message("topic");
    const int first = message.toByteArray().size();
    message.add("data", QByteArray(20, 'x'));
    const auto bytes = message.toByteArray();

    for (int size = 0; size <= bytes.size(); ++size) {
        const auto read = ZmqBinaryMessage::fromByteArray(bytes.left(size));
        const size_t complete = size < first ? 0 : size < bytes.size() ? 1 : 2;
        QVERIFY2(read.entries().size() == complete, qPrintable(QString::number(size)));
    }
}

void ZmqBinaryMessageTest::warnsInOneLine()
{
    expectMessage(
        QtWarningMsg,
        "^Byte consumer trying to consume 9 bytes when only 2 bytes are left on: \"\\\\t\\\\x00\\\\x00\\\\x00xy\"$");

    QVERIFY(ZmqBinaryMessage::fromByteArray(QByteArray("\x09\x00\x00\x00"
                                                       "xy",
                                                       6))
                .entries()
                .empty());
}

void ZmqBinaryMessageTest::warningOfALargeBodyIsBounded()
{
    QByteArray body("\xFF\xFF\xFF\x7F", 4);
    body.append(QByteArray(50 * 1024 * 1024, 'x'));
    expectMessage(QtWarningMsg,
                  "^Byte consumer trying to consume 2147483647 bytes when only 52428800 bytes are left "
                  "on: \"[^\"]{200,1100}\"$");

    QVERIFY(ZmqBinaryMessage::fromByteArray(body).entries().empty());
}

ONDIRA_TEST(ZmqBinaryMessageTest)
#include "ZmqBinaryMessageTest.moc"
