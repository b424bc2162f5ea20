// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/zmq/PollingZMQContext.h"
#include "link/zmq/ZMQSocket.h"
#include "link/zmq/ZmqError.h"
#include "support/TestBase.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <stdexcept>

using nzmqt::PollingZMQContext;
using nzmqt::ZMQSocket;

namespace {

// Two sockets of one context that talk to each other without the network.
struct Line
{
    explicit Line(PollingZMQContext &context)
    {
        static int counter = 0;
        const auto address = QString("inproc://line-%1").arg(++counter);
        for (auto *end : {&near, &far})
            *end = context.createSocketInternal(ZMQ_PAIR);
        far->bindTo(address);
        near->connectTo(address);
        context.registerSocket(far);
    }

    void send(int number) { near->sendMessage({QByteArray::number(number)}); }

    ZMQSocket *near = nullptr; // sends
    ZMQSocket *far = nullptr; // is polled
};

int numberOf(const QList<QByteArray> &message)
{
    return message.first().toInt();
}

} // namespace

class PollingZMQContextTest : public TestBase
{
    Q_OBJECT

private slots:
    void isStoppedUntilStarted();
    void pollsOnlyWhileStarted();
    void keepsItsRhythm();
    void drainsAllThatWaitsInOneTickAndInOrder();
    void endsATickWhenItsTimeIsSpent();
    void aFloodOnOneSocketDoesNotStarveTheOther();
    void slotMayStopTheContext();
    void slotMayStopAndStartTheContext();
    void slotMayDeleteTheSocket();
    void slotMayDeleteTheOtherReadySocket();
    void slotMayDeleteTheContext();
    void slotMayRegisterAndUnregisterSockets();
    void slotMayRunAnEventLoop();
    void throwingSlotIsReportedAndPollingGoesOn();
    void errorOfThePollIsReportedAndPollingGoesOn();
    void unregisteredSocketIsNotRead();
    void emptyContextTicks();
};

void PollingZMQContextTest::isStoppedUntilStarted()
{
    PollingZMQContext context(1, 10);
    QVERIFY(context.isStopped());
    QCOMPARE(context.interval(), 10);

    context.start();
    QVERIFY(!context.isStopped());
    context.stop();
    QVERIFY(context.isStopped());
}

void PollingZMQContextTest::pollsOnlyWhileStarted()
{
    PollingZMQContext context(1, 10, 1);
    Line line(context);
    QSignalSpy received(line.far, &ZMQSocket::messageReceived);
    QSignalSpy ticks(&context, &PollingZMQContext::ticked);
    line.send(1);
    QCoreApplication::processEvents();
    QCOMPARE(received.size(), 0);

    context.start();
    QTRY_COMPARE(received.size(), 1);
    context.stop();
    const int ticksSoFar = ticks.size();
    line.send(2);
    QEventLoop loop;
    QTimer::singleShot(20, &loop, &QEventLoop::quit);
    loop.exec();

    QCOMPARE(received.size(), 1);
    QCOMPARE(ticks.size(), ticksSoFar);
}

void PollingZMQContextTest::keepsItsRhythm()
{
    PollingZMQContext context(1, 10, 10);
    QSignalSpy ticks(&context, &PollingZMQContext::ticked);
    QElapsedTimer elapsed;
    elapsed.start();

    context.start();
    QTRY_VERIFY(ticks.size() >= 1);
    QVERIFY2(elapsed.elapsed() < 1000, "the first poll comes at once");
    const int before = ticks.size();
    elapsed.start();
    QTRY_VERIFY(ticks.size() >= before + 20);

    const int count = ticks.size() - before;
    QVERIFY2(elapsed.elapsed() >= (count - 1) * 9, qPrintable(QString::number(elapsed.elapsed())));
}

void PollingZMQContextTest::drainsAllThatWaitsInOneTickAndInOrder()
{
    PollingZMQContext context(1, 10, 1, 60000);
    Line line(context);
    std::vector<int> numbers;
    connect(line.far, &ZMQSocket::messageReceived, &context,
            [&](const QList<QByteArray> &message) { numbers.push_back(numberOf(message)); });
    QSignalSpy ticks(&context, &PollingZMQContext::ticked);
    for (int i = 0; i < 500; ++i)
        line.send(i);

    context.start();
    QVERIFY(ticks.wait(patience));

    QCOMPARE(ticks.size(), 1);
    QCOMPARE(numbers.size(), size_t(500));
    for (int i = 0; i < 500; ++i)
        QCOMPARE(numbers.at(size_t(i)), i);
}

