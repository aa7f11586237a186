#!/usr/bin/env python3
"""Installs both libraries into an empty prefix, moves it, and builds applications against it: in each version of C++, with
g++ and with clang++, through CMake and through pkg-config. Through pkg-config every public header is included, and no
warning is allowed in it. Each application is run.

Usage: standards_test.py BUILD

BUILD is a build directory of this tree.
"""

import concurrent.futures
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
COMPILERS = ("g++", "clang++")
# What each version is called by compilers that are older than it.
STANDARDS = {11: "c++11", 17: "c++17", 20: "c++20", 23: "c++2b"}
WARNINGS = ("-Wall", "-Wextra", "-Wpedantic", "-Wconversion", "-Werror")
COMPONENTS = ("runtime", "async", "development")
# A header that is of a later version than the others of its library.
NEEDS = {"btasync/Coroutine.h": 20}
# Of a library: the folder of its application and of its headers, the first version of C++, and what the application says.
LIBRARIES = {
    "libbt": ("consumer", "bluetooth", 11, "libbt is usable"),
    "libbtasync": ("consumer_async", "btasync", 17, "libbtasync is usable"),
}


def run(*command, **options):
    result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False, **options)
    if result.returncode != 0:
        raise RuntimeError(f"{' '.join(map(str, command))} ends with {result.returncode}:\n{result.stdout}")
    return result.stdout


def check_program(program, said):
    output = run(program)
    if said not in output:
        raise RuntimeError(f"{program} says {output}")


def install(build, work):
    """The prefix into which all that an application needs was installed, and which was moved since."""
    for component in COMPONENTS:
        run("cmake", "--install", build, "--prefix", "/opt/bt", "--component", component,
            env={**os.environ, "DESTDIR": str(work / "staging")})
    prefix = work / "moved to" / "prefix"
    prefix.parent.mkdir()
    (work / "staging/opt/bt").rename(prefix)
    shutil.rmtree(work / "staging")
    return prefix


def library_directory(prefix):
    return next(prefix.rglob("libbt.so")).parent


def headers(prefix, folder, standard):
    found = [path.relative_to(prefix / "include").as_posix() for path in sorted((prefix / "include" / folder).rglob("*.h"))]
    return [header for header in found if NEEDS.get(header, 0) <= standard]


def with_pkg_config(prefix, work, compiler, library, standard):
    source, folder, _, said = LIBRARIES[library]
    libdir = library_directory(prefix)
    flags = run("pkg-config", "--cflags", "--libs", library,
                env={**os.environ, "PKG_CONFIG_PATH": str(libdir / "pkgconfig")})
    program = work / f"{library}-{compiler}-{standard}"
    includes = [word for header in headers(prefix, folder, standard) for word in ("-include", header)]
    # Its output is quoted for a shell, because the folder has a space in its name.
    run("sh", "-c", f'exec "$@" {flags.strip()}', "sh", compiler, f"-std={STANDARDS[standard]}", *WARNINGS, *includes,
        HERE / source / "consumer.cpp", "-o", program, f"-Wl,-rpath,{libdir}")
    check_program(program, said)


def with_cmake(prefix, work, compiler):
    build = work / f"cmake-{compiler}"
    run("cmake", "-S", HERE / "consumer_standards", "-B", build, "-G", "Ninja", "-D", f"CMAKE_PREFIX_PATH={prefix}",
        "-D", f"CMAKE_CXX_COMPILER={compiler}")
    run("cmake", "--build", build, "--parallel", "1")
    for library, (_, _, first, said) in LIBRARIES.items():
        for standard in (standard for standard in STANDARDS if standard >= first):
            check_program(build / f"{library.removeprefix('lib')}{standard}", said)


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    if missing := [compiler for compiler in COMPILERS if not shutil.which(compiler)]:
        sys.exit(f"{', '.join(missing)} is missing: script/bootstrap build test installs it")
    with tempfile.TemporaryDirectory() as name, \
         concurrent.futures.ThreadPoolExecutor(max_workers=os.cpu_count()) as pool:
        work = pathlib.Path(name)
        prefix = install(sys.argv[1], work)
        jobs = {f"{compiler}, CMake": pool.submit(with_cmake, prefix, work, compiler) for compiler in COMPILERS}
        for compiler in COMPILERS:
            for library, (_, _, first, _) in LIBRARIES.items():
                for standard in (standard for standard in STANDARDS if standard >= first):
                    jobs[f"{compiler}, C++{standard}, pkg-config {library}"] = pool.submit(
                        with_pkg_config, prefix, work, compiler, library, standard)
        failed = 0
        for what, job in jobs.items():
            if error := job.exception():
                failed += 1
                print(f"{what}: {error}")
            else:
                print(f"{what}: fine")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
