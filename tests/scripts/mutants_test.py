"""Tests of mutants.py in scripts/lib."""

import pathlib
import tempfile
import unittest

import mutants


class MutantsTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.file = pathlib.Path(folder.name) / "Plant.cpp"

    def changes(self, text):
        self.file.write_text(text, encoding="utf-8")
        return mutants.find_changes(self.file, ["-std=c++20"])

    def changed_texts(self, text, operator):
        """Returns the text after each change of an operator."""
        changes = [change for change in self.changes(text) if change.operator == operator]
        return [change.apply(text.encode()).decode() for change in changes]

    def test_applies_each_operator(self):
        cases = [
            ("shift a comparison", "bool f(int a) { return a < 2; }",
             ["bool f(int a) { return a <= 2; }", "bool f(int a) { return a >= 2; }"]),
            ("shift a comparison", "bool f(bool a, bool b) { return a && b; }",
             ["bool f(bool a, bool b) { return a || b; }"]),
            ("shift a comparison", "struct A { bool operator==(A) const; }; bool f(A a) { return a == a; }",
             ["struct A { bool operator==(A) const; }; bool f(A a) { return a != a; }"]),
            ("negate a condition", "void f(bool a) { if (a) f(a); }",
             ["void f(bool a) { if (!(a)) f(a); }"]),
            ("drop a statement", "void f() { f(); }", ["void f() { ; }"]),
            ("drop a statement", "int f(int a) { ++a; return a; }", ["int f(int a) { ; return a; }"]),
            ("drop a lock", "namespace std { struct scoped_lock {}; } void f() { std::scoped_lock lock; }",
             ["namespace std { struct scoped_lock {}; } void f() { ; }"]),
            ("return early", "void f() { f(); }", ["void f() { return; f(); }"]),
            ("return early", "int f() { f(); return 1; }", ["int f() { return {}; f(); return 1; }"]),
            ("reorder two calls", "void g(); void f() { f(); g(); }", ["void g(); void f() { g(); f(); }"]),
            ("swap two arguments", "void f(int a, const int& b, char c) { f(a, b, c); }",
             ["void f(int a, const int& b, char c) { f(b, a, c); }"]),
            ("drop a catch", "void f() { try { f(); } catch (...) { f(); } }",
             ["void f() { try { f(); } catch (...) { throw; } }"]),
            ("drop a noexcept", "void f() noexcept {}", ["void f()  {}"]),
            ("change a constant", "int f() { return 8; }", ["int f() { return (8 + 1); }"]),
            ("change a constant", "bool f() { return true; }", ["bool f() { return !true; }"]),
            ("change a word", 'auto f() { return "pear"; }', ['auto f() { return "xpear"; }']),
            ("change a word", 'auto f() { return u"pear"; }', ['auto f() { return u"xpear"; }']),
            ("change a word", 'auto f() { return R"(pear)"; }', ['auto f() { return R"(xpear)"; }']),
            ("change a word", "auto f() { return '/'; }", ["auto f() { return 'x'; }"]),
            ("change an enumerator", "enum class E { Note, Error }; E f() { return E::Error; }",
             ["enum class E { Note, Error }; E f() { return E::Note; }"]),
        ]
        for operator, text, expected in cases:
            with self.subTest(operator=operator, text=text):
                self.assertEqual(self.changed_texts(text, operator), expected)

    def test_finds_no_change_without_an_effect(self):
        self.assertEqual(self.changes("int f(int a, int b) { return a; } void g(int a) {}"), [])
        self.assertEqual(self.changed_texts("int f(int a) { switch (a) { case 1: return 2; default: return 3; } }",
                                            "return early"),
                         ["int f(int a) { return {}; switch (a) { case 1: return 2; default: return 3; } }"])
        self.assertEqual(self.changed_texts("void f(int a, char b) { f(a, b); }", "swap two arguments"), [])
        self.assertEqual(self.changed_texts("void f(int a) { f(a); }", "reorder two calls"), [])

    def test_keeps_the_numbers_of_the_other_lines(self):
        text = "void f(int) {\n    f(\n        1);\n}\nint here = 0;\n"
        for changed in self.changed_texts(text, "drop a statement"):
            self.assertEqual(changed.splitlines().index("int here = 0;"), 4)

    def test_counts_bytes_and_reports_the_position(self):
        text = '// ä\nauto f() {\n    return "größe";\n}\n'
        change, = self.changes(text)
        self.assertEqual((change.line, change.column), (3, 12))
        self.assertEqual(change.describe(), 'change a word: "größe" -> "xgröße"')

    def test_draws_one_change_of_each_line_and_the_same_for_the_same_seed(self):
        text = "bool f(int a) {\n    f(1); f(2);\n    return a < 2;\n}\n"
        changes = {"a": self.changes(text), "b": self.changes("int b =\n    1;\n")}
        self.assertGreater(len(changes["a"]), 6)
        sources = {"a": text.encode(), "b": b"int b =\n    1;\n"}
        drawn = list(mutants.draw_changes(sources, 1, changes.get))
        self.assertEqual(sorted((name, change.line) for name, change in drawn), [("a", 2), ("a", 3), ("b", 2)])
        self.assertEqual(drawn, list(mutants.draw_changes(sources, 1, changes.get)))

    def test_draws_the_same_from_a_source_whatever_the_others_are(self):
        text = "int a[] = {\n" + "    1, 2,\n" * 50 + "};\n"
        changes = {"a": self.changes(text), "b": self.changes("int b = 1;\n" * 50)}
        alone = list(mutants.draw_changes({"a": text.encode()}, 1, changes.get))
        self.assertNotEqual([change.line for _, change in alone], list(range(2, 52)))
        self.assertEqual({change.before for _, change in alone}, {b"1", b"2"})
        together = list(mutants.draw_changes({"b": b"int b = 1;\n" * 50, "a": text.encode()}, 1, changes.get))
        self.assertNotEqual([name for name, _ in together], ["b"] * 50 + ["a"] * 50)
        self.assertEqual([place for place in together if place[0] == "a"], alone)


if __name__ == "__main__":
    unittest.main()
