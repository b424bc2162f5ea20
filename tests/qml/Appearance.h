// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "qml/Stage.h"

#include <QSize>
#include <QStringList>

// What a screen must be at any size and in any language: no text is cut, every interactive item is in the window, large
// enough for a finger, reached by Tab, and known to a screen reader. Each fault is one line.
namespace Appearance {

// Of a desktop, a tablet, a desktop at 200 %, and two phones.
inline const QList<QSize> allSizes{{1280, 800}, {960, 600}, {640, 400}, {420, 800}, {360, 640}};

// In Russian, then in English, and in Russian again.
QStringList faults(Stage &stage, const QList<QSize> &sizes = allSizes);

// Goes round by Tab, at the size that the window has. A modal popup takes everything below it out of reach; the column
// at the left is a place of its own.
QStringList faultsOfTab(Stage &stage);

} // namespace Appearance