void PollingZMQContextTest::endsATickWhenItsTimeIsSpent()
{
    PollingZMQContext context(1, 10, 1, 8);
    Line line(context);
    int received = 0;
    connect(line.far, &ZMQSocket::messageReceived, &context, [&] {
        ++received;
        QElapsedTimer work;
        work.start();
        while (!work.hasExpired(5)) {}
    });
    std::vector<int> receivedAtTick;
    connect(&context, &PollingZMQContext::ticked, &context, [&] { receivedAtTick.push_back(received); });
    for (int i = 0; i < 6; ++i)
        line.send(i);

    context.start();
    QTRY_COMPARE(received, 6);

    QVERIFY(receivedAtTick.size() >= 2);
    QVERIFY(receivedAtTick.front() >= 1 && receivedAtTick.front() <= 2); // 5 ms each, 8 ms in all
}

void PollingZMQContextTest::aFloodOnOneSocketDoesNotStarveTheOther()
{
    PollingZMQContext context(1, 10, 1, 60000);
    Line flood(context);
    Line quiet(context);
    QStringList order;
    connect(flood.far, &ZMQSocket::messageReceived, &context, [&] { order << "flood"; });
    connect(quiet.far, &ZMQSocket::messageReceived, &context, [&] { order << "quiet"; });
    for (int i = 0; i < 500; ++i)
        flood.send(i);
    quiet.send(0);

    context.start();
    QTRY_COMPARE(order.size(), 501);

    QVERIFY(order.indexOf("quiet") <= 1);
}

void PollingZMQContextTest::slotMayStopTheContext()
{
    PollingZMQContext context(1, 10, 1);
    Line line(context);
    int received = 0;
    connect(line.far, &ZMQSocket::messageReceived, &context, [&] {
        ++received;
        context.stop();
    });
    line.send(1);
    line.send(2);

    context.start();
    QTRY_COMPARE(received, 1);
    QEventLoop loop;
    QTimer::singleShot(20, &loop, &QEventLoop::quit);
    loop.exec();
    QCOMPARE(received, 1);

    context.start();
    QTRY_COMPARE(received, 2); // nothing was lost
}

void PollingZMQContextTest::slotMayStopAndStartTheContext()
{
    PollingZMQContext context(1, 10, 1);
    Line line(context);
    int received = 0;
    connect(line.far, &ZMQSocket::messageReceived, &context, [&] {
        ++received;
        context.stop();
        context.start();
    });
    for (int i = 0; i < 10; ++i)
        line.send(i);

    context.start();

    QTRY_COMPARE(received, 10);
    QVERIFY(!context.isStopped());
}

void PollingZMQContextTest::slotMayDeleteTheSocket()
{
    PollingZMQContext context(1, 10, 1);
    Line line(context);
    Line other(context);
    int received = 0;
    connect(line.far, &ZMQSocket::messageReceived, &context, [&] {
        ++received;
        delete line.far;
    });
    QSignalSpy goesOn(other.far, &ZMQSocket::messageReceived);
    line.send(1);
    line.send(2);
    context.start();
    QTRY_COMPARE(received, 1);

    other.send(1);

    QTRY_COMPARE(goesOn.size(), 1);
    QCOMPARE(received, 1);
}

void PollingZMQContextTest::slotMayDeleteTheOtherReadySocket()
{
    PollingZMQContext context(1, 10, 1);
    Line first(context);
    Line second(context);
    int received = 0;
    connect(first.far, &ZMQSocket::messageReceived, &context, [&] {
        ++received;
        delete second.far;
        second.far = nullptr;
    });
    connect(second.far, &ZMQSocket::messageReceived, &context, [&] { received += 100; });
    second.send(1);
    first.send(1);
    first.send(2);

    context.start();

    QTRY_COMPARE(received, 2);
}

void PollingZMQContextTest::slotMayDeleteTheContext()
{
    QPointer<PollingZMQContext> context(new PollingZMQContext(1, 10, 1));
    Line line(*context);
    int received = 0;
    connect(line.far, &ZMQSocket::messageReceived, this, [&] {
        ++received;
        delete context;
    });
    line.send(1);
    line.send(2);

    context->start();
    QTRY_VERIFY(!context);

    QCOMPARE(received, 1);
}

