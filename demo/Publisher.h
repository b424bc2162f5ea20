// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/DemoSite.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QObject>
#include <QSet>
#include <QTimer>
#include <QVersionNumber>
#include <vector>

namespace Demo {

// Gives out the site's lists: at once to a new subscription, and again after a change, many changes of one turn of the
// event loop as one. A list is written and packed once, and only if somebody subscribed to it.
class Publisher : public QObject
{
    Q_OBJECT

public:
    Publisher(DemoSite &site, const QVersionNumber &version, QObject *parent = nullptr);

    // As subscribers send it: a byte 1 for a subscription, 0 when the last of its kind has gone, and a prefix of
    // topics.
    void onSubscription(const QByteArray &frame);

    static QList<QByteArray> plainTopics(); // without a language
    static QList<QByteArray> localizedTopics(); // to be followed by "/" and a locale
    QByteArray document(const QByteArray &topic); // the body of a publication, not packed

public slots:
    void flush(); // publishes what changed

signals:
    void published(const QList<QByteArray> &frames); // topic, empty, header, body

private:
    void onChanged(DemoSite::List list);
    QList<QByteArray> topicsOf(const QByteArray &subscription) const;
    QByteArray packed(const QByteArray &topic);
    QByteArray statesDocument();
    void publish(const QByteArray &topic);

    // The text of one device's state, kept until the state changes.
    struct Fragment
    {
        quint64 revision = 0;
        QByteArray text;
    };

    DemoSite &m_site;
    QVersionNumber m_version;
    QHash<QByteArray, QList<QByteArray>> m_subscriptions; // the topics that each one stands for
    QSet<int> m_changed; // lists
    QHash<QByteArray, QByteArray> m_packed; // by topic
    std::vector<Fragment> m_fragments; // in the order of the devices
    QTimer m_flushTimer;
};

} // namespace Demo
