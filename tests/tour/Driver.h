// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QPoint>
#include <QQuickItem>
#include <QQuickWindow>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <vector>

class FrontendManager;

// A hand on the program's mouse and an eye on its window. Waits for what must happen instead of counting time.
class Driver
{
public:
    explicit Driver(FrontendManager &manager);
    Driver(FrontendManager &manager, QQuickWindow *window); // of another window than the main one

    ~Driver();

    QQuickWindow *window() const { return m_window; }
    FrontendManager &manager() const { return m_manager; }
    const QStringList &warnings() const { return m_warnings; } // of the log since the driver was made

    QQuickItem *find(const QString &objectName) const; // the first visible item of that name, or null
    QQuickItem *find(const QString &objectName, QQuickItem *within) const; // there alone
    std::vector<QQuickItem *> items(const std::function<bool(QQuickItem *)> &wanted) const; // those that are visible
    // The visible tiles of a type as they are read: by rows, from the left.
    std::vector<QQuickItem *> tiles(const QString &type) const;
    std::vector<QQuickItem *> zoneTiles() const;
    QQuickItem *zoneTile(const QString &uid) const;
    bool shows(const QString &file) const; // something on screen was made by "file.qml", or is of that type
    QVariant evaluate(const QString &expression) const; // as in the main window, by its ids; what fails is a warning

    void resize(int width, int height);
    void click(QQuickItem *item); // in its middle
    // Each waits for what bears that name, and tells whether it came.
    bool press(const QString &objectName); // a click, once it is enabled and rests inside the window
    bool press(const std::function<QQuickItem *()> &look); // the same of what that finds
    bool type(const QString &objectName, const QString &text); // in place of the text of a field
    bool escape(const QString &objectName); // by the key; true once what held that item is gone
    QImage picture();
    QImage settledPicture(); // when nothing moves any more, or something that never rests has moved for long
    bool waitFor(const std::function<bool()> &condition, int timeoutMs = 60000);

    // The program is connected and shows at least that many tiles.
    bool waitForPlan(int tiles);

private:
    bool isPopupMoving() const; // one comes or goes

    FrontendManager &m_manager;
    QQuickWindow *m_window = nullptr;
    QMetaObject::Connection m_log;
    QStringList m_warnings;
};
