#!/usr/bin/env python3
"""Compiles what must not compile, and what must: exchanged arguments, answers that are taken for what they are not, and
requests and events whose types are not those of the interface description.

Usage: wrong_types_test.py COMPILER SOURCE_DIR INCLUDE_DIR...
"""

import os
import pathlib
import subprocess
import sys
import tempfile

# The code of a case is put into a function behind a header, which is compiled once.
APPLICATION = ("#include <btasync/Service.h>", """
using namespace btasync;
void Use(Service& service, Scope& scope, const Address& address, Answer<bool> yesOrNo, Answer<PowerStatus> power) {
  static_cast<void>(service), static_cast<void>(scope), static_cast<void>(address);
  static_cast<void>(yesOrNo), static_cast<void>(power);
  %s
}
""")

LIBRARY = ("#include \"libbtasync/MakeRequest.h\"", """
using namespace btasync;
struct OneNumber { int number; };
struct OneText { std::string text; };
struct TwoTexts { std::string one; std::string other; };
void Use(const Service& service, const Address& address, const Bytes& bytes, GVariant* values) {
  static_cast<void>(service), static_cast<void>(address), static_cast<void>(bytes), static_cast<void>(values);
  %s
}
""")

# What compiles: the rest of each of these sources is right.
RIGHT = [
    (APPLICATION, "service.Pair(address, PinCode(\"1234\")).Send();"),
    (APPLICATION, "if (power) { service.SetPower(*power == BT_POWER_OFF).Then(scope, [](const Answer<>&) {}); }"),
    (APPLICATION, "if (yesOrNo.Accepted() && *yesOrNo) { service.AcceptCall().Send(); }"),
    (LIBRARY, "wire::Ask<wire::DialCall>(service, Text(\"110\")).Send();"),
    (LIBRARY, "static_cast<void>(wire::Fill<wire::OnOperatorNameChanged, OneText>(values));"),
]

# What does not, each with words of the error.
WRONG = [
    # Exchanged, or of no type that says what it is.
    (APPLICATION, "service.Pair(PinCode(\"1234\"), address).Send();", "PinCode"),
    (APPLICATION, "service.AnswerPair(PinCode(\"1234\"), PairRequestState(), address).Send();", "PinCode"),
    (APPLICATION, "service.Connect(\"00:1A:7D:DA:71:13\").Send();", "Address"),
    (APPLICATION, "service.Pair(address, \"1234\").Send();", "PinCode"),
    (APPLICATION, "service.DialCall(address).Send();", "Text"),
    # Whether there is an answer, and whether it is yes, would look the same.
    (APPLICATION, "if (yesOrNo) { service.AcceptCall().Send(); }", "bool"),
    (APPLICATION, "bool isYes = yesOrNo; static_cast<void>(isYes);", "bool"),
    (APPLICATION, "bool isAccepted = power; static_cast<void>(isAccepted);", "bool"),
    (APPLICATION, "if (power == BT_POWER_ON) { service.AcceptCall().Send(); }", "operator==|invalid operands"),
    # A request that nobody sends, and one that is sent twice.
    (APPLICATION, "service.AcceptCall();", "nodiscard"),
    (APPLICATION, "Request<> request = service.AcceptCall(); request.Send();", "Send"),
    (APPLICATION, "Request<> request = service.AcceptCall(); Request<> other = request;", "delete"),
    (APPLICATION, "service.GetPowerStatus().Then(scope, [](const Answer<bool>&) {});", "Answer<bool>|v0::Answer<bool>"),
    # Against the interface description.
    (LIBRARY, "wire::Ask<wire::DialCall>(service, 110).Send();", "the interface has a text here"),
    (LIBRARY, "wire::Ask<wire::SetPower>(service, Text(\"on\")).Send();", "the interface has a number here"),
    (LIBRARY, "wire::Ask<wire::SetScanAction>(service, 1).Send();", "the interface has yes or no here"),
    (LIBRARY, "wire::Ask<wire::SppSendBuffer>(service, address, Text(\"bytes\")).Send();",
     "the interface has bytes here"),
    (LIBRARY, "wire::Ask<wire::SetCurPlayMode>(service, 1).Send();", "the interface has a play mode here"),
    (LIBRARY, "wire::Ask<wire::DialCall>(service).Send();", "the interface has another number of arguments"),
    (LIBRARY, "wire::AskFor<std::string, wire::GetPowerStatus>(service).Send();", "the interface has a number here"),
    (LIBRARY, "wire::AskFor<int, wire::GetRemotePairDeviceName>(service, address).Send();",
     "the interface has a text here"),
    (LIBRARY, "wire::AskFor<int, wire::GetAudioIsPrivacy>(service).Send();", "the interface has yes or no here"),
    (LIBRARY, "wire::AskFor<int, wire::GetCurPlayPosition>(service).Send();", "the answer is one value"),
    (LIBRARY, "wire::Ask<wire::GetMediaInfo>(service).Send();",
     "an order answers nothing but whether it is accepted"),
    (LIBRARY, "static_cast<void>(wire::Fill<wire::OnOperatorNameChanged, OneNumber>(values));",
     "the interface has a text here"),
    (LIBRARY, "static_cast<void>(wire::Fill<wire::OnMobileService, OneText>(values));",
     "the interface has a number here"),
    (LIBRARY, "static_cast<void>(wire::Fill<wire::OnOperatorNameChanged, TwoTexts>(values));",
     "missing initializer|missing field"),
    (LIBRARY, "static_cast<void>(wire::Fill<wire::OnCurPositionChanged, OneNumber>(values));",
     "too many initializers|excess elements"),
]


class Compiler:
    def __init__(self, folder, compiler, source_dir, include_dirs):
        self.folder = pathlib.Path(folder)
        self.command = [compiler, "-std=c++17", "-Wall", "-Wextra", "-Werror", "-I", f"{source_dir}/include", "-I", source_dir]
        for include_dir in include_dirs:
            self.command += ["-isystem", include_dir]
        self.headers = {}

    def header(self, text):
        if text not in self.headers:
            header = self.folder / f"header{len(self.headers)}.h"
            header.write_text(text + "\n")
            subprocess.run([*self.command, "-x", "c++-header", header, "-o", f"{header}.gch"], check=True)
            self.headers[text] = header
        return self.headers[text]

    def errors(self, frame, code):
        """What the compiler says; None if it is content."""
        header, body = frame
        result = subprocess.run([*self.command, "-fsyntax-only", "-include", self.header(header), "-x", "c++", "-"],
                                input=body % code, text=True, capture_output=True,
                                env={**os.environ, "LC_ALL": "C.UTF-8"})
        return result.stderr if result.returncode != 0 else None


def check(compiler):
    for frame, code in RIGHT:
        if text := compiler.errors(frame, code):
            yield f"does not compile: {code}\n{text}"
    for frame, code, words in WRONG:
        text = compiler.errors(frame, code)
        if text is None:
            yield f"compiles: {code}"
        elif not any(word in text for word in words.split("|")):
            yield f"does not compile, but says nothing of '{words}': {code}\n{text}"


def main():
    compiler, source_dir, *include_dirs = sys.argv[1:]
    with tempfile.TemporaryDirectory() as folder:
        faults = list(check(Compiler(folder, compiler, source_dir, include_dirs)))
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
