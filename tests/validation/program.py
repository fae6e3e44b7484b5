# SPDX-License-Identifier: GPL-3.0-or-later
"""The program under test, behind its pipe."""

import struct
import subprocess
from array import array

_PANEL = struct.Struct("15d")


class Program:
    def __init__(self, path):
        self._path = str(path)

    def ask(self, request, panels):
        """The figures of each panel as a list of doubles; empty for one that is refused or ends in a run-time error."""
        rows = b"".join([_PANEL.pack(*panel) for panel in panels])
        answer = array("d", subprocess.run([self._path, request], input=rows, stdout=subprocess.PIPE, check=True).stdout)
        figures, position = [], 0
        while position < len(answer):
            end = position + 1 + max(int(answer[position]), 0)
            figures.append(answer[position + 1:end].tolist())
            position = end
        if len(figures) != len(panels):
            raise RuntimeError(f"{len(panels)} panels gave figures of {len(figures)}")
        return figures
