#!/usr/bin/env python3
"""Runs every command in the documents as it is written there, and compares what it prints where the document shows that.

A command that is neither run here nor in known.py fails the test, and so does an entry of known.py that is in no document
any more. Usage: documents_test.py TREE BUILD [TEST...]
The exit status is 77 if all tests were skipped, because what they run is not built.
"""
import pathlib
import re
import shutil
import sys
import unittest

import blocks
import known
from checkout import Checkout, phone_has_come

TREE, BUILD = (pathlib.Path(sys.argv.pop(1)).resolve() for _ in range(2))
DOCUMENTS = sorted(path for pattern in ("*.md", "*/*.md", "*/*/*.md") for path in TREE.glob(pattern)
                   if path.relative_to(TREE).parts[0] != "build")

# Prints a mark and restores the exit status, so that 'echo $?' shows that of the command before.
NEXT = "\n{ status=$?; printf '\\n@next@\\n'; (exit $status); } 2>&1\n"
PHONE_IS_THERE = phone_has_come(calls=3)
PLACEHOLDERS = {"/path/to/your/platform": "$PWD/platform"}

# How a group of commands is run, by what they begin with; each command of the documents belongs to one of them.
RUNNERS = {
    "headunit": r"script/demo headunit\b",
    "demo": r"script/demo\b",
    "sandbox": r"script/sandbox\b",
    "service": r"btservice\b",
    "controls": r"sim=|\$sim\.",
    "btctl": r"btctl\b|echo \$\?$",
    "install": r"for component in runtime async development tools; do",
    "configure": r"cmake --preset dev\b",
    "log": r"MWP_LOG_LEVEL=debug\b",
}
# What the demo shows, by a word of the command that starts it.
SHOWN_BY_DEMO = {"btctl": r"power +o(n|ff)", "your-application": "arguments: arguments",
                 **dict.fromkeys(("pairing_screen", "dial", "poll_loop"), r"library:  +/.*libbtasync\.so\.0\.\d+\.\d+"),
                 "demo": r"library:  +/.*libbt\.so\.1\.0\.0"}
TYPED = {"btctl": "status\nquit\n", "poll_loop": "on\nquit\n"}  # at the program that it starts
PICTURES = re.compile(r"!\[[^\]]*\]\((docs/images/headunit/[\w-]+\.png)\)")  # those of the head unit in README.md
LARGEST_PICTURE = 150000  # bytes
SCREENS = {f"{name}.png" for name in ("phone", "contacts", "music", "settings", "pairing", "incoming-call")}
HEADUNIT_MAIN = TREE / "examples/headunit/main.cpp"
NOT_BUILT = 77
CTRL_C = {"found_devices": "found "}  # examples that run until Ctrl-C, and what they print before
ANSWERS_OF_CONTROLS = {"LeaveBus": "()", "DelayAnswers": "()", "FailAnswers": "()", "EmitSignal": "()"}


def commands():
    """All commands of the documents, in their order."""
    found = []
    for path in DOCUMENTS:
        for block in blocks.blocks_of(str(path.relative_to(TREE)), path.read_text()):
            if block.lines[0] not in known.NOT_COMMANDS:
                found += [command for command in blocks.commands_of(block) if command.text not in known.SYNOPSES]
    return found


def runner_of(command):
    if command.text in known.EXCEPTIONS or command.text in known.PACKAGING:
        return None
    if command.document.startswith(known.RUN_BY_SCREENS):
        return "screens"
    for name, pattern in RUNNERS.items():
        if re.match(pattern, command.text):
            return name
    return "unknown"


def of_runner(name, language=None):
    return [command for command in commands()
            if runner_of(command) == name and language in (None, command.block.language)]


def unified(line):
    """A line without what differs from run to run."""
    line = re.sub(r"\b\d\d:\d\d:\d\d\.\d\d\d\b", "TIME", line)
    return re.sub(r'"seconds":\d+', '"seconds":N', line).rstrip()


