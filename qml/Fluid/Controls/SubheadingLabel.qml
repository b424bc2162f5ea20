// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15

// The first line of a row.
QC2.Label {
    font.pixelSize: 16
    elide: Text.ElideRight
    maximumLineCount: 1 // a line feed in a name is no second line
    textFormat: Text.PlainText
}
