// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/DemoSite.h"

#include <QObject>
#include <QTimer>

namespace Demo {

// Decides what indicators show by the site's rules: at once when made, and again after each turn of the event loop in
// which something changed that a rule may measure.
class IndicatorRules : public QObject
{
    Q_OBJECT

public:
    explicit IndicatorRules(DemoSite &site, QObject *parent = nullptr);

public slots:
    void evaluate();

private:
    void onChanged(DemoSite::List list);

    DemoSite &m_site;
    QTimer m_timer;
};

} // namespace Demo
