// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/ProgramFixture.h"

#include <QQmlContext>
#include <QtTest>
#include <algorithm>

namespace {

constexpr int patienceMs = 10000;

} // namespace

ProgramFixture::ProgramFixture(const QString &address)
    : m_site(address)
    , m_formerHome(qgetenv("XDG_DATA_HOME"))
{
    qputenv("XDG_DATA_HOME", m_home.path().toLocal8Bit());
}

ProgramFixture::~ProgramFixture()
{
    stopProgram();
    qputenv("XDG_DATA_HOME", m_formerHome);
}

bool ProgramFixture::startProgram(int width, int height)
{
    m_manager = std::make_unique<FrontendManager>(QCoreApplication::applicationDirPath(), QStringList());
    m_driver = std::make_unique<Driver>(*m_manager);
    if (!m_driver->window())
        return false;
    m_driver->resize(width, height);
    return true;
}

void ProgramFixture::stopProgram()
{
    m_driver.reset();
    m_manager.reset();
}

bool ProgramFixture::restartProgram()
{
    const auto size = m_driver->window()->size();
    TestBase::cleanup(); // the program takes the log over
    stopProgram();
    const bool started = startProgram(size.width(), size.height());
    TestBase::init();
    return started;
}

bool ProgramFixture::isConnectedAs(const QString &group) const
{
    return link().getStatus() == Link::Connected && link().getUserGroup() == group;
}

bool ProgramFixture::waitForGroup(const QString &group) const
{
    return m_driver->waitFor([&] { return isConnectedAs(group) && !find("loadingHeadline"); }, 2 * patienceMs);
}

QObject *ProgramFixture::contextObject(const char *name) const
{
    return m_manager->getEngine().rootContext()->contextProperty(QString::fromLatin1(name)).value<QObject *>();
}

QStringList ProgramFixture::uids(const char *model) const
{
    const auto *list = object<UidKeyAbstractListModel>(model);
    const int role = list->roleNames().key("uid");
    QStringList uids;
    for (int row = 0; row < list->rowCount(); ++row)
        uids << list->index(row, 0).data(role).toString();
    return uids;
}

QVariantMap ProgramFixture::record(const char *model, const QString &uid) const
{
    return object<UidKeyAbstractListModel>(model)->getByUid(uid);
}

QString ProgramFixture::uidOf(const char *model, const QString &name) const
{
    const auto all = uids(model);
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&](const QString &uid) { return record(model, uid).value("name") == name; });
    return found == all.end() ? QString() : *found;
}

QQuickItem *ProgramFixture::tile(const QString &uid) const
{
    const auto found = m_driver->items(
        [&](QQuickItem *item) { return item->property("place").isValid() && item->property("uid").toString() == uid; });
    return found.empty() ? nullptr : found.front();
}

QQuickItem *ProgramFixture::withText(const QString &namePrefix, const QString &text) const
{
    const auto found = m_driver->items([&](QQuickItem *item) {
        return item->objectName().startsWith(namePrefix) && item->property("text").toString() == text;
    });
    return found.empty() ? nullptr : found.front();
}

QQuickItem *ProgramFixture::inPopup(const QString &popup, const QString &objectName) const
{
    const auto *object = m_driver->window()->findChild<QObject *>(popup);
    if (!object || !object->property("visible").toBool())
        return nullptr;
    return m_driver->find(objectName, object->property("contentItem").value<QQuickItem *>());
}

QString ProgramFixture::textOf(const QString &objectName) const
{
    const auto *item = find(objectName);
    return item ? item->property("text").toString() : QString();
}

QString ProgramFixture::shownPart() const
{
    const auto *screen = find("shopScreen");
    return screen ? screen->property("uid").toString() : QString();
}

bool ProgramFixture::press(const Look &look)
{
    return m_driver->press([this, look]() -> QQuickItem * {
        const auto *stack = find("pageStack");
        return !stack || stack->property("busy").toBool() ? nullptr : look();
    });
}

bool ProgramFixture::press(const QString &objectName)
{
    return press([this, objectName] { return find(objectName); });
}

bool ProgramFixture::pressTile(const QString &uid)
{
    return press([this, uid] { return tile(uid); });
}

bool ProgramFixture::pressInPopup(const QString &popup, const QString &objectName)
{
    return press([=] { return inPopup(popup, objectName); });
}

