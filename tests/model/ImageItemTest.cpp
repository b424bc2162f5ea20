// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/ImageItem.h"
#include "model/JsonTexts.h"
#include "model/OddNumbers.h"
#include "support/TestBase.h"

#include <QFile>
#include <QTemporaryDir>
#include <sys/stat.h>

namespace {

using Image = Model::ImageItem::Image;

const QUuid uid("{11111111-1111-1111-1111-111111111111}");
const QUuid partUid("{22222222-2222-2222-2222-222222222222}");

const QByteArray document = R"({
    "type": "image_item", "id": "{11111111-1111-1111-1111-111111111111}",
    "attributes": {"part_uid": "{22222222-2222-2222-2222-222222222222}", "name": "План", "x": 1.5, "y": -2,
                   "width": 1234.5678, "height": 4, "crop_x": 5, "crop_y": 6, "crop_width": 7, "crop_height": 8,
                   "opacity": 0.5, "on_top": true, "locked": true}})";

Model::ImageItem plan()
{
    Model::ImageItem item;
    item.uid = uid;
    item.partUid = partUid;
    item.name = "План";
    item.x = 1.5;
    item.y = -2;
    item.width = 1234.5678;
    item.height = 4;
    item.cropX = 5;
    item.cropY = 6;
    item.cropWidth = 7;
    item.cropHeight = 8;
    item.opacity = 0.5;
    item.onTop = true;
    item.locked = true;
    return item;
}

Model::ImageItem withAttributes(const QByteArray &attributes)
{
    return JsonAPI::ImageItem::fromVariant(JsonTexts::entity("{\"attributes\": " + attributes + "}"));
}

QString written(const QTemporaryDir &folder, const QString &name, const QByteArray &bytes)
{
    const auto path = folder.filePath(name);
    QFile file(path);
    const bool done = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    return done ? path : QString();
}

bool isFailure(const Image &image)
{
    return image.data.isNull() && image.format.isEmpty();
}

} // namespace

class ImageItemTest : public TestBase
{
    Q_OBJECT

private slots:
    void newItemIsOpaque();
    void writesEveryField();
    void readsEveryField();
    void pictureIsNotWritten();
    void absentKeysLeaveTheDefaults();
    void numberThatIsNoneLeavesTheDefault_data();
    void numberThatIsNoneLeavesTheDefault();
    void readsFlags_data();
    void readsFlags();
    void fileIsReadAsItIs_data();
    void fileIsReadAsItIs();
    void emptyFileIsNoFailure();
    void whatIsNoFileFails_data();
    void whatIsNoFileFails();
    void unreadableFileFails();
    void enormousFileFails();
    void comparesByAllFields();
};

void ImageItemTest::newItemIsOpaque()
{
    const Model::ImageItem item;

    QCOMPARE(item.opacity, 1.0);
    QCOMPARE(item.width, 0.0);
    QCOMPARE(item.height, 0.0);
    QCOMPARE(item.onTop, false);
    QCOMPARE(item.locked, false);
    QVERIFY(!item.image);
    QVERIFY(isFailure(Image()));
}

void ImageItemTest::writesEveryField()
{
    QCOMPARE(JsonTexts::written(JsonAPI::ImageItem::toVariant(plan())), JsonTexts::compact(document));
}

void ImageItemTest::readsEveryField()
{
    QVERIFY(JsonAPI::ImageItem::fromVariant(JsonTexts::entity(document)) == plan());
}

void ImageItemTest::pictureIsNotWritten()
{
    auto item = plan();
    item.image = Image("bytes", "png");

    QCOMPARE(JsonTexts::written(JsonAPI::ImageItem::toVariant(item)), JsonTexts::compact(document));
    QVERIFY(!withAttributes(R"({"image": "bytes", "format": "png"})").image);
}

void ImageItemTest::absentKeysLeaveTheDefaults()
{
    QVERIFY(withAttributes("{}") == Model::ImageItem());
    QVERIFY(JsonAPI::ImageItem::fromVariant(JsonAPI::Entity()) == Model::ImageItem());
}

void ImageItemTest::numberThatIsNoneLeavesTheDefault_data()
{
    QTest::addColumn<QByteArray>("number");

    for (const auto &number : oddNumbers)
        QTest::newRow(number.first) << number.second;
}

void ImageItemTest::numberThatIsNoneLeavesTheDefault()
{
    QFETCH(QByteArray, number);
    const QByteArray attributes = R"({"x": %, "y": %, "width": %, "height": %, "crop_x": %, "crop_y": %,
                                      "crop_width": %, "crop_height": %, "opacity": %})";

    QVERIFY(withAttributes(QByteArray(attributes).replace("%", number)) == Model::ImageItem());
}

