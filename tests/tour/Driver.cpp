// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour/Driver.h"

#include "link/AbstractBackendCommunicator.h"
#include "shell/FrontendManager.h"
#include "support/NextFrame.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExpression>
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

// What is declared in a file lives in a context of that file; of the root of a file its type tells.
bool isOf(const QObject *object, const QString &file)
{
    const auto *context = qmlContext(object);
    if (context && context->baseUrl().path().endsWith(QLatin1Char('/') + file + QLatin1String(".qml")))
        return true;
    for (const auto *type = object->metaObject(); type; type = type->superClass()) {
        if (QString::fromLatin1(type->className()).startsWith(file + QLatin1String("_QML")))
            return true;
    }
    return false;
}

} // namespace

Driver::Driver(FrontendManager &manager, QQuickWindow *window)
    : m_manager(manager)
    , m_window(window)
{
    m_log =
        QObject::connect(&manager, &FrontendManager::logMessage, &manager, [this](int type, const QString &message) {
            if (type == QtWarningMsg || type == QtCriticalMsg)
                m_warnings << message;
        });
}

Driver::Driver(FrontendManager &manager)
    : Driver(manager, nullptr)
{
    const auto objects = manager.getEngine().rootObjects();
    for (auto *object : objects) {
        if (auto *window = qobject_cast<QQuickWindow *>(object))
            m_window = window;
    }
}

Driver::~Driver()
{
    QObject::disconnect(m_log);
}

QQuickItem *Driver::find(const QString &objectName) const
{
    auto *content = m_window->contentItem();
    return find(objectName, content->parentItem() ? content->parentItem() : content);
}

QQuickItem *Driver::find(const QString &objectName, QQuickItem *within) const
{
    std::vector<QQuickItem *> found;
    if (within)
        collect(
            within, [&](QQuickItem *item) { return item->objectName() == objectName; }, found);
    return found.empty() ? nullptr : found.front();
}

std::vector<QQuickItem *> Driver::items(const std::function<bool(QQuickItem *)> &wanted) const
{
    std::vector<QQuickItem *> found;
    auto *content = m_window->contentItem();
    collect(content->parentItem() ? content->parentItem() : content, wanted, found);
    return found;
}

std::vector<QQuickItem *> Driver::tiles(const QString &type) const
{
    std::vector<QQuickItem *> found;
    collect(
        m_window->contentItem(),
        [&](QQuickItem *item) { return QString::fromLatin1(item->metaObject()->className()).startsWith(type + '_'); },
        found);
    std::sort(found.begin(), found.end(), [](QQuickItem *left, QQuickItem *right) {
        return left->y() < right->y() || (left->y() == right->y() && left->x() < right->x());
    });
    return found;
}

std::vector<QQuickItem *> Driver::zoneTiles() const
{
    return tiles(QStringLiteral("ZoneTile"));
}

QQuickItem *Driver::zoneTile(const QString &uid) const
{
    for (auto *tile : zoneTiles()) {
        if (tile->property("uid").toString() == uid)
            return tile;
    }
    return nullptr;
}

bool Driver::shows(const QString &file) const
{
    std::vector<QQuickItem *> found;
    // The item of a popup belongs to the popup.
    collect(
        m_window->contentItem(),
        [&](QQuickItem *item) { return isOf(item, file) || (item->parent() && isOf(item->parent(), file)); }, found);
    return !found.empty();
}

QVariant Driver::evaluate(const QString &expression) const
{
    return QQmlExpression(qmlContext(m_window), m_window, expression).evaluate();
}

void Driver::resize(int width, int height)
{
    m_window->setVisibility(QWindow::Windowed);
    m_window->resize(width, height);
    waitFor([this, width, height] { return m_window->width() == width && m_window->height() == height; });
    // A frame of that size has taken the other shape; what goes with the old one is gone before anything else happens.
    picture();
    waitFor([this] { return !isPopupMoving(); });
}

void Driver::click(QQuickItem *item)
{
    const QPointF middle = item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
    QTest::mouseClick(m_window, Qt::LeftButton, Qt::NoModifier, middle.toPoint());
}

bool Driver::press(const QString &objectName)
{
    return press([this, objectName] { return find(objectName); });
}

bool Driver::press(const std::function<QQuickItem *()> &look)
{
    constexpr int restingLooks = 3;
    const QRectF window(0, 0, m_window->width(), m_window->height());
    QRectF last;
    int looks = 0;
    const bool rests = waitFor(
        [&] {
            const auto *item = look();
            const auto place = item ? item->mapRectToScene(item->boundingRect()) : QRectF();
            const bool isThere = item && item->isEnabled() && window.contains(place.center()) && !isPopupMoving();
            looks = isThere && std::exchange(last, place) == place ? looks + 1 : 0;
            return looks >= restingLooks;
        },
        10000);
    if (rests)
        click(look());
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

// A modal popup takes clicks until it is gone.
bool Driver::isPopupMoving() const
{
    std::vector<QQuickItem *> moving;
    collect(
        m_window->contentItem(),
        [](QQuickItem *item) {
            const auto *popup = item->parent();
            return popup && popup->inherits("QQuickPopup") && !popup->property("opened").toBool();
        },
        moving);
    return !moving.empty();
}

QImage Driver::picture()
{
    // Two frames: what changed just now is on screen after the second.
    for (int frame = 0; frame < 2; ++frame)
        nextFrame(m_window, 1000);
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
            && static_cast<int>(zoneTiles().size()) >= tiles && !find(QStringLiteral("splash"));
    });
}
