// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import EnhancedMaterial 1.0

// The floating action button for the version of Qt whose round button leaves room around its background.
FloatingButton {
    implicitWidth: faceWidth
    implicitHeight: faceHeight
    width: faceWidth
    height: faceHeight
    topInset: 0
    bottomInset: 0
    leftInset: 0
    rightInset: 0
}
