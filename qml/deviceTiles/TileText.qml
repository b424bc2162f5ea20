// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15

// A line of small text of a card.
QC2.Label {
    elide: Text.ElideRight
    maximumLineCount: 1
    textFormat: Text.PlainText
    font.pixelSize: 12
    color: Material.secondaryTextColor
}
