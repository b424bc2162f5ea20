// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls.Material 2.15
import QtQuick.Controls.impl 2.15
import Fluid.Core 1.0 as FLC

// An icon in one colour. Its size is the length of its sides.
ColorImage {
    property string name // "group/name", or the address of a picture
    property real size: 24

    width: size
    height: size
    // A picture of twice the size stays sharp on a dense screen and while it grows.
    sourceSize: Qt.size(size * 2, size * 2)
    fillMode: Image.PreserveAspectFit
    color: Material.iconColor
    source: FLC.Utils.iconUrl(name)
    Accessible.ignored: true
}
