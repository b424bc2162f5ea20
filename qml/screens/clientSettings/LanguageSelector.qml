// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import QtQuick.Controls 2.15 as QC2
import QtQuick.Layouts 1.15
import Fluid.Controls 1.0 as FL
import Fluid.Core 1.0 as FLC
import LanguageController 1.0
import controls 1.0

// The language of this program, and the layouts of its keyboard on the screen.
ColumnLayout {
    id: root

    property var layouts: LanguageController.activeLayouts
    readonly property bool hasLayouts: !FLC.Device.isMobile
    readonly property var locales: ["en_GB", "ru_RU", "da_DK", "de_DE", "es_ES", "fi_FI", "fr_FR", "hi_IN", "it_IT",
                                    "nb_NO", "pl_PL", "pt_PT", "ro_RO", "sv_SE"]

    // The row of a locale. The system's may be one of another country, and the two letters choose the catalogue.
    function rowOf(locale) {
        return locale.indexOf("en") === 0 ? "en_GB" : "ru_RU"
    }

    function accept() {
        var current = LanguageController.locale
        var chosen = languagePicker.selectedItem
        LanguageController.set(!chosen || chosen === rowOf(current) ? current : chosen, layouts)
    }

    function nameOf(locale) {
        var name = Qt.locale(locale).nativeLanguageName
        return name.charAt(0).toUpperCase() + name.slice(1)
    }

    // In the order of the list, whatever the order of the clicks.
    function choose(locale, chosen) {
        layouts = locales.filter(function(other) {
            return other === locale ? chosen : layouts.indexOf(other) >= 0
        })
    }

    spacing: 8

    // The other fonts have none of its letters.
    FontLoader {
        id: devanagariFont

        source: root.hasLayouts ? "qrc:/fonts/Lohit-Devanagari.ttf" : ""
    }

    ItemPicker {
        id: languagePicker

        objectName: "languagePicker"
        Layout.fillWidth: true
        focus: true
        label: qsTr("Язык клиента")
        helperText: qsTr("Не влияет на язык сервера")
        idRole: "locale"
        textRole: "name"
        canSelectNothing: false
        initialItem: root.rowOf(LanguageController.locale)
        source: ListModel {
            ListElement { locale: "ru_RU"; name: "Русский" }
            ListElement { locale: "en_GB"; name: "English" }
        }
    }

    FL.SubheadingLabel {
        Layout.fillWidth: true
        Layout.topMargin: 8
        visible: root.hasLayouts
        wrapMode: Text.Wrap
        maximumLineCount: 3
        text: qsTr("Доступные раскладки экранной клавиатуры")
    }

    Repeater {
        model: root.hasLayouts ? root.locales : []

        QC2.CheckBox {
            objectName: "layoutBox_" + modelData
            Layout.fillWidth: true
            Layout.minimumHeight: 48
            checked: root.layouts.indexOf(modelData) >= 0
            text: root.nameOf(modelData)
            onToggled: root.choose(modelData, checked)
            Component.onCompleted: if (modelData === "hi_IN") font.family = devanagariFont.name
        }
    }
}
