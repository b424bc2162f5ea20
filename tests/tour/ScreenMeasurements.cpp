// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour/ScreenMeasurements.h"

#include "link/AbstractBackendCommunicator.h"
#include "shell/FrontendManager.h"
#include "tour/WiredSite.h"

#include <QMouseEvent>
#include <QQmlComponent>
#include <QTextStream>
#include <QTimer>
#include <QWheelEvent>
#include <QtTest>
#include <algorithm>
#include <cmath>

namespace {

constexpr int rounds = 7;
constexpr int panSteps = 30; // one way, before the finger turns
constexpr int panStride = 12;
constexpr int quietMs = 300;

void tell(const QString &name, double value)
{
    QTextStream(stdout) << name << ' ' << value << '\n';
}

double milliseconds(qint64 from, qint64 to)
{
    return (to - from) / 1e6;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

ScreenMeasurements::ScreenMeasurements(Driver &driver)
    : m_driver(driver)
    , m_frames(driver.window())
    , m_stack(driver.window()->findChild<QObject *>(QStringLiteral("pageStack")))
{}

bool ScreenMeasurements::shell()
{
    m_driver.resize(1280, 800);
    if (!m_driver.waitForPlan(4))
        return false;
    settle();
    return switchPages() && openDialog() && switchLanguage();
}

// Both have been on screen before: what is measured is the way between two pages that are there.
bool ScreenMeasurements::switchPages()
{
    std::vector<double> times;
    int missed = 0;
    for (int i = 0; i < 2 * rounds; ++i) {
        const char *link = i % 2 == 0 ? "sliders" : "desktop";
        const qint64 start = Frames::now();
        qint64 shown = 0; // the first picture of its fading in
        const auto rhythm = m_frames.watch([&] { show(link); },
                                           [&] {
                                               if (shown == 0)
                                                   shown = Frames::now();
                                               return isPage(link);
                                           });
        if (i >= 2) {
            times.push_back(milliseconds(start, shown));
            missed += rhythm.missed;
        }
        settle();
    }
    tell("page_switch_ms", median(times));
    tell("page_switch_missed", static_cast<double>(missed) / times.size());
    return isPage("desktop");
}

bool ScreenMeasurements::openDialog()
{
    auto *dialog = m_driver.window()->findChild<QObject *>(QStringLiteral("tabAddDialog"));
    if (!dialog)
        return false;
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        const qint64 start = Frames::now();
        const qint64 shown = m_frames.shown([&] { QMetaObject::invokeMethod(dialog, "open"); },
                                            [&] { return m_driver.find("addressField") != nullptr; });
        if (shown == 0)
            return false;
        times.push_back(milliseconds(start, shown));
        settle();
        if (!m_driver.escape("addressField"))
            return false;
        settle();
    }
    tell("dialog_first_ms", times.front());
    tell("dialog_ms", median({times.begin() + 1, times.end()}));
    return true;
}

bool ScreenMeasurements::switchLanguage()
{
    QQmlComponent component(&m_driver.manager().getEngine());
    component.setData("import QtQml 2.15\n"
                      "import LanguageController 1.0\n"
                      "QtObject {\n"
                      "    function change() {\n"
                      "        LanguageController.set(LanguageController.locale === 'en_GB' ? 'ru_RU' : 'en_GB',\n"
                      "                               LanguageController.activeLayouts)\n"
                      "    }\n"
                      "}\n",
                      {});
    const std::unique_ptr<QObject> language(component.create());
    const auto text = [this] {
        const auto *entry = m_driver.find("sidebarEntry_settings");
        return entry ? entry->property("text").toString() : QString();
    };
    if (!language)
        return false;
    std::vector<double> times;
    std::vector<double> plans;
    for (int i = 0; i < rounds - 1; ++i) { // there and back
        const QString before = text();
        const qint64 start = Frames::now();
        const qint64 shown = m_frames.shown([&] { QMetaObject::invokeMethod(language.get(), "change"); },
                                            [&] { return !text().isEmpty() && text() != before; });
        if (shown == 0)
            return false;
        times.push_back(milliseconds(start, shown));
        // The link begins anew, since the server's texts are in that language too.
        const auto isBack = [this] {
            return m_driver.manager().getCommunicator().getStatus() == AbstractBackendCommunicator::Connected
                && m_stack->property("currentItem").value<QQuickItem *>()->objectName() == QLatin1String("desktop")
                && m_driver.zoneTiles().size() > 4;
        };
        const qint64 back = m_frames.shown([] {}, isBack);
        if (back == 0)
            return false;
        plans.push_back(milliseconds(start, back));
        settle();
    }
    tell("language_ms", median(times));
    tell("language_plan_ms", median(plans));
    return true;
}

bool ScreenMeasurements::plan(WiredSite &site)
{
    const auto tiles = site.data().zones.size();
    auto &link = m_driver.manager().getCommunicator();
    qint64 connected = 0;
    const auto noteLogin = [&] {
        if (link.getStatus() == AbstractBackendCommunicator::Connected && connected == 0)
            connected = Frames::now();
    };
    const auto watch =
        QObject::connect(&link, &AbstractBackendCommunicator::statusChanged, &m_frames, [&] { noteLogin(); });
    noteLogin(); // a small site may be in already
    m_driver.resize(1280, 800);
    const auto isOpen = [&] {
        const auto *screen = connected == 0 ? nullptr : m_driver.find("GridCanvas");
        return screen && m_driver.zoneTiles().size() >= tiles;
    };
    const qint64 opened = m_frames.shown([] {}, isOpen);
    QObject::disconnect(watch);
    if (opened == 0)
        return false;
    tell("plan_open_ms", milliseconds(connected, opened));
    settle();
    return publish(site) && tap(site) && moveThePlan();
}

bool ScreenMeasurements::publish(WiredSite &site)
{
    const auto uid = site.data().zones.front().zone.uid;
    const auto *tile = m_driver.zoneTile(uid.toString());
    if (!tile)
        return false;
    std::vector<double> times;
    for (int i = 0; i <= 2 * rounds; ++i) {
        const int percent = i % 2 == 0 ? 35 : 85;
        site.listen();
        const qint64 shown = m_frames.shown([&] { site.setZonePower(uid, percent); },
                                            [&] { return tile->property("powerPercent").toInt() == percent; });
        if (shown == 0)
            return false;
        if (i > 0)
            times.push_back(milliseconds(site.published(), shown));
        settle();
    }
    tell("publication_ms", median(times));
    return true;
}

bool ScreenMeasurements::tap(WiredSite &site)
{
    auto *tile = m_driver.zoneTile(site.data().zones.front().zone.uid.toString());
    std::vector<double> sent;
    std::vector<double> seen;
    for (int i = 0; i <= 2 * rounds; ++i) {
        const int percent = i % 2 == 0 ? 20 : 80;
        const auto name = QStringLiteral("powerButton%1").arg(percent);
        m_driver.click(tile);
        if (!m_driver.waitFor([&] { return m_driver.find(name) != nullptr; }))
            return false;
        settle();
        auto *button = m_driver.find(name);
        site.listen();
        const qint64 start = Frames::now();
        const qint64 shown = m_frames.shown([&] { m_driver.click(button); },
                                            [&] { return tile->property("powerPercent").toInt() == percent; });
        if (shown == 0 || site.requested() == 0)
            return false;
        if (i > 0) {
            sent.push_back(milliseconds(start, site.requested()));
            seen.push_back(milliseconds(start, shown));
        }
        settle();
    }
    tell("tap_request_ms", median(sent));
    tell("tap_tile_ms", median(seen));
    return true;
}

bool ScreenMeasurements::moveThePlan()
{
    const auto *canvas = m_driver.find("GridCanvas");
    const auto place = [canvas] { return canvas->mapToScene({}); };
    const QPointF before = place();
    bool hasMoved = false;
    const auto panned = m_frames.drive(4 * panSteps, [&](int) {
        pan();
        hasMoved = hasMoved || place() != before;
    });
    sendMouse(QEvent::MouseButtonRelease, m_finger);
    settle();
    tell("pan_median_ms", panned.median);
    tell("pan_longest_ms", panned.longest);

    const double scale = canvas->scale();
    bool hasZoomed = false;
    const auto zoomed = m_frames.drive(4 * panSteps, [&](int step) {
        turnWheel(step / 10 % 2 == 0 ? -1 : 1);
        hasZoomed = hasZoomed || canvas->scale() < scale;
    });
    settle();
    tell("zoom_median_ms", zoomed.median);
    tell("zoom_longest_ms", zoomed.longest);
    return hasMoved && hasZoomed;
}

bool ScreenMeasurements::zone(WiredSite &site)
{
    m_driver.resize(1280, 800);
    if (!m_driver.waitForPlan(1))
        return false;
    settle();
    const auto uid = site.data().zones.front().zone.uid.toString();
    const int devices = static_cast<int>(site.data().devices.size());
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        const qint64 start = Frames::now();
        const qint64 shown = m_frames.shown(
            [&] {
                show("zone", {{QStringLiteral("uid"), uid}});
            },
            [&] {
                const auto *grid = m_driver.find("devicesGrid");
                return grid && grid->property("count").toInt() == devices && m_driver.find("deviceCell0");
            });
        if (shown == 0)
            return false;
        times.push_back(milliseconds(start, shown));
        settle();
        show("desktop");
        if (!m_driver.waitFor([this] { return isPage("desktop"); }))
            return false;
        settle();
    }
    tell("zone_first_ms", times.front());
    tell("zone_ms", median({times.begin() + 1, times.end()}));
    return true;
}

