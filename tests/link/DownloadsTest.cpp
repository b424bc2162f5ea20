// SPDX-License-Identifier: GPL-3.0-or-later
#include "OperationsTestBase.h"

#include <zmq.h>

namespace {

enum class Kind { Picture, Mesh };

QByteArray resourceOf(Kind kind)
{
    return kind == Kind::Picture ? "image_items" : "view_3d_items";
}

// What came of a download: how often each callback ran, and what the last one got.
struct Outcome
{
    int done = 0;
    int failures = 0;
    Model::ImageItem::Image picture;
    Model::View3DItem mesh;

    void start(AbstractBackendCommunicator &link, Kind kind)
    {
        const auto failed = [this] { ++failures; };
        if (kind == Kind::Picture) {
            const auto received = [this](const Model::ImageItem::Image &image) {
                ++done;
                picture = image;
            };
            link.getImage(hallUid, received, failed);
        } else {
            const auto received = [this](const Model::View3DItem &item) {
                ++done;
                mesh = item;
            };
            link.getView3DItem(hallUid, received, failed);
        }
    }
};

const QByteArray uidEntry = entry("uid", QByteArray(16, '\x11'));

// A link that was never given sockets: it refuses each request.
class BareLink : public JsonBackendCommunicator
{
public:
    BareLink()
        : JsonBackendCommunicator(WithoutSockets(), nullptr)
    {}
};

} // namespace

Q_DECLARE_METATYPE(Kind)

// Files on their way from the server: pictures and meshes. Whoever waits for one learns how it ended, once.
class DownloadsTest : public OperationsTestBase
{
    Q_OBJECT

private slots:
    void pictureReachesTheCallback_data();
    void pictureReachesTheCallback();
    void meshReachesTheCallback();
    void packedMeshReachesTheCallback();
    void meshWithAUidAloneHasNoNumbers();
    void damagedReplyIsReported_data();
    void damagedReplyIsReported();
    void errorIsReportedTwiceAndFails_data();
    void errorIsReportedTwiceAndFails();
    void documentInsteadOfAFileFails_data();
    void documentInsteadOfAFileFails();
    void lostConnectionFails_data();
    void lostConnectionFails();
    void lostReplyFails_data();
    void lostReplyFails();
    void refusedRequestFailsLater_data();
    void refusedRequestFailsLater();
    void brokenTransportFailsLater_data();
    void brokenTransportFailsLater();
    void missingCallbacksAreNoHarm();
    void downloadsAreToldApart();

private:
    void addKinds()
    {
        QTest::addColumn<Kind>("kind");
        QTest::newRow("picture") << Kind::Picture;
        QTest::newRow("mesh") << Kind::Mesh;
    }
};

void DownloadsTest::pictureReachesTheCallback_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("format");

    const QByteArray bytes("\x89PNG\0\n", 6);
    const auto image = entry("image", bytes);
    QTest::newRow("usual") << image + entry("format", "png") << bytes << "png";
    QTest::newRow("other order") << entry("format", "svg") + image << bytes << "svg";
    QTest::newRow("entries of no concern")
        << entry("topic", "image_items") + entry("", "") + image + entry("format", "") << bytes << "";
    QTest::newRow("keys twice") << image + entry("format", "png") + entry("image", "b") + entry("format", "b") << bytes
                                << "png";
}

void DownloadsTest::pictureReachesTheCallback()
{
    QFETCH(QByteArray, body);
    Outcome outcome;
    outcome.start(*m_link, Kind::Picture);

    m_server->replyBinary(awaitRequest("image_items"), body);

    QTRY_COMPARE(outcome.done, 1);
    QTEST(outcome.picture.data, "data");
    QTEST(outcome.picture.format, "format");
    QCOMPARE(outcome.failures, 0);
    QCOMPARE(m_link->errors.size(), size_t(0));
}

void DownloadsTest::meshReachesTheCallback()
{
    Outcome outcome;
    outcome.start(*m_link, Kind::Mesh);

    m_server->replyBinary(awaitRequest("view_3d_items"),
                          uidEntry + entry("part_uid", QByteArray(16, '\x22')) + entry("name", "Станок")
                              + entry("x", "1.5") + entry("model_data", QByteArray("mesh\0\xff", 6)));

    QTRY_COMPARE(outcome.done, 1);
    auto expected = machine(); // with 0 for the numbers that were not sent
    expected.scaleX = expected.scaleY = expected.scaleZ = expected.opacity = 0;
    QVERIFY(outcome.mesh == expected);
    QCOMPARE(outcome.failures, 0);
}

