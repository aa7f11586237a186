// The screens of the head unit, with the service in memory: how an application in QML tests its own.

import QtQuick
import QtTest
import HeadUnit
import BtAsync

Item {
    id: window

    width: 1280
    height: 720

    Component {
        id: whole
        UnitOnFake {}
    }

    TestCase {
        id: testCase

        readonly property string carla: "00:1A:7D:DA:71:15"
        property Item shown: null

        name: "Screens"
        when: windowShown

        function init() {
            shown = whole.createObject(window)
            shown.fake.settle()
            settled()
        }

        function cleanup() {
            shown.destroy()
            shown = null
        }

        // What has been asked for is answered, and laid out.
        function settled() {
            shown.fake.settle()
            grabImage(shown) // draws it, unlike waitForRendering, even if nothing has changed
        }
        function item(name) {
            return visibleIn(shown, name)
        }
        function visibleIn(parent, name) {
            if (!parent.visible)
                return null
            if (parent.objectName === name)
                return parent
            for (let i = 0; i < parent.children.length; ++i) {
                const found = visibleIn(parent.children[i], name)
                if (found !== null)
                    return found
            }
            return null
        }
        function tap(name) {
            tryVerify(() => item(name) !== null && item(name).enabled && item(name).width > 0, 5000, name)
            settled()
            mouseClick(item(name))
            shown.fake.settle()
        }
        function open(page) {
            shown.page = page
            settled()
        }

        function test_theScreenOfTheCarIs1280By720() {
            compare(shown.width, 1280)
            compare(shown.height, 720)
        }

        function test_phone_aNumberIsDialled_data() {
            return [
                { tag: "accepted", does: "willAccept", number: "", notice: "" },
                { tag: "refused", does: "willRefuse", number: "11", notice: "Connect a phone first" },
                { tag: "failed", does: "willFail", number: "11", notice: "That did not work. Try again" },
            ]
        }
        function test_phone_aNumberIsDialled(row) {
            shown.fake[row.does]("DialCall")
            verify(!item("dial").enabled)
            tap("key1")
            tap("key1")
            compare(item("number").text, "11")
            tap("dial")
            compare(shown.fake.requests("DialCall"), ["DialCall('11',)"])
            compare(item("number").text, row.number)
            compare(item("notice") === null ? "" : item("notice").text, row.notice)
        }

        function test_phone_theButtonIsBusyUntilTheAnswer() {
            shown.fake.willAccept("DialCall", 500)
            tap("key1")
            tap("dial")
            verify(item("dial").busy)
            verify(!item("dial").enabled)
            shown.fake.advance(499)
            verify(item("dial").busy)
            shown.fake.advance(1)
            verify(!item("dial").busy)
        }

        function test_anIncomingCallIsOverEverythingAndGoesWithTheService() {
            open(2)
            shown.fake.ring("110")
            settled()
            compare(item("caller").text, "Carla")
            fuzzyCompare(item("acceptCall").width, item("rejectCall").width, 1)
            shown.fake.willAccept("AcceptCall")
            tap("acceptCall")
            compare(shown.fake.requests("AcceptCall").length, 1)
            shown.fake.leave()
            compare(item("caller"), null)
        }

        function test_aPairingAsksForThePinAndIsWithdrawn() {
            shown.fake.willAccept("AnswerPair")
            shown.fake.askForPin(carla)
            settled()
            compare(item("digits"), null)
            verify(!item("acceptPairing").enabled)
            fuzzyCompare(item("acceptPairing").width, item("rejectPairing").width, 1)
            tap("typed")
            keyClick("1")
            keyClick("2")
            tap("acceptPairing")
            compare(shown.fake.requests("AnswerPair").length, 1)
            verify(shown.fake.requests("AnswerPair")[0].startsWith("AnswerPair('12', '" + carla + "'"))
            shown.fake.endPairing(carla)
            compare(item("acceptPairing"), null)
        }

        function test_contacts_anyNumberOfAContactIsCalled() {
            shown.fake.knowContacts(3)
            shown.fake.willAccept("DialCall")
            open(1)
            const one = visibleIn(item("contact 2"), "callContact")
            mouseClick(one)
            compare(shown.fake.requests("DialCall"), ["DialCall('1002',)"])
            mouseClick(visibleIn(item("contact 1"), "callContact"))
            settled()
            compare(shown.fake.requests("DialCall").length, 1)
            compare(visibleIn(item("number 1"), "kind").text, "Home")
            tap("number 1")
            compare(shown.fake.requests("DialCall")[1], "DialCall('030',)")
            compare(item("number 1"), null)
        }

        function test_contacts_aSearchOf5000ShowsWhatIsFound() {
            shown.fake.knowContacts(5000)
            open(1)
            const contacts = shown.bt.contacts
            compare(contacts.model.count, 5000)
            tap("search")
            for (const step of [["4", 0], ["9", 0], ["9", 1], ["9", 1]]) {
                keyClick(step[0])
                verify(contacts.model.count > 0)
            }
            settled()
            compare(contacts.filter, "4999")
            // As a word of a name, and in a number.
            compare(contacts.model.count, 2)
            compare(item("contact 4999").name, "Person 4999 Of the book")
            compare(item("contact 3999").numbers[0].number, "4999")
            keyClick("x")
            settled()
            compare(item("nobody").text, "Nobody with that name or number")
            item("search").clear()
            settled()
            compare(contacts.model.count, 5000)
            verify(item("contact 1") !== null)
        }

        function test_music_playsAndPauses() {
            open(2)
            compare(item("title").text, "Low Tide")
            compare(item("position").text, "0:01")
            shown.fake.willAccept("StopMusic")
            tap("play")
            compare(shown.fake.requests("StopMusic").length, 1)
            compare(shown.fake.requests("PlayMusic").length, 0)
        }

        function test_settings_theAdapterIsSwitchedOffWhenTheServiceSaysSo() {
            open(3)
            shown.fake.acceptPower(100)
            verify(item("power").on)
            tap("power")
            compare(shown.fake.requests("SetPower"), ["SetPower(byte 0x00,)"])
            verify(item("power").on)
            shown.fake.advance(100)
            verify(!item("power").on)
        }

        // What is not known to be true any more is greyed on each screen, and stays.
        function test_allIsGreyedWithoutTheService_data() {
            return [
                { tag: "network", page: 0, greyed: ["operator", "bars"] },
                { tag: "phone", page: 0, greyed: ["noCall"] },
                { tag: "contacts", page: 1, greyed: ["entries"] },
                { tag: "favourites", page: 1, list: "list1", greyed: ["entries"] },
                { tag: "calls", page: 1, list: "list2", greyed: ["entries"] },
                { tag: "music", page: 2, greyed: ["music"] },
                { tag: "settings", page: 3, greyed: ["adapter", "paired"] },
                { tag: "found", page: 3, find: true, greyed: ["found"] },
            ]
        }
        function test_allIsGreyedWithoutTheService(row) {
            // A service that has come back has forgotten what it had found.
            const find = () => {
                if (row.find)
                    shown.fake.find(carla, "Carla's phone")
            }
            open(row.page)
            if (row.list)
                tap(row.list)
            find()
            settled()
            tryVerify(() => shown.bt.fresh)
            for (const name of row.greyed)
                compare(item(name).opacity, 1, name)
            shown.fake.leave()
            for (const name of row.greyed)
                verify(item(name) !== null && item(name).opacity < 1, name)
            compare(item("availability").text, "Bluetooth is starting …")
            shown.fake.comeBack()
            find()
            for (const name of row.greyed)
                compare(item(name).opacity, 1, name)
            compare(item("availability"), null)
        }
    }
}
