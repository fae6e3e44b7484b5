#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Every program and Python module that the scripts and tests call comes with the packages that ./run, ./test and ./package
install.

    called_programs_test.py [--all]     with --all also what only `./test --all` and `./test --coverage` call and install
"""
import os
import sys
import tempfile
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parent))
from called_programs import TREE, Packages, calls_of, faults, listed_packages  # noqa: E402
from shell_commands import commands_of  # noqa: E402

EVERYTHING = "--all" in sys.argv[1:]


def first_words(script):
    return [words[0].text for words in commands_of(script)[0]]


class Shell(unittest.TestCase):
    def test_commands_of_a_line(self):
        self.assertEqual(first_words("a=1 b=$(c | d 'x; y') e -f \"$(g \"h\")\" && i || ! j; k & l # m\n"),
                         ["c", "d", "g", "e", "i", "j", "k", "l"])

    def test_keywords_bring_commands(self):
        self.assertEqual(first_words("if a; then b; elif c; then d; else e; fi\nwhile f; do g; done\n"
                                     "for h in i j; do k; done\nfor ((l = 0; l < 3; l++)); do m; done\n"),
                         ["a", "b", "c", "d", "e", "fi", "f", "g", "done", "k", "done", "m", "done"])

    def test_branches_of_a_choice(self):
        self.assertEqual(first_words("case $a in\n  b | 'c)') d; e ;;\n  (f) g ;;\n  *) h\nesac\ni\n"), ["d", "e", "g", "h", "i"])

    def test_documents_conditions_and_arrays_hold_no_commands(self):
        self.assertEqual(first_words("a <<'END' > b\nc d\nEND\n[[ e == *f* && g > h ]] && i\nj=(k l $(m))\nn <<< 'o'\n"
                                     "((p > q)) && r\n"), ["a", "i", "m", "n", "r"])

    def test_functions_are_told_apart(self):
        commands, functions = commands_of("a() { b; }\nc() (\n  d\n)\na c\n")
        self.assertEqual(functions, {"a", "c"})
        self.assertEqual([words[0].text for words in commands], ["b", "}", "d", "a"])

    def test_substituted_processes(self):
        self.assertEqual(first_words("a < <(b) 2> >(c >&2) 3>&1\nexec {d}< <(e)\n"), ["b", "c", "a", "e", "exec"])


class Tree(unittest.TestCase):
    maxDiff = None

    def calls(self, **files):
        with tempfile.TemporaryDirectory() as folder:
            (Path(folder) / "tests").mkdir()
            for name, text in files.items():
                path = Path(folder) / "tests" / name.replace("_dot_", ".")
                path.write_text(text)
                path.chmod(0o755)
            return calls_of(Path(folder), False)

    def test_scripts(self):
        calls = self.calls(a_dot_sh="own() { \"$@\"; }\nown find x\nno-such-program | sed p\ntimeout 5 tail -f y\ncd /\n"
                                    "command -v may-be-there && may-be-there\nbash -c 'inner-program --x'\n")
        self.assertEqual(set(calls.programs), {"find", "no-such-program", "sed", "timeout", "tail", "bash", "inner-program"})

    def test_the_first_line_tells_the_language(self):
        calls = self.calls(shell="#!/usr/bin/env bash\njq .\n", plain="#!/bin/sh -e\nxmllint x\n",
                           snake="#!/usr/bin/env python3\nimport mpmath\n", rules="#!/usr/bin/make -f\na = $(or b)\nc = (\n")
        self.assertEqual((set(calls.programs), set(calls.modules)), ({"jq", "xmllint"}, {"mpmath"}))

    def test_python(self):
        calls = self.calls(a_dot_py="import os, mpmath\nfrom nosuch.part import x\nimport b\nsubprocess.run(['prog', '-x'])\n"
                                    "subprocess.run('one | two', shell=True)\n", b_dot_py="")
        self.assertEqual(set(calls.modules), {"mpmath", "nosuch"})
        self.assertEqual(set(calls.programs), {"prog", "one", "two"})

    def test_tests_and_build(self):
        calls = self.calls(a_dot_cpp='manager_.Start({"server", "-x"});\nOutputOf("asker " "--x | head");\n'
                                     'QProcess::execute("sed", {});\ntimer.start("zero");\n',
                           b_dot_cmake="execute_process(COMMAND packer -9)\nadd_custom_command(COMMAND some_target)\n")
        self.assertEqual(set(calls.programs), {"server", "asker", "head", "sed", "packer"})

    def test_what_is_in_no_listed_package_is_named(self):
        calls = self.calls(a_dot_sh="no-such-program\nls\n", b_dot_py="import nosuch\n")
        self.assertEqual(faults(calls, Packages(), ["no-such-package"]), [
            "no-such-package: is listed but not installed",
            "module nosuch, called by tests/b.py, comes with none of the packages listed: no package here has it",
            "program no-such-program, called by tests/a.sh, comes with none of the packages listed: no package here has it"])

    def test_what_is_installed_but_not_listed_is_named(self):
        calls = self.calls(a_dot_py="import mpmath\n", b_dot_sh="jq .\n")
        self.assertEqual(faults(calls, Packages(), ["python3"]), [
            "module mpmath, called by tests/a.py, comes with none of the packages listed: it is in the package python3-mpmath",
            "program jq, called by tests/b.sh, comes with none of the packages listed: it is in the package jq"])
        self.assertEqual(faults(calls, Packages(), ["python3-mpmath", "jq"]), [])

    def test_one_program_may_have_several_names(self):
        with tempfile.TemporaryDirectory() as folder:
            names = [os.path.join(folder, name) for name in ("first", "second")]
            for name in names:
                os.symlink("/usr/bin/jq", name)
            self.assertEqual(Packages.owners(names), {name: "jq" for name in names})

    def test_ours(self):
        calls = calls_of(TREE, EVERYTHING)
        self.assertLessEqual({"cmake", "identify", "xdotool", "Xvfb", "weston", "pdftotext", "localedef", "jq", "gzip"},
                             set(calls.programs))
        self.assertLessEqual({"mpmath", "jsonschema"}, set(calls.modules))
        self.assertEqual(faults(calls, Packages(), listed_packages(TREE, EVERYTHING)), [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
