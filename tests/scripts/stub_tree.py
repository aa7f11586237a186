"""A tree that has only some of the scripts, beside stubs for what these call."""
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest


class StubTreeTest(unittest.TestCase):
    """A test with such a tree in the folder self.tree. What its stubs were called with is in self.calls()."""
    TREE = pathlib.Path.cwd()

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name).resolve()
        self.tree, self.programs, self.log = (self.folder / name for name in ("tree", "programs", "calls"))
        self.tree.mkdir()
        self.programs.mkdir()

    def copy(self, *names):
        """Copies files of the real tree."""
        for name in names:
            (self.tree / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(self.TREE / name, self.tree / name)

    def write(self, name, text=""):
        (self.tree / name).parent.mkdir(parents=True, exist_ok=True)
        (self.tree / name).write_text(text)

    def stub(self, name, body="", folder=None):
        """A script of the tree that only notes its call, and does what `body` says."""
        path = (folder or self.tree) / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(f"#!/bin/bash\necho {name} \"$@\" >>{self.log}\n{body}\n")
        path.chmod(0o755)

    def program(self, name, body=""):
        """The same for a program that is found by PATH."""
        self.stub(name, body, self.programs)

    def run_script(self, script, *arguments, **environment):
        """Runs a script of the tree: the stubs of programs are found first, no git repository above the tree."""
        return subprocess.run([self.tree / script, *arguments], capture_output=True, text=True, timeout=120, cwd="/",
                              env={**os.environ, "PATH": f"{self.programs}:{os.environ['PATH']}",
                                   "GIT_CEILING_DIRECTORIES": str(self.folder), **environment})

    def calls(self):
        return self.log.read_text().splitlines() if self.log.exists() else []
