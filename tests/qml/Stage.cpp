// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"

#include "actions/ActionSequenceBuilder.h"
#include "actions/ActionSequenceListModel.h"
#include "actions/ActionWrapperBuilder.h"
#include "data/ModelToListAdapter.h"
#include "data/QmlStringSet.h"
#include "data/QuickImageLayerProvider.h"
#include "data/RadioTypes.h"
#include "data/Records.h"
#include "data/SharedModels.h"
#include "data/UidFilterProxyModel.h"
#include "data/qqsfpm/Registration.h"
#include "schedules/SchedulePointWrapper.h"
#include "schedules/SchedulePointsListModel.h"
#include "shell/ColorTheme.h"
#include "shell/IconSet.h"
#include "support/TestBase.h"

#include <QElapsedTimer>
#include <QFontDatabase>
#include <QQmlContext>
#include <QQmlFileSelector>
#include <QtTest>
#include <utility>

Stage *Stage::current = nullptr;

namespace {

const char *const imports = R"(
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Window 2.15
import QtQml.Models 2.15
import Backend 1.0
import EnhancedMaterial 1.0
import Errors 1.0
import Fluid.Controls 1.0 as FL
import Fluid.Core 1.0 as FLC
import colors 1.0
import controls 1.0
import deviceTiles 1.0
import editors 1.0
import mainView 1.0
import roboto_fonts 1.0
import screens 1.0
import scripts 1.0
import tiles 1.0
)";

// What pages reach of the window by its ids.
const char *const shell = R"(
 id: mainWindow
 color: "white"
 Material.accent: Colors.blue
 Material.background: "white"
 Material.primary: Material.color(Material.Grey, Material.Shade100)
 property QtObject nav: QtObject {
     property string currentLink
     property string lastLink
     property var shown: []
     function show(link, properties) { shown = shown.concat([{ link: link, properties: properties }]) }
 }
 property QtObject leftSidebar: QtObject {
     readonly property bool mobileAspect: mainWindow.width < 960
     readonly property bool compact: mobileAspect
     property int opened: 0
     function open() { ++opened }
 }
 property QtObject connectionsDrawer: QtObject {
     readonly property var current: ({ name: connectionsListModel.currentConnectionName })
     property var caller
     function openAndStretch(item) { caller = item }
 }
 property QtObject tabAddDialog: QtObject {
     property int opened: 0
     function open() { ++opened }
 }
 property string confirmation // what was asked last
 property var confirmed
 function openConfirmationDialog(text, ok, cancel, callback) {
     confirmation = text
     confirmed = callback
 }
 function confirm() { confirmed() }
 property QtObject magistralFont: QtObject { property string name: "Play" }
)";

void collect(QQuickItem *item, const std::function<bool(QQuickItem *)> &wanted, std::vector<QQuickItem *> &found)
{
    if (!item->isVisible())
        return;
    if (wanted(item))
        found.push_back(item);
    const auto children = item->childItems();
    for (auto *child : children)
        collect(child, wanted, found);
}

} // namespace

Stage::Stage(Storage storage)
{
    current = this;
    qputenv("QML_XHR_ALLOW_FILE_READ", "1"); // as the program does
    registerTypes();
    if (storage == Storage::Open) {
        connections.onPermissionsGranted();
        while (connections.rowCount() > 0 && connections.remove(0)) { // those of the test before
        }
        link.operations.clear();
    }

    m_engine.addImportPath(QStringLiteral("qrc:/"));
    QQmlFileSelector::get(&m_engine)->setExtraSelectors({QStringLiteral("qt515")}); // as the program does
    SharedModels::instance() = {&link, &users, &deviceTypes, &devices, &parts, &zones, &faults, &buttons, &indicators};
    m_engine.addImageProvider(QStringLiteral("image_layer"), new QuickImageLayerProvider(link)); // the engine takes it
    auto *context = m_engine.rootContext();
    context->setContextProperty(QStringLiteral("shopController"), &shop);
    context->setContextProperty(QStringLiteral("versionController"), &version);
    context->setContextProperty(QStringLiteral("backendCommunicator"), &link);
    context->setContextProperty(QStringLiteral("zonesListModel"), &zones);
    context->setContextProperty(QStringLiteral("shopPartsListModel"), &parts);
    context->setContextProperty(QStringLiteral("deviceTypesListModel"), &deviceTypes);
    context->setContextProperty(QStringLiteral("buttonsListModel"), &buttons);
    context->setContextProperty(QStringLiteral("indicatorsListModel"), &indicators);
    context->setContextProperty(QStringLiteral("imageItemsListModel"), &images);
    context->setContextProperty(QStringLiteral("radioDevicesListModel"), &radios);
    context->setContextProperty(QStringLiteral("actionsListModel"), &actions);
    context->setContextProperty(QStringLiteral("schedulesListModel"), &schedules);
    context->setContextProperty(QStringLiteral("settingsController"), &serverSettings);
    context->setContextProperty(QStringLiteral("deviceFaultsListModel"), &faults);
    context->setContextProperty(QStringLiteral("usersListModel"), &users);
    context->setContextProperty(QStringLiteral("usersController"), &users.getUsersController());
    context->setContextProperty(QStringLiteral("devicesListModel"), &devices);
    context->setContextProperty(QStringLiteral("serverTimeController"), &time);
    context->setContextProperty(QStringLiteral("connectionsListModel"), &connections);
    context->setContextProperty(QStringLiteral("noChildWindows"), false);
    context->setContextProperty(QStringLiteral("startFullscreen"), false);
    context->setContextProperty(QStringLiteral("kioskMode"), false);
    context->setContextProperty(QStringLiteral("ondiraRPi"), false);
    context->setContextProperty(QStringLiteral("permissionsManager"), &permissions);
    context->setContextProperty(QStringLiteral("QmlFileDialogHelper"), &fileDialogHelper);
}

