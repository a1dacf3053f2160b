"""Finds the places of a source where one small change makes another program, and makes the changes."""

import collections
import re

from clang.cindex import CursorKind, Index, TokenKind, TranslationUnit, TypeKind

# One change: the bytes from \a start to \a end become \a text.
Change = collections.namedtuple('Change', 'start end text function')

OPERATORS = {
    '==': ['!='], '!=': ['=='], '<': ['<=', '>='], '>': ['>=', '<='], '<=': ['<', '>'], '>=': ['>', '<'],
    '&&': ['||'], '||': ['&&'], '+': ['-'], '-': ['+'], '*': ['/'], '/': ['*'], '%': ['/'], '&': ['|'], '|': ['&'],
    '+=': ['-='], '-=': ['+='], '*=': ['/='], '/=': ['*='],
}
STATEMENTS = {
    CursorKind.CALL_EXPR, CursorKind.BINARY_OPERATOR, CursorKind.COMPOUND_ASSIGNMENT_OPERATOR,
    CursorKind.UNARY_OPERATOR, CursorKind.UNEXPOSED_EXPR, CursorKind.CXX_DELETE_EXPR, CursorKind.RETURN_STMT,
    CursorKind.BREAK_STMT, CursorKind.CONTINUE_STMT, CursorKind.IF_STMT, CursorKind.FOR_STMT, CursorKind.WHILE_STMT,
    CursorKind.SWITCH_STMT,
}
FUNCTIONS = {
    CursorKind.FUNCTION_DECL, CursorKind.CXX_METHOD, CursorKind.CONSTRUCTOR, CursorKind.DESTRUCTOR,
    CursorKind.CONVERSION_FUNCTION, CursorKind.FUNCTION_TEMPLATE,
}
INTEGERS = {
    TypeKind.INT, TypeKind.UINT, TypeKind.SHORT, TypeKind.USHORT, TypeKind.LONG, TypeKind.ULONG, TypeKind.LONGLONG,
    TypeKind.ULONGLONG,
}
LIMITS = ('qMin', 'qMax', 'qBound')


def precompile(header, arguments, output):
    """Reads a header once for many sources, whose arguments are to begin with "-include-pch" and the output then."""
    options = TranslationUnit.PARSE_INCOMPLETE | TranslationUnit.PARSE_PRECOMPILED_PREAMBLE
    Index.create().parse(header, ['-x', 'c++-header'] + arguments, options=options).save(output)


