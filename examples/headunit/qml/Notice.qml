import QtQuick
import HeadUnit
import BtAsync

// What came of an operation, if it is not what the user wanted: a line in the user's words, for some seconds.
Rectangle {
    id: notice

    required property Operation operation
    property string refused: qsTr("That is not possible now")

    visible: label.text !== ""
    implicitWidth: label.implicitWidth + 2 * Theme.gap
    implicitHeight: label.implicitHeight + Theme.gap
    radius: Theme.radius
    color: Theme.raised

    Label {
        id: label
        objectName: "notice"
        anchors.centerIn: parent
        wrapMode: Text.NoWrap
        color: Theme.text
    }
    Timer {
        id: hide
        interval: 6000
        onTriggered: label.text = ""
    }
    Connections {
        target: notice.operation
        function onUnderWayChanged() {
            if (notice.operation.underWay)
                label.text = ""
        }
        function onFinished(result) {
            if (result === Operation.Accepted) {
                label.text = ""
                return
            }
            const reason = notice.operation.reason
            label.text = result === Operation.Refused ? notice.refused
                : reason === Operation.NoService || reason === Operation.NoBus ? qsTr("Bluetooth is not ready yet")
                : reason === Operation.TimedOut ? qsTr("No answer. Try again")
                : reason === Operation.Cancelled ? ""
                : qsTr("That did not work. Try again")
            hide.restart()
        }
    }
}
