// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15

// A menu field whose list has a box to search in.
MaterialMenuField {
    isSearchable: true
}
