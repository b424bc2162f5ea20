// SPDX-License-Identifier: GPL-3.0-or-later
// Random editing of a day, beside a day that is painted second by second.
#include "Points.h"
#include "data/MirrorList.h"
#include "support/TestBase.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <array>
#include <map>

using namespace Points;
using Records::value;

namespace {

constexpr int daySeconds = 86399;

// Every second of the day has the number of the row that it belongs to, 0 before a late start.
class PaintedDay
{
public:
    explicit PaintedDay(uint label) { paint(0, daySeconds, newRow(label)); }

    void add(int start, int duration, uint label)
    {
        const int end = qMin(start + duration, daySeconds);
        const int covered = m_seconds[static_cast<std::size_t>(start)];
        const bool first = start == 0 || m_seconds[static_cast<std::size_t>(start) - 1] == 0;
        // What the segment cuts in two goes on after it as a row of its own.
        if (end < daySeconds && covered > 0 && m_seconds[static_cast<std::size_t>(end)] == covered && !first
            && m_seconds[static_cast<std::size_t>(start) - 1] == covered) {
            const int rest = newRow(m_labels[covered]);
            for (int i = end; i < daySeconds && m_seconds[static_cast<std::size_t>(i)] == covered; ++i)
                m_seconds[static_cast<std::size_t>(i)] = rest;
        }
        const int row = newRow(label);
        paint(start, end, row);
        for (int i = end; i < daySeconds && m_seconds[static_cast<std::size_t>(i)] == 0; ++i)
            m_seconds[static_cast<std::size_t>(i)] = row; // up to the next row, when the day started late
    }

    void remove(int index)
    {
        const auto starts = rowStarts();
        const int start = starts[static_cast<std::size_t>(index)];
        const int before = start == 0 ? 0 : m_seconds[static_cast<std::size_t>(start) - 1];
        const int row = m_seconds[static_cast<std::size_t>(start)];
        if (starts.size() == 1)
            paint(0, daySeconds, newRow(0));
        else
            std::replace(m_seconds.begin(), m_seconds.end(), row, before);
    }

    void swap(int from, int to)
    {
        const auto starts = rowStarts();
        const auto rowAt = [&](int index) {
            return m_seconds[static_cast<std::size_t>(starts[static_cast<std::size_t>(index)])];
        };
        std::swap(m_labels[rowAt(from)], m_labels[rowAt(to)]);
    }

    QStringList rows() const
    {
        QStringList list;
        const auto starts = rowStarts();
        for (std::size_t i = 0; i < starts.size(); ++i) {
            const int end = i + 1 < starts.size() ? starts[i + 1] : daySeconds;
            list << QStringLiteral("%1 %2 %3")
                        .arg(QTime(0, 0).addSecs(starts[i]).toString(Qt::ISODate))
                        .arg(end - starts[i])
                        .arg(m_labels.at(m_seconds[static_cast<std::size_t>(starts[i])]));
        }
        return list;
    }

private:
    std::vector<int> rowStarts() const
    {
        std::vector<int> starts;
        int row = 0;
        for (int i = 0; i < daySeconds; ++i) {
            if (m_seconds[static_cast<std::size_t>(i)] != row)
                starts.push_back(i);
            row = m_seconds[static_cast<std::size_t>(i)];
        }
        return starts;
    }

    int newRow(uint label)
    {
        m_labels[++m_last] = label;
        return m_last;
    }

    void paint(int start, int end, int row) { std::fill(m_seconds.begin() + start, m_seconds.begin() + end, row); }

    std::vector<int> m_seconds = std::vector<int>(daySeconds, 0);
    std::map<int, uint> m_labels;
    int m_last = 0;
};

void addAt(SchedulePointsListModel &model, int start, int duration, uint label)
{
    model.add(start / 3600, start / 60 % 60, start % 60, duration, actionsMap(label));
}

} // namespace

class TimelineTest : public TestBase
{
    Q_OBJECT

private slots:
    void matchesAPaintedDay_data()
    {
        QTest::addColumn<uint>("seed");
        QTest::addColumn<int>("step");

        QTest::newRow("hours") << 1U << 3600; // many common bounds
        QTest::newRow("quarters") << 2U << 900;
        QTest::newRow("seconds") << 3U << 1;
    }

    void matchesAPaintedDay()
    {
        QFETCH(uint, seed);
        QFETCH(int, step);
        QRandomGenerator random(seed);
        SchedulePointsListModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        model.reset(day({"00:00:00"}));
        auto mirror = std::make_unique<MirrorList>(model);
        PaintedDay painted(1);
        const auto handler = qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
        QString failure;
        for (int round = 0; round < 400 && failure.isEmpty(); ++round) {
            const int rowCount = model.rowCount();
            switch (random.bounded(5)) {
            case 0: {
                const int row = random.bounded(rowCount);
                model.remove(row);
                painted.remove(row);
                break;
            }
            case 1: {
                const int from = random.bounded(rowCount);
                const int to = random.bounded(rowCount);
                model.swap(from, to);
                painted.swap(from, to);
                mirror = std::make_unique<MirrorList>(model); // which knows no moves
                break;
            }
            default: {
                const int start = random.bounded(daySeconds / step) * step;
                const int duration = (1 + random.bounded(qMin(6 * 3600, 80000) / step)) * step;
                const uint label = 10 + static_cast<uint>(round);
                addAt(model, start, duration, label);
                painted.add(start, duration, label);
                break;
            }
            }
            if (rows(model) != painted.rows())
                failure = QStringLiteral("Round %1:\n%2\ninstead of\n%3")
                              .arg(QString::number(round), rows(model).join('\n'), painted.rows().join('\n'));
            else
                failure = mirror->difference();
        }
        qInstallMessageHandler(handler);
        QVERIFY2(failure.isEmpty(), qPrintable(failure));
    }

    // Whatever the numbers, rows stand by time, each lasts until the next, and the last until the end of the day.
    void keepsItsShapeUnderAnyNumbers()
    {
        const std::array<int, 13> durations{INT_MIN, -86401, -86400, -3600, -1,    0,      1,
                                            3600,    86399,  86400,  86401, 90000, INT_MAX};
        QRandomGenerator random(7);
        SchedulePointsListModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        model.reset({});
        MirrorList mirror(model);
        for (int round = 0; round < 400; ++round) {
            const int duration = durations.at(random.bounded(static_cast<quint32>(durations.size())));
            const int row = random.bounded(model.rowCount());
            const int start = random.bounded(3) == 0 ? random.bounded(2) * daySeconds : random.bounded(daySeconds + 1);
            switch (random.bounded(4)) {
            case 0: model.remove(row); break;
            case 1: model.change(row, QVariantMap{{"hour", start / 3600}, {"duration", duration}}); break;
            default: addAt(model, start, duration, 5); break;
            }
            QVERIFY(model.rowCount() > 0);
            for (int i = 0; i < model.rowCount(); ++i) {
                const QTime time = timeOf(model, i);
                const bool last = i + 1 == model.rowCount();
                const QTime next = last ? QTime(23, 59, 59) : timeOf(model, i + 1);
                QVERIFY(time.isValid());
                QVERIFY(time <= next);
                QCOMPARE(value(model, i, Role::Duration).toInt(), time.secsTo(next));
            }
            QCOMPARE(mirror.difference(), QString());
            if (model.rowCount() > 40)
                model.reset({});
        }
    }
};

ONDIRA_TEST(TimelineTest)
#include "TimelineTest.moc"
