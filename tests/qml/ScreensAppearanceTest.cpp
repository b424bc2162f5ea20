// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "qml/Appearance.h"
#include "support/TestBase.h"

using namespace Records;

// The looks of an administrator's work: the shell's dialogs and settings, the plan while it is edited, the control
// table, the page of a zone, and every dialog on them.
class ScreensAppearanceTest : public TestBase
{
    Q_OBJECT

private:
    struct Screen
    {
        const char *name;
        void (*enter)(Stage &stage);
        QList<QSize> sizes = Appearance::allSizes;
        bool isTabbed = true; // false: reached by arrows, or a page of which only a part is shown at a time
    };

    static const std::vector<Screen> &screens();

    static void start(Stage &stage);
    static void publishObjects(Stage &stage);
    static void call(Stage &stage, const char *object, const char *function, const QVariantList &arguments = {});
    static void openDialog(Stage &stage, const char *object, const char *function, const QVariantList &arguments = {});
    static void showPage(Stage &stage, const QString &link, const QVariantMap &properties = {});
    static void edit(Stage &stage, uint n);
    static void openDrawer(Stage &stage);

private slots:
    void fitsEverySize_data();
    void fitsEverySize();
};

void ScreensAppearanceTest::publishObjects(Stage &stage)
{
    using Model::ActionValueLimits;
    auto lamp = type("file:///lamp.qml", "Светильник");
    lamp.parameters.push_back({"minimum", "Наименьшая яркость", {}, ActionValueLimits::integer(0, 100), 10LL});
    lamp.parameters.push_back({"name", "Название", {}, ActionValueLimits::string(0, 20, QString()), QString("Новый")});
    lamp.state.push_back({"power", "Яркость", {}, ActionValueLimits::integer(0, 100), 0LL});
    stage.link.publishDeviceTypes({lamp, type("file:///contactor.qml", "Контактор", 1, "contactor")});
    stage.link.publishDevices({device(21, 11, "file:///lamp.qml", 1), device(22, 11, "file:///lamp.qml", 2),
                               device(23, 11, "file:///contactor.qml", 3)});
    stage.link.publishDeviceStates({state(21, {{"power", 60}, {"work_timestamp", 0}})});
    Model::Button button;
    button.uid = uid(31);
    button.partUid = uid(1);
    button.name = "Уборка";
    button.position = {400, 320};
    stage.link.publishButtons({button});
    Model::Indicator indicator;
    indicator.uid = uid(41);
    indicator.partUid = uid(1);
    indicator.label = "Свет";
    indicator.icon = "alert/error_outline";
    indicator.position = {640, 320};
    stage.link.publishIndicators({indicator});
    Model::ScheduleDay day(uid(51), "Будни", {}, {});
    day.zones = {uid(11)};
    stage.link.publishSchedules({day});
}

void ScreensAppearanceTest::start(Stage &stage)
{
    stage.connections.add("Демо", "192.168.100.200", "admin", "admin");
    stage.showMain();
    stage.link.logIn("admin", "admin");
    stage.publishSite(6, "Торговый зал");
    publishObjects(stage);
    QTRY_VERIFY(stage.tile(11));
    QTRY_VERIFY(stage.item("shopScreen")->property("loaded").toBool());
    stage.settle();
}

void ScreensAppearanceTest::call(Stage &stage, const char *object, const char *function, const QVariantList &arguments)
{
    QVERIFY2(stage.object(object), object);
    QVariant first = arguments.value(0);
    QVariant second = arguments.value(1);
    bool isCalled = false;
    if (arguments.isEmpty())
        isCalled = QMetaObject::invokeMethod(stage.object(object), function);
    else if (arguments.size() == 1)
        isCalled = QMetaObject::invokeMethod(stage.object(object), function, Q_ARG(QVariant, first));
    else
        isCalled =
            QMetaObject::invokeMethod(stage.object(object), function, Q_ARG(QVariant, first), Q_ARG(QVariant, second));
    QVERIFY2(isCalled, function);
}

void ScreensAppearanceTest::openDialog(Stage &stage, const char *object, const char *function,
                                       const QVariantList &arguments)
{
    call(stage, object, function, arguments);
    QTRY_VERIFY(stage.has("positiveButton"));
}

void ScreensAppearanceTest::showPage(Stage &stage, const QString &link, const QVariantMap &properties)
{
    call(stage, "nav", "show", {link, properties});
    QTRY_COMPARE(stage.object("nav")->property("currentLink").toString(), link);
}

void ScreensAppearanceTest::edit(Stage &stage, uint n)
{
    stage.shop.enableEditing(true);
    stage.settle();
    QTRY_VERIFY(stage.tile(n));
    stage.click(stage.tile(n));
    stage.settle();
}

void ScreensAppearanceTest::openDrawer(Stage &stage)
{
    stage.resize({420, 800});
    QTRY_VERIFY(!stage.object("leftSidebar")->property("visible").toBool());
    stage.click("leftAction");
    QTRY_VERIFY(stage.object("leftSidebar")->property("opened").toBool());
}

