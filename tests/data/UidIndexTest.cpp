// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/UidIndex.h"
#include "Records.h"
#include "support/TestBase.h"

class UidIndexTest : public TestBase
{
    Q_OBJECT

private slots:
    void findsNothingInAnEmptyOne()
    {
        const UidIndex index(0);

        QCOMPARE(index.find(QUuid()), -1);
        QCOMPARE(index.find(Records::uid(1)), -1);
    }

    void firstEntryStands()
    {
        UidIndex index(2);

        QCOMPARE(index.insertFirst(Records::uid(5), 3), 3);
        QCOMPARE(index.insertFirst(Records::uid(5), 4), 3);
        QCOMPARE(index.find(Records::uid(5)), 3);
    }

    void lastEntryStands()
    {
        UidIndex index(2);

        index.insertLast(Records::uid(5), 3);
        index.insertLast(Records::uid(5), 4);

        QCOMPARE(index.find(Records::uid(5)), 4);
    }

    void nullUidIsAUidLikeAnyOther()
    {
        UidIndex index(1);

        index.insertFirst(QUuid(), 8);

        QCOMPARE(index.find(QUuid()), 8);
        QCOMPARE(index.find(Records::uid(1)), -1);
    }

    void findsEachOfThousands()
    {
        const int count = 10000;
        UidIndex index(count);
        for (int i = 0; i < count; ++i)
            index.insertFirst(Records::uid(static_cast<uint>(i)), i);

        for (int i = 0; i < count; ++i)
            QCOMPARE(index.find(Records::uid(static_cast<uint>(i))), i);
        QCOMPARE(index.find(Records::uid(count)), -1);
    }
};

ONDIRA_TEST(UidIndexTest)
#include "UidIndexTest.moc"