Stage::~Stage()
{
    current = nullptr;
    SharedModels::instance() = {};
}

void Stage::registerTypes()
{
    static bool registered = false;
    if (std::exchange(registered, true))
        return;
    for (const char *font : {"Roboto-Regular", "Roboto-Medium", "Roboto-Bold", "GothamPro-Bold"})
        QFontDatabase::addApplicationFont(QStringLiteral(":/fonts/%1.ttf").arg(font));
    qmlRegisterType<UidFilterProxyModel>("UidFilterProxyModel", 0, 1, "UidFilterProxyModel");
    qmlRegisterType<ActionSequenceBuilder>("ActionSequenceBuilder", 1, 0, "ActionSequenceBuilder");
    qmlRegisterType<ActionWrapperBuilder>("ActionWrapper", 1, 0, "ActionWrapper");
    qmlRegisterType<ModelToListAdapter>("ModelToArrayAdapter", 1, 0, "ModelToArrayAdapter");
    qmlRegisterType<ActionSequenceListModel>("ActionSequenceListModel", 1, 0, "ActionSequenceListModel");
    qmlRegisterType<SchedulePointWrapper>("SchedulePoint", 1, 0, "SchedulePoint");
    qmlRegisterType<SchedulePointsListModel>("SchedulePointsListModel", 1, 0, "SchedulePointsListModel");
    qmlRegisterUncreatableType<RadioDevicesListModel>("radio", 1, 0, "RadioDevicesListModel", "Only enums");
    qmlRegisterUncreatableMetaObject(Radio::staticMetaObject, "radio", 1, 0, "Radio", "Only enums");
    qmlRegisterType<QmlStringSet>("StringSet", 1, 0, "StringSet");
    qqsfpm::registerTypes();
    const auto kept = [](QObject *object) {
        QQmlEngine::setObjectOwnership(object, QQmlEngine::CppOwnership);
        return object;
    };
    qmlRegisterSingletonType<AbstractBackendCommunicator>(
        "Backend", 1, 0, "Backend", [kept](QQmlEngine *, QJSEngine *) { return kept(&current->link); });
    qmlRegisterSingletonType<FrontendSettings>("FrontendSettings", 1, 0, "FrontendSettings",
                                               [kept](QQmlEngine *, QJSEngine *) { return kept(&current->settings); });
    qmlRegisterSingletonType<LanguageController>(
        "LanguageController", 1, 0, "LanguageController",
        [kept](QQmlEngine *, QJSEngine *) { return kept(&current->language); });
    qmlRegisterSingletonType<IconSet>("IconSet", 1, 0, "IconSet",
                                      [](QQmlEngine *, QJSEngine *) -> QObject * { return new IconSet; });
    qmlRegisterSingletonType<ColorTheme>("colors", 1, 0, "Colors",
                                         [](QQmlEngine *, QJSEngine *) -> QObject * { return new ColorTheme; });
    qmlRegisterSingletonType<ErrorsListModel>(
        "Errors", 1, 0, "Errors", [](QQmlEngine *engine, QJSEngine *) -> QObject * {
            current->m_errors = new ErrorsListModel(engine);
            QObject::connect(&current->link, &AbstractBackendCommunicator::errorsReceived, current->m_errors,
                             &ErrorsListModel::logErrors);
            return current->m_errors;
        });
    qRegisterMetaType<Model::ActionSequence>();
    qRegisterMetaType<Model::ActionWrapper>();
}

