import QtQuick
import HeadUnit
import QtQuick.Controls.Basic as Basic
import QtQuick.Layouts
import BtAsync

// The adapter, the paired devices, and the search for others.
Item {
    id: screen

    required property BtService bt
    readonly property bool isOn: bt.adapter.power === Adapter.PowerOn

    function stateOf(hfp, a2dp) {
        const calls = hfp === Devices.Connected
        const music = a2dp === Devices.Connected
        if (calls && music)
            return qsTr("Calls and music")
        if (calls)
            return qsTr("Calls")
        if (music)
            return qsTr("Music")
        if (hfp === Devices.Connecting || a2dp === Devices.Connecting)
            return qsTr("Connecting …")
        if (hfp === Devices.Failed || a2dp === Devices.Failed)
            return qsTr("Could not connect")
        if (hfp === Devices.LinkLost || a2dp === Devices.LinkLost)
            return qsTr("Connection lost")
        return qsTr("Not connected")
    }

    function wordsFor(pairFailure) {
        switch (pairFailure) {
        case Devices.Authentication:
            return qsTr("Not paired: the PIN is wrong")
        case Devices.RejectedThere:
            return qsTr("Not paired: the device refused")
        case Devices.TimedOut:
        case Devices.Unreachable:
            return qsTr("Not paired: the device does not answer")
        case Devices.ListFull:
            return qsTr("Not paired: delete a device first")
        }
        return qsTr("Not paired")
    }

    RowLayout {
        anchors.fill: parent
        anchors.margins: Theme.gap
        spacing: 2 * Theme.gap

        ColumnLayout {
            Layout.preferredWidth: 380
            Layout.maximumWidth: 380
            Layout.fillHeight: true
            spacing: 12
            objectName: "adapter"
            opacity: screen.bt.adapter.fresh ? 1 : Theme.stale
            Setting {
                title: qsTr("Bluetooth")
                Switcher {
                    objectName: "power"
                    on: screen.isOn || screen.bt.adapter.power === Adapter.PowerTurningOn
                    busy: power.underWay
                    enabled: !power.underWay
                    onClicked: screen.bt.adapter.setPower(!on, power)
                }
            }
            Setting {
                title: qsTr("Visible to others")
                Switcher {
                    objectName: "discoverable"
                    on: screen.bt.adapter.discoverable
                    busy: visibility.underWay
                    enabled: !visibility.underWay
                    onClicked: screen.bt.adapter.setDiscoverable(!on, visibility)
                }
            }
            Label {
                Layout.fillWidth: true
                color: Theme.faint
                font.pixelSize: Theme.small
                text: qsTr("Name of this car")
            }
            Basic.TextField {
                id: name
                objectName: "name"
                Layout.fillWidth: true
                implicitHeight: Theme.touch
                font.pixelSize: Theme.normal
                color: Theme.text
                text: screen.bt.adapter.name
                background: Rectangle { radius: Theme.radius; color: Theme.surface }
                onEditingFinished: if (text !== screen.bt.adapter.name) screen.bt.adapter.setName(text, naming)
            }
            Item { Layout.fillHeight: true }
            Notice {
                operation: power
            }
            Notice {
                operation: visibility
            }
            Notice {
                operation: naming
            }
        }
        ColumnLayout {
            Layout.fillWidth: true
            Layout.fillHeight: true
            spacing: 12
            RowLayout {
                Layout.fillWidth: true
                Label {
                    Layout.fillWidth: true
                    text: qsTr("Paired devices")
                    color: Theme.faint
                }
                IconButton {
                    objectName: "scan"
                    text: screen.bt.adapter.scanning ? qsTr("Stop the search") : qsTr("Search")
                    busy: search.underWay || screen.bt.adapter.scanning
                    enabled: screen.isOn && !search.underWay
                    onClicked: screen.bt.adapter.scanning ? screen.bt.adapter.stopScan(search)
                                                          : screen.bt.adapter.startScan(search)
                }
            }
            ListView {
                objectName: "paired"
                Layout.fillWidth: true
                Layout.fillHeight: true
                clip: true
                spacing: 6
                opacity: screen.bt.devices.fresh ? 1 : Theme.stale
                model: screen.bt.devices.paired
                delegate: DeviceRow {
                    id: device
                    required property int index
                    required property bool connected
                    required property int hfp
                    required property int a2dp
                    required name
                    required address
                    width: ListView.view.width
                    status: screen.stateOf(hfp, a2dp)
                    IconButton {
                        objectName: "up"
                        text: "↑"
                        fromOutside: true
                        color: "transparent"
                        enabled: device.index > 0
                        onClicked: screen.bt.devices.move(device.address, device.index - 1, moving)
                    }
                    IconButton {
                        objectName: "connect"
                        text: device.connected ? qsTr("Disconnect") : qsTr("Connect")
                        busy: connecting.underWay
                        onClicked: device.connected ? screen.bt.devices.disconnect(device.address, connecting)
                                                    : screen.bt.devices.connect(device.address, connecting)
                        Operation { id: connecting }
                    }
                    IconButton {
                        objectName: "remove"
                        text: qsTr("Delete")
                        color: "transparent"
                        textColor: Theme.bad
                        onClicked: screen.bt.devices.remove(device.address, moving)
                    }
                }
            }
            Label {
                visible: screen.bt.devices.found.count > 0 || screen.bt.adapter.scanning
                text: qsTr("Found")
                color: Theme.faint
            }
            ListView {
                objectName: "found"
                Layout.fillWidth: true
                Layout.fillHeight: true
                visible: screen.bt.devices.found.count > 0 || screen.bt.adapter.scanning
                opacity: screen.bt.devices.fresh ? 1 : Theme.stale
                clip: true
                spacing: 6
                model: screen.bt.devices.found
                delegate: DeviceRow {
                    id: found
                    required name
                    required address
                    width: ListView.view.width
                    IconButton {
                        objectName: "pair"
                        text: qsTr("Pair")
                        color: Theme.accent
                        textColor: Theme.onAccent
                        busy: screen.bt.devices.pairing === found.address
                        enabled: !pairing.underWay && screen.bt.devices.fresh
                        onClicked: screen.bt.devices.pair(found.address, pairing)
                    }
                }
            }
            Notice {
                operation: pairing
                refused: screen.wordsFor(screen.bt.devices.pairFailure)
            }
            Notice {
                operation: moving
            }
            Notice {
                operation: search
            }
        }
    }

    component Setting: Rectangle {
        property alias title: title.text
        default property alias control: place.data
        Layout.fillWidth: true
        implicitHeight: Theme.touch + 8
        radius: Theme.radius
        color: Theme.surface
        RowLayout {
            anchors.fill: parent
            anchors.leftMargin: Theme.gap
            Label {
                id: title
                Layout.fillWidth: true
            }
            RowLayout { id: place }
        }
    }
    Operation { id: power }
    Operation { id: visibility }
    Operation {
        id: naming
        onFinished: name.text = Qt.binding(() => screen.bt.adapter.name) // what was typed may have been refused
    }
    Operation { id: search }
    Operation { id: pairing }
    Operation { id: moving }
}
