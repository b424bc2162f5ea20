// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/FrontendManager.h"
#include "tour/Gallery.h"

#include <QDir>
#include <QPainter>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QTextStream>
#include <QtMath>
#include <QtTest>
#include <memory>

// The control library: sheets of the tour's own, in windows of the program's style, that show each control enabled,
// disabled, with the keyboard, with an error and with a long text.
namespace {

void collectCells(QQuickItem *item, std::vector<QQuickItem *> &cells)
{
    if (item->objectName() == QLatin1String("focusedCell"))
        cells.push_back(item);
    const auto children = item->childItems();
    for (auto *child : children)
        collectCells(child, cells);
}

QQuickItem *firstFocusable(QQuickItem *item)
{
    if (item->activeFocusOnTab() && item->isEnabled() && item->isVisible())
        return item;
    const auto children = item->childItems();
    for (auto *child : children) {
        if (auto *found = firstFocusable(child))
            return found;
    }
    return nullptr;
}

// Only one control of a window has the keyboard: each cell is taken while its own has it.
QImage withFocusedCells(Driver &driver)
{
    QImage whole = driver.settledPicture();
    std::vector<QQuickItem *> cells;
    collectCells(driver.window()->contentItem(), cells);
    for (auto *cell : cells) {
        auto *control = firstFocusable(cell);
        if (!control) {
            QTextStream(stdout) << "Nothing takes the keyboard in the cell at " << cell->mapToScene({}).y() << '\n';
            return {};
        }
        control->forceActiveFocus(Qt::TabFocusReason);
        const auto place = cell->mapRectToScene(cell->boundingRect()).toAlignedRect() & whole.rect();
        if (place.isEmpty())
            continue;
        const auto taken = driver.settledPicture();
        QPainter(&whole).drawImage(place.topLeft(), taken, place);
    }
    return whole;
}

} // namespace

bool Gallery::sheets()
{
    const QString names[] = {"Fields", "Buttons", "Tiles", "Cards"};
    for (const auto &name : names) {
        if (!step("sheet of " + name.toLower(), [&] { return sheet(name); }))
            return false;
    }
    return step("calendar and dial", [this] { return pickers(); });
}

std::unique_ptr<QQuickWindow> Gallery::sheetWindow(const QString &name) const
{
    auto &engine = m_driver.manager().getEngine();
    QQmlComponent component(&engine, QUrl(QStringLiteral("qrc:/sheets/%1Sheet.qml").arg(name)));
    // In the context of the main window the fonts are known by its ids.
    auto *object = component.create(qmlContext(m_driver.window()));
    if (!object)
        QTextStream(stdout) << component.errorString() << '\n';
    return std::unique_ptr<QQuickWindow>(qobject_cast<QQuickWindow *>(object));
}

bool Gallery::sheet(const QString &name)
{
    const auto window = sheetWindow(name);
    if (!window)
        return false;
    Driver driver(m_driver.manager(), window.get());
    ++m_pictures;
    for (const int width : {1280, 420}) {
        driver.resize(width, 800);
        driver.settledPicture();
        const int height = std::max(800, qCeil(window->property("wantedHeight").toReal()));
        QImage whole(width, height, QImage::Format_RGB32);
        for (int top = 0; top < height; top += 800) {
            window->setProperty("offset", top);
            const auto part = withFocusedCells(driver);
            if (part.isNull())
                return false;
            QPainter(&whole).drawImage(0, top, part);
        }
        const QString file = QStringLiteral("%1-sheet-%2-%3x800.png")
                                 .arg(m_pictures, 3, 10, QLatin1Char('0'))
                                 .arg(name.toLower())
                                 .arg(width);
        if (!whole.save(QDir(m_folder).filePath(file)))
            return false;
    }
    return true;
}

bool Gallery::pickers()
{
    const auto window = sheetWindow(QStringLiteral("Pickers"));
    if (!window)
        return false;
    Driver driver(m_driver.manager(), window.get());
    driver.resize(1280, 800);
    Gallery gallery(driver, m_folder, m_address);
    gallery.m_pictures = m_pictures;
    QMetaObject::invokeMethod(window.get(), "showCalendar");
    bool taken = gallery.takeBoth("calendar", "DatePickerCalendarDialog");
    QMetaObject::invokeMethod(window.get(), "showDial");
    taken = gallery.takeBoth("dial", "TimePickerDialog") && taken;
    m_pictures = gallery.m_pictures;
    return taken;
}
