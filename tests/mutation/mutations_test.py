# SPDX-License-Identifier: GPL-3.0-or-later
"""The operators that are turned round in a text, the draw and the rooms."""
import sys
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parent))
from draw import KINDS, Draw, mutations_of  # noqa: E402
from mutations import Mutation, closing, code_only, line_of, lines_around, regions  # noqa: E402
from rooms import rooms_of  # noqa: E402

TREE = Path(__file__).resolve().parents[2]


def changed(text, kind, path="a.cpp"):
    """The texts that the changes of a kind make of a text."""
    return [mutation.applied_to(text) for mutation in mutations_of(path, text) if mutation.kind == kind]


class Regions(unittest.TestCase):
    def test_comments_literals_and_directives_are_no_code(self):
        text = '#include <a>\nint a = 1;  // b = 2\nconst char* c = "3 // 4";\nchar d = \'"\';\n/* 5\n6 */ int e = 7;\n'
        self.assertEqual(code_only(text, regions(text)),
                         "            \nint a = 1;          \nconst char* c =         ;\nchar d =    ;\n    \n     int e = 7;\n")

    def test_a_raw_literal_ends_at_its_own_mark(self):
        text = 'auto a = R"x(1 " )" 2)x" + 3;'
        self.assertEqual([region.kind for region in regions(text)], ["raw"])
        self.assertEqual(changed(text, "constant"), ['auto a = R"x(1 " )" 2)x" + 4;'])

    def test_a_digit_separator_opens_no_character(self):
        self.assertEqual(regions("int a = 1'000'000;"), [])

    def test_brackets(self):
        self.assertEqual(closing("f(a(b)c)d", 1), 7)
        self.assertIsNone(closing("f(a(b)c", 1))


class Changes(unittest.TestCase):
    def test_comparisons(self):
        self.assertEqual(changed("bool a = b < c;", "comparison"), ["bool a = b <= c;"])
        self.assertEqual(changed("bool a = b == c;", "comparison"), ["bool a = b != c;"])
        self.assertEqual(changed("std::vector<int> a(p->b, c << d);", "comparison"), [])

    def test_arithmetic(self):
        self.assertEqual(changed("a = b + c;", "arithmetic"), ["a = b - c;"])
        self.assertEqual(changed("a = b * c;", "arithmetic"), ["a = b / c;"])
        self.assertEqual(changed("a += b;", "arithmetic"), ["a -= b;"])
        self.assertEqual(changed("int* a = -b;", "arithmetic"), [])

    def test_constants(self):
        self.assertEqual(changed("a = 12;", "constant"), ["a = 13;"])
        self.assertEqual(changed("a = 0.8;", "constant"), ["a = 1.0;"])
        self.assertEqual(changed("a = 0.0;", "constant"), ["a = 1.0;"])
        self.assertEqual(changed("a = 2.0f;", "constant"), ["a = 2.5f;"])
        self.assertEqual(changed("a = 1e4;", "constant"), ["a = 12500.0;"])
        self.assertEqual(changed("a = 0x80;", "constant"), ["a = 0x81;"])
        self.assertEqual(changed("a = 1'000;", "constant"), ["a = 1001;"])
        self.assertEqual(changed("a = true;", "constant"), ["a = false;"])
        self.assertEqual(changed("int16_t a1 = b2.c3 + 0x1.8p-4;", "constant"), [])

    def test_conditions(self):
        self.assertEqual(changed("if (a(b)) c();", "condition"), ["if (!(a(b))) c();"])
        self.assertEqual(changed("if (const auto a = b()) c();", "condition"), [])
        self.assertEqual(changed("d = a && b;", "condition"), ["d = a || b;"])

    def test_dropped_statements(self):
        text = "void F() {\n    int a = 1;\n    a = 2;\n    Call(a);\n    ++a;\n    if (a > 2) return;\n    return a;\n}\n"
        self.assertEqual([lines_around(text, mutation) for mutation in mutations_of("a.cpp", text) if mutation.kind == "dropped"],
                         [("a = 2;", ""), ("Call(a);", ""), ("++a;", ""), ("if (a > 2) return;", "")])

    def test_a_dropped_branch_leaves_an_empty_one(self):
        text = "    if (a)\n        b();\n    c();\n"
        self.assertEqual(changed(text, "dropped"), ["    if (a)\n        ;\n    c();\n", "    if (a)\n        b();\n    \n"])

    def test_a_branch_before_an_else_and_a_later_line_of_a_statement_stay(self):
        self.assertEqual(changed("{\n    if (a) b();\n    else c();\n}\n", "dropped"), [])
        self.assertEqual(changed("    a = b +\n        c(d);\n", "dropped"), [])

    def test_the_order_of_lines_of_which_one_needs_the_other(self):
        self.assertEqual(changed("{\n    a = 1;\n    b = a;\n}\n", "order"), ["{\n    b = a;\n    a = 1;\n}\n"])
        self.assertEqual(changed("{\n    A();\n    B();\n}\n", "order"), ["{\n    B();\n    A();\n}\n"])
        self.assertEqual(changed("{\n    a = 1;\n    b = 2;\n}\n", "order"), [])
        self.assertEqual(changed("{\n    A(1);\n    A(2);\n}\n", "order"), [])

    def test_the_order_of_two_arguments(self):
        self.assertEqual(changed("    return F(a, b.c);\n", "order"), ["    return F(b.c, a);\n"])
        self.assertEqual(changed("    return F(a, a);\n", "order"), [])
        self.assertEqual(changed("    return std::max(a, b);\n", "order"), [])

    def test_texts(self):
        self.assertEqual(changed('a = "Web (ft)";', "text"), ['a = "Web (fq)";'])
        self.assertEqual(changed('a = "x\\n";', "text"), ['a = "q\\n";'])
        self.assertEqual(changed('#include "a.h"\nb = "1";\n', "text"), [])

    def test_a_form_changes_in_its_texts(self):
        text = '<string>Edit...</string>\n<string>+</string>\n<enum>Qt::A</enum>'
        self.assertEqual(changed(text, "text", "a.ui"), ['<string>Ediq...</string>\n<string>+</string>\n<enum>Qt::A</enum>'])

    def test_the_place_of_a_change(self):
        text = "a = 1;\n    b =\n        2;\n"
        mutation = Mutation("constant", text.index("2"), text.index("2") + 1, "3")
        self.assertEqual(line_of(text, mutation), 3)
        self.assertEqual(lines_around(text, mutation), ("2;", "3;"))


