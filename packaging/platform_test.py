#!/usr/bin/env python3
"""Builds with another platform layer than the stand-in: that of examples/platform, and the stand-in with a zlog that is
made here; and shows what a wrong BT_PLATFORM_DIR says.

Usage: platform_test.py SOURCE_DIR COMPILER [TEST...]
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

SOURCE, COMPILER = pathlib.Path(sys.argv.pop(1)).resolve(), sys.argv.pop(1)
# What is not needed here. Compiled as fast as it goes.
OPTIONS = [f"-DCMAKE_CXX_COMPILER={COMPILER}", "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0",
           "-DCMAKE_C_FLAGS_DEBUG=-O0", *(f"-DBT_BUILD_{part}=OFF" for part in
                                          ("ASYNC", "MANUAL", "QT", "SIMULATION", "TESTS", "TOOLS"))]
if shutil.which("ccache"):
    OPTIONS += ["-DCMAKE_C_COMPILER_LAUNCHER=ccache", "-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"]

# The published interface of zlog, as far as the library uses it.
ZLOG_H = """\
#include <stdarg.h>
#include <stddef.h>
#ifdef __cplusplus
extern "C" {
#endif
typedef struct zlog_category_s zlog_category_t;
int zlog_init(const char *confpath);
zlog_category_t *zlog_get_category(const char *cname);
void zlog(zlog_category_t *category, const char *file, size_t filelen, const char *func, size_t funclen,
          long line, int level, const char *format, ...);
void vzlog(zlog_category_t *category, const char *file, size_t filelen, const char *func, size_t funclen,
           long line, int level, const char *format, va_list args);
#ifdef __cplusplus
}
#endif
"""
ZLOG_CPP = """\
#include <zlog.h>
#include <cstdio>
struct zlog_category_s { const char* name; };
int zlog_init(const char* confpath) { return std::printf("zlog_init %s\\n", confpath) < 0; }
zlog_category_t* zlog_get_category(const char* cname) { static zlog_category_t only{cname}; return &only; }
void vzlog(zlog_category_t* category, const char*, size_t, const char*, size_t, long, int level, const char* format,
           va_list args) {
  std::printf("zlog %s %d ", category->name, level);
  std::vprintf(format, args);
  std::puts("");
}
void zlog(zlog_category_t*, const char*, size_t, const char*, size_t, long, int, const char*, ...) {}
"""
LOGGING_CPP = """\
#include <mwp/MWPLog.h>
#define MWP_LOG_SOURCE "test"
int main() { MWP_LOG(MWP_LOG_WARNING, "a line with %d", 7); }
"""


def run(*command, **options):
    """The exit status, and all that is printed."""
    result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False, **options)
    return result.returncode, result.stdout


def needed_by(library):
    return run("readelf", "-d", library)[1]


class ThePlatform(unittest.TestCase):
    def setUp(self):
        self.work = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.work)
        self.build = self.work / "build"

    def configure(self, *options):
        return run("cmake", "-S", SOURCE, "-B", self.build, "-G", "Ninja", *OPTIONS, *options)

    def succeed(self, answer):
        status, output = answer
        self.assertEqual(status, 0, output)
        return output

    def test_AnotherTakesThePlaceOfTheStandIn(self):
        self.succeed(self.configure(f"-DBT_PLATFORM_DIR={SOURCE}/examples/platform"))
        self.succeed(run("cmake", "--build", self.build, "--target", "bt"))
        needed = needed_by(self.build / "lib/libbt.so")
        self.assertIn("libexampleplatform.so", needed)
        self.assertNotIn("libmwpplatform", needed)
        self.assertFalse(list(self.build.rglob("libmwpplatform*")))
        # An application of somebody else, without a bus: what the library logs goes through the example.
        program = self.work / "consumer"
        self.succeed(run(COMPILER, "-std=c++11", "-I", SOURCE / "include", SOURCE / "packaging/consumer/consumer.cpp",
                         "-o", program, "-L", self.build / "lib", "-lbt", f"-Wl,-rpath,{self.build}/lib",
                         f"-Wl,-rpath-link,{self.build}/lib"))
        output = self.succeed(run(program))
        self.assertIn("libbt is usable; there is no service here", output)
        self.assertRegex(output, r"(?m)^example-platform 100 ipc/BtClientIpcAdapter InitDBusConnect:\d+ ")

    def test_TheRealZlogIsUsedIfItIsThere(self):
        prefix = self.work / "zlog"
        for folder in ("include", "lib"):
            (prefix / folder).mkdir(parents=True)
        (prefix / "include/zlog.h").write_text(ZLOG_H)
        (self.work / "zlog.cpp").write_text(ZLOG_CPP)
        self.succeed(run(COMPILER, "-shared", "-fPIC", "-I", prefix / "include", self.work / "zlog.cpp", "-o",
                         prefix / "lib/libzlog.so"))
        output = self.succeed(self.configure(f"-DCMAKE_PREFIX_PATH={prefix}"))
        self.assertIn(f"Logging goes to zlog: {prefix}/lib/libzlog.so", output)
        self.succeed(run("cmake", "--build", self.build, "--target", "mwpplatform"))
        library = self.build / "lib/libmwpplatform.so"
        self.assertIn("libzlog.so", needed_by(library))
        self.assertNotRegex(run("nm", "-D", "--defined-only", library)[1], r"\bv?zlog\b")

        (self.work / "logging.cpp").write_text(LOGGING_CPP)
        program = self.work / "logging"
        self.succeed(run(COMPILER, "-std=c++17", "-I", SOURCE / "platform/include", "-I", prefix / "include",
                         self.work / "logging.cpp", "-o", program, library, prefix / "lib/libzlog.so",
                         f"-Wl,-rpath,{library.parent}:{prefix}/lib"))
        output = self.succeed(run(program, env={**os.environ, "MWP_ZLOG_CONFIG": "a-file"}))
        self.assertEqual(output.splitlines(), ["zlog_init a-file", "zlog libbt 80 a line with 7"])

    def assert_one_clear_line(self, folder, words):
        status, output = self.configure(f"-DBT_PLATFORM_DIR={folder}")
        self.assertNotEqual(status, 0)
        self.assertEqual(output.count("CMake Error"), 1, output)
        self.assertIn(words, " ".join(output.split()))

    def test_AFolderThatIsNotThereIsNamed(self):
        folder = self.work / "nowhere"
        self.assert_one_clear_line(folder, f"BT_PLATFORM_DIR: there is no {folder}/CMakeLists.txt")

    def test_AFolderWithoutTheTargetIsNamed(self):
        folder = self.work / "other"
        folder.mkdir()
        (folder / "CMakeLists.txt").write_text("add_library(something INTERFACE)\n")
        self.assert_one_clear_line(
            folder, f"BT_PLATFORM_DIR: {folder}/CMakeLists.txt does not define the target mwp::platform")


if __name__ == "__main__":
    unittest.main(verbosity=2)
