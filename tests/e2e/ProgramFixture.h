// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/UidKeyAbstractListModel.h"
#include "e2e/SiteProcess.h"
#include "link/AbstractBackendCommunicator.h"
#include "shell/FrontendManager.h"
#include "support/TestBase.h"
#include "tour/Driver.h"

#include <QTemporaryDir>
#include <functional>
#include <memory>

// Base of the tests that use the whole program for a day: a demo site of its own, a data home of its own, the program
// in this process, and the hands of a user. What was asked for is read from the lists that the server published.
class ProgramFixture : public TestBase
{
    Q_OBJECT

protected:
    using Link = AbstractBackendCommunicator;
    using Look = std::function<QQuickItem *()>;

    explicit ProgramFixture(const QString &address);
    ~ProgramFixture() override;

    bool startProgram(int width, int height);
    void stopProgram();
    bool restartProgram(); // as a user who leaves and comes back; the log is watched all the same

    Link &link() const { return m_manager->getCommunicator(); }
    bool isConnectedAs(const QString &group) const;
    bool waitForGroup(const QString &group) const; // connected, and the plan or another page is there

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
    QQuickItem *find(const QString &objectName) const { return m_driver->find(objectName); }
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

    SiteProcess m_site;
    std::unique_ptr<FrontendManager> m_manager;
    std::unique_ptr<Driver> m_driver;

private:
    QObject *contextObject(const char *name) const;

    QTemporaryDir m_home;
    QByteArray m_formerHome;
};
