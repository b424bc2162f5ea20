// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/ProgramFixture.h"
#include "link/JsonBackendCommunicator.h"
#include "schedules/ScheduleDaysListModel.h"

#include <QDir>
#include <QImage>
#include <QStandardPaths>
#include <algorithm>

// A day of an administrator who builds a new part of the site, from its name to the devices in its zone, and takes it
// down again. Each step goes on from the one before.
class AdministratorDayTest : public ProgramFixture
{
    Q_OBJECT

public:
    AdministratorDayTest()
        : ProgramFixture(QStringLiteral("127.0.6.4"))
    {}

private:
    QString uidInPart(const char *model) const; // of the first record in the new part, or ""
    QRectF place(const char *model, const QString &uid) const;
    QStringList devices() const; // uids of those of the new zone
    QList<int> addresses() const; // theirs, in order
    bool select(const QString &uid);
    bool edit(const QString &uid); // selects that tile and opens its editor
    bool save(); // the dialog that is open
    bool setChiefGroup(const QString &group);

private slots:
    void initTestCase();
    void partIsAddedAndShown();
    void partIsRenamed();
    void zoneIsAddedWhereThePlanWasClicked();
    void zoneIsRenamed();
    void zoneIsMovedByTheGrid();
    void zoneIsResizedByItsHandles();
    void buttonIsAddedAndEdited();
    void indicatorIsAddedAndEdited();
    void pictureIsAddedAndLocked();
    void devicesAreAddedByRange();
    void deviceIsEdited();
    void deviceIsRemoved();
    void scheduleIsSetForTwoZones();
    void refusedChangeLeavesThePlanAsTheServerHasIt();
    void zoneIsRemovedAfterTheQuestion();
    void removedPartGivesWayToTheFirst();
    void cleanupTestCase();

private:
    JsonBackendCommunicator m_other; // another administrator
    QString m_part;
    QString m_zone;
};

QString AdministratorDayTest::uidInPart(const char *model) const
{
    const auto all = uids(model);
    const auto found = std::find_if(all.begin(), all.end(), [&](const QString &uid) {
        return record(model, uid).value("partUid").toString() == m_part;
    });
    return found == all.end() ? QString() : *found;
}

QRectF AdministratorDayTest::place(const char *model, const QString &uid) const
{
    const auto values = record(model, uid);
    return {values.value("x").toReal(), values.value("y").toReal(), values.value("width").toReal(),
            values.value("height").toReal()};
}

QStringList AdministratorDayTest::devices() const
{
    auto all = uids("devicesListModel");
    const auto isElsewhere = [&](const QString &uid) {
        return record("devicesListModel", uid).value("zoneUid").toString() != m_zone;
    };
    all.erase(std::remove_if(all.begin(), all.end(), isElsewhere), all.end());
    return all;
}

