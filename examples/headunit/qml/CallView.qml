import QtQuick
import HeadUnit
import QtQuick.Layouts
import BtAsync

// The calls, and what can be done with them. There is no button that mutes the microphone, since the interface has no
// request for it: it can send the sound to the phone.
ColumnLayout {
    id: view

    required property BtService bt

    spacing: 12

    Repeater {
        model: view.bt.calls.model
        CallBar { Layout.fillWidth: true }
    }
    Item { Layout.fillHeight: true }
    Notice {
        operation: asked
    }
    Notice {
        operation: ending
    }
    GridLayout {
        Layout.fillWidth: true
        columns: 2
        columnSpacing: 12
        rowSpacing: 12
        IconButton {
            objectName: "swap"
            Layout.fillWidth: true
            text: view.bt.calls.count > 1 ? qsTr("Swap calls") : qsTr("Hold or resume")
            enabled: view.bt.calls.canSwap && !asked.underWay
            onClicked: view.bt.calls.swap(asked)
        }
        IconButton {
            objectName: "merge"
            Layout.fillWidth: true
            text: qsTr("Join calls")
            enabled: view.bt.calls.canMerge && !asked.underWay
            onClicked: view.bt.calls.merge(asked)
        }
        IconButton {
            objectName: "privacy"
            Layout.fillWidth: true
            text: view.bt.calls.privacy ? qsTr("Sound to the car") : qsTr("Sound to the phone")
            enabled: !asked.underWay
            onClicked: view.bt.calls.setPrivacy(!view.bt.calls.privacy, asked)
        }
        IconButton {
            objectName: "hangUp"
            Layout.fillWidth: true
            text: qsTr("Hang up")
            color: Theme.bad
            textColor: Theme.onSignal
            busy: ending.underWay
            onClicked: view.bt.calls.hangUp(ending)
        }
    }
    Operation { id: asked }
    Operation { id: ending }
}
