// SPDX-License-Identifier: GPL-3.0-or-later
#include "Documents.h"
#include "SiteFixture.h"
#include "model/json/View3DItem.h"
#include "support/TestBase.h"

#include <QSignalSpy>

using namespace SiteFixture;
using List = Demo::DemoSite::List;

namespace {

const QByteArray nullUid = "{00000000-0000-0000-0000-000000000000}";

QByteArray onHall(const QByteArray &more)
{
    return QByteArray(R"({"part_uid": ")") + hall + "\"" + more + "}";
}

ZmqBinaryMessage pictureUpload(const QByteArray &bytes = "picture", const char *part = hall)
{
    ZmqBinaryMessage message("image_items");
    message.add("part_uid", QUuid(part).toRfc4122());
    message.add("image", bytes);
    message.add("format", "png");
    message.add("x", "16.5");
    message.add("y", "32");
    message.add("width", "0");
    message.add("height", "1e+02");
    message.add("name", "../../etc/\u0444\0x");
    return message;
}

ZmqBinaryMessage meshUpload(const QUuid &uid, const QByteArray &bytes, const char *part = hall)
{
    Model::View3DItem item;
    item.uid = uid;
    item.partUid = QUuid(part);
    item.name = "Стол";
    item.x = 1234.5678;
    item.locked = true;
    item.modelData = bytes;
    ZmqBinaryMessage message("view_3d_items");
    JsonAPI::View3DItem::toBinaryMessage(message, item);
    return message;
}

// The message with one entry left out or put another way.
ZmqBinaryMessage changed(const ZmqBinaryMessage &message, const QByteArray &key, const QByteArray &value)
{
    ZmqBinaryMessage result;
    for (const auto &entry : message.entries()) {
        if (entry.key != key)
            result.add(entry.key, entry.value);
        else if (!value.isNull())
            result.add(key, value);
    }
    return result;
}

} // namespace

// Pictures and meshes: what travels as files.
class FileResourcesTest : public TestBase
{
    Q_OBJECT

private slots:
    void takesPicture();
    void givesPicture();
    void changesPicturesPlace();
    void removesPicture();
    void refusesPicture_data();
    void refusesPicture();
    void refusesLargePicture();
    void takesMesh_data();
    void takesMesh();
    void replacesMesh();
    void givesMesh();
    void changesMeshItemAndKeepsItsMesh();
    void removesMesh();
    void refusesMesh_data();
    void refusesMesh();
    void unknownFileIsAnError_data();
    void unknownFileIsAnError();
    void recordsWithoutFilesCannotBeAdded_data();
    void recordsWithoutFilesCannotBeAdded();
    void storeIsBounded();
    void userMayOnlyLook_data();
    void userMayOnlyLook();
};

void FileResourcesTest::takesPicture()
{
    Desk desk(fullData());
    QSignalSpy changed(&desk.site, &Demo::DemoSite::changed);

    const auto reply = desk.send(pictureUpload());

    const auto added = related(reply, "added");
    QCOMPARE(added.size(), 1);
    const auto *image = desk.site.image(QUuid(added.first()));
    QVERIFY(image);
    QCOMPARE(image->item.partUid, QUuid(hall));
    QCOMPARE(image->item.x, 16.5);
    QCOMPARE(image->item.height, 100.0);
    QCOMPARE(image->item.opacity, 1.0);
    QVERIFY(image->item.name.startsWith("../../etc/")); // a text like any other
    QCOMPARE(image->image.data, QByteArray("picture"));
    QCOMPARE(image->image.format, QString("png"));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.first().first().value<List>(), List::ImageItems);
}

void FileResourcesTest::givesPicture()
{
    Desk desk(fullData());

    const auto file = desk.getFile(QByteArray("image_items/") + picture);

    QVERIFY(file.get("image"));
    QCOMPARE(*file.get("image"), QByteArray("<svg/>"));
    QCOMPARE(*file.get("format"), QByteArray("svg"));
    QCOMPARE(file.entries().size(), size_t(2));
}

void FileResourcesTest::changesPicturesPlace()
{
    Desk desk(fullData());

    const auto reply = desk.post(
        "image_items/", listOf({entity("image_item", picture, R"({"x": 7, "opacity": 0.5, "on_top": true})")}));

    QCOMPARE(related(reply, "changed"), QStringList(picture));
    const auto *image = desk.site.image(QUuid(picture));
    QCOMPARE(image->item.x, 7.0);
    QVERIFY(image->item.onTop);
    QCOMPARE(image->item.name, QString("План"));
    QCOMPARE(image->image.data, QByteArray("<svg/>"));
}

