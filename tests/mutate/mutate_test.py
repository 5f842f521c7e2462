#!/usr/bin/env python3
"""The planting of changes, tried on sources of a few lines and on a project of one."""

import pathlib
import subprocess
import sys
import tempfile
import textwrap
import unittest

sys.dont_write_bytecode = True
from changes import changes_of  # noqa: E402
from mutate import equivalents, in_layer  # noqa: E402
from planting import run  # noqa: E402

HERE = pathlib.Path(__file__).resolve().parent


def after(text):
    """What the lines of a function's body become, one change at a time."""
    return sorted(change.after for change in changes_of("void f()\n{\n" + text + "\n}\n"))


class Changes(unittest.TestCase):
    def test_operators_between_operands_are_turned_around(self):
        self.assertEqual(after("if (a < b) {"), ["if (!(a < b)) {", "if (a <= b) {"])
        self.assertEqual(after("if (a == b) {"), ["if (a != b) {"])
        self.assertEqual(after("while (a && b) {"), ["while (!(a && b)) {", "while (a || b) {"])
        self.assertEqual(after("x(a + b);"), [";", "x(a - b);"])

    def test_brackets_of_templates_and_references_are_left_alone(self):
        self.assertEqual(changes_of("QMap<int, QString> m_map;\nvoid f(List &&list, const T &t);\n"), [])

    def test_comments_and_directives_are_left_alone(self):
        self.assertEqual(changes_of('// a < 1\n/* true */\n#include "a.h"\n#if A == 1\n#endif\n'), [])

    def test_what_the_compiler_judges_is_left_alone(self):
        self.assertEqual(after('static_assert(sizeof(a) < 8, "text");'), [])

    def test_conditions_are_negated(self):
        self.assertEqual(after("if (!a) {"), ["if (a) {"])
        self.assertEqual(after("if (int i = f(); g(i)) {"), ["if (int i = f(); !(g(i))) {"])
        self.assertEqual(after("return a ? b : c;"), ["return !(a) ? b : c;", "return {};"])
        self.assertIn("for (; !(i < n); ++i) {", after("for (; i < n; ++i) {"))

    def test_constants_are_others(self):
        self.assertEqual(after("const auto a = 7;\ng(a);"), [";", "const auto a = (7 + 1);"])
        self.assertEqual(after("return true;"), ["return false;"])
        self.assertIn('g("");', after('g("text");'))
        self.assertIn("g('?');", after("g('/');"))

    def test_statements_are_removed_but_not_what_is_used_later(self):
        self.assertEqual(after("m_a = a;"), [";"])
        self.assertEqual(after("const Lock lock(&m);"), [";"])
        self.assertEqual(after("const Value value(m);\nuse(value);"), [";"])
        self.assertEqual(after("Value *value = m;\nuse(value);"), [";"])
        self.assertEqual(changes_of("struct A {\n    int a;\n    void f();\n};\n"), [])

    def test_results_are_the_types_own_first_values(self):
        self.assertEqual(after("return a;"), ["return {};"])
        self.assertEqual(after("return {};") + after("return;") + after("return nullptr;"), [])

    def test_arguments_are_swapped(self):
        self.assertEqual(after("return f(a, b);"), ["return f(b, a);", "return {};"])
        self.assertEqual(after("return f(a, a);"), ["return {};"])

    def test_a_change_is_told_by_its_lines(self):
        change = changes_of("bool f()\n{\n    return g(a\n             < b); // why\n}\n")[1]
        self.assertEqual((change.line, change.before, change.after), (4, "< b); // why", "<= b); // why"))


class Equivalents(unittest.TestCase):
    def test_are_read_with_comments_and_reasons(self):
        text = "# first\n\na.cpp\n- x < y\n+ x <= y\nThey are never equal.\n"
        self.assertEqual(equivalents(text), {("a.cpp", "x < y", "x <= y")})

    def test_have_a_reason(self):
        with self.assertRaises(SystemExit):
            equivalents("a.cpp\n- x\n+ y\n")


class Planting(unittest.TestCase):
    def test_what_does_not_end_is_ended(self):
        self.assertIsNone(run(["sh", "-c", "sleep 60 & wait"], 0.2))


