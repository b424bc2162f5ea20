// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour/Tour.h"

#include <QDir>
#include <QSet>
#include <QTextStream>
#include <algorithm>

namespace {

void tell(const QString &line)
{
    QTextStream(stdout) << line << '\n';
}

// A picture of a screen in use holds many colours; a blank or broken one does not.
bool showsSomething(const QImage &picture)
{
    QSet<QRgb> colours;
    for (int y = 0; y < picture.height(); y += 4) {
        for (int x = 0; x < picture.width(); x += 4)
            colours.insert(picture.pixel(x, y));
    }
    return colours.size() > 8;
}

} // namespace

Tour::Tour(Driver &driver, const QString &pictureFolder)
    : m_driver(driver)
    , m_folder(pictureFolder)
{}

bool Tour::run()
{
    return day(QStringLiteral("desktop"), {1280, 800}) && day(QStringLiteral("phone"), {420, 800})
        && step(QStringLiteral("no warning in the log"), [this] {
               for (const auto &warning : m_driver.warnings())
                   tell("  " + warning);
               return m_driver.warnings().isEmpty();
           });
}

bool Tour::day(const QString &shape, const QSize &size)
{
    m_shape = shape;
    m_size = size;
    m_driver.resize(size.width(), size.height());
    return step(QStringLiteral("logged in, the plan is on screen"),
                [this] { return m_driver.waitForPlan(4) && takePicture("plan"); })
        && operate() && administrate();
}

bool Tour::operate()
{
    return step(QStringLiteral("two zones chosen"), [this] { return chooseTwoZones() && takePicture("zones-chosen"); })
        && step(QStringLiteral("both zones are at 60 % in manual mode"),
                [this] { return setChosenTo60() && takePicture("plan-at-60"); })
        && step(QStringLiteral("both zones are automatic again"),
                [this] { return releaseChosen() && takePicture("plan-automatic"); })
        && step(QStringLiteral("a button is pressed"),
                [this] { return pressButton() && takePicture("button-pressed"); });
}

bool Tour::administrate()
{
    return step(QStringLiteral("edit mode"), [this] { return startEditing(); })
        && step(QStringLiteral("a part is added"), [this] { return addPart(); })
        && step(QStringLiteral("a zone is added"), [this] { return addZone() && takePicture("zone-added"); })
        && step(QStringLiteral("the zone is moved"), [this] { return moveZone(); })
        && step(QStringLiteral("the zone is renamed"), [this] { return renameZone() && takePicture("zone-renamed"); })
        && step(QStringLiteral("a device is added"), [this] { return addDevice() && takePicture("device-added"); })
        && step(QStringLiteral("the device is edited"), [this] { return editDevice() && takePicture("device-edited"); })
        && step(QStringLiteral("a schedule is set"), [this] { return setSchedule() && takePicture("schedule-set"); })
        && step(QStringLiteral("the zone is removed"), [this] { return removeZone(); })
        && step(QStringLiteral("the part is removed"), [this] { return removePart(); })
        && step(QStringLiteral("the plan as it was"), [this] { return endEditing() && takePicture("plan-after"); });
}

bool Tour::step(const QString &name, const std::function<bool()> &action)
{
    const bool worked = action();
    tell(QStringLiteral("%1 %2: %3").arg(worked ? "ok    " : "FAILED", m_shape, name));
    if (!worked)
        takePicture("failed");
    return worked;
}

bool Tour::takePicture(const QString &name)
{
    const QImage picture = m_driver.settledPicture();
    const QString file = QStringLiteral("%1-%2-%3.png").arg(++m_pictures, 2, 10, QLatin1Char('0')).arg(m_shape, name);
    return !picture.isNull() && showsSomething(picture) && picture.save(QDir(m_folder).filePath(file));
}

bool Tour::chooseTwoZones()
{
    m_chosen.clear();
    const QRectF window(QPointF(), m_size);
    const auto tiles = m_driver.zoneTiles();
    for (auto *tile : tiles) {
        if (m_chosen.size() == 2)
            break;
        if (tile->property("powerPercent").toInt() == 60 || tile->property("manual").toBool()
            || !window.contains(tile->mapRectToScene(tile->boundingRect()).center()))
            continue; // the change must be visible
        m_driver.click(tile);
        if (!waitFor([tile] { return tile->property("selected").toBool(); }))
            return false;
        m_chosen << tile->property("uid").toString();
    }
    return m_chosen.size() == 2 && waitFor([this] { return find("powerButton60") != nullptr; });
}

bool Tour::setChosenTo60()
{
    return press("powerButton60") && waitFor([this] {
               return std::all_of(m_chosen.cbegin(), m_chosen.cend(), [this](const QString &uid) {
                   auto *tile = m_driver.zoneTile(uid);
                   return tile && tile->property("powerPercent").toInt() == 60 && tile->property("manual").toBool()
                       && !tile->property("selected").toBool();
               });
           });
}

bool Tour::releaseChosen()
{
    for (const auto &uid : qAsConst(m_chosen)) {
        if (!pressTile(uid))
            return false;
    }
    return press("autoModeButton") && waitFor([this] {
               return std::none_of(m_chosen.cbegin(), m_chosen.cend(), [this](const QString &uid) {
                   return record("zonesListModel", uid).value("manual").toBool();
               });
           });
}

// One that stays pressed, so that its state tells. It may stand anywhere on the plan, which is looked at from afar.
bool Tour::pressButton()
{
    const auto all = uids("buttonsListModel");
    const auto found = std::find_if(all.begin(), all.end(), [this](const QString &uid) {
        return record("buttonsListModel", uid).value("toggle").toBool() && tile(uid);
    });
    if (found == all.end())
        return false;
    const auto state = [=] { return record("buttonsListModel", *found).value("state").toInt(); };
    const int before = state();
    constexpr int notches = 30;
    wheel(-notches);
    return pressTile(*found) && waitFor([=] { return state() != before; });
}

