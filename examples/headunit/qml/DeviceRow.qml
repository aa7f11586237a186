import QtQuick
import HeadUnit
import QtQuick.Layouts

// A device, with room for what can be done with it.
Rectangle {
    id: row

    property string name
    property string address
    property string status: ""
    default property alias actions: place.data

    objectName: "device " + address
    implicitHeight: Theme.touch + 8
    radius: Theme.radius
    color: Theme.surface

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.gap
        anchors.rightMargin: 4
        spacing: 12
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 0
            Label {
                objectName: "deviceName"
                Layout.fillWidth: true
                fromOutside: true
                text: row.name !== "" ? row.name : row.address
            }
            Label {
                objectName: "status"
                Layout.fillWidth: true
                visible: text !== ""
                color: Theme.faint
                font.pixelSize: Theme.small
                text: row.status
            }
        }
        RowLayout {
            id: place
            spacing: 6
        }
    }
}