class Drawing(unittest.TestCase):
    TEXTS = {"b.cpp": "a = 1 + 2;\n", "a.cpp": '    if (a < 3) return;\n    b("c");\n    c(d, e);\n'}

    def everything(self, seed, faults=tuple(KINDS)):
        draw = Draw(self.TEXTS, seed, [kind for name in faults for kind in KINDS[name]])
        pairs = []
        while (pair := draw.next()) is not None:
            pairs.append(pair)
        return pairs

    def test_the_same_seed_gives_the_same_changes(self):
        self.assertEqual(self.everything(5), self.everything(5))
        self.assertNotEqual(self.everything(5), self.everything(6))

    def test_every_change_is_drawn_once(self):
        pairs = self.everything(1)
        self.assertEqual(len(pairs), len(set(pairs)))
        self.assertEqual(len(pairs), sum(len(mutations_of(path, text)) for path, text in self.TEXTS.items()))

    def test_operators_and_slips_are_drawn_apart(self):
        operators, slips = ({mutation.kind for _, mutation in self.everything(1, [name])} for name in ("operators", "slips"))
        self.assertEqual(operators, {"constant", "comparison", "condition", "arithmetic", "dropped", "order", "text"})
        self.assertEqual(slips, {"early return", "arguments"})


class Rooms(unittest.TestCase):
    def test_every_room_has_code_and_tests_of_its_own(self):
        rooms = {room.name: room for room in rooms_of(TREE)}
        self.assertEqual(rooms["core/settings"].tests, "^(unit_settings)$")
        self.assertIn("gui_frmPicture_test", rooms["desktop/plan"].tests)
        self.assertIn("desktop/main/frmMain.ui", rooms["desktop/main"].sources(TREE))
        self.assertEqual(rooms["studies/pages"].tests, "^studies_window$")
        self.assertIn("resources/help/limits.htm", rooms["resources/help"].sources(TREE))
        self.assertIn("packaging/tarvokol.desktop", rooms["packaging"].sources(TREE))
        self.assertTrue({"run", "test", "package", "tests/steps.sh"} <= set(rooms["."].sources(TREE)))
        for room in rooms.values():
            self.assertTrue(room.sources(TREE), room.name)

    def test_every_kind_of_slip_is_found_somewhere(self):
        chosen = ("core/files", "core/project", "desktop/help", "packaging", "resources/help")
        found = {mutation.kind for room in rooms_of(TREE) if room.name in chosen for path in room.sources(TREE)
                 for mutation in mutations_of(path, (TREE / path).read_text(encoding="utf-8"))}
        self.assertEqual(found, set(KINDS["operators"]) | set(KINDS["slips"]))


if __name__ == "__main__":
    unittest.main()
