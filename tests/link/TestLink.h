// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "FakeServer.h"
#include "link/JsonBackendCommunicator.h"
#include "support/TestBase.h"

// Short waits where something is to happen, long ones where nothing is.
inline LinkTimings testTimings()
{
    LinkTimings timings;
    timings.pollInterval = 2;
    timings.pingInterval = 600000;
    timings.quickReply = 20000;
    timings.upload = 30000;
    timings.reply = 40000;
    timings.longestCheck = 200;
    timings.checkSlack = 5;
    timings.shortestCheck = 10;
    timings.publicationHealing = 10000;
    timings.publicationRetry = 20000;
    timings.stall = 600000; // a busy machine is no stall
    timings.closingPause = 1;
    return timings;
}

// The communicator with its protected face open, and what it did noted.
class TestCommunicator : public JsonBackendCommunicator
{
    Q_OBJECT

public:
    explicit TestCommunicator(const LinkTimings &timings = testTimings())
        : JsonBackendCommunicator(nullptr, timings)
    {
        connect(this, &AbstractBackendCommunicator::userCredentialsChanged, this, [this] { ++logins; });
        connect(this, &AbstractBackendCommunicator::errorsReceived, this,
                [this](const std::vector<Model::Result::Error> &list) {
                    for (const auto &error : list)
                        errorCodes << error.code;
                    errors.push_back(list);
                });
    }

    int logins = 0; // calls of init that got as far as the login
    QStringList errorCodes;
    std::vector<std::vector<Model::Result::Error>> errors;
    QList<QByteArray> seenReplies; // the ids of all replies that could be read, waited for or not

    using Reply = ParsedMessage;
    using ReplyType = MessageType;
    using JsonBackendCommunicator::abortAllRequests;
    using JsonBackendCommunicator::addReplyHandle;
    using JsonBackendCommunicator::createSubscriberSocket;
    using JsonBackendCommunicator::dispatchJsonReply;
    using JsonBackendCommunicator::dispatchSub;
    using JsonBackendCommunicator::getServerVersion;
    using JsonBackendCommunicator::isCompatible;
    using JsonBackendCommunicator::onReplyMessageReceived;
    using JsonBackendCommunicator::onSubMessageReceived;
    using JsonBackendCommunicator::parseMessage;
    using JsonBackendCommunicator::parseResultResponse;
    using JsonBackendCommunicator::publisherSocketAddress;
    using JsonBackendCommunicator::requestContext;
    using JsonBackendCommunicator::responseSocketAddress;
    using JsonBackendCommunicator::sendRequest;
    using JsonBackendCommunicator::setCompressRequests;
    using JsonBackendCommunicator::setLargestMessage;
    using JsonBackendCommunicator::subscribe;
    using JsonBackendCommunicator::subscriptionTopics;
    using JsonBackendCommunicator::takeReplyHandle;

    // A plain request, as the operations send theirs.
    std::shared_ptr<BackendReplyHandler> request(const QByteArray &resource, int timeoutMs = 20000)
    {
        return sendRequest(ZmqMessageHeader({ZmqMessageHeader::Flags::Json}, resource), "{}", timeoutMs);
    }

    bool initFor(const FakeServer &server)
    {
        return init("127.0.0.1", "engineer", "secret", server.controlPort(), server.updatePort());
    }

protected:
    void handleCommonErrors(const ParsedMessage &message) override
    {
        seenReplies << message.id;
        JsonBackendCommunicator::handleCommonErrors(message);
    }
};

// Logs in and waits until the publications can come as well.
inline bool logIn(TestCommunicator &link, const FakeServer &server)
{
    link.initFor(server);
    return QTest::qWaitFor([&] {
        return link.getStatus() == AbstractBackendCommunicator::Connected && server.subscriptions.size() >= 18
            && server.count("ping") >= 1;
    });
}
