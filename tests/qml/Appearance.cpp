// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Appearance.h"

#include <QAccessible>
#include <QQmlContext>
#include <QQmlProperty>
#include <QSet>
#include <QTranslator>
#include <QtTest>
#include <algorithm>

namespace {

bool isTile(QQuickItem *item)
{
    const QByteArray name(item->metaObject()->className());
    return name.startsWith("ZoneTile") || name.startsWith("ButtonTile");
}

QVariant accessible(QQuickItem *item, const char *property)
{
    return QQmlProperty::read(item, QStringLiteral("Accessible.") + QString::fromLatin1(property), qmlContext(item));
}

// A part of another control, which stands for it, is not one by itself.
bool isInteractive(QQuickItem *item)
{
    return item->isEnabled() && item->opacity() > 0
        && (item->inherits("QQuickAbstractButton") || item->inherits("QQuickTextField") || isTile(item))
        && !accessible(item, "ignored").toBool() && accessible(item, "role").toInt() != QAccessible::StaticText;
}

// Buttons hand their own text over as their name, though not before a screen reader listens.
QString accessibleName(QQuickItem *item)
{
    const auto given = accessible(item, "name").toString();
    return given.isEmpty() && item->inherits("QQuickAbstractButton") ? item->property("text").toString() : given;
}

QString described(QQuickItem *item)
{
    return QStringLiteral("%1 \"%2\" \"%3\"")
        .arg(item->metaObject()->className(), item->objectName(), item->property("text").toString());
}

// Whether the user can bring it into sight by scrolling.
bool isInScrollingContent(QQuickItem *item)
{
    for (auto *parent = item->parentItem(); parent; parent = parent->parentItem()) {
        if (parent->inherits("QQuickFlickable")
            && (parent->property("contentWidth").toReal() > parent->width() + 0.5
                || parent->property("contentHeight").toReal() > parent->height() + 0.5))
            return true;
    }
    return false;
}

std::vector<QQuickItem *> interactive(const Stage &stage)
{
    return stage.items(isInteractive);
}

// The column at the left is a place of its own: F6 goes there and back.
bool isInSidebar(QQuickItem *item)
{
    while (item && item->objectName() != "sidebarBody")
        item = item->parentItem();
    return item != nullptr;
}

// The list that it is a row of, or null.
QQuickItem *listOf(QQuickItem *item)
{
    while (item && !item->inherits("QQuickItemView"))
        item = item->parentItem();
    return item;
}

// What takes all below it out of reach, or null.
QQuickItem *topModalPopup(const Stage &stage)
{
    QQuickItem *top = nullptr;
    const auto objects = stage.window()->findChildren<QObject *>();
    for (auto *object : objects) {
        if (!object->inherits("QQuickPopup") || !object->property("visible").toBool()
            || !object->property("modal").toBool())
            continue;
        auto *popup = object->property("contentItem").value<QQuickItem *>()->parentItem();
        const auto others = popup->parentItem()->childItems();
        if (!top || others.indexOf(popup) > others.indexOf(top))
            top = popup;
    }
    return top;
}

std::vector<QQuickItem *> reachable(const Stage &stage)
{
    auto all = interactive(stage);
    auto *popup = topModalPopup(stage);
    all.erase(
        std::remove_if(all.begin(), all.end(),
                       [popup](QQuickItem *item) { return popup ? !popup->isAncestorOf(item) : isInSidebar(item); }),
        all.end());
    return all;
}

QStringList cutTexts(const Stage &stage)
{
    QStringList faults;
    for (auto *text : stage.items([](QQuickItem *item) { return item->inherits("QQuickText"); })) {
        const bool isTooLarge = text->property("contentWidth").toReal() > text->width() + 0.5
            || text->property("contentHeight").toReal() > text->height() + 0.5;
        if (text->property("truncated").toBool() || (isTooLarge && text->opacity() > 0))
            faults << described(text) + " is cut";
    }
    return faults;
}

QStringList itemsOutsideTheWindow(const Stage &stage)
{
    QStringList faults;
    const QRectF window(-0.5, -0.5, stage.window()->width() + 1, stage.window()->height() + 1);
    for (auto *item : interactive(stage)) {
        if (!isInScrollingContent(item) && !window.contains(item->mapRectToScene(QRectF(QPointF(), item->size()))))
            faults << described(item) + " leaves the window";
    }
    return faults;
}

QStringList itemsTooSmallForAFinger(const Stage &stage)
{
    QStringList faults;
    for (auto *item : interactive(stage)) {
        if (!isTile(item) && (item->width() < 48 || item->height() < 48))
            faults << QStringLiteral("%1 is %2 by %3").arg(described(item)).arg(item->width()).arg(item->height());
    }
    return faults;
}

QStringList itemsUnknownToScreenReaders(const Stage &stage)
{
    QStringList faults;
    const auto items = interactive(stage);
    if (items.empty())
        faults << "nothing to press";
    for (auto *item : items) {
        if (accessibleName(item).trimmed().isEmpty())
            faults << described(item) + " has no name";
    }
    return faults;
}

QStringList faultsOfNow(const Stage &stage)
{
    return cutTexts(stage) + itemsOutsideTheWindow(stage) + itemsTooSmallForAFinger(stage)
        + itemsUnknownToScreenReaders(stage);
}

QStringList faultsAtAllSizes(Stage &stage, const QList<QSize> &sizes, const QString &language)
{
    constexpr int patienceMs = 3000; // of what still moves on a busy machine
    QStringList faults;
    for (const auto &size : sizes) {
        stage.resize(size);
        if (QTest::qWaitFor([&] { return faultsOfNow(stage).isEmpty(); }, patienceMs))
            continue;
        const auto found = faultsOfNow(stage);
        for (const auto &fault : found)
            faults << QStringLiteral("%1 %2x%3: %4")
                          .arg(language, QString::number(size.width()), QString::number(size.height()), fault);
    }
    return faults;
}

} // namespace

QStringList Appearance::faults(Stage &stage, const QList<QSize> &sizes)
{
    auto *engine = qmlEngine(stage.window());
    auto faults = faultsAtAllSizes(stage, sizes, QStringLiteral("ru"));
    QTranslator translator;
    if (!translator.load(QStringLiteral(":/translations/frontend_en.qm")))
        return {QStringLiteral("there is no English catalogue")};
    QCoreApplication::installTranslator(&translator);
    engine->retranslate();
    stage.settle();
    faults << faultsAtAllSizes(stage, sizes, QStringLiteral("en"));
    QCoreApplication::removeTranslator(&translator);
    engine->retranslate();
    stage.resize(sizes.front());
    return faults;
}

QStringList Appearance::faultsOfTab(Stage &stage)
{
    constexpr int longestRound = 120;
    QSet<QQuickItem *> reached;
    QStringList faults;
    for (int i = 0; i < longestRound; ++i) {
        stage.key(Qt::Key_Tab);
        auto *item = stage.window()->activeFocusItem();
        if (!item || !item->isVisible() || !item->isEnabled())
            return {QStringLiteral("the keyboard went out of sight")};
        reached << item << listOf(item); // arrows go on within a list
    }
    for (auto *item : reachable(stage)) {
        if (!reached.contains(item) && !(listOf(item) && reached.contains(listOf(item))))
            faults << described(item) + " is not reached";
    }
    return faults;
}
