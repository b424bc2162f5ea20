// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ImageItemsListModel.h"
#include "ListMirror.h"
#include "Records.h"
#include "ScriptTools.h"
#include "SignalLog.h"
#include "data/UsersListModel.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <QFile>
#include <QJSEngine>
#include <QTemporaryDir>
#include <QUrl>
#include <QtNumeric>

using namespace Records;
using Role = ImageItemsListModel::Role;

namespace {

struct Site
{
    Site()
        : users(link)
        , images(link, users)
    {}

    FakeCommunicator link;
    UsersListModel users;
    ImageItemsListModel images;
    QJSEngine engine;
};

Model::ImageItem picture(uint n, uint part = 3)
{
    Model::ImageItem record;
    record.uid = uid(n);
    record.partUid = uid(part);
    return record;
}

} // namespace

class ImageItemsListModelTest : public TestBase
{
    Q_OBJECT

private slots:
    void namesItsRoles()
    {
        Site site;
        const QHash<int, QByteArray> expected{{257, "uid"},   {258, "partUid"}, {259, "name"},      {260, "x"},
                                              {261, "y"},     {262, "width"},   {263, "height"},    {264, "opacity"},
                                              {265, "cropX"}, {266, "cropY"},   {267, "cropWidth"}, {268, "cropHeight"},
                                              {269, "onTop"}, {270, "locked"}};

        QCOMPARE(site.images.roleNames(), expected);
    }

    void presentsAPicture()
    {
        Site site;
        Model::ImageItem record = picture(7);
        record.name = "plan.png";
        record.x = 1.5;
        record.y = 2;
        record.width = 3;
        record.height = 4;
        record.opacity = 0.5;
        record.cropX = 5;
        record.cropY = 6;
        record.cropWidth = 7;
        record.cropHeight = 8;
        record.onTop = true;
        record.locked = true;

        site.link.publishImageItems({record});

        QCOMPARE(site.images.getByUid(text(7)),
                 (QVariantMap{{"uid", text(7)},
                              {"partUid", text(3)},
                              {"name", "plan.png"},
                              {"x", 1.5},
                              {"y", 2.0},
                              {"width", 3.0},
                              {"height", 4.0},
                              {"opacity", 0.5},
                              {"cropX", 5.0},
                              {"cropY", 6.0},
                              {"cropWidth", 7.0},
                              {"cropHeight", 8.0},
                              {"onTop", true},
                              {"locked", true}}));
        QVERIFY(!value(site.images, 1, Role::Uid).isValid());
        const ImageItemsListModel late(site.link, site.users);
        QCOMPARE(column(late, Role::Name), QStringList({"plan.png"}));
    }

    void followsRandomPublications()
    {
        allowMessages("topLeft.isValid|bottomRight.isValid"); // a list that becomes empty is announced all the same
        Site site;
        followRandomPublications(site.images, site.link, [&](const std::vector<Placed> &list) {
            std::vector<Model::ImageItem> pictures;
            for (const auto &one : list)
                pictures.push_back(picture(one.uid, one.part));
            site.link.publishImageItems(pictures);
        });
    }

    void addsALocalFile()
    {
        Site site;
        const QTemporaryDir folder;
        const auto path = folder.filePath("план 1%20.PNG");
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("bytes");
        file.close();
        const auto callback = site.engine.evaluate("(function(uids) { got = uids.join(); })");

        site.images.add(QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded), text(3), 10.5, -20, callback);
        site.link.uidsCallback({uid(8)});

