import QtQuick
import HeadUnit
import QtQuick.Layouts

// The phone on the desk, and the network: what a person there does. Only the simulated service has one.
Rectangle {
    id: panel

    required property var phone

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
            Layout.fillWidth: true
            fromOutside: true
            text: panel.phone.name
        }
        GridLayout {
            Layout.fillWidth: true
            columns: 2
            columnSpacing: 10
            rowSpacing: 10
            Act { text: qsTr("Ring"); onClicked: panel.phone.ring("+49170000007") }
            Act { text: qsTr("Answer"); onClicked: panel.phone.answer() }
            Act { text: qsTr("Hang up"); onClicked: panel.phone.hangUp() }
            Act { text: qsTr("Play"); onClicked: panel.phone.play() }
            Act { text: qsTr("Pause"); onClicked: panel.phone.pause() }
            Act { text: qsTr("Accept pairing"); onClicked: panel.phone.acceptPairing() }
        }
        Act {
            Layout.fillWidth: true
            text: panel.phone.inRange ? qsTr("Leave the room") : qsTr("Come back")
            onClicked: panel.phone.inRange = !panel.phone.inRange
        }
        Label { text: qsTr("Battery"); color: Theme.faint }
        RowLayout {
            spacing: 6
            Repeater {
                model: 6
                Act {
                    required property int index
                    Layout.fillWidth: true
                    text: index
                    fromOutside: true
                    onClicked: panel.phone.setBattery(index)
                }
            }
        }
        Item { Layout.fillHeight: true }
        Label { text: qsTr("The service"); color: Theme.faint }
        GridLayout {
            Layout.fillWidth: true
            columns: 2
            columnSpacing: 10
            rowSpacing: 10
            Act { text: qsTr("Slow"); onClicked: panel.phone.slowDown() }
            Act { text: qsTr("Hung"); onClicked: panel.phone.hang() }
            Act { text: qsTr("As usual"); onClicked: panel.phone.recover() }
            Act { text: qsTr("Dead"); onClicked: panel.phone.die() }
        }
    }

    component Act: IconButton {
        Layout.fillWidth: true
        implicitHeight: 52
        textSize: Theme.small
        objectName: "act" + text
    }
}
