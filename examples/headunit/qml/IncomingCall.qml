import QtQuick
import HeadUnit
import QtQuick.Layouts
import BtAsync

// An incoming or waiting call, over everything.
Rectangle {
    id: overlay

    required property BtService bt
    readonly property var call: bt.calls.incoming

    visible: !!call
    color: Qt.rgba(0, 0, 0, 0.72)

    MouseArea { anchors.fill: parent }  // nothing below is to be touched

    Rectangle {
        anchors.centerIn: parent
        width: 760
        height: 380
        radius: 2 * Theme.radius
        color: Theme.surface

        ColumnLayout {
            anchors.fill: parent
            anchors.margins: 2 * Theme.gap
            spacing: Theme.gap
            Label {
                Layout.alignment: Qt.AlignHCenter
                color: Theme.faint
                text: qsTr("Incoming call")
            }
            Label {
                objectName: "caller"
                Layout.fillWidth: true
                horizontalAlignment: Text.AlignHCenter
                fromOutside: true
                font.pixelSize: Theme.huge
                text: !overlay.call ? "" : overlay.call.name !== "" ? overlay.call.name : overlay.call.number
            }
            Label {
                Layout.fillWidth: true
                horizontalAlignment: Text.AlignHCenter
                fromOutside: true
                color: Theme.faint
                text: overlay.call && overlay.call.name !== "" ? overlay.call.number : ""
            }
            Item { Layout.fillHeight: true }
            Notice {
                operation: answer
            }
            RowLayout {
                Layout.fillWidth: true
                spacing: Theme.gap
                IconButton {
                    objectName: "acceptCall"
                    Layout.fillWidth: true
                    Layout.preferredWidth: 1  // as wide as the one beside it
                    text: qsTr("Accept")
                    color: Theme.good
                    textColor: Theme.onSignal
                    busy: answer.underWay
                    enabled: !answer.underWay
                    onClicked: overlay.bt.calls.accept(answer)
                }
                IconButton {
                    objectName: "rejectCall"
                    Layout.fillWidth: true
                    Layout.preferredWidth: 1  // as wide as the one beside it
                    text: qsTr("Reject")
                    color: Theme.bad
                    textColor: Theme.onSignal
                    enabled: !answer.underWay
                    onClicked: overlay.bt.calls.reject(answer)
                }
            }
        }
    }
    Operation { id: answer }
}
