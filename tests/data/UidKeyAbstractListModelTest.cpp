// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/UidKeyAbstractListModel.h"
#include "Records.h"
#include "SignalLog.h"
#include "support/TestBase.h"

#include <QAbstractItemModelTester>
#include <QSortFilterProxyModel>
#include <random>

namespace {

struct Record
{
    QUuid uid;
    QString name;
};

using List = std::vector<Record>;

enum Role { Uid = Qt::UserRole + 1, Name };

template <typename Container>
class RecordsModel : public UidKeyAbstractListModel
{
public:
    using Merge = DiffTransform<Container, Record>;

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(rows.size());
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (!holds(index))
            return {};
        const auto &record = *std::next(rows.begin(), index.row());
        switch (role) {
        case Uid: return record.uid.toString();
        case Name: return record.name;
        }
        return {};
    }

    QHash<int, QByteArray> roleNames() const override { return {{Uid, "uid"}, {Name, "name"}}; }

    void take(const List &list)
    {
        Merge(
            rows, list, [](const auto &record) { return record.uid; }, *this)
            .transform();
    }
    void takeAway(List list)
    {
        Merge(
            rows, std::move(list), [](const auto &record) { return record.uid; }, *this)
            .transform();
    }

    Container rows;
};

using RowsModel = RecordsModel<Rows<Record>>;
using VectorModel = RecordsModel<List>;

class NamelessModel : public RowsModel
{
public:
    QHash<int, QByteArray> roleNames() const override { return {{Name, "name"}}; }
};

// Records by letters: the letter is the uid, what follows is the name.
List list(const QStringList &records)
{
    List result;
    for (const auto &record : records)
        result.push_back({Records::uid(record.at(0).unicode()), record});
    return result;
}

QString names(const QAbstractItemModel &model)
{
    return Records::column(model, Name).join(' ');
}

// Does to a list of its own what the signals say, reading the model at each, as a view does.
class Shadow : public QObject
{
public:
    explicit Shadow(const QAbstractItemModel &model)
        : m_model(model)
        , names(Records::column(model, Name))
    {
        using Source = QAbstractItemModel;
        connect(&model, &Source::rowsAboutToBeRemoved, this, [this] { check(); });
        connect(&model, &Source::rowsRemoved, this, [this](const QModelIndex &, int first, int last) {
            for (int row = last; row >= first; --row)
                names.removeAt(row);
            check();
        });
        connect(&model, &Source::dataChanged, this, [this](const QModelIndex &first, const QModelIndex &last) {
            for (int row = first.row(); first.isValid() && row <= last.row(); ++row)
                names[row] = Records::value(m_model, row, Name).toString();
            check();
        });
        connect(&model, &Source::rowsAboutToBeInserted, this, [this] { check(); });
        connect(&model, &Source::rowsInserted, this, [this](const QModelIndex &, int first, int last) {
            for (int row = first; row <= last; ++row)
                names.insert(row, Records::value(m_model, row, Name).toString());
            check();
        });
    }

    int disagreements = 0;

private:
    void check()
    {
        if (Records::column(m_model, Name) != names)
            ++disagreements;
    }

    const QAbstractItemModel &m_model;

public:
    QStringList names;
};

} // namespace

class UidKeyAbstractListModelTest : public TestBase
{
    Q_OBJECT

private slots:
    void removesBlocksInAscendingOrder()
    {
        RowsModel model;
        model.take(list({"A", "B", "C", "D", "E"}));
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        SignalLog log(model);

        model.take(list({"B", "D", "F"}));

        QCOMPARE(log.take(),
                 QStringList({"removing 0-0", "removed 0-0", "removing 1-1", "removed 1-1", "removing 2-2",
                              "removed 2-2", "changed 0-1: all", "inserting 2-2", "inserted 2-2"}));
        QCOMPARE(names(model), QString("B D F"));
    }

    void removesABlockAtOnce()
    {
        RowsModel model;
        model.take(list({"A", "B", "C", "D", "E", "F"}));
        SignalLog log(model);

        model.take(list({"A", "E"}));

        QCOMPARE(log.take(),
                 QStringList({"removing 1-3", "removed 1-3", "removing 2-2", "removed 2-2", "changed 0-1: all"}));
        QCOMPARE(names(model), QString("A E"));
    }

    void keepsTheOrderOfRows()
    {
        RowsModel model;
        model.take(list({"A", "B"}));
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        SignalLog log(model);

        model.take(list({"Bnew", "Anew"}));

        QCOMPARE(log.take(), QStringList({"changed 0-1: all"}));
        QCOMPARE(names(model), QString("Anew Bnew"));
    }

