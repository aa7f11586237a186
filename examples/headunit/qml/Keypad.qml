import QtQuick
import HeadUnit
import QtQuick.Layouts

// The twelve keys of a telephone.
GridLayout {
    id: pad

    signal pressed(string key)

    columns: 3
    columnSpacing: 10
    rowSpacing: 10
    // Digits stand in the same places everywhere.
    LayoutMirroring.enabled: false
    LayoutMirroring.childrenInherit: true

    Repeater {
        model: ["1", "2", "3", "4", "5", "6", "7", "8", "9", "*", "0", "#"]
        IconButton {
            required property string modelData
            objectName: "key" + modelData
            Layout.fillWidth: true
            Layout.fillHeight: true
            fromOutside: true
            text: modelData
            textSize: Theme.large
            onClicked: pad.pressed(modelData)
        }
    }
}
