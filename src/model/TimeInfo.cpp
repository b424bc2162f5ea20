// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/TimeInfo.h"

#include <tuple>

namespace Model {

namespace {

auto fields(const TimeInfo &info)
{
    return std::tie(info.time, info.timezone, info.ntp, info.timezones);
}

} // namespace

bool operator==(const TimeInfo &left, const TimeInfo &right)
{
    return fields(left) == fields(right);
}

} // namespace Model
