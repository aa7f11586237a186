import QtQuick
import HeadUnit

Rectangle {
    implicitHeight: 1
    color: Theme.line
}
