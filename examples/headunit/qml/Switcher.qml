import QtQuick
import HeadUnit
import QtQuick.Templates as T

// On or off, as the service says: a tap asks for the other, and the knob moves once the service has done it.
T.AbstractButton {
    id: control

    property bool on: false
    property bool busy: false

    implicitWidth: 88
    implicitHeight: Theme.touch
    opacity: enabled ? 1 : Theme.stale

    contentItem: Item {
        Rectangle {
            anchors.centerIn: parent
            width: 76
            height: 40
            radius: 20
            color: control.on ? Theme.accent : Theme.raised
            border.width: control.busy ? 3 : 0
            border.color: Theme.faint
            Rectangle {
                width: 32
                height: 32
                radius: 16
                y: 4
                x: control.on !== control.mirrored ? parent.width - width - 4 : 4
                color: control.on ? Theme.onAccent : Theme.faint
                Behavior on x { NumberAnimation { duration: 120 } }
            }
        }
    }
}
