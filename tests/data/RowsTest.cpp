// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Rows.h"
#include "support/TestBase.h"

#include <memory>
#include <random>

namespace {

std::vector<int> contents(const Rows<int> &rows)
{
    std::vector<int> values;
    for (int row = 0; row < rows.size(); ++row)
        values.push_back(rows.at(row));
    return values;
}

std::vector<int> numbers(int count)
{
    std::vector<int> values;
    for (int i = 0; i < count; ++i)
        values.push_back(i);
    return values;
}

using Values = std::vector<int>;

} // namespace

class RowsTest : public TestBase
{
    Q_OBJECT

private slots:
    void isEmptyAtFirst()
    {
        const Rows<int> rows;

        QVERIFY(rows.empty());
        QCOMPARE(rows.size(), 0);
        QVERIFY(rows.begin() == rows.end());
    }

    void tellsTheRestAfterEachErasure()
    {
        Rows<int> rows(numbers(8));

        rows.erase(1, 2);
        QCOMPARE(contents(rows), (Values{0, 3, 4, 5, 6, 7}));
        rows.erase(3, 1);
        QCOMPARE(contents(rows), (Values{0, 3, 4, 6, 7}));
        rows.erase(4, 1);
        QCOMPARE(contents(rows), (Values{0, 3, 4, 6}));
    }

    void erasesBeforeTheHole()
    {
        Rows<int> rows(numbers(8));

        rows.erase(5, 2);
        rows.erase(1, 1);
        rows.erase(0, 1);

        QCOMPARE(contents(rows), (Values{2, 3, 4, 7}));
    }

    void erasesAll()
    {
        Rows<int> rows(numbers(3));

        rows.erase(0, 3);
        QVERIFY(rows.empty());
        rows.settle();
        rows.push_back(9);

        QCOMPARE(contents(rows), (Values{9}));
    }

    void erasingNothingChangesNothing()
    {
        Rows<int> rows(numbers(3));

        rows.erase(1, 0);
        rows.erase(3, 0);

        QCOMPARE(contents(rows), numbers(3));
    }

    void writesThroughTheHole()
    {
        Rows<int> rows(numbers(5));
        rows.erase(1, 2);

        for (auto &value : rows)
            value *= 10;
        rows[0] = 7;

        QCOMPARE(contents(rows), (Values{7, 30, 40}));
    }

    void appendsBehindTheLastRow()
    {
        Rows<int> rows(numbers(5));
        rows.erase(1, 2);

        rows.push_back(8);
        rows.reserve(100);
        rows.push_back(9);

        QCOMPARE(contents(rows), (Values{0, 3, 4, 8, 9}));
    }

    void clearsWithAnOpenHole()
    {
        Rows<int> rows(numbers(5));
        rows.erase(0, 2);

        rows.clear();
        QVERIFY(rows.empty());
        rows.push_back(1);

        QCOMPARE(contents(rows), (Values{1}));
    }

    void releasesRemovedRecordsWhenItSettles()
    {
        std::vector<std::shared_ptr<int>> records{std::make_shared<int>(0), std::make_shared<int>(1)};
        const std::weak_ptr<int> first = records[0];
        Rows<std::shared_ptr<int>> rows(std::move(records));

        rows.erase(0, 1);
        rows.settle();

        QVERIFY(first.expired());
        QCOMPARE(*rows.at(0), 1);
    }

    void doesAsAVectorDoes()
    {
        std::mt19937 random(7);
        for (int round = 0; round < 200; ++round) {
            auto expected = numbers(static_cast<int>(random() % 40));
            Rows<int> rows(expected);
            for (int step = 0; step < 20; ++step) {
                const int size = static_cast<int>(expected.size());
                const int first = static_cast<int>(random() % static_cast<uint>(size + 1));
                const int count = static_cast<int>(random() % static_cast<uint>(size - first + 1)) % 5;
                switch (random() % 4) {
                case 0:
                    rows.push_back(1000 + step);
                    expected.push_back(1000 + step);
                    break;
                case 1: rows.settle(); break;
                default:
                    rows.erase(first, count);
                    expected.erase(expected.begin() + first, expected.begin() + first + count);
                }
                QCOMPARE(contents(rows), expected);
                QCOMPARE(Values(rows.begin(), rows.end()), expected);
            }
        }
    }
};

ONDIRA_TEST(RowsTest)
#include "RowsTest.moc"