void DownloadsTest::packedMeshReachesTheCallback()
{
    Outcome outcome;
    outcome.start(*m_link, Kind::Mesh);
    const auto request = awaitRequest("view_3d_items");
    const QByteArray mesh(1000000, 'm');

    m_server->sendFrames(request.peer,
                         {"", FakeServer::header(FakeServer::Raw | FakeServer::Compressed, request.id),
                          qCompress(uidEntry + entry("model_data", mesh))});

    QTRY_COMPARE(outcome.done, 1);
    QCOMPARE(outcome.mesh.modelData, mesh);
}

void DownloadsTest::meshWithAUidAloneHasNoNumbers()
{
    Outcome outcome;
    outcome.start(*m_link, Kind::Mesh);

    m_server->replyBinary(awaitRequest("view_3d_items"), uidEntry);

    QTRY_COMPARE(outcome.done, 1);
    QCOMPARE(outcome.mesh.uid, hallUid);
    QCOMPARE(outcome.mesh.scaleX, 0.0);
    QVERIFY(outcome.mesh.modelData.isEmpty());
}

void DownloadsTest::damagedReplyIsReported_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QByteArray>("body");

    const QByteArray cut = (entry("format", "png") + entry("image", "abcdef")).chopped(3);
    QTest::newRow("picture, empty") << Kind::Picture << QByteArray();
    QTest::newRow("picture, no bytes") << Kind::Picture << entry("format", "png");
    QTest::newRow("picture, no format") << Kind::Picture << entry("image", "bytes");
    QTest::newRow("picture, cut short") << Kind::Picture << cut;
    QTest::newRow("picture, negative length") << Kind::Picture << entry("image", "a") + QByteArray(4, '\xff');
    QTest::newRow("picture, enormous length")
        << Kind::Picture << entry("image", "a") + QByteArray("\xff\xff\xff\x7f", 4) + "format";
    QTest::newRow("picture, other keys") << Kind::Picture << entry("Image", "a") + entry("FORMAT", "b");
    QTest::newRow("mesh, empty") << Kind::Mesh << QByteArray();
    QTest::newRow("mesh, no uid") << Kind::Mesh << entry("name", "a") + entry("model_data", "b");
    QTest::newRow("mesh, null uid") << Kind::Mesh << entry("uid", QByteArray(16, '\0'));
    QTest::newRow("mesh, short uid") << Kind::Mesh << entry("uid", QByteArray(15, '\x11'));
    QTest::newRow("mesh, cut short") << Kind::Mesh << uidEntry.chopped(1);
    QTest::newRow("mesh, no entries") << Kind::Mesh << QByteArray("rubbish");
}

void DownloadsTest::damagedReplyIsReported()
{
    QFETCH(Kind, kind);
    QFETCH(QByteArray, body);
    allowMessages("^Byte consumer trying to consume");
    Outcome outcome;
    outcome.start(*m_link, kind);

    m_server->replyBinary(awaitRequest(resourceOf(kind)), body);

    QTRY_COMPARE(outcome.failures, 1);
    QCOMPARE(outcome.done, 0);
    QCOMPARE(m_link->errors.size(), size_t(1));
    const auto error = m_link->errors.at(0).at(0);
    const bool picture = kind == Kind::Picture;
    QCOMPARE(error.code, QString(picture ? "image_load_failed" : "view_3d_item_load_failed"));
    QCOMPARE(error.title, QString(picture ? "Не удалось загрузить изображение" : "Не удалось загрузить 3D объект"));
    QCOMPARE(error.detail, QString());
    QCOMPARE(m_link->getStatus(), AbstractBackendCommunicator::Connected);
}

void DownloadsTest::errorIsReportedTwiceAndFails_data()
{
    addKinds();
}

void DownloadsTest::errorIsReportedTwiceAndFails()
{
    QFETCH(Kind, kind);
    Outcome outcome;
    outcome.start(*m_link, kind);

    answerNext(resourceOf(kind), failed);

    QCOMPARE(outcome.failures, 1);
    QCOMPARE(outcome.done, 0);
    QCOMPARE(m_link->errorCodes, (QStringList{"failed", "failed"}));
    QCOMPARE(m_link->errors.size(), size_t(2));
    m_link->disconnectFromServer();
    QCOMPARE(outcome.failures, 1);
}

void DownloadsTest::documentInsteadOfAFileFails_data()
{
    addKinds();
}

