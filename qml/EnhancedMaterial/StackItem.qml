// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15

// One page that a navigator knows.
QtObject {
    property string link // by which it is asked for
    default property Component component
    property bool preload: true // made as soon as the navigator starts, where it is cached
    property bool cache: preload // one instance that outlives its time on the stack
    property int level: 1 // the depth of the stack at which it lives
}
