// What a screen in QML sees of the service.

import QtQuick
import QtTest
import BtAsync
import BtAsyncTest

Item {
    id: screen

    width: 320
    height: 240

    Component {
        id: whole

        Item {
            id: root

            property alias fake: fake
            property alias contacts: contacts
            property alias switching: switching
            property alias title: title
            property alias incoming: incoming
            property alias question: question
            property int finished: 0
            readonly property BtService bt: fake.service

            anchors.fill: parent

            FakePhone { id: fake }

            Operation {
                id: switching

                deadline: 1000
                onFinished: result => {
                    if (result !== Operation.None)
                        ++root.finished
                }
            }

            Text {
                id: title

                text: root.bt.music.title
                opacity: root.bt.music.fresh ? 1 : 0.4
            }

            Text {
                id: incoming

                visible: root.bt.calls.incoming !== null
                text: root.bt.calls.incoming?.number ?? ""
            }

            Text {
                id: question

                visible: root.bt.devices.question !== null
                text: root.bt.devices.question?.digits ?? ""
            }

            ListView {
                id: contacts

                anchors.fill: parent
                model: root.bt.contacts.model
                section.property: "section"
                delegate: Text {
                    required property string name
                    required property var numbers
                    required property bool favourite

                    height: 20
                    text: (favourite ? "* " : "") + name + " " + numbers[0].number
                }
            }
        }
    }

    TestCase {
        id: testCase

        property Item shown: null

        name: "Service"
        when: windowShown

        function init() {
            shown = whole.createObject(screen)
            shown.fake.settle()
        }

        function cleanup() {
            shown.destroy()
            shown = null
        }

        function test_isShownAndGreyed() {
            compare(shown.bt.availability, BtService.Present)
            compare(shown.title.text, "Low Tide")
            compare(shown.title.opacity, 1)
            shown.fake.leave()
            compare(shown.bt.availability, BtService.Absent)
            compare(shown.title.text, "Low Tide")
            compare(shown.title.opacity, 0.4)
            shown.fake.comeBack()
            compare(shown.title.opacity, 1)
            verify(shown.bt.fresh)
        }

        function test_switchesThePower() {
            const adapter = shown.bt.adapter
            shown.fake.settle()
            compare(adapter.power, Adapter.PowerOn)
            shown.fake.acceptPower(100)
            adapter.setPower(false, shown.switching)
            verify(shown.switching.underWay)
            compare(adapter.power, Adapter.PowerOn)
            shown.fake.advance(100)
            compare(shown.switching.result, Operation.Accepted)
            compare(shown.finished, 1)
            compare(adapter.power, Adapter.PowerOff)
        }

        function test_goesOnWhileTheServiceHangs() {
            shown.fake.acceptPower(0)
            shown.fake.hang()
            shown.bt.adapter.setPower(false, shown.switching)
            shown.fake.advance(999)
            verify(shown.switching.underWay)
            shown.fake.advance(1)
            compare(shown.switching.result, Operation.Failed)
            compare(shown.switching.reason, Operation.TimedOut)
            shown.fake.goOn()
        }

        function test_aCallRingsAndVanishesWithTheService() {
            verify(!shown.incoming.visible)
            shown.fake.ring("110")
            compare(shown.incoming.text, "110")
            verify(shown.incoming.visible)
            compare(shown.bt.calls.incoming.state, Calls.Incoming)
            shown.fake.leave()
            verify(!shown.incoming.visible)
        }

        function test_aPairingIsWithdrawn() {
            verify(!shown.question.visible)
            shown.fake.find("00:1A:7D:DA:71:15", "Carla's phone")
            shown.fake.askToPair("00:1A:7D:DA:71:15", "123456")
            compare(shown.question.text, "123456")
            compare(shown.bt.devices.question.name, "Carla's phone")
            compare(shown.bt.devices.question.kind, PairingQuestion.Confirmation)
            compare(shown.bt.devices.found.count, 1)
            shown.fake.endPairing("00:1A:7D:DA:71:15")
            verify(!shown.question.visible)
            compare(shown.bt.devices.question, null)
        }

        function test_aListKeepsItsDelegates() {
            tryCompare(shown.contacts, "count", 4)
            shown.contacts.forceLayout()
            const first = shown.contacts.itemAtIndex(0)
            verify(first !== null)
            shown.bt.contacts.filter = first.name.split(" ")[0]
            compare(shown.contacts.count, 1)
            shown.contacts.forceLayout()
            compare(shown.contacts.itemAtIndex(0), first)
            shown.bt.contacts.filter = ""
            compare(shown.contacts.count, 4)
        }

        function test_enumeratorsCanBePassed() {
            shown.bt.music.wind(Music.WindForward)
            shown.bt.music.setRepeat(Music.RepeatAll, shown.switching)
            shown.bt.devices.connectProfile("00:1A:7D:DA:71:13", Devices.Hfp)
            shown.bt.download.startOnly(Download.MissedCalls)
            shown.bt.callLogs.clear(CallLogs.Missed)
            shown.bt.music.positionWanted = true
            shown.fake.settle()
            compare(shown.switching.reason, Operation.ServiceError)
            compare(shown.bt.music.position, 1000)
        }
    }
}
