import QtQuick
import HeadUnit
import QtQuick.Controls.Basic as Basic
import QtQuick.Layouts
import BtAsync

// The phone book with a search, the favourites, the last calls, and the download of all of it.
Item {
    id: screen

    required property BtService bt
    property int shown: 0  // contacts, favourites, calls

    readonly property ListView list: [people, favourites, calls][shown]

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: Theme.gap
        spacing: 12

        RowLayout {
            Layout.fillWidth: true
            spacing: 12
            Repeater {
                model: [qsTr("All"), qsTr("Favourites"), qsTr("Calls")]
                IconButton {
                    required property int index
                    required property string modelData
                    objectName: "list" + index
                    text: modelData
                    color: screen.shown === index ? Theme.accent : Theme.raised
                    textColor: screen.shown === index ? Theme.onAccent : Theme.text
                    onClicked: screen.shown = index
                }
            }
            Basic.TextField {
                id: search
                objectName: "search"
                Layout.fillWidth: true
                implicitHeight: Theme.touch
                visible: screen.shown === 0
                font.pixelSize: Theme.normal
                color: Theme.text
                placeholderText: qsTr("Search")
                placeholderTextColor: Theme.faint
                background: Rectangle { radius: Theme.radius; color: Theme.surface }
                onTextChanged: screen.bt.contacts.filter = text
            }
            Item { Layout.fillWidth: true; visible: screen.shown !== 0 }
            IconButton {
                objectName: "download"
                readonly property bool runs: screen.bt.download.state === Download.Connecting
                                             || screen.bt.download.state === Download.Downloading
                text: runs ? qsTr("Stop") : qsTr("Update")
                busy: loading.underWay
                onClicked: runs ? screen.bt.download.stop(stopping) : screen.bt.download.start(loading)
            }
        }
        RowLayout {
            objectName: "progress"
            Layout.fillWidth: true
            visible: screen.bt.download.state === Download.Connecting || screen.bt.download.state === Download.Downloading
            spacing: Theme.gap
            Progress {
                Layout.fillWidth: true
                done: screen.bt.download.done
                total: screen.bt.download.total
            }
            Label {
                fromOutside: true
                objectName: "downloaded"
                color: Theme.faint
                font.pixelSize: Theme.small
                text: screen.bt.download.done + " / " + screen.bt.download.total
            }
        }
        Notice {
            operation: loading
            refused: qsTr("Connect a phone first")
        }
        Notice {
            operation: dialing
            refused: qsTr("Connect a phone first")
        }
        Notice {
            operation: marking
        }
        Notice {
            operation: stopping
        }
        Entries {
            id: people
            opacity: screen.bt.contacts.fresh ? 1 : Theme.stale
            model: screen.bt.contacts.model
            section.property: "section"
            section.delegate: Label {
                required property string section
                height: 40
                leftPadding: Theme.gap
                rightPadding: Theme.gap
                fromOutside: true
                color: Theme.accent
                text: section
            }
            delegate: contactEntry
        }
        Entries {
            id: favourites
            opacity: screen.bt.contacts.fresh ? 1 : Theme.stale
            model: screen.bt.contacts.favourites
            delegate: contactEntry
        }
        Entries {
            id: calls
            opacity: screen.bt.callLogs.fresh ? 1 : Theme.stale
            model: screen.bt.callLogs.all
            delegate: logEntry
        }
        Label {
            Layout.fillWidth: true
            Layout.fillHeight: true
            objectName: "nobody"
            visible: screen.list.count === 0
            horizontalAlignment: Text.AlignHCenter
            color: Theme.faint
            text: screen.shown === 1 ? qsTr("No favourites yet") : screen.shown === 2 ? qsTr("No calls yet")
                : search.text !== "" ? qsTr("Nobody with that name or number")
                : qsTr("No contacts. Update them from the phone")
        }
    }

    component Entries: ListView {
        id: entries
        objectName: "entries"
        Layout.fillWidth: true
        Layout.fillHeight: true
        visible: screen.list === entries && count > 0
        clip: true
        spacing: 2
        // Rows out of sight are not made ahead: Qt warns if the list becomes shorter meanwhile.
        cacheBuffer: 0
        Basic.ScrollBar.vertical: Basic.ScrollBar {}
    }
    Component {
        id: contactEntry
        Rectangle {
            id: entry
            required property int contactId
            required property string name
            required property var numbers
            required property bool favourite
            objectName: "contact " + contactId
            width: ListView.view.width
            height: Theme.touch
            radius: Theme.radius
            color: Theme.surface
            RowLayout {
                anchors.fill: parent
                anchors.leftMargin: Theme.gap
                spacing: 12
                Label {
                    Layout.fillWidth: true
                    fromOutside: true
                    text: entry.name
                }
                Label {
                    Layout.maximumWidth: 320
                    fromOutside: true
                    color: Theme.faint
                    font.pixelSize: Theme.small
                    text: entry.numbers.length === 0 ? "" : entry.numbers.length === 1 ? entry.numbers[0].number
                        : entry.numbers[0].number + "  +" + (entry.numbers.length - 1)
                }
                IconButton {
                    objectName: "favourite"
                    text: entry.favourite ? "★" : "☆"
                    fromOutside: true
                    color: "transparent"
                    onClicked: screen.bt.contacts.setFavourite(entry.contactId, !entry.favourite, marking)
                }
                IconButton {
                    objectName: "callContact"
                    text: "✆"
                    fromOutside: true
                    color: "transparent"
                    enabled: entry.numbers.length > 0
                    onClicked: entry.numbers.length === 1 ? screen.bt.calls.dial(entry.numbers[0].number, dialing)
                                                          : numberChooser.choose(entry.name, entry.numbers)
                }
            }
        }
    }
    Component {
        id: logEntry
        Rectangle {
            id: entry
            required property int logId
            required property int type
            required property string name
            required property string number
            required property string date
            required property string time
            objectName: "log " + logId
            width: ListView.view.width
            height: Theme.touch
            radius: Theme.radius
            color: Theme.surface
            RowLayout {
                anchors.fill: parent
                anchors.leftMargin: Theme.gap
                spacing: 12
                Label {
                    Layout.fillWidth: true
                    fromOutside: true
                    text: entry.name !== "" ? entry.name : entry.number
                }
                Chip {
                    text: entry.type === CallLogs.Incoming ? qsTr("Incoming")
                        : entry.type === CallLogs.Outgoing ? qsTr("Outgoing") : qsTr("Missed")
                    textColor: entry.type === CallLogs.Missed ? Theme.bad : Theme.text
                }
                Label {
                    fromOutside: true
                    color: Theme.faint
                    font.pixelSize: Theme.small
                    text: entry.date + "  " + entry.time
                }
                IconButton {
                    objectName: "callBack"
                    text: "✆"
                    fromOutside: true
                    color: "transparent"
                    onClicked: screen.bt.calls.dial(entry.number, dialing)
                }
            }
        }
    }
    NumberChooser {
        id: numberChooser
        anchors.fill: parent
        onChosen: number => screen.bt.calls.dial(number, dialing)
    }
    Operation { id: loading }
    Operation { id: stopping }
    Operation { id: dialing }
    Operation { id: marking }
}
