import QtQuick
import HeadUnit
import QtQuick.Layouts
import BtAsync

// The phone on the desk, and the network: what a person there does. Only the simulated service has one.
Rectangle {
    id: panel

    required property BtService bt
    required property var phone
    property string operatorName  // the last one, for when the network is back

    width: 360
    color: Qt.darker(Theme.background, 1.2)

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: Theme.gap
        spacing: 10
        Label {
            Layout.fillWidth: true
            text: qsTr("The phone")
            color: Theme.faint
        }
        Label {
            objectName: "phoneName"
            Layout.fillWidth: true
            fromOutside: true
            text: panel.phone.name
        }
        GridLayout {
            Layout.fillWidth: true
            columns: 2
            columnSpacing: 10
            rowSpacing: 10
            Act { objectName: "phoneRings"; text: qsTr("Ring"); onClicked: panel.phone.ring("+49170000007") }
            Act { objectName: "phoneAnswers"; text: qsTr("Answer"); onClicked: panel.phone.answer() }
            Act { objectName: "phoneHangsUp"; text: qsTr("Hang up"); onClicked: panel.phone.hangUp() }
            Act { objectName: "phonePlays"; text: qsTr("Play"); onClicked: panel.phone.play() }
            Act { objectName: "phonePauses"; text: qsTr("Pause"); onClicked: panel.phone.pause() }
            Act {
                objectName: "phonePairs"
                text: qsTr("Accept pairing")
                enabled: panel.bt.devices.pairing !== ""
                onClicked: panel.phone.acceptPairing(panel.bt.devices.pairing)
            }
        }
        Act {
            objectName: "phoneLeaves"
            text: panel.phone.inRange ? qsTr("Leave the room") : qsTr("Come back")
            onClicked: panel.phone.inRange = !panel.phone.inRange
        }
        Label { text: qsTr("Battery"); color: Theme.faint }
        BarChoice { name: "battery"; onChosen: bars => panel.phone.setBattery(bars) }
        Label { text: qsTr("The network"); color: Theme.faint }
        BarChoice { name: "signal"; onChosen: bars => panel.phone.setSignal(bars) }
        RowLayout {
            spacing: 10
            Act {
                objectName: "networkGoes"
                Layout.preferredWidth: 1
                text: panel.bt.network.available ? qsTr("None") : qsTr("Back")
                onClicked: panel.phone.setOperator(panel.bt.network.available ? "" : panel.operatorName)
            }
            Act {
                objectName: "networkIsForeign"
                Layout.preferredWidth: 1
                text: panel.bt.network.roaming ? qsTr("At home") : qsTr("Abroad")
                onClicked: panel.phone.setRoaming(!panel.bt.network.roaming)
            }
        }
        Item { Layout.fillHeight: true }
        Label { text: qsTr("The service"); color: Theme.faint }
        GridLayout {
            Layout.fillWidth: true
            columns: 2
            columnSpacing: 10
            rowSpacing: 10
            Fault { objectName: "serviceSlow"; text: qsTr("Slow"); name: "slow"; onClicked: panel.phone.slowDown() }
            Fault { objectName: "serviceHangs"; text: qsTr("Hung"); name: "hung"; onClicked: panel.phone.hang() }
            Fault { objectName: "serviceAsUsual"; text: qsTr("As usual"); onClicked: panel.phone.recover() }
            Act { objectName: "serviceDies"; text: qsTr("Dead"); onClicked: panel.phone.die() }
        }
    }

    component Act: IconButton {
        Layout.fillWidth: true
        implicitHeight: 44
        textSize: Theme.small
    }
    component Fault: Act {
        property string name
        readonly property bool current: panel.phone.fault === name
        textColor: current ? Theme.accent : Theme.text
    }
    component BarChoice: RowLayout {
        id: choice
        property string name
        signal chosen(int bars)
        spacing: 6
        Repeater {
            model: 6
            Act {
                required property int index
                objectName: choice.name + index
                text: index
                fromOutside: true
                onClicked: choice.chosen(index)
            }
        }
    }

    function noteOperator() {
        if (panel.bt.network.operatorName !== "")
            panel.operatorName = panel.bt.network.operatorName
    }

    // Which phone it is may be another one once something has connected, or the service has come back.
    Component.onCompleted: {
        panel.phone.look()
        panel.noteOperator()
    }
    Connections {
        target: panel.bt
        function onAvailabilityChanged() { panel.phone.look() }
    }
    Connections {
        target: panel.bt.network
        function onPhoneChanged() { panel.phone.look() }
        function onOperatorNameChanged() { panel.noteOperator() }
    }
}