QList<int> AdministratorDayTest::addresses() const
{
    QList<int> numbers;
    const auto all = devices();
    for (const auto &uid : all)
        numbers << record("devicesListModel", uid).value("address").toInt();
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

bool AdministratorDayTest::select(const QString &uid)
{
    return pressTile(uid) && m_driver->waitFor([&] { return tile(uid)->property("selected").toBool(); }, 5000);
}

bool AdministratorDayTest::edit(const QString &uid)
{
    return select(uid) && press("editRow");
}

bool AdministratorDayTest::save()
{
    return press("positiveButton") && m_driver->waitFor([this] { return !find("positiveButton"); }, 10000);
}

// The rights of who uses the program, changed by another administrator.
bool AdministratorDayTest::setChiefGroup(const QString &group)
{
    bool done = false;
    Model::UserInfo chief;
    chief.login = QStringLiteral("chief");
    chief.password = QByteArray("chief");
    chief.group = group;
    const auto told = [&done] { done = true; };
    if (group == QLatin1String("admin") && !m_manager)
        m_other.addUsers({chief}, told);
    else
        m_other.changeUsers({chief}, told);
    return QTest::qWaitFor([&done] { return done; }, 10000);
}

void AdministratorDayTest::initTestCase()
{
    QVERIFY(m_site.start({QStringLiteral("--tick"), QStringLiteral("0")}));
    QVERIFY(m_other.init(m_site.address(), QStringLiteral("admin"), QStringLiteral("admin"), m_other.getControlPort(),
                         m_other.getUpdatePort()));
    QTRY_COMPARE_WITH_TIMEOUT(m_other.getStatus(), Link::Connected, 20000);
    QVERIFY(setChiefGroup("admin"));
    QVERIFY(
        saveConnection(QStringLiteral("Объект"), m_site.address(), QStringLiteral("chief"), QStringLiteral("chief")));
    QVERIFY(startProgram(1280, 800));
    QVERIFY(m_driver->waitForPlan(4));
    QTRY_VERIFY(isConnectedAs("admin"));
}

void AdministratorDayTest::partIsAddedAndShown()
{
    QVERIFY(press("editModeAction"));
    QTRY_VERIFY(find("editModeRow"));
    const auto before = uids("shopPartsListModel");

    QVERIFY(press("addButton"));
    QTRY_COMPARE(uids("shopPartsListModel").size(), before.size() + 1);
    const auto after = uids("shopPartsListModel");
    m_part = *std::find_if(after.begin(), after.end(), [&](const QString &uid) { return !before.contains(uid); });
    const auto name = record("shopPartsListModel", m_part).value("name").toString();

    QVERIFY(pressRow("objectRow", name));
    QTRY_COMPARE(shownPart(), m_part);
    QTRY_VERIFY(withText("partTab", name)->property("checked").toBool());
    QTRY_VERIFY(m_driver->zoneTiles().empty());
    QVERIFY(!find("emptyPart")); // who edits sees the empty plan itself
}

void AdministratorDayTest::partIsRenamed()
{
    const auto name = record("shopPartsListModel", m_part).value("name").toString();
    QVERIFY(pressRow("objectRow", name, "rowMenuButton"));
    QVERIFY(pressInPopup("objectMenu", "renameObject"));
    QTRY_COMPARE(textOf("nameField"), name);
    QVERIFY(write("nameField", "Терраса"));
    QVERIFY(save());

    QTRY_COMPARE(record("shopPartsListModel", m_part).value("name").toString(), QStringLiteral("Терраса"));
    QTRY_VERIFY(withText("partTab", "Терраса"));
    QTRY_VERIFY(withText("partTab", "Терраса")->property("checked").toBool());
    QTRY_VERIFY(withText("objectRow", "Терраса")->property("highlighted").toBool());
    QCOMPARE(shownPart(), m_part);
}

void AdministratorDayTest::zoneIsAddedWhereThePlanWasClicked()
{
    QVERIFY(clickPlan({200, 150}));
    QVERIFY(pressInPopup("addMenu", "addZone"));

    QTRY_VERIFY(!uidInPart("zonesListModel").isEmpty());
    m_zone = uidInPart("zonesListModel");
    QCOMPARE(place("zonesListModel", m_zone), QRectF(192, 144, 96, 96));
    QTRY_VERIFY(tile(m_zone));
    QTRY_COMPARE(tile(m_zone)->x(), 192.0);
}

void AdministratorDayTest::zoneIsRenamed()
{
    const auto name = record("zonesListModel", m_zone).value("name").toString();
    QVERIFY(press("zonesTab"));
    QVERIFY(press([=] { return m_driver->find("rowMenuButton", find("zoneRow0")); }));
    QVERIFY(pressInPopup("zoneMenu", "renameZone"));
    QTRY_COMPARE(textOf("nameField"), name);
    QVERIFY(write("nameField", "Столики"));
    QVERIFY(save());

    QTRY_COMPARE(record("zonesListModel", m_zone).value("name").toString(), QStringLiteral("Столики"));
    QTRY_COMPARE(tile(m_zone)->property("name").toString(), QStringLiteral("Столики"));
    QTRY_VERIFY(withText("zoneRow", "Столики"));
    QVERIFY(press("partsTab"));
}

void AdministratorDayTest::zoneIsMovedByTheGrid()
{
    QVERIFY(select(m_zone));
    QSignalSpy lists(&link(), &Link::zonesReceived);
    QVERIFY(dragTile(m_zone, {37, 21}));

    // 229 goes down to 224, 165 to 160.
    QTRY_COMPARE(place("zonesListModel", m_zone), QRectF(224, 160, 96, 96));
    QTRY_COMPARE(tile(m_zone)->position(), QPointF(224, 160));
    QCOMPARE(lists.count(), 1);
    QVERIFY(tile(m_zone)->property("selected").toBool());

    // Past the edge it stands one step in.
    QVERIFY(dragTile(m_zone, {-60, 2}));
    QTRY_COMPARE(place("zonesListModel", m_zone).topLeft(), QPointF(160, 160));
    QCOMPARE(lists.count(), 2);
}

void AdministratorDayTest::zoneIsResizedByItsHandles()
{
    QTRY_COMPARE(tile(m_zone)->position(), QPointF(160, 160));
    QVERIFY(dragHandle(m_zone, Qt::RightEdge, {50, 0}));
    QTRY_COMPARE(place("zonesListModel", m_zone), QRectF(160, 160, 144, 96));
    QTRY_COMPARE(tile(m_zone)->width(), 144.0);

    QVERIFY(dragHandle(m_zone, Qt::BottomEdge, {5, 60}));
    QTRY_COMPARE(place("zonesListModel", m_zone), QRectF(160, 160, 144, 160));
    QTRY_COMPARE(tile(m_zone)->height(), 160.0);
    QVERIFY(pressTile(m_zone));
    QTRY_VERIFY(!tile(m_zone)->property("selected").toBool());
}

void AdministratorDayTest::buttonIsAddedAndEdited()
{
    QVERIFY(clickPlan({500, 170}));
    QVERIFY(pressInPopup("addMenu", "addButton"));
    QTRY_VERIFY(!uidInPart("buttonsListModel").isEmpty());
    const auto uid = uidInPart("buttonsListModel");
    QCOMPARE(place("buttonsListModel", uid), QRectF(496, 176, 80, 80));

    QVERIFY(edit(uid));
    QVERIFY(write("nameField", "Свет у столиков"));
    QVERIFY(press("toggleBox"));
    QVERIFY(press("onColorField"));
    QVERIFY(press("color0")); // a colour, then its shade
    QTRY_VERIFY(find("colors")->property("count").toInt() < 15);
    QVERIFY(press("color0"));
    QTRY_VERIFY(!find("colors"));
    QVERIFY(save());

    const auto button = [&] { return record("buttonsListModel", uid); };
    QTRY_COMPARE(button().value("name").toString(), QStringLiteral("Свет у столиков"));
    QVERIFY(button().value("toggle").toBool());
    QVERIFY(QColor(button().value("onColor").toString()).isValid());
    QVERIFY(button().value("onColor") != button().value("offColor"));
    QCOMPARE(place("buttonsListModel", uid), QRectF(496, 176, 80, 80));
    QTRY_COMPARE(tile(uid)->property("name").toString(), QStringLiteral("Свет у столиков"));
    QVERIFY(pressTile(uid));
    QTRY_VERIFY(!tile(uid)->property("selected").toBool());
    QCOMPARE(button().value("state").toInt(), 0); // an edited button is not pressed
}

void AdministratorDayTest::indicatorIsAddedAndEdited()
{
    QVERIFY(clickPlan({480, 320}));
    QVERIFY(pressInPopup("addMenu", "addIndicator"));
    QTRY_VERIFY(!uidInPart("indicatorsListModel").isEmpty());
    const auto uid = uidInPart("indicatorsListModel");
    QCOMPARE(place("indicatorsListModel", uid), QRectF(480, 320, 256, 80));

    QVERIFY(edit(uid));
    QVERIFY(write("labelField", "Погода"));
    QVERIFY(choose("alignmentMenu", "По центру"));
    QVERIFY(save());
    const auto indicator = [&] { return record("indicatorsListModel", uid); };
    QTRY_COMPARE(indicator().value("label").toString(), QStringLiteral("Погода"));
    QCOMPARE(indicator().value("horizontalAlignment").toInt(), 2);
    QCOMPARE(place("indicatorsListModel", uid), QRectF(480, 320, 256, 80));
    QTRY_COMPARE(tile(uid)->property("text").toString(), QStringLiteral("Погода"));

    // The value of a device in place of the text.
    const auto all = uids("devicesListModel");
    const auto sensor = *std::find_if(all.begin(), all.end(), [&](const QString &device) {
        return record("devicesListModel", device).value("commonType") == "polling_temp_sensor";
    });
    const auto device = record("devicesListModel", sensor);
    QString description;
    const auto states = device.value("typeInfo").toMap().value("state").toList();
    for (const auto &state : states) {
        if (state.toMap().value("identificator") == "temperature")
            description = state.toMap().value("description").toString();
    }
    QVERIFY(!description.isEmpty());
    QVERIFY(press("editRow"));
    QVERIFY(choose("typeMenu", "Значение"));
    QVERIFY(choose("devicePicker", device.value("prettyString").toString()));
    QVERIFY(choose("propertyMenu", description));
    QVERIFY(save());
    QTRY_COMPARE(indicator().value("valueDevice").toString(), sensor);
    QCOMPARE(indicator().value("valueProperty").toString(), QStringLiteral("temperature"));
    QCOMPARE(indicator().value("indicatorType").toInt(), 1);
    const auto shown = [&] { return tile(uid)->property("text").toString(); };
    QTRY_VERIFY(qAbs(shown().section(' ', 0, 0).toDouble() - device["state"].toMap()["temperature"].toDouble()) < 0.1);
    QVERIFY(pressTile(uid));
    QTRY_VERIFY(!tile(uid)->property("selected").toBool());
}

void AdministratorDayTest::pictureIsAddedAndLocked()
{
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DownloadLocation));
    QVERIFY(folder.mkpath("."));
    QImage drawing(160, 120, QImage::Format_RGB32);
    drawing.fill(QColor(40, 120, 60));
    QVERIFY(drawing.save(folder.filePath("терраса 1.png")));

    QVERIFY(clickPlan({160, 480}));
    QVERIFY(pressInPopup("addMenu", "addImage"));
    QVERIFY(press([this]() -> QQuickItem * {
        const auto rows = m_driver->items(
            [](QQuickItem *item) { return item->property("text") == "терраса 1.png" && item->height() > 40; });
        return rows.empty() ? nullptr : rows.front();
    }));
    QVERIFY(save());
    QTRY_VERIFY(!uidInPart("imageItemsListModel").isEmpty());
    const auto uid = uidInPart("imageItemsListModel");
    QCOMPARE(place("imageItemsListModel", uid).topLeft(), QPointF(160, 480));
    QTRY_VERIFY(tile(uid));
    QTRY_COMPARE(tile(uid)->width(), 160.0);
    QTRY_COMPARE(tile(uid)->height(), 120.0);
    QVERIFY(!record("imageItemsListModel", uid).value("locked").toBool());

    QVERIFY(edit(uid));
    QVERIFY(write("nameField", "Чертёж"));
    QVERIFY(press("onTopBox"));
    QVERIFY(save());
    QTRY_COMPARE(record("imageItemsListModel", uid).value("name").toString(), QStringLiteral("Чертёж"));
    QVERIFY(record("imageItemsListModel", uid).value("onTop").toBool());
    QTRY_COMPARE(tile(uid)->z(), 3.0);

    QVERIFY(press([=] { return m_driver->find("lockButton", tile(uid)); }));
    QTRY_VERIFY(record("imageItemsListModel", uid).value("locked").toBool());
    QTRY_VERIFY(!tile(uid)->property("selected").toBool()); // a locked picture is a part of the ground
    QVERIFY(!m_driver->find("ratioButton", tile(uid)));
}