void ScreenMeasurements::pan()
{
    if (m_panned == 0) {
        m_finger = {900, 600};
        sendMouse(QEvent::MouseButtonPress, m_finger);
    }
    const int direction = m_panned / panSteps % 2 == 0 ? -1 : 1;
    ++m_panned;
    m_finger += QPointF(direction * panStride, direction * panStride);
    sendMouse(QEvent::MouseMove, m_finger);
}

void ScreenMeasurements::sendMouse(QEvent::Type type, const QPointF &place)
{
    const bool isDown = type != QEvent::MouseButtonRelease;
    QMouseEvent event(type, place, place, place, type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                      isDown ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    event.setTimestamp(m_timestamp += 16);
    QCoreApplication::sendEvent(m_driver.window(), &event);
    if (!isDown)
        m_panned = 0;
}

void ScreenMeasurements::turnWheel(int direction)
{
    const QPointF middle(600, 400);
    QWheelEvent event(middle, middle, QPoint(), QPoint(0, 120 * direction), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(m_driver.window(), &event);
}

void ScreenMeasurements::settle()
{
    QEventLoop loop;
    QTimer quiet;
    quiet.setSingleShot(true);
    QObject::connect(m_driver.window(), &QQuickWindow::frameSwapped, &quiet, [&quiet] { quiet.start(quietMs); });
    QObject::connect(&quiet, &QTimer::timeout, &loop, &QEventLoop::quit);
    QTimer::singleShot(10 * quietMs, &loop, &QEventLoop::quit);
    quiet.start(quietMs);
    loop.exec();
}

bool ScreenMeasurements::isPage(const char *link) const
{
    const auto *page = m_stack->property("currentItem").value<QQuickItem *>();
    return page && page->objectName() == QLatin1String(link) && !m_stack->property("busy").toBool();
}

void ScreenMeasurements::show(const char *link, const QVariantMap &properties)
{
    auto *navigator = m_driver.window()->findChild<QObject *>(QStringLiteral("nav"));
    QVariant page;
    QMetaObject::invokeMethod(navigator, "show", Q_RETURN_ARG(QVariant, page),
                              Q_ARG(QVariant, QString::fromLatin1(link)), Q_ARG(QVariant, properties));
}