void DownloadsTest::documentInsteadOfAFileFails()
{
    QFETCH(Kind, kind);
    Outcome outcome;
    outcome.start(*m_link, kind);

    answerNext(resourceOf(kind), R"({"data":[{"type":"image_item","id":"1"}]})");

    QCOMPARE(outcome.failures, 1);
    QCOMPARE(outcome.done, 0);
    QCOMPARE(m_link->errors.size(), size_t(0));
}

void DownloadsTest::lostConnectionFails_data()
{
    addKinds();
}

void DownloadsTest::lostConnectionFails()
{
    QFETCH(Kind, kind);
    Outcome outcome;
    outcome.start(*m_link, kind);
    awaitRequest(resourceOf(kind));

    m_link->disconnectFromServer();

    QCOMPARE(outcome.failures, 1);
    QCOMPARE(outcome.done, 0);
}

void DownloadsTest::lostReplyFails_data()
{
    addKinds();
}

void DownloadsTest::lostReplyFails()
{
    QFETCH(Kind, kind);
    auto timings = testTimings();
    timings.reply = 80;
    FakeServer server;
    server.answer = [&](const FakeServer::Request &request) { // all but the download
        if (request.resource() != resourceOf(kind))
            server.reply(request, request.resource() == "auth" ? server.loginReply : "{}");
    };
    TestCommunicator link(timings);
    QVERIFY(logIn(link, server));
    Outcome outcome;

    outcome.start(link, kind);

    QTRY_COMPARE(outcome.failures, 1);
    QCOMPARE(outcome.done, 0);
    QTRY_COMPARE(link.logins, 2);
    QTRY_COMPARE(link.getStatus(), AbstractBackendCommunicator::Connected);
    QCOMPARE(outcome.failures, 1);
}

void DownloadsTest::refusedRequestFailsLater_data()
{
    addKinds();
}

void DownloadsTest::refusedRequestFailsLater()
{
    QFETCH(Kind, kind);
    BareLink link;
    Outcome outcome;

    outcome.start(link, kind);
    QCOMPARE(outcome.failures, 0); // its caller is still asking

    QTRY_COMPARE(outcome.failures, 1);
    QCOMPARE(outcome.done, 0);
}

void DownloadsTest::brokenTransportFailsLater_data()
{
    addKinds();
}

void DownloadsTest::brokenTransportFailsLater()
{
    QFETCH(Kind, kind);
    allowMessages("^Exception during poll: Context was terminated");
    expectMessage(QtWarningMsg, "^A request could not be sent: Context was terminated");
    zmq_ctx_shutdown(m_link->requestContext()->handle());
    Outcome outcome;

    outcome.start(*m_link, kind);
    QCOMPARE(outcome.failures, 0);

    QTRY_COMPARE(outcome.failures, 1);
    QCOMPARE(outcome.done, 0);
}

void DownloadsTest::missingCallbacksAreNoHarm()
{
    m_link->getImage(hallUid, {}, {});
    const auto picture = awaitRequest("image_items");
    m_server->replyBinary(picture, entry("image", "a") + entry("format", "png"));
    m_link->getView3DItem(hallUid, {}, {});
    const auto mesh = awaitRequest("view_3d_items");
    m_server->replyBinary(mesh, entry("uid", ""));
    QTRY_COMPARE(m_link->errorCodes, QStringList{"view_3d_item_load_failed"});
    QVERIFY(m_link->seenReplies.contains(picture.id));

    m_link->getImage(hallUid, {}, {});
    m_link->getView3DItem(hallUid, {}, {});
    m_link->disconnectFromServer();

    QCOMPARE(m_link->getStatus(), AbstractBackendCommunicator::Disconnected);
}

void DownloadsTest::downloadsAreToldApart()
{
    Outcome first;
    Outcome second;
    first.start(*m_link, Kind::Picture);
    second.start(*m_link, Kind::Picture);
    QTRY_COMPARE(m_server->count("image_items"), 2);
    const auto requests = m_server->requestsFor("image_items");

    // Answers come in the other order, one of them twice.
    for (int i = 0; i < 2; ++i)
        m_server->replyBinary(requests.at(1), entry("image", "second") + entry("format", "b"));
    m_server->replyBinary(requests.at(0), entry("image", "first") + entry("format", "a"));

    QTRY_COMPARE(first.done, 1);
    QCOMPARE(first.picture.data, QByteArray("first"));
    QCOMPARE(second.done, 1);
    QCOMPARE(second.picture.data, QByteArray("second"));
}

ONDIRA_TEST(DownloadsTest)
#include "DownloadsTest.moc"
