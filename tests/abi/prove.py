#!/usr/bin/env python3
"""Proves that gate.py finds what breaks applications, and nothing else: plants changes in a copy of the tree, one at a
time, builds what they reach, and lets the gate judge.

Usage: prove.py PRESET ARCHITECTURE

The copy is build/abi-proof/ARCHITECTURE of this tree and is kept, so that a second run builds less. The gate's reports are
in reports/ there. Uncommitted changes are copied, too.
"""

import dataclasses
import pathlib
import re
import shutil
import subprocess
import sys

TREE = pathlib.Path(__file__).resolve().parent.parent.parent
TARGETS = {"libbt": "bt", "libbt-witness": "abi_witness_bt", "libbtasync": "btasync",
           "libbtasync-witness": "abi_witness_btasync"}
# gate.py's exit status.
FINE, BROKEN = 0, 1
LONGEST_REPORT = 120  # lines; somebody has to read it


@dataclasses.dataclass(frozen=True)
class Change:
    what: str
    edits: tuple  # of (file, text, its replacement)
    interfaces: tuple  # which are compared
    status: int  # of the gate
    report: tuple = ()  # what the gate's report says, as regular expressions


RECORDS = "include/bluetooth/MWPBtRecords.h"
TYPES = "include/bluetooth/MWPBtType.h"
PHONE_LISTENER = "include/bluetooth/IMWPBtPhoneListener.h"
REQUEST = "include/btasync/Request.h"
LIBBT = ("libbt", "libbt-witness")
# For the types of libbtasync's headers its witness stands alone: the library takes a minute to compile.
LIBBTASYNC_TYPES = ("libbtasync-witness",)

CHANGES = (
    Change("a removed function of libbt",
           (("libbluetooth/libbt.map", '      "MWP_DestroyBlueTooth()";\n', ""),),
           ("libbt",), BROKEN, (r"removed: MWP_DestroyBlueTooth\(\)",)),
    Change("a removed variable of libbt",
           (("libbluetooth/libbt.map", "    g_ShmIdMap;\n", ""),),
           ("libbt",), BROKEN, (r"removed: g_ShmIdMap",)),
    Change("two swapped virtual functions of a listener",
           ((PHONE_LISTENER, "OnMobileService(int onService)", "OnSwapped(int roaming)"),
            (PHONE_LISTENER, "OnRoamingStatusChanged(int roaming)", "OnMobileService(int onService)"),
            (PHONE_LISTENER, "OnSwapped(int roaming)", "OnRoamingStatusChanged(int roaming)")),
           LIBBT, BROKEN, (r"OnMobileService\(int\).*\n?.*vtable|vtable offset", "OnRoamingStatusChanged")),
    Change("a virtual function appended to a listener",
           ((PHONE_LISTENER, "virtual void OnCodecModeChanged(MWPBtType::CodecMode mode);\n",
             "virtual void OnCodecModeChanged(MWPBtType::CodecMode mode);\n  virtual void OnAppended();\n"),
            ("libbluetooth/MWPBtListenerDefaults.cpp", "void IMWPBtPhoneListener::OnCodecModeChanged",
             "void IMWPBtPhoneListener::OnAppended() {}\nvoid IMWPBtPhoneListener::OnCodecModeChanged")),
           LIBBT, BROKEN, ("OnAppended", "vtable for IMWPBtPhoneListener")),
    Change("a member inserted into a record that libbt uses",
           ((RECORDS, "  int nValue4 = 0; ", "  int nInserted = 0;\n  int nValue4 = 0; "),),
           LIBBT, BROKEN, ("MWPTypeCallSlot", "nInserted", "size changed")),
    Change("a wider member of a record that libbt does not use",
           ((RECORDS, "unsigned short nEndHandle", "unsigned int nEndHandle"),),
           ("libbt-witness",), BROKEN, ("MWPTypeGattService", "nEndHandle")),
    Change("another value of an enumerator that libbt uses",
           ((TYPES, "BT_CALL_HELD = 2", "BT_CALL_HELD = 22"),),
           LIBBT, BROKEN, ("CallStatus", "BT_CALL_HELD.*from value '2' to '22'")),
    Change("another value of an enumerator that libbt does not use",
           ((TYPES, "BT_PROFILE_VERSION_1_9 = 10", "BT_PROFILE_VERSION_1_9 = 11"),),
           ("libbt-witness",), BROKEN, ("ProfileVersion", "BT_PROFILE_VERSION_1_9.*from value '10' to '11'")),
    Change("an added function of libbt, and an added enumerator",
           (("include/bluetooth/MWPBtSpp.h", "  int SetHIDSendKey(", "  int Added();\n  int SetHIDSendKey("),
            ("libbluetooth/MWPBtSpp.cpp", "int MWPBtSpp::SetHIDSendKey(",
             "int MWPBtSpp::Added() { return 1; }\n\nint MWPBtSpp::SetHIDSendKey("),
            (TYPES, "BT_PROFILE_VERSION_1_9 = 10,\n", "BT_PROFILE_VERSION_1_9 = 10,\n  BT_PROFILE_VERSION_2_0 = 11,\n")),
           LIBBT, FINE, (r"added: MWPBtSpp::Added\(\)",)),
    Change("a removed class of libbtasync",
           (("include/btasync/PollLoop.h", "class BTASYNC_API PollLoop", "class PollLoop"),),
           ("libbtasync",), BROKEN, (r"removed: btasync::v0::PollLoop::Prepare\(",)),
    Change("two swapped virtual functions of libbtasync",
           ((REQUEST, "virtual void Deliver(Reply& reply) = 0;", "virtual void Swapped() = 0;"),
            (REQUEST, "virtual void Forget() = 0;", "virtual void Deliver(Reply& reply) = 0;"),
            (REQUEST, "virtual void Swapped() = 0;", "virtual void Forget() = 0;")),
           LIBBTASYNC_TYPES, BROKEN, ("PendingCall", "vtable offset")),
    Change("a virtual function appended to a class of libbtasync",
           ((REQUEST, "virtual void Forget() = 0;", "virtual void Forget() = 0;\n  virtual void Appended() {}"),),
           LIBBTASYNC_TYPES, BROKEN, ("PendingCall", "Appended")),
    Change("a member inserted into a record of libbtasync",
           (("include/btasync/State.h", "  int seconds = 0; ", "  int inserted = 0;\n  int seconds = 0; "),),
           LIBBTASYNC_TYPES, BROKEN, ("CallEntry", "inserted")),
    Change("an enumerator inserted into an enumeration of libbtasync",
           (("include/btasync/Answer.h", "  NoService, ", "  Inserted,\n  NoService, "),),
           LIBBTASYNC_TYPES, BROKEN, ("Reason", "NoService.*from value '1' to '2'")),
    Change("a further member of a class that applications only have pointers to",
           (("libbtasync/Backend.h", "  const char* m_name;\n", "  const char* m_name;\n  int m_further = 0;\n"),),
           ("libbtasync",), FINE),
)


