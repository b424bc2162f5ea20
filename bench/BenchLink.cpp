// SPDX-License-Identifier: GPL-3.0-or-later
// The link as it runs: a request to a server on loopback and its reply, polling each 10 ms as always; and a frame of
// 10,000 device states from the socket's hand to every row that it changes.
#include "data/DeviceFaultsListModel.h"
#include "data/DevicesListModel.h"
#include "data/UsersListModel.h"
#include "data/ZonesListModel.h"
#include "link/JsonBackendCommunicator.h"
#include "link/zmq/PollingZMQContext.h"
#include "link/zmq/TickTimer.h"
#include "link/zmq/ZMQSocket.h"

#include <QEventLoop>
#include <QThread>
#include <algorithm>
#include <atomic>
#include <benchmark/benchmark.h>
#include <optional>
#include <vector>
#include <zmq.h>

namespace {

constexpr int bodySize = 300;
constexpr int requestCount = 200;
constexpr uint deviceCount = 10000;
constexpr uint zoneCount = 400;

// Answers each request at once with a body of the same size, on a thread of its own.
class EchoServer
{
public:
    EchoServer()
        : m_context(1, 10)
        , m_socket(m_context.createSocketInternal(ZMQ_ROUTER))
    {
        m_socket->setOption(ZMQ_LINGER, 0);
        m_socket->bindTo("tcp://127.0.0.1:*");
        port = m_socket->lastEndpoint().section(':', -1).toInt();
        m_thread.reset(QThread::create([this] { serve(); }));
        m_thread->start();
    }

    ~EchoServer()
    {
        m_stop = true;
        m_thread->wait();
    }

    int port = 0;

private:
    void serve()
    {
        zmq_pollitem_t item{m_socket->handle(), 0, ZMQ_POLLIN, 0};
        while (!m_stop) {
            if (zmq_poll(&item, 1, 50) > 0)
                m_socket->sendMessage(m_socket->receiveMessage());
        }
    }

    nzmqt::PollingZMQContext m_context; // never started: the thread reads the socket itself
    nzmqt::ZMQSocket *m_socket;
    std::atomic<bool> m_stop{false};
    std::unique_ptr<QThread> m_thread;
};

class Link : public JsonBackendCommunicator
{
public:
    using JsonBackendCommunicator::onSubMessageReceived;
    using JsonBackendCommunicator::sendRequest;
};

// To a tenth of a millisecond, while the event loop runs for all but the last of it.
void wait(int tenthsOfMilliseconds)
{
    QElapsedTimer elapsed;
    elapsed.start();
    QEventLoop loop;
    nzmqt::TickTimer timer;
    QObject::connect(&timer, &nzmqt::TickTimer::timeout, &loop, &QEventLoop::quit);
    timer.start(tenthsOfMilliseconds / 10);
    loop.exec();
    while (elapsed.nsecsElapsed() < tenthsOfMilliseconds * 100000LL) {}
}

// The time until the reply in seconds, or nothing within five of them.
std::optional<double> roundTrip(Link &link, const QByteArray &body)
{
    QEventLoop loop;
    std::optional<double> time;
    QElapsedTimer elapsed;
    elapsed.start();
    const ZmqMessageHeader header({ZmqMessageHeader::Flags::Json}, "bench");
    link.sendRequest(header, body, 5000)->onReply([&](const QByteArray &reply) {
        if (reply.size() == body.size())
            time = static_cast<double>(elapsed.nsecsElapsed()) * 1e-9;
        loop.quit();
    });
    QTimer::singleShot(5000, &loop, &QEventLoop::quit);
    loop.exec();
    return time;
}

// The median of many. A user's tap falls anywhere between two polls, so each request waits for a moment of its own.
void RequestRoundTrip(benchmark::State &state)
{
    EchoServer server;
    Link link;
    link.init("127.0.0.1", "bench", QString(), server.port, server.port);
    const QByteArray body = '"' + QByteArray(bodySize - 2, 'x') + '"';
    for (auto _ : state) {
        std::vector<double> times;
        for (int i = 0; i < requestCount; ++i) {
            wait(i * 37 % 100); // each tenth of the 10 ms between two polls twice
            const auto time = roundTrip(link, body);
            if (!time)
                return state.SkipWithError("no reply");
            times.push_back(*time);
        }
        std::nth_element(times.begin(), times.begin() + requestCount / 2, times.end());
        state.SetIterationTime(times[requestCount / 2]);
    }
}
BENCHMARK(RequestRoundTrip)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(1);

QByteArray uidText(uint group, uint number)
{
    return QUuid(number, static_cast<ushort>(group), 0, 1, 2, 3, 4, 5, 6, 7, 8).toByteArray();
}

QByteArray packedStates(int power)
{
    QByteArray entities;
    for (uint i = 0; i < deviceCount; ++i) {
        entities += (i ? "," : "") + QByteArray(R"({"type":"device_state","id":")") + uidText(0x10, i)
            + R"(","attributes":{"state":{"power":)" + QByteArray::number(power + static_cast<int>(i % 7))
            + R"(,"brightness":50.5,"errors":[],"rssidBm":-70}}})";
    }
    return qCompress(R"({"data":[)" + entities + R"(],"server_version":"4.5.2"})");
}

void FrameToRowsAnnounced(benchmark::State &state)
{
    Link link;
    UsersListModel users(link);
    DevicesListModel devices(link);
    DeviceFaultsListModel faults(link, devices);
    ZonesListModel zones(link, devices, faults, users);
    std::vector<Model::Zone> zoneList(zoneCount);
    for (uint i = 0; i < zoneCount; ++i)
        zoneList[i].uid = QUuid(uidText(0x20, i));
    std::vector<Model::DeviceDescriptor> deviceList(deviceCount);
    for (uint i = 0; i < deviceCount; ++i) {
        deviceList[i].uid = QUuid(uidText(0x10, i));
        deviceList[i].zoneUid = QUuid(uidText(0x20, i % zoneCount));
    }
    emit link.zonesReceived(zoneList);
    emit link.devicesReceived(deviceList);
    uint changed = 0;
    QObject::connect(&devices, &QAbstractItemModel::dataChanged, [&] { ++changed; });

    const QByteArray header("\0\6device_states", 15); // JSON, packed
    const QByteArray bodies[]{packedStates(10), packedStates(60)};
    uint turn = 0;
    for (auto _ : state)
        link.onSubMessageReceived({"device_states", QByteArray(), header, bodies[turn++ % 2]});
    if (changed != turn * deviceCount)
        state.SkipWithError("not every row was announced");
}
BENCHMARK(FrameToRowsAnnounced)->Unit(benchmark::kMillisecond);

} // namespace