bool Tour::openPanel()
{
    return !isPhone() || find("objectsListView") || press("panelAction");
}

bool Tour::closePanel()
{
    return !isPhone() || m_driver.escape("editModeRow");
}

bool Tour::startEditing()
{
    return (isPhone() ? openPanel() && press("editModeRow") : press("editModeAction"))
        && waitFor([this] { return m_driver.evaluate("shopController.isEditingEnabled").toBool(); })
        && press("scaleLabel") && waitFor([this] { return find("GridCanvas")->scale() == 1.0; }) && closePanel();
}

bool Tour::endEditing()
{
    return (isPhone() ? openPanel() && press("editModeRow") && closePanel() : press("editModeAction"))
        && waitFor([this] { return !m_driver.evaluate("shopController.isEditingEnabled").toBool(); })
        && m_driver.waitForPlan(4);
}

bool Tour::save()
{
    return press("positiveButton") && waitFor([this] { return !find("positiveButton"); });
}

QString Tour::newOne(const char *model, const QStringList &before) const
{
    const auto all = uids(model);
    const auto found = std::find_if(all.begin(), all.end(), [&](const QString &uid) { return !before.contains(uid); });
    return found == all.end() ? QString() : *found;
}

bool Tour::addPart()
{
    const auto before = uids("shopPartsListModel");
    const auto isThere = [&] { return !(m_part = newOne("shopPartsListModel", before)).isEmpty(); };
    return openPanel() && press("partsTab") && press("addButton") && waitFor(isThere)
        && pressRow("objectRow", record("shopPartsListModel", m_part).value("name").toString())
        && waitFor([this] { return shownPart() == m_part && m_driver.zoneTiles().empty(); }) && closePanel();
}

bool Tour::addZone()
{
    const auto before = uids("zonesListModel");
    const auto isThere = [&] { return !(m_zone = newOne("zonesListModel", before)).isEmpty() && tile(m_zone); };
    return clickPlan({200, 150}) && pressInPopup("addMenu", "addZone") && waitFor(isThere)
        && record("zonesListModel", m_zone).value("partUid").toString() == m_part;
}

bool Tour::moveZone()
{
    const double x = record("zonesListModel", m_zone).value("x").toDouble();
    const auto isMoved = [=] { return record("zonesListModel", m_zone).value("x").toDouble() > x; };
    const auto isThere = [=] { return tile(m_zone)->x() == record("zonesListModel", m_zone).value("x").toDouble(); };
    return pressTile(m_zone) && waitFor([this] { return tile(m_zone)->property("selected").toBool(); })
        && dragTile(m_zone, {60, 40}) && waitFor(isMoved) && waitFor(isThere);
}

bool Tour::renameZone()
{
    const QString name = QStringLiteral("Столики");
    const auto row = [this] { return m_driver.find("rowMenuButton", find("zoneRow0")); };
    const auto isRenamed = [=] { return record("zonesListModel", m_zone).value("name").toString() == name; };
    return openPanel() && press("zonesTab") && press(row) && pressInPopup("zoneMenu", "renameZone")
        && write("nameField", name) && save() && waitFor(isRenamed) && press("partsTab") && closePanel();
}

bool Tour::addDevice()
{
    const auto before = uids("devicesListModel");
    const auto sensor = std::find_if(before.begin(), before.end(), [this](const QString &uid) {
        return record("devicesListModel", uid).value("commonType") == "polling_light_sensor";
    });
    if (sensor == before.end())
        return false;
    const auto type = record("devicesListModel", *sensor).value("typeInfo").toMap().value("name").toString();
    const auto isThere = [&] {
        m_device = newOne("devicesListModel", before);
        return !m_device.isEmpty() && find("deviceCell0");
    };
    return press(isPhone() ? "editAction" : "editRow") && press("addDeviceButton") && choose("typePicker", type)
        && write("addressField", QStringLiteral("901")) && save() && waitFor(isThere)
        && record("devicesListModel", m_device).value("zoneUid").toString() == m_zone;
}

bool Tour::editDevice()
{
    const auto isEdited = [this] { return record("devicesListModel", m_device).value("address").toInt() == 902; };
    return press([this] { return m_driver.find("cardType", find("deviceCell0")); })
        && write("addressField", QStringLiteral("902")) && save() && waitFor(isEdited) && press("leftAction")
        && waitFor([this] { return find("partsTabBar") && shownPart() == m_part; });
}

bool Tour::setSchedule()
{
    const auto days = uids("schedulesListModel");
    if (days.isEmpty())
        return false;
    const auto name = record("schedulesListModel", days.front()).value("name").toString();
    const auto isSet = [=] { return record("zonesListModel", m_zone).value("scheduleName").toString().contains(name); };
    return openPanel() && press("scheduleRow") && choose("schedulePicker", name) && save() && waitFor(isSet)
        && closePanel();
}

bool Tour::removeZone()
{
    return press(isPhone() ? "removeAction" : "removeRow") && save()
        && waitFor([this] { return !uids("zonesListModel").contains(m_zone) && !tile(m_zone); });
}

bool Tour::removePart()
{
    const auto name = record("shopPartsListModel", m_part).value("name").toString();
    return openPanel() && pressRow("objectRow", name, "rowMenuButton") && pressInPopup("objectMenu", "removeObject")
        && save() && waitFor([this] { return !uids("shopPartsListModel").contains(m_part); }) && closePanel()
        && waitFor([this] { return !shownPart().isEmpty() && shownPart() != m_part; });
}
