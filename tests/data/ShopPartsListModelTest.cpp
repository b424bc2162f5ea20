// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ShopPartsListModel.h"
#include "MirrorList.h"
#include "Records.h"
#include "ScriptTools.h"
#include "SignalLog.h"
#include "data/UsersListModel.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <QAbstractItemModelTester>
#include <QJSEngine>
#include <QRandomGenerator>
#include <algorithm>

using namespace Records;
using Role = ShopPartsListModel::Role;

namespace {

struct Site
{
    Site()
        : users(link)
        , parts(link, users)
    {}

    FakeCommunicator link;
    UsersListModel users;
    ShopPartsListModel parts;
};

} // namespace

class ShopPartsListModelTest : public TestBase
{
    Q_OBJECT

private slots:
    void presentsAPart()
    {
        Site site;

        site.link.publishShopParts({part(1, "Floor")});

        QCOMPARE(site.parts.roleNames(), (QHash<int, QByteArray>{{257, "uid"}, {258, "name"}, {259, "sort"}}));
        QCOMPARE(site.parts.getByUid(text(1)), (QVariantMap{{"uid", text(1)}, {"name", "Floor"}, {"sort", "Floor"}}));
        QVERIFY(!value(site.parts, 0, 260).isValid());
        QVERIFY(!site.parts.data(QModelIndex(), Role::Name).isValid());
    }

    void mergesAFreshList()
    {
        Site site;
        site.link.publishShopParts({part(1, "a"), part(2, "b"), part(3, "c")});
        QAbstractItemModelTester tester(&site.parts, QAbstractItemModelTester::FailureReportingMode::Warning);
        SignalLog log(site.parts);

        site.link.publishShopParts({part(4, "d"), part(3, "C"), part(1, "A")});

        QCOMPARE(log.take(),
                 QStringList({"removing 1-1", "removed 1-1", "changed 0-1: all", "inserting 2-2", "inserted 2-2"}));
        QCOMPARE(column(site.parts, Role::Name), QStringList({"A", "C", "d"}));
    }

    void showsWhatTheUserMaySee()
    {
        Site site;
        site.link.logIn("anna", "user");
        site.link.publishShopParts({part(1, "a"), part(2, "b")});
        QCOMPARE(site.parts.rowCount(), 2);

        site.link.publishUsers({limitedUser("anna", {uid(2)}), user("boris")});
        QCOMPARE(column(site.parts, Role::Name), QStringList({"b"}));
        site.link.publishShopParts({part(1, "a"), part(2, "B"), part(3, "c")});
        QCOMPARE(column(site.parts, Role::Name), QStringList({"B"}));
        site.link.publishUsers({user("anna")});
        QCOMPARE(column(site.parts, Role::Name), QStringList({"B", "a", "c"}));
    }

    void everyChangeIsAnnounced()
    {
        Site site;
        QRandomGenerator random(5);
        site.link.logIn("anna", "user");
        site.link.publishShopParts({part(1, "a")});
        QStringList published{text(1)};
        QSet<QUuid> allowed;
        bool limited = false;
        QAbstractItemModelTester tester(&site.parts, QAbstractItemModelTester::FailureReportingMode::Warning);
        const MirrorList mirror(site.parts);

        for (int turn = 0; turn < 300; ++turn) {
            const bool newRights = random.bounded(3) == 0;
            std::vector<Model::ShopPart> parts;
            if (newRights) {
                limited = random.bounded(2) == 1;
                allowed = {uid(1), uid(uint(random.bounded(12))), uid(uint(random.bounded(12)))};
            } else {
                for (uint n = 1; n <= 12; ++n) {
                    if (n == 1 || random.bounded(2) == 1)
                        parts.push_back(part(n, QString::number(random.bounded(9))));
                }
                std::shuffle(parts.begin(), parts.end(), random);
                published.clear();
                for (const auto &record : parts)
                    published << record.uid.toString();
            }
            QStringList visible;
            for (const auto &uid : qAsConst(published)) {
                if (!limited || allowed.contains(QUuid(uid)))
                    visible << uid;
            }
            const auto expected = MirrorList::merged(column(site.parts, Role::Uid), visible);

            if (newRights)
                site.link.publishUsers({limited ? limitedUser("anna", allowed) : user("anna")});
            else
                site.link.publishShopParts(parts);

            QCOMPARE(column(site.parts, Role::Uid), expected);
            QCOMPARE(mirror.difference(), QString());
        }
    }

    void aModelMadeLateReadsWhatWasPublished()
    {
        Site site;
        site.link.publishShopParts({part(1, "a")});

        const ShopPartsListModel late(site.link, site.users);

        QCOMPARE(late.rowCount(), 1);
    }

    void aClosedLinkEmptiesIt()
    {
        Site site;
        site.link.logIn("anna", "user");
        site.link.publishShopParts({part(1, "a")});

        site.link.enter(FakeCommunicator::Disconnected);

        QCOMPARE(site.parts.rowCount(), 0);
    }

    void addsADefaultPart()
    {
        Site site;
        QJSEngine engine;

        site.parts.addShopPart(engine.evaluate("(function(uids) { got = uids; })"));
        site.link.uidsCallback({uid(5)});

        QCOMPARE(site.link.operations, QStringList({"addShopParts"}));
        QVERIFY(site.link.shopParts == std::vector<Model::ShopPart>{Model::ShopPart()});
        QCOMPARE(engine.evaluate("got.length + got[0]").toString(), "1" + text(5));
    }

    void scriptsMayPassAValueBeforeTheCallback()
    {
        Site site;
        QJSEngine engine;
        expose(engine, "parts", site.parts);

        engine.evaluate("parts.addShopPart({}, function(uids) { got = uids[0]; })");
        site.link.uidsCallback({uid(5)});
        QCOMPARE(engine.globalObject().property("got").toString(), text(5));
        engine.evaluate("parts.addShopPart(function(uids) { got = uids[0]; })");
        site.link.uidsCallback({uid(6)});
        QCOMPARE(engine.globalObject().property("got").toString(), text(6));
        engine.evaluate("parts.addShopPart()");
        site.link.uidsCallback({uid(7)});

        QCOMPARE(engine.globalObject().property("got").toString(), text(6));
        QCOMPARE(site.link.operations, QStringList({"addShopParts", "addShopParts", "addShopParts"}));
    }

    void changesNameOfACopy()
    {
        Site site;
        site.link.publishShopParts({part(1, "a"), part(2, "b")});

        site.parts.changeShopPartName(text(2), "new");
        site.parts.changeShopPartName(text(3), "new");
        site.parts.changeShopPartName("no uid", "new");

        QCOMPARE(site.link.operations, QStringList({"changeShopParts"}));
        QVERIFY(site.link.shopParts == std::vector<Model::ShopPart>{part(2, "new")});
        QCOMPARE(column(site.parts, Role::Name), QStringList({"a", "b"}));
    }

    void removesByUids()
    {
        Site site;

        site.parts.removeShopParts({});
        site.parts.removeShopParts({"no uid"});
        QCOMPARE(site.link.operations, QStringList());
        site.parts.removeShopParts({text(1), text(2)});

        QCOMPARE(site.link.operations, QStringList({"removeShopParts"}));
        QCOMPARE(site.link.shopParts.size(), std::size_t(2));
        QCOMPARE(site.link.shopParts[1].uid, uid(2));
    }
};

ONDIRA_TEST(ShopPartsListModelTest)
#include "ShopPartsListModelTest.moc"
