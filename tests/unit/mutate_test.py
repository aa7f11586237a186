#!/usr/bin/env python3
"""What script/mutate takes for a fault, and what it promises in its help. Usage: mutate_test.py TREE"""

import importlib.machinery
import importlib.util
import pathlib
import subprocess
import sys
import unittest

TREE = pathlib.Path(sys.argv.pop()).resolve()
SCRIPT = TREE / "script" / "mutate"

SAMPLE = """\
#define LIMIT 7
// if (a == 1) {}
int Count(const char* text, bool also) {
  const Guard guard(text);
  int count = 0;
  Log("a == 2; %d", Site{text, 010});
  if (also) {
    ++count;
  }
  Walk([&] {
    if (!also && count < 3) {
      Reset();
    }
  });
  return count;
}
"""

EXPECTED = [
    "f.cpp:4: left out: const Guard guard(text);",
    "f.cpp:5: 0 is 1",
    'f.cpp:6: left out: Log("a == 2; %d", Site{text, 010});',
    "f.cpp:6: 010 is 011",
    "f.cpp:7: 'also' is turned",
    "f.cpp:8: '++' is '--'",
    "f.cpp:8: left out: ++count;",
    "f.cpp:10: left out: Walk([&] { if (!also && count < 3) { Reset(); } });",
    "f.cpp:11: '!' is left out",
    "f.cpp:11: '&&' is '||'",
    "f.cpp:11: '<' is '>='",
    "f.cpp:11: 3 is 4",
    "f.cpp:12: left out: Reset();",
]


def load():
    loader = importlib.machinery.SourceFileLoader("mutate", str(SCRIPT))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("mutate", loader))
    sys.modules["mutate"] = module
    sys.dont_write_bytecode = True
    loader.exec_module(module)
    return module


def run(*arguments):
    return subprocess.run([sys.executable, "-B", str(SCRIPT), *arguments], cwd=TREE, text=True, capture_output=True)


class Faults(unittest.TestCase):
    def test_are_conditions_statements_and_constants_but_nothing_in_comments_and_texts(self):
        self.assertEqual([str(fault) for fault in load().faults_of("f.cpp", SAMPLE)], EXPECTED)

    def test_change_what_they_say(self):
        faults = {str(fault): fault for fault in load().faults_of("f.cpp", SAMPLE)}
        for name, before, after in (("f.cpp:11: '&&' is '||'", "!also && count", "!also || count"),
                                    ("f.cpp:7: 'also' is turned", "if (also)", "if (!(also))"),
                                    ("f.cpp:12: left out: Reset();", "Reset();", "")):
            fault = faults[name]
            changed = SAMPLE[:fault.begin] + fault.replacement + SAMPLE[fault.end:]
            self.assertEqual(changed, SAMPLE.replace(before, after), name)


class CommandLine(unittest.TestCase):
    FILE = "protocol/Address.h"

    def test_help_is_printed(self):
        result = run("--help")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertTrue(result.stdout.startswith("Usage: script/mutate "))

    def test_faults_are_listed_by_file_and_line(self):
        lines = run("--list", self.FILE).stdout.splitlines()
        self.assertGreater(len(lines), 10)
        self.assertTrue(all(line.startswith(self.FILE + ":") for line in lines), lines)
        first = lines[0].split(": ")[0]
        of_one_line = run("--list", first).stdout.splitlines()
        self.assertEqual(of_one_line, [line for line in lines if line.startswith(first + ": ")])

    def test_without_a_file_those_of_all_folders_are_listed(self):
        files = {line.split(":")[0] for line in run("--list").stdout.splitlines()}
        self.assertEqual({file.split("/")[0] for file in files}, {"libbluetooth", "ipc", "protocol"})

    def test_a_sample_is_part_of_them_and_the_same_for_the_same_seed(self):
        everything = run("--list", self.FILE).stdout.splitlines()
        samples = [run("--list", "--sample", "5", "--seed", "3", self.FILE).stdout.splitlines() for _ in range(2)]
        self.assertEqual(samples[0], samples[1])
        self.assertEqual(len(samples[0]), 5)
        self.assertLess(set(samples[0]), set(everything))

    def test_what_cannot_be_meant_is_refused(self):
        for arguments in (["--sample", "many"], ["--unknown"], ["README.md"], ["service/app/main.cpp"],
                          ["libbluetooth/none.cpp"], [self.FILE + ":x"]):
            result = run("--list", *arguments)
            self.assertEqual(result.returncode, 2, arguments)
            self.assertTrue(result.stderr.startswith("mutate: "), result.stderr)


if __name__ == "__main__":
    unittest.main()
