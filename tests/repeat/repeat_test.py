# SPDX-License-Identifier: GPL-3.0-or-later
"""What tests/repeat/run tells of tests that are green, red, red at times, and left out."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

RUN = pathlib.Path(__file__).resolve().parent / "run"


class Repeat(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.build = pathlib.Path(scratch.name)

    def answer(self, tests, *words):
        """Status and lines of a run over tests, {name: command of the shell}."""
        lines = []
        for name, command in tests.items():
            lines.append(f'add_test({name} sh -c "{command}")')
            lines.append(f'set_tests_properties({name} PROPERTIES SKIP_RETURN_CODE 77)')
        (self.build / "CTestTestfile.cmake").write_text("\n".join(lines) + "\n")
        run = subprocess.run([sys.executable, RUN, "--build", self.build, "--busy", "1", *words],
                             capture_output=True, text=True, check=False)
        return run.returncode, run.stdout.splitlines(), run.stderr

    def test_green_runs(self):
        status, lines, _ = self.answer({"good": "true", "absent": "exit 77"}, "--runs", "3")
        self.assertEqual(status, 0)
        self.assertEqual(len(lines), 4)
        for number, line in enumerate(lines[:3], 1):
            self.assertRegex(line, rf"^run {number}, \d+ s: all green$")
        self.assertRegex(lines[3], r"^3 runs in 0 minutes beside 1 busy processes, 0 red tests$")

    def test_a_test_that_is_red_at_times(self):
        script = self.build / "second_time_red.sh"
        script.write_text("cd $(dirname $0) && echo x >> turns\necho what it said\n[ $(wc -l < turns) -ne 2 ]\n")
        status, lines, _ = self.answer({"good": "true", "at_times": f"sh {script}"}, "--runs", "3")
        self.assertEqual(status, 1)
        self.assertRegex(lines[0], r": all green$")
        self.assertRegex(lines[1], r": at_times \(Failed\)$")
        self.assertRegex(lines[2], r": all green$")
        self.assertRegex(lines[3], r"^3 runs .* 1 red tests$")
        self.assertEqual(lines[4], f"  at_times: red in 1 of 3 runs, see {self.build}/repeat/run_2.log")
        self.assertIn("what it said", (self.build / "repeat/run_2.log").read_text())
        self.assertFalse((self.build / "repeat/run_1.log").exists())

    def test_a_test_that_ends_by_a_signal_or_is_not_there_is_red(self):
        _, lines, _ = self.answer({"killed": "kill -9 \\$\\$"}, "--runs", "1")
        self.assertRegex(lines[0], r": killed \(Subprocess (killed|terminated), Exception\)$")
        (self.build / "CTestTestfile.cmake").write_text("add_test(none /no/such/program)\n")
        run = subprocess.run([sys.executable, RUN, "--build", self.build, "--runs", "1"], capture_output=True, text=True,
                             check=False)
        self.assertEqual(run.returncode, 1)
        self.assertRegex(run.stdout, r"run 1, \d+ s: none \(Not Run\)")

    def test_a_selection(self):
        status, lines, _ = self.answer({"good": "true", "bad": "false"}, "--runs", "1", "--", "-R", "good")
        self.assertEqual(status, 0)
        self.assertRegex(lines[0], r": all green$")

    def test_nothing_to_run(self):
        status, _, said = self.answer({"good": "true"}, "--runs", "1", "--", "-R", "nobody")
        self.assertEqual(status, 1)
        self.assertIn("no test ran", said)
        run = subprocess.run([sys.executable, RUN, "--build", self.build / "none"], capture_output=True, text=True,
                             check=False)
        self.assertEqual(run.returncode, 1)
        self.assertIn("no build with tests", run.stderr)

    def test_an_end_in_time(self):
        _, lines, _ = self.answer({"good": "sleep 1"}, "--runs", "50", "--minutes", "0.01")
        self.assertEqual(len(lines), 2)


if __name__ == "__main__":
    unittest.main()
