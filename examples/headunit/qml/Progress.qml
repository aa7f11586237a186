import QtQuick
import HeadUnit

// How far something has come, as a bar.
Rectangle {
    id: bar

    required property int done
    required property int total  // 0: not known

    implicitHeight: 10
    radius: 5
    color: Theme.raised

    Rectangle {
        objectName: "progressDone"
        height: parent.height
        radius: 5
        color: Theme.accent
        width: bar.total > 0 ? parent.width * Math.min(1, bar.done / bar.total) : 0
    }
}
