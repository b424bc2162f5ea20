// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJSEngine>
#include <QQmlEngine>

// Shows an object to scripts under a global name, as the root context does. It stays its owner's.
inline void expose(QJSEngine &engine, const QString &name, QObject &object)
{
    QQmlEngine::setObjectOwnership(&object, QQmlEngine::CppOwnership);
    engine.globalObject().setProperty(name, engine.newQObject(&object));
}
