// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/UserInfo.h"
#include "model/JsonTexts.h"
#include "support/TestBase.h"

namespace {

const QUuid hall("{11111111-1111-1111-1111-111111111111}");
const QUuid kitchen("{22222222-2222-2222-2222-222222222222}");

Model::UserInfo read(const QByteArray &document)
{
    return JsonAPI::UserInfo::fromVariant(JsonTexts::entity(document));
}

} // namespace

class UserInfoTest : public TestBase
{
    Q_OBJECT

private slots:
    void accessFollowsTheWhitelist_data();
    void accessFollowsTheWhitelist();
    void writesEveryField();
    void writesAbsentListsAsNull();
    void writesEmptyListsAsSuch();
    void writesNoPasswordForPublication();
    void readsEveryField();
    void readsWithoutAPassword();
    void readsThePassword_data();
    void readsThePassword();
    void readsTheWhitelist_data();
    void readsTheWhitelist();
    void readsTheAccessList_data();
    void readsTheAccessList();
    void loginIsTheIdWhenItsAttributeIsAbsent();
    void readUserIsWrittenBackWithoutAPassword();
    void comparesByAllFields();
};

void UserInfoTest::accessFollowsTheWhitelist_data()
{
    QTest::addColumn<QByteArray>("whitelist");
    QTest::addColumn<bool>("toHall");
    QTest::addColumn<bool>("toKitchen");

    QTest::newRow("none opens all") << QByteArray("null") << true << true;
    QTest::newRow("empty closes all") << QByteArray("[]") << false << false;
    QTest::newRow("one") << QByteArray("[\"{11111111-1111-1111-1111-111111111111}\"]") << true << false;
}

void UserInfoTest::accessFollowsTheWhitelist()
{
    QFETCH(QByteArray, whitelist);

    const auto user = read("{\"attributes\": {\"zones_whitelist\": " + whitelist + "}}");

    QTEST(user.hasAccess(hall), "toHall");
    QTEST(user.hasAccess(kitchen), "toKitchen");
    QTEST(user.hasAccess(QUuid()), user.zonesWhitelist ? "toKitchen" : "toHall");
}

void UserInfoTest::writesEveryField()
{
    Model::UserInfo user;
    user.login = "guard";
    user.password = QByteArray("se\xFFret");
    user.group = "user";
    user.zonesWhitelist = QSet<QUuid>{kitchen, hall};
    user.accessList = QSet<QString>{"statistics", "schedules"};

    QCOMPARE(JsonTexts::written(JsonAPI::UserInfo::toVariant(user)), JsonTexts::compact(R"({
        "type": "user", "id": "guard", "attributes": {
            "login": "guard", "password": "c2X/cmV0", "group": "user",
            "zones_whitelist": ["{11111111-1111-1111-1111-111111111111}", "{22222222-2222-2222-2222-222222222222}"],
            "access_list": ["schedules", "statistics"]}})"));
}

void UserInfoTest::writesAbsentListsAsNull()
{
    Model::UserInfo user;
    user.login = "admin";
    user.group = "admin";

    const auto expected = JsonTexts::compact(R"({
        "type": "user", "id": "admin", "attributes": {
            "login": "admin", "group": "admin", "zones_whitelist": null, "access_list": null}})");

    QCOMPARE(JsonTexts::written(JsonAPI::UserInfo::toVariant(user)), expected);
    QCOMPARE(JsonTexts::written(JsonAPI::UserInfo::toVariantNoPassword(user)), expected);
    const auto entity = JsonAPI::UserInfo::toEntityNoPassword(user);
    QVERIFY(entity.attributes.contains("zones_whitelist"));
    QVERIFY(!entity.attributes.value("zones_whitelist").isValid());
    QVERIFY(!entity.attributes.value("access_list").isValid());
}

void UserInfoTest::writesEmptyListsAsSuch()
{
    Model::UserInfo user;
    user.zonesWhitelist = QSet<QUuid>();
    user.accessList = QSet<QString>();

    QCOMPARE(JsonTexts::written(JsonAPI::UserInfo::toVariant(user)), JsonTexts::compact(R"({
        "type": "user", "id": "", "attributes": {
            "login": "", "group": "", "zones_whitelist": [], "access_list": []}})"));
}

void UserInfoTest::writesNoPasswordForPublication()
{
    Model::UserInfo user;
    user.login = "guard";
    user.password = QByteArray("secret");

    QVERIFY(!JsonAPI::UserInfo::toEntityNoPassword(user).attributes.contains("password"));
    QVERIFY(!JsonTexts::written(JsonAPI::UserInfo::toVariantNoPassword(user)).contains("password"));
    QCOMPARE(JsonAPI::UserInfo::toEntityNoPassword(user).type, QString("user"));
    QCOMPARE(JsonAPI::UserInfo::toEntityNoPassword(user).id, QString("guard"));
}

void UserInfoTest::readsEveryField()
{
    const auto user = read(R"({
        "type": "user", "id": "id", "attributes": {
            "login": "guard", "password": "c2X/cmV0", "group": "night shift",
            "zones_whitelist": ["{22222222-2222-2222-2222-222222222222}", "{11111111-1111-1111-1111-111111111111}"],
            "access_list": ["statistics"], "extra": 1}})");

    QCOMPARE(user.login, QString("guard"));
    QVERIFY(user.password);
    QCOMPARE(*user.password, QByteArray("se\xFFret"));
    QCOMPARE(user.group, QString("night shift"));
    QVERIFY(user.zonesWhitelist);
    QCOMPARE(*user.zonesWhitelist, (QSet<QUuid>{hall, kitchen}));
    QVERIFY(user.accessList);
    QCOMPARE(*user.accessList, (QSet<QString>{"statistics"}));
}