class WhatIsRun(unittest.TestCase):
    def test_EachCommandIsRunOrExcepted(self):
        self.assertEqual([f"{command.document}: {command.text}" for command in commands()
                          if runner_of(command) == "unknown"], [])
        self.assertGreater(len(commands()), 60)
        for name in RUNNERS:
            self.assertTrue(of_runner(name), f"no document has a command for the runner '{name}'")

    def test_EachExceptionIsNeeded(self):
        texts = {command.text for command in commands()}
        firsts = {block.lines[0] for path in DOCUMENTS
                  for block in blocks.blocks_of(path.name, path.read_text()) if block.lines}
        self.assertEqual(set(known.EXCEPTIONS) - texts, set())
        self.assertEqual(set(known.PACKAGING) - texts, set())
        self.assertEqual(set(known.NOT_COMMANDS) - firsts, set())
        self.assertEqual({text for text in known.SYNOPSES if not any(text in path.read_text() for path in DOCUMENTS)}, set())
        self.assertIn(known.RUN_BY_PACKAGING, (TREE / "packaging/CMakeLists.txt").read_text())

    def test_ThePicturesOfTheHeadUnitAreThereAndSmall(self):
        pictures = [TREE / name for name in PICTURES.findall((TREE / "README.md").read_text())]
        self.assertEqual(len(pictures), 2)
        for picture in pictures:
            self.assertEqual(picture.read_bytes()[:8], b"\x89PNG\r\n\x1a\n", picture)
            self.assertLess(picture.stat().st_size, LARGEST_PICTURE, picture)


class InACheckout(unittest.TestCase):
    def setUp(self):
        self.checkout = Checkout(TREE, BUILD)
        self.addCleanup(self.checkout.close)

    def assert_runs(self, command, answer):
        status, output = answer
        self.assertEqual(status, 0, f"{command.document}: {command.text}\n{output}")


class TheDemo(InACheckout):
    def test_Demo(self):
        """All at the same time: some of them mostly wait."""
        application = self.checkout.root / "your-application"
        application.write_text('#!/bin/bash\necho "arguments: $*"\nexec first_light\n')  # which has no use for them
        application.chmod(0o755)
        commands_by_text = {command.text: command for command in of_runner("demo") if self.is_built(command.text)}
        running = {text: self.checkout.start(text) for text in commands_by_text}
        for text, process in running.items():
            process.write(next((typed for name, typed in TYPED.items() if name in text), ""))
            shown = next((shown for name, shown in CTRL_C.items() if name in text), None)
            if shown:
                self.assertTrue(process.wait_for(shown), process.output())
                process.press_ctrl_c()
                process.wait()
            else:
                self.assert_runs(commands_by_text[text], (process.wait(), process.output()))
            self.assertRegex(process.output(), r"(?m)^service:  +/app/bin/btservice, process \d+$")
            expected = next(line for name, line in SHOWN_BY_DEMO.items() if name in text)
            self.assertRegex(process.output(), f"(?m)^{expected}$")

    @staticmethod
    def is_built(text):
        return "qt_music" not in text or (BUILD / "bin/qt_music").exists()


class TheHeadUnit(InACheckout):
    def setUp(self):
        if not (BUILD / "bin/headunit").exists():
            self.skipTest("the head unit is not built: that takes Qt 6, and BT_BUILD_QT")
        super().setUp()

    def test_EachScreenIsDrawn(self):
        """Where there is no display, every command that starts it draws, and each option draws something else."""
        shown = {pathlib.Path(name).name for name in PICTURES.findall((TREE / "README.md").read_text())}
        drawn = self.checkout.root / "build/shots"
        pictures = {}
        for command in of_runner("headunit"):
            shutil.rmtree(drawn, ignore_errors=True)
            self.assert_runs(command, self.checkout.run(command.text, DISPLAY="", WAYLAND_DISPLAY=""))
            self.assertEqual({path.name for path in drawn.iterdir()}, SCREENS, command.text)
            pictures[command.text] = (drawn / "settings.png").read_bytes()
        self.assertLessEqual(shown, SCREENS, "README.md shows pictures that the script does not draw")
        self.assertEqual(len(set(pictures.values())), len(pictures), "an option makes no difference")
        for option in re.findall(r'QStringLiteral\("([a-z-]+)"\),\s*QStringLiteral\("[A-Z]', HEADUNIT_MAIN.read_text()):
            self.assertIn(f"--{option}", " ".join(pictures), "an option that no document shows")

    def test_ItOpensWhereThereIsADisplay(self):
        """There is none here: Qt is asked for a window that nobody sees."""
        for command in of_runner("headunit"):
            if "--shots" in command.text:
                continue
            process = self.checkout.start(command.text, DISPLAY=":0", QT_QPA_PLATFORM="offscreen",
                                          QT_QUICK_BACKEND="software", QSG_INFO="1")
            self.assertTrue(process.wait_for("qt.scenegraph"), process.output())
            self.assertNotIn("there is no display", process.output())
            process.press_ctrl_c()
            process.wait()
            self.assertFalse((self.checkout.root / "build/shots").exists(), "it draws, although there is a display")


