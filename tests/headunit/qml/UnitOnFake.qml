import QtQuick
import HeadUnit
import BtAsyncTest

// The head unit over a service in memory.
Item {
    id: root

    property alias fake: fake
    readonly property alias bt: head.bt
    property alias page: head.page

    width: head.width
    height: head.height

    FakePhone { id: fake }
    HeadUnitScreen {
        id: head
        bt: fake.service
    }
}
