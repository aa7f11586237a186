import QtQuick
import HeadUnit
import QtQuick.Layouts
import BtAsync

// Dialling, and the calls.
Item {
    id: screen

    required property BtService bt
    property string number: ""
    property string tones: ""  // typed in a call
    readonly property bool inCall: bt.calls.count > 0

    onInCallChanged: tones = ""

    RowLayout {
        anchors.fill: parent
        anchors.margins: Theme.gap
        spacing: 2 * Theme.gap

        ColumnLayout {
            Layout.preferredWidth: 440
            Layout.maximumWidth: 440
            Layout.fillHeight: true
            spacing: 12
            Rectangle {
                Layout.fillWidth: true
                implicitHeight: Theme.touch
                radius: Theme.radius
                color: Theme.surface
                RowLayout {
                    anchors.fill: parent
                    anchors.leftMargin: Theme.gap
                    LayoutMirroring.enabled: false
                    Label {
                        objectName: "number"
                        Layout.fillWidth: true
                        fromOutside: true
                        elide: Text.ElideLeft
                        horizontalAlignment: Text.AlignLeft
                        font.pixelSize: Theme.large
                        text: screen.inCall ? screen.tones : screen.number
                    }
                    IconButton {
                        objectName: "erase"
                        text: "⌫"
                        fromOutside: true
                        color: "transparent"
                        visible: !screen.inCall
                        enabled: screen.number !== ""
                        onClicked: screen.number = screen.number.slice(0, -1)
                        onPressAndHold: screen.number = ""
                    }
                }
            }
            Keypad {
                Layout.fillWidth: true
                Layout.fillHeight: true
                onPressed: key => {
                    if (screen.inCall) {
                        screen.tones += key
                        screen.bt.calls.sendTone(key, sending)
                    } else {
                        screen.number += key
                    }
                }
            }
            RowLayout {
                spacing: 12
                IconButton {
                    objectName: "dial"
                    Layout.fillWidth: true
                    Layout.preferredWidth: 1  // as wide as the one beside it
                    text: qsTr("Call")
                    color: Theme.good
                    textColor: Theme.onSignal
                    busy: dialing.underWay
                    enabled: screen.number !== "" && !dialing.underWay
                    onClicked: screen.bt.calls.dial(screen.number, dialing)
                }
                IconButton {
                    objectName: "redial"
                    Layout.fillWidth: true
                    Layout.preferredWidth: 1  // as wide as the one beside it
                    text: qsTr("Redial")
                    enabled: !dialing.underWay
                    onClicked: screen.bt.calls.redial(dialing)
                }
            }
        }
        ColumnLayout {
            Layout.fillWidth: true
            Layout.fillHeight: true
            spacing: 12
            Notice {
                operation: dialing
                refused: qsTr("Connect a phone first")
            }
            Notice {
                operation: sending
            }
            CallView {
                Layout.fillWidth: true
                Layout.fillHeight: true
                visible: screen.inCall
                bt: screen.bt
            }
            Label {
                Layout.fillWidth: true
                Layout.fillHeight: true
                visible: !screen.inCall
                opacity: screen.bt.calls.fresh ? 1 : Theme.stale
                horizontalAlignment: Text.AlignHCenter
                color: Theme.faint
                objectName: "noCall"
                text: screen.bt.adapter.power === Adapter.PowerOff ? qsTr("Bluetooth is off. Switch it on in Settings")
                    : screen.bt.network.phone === "" ? qsTr("No phone is connected. Connect one in Settings")
                    : qsTr("No calls")
            }
        }
    }
    Operation { id: sending }
    Operation {
        id: dialing
        onFinished: result => { if (result === Operation.Accepted) screen.number = "" }
    }
}
