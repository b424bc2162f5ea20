// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ShopPartsListModel.h"
#include "link/AbstractBackendCommunicator.h"
#include "model/Result.h"
#include "model/Site.h"
#include "shell/FrontendManager.h"
#include "tour/Gallery.h"

// The window around the pages: connections, sidebar, settings, messages, and what stands where there is nothing.
namespace {

// A loopback address at which nobody listens.
const char *const nobody = "127.0.200.1";

} // namespace

bool Gallery::shell()
{
    return sidebar() && messages() && settings();
}

bool Gallery::firstSteps()
{
    return step("no connection yet",
                [this] {
                    return m_driver.waitFor([this] { return m_driver.window()->isExposed(); })
                        && m_driver.waitFor([this] { return !m_driver.find("splash"); })
                        && takeBoth("no-connections", "LoadingPage");
                })
        && step("form of a new connection",
                [this] {
                    return m_driver.press("placeholderButton") && m_driver.type("nameField", "Демо")
                        && m_driver.type("addressField", m_address) && takeBoth("new-connection", "ConnectionDialog");
                })
        && step("wrong password",
                [this] {
                    return m_driver.type("loginField", "admin") && m_driver.type("passwordField", "wrong")
                        && m_driver.press("positiveButton") && appears("errorText") && takeBoth("error", "ErrorPopup");
                })
        && step("after the refusal",
                [this] { return m_driver.press("errorButton") && takeBoth("login-refused", "LoadingScreen"); })
        && step("form of a saved connection",
                [this] {
                    return openConnections() && m_driver.press("connectionMenuButton0")
                        && takeBoth("connection-menu", "ConnectionsDrawer") && m_driver.press("editConnection0")
                        && m_driver.type("passwordField", "admin") && takeBoth("saved-connection", "ConnectionDialog")
                        && m_driver.press("positiveButton");
                })
        && step("logged in", [this] { return m_driver.waitForPlan(4); });
}

bool Gallery::sidebar()
{
    return step("list of connections",
                [this] { return openConnections() && takeBoth("connections", "ConnectionsDrawer"); })
        && step("a connection that is there already",
                [this] {
                    return m_driver.press("addConnectionButton") && m_driver.type("nameField", "Демо")
                        && m_driver.type("addressField", m_address) && m_driver.type("loginField", "admin")
                        && m_driver.type("passwordField", "admin") && m_driver.press("positiveButton")
                        && appears("refusalLabel") && takeBoth("connection-refused", "ConnectionDialog")
                        && m_driver.press("negativeButton");
                })
        && step("drawer of a narrow window",
                [this] {
                    m_driver.resize(420, 800);
                    return m_driver.press("leftAction") && appears("connectionItem")
                        && takePhone("sidebar", "MobileSidebar") && takeDesktop("sidebar-desktop", "DesktopSidebar");
                })
        && step("choice of the language",
                [this] {
                    return m_driver.press("languageButton") && takeBoth("language", "LanguageSelector")
                        && m_driver.escape("languagePicker");
                })
        && step("change of the user",
                [this] {
                    return m_driver.press("userButton") && takeBoth("user", "UserForm")
                        && m_driver.escape("userLoginField");
                })
        && step("version", [this] { return m_driver.press("logoButton") && takeBoth("version", "VersionInfoDialog"); })
        && step("list of changes",
                [this] {
                    return m_driver.press("changelogItem") && takeBoth("changelog", "TextViewer")
                        && m_driver.escape("changelogText");
                })
        && step("licences",
                [this] {
                    return m_driver.press("licensesItem") && takeBoth("licence", "VersionInfoDialog")
                        && m_driver.press("thirdPartyLicensesTab")
                        && takeBoth("licences-of-others", "VersionInfoDialog") && m_driver.escape("licenseText")
                        && m_driver.escape("versionLabel");
                })
        && step("question before leaving",
                [this] {
                    return m_driver.press("exitButton") && takeBoth("leaving", "main")
                        && m_driver.escape("confirmationText");
                })
        && step("question before leaving by the drawer", [this] {
               m_driver.resize(420, 800);
               return m_driver.press("leftAction") && m_driver.press("exitButton")
                   && takePhone("leaving-phone", "LeftSidebar") && m_driver.escape("confirmationText");
           });
}

