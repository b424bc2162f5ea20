// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/UidKeyAbstractListModel.h"
#include "shell/FrontendManager.h"
#include "tour/Driver.h"

#include <QPointF>
#include <QVariantMap>
#include <functional>

// Base of whoever uses the whole program as a person does. What was asked for is read from the lists that the server
// published.
class Hands
{
public:
    virtual ~Hands() = default;

protected:
    using Look = std::function<QQuickItem *()>;

    virtual Driver &driver() const = 0;

    template <typename T>
    T *object(const char *name) const
    {
        return qobject_cast<T *>(contextObject(name));
    }

    // Of the lists that the server published.
    QStringList uids(const char *model) const;
    QVariantMap record(const char *model, const QString &uid) const;
    QString uidOf(const char *model, const QString &name) const; // of the first record of that name, or ""

    // What is on screen.
    QQuickItem *find(const QString &objectName) const { return driver().find(objectName); }
    QQuickItem *tile(const QString &uid) const; // of any kind
    QQuickItem *withText(const QString &namePrefix, const QString &text) const; // objectName begins like that
    QQuickItem *inPopup(const QString &popup, const QString &objectName) const;
    QString textOf(const QString &objectName) const;
    QString shownPart() const; // uid

    // What a user does. Each is false if it cannot be done.
    bool press(const Look &look); // while pages change they take no clicks: it waits for that too
    bool press(const QString &objectName);
    bool press(const char *objectName) { return press(QString::fromUtf8(objectName)); }
    bool pressTile(const QString &uid);
    bool pressInPopup(const QString &popup, const QString &objectName);
    bool pressRow(const QString &namePrefix, const QString &text, const QString &button = {});
    bool write(const QString &field, const QString &text); // by the keyboard, in place of what is there
    bool choose(const QString &picker, const QString &text); // by the keyboard, from the list of the field
    void drag(const QPointF &from, const QPointF &way);
    bool dragTile(const QString &uid, const QPointF &way);
    bool dragHandle(const QString &uid, Qt::Edge edge, const QPointF &way);
    void wheel(int notches); // over the upper left corner of the plan
    bool clickPlan(const QPointF &place); // in units of the plan
    bool showPart(const QString &name);
    bool confirm(const QString &question); // in the dialog that asks it

private:
    QObject *contextObject(const char *name) const;
};
