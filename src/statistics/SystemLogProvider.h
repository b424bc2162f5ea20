// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/AbstractBackendCommunicator.h"
#include "model/Statistics.h"

#include <QAbstractListModel>
#include <QDateTime>
#include <QPointer>
#include <vector>

// The server's journal between two times: who did what and when. QML creates it.
class SystemLogProvider : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(QDateTime from READ getFrom WRITE setFrom NOTIFY fromChanged)
    Q_PROPERTY(QDateTime to READ getTo WRITE setTo NOTIFY toChanged)
    Q_PROPERTY(QAbstractItemModel *model READ getModel CONSTANT)

public:
    enum Cause { User = 0, System = 1, Schedule = 2 };
    Q_ENUM(Cause)

    enum Role { Time = Qt::UserRole + 1, CauseRole, Username, Action };

    explicit SystemLogProvider(QObject *parent = nullptr);
    explicit SystemLogProvider(AbstractBackendCommunicator &communicator, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    QDateTime getFrom() const { return m_from; }
    void setFrom(const QDateTime &from);
    QDateTime getTo() const { return m_to; }
    void setTo(const QDateTime &to);
    QAbstractItemModel *getModel() { return this; }

    Q_INVOKABLE void update(); // asks for the journal; rows follow with the answer to the last call

public slots:
    void updateLog(const std::vector<Model::LogEntry> &entries);

signals:
    void fromChanged();
    void toChanged();

private:
    QPointer<AbstractBackendCommunicator> m_communicator;
    QDateTime m_from;
    QDateTime m_to;
    std::vector<Model::LogEntry> m_entries;
    quint64 m_turn = 0; // of the last update()
    quint64 m_answered = 0; // of the newest answer taken
};
