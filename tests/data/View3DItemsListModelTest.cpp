// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/View3DItemsListModel.h"
#include "ListMirror.h"
#include "Records.h"
#include "ScriptTools.h"
#include "SignalLog.h"
#include "data/UsersListModel.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QJSEngine>
#include <QTemporaryDir>
#include <QUrl>
#include <QVector3D>
#include <QtNumeric>
#include <utility>

using namespace Records;
using Role = View3DItemsListModel::Role;

namespace {

// Notes every mesh that is asked for, with its callbacks.
class MeshLink : public FakeCommunicator
{
public:
    void getView3DItem(const QUuid &uid, const View3DItemCallback &done, const Done &failed) override
    {
        asked.push_back({uid, done, failed});
    }

    struct Asked
    {
        QUuid uid;
        View3DItemCallback done;
        Done failed;
    };
    std::vector<Asked> asked;
};

Model::View3DItem item(uint n, uint part = 3)
{
    Model::View3DItem record;
    record.uid = uid(n);
    record.partUid = uid(part);
    return record;
}

Model::View3DItem withMesh(uint n, const QByteArray &mesh)
{
    auto record = item(n);
    record.modelData = mesh;
    return record;
}

QString nameOf(const QByteArray &mesh)
{
    return QString::fromLatin1(QCryptographicHash::hash(mesh, QCryptographicHash::Sha1).toHex());
}

// The model's folder lies in one of the test's own.
struct Site
{
    explicit Site(const QString &place = QString())
        : before(qgetenv("TMPDIR"))
    {
        qputenv("TMPDIR", QFile::encodeName(place.isEmpty() ? root.path() : place));
        model = std::make_unique<View3DItemsListModel>(link, users);
    }
    ~Site()
    {
        if (before.isEmpty())
            qunsetenv("TMPDIR");
        else
            qputenv("TMPDIR", before);
    }

    QStringList folders() const { return QDir(root.path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot); }
    QStringList files() const
    {
        return QDir(root.filePath(folders().value(0))).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    bool isReady(int row) const { return value(*model, row, Role::Ready).toBool(); }
    QByteArray meshOf(int row) const
    {
        QFile file(value(*model, row, Role::ModelUri).toUrl().toLocalFile());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }

    QTemporaryDir root;
    QByteArray before;
    MeshLink link;
    UsersListModel users{link};
    std::unique_ptr<View3DItemsListModel> model;
    QJSEngine engine;
};

} // namespace

class View3DItemsListModelTest : public TestBase
{
    Q_OBJECT

private slots:
    void namesItsRoles()
    {
        Site site;
        const QHash<int, QByteArray> expected{
            {257, "uid"},     {258, "partUid"},   {259, "name"},      {260, "x"},         {261, "y"},
            {262, "z"},       {263, "position"},  {264, "scaleX"},    {265, "scaleY"},    {266, "scaleZ"},
            {267, "scale"},   {268, "rotationX"}, {269, "rotationY"}, {270, "rotationZ"}, {271, "rotation"},
            {272, "opacity"}, {273, "locked"},    {274, "modelUri"},  {275, "ready"}};

        QCOMPARE(site.model->roleNames(), expected);
    }

    void presentsAnItemWithoutItsMesh()
    {
        Site site;
        auto record = item(7);
        record.name = "../../lamp\0.mesh";
        record.x = 1;
        record.y = 2;
        record.z = 3;
        record.scaleX = 4;
        record.scaleY = 5;
        record.scaleZ = 6;
        record.rotationX = 7;
        record.rotationY = 8;
        record.rotationZ = 9;
        record.opacity = 0.5;
        record.locked = true;

        site.link.publishView3DItems({record});

        QCOMPARE(site.model->getByUid(text(7)),
                 (QVariantMap{{"uid", text(7)},
                              {"partUid", text(3)},
                              {"name", record.name},
                              {"x", 1.0},
                              {"y", 2.0},
                              {"z", 3.0},
                              {"position", QVector3D(1, 2, 3)},
                              {"scaleX", 4.0},
                              {"scaleY", 5.0},
                              {"scaleZ", 6.0},
                              {"scale", QVector3D(4, 5, 6)},
                              {"rotationX", 7.0},
                              {"rotationY", 8.0},
                              {"rotationZ", 9.0},
                              {"rotation", QVector3D(7, 8, 9)},
                              {"opacity", 0.5},
                              {"locked", true},
                              {"modelUri", QUrl()},
                              {"ready", false}}));
        QVERIFY(!value(*site.model, 1, Role::Uid).isValid());
    }

