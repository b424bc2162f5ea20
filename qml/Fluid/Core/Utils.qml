// SPDX-License-Identifier: GPL-3.0-or-later
pragma Singleton
import QtQuick 2.15
import IconSet 1.0

// Where things of the control library are.
QtObject {
    // "group/name" is an icon of the set, anything with a scheme is taken as it is, and nothing is nothing.
    function iconUrl(name) {
        return IconSet.url(name || "")
    }
}
