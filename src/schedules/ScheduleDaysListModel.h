// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/Rows.h"
#include "data/UidKeyAbstractListModel.h"
#include "model/Schedule.h"

#include <QJSValue>
#include <QList>
#include <QSet>
#include <QStringList>
#include <QVariant>
#include <vector>

class AbstractBackendCommunicator;

// The schedules of the site. All changes of schedules go through it. QML knows it as "schedulesListModel".
class ScheduleDaysListModel : public UidKeyAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(int count READ rowCount NOTIFY countChanged)

public:
    enum Role { Uid = Qt::UserRole + 1, Name, Points, Days, Zones };

    explicit ScheduleDaysListModel(AbstractBackendCommunicator &communicator, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    // One field of a day is changed on the server; the row follows with the next list.
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    QHash<int, QByteArray> roleNames() const override;

    // The new day switches off at midnight and holds on no day of the week. The callback gets the array of new uids.
    Q_INVOKABLE void addDay(const QJSValue &callback = QJSValue());
    // points: the records, or a list of their maps; days: 0 Monday to 6 Sunday.
    Q_INVOKABLE void changeDay(const QString &uid, const QString &name, const QVariant &points, const QList<int> &days,
                               const QStringList &zones);
    Q_INVOKABLE void removeDay(const QString &uid);

    // Names of the other schedules that drive the zone on at least one of these days.
    Q_INVOKABLE QStringList usedBy(const QString &zoneUid, const QString &dayUid, const QList<int> &days) const;
    // Uids of the schedules that drive at least one of these zones.
    Q_INVOKABLE QStringList commonScheduleForZones(const QStringList &zones) const;
    // The zones go to that schedule alone, however many they had before; with an unknown uid to none.
    Q_INVOKABLE void quickSetSchedule(const QStringList &zones, const QString &scheduleUid);

    Q_INVOKABLE void copyToClipboard(const QString &uid) const;
    Q_INVOKABLE void addFromClipboard(const QJSValue &callback = QJSValue());

public slots:
    void onSchedulesUpdated(const std::vector<Model::ScheduleDay> &schedules);

signals:
    void countChanged();

private:
    const Model::ScheduleDay *dayOf(const QUuid &uid) const;

    AbstractBackendCommunicator &m_communicator;
    Rows<Model::ScheduleDay> m_days;
};
