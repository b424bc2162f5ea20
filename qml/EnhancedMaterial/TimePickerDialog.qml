// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import Fluid.Core 1.0 as FLC

// A dial of 24 hours, and of minutes and seconds, on which a time is picked.
Dialog {
    id: root

    property date selectedTime // what it opens with

    signal picked(date time)

    // Opens at that time, or at the present one where it is none.
    function pick(time) {
        selectedTime = time
        open()
    }

    objectName: "timeDialog"
    leftPadding: 8
    rightPadding: 8
    topPadding: 8

    FocusScope {
        id: content

        property var values: [0, 0, 0] // hours, minutes, seconds
        property int part: 0 // of them, on the dial
        readonly property int count: part === 0 ? 24 : 60
        readonly property int value: values[part]

        function set(value) {
            var changed = values.slice()
            changed[part] = (value % count + count) % count
            values = changed
        }

        function aboutToShow() {
            var time = isNaN(root.selectedTime) ? new Date() : root.selectedTime
            values = [time.getHours(), time.getMinutes(), time.getSeconds()]
            part = 0
        }

        function accept() {
            var time = isNaN(root.selectedTime) ? new Date() : new Date(root.selectedTime.getTime())
            time.setHours(values[0], values[1], values[2], 0)
            root.picked(time)
        }

        focus: true
        implicitWidth: 280
        implicitHeight: parts.height + face.height + 8

        Row {
            id: parts

            anchors.horizontalCenter: parent.horizontalCenter

            Repeater {
                model: [qsTr("Часы"), qsTr("Минуты"), qsTr("Секунды")]

                Row {
                    QC2.Label {
                        height: partButton.height
                        visible: index > 0
                        verticalAlignment: Text.AlignVCenter
                        font.pixelSize: 32
                        text: ":"
                    }

                    QC2.AbstractButton {
                        id: partButton

                        objectName: "part" + index
                        width: 64
                        height: 56
                        focusPolicy: Qt.TabFocus
                        checked: content.part === index
                        Accessible.role: Accessible.PageTab
                        Accessible.name: modelData
                        Keys.onReturnPressed: clicked()
                        Keys.onEnterPressed: clicked()
                        onClicked: {
                            content.part = index
                            face.forceActiveFocus()
                        }

                        background: Rectangle {
                            anchors.fill: parent
                            anchors.margins: 4
                            radius: 4
                            color: partButton.visualFocus || partButton.hovered ? "#1f808080" : "transparent"
                        }

                        contentItem: QC2.Label {
                            horizontalAlignment: Text.AlignHCenter
                            verticalAlignment: Text.AlignVCenter
                            font.pixelSize: 32
                            color: partButton.checked ? Material.accent : Material.secondaryTextColor
                            text: (content.values[index] < 10 ? "0" : "") + content.values[index]
                        }
                    }
                }
            }
        }

        Item {
            id: face

            readonly property real outerRadius: width / 2 - 20
            readonly property real innerRadius: outerRadius - 36 // the hours after noon

            function isInner(value) {
                return content.part === 0 && value >= 12
            }

            function angleOf(value) {
                return 2 * Math.PI * (content.part === 0 ? value % 12 / 12 : value / 60)
            }

            function radiusOf(value) {
                return isInner(value) ? innerRadius : outerRadius
            }

            // The nearest value in the direction of that point.
            function valueAt(x, y) {
                var dx = x - width / 2
                var dy = y - height / 2
                var turns = (Math.atan2(dx, -dy) / (2 * Math.PI) + 1) % 1
                if (content.part !== 0)
                    return Math.round(turns * 60) % 60
                var isNear = Math.sqrt(dx * dx + dy * dy) < (innerRadius + outerRadius) / 2
                return Math.round(turns * 12) % 12 + (isNear ? 12 : 0)
            }

            objectName: "dial"
            anchors.horizontalCenter: parent.horizontalCenter
            y: parts.height + 8
            width: Math.min(parent.width, 264)
            height: width
            focus: true
            activeFocusOnTab: true
            Accessible.role: Accessible.Dial
            Accessible.name: content.value
            Keys.onUpPressed: content.set(content.value + 1)
            Keys.onRightPressed: content.set(content.value + 1)
            Keys.onDownPressed: content.set(content.value - 1)
            Keys.onLeftPressed: content.set(content.value - 1)
            Keys.onReturnPressed: root.submit()
            Keys.onEnterPressed: root.submit()

            Rectangle {
                anchors.fill: parent
                radius: width / 2
                color: "#14808080"
                border.width: face.activeFocus ? 1 : 0
                border.color: Material.accent
            }

            Rectangle { // the hand
                readonly property real reach: face.radiusOf(content.value)

                x: face.width / 2 - 1
                y: face.height / 2 - reach
                width: 2
                height: reach
                antialiasing: true
                color: Material.accent
                transformOrigin: Item.Bottom
                rotation: face.angleOf(content.value) * 180 / Math.PI
            }

            Rectangle { // what it points to
                x: face.width / 2 + face.radiusOf(content.value) * Math.sin(face.angleOf(content.value)) - width / 2
                y: face.height / 2 - face.radiusOf(content.value) * Math.cos(face.angleOf(content.value)) - height / 2
                width: 32
                height: 32
                radius: 16
                color: Material.accent
            }

            Rectangle {
                anchors.centerIn: parent
                width: 6
                height: 6
                radius: 3
                color: Material.accent
            }

            Repeater {
                model: content.part === 0 ? 24 : 12

                QC2.Label {
                    readonly property int value: content.part === 0 ? index : index * 5

                    objectName: "mark" + value
                    x: face.width / 2 + face.radiusOf(value) * Math.sin(face.angleOf(value)) - width / 2
                    y: face.height / 2 - face.radiusOf(value) * Math.cos(face.angleOf(value)) - height / 2
                    font.pixelSize: face.isInner(value) ? 12 : 14
                    color: value === content.value ? "white" : face.isInner(value) ? Material.secondaryTextColor
                                                                                    : Material.primaryTextColor
                    text: value
                }
            }

            MouseArea {
                anchors.fill: parent
                preventStealing: true // the dialog would scroll
                onPressed: {
                    face.forceActiveFocus()
                    content.set(face.valueAt(mouse.x, mouse.y))
                }
                onPositionChanged: content.set(face.valueAt(mouse.x, mouse.y))
                onReleased: content.part = Math.min(2, content.part + 1)
                onWheel: content.set(content.value + (wheel.angleDelta.y > 0 ? 1 : -1))
            }
        }
    }
}
