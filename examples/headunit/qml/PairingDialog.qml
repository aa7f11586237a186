import QtQuick
import HeadUnit
import QtQuick.Controls.Basic as Basic
import QtQuick.Layouts
import BtAsync

// A device wants to pair: the number to compare, or to type, over everything but a call.
Rectangle {
    id: dialog

    required property BtService bt
    readonly property PairingQuestion question: bt.devices.question
    readonly property bool wantsText: question !== null && (question.kind === PairingQuestion.PinCode
                                                            || question.kind === PairingQuestion.PasskeyEntry)

    visible: question !== null
    color: Qt.rgba(0, 0, 0, 0.6)

    MouseArea { anchors.fill: parent }

    Rectangle {
        anchors.centerIn: parent
        width: 760
        height: 400
        radius: 2 * Theme.radius
        color: Theme.surface
        ColumnLayout {
            anchors.fill: parent
            anchors.margins: 2 * Theme.gap
            spacing: Theme.gap
            Label {
                objectName: "asking"
                Layout.fillWidth: true
                horizontalAlignment: Text.AlignHCenter
                fromOutside: true
                font.pixelSize: Theme.large
                text: !dialog.question ? "" : dialog.question.name !== "" ? dialog.question.name : dialog.question.address
            }
            Label {
                Layout.fillWidth: true
                horizontalAlignment: Text.AlignHCenter
                color: Theme.faint
                text: !dialog.question ? ""
                    : dialog.question.kind === PairingQuestion.Confirmation ? qsTr("Does the device show this number?")
                    : dialog.question.kind === PairingQuestion.PasskeyDisplay ? qsTr("Type this number on the device")
                    : dialog.question.kind === PairingQuestion.JustWorks ? qsTr("Pair with this device?")
                    : dialog.question.kind === PairingQuestion.PinCode ? qsTr("Type the same PIN on both")
                    : qsTr("Type the number that the device shows")
            }
            Label {
                objectName: "digits"
                Layout.fillWidth: true
                visible: text !== "" && !dialog.wantsText
                horizontalAlignment: Text.AlignHCenter
                fromOutside: true
                font.pixelSize: Theme.huge
                font.letterSpacing: 8
                text: dialog.question ? dialog.question.digits : ""
            }
            Basic.TextField {
                id: typed
                objectName: "typed"
                Layout.alignment: Qt.AlignHCenter
                Layout.preferredWidth: 320
                implicitHeight: Theme.touch
                visible: dialog.wantsText
                font.pixelSize: Theme.large
                horizontalAlignment: Text.AlignHCenter
                color: Theme.text
                inputMethodHints: Qt.ImhDigitsOnly
                validator: RegularExpressionValidator { regularExpression: /[0-9]{0,16}/ }
                background: Rectangle { radius: Theme.radius; color: Theme.background }
                onVisibleChanged: clear()
            }
            Item { Layout.fillHeight: true }
            Notice {
                operation: answer
            }
            RowLayout {
                Layout.fillWidth: true
                spacing: Theme.gap
                IconButton {
                    objectName: "acceptPairing"
                    Layout.fillWidth: true
                    Layout.preferredWidth: 1  // as wide as the one beside it
                    text: qsTr("Pair")
                    color: Theme.accent
                    textColor: Theme.onAccent
                    busy: answer.underWay
                    enabled: !answer.underWay && (!dialog.wantsText || typed.text !== "")
                    onClicked: dialog.wantsText ? dialog.question.acceptWith(typed.text, answer)
                                                : dialog.question.accept(answer)
                }
                IconButton {
                    objectName: "rejectPairing"
                    Layout.fillWidth: true
                    Layout.preferredWidth: 1  // as wide as the one beside it
                    text: qsTr("Do not pair")
                    enabled: !answer.underWay
                    onClicked: dialog.question.reject(answer)
                }
            }
        }
    }
    Operation { id: answer }
}
