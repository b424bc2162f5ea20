// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/document/Compression.h"
#include "support/TestBase.h"

#include <QRandomGenerator>
#include <QtEndian>

namespace {

QByteArray declaring(quint32 size, QByteArray packed)
{
    qToBigEndian(size, packed.data());
    return packed;
}

QByteArray noise(int size)
{
    QRandomGenerator random(42);
    QByteArray bytes(size, '\0');
    for (auto &byte : bytes)
        byte = char(random.bounded(256));
    return bytes;
}

QByteArray document(int entities)
{
    QByteArray bytes = "{\"data\":[";
    for (int i = 0; i < entities; ++i)
        bytes += "{\"type\":\"device_state\",\"id\":\"" + QByteArray::number(i * 7919) + "\"},";
    return bytes + "]}";
}

} // namespace

class CompressionTest : public TestBase
{
    Q_OBJECT

private slots:
    void unpacksLikeQt_data();
    void unpacksLikeQt();
    void everyTruncationUnpacksLikeQt();
    void everyDamagedByteUnpacksLikeQt();
    void boundsByTheOutput_data();
    void boundsByTheOutput();
    void aLyingDeclarationDoesNotPassTheLimit();
    void takesNoMemoryByTheDeclaredSize();
    void limitOfZeroLetsOnlyAnEmptyBodyPass();
};

void CompressionTest::unpacksLikeQt_data()
{
    QTest::addColumn<QByteArray>("packed");

    QTest::newRow("null") << QByteArray();
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("three bytes") << QByteArray("\0\0\0", 3);
    QTest::newRow("packed empty array") << qCompress(QByteArray());
    QTest::newRow("a declaration alone") << QByteArray("\0\0\0\5", 4);
    QTest::newRow("one byte of a stream") << QByteArray("\0\0\0\0\x78", 5);
    QTest::newRow("no stream") << QByteArray("\0\0\0\5hello", 9);
    QTest::newRow("plain JSON") << QByteArray("{\"data\":[]}");
    for (const int size : {1, 2, 255, 256, 257, 4095, 4096, 4097, 100000, 1000000}) {
        QTest::addRow("%d equal bytes", size) << qCompress(QByteArray(size, 'a'));
        QTest::addRow("%d bytes of noise", size) << qCompress(noise(size));
    }
    QTest::newRow("document") << qCompress(document(5000));
    QTest::newRow("stored without packing") << qCompress(document(500), 0);
    QTest::newRow("packed best") << qCompress(document(500), 9);
    for (const quint32 size : {0u, 1u, 10u, 1000000u, 0x7fffffe7u, 0x80000000u, 0xffffffffu})
        QTest::addRow("declares %u", size) << declaring(size, qCompress(document(20)));
    QTest::newRow("empty stream") << declaring(0, qCompress(QByteArray("a")).left(4))
            + QByteArray("\x78\x9c\x03\x00\x00\x00\x00\x01", 8);
    QTest::newRow("rubbish after the stream") << qCompress(document(20)) + "rubbish";
    QTest::newRow("a second stream after the first") << qCompress(document(20)) + qCompress(document(30)).mid(4);
    QTest::newRow("no checksum") << qCompress(document(20)).chopped(4);
    QTest::newRow("needs a dictionary") << QByteArray("\0\0\0\5\x78\xbb\x06\x2c\x02\x15\xcb\x48", 12);
}

void CompressionTest::unpacksLikeQt()
{
    QFETCH(QByteArray, packed);
    allowMessages("^qUncompress: "); // Qt's own

    const auto unpacked = Compression::unpack(packed);

    QVERIFY(unpacked);
    QCOMPARE(*unpacked, qUncompress(packed));
}

void CompressionTest::everyTruncationUnpacksLikeQt()
{
    allowMessages("^qUncompress: ");
    const auto packed = qCompress(document(20));

    for (int size = 0; size < packed.size(); ++size) {
        const auto unpacked = Compression::unpack(packed.left(size));
        QVERIFY(unpacked);
        QCOMPARE(*unpacked, qUncompress(packed.left(size)));
    }
}

void CompressionTest::everyDamagedByteUnpacksLikeQt()
{
    allowMessages("^qUncompress: ");
    const auto packed = qCompress(document(20));
    QRandomGenerator random(7);

    for (int round = 0; round < 5000; ++round) {
        auto damaged = packed;
        // From the second byte of the declaration on: Qt takes the declared memory, which the first one makes
        // gigabytes.
        damaged[random.bounded(1, damaged.size())] = char(random.bounded(256));
        const auto unpacked = Compression::unpack(damaged);
        QVERIFY(unpacked);
        QCOMPARE(*unpacked, qUncompress(damaged));
    }
}

void CompressionTest::boundsByTheOutput_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<qint64>("limit");
    QTest::addColumn<bool>("passes");

    QTest::newRow("at the limit") << 1000000 << 1000000LL << true;
    QTest::newRow("one over") << 1000001 << 1000000LL << false;
    QTest::newRow("one under") << 999999 << 1000000LL << true;
    QTest::newRow("far over") << 64 * 1024 * 1024 << 1000000LL << false;
    QTest::newRow("a limit of one") << 1 << 1LL << true;
    QTest::newRow("two for a limit of one") << 2 << 1LL << false;
}

void CompressionTest::boundsByTheOutput()
{
    QFETCH(int, size);
    QFETCH(qint64, limit);
    QFETCH(bool, passes);
    if (!passes)
        expectMessage(QtWarningMsg, QString("^A packed body of \\d+ bytes unpacks to more than %1 bytes$").arg(limit));

    const auto unpacked = Compression::unpack(qCompress(QByteArray(size, 'a')), limit);

    QCOMPARE(bool(unpacked), passes);
    if (passes)
        QCOMPARE(unpacked->size(), size);
}

void CompressionTest::aLyingDeclarationDoesNotPassTheLimit()
{
    expectMessage(QtWarningMsg, "unpacks to more than 1000 bytes");

    QVERIFY(!Compression::unpack(declaring(16, qCompress(QByteArray(1001, 'a'))), 1000));
}

void CompressionTest::takesNoMemoryByTheDeclaredSize()
{
    const auto unpacked = Compression::unpack(declaring(0x70000000, qCompress("hello")));

    QVERIFY(unpacked);
    QCOMPARE(*unpacked, QByteArray("hello"));
    QVERIFY(unpacked->capacity() < 4096);
}

void CompressionTest::limitOfZeroLetsOnlyAnEmptyBodyPass()
{
    expectMessage(QtWarningMsg, "unpacks to more than 0 bytes");

    QVERIFY(Compression::unpack(qCompress(QByteArray()), 0));
    QVERIFY(!Compression::unpack(qCompress("a"), 0));
}

ONDIRA_TEST(CompressionTest)
#include "CompressionTest.moc"
