#!/usr/bin/env python3
"""The proving, tried on a repository with proofs of one line."""

import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
from proofs import PROOFS, each, found, lines, says, tests  # noqa: E402
from prove import PLACE, figures_of, page  # noqa: E402

HERE = pathlib.Path(__file__).resolve().parent


class Figures(unittest.TestCase):
    def test_are_the_last_match_every_match_or_whole_lines(self):
        log = "a 1\nb 2\na 3\n"
        self.assertEqual(found(r"^a (\d)$", "{0} times")(log), "3 times")
        self.assertEqual(each(r"^a (\d)$")(log), "1, 3")
        self.assertEqual(lines("a .*")(log), "a 1\na 3")
        self.assertEqual(says("so")(log), "so")

    def test_are_none_when_nothing_matches(self):
        for figure in (found("(x)"), each("(x)"), lines("x"), tests):
            self.assertIsNone(figure("a"))

    def test_count_the_tests_of_every_run(self):
        log = "97% tests passed, 1 tests failed out of 30\n\n100% tests passed, 0 tests failed out of 7\n"
        self.assertEqual(tests(log), "29 of 30, 7 of 7")


class Proofs(unittest.TestCase):
    def test_take_their_figures_from_what_is_printed(self):
        printed = {
            "memory.peaks": (
                "baseline of numbers: file 3.8 MiB, peak 70 MiB (18.4 for a byte), 0.52 s\n",
                "baseline of numbers of 3.8 MiB: peak 70 MiB",
            ),
            "findings.costs": (
                "3.6 s and 71 MiB, 45.9 s and 535 MiB, 1.0 KiB for each more\n",
                "20,000: 3.6 s and 71 MiB; 200,000: 45.9 s and 535 MiB",
            ),
            "lint.checks": ("lint: formatting: clean\nlint: shellcheck: clean\n", "formatting: clean, shellcheck: clean"),
            "package.page": ("page-to-picture: Devices, from tavctl new-page to a.png: 42 s; of processors, user", "42 s"),
            "mutate.survivors": (
                "kit/A.cpp:7: survived\n    - a\n    + b\n\n"
                "1 changes that no test has seen:\nkit/A.cpp:7\n    - a\n    + b\n\nfolder",
                "1 changes that no test has seen:\nkit/A.cpp:7\n    - a\n    + b",
            ),
        }
        for name, (log, figure) in printed.items():
            proof, _, what = name.partition(".")
            self.assertEqual(PROOFS[proof].figures[what](log), figure)


class Page(unittest.TestCase):
    def test_names_a_figure_of_each_proof_and_no_other(self):
        known = {f"{name}.{figure}" for name, proof in PROOFS.items() for figure in (*proof.figures, "seconds")}
        template = (HERE.parents[1] / "docs/quality.in.md").read_text()
        self.assertEqual(set(PLACE.findall(template)), known | {"commit", "date", "machine"})

    def test_gives_back_what_it_was_filled_with(self):
        template = "{{commit}}: a.b? | {{a.one}} | {{a.two}} |\n```\n{{a.table}}```\n"
        figures = {"commit": "c", "a.one": "7 of 7, $1", "a.two": "", "a.table": "x | 1\ny | 2\n"}
        self.assertEqual(figures_of(template, page(template, figures)), figures)
        self.assertEqual(figures_of(template, "another page"), {})


