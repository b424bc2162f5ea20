// SPDX-License-Identifier: GPL-3.0-or-later
pragma Singleton
import QtQuick 2.15

// Questions about colours.
QtObject {
    // Whether a text on that colour should be light. The weights are those of perceived brightness (ITU-R BT.601). What
    // is no colour, or cannot be seen, is not dark.
    function isDarkColor(background) {
        var shade = background ? Qt.lighter(background, 1) : null // a colour also where a name was given
        return Boolean(shade) && shade.a > 0 && 1 - (0.299 * shade.r + 0.587 * shade.g + 0.114 * shade.b) >= 0.4
    }
}