    void followsRandomPublications()
    {
        allowMessages("topLeft.isValid|bottomRight.isValid"); // a list that becomes empty is announced all the same
        Site site;
        followRandomPublications(*site.model, site.link, [&](const std::vector<Placed> &list) {
            std::vector<Model::View3DItem> items;
            for (const auto &one : list)
                items.push_back(item(one.uid, one.part));
            site.link.publishView3DItems(items);
        });
        QVERIFY(site.link.asked.size() <= 12 && !site.link.asked.empty());
    }

    void storesAMeshByItsContent()
    {
        Site site;
        site.link.publishView3DItems({item(1), item(2)});
        QCOMPARE(site.link.asked.size(), std::size_t(2));
        QAbstractItemModelTester tester(site.model.get(), QAbstractItemModelTester::FailureReportingMode::Warning);
        SignalLog log(*site.model);
        auto answer = withMesh(2, "mesh");
        answer.name = QString::fromLatin1("../../escape\0.mesh", 18);

        site.link.asked[1].done(answer);

        QTRY_VERIFY(site.isReady(1));
        QCOMPARE(log.take(), QStringList({"changed 1-1: 274 275"}));
        QVERIFY(!site.isReady(0));
        QCOMPARE(site.meshOf(1), QByteArray("mesh"));
        QCOMPARE(site.files(), QStringList({nameOf("mesh")}));
        QCOMPARE(site.folders().size(), 1);
        QCOMPARE(value(*site.model, 1, Role::Name).toString(), QString());
    }

    void equalMeshesShareOneFile()
    {
        Site site;
        site.link.publishView3DItems({item(1), item(2), item(3)});

        site.link.asked[0].done(withMesh(1, "mesh"));
        site.link.asked[1].done(withMesh(2, "mesh"));
        site.link.asked[2].done(withMesh(3, "other"));

        QTRY_VERIFY(site.isReady(0) && site.isReady(1) && site.isReady(2));
        QCOMPARE(value(*site.model, 0, Role::ModelUri), value(*site.model, 1, Role::ModelUri));
        QStringList expected{nameOf("mesh"), nameOf("other")};
        expected.sort();
        QCOMPARE(site.files(), expected);
    }

    void asksOnceForEachMesh()
    {
        Site site;
        site.link.publishView3DItems({item(1)});
        site.link.publishView3DItems({item(1), item(2)});
        QCOMPARE(site.link.asked.size(), std::size_t(2));

        site.link.asked[0].done(withMesh(1, "mesh"));
        site.link.publishView3DItems({item(1), item(2)}); // before it is written
        QTRY_VERIFY(site.isReady(0));
        site.link.publishView3DItems({item(2), item(1)});

        QCOMPARE(site.link.asked.size(), std::size_t(2));
        QVERIFY(site.isReady(0));
        QCOMPARE(site.meshOf(0), QByteArray("mesh"));
    }

    void aRowThatComesBackOrMovesKeepsItsMesh()
    {
        Site site;
        site.link.publishView3DItems({item(1)});
        site.link.asked[0].done(withMesh(1, "mesh"));
        QTRY_VERIFY(site.isReady(0));

        site.link.publishView3DItems({item(1, 4)});
        QVERIFY(site.isReady(0));
        site.link.publishView3DItems({});
        site.link.publishView3DItems({item(1)});

        QVERIFY(site.isReady(0));
        QCOMPARE(site.link.asked.size(), std::size_t(1));
    }

