import QtQuick
import HeadUnit
import BtAsync

Window {
    id: window

    required property bool withPhone
    required property bool mirrored
    required property bool dark
    required property var phone
    property alias page: screen.page
    property alias bt: service

    width: screen.width + panel.width
    height: screen.height
    visible: true
    title: qsTr("Head unit")
    color: Theme.background

    Component.onCompleted: Theme.dark = dark

    LayoutMirroring.enabled: mirrored
    LayoutMirroring.childrenInherit: true

    BtService { id: service }
    HeadUnitScreen {
        id: screen
        bt: service
    }
    Loader {
        id: panel
        active: window.withPhone
        x: screen.width
        height: parent.height
        sourceComponent: PhonePanel {
            bt: service
            phone: window.phone
        }
    }
}