void PollingZMQContextTest::slotMayRegisterAndUnregisterSockets()
{
    PollingZMQContext context(1, 10, 1);
    Line line(context);
    std::unique_ptr<Line> added;
    std::unique_ptr<QSignalSpy> receivedByAdded;
    connect(line.far, &ZMQSocket::messageReceived, &context, [&] {
        context.unregisterSocket(line.far);
        added = std::make_unique<Line>(context);
        receivedByAdded = std::make_unique<QSignalSpy>(added->far, &ZMQSocket::messageReceived);
        added->send(1);
    });
    line.send(1);

    context.start();

    QTRY_VERIFY(receivedByAdded && receivedByAdded->size() == 1);
    QCOMPARE(context.registeredSockets(), QList<ZMQSocket *>{added->far});
}

void PollingZMQContextTest::slotMayRunAnEventLoop()
{
    PollingZMQContext context(1, 10, 1);
    Line line(context);
    std::vector<int> begun;
    std::vector<int> ended;
    QEventLoop loop;
    connect(line.far, &ZMQSocket::messageReceived, &context, [&](const QList<QByteArray> &message) {
        begun.push_back(numberOf(message));
        if (begun.size() == 1)
            loop.exec(); // as a dialog does that a handler opens
        else if (begun.size() == 5)
            loop.quit();
        ended.push_back(numberOf(message));
    });
    for (int i = 0; i < 10; ++i)
        line.send(i);

    context.start();
    QTRY_COMPARE(ended.size(), size_t(10));

    QCOMPARE(begun, (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
    QVERIFY2(ended.front() != 0, "polling goes on inside the loop of the first");
    QSignalSpy ticks(&context, &PollingZMQContext::ticked);
    QVERIFY(ticks.wait(patience)); // and after it
}

void PollingZMQContextTest::throwingSlotIsReportedAndPollingGoesOn()
{
    PollingZMQContext context(1, 10, 1);
    Line line(context);
    int received = 0;
    connect(line.far, &ZMQSocket::messageReceived, &context, [&] {
        ++received;
        if (received == 1)
            throw zmq::error_t(EHOSTUNREACH);
        if (received == 2)
            throw std::runtime_error("broken slot");
    });
    QSignalSpy errors(&context, &PollingZMQContext::pollError);
    expectMessage(QtWarningMsg, "^Exception during poll: " + QRegularExpression::escape(zmq_strerror(EHOSTUNREACH)));
    expectMessage(QtWarningMsg, "^Exception during poll: broken slot$");
    for (int i = 0; i < 3; ++i)
        line.send(i);

    context.start();
    QTRY_COMPARE(received, 3);

    QCOMPARE(errors.size(), 2);
    QCOMPARE(errors.at(0).at(0).toInt(), EHOSTUNREACH);
    QCOMPARE(errors.at(0).at(1).toString(), QString::fromLocal8Bit(zmq_strerror(EHOSTUNREACH)));
    QCOMPARE(errors.at(1).at(1).toString(), QString("broken slot"));
}

void PollingZMQContextTest::errorOfThePollIsReportedAndPollingGoesOn()
{
    PollingZMQContext context(1, 10, 1);
    Line line(context);
    QSignalSpy errors(&context, &PollingZMQContext::pollError);
    QSignalSpy ticks(&context, &PollingZMQContext::ticked);
    allowMessages("^Exception during poll: Context was terminated$");
    context.start();
    QVERIFY(ticks.wait(patience));
    QCOMPARE(errors.size(), 0);

    zmq_ctx_shutdown(context.handle());
    QTRY_VERIFY(errors.size() >= 2);

    QCOMPARE(errors.at(0).at(0).toInt(), ETERM);
    QVERIFY(!context.isStopped());
}

void PollingZMQContextTest::unregisteredSocketIsNotRead()
{
    PollingZMQContext context(1, 10, 1);
    Line line(context);
    QSignalSpy received(line.far, &ZMQSocket::messageReceived);
    QSignalSpy ticks(&context, &PollingZMQContext::ticked);
    context.unregisterSocket(line.far);
    line.send(1);

    context.start();
    QTRY_VERIFY(ticks.size() > 5);
    QCOMPARE(received.size(), 0);
    context.registerSocket(line.far);

    QTRY_COMPARE(received.size(), 1);
}

void PollingZMQContextTest::emptyContextTicks()
{
    PollingZMQContext context(1, 10, 1);
    QSignalSpy ticks(&context, &PollingZMQContext::ticked);

    context.start();

    QTRY_VERIFY(ticks.size() > 3);
}

ONDIRA_TEST(PollingZMQContextTest)
#include "PollingZMQContextTest.moc"