    void announcesTheEmptyRangeBeforeTheFirstRows()
    {
        RowsModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        SignalLog log(model);
        // The one oddity: data is announced as changed in any case, of an empty model with invalid indexes.
        expectMessage(QtWarningMsg, "FAIL! topLeft.isValid");

        model.take(list({"A", "B"}));

        QCOMPARE(log.take(), QStringList({"changed nothing: all", "inserting 0-1", "inserted 0-1"}));
    }

    void removesAllRowsInOneRun()
    {
        RowsModel model;
        model.take(list({"A", "B"}));
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        SignalLog log(model);
        expectMessage(QtWarningMsg, "FAIL! topLeft.isValid");

        model.take({});

        QCOMPARE(log.take(), QStringList({"removing 0-1", "removed 0-1", "changed nothing: all"}));
        QCOMPARE(model.rowCount(), 0);
    }

    void announcesOfNothingToNothing()
    {
        RowsModel model;
        SignalLog log(model);

        model.take({});

        QCOMPARE(log.take(), QStringList({"changed nothing: all"}));
    }

    void announcesAnEqualList()
    {
        RowsModel model;
        model.take(list({"A", "B"}));
        SignalLog log(model);

        model.take(list({"A", "B"}));

        QCOMPARE(log.take(), QStringList({"changed 0-1: all"}));
    }

    void duplicatesOfANewUidAreAllInserted()
    {
        RowsModel model;
        SignalLog log(model);

        model.take(list({"A1", "A2"}));

        QCOMPARE(log.take(), QStringList({"changed nothing: all", "inserting 0-1", "inserted 0-1"}));
        QCOMPARE(names(model), QString("A1 A2"));
    }

    void duplicateRowsAreUpdatedFromTheFirstRecord()
    {
        RowsModel model;
        model.take(list({"A1", "A2", "B1"}));
        SignalLog log(model);

        model.take(list({"A3", "A4", "B2"}));

        QCOMPARE(log.take(), QStringList({"changed 0-2: all"}));
        QCOMPARE(names(model), QString("A3 A3 B2"));
    }

    void duplicateRowsAreUpdatedFromAListThatIsTakenAway()
    {
        RowsModel model;
        model.takeAway(list({"A1", "A2", "B1"}));

        model.takeAway(list({"A3", "A4", "C1", "C2"}));

        QCOMPARE(names(model), QString("A3 A3 C1 C2"));
    }

    void aListThatIsNotTakenAwayStaysWhole()
    {
        RowsModel model;
        const auto fresh = list({"A", "B", "C"});
        model.take(list({"A", "B"}));

        model.take(fresh);

        QCOMPARE(fresh[0].name, QString("A"));
        QCOMPARE(fresh[2].name, QString("C"));
    }

    void aUidThatReturnsIsANewRow()
    {
        RowsModel model;
        model.take(list({"A", "B"}));
        model.take(list({"B"}));
        SignalLog log(model);

        model.take(list({"A", "B"}));

        QCOMPARE(log.take(), QStringList({"changed 0-0: all", "inserting 1-1", "inserted 1-1"}));
        QCOMPARE(names(model), QString("B A"));
    }

    void nullUidsAreMergedLikeOthers()
    {
        RowsModel model;
        model.take({{QUuid(), "none"}, {Records::uid(1), "one"}});

        model.take({{QUuid(), "still none"}});

        QCOMPARE(names(model), QString("still none"));
    }

    void hooksMayBeReplaced()
    {
        RowsModel model;
        model.take(list({"A", "B"}));
        QStringList calls;
        const auto fresh = list({"B", "C"});
        RowsModel::Merge merge(
            model.rows, fresh, [](const auto &record) { return record.uid; }, model);
        const auto note = [&](const char *what) {
            return [&calls, what](const UidKeyAbstractListModel::Range &range) {
                calls << QString("%1 %2+%3").arg(what).arg(range.first).arg(range.count);
            };
        };
        merge.beginRemove = note("beginRemove");
        merge.endRemove = note("endRemove");
        merge.dataChanged = note("dataChanged");
        merge.beginInsert = note("beginInsert");
        merge.endInsert = note("endInsert");
        SignalLog log(model);

        merge.transform();

        QCOMPARE(
            calls,
            QStringList({"beginRemove 0+1", "endRemove 0+1", "dataChanged 0+1", "beginInsert 1+1", "endInsert 1+1"}));
        QCOMPARE(log.take(), QStringList());
        QCOMPARE(names(model), QString("B C"));
    }

    void aListThatASlotBringsMeanwhileStands_data()
    {
        QTest::addColumn<QString>("signal");

        QTest::newRow("when rows are removed") << "removed";
        QTest::newRow("when data is changed") << "changed";
        QTest::newRow("when rows are inserted") << "inserted";
    }