bool ProgramFixture::pressRow(const QString &namePrefix, const QString &text, const QString &button)
{
    return press([=]() -> QQuickItem * {
        auto *row = withText(namePrefix, text);
        return button.isEmpty() ? row : m_driver->find(button, row);
    });
}

bool ProgramFixture::write(const QString &field, const QString &text)
{
    if (!press(field))
        return false;
    auto *window = m_driver->window();
    QTest::keyClick(window, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(window, Qt::Key_Delete);
    for (const auto letter : text) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, Qt::Key_unknown, Qt::NoModifier, QString(letter));
            QCoreApplication::sendEvent(window, &event);
        }
    }
    return m_driver->waitFor([&] { return textOf(field) == text; }, patienceMs);
}

bool ProgramFixture::choose(const QString &picker, const QString &text)
{
    const auto isOpen = [&] {
        const auto *field = find(picker);
        const auto *popup = field ? field->property("popup").value<QObject *>() : nullptr;
        return popup && popup->property("opened").toBool();
    };
    if (!press(picker) || !m_driver->waitFor(isOpen, patienceMs))
        return false;
    auto *window = m_driver->window();
    const auto isAt = [&] {
        const auto *list = find("menuList");
        const auto *row = list ? list->property("currentItem").value<QQuickItem *>() : nullptr;
        return row && row->property("text").toString() == text;
    };
    if (find("menuSearchField")) {
        for (const auto letter : text) {
            QKeyEvent event(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(letter));
            QCoreApplication::sendEvent(window, &event);
        }
    } else {
        QTest::keyClick(window, Qt::Key_Home);
        const int rows = find("menuList")->property("count").toInt();
        for (int row = 0; row < rows && !isAt(); ++row)
            QTest::keyClick(window, Qt::Key_Down);
    }
    if (!m_driver->waitFor(isAt, patienceMs))
        return false;
    QTest::keyClick(window, Qt::Key_Return);
    return m_driver->waitFor(
        [&] { return !find("menuList") && find(picker)->property("selectedText").toString() == text; }, patienceMs);
}

void ProgramFixture::drag(const QPointF &from, const QPointF &way)
{
    constexpr int steps = 5;
    auto *window = m_driver->window();
    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, from.toPoint());
    for (int step = 1; step <= steps; ++step)
        QTest::mouseMove(window, (from + way * step / steps).toPoint());
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, (from + way).toPoint());
}

bool ProgramFixture::dragTile(const QString &uid, const QPointF &way)
{
    const auto *item = tile(uid);
    if (!item || !item->property("selected").toBool())
        return false;
    drag(item->mapToScene(QPointF(item->width() / 2, item->height() / 2)), way);
    return true;
}

bool ProgramFixture::dragHandle(const QString &uid, Qt::Edge edge, const QPointF &way)
{
    const auto *handle = m_driver->find(QStringLiteral("anchor%1").arg(edge), tile(uid));
    if (!handle)
        return false;
    drag(handle->mapToScene(QPointF(handle->width() / 2, handle->height() / 2)), way);
    return true;
}

void ProgramFixture::wheel(int notches)
{
    const QPointF corner = find("shopScreen")->mapToScene(QPointF(1, 1));
    for (int i = 0; i < qAbs(notches); ++i) {
        QWheelEvent event(corner, corner, QPoint(), QPoint(0, notches < 0 ? -120 : 120), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(m_driver->window(), &event);
    }
}

bool ProgramFixture::clickPlan(const QPointF &place)
{
    const auto *plan = find("GridCanvas");
    if (!plan)
        return false;
    QTest::mouseClick(m_driver->window(), Qt::LeftButton, Qt::NoModifier, plan->mapToScene(place).toPoint());
    return true;
}

bool ProgramFixture::showPart(const QString &name)
{
    const auto uid = uidOf("shopPartsListModel", name);
    return pressRow("partTab", name)
        && m_driver->waitFor(
            [&] {
                const auto *screen = find("shopScreen");
                return shownPart() == uid && screen->property("loaded").toBool();
            },
            patienceMs);
}

bool ProgramFixture::confirm(const QString &question)
{
    return m_driver->waitFor([&] { return textOf("confirmationText") == question; }, patienceMs)
        && press("positiveButton") && m_driver->waitFor([this] { return !find("positiveButton"); }, patienceMs);
}
