// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour/Tour.h"

#include "shell/FrontendManager.h"

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
    m_driver.resize(1280, 800);
    const bool passed = step("logged in, the plan is on screen", [this] { return m_driver.waitForPlan(4); })
        && step("picture of the plan", [this] { return takePicture("plan-before"); })
        && step("two zones chosen", [this] { return chooseTwoZones(); })
        && step("picture of the choice", [this] { return takePicture("zones-chosen"); })
        && step("both zones are at 60 % in manual mode", [this] { return setChosenTo60(); })
        && step("picture of the plan after", [this] { return takePicture("plan-after"); })
        && step("the list of connections opens",
                [this] {
                    return m_driver.press("connectionButton")
                        && m_driver.waitFor([this] { return m_driver.find("connectionsList") != nullptr; })
                        && takePicture("connections");
                })
        && step("no warning in the log", [this] {
                            for (const auto &warning : m_driver.warnings())
                                tell("  " + warning);
                            return m_driver.warnings().isEmpty();
                        });
    return passed;
}

bool Tour::step(const QString &name, const std::function<bool()> &action)
{
    const bool worked = action();
    tell(QStringLiteral("%1 %2").arg(worked ? "ok    " : "FAILED", name));
    if (!worked)
        takePicture("failed");
    return worked;
}

bool Tour::takePicture(const QString &name)
{
    const QImage picture = m_driver.picture();
    const QString file = QStringLiteral("%1-%2.png").arg(++m_pictures).arg(name);
    return !picture.isNull() && showsSomething(picture) && picture.save(QDir(m_folder).filePath(file));
}

bool Tour::chooseTwoZones()
{
    const auto tiles = m_driver.zoneTiles();
    for (auto *tile : tiles) {
        if (m_chosen.size() == 2)
            break;
        if (tile->property("powerPercent").toInt() == 60)
            continue; // the change must be visible
        m_driver.click(tile);
        const auto isSelected = [tile] { return tile->property("selected").toBool(); };
        if (!m_driver.waitFor(isSelected))
            return false;
        m_chosen << tile->property("uid").toString();
    }
    return m_chosen.size() == 2 && m_driver.waitFor([this] { return m_driver.find("powerButton60") != nullptr; });
}

bool Tour::setChosenTo60()
{
    return m_driver.press("powerButton60") && m_driver.waitFor([this] {
        return std::all_of(m_chosen.cbegin(), m_chosen.cend(), [this](const QString &uid) {
            auto *tile = m_driver.zoneTile(uid);
            return tile && tile->property("powerPercent").toInt() == 60 && tile->property("manual").toBool()
                && !tile->property("selected").toBool();
        });
    });
}