void AdministratorDayTest::devicesAreAddedByRange()
{
    QVERIFY(edit(m_zone));
    QTRY_VERIFY(find("emptyZone"));
    QVERIFY(press("addDeviceButton"));
    QTRY_VERIFY(find("addressField"));
    QVERIFY(!find("positiveButton")->isEnabled());
    QVERIFY(choose("typePicker", "Датчик освещённости"));
    QVERIFY(write("addressField", "201-203, 207"));
    QVERIFY(save());

    QTRY_COMPARE(addresses(), (QList<int>{201, 202, 203, 207}));
    QTRY_COMPARE(find("devicesGrid")->property("count").toInt(), 4);
    QTRY_VERIFY(!find("emptyZone"));
    const auto all = devices();
    for (const auto &uid : all) {
        QCOMPARE(record("devicesListModel", uid).value("commonType").toString(),
                 QStringLiteral("polling_light_sensor"));
        QVERIFY(record("devicesListModel", uid).value("isRadioValid").toBool());
    }
}

void AdministratorDayTest::deviceIsEdited()
{
    QVERIFY(find("deviceCell1"));
    const auto uid = find("deviceCell1")->property("uid").toString();
    QCOMPARE(record("devicesListModel", uid).value("address").toInt(), 202);
    QVERIFY(press([this] { return m_driver->find("cardType", find("deviceCell1")); }));
    QTRY_COMPARE(textOf("addressField"), QStringLiteral("202"));
    QVERIFY(write("addressField", "210"));
    QVERIFY(save());

    QTRY_COMPARE(record("devicesListModel", uid).value("address").toInt(), 210);
    QCOMPARE(record("devicesListModel", uid).value("zoneUid").toString(), m_zone);
    QCOMPARE(addresses(), (QList<int>{201, 203, 207, 210}));
    QTRY_COMPARE(find("deviceCell3")->property("uid").toString(), uid); // the cards stand by address
}

