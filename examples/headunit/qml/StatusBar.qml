import QtQuick
import HeadUnit
import QtQuick.Layouts
import BtAsync

// The top line: the network of the phone, and whether Bluetooth is there at all.
Rectangle {
    id: bar

    required property BtService bt

    implicitHeight: 56
    color: Theme.surface

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.gap
        anchors.rightMargin: Theme.gap
        spacing: Theme.gap

        Label {
            objectName: "availability"
            visible: text !== ""
            color: Theme.bad
            font.pixelSize: Theme.small
            wrapMode: Text.NoWrap
            text: bar.bt.availability === BtService.Present ? ""
                : bar.bt.availability === BtService.NoBus ? qsTr("No connection to the system")
                : qsTr("Bluetooth is starting …")
        }
        Item { Layout.fillWidth: true }
        Label {
            objectName: "operator"
            Layout.maximumWidth: 360
            opacity: bar.bt.network.fresh ? 1 : Theme.stale
            font.pixelSize: Theme.small
            fromOutside: true
            text: bar.bt.network.phone === "" ? "" : bar.bt.network.operatorName
        }
        Label {
            objectName: "roaming"
            visible: bar.bt.network.roaming
            opacity: bar.bt.network.fresh ? 1 : Theme.stale
            font.pixelSize: Theme.small
            wrapMode: Text.NoWrap
            text: qsTr("Roaming")
        }
        Bars { value: bar.bt.network.signal; rising: true }
        Bars { value: bar.bt.network.battery; rising: false }
    }

    component Bars: Row {
        id: bars
        objectName: "bars"
        property int value: 0
        property bool rising: true
        visible: bar.bt.network.phone !== ""
        opacity: bar.bt.network.fresh ? 1 : Theme.stale
        spacing: 3
        Repeater {
            model: 5
            Rectangle {
                required property int index
                anchors.bottom: parent.bottom
                width: 6
                height: bars.rising ? 8 + 4 * index : 20
                radius: 2
                color: index < bars.value ? Theme.text : Theme.line
            }
        }
    }
}
