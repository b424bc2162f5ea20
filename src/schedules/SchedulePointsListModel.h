// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "schedules/SchedulePointTexts.h"

#include <QAbstractListModel>
#include <QTime>
#include <QVariant>
#include <vector>

// The points of one day as a timeline without gaps from 00:00:00 to 23:59:59. Rows are segments with a start and a
// duration; only the starts are kept by the server. Nothing is sent from here: the editor takes getPoints() to save.
// Rows that are not there are refused with a warning: a call from QML must not end the program.
class SchedulePointsListModel : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(std::vector<Model::ScheduleDayPoint> points READ getPoints WRITE reset NOTIFY pointsChanged)
    Q_PROPERTY(
        std::vector<Model::ActionBlueprint> blueprints READ getBlueprints WRITE setBlueprints NOTIFY blueprintsChanged)
    Q_PROPERTY(
        UidKeyAbstractListModel *devicesModel READ getDevicesModel WRITE setDevicesModel NOTIFY devicesModelChanged)

public:
    enum Role { Hour = Qt::UserRole + 1, Minute, Second, Time, Duration, Actions, ActionsDescription, Color };

    struct Item
    {
        QTime time;
        int duration = 0; // seconds
        QVariant actions; // the sequence as a list of maps
        QString actionsDescription;
        QColor color;
    };

    explicit SchedulePointsListModel(QObject *parent = nullptr); // with the models of the program
    SchedulePointsListModel(UidKeyAbstractListModel *devices, UidKeyAbstractListModel *buttons,
                            UidKeyAbstractListModel *indicators, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    Q_INVOKABLE std::vector<Model::ScheduleDayPoint> getPoints() const;
    void reset(const std::vector<Model::ScheduleDayPoint> &points); // a day always begins at midnight
    std::vector<Model::ActionBlueprint> getBlueprints() const;
    void setBlueprints(const std::vector<Model::ActionBlueprint> &blueprints);
    UidKeyAbstractListModel *getDevicesModel() const { return m_texts.devices; }
    void setDevicesModel(UidKeyAbstractListModel *model);

    // Lays a segment over the day: what it covers goes, what it cuts into goes on after it.
    Q_INVOKABLE void add(int h, int m, int s, int duration, const QVariant &actions);
    // The new row is seen at the next reset only.
    Q_INVOKABLE void split(int index);
    // obj: a map of "hour", "minute", "second", "duration", "actions"; what it lacks stays.
    Q_INVOKABLE void change(int index, const QVariant &obj);
    Q_INVOKABLE void remove(int index); // its time goes to the row before it
    Q_INVOKABLE void swap(int from, int to); // their actions, not their times
    Q_INVOKABLE void copyToClipboard(int index) const;

signals:
    void pointsChanged();
    void blueprintsChanged();
    void devicesModelChanged();

private:
    Item pointToItem(const Model::ScheduleDayPoint &point, int duration) const;
    void resetModelFromPoints(const std::vector<Model::ScheduleDayPoint> &points);
    void updateDurations();
    void moveTail(const QTime &start, const QTime &end);
    void eraseCovered(const QTime &start, const QTime &end);
    int firstRowFrom(const QTime &time) const;
    void insert(int row, const Item &item);
    bool hasRow(int index) const; // says so in the log if not

    SchedulePointTexts m_texts;
    std::vector<Item> m_items;
};
