import QtQuick
import HeadUnit
import QtQuick.Layouts
import BtAsync

// What came of an operation, if it is not what the user wanted: in the user's words, for some seconds. In a layout it is
// as wide as its text, where there is room for it on one line.
Rectangle {
    id: notice

    required property Operation operation
    property string refused: qsTr("That is not possible now")

    property bool isShown: false

    visible: label.text !== ""
    Layout.alignment: Qt.AlignHCenter
    Layout.fillWidth: true
    Layout.maximumWidth: implicitWidth
    implicitWidth: label.implicitWidth + 2 * Theme.gap
    implicitHeight: label.implicitHeight + Theme.gap
    radius: Theme.radius
    color: Theme.raised

    Label {
        id: label
        objectName: "notice"
        anchors.fill: parent
        anchors.leftMargin: Theme.gap
        anchors.rightMargin: Theme.gap
        horizontalAlignment: Text.AlignHCenter
        text: !notice.isShown ? ""
            : notice.operation.result === Operation.Refused ? notice.refused
            : notice.operation.reason === Operation.NoService
              || notice.operation.reason === Operation.NoBus ? qsTr("Bluetooth is not ready yet")
            : notice.operation.reason === Operation.TimedOut ? qsTr("No answer. Try again")
            : qsTr("That did not work. Try again")
    }
    Timer {
        id: hide
        interval: 6000
        onTriggered: notice.isShown = false
    }
    Connections {
        target: notice.operation
        function onUnderWayChanged() {
            if (notice.operation.underWay)
                notice.isShown = false
        }
        function onFinished(result) {
            notice.isShown = result !== Operation.Accepted && notice.operation.reason !== Operation.Cancelled
            hide.restart()
        }
    }
}