void UserInfoTest::readsWithoutAPassword()
{
    const auto user = read(R"({"attributes": {"login": "guard"}})");

    QVERIFY(!user.password);
    QVERIFY(!user.zonesWhitelist);
    QVERIFY(!user.accessList);
    QCOMPARE(user.group, QString());
}

void UserInfoTest::readsThePassword_data()
{
    QTest::addColumn<QByteArray>("password");
    QTest::addColumn<bool>("given");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("text") << QByteArray("\"c2VjcmV0\"") << true << QByteArray("secret");
    QTest::newRow("empty") << QByteArray("\"\"") << true << QByteArray();
    QTest::newRow("null is none") << QByteArray("null") << false << QByteArray();
    QTest::newRow("no Base64") << QByteArray("\"!!!\"") << true << QByteArray();
    QTest::newRow("list") << QByteArray("[1]") << true << QByteArray();
}

void UserInfoTest::readsThePassword()
{
    QFETCH(QByteArray, password);
    QFETCH(bool, given);

    const auto user = read("{\"attributes\": {\"password\": " + password + "}}");

    QCOMPARE(bool(user.password), given);
    QTEST(user.password.value_or(QByteArray()), "expected");
}

void UserInfoTest::readsTheWhitelist_data()
{
    QTest::addColumn<QByteArray>("whitelist");
    QTest::addColumn<bool>("given");
    QTest::addColumn<int>("size");

    QTest::newRow("null") << QByteArray("null") << false << 0;
    QTest::newRow("empty") << QByteArray("[]") << true << 0;
    QTest::newRow("twice the same") << QByteArray("[\"{11111111-1111-1111-1111-111111111111}\", "
                                                  "\"11111111-1111-1111-1111-111111111111\"]")
                                    << true << 1;
    QTest::newRow("no uids") << QByteArray("[\"hall\", 5, null, {}, \"\"]") << true << 0;
    QTest::newRow("text") << QByteArray("\"{11111111-1111-1111-1111-111111111111}\"") << true << 0;
    QTest::newRow("empty text") << QByteArray("\"\"") << true << 0;
    QTest::newRow("false") << QByteArray("false") << true << 0;
    QTest::newRow("map") << QByteArray("{}") << true << 0;
}

void UserInfoTest::readsTheWhitelist()
{
    QFETCH(QByteArray, whitelist);
    QFETCH(bool, given);

    const auto user = read("{\"attributes\": {\"zones_whitelist\": " + whitelist + "}}");

    QCOMPARE(bool(user.zonesWhitelist), given);
    QTEST(user.zonesWhitelist.value_or(QSet<QUuid>()).size(), "size");
}

void UserInfoTest::readsTheAccessList_data()
{
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<bool>("given");
    QTest::addColumn<int>("size");

    QTest::newRow("null") << QByteArray("null") << false << 0;
    QTest::newRow("empty") << QByteArray("[]") << true << 0;
    QTest::newRow("texts") << QByteArray("[\"a\", \"b\", \"a\"]") << true << 2;
    QTest::newRow("map") << QByteArray("{\"a\": 1}") << true << 0;
}

void UserInfoTest::readsTheAccessList()
{
    QFETCH(QByteArray, list);
    QFETCH(bool, given);

    const auto user = read("{\"attributes\": {\"access_list\": " + list + "}}");

    QCOMPARE(bool(user.accessList), given);
    QTEST(user.accessList.value_or(QSet<QString>()).size(), "size");
}

void UserInfoTest::loginIsTheIdWhenItsAttributeIsAbsent()
{
    QCOMPARE(read(R"({"type": "user", "id": "guard"})").login, QString("guard"));
    QCOMPARE(read(R"({"id": "guard", "attributes": {"login": ""}})").login, QString());
}

void UserInfoTest::readUserIsWrittenBackWithoutAPassword()
{
    const auto user = read(R"({"type": "user", "id": "guard", "attributes": {"login": "guard", "group": "user"}})");

    QVERIFY(!JsonTexts::written(JsonAPI::UserInfo::toVariant(user)).contains("password"));
}

void UserInfoTest::comparesByAllFields()
{
    const Model::UserInfo user{"guard", boost::none, "user", boost::none, boost::none};

    QVERIFY((user == Model::UserInfo{"guard", boost::none, "user", boost::none, boost::none}));
    QVERIFY((user != Model::UserInfo{"Guard", boost::none, "user", boost::none, boost::none}));
    QVERIFY((user != Model::UserInfo{"guard", QByteArray(), "user", boost::none, boost::none}));
    QVERIFY((user != Model::UserInfo{"guard", boost::none, "admin", boost::none, boost::none}));
    QVERIFY((user != Model::UserInfo{"guard", boost::none, "user", QSet<QUuid>(), boost::none}));
    QVERIFY((user != Model::UserInfo{"guard", boost::none, "user", boost::none, QSet<QString>()}));
}

ONDIRA_TEST(UserInfoTest)
#include "UserInfoTest.moc"