    void aListThatASlotBringsMeanwhileStands()
    {
        QFETCH(QString, signal);
        RowsModel model;
        model.take(list({"A", "B", "C", "D"}));
        bool once = true;
        const auto interfere = [&](const QString &name) {
            if (once && name == signal) {
                once = false;
                model.take(list({"D", "X", "C"}));
            }
        };
        connect(&model, &QAbstractItemModel::rowsRemoved, &model, [&] { interfere("removed"); });
        connect(&model, &QAbstractItemModel::dataChanged, &model, [&] { interfere("changed"); });
        connect(&model, &QAbstractItemModel::rowsInserted, &model, [&] { interfere("inserted"); });

        model.take(list({"B", "D", "E"}));

        QVERIFY(!once);
        auto rows = Records::column(model, Name);
        rows.sort();
        QCOMPARE(rows, QStringList({"C", "D", "X"}));
    }

    void rowsAndDataAgreeAtEverySignal()
    {
        std::mt19937 random(11);
        for (int round = 0; round < 300; ++round) {
            RowsModel model;
            VectorModel plain;
            for (int step = 0; step < 4; ++step) {
                Shadow shadow(model);
                SignalLog log(model);
                SignalLog plainLog(plain);
                List fresh;
                const uint count = random() % 12;
                for (uint i = 0; i < count; ++i)
                    fresh.push_back({Records::uid(random() % 14), QString::number(random() % 1000)});

                if (step % 2 == 0)
                    model.take(fresh);
                else
                    model.takeAway(fresh);
                plain.take(fresh);

                QCOMPARE(shadow.disagreements, 0);
                QCOMPARE(shadow.names, Records::column(model, Name));
                QCOMPARE(names(model), names(plain));
                QCOMPARE(log.take(), plainLog.take());
            }
        }
    }

    void mergesTenThousandRowsUnderASortedProxy()
    {
        RowsModel model;
        List first;
        List second;
        for (uint i = 0; i < 11000; ++i) {
            const Record record{Records::uid(i * 7919U), QString::number(i)};
            if (i < 10000)
                first.push_back(record);
            if (i >= 10000 || i % 10 != 0)
                second.push_back(record);
        }
        model.take(first);
        QSortFilterProxyModel proxy;
        proxy.setSourceModel(&model);
        proxy.setSortRole(Name);
        proxy.sort(0);
        QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
        QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);

        model.take(second);

        QCOMPARE(model.rowCount(), 10000);
        QCOMPARE(removed.count(), 1000);
        QCOMPARE(inserted.count(), 1);
        auto expected = Records::column(model, Name);
        std::sort(expected.begin(), expected.end());
        QCOMPARE(Records::column(proxy, Name), expected);
        QCOMPARE(names(model).left(12), QString("1 2 3 4 5 6 "));
        QCOMPARE(Records::value(model, 9999, Name).toString(), QString("10999"));
    }

    void getsARecordByItsUid()
    {
        RowsModel model;
        model.take(list({"A", "B"}));

        const QVariantMap expected{{"uid", Records::text('B')}, {"name", "B"}};
        QCOMPARE(model.getByUid(Records::text('B')), expected);
    }

    void getsNothingByAnotherText_data()
    {
        QTest::addColumn<QString>("uid");

        QTest::newRow("without braces") << Records::uid('A').toString(QUuid::WithoutBraces);
        QTest::newRow("unknown") << Records::text('Z');
        QTest::newRow("empty") << QString();
        QTest::newRow("no uid") << "A";
    }

    void getsNothingByAnotherText()
    {
        RowsModel model;
        model.take(list({"A", "B"}));
        QFETCH(QString, uid);

        QCOMPARE(model.getByUid(uid), QVariantMap());
    }

    void getsNothingFromAModelWithoutUids()
    {
        NamelessModel model;
        model.take(list({"A"}));

        QCOMPARE(model.getByUid(Records::text('A')), QVariantMap());
    }

    void getsTheFirstOfDuplicates()
    {
        RowsModel model;
        model.take(list({"A1", "A2"}));

        QCOMPARE(model.getByUid(Records::text('A')).value("name").toString(), QString("A1"));
    }

    void rowsAreSelectableAndEnabled()
    {
        RowsModel model;
        model.take(list({"A"}));

        QCOMPARE(model.flags(model.index(0)), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    }

    void unknownPlacesAndRolesReadAsInvalid()
    {
        RowsModel model;
        RowsModel other;
        model.take(list({"A"}));
        other.take(list({"A", "B"}));

        QVERIFY(!model.data(QModelIndex(), Name).isValid());
        QVERIFY(!model.data(other.index(1), Name).isValid());
        QVERIFY(!model.data(model.index(0), Qt::DisplayRole).isValid());
        QVERIFY(!model.data(model.index(0), 9999).isValid());
    }
};

ONDIRA_TEST(UidKeyAbstractListModelTest)
#include "UidKeyAbstractListModelTest.moc"