const std::vector<ScreensAppearanceTest::Screen> &ScreensAppearanceTest::screens()
{
    static const QList<QSize> phones{{420, 800}, {360, 640}};
    static const QList<QSize> wide{{1280, 800}, {960, 600}};
    static const std::vector<Screen> list{
        {"drawer", openDrawer, phones},
        {"version", [](Stage &stage) { call(stage, "versionDialog", "open"); }},
        {"changes",
         [](Stage &stage) {
             call(stage, "versionDialog", "open");
             QTRY_VERIFY(stage.has("changelogItem"));
             stage.settle();
             stage.click("changelogItem");
             QTRY_VERIFY(stage.has("changelogText"));
         }},
        {"licences",
         [](Stage &stage) {
             call(stage, "versionDialog", "open");
             QTRY_VERIFY(stage.has("licensesItem"));
             stage.settle();
             stage.click("licensesItem");
             QTRY_VERIFY(stage.has("licenseText"));
         }},
        {"language", [](Stage &stage) { openDialog(stage, "languageDialog", "open"); }},
        {"user", [](Stage &stage) { openDialog(stage, "userDialog", "open"); }},
        {"leaving", [](Stage &stage) { openDialog(stage, "leftSidebar", "exitRequested"); }},
        {"settings of the interface", [](Stage &stage) { showPage(stage, "settings"); }},
        {"settings of the language",
         [](Stage &stage) {
             showPage(stage, "settings");
             stage.settle();
             stage.click("clientSettingsRow1");
             QTRY_VERIFY(stage.has("languagePicker"));
         }},
        {"a zone in edit mode", [](Stage &stage) { edit(stage, 11); }, wide, false},
        {"a zone in edit mode on a phone", [](Stage &stage) { edit(stage, 11); }, phones, false},
        {"zones of the panel",
         [](Stage &stage) {
             edit(stage, 11);
             stage.click("zonesTab");
             QTRY_VERIFY(stage.has("zonesListView"));
         },
         wide, false},
        {"buttons of the panel",
         [](Stage &stage) {
             edit(stage, 31);
             stage.click("buttonsTab");
             QTRY_VERIFY(stage.has("buttonsListView"));
         },
         wide, false},
        {"what can be added",
         [](Stage &stage) {
             stage.shop.enableEditing(true);
             call(stage, "shopScreen", "openAddMenu");
             QTRY_VERIFY(stage.has("addZone"));
         },
         Appearance::allSizes, false},
        {"a button of the plan",
         [](Stage &stage) {
             edit(stage, 31);
             openDialog(stage, "shopScreen", "editSelected");
         }},
        {"an indicator of the plan",
         [](Stage &stage) {
             edit(stage, 41);
             openDialog(stage, "shopScreen", "editSelected");
         }},
        {"a question before removing",
         [](Stage &stage) {
             edit(stage, 11);
             openDialog(stage, "shopScreen", "removeSelected");
         }},
        {"a schedule for zones",
         [](Stage &stage) {
             openDialog(stage, "quickScheduleDialog", "showDialog",
                        QVariantList{QVariant(QVariantList{text(11), text(12)})});
         }},
        {"control table", [](Stage &stage) { showPage(stage, "sliders"); }, Appearance::allSizes, false},
        {"page of a zone",
         [](Stage &stage) {
             showPage(stage, "zone", {{"uid", text(11)}});
         }},
        {"page of an empty zone",
         [](Stage &stage) {
             showPage(stage, "zone", {{"uid", text(12)}});
         }},
        {"name of a zone",
         [](Stage &stage) {
             showPage(stage, "zone", {{"uid", text(11)}});
             openDialog(stage, "zoneNameDialog", "openFor", {text(11), "Холл"});
         }},
        {"new devices",
         [](Stage &stage) {
             showPage(stage, "zone", {{"uid", text(11)}});
             openDialog(stage, "zoneScreen", "addDevice");
         }},
        {"a device",
         [](Stage &stage) {
             showPage(stage, "zone", {{"uid", text(11)}});
             openDialog(stage, "deviceEditDialog", "openDialog", {text(21)});
         }},
    };
    return list;
}

void ScreensAppearanceTest::fitsEverySize_data()
{
    QTest::addColumn<int>("screen");

    for (std::size_t i = 0; i < screens().size(); ++i)
        QTest::newRow(screens()[i].name) << static_cast<int>(i);
}

void ScreensAppearanceTest::fitsEverySize()
{
    QFETCH(int, screen);
    const auto &shown = screens()[static_cast<std::size_t>(screen)];
    Stage stage;
    start(stage);
    if (QTest::currentTestFailed())
        return;
    stage.resize(shown.sizes.front());
    shown.enter(stage);
    if (QTest::currentTestFailed())
        return;
    stage.settle();

    auto faults = Appearance::faults(stage, shown.sizes);
    if (shown.isTabbed)
        faults << Appearance::faultsOfTab(stage);

    QVERIFY2(faults.isEmpty(), qPrintable(faults.join('\n')));
}

ONDIRA_TEST(ScreensAppearanceTest)
#include "ScreensAppearanceTest.moc"
