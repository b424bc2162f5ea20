// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/SystemLogProvider.h"

#include "data/SharedModels.h"

SystemLogProvider::SystemLogProvider(QObject *parent)
    : QAbstractListModel(parent)
    , m_communicator(SharedModels::instance().communicator)
{}

SystemLogProvider::SystemLogProvider(AbstractBackendCommunicator &communicator, QObject *parent)
    : QAbstractListModel(parent)
    , m_communicator(&communicator)
{}

int SystemLogProvider::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
}

QVariant SystemLogProvider::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.model() != this || index.row() >= rowCount())
        return {};
    const auto &entry = m_entries[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Time: return entry.time;
    case CauseRole: return static_cast<int>(entry.cause);
    case Username: return entry.username;
    case Action: return entry.action;
    }
    return {};
}

QHash<int, QByteArray> SystemLogProvider::roleNames() const
{
    static const QHash<int, QByteArray> names{
        {Time, "time"}, {CauseRole, "cause"}, {Username, "username"}, {Action, "action"}};
    return names;
}

Qt::ItemFlags SystemLogProvider::flags(const QModelIndex &index) const
{
    return index.isValid() ? Qt::ItemIsSelectable | Qt::ItemIsEnabled : Qt::NoItemFlags;
}

// An invalid time compares equal to the start of the epoch.
void SystemLogProvider::setFrom(const QDateTime &from)
{
    if (from.isValid() == m_from.isValid() && from == m_from)
        return;
    m_from = from;
    emit fromChanged();
}

void SystemLogProvider::setTo(const QDateTime &to)
{
    if (to.isValid() == m_to.isValid() && to == m_to)
        return;
    m_to = to;
    emit toChanged();
}

void SystemLogProvider::update()
{
    if (!m_communicator)
        return;
    const QPointer<SystemLogProvider> self(this);
    const auto turn = ++m_turn;
    m_communicator->getLog(m_from, m_to, [self, turn](const std::vector<Model::LogEntry> &entries) {
        if (!self || turn < self->m_answered) // the answer to an older call may come last
            return;
        self->m_answered = turn;
        self->updateLog(entries);
    });
}

void SystemLogProvider::updateLog(const std::vector<Model::LogEntry> &entries)
{
    beginResetModel();
    m_entries = entries;
    endResetModel();
}
