// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJSValue>
#include <QString>
#include <QUuid>
#include <QVariant>
#include <functional>
#include <vector>

class QObject;

// The border between models and scripts: values that QML hands over, and callbacks that it gets called.
namespace JsValues {

// An object or array of a script arrives in a variant as a script value; this is what it holds. Others stay.
QVariant plain(const QVariant &value);

// The number of that property, or the fallback when it is absent or no finite number.
double number(const QJSValue &object, const QString &key, double fallback);

// Calls it if it can be called; what it throws is logged.
void call(const QJSValue &callback, const QJSValueList &arguments = {});

// A completion for the link, which outlives its callers: calls back with nothing once the owner is gone.
std::function<void()> completion(QObject *owner, const QJSValue &callback, const QJSValueList &arguments = {});

// The same for operations that answer with new uids: the callback gets them as an array of texts.
std::function<void(const std::vector<QUuid> &)> uidsCompletion(QObject *owner, const QJSValue &callback);

} // namespace JsValues
