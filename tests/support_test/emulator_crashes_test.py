#!/usr/bin/env python3
"""Tests emulator_crashes.py with what ctest writes, and with what qemu 7.2 prints."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parent.parent / "support/emulator_crashes.py"
CRASHES = {
    "internal signal": "[ RUN      ] Suite.Case\nqemu-arm-static: QEMU internal SIGSEGV {code=MAPERR, addr=0x20}\n",
    "assertion": "qemu-arm: ../../linux-user/mmap.c:777: mmap_fork_end: Assertion `have_mmap_lock()' failed.\n",
    "code": "**\nERROR:../../accel/tcg/cpu-exec.c:998:cpu_exec: assertion failed: (cpu == current_cpu)\n",
    "tcg": "../../tcg/tcg.c:3180: tcg fatal error\n",
    "memory": "qemu-arm-static: Unable to reserve 0xffff0000 bytes of virtual address space\n",
}
FAILURES = {
    "expectation": "tests/a_test.cpp:7: Failure\nExpected equality of these values:\n",
    "own crash": "qemu: uncaught target signal 11 (Segmentation fault) - core dumped\n",
    "own assertion": "a_test: a_test.cpp:9: int main(): Assertion `false' failed.\n"
                     "qemu: uncaught target signal 6 (Aborted) - core dumped\n",
    "of GLib": "**\nERROR:a_test.c:12:main: assertion failed: (a == b)\n",
}


def outcome(tests):
    cases = "".join(f'<testcase name="{name}" status="{status}"><system-out><![CDATA[{output}]]></system-out></testcase>'
                    for name, (status, output) in tests.items())
    return f"<testsuite>{cases}</testsuite>"


class EmulatorCrashes(unittest.TestCase):
    def judge(self, tests):
        with tempfile.NamedTemporaryFile("w", suffix=".xml") as file:
            file.write(outcome(tests))
            file.flush()
            result = subprocess.run([sys.executable, "-B", SCRIPT, file.name], stdout=subprocess.PIPE, text=True,
                                    check=False)
        return result.returncode, result.stdout

    def test_OfTheEmulatorAloneAreNamedAsSuch(self):
        for name, output in CRASHES.items():
            with self.subTest(name):
                status, text = self.judge({"one": ("fail", output), "two": ("run", "[  PASSED  ]")})
                self.assertEqual(status, 4)
                self.assertRegex(text, r"(?m)^    emulator crashed: one$")
                self.assertIn("0 tests failed, and in 1 others", text)

    def test_OfAProgramAreFailures(self):
        for name, output in FAILURES.items():
            with self.subTest(name):
                status, text = self.judge({"one": ("fail", output)})
                self.assertEqual(status, 1)
                self.assertRegex(text, r"(?m)^    failed: +one$")

    def test_DoNotHideAFailure(self):
        status, text = self.judge({"one": ("fail", CRASHES["tcg"]), "two": ("fail", FAILURES["expectation"])})
        self.assertEqual(status, 1)
        self.assertIn("1 tests failed, and in 1 others", text)

    def test_OfATestThatPassedDoNotCount(self):
        status, text = self.judge({"one": ("run", CRASHES["tcg"])})
        self.assertEqual(status, 1)
        self.assertIn("0 tests failed, and in 0 others", text)


if __name__ == "__main__":
    unittest.main(verbosity=2)
