// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour/Driver.h"

#include "link/AbstractBackendCommunicator.h"
#include "shell/FrontendManager.h"

#include <QtTest>
#include <algorithm>
#include <utility>

namespace {

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

bool isZoneTile(QQuickItem *item)
{
    return QString::fromLatin1(item->metaObject()->className()).startsWith(QLatin1String("ZoneTile"));
}

} // namespace

Driver::Driver(FrontendManager &manager)
    : m_manager(manager)
{
    QObject::connect(&manager, &FrontendManager::logMessage, &manager, [this](int type, const QString &message) {
        if (type == QtWarningMsg || type == QtCriticalMsg)
            m_warnings << message;
    });
    const auto objects = manager.getEngine().rootObjects();
    for (auto *object : objects) {
        if (auto *window = qobject_cast<QQuickWindow *>(object))
            m_window = window;
    }
}

QQuickItem *Driver::find(const QString &objectName) const
{
    std::vector<QQuickItem *> found;
    collect(
        m_window->contentItem()->parentItem() ? m_window->contentItem()->parentItem() : m_window->contentItem(),
        [&](QQuickItem *item) { return item->objectName() == objectName; }, found);
    return found.empty() ? nullptr : found.front();
}

std::vector<QQuickItem *> Driver::zoneTiles() const
{
    std::vector<QQuickItem *> found;
    collect(m_window->contentItem(), isZoneTile, found);
    std::sort(found.begin(), found.end(), [](QQuickItem *left, QQuickItem *right) {
        return left->y() < right->y() || (left->y() == right->y() && left->x() < right->x());
    });
    return found;
}

QQuickItem *Driver::zoneTile(const QString &uid) const
{
    for (auto *tile : zoneTiles()) {
        if (tile->property("uid").toString() == uid)
            return tile;
    }
    return nullptr;
}

void Driver::resize(int width, int height)
{
    m_window->setVisibility(QWindow::Windowed);
    m_window->resize(width, height);
    waitFor([this, width, height] { return m_window->width() == width && m_window->height() == height; });
}

void Driver::click(QQuickItem *item)
{
    const QPointF middle = item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
    QTest::mouseClick(m_window, Qt::LeftButton, Qt::NoModifier, middle.toPoint());
}

bool Driver::press(const QString &objectName)
{
    constexpr int restingLooks = 3;
    const QRectF window(0, 0, m_window->width(), m_window->height());
    QRectF last;
    int looks = 0;
    const bool rests = waitFor(
        [&] {
            const auto *item = find(objectName);
            const auto place = item ? item->mapRectToScene(item->boundingRect()) : QRectF();
            const bool isThere = item && item->isEnabled() && window.contains(place.center());
            looks = isThere && std::exchange(last, place) == place ? looks + 1 : 0;
            return looks >= restingLooks;
        },
        10000);
    if (rests)
        click(find(objectName));
    return rests;
}

bool Driver::type(const QString &objectName, const QString &text)
{
    return waitFor([&] { return find(objectName) != nullptr; }, 10000) && find(objectName)->setProperty("text", text);
}

bool Driver::escape(const QString &objectName)
{
    QTest::keyClick(m_window, Qt::Key_Escape);
    return waitFor([&] { return find(objectName) == nullptr; }, 10000);
}

QImage Driver::picture()
{
    // Two frames: what changed just now is on screen after the second.
    for (int frame = 0; frame < 2; ++frame) {
        QSignalSpy swapped(m_window, &QQuickWindow::frameSwapped);
        m_window->update();
        swapped.wait(1000);
    }
    return m_window->grabWindow();
}

QImage Driver::settledPicture()
{
    // What covers an empty place fades in after a moment in which nothing moves.
    waitFor([this] {
        std::vector<QQuickItem *> fading;
        collect(
            m_window->contentItem(),
            [](QQuickItem *item) {
                return item->opacity() < 1
                    && QString::fromLatin1(item->metaObject()->className()).startsWith(QLatin1String("Placeholder"));
            },
            fading);
        return fading.empty();
    });
    QImage last;
    QImage now = picture();
    waitFor(
        [&] {
            last = std::exchange(now, picture());
            return last == now;
        },
        2500);
    return now;
}

bool Driver::waitFor(const std::function<bool()> &condition, int timeoutMs)
{
    return QTest::qWaitFor(condition, timeoutMs);
}

bool Driver::waitForPlan(int tiles)
{
    return waitFor([this, tiles] {
        return m_manager.getCommunicator().getStatus() == AbstractBackendCommunicator::Connected
            && static_cast<int>(zoneTiles().size()) >= tiles;
    });
}