class TheSandbox(InACheckout):
    def test_Sandbox(self):
        for command in of_runner("sandbox"):
            script = ("/app/bin/btservice & gdbus wait --session --timeout 60 com.zelk.linux.bluetooth "
                      "&& gdbus call --session --dest com.zelk.linux.bluetooth --object-path /com/zelk/linux/bluetooth "
                      "--method com.zelk.linux.bluetooth.GetPowerStatus; kill $!\n")
            status, output = self.checkout.run(command.text, stdin=script)
            self.assertRegex(output, r"\(byte 0x\d\d,\)", command.text)

    def test_LogOfASingleProgram(self):
        shutil.copy(BUILD / "bin/first_light", self.checkout.root / "your-application")
        for command in of_runner("log"):
            script = f"PATH=$PWD:$PATH\n/app/bin/btservice & \ngdbus wait --session --timeout 60 com.zelk.linux.bluetooth\n" \
                     f"{command.text}\nstatus=$?; kill $!; exit $status\n"
            status, output = self.checkout.run_in_sandbox(script)
            self.assertEqual(status, 0, output)
            self.assertIn("libbt-DEBUG", output, "the log is not shown")


class TheService(InACheckout):
    def test_Service(self):
        shutil.copy(TREE / "service/simulation/worlds/one-phone.json", self.checkout.root / "my-world.json")
        shutil.copy(TREE / "service/simulation/worlds/one-phone.vcf", self.checkout.root)
        for command in of_runner("service"):
            script = f"{command.text} &\ngdbus wait --session --timeout 60 com.zelk.linux.bluetooth\n" \
                     "waited=$?; kill $!; wait $! && exit $waited\n"
            self.assert_runs(command, self.checkout.run_in_sandbox(script))

    def test_ControlsOfTheSimulation(self):
        lines = of_runner("controls")
        script = "btservice --no-state --world one-phone &\nservice=$!\n" + PHONE_IS_THERE
        script += "".join(command.text + NEXT for command in lines) + "kill $service\n"
        _, output = self.checkout.run_in_sandbox(script)
        answers = output.split("@next@\n")
        for command, answer in list(zip(lines, answers))[1:]:
            control = re.match(r"\$sim\.\w+\.(\w+)", command.text)[1]
            self.assertEqual(answer.strip(), ANSWERS_OF_CONTROLS.get(control, "(true,)"), command.text)

    def test_TheMessagesThatTheReadmeShows(self):
        text = (TREE / "service/README.md").read_text()
        world = "\n" * 11 + '{"format": 1, "devices": [{"address": "00:1A:7D:DA:71:13", "name": "A", ' \
            '"phone": {"signal": 7}, "phoneBook": {"vcard": "book.vcf"}}]}'
        card, broken = "BEGIN:VCARD\nN:A\nEND:VCARD\n", "BEGIN:VCARD\nthis is no line\nEND:VCARD\n"
        (self.checkout.root / "book.vcf").write_text(card + "\n" + broken + broken * 100 + card * 411)
        for world in (world, world.replace("7}", "5}")):
            (self.checkout.root / "car.json").write_text(world)
            _, output = self.checkout.run_in_sandbox(
                "btservice --no-state --world car.json &\nservice=$!\n"
                "until btctl power status || ! kill -0 $service; do sleep 0.1; done\nkill $service\nwait $service\n")
            for line in output.splitlines():
                if match := re.search(r"btservice: car.json.*|book\.vcf:6: .*|book\.vcf: .*", line):
                    self.assertIn(f"    {match[0]}\n", text)
                    text = text.replace(f"    {match[0]}\n", "shown\n")
        self.assertEqual(text.count("shown\n"), 3, "the document shows a message that does not come")


