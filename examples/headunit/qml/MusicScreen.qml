import QtQuick
import HeadUnit
import QtQuick.Layouts
import BtAsync

// What plays, and how.
Item {
    id: screen

    required property BtService bt
    readonly property bool plays: bt.music.state === Music.Playing

    function nextOf(modes, mode) {
        return modes.length === 0 ? mode : modes[(modes.indexOf(mode) + 1) % modes.length]
    }

    Binding {
        target: screen.bt.music
        property: "positionWanted"
        value: screen.visible
    }

    ColumnLayout {
        objectName: "music"
        anchors.fill: parent
        anchors.margins: 3 * Theme.gap
        spacing: Theme.gap
        visible: screen.bt.music.player !== ""
        opacity: screen.bt.music.fresh ? 1 : Theme.stale

        Item { Layout.fillHeight: true }
        Label {
            objectName: "title"
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            fromOutside: true
            font.pixelSize: Theme.huge
            text: screen.bt.music.title
        }
        Label {
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            fromOutside: true
            font.pixelSize: Theme.large
            color: Theme.faint
            text: screen.bt.music.artist
        }
        Label {
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            fromOutside: true
            color: Theme.faint
            text: screen.bt.music.album
        }
        Item { Layout.fillHeight: true }
        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.gap
            // Time runs from left to right everywhere.
            LayoutMirroring.enabled: false
            Label {
                objectName: "position"
                fromOutside: true
                text: Theme.clock(screen.bt.music.position / 1000)
            }
            Progress {
                Layout.fillWidth: true
                done: screen.bt.music.position
                total: screen.bt.music.length
            }
            Label {
                fromOutside: true
                text: Theme.clock(screen.bt.music.length / 1000)
            }
        }
        RowLayout {
            Layout.alignment: Qt.AlignHCenter
            spacing: Theme.gap
            LayoutMirroring.enabled: false
            IconButton {
                objectName: "previous"
                text: "◀◀"
                fromOutside: true
                textSize: Theme.large
                implicitWidth: 110
                onClicked: screen.bt.music.previous(asked)
            }
            IconButton {
                objectName: "play"
                text: screen.plays ? "❚❚" : "▶"
                fromOutside: true
                textSize: Theme.large
                implicitWidth: 150
                color: Theme.accent
                textColor: Theme.onAccent
                busy: asked.underWay
                onClicked: screen.plays ? screen.bt.music.pause(asked) : screen.bt.music.play(asked)
            }
            IconButton {
                objectName: "next"
                text: "▶▶"
                fromOutside: true
                textSize: Theme.large
                implicitWidth: 110
                onClicked: screen.bt.music.next(asked)
            }
        }
        RowLayout {
            Layout.alignment: Qt.AlignHCenter
            spacing: Theme.gap
            IconButton {
                objectName: "repeat"
                visible: screen.bt.music.repeatModes.length > 0
                text: screen.bt.music.repeat === Music.RepeatTrack ? qsTr("Repeat track")
                    : screen.bt.music.repeat === Music.RepeatAll ? qsTr("Repeat all")
                    : screen.bt.music.repeat === Music.RepeatGroup ? qsTr("Repeat group") : qsTr("Repeat off")
                onClicked: screen.bt.music.setRepeat(screen.nextOf(screen.bt.music.repeatModes, screen.bt.music.repeat), asked)
            }
            IconButton {
                objectName: "shuffle"
                visible: screen.bt.music.shuffleModes.length > 0
                text: screen.bt.music.shuffle === Music.ShuffleAll ? qsTr("Shuffle all")
                    : screen.bt.music.shuffle === Music.ShuffleGroup ? qsTr("Shuffle group") : qsTr("Shuffle off")
                onClicked: screen.bt.music.setShuffle(screen.nextOf(screen.bt.music.shuffleModes, screen.bt.music.shuffle), asked)
            }
        }
        Notice {
            operation: asked
        }
    }
    Label {
        anchors.fill: parent
        anchors.margins: 3 * Theme.gap
        objectName: "noPlayer"
        visible: screen.bt.music.player === ""
        horizontalAlignment: Text.AlignHCenter
        color: Theme.faint
        text: qsTr("No player is connected. Connect a phone in Settings")
    }
    Operation { id: asked }
}
