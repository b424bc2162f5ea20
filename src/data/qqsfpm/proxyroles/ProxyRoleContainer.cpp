// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/qqsfpm/proxyroles/ProxyRoleContainer.h"

namespace qqsfpm {

ProxyRoleContainer::~ProxyRoleContainer() = default;

} // namespace qqsfpm
