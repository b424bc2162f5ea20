// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/filters/FilterContainerFilter.h"
