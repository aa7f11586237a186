"""What is in the blocks of the documents and is not run by this test, and why."""

# Blocks that hold no command, by their first line.
NOT_COMMANDS = {
    "            application        examples/, tools/btctl": "the picture of the architecture",
    "ninja: no work to do.": "what a run of the benchmarks printed",
    "btservice: car.json:12: devices[0].phone.signal: expected a whole number from 0 to 5, got 7": "a message; checked below",
    "book.vcf:6: expected a property such as TEL:112, got 'this is no line'; this card is skipped": "a message; checked below",
    "time/        the clock that a stack lives by: the wall's, a faster one, or one driven by a test": "a list of folders",
    "[process][file:source][func:function][line:number]Warn:Log system not init.": "the form of a line of the log",
    "com_zelk_linux_bluetooth_call_set_power_sync: Failed to call dbus method. Reason: ....": "the form of a line of the log",
    "[category-8]": "the form of a file",
    "Service (one member for each request)": "the way of a request",
}

# Lines among commands that say how a command is to be written.
SYNOPSES = ("btctl [--json] [--timeout SECONDS] [--no-wait] [--verbose] COMMAND...",)

# Commands that cannot be run in a test.
EXCEPTIONS = {
    "script/ci": "it is what runs this test; scripts_ci tests the script itself",
    "script/ci --full": "as script/ci",
    "script/test": "it is what runs this test",
    "script/test --asan": "it is what runs this test, once more",
    "script/test --tsan": "it builds another preset and runs for minutes",
    "script/test --packages": "it makes the packages and a root of their own, with what is downloaded from the network",
    "script/package": "it compiles everything for minutes; packaging/test_packages tests the packages",
    "script/package --twice": "as script/package, twice",
    "apt install ./libbt1_*.deb ./libbt-dev_*.deb ./libbtasync0_*.deb ./btctl_*.deb ./btservice-sim_*.deb":
        "it installs on this machine; packaging/test_packages installs them in a root of its own",
    "script/test --library": "it is what runs this test",
    "script/test --preset NAME": "NAME is to be replaced, and it is what runs this test",
    "script/test -R REGEX": "REGEX is to be replaced, and it is what runs this test",
    "script/lint": "it runs clang-tidy for an hour; .ci/run checks the format with it",
    "script/valgrind": "it runs for many minutes; system_valgrind shows that it finds a leak",
    "script/coverage": "it builds another preset and runs for minutes",
    "script/soak [MINUTES]": "it runs for minutes or hours; soak_test is a short one",
    "script/mutate [FILE...]": "it builds and tests for hours; unit_mutate tests the script itself",
    "tests/fuzz/run": "it builds another preset and runs for minutes; .ci/run runs it briefly",
    "script/bench": "it builds another preset and runs for minutes",
    "script/bench --json figures.json contacts": "as script/bench",
    "script/bench --instructions": "as script/bench; .ci/run checks its targets",
    "script/bench --check": "as script/bench, and its answer depends on the machine",
    "script/abi": "it builds another preset; .ci/run compares the binary interfaces with it",
    "script/bootstrap armhf": "it installs packages from the network",
    "cmake/toolchains/armhf-sysroot": "it fetches packages from the network, as root",
    "script/build armhf": "it needs a sysroot that is made from the network",
    "script/test --arm": "as script/build armhf",
    "script/test --arm --service amd64": "as script/build armhf",
    "script/abi --arch armhf": "as script/build armhf",
    "cmake/toolchains/with-qemu-arm build/armhf/bin/btservice --version": "as script/build armhf",
}

# Commands of README.md that packaging/test_install takes from there and runs, by the name of that test.
RUN_BY_PACKAGING = "the_readme_is_followed_to_the_letter"
PACKAGING = (
    "for component in runtime development; do\n  cmake --install build/ci --prefix ~/bt --component $component\ndone",
    "export PKG_CONFIG_PATH=~/bt/lib/pkgconfig",
    "c++ app.cpp -o app $(pkg-config --cflags --libs libbt glib-2.0) -Wl,-rpath,$(pkg-config --variable=libdir libbt)",
    "script/demo ./app",
    "cmake -B build -D CMAKE_PREFIX_PATH=~/bt",
    "cmake --build build",
)

# The documents whose commands screens_test.py runs.
RUN_BY_SCREENS = "docs/screens/"
