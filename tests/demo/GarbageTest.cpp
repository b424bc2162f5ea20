// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/Garbage.h"
#include "support/TestBase.h"

class GarbageTest : public TestBase
{
    Q_OBJECT

private slots:
    void equalSeedsGiveEqualGarbage();
    void lengthIsBounded();
    void allKindsComeUp();
};

void GarbageTest::equalSeedsGiveEqualGarbage()
{
    Demo::Garbage first(7);
    Demo::Garbage second(7);
    Demo::Garbage other(8);
    bool differs = false;

    for (int i = 0; i < 50; ++i) {
        const auto frames = first.frames();
        QCOMPARE(second.frames(), frames);
        differs = differs || other.frames() != frames;
    }
    QVERIFY(differs);
}

void GarbageTest::lengthIsBounded()
{
    Demo::Garbage garbage(1);
    QSet<int> lengths;

    for (int i = 0; i < 200; ++i)
        lengths.insert(garbage.bytes(3).size());

    QCOMPARE(lengths, (QSet<int>{0, 1, 2, 3}));
}

void GarbageTest::allKindsComeUp()
{
    Demo::Garbage garbage(1);
    bool withoutDelimiter = false;
    bool tooShort = false;
    bool shortHeader = false;
    bool badBody = false;

    for (int i = 0; i < 300; ++i) {
        const auto frames = garbage.frames();
        withoutDelimiter = withoutDelimiter || !frames.contains(QByteArray());
        tooShort = tooShort || frames.size() == 1;
        shortHeader = shortHeader || (frames.size() > 1 && frames.at(1).size() < 2);
        badBody = badBody || (frames.size() == 3 && frames.at(1).startsWith(QByteArray("\0\2", 2)));
    }

    QVERIFY(withoutDelimiter);
    QVERIFY(tooShort);
    QVERIFY(shortHeader);
    QVERIFY(badBody);
}

ONDIRA_TEST(GarbageTest)
#include "GarbageTest.moc"
