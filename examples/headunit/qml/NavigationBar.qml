import QtQuick
import HeadUnit
import QtQuick.Layouts

// The four screens.
Rectangle {
    id: bar

    property int current: 0

    implicitHeight: 88
    color: Theme.surface

    RowLayout {
        anchors.fill: parent
        anchors.margins: 8
        spacing: 8
        Repeater {
            model: [qsTr("Phone"), qsTr("Contacts"), qsTr("Music"), qsTr("Settings")]
            IconButton {
                required property int index
                required property string modelData
                objectName: "navigation" + index
                Layout.fillWidth: true
                Layout.preferredWidth: 1  // all as wide as each other
                Layout.fillHeight: true
                text: modelData
                color: bar.current === index ? Theme.accent : Theme.surface
                textColor: bar.current === index ? Theme.onAccent : Theme.text
                onClicked: bar.current = index
            }
        }
    }
}
