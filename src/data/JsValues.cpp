// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/JsValues.h"

#include <QJSEngine>
#include <QLoggingCategory>
#include <QPointer>
#include <QtNumeric>

namespace {

Q_LOGGING_CATEGORY(callbacks, "ondira.callbacks")

// The callback's own engine. qjsEngine() of the model would do only as long as a script holds the model.
QJSEngine *engineOf(const QJSValue &value)
{
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    return value.engine();
    QT_WARNING_POP
}

} // namespace

QVariant JsValues::plain(const QVariant &value)
{
    return value.userType() == qMetaTypeId<QJSValue>() ? value.value<QJSValue>().toVariant() : value;
}

double JsValues::number(const QJSValue &object, const QString &key, double fallback)
{
    const double value = object.hasProperty(key) ? object.property(key).toNumber() : fallback;
    return qIsFinite(value) ? value : fallback;
}

void JsValues::call(const QJSValue &callback, const QJSValueList &arguments)
{
    if (!callback.isCallable())
        return;
    const auto result = QJSValue(callback).call(arguments);
    if (result.isError())
        qCWarning(callbacks) << "A callback failed:" << result.toString();
}

std::function<void()> JsValues::completion(QObject *owner, const QJSValue &callback, const QJSValueList &arguments)
{
    const QPointer<QObject> guard(owner);
    return [guard, callback, arguments] {
        if (guard)
            call(callback, arguments);
    };
}

std::function<void(const std::vector<QUuid> &)> JsValues::uidsCompletion(QObject *owner, const QJSValue &callback)
{
    const QPointer<QObject> guard(owner);
    return [guard, callback](const std::vector<QUuid> &uids) {
        auto *const engine = engineOf(callback);
        if (!guard || !engine || !callback.isCallable())
            return;
        auto texts = engine->newArray(static_cast<uint>(uids.size()));
        quint32 position = 0;
        for (const auto &uid : uids)
            texts.setProperty(position++, uid.toString());
        call(callback, {texts});
    };
}
