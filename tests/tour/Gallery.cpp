// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour/Gallery.h"

#include "link/AbstractBackendCommunicator.h"
#include "shell/FrontendManager.h"

#include <QAbstractItemModel>
#include <QDir>
#include <QQmlContext>
#include <QTextStream>
#include <QtTest>
#include <algorithm>

namespace {

constexpr QSize desktop{1280, 800};
constexpr QSize phone{420, 800};

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
    return firstSteps() && plans() && shell() && objects() && sheets() && emptyStates() && lostServer() && covers()
        && step("no warning in the log", [this] { return isLogClean(); });
}

bool Gallery::isLogClean() const
{
    bool isClean = true;
    for (const auto &warning : m_driver.warnings()) {
        // The form that was refused: the same connection twice.
        if (warning.contains(QLatin1String("UNIQUE constraint failed")))
            continue;
        tell("  " + warning);
        isClean = false;
    }
    return isClean;
}

bool Gallery::step(const QString &name, const std::function<bool()> &action)
{
    const bool worked = action();
    tell(QStringLiteral("%1 %2").arg(worked ? "ok    " : "FAILED", name));
    if (!worked) {
        take("failed");
        isLogClean();
    }
    return worked;
}

bool Gallery::take(const QString &name)
{
    const QString file = QStringLiteral("%1-%2-%3x%4.png")
                             .arg(m_pictures, 3, 10, QLatin1Char('0'))
                             .arg(name)
                             .arg(m_driver.window()->width())
                             .arg(m_driver.window()->height());
    return m_driver.settledPicture().save(QDir(m_folder).filePath(file));
}

bool Gallery::takeBoth(const QString &name, const QString &file)
{
    ++m_pictures;
    const bool shown = m_driver.waitFor([&] { return m_driver.shows(file); }, 5000);
    m_driver.resize(phone.width(), phone.height());
    const bool taken = take(name) && m_driver.shows(file);
    m_driver.resize(desktop.width(), desktop.height());
    return take(name) && taken && shown && m_driver.shows(file);
}

bool Gallery::takeDesktop(const QString &name, const QString &file)
{
    ++m_pictures;
    return m_driver.waitFor([&] { return m_driver.shows(file); }, 5000) && take(name);
}

bool Gallery::takePhone(const QString &name, const QString &file)
{
    ++m_pictures;
    const bool taken = m_driver.waitFor([&] { return m_driver.shows(file); }, 5000) && take(name);
    m_driver.resize(desktop.width(), desktop.height());
    return taken;
}

bool Gallery::takeEnd(const QString &name, const QString &objectName)
{
    ++m_pictures;
    bool taken = true;
    for (const auto &size : {phone, desktop}) {
        m_driver.resize(size.width(), size.height());
        m_driver.settledPicture();
        auto *item = m_driver.find(objectName);
        while (item && !item->inherits("QQuickFlickable"))
            item = item->parentItem();
        taken = taken && item;
        if (item)
            item->setProperty("contentY", std::max(0.0, item->property("contentHeight").toDouble() - item->height()));
        taken = take(name) && taken;
    }
    return taken;
}

bool Gallery::appears(const QString &objectName)
{
    return m_driver.waitFor([&] { return m_driver.find(objectName) != nullptr; }, 10000);
}

bool Gallery::openConnections()
{
    return m_driver.press("connectionButton") && appears("addConnectionButton");
}

bool Gallery::choosePart(const QString &name)
{
    return m_driver.waitFor([&] { return tabOf(name) >= 0; }, 10000) && chooseTab(tabOf(name));
}

bool Gallery::chooseTab(int index)
{
    return m_driver.press(QStringLiteral("partTab%1").arg(index))
        && m_driver.waitFor([=] { return m_driver.find("partsTabBar")->property("currentIndex").toInt() == index; });
}

// Where a part stands depends on the language that named it.
int Gallery::tabOf(const QString &name) const
{
    const auto *bar = m_driver.find("partsTabBar");
    const int count = bar ? bar->property("count").toInt() : 0;
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
    return appears("autoModeButton");
}

bool Gallery::chooseTile(const QString &type)
{
    m_driver.settledPicture(); // what covered the plan is gone
    const auto *plan = m_driver.find("shopScreen");
    if (!plan)
        return false;
    const auto room = plan->mapRectToScene(plan->boundingRect());
    for (auto *tile : m_driver.tiles(type)) {
        if (tile->property("locked").toBool() || !room.contains(tile->mapRectToScene(tile->boundingRect()).center()))
            continue;
        m_driver.click(tile);
        return m_driver.waitFor([tile] { return tile->property("selected").toBool(); }, 5000);
    }
    return false;
}

bool Gallery::chooseRow(const QString &menu, int row)
{
    return m_driver.press(menu) && m_driver.press(QStringLiteral("menuRow%1").arg(row))
        && m_driver.waitFor([this] { return m_driver.find("menuList") == nullptr; }, 5000);
}

bool Gallery::showWholePlan()
{
    if (!appears("scaleDown"))
        return false;
    while (m_driver.find("scaleDown")->isEnabled()) {
        if (!m_driver.press("scaleDown"))
            return false;
    }
    return true;
}

bool Gallery::openZone(const QString &name)
{
    const auto uid = uidOf("zonesListModel", name);
    m_driver.evaluate(QStringLiteral("nav.show('zone', { uid: '%1' })").arg(uid));
    return !uid.isEmpty() && appears("zoneScreen")
        && m_driver.waitFor([&] { return m_driver.find("zoneScreen")->property("name").toString() == name; }, 10000);
}

QStringList Gallery::uidsOf(const char *name, const QString &role, const QVariant &value) const
{
    const auto *rows = qobject_cast<QAbstractItemModel *>(model(name));
    const auto roles = rows->roleNames();
    QStringList uids;
    for (int row = 0; row < rows->rowCount(); ++row) {
        const auto index = rows->index(row, 0);
        if (index.data(roles.key(role.toUtf8())) == value)
            uids << index.data(roles.key("uid")).toString();
    }
    return uids;
}

QString Gallery::uidOf(const char *model, const QString &name) const
{
    return uidsOf(model, "name", name).value(0);
}

bool Gallery::isStatus(int status)
{
    return m_driver.waitFor([=] { return m_driver.manager().getCommunicator().getStatus() == status; });
}

QObject *Gallery::model(const char *name) const
{
    return m_driver.manager().getEngine().rootContext()->contextProperty(name).value<QObject *>();
}
