# SPDX-License-Identifier: GPL-3.0-or-later
"""The commands that a shell script calls, found in its text."""
import re

ASSIGNMENT = re.compile(r"\w+(\[[^]]*\])?\+?=")
# Words after which the next one is a command again.
LEADING = {"if", "then", "elif", "else", "while", "until", "do", "!", "{", "time", "coproc"}


class Word:
    """One word of a command; `literal` is false where something is put in when the script runs."""

    def __init__(self, text="", literal=True):
        self.text = text
        self.literal = literal

    def __repr__(self):
        return self.text if self.literal else f"<{self.text}>"


class Parser:
    """Reads a script and collects `commands`, lists of words, those of substitutions and subshells included."""

    def __init__(self, text):
        self.text = text
        self.at = 0
        self.commands = []
        self.functions = set()
        self.here_documents = []

    def peek(self, string):
        return self.text.startswith(string, self.at)

    def done(self):
        return self.at >= len(self.text)

    def skip_blanks(self):
        while not self.done():
            if self.text[self.at] in " \t":
                self.at += 1
            elif self.peek("\\\n"):
                self.at += 2
            elif self.text[self.at] == "#":
                while not self.done() and self.text[self.at] != "\n":
                    self.at += 1
            else:
                return

    def newline(self):
        """Past the end of a line and the documents that begin after it."""
        self.at += 1
        for end in self.here_documents:
            while not self.done():
                line, _, _ = self.text[self.at:].partition("\n")
                self.at += len(line) + 1
                if line.strip() == end:
                    break
        self.here_documents = []

    def skip_lines(self):
        self.skip_blanks()
        while self.peek("\n"):
            self.newline()
            self.skip_blanks()

    def parse(self, closer=""):
        """Commands up to the closer: ")", ";;" (or "esac"), or the end."""
        words = []
        while True:
            self.skip_blanks()
            if self.done():
                break
            if closer == ")" and self.peek(")"):
                self.at += 1
                break
            if closer == ";;" and self.peek(";;"):
                break
            if closer == ";;" and not words and re.match(r"esac\b", self.text[self.at:]):
                break
            words = self.step(words)
        self.end_command(words)

    def step(self, words):
        """Reads one thing more; gives the words of the command that is now being read."""
        if self.peek("\n"):
            self.end_command(words)
            self.newline()
            return []
        if not words and self.peek("(("):
            self.at = self.text.index("))", self.at) + 2
            return words
        if re.match(r"[;&|(]", self.text[self.at]) and not self.peek("&>"):
            return self.separator(words)
        if re.match(r"\d*[<>]|&>", self.text[self.at:]):
            self.redirection(words)
            return words
        word = self.word()
        if not words and word.literal:
            if word.text in LEADING:
                return []
            if word.text == "case":
                self.case()
                return []
            if word.text == "[[":
                self.condition()
                return []
            if word.text in ("for", "select"):
                self.skip_blanks()
                self.at = self.text.index("))", self.at) + 2 if self.peek("((") else self.at
                return [Word("for")]
        return [*words, word]

    def separator(self, words):
        if self.peek("("):
            self.at += 1
            self.skip_blanks()
            if words and words[-1].text.endswith("="):
                words.append(Word("()"))
                self.array()
                return words
            if len(words) == 1 and self.peek(")"):
                self.at += 1
                self.functions.add(words[0].text)
                return []
            self.parse(")")
            return []
        self.end_command(words)
        self.at += 1
        return []

    def array(self):
        """The elements of an array, among which a command may be substituted."""
        while True:
            self.skip_lines()
            if self.done() or self.peek(")"):
                self.at += 1
                return
            self.word()

    def redirection(self, words):
        match = re.match(r"\d*(<<<|<<-?|<\(|>\(|&>>?|[<>]&|<>|>>|>\||[<>])", self.text[self.at:])
        self.at += match.end()
        sign = match[1]
        if sign in ("<(", ">("):
            self.parse(")")
            words.append(Word("", False))
            return
        self.skip_blanks()
        if self.peek("<(") or self.peek(">("):
            self.at += 2
            self.parse(")")
            return
        target = self.word()
        if sign.startswith("<<") and sign != "<<<":
            self.here_documents.append(target.text)

    def condition(self):
        """Past "]]"; what is substituted in it counts."""
        while not self.done() and not re.match(r"\s\]\]", self.text[self.at:]):
            if self.text[self.at] in "\"'$\\`":
                self.piece(Word())
            else:
                self.at += 1
        self.at += 3

    def case(self):
        self.skip_blanks()
        self.word()
        self.skip_lines()
        self.word()  # in
        while True:
            self.skip_lines()
            if self.done() or re.match(r"esac\b", self.text[self.at:]):
                self.at += 4
                return
            self.pattern()
            self.parse(";;")
            if self.peek(";;"):
                self.at += 2

    def pattern(self):
        while not self.done() and not self.peek(")"):
            if self.text[self.at] in "\"'$\\`":
                self.piece(Word())
            else:
                self.at += 1
        self.at += 1

    def word(self):
        word = Word()
        while not self.done() and not re.match(r"[\s;&|()<>]", self.text[self.at]):
            self.piece(word)
        return word

    def piece(self, word):
        """One character, quoted text or substitution of a word."""
        sign = self.text[self.at]
        if sign == "\\":
            word.text += self.text[self.at + 1:self.at + 2]
            self.at += 2
        elif sign == "'":
            end = self.text.index("'", self.at + 1)
            word.text += self.text[self.at + 1:end]
            self.at = end + 1
        elif sign == '"':
            self.at += 1
            while not self.done() and not self.peek('"'):
                if self.text[self.at] in "$`\\":
                    self.piece(word)
                else:
                    word.text += self.text[self.at]
                    self.at += 1
            self.at += 1
        elif sign == "$":
            self.substitution(word)
        elif sign == "`":
            end = self.text.index("`", self.at + 1)
            self.inner(self.text[self.at + 1:end])
            self.at = end + 1
            word.literal = False
        else:
            word.text += sign
            self.at += 1

    def substitution(self, word):
        if self.peek("$'"):
            self.at += 2
            while not self.peek("'"):
                self.at += 2 if self.peek("\\") else 1
            self.at += 1
            return
        word.literal = False
        if self.peek("$(("):
            depth, self.at = 2, self.at + 3
            while depth:
                depth += {"(": 1, ")": -1}.get(self.text[self.at], 0)
                self.at += 1
        elif self.peek("$("):
            self.at += 2
            kept, self.here_documents = self.here_documents, []
            self.parse(")")
            self.here_documents = kept
        elif self.peek("${"):
            self.at += 2
            while not self.peek("}"):
                if self.text[self.at] in "\"'$\\`":
                    self.piece(Word())
                else:
                    self.at += 1
            self.at += 1
        else:
            self.at += 1
            match = re.match(r"\w+|[@*#?$!-]", self.text[self.at:])
            self.at += match.end() if match else 0

    def inner(self, text):
        parser = Parser(text)
        parser.parse()
        self.commands += parser.commands
        self.functions |= parser.functions

    def end_command(self, words):
        while words and ASSIGNMENT.match(words[0].text):
            words = words[2:] if len(words) > 1 and words[1].text == "()" else words[1:]
        if words and words[0].text != "for":
            self.commands.append(words)


def commands_of(text):
    """The commands of a script, each a list of words, and the functions that it defines."""
    parser = Parser(text)
    parser.parse()
    return parser.commands, parser.functions
