// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Result.h"

#include <QAbstractListModel>
#include <QVariant>
#include <deque>
#include <vector>

// The errors that the server reported and nobody has read. QML knows it as the singleton "Errors"; the engine owns it,
// and the manager connects the link to it. Keeps the newest 10,000.
class ErrorsListModel : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(QVariant lastError READ getLastError NOTIFY lastErrorChanged)
    Q_PROPERTY(QString summary READ getSummary NOTIFY unreadErrorsChanged)
    Q_PROPERTY(QVariantList unreadErrors READ getUnreadErrors NOTIFY unreadErrorsChanged)
    Q_PROPERTY(bool haveUnread READ getHaveUnread NOTIFY haveUnreadChanged)

public:
    enum Role { Code = Qt::UserRole + 1, Title, Detail, Unread };

    struct Item
    {
        QString code;
        QString title;
        QString detail;
    };

    static constexpr int mostRows = 10000;

    explicit ErrorsListModel(QObject *parent = nullptr, int capacity = mostRows);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    QVariant getLastError() const { return m_lastError; } // "code", "title", "detail"
    QString getSummary() const; // each title once, a line each
    QVariantList getUnreadErrors() const; // maps of "error", "source", "unread"
    bool getHaveUnread() const { return !m_items.empty(); }

    Q_INVOKABLE void readAll();

public slots:
    void logError(const QString &code, const QString &title, const QString &detail);
    void logErrors(const std::vector<Model::Result::Error> &errors);

signals:
    void newError();
    void lastErrorChanged();
    void haveUnreadChanged();
    void unreadErrorsChanged();

private:
    void append(const std::vector<Item> &items);
    void afterUpdate();

    const int m_capacity;
    std::deque<Item> m_items;
    QVariant m_lastError;
};