void AdministratorDayTest::deviceIsRemoved()
{
    QVERIFY(find("deviceCell0"));
    const auto uid = find("deviceCell0")->property("uid").toString();
    QVERIFY(press([this] { return m_driver->find("cardClose", find("deviceCell0")); }));

    QTRY_VERIFY(!devices().contains(uid));
    QCOMPARE(addresses(), (QList<int>{203, 207, 210}));
    QTRY_COMPARE(find("devicesGrid")->property("count").toInt(), 3);
    QVERIFY(press("leftAction"));
    QTRY_VERIFY(find("partsTabBar"));
    QCOMPARE(shownPart(), m_part);
    QVERIFY(pressTile(m_zone));
    QTRY_VERIFY(!tile(m_zone)->property("selected").toBool());
}

void AdministratorDayTest::scheduleIsSetForTwoZones()
{
    const auto *schedules = object<ScheduleDaysListModel>("schedulesListModel");
    const auto schedule = uidOf("schedulesListModel", "Парковка");
    QVERIFY(!schedule.isEmpty());
    QVERIFY(showPart("Зал магазина"));
    const auto first = uidOf("zonesListModel", "Овощи и фрукты");
    const auto second = uidOf("zonesListModel", "Хлеб и выпечка");
    const auto third = uidOf("zonesListModel", "Бакалея");
    const auto untouched = schedules->commonScheduleForZones({third});
    QVERIFY(!schedules->commonScheduleForZones({first, second}).contains(schedule));
    QVERIFY(select(first));
    QVERIFY(select(second));

    QVERIFY(press("scheduleRow"));
    QTRY_VERIFY(find("chosenZone1"));
    QVERIFY(!find("positiveButton")->isEnabled());
    QVERIFY(choose("schedulePicker", "Парковка"));
    QVERIFY(save());

    QTRY_COMPARE(schedules->commonScheduleForZones({first, second}), QStringList{schedule});
    QCOMPARE(schedules->commonScheduleForZones({third}), untouched);
    for (const auto &uid : {first, second})
        QVERIFY(record("zonesListModel", uid).value("scheduleName").toString().contains("Парковка"));

    QVERIFY(press("scheduleRow"));
    QTRY_COMPARE(find("schedulePicker")->property("selectedText").toString(), QStringLiteral("Парковка"));
    QCOMPARE(find("chosenZone0")->property("subText").toString(), QStringLiteral("Парковка"));
    QVERIFY(m_driver->escape("schedulePicker"));
    QVERIFY(pressTile(first));
    QVERIFY(pressTile(second));
    QVERIFY(showPart("Терраса"));
}

