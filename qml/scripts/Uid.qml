// SPDX-License-Identifier: GPL-3.0-or-later
pragma Singleton
import QtQuick 2.15

// Questions about uids, which scripts know as braced texts.
QtObject {
    function nullUid() {
        return "{00000000-0000-0000-0000-000000000000}"
    }

    // Whether that names no record: nothing at all, or the null uid with or without its braces.
    function isNull(uid) {
        if (!uid)
            return true
        return String(uid).replace(/^\{|\}$/g, "") === "00000000-0000-0000-0000-000000000000"
    }
}