QQuickItem *Stage::show(const QByteArray &body, const QSize &size)
{
    const QByteArray text = QByteArray(imports) + "QC2.ApplicationWindow {\n visible: true\n width: "
        + QByteArray::number(size.width()) + "\n height: " + QByteArray::number(size.height()) + shell + body + "\n}\n";
    m_engine.loadData(text, QUrl(QStringLiteral("qrc:/stage.qml")));
    m_window = qobject_cast<QQuickWindow *>(m_engine.rootObjects().value(0));
    if (!m_window)
        return nullptr;
    waitFor([this] { return m_window->isExposed(); });
    m_window->requestActivate();
    const auto content = m_window->property("contentItem").value<QQuickItem *>()->childItems();
    return content.value(0);
}

void Stage::showMain(const QSize &size)
{
    m_engine.load(QUrl(QStringLiteral("qrc:/main.qml")));
    m_window = qobject_cast<QQuickWindow *>(m_engine.rootObjects().value(0));
    if (!m_window)
        return;
    waitFor([this] { return m_window->isExposed(); });
    m_window->requestActivate();
    resize(size);
}

void Stage::resize(const QSize &size)
{
    m_window->setVisibility(QWindow::Windowed);
    m_window->resize(size);
    waitFor([&] { return m_window->size() == size; });
    settle();
}

QObject *Stage::object(const QString &objectName) const
{
    return m_window->findChild<QObject *>(objectName);
}

QQuickItem *Stage::item(const QString &objectName) const
{
    const auto found = items([&](QQuickItem *item) { return item->objectName() == objectName; });
    return found.empty() ? nullptr : found.front();
}

std::vector<QQuickItem *> Stage::items(const std::function<bool(QQuickItem *)> &wanted) const
{
    std::vector<QQuickItem *> found;
    collect(m_window->contentItem(), wanted, found);
    return found;
}

QString Stage::text(const QString &objectName) const
{
    auto *found = item(objectName);
    return found ? found->property("text").toString() : QStringLiteral("(none)");
}

QQuickItem *Stage::tile(uint n) const
{
    const auto uid = Records::text(n);
    const auto found = items([&](QQuickItem *item) { return item->property("uid").toString() == uid; });
    return found.empty() ? nullptr : found.front();
}

QPoint Stage::middleOf(QQuickItem *item) const
{
    return item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint();
}

void Stage::click(const QString &objectName)
{
    auto *found = item(objectName);
    QVERIFY2(found, qPrintable(objectName + " is not there"));
    click(found);
}

void Stage::click(QQuickItem *item)
{
    QVERIFY(item);
    clickAt(middleOf(item));
}

void Stage::clickAt(const QPoint &place)
{
    QTest::mouseClick(m_window, Qt::LeftButton, Qt::NoModifier, place);
}

void Stage::drag(const QPoint &from, const QPoint &to)
{
    QTest::mousePress(m_window, Qt::LeftButton, Qt::NoModifier, from);
    for (int step = 1; step <= 4; ++step)
        QTest::mouseMove(m_window, from + (to - from) * step / 4);
    QTest::mouseRelease(m_window, Qt::LeftButton, Qt::NoModifier, to);
}

void Stage::wheel(const QPoint &place, int notches)
{
    for (int i = 0; i < qAbs(notches); ++i) {
        QWheelEvent event(place, place, QPoint(), QPoint(0, notches < 0 ? -120 : 120), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(m_window, &event);
    }
}

void Stage::key(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(m_window, key, modifiers);
}

void Stage::type(const QString &text)
{
    for (const QChar &character : text) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
        QKeyEvent release(QEvent::KeyRelease, 0, Qt::NoModifier, QString(character));
        QCoreApplication::sendEvent(m_window, &press);
        QCoreApplication::sendEvent(m_window, &release);
    }
}

QString Stage::focusName() const
{
    auto *focused = m_window->activeFocusItem();
    if (!focused)
        return QStringLiteral("(none)");
    return focused->objectName().isEmpty() ? QString::fromLatin1(focused->metaObject()->className())
                                           : focused->objectName();
}

bool Stage::waitFor(const std::function<bool()> &condition)
{
    return QTest::qVerify(QTest::qWaitFor(condition, patience), "waited for in vain", "", __FILE__, __LINE__);
}

void Stage::settle()
{
    QElapsedTimer timer; // something may never rest
    timer.start();
    QImage last;
    for (int same = 0; same < 4 && timer.elapsed() < 1000;) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        const QImage now = m_window->grabWindow();
        same = now == last ? same + 1 : 0;
        last = now;
    }
}

void Stage::publishSite(int zoneCount, const QString &partName)
{
    std::vector<Model::Zone> list;
    for (int i = 0; i < zoneCount; ++i) {
        auto zone = Records::zone(11 + static_cast<uint>(i), QStringLiteral("Зона %1").arg(i + 1), 1);
        zone.position = {64.0 + 160 * (i % 20), 64.0 + 160 * (i / 20)};
        zone.width = 144;
        zone.height = 144;
        list.push_back(zone);
    }
    link.publishShopParts({Records::part(1, partName)});
    link.publishZones(list);
}
