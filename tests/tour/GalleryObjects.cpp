// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour/Gallery.h"

// The lists of the side panel, the table of zones, and the page of one zone with its devices.
bool Gallery::objects()
{
    return panel() && controlTable() && cards() && devices();
}

bool Gallery::panel()
{
    return step("parts in the side panel",
                [this] {
                    return m_driver.press("editModeAction") && appears("partsTab")
                        && takeDesktop("panel-parts", "ObjectsListView") && m_driver.press("rowMenuButton")
                        && appears("renameObject") && takeDesktop("part-menu", "OndiraMenu");
                })
        && step("name of a part",
                [this] {
                    return m_driver.press("renameObject") && takeBoth("part", "RenameDialog")
                        && m_driver.press("negativeButton");
                })
        && step("question before a part is removed",
                [this] {
                    return m_driver.press("rowMenuButton") && m_driver.press("removeObject")
                        && takeBoth("part-removal", "OndiraDialog") && m_driver.escape("confirmationText");
                })
        && step("zones in the side panel",
                [this] {
                    return m_driver.press("zonesTab") && takeDesktop("panel-zones", "ZonesListView")
                        && m_driver.press("rowMenuButton") && appears("renameZone")
                        && takeDesktop("zone-menu", "OndiraMenu") && m_driver.press("renameZone")
                        && takeBoth("zone-name", "RenameDialog") && m_driver.press("negativeButton");
                })
        && step("buttons in the side panel",
                [this] {
                    return m_driver.press("buttonsTab") && takeDesktop("panel-buttons", "ButtonsListView")
                        && m_driver.press("rowMenuButton") && appears("editButton");
                })
        && step("editor of a button",
                [this] {
                    return m_driver.press("editButton") && takeBoth("button", "ButtonEditScreen")
                        && takeEnd("button-end", "parametersEditor");
                })
        && step("choice of a colour",
                [this] {
                    auto *field = m_driver.find("nameField");
                    while (field && !field->inherits("QQuickFlickable"))
                        field = field->parentItem();
                    if (field)
                        field->setProperty("contentY", 0);
                    return field && m_driver.press("onColorField") && takeBoth("colors", "ColorPickerDialog")
                        && m_driver.press("color3") && takeBoth("shades", "ColorPicker")
                        && m_driver.escape("colorPicker") && m_driver.press("negativeButton");
                })
        && step("side panel of a narrow window",
                [this] {
                    const auto inDrawer = [this](const char *tab, const char *name, const char *file) {
                        m_driver.resize(420, 800);
                        return m_driver.press("panelAction") && m_driver.press(tab) && takePhone(name, file);
                    };
                    return inDrawer("partsTab", "drawer-parts", "OndiraRightSidebar")
                        && inDrawer("zonesTab", "drawer-zones", "ZonesListView")
                        && inDrawer("buttonsTab", "drawer-buttons", "ButtonsListView");
                })
        && step("a narrow window that edits", [this] {
               m_driver.resize(420, 800);
               return chooseTile("ZoneTile") && appears("editAction") && takePhone("phone-chosen", "TileControl")
                   && m_driver.press("editModeAction");
           });
}

bool Gallery::controlTable()
{
    return step("table of zones",
                [this] {
                    return m_driver.press("sidebarEntry_sliders") && appears("zoneControl0")
                        && takeBoth("table", "ControlSlidersPage");
                })
        && step("a zone of the table driven by hand",
                [this] {
                    return m_driver.press("autoModeSwitch")
                        && m_driver.waitFor([this] { return m_driver.find("powerSlider")->isEnabled(); }, 10000)
                        && takeBoth("table-by-hand", "ZoneControlRow");
                })
        && step("panel of the table", [this] {
               return m_driver.press("controlsAction") && appears("partsTab")
                   && takeBoth("table-panel", "OndiraRightSidebar") && m_driver.press("zonesTab")
                   && takeBoth("table-panel-zones", "ZonesListView") && m_driver.escape("zonesTab");
           });
}

bool Gallery::cards()
{
    struct Zone
    {
        const char *title;
        const char *name;
        const char *file; // of a card that it holds
    };
    constexpr Zone zones[] = {
        {"cards-lamps", "Овощи и фрукты", "LightSensorTile"},
        {"cards-temperature", "Молочные продукты", "TemperatureSensorTile"},
        {"cards-group", "Ряд 1", "LampGroupTile"},
        {"cards-contacts", "Вход", "Brindle6Tile"},
        {"cards-contactor", "Витрина", "Quadrel16Tile"},
        {"cards-meters", "Электрощитовая", "ElectricMeterTile"},
        {"cards-silent", "Ряд Б", "ZonePage"},
    };
    for (const auto &zone : zones) {
        const auto name = QString::fromUtf8(zone.name);
        if (!step(QStringLiteral("cards of ") + zone.title,
                  [&] { return openZone(name) && appears("deviceCell0") && takeBoth(zone.title, zone.file); }))
            return false;
    }
    return step("a zone without devices", [this] {
        const auto zone = QStringLiteral("Новая зона без единого устройства");
        const auto part = uidOf("shopPartsListModel", "Склад");
        const auto before = uidsOf("zonesListModel", "partUid", part);
        const auto added = [&] {
            auto uids = uidsOf("zonesListModel", "partUid", part);
            for (const auto &uid : before)
                uids.removeOne(uid);
            return uids.value(0);
        };
        m_driver.evaluate(QStringLiteral("zonesListModel.addZone({ partUid: '%1', width: 96, height: 96 })").arg(part));
        if (!m_driver.waitFor([&] { return !added().isEmpty(); }, 10000))
            return false;
        m_driver.evaluate(QStringLiteral("zonesListModel.changeZoneName('%1', '%2')").arg(added(), zone));
        return m_driver.waitFor([&] { return !uidOf("zonesListModel", zone).isEmpty(); }, 10000) && openZone(zone)
            && appears("emptyZone") && takeBoth("empty-zone", "ZoneScreen");
    });
}

bool Gallery::devices()
{
    return step("name of a zone",
                [this] {
                    return openZone("Вход") && m_driver.press("zoneHeader") && takeBoth("zone-rename", "RenameDialog")
                        && m_driver.press("negativeButton");
                })
        && step("a new device",
                [this] {
                    return m_driver.press("addDeviceButton") && m_driver.type("addressField", "1-3, 7")
                        && takeBoth("new-device", "DeviceAddDialog");
                })
        && step("a new device with a wrong address",
                [this] {
                    return m_driver.type("addressField", "первый") && takeBoth("new-device-error", "DeviceAddScreen");
                })
        && step("kinds of devices",
                [this] {
                    return m_driver.press("typePicker") && takeBoth("device-kinds", "MenuPopup")
                        && m_driver.press("menuRow2") && takeBoth("new-group", "DeviceAddScreen");
                })
        && step("a list among the properties",
                [this] {
                    return m_driver.press("listField") && takeBoth("empty-list", "TileFieldListEditDialog")
                        && m_driver.press("addElement") && m_driver.press("addElement") && appears("element1")
                        && takeBoth("list", "TileFieldListEditDialog") && m_driver.escape("addElement")
                        && m_driver.press("negativeButton");
                })
        && step("a device", [this] {
               return m_driver.press("deviceCell0") && takeBoth("device", "DeviceEditDialog")
                   && m_driver.press("negativeButton") && openZone("Электрощитовая") && m_driver.press("deviceCell1")
                   && takeBoth("device-meter", "UniversalDeviceEdit") && m_driver.press("negativeButton")
                   && m_driver.press("sidebarEntry_desktop") && appears("partsTabBar");
           });
}
