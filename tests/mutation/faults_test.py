# SPDX-License-Identifier: GPL-3.0-or-later
"""The slips that are found in sources, forms, topics, desktop entries and scripts."""
import sys
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parent))
from draw import mutations_of  # noqa: E402
from mutations import lines_around  # noqa: E402


def changed(text, kind, path="a.cpp"):
    """The texts that the changes of a kind make of a text."""
    return [mutation.applied_to(text) for mutation in mutations_of(path, text) if mutation.kind == kind]


def lines(text, kind):
    """The lines that the changes of a kind take away or change."""
    return [lines_around(text, mutation) for mutation in mutations_of("a.cpp", text) if mutation.kind == kind]


class Forgotten(unittest.TestCase):
    def test_resets(self):
        text = ("void F() {\n    names_.clear();\n    Project = {};\n    count = 0;\n    count = 1;\n    ResetProgram();\n"
                "    title = \"a\";\n    held_ = FileLock();\n}\n")
        self.assertEqual([before for before, _ in lines(text, "reset")],
                         ["names_.clear();", "Project = {};", "count = 0;", "ResetProgram();", "held_ = FileLock();"])

    def test_a_declaration_is_no_reset(self):
        self.assertEqual(lines("struct A {\n    virtual void Clear() = 0;\n    void Reset();\n    static void Forget(int a);\n};\n", "reset"), [])

    def test_what_brings_bytes_to_the_disk(self):
        text = "void F() {\n    if (::fsync(file) != 0) Raise(errno);\n    out.flush();\n    SyncFolder(folder);\n    file.Close();\n    Write();\n}\n"
        self.assertEqual([before for before, _ in lines(text, "flush")],
                         ["if (::fsync(file) != 0) Raise(errno);", "out.flush();", "SyncFolder(folder);", "file.Close();"])

    def test_locks(self):
        text = "void F() {\n    const std::scoped_lock lock(mutex_);\n    std::unique_lock turn(a);\n    ++count;\n    turn.lock();\n}\n"
        self.assertEqual([before for before, _ in lines(text, "lock")],
                         ["const std::scoped_lock lock(mutex_);", "std::unique_lock turn(a);", "turn.lock();"])

    def test_early_returns_of_one_line_and_of_two(self):
        text = ("int F(int a) {\n    if (a < 0) return -1;\n    if (a == 0)\n        throw Fault(\"zero\");\n    for (;;) {\n"
                "        if (a > 9) break;\n    }\n    if (a > 3) a = 3;\n    return a;\n}\n")
        self.assertEqual(len(changed(text, "early return")), 3)
        self.assertEqual(lines(text, "early return")[0], ("if (a < 0) return -1;", ""))
        self.assertNotIn("throw", changed(text, "early return")[1])

    def test_the_first_of_two_branches_stays(self):
        self.assertEqual(changed("{\n    if (a) return b;\n    else c();\n}\n", "early return"), [])

    def test_connections_of_several_lines(self):
        text = ("void F() {\n    connect(button, &QPushButton::clicked, this, [this] {\n        A();\n        B();\n    });\n"
                "    QObject::connect(a, &A::b, c, &C::d);\n    A();\n}\n")
        self.assertEqual(changed(text, "connect"),
                         ["void F() {\n    \n    QObject::connect(a, &A::b, c, &C::d);\n    A();\n}\n",
                          "void F() {\n    connect(button, &QPushButton::clicked, this, [this] {\n        A();\n        B();\n    });\n"
                          "    \n    A();\n}\n"])

    def test_escapes(self):
        self.assertEqual(changed('    a = "<b>" + ToQt(b).toHtmlEscaped();\n', "escape"), ['    a = "<b>" + ToQt(b);\n'])
        self.assertEqual(changed('    a = "x " + QuotedForShell(Path("b c"));\n', "escape"), ['    a = "x " + Path("b c");\n'])
        self.assertEqual(changed("    return Escaped(a);\n", "escape"), ["    return a;\n"])
        self.assertEqual(changed("std::string Escaped(std::string_view a) {\n", "escape"), [])


