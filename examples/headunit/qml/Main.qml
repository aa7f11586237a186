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

    width: screen.width + (withPhone ? panel.width : 0)
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
    PhonePanel {
        id: panel
        visible: window.withPhone
        x: screen.width
        height: parent.height
        phone: window.phone
    }
}
