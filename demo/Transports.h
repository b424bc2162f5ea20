// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/SiteData.h"
#include "model/RadioStatus.h"

#include <QDateTime>
#include <vector>

namespace Demo {

// How the transports of a site are doing: radios and lines as the settings name them, in that order. One whose port
// the site does not have, or which another has taken, is not open. What requests wait in the queues follows from the
// settings and the number of devices, and changes each second; equal seeds and times give equal figures.
std::vector<Model::RadioStatus> transportsStatus(const SiteData &site, quint32 seed, const QDateTime &now);

} // namespace Demo
