// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour/Gallery.h"

#include <QtTest>
#include <algorithm>

// The plan: looked at, driven and edited, with the dialogs of what stands on it.
bool Gallery::plans()
{
    return plan() && tiles() && editing() && editors();
}

bool Gallery::plan()
{
    return step("plan", [this] { return takeBoth("plan", "ShopScreen"); })
        && step("two zones chosen", [this] { return chooseTiles(2) && takeBoth("zones-chosen", "BrightnessControl"); })
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
                    }) && takeBoth("zones-by-hand", "ZoneTile");
                })
        && step("keyboard on a tile",
                [this] {
                    QTest::keyClick(m_driver.window(), Qt::Key_Tab);
                    return appears("focusFrame") && takeBoth("keyboard", "TileControl");
                })
        && step("second part", [this] { return chooseTab(1) && takeBoth("second-part", "DesktopPage"); })
        && step("third part", [this] { return chooseTab(2) && takeBoth("third-part", "DesktopPage"); });
}

// Tiles of every size and state beside each other: those of the store, whose second row holds a lamp without answer.
bool Gallery::tiles()
{
    struct Place
    {
        const char *name;
        int x, y, width, height, percent;
    };
    constexpr int automatic = -1;
    constexpr Place places[] = {
        {"Приёмка", 16, 16, 192, 160, automatic},
        {"Отгрузка", 224, 16, 176, 160, 0},
        {"Кабинет", 16, 192, 96, 96, 20},
        {"Электрощитовая", 128, 192, 96, 96, 60},
        {"Ряд А", 240, 192, 160, 48, 100},
        {"Ряд Б", 240, 256, 160, 96, automatic},
        {"Ряд В", 16, 304, 48, 96, 80},
        {"Ряд Г", 80, 304, 32, 32, 40},
        {"Холодильная камера", 240, 368, 160, 32, automatic},
    };
    return step("tiles of every state", [&] {
        if (!choosePart(QStringLiteral("Склад")))
            return false;
        for (const auto &place : places) {
            const auto uid = uidOf("zonesListModel", QString::fromUtf8(place.name));
            m_driver.evaluate(QStringLiteral("zonesListModel.changeZoneGeometry('%1', %2, %3, %4, %5)")
                                  .arg(uid)
                                  .arg(place.x)
                                  .arg(place.y)
                                  .arg(place.width)
                                  .arg(place.height));
            if (place.percent == automatic)
                continue;
            auto *tile = m_driver.zoneTile(uid);
            if (!tile || !m_driver.waitFor([&] { return qRound(tile->width()) == place.width; }, 10000))
                return false;
        }
        const auto press = [this](const char *name, int percent) {
            auto *tile = m_driver.zoneTile(uidOf("zonesListModel", QString::fromUtf8(name)));
            m_driver.click(tile);
            return m_driver.press(QStringLiteral("powerButton%1").arg(percent))
                && m_driver.waitFor([=] { return tile->property("powerPercent").toInt() == percent; }, 10000)
                && m_driver.waitFor([this] { return m_driver.find("autoModeButton") == nullptr; }, 5000);
        };
        for (const auto &place : places) {
            if (place.percent != automatic && !press(place.name, place.percent))
                return false;
        }
        const auto place = [this](const char *model, const char *change, const QString &name, const char *where) {
            m_driver.evaluate(QString(change).arg(uidOf(model, name), where));
        };
        place("buttonsListModel", "buttonsListModel.changeButtonGeometry('%1', %2)", "Склад 100 %", "16, 416, 80, 80");
        place("buttonsListModel", "buttonsListModel.changeButtonGeometry('%1', %2)", "Приёмка и отгрузка",
              "112, 416, 80, 80");
        place("buttonsListModel", "buttonsListModel.changeButtonGeometry('%1', %2)", "Склад: выключить",
              "208, 416, 160, 48");
        m_driver.evaluate(QStringLiteral("buttonsListModel.setButtonState('%1', 1)")
                              .arg(uidOf("buttonsListModel", "Приёмка и отгрузка")));
        const auto indicators = uidsOf("indicatorsListModel", "partUid", uidOf("shopPartsListModel", "Склад"));
        for (int i = 0; i < indicators.size(); ++i)
            m_driver.evaluate(
                QStringLiteral(
                    "indicatorsListModel.changeIndicator({ uid: '%1', x: 16, y: %2, width: %3, height: 48 })")
                    .arg(indicators.at(i))
                    .arg(512 + i * 64)
                    .arg(i == 1 ? 128 : 352));
        return takeBoth("tiles", "ZoneTile");
    });
}

bool Gallery::editing()
{
    return step("plan while it is edited",
                [this] {
                    return chooseTab(0) && m_driver.press("editModeAction") && appears("scaleDown")
                        && takeBoth("editing", "GridCanvas");
                })
        && step("a zone chosen while the plan is edited",
                [this] {
                    return chooseTile("ZoneTile") && appears("editRow") && takeBoth("tile-chosen", "ControlAnchor");
                })
        && step("question before a tile is removed",
                [this] {
                    return m_driver.press("removeRow") && takeBoth("tile-removal", "OndiraDialog")
                        && m_driver.press("negativeButton");
                })
        && step("a schedule for a zone",
                [this] {
                    return m_driver.press("scheduleRow") && takeBoth("quick-schedule", "QuickScheduleDialog")
                        && m_driver.press("schedulePicker") && takeBoth("quick-schedule-menu", "MenuPopup")
                        && m_driver.escape("menuList") && m_driver.press("negativeButton");
                })
        && step("menu of what can be added",
                [this] {
                    m_driver.evaluate("nav.stackView.currentItem.shopScreen.deselectAll()");
                    m_driver.evaluate("nav.stackView.currentItem.shopScreen.addInTheMiddle()");
                    return appears("addImage") && takeBoth("add-menu", "ShopAddMenu");
                })
        && step("choice of a picture's file", [this] {
               return m_driver.press("addImage") && takeBoth("file-choice", "QmlFileDialog")
                   && m_driver.press("sortButton") && appears("sortByName")
                   && takeDesktop("file-order", "QmlFileDialog") && m_driver.escape("sortByName")
                   && m_driver.press("negativeButton");
           });
}

bool Gallery::editors()
{
    return step("the whole plan", [this] { return showWholePlan() && takeBoth("whole-plan", "DesktopPage"); })
        && step("editor of an indicator",
                [this] {
                    return chooseTile("IndicatorTile") && m_driver.press("editRow")
                        && takeBoth("indicator", "IndicatorEdit") && m_driver.press("iconMenu")
                        && takeBoth("indicator-icons", "MenuPopup") && m_driver.escape("menuList")
                        && m_driver.press("alignmentMenu") && takeDesktop("indicator-alignment", "MenuPopup")
                        && m_driver.escape("menuList") && chooseRow("typeMenu", 1)
                        && takeBoth("indicator-value", "ShopEditDialog") && m_driver.press("negativeButton");
                })
        && step("editor of a picture",
                [this] {
                    m_driver.evaluate("nav.stackView.currentItem.shopScreen.deselectAll()");
                    return choosePart("Парковка") && chooseTile("ImageItemTile") && m_driver.press("scaleLabel")
                        && takeDesktop("picture-chosen", "ImageItemTile") && m_driver.press("editRow")
                        && takeBoth("picture", "ImageItemEdit") && m_driver.press("negativeButton");
                })
        && step("looking at the plan again", [this] {
               return chooseTab(0) && m_driver.press("editModeAction")
                   && m_driver.waitFor([this] { return !m_driver.find("scaleDown"); }, 5000);
           });
}
