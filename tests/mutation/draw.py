# SPDX-License-Identifier: GPL-3.0-or-later
"""Which changes a text of each sort has, and their draw."""
import random
from pathlib import PurePath

import documents
import faults
import mutations

# Operators that are turned round, by which no branch goes unlooked at; and slips that people make.
KINDS = {"operators": mutations.KINDS, "slips": faults.KINDS + documents.KINDS}


def mutations_of(path, text):
    """All changes of a text, by what its name and its first line say that it is."""
    ending = PurePath(path).suffix
    if ending == ".ui":
        return mutations.form_mutations(text) + list(documents.form_faults(text))
    if ending == ".htm":
        return list(documents.topic_faults(text))
    if ending == ".qhp":
        return list(documents.contents_faults(text))
    if ending in (".desktop", ".xml"):
        return list(documents.entry_faults(text))
    if ending == ".sh" or text.startswith("#!/usr/bin/env bash"):
        return list(documents.script_faults(text))
    return mutations.source_mutations(text) + faults.source_faults(text)


class Draw:
    """Draws changes of some kinds from texts by path: a kind first, so that none crowds out the others, then one of it."""

    def __init__(self, texts, seed, kinds):
        self._random = random.Random(seed)
        self._left = {kind: [] for kind in kinds}
        for path in sorted(texts):
            for mutation in mutations_of(path, texts[path]):
                if mutation.kind in self._left:
                    self._left[mutation.kind].append((path, mutation))

    def next(self):
        """The next pair of path and change; None when all are drawn."""
        kinds = [kind for kind, left in self._left.items() if left]
        if not kinds:
            return None
        left = self._left[self._random.choice(kinds)]
        return left.pop(self._random.randrange(len(left)))