bool Gallery::messages()
{
    return step("a long error",
                [this] {
                    const auto detail = QStringLiteral("Устройство с адресом %1 уже есть в зоне «Овощи и фрукты». ");
                    QString text;
                    for (int address = 1; address < 60; ++address)
                        text += detail.arg(address);
                    Q_EMIT m_driver.manager().getCommunicator().errorsReceived(
                        {{"conflict", "Устройства не добавлены: адреса заняты другими устройствами", text}});
                    return appears("errorText") && takeBoth("error-long", "ErrorPopup") && m_driver.escape("errorText");
                })
        && step("a long message of the snackbar",
                [this] {
                    m_driver.evaluate("snackbar.open('Расписание «Зал магазина, рабочие дни, летнее время» скопировано "
                                      "в буфер обмена и может быть вставлено на другом объекте', 60000, 'Отменить')");
                    return appears("snackbarText") && takeBoth("snackbar-long", "Snackbar")
                        && m_driver.press("snackbarButton")
                        && m_driver.waitFor([this] { return !m_driver.find("snackbarText"); });
                })
        && step("rows of a model", [this] {
               m_driver.evaluate("mainWindow.showDebugModel(shopPartsListModel)");
               const bool taken = takeBoth("rows-of-a-model", "DebugPage");
               m_driver.evaluate("nav.show('desktop')");
               return taken && appears("partsTabBar");
           });
}

bool Gallery::settings()
{
    return step("settings",
                [this] {
                    return m_driver.press("sidebarEntry_settings") && takeBoth("settings-interface", "SettingsPage");
                })
        && step("exit hidden",
                [this] {
                    return m_driver.press("hideExitBox") && takeBoth("settings-exit", "ClientInterfaceSettings")
                        && m_driver.press("hideExitBox");
                })
        && step("language among the settings",
                [this] {
                    return m_driver.press("clientSettingsRow1") && takeBoth("settings-language", "ClientSettingsScreen")
                        && m_driver.press("saveButton") && appears("snackbarText") && takeBoth("saved", "Snackbar");
                })
        && step("back on the plan",
                [this] { return m_driver.press("sidebarEntry_desktop") && appears("partsTabBar"); });
}

bool Gallery::emptyStates()
{
    auto *parts = qobject_cast<ShopPartsListModel *>(model("shopPartsListModel"));
    return step("a part without zones",
                [=] {
                    parts->addShopPart();
                    return choosePart(Model::ShopPart().name) && appears("emptyPart")
                        && takeBoth("empty-part", "PlaceholderControl");
                })
        && step("a table without zones",
                [=] {
                    return m_driver.press("sidebarEntry_sliders") && appears("slidersTab0") && m_driver.waitFor([=] {
                        m_driver.find("sliders")->setProperty("partUid",
                                                              uidOf("shopPartsListModel", Model::ShopPart().name));
                        return m_driver.find("noZones") != nullptr;
                    }) && takeBoth("empty-table", "ControlSlidersPage")
                        && m_driver.press("sidebarEntry_desktop");
                })
        && step("no part at all", [=] {
               QStringList uids;
               for (int row = 0; row < parts->rowCount(); ++row)
                   uids << parts->index(row, 0).data(ShopPartsListModel::Uid).toString();
               parts->removeShopParts(uids);
               return appears("noParts") && takeBoth("no-parts", "DesktopPage");
           });
}

bool Gallery::lostServer()
{
    return step("a server that does not answer",
                [this] {
                    return openConnections() && m_driver.press("addConnectionButton")
                        && m_driver.type("nameField", "Торговый центр на Ленинском проспекте")
                        && m_driver.type("addressField", nobody) && m_driver.press("positiveButton")
                        && m_driver.waitFor([this] {
                               auto *screen = m_driver.find("loadingScreen");
                               return screen && screen->property("seconds").toInt() > 5;
                           })
                        && takeBoth("connecting", "LoadingPage");
                })
        && step("no longer waiting", [this] {
               return m_driver.press("connectButton") && isStatus(AbstractBackendCommunicator::Disconnected)
                   && takeBoth("disconnected", "LoadingScreen") && openConnections()
                   && takeBoth("connections-two", "ConnectionsDrawer");
           });
}

bool Gallery::covers()
{
    return step("no permission to read the data",
                [this] {
                    m_driver.evaluate("permissionsErrorSplash.visible = true");
                    const bool taken = takeBoth("no-permission", "main");
                    m_driver.evaluate("permissionsErrorSplash.visible = false");
                    return taken;
                })
        && step("first moment", [this] {
               m_driver.evaluate("splash.visible = true");
               const bool taken = takeBoth("splash", "main");
               m_driver.evaluate("splash.visible = false");
               return taken;
           });
}
