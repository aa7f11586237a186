import QtQuick
import HeadUnit
import QtQuick.Templates as T

// A button with a text, or with a sign on it. It shows that what it asked for is under way.
T.AbstractButton {
    id: control

    property color color: Theme.raised
    property color textColor: Theme.text
    property bool busy: false
    property int textSize: Theme.normal
    property bool fromOutside: false

    implicitWidth: Math.max(Theme.touch, label.implicitWidth + 2 * Theme.gap)
    implicitHeight: Theme.touch
    opacity: enabled ? 1 : Theme.stale
    Accessible.name: text

    background: Rectangle {
        radius: Theme.radius
        color: control.down ? Qt.darker(control.color, 1.25) : control.color
        border.width: control.visualFocus ? 3 : 0
        border.color: Theme.accent
        Rectangle {
            visible: control.busy
            anchors.bottom: parent.bottom
            anchors.horizontalCenter: parent.horizontalCenter
            anchors.bottomMargin: 6
            width: parent.width / 3
            height: 4
            radius: 2
            color: control.textColor
            SequentialAnimation on opacity {
                running: control.busy
                loops: Animation.Infinite
                NumberAnimation { from: 1; to: 0.2; duration: 500 }
                NumberAnimation { from: 0.2; to: 1; duration: 500 }
            }
        }
    }
    contentItem: Label {
        id: label
        text: control.text
        color: control.textColor
        font.pixelSize: control.textSize
        fromOutside: control.fromOutside
        wrapMode: Text.NoWrap
        horizontalAlignment: Text.AlignHCenter
    }
}
