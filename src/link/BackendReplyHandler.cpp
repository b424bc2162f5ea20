// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/BackendReplyHandler.h"

namespace {

// By value: a callback may attach another one.
void runAll(std::vector<BackendReplyHandler::ReplyCallback> callbacks, const QByteArray &body)
{
    for (const auto &callback : callbacks)
        callback(body);
}

} // namespace

BackendReplyHandler::BackendReplyHandler()
    : m_deadline(QDeadlineTimer::Forever)
    , m_received(true)
{}

BackendReplyHandler::BackendReplyHandler(const QByteArray &id, int timeoutMs)
    : m_id(id)
    , m_deadline(timeoutMs)
    , m_received(false)
{}

BackendReplyHandler::~BackendReplyHandler()
{
    if (m_received)
        return;
    for (const auto &callback : m_discardCallbacks)
        callback(hasExpired() ? DiscardReason::Expired : DiscardReason::Dropped);
}

void BackendReplyHandler::onReply(const ReplyCallback &callback)
{
    m_replyCallbacks.push_back(callback);
}

void BackendReplyHandler::onBinaryReply(const ReplyCallback &callback)
{
    m_binaryReplyCallbacks.push_back(callback);
}

void BackendReplyHandler::onDiscard(const DiscardCallback &callback)
{
    m_discardCallbacks.push_back(callback);
}

void BackendReplyHandler::setReply(const QByteArray &body)
{
    m_received = true;
    runAll(m_replyCallbacks, body);
}

void BackendReplyHandler::setBinaryReply(const QByteArray &body)
{
    m_received = true;
    runAll(m_binaryReplyCallbacks, body);
}
