pragma Singleton
import QtQuick

// Colours, sizes and times: what all screens share.
QtObject {
    property bool dark: true

    readonly property color background: dark ? "#101418" : "#f2f4f7"
    readonly property color surface: dark ? "#1b222a" : "#ffffff"
    readonly property color raised: dark ? "#28323d" : "#e4e9ef"
    readonly property color text: dark ? "#f2f5f8" : "#11161c"
    readonly property color faint: dark ? "#a3b0bd" : "#566370"
    readonly property color accent: dark ? "#4aa8ff" : "#0a64c8"
    readonly property color onAccent: dark ? "#06121f" : "#ffffff"
    readonly property color good: dark ? "#3ccf7a" : "#14874a"
    readonly property color bad: dark ? "#ff6b5e" : "#c62f22"
    readonly property color onSignal: dark ? "#0b0f13" : "#ffffff"
    readonly property color line: dark ? "#323d49" : "#cfd7df"

    // What is not known to be true any more.
    readonly property real stale: 0.42

    readonly property int small: 18
    readonly property int normal: 22
    readonly property int large: 30
    readonly property int huge: 46

    // A finger in a moving car.
    readonly property int touch: 72
    readonly property int gap: 16
    readonly property int radius: 14

    // A length of time: 1:05.
    function clock(seconds) {
        const whole = Math.floor(seconds)
        const rest = whole % 60
        return Math.floor(whole / 60) + ":" + (rest < 10 ? "0" : "") + rest
    }
}
