// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import Fluid.Core 1.0 as FLC

// What a page offers in the app bar: an icon of the set, a text, and whether it is there at all.
QC2.Action {
    property bool visible: true
    property string iconName // "group/name", or the address of a picture
    property string toolTip: text

    icon.source: FLC.Utils.iconUrl(iconName)
}
