// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Site.h"

#include <QAbstractListModel>
#include <QList>

// The weeks of a site record, an older view of its schedules.
class ScheduleWeeksListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role { Days = Qt::UserRole + 1, Name, Uid };

    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    Q_INVOKABLE int indexForUid(const QString &uid) const; // -1 for an unknown one
    Q_INVOKABLE QString uidForIndex(int index) const; // empty for a row that is not there

public slots:
    void update(const Model::Shop &shop); // rows come and go at the end; those that stay are announced as changed

private:
    QVariant daysOf(const Model::ScheduleWeek &week) const;

    Model::Shop m_shop;
    QList<Model::ScheduleWeek> m_weeks; // by name
};
