// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15

// Text to read.
QC2.Label {
    font.pixelSize: 14
    wrapMode: Text.Wrap
    textFormat: Text.PlainText
}
