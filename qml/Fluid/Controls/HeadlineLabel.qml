// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15

// The one text that a screen is about.
QC2.Label {
    font.pixelSize: 24
    wrapMode: Text.Wrap
    textFormat: Text.PlainText
}
