// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Records.h"
#include "data/UidKeyAbstractListModel.h"
#include "support/FakeCommunicator.h"

#include <QAbstractItemModelTester>
#include <QObject>
#include <QRandomGenerator>
#include <QStringList>
#include <QtTest>
#include <algorithm>
#include <functional>
#include <vector>

// What a view would hold that knows a model by its row signals alone: the uids of the rows.
class ListMirror : public QObject
{
public:
    explicit ListMirror(QAbstractItemModel &model)
    {
        constexpr int uidRole = Qt::UserRole + 1;
        uids = Records::column(model, uidRole);
        connect(&model, &QAbstractItemModel::rowsInserted, this, [&](const QModelIndex &, int first, int last) {
            for (int row = first; row <= last; ++row)
                uids.insert(row, Records::value(model, row, uidRole).toString());
        });
        connect(&model, &QAbstractItemModel::rowsRemoved, this, [this](const QModelIndex &, int first, int last) {
            uids.erase(uids.begin() + first, uids.begin() + last + 1);
        });
        connect(&model, &QAbstractItemModel::modelReset, this, [this] { ++resets; });
    }

    QStringList uids;
    int resets = 0;
};

// One object of a plan, as far as lists are concerned.
struct Placed
{
    uint uid;
    uint part;
};

// Publishes random lists under random rights, and checks after each that the rows are those that stayed, in their
// order, then the new ones in the order of the list, and that the row signals told it all.
inline void followRandomPublications(UidKeyAbstractListModel &model, FakeCommunicator &link,
                                     const std::function<void(const std::vector<Placed> &list)> &publish)
{
    using namespace Records;
    constexpr int uidRole = Qt::UserRole + 1;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
    ListMirror mirror(model);
    QRandomGenerator random(11);
    QStringList expected;
    std::vector<Placed> list;
    QSet<QUuid> allowed{uid(100), uid(101), uid(102)};
    link.logIn(QStringLiteral("anna"), QStringLiteral("user"));
    link.publishUsers({limitedUser(QStringLiteral("anna"), allowed)});
    for (int round = 0; round < 300; ++round) {
        if (random.bounded(4) == 0) {
            allowed.clear();
            for (uint part = 100; part < 103; ++part) {
                if (random.bounded(3) > 0)
                    allowed.insert(uid(part));
            }
            link.publishUsers({limitedUser(QStringLiteral("anna"), allowed)});
        } else {
            list.clear();
            for (uint n = 1; n <= 12; ++n) {
                if (random.bounded(3) > 0)
                    list.push_back({n, 100 + random.bounded(3U)});
            }
            std::shuffle(list.begin(), list.end(), random);
            publish(list);
        }
        QStringList visible;
        for (const auto &one : list) {
            if (allowed.contains(uid(one.part)))
                visible << text(one.uid);
        }
        const auto gone = [&](const QString &text) { return !visible.contains(text); };
        expected.erase(std::remove_if(expected.begin(), expected.end(), gone), expected.end());
        for (const auto &text : qAsConst(visible)) {
            if (!expected.contains(text))
                expected << text;
        }
        QCOMPARE(column(model, uidRole), expected);
        QCOMPARE(mirror.uids, expected);
    }
    QCOMPARE(mirror.resets, 0);
}