class TheCommandLine(InACheckout):
    def test_Btctl(self):
        """The sessions are real ones, on a terminal with a phone that has come."""
        sessions = {command.block: [] for command in of_runner("btctl", "console")}
        for command in of_runner("btctl", "console"):
            sessions[command.block].append(command)
        self.assertEqual(len(sessions), 2)
        for block, lines in sessions.items():
            with self.subTest(block.document):
                differences = self.differences_in(lines)
                if any("incoming" in line for _, _, printed in differences for line in printed):
                    # The phone rings after 20 seconds: on a machine that is so slow, once more.
                    differences = self.differences_in(lines)
                self.assertEqual(differences, [])

    def differences_in(self, lines):
        script = "exec 2>&1\nbtservice --no-state --world one-phone >/dev/null &\n" + PHONE_IS_THERE
        script += "".join(command.text + NEXT for command in lines)
        script = script.replace("/dev/null &\n", "/dev/null 2>&1 &\n")
        _, output = self.checkout.run_in_sandbox(script)
        found = []
        for command, answer in zip(lines, output.split("\n@next@\n")):
            shown = [unified(line) for line in command.output]
            printed = [unified(line) for line in answer.splitlines()]
            if shown != printed:
                found.append((command.text, shown, printed))
        return found

    def test_CommandsWithoutASession(self):
        for command in of_runner("btctl", ""):
            _, output = self.checkout.run_in_sandbox(f"{command.text}\n", "</dev/null")
            self.assertNotIn("btctl: ", output, command.text)

    def test_Scripts(self):
        for command in of_runner("btctl", "sh"):
            script = "btservice --no-state --world one-phone &\nservice=$!\nphone=00:1A:7D:DA:71:13\n" + PHONE_IS_THERE
            script += f"{'btctl power off && ' if 'power on' in command.text else ''}{command.text}\n"
            script += "status=$?; kill $service; wait $service; exit $status\n"
            status, output = self.checkout.run_in_sandbox(script)
            self.assert_runs(command, (status, output))
            if " jq " in command.text:
                self.assertEqual(output.split(), ["+49170000001", "+49301234561"], command.text)


class TheInstallation(InACheckout):
    def test_Install(self):
        for command in of_runner("install"):
            staging = self.checkout.folder / "staging"
            self.assert_runs(command, self.checkout.run(command.text, DESTDIR=str(staging)))
            self.assertTrue((staging / "usr/include/bluetooth/MWPBluetooth.h").exists())
            self.assertFalse((staging / "app").exists(), "the document says that nothing is installed there")

    def test_Configure(self):
        texts = {command.text for command in of_runner("configure")}
        for text in texts:
            (self.checkout.root / "build/dev").unlink()
            for placeholder, value in PLACEHOLDERS.items():
                text = text.replace(placeholder, value)
            status, output = self.checkout.run(text)
            self.assertEqual(status, 0, output)
            cache = (self.checkout.root / "build/dev/CMakeCache.txt").read_text()
            self.assertIn(f"BT_PLATFORM_DIR:PATH={self.checkout.root}/platform\n", cache)


if __name__ == "__main__":
    result = unittest.main(verbosity=2, exit=False).result
    all_skipped = result.wasSuccessful() and 0 < result.testsRun == len(result.skipped)
    sys.exit(NOT_BUILT if all_skipped else not result.wasSuccessful())
