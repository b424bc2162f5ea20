// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2

// The language as a page of the settings.
Flickable {
    id: root

    function onSave() {
        selector.accept()
    }

    contentHeight: selector.height + 32 + 72 // the button over it hides nothing
    boundsBehavior: Flickable.StopAtBounds
    clip: true

    QC2.ScrollBar.vertical: QC2.ScrollBar {}

    LanguageSelector {
        id: selector

        x: 16
        y: 16
        width: Math.min(root.width - 32, 480)
    }
}
