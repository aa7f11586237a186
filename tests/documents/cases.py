"""The cases of the tests, as the sources define them."""
import re


def sources(tree, *patterns):
    return "\n".join(path.read_text() for pattern in patterns for path in sorted((tree / "tests").glob(pattern)))


def cases_by_suite(tree):
    suites = {}
    for suite, case in re.findall(r"^TEST(?:_[FP])?\(\s*(\w+),\s*(\w+)\)", sources(tree, "*/*.cpp"), re.MULTILINE):
        suites.setdefault(suite, set()).add(case)
    return suites
