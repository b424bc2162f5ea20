// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Controls.Material 2.15
import QtQuick.Layouts 1.15
import Qt.labs.folderlistmodel 2.15
import Fluid.Controls 1.0 as FL
import Fluid.Core 1.0 as FLC

// Picks a file, in the look of the program: for terminals that know no other files than ours.
Dialog {
    id: root

    property url folder: "file:///"
    property var nameFilters: ["*.*"]
    property bool showDirsFirst: true
    property bool showHidden: true
    property bool hasDrives: Qt.platform.os === "windows" // above whose roots there is the list of them
    property bool isAtDrives: false
    readonly property bool canMoveUp: item !== null && item.canMoveUp

    signal fileSelected(string fileName)

    function formatSize(size) {
        var units = [qsTr("б"), qsTr("Кб"), qsTr("Мб"), qsTr("Гб"), qsTr("Тб"), qsTr("Пб")]
        var unit = 0
        for (; size >= 1024 && unit < units.length - 1; ++unit)
            size /= 1024
        return Math.round(size * 100) / 100 + " " + units[unit]
    }

    function moveUp() {
        if (item)
            item.moveUp()
    }

    title: qsTr("Выбор файла")
    positiveButtonText: qsTr("Открыть")
    positiveButton.enabled: item !== null && item.selectedFile !== ""
    width: 560
    onFolderChanged: isAtDrives = false

    FocusScope {
        id: content

        property string selectedFile
        property int sortField: FolderListModel.Name
        readonly property bool canMoveUp: root.hasDrives ? !root.isAtDrives && drives.length > 0
                                                         : !isRoot
        readonly property bool isRoot: /^([A-Za-z]:)?\/?$/.test(pathOf(root.folder))
        readonly property var drives: root.hasDrives ? QmlFileDialogHelper.getDrives() : []

        // The address as a person writes it.
        function pathOf(address) {
            var path = String(address).replace(/^file:\/\//, "")
            try {
                path = decodeURIComponent(path)
            } catch (error) {
                // A sign of percent that stands for itself.
            }
            return root.hasDrives ? path.replace(/^\//, "") : path
        }

        // The other way round, for any name: a folder may be called "100%" or "#1".
        function addressOf(path) {
            return "file:///" + encodeURIComponent(path.replace(/^\//, "")).replace(/%2F/g, "/").replace(/%3A/g, ":")
        }

        function moveUp() {
            if (!canMoveUp)
                return
            selectedFile = ""
            if (isRoot)
                root.isAtDrives = true
            else
                root.folder = addressOf(pathOf(root.folder).replace(/\/*[^\/]*\/*$/, "/"))
        }

        // A folder is entered, a file is selected.
        function choose(isFolder, path) {
            selectedFile = isFolder ? "" : path
            if (isFolder)
                root.folder = addressOf(path)
        }

        function enterDrive(drive) {
            root.folder = addressOf(drive)
            root.isAtDrives = false // also where the folder is that one already
        }

        function accept() {
            root.fileSelected(selectedFile)
        }

        focus: true
        implicitWidth: 512
        implicitHeight: Math.max(160, Math.min(480, root.maximumHeight - 150))

        FolderListModel {
            id: files

            // The model reads what it takes for a path as an address once more, so such signs are written for that too.
            folder: /[#%?]/.test(content.pathOf(root.folder))
                    ? content.addressOf(content.addressOf(content.pathOf(root.folder)).slice(8)) : root.folder
            sortField: content.sortField
            nameFilters: root.nameFilters
            showDirsFirst: root.showDirsFirst
            showHidden: root.showHidden
            showDotAndDotDot: false
            showOnlyReadable: false
            caseSensitive: false
            onFolderChanged: {
                content.selectedFile = ""
                list.currentIndex = 0
                list.positionViewAtBeginning()
            }
        }

        RowLayout {
            id: header

            width: parent.width
            spacing: 0

            FL.BodyLabel {
                objectName: "pathLabel"
                Layout.fillWidth: true
                elide: Text.ElideLeft
                maximumLineCount: 1
                wrapMode: Text.NoWrap
                textFormat: Text.PlainText
                text: root.isAtDrives ? qsTr("Диски") : content.pathOf(root.folder)
            }

            component HeaderButton: QC2.ToolButton {
                Layout.preferredWidth: FLC.Device.touchSize
                Layout.preferredHeight: FLC.Device.touchSize
                focusPolicy: Qt.StrongFocus
                icon.color: enabled ? Material.secondaryTextColor : Material.hintTextColor
                Keys.onReturnPressed: clicked()
                Keys.onEnterPressed: clicked()
            }

            HeaderButton {
                id: sortButton

                objectName: "sortButton"
                icon.source: FLC.Utils.iconUrl("content/sort")
                Accessible.name: qsTr("Порядок")
                onClicked: sortMenu.open()

                QC2.Menu {
                    id: sortMenu

                    objectName: "sortMenu"
                    y: sortButton.height
                    width: 280
                    margins: 8

                    component SortItem: QC2.MenuItem {
                        property int field

                        checkable: true
                        checked: content.sortField === field
                        onTriggered: {
                            content.sortField = field
                            checked = Qt.binding(function() { return content.sortField === field }) // a click broke it
                        }
                    }

                    SortItem {
                        objectName: "sortByName"
                        field: FolderListModel.Name
                        text: qsTr("По имени")
                    }

                    SortItem {
                        objectName: "sortByTime"
                        field: FolderListModel.Time
                        text: qsTr("По времени изменения")
                    }

                    SortItem {
                        objectName: "sortBySize"
                        field: FolderListModel.Size
                        text: qsTr("По размеру")
                    }

                    SortItem {
                        objectName: "sortByType"
                        field: FolderListModel.Type
                        text: qsTr("По типу")
                    }

                    QC2.MenuSeparator {}

                    QC2.MenuItem {
                        objectName: "sortReversed"
                        checkable: true
                        text: qsTr("В обратном порядке")
                        onTriggered: files.sortReversed = checked
                    }
                }
            }

            HeaderButton {
                objectName: "upButton"
                enabled: content.canMoveUp
                icon.source: FLC.Utils.iconUrl("navigation/arrow_upward")
                Accessible.name: qsTr("На уровень выше")
                onClicked: content.moveUp()
            }
        }

        ListView {
            id: list

            objectName: "files"
            anchors.top: header.bottom
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            clip: true
            focus: true
            activeFocusOnTab: true
            boundsBehavior: Flickable.StopAtBounds
            model: root.isAtDrives ? content.drives : files
            Accessible.role: Accessible.List
            Accessible.name: qsTr("Файлы")
            Keys.onReturnPressed: if (currentItem) currentItem.activate()
            Keys.onEnterPressed: if (currentItem) currentItem.activate()
            Keys.onPressed: {
                event.accepted = event.key === Qt.Key_Backspace || event.key === Qt.Key_Back && content.canMoveUp
                if (event.accepted)
                    content.moveUp()
            }

            QC2.ScrollBar.vertical: QC2.ScrollBar {}

            delegate: root.isAtDrives ? driveRow : fileRow

            FL.BodyLabel {
                objectName: "noFiles"
                anchors.centerIn: parent
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                visible: list.count === 0
                color: Material.secondaryTextColor
                text: qsTr("Здесь нет подходящих файлов")
            }
        }

        HardMouseScroll {
            flickable: list
        }

        Component {
            id: driveRow

            FL.ListItem {
                function activate() {
                    content.enterDrive(modelData)
                }

                width: ListView.view.width
                focusPolicy: Qt.NoFocus
                highlighted: ListView.isCurrentItem && ListView.view.activeFocus
                iconName: "device/storage"
                text: modelData
                onClicked: activate()
            }
        }

        Component {
            id: fileRow

            FL.ListItem {
                // The file that is selected already is taken.
                function activate() {
                    if (content.selectedFile === filePath && !fileIsDir)
                        root.submit()
                    else
                        content.choose(fileIsDir, filePath)
                }

                width: ListView.view.width
                focusPolicy: Qt.NoFocus
                highlighted: ListView.isCurrentItem && ListView.view.activeFocus || content.selectedFile === filePath
                iconName: fileIsDir ? "file/folder" : "editor/insert_drive_file"
                text: fileName
                subText: fileIsDir ? "" : root.formatSize(fileSize)
                onClicked: {
                    ListView.view.currentIndex = index
                    activate()
                }
            }
        }
    }
}
