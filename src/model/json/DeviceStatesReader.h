// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Devices.h"

#include <QByteArray>
#include <QVersionNumber>
#include <boost/optional.hpp>
#include <vector>

namespace JsonAPI {

// What a publication of device states holds.
struct FastDeviceStates
{
    std::vector<Model::DeviceState> states;
    QVersionNumber serverVersion; // the program's own version when the document does not tell
};

// The fast road of the hottest list: straight from the text to records, without a tree of variants between.
// What it returns equals what Response::fromByteArray and DeviceState::fromVariant make of the same text. Of a document
// that is unusual in any way (errors, an odd type, a key twice, depth, a number that may read otherwise, damage) it
// returns none, and the whole text goes the plain road.
class DeviceStatesReader
{
public:
    static boost::optional<FastDeviceStates> read(const QByteArray &json);
};

} // namespace JsonAPI
