// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/SiteData.h"

#include <algorithm>

namespace Demo {

bool SiteDeviceType::hasPower() const
{
    return std::any_of(info.state.begin(), info.state.end(),
                       [](const auto &field) { return field.identificator == QLatin1String("power"); });
}

} // namespace Demo
