// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "actions/ActionsListModel.h"
#include "data/ButtonsListModel.h"
#include "data/DeviceFaultsListModel.h"
#include "data/DeviceTypesListModel.h"
#include "data/DevicesListModel.h"
#include "data/ErrorsListModel.h"
#include "data/ImageItemsListModel.h"
#include "data/IndicatorsListModel.h"
#include "data/RadioDevicesListModel.h"
#include "data/ServerTimeController.h"
#include "data/SettingsController.h"
#include "data/ShopController.h"
#include "data/ShopPartsListModel.h"
#include "data/UsersListModel.h"
#include "data/ZonesListModel.h"
#include "schedules/ScheduleDaysListModel.h"
#include "shell/ConnectionsListModel.h"
#include "shell/FrontendSettings.h"
#include "shell/LanguageController.h"
#include "shell/QmlFileDialogHelper.h"
#include "shell/RuntimePermissionsManager.h"
#include "shell/VersionController.h"
#include "support/FakeCommunicator.h"

#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <functional>
#include <vector>

// The program's QML over a fake link: all that screens see, without the manager. One at a time. What is shown is driven
// by events of the window, and found by object names.
class Stage
{
public:
    enum class Storage { Open, NotYet };

    explicit Stage(Storage storage = Storage::Open);
    ~Stage();

    // A window of the program's style around that text, in which every module is imported; its first item is returned.
    QQuickItem *show(const QByteArray &body, const QSize &size = {1280, 800});
    void showMain(const QSize &size = {1280, 800}); // main.qml
    void resize(const QSize &size);

    QQuickWindow *window() const { return m_window; }
    ErrorsListModel *errors() const { return m_errors; }
    QObject *object(const QString &objectName) const; // shown or not
    QQuickItem *item(const QString &objectName) const; // the first that is visible, or null
    std::vector<QQuickItem *> items(const std::function<bool(QQuickItem *)> &wanted) const; // the visible ones
    QString text(const QString &objectName) const; // of a visible item; "(none)" without one
    bool has(const QString &objectName) const { return item(objectName) != nullptr; }
    QQuickItem *tile(uint n) const; // of the zone with that number, or null
    QPoint middleOf(QQuickItem *item) const; // in the window

    void click(const QString &objectName);
    void click(QQuickItem *item);
    void clickAt(const QPoint &place);
    void drag(const QPoint &from, const QPoint &to);
    void wheel(const QPoint &place, int notches);
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString &text);
    QString focusName() const; // the object name of the item that has the keyboard
    static bool waitFor(const std::function<bool()> &condition); // its failure is the test's
    void settle(); // until what is on screen has stood still for some frames

    // A site of one part with so many zones in a row: part 1, zones 11, 12, ...
    void publishSite(int zones, const QString &partName = QStringLiteral("Зал"));

    FakeCommunicator link;
    RuntimePermissionsManager permissions;
    UsersListModel users{link};
    DevicesListModel devices{link};
    DeviceFaultsListModel faults{link, devices};
    ShopPartsListModel parts{link, users};
    ZonesListModel zones{link, devices, faults, users};
    DeviceTypesListModel deviceTypes{link};
    ButtonsListModel buttons{link, users};
    IndicatorsListModel indicators{link, users};
    ImageItemsListModel images{link, users};
    RadioDevicesListModel radios{link};
    ActionsListModel actions{link};
    ScheduleDaysListModel schedules{link};
    SettingsController serverSettings{link};
    ShopController shop{link};
    ServerTimeController time{link};
    VersionController version;
    QmlFileDialogHelper fileDialogHelper;
    ConnectionsListModel connections{link, permissions};
    FrontendSettings settings{permissions};
    LanguageController language{permissions};

private:
    static void registerTypes();

    static Stage *current;

    QQmlApplicationEngine m_engine; // last: the screens go before what they show
    QQuickWindow *m_window = nullptr;
    ErrorsListModel *m_errors = nullptr;
};
