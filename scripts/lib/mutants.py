"""Finds the places in a C++ source where a small change alters what the program does, and draws some of them."""

import collections
import dataclasses
import re

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


@dataclasses.dataclass(frozen=True, order=True)
class Change:
    """One change: a range of bytes of the source, and what replaces it."""

    line: int
    column: int
    operator: str
    begin: int
    end: int
    text: bytes

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
        self.source = source
        self.changes = set()

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
            self.drop_noexcept(cursor, children)
        elif kind == CursorKind.COMPOUND_STMT:
            self.change_statements(children, function)
        elif kind == CursorKind.CXX_CATCH_STMT:
            self.add("drop a catch", *bounds(children[-1]), "{ throw; }")
        elif kind in CONDITIONAL:
            self.negate_condition(children)
        elif kind == CursorKind.BINARY_OPERATOR:
            self.shift_comparison(children)
        elif kind == CursorKind.CALL_EXPR:
            self.change_call(cursor)
        else:
            self.change_value(cursor, *bounds(cursor))
        for child in children:
            self.visit(child, function)

    def drop_noexcept(self, function, children):
        bodies = [child for child in children if child.kind == CursorKind.COMPOUND_STMT]
        if bodies:
            begin, end = bounds(function)[0], bounds(bodies[-1])[0]
            for found in re.finditer(rb"\bnoexcept\b(?!\s*\()", self.source[begin:end]):
                self.add("drop a noexcept", begin + found.start(), begin + found.end(), "")

    def change_statements(self, statements, function):
        ranges = [(bounds(statement)[0], self.end_of_statement(statement)) for statement in statements]
        for statement, (begin, end) in zip(statements, ranges):
            if statement.kind not in KEPT_STATEMENTS:
                self.add("drop a statement", begin, end, ";")
            elif re.match(r"(const )?std::(lock_guard|\w+_lock)\b", self.text(begin, end)):
                self.add("drop a lock", begin, end, ";")
            if function and statement.kind != CursorKind.RETURN_STMT:
                is_void = function.result_type.kind == TypeKind.VOID
                self.add("return early", begin, begin, "return; " if is_void else "return {}; ")
        for index in range(len(statements) - 1):
            if all(statement.kind.is_expression() for statement in statements[index:index + 2]):
                self.swap("reorder two calls", *ranges[index:index + 2])

    def end_of_statement(self, statement):
        end = bounds(statement)[1]
        return end + re.match(rb"(\s*;)?", self.source[end:]).end()

    def swap(self, operator, first, second):
        (begin, middle), (start, end) = first, second
        if begin < middle <= start < end:
            text = self.text
            self.add(operator, begin, end, text(start, end) + text(middle, start) + text(begin, middle))

    def negate_condition(self, children):
        conditions = [bounds(child) for child in children if child.kind.is_expression()]
        if conditions and all(child.kind != CursorKind.VAR_DECL for child in children):
            self.add("negate a condition", *conditions[0], f"!({self.text(*conditions[0])})")

    def shift_comparison(self, operands):
        if len(operands) == 2:
            begin, end = bounds(operands[0])[1], bounds(operands[1])[0]
            between = self.text(begin, end)
            for operator in COMPARISONS.get(between.strip(), []):
                self.add("shift a comparison", begin, end, between.replace(between.strip(), operator))

    def change_call(self, call):
        arguments = list(call.get_arguments())
        if call.spelling.startswith("operator"):
            self.shift_comparison(arguments)
            return
        for first, second in zip(arguments, arguments[1:]):
            if plain_type(first) == plain_type(second):
                self.swap("swap two arguments", bounds(first), bounds(second))

    def change_value(self, cursor, begin, end):
        text = self.text(begin, end)
        if cursor.kind == CursorKind.INTEGER_LITERAL and text[:1].isdigit():
            self.add("change a constant", begin, end, f"({text} + 1)")
        elif cursor.kind == CursorKind.CXX_BOOL_LITERAL_EXPR:
            self.add("change a constant", begin, end, "false" if text == "true" else "true")
        elif cursor.kind in (CursorKind.STRING_LITERAL, CursorKind.CHARACTER_LITERAL):
            changed = re.sub(r"""^(\w*)'.*'$""", r"\1'x'", text, flags=re.DOTALL)
            self.add("change a word", begin, end, re.sub(r'^((?:u8|[uUL])?(?:R"[^(]*\(|"))', r"\1x", changed))
        elif cursor.kind == CursorKind.DECL_REF_EXPR and cursor.referenced:
            self.change_enumerator(cursor.referenced, end)

    def change_enumerator(self, named, end):
        begin = end - len(named.spelling.encode())
        if named.kind == CursorKind.ENUM_CONSTANT_DECL and self.text(begin, end) == named.spelling:
            names = [constant.spelling for constant in named.semantic_parent.get_children()]
            self.add("change an enumerator", begin, end, names[(names.index(named.spelling) + 1) % len(names)])


def find_changes(file, options):
    """Returns all changes of a source, sorted. The options are those of its compiler."""
    finder = Finder(file.read_bytes())
    for cursor in TranslationUnit.from_source(str(file), options).cursor.get_children():
        if cursor.location.file and cursor.location.file.name == str(file):
            finder.visit(cursor)
    return sorted(finder.changes)


def draw_changes(changes, random):
    """Returns one change for each line that has any, in random order. Draws an operator of the line first, so
    that frequent operators do not displace rare ones."""
    lines = collections.defaultdict(lambda: collections.defaultdict(list))
    for change in changes:
        lines[change.line][change.operator].append(change)
    drawn = [random.choice(operators[random.choice(sorted(operators))]) for operators in lines.values()]
    random.shuffle(drawn)
    return drawn
