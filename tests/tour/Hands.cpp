// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour/Hands.h"

#include <QQmlContext>
#include <QtTest>
#include <algorithm>

namespace {

constexpr int patienceMs = 10000;

} // namespace

QObject *Hands::contextObject(const char *name) const
{
    return driver().manager().getEngine().rootContext()->contextProperty(QString::fromLatin1(name)).value<QObject *>();
}

QStringList Hands::uids(const char *model) const
{
    const auto *list = object<UidKeyAbstractListModel>(model);
    const int role = list->roleNames().key("uid");
    QStringList uids;
    for (int row = 0; row < list->rowCount(); ++row)
        uids << list->index(row, 0).data(role).toString();
    return uids;
}

QVariantMap Hands::record(const char *model, const QString &uid) const
{
    return object<UidKeyAbstractListModel>(model)->getByUid(uid);
}

QString Hands::uidOf(const char *model, const QString &name) const
{
    const auto all = uids(model);
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&](const QString &uid) { return record(model, uid).value("name") == name; });
    return found == all.end() ? QString() : *found;
}

QQuickItem *Hands::tile(const QString &uid) const
{
    const auto found = driver().items(
        [&](QQuickItem *item) { return item->property("place").isValid() && item->property("uid").toString() == uid; });
    return found.empty() ? nullptr : found.front();
}

QQuickItem *Hands::withText(const QString &namePrefix, const QString &text) const
{
    const auto found = driver().items([&](QQuickItem *item) {
        return item->objectName().startsWith(namePrefix) && item->property("text").toString() == text;
    });
    return found.empty() ? nullptr : found.front();
}

QQuickItem *Hands::inPopup(const QString &popup, const QString &objectName) const
{
    const auto *object = driver().window()->findChild<QObject *>(popup);
    if (!object || !object->property("visible").toBool())
        return nullptr;
    return driver().find(objectName, object->property("contentItem").value<QQuickItem *>());
}

QString Hands::textOf(const QString &objectName) const
{
    const auto *item = find(objectName);
    return item ? item->property("text").toString() : QString();
}

QString Hands::shownPart() const
{
    const auto *screen = find("shopScreen");
    return screen ? screen->property("uid").toString() : QString();
}

bool Hands::press(const Look &look)
{
    return driver().press([this, look]() -> QQuickItem * {
        const auto *stack = find("pageStack");
        return !stack || stack->property("busy").toBool() ? nullptr : look();
    });
}

bool Hands::press(const QString &objectName)
{
    return press([this, objectName] { return find(objectName); });
}

bool Hands::pressTile(const QString &uid)
{
    return press([this, uid] { return tile(uid); });
}

bool Hands::pressInPopup(const QString &popup, const QString &objectName)
{
    return press([=] { return inPopup(popup, objectName); });
}

bool Hands::pressRow(const QString &namePrefix, const QString &text, const QString &button)
{
    return press([=]() -> QQuickItem * {
        auto *row = withText(namePrefix, text);
        return button.isEmpty() ? row : driver().find(button, row);
    });
}

bool Hands::write(const QString &field, const QString &text)
{
    if (!press(field))
        return false;
    auto *window = driver().window();
    QTest::keyClick(window, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(window, Qt::Key_Delete);
    for (const auto letter : text) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, Qt::Key_unknown, Qt::NoModifier, QString(letter));
            QCoreApplication::sendEvent(window, &event);
        }
    }
    return driver().waitFor([&] { return textOf(field) == text; }, patienceMs);
}

bool Hands::choose(const QString &picker, const QString &text)
{
    const auto isOpen = [&] {
        const auto *field = find(picker);
        const auto *popup = field ? field->property("popup").value<QObject *>() : nullptr;
        return popup && popup->property("opened").toBool();
    };
    if (!press(picker) || !driver().waitFor(isOpen, patienceMs))
        return false;
    auto *window = driver().window();
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
    if (!driver().waitFor(isAt, patienceMs))
        return false;
    QTest::keyClick(window, Qt::Key_Return);
    return driver().waitFor(
        [&] { return !find("menuList") && find(picker)->property("selectedText").toString() == text; }, patienceMs);
}

void Hands::drag(const QPointF &from, const QPointF &way)
{
    constexpr int steps = 5;
    auto *window = driver().window();
    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, from.toPoint());
    for (int step = 1; step <= steps; ++step)
        QTest::mouseMove(window, (from + way * step / steps).toPoint());
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, (from + way).toPoint());
}

bool Hands::dragTile(const QString &uid, const QPointF &way)
{
    const auto *item = tile(uid);
    if (!item || !item->property("selected").toBool())
        return false;
    drag(item->mapToScene(QPointF(item->width() / 2, item->height() / 2)), way);
    return true;
}

bool Hands::dragHandle(const QString &uid, Qt::Edge edge, const QPointF &way)
{
    const auto *handle = driver().find(QStringLiteral("anchor%1").arg(edge), tile(uid));
    if (!handle)
        return false;
    drag(handle->mapToScene(QPointF(handle->width() / 2, handle->height() / 2)), way);
    return true;
}

void Hands::wheel(int notches)
{
    const QPointF corner = find("shopScreen")->mapToScene(QPointF(1, 1));
    for (int i = 0; i < qAbs(notches); ++i) {
        QWheelEvent event(corner, corner, QPoint(), QPoint(0, notches < 0 ? -120 : 120), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(driver().window(), &event);
    }
}

bool Hands::clickPlan(const QPointF &place)
{
    const auto *plan = find("GridCanvas");
    if (!plan)
        return false;
    QTest::mouseClick(driver().window(), Qt::LeftButton, Qt::NoModifier, plan->mapToScene(place).toPoint());
    return true;
}

bool Hands::showPart(const QString &name)
{
    const auto uid = uidOf("shopPartsListModel", name);
    return pressRow("partTab", name)
        && driver().waitFor(
            [&] {
                const auto *screen = find("shopScreen");
                return shownPart() == uid && screen->property("loaded").toBool();
            },
            patienceMs);
}

bool Hands::confirm(const QString &question)
{
    return driver().waitFor([&] { return textOf("confirmationText") == question; }, patienceMs)
        && press("positiveButton") && driver().waitFor([this] { return !find("positiveButton"); }, patienceMs);
}
