// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/AbstractQmlController.h"

#include <QQuickItem>
#include <QSet>
#include <QVariant>

namespace {

const char *const selectedProperty = "selected";

bool isTile(const QObject *object)
{
    return object->objectName() == QLatin1String("tileControl");
}

// Items that a view or a repeater made are children of their parent item, but not of any object.
QList<QObject *> childrenOf(const QObject *object)
{
    auto children = object->children();
    if (const auto *const item = qobject_cast<const QQuickItem *>(object)) {
        const auto items = item->childItems();
        for (auto *const child : items)
            children.append(child);
    }
    return children;
}

void collectTiles(const QObject *object, QSet<const QObject *> &seen, QList<QObject *> &tiles)
{
    const auto children = childrenOf(object);
    for (auto *const child : children) {
        if (seen.contains(child))
            continue;
        seen.insert(child);
        if (isTile(child))
            tiles.append(child);
        collectTiles(child, seen, tiles);
    }
}

QList<QObject *> tilesUnder(const QObject *object)
{
    QSet<const QObject *> seen;
    QList<QObject *> tiles;
    if (object)
        collectTiles(object, seen, tiles);
    return tiles;
}

void collectControls(const QQuickItem *item, QList<QObject *> &controls)
{
    const auto children = item->childItems();
    for (auto *const child : children) {
        if (isTile(child))
            controls.append(child);
        collectControls(child, controls);
    }
}

bool hasParentNamed(const QObject *object, const QString &name)
{
    if (object->parent() && object->parent()->objectName() == name)
        return true;
    const auto *const item = qobject_cast<const QQuickItem *>(object);
    return item && item->parentItem() && item->parentItem()->objectName() == name;
}

void select(QObject *tile, bool selected)
{
    // A tile without the property is left alone: setProperty() would give it a dynamic one.
    if (tile->metaObject()->indexOfProperty(selectedProperty) >= 0)
        tile->setProperty(selectedProperty, selected);
}

} // namespace

void AbstractQmlController::deselectAllControls(QObject *obj)
{
    const auto tiles = tilesUnder(obj);
    for (auto *const tile : tiles)
        select(tile, false);
}

void AbstractQmlController::selectAllControls(QObject *obj)
{
    const auto tiles = tilesUnder(obj);
    for (auto *const tile : tiles)
        select(tile, true);
}

void AbstractQmlController::selectAllControls(QObject *obj, const QString &parentFilter)
{
    const auto tiles = tilesUnder(obj);
    for (auto *const tile : tiles) {
        if (hasParentNamed(tile, parentFilter))
            select(tile, true);
    }
}

int AbstractQmlController::getSelectedControlsCount(QObject *item)
{
    int count = 0;
    const auto controls = getControls(item);
    for (const auto *const control : controls)
        count += control->property(selectedProperty).toBool() ? 1 : 0;
    return count;
}

QList<QObject *> AbstractQmlController::getControls(QObject *item)
{
    QList<QObject *> controls;
    if (const auto *const root = qobject_cast<QQuickItem *>(item))
        collectControls(root, controls);
    return controls;
}
