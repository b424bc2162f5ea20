// SPDX-License-Identifier: GPL-3.0-or-later
#include "OperationsTestBase.h"

#include <QThread>

// Files on their way to the server, byte by byte.
class UploadsTest : public OperationsTestBase
{
    Q_OBJECT

private slots:
    void pictureIsUploadedRaw();
    void pictureThatIsMissingIsEmpty();
    void meshIsUploadedPacked();
    void timeoutIsThatOfUploads_data();
    void timeoutIsThatOfUploads();
    void uidsReachTheCallback();
    void refusedUploadTellsNoUids();
    void uploadOnAnotherThreadIsPosted();
    void largeMeshArrivesWhole();
};

void UploadsTest::pictureIsUploadedRaw()
{
    auto item = picture();
    item.image = Model::ImageItem::Image(QByteArray("\x89PNG\0\n", 6), "png");

    m_link->addImageItem(item, {});
    const auto request = awaitRequest("image_items");

    QCOMPARE(int(request.flags), int(FakeServer::Raw));
    QCOMPARE(request.frames.at(1), QByteArray());
    QCOMPARE(request.body,
             entry("topic", "image_items") + entry("part_uid", QByteArray(16, '\x22'))
                 + entry("image", QByteArray("\x89PNG\0\n", 6)) + entry("format", "png") + entry("x", "1234.57")
                 + entry("y", "-0.5") + entry("width", "30") + entry("height", "0") + entry("name", "План"));
}

void UploadsTest::pictureThatIsMissingIsEmpty()
{
    m_link->addImageItem({}, {});
    const auto request = awaitRequest("image_items");

    QCOMPARE(request.body,
             entry("topic", "image_items") + entry("part_uid", QByteArray(16, '\0')) + entry("image", "")
                 + entry("format", "") + entry("x", "0") + entry("y", "0") + entry("width", "0") + entry("height", "0")
                 + entry("name", ""));
}

void UploadsTest::meshIsUploadedPacked()
{
    m_link->addView3DItem(machine(), {});
    const auto request = awaitRequest("view_3d_items");

    QCOMPARE(int(request.flags), FakeServer::Raw | FakeServer::Compressed);
    QCOMPARE(qUncompress(request.body),
             entry("topic", "view_3d_items") + entry("uid", QByteArray(16, '\x11'))
                 + entry("part_uid", QByteArray(16, '\x22')) + entry("name", "Станок") + entry("x", "1.5")
                 + entry("y", "0") + entry("z", "0") + entry("scale_x", "1") + entry("scale_y", "1")
                 + entry("scale_z", "1") + entry("rotation_x", "0") + entry("rotation_y", "0")
                 + entry("rotation_z", "0") + entry("opacity", "1") + entry("locked", "0")
                 + entry("model_data", QByteArray("mesh\0\xff", 6)));
}

void UploadsTest::timeoutIsThatOfUploads_data()
{
    QTest::addColumn<QByteArray>("resource");

    QTest::newRow("picture") << QByteArray("image_items");
    QTest::newRow("mesh") << QByteArray("view_3d_items");
    QTest::newRow("backup") << QByteArray("system_backup_restore");
}

void UploadsTest::timeoutIsThatOfUploads()
{
    QFETCH(QByteArray, resource);
    if (resource == "image_items")
        m_link->addImageItem(picture(), {});
    else if (resource == "view_3d_items")
        m_link->addView3DItem(machine(), {});
    else
        m_link->restoreBackup("x", {});

    const auto handler = m_link->takeReplyHandle(awaitRequest(resource).id);

    QVERIFY(handler);
    const int timeout = testTimings().upload;
    QVERIFY(handler->remainingTime() <= timeout && handler->remainingTime() > timeout - 5000);
}

void UploadsTest::uidsReachTheCallback()
{
    std::vector<std::vector<QUuid>> calls;
    const auto done = [&](const std::vector<QUuid> &uids) { calls.push_back(uids); };

    m_link->addImageItem(picture(), done);
    answerNext("image_items", resultDocument());
    m_link->addView3DItem(machine(), done);
    answerNext("view_3d_items", resultDocument());

    QCOMPARE(calls, (std::vector<std::vector<QUuid>>{resultUids, resultUids}));
    QCOMPARE(m_link->errors.size(), size_t(0));
}

void UploadsTest::refusedUploadTellsNoUids()
{
    std::vector<std::vector<QUuid>> calls;
    m_link->addImageItem(picture(), [&](const std::vector<QUuid> &uids) { calls.push_back(uids); });

    answerNext("image_items", failed);

    QCOMPARE(calls, std::vector<std::vector<QUuid>>(1));
    QCOMPARE(m_link->errorCodes, QStringList{"failed"});
}

void UploadsTest::uploadOnAnotherThreadIsPosted()
{
    std::vector<QUuid> uids;
    std::unique_ptr<QThread> caller(QThread::create(
        [&] { m_link->addView3DItem(machine(), [&](const std::vector<QUuid> &list) { uids = list; }); }));
    caller->start();
    QVERIFY(caller->wait());

    answerNext("view_3d_items", resultDocument());

    QCOMPARE(uids, resultUids);
}

void UploadsTest::largeMeshArrivesWhole()
{
    auto item = machine();
    item.modelData.clear();
    for (uint i = 0; item.modelData.size() < 4 * 1024 * 1024; ++i)
        item.modelData += QByteArray::number(i * 7919); // goes round

    m_link->addView3DItem(item, {});
    const auto request = awaitRequest("view_3d_items");

    QVERIFY(qUncompress(request.body).endsWith(entry("model_data", item.modelData)));
}

ONDIRA_TEST(UploadsTest)
#include "UploadsTest.moc"
