// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import controls 1.0
import SortFilterProxyModel 0.2

// An object of the site, chosen among those of the kind that the definition tells.
ItemPicker {
    id: root

    property var definition
    property var value // its uid
    readonly property string entityType: definition && definition.entityType ? definition.entityType : ""
    readonly property string pattern: definition && definition.filter ? String(definition.filter) : ""

    signal valueEdited(string value)

    function modelFor(entityType) {
        switch (entityType) {
        case "device": return devicesListModel
        case "zone": return zonesListModel
        case "part": return shopPartsListModel
        case "button": return buttonsListModel
        case "indicator": return indicatorsListModel
        }
        return null
    }

    objectName: "entityField"
    source: SortFilterProxyModel {
        sourceModel: root.modelFor(root.entityType)
        filters: RegExpFilter {
            enabled: root.pattern !== ""
            roleName: root.entityType === "device" ? "url" : "name"
            pattern: root.pattern
            caseSensitivity: Qt.CaseInsensitive
        }
    }
    textRole: entityType === "device" ? "prettyString" : entityType === "indicator" ? "label" : "name"
    sortRole: "sort"
    isSearchable: true
    isClearable: false
    popup.width: Math.max(160, Math.min(480, width))
    onValueChanged: initialItem = value
    onItemSelected: valueEdited(get(index).uid)
    Component.onCompleted: initialItem = value
}
