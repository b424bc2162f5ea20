// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Layouts 1.15
import Fluid.Controls 1.0 as FL
import Fluid.Core 1.0 as FLC

// A calendar of one month, from which a day is picked.
Dialog {
    id: root

    property date selectedDate // what it opens with
    property string localeName: "ru_RU"

    signal picked(date date)

    // Opens at that date, or at today where it is none.
    function pick(date) {
        selectedDate = date
        open()
    }

    objectName: "calendarDialog"
    leftPadding: 8
    rightPadding: 8
    topPadding: 8

    FocusScope {
        id: content

        property int year: 2000
        property int month: 0 // from 0
        property int day: 1
        readonly property var language: Qt.locale(root.localeName)
        readonly property int dayCount: daysOf(year, month)
        // Cells before the first of the month.
        readonly property int lead: (dateOf(year, month, 1).getDay() - language.firstDayOfWeek + 7) % 7

        function dateOf(year, month, day) {
            var date = new Date(2000, 0, 1)
            date.setFullYear(year, month, day)
            return date
        }

        function daysOf(year, month) {
            return dateOf(year, month + 1, 0).getDate()
        }

        function show(date) {
            if (isNaN(date) || date.getFullYear() < 1 || date.getFullYear() > 9999)
                return
            year = date.getFullYear()
            month = date.getMonth()
            day = date.getDate()
        }

        // The same day of another month, or its last one.
        function moveMonths(count) {
            var first = dateOf(year, month + count, 1)
            show(dateOf(first.getFullYear(), first.getMonth(),
                        Math.min(day, daysOf(first.getFullYear(), first.getMonth()))))
        }

        function moveDays(count) {
            show(dateOf(year, month, day + count))
        }

        function aboutToShow() {
            show(new Date())
            show(root.selectedDate)
        }

        function accept() {
            root.picked(dateOf(year, month, day))
        }

        focus: true
        implicitWidth: 280
        implicitHeight: column.implicitHeight

        ColumnLayout {
            id: column

            width: parent.width
            spacing: 0

            // A value between two buttons that change it.
            component Stepper: RowLayout {
                id: stepper

                property string text
                property string name
                property string previousText
                property string nextText

                signal moved(int step)

                Layout.fillWidth: true
                spacing: 0

                QC2.ToolButton {
                    objectName: stepper.name + "Back"
                    Layout.preferredWidth: FLC.Device.touchSize
                    Layout.preferredHeight: FLC.Device.touchSize
                    focusPolicy: Qt.StrongFocus
                    icon.source: FLC.Utils.iconUrl("navigation/chevron_left")
                    Accessible.name: stepper.previousText
                    Keys.onReturnPressed: clicked()
                    onClicked: stepper.moved(-1)
                }

                FL.SubheadingLabel {
                    objectName: stepper.name + "Label"
                    Layout.fillWidth: true
                    horizontalAlignment: Text.AlignHCenter
                    text: stepper.text
                }

                QC2.ToolButton {
                    objectName: stepper.name + "Forward"
                    Layout.preferredWidth: FLC.Device.touchSize
                    Layout.preferredHeight: FLC.Device.touchSize
                    focusPolicy: Qt.StrongFocus
                    icon.source: FLC.Utils.iconUrl("navigation/chevron_right")
                    Accessible.name: stepper.nextText
                    Keys.onReturnPressed: clicked()
                    onClicked: stepper.moved(1)
                }
            }

            Stepper {
                name: "year"
                text: content.year
                previousText: qsTr("Предыдущий год")
                nextText: qsTr("Следующий год")
                onMoved: content.moveMonths(12 * step)
            }

            Stepper {
                name: "month"
                text: content.language.standaloneMonthName(content.month)
                previousText: qsTr("Предыдущий месяц")
                nextText: qsTr("Следующий месяц")
                onMoved: content.moveMonths(step)
            }

            Row {
                Layout.fillWidth: true

                Repeater {
                    model: 7

                    FL.CaptionLabel {
                        objectName: "weekday" + index
                        width: grid.cellWidth
                        height: 24
                        horizontalAlignment: Text.AlignHCenter
                        text: content.language.standaloneDayName((content.language.firstDayOfWeek + index) % 7,
                                                                 Locale.ShortFormat)
                    }
                }
            }

            Item {
                id: grid

                readonly property real cellWidth: width / 7
                readonly property real cellHeight: 40

                objectName: "days"
                Layout.fillWidth: true
                Layout.preferredHeight: 6 * cellHeight // whatever the month, so that nothing jumps
                focus: true
                activeFocusOnTab: true
                Accessible.role: Accessible.Table
                Accessible.name: content.dateOf(content.year, content.month, content.day)
                                        .toLocaleDateString(content.language, Locale.LongFormat)
                Keys.onLeftPressed: content.moveDays(-1)
                Keys.onRightPressed: content.moveDays(1)
                Keys.onUpPressed: content.moveDays(-7)
                Keys.onDownPressed: content.moveDays(7)
                Keys.onReturnPressed: root.submit()
                Keys.onEnterPressed: root.submit()
                Keys.onPressed: {
                    event.accepted = true
                    var months = event.modifiers & Qt.ShiftModifier ? 12 : 1
                    if (event.key === Qt.Key_PageUp)
                        content.moveMonths(-months)
                    else if (event.key === Qt.Key_PageDown)
                        content.moveMonths(months)
                    else if (event.key === Qt.Key_Home)
                        content.day = 1
                    else if (event.key === Qt.Key_End)
                        content.day = content.dayCount
                    else
                        event.accepted = false
                }

                Repeater {
                    model: content.dayCount

                    QC2.AbstractButton {
                        id: cell

                        readonly property int day: index + 1
                        readonly property bool isSelected: day === content.day
                        readonly property bool isToday: content.dateOf(content.year, content.month, day).toDateString()
                                                        === new Date().toDateString()

                        objectName: "day" + day
                        x: (index + content.lead) % 7 * grid.cellWidth
                        y: Math.floor((index + content.lead) / 7) * grid.cellHeight
                        width: grid.cellWidth
                        height: grid.cellHeight
                        focusPolicy: Qt.NoFocus
                        Accessible.name: day
                        onClicked: {
                            content.day = day
                            grid.forceActiveFocus()
                        }
                        onDoubleClicked: root.submit()

                        background: Item {
                            Rectangle {
                                anchors.centerIn: parent
                                width: Math.min(parent.width, parent.height) - 4
                                height: width
                                radius: width / 2
                                color: cell.isSelected ? Material.accent : cell.hovered ? "#1f808080" : "transparent"
                                border.width: cell.isSelected && grid.activeFocus ? 2 : 0
                                border.color: Qt.darker(Material.accent, 1.4)
                            }
                        }

                        contentItem: QC2.Label {
                            horizontalAlignment: Text.AlignHCenter
                            verticalAlignment: Text.AlignVCenter
                            color: cell.isSelected ? "white" : cell.isToday ? Material.accent
                                                                            : Material.primaryTextColor
                            font.weight: cell.isToday ? Font.Bold : Font.Normal
                            text: cell.day
                        }
                    }
                }
            }
        }
    }
}