class Neighbours(unittest.TestCase):
    def test_two_arguments_of_one_look(self):
        self.assertEqual(changed("    F(a, b.c, 2, 3.5, G(d));\n", "arguments"),
                         ["    F(b.c, a, 2, 3.5, G(d));\n", "    F(a, b.c, 3.5, 2, G(d));\n"])
        self.assertEqual(changed("    std::min(a, b);\n    F(a, a);\n    connect(a, b);\n", "arguments"), [])
        self.assertEqual(changed("double F(double a, double b);\n", "arguments"), [])

    def test_the_neighbours_field(self):
        text = "    p.SFWeb = t.SFWeb;\n    p.SFBarrier = t.SFBarrier;\n"
        self.assertEqual(changed(text, "neighbour"), ["    p.SFWeb = t.SFBarrier;\n    p.SFBarrier = t.SFBarrier;\n",
                                                      "    p.SFWeb = t.SFWeb;\n    p.SFBarrier = t.SFWeb;\n"])

    def test_a_neighbour_that_the_file_does_not_name_is_none(self):
        self.assertEqual(changed("    a = t.SFWeb;\n", "neighbour"), [])

    def test_the_neighbours_unit(self):
        self.assertIn("    a = Feet(b);\n    c = Feet(d);\n", changed("    a = Feet(b);\n    c = Inches(d);\n", "neighbour"))

    def test_shifted_bounds(self):
        self.assertEqual(changed("    for (int i = 0; i < n; ++i) F();\n", "shift"), ["    for (int i = 1; i < n; ++i) F();\n"])
        self.assertEqual(changed("    a = text.substr(at + 1);\n", "shift"), ["    a = text.substr(at);\n"])
        self.assertEqual(changed("    a = b + 1.5;\n    c = d + 12;\n", "shift"), [])
        self.assertEqual(changed("    if (a < b.size()) F();\n", "shift"), ["    if (a < b.size() - 1) F();\n"])
        self.assertEqual(changed("    F(a.begin(), a.end());\n", "shift"), ["    F(a.begin() + 1, a.end());\n"])


class Documents(unittest.TestCase):
    def test_numbers_flags_and_buddies_of_a_form(self):
        text = ('<widget><property name="buddy"><cstring>Text1</cstring></property><width>40</width><double>0.50</double>'
                "<bool>true</bool><string>12</string></widget>")
        self.assertEqual(changed(text, "form", "a.ui"),
                         [text.replace("40", "81"), text.replace("0.50", "0.51"), text.replace("true", "false"),
                          text.replace('<property name="buddy"><cstring>Text1</cstring></property>', "")])

    def test_numbers_of_a_topic_that_a_reader_sees(self):
        text = '<title>9</title><body class="a1"><h1>Two</h1><p>From 0.64 to 1,000 psi; W<sub>2</sub> &#8722; page2</p></body>'
        self.assertEqual(changed(text, "document", "a.htm"),
                         [text.replace("0.64", "0.65"), text.replace("1,000", "1001"), text.replace(">2<", ">3<")])

    def test_a_link_leads_to_its_neighbours_topic(self):
        text = '<body><a href="one.htm">a</a><a href="two.htm">b</a></body>'
        self.assertEqual(changed(text, "document", "a.htm"), [text.replace("one.htm", "two.htm")])
        text = '<keyword name="a" ref="one.htm"/>\n<keyword name="b" ref="two.htm"/>'
        self.assertEqual(changed(text, "document", "a.qhp"), [text.replace("one.htm", "two.htm")])

    def test_desktop_entries_lose_letters_and_lines(self):
        text = "[Desktop Entry]\nExec=tarvokol %f\nMimeType=application/x;\n"
        self.assertEqual(changed(text, "entry", "a.desktop"),
                         [text.replace("%f", "%q"), text.replace("Exec=tarvokol %f\n", ""), text.replace("/x;", "/q;"),
                          text.replace("MimeType=application/x;\n", "")])

    def test_values_of_a_list_of_types(self):
        text = '<?xml version="1.0"?>\n<match type="string" offset="0" value="TARVO_1"/>'
        self.assertEqual(changed(text, "entry", "a.xml"), [text.replace('"string"', '"strinq"'), text.replace('"0"', '"q"'),
                                                           text.replace("TARVO_1", "TARVO_q")])

    def test_scripts_forget_to_pass_failures_on(self):
        text = '#!/usr/bin/env bash\nset -euo pipefail\n# a || exit 1\n[ -n "$a" ] || exit 2\necho b >&2\ntrap c EXIT\n'
        self.assertEqual(changed(text, "script", "run"),
                         [text.replace('] || exit 2', "]"), text.replace("-n", "-z"), text.replace('] || ', "] && "),
                          text.replace("exit 2", "exit 1"), text.replace(" >&2", ""), text.replace("set -euo pipefail", ":"),
                          text.replace("trap c EXIT", ":")])


if __name__ == "__main__":
    unittest.main()
