// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLoggingCategory>

// The trace of the transport: each request and publication. Silent unless a rule turns it on.
Q_DECLARE_LOGGING_CATEGORY(zmqAComm)
