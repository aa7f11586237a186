import QtQuick
import HeadUnit
import QtQuick.Layouts
import BtAsync

// Which of the numbers of a contact is to be called.
Rectangle {
    id: chooser

    property string name
    property var numbers: []  // as in the rows of Contacts

    signal chosen(string number)

    function choose(name, numbers) {
        chooser.name = name
        chooser.numbers = numbers
        visible = true
    }
    function wordOf(kind) {
        return kind === Contacts.Mobile ? qsTr("Mobile") : kind === Contacts.Home ? qsTr("Home")
             : kind === Contacts.Work ? qsTr("Work") : qsTr("Other")
    }

    visible: false
    color: Qt.rgba(0, 0, 0, 0.6)

    MouseArea { anchors.fill: parent }  // nothing below is to be touched

    Rectangle {
        anchors.centerIn: parent
        width: 760
        height: Math.min(parent.height, column.implicitHeight + 4 * Theme.gap)
        radius: 2 * Theme.radius
        color: Theme.surface

        ColumnLayout {
            id: column
            anchors.fill: parent
            anchors.margins: 2 * Theme.gap
            spacing: Theme.gap
            Label {
                Layout.fillWidth: true
                horizontalAlignment: Text.AlignHCenter
                fromOutside: true
                font.pixelSize: Theme.large
                text: chooser.name
            }
            ListView {
                objectName: "numbers"
                Layout.fillWidth: true
                Layout.fillHeight: true
                implicitHeight: contentHeight
                clip: true
                spacing: 6
                model: chooser.numbers
                delegate: Rectangle {
                    id: entry
                    required property int index
                    required property var modelData
                    objectName: "number " + index
                    width: ListView.view.width
                    height: Theme.touch
                    radius: Theme.radius
                    color: Theme.raised
                    RowLayout {
                        anchors.fill: parent
                        anchors.leftMargin: Theme.gap
                        anchors.rightMargin: Theme.gap
                        spacing: 12
                        Label {
                            Layout.fillWidth: true
                            fromOutside: true
                            text: entry.modelData.number
                        }
                        Label {
                            objectName: "kind"
                            color: Theme.faint
                            font.pixelSize: Theme.small
                            wrapMode: Text.NoWrap
                            text: chooser.wordOf(entry.modelData.kind)
                        }
                    }
                    TapHandler {
                        onTapped: {
                            chooser.visible = false
                            chooser.chosen(entry.modelData.number)
                        }
                    }
                }
            }
            IconButton {
                objectName: "callNobody"
                Layout.fillWidth: true
                text: qsTr("Do not call")
                onClicked: chooser.visible = false
            }
        }
    }
}
