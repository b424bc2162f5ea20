// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace qqsfpm {

// The types of the QML module SortFilterProxyModel 0.2. Called before the first QML document loads: an object file of a
// static library that registered itself would be left out by the linker.
void registerTypes();

void registerQQmlSortFilterProxyModelTypes();
void registerFiltersTypes();
void registerSorterTypes();
void registerProxyRoleTypes();

} // namespace qqsfpm
