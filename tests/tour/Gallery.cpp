// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour/Gallery.h"

#include "data/ShopPartsListModel.h"
#include "link/AbstractBackendCommunicator.h"
#include "model/Site.h"
#include "shell/FrontendManager.h"

#include <QDir>
#include <QQmlContext>
#include <QTextStream>
#include <QtTest>
#include <algorithm>

namespace {

constexpr QSize desktop{1280, 800};
constexpr QSize phone{420, 800};

// A loopback address at which nobody listens.
const char *const nobody = "127.0.200.1";

void tell(const QString &line)
{
    QTextStream(stdout) << line << '\n';
}

} // namespace

Gallery::Gallery(Driver &driver, const QString &pictureFolder, const QString &siteAddress)
    : m_driver(driver)
    , m_folder(pictureFolder)
    , m_address(siteAddress)
{}

bool Gallery::run()
{
    m_driver.resize(desktop.width(), desktop.height());
    return firstSteps() && plan() && sidebar() && settings() && emptyStates() && lostServer()
        && step("no warning in the log", [this] {
               bool isClean = true;
               for (const auto &warning : m_driver.warnings()) {
                   // The form that was refused: the same connection twice.
                   if (warning.contains(QLatin1String("UNIQUE constraint failed")))
                       continue;
                   tell("  " + warning);
                   isClean = false;
               }
               return isClean;
           });
}

bool Gallery::firstSteps()
{
    return step("no connection yet",
                [this] {
                    return m_driver.waitFor([this] { return m_driver.window()->isExposed(); })
                        && takeBoth("no-connections");
                })
        && step("form of a new connection",
                [this] {
                    return m_driver.press("placeholderButton") && m_driver.type("nameField", "Демо")
                        && m_driver.type("addressField", m_address) && takeBoth("new-connection");
                })
        && step("wrong password",
                [this] {
                    return m_driver.type("loginField", "admin") && m_driver.type("passwordField", "wrong")
                        && m_driver.press("positiveButton")
                        && m_driver.waitFor([this] { return m_driver.find("errorText") != nullptr; })
                        && takeBoth("error");
                })
        && step("after the refusal", [this] { return m_driver.press("errorButton") && takeBoth("login-refused"); })
        && step("form of a saved connection",
                [this] {
                    return openConnections() && m_driver.press("connectionMenuButton0") && takeBoth("connection-menu")
                        && m_driver.press("editConnection0") && m_driver.type("passwordField", "admin")
                        && takeBoth("saved-connection") && m_driver.press("positiveButton");
                })
        && step("logged in", [this] { return m_driver.waitForPlan(4); });
}

bool Gallery::plan()
{
    return step("plan", [this] { return takeBoth("plan"); })
        && step("two zones chosen", [this] { return chooseTiles(2) && takeBoth("zones-chosen"); })
        && step("zones driven by hand",
                [this] {
                    return m_driver.press("powerButton20") && m_driver.waitFor([this] {
                        const auto tiles = m_driver.zoneTiles();
                        return std::count_if(tiles.begin(), tiles.end(),
                                             [](QQuickItem *tile) {
                                                 return tile->property("manual").toBool()
                                                     && tile->property("powerPercent").toInt() == 20;
                                             })
                            >= 2;
                    }) && takeBoth("zones-by-hand");
                })
        && step("keyboard on a tile",
                [this] {
                    QTest::keyClick(m_driver.window(), Qt::Key_Tab);
                    return m_driver.waitFor([this] { return m_driver.find("focusFrame") != nullptr; })
                        && takeBoth("keyboard");
                })
        && step("the whole plan",
                [this] {
                    if (!m_driver.press("editModeAction")
                        || !m_driver.waitFor([this] { return m_driver.find("scaleDown") != nullptr; }))
                        return false;
                    while (m_driver.find("scaleDown")->isEnabled()) {
                        if (!m_driver.press("scaleDown"))
                            return false;
                    }
                    return takeBoth("whole-plan") && m_driver.press("scaleLabel") && m_driver.press("editModeAction");
                })
        && step("second part", [this] { return chooseTab(1) && takeBoth("second-part"); })
        && step("third part", [this] { return chooseTab(2) && takeBoth("third-part"); })
        && step("list of connections", [this] { return openConnections() && takeBoth("connections"); })
        && step("a connection that is there already", [this] {
               return m_driver.press("addConnectionButton") && m_driver.type("nameField", "Демо")
                   && m_driver.type("addressField", m_address) && m_driver.type("loginField", "admin")
                   && m_driver.type("passwordField", "admin") && m_driver.press("positiveButton")
                   && m_driver.waitFor([this] { return m_driver.find("refusalLabel") != nullptr; })
                   && takeBoth("connection-refused") && m_driver.press("negativeButton");
           });
}

