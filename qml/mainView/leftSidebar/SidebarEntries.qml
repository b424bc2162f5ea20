// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick 2.15
import Backend 1.0
import SortFilterProxyModel 0.2

// Where a user can go: depends on who that is, and on whether there is a server.
SortFilterProxyModel {
    readonly property bool connected: Backend.status === Backend.Connected

    sourceModel: ListModel {
        ListElement {
            link: "loading"
            icon: "action/cached"
            text: QT_TRANSLATE_NOOP("LeftSidebar", "Статус подключения")
            adminOnly: false
            showWhenDisconnected: true
            hideWhenConnected: true
        }
        ListElement {
            link: "desktop"
            icon: "qrc:/icons/ondira/grid.svg"
            text: QT_TRANSLATE_NOOP("LeftSidebar", "Рабочий стол")
            adminOnly: false
            showWhenDisconnected: false
            hideWhenConnected: false
        }
        ListElement {
            link: "sliders"
            icon: "qrc:/icons/ondira/config.svg"
            text: QT_TRANSLATE_NOOP("LeftSidebar", "Таблица управления")
            adminOnly: false
            showWhenDisconnected: false
            hideWhenConnected: false
        }
        ListElement {
            link: "settings"
            icon: "qrc:/icons/ondira/wrench.svg"
            text: QT_TRANSLATE_NOOP("LeftSidebar", "Настройки")
            adminOnly: true
            showWhenDisconnected: true
            hideWhenConnected: false
        }
    }
    filters: [
        ValueFilter {
            enabled: Backend.userGroup !== "admin" && connected
            roleName: "adminOnly"
            value: false
        },
        ValueFilter {
            enabled: !connected
            roleName: "showWhenDisconnected"
            value: true
        },
        ValueFilter {
            enabled: connected
            roleName: "hideWhenConnected"
            value: false
        }
    ]
}
