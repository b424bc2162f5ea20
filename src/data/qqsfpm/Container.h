// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QObject>
#include <QQmlListProperty>

namespace qqsfpm {

// An ordered list of declarative children: the common half of the containers of filters, sorters and proxy roles.
// It doesn't own its children; one that is deleted elsewhere leaves the list by itself.
template <typename Child>
class Container
{
public:
    virtual ~Container() = default;

    const QList<Child *> &children() const { return m_children; }

    void append(Child *child)
    {
        if (!child || m_children.contains(child) || !mayHold(*child))
            return;
        m_children.append(child);
        QObject::connect(child, &Child::invalidated, object(), [this, child] { onChildInvalidated(child); });
        QObject::connect(child, &QObject::destroyed, object(), [this, child] {
            m_children.removeOne(child);
            onChildrenChanged(child);
        });
        onChildAppended(child);
        onChildrenChanged(child);
    }

    void remove(Child *child)
    {
        if (!m_children.removeOne(child))
            return;
        QObject::disconnect(child, nullptr, object(), nullptr);
        onChildRemoved(child);
        onChildrenChanged(child);
    }

    void clear()
    {
        const auto children = m_children;
        m_children.clear();
        for (auto *child : children) {
            QObject::disconnect(child, nullptr, object(), nullptr);
            onChildRemoved(child);
        }
        if (!children.isEmpty())
            onChildrenChanged(children.first());
    }

protected:
    QQmlListProperty<Child> listProperty()
    {
        return {object(), this, &Container::appendTo, &Container::countOf, &Container::at, &Container::clearOf};
    }

private:
    // The object that the container is part of.
    virtual QObject *object() = 0;
    virtual bool mayHold(Child &) { return true; }
    virtual void onChildAppended(Child *) {}
    virtual void onChildRemoved(Child *) {}
    // The child only tells which list it was: it may be half destroyed.
    virtual void onChildrenChanged(const Child *) = 0;
    virtual void onChildInvalidated(const Child *) = 0;

    static Container &of(QQmlListProperty<Child> *list) { return *static_cast<Container *>(list->data); }
    static void appendTo(QQmlListProperty<Child> *list, Child *child) { of(list).append(child); }
    static int countOf(QQmlListProperty<Child> *list) { return of(list).m_children.size(); }
    static Child *at(QQmlListProperty<Child> *list, int index) { return of(list).m_children.value(index); }
    static void clearOf(QQmlListProperty<Child> *list) { of(list).clear(); }

    QList<Child *> m_children;
};

} // namespace qqsfpm
