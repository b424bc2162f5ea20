// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/BackendReplyHandler.h"
#include "support/TestBase.h"

#include <QThread>

using Reason = BackendReplyHandler::DiscardReason;

class BackendReplyHandlerTest : public TestBase
{
    Q_OBJECT

private slots:
    void newHandlerWaits();
    void replyRunsItsCallbacksInOrderOfAttachment();
    void binaryReplyRunsOnlyItsOwnCallbacks();
    void replyWithoutCallbacksCountsAsReceived();
    void handlerWithoutReplyIsDiscarded();
    void discardAfterTheDeadlineSaysSo();
    void repliedHandlerIsNotDiscarded();
    void defaultHandlerNeverRunsADiscard();
    void callbackMayAttachAnother();
    void deadlineRunsDown();
};

void BackendReplyHandlerTest::newHandlerWaits()
{
    const BackendReplyHandler handler("zones:7", 60000);

    QCOMPARE(handler.id(), QByteArray("zones:7"));
    QVERIFY(!handler.receivedReply());
    QVERIFY(!handler.hasExpired());
    QVERIFY(handler.remainingTime() > 0 && handler.remainingTime() <= 60000);
}

void BackendReplyHandlerTest::replyRunsItsCallbacksInOrderOfAttachment()
{
    BackendReplyHandler handler("a:1", 60000);
    QStringList calls;
    handler.onReply([&](const QByteArray &body) { calls << "first " + body; });
    handler.onReply([&](const QByteArray &body) { calls << "second " + body; });
    handler.onReply([&](const QByteArray &body) { calls << "third " + body; });

    handler.setReply("text");

    QCOMPARE(calls, (QStringList{"first text", "second text", "third text"}));
    QVERIFY(handler.receivedReply());
}

void BackendReplyHandlerTest::binaryReplyRunsOnlyItsOwnCallbacks()
{
    BackendReplyHandler handler("a:1", 60000);
    QStringList calls;
    handler.onReply([&](const QByteArray &) { calls << "json"; });
    handler.onBinaryReply([&](const QByteArray &body) { calls << "binary " + body; });

    handler.setBinaryReply("bytes");

    QCOMPARE(calls, QStringList{"binary bytes"});
    QVERIFY(handler.receivedReply());
}

void BackendReplyHandlerTest::replyWithoutCallbacksCountsAsReceived()
{
    int discards = 0;
    {
        BackendReplyHandler handler("a:1", 60000);
        handler.onDiscard([&](Reason) { ++discards; });

        handler.setReply("text");

        QVERIFY(handler.receivedReply());
    }
    QCOMPARE(discards, 0);
}

void BackendReplyHandlerTest::handlerWithoutReplyIsDiscarded()
{
    std::vector<Reason> reasons;
    {
        BackendReplyHandler handler("a:1", 60000);
        handler.onDiscard([&](Reason reason) { reasons.push_back(reason); });
        handler.onDiscard([&](Reason reason) { reasons.push_back(reason); });
        QVERIFY(reasons.empty());
    }
    QCOMPARE(reasons, (std::vector<Reason>{Reason::Dropped, Reason::Dropped}));
    QCOMPARE(static_cast<int>(Reason::Dropped), 1);
}

void BackendReplyHandlerTest::discardAfterTheDeadlineSaysSo()
{
    std::vector<Reason> reasons;
    {
        BackendReplyHandler handler("a:1", 0);
        handler.onDiscard([&](Reason reason) { reasons.push_back(reason); });
        QVERIFY(handler.hasExpired());
        QCOMPARE(handler.remainingTime(), qint64(0));
    }
    QCOMPARE(reasons, std::vector<Reason>{Reason::Expired});
    QCOMPARE(static_cast<int>(Reason::Expired), 0);
}

void BackendReplyHandlerTest::repliedHandlerIsNotDiscarded()
{
    int discards = 0;
    {
        BackendReplyHandler handler("a:1", 0);
        handler.onDiscard([&](Reason) { ++discards; });
        handler.setBinaryReply({});
    }
    QCOMPARE(discards, 0);
}

void BackendReplyHandlerTest::defaultHandlerNeverRunsADiscard()
{
    int calls = 0;
    {
        BackendReplyHandler handler;
        handler.onReply([&](const QByteArray &) { ++calls; });
        handler.onBinaryReply([&](const QByteArray &) { ++calls; });
        handler.onDiscard([&](Reason) { ++calls; });
        QVERIFY(handler.receivedReply());
        QVERIFY(!handler.hasExpired());
        QCOMPARE(handler.remainingTime(), qint64(-1));
        QCOMPARE(handler.id(), QByteArray());
    }
    QCOMPARE(calls, 0);
}

void BackendReplyHandlerTest::callbackMayAttachAnother()
{
    BackendReplyHandler handler("a:1", 60000);
    QStringList calls;
    handler.onReply([&](const QByteArray &) {
        calls << "first";
        for (int i = 0; i < 100; ++i)
            handler.onReply([&](const QByteArray &) { calls << "late"; });
    });
    handler.onReply([&](const QByteArray &) { calls << "second"; });

    handler.setReply({});

    QCOMPARE(calls, (QStringList{"first", "second"}));
}

void BackendReplyHandlerTest::deadlineRunsDown()
{
    const BackendReplyHandler handler("a:1", 20);

    QTRY_VERIFY(handler.hasExpired());
}

ONDIRA_TEST(BackendReplyHandlerTest)
#include "BackendReplyHandlerTest.moc"