        Model::ImageItem expected;
        expected.partUid = uid(3);
        expected.name = "план 1%20.PNG";
        expected.x = 10.5;
        expected.y = -20;
        expected.image = Model::ImageItem::Image("bytes", "PNG");
        QCOMPARE(site.link.operations, QStringList({"addImageItem"}));
        QCOMPARE(site.link.imageItems, std::vector<Model::ImageItem>{expected});
        QCOMPARE(site.engine.globalObject().property("got").toString(), text(8));
    }

    void aFileThatCannotBeReadIsSentWithoutData_data()
    {
        QTest::addColumn<QString>("url");
        QTest::addColumn<QString>("name");

        QTest::newRow("missing") << "file:///nowhere/plan.png"
                                 << "plan.png";
        QTest::newRow("no local file") << "http://example.org/plan.png"
                                       << "";
        QTest::newRow("empty") << ""
                               << "";
        QTest::newRow("folder") << "file:///usr"
                                << "usr";
    }

    void aFileThatCannotBeReadIsSentWithoutData()
    {
        QFETCH(QString, url);
        Site site;

        site.images.add(url, text(3), 0, 0);

        QCOMPARE(site.link.operations, QStringList({"addImageItem"}));
        QTEST(site.link.imageItems.at(0).name, "name");
        QVERIFY(site.link.imageItems.at(0).image.has_value());
        QVERIFY(site.link.imageItems.at(0).image->data.isNull());
    }

    void refusesAPlaceThatIsNotFinite()
    {
        Site site;

        site.images.add("file:///nowhere/plan.png", text(3), qQNaN(), 0);
        site.images.add("file:///nowhere/plan.png", text(3), 0, qInf());

        QCOMPARE(site.link.operations, QStringList());
    }

    void changesWhatAScriptNames()
    {
        Site site;
        auto record = picture(1);
        record.name = "old";
        record.locked = true;
        site.link.publishImageItems({record});
        expose(site.engine, "images", site.images);
        SignalLog log(site.images);

        const auto result = site.engine.evaluate(
            QString("images.change('%1', {x: 1, y: 2, width: 3, height: 4, opacity: 0.5, cropX: 5, cropY: 6, "
                    "cropWidth: 7, cropHeight: 8, onTop: true, locked: false, name: 'new', partUid: '%2'})")
                .arg(text(1), text(4)));

        QVERIFY2(!result.isError(), qPrintable(result.toString()));
        auto expected = picture(1, 4);
        expected.name = "new";
        expected.x = 1;
        expected.y = 2;
        expected.width = 3;
        expected.height = 4;
        expected.cropX = 5;
        expected.cropY = 6;
        expected.cropWidth = 7;
        expected.cropHeight = 8;
        expected.opacity = 0.5;
        expected.onTop = true;
        QCOMPARE(site.link.operations, QStringList({"changeImageItem"}));
        QCOMPARE(site.link.imageItems, std::vector<Model::ImageItem>{expected});
        QCOMPARE(log.take(), QStringList());
    }

    void leavesWhatIsNotNamedOrCannotBeRead()
    {
        Site site;
        auto record = picture(1);
        record.name = "plan";
        record.width = 30;
        record.onTop = true;
        site.link.publishImageItems({record});

        site.images.change(text(1), QVariantMap{{"x", qQNaN()}, {"y", "inf"}, {"width", QVariant()}, {"opacity", "a"}});

        QCOMPARE(site.link.imageItems, std::vector<Model::ImageItem>{record});
        site.images.change(text(2), QVariantMap{{"x", 1}});
        site.images.change("", QVariantMap{{"x", 1}});
        QCOMPARE(site.link.operations.size(), 1);
    }

    void removesAndCallsBack()
    {
        Site site;
        const auto callback = site.engine.evaluate("(function() { got = arguments.length; })");

        site.images.remove({text(1), "nonsense", QUuid().toString()}, callback);
        site.link.doneCallback();

        Model::ImageItem expected;
        expected.uid = uid(1);
        QCOMPARE(site.link.imageItems, std::vector<Model::ImageItem>{expected});
        QCOMPARE(site.engine.globalObject().property("got").toInt(), 0);
        QVERIFY(site.engine.globalObject().hasProperty("got"));
        site.images.remove({});
        site.images.remove({"nonsense"});
        QCOMPARE(site.link.operations, QStringList({"removeImageItems"}));
    }
};

ONDIRA_TEST(ImageItemsListModelTest)
#include "ImageItemsListModelTest.moc"
