// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Response.h"
#include "model/json/DeviceState.h"
#include "model/json/DeviceStatesReader.h"

#include <QVariant>
#include <algorithm>
#include <cstring>

// Device states on the plain road, and an exact comparison with what the fast one made of the same text.
namespace BothRoads {

inline JsonAPI::FastDeviceStates plainRoad(const JsonAPI::Response &response)
{
    return {JsonAPI::Entity::toType(response.data, JsonAPI::DeviceState::fromVariant), response.serverVersion};
}

inline JsonAPI::FastDeviceStates plainRoad(const QByteArray &json)
{
    return plainRoad(JsonAPI::Response::fromByteArray(json));
}

// Stricter than the equality of variants, which lets 1 equal 1.0 and "1".
inline bool sameVariants(const QVariant &left, const QVariant &right)
{
    if (left.userType() != right.userType() || left.isNull() != right.isNull())
        return false;
    if (left.type() == QVariant::Map) {
        const auto leftMap = left.toMap();
        const auto rightMap = right.toMap();
        return leftMap.keys() == rightMap.keys()
            && std::equal(leftMap.begin(), leftMap.end(), rightMap.begin(), rightMap.end(), sameVariants);
    }
    if (left.type() == QVariant::List) {
        const auto leftList = left.toList();
        const auto rightList = right.toList();
        return std::equal(leftList.begin(), leftList.end(), rightList.begin(), rightList.end(), sameVariants);
    }
    if (left.type() == QVariant::Double) {
        const double leftNumber = left.toDouble();
        const double rightNumber = right.toDouble();
        return std::memcmp(&leftNumber, &rightNumber, sizeof leftNumber) == 0; // minus zero is no zero
    }
    return left.userType() == QMetaType::Nullptr || left == right;
}

inline bool same(const JsonAPI::FastDeviceStates &left, const JsonAPI::FastDeviceStates &right)
{
    return left.serverVersion == right.serverVersion
        && std::equal(left.states.begin(), left.states.end(), right.states.begin(), right.states.end(),
                      [](const Model::DeviceState &leftState, const Model::DeviceState &rightState) {
                          return leftState.uid == rightState.uid && sameVariants(leftState.state, rightState.state);
                      });
}

} // namespace BothRoads
