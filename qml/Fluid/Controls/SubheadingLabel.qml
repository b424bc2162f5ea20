// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15

// The first line of a row.
QC2.Label {
    font.pixelSize: 16
    elide: Text.ElideRight
    textFormat: Text.PlainText
}
