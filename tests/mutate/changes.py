"""The single changes that can be planted in a C++ source.

The source is read as tokens, not understood: what the compiler then refuses is no change. It helps that the code is
formatted by clang-format: an operator with a blank on either side has two operands, "<" included.
"""

import dataclasses
import itertools
import re

TOKEN = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)
    |(?P<directive>^[ \t]*\#(?:\\\n|[^\n])*)
    |(?P<text>(?:u8|[uUL])?R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)"|(?:u8|[uUL])?"(?:\\.|[^"\\\n])*")
    |(?P<letter>(?:u8|[uUL])?'(?:\\.|[^'\\\n])+')
    |(?P<number>(?:0[xX][\da-fA-F']+|\d[\d']*(?:\.\d*)?(?:[eE][-+]?\d+)?)\w*)
    |(?P<name>[A-Za-z_]\w*)
    |(?P<operator><=>|<<=|>>=|->\*|\.\.\.|::|->|\+\+|--|<<|&&|\|\||[-+*/%&|^!=<>]=|[^\s\w])""",
    re.VERBOSE | re.DOTALL | re.MULTILINE,
)

# Between two operands.
OPPOSITES = {
    "==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">",
    "&&": "||", "||": "&&", "+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "|": "&", "&": "|",
    "+=": "-=", "-=": "+=", "|=": "&=", "&=": "|=",
}  # fmt: skip
STEPS = {"++": "--", "--": "++"}
CLOSING = {"(": ")", "[": "]", "{": "}"}
# What begins a statement that is never removed: those that hold others, and what is no statement at all.
KEPT = set(
    "return if for while do switch case default else using static_assert try catch class struct enum namespace template"
    " friend typedef public private protected".split()
)
# A brace after one of these, as after a parenthesis, holds statements.
BEFORE_BODY = {")", "const", "override", "noexcept", "else", "do", "try", "mutable", "final"}
DECLARING = {"const", "constexpr", "static", "auto", "mutable", "extern"}


@dataclasses.dataclass(frozen=True)
class Change:
    """The text from start to end is replaced; before and after are the lines that this touches, as one line each."""

    start: int
    end: int
    replacement: str
    line: int
    before: str
    after: str


@dataclasses.dataclass
class Token:
    kind: str
    text: str
    start: int
    end: int
    partner: int = -1  # the index of the bracket on the other side
    is_code: bool = False  # it stands among statements
    opener: int = -1  # the index of the innermost bracket that it stands in


class _Source:
    def __init__(self, text):
        self.text = text
        self.tokens = [
            Token(match.lastgroup if match.lastgroup != "mark" else "text", match[0], match.start(), match.end())
            for match in TOKEN.finditer(text)
            if match.lastgroup not in ("comment", "directive")
        ]
        self._pair_brackets()

    def _pair_brackets(self):
        open_brackets = []
        for index, token in enumerate(self.tokens):
            token.opener = open_brackets[-1] if open_brackets else -1
            if token.kind == "operator" and token.text in CLOSING:
                token.is_code = self._holds_statements(index)
                open_brackets.append(index)
            elif token.kind == "operator" and token.text in CLOSING.values() and open_brackets:
                token.partner = open_brackets.pop()
                token.opener = self.tokens[token.partner].opener
                self.tokens[token.partner].partner = index
            elif token.opener >= 0:
                token.is_code = self.tokens[token.opener].is_code

    def _holds_statements(self, index):
        token = self.tokens[index]
        inherited = token.opener >= 0 and self.tokens[token.opener].is_code
        if token.text != "{" or index == 0:
            return inherited
        before = self.tokens[index - 1].text
        if before in BEFORE_BODY or before == "]":
            return True
        if before in (";", "{", "}", ":"):
            return inherited
        # The result type of a lambda stands between; a class's name does not.
        head = [entry.text for entry in self.tokens[max(0, index - 12) : index]]
        return inherited or ("->" in head and ")" in head[: head.index("->")])

    def is_spaced(self, index):
        token = self.tokens[index]
        return self.text[token.start - 1].isspace() and self.text[token.end : token.end + 1].isspace()

    def next_at_level(self, index, wanted):
        """The index of the first of the texts wanted from index on, brackets passed over; None when their level ends."""
        while index < len(self.tokens):
            token = self.tokens[index]
            if token.kind == "operator":
                if token.text in wanted:
                    return index
                if token.text in CLOSING:
                    index = token.partner if token.partner > index else len(self.tokens)
                elif token.text in CLOSING.values():
                    return None
            index += 1
        return None

    def is_declaration(self, index):
        """Whether the statement that begins there declares a variable."""
        token, following = self.tokens[index : index + 2]
        is_pointer = following.text in ("*", "&", "*&") and not self.is_spaced(index + 1)
        return token.text in DECLARING or (
            token.kind == "name" and token.text not in ("delete", "throw") and (following.kind == "name" or is_pointer)
        )

    def is_asserted(self, start):
        """Whether the text at start is for the compiler to judge: an operand of static_assert."""
        operands = (self.tokens[i + 1] for i, token in enumerate(self.tokens) if token.text == "static_assert")
        return any(bracket.start < start < self.tokens[bracket.partner].start for bracket in operands)

    def slice(self, first, last):
        """The text of the tokens from first up to last, which is left out."""
        return self.text[self.tokens[first].start : self.tokens[last - 1].end]

    def change(self, start, end, replacement):
        begin = self.text.rfind("\n", 0, start) + 1
        stop = self.text.find("\n", end)
        stop = len(self.text) if stop < 0 else stop
        one_line = lambda lines: " ".join(lines.split())
        return Change(
            start,
            end,
            replacement,
            self.text.count("\n", 0, start) + 1,
            one_line(self.text[begin:stop]),
            one_line(self.text[begin:start] + replacement + self.text[end:stop]),
        )


def _operators(source):
    for index, token in enumerate(source.tokens):
        if token.kind != "operator":
            continue
        if token.text in OPPOSITES and source.is_spaced(index):
            yield token.start, token.end, OPPOSITES[token.text]
        elif token.text in STEPS:
            yield token.start, token.end, STEPS[token.text]
        elif token.text == "!":
            yield token.start, token.end, ""


def _constants(source):
    for token in source.tokens:
        if token.kind == "number":
            yield token.start, token.end, f"({token.text} + 1)"
        elif token.text in ("true", "false"):
            yield token.start, token.end, "false" if token.text == "true" else "true"
        elif token.kind == "text" and "R\"" not in token.text:
            quote = token.text.index('"')
            emptied = token.text[:quote] + ('"?"' if token.text.endswith('""') else '""')
            yield token.start, token.end, emptied
        elif token.kind == "letter":
            quote = token.text.index("'")
            yield token.start, token.end, token.text[:quote] + ("'!'" if "?" in token.text else "'?'")


def _conditions(source):
    def negated(first, last):
        texts = [token.text for token in source.tokens[first:last]]
        # Alone, these two are changed already.
        is_plain = not {"&&", "||"} & set(texts)
        if not texts or is_plain and (texts[0] == "!" or {"==", "!="} & set(texts)):
            return
        yield source.tokens[first].start, source.tokens[last - 1].end, f"!({source.slice(first, last)})"

    for index, token in enumerate(source.tokens):
        following = source.tokens[index + 1] if index + 1 < len(source.tokens) else None
        if token.text in ("if", "while", "for") and following and following.text == "(":
            first, last = index + 2, following.partner
            semicolon = source.next_at_level(first, ";")
            if semicolon and token.text == "for":
                first, last = semicolon + 1, source.next_at_level(semicolon + 1, ";")
            elif semicolon:
                first = semicolon + 1
            elif token.text == "for":
                continue  # over a range
            yield from negated(first, last)
        elif token.kind == "operator" and token.text == "?" and token.is_code:
            first = index
            while first > 0:
                before = source.tokens[first - 1]
                if before.text in (")", "]", "}") and before.partner >= 0:
                    first = before.partner
                elif before.text in ("=", "return", "(", ",", "{", "[", ";", ":", "?", "}", "<<"):
                    break
                else:
                    first -= 1
            yield from negated(first, index)


def _statements(source):
    tokens = source.tokens
    for index, token in enumerate(tokens):
        if not token.is_code or token.text in KEPT or token.kind == "operator" and token.text not in ("++", "--", "*", "("):
            continue
        before = tokens[index - 1] if index else None
        begins = before and (
            before.text in (";", "{", "}", "else")
            or before.text == ")"
            and tokens[before.partner - 1].text in ("if", "for", "while")
            or before.text == ":"
            and any(entry.text in ("case", "default") for entry in tokens[max(0, index - 6) : index])
        )
        if not begins or tokens[token.opener].text != "{":
            continue
        end = source.next_at_level(index, ";")
        if end is None:
            continue
        if source.is_declaration(index):
            names = list(itertools.takewhile(lambda entry: entry.text not in ("=", "(", "{", ";"), tokens[index:end]))
            block_end = tokens[token.opener].partner
            if names[-1].text in (entry.text for entry in tokens[end:block_end]):
                continue  # what is declared is used
        yield token.start, tokens[end].start, ""


def _results(source):
    for index, token in enumerate(source.tokens):
        if token.text != "return" or token.kind != "name":
            continue
        end = source.next_at_level(index + 1, ";")
        if end is None or end == index + 1:
            continue
        result = source.slice(index + 1, end)
        if not re.fullmatch(r"\{\}|true|false|0|nullptr|[A-Z]\w*\(\)|[A-Z]\w*\{\}", result):
            yield source.tokens[index + 1].start, source.tokens[end - 1].end, "{}"


def _arguments(source):
    for index, token in enumerate(source.tokens):
        if token.kind != "operator" or token.text not in ("(", "{") or not token.is_code or token.partner < 0 or not index:
            continue
        before = source.tokens[index - 1].text
        if before in ("if", "for", "while", "switch", "catch", ";", "}", ")"):
            continue
        bounds = [index]
        while (comma := source.next_at_level(bounds[-1] + 1, ",")) is not None:
            bounds.append(comma)
        bounds.append(token.partner)
        if not 3 <= len(bounds) <= 5 or source.next_at_level(index + 1, ";") is not None:
            continue
        for left, middle, right in zip(bounds, bounds[1:], bounds[2:]):
            if left + 1 < middle and middle + 1 < right:
                first, second = source.slice(left + 1, middle), source.slice(middle + 1, right)
                if first != second:
                    start, end = source.tokens[left + 1].start, source.tokens[right - 1].end
                    yield start, end, f"{second}, {first}"


def changes_of(text):
    """All changes of a source, in its order."""
    source = _Source(text)
    kinds = (_operators, _constants, _conditions, _statements, _results, _arguments)
    found = {edit for kind in kinds for edit in kind(source)}
    return [source.change(*edit) for edit in sorted(found) if not source.is_asserted(edit[0])]
