import QtQuick
import HeadUnit
import QtQuick.Layouts
import BtAsync

// One call, as a line: who, what it does, how long.
Rectangle {
    id: line

    required property int callId
    required property string number
    required property string name
    required property int state
    required property int seconds
    required property bool conference

    objectName: "call " + callId
    implicitHeight: 96
    radius: Theme.radius
    color: Theme.surface

    RowLayout {
        anchors.fill: parent
        anchors.margins: Theme.gap
        spacing: Theme.gap
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 2
            Label {
                Layout.fillWidth: true
                fromOutside: true
                font.pixelSize: Theme.large
                text: line.name !== "" ? line.name : line.number
            }
            Label {
                Layout.fillWidth: true
                visible: line.name !== ""
                fromOutside: true
                color: Theme.faint
                font.pixelSize: Theme.small
                text: line.number
            }
        }
        Chip {
            objectName: "conference"
            visible: line.conference
            text: qsTr("Conference")
        }
        Chip {
            objectName: "callState"
            text: line.state === Calls.Active ? qsTr("Active")
                : line.state === Calls.Held ? qsTr("On hold")
                : line.state === Calls.Dialing ? qsTr("Dialing")
                : line.state === Calls.Alerting ? qsTr("Ringing there")
                : line.state === Calls.Waiting ? qsTr("Waiting")
                : qsTr("Incoming")
        }
        Label {
            objectName: "callTime"
            visible: line.state === Calls.Active || line.state === Calls.Held
            fromOutside: true
            color: Theme.faint
            text: Theme.clock(line.seconds)
        }
    }
}
