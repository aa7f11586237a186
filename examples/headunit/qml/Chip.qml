import QtQuick
import HeadUnit

// A word in a coloured pill: what a device or a call is just now.
Rectangle {
    property alias text: label.text
    property alias textColor: label.color

    implicitWidth: label.implicitWidth + 2 * Theme.gap
    implicitHeight: label.implicitHeight + 10
    radius: height / 2
    color: Theme.raised

    Label {
        id: label
        anchors.centerIn: parent
        font.pixelSize: Theme.small
        wrapMode: Text.NoWrap
    }
}
