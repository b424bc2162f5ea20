// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/RadioDutyCycle.h"

#include <QHash>

static const auto &cycleWords()
{
    using C = RadioDutyCycle;
    static const QHash<QString, C::DutyCycle> words{{"duty50", C::Duty50}, {"duty100", C::Duty100},
                                                    {"duty33", C::Duty33}, {"duty25", C::Duty25},
                                                    {"duty10", C::Duty10}, {"duty1", C::Duty1}};
    return words;
}

QString RadioDutyCycle::toString(DutyCycle cycle)
{
    return cycleWords().key(cycle, QStringLiteral("duty50"));
}

RadioDutyCycle::DutyCycle RadioDutyCycle::fromString(const QString &text)
{
    return cycleWords().value(text, Duty50);
}