    void aMeshOfARowThatIsGoneWaitsForIt()
    {
        Site site;
        site.link.publishView3DItems({item(1)});
        site.link.publishView3DItems({});
        SignalLog log(*site.model);

        site.link.asked[0].done(withMesh(1, "mesh"));
        QTRY_COMPARE(site.files(), QStringList({nameOf("mesh")}));
        QTRY_VERIFY(([&] {
            site.link.publishView3DItems({item(1)});
            return site.isReady(0);
        }()));

        QCOMPARE(site.link.asked.size(), std::size_t(1));
    }

    void aMeshThatFailedIsAskedForWithTheNextList()
    {
        Site site;
        site.link.publishView3DItems({item(1)});

        site.link.asked[0].failed();
        QCOMPARE(site.link.asked.size(), std::size_t(1));
        QVERIFY(!site.isReady(0));
        site.link.publishView3DItems({item(1)});
        QCOMPARE(site.link.asked.size(), std::size_t(2));
        site.link.asked[1].done(withMesh(9, "of another"));
        site.link.publishView3DItems({item(1)});
        QCOMPARE(site.link.asked.size(), std::size_t(3));
        site.link.asked[2].done(withMesh(1, "mesh"));

        QTRY_VERIFY(site.isReady(0));
        QCOMPARE(site.meshOf(0), QByteArray("mesh"));
    }

    void anAnswerOfAnEarlierConnectionCountsForNothing()
    {
        Site site;
        site.link.logIn("anna", "user");
        site.link.publishView3DItems({item(1)});

        site.link.enter(FakeCommunicator::Disconnected);
        site.link.logIn("anna", "user");
        site.link.publishView3DItems({item(1)});
        QCOMPARE(site.link.asked.size(), std::size_t(2));
        site.link.asked[0].done(withMesh(1, "of the old server"));
        site.link.asked[0].failed();
        site.link.asked[1].done(withMesh(1, "of the new server"));

        QTRY_VERIFY(site.isReady(0));
        QCOMPARE(site.meshOf(0), QByteArray("of the new server"));
        QCOMPARE(site.files(), QStringList({nameOf("of the new server")}));
    }

    void aNewConnectionFetchesAnewAndAReconnectDoesNot()
    {
        Site site;
        site.link.logIn("anna", "user");
        site.link.publishView3DItems({item(1)});
        site.link.asked[0].done(withMesh(1, "mesh"));
        QTRY_VERIFY(site.isReady(0));

        site.link.enter(FakeCommunicator::Connecting);
        site.link.enter(FakeCommunicator::Connected);
        site.link.publishView3DItems({item(1)});
        QCOMPARE(site.link.asked.size(), std::size_t(1));
        site.link.enter(FakeCommunicator::Disconnected);
        site.link.publishView3DItems({item(1)});
        QCOMPARE(site.link.asked.size(), std::size_t(2));
        QVERIFY(!site.isReady(0));
    }

    void rightsChooseWhatIsFetched()
    {
        Site site;
        site.link.logIn("anna", "user");
        site.link.publishUsers({limitedUser("anna", {uid(4)})});

        site.link.publishView3DItems({item(1, 3), item(2, 4)});
        QCOMPARE(site.link.asked.size(), std::size_t(1));
        QCOMPARE(site.link.asked[0].uid, uid(2));
        site.link.publishUsers({user("anna")});
        QCOMPARE(site.link.asked.size(), std::size_t(2));
        QCOMPARE(site.link.asked[1].uid, uid(1));
    }

    void anItemWithoutUidIsNotAskedFor()
    {
        Site site;

        site.link.publishView3DItems({Model::View3DItem()});

        QCOMPARE(site.model->rowCount(), 1);
        QVERIFY(site.link.asked.empty());
    }

