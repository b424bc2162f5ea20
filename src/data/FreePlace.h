// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Position.h"

#include <QUuid>
#include <cmath>
#include <vector>

namespace FreePlace {

constexpr double canvasWidth = 4096.0;

// Where a new record of that width goes on its part: to the right of the lowest line, or to the start of a line of its
// own under it. The candidate is kept in single precision from step to step, as plans were always laid out.
template <typename Record>
Model::Position find(const std::vector<Record> &records, const QUuid &partUid, double width)
{
    float x = 0.0F;
    float y = 0.0F;
    for (const auto &record : records) {
        if (record.partUid != partUid)
            continue;
        const double right = record.position.x + record.width;
        const double top = record.position.y;
        const bool onSameLine = std::round(top) == std::round(static_cast<double>(y));
        if (!(top > static_cast<double>(y) || (onSameLine && right > static_cast<double>(x))))
            continue;
        x = static_cast<float>(right);
        y = static_cast<float>(top);
        if (static_cast<double>(x) + width > canvasWidth) {
            x = 0.0F;
            y = static_cast<float>(top + record.height);
        }
    }
    const bool isOnPlan = std::isfinite(x) && std::isfinite(y); // a published length may be as large as it likes
    return isOnPlan ? Model::Position{static_cast<double>(x), static_cast<double>(y)} : Model::Position();
}

} // namespace FreePlace
