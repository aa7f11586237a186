#!/usr/bin/env python3
"""Of a service that can do little, the suite for all services leaves cases out: their number and the reasons are said.

Usage: left_out_test.py CTEST CONFORMANCE SERVICE LEFT_OUT
"""

import os
import pathlib
import subprocess
import sys
import tempfile

CASES = ["PowerTest.GoesOffAndOn", "CallsTest.OneThatIsRefusedHereEnds", "CallsTest.OneWaitsAndTheTwoAreSwapped",
         "CallsTest.OneGoesOutAndIsAnswered", "After/EventsTest.Come/Browsing", "After/EventsTest.Come/APlayMode",
         "After/EventsTest.Come/VoiceRecognition"]
LACKS = "browsing play-modes voice-recognition"
EXPECTED = """6 of 7 tests were left out:
  2: the phone here cannot do: Call
  1: the phone here cannot do: SetCalledParty
  1: the phone here cannot do: browsing
  1: the phone here cannot do: play-modes
  1: the phone here cannot do: voice-recognition
"""


def main():
    ctest, conformance, service, left_out = sys.argv[1:]
    with tempfile.TemporaryDirectory() as folder:
        # As gtest_discover_tests writes it.
        pathlib.Path(folder, "CTestTestfile.cmake").write_text("".join(
            f'add_test({case} "{conformance}" "--gtest_filter={case}")\n'
            f'set_tests_properties({case} PROPERTIES SKIP_REGULAR_EXPRESSION "\\\\[  SKIPPED \\\\]")\n'
            for case in CASES))
        subprocess.run([ctest, "--output-junit", "junit.xml"], cwd=folder, stdout=subprocess.DEVNULL, check=True,
                       env={**os.environ, "BTCONFORMANCE_SERVICE": f"{service} --no-state",
                            "BTCONFORMANCE_LACKS": LACKS})
        said = subprocess.run([sys.executable, left_out, str(pathlib.Path(folder, "junit.xml"))], check=True, text=True,
                              stdout=subprocess.PIPE).stdout
    print(said)
    return 0 if said == EXPECTED else f"expected\n{EXPECTED}"


sys.exit(main())