    void meshesOfAnySize()
    {
        Site site;
        site.link.publishView3DItems({item(1), item(2)});
        const QByteArray large(100 * 1024 * 1024, 'm');

        site.link.asked[0].done(withMesh(1, QByteArray()));
        site.link.asked[1].done(withMesh(2, large));

        QTRY_VERIFY_WITH_TIMEOUT(site.isReady(0) && site.isReady(1), 60000);
        QCOMPARE(site.meshOf(0), QByteArray());
        QVERIFY(site.meshOf(1) == large);
    }

    void aFolderThatCannotBeWrittenIsToldOnce()
    {
        Site site;
        site.link.publishView3DItems({item(1), item(2)});
        QVERIFY(QDir(site.root.filePath(site.folders().value(0))).removeRecursively());
        SignalLog log(*site.model);
        expectMessage(QtWarningMsg, "A mesh can't be written into");

        site.link.asked[0].done(withMesh(1, "mesh"));
        site.link.asked[1].done(withMesh(2, "other"));
        QTRY_COMPARE(([&] {
                         log.take();
                         site.link.publishView3DItems({item(1), item(2)});
                         return site.link.asked.size();
                     }()),
                     std::size_t(4));

        QVERIFY(!site.isReady(0) && !site.isReady(1));
        QCOMPARE(log.take(), QStringList({"changed 0-1: all"}));
    }

    void aFolderThatCannotBeMadeIsToldOnce()
    {
        allowMessages("QTemporaryDir");
        Site site("/proc"); // where nobody can make a folder
        site.link.publishView3DItems({item(1)});
        expectMessage(QtWarningMsg, "A mesh can't be written into");

        site.link.asked[0].done(withMesh(1, "mesh"));

        QTRY_COMPARE(([&] {
                         site.link.publishView3DItems({item(1)});
                         return site.link.asked.size();
                     }()),
                     std::size_t(2));
        QVERIFY(!site.isReady(0));
        QVERIFY(!QFile::exists(nameOf("mesh")));
    }

    void theFolderGoesWithTheModel()
    {
        Site site;
        site.link.publishView3DItems({item(1), item(2)});
        QCOMPARE(site.folders().size(), 1);
        site.link.asked[0].done(withMesh(1, QByteArray(1000000, 'm'))); // still being written

        site.model.reset();
        QCOMPARE(site.folders(), QStringList());
        site.link.asked[1].done(withMesh(2, "mesh"));
        site.link.asked[1].failed();
        QCOMPARE(site.folders(), QStringList());
    }

    void addsALocalFile()
    {
        Site site;
        const auto path = site.root.filePath("лампа 1.mesh");
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("me\0sh", 5));
        file.close();
        const auto callback = site.engine.evaluate("(function(uids) { got = uids.join(); })");

        site.model->add(QUrl::fromLocalFile(path).toString(), text(3), callback);
        site.link.uidsCallback({uid(8)});

        Model::View3DItem expected;
        expected.partUid = uid(3);
        expected.name = "лампа 1.mesh";
        expected.modelData = QByteArray("me\0sh", 5);
        QCOMPARE(site.link.operations, QStringList({"addView3DItem"}));
        QCOMPARE(site.link.view3DItems, std::vector<Model::View3DItem>{expected});
        QCOMPARE(site.engine.globalObject().property("got").toString(), text(8));
    }

    void dropsAFileThatCannotBeOpenedOrIsTooLarge()
    {
        Site site;
        QFile large(site.root.filePath("large.mesh"));
        QVERIFY(large.open(QIODevice::WriteOnly));
        QVERIFY(large.resize(256LL * 1024 * 1024 + 1)); // takes no room on the disk
        large.close();

        site.model->add(QUrl::fromLocalFile(large.fileName()).toString(), text(3));
        site.model->add("file:///nowhere/lamp.mesh", text(3));
        site.model->add("file:///usr", text(3));
        site.model->add("file:///dev/zero", text(3));
        site.model->add("http://example.org/lamp.mesh", text(3));
        site.model->add("", text(3));

        QCOMPARE(site.link.operations, QStringList());
    }

