// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDeadlineTimer>
#include <functional>
#include <vector>

// One pending request. The sender attaches callbacks, the communicator keeps it until a reply comes. A handler that
// goes without having received anything runs its discard callbacks.
class BackendReplyHandler
{
public:
    enum class DiscardReason { Expired = 0, Dropped = 1 };

    using ReplyCallback = std::function<void(const QByteArray &body)>;
    using DiscardCallback = std::function<void(DiscardReason reason)>;

    BackendReplyHandler(); // of a refused request: counts as received, never runs a callback
    BackendReplyHandler(const QByteArray &id, int timeoutMs);
    ~BackendReplyHandler();

    BackendReplyHandler(const BackendReplyHandler &) = delete;
    BackendReplyHandler &operator=(const BackendReplyHandler &) = delete;

    // Any number may be attached; all run in the order of attachment.
    void onReply(const ReplyCallback &callback);
    void onBinaryReply(const ReplyCallback &callback);
    void onDiscard(const DiscardCallback &callback);

    void setReply(const QByteArray &body);
    void setBinaryReply(const QByteArray &body);

    const QByteArray &id() const { return m_id; }
    bool hasExpired() const { return m_deadline.hasExpired(); }
    qint64 remainingTime() const { return m_deadline.remainingTime(); } // ms, -1 for ever
    bool receivedReply() const { return m_received; }

private:
    QByteArray m_id;
    QDeadlineTimer m_deadline;
    std::vector<ReplyCallback> m_replyCallbacks;
    std::vector<ReplyCallback> m_binaryReplyCallbacks;
    std::vector<DiscardCallback> m_discardCallbacks;
    bool m_received;
};
