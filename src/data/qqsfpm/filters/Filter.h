// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QModelIndex>
#include <QObject>

namespace qqsfpm {

class QQmlSortFilterProxyModel;

// Base of the declarative filters: decides on one source row at a time, and tells when its decisions may have changed.
class Filter : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool enabled READ enabled WRITE setEnabled NOTIFY enabledChanged)
    Q_PROPERTY(bool inverted READ inverted WRITE setInverted NOTIFY invertedChanged)

public:
    explicit Filter(QObject *parent = nullptr);

    bool enabled() const { return m_enabled; }
    void setEnabled(bool enabled);

    bool inverted() const { return m_inverted; }
    void setInverted(bool inverted);

    bool filterAcceptsRow(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel) const;
    // The decision itself, before inversion.
    virtual bool filterRow(const QModelIndex &sourceIndex, const QQmlSortFilterProxyModel &proxyModel) const = 0;
    // Whether a row that comes, goes or moves may change the decision on others.
    virtual bool dependsOnPosition() const { return false; }

signals:
    void enabledChanged();
    void invertedChanged();
    void invalidated();

protected:
    // To be called when decisions may have changed; a disabled filter keeps quiet.
    void invalidate();

private:
    bool m_enabled = true;
    bool m_inverted = false;
};

} // namespace qqsfpm