void FileResourcesTest::removesPicture()
{
    Desk desk(fullData());

    QCOMPARE(related(desk.remove("image_items", listOf({entity("image_item", picture)})), "deleted"),
             QStringList(picture));

    QVERIFY(desk.site.data().images.empty());
    QCOMPARE(desk.site.storedFileBytes(), 4); // the mesh
}

void FileResourcesTest::refusesPicture_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("code");

    for (const auto *key : {"part_uid", "image", "format", "x", "y", "width", "height", "name"})
        QTest::addRow("no %s", key) << QByteArray(key) << QByteArray() << "invalid_data_error";
    QTest::newRow("no bytes") << QByteArray("image") << QByteArray("") << "invalid_data_error";
    QTest::newRow("x is no number") << QByteArray("x") << QByteArray("nan") << "invalid_data_error";
    QTest::newRow("width without end") << QByteArray("width") << QByteArray("inf") << "invalid_data_error";
    QTest::newRow("y is a word") << QByteArray("y") << QByteArray("left") << "invalid_data_error";
    QTest::newRow("plan as a text") << QByteArray("part_uid") << QByteArray(hall) << "invalid_data_error";
    QTest::newRow("unknown plan") << QByteArray("part_uid") << QUuid(nobody).toRfc4122() << "unknown_uid_error";
}

void FileResourcesTest::refusesPicture()
{
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, value);
    QFETCH(QString, code);
    Desk desk(fullData());

    QCOMPARE(codes(desk.send(changed(pictureUpload(), key, value))), QStringList(code));
    QCOMPARE(desk.site.data().images.size(), size_t(1));
}

void FileResourcesTest::refusesLargePicture()
{
    Desk desk(fullData());
    constexpr int largest = 32 * 1024 * 1024;

    QCOMPARE(codes(desk.send(pictureUpload(QByteArray(largest + 1, 'x')))), QStringList("invalid_data_error"));
    QCOMPARE(codes(desk.send(pictureUpload(QByteArray(largest, 'x')))), QStringList());

    QCOMPARE(desk.site.storedFileBytes(), qint64(largest) + 6 + 4);
}

void FileResourcesTest::takesMesh_data()
{
    QTest::addColumn<bool>("isPacked");

    QTest::newRow("packed") << true;
    QTest::newRow("plain") << false;
}

void FileResourcesTest::takesMesh()
{
    QFETCH(bool, isPacked);
    Desk desk(fullData());

    const auto reply = desk.send(meshUpload(QUuid(), "mesh"), "admin", isPacked);

    const auto added = related(reply, "added");
    QCOMPARE(added.size(), 1);
    const auto *item = desk.site.view3DItem(QUuid(added.first()));
    QVERIFY(item);
    QCOMPARE(item->name, QString("Стол"));
    QCOMPARE(item->x, 1234.57);
    QVERIFY(item->locked);
    QCOMPARE(item->modelData, QByteArray("mesh"));
}

void FileResourcesTest::replacesMesh()
{
    Desk desk(fullData());

    const auto reply = desk.send(meshUpload(QUuid(mesh), "another"), "admin", true);

    QCOMPARE(related(reply, "changed"), QStringList(mesh));
    QCOMPARE(desk.site.view3DItem(QUuid(mesh))->modelData, QByteArray("another"));
    QCOMPARE(desk.site.data().view3DItems.size(), size_t(1));
}

void FileResourcesTest::givesMesh()
{
    Desk desk(fullData());

    const auto item = JsonAPI::View3DItem::fromBinaryMessage(desk.getFile(QByteArray("view_3d_items/") + mesh));

    QCOMPARE(item.uid, QUuid(mesh));
    QCOMPARE(item.name, QString("Стеллаж"));
    QCOMPARE(item.modelData.toHex(), QByteArray("4d7fa0c8"));
}

void FileResourcesTest::changesMeshItemAndKeepsItsMesh()
{
    Desk desk(fullData());

    desk.post("view_3d_items/", listOf({entity("view_3d_item", mesh, R"({"z": 12, "scale_x": 2.5})")}));

    const auto *item = desk.site.view3DItem(QUuid(mesh));
    QCOMPARE(item->z, 12.0);
    QCOMPARE(item->scaleX, 2.5);
    QCOMPARE(item->scaleY, 1.0);
    QCOMPARE(item->modelData.size(), 4);
}

void FileResourcesTest::removesMesh()
{
    Desk desk(fullData());

    QCOMPARE(related(desk.remove("view_3d_items", listOf({entity("view_3d_item", mesh)})), "deleted"),
             QStringList(mesh));
    QVERIFY(desk.site.data().view3DItems.empty());
}

