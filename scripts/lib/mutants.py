"""Finds the places in a C++ source where a small change alters what the program does, and draws some of them."""

import collections
import functools
import hashlib
import random
import re

from clang.cindex import TranslationUnit, TypeKind

COMPARISONS = {"==": ["!="], "!=": ["=="], "&&": ["||"], "||": ["&&"],
               "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"]}
FUNCTIONS = {"FUNCTION_DECL", "CXX_METHOD", "FUNCTION_TEMPLATE", "CONSTRUCTOR", "DESTRUCTOR"}
# A function needs its declarations and its result; the others have no effect of their own.
KEPT_STATEMENTS = {"DECL_STMT", "RETURN_STMT", "COMPOUND_STMT", "NULL_STMT", "CASE_STMT", "DEFAULT_STMT"}
# The operator of each, and the pattern that it replaces.
LITERALS = {"INTEGER_LITERAL": ("change a constant", r"^\d\S*", r"(\g<0> + 1)"),
            "CXX_BOOL_LITERAL_EXPR": ("change a constant", r"^", "!"),
            "STRING_LITERAL": ("change a word", r'R"[^(]*\(|"', r"\g<0>x"),
            "CHARACTER_LITERAL": ("change a word", r"'.*'", "'x'")}
# Tokens that the syntax tree does not show well.
PATTERNS = {"drop a lock": rb"\b(const )?std::\w*lock(_guard)?\b[^;]*", "drop a noexcept": rb"\bnoexcept\b(?! ?\()"}


class Change(collections.namedtuple("Change", "line column operator begin before after")):
    """One change: the bytes of the source at an offset, and what replaces them."""

    def apply(self, source):
        """Returns the changed source. Its other lines keep their numbers, which objects may contain."""
        lost_lines = b"\n" * (self.before.count(b"\n") - self.after.count(b"\n"))
        return source[:self.begin] + self.after + lost_lines + source[self.begin + len(self.before):]

    def describe(self):
        texts = [" ".join(text.decode().split()) for text in (self.before, self.after)]
        return f"{self.operator}: " + " -> ".join(text if len(text) < 60 else text[:57] + "..." for text in texts)


def bounds(cursor):
    return cursor.extent.start.offset, cursor.extent.end.offset


class Finder:
    """Collects the changes of one source on a walk through its syntax tree."""

    def __init__(self, source):
        self.source, self.changes = source, set()

    def text(self, begin, end):
        return self.source[begin:end].decode()

    def add(self, operator, begin, end, text):
        line, column = self.source.count(b"\n", 0, begin) + 1, begin - self.source.rfind(b"\n", 0, begin)
        if text != self.text(begin, end):
            self.changes.add(Change(line, column, operator, begin, self.source[begin:end], text.encode()))

    def visit(self, cursor, function=None):
        kind, children, (begin, end) = cursor.kind.name, list(cursor.get_children()), bounds(cursor)
        if kind == "COMPOUND_STMT":
            self.change_statements(children, function)
        elif kind == "CXX_CATCH_STMT":
            self.add("drop a catch", *bounds(children[-1]), "{ throw; }")
        elif kind in ("IF_STMT", "WHILE_STMT", "CONDITIONAL_OPERATOR") and children[0].kind.is_expression():
            self.add("negate a condition", *bounds(children[0]), f"!({self.text(*bounds(children[0]))})")
        elif kind in ("BINARY_OPERATOR", "CALL_EXPR"):
            self.change_neighbours(list(cursor.get_arguments()) or children)
        elif kind in LITERALS:
            operator, pattern, changed = LITERALS[kind]
            self.add(operator, begin, end, re.sub(pattern, changed, self.text(begin, end), count=1))
        elif kind == "DECL_REF_EXPR" and cursor.referenced and cursor.referenced.kind.name == "ENUM_CONSTANT_DECL":
            names = [constant.spelling for constant in cursor.referenced.semantic_parent.get_children()]
            other = names[(names.index(cursor.spelling) + 1) % len(names)]
            self.add("change an enumerator", begin, end, re.sub(r"\w+$", other, self.text(begin, end)))
        # The type that a lambda returns is not known here.
        function = cursor if kind in FUNCTIONS else None if kind == "LAMBDA_EXPR" else function
        for child in children:
            self.visit(child, function)

    def change_statements(self, statements, function):
        for statement in statements:
            begin, end = bounds(statement)
            if statement.kind.name not in KEPT_STATEMENTS:
                self.add("drop a statement", begin, end, "")
            if function and statement.kind.name not in ("RETURN_STMT", "CASE_STMT", "DEFAULT_STMT"):
                value = "" if function.result_type.kind == TypeKind.VOID else " {}"
                self.add("return early", begin, begin, f"return{value}; ")
        self.change_neighbours(statements)

    def change_neighbours(self, cursors):
        for first, second in zip(cursors, cursors[1:]):
            (begin, middle), (start, end) = bounds(first), bounds(second)
            between = self.text(middle, start)
            swapped = self.text(start, end) + between + self.text(begin, middle)
            # Arguments can differ in references and const.
            types = {re.sub(r"\bconst\b|[&\s]", "", cursor.type.get_canonical().spelling) for cursor in (first, second)}
            for operator in COMPARISONS.get(between.strip(), []):
                self.add("shift a comparison", middle, start, between.replace(between.strip(), operator))
            if between.startswith(",") and len(types) == 1:
                self.add("swap two arguments", begin, end, swapped)
            elif between.strip() == ";" and first.kind.is_expression() and second.kind.is_expression():
                self.add("reorder two calls", begin, end, swapped)


def find_changes(file, options):
    """Returns all changes of a source, sorted. The options are those of its compiler."""
    finder = Finder(file.read_bytes())
    for cursor in TranslationUnit.from_source(str(file), options).cursor.get_children():
        if cursor.location.file and cursor.location.file.name == str(file):
            finder.visit(cursor)
    for operator, pattern in PATTERNS.items():
        for found in re.finditer(pattern, finder.source):
            finder.add(operator, *found.span(), "")
    return sorted(finder.changes)


def draw_changes(sources, seed, find):
    """Draws lines of the sources, and yields the name of the source and one change for each line that has any.
    What it draws from one source does not depend on the others."""
    find = functools.cache(find)
    digests = {(name, line): hashlib.sha256(f"{seed} {name}:{line}".encode()).digest()
               for name, source in sources.items() for line in range(1, source.count(b"\n") + 1)}
    for name, line in sorted(digests, key=digests.get):
        if changes := [change for change in find(name) if change.line == line]:
            generator = random.Random(digests[name, line])
            operator = generator.choice(sorted({change.operator for change in changes}))
            yield name, generator.choice([change for change in changes if change.operator == operator])
