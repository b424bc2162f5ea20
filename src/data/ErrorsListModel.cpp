// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ErrorsListModel.h"

#include <QSet>
#include <QStringList>
#include <algorithm>

ErrorsListModel::ErrorsListModel(QObject *parent, int capacity)
    : QAbstractListModel(parent)
    , m_capacity(qMax(1, capacity))
{}

int ErrorsListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_items.size());
}

QVariant ErrorsListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.model() != this || index.row() >= rowCount())
        return {};
    const auto &item = m_items[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Code: return item.code;
    case Title: return item.title;
    case Detail: return {}; // read through lastError
    case Unread: return true; // a row is there only until it is read
    }
    return {};
}

QHash<int, QByteArray> ErrorsListModel::roleNames() const
{
    static const QHash<int, QByteArray> names{{Code, "code"}, {Title, "title"}, {Detail, "detail"}, {Unread, "unread"}};
    return names;
}

QString ErrorsListModel::getSummary() const
{
    QSet<QString> seen;
    QStringList titles;
    for (const auto &item : m_items) {
        if (seen.contains(item.title))
            continue;
        seen.insert(item.title);
        titles.append(item.title);
    }
    return titles.join('\n');
}

QVariantList ErrorsListModel::getUnreadErrors() const
{
    QVariantList errors;
    errors.reserve(rowCount());
    for (const auto &item : m_items) {
        errors.append(QVariantMap{{QStringLiteral("error"), item.title},
                                  {QStringLiteral("source"), item.detail},
                                  {QStringLiteral("unread"), true}});
    }
    return errors;
}

void ErrorsListModel::readAll()
{
    beginResetModel();
    m_items.clear();
    endResetModel();
    emit haveUnreadChanged();
}

void ErrorsListModel::logError(const QString &code, const QString &title, const QString &detail)
{
    append({{code, title, detail}});
}

void ErrorsListModel::logErrors(const std::vector<Model::Result::Error> &errors)
{
    std::vector<Item> items;
    items.reserve(errors.size());
    for (const auto &error : errors)
        items.push_back({error.code, error.title, error.detail});
    append(items);
}

void ErrorsListModel::append(const std::vector<Item> &items)
{
    if (items.empty())
        return;
    const int count = static_cast<int>(std::min(items.size(), static_cast<std::size_t>(m_capacity)));
    const int surplus = rowCount() + count - m_capacity;
    if (surplus > 0) {
        beginRemoveRows(QModelIndex(), 0, surplus - 1);
        m_items.erase(m_items.begin(), m_items.begin() + surplus);
        endRemoveRows();
    }
    beginInsertRows(QModelIndex(), rowCount(), rowCount() + count - 1);
    m_items.insert(m_items.end(), items.end() - count, items.end());
    endInsertRows();
    afterUpdate();
}

void ErrorsListModel::afterUpdate()
{
    const auto before = m_lastError;
    const auto &last = m_items.back();
    m_lastError = QVariantMap{{QStringLiteral("code"), last.code},
                              {QStringLiteral("title"), last.title},
                              {QStringLiteral("detail"), last.detail}};
    const bool isNew = m_lastError != before;
    emit lastErrorChanged();
    emit haveUnreadChanged();
    emit unreadErrorsChanged();
    if (isNew)
        emit newError();
}
