// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractItemModel>
#include <QObject>
#include <QSet>
#include <QVariantMap>
#include <vector>

// A copy of a list model as a view would keep it: follows its signals alone, and of a changed row reads only the roles
// that were announced. Whatever a model changes without saying so shows as a difference.
class MirrorList : public QObject
{
public:
    explicit MirrorList(QAbstractItemModel &model)
        : m_model(model)
    {
        using Model = QAbstractItemModel;
        connect(&model, &Model::rowsInserted, this, [this](const QModelIndex &, int first, int last) {
            for (int row = first; row <= last; ++row)
                m_rows.insert(m_rows.begin() + row, read(row));
        });
        connect(&model, &Model::rowsRemoved, this, [this](const QModelIndex &, int first, int last) {
            m_rows.erase(m_rows.begin() + first, m_rows.begin() + last + 1);
        });
        connect(&model, &Model::modelReset, this, [this] { readAll(); });
        connect(&model, &Model::dataChanged, this, &MirrorList::onDataChanged);
        readAll();
    }

    // Empty when the copy is what the model shows.
    QString difference() const
    {
        if (static_cast<int>(m_rows.size()) != m_model.rowCount())
            return QStringLiteral("%1 rows instead of %2").arg(m_rows.size()).arg(m_model.rowCount());
        for (int row = 0; row < m_model.rowCount(); ++row) {
            const auto shown = read(row);
            for (auto value = shown.cbegin(); value != shown.cend(); ++value) {
                if (m_rows[static_cast<std::size_t>(row)].value(value.key()) != value.value())
                    return QStringLiteral("row %1 changed its %2 silently").arg(row).arg(value.key());
            }
        }
        return {};
    }

    // What a list of uids becomes by a fresh one: who persists keeps its place, who is new comes last.
    static QStringList merged(const QStringList &before, const QStringList &fresh)
    {
        QStringList after;
        for (const auto &uid : before) {
            if (fresh.contains(uid))
                after << uid;
        }
        for (const auto &uid : fresh) {
            if (!before.contains(uid))
                after << uid;
        }
        return after;
    }

private:
    QVariantMap read(int row) const
    {
        QVariantMap record;
        const auto names = m_model.roleNames();
        for (auto name = names.cbegin(); name != names.cend(); ++name)
            record.insert(QString::fromUtf8(name.value()), m_model.data(m_model.index(row, 0), name.key()));
        return record;
    }

    void readAll()
    {
        m_rows.clear();
        for (int row = 0; row < m_model.rowCount(); ++row)
            m_rows.push_back(read(row));
    }

    void onDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight, const QVector<int> &roles)
    {
        if (!topLeft.isValid() || !bottomRight.isValid())
            return;
        const auto names = m_model.roleNames();
        for (int row = topLeft.row(); row <= bottomRight.row(); ++row) {
            for (const int role : roles) {
                m_rows.at(static_cast<std::size_t>(row))[QString::fromUtf8(names.value(role))] =
                    m_model.data(m_model.index(row, 0), role);
            }
        }
    }

    QAbstractItemModel &m_model;
    std::vector<QVariantMap> m_rows;
};
