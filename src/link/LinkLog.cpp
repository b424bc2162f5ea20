// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/LinkLog.h"

Q_LOGGING_CATEGORY(zmqAComm, "zmqAComm", QtWarningMsg)
