// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractItemModel>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QVector>

// Notes what a model announces, one line each: "removing 0-1", "removed 0-1", "inserting 2-2", "inserted 2-2",
// "resetting", "reset", "changed 0-1: 265 266" with the roles in their order, "all" for all roles of the model, and
// "nothing" for a range of invalid indexes.
class SignalLog : public QObject
{
public:
    explicit SignalLog(QAbstractItemModel &model)
        : m_model(model)
    {
        using Model = QAbstractItemModel;
        const auto range = [this](const char *what) {
            return [this, what](const QModelIndex &, int first, int last) {
                lines << QStringLiteral("%1 %2-%3").arg(QLatin1String(what)).arg(first).arg(last);
            };
        };
        connect(&model, &Model::rowsAboutToBeRemoved, this, range("removing"));
        connect(&model, &Model::rowsRemoved, this, range("removed"));
        connect(&model, &Model::rowsAboutToBeInserted, this, range("inserting"));
        connect(&model, &Model::rowsInserted, this, range("inserted"));
        connect(&model, &Model::modelAboutToBeReset, this, [this] { lines << QStringLiteral("resetting"); });
        connect(&model, &Model::modelReset, this, [this] { lines << QStringLiteral("reset"); });
        connect(&model, &Model::dataChanged, this, &SignalLog::onDataChanged);
    }

    QStringList take()
    {
        QStringList taken;
        taken.swap(lines);
        return taken;
    }

    QStringList lines;

private:
    void onDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight, const QVector<int> &roles)
    {
        const auto place = topLeft.isValid() && bottomRight.isValid()
            ? QStringLiteral("%1-%2").arg(topLeft.row()).arg(bottomRight.row())
            : QStringLiteral("nothing");
        lines << QStringLiteral("changed ") + place + QStringLiteral(": ") + names(roles);
    }

    QString names(const QVector<int> &roles) const
    {
        const auto all = m_model.roleNames().keys();
        if (roles.size() == all.size() && QSet<int>(roles.begin(), roles.end()) == QSet<int>(all.begin(), all.end())
            && roles.size() > 1)
            return QStringLiteral("all");
        QStringList numbers;
        for (const int role : roles)
            numbers << QString::number(role);
        return numbers.join(' ');
    }

    QAbstractItemModel &m_model;
};