void FileResourcesTest::refusesMesh_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("code");

    for (const auto *key : {"uid", "part_uid", "name", "x", "scale_z", "rotation_y", "opacity", "locked", "model_data"})
        QTest::addRow("no %s", key) << QByteArray(key) << QByteArray() << "invalid_data_error";
    QTest::newRow("short uid") << QByteArray("uid") << QByteArray("123") << "invalid_data_error";
    QTest::newRow("z is no number") << QByteArray("z") << QByteArray("nan") << "invalid_data_error";
    QTest::newRow("unknown plan") << QByteArray("part_uid") << QUuid(nobody).toRfc4122() << "unknown_uid_error";
}

void FileResourcesTest::refusesMesh()
{
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, value);
    QFETCH(QString, code);
    Desk desk(fullData());

    QCOMPARE(codes(desk.send(changed(meshUpload(QUuid(), "mesh"), key, value), "admin", true)), QStringList(code));
    QCOMPARE(desk.site.data().view3DItems.size(), size_t(1));
}

void FileResourcesTest::unknownFileIsAnError_data()
{
    QTest::addColumn<QByteArray>("link");

    for (const auto *resource : {"image_items", "view_3d_items"}) {
        QTest::addRow("%s of nobody", resource) << QByteArray(resource) + "/" + nobody;
        QTest::addRow("%s of another list", resource) << QByteArray(resource) + "/" + till;
        QTest::addRow("%s of no uid", resource) << QByteArray(resource) + "/plan";
        QTest::addRow("%s without id", resource) << QByteArray(resource);
    }
}

void FileResourcesTest::unknownFileIsAnError()
{
    QFETCH(QByteArray, link);
    Desk desk(fullData());

    QCOMPARE(codes(desk.get(link)), QStringList("unknown_uid_error"));
}

void FileResourcesTest::recordsWithoutFilesCannotBeAdded_data()
{
    QTest::addColumn<QByteArray>("resource");
    QTest::addColumn<QByteArray>("type");

    QTest::newRow("picture") << QByteArray("image_items") << QByteArray("image_item");
    QTest::newRow("mesh") << QByteArray("view_3d_items") << QByteArray("view_3d_item");
}

void FileResourcesTest::recordsWithoutFilesCannotBeAdded()
{
    QFETCH(QByteArray, resource);
    QFETCH(QByteArray, type);
    Desk desk(fullData());

    for (const auto &uid : {nullUid, QByteArray(nobody), QByteArray()})
        QCOMPARE(codes(desk.post(resource, listOf({entity(type, uid, onHall(""))}))), QStringList("unknown_uid_error"));
}

void FileResourcesTest::storeIsBounded()
{
    Desk desk(fullData());
    const QByteArray large(32 * 1024 * 1024, 'x');

    int taken = 0;
    QStringList refused;
    for (int i = 0; i < 10 && refused.isEmpty(); ++i) {
        refused = codes(desk.send(pictureUpload(large)));
        taken += refused.isEmpty() ? 1 : 0;
    }

    QCOMPARE(refused, QStringList("store_full_error"));
    QCOMPARE(taken, 7); // eight would fill it, were it empty
}

void FileResourcesTest::userMayOnlyLook_data()
{
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<QByteArray>("link");
    QTest::addColumn<bool>("isAllowed");

    for (const auto *resource : {"buttons", "indicators", "image_items", "view_3d_items"}) {
        QTest::addRow("change %s", resource) << QByteArray("POST") << QByteArray(resource) << false;
        QTest::addRow("remove %s", resource) << QByteArray("DELETE") << QByteArray(resource) << false;
    }
    QTest::newRow("picture") << QByteArray("GET") << QByteArray("image_items/") + picture << true;
    QTest::newRow("mesh") << QByteArray("GET") << QByteArray("view_3d_items/") + mesh << true;
}

void FileResourcesTest::userMayOnlyLook()
{
    QFETCH(QByteArray, method);
    QFETCH(QByteArray, link);
    QFETCH(bool, isAllowed);
    Desk desk(fullData());

    QCOMPARE(codes(desk.ask(document(method, link), "user")),
             isAllowed ? QStringList() : QStringList("access_denied_error"));
    QCOMPARE(codes(desk.ask(document(method, link), "stranger")), QStringList("auth_needed"));
    QCOMPARE(codes(desk.send(pictureUpload(), "user")), QStringList("access_denied_error"));
    QCOMPARE(codes(desk.send(meshUpload(QUuid(), "m"), "user")), QStringList("access_denied_error"));
}

ONDIRA_TEST(FileResourcesTest)
#include "FileResourcesTest.moc"
