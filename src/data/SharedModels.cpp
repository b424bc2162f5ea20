// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/SharedModels.h"

SharedModels &SharedModels::instance()
{
    static SharedModels models;
    return models;
}
