#!/usr/bin/env python3
"""Makes the site of the documents, and shows that what is wrong in a text, a header or a page fails it.

Usage: site_test.py TREE [TEST...]
The exit status is 77 if all tests were skipped, because the packages that it takes are not installed.
"""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

TREE = pathlib.Path(sys.argv.pop(1)).resolve()
CHECK = TREE / "docs/site/check_site.py"
NOT_INSTALLED = 77
# What the copies of the tree leave out: it is large, or of no use to the site.
NOT_COPIED = shutil.ignore_patterns("build", ".git", "tests", "__pycache__")


def run(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, timeout=240)


def is_installed():
    packages = run(TREE / "script/bootstrap", "--list", "docs").stdout.split()
    status = run("dpkg-query", "--show", "--showformat", "${db:Status-Status}\n", *packages)
    return status.returncode == 0 and set(status.stdout.split()) == {"installed"}


def text_of(page):
    return re.sub(r"\s+", " ", re.sub(r"<[^>]+>", "", re.sub(r"<(script|style)\b.*?</\1>", "", page.read_text(), flags=re.DOTALL)))


class InAFolder(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="bt-site-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)


@unittest.skipUnless(is_installed(), "the packages of the group docs are not installed")
class TheSite(InAFolder):
    def make(self, tree=TREE):
        answer = run(tree / "script/docs", "--output", str(self.folder / "site"))
        return answer.returncode, answer.stdout

    def copy_of_tree(self):
        """A copy with one header of each library, which takes less time."""
        tree = self.folder / "tree"
        shutil.copytree(TREE, tree, ignore=NOT_COPIED, symlinks=True)
        for header in (tree / "include").rglob("*.h"):
            if header.name not in ("MWPBtSpp.h", "Timer.h"):
                header.unlink()
        # The texts link to two sources of tests, which are not in the copy.
        for name in ("tests/qt/qml/tst_service.qml", "tests/qt/FakePhone.h"):
            (tree / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(TREE / name, tree / name)
        return tree

    def test_IsMadeOfAllTextsHeadersAndDescriptions(self):
        status, output = self.make()
        self.assertEqual(status, 0, output)
        site = self.folder / "site/html"
        self.assertEqual(output, f"docs: {site}/index.html\n")
        for text in [*TREE.glob("*.md"), *TREE.glob("docs/*.md"), *TREE.glob("docs/screens/*.md"),
                     *TREE.glob("*/README.md")]:
            page = site / text.relative_to(TREE).with_suffix(".html")
            heading = re.search(r"^# (.*)", text.read_text(), re.MULTILINE)[1].replace("`", "")
            self.assertIn(heading.replace("'", "’"), text_of(page))
        for library, classes in (("bluetooth", r"^class MWP_BT_API (\w+)"), ("btasync", r"^class BTASYNC_API (\w+)[^;]*$")):
            page = text_of(site / f"reference/{library}.html")
            for header in sorted((TREE / "include" / library).rglob("*.h")):
                outside_detail = re.sub(r"namespace detail \{.*?^\}  // namespace detail", "", header.read_text(),
                                        flags=re.MULTILINE | re.DOTALL)
                for name in re.findall(classes, outside_detail, re.MULTILINE):
                    self.assertRegex(page, rf"class {name}\b", header)
        for reference, description in (("service", "ipc/D-Bus/com.zelk.linux.bluetooth.xml"),
                                       ("simulation", "service/simulation/com.zelk.linux.bluetooth.sim.xml")):
            page = text_of(site / f"reference/dbus-{reference}.html")
            root = ElementTree.parse(TREE / description).getroot()
            members = [*root.iter("method"), *root.iter("signal")]
            self.assertGreater(len(members), 30)
            for member in members:
                self.assertIn(member.get("name") + "(", page)
            written = (self.folder / f"site/source/reference/dbus-{reference}.md").read_text()
            explained = re.findall(r"^#### (\w+)\n\n```text\n.*\n```\n\n(?!#)\S", written, re.MULTILINE)
            self.assertEqual([member.get("name") for member in members if member.get("name") not in explained], [])
            self.assertEqual(page.count("-&gt; ("), sum(any(arg.get("direction") == "out" for arg in method)
                                                        for method in root.iter("method")))

    def test_FailsOnWhatIsWrongInATextAndNamesIt(self):
        tree = self.copy_of_tree()
        self.assertEqual(self.make(tree)[0], 0, "nothing is wrong yet")
        with open(tree / "docs/applications.md", "a") as text:
            text.write("\n[a](no-such-page.md), [b](btctl.md#no-such-place), [c](#nor-here), [d](../examples/none.cpp),"
                       "\n![e](images/none.png)\n")
        status, output = self.make(tree)
        self.assertNotEqual(status, 0)
        for fault in (r"not found: .?no-such-page\.md", "no-such-place", "nor-here", r"not found: .?\.\./examples/none\.cpp",
                      r"image file not readable: docs/images/none\.png"):
            self.assertRegex(output, fault)

    def test_FailsOnATextThatNoListOfContentsNames(self):
        tree = self.copy_of_tree()
        (tree / "docs/on-no-list.md").write_text("# On no list\n")
        status, output = self.make(tree)
        self.assertNotEqual(status, 0)
        self.assertRegex(output, r"on-no-list\.md: WARNING: document isn't included in any toctree")

    def test_FailsOnWhatAPageWouldLoadOrMissAndNamesIt(self):
        tree = self.copy_of_tree()
        with open(tree / "docs/applications.md", "a") as text:
            text.write('\n<a href="nowhere.html">a</a> <img src="https://example.org/counter.png">\n')
        status, output = self.make(tree)
        self.assertNotEqual(status, 0)
        self.assertIn("docs/applications.html has a dead link to nowhere.html", output)
        self.assertIn("docs/applications.html loads https://example.org/counter.png", output)

    def test_FailsOnACommentThatDoesNotFitItsDeclaration(self):
        tree = self.copy_of_tree()
        header = tree / "include/btasync/Timer.h"
        text, count = re.subn(r"^( *)class BTASYNC_API Timer\b", r"\1/// @see nothing @throw\n\1/// @copydoc NoSuchThing\n\g<0>",
                              header.read_text(), flags=re.MULTILINE)
        self.assertEqual(count, 1)
        header.write_text(text)
        status, output = self.make(tree)
        self.assertNotEqual(status, 0)
        self.assertRegex(output, r"Timer\.h:\d+: (warning|error): .*NoSuchThing")


class TheEvents(unittest.TestCase):
    def test_AreDescribedWithEachOfTheirValues(self):
        header = (TREE / "include/btasync/Events.h").read_text()
        fields = re.findall(r"^  [\w:]+ \w+;.*", header, re.MULTILINE)
        self.assertGreater(len(fields), 70)
        self.assertEqual([field for field in fields if not re.search(r";  +///< \S", field)], [])
        structures = re.findall(r"(.*)\n(struct \w+)", header)
        self.assertGreater(len(structures), 50)
        self.assertEqual([name for before, name in structures if not before.startswith("/// ")], [])


class TheCheckOfPages(InAFolder):
    def faults(self, **files):
        for name, text in files.items():
            (self.folder / name.replace("_", ".")).write_text(text)
        answer = run(sys.executable, "-B", str(CHECK), str(self.folder))
        self.assertEqual(answer.returncode != 0, bool(answer.stdout), answer.stdout)
        return answer.stdout

    def test_FindsNothingWrongInWhatStaysInTheSite(self):
        self.assertEqual(self.faults(
            index_html='<link href="a.css" rel="stylesheet"><h1 id="top">x</h1><img src="data:image/png;base64,AAAA">'
                       '<a href="other.html#b%20c">b</a><a href="#top">c</a><a href="https://example.org">out</a>',
            other_html='<p id="b c">there</p>', a_css='p { background: url("other.html") }',
            a_js='// see https://example.org\nfetch("other.html")'), "")

    def test_FindsEachThingThatIsLoadedFromTheNetwork(self):
        for page in ('<script src="https://example.org/x.js"></script>', '<img src="//example.org/x.png">',
                     '<img srcset="x 1x, http://example.org/x 2x">', '<link rel="preconnect" href="https://example.org">',
                     '<iframe src="http://example.org"></iframe>', '<style>@import "https://example.org/x.css";</style>',
                     '<p style="background: url(https://example.org/x.png)">x</p>', '<form action="https://example.org">',
                     '<script>fetch("https://example.org/x")</script>', '<base href="https://example.org">'):
            with self.subTest(page):
                self.assertIn("index.html loads ", self.faults(index_html=page))
        for name, text in (("a_css", "@font-face { src: url('https://example.org/x.woff') }"),
                           ("b_js", 'x.open("GET", "https://example.org/x")'),
                           ("c_svg", '<svg><image href="https://example.org/x.png"/></svg>')):
            with self.subTest(name):
                self.assertIn(name.replace("_", ".") + " loads https://example.org/x",
                              self.faults(index_html="<p>x</p>", **{name: text}))

    def test_FindsDeadLinks(self):
        for link in ("none.html", "#none", "index.html#none", "../outside", "a/b/"):
            with self.subTest(link):
                self.assertIn(link, self.faults(index_html=f'<a href="{link}">x</a>'))

    def test_FindsASiteWithoutPages(self):
        self.assertIn("no page", self.faults())


if __name__ == "__main__":
    result = unittest.main(verbosity=2, exit=False).result
    all_skipped = result.skipped and len(result.skipped) == result.testsRun
    sys.exit(NOT_INSTALLED if all_skipped else not result.wasSuccessful())