void AdministratorDayTest::refusedChangeLeavesThePlanAsTheServerHasIt()
{
    const auto before = place("zonesListModel", m_zone);
    QVERIFY(select(m_zone));
    QVERIFY(setChiefGroup("user"));

    QSignalSpy lists(&link(), &Link::zonesReceived);
    QVERIFY(dragTile(m_zone, {160, 96}));
    QTRY_COMPARE(textOf("errorText"), QStringLiteral("У пользователя нет привилегий для доступа к ресурсу"));
    QTRY_COMPARE(tile(m_zone)->position(), before.topLeft());
    QVERIFY(press("errorButton"));
    QTRY_VERIFY(!find("errorText"));
    QCOMPARE(place("zonesListModel", m_zone), before);
    QCOMPARE(lists.count(), 0);

    // With the rights back the same hand moves it.
    QVERIFY(setChiefGroup("admin"));
    QVERIFY(dragTile(m_zone, {160, 96}));
    QTRY_COMPARE(place("zonesListModel", m_zone), before.translated(160, 96));
    QVERIFY(!find("errorText"));
}

void AdministratorDayTest::zoneIsRemovedAfterTheQuestion()
{
    QVERIFY(tile(m_zone)->property("selected").toBool());
    QVERIFY(press("removeRow"));
    QTRY_COMPARE(textOf("dialogTitle"), QStringLiteral("Удалить выделенные объекты?"));
    QVERIFY(press("negativeButton"));
    QTRY_VERIFY(!find("negativeButton"));
    QCOMPARE(uidInPart("zonesListModel"), m_zone);

    QVERIFY(press("removeRow"));
    QVERIFY(save());
    QTRY_VERIFY(uidInPart("zonesListModel").isEmpty());
    QTRY_VERIFY(!tile(m_zone));
    QTRY_VERIFY(devices().isEmpty());
    QVERIFY(!uidInPart("buttonsListModel").isEmpty()); // what was not selected stays
    QTRY_VERIFY(!find("removeRow"));
}

void AdministratorDayTest::removedPartGivesWayToTheFirst()
{
    QVERIFY(pressRow("objectRow", "Терраса", "rowMenuButton"));
    QVERIFY(pressInPopup("objectMenu", "removeObject"));
    QVERIFY(confirm("Удалить объект 'Терраса'?"));

    QTRY_VERIFY(!uids("shopPartsListModel").contains(m_part));
    QTRY_VERIFY(!withText("partTab", "Терраса"));
    QTRY_COMPARE(shownPart(), uidOf("shopPartsListModel", "Зал магазина"));
    QTRY_VERIFY(withText("partTab", "Зал магазина")->property("checked").toBool());
    QTRY_COMPARE(m_driver->zoneTiles().size(), size_t(27));
    QTRY_VERIFY(uidInPart("buttonsListModel").isEmpty());
}

void AdministratorDayTest::cleanupTestCase()
{
    QVERIFY(m_driver);
    QCOMPARE(m_driver->warnings(), QStringList());
    stopProgram();
    m_other.disconnectFromServer();
}

ONDIRA_TEST(AdministratorDayTest)
#include "AdministratorDayTest.moc"
