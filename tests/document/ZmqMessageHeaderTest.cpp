// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/document/ZmqMessageHeader.h"
#include "support/TestBase.h"

using Flags = ZmqMessageHeader::Flags;

class ZmqMessageHeaderTest : public TestBase
{
    Q_OBJECT

private slots:
    void writesVersionFlagsAndId();
    void flagsAreTakenTogether_data();
    void flagsAreTakenTogether();
    void flagByteIsTakenAsItStands();
    void compressedFlagIsSetAndCleared();
    void clearingAnUnsetFlagChangesNothing();
    void readsFlagsAndId();
    void twoBytesHaveAnEmptyId();
    void idMayHoldAnyBytes();
    void fewerThanTwoBytesAreNoHeader_data();
    void fewerThanTwoBytesAreNoHeader();
    void versionReadsAsZero();
    void unknownFlagsStay();
    void idIsReplaced();
};

void ZmqMessageHeaderTest::writesVersionFlagsAndId()
{
    const ZmqMessageHeader header({Flags::Json, Flags::Compressed}, "zones:17");

    QCOMPARE(header.toByteArray(), QByteArray("\x00\x06zones:17", 10));
}

void ZmqMessageHeaderTest::flagsAreTakenTogether_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("raw");
    QTest::addColumn<bool>("json");
    QTest::addColumn<bool>("compressed");

    QTest::newRow("none") << ZmqMessageHeader({}, {}).toByteArray() << false << false << false;
    QTest::newRow("raw") << ZmqMessageHeader({Flags::Raw}, {}).toByteArray() << true << false << false;
    QTest::newRow("json") << ZmqMessageHeader({Flags::Json}, {}).toByteArray() << false << true << false;
    QTest::newRow("raw, compressed") << ZmqMessageHeader({Flags::Raw, Flags::Compressed}, {}).toByteArray() << true
                                     << false << true;
    QTest::newRow("given twice") << ZmqMessageHeader({Flags::Json, Flags::Json}, {}).toByteArray() << false << true
                                 << false;
    QTest::newRow("all") << QByteArray("\x00\x07", 2) << true << true << true;
}

void ZmqMessageHeaderTest::flagsAreTakenTogether()
{
    QFETCH(QByteArray, bytes);

    const auto header = ZmqMessageHeader::fromByteArray(bytes);

    QVERIFY(header);
    QTEST(header->isRaw(), "raw");
    QTEST(header->isJson(), "json");
    QTEST(header->isCompressed(), "compressed");
}

void ZmqMessageHeaderTest::flagByteIsTakenAsItStands()
{
    const ZmqMessageHeader header(quint8(0xA5), "id");

    QCOMPARE(int(header.flags()), 0xA5);
    QCOMPARE(int(header.version()), 0);
    QCOMPARE(header.toByteArray(), QByteArray("\x00\xA5id", 4));
}

void ZmqMessageHeaderTest::compressedFlagIsSetAndCleared()
{
    ZmqMessageHeader header({Flags::Json}, {});

    header.setCompressed(true);
    QCOMPARE(int(header.flags()), 6);
    header.setCompressed(true);
    QCOMPARE(int(header.flags()), 6);
    header.setCompressed(false);
    QCOMPARE(int(header.flags()), 2);
}

void ZmqMessageHeaderTest::clearingAnUnsetFlagChangesNothing()
{
    ZmqMessageHeader header(quint8(0xFB), "x");

    header.setCompressed(false);

    QCOMPARE(header.toByteArray(), QByteArray("\x00\xFBx", 3));
}

void ZmqMessageHeaderTest::readsFlagsAndId()
{
    const auto header = ZmqMessageHeader::fromByteArray(QByteArray("\x00\x02ping:1", 8));

    QVERIFY(header);
    QVERIFY(header->isJson());
    QVERIFY(!header->isRaw());
    QVERIFY(!header->isCompressed());
    QCOMPARE(header->id(), QByteArray("ping:1"));
}

void ZmqMessageHeaderTest::twoBytesHaveAnEmptyId()
{
    const auto header = ZmqMessageHeader::fromByteArray(QByteArray("\x00\x01", 2));

    QVERIFY(header);
    QVERIFY(header->id().isEmpty());
    QVERIFY(header->isRaw());
}

void ZmqMessageHeaderTest::idMayHoldAnyBytes()
{
    const QByteArray id("\x00\xFF:\n\x00", 5);

    const auto header = ZmqMessageHeader::fromByteArray(ZmqMessageHeader({Flags::Raw}, id).toByteArray());

    QVERIFY(header);
    QCOMPARE(header->id(), id);
}

void ZmqMessageHeaderTest::fewerThanTwoBytesAreNoHeader_data()
{
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("null") << QByteArray();
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("one byte") << QByteArray("\x00", 1);
}

void ZmqMessageHeaderTest::fewerThanTwoBytesAreNoHeader()
{
    QFETCH(QByteArray, bytes);

    QVERIFY(!ZmqMessageHeader::fromByteArray(bytes));
}

void ZmqMessageHeaderTest::versionReadsAsZero()
{
    const auto header = ZmqMessageHeader::fromByteArray(QByteArray("\x09\x02id"));

    QVERIFY(header);
    QCOMPARE(int(header->version()), 0);
    QCOMPARE(header->toByteArray(), QByteArray("\x00\x02id", 4));
}

void ZmqMessageHeaderTest::unknownFlagsStay()
{
    const QByteArray bytes("\x00\xF2id", 4);

    const auto header = ZmqMessageHeader::fromByteArray(bytes);

    QVERIFY(header);
    QVERIFY(header->isJson());
    QCOMPARE(header->toByteArray(), bytes);
}

void ZmqMessageHeaderTest::idIsReplaced()
{
    ZmqMessageHeader header({Flags::Json}, "zones");

    header.setId(header.id() + ":3");

    QCOMPARE(header.toByteArray(), QByteArray("\x00\x02zones:3", 9));
}

ONDIRA_TEST(ZmqMessageHeaderTest)
#include "ZmqMessageHeaderTest.moc"
