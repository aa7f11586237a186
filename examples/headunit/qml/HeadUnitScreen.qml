import QtQuick
import HeadUnit
import BtAsync

// The screen of the car: 1280 x 720.
Rectangle {
    id: headUnit

    required property BtService bt
    property alias page: navigation.current

    width: 1280
    height: 720
    color: Theme.background
    clip: true

    StatusBar {
        id: status
        anchors { top: parent.top; left: parent.left; right: parent.right }
        bt: headUnit.bt
    }
    Item {
        anchors { top: status.bottom; bottom: navigation.top; left: parent.left; right: parent.right }
        PhoneScreen {
            objectName: "phoneScreen"
            anchors.fill: parent
            visible: headUnit.page === 0
            bt: headUnit.bt
        }
        // The phone book is asked for when somebody wants to see it.
        Loader {
            objectName: "contactsScreen"
            anchors.fill: parent
            visible: headUnit.page === 1
            active: visible || item !== null
            sourceComponent: ContactsScreen { bt: headUnit.bt }
        }
        Loader {
            objectName: "musicScreen"
            anchors.fill: parent
            visible: headUnit.page === 2
            active: visible || item !== null
            sourceComponent: MusicScreen { bt: headUnit.bt }
        }
        Loader {
            objectName: "settingsScreen"
            anchors.fill: parent
            visible: headUnit.page === 3
            active: visible || item !== null
            sourceComponent: SettingsScreen { bt: headUnit.bt }
        }
    }
    NavigationBar {
        id: navigation
        anchors { bottom: parent.bottom; left: parent.left; right: parent.right }
    }
    PairingDialog {
        objectName: "pairingDialog"
        anchors.fill: parent
        bt: headUnit.bt
    }
    IncomingCall {
        objectName: "incomingCall"
        anchors.fill: parent
        bt: headUnit.bt
    }
}