bool Gallery::sidebar()
{
    return step("drawer of a narrow window",
                [this] {
                    m_driver.resize(phone.width(), phone.height());
                    const bool taken = m_driver.press("leftAction")
                        && m_driver.waitFor([this] { return m_driver.find("connectionItem") != nullptr; })
                        && takePhone("sidebar");
                    return taken && m_driver.escape("connectionItem");
                })
        && step("choice of the language",
                [this] {
                    return m_driver.press("languageButton") && takeBoth("language")
                        && m_driver.escape("languagePicker");
                })
        && step(
               "change of the user",
               [this] { return m_driver.press("userButton") && takeBoth("user") && m_driver.escape("userLoginField"); })
        && step("version", [this] { return m_driver.press("logoButton") && takeBoth("version"); })
        && step("list of changes",
                [this] {
                    return m_driver.press("changelogItem") && takeBoth("changelog") && m_driver.escape("changelogText");
                })
        && step("licences",
                [this] {
                    return m_driver.press("licensesItem") && takeBoth("licence")
                        && m_driver.press("thirdPartyLicensesTab") && takeBoth("licences-of-others")
                        && m_driver.escape("licenseText") && m_driver.escape("versionLabel");
                })
        && step("question before leaving", [this] {
               return m_driver.press("exitButton") && takeBoth("leaving") && m_driver.escape("confirmationText");
           });
}

bool Gallery::settings()
{
    return step("settings",
                [this] { return m_driver.press("sidebarEntry_settings") && takeBoth("settings-interface"); })
        && step("exit hidden",
                [this] {
                    return m_driver.press("hideExitBox") && takeBoth("settings-exit") && m_driver.press("hideExitBox");
                })
        && step("language among the settings",
                [this] {
                    return m_driver.press("clientSettingsRow1") && takeBoth("settings-language")
                        && m_driver.press("saveButton")
                        && m_driver.waitFor([this] { return m_driver.find("snackbarText") != nullptr; })
                        && takeBoth("saved");
                })
        && step("back on the plan", [this] {
               return m_driver.press("sidebarEntry_desktop")
                   && m_driver.waitFor([this] { return m_driver.find("partsTabBar") != nullptr; });
           });
}

bool Gallery::emptyStates()
{
    auto *parts = qobject_cast<ShopPartsListModel *>(model("shopPartsListModel"));
    return step("a part without zones",
                [=] {
                    parts->addShopPart();
                    return m_driver.waitFor([this] { return m_driver.find("partTab3") != nullptr; })
                        && chooseTab(tabOf(Model::ShopPart().name))
                        && m_driver.waitFor([this] { return m_driver.find("emptyPart") != nullptr; })
                        && takeBoth("empty-part");
                })
        && step("no part at all", [=] {
               QStringList uids;
               for (int row = 0; row < parts->rowCount(); ++row)
                   uids << parts->index(row, 0).data(ShopPartsListModel::Uid).toString();
               parts->removeShopParts(uids);
               return m_driver.waitFor([this] { return m_driver.find("noParts") != nullptr; }) && takeBoth("no-parts");
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
                        && takeBoth("connecting");
                })
        && step("no longer waiting", [this] {
               return m_driver.press("connectButton") && isStatus(AbstractBackendCommunicator::Disconnected)
                   && takeBoth("disconnected") && openConnections() && takeBoth("connections-two");
           });
}

bool Gallery::step(const QString &name, const std::function<bool()> &action)
{
    const bool worked = action();
    tell(QStringLiteral("%1 %2").arg(worked ? "ok    " : "FAILED", name));
    if (!worked)
        take("failed");
    return worked;
}

bool Gallery::take(const QString &name)
{
    const QString file = QStringLiteral("%1-%2-%3x%4.png")
                             .arg(m_pictures, 2, 10, QLatin1Char('0'))
                             .arg(name)
                             .arg(m_driver.window()->width())
                             .arg(m_driver.window()->height());
    return m_driver.settledPicture().save(QDir(m_folder).filePath(file));
}

bool Gallery::takeBoth(const QString &name)
{
    ++m_pictures;
    m_driver.resize(phone.width(), phone.height());
    const bool taken = take(name);
    m_driver.resize(desktop.width(), desktop.height());
    return take(name) && taken;
}

bool Gallery::takePhone(const QString &name)
{
    ++m_pictures;
    const bool taken = take(name);
    m_driver.resize(desktop.width(), desktop.height());
    return taken;
}

bool Gallery::openConnections()
{
    return m_driver.press("connectionButton")
        && m_driver.waitFor([this] { return m_driver.find("addConnectionButton") != nullptr; });
}

bool Gallery::chooseTab(int index)
{
    return m_driver.press(QStringLiteral("partTab%1").arg(index))
        && m_driver.waitFor([=] { return m_driver.find("partsTabBar")->property("currentIndex").toInt() == index; });
}

// Where a part stands depends on the language that named it.
int Gallery::tabOf(const QString &name) const
{
    const int count = m_driver.find("partsTabBar")->property("count").toInt();
    for (int i = 0; i < count; ++i) {
        const auto *tab = m_driver.find(QStringLiteral("partTab%1").arg(i));
        if (tab && tab->property("text").toString() == name)
            return i;
    }
    return -1;
}

bool Gallery::chooseTiles(int count)
{
    const auto tiles = m_driver.zoneTiles();
    for (int i = 0; i < count; ++i)
        m_driver.click(tiles.at(static_cast<size_t>(i)));
    return m_driver.waitFor([this] { return m_driver.find("autoModeButton") != nullptr; });
}

bool Gallery::isStatus(int status)
{
    return m_driver.waitFor([=] { return m_driver.manager().getCommunicator().getStatus() == status; });
}

QObject *Gallery::model(const char *name) const
{
    return m_driver.manager().getEngine().rootContext()->contextProperty(name).value<QObject *>();
}