class Project(unittest.TestCase):
    """One function of two results, and a test that does not look at the border between them."""

    FILES = {
        "CMakeLists.txt": """\
            cmake_minimum_required(VERSION 3.22)
            project(Tiny CXX)
            add_compile_options(-Wall -Wextra -Werror)
            set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
            enable_testing()
            add_subdirectory(tests/common)
            """,
        "tests/common/CMakeLists.txt": """\
            add_executable(BelowTest BelowTest.cpp ../../common/Below.cpp)
            add_test(NAME BelowTest COMMAND BelowTest)
            """,
        "tests/common/BelowTest.cpp": """\
            bool isBelow(int value, int limit);
            void hold(int value);
            extern int held;
            int main()
            {
                hold(7);
                return held == 7 && isBelow(1, 3) && !isBelow(3, 1) ? 0 : 1;
            }
            """,
        "common/Below.cpp": """\
            bool isBelow(int value, int limit)
            {
                if (value < limit) {
                    return true;
                }
                return false;
            }
            int held;
            void hold(int value)
            {
                held = value;
            }
            """,
        "tests/mutate/equivalent.txt": "",
    }

    def setUp(self):
        directory = tempfile.TemporaryDirectory(prefix="mutate-test-", dir="/var/tmp")
        self.addCleanup(directory.cleanup)
        self.tree = pathlib.Path(directory.name) / "tree"
        for name in ("tree", "layer/new", "layer/work"):
            (pathlib.Path(directory.name) / name).mkdir(parents=True)
        layer = in_layer(str(self.tree), f"{directory.name}/layer", ["true"])
        if subprocess.run(layer, stderr=subprocess.DEVNULL, check=False).returncode != 0:
            self.skipTest("this machine lets nobody mount a layer over a tree")
        for name, text in self.FILES.items():
            self.write(name, text)
        self.must("git", "init", "-q")
        self.must("git", "add", ".")
        self.must("cmake", "-G", "Ninja", "-S", ".", "-B", "build")
        self.build()

    def write(self, name, text):
        path = self.tree / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(textwrap.dedent(text))

    def must(self, *command):
        subprocess.run(command, cwd=self.tree, check=True, stdout=subprocess.DEVNULL)

    def build(self):
        self.must("cmake", "--build", "build")

    def mutate(self, *arguments):
        return subprocess.run(
            [HERE / "mutate.py", "build", *arguments],
            cwd=self.tree,
            stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT,
            text=True,
            check=False,
        )

    def test_names_the_change_that_no_test_sees_and_leaves_the_tree_as_it_was(self):
        found = self.mutate()
        self.assertEqual(found.returncode, 1, found.stdout)
        self.assertIn("1 changes that no test has seen:\ncommon/Below.cpp:3\n    - if (value < limit) {", found.stdout)
        self.assertRegex(found.stdout, r"together +4 +1 +80\.0 % +0\n")
        self.assertEqual((self.tree / "common/Below.cpp").read_text(), textwrap.dedent(self.FILES["common/Below.cpp"]))
        self.must("build/bin/BelowTest")

    def test_is_content_when_a_test_sees_it_or_nobody_can(self):
        self.write("tests/mutate/equivalent.txt", "common/Below.cpp\n- if (value < limit) {\n+ if (value <= limit) {\nSo.\n")
        found = self.mutate("common/Below.cpp")
        self.assertEqual(found.returncode, 0, found.stdout)
        self.assertIn("1 more are known to be equivalent", found.stdout)
        self.write("tests/mutate/equivalent.txt", "")
        self.write("tests/common/BelowTest.cpp", self.FILES["tests/common/BelowTest.cpp"].replace("&& ", "&& !isBelow(2, 2) && "))
        self.build()
        found = self.mutate()
        self.assertEqual(found.returncode, 0, found.stdout)

    def test_refuses_to_begin_when_a_test_fails(self):
        self.write("common/Below.cpp", self.FILES["common/Below.cpp"].replace("<", ">"))
        self.build()
        found = self.mutate()
        self.assertEqual(found.returncode, 1)
        self.assertIn("BelowTest fails before anything is changed", found.stdout)

    def test_names_an_equivalent_change_that_is_gone(self):
        self.write("tests/mutate/equivalent.txt", "common/Below.cpp\n- gone\n+ gone too\nSo.\n")
        found = self.mutate("--sample", "1")
        self.assertEqual(found.returncode, 1)
        self.assertIn("there is no such change in common/Below.cpp: gone -> gone too", found.stdout)


if __name__ == "__main__":
    unittest.main()