class Repository(unittest.TestCase):
    PROOFS = """
from types import SimpleNamespace as Proof
PROOFS = {
    "good": Proof(command="echo x >>build/times; echo figure 7", figures={"figure": lambda log: log.split()[1]}),
    "bad": Proof(command="echo figure 8; [[ -e build/mended ]]", figures={"figure": lambda log: log.split()[1]}),
    "silent": Proof(command="true", figures={"figure": lambda log: None}),
}
"""
    TEMPLATE = """{{commit}}: {{good.figure}}, {{bad.figure}}, {{silent.figure}}
seconds: {{good.seconds}}, {{bad.seconds}}, {{silent.seconds}}; of {{date}}, on {{machine}}
"""

    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.tree = pathlib.Path(directory.name)
        for name in ("tests/prove", "docs", "build"):
            (self.tree / name).mkdir(parents=True)
        shutil.copy(HERE / "prove.py", self.tree / "tests/prove")
        (self.tree / "tests/prove/proofs.py").write_text(self.PROOFS)
        (self.tree / "docs/quality.in.md").write_text(self.TEMPLATE)
        (self.tree / ".gitignore").write_text("/build/\n__pycache__/\n")
        self.git("init", "-q")
        self.commit()

    def git(self, *arguments):
        identity = ["-c", "user.name=a", "-c", "user.email=a@b.c"]
        return subprocess.check_output(["git", *identity, *arguments], cwd=self.tree, text=True).strip()

    def commit(self):
        self.git("add", ".")
        self.git("commit", "-q", "-m", "a")

    def prove(self, *names):
        return subprocess.run(
            [sys.executable, "-B", "tests/prove/prove.py", *names],
            cwd=self.tree,
            stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT,
            text=True,
            check=False,
        )

    def page(self):
        return (self.tree / "docs/quality.md").read_text()

    def test_writes_the_figures_of_the_commit_and_goes_on_after_a_failure(self):
        proved = self.prove()
        self.assertEqual(proved.returncode, 1, proved.stdout)
        commit = self.git("rev-parse", "--short=12", "HEAD")
        self.assertIn(f"{commit}: 7, **FAILED**, **FAILED**\n", self.page())
        self.assertRegex(self.page(), r"seconds: \d, \*\*FAILED\*\*, \d; of \d{4}-\d\d-\d\d, on \d+ processors \(.*\n$")
        self.assertIn("FAILED: bad silent", proved.stdout)

    def test_takes_no_figure_twice_from_one_commit(self):
        self.prove("good")
        self.assertIn(": 7, not taken, not taken", self.page())
        (self.tree / "build/mended").touch()
        self.assertEqual(self.prove("good", "bad").returncode, 0)
        self.assertIn(": 7, 8, not taken", self.page())
        self.assertEqual((self.tree / "build/times").read_text(), "x\n")

    def test_goes_on_where_only_the_page_and_its_words_were_committed(self):
        self.prove("good")
        self.commit()
        (self.tree / "build/mended").touch()
        self.assertEqual(self.prove("good", "bad").returncode, 0)
        self.assertIn(": 7, 8, not taken", self.page())
        self.assertEqual((self.tree / "build/times").read_text(), "x\n")
        for text in ("quality.in.md", "quality.md"):
            with (self.tree / "docs" / text).open("a") as file:
                file.write("A reason.\n")
        self.commit()
        self.assertEqual(self.prove("good", "bad").returncode, 0)
        self.assertIn(": 7, 8, not taken", self.page())
        self.assertEqual((self.tree / "build/times").read_text(), "x\n")
        (self.tree / "another").touch()
        self.commit()
        self.prove("bad")
        self.assertIn(": not taken, 8, not taken", self.page())

    def test_names_every_machine_that_figures_are_of(self):
        self.prove("good")
        page = self.tree / "docs/quality.md"
        page.write_text(re.sub(r"on \d.*", "on another machine", self.page()))
        self.prove("silent")
        self.assertRegex(self.page(), r"on another machine; \d+ processors .*\n$")

    def test_refuses_a_tree_with_changes(self):
        (self.tree / "another").touch()
        proved = self.prove("good")
        self.assertEqual(proved.returncode, 1)
        self.assertIn("another", proved.stdout)
        self.assertFalse((self.tree / "docs/quality.md").exists())

    def test_refuses_a_name_that_it_does_not_know(self):
        self.assertIn("there are good bad silent", self.prove("goood").stdout)


if __name__ == "__main__":
    unittest.main()
