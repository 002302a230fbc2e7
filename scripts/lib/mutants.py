"""Finds the places in a C++ source where a small change alters what the program does, and draws some of them."""

import collections
import functools
import random
import re
from itertools import pairwise

from clang.cindex import CursorKind, TranslationUnit, TypeKind

COMPARISONS = {
    "==": ["!="], "!=": ["=="], "&&": ["||"], "||": ["&&"],
    "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"],
}
FUNCTIONS = {CursorKind.FUNCTION_DECL, CursorKind.CXX_METHOD, CursorKind.FUNCTION_TEMPLATE,
             CursorKind.CONSTRUCTOR, CursorKind.DESTRUCTOR, CursorKind.LAMBDA_EXPR}
CONDITIONAL = {CursorKind.IF_STMT, CursorKind.WHILE_STMT, CursorKind.CONDITIONAL_OPERATOR}
# A function needs its declarations and its result; the others have no effect of their own.
KEPT_STATEMENTS = {CursorKind.DECL_STMT, CursorKind.RETURN_STMT, CursorKind.COMPOUND_STMT,
                   CursorKind.NULL_STMT, CursorKind.CASE_STMT, CursorKind.DEFAULT_STMT}
# Tokens that the syntax tree does not show well.
PATTERNS = {"drop a lock": rb"\b(const )?std::(lock_guard|\w+_lock)\b[^;]*", "drop a noexcept": rb"\bnoexcept\b(?! ?\()"}


class Change(collections.namedtuple("Change", "line column operator begin end text")):
    """One change: a range of bytes of the source, and what replaces it."""

    def apply(self, source):
        """Returns the changed source. Its other lines keep their numbers, which objects may contain."""
        lost_lines = source[self.begin:self.end].count(b"\n") - self.text.count(b"\n")
        return source[:self.begin] + self.text + b"\n" * lost_lines + source[self.end:]

    def describe(self, source):
        texts = [" ".join(text.decode().split()) for text in (source[self.begin:self.end], self.text)]
        return f"{self.operator}: " + " -> ".join(text if len(text) < 60 else text[:57] + "..." for text in texts)


def bounds(cursor):
    return cursor.extent.start.offset, cursor.extent.end.offset


def plain_type(cursor):
    """Returns the type without references and const, as arguments can differ in both."""
    return re.sub(r"\bconst\b|[&\s]", "", cursor.type.get_canonical().spelling)


class Finder:
    """Collects the changes of one source on a walk through its syntax tree."""

    def __init__(self, source):
        self.source, self.changes = source, set()

    def text(self, begin, end):
        return self.source[begin:end].decode()

    def add(self, operator, begin, end, text):
        line, column = self.source.count(b"\n", 0, begin) + 1, begin - self.source.rfind(b"\n", 0, begin)
        if text != self.text(begin, end):
            self.changes.add(Change(line, column, operator, begin, end, text.encode()))

    def visit(self, cursor, function=None):
        kind, children = cursor.kind, list(cursor.get_children())
        if kind in FUNCTIONS:
            # The type that a lambda returns is not known here.
            function = cursor if kind != CursorKind.LAMBDA_EXPR else None
        elif kind == CursorKind.COMPOUND_STMT:
            self.change_statements(children, function)
        elif kind == CursorKind.CXX_CATCH_STMT:
            self.add("drop a catch", *bounds(children[-1]), "{ throw; }")
        elif kind in CONDITIONAL and children[0].kind.is_expression():
            self.add("negate a condition", *bounds(children[0]), f"!({self.text(*bounds(children[0]))})")
        elif kind in (CursorKind.BINARY_OPERATOR, CursorKind.CALL_EXPR):
            operands = list(cursor.get_arguments()) or children
            self.change_neighbours(operands, [bounds(operand) for operand in operands])
        else:
            self.change_value(cursor, *bounds(cursor))
        for child in children:
            self.visit(child, function)

    def change_statements(self, statements, function):
        ranges = [(begin, end + re.match(rb"(\s*;)?", self.source[end:]).end())
                  for begin, end in map(bounds, statements)]
        for statement, (begin, end) in zip(statements, ranges):
            if statement.kind not in KEPT_STATEMENTS:
                self.add("drop a statement", begin, end, ";")
            if function and statement.kind != CursorKind.RETURN_STMT:
                is_void = function.result_type.kind == TypeKind.VOID
                self.add("return early", begin, begin, "return; " if is_void else "return {}; ")
        self.change_neighbours(statements, ranges)

    def change_neighbours(self, cursors, ranges):
        for (first, second), ((begin, middle), (start, end)) in zip(pairwise(cursors), pairwise(ranges)):
            between = self.text(middle, start)
            swapped = self.text(start, end) + between + self.text(begin, middle)
            for operator in COMPARISONS.get(between.strip(), []):
                self.add("shift a comparison", middle, start, between.replace(between.strip(), operator))
            if between.startswith(",") and plain_type(first) == plain_type(second):
                self.add("swap two arguments", begin, end, swapped)
            elif between.isspace() and first.kind.is_expression() and second.kind.is_expression():
                self.add("reorder two calls", begin, end, swapped)

    def change_value(self, cursor, begin, end):
        text, named = self.text(begin, end), cursor.referenced
        if cursor.kind == CursorKind.INTEGER_LITERAL and text[:1].isdigit():
            self.add("change a constant", begin, end, f"({text} + 1)")
        elif cursor.kind == CursorKind.CXX_BOOL_LITERAL_EXPR:
            self.add("change a constant", begin, end, "false" if text == "true" else "true")
        elif cursor.kind in (CursorKind.STRING_LITERAL, CursorKind.CHARACTER_LITERAL):
            changed = re.sub(r"""^(\w*)'.*'$""", r"\1'x'", text, flags=re.DOTALL)
            self.add("change a word", begin, end, re.sub(r'^((?:u8|[uUL])?(?:R"[^(]*\(|"))', r"\1x", changed))
        elif cursor.kind == CursorKind.DECL_REF_EXPR and named and named.kind == CursorKind.ENUM_CONSTANT_DECL:
            names = [constant.spelling for constant in named.semantic_parent.get_children()]
            other = names[(names.index(named.spelling) + 1) % len(names)]
            self.add("change an enumerator", begin, end, re.sub(rf"\b{named.spelling}$", other, text))


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
    Draws the operator first, so that frequent operators do not displace rare ones."""
    generator, find = random.Random(seed), functools.cache(find)
    lines = [(name, line) for name, source in sources.items() for line in range(1, source.count(b"\n") + 1)]
    generator.shuffle(lines)
    for name, line in lines:
        if changes := [change for change in find(name) if change.line == line]:
            operator = generator.choice(sorted({change.operator for change in changes}))
            yield name, generator.choice([change for change in changes if change.operator == operator])
