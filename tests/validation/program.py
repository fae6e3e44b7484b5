"""The program under test, behind its pipe."""

import subprocess


class Program:
    def __init__(self, path):
        self._path = str(path)

    def ask(self, request, panels):
        """The figures of each panel as a list of doubles; None for one that is refused or ends in a run-time error."""
        lines = "".join([panel.line() + "\n" for panel in panels])
        answer = subprocess.run([self._path, request], input=lines, stdout=subprocess.PIPE, text=True, check=True)
        figures = [None if line[:1] in "re" else list(map(float, line.split()))
                   for line in answer.stdout.splitlines()]
        if len(figures) != len(panels):
            raise RuntimeError(f"{len(panels)} panels gave {len(figures)} lines of figures")
        return figures