void ImageItemTest::readsFlags_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<bool>("flag");

    QTest::newRow("true") << QByteArray("true") << true;
    QTest::newRow("one") << QByteArray("1") << true;
    QTest::newRow("text") << QByteArray("\"true\"") << true;
    QTest::newRow("false") << QByteArray("false") << false;
    QTest::newRow("null") << QByteArray("null") << false;
    QTest::newRow("list") << QByteArray("[true]") << false;
}

void ImageItemTest::readsFlags()
{
    QFETCH(QByteArray, value);

    QTEST(withAttributes("{\"on_top\": " + value + "}").onTop, "flag");
    QTEST(withAttributes("{\"locked\": " + value + "}").locked, "flag");
}

void ImageItemTest::fileIsReadAsItIs_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("format");

    QTest::newRow("usual") << "plan.png"
                           << "png";
    QTest::newRow("upper case") << "PLAN.PNG"
                                << "PNG";
    QTest::newRow("two dots") << "plan.old.svg"
                              << "svg";
    QTest::newRow("Cyrillic") << "план этажа.jpg"
                              << "jpg";
    QTest::newRow("no suffix") << "plan"
                               << "";
}

void ImageItemTest::fileIsReadAsItIs()
{
    QFETCH(QString, name);
    QFETCH(QString, format);
    const QTemporaryDir folder;
    const QByteArray bytes("\x89PNG\r\n\x1a\n\0\xff", 10); // line ends and zero bytes too

    const auto image = Image::fromFile(written(folder, name, bytes));

    QCOMPARE(image.format, format);
    QCOMPARE(image.data, bytes);
}

void ImageItemTest::emptyFileIsNoFailure()
{
    const QTemporaryDir folder;

    const auto image = Image::fromFile(written(folder, "empty.png", {}));

    QCOMPARE(image.format, QString("png"));
    QVERIFY(image.data.isEmpty());
    QVERIFY(!image.data.isNull());
}

void ImageItemTest::whatIsNoFileFails_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("nothing") << "";
    QTest::newRow("null") << QString();
    QTest::newRow("missing") << "/nonexistent/plan.png";
    QTest::newRow("folder") << QDir::tempPath();
    QTest::newRow("endless device") << "/dev/zero";
    QTest::newRow("empty device") << "/dev/null";
    QTest::newRow("address") << "file:///etc/hostname";
}

void ImageItemTest::whatIsNoFileFails()
{
    QFETCH(QString, path);

    QVERIFY(isFailure(Image::fromFile(path)));
}

void ImageItemTest::unreadableFileFails()
{
    const QTemporaryDir folder;
    const auto pipe = folder.filePath("pipe.png"); // whoever opened it would wait for a writer
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const auto link = folder.filePath("link.png");
    QVERIFY(QFile::link(folder.filePath("gone.png"), link));

    QVERIFY(isFailure(Image::fromFile(pipe)));
    QVERIFY(isFailure(Image::fromFile(link)));
}

void ImageItemTest::enormousFileFails()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("huge.png"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(256LL * 1024 * 1024 + 1)); // takes no room: it has no blocks
    file.close();

    QVERIFY(isFailure(Image::fromFile(file.fileName())));
}

void ImageItemTest::comparesByAllFields()
{
    using Item = Model::ImageItem;
    const auto differs = [](const std::function<void(Item &)> &change) {
        auto other = plan();
        change(other);
        return !(other == plan());
    };

    QVERIFY(plan() == plan());
    QVERIFY(differs([](Item &other) { other.uid = partUid; }));
    QVERIFY(differs([](Item &other) { other.partUid = uid; }));
    QVERIFY(differs([](Item &other) { other.name.clear(); }));
    for (const auto number : {&Item::x, &Item::y, &Item::width, &Item::height, &Item::cropX, &Item::cropY,
                              &Item::cropWidth, &Item::cropHeight, &Item::opacity})
        QVERIFY(differs([number](Item &other) { other.*number += 1; }));
    QVERIFY(differs([](Item &other) { other.onTop = false; }));
    QVERIFY(differs([](Item &other) { other.locked = false; }));
    QVERIFY(differs([](Item &other) { other.image = Image(); }));
    QVERIFY(Image("a", "png") == Image("a", "png"));
    QVERIFY(!(Image("a", "png") == Image("b", "png")));
    QVERIFY(!(Image("a", "png") == Image("a", "jpg")));
}

ONDIRA_TEST(ImageItemTest)
#include "ImageItemTest.moc"
