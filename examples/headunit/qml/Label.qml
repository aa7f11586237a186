import QtQuick
import HeadUnit

// A text of the screen. Where it is a name, a title or a number that somebody else has given, `fromOutside` says so: it may be
// cut where there is no room for it. All others have to fit, in every language.
Text {
    property bool fromOutside: false

    color: Theme.text
    font.pixelSize: Theme.normal
    elide: fromOutside ? Text.ElideRight : Text.ElideNone
    wrapMode: fromOutside ? Text.NoWrap : Text.WordWrap
    textFormat: Text.PlainText
    verticalAlignment: Text.AlignVCenter
}