    void vectorsWinOverSingleNumbers()
    {
        Site site;
        site.link.publishView3DItems({item(1)});

        site.model->change(text(1),
                           QVariantMap{{"x", 9},
                                       {"position", QVector3D(1, 2, 3)},
                                       {"scaleY", 9},
                                       {"scale", QVector3D(4, 5, 6)},
                                       {"rotation", QVector3D(7, 8, 9)},
                                       {"rotationZ", 99}});

        auto expected = item(1);
        expected.x = 1;
        expected.y = 2;
        expected.z = 3;
        expected.scaleX = 4;
        expected.scaleY = 5;
        expected.scaleZ = 6;
        expected.rotationX = 7;
        expected.rotationY = 8;
        expected.rotationZ = 9;
        QCOMPARE(site.link.operations, QStringList({"changeView3DItem"}));
        QCOMPARE(site.link.view3DItems, std::vector<Model::View3DItem>{expected});
    }

    void changesSingleFieldsFromAScript()
    {
        Site site;
        site.link.publishView3DItems({item(1)});
        expose(site.engine, "items", *site.model);

        const auto result = site.engine.evaluate(
            QString("items.change('%1', {partUid: '%2', name: 'n', x: 1, y: 2, z: 3, scaleX: 4, scaleY: 5, scaleZ: 6, "
                    "rotationX: 7, rotationY: 8, rotationZ: 9, opacity: 0.25, locked: true})")
                .arg(text(1), text(4)));

        QVERIFY2(!result.isError(), qPrintable(result.toString()));
        const auto changed = site.link.view3DItems.at(0);
        QCOMPARE(changed.partUid, uid(4));
        QCOMPARE(changed.name, QString("n"));
        QCOMPARE(QVector3D(changed.x, changed.y, changed.z), QVector3D(1, 2, 3));
        QCOMPARE(QVector3D(changed.scaleX, changed.scaleY, changed.scaleZ), QVector3D(4, 5, 6));
        QCOMPARE(QVector3D(changed.rotationX, changed.rotationY, changed.rotationZ), QVector3D(7, 8, 9));
        QCOMPARE(changed.opacity, 0.25);
        QVERIFY(changed.locked);
    }

    void leavesWhatIsNotFiniteOrNoVector()
    {
        Site site;
        auto record = item(1);
        record.x = 5;
        site.link.publishView3DItems({record});

        site.model->change(text(1),
                           QVariantMap{{"x", qQNaN()},
                                       {"position", QVector3D(1, qQNaN(), 3)},
                                       {"scale", QVector3D(1, 1, qInf())},
                                       {"rotation", "1,2,3"},
                                       {"opacity", qInf()}});

        QCOMPARE(site.link.view3DItems, std::vector<Model::View3DItem>{record});
        site.model->change(text(2), QVariantMap{{"x", 1}});
        QCOMPARE(site.link.operations.size(), 1);
    }

    void removesAndCallsBack()
    {
        Site site;
        const auto callback = site.engine.evaluate("(function() { got = arguments.length; })");

        site.model->remove({text(1), "nonsense", QUuid().toString()}, callback);
        site.link.doneCallback();

        Model::View3DItem expected;
        expected.uid = uid(1);
        QCOMPARE(site.link.view3DItems, std::vector<Model::View3DItem>{expected});
        QVERIFY(site.engine.globalObject().hasProperty("got"));
        QCOMPARE(site.engine.globalObject().property("got").toInt(), 0);
        site.model->remove({});
        QCOMPARE(site.link.operations, QStringList({"removeView3DItems"}));
    }
};

ONDIRA_TEST(View3DItemsListModelTest)
#include "View3DItemsListModelTest.moc"
