// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls.Material 2.15
import QtQuick.Controls.Material.impl 2.15

// The floating action button: 56 round, 40 while small, wider while it is extended with its text.
FloatingButton {
    id: root

    background: Rectangle {
        implicitWidth: root.faceWidth
        implicitHeight: root.faceHeight
        radius: root.radius
        color: root.enabled ? root.Material.highlightedButtonColor : root.Material.buttonDisabledColor
        layer.enabled: root.enabled
        layer.effect: ElevationEffect {
            elevation: root.Material.elevation
        }

        Rectangle {
            anchors.fill: parent
            radius: root.radius
            visible: root.hovered || root.visualFocus || root.down
            color: root.Material.rippleColor
        }
    }
}