class Source:
    def __init__(self, path, arguments):
        self.path = path
        with open(path, 'rb') as file:
            self.code = file.read()
        unit = Index.create().parse(path, ['-x', 'c++'] + arguments, options=TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD)
        errors = [str(each) for each in unit.diagnostics if each.severity >= 3]
        if errors:
            raise RuntimeError('%s cannot be read: %s' % (path, errors[0]))
        self.functions = []
        self.changes = {}
        for cursor in unit.cursor.get_children():
            if cursor.location.file and cursor.location.file.name == path:
                self.visit(cursor, None)
        self.visit_tokens(unit)

    def text(self, start, end):
        return self.code[start:end].decode()

    def of(self, cursor):
        return self.text(*self.extent(cursor))

    @staticmethod
    def extent(cursor):
        return cursor.extent.start.offset, cursor.extent.end.offset

    def function_at(self, offset):
        around = [each for each in self.functions if each[0] <= offset < each[1]]
        return min(around, key=lambda each: each[1] - each[0])[2] if around else '-'

    def change(self, start, end, text):
        changed = self.code[:start] + text.encode() + self.code[end:]
        if start < end and changed != self.code:
            self.changes.setdefault(changed, Change(start, end, text, None))

    def all_changes(self):
        """Pairs of a change and the source that it makes."""
        for changed, change in sorted(self.changes.items(), key=lambda item: item[1][:3]):
            yield change._replace(function=self.function_at(change.start)), changed

    # --- The syntax tree

    def visit(self, cursor, parent):
        kind = cursor.kind
        children = list(cursor.get_children())
        if kind in FUNCTIONS:
            owner = cursor.semantic_parent
            name = cursor.spelling
            if owner and owner.kind in (CursorKind.CLASS_DECL, CursorKind.STRUCT_DECL, CursorKind.CLASS_TEMPLATE):
                name = owner.spelling + '::' + name
            self.functions.append(self.extent(cursor) + (name,))
        if kind == CursorKind.BINARY_OPERATOR or kind == CursorKind.COMPOUND_ASSIGNMENT_OPERATOR:
            self.change_operator(cursor, children)
        elif kind == CursorKind.CALL_EXPR:
            self.change_call(cursor, children)
        elif kind == CursorKind.UNARY_OPERATOR:
            self.change_unary(cursor)
        elif kind in (CursorKind.IF_STMT, CursorKind.WHILE_STMT):
            self.change_condition(kind, children)
        elif kind == CursorKind.CONDITIONAL_OPERATOR and len(children) == 3:
            self.negate(children[0])
            for child in children[1:]:
                self.change(*self.extent(cursor), self.of(child))
        elif kind == CursorKind.RETURN_STMT and children:
            self.change_result(children[0])
        elif kind == CursorKind.DECL_REF_EXPR:
            self.change_enumerator(cursor)
        self.drop_statements(kind, children)
        for child in children:
            self.visit(child, cursor)

    def change_operator(self, cursor, children):
        if len(children) != 2:
            return
        left, right = self.extent(children[0]), self.extent(children[1])
        operator = self.text(left[1], right[0])
        self.replace_operator(left[1], operator)
        if operator.strip() in ('&&', '||'):
            self.change(*self.extent(cursor), self.of(children[0]))
            self.change(*self.extent(cursor), self.of(children[1]))

    def replace_operator(self, offset, operator):
        name = operator.strip()
        offset += operator.find(name)
        for other in OPERATORS.get(name, []):
            self.change(offset, offset + len(name), other)

    def change_call(self, cursor, children):
        if cursor.spelling.startswith('operator') and len(children) == 3:
            self.replace_operator(self.extent(children[1])[0], self.of(children[1]))
        start, end = self.extent(cursor)
        for name in LIMITS:
            if cursor.spelling == name and self.of(cursor).startswith(name + '('):
                for argument in cursor.get_arguments():
                    self.change(start, end, '(%s)' % self.of(argument))
                if name != 'qBound':
                    other = LIMITS[1 - LIMITS.index(name)]
                    self.change(start, start + len(name), other)

    def change_unary(self, cursor):
        start, end = self.extent(cursor)
        text = self.of(cursor)
        if text.startswith('++') or text.startswith('--'):
            self.change(start, start + 2, '--' if text.startswith('++') else '++')
        elif text.endswith('++') or text.endswith('--'):
            self.change(end - 2, end, '--' if text.endswith('++') else '++')
        elif text.startswith('!') or text.startswith('-'):
            self.change(start, start + 1, '')

    def change_condition(self, kind, children):
        if not children or not children[0].kind.is_expression():
            return
        self.negate(children[0])
        extent = self.extent(children[0])
        self.change(*extent, 'false')
        if kind == CursorKind.IF_STMT:
            self.change(*extent, 'true')

    def negate(self, condition):
        self.change(*self.extent(condition), '!(%s)' % self.of(condition))

    def change_result(self, value):
        extent = self.extent(value)
        text = self.of(value)
        result = value.type.get_canonical()
        if result.kind == TypeKind.BOOL:
            for other in ('!(%s)' % text, 'true', 'false'):
                if text not in ('true', 'false'):
                    self.change(*extent, other)
        elif result.kind in INTEGERS:
            self.change(*extent, '(%s) + 1' % text)
        elif result.kind == TypeKind.POINTER:
            self.change(*extent, '0')
        elif result.kind == TypeKind.RECORD:
            self.change(*extent, value.type.spelling.replace('const ', '') + '()')

    def change_enumerator(self, cursor):
        constant = cursor.referenced
        if not constant or constant.kind != CursorKind.ENUM_CONSTANT_DECL:
            return
        text = self.of(cursor)
        if not text.endswith(constant.spelling):
            return
        others = [each for each in constant.semantic_parent.get_children()
                  if each.kind == CursorKind.ENUM_CONSTANT_DECL]
        place = [each.spelling for each in others].index(constant.spelling)
        for other in others[place + 1:] + others[:place][::-1]:
            if other.enum_value != constant.enum_value:
                self.change(*self.extent(cursor), text[:-len(constant.spelling)] + other.spelling)
                return

    def drop_statements(self, kind, children):
        if kind == CursorKind.COMPOUND_STMT:
            statements = children
        elif kind in (CursorKind.IF_STMT, CursorKind.WHILE_STMT):
            statements = children[1:]
        elif kind in (CursorKind.CASE_STMT, CursorKind.DEFAULT_STMT, CursorKind.FOR_STMT):
            statements = children[-1:]
        else:
            return
        for statement in statements:
            if statement.kind not in STATEMENTS:
                continue
            start, end = self.extent(statement)
            if self.code[start - 5:start] == b'emit ':
                start -= 5
            if self.code[end - 1:end] == b'}':
                self.change(start, end, ';')
            else:
                self.change(start, end, '')

    # --- The tokens, where macros are still written as they are

    def visit_tokens(self, unit):
        for token in unit.get_tokens(extent=unit.cursor.extent):
            start, end = self.extent(token)
            text = token.spelling
            line = self.code[self.code.rfind(b'\n', 0, start) + 1:start].lstrip()
            if line.startswith(b'#') and not line.startswith(b'#define'):
                continue
            if token.kind == TokenKind.KEYWORD and text in ('true', 'false'):
                self.change(start, end, 'false' if text == 'true' else 'true')
            elif token.kind == TokenKind.LITERAL:
                self.change_literal(start, end, text)

    def change_literal(self, start, end, text):
        if re.fullmatch(r'\d+', text):
            self.change(start, end, str(int(text) + 1))
            if int(text) > 0:
                self.change(start, end, str(int(text) - 1))
        elif re.fullmatch(r'0x[0-9a-fA-F]+', text):
            self.change(start, end, hex(int(text, 16) + 1))
        elif re.fullmatch(r'\d*\.\d*f?', text):
            self.change(start, end, '(%s + 1)' % text)
        elif re.fullmatch(r"'[^\\]'", text):
            self.change(start, end, "'%c'" % (ord(text[1]) + 1))
        elif text.startswith('"'):
            self.change(start, end, '""')
            # Not the number of a placeholder: it counts only beside others.
            digit = re.search(r'(?<!%)\d', text)
            if digit:
                at = start + digit.start()
                self.change(at, at + 1, str((int(digit.group()) + 1) % 10))