def copy_tree(copy):
    """Copies what is in git, as it is now; a file that is the same keeps its time."""
    # Also where the tree belongs to another user, as it may in a container: git would not read it.
    listed = subprocess.run(["git", "-C", TREE, "-c", f"safe.directory={TREE}", "ls-files", "-z", "--cached", "--others",
                             "--exclude-standard"], stdout=subprocess.PIPE, check=True).stdout.decode().split("\0")
    for name in filter(None, listed):
        source, target = TREE / name, copy / name
        if not source.is_file():
            continue
        if not target.exists() or target.read_bytes() != source.read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(source, target)
            shutil.copymode(source, target)


class Proof:
    def __init__(self, preset, architecture):
        self.preset, self.architecture = preset, architecture
        self.copy = TREE / "build/abi-proof" / architecture
        self.reports = self.copy / "reports"
        copy_tree(self.copy)
        self.reports.mkdir(exist_ok=True)

    def judge(self, interfaces):
        """Builds and compares these interfaces; the gate's exit status and report."""
        built = subprocess.run([self.copy / "script/build", self.preset, *(TARGETS[name] for name in interfaces)],
                               stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
        if built.returncode != 0:
            sys.exit(f"prove: this cannot be built:\n{built.stdout}")
        judged = subprocess.run([self.copy / "tests/abi/gate.py", self.copy / "build" / self.preset, self.architecture,
                                 *interfaces],
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
        return judged.returncode, judged.stdout

    def faults_of(self, number, change):
        """What is wrong with how the gate judges a change."""
        kept = {}
        try:
            for name, old, new in change.edits:
                path = self.copy / name
                text = path.read_text()
                kept.setdefault(path, text)
                if text.count(old) != 1:
                    return [f"'{old}' is in {name} {text.count(old)} times"]
                path.write_text(text.replace(old, new))
            status, report = self.judge(change.interfaces)
        finally:
            for path, text in kept.items():
                path.write_text(text)
        (self.reports / f"{number:02}.txt").write_text(f"{change.what}\n\n{report}")
        faults = [f"the exit status is {status}"] if status != change.status else []
        faults += [f"the report does not say '{words}'" for words in change.report if not re.search(words, report)]
        if len(report.splitlines()) > LONGEST_REPORT:
            faults.append(f"the report has {len(report.splitlines())} lines")
        return faults + ([f"the report:\n{report}"] if faults else [])

    def run(self):
        status, report = self.judge(tuple(TARGETS))
        if status != FINE:
            print(report)
            sys.exit("prove: the gate finds something although nothing is planted")
        failed = 0
        for number, change in enumerate(CHANGES, 1):
            faults = self.faults_of(number, change)
            failed += bool(faults)
            verdict = "NOT AS EXPECTED" if faults else "refused" if change.status else "passes"
            print(f"{verdict:8} {change.what} ({self.architecture})", *faults, sep="\n    ", flush=True)
        print(f"{len(CHANGES) - failed} of {len(CHANGES)} changes are judged as they have to be; "
              f"the reports: {self.reports.relative_to(TREE)}")
        return 1 if failed else 0


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(Proof(*sys.argv[1:]).run())
