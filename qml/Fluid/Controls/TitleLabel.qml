// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15

// The title of a page, a dialog or a card.
QC2.Label {
    font.pixelSize: 20
    font.weight: Font.Medium
    elide: Text.ElideRight
    maximumLineCount: 1 // a line feed in a name is no second line
    textFormat: Text.PlainText
}
