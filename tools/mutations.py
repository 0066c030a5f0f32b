"""The changes that tools/mutate makes in C++ text, and how it draws among them."""

import bisect
import hashlib
import re
from collections import Counter, namedtuple

Token = namedtuple("Token", "kind text start end")

TOKEN = re.compile(r"""
    (?P<directive>^[ \t]*\#(?:\\\n|[^\n])*)
  | (?P<comment>//(?:\\\n|[^\n])*|/\*.*?\*/)
  | (?P<literal>(?:u8|[uUL])?(?:R"(?P<delimiter>[^()\\\s]*)\(.*?\)(?P=delimiter)"|"(?:\\.|[^"\\])*"|'(?:\\.|[^'\\])+')\w*)
  | (?P<number>\.?\d(?:[eEpP][+-]|'?[\w.])*)
  | (?P<word>[A-Za-z_]\w*)
  | (?P<mark><=>|<<=|>>=|\.\.\.|->\*|->|\+\+|--|&&|\|\||::|<<|>>|[<>=!+\-*/%&|^]=|[^\s])
  | (?P<blank>\s+)
""", re.VERBOSE | re.MULTILINE | re.DOTALL)

SWAPPED = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "&&": "||", "||": "&&", "+": "-", "-": "+"}
OPPOSITE = {"true": "false", "false": "true"}
BRACKETS = {"(": ")", "[": "]", "{": "}"}
ASSIGNMENTS = ("=", "+=", "-=", "|=", "&=", "++", "--")
SCOPES = {"namespace", "class", "struct", "union", "enum", "extern"}
# What begins a statement whose constants are no behaviour, or which nothing can do without.
DECLARATIONS = {"static_assert", "using", "typedef", "friend", "enum"}
STATEMENTS = {"return", "throw", "delete", "goto", "break", "continue", "case", "default", "if", "for", "while", "do", "else",
              "switch", "try", "template", "public", "protected", "private", "co_return"} | SCOPES | DECLARATIONS
# What is returned by default anyway, and what another change makes of it.
DEFAULTS = ({"{", "}"}, {"nullptr"}, {"true"}, {"false"}, {"0"}, {'""'}, {"std", "::", "nullopt"})


class Change(namedtuple("Change", "path line before after start end text")):
    """`before` and `after` are the lines that it changes, in one, with single blanks."""

    @property
    def name(self):
        return self.path, self.before, self.after


def tokens_of(text):
    """What the compiler reads, without directives, blanks and comments."""
    found = (Token(match.lastgroup if match.lastgroup != "delimiter" else "literal", match.group(), *match.span())
             for match in TOKEN.finditer(text))
    return [token for token in found if token.kind not in ("directive", "comment", "blank")]


class Source:
    def __init__(self, path, text):
        self.path, self.text, self.tokens = path, text, tokens_of(text)
        self.lines = [0] + [match.end() for match in re.finditer("\n", text)]
        self.partner, self.around = self.match_brackets()

    def match_brackets(self):
        """The other bracket of each, and the innermost one that is open at each token."""
        partner, around, open_ones = {}, [], []
        for index, token in enumerate(self.tokens):
            if token.kind == "mark" and open_ones and token.text == BRACKETS.get(self.word(open_ones[-1])):
                partner[index] = open_ones.pop()
                partner[partner[index]] = index
            around.append(open_ones[-1] if open_ones else None)
            if token.kind == "mark" and token.text in BRACKETS:
                open_ones.append(index)
        return partner, around

    def word(self, index):
        return self.tokens[index].text if 0 <= index < len(self.tokens) else ""

    def change(self, start, end, text):
        first, last = bisect.bisect(self.lines, start) - 1, bisect.bisect(self.lines, max(start, end - 1)) - 1
        head = self.text[self.lines[first]:start]
        behind = self.text[end:self.lines[last + 1] if last + 1 < len(self.lines) else None]
        before, after = (" ".join((head + middle + behind).split()) for middle in (self.text[start:end], text))
        return Change(self.path, first + 1, before, after, start, end, text)

    def apply(self, change):
        return self.text[:change.start] + change.text + self.text[change.end:]

    def replaced(self, index, text):
        return self.change(self.tokens[index].start, self.tokens[index].end, text)

    def is_spaced(self, index):
        """Whether blanks are around it, as the format has them around what is between two operands."""
        token = self.tokens[index]
        return self.text[token.start - 1].isspace() and self.text[token.end].isspace()

    def statement_head(self, index):
        """Where the statement begins that the token stands in, within the brackets around it."""
        while index > 0 and self.word(index - 1) not in ("{", "}", ";", ""):
            index = self.partner[index - 1] if self.word(index - 1) in (")", "]") else index - 1
            if self.around[index] is not None and index - 1 == self.around[index]:
                break
        return index

    def is_code(self, index):
        """Whether it stands in a function's braces."""
        brace = self.around[index]
        if brace is None or self.word(brace) != "{":
            return False
        head = self.statement_head(brace)
        return not any(self.word(at) in SCOPES and self.word(at - 1) not in ("<", ",") for at in range(head, brace))

    def is_declared(self, index):
        """Whether it is part of a declaration that does nothing, however deep in brackets."""
        while index is not None:
            if self.word(self.statement_head(index)) in DECLARATIONS:
                return True
            index = self.around[index]
        return False

    def end_of_statement(self, index):
        """The semicolon that ends what begins at the index."""
        while index < len(self.tokens) and self.word(index) != ";":
            if self.word(index) in ("}", ")", "]"):
                return None
            index = self.partner.get(index, index) + 1
        return index if index < len(self.tokens) else None

    def follows_condition(self, index):
        """Whether an `if (...)` stands before the token."""
        if self.word(index - 1) != ")":
            return False
        opening = self.partner[index - 1]
        return self.word(opening - 1) == "if"

    def changes(self):
        for index, token in enumerate(self.tokens):
            if token.kind == "literal" or self.is_declared(index):
                continue
            yield from self.of_operator(index)
            yield from self.of_constant(index)
            yield from self.of_condition(index)
            if self.is_code(index):
                yield from self.of_return(index)
                yield from self.of_statement(index)

    def of_operator(self, index):
        text = self.word(index)
        beside = [self.tokens[at].kind for at in (index - 1, index + 1) if 0 <= at < len(self.tokens)]
        # Text is joined by a plus, and never subtracted.
        if text in SWAPPED and len(beside) == 2 and self.is_spaced(index) and not (text == "+" and "literal" in beside):
            yield self.replaced(index, SWAPPED[text])

    def of_constant(self, index):
        token = self.tokens[index]
        if token.text in OPPOSITE:
            yield self.replaced(index, OPPOSITE[token.text])
        is_argument = self.word(index + 1) in (">", ">>") and not self.is_spaced(index + 1)
        if token.kind == "number" and not is_argument:
            number = re.fullmatch(r"(0|[1-9]\d*)([uUlLzZ]*)", token.text)
            yield self.replaced(index, f"{int(number[1]) + 1}{number[2]}" if number else f"({token.text} + 1)")

    def of_condition(self, index):
        if self.word(index) != "if" or self.word(index + 1) != "(":
            return
        first, last = index + 2, self.partner[index + 1] - 1
        for at in range(first, last):
            if self.around[at] == index + 1 and self.word(at) == ";":
                first = at + 1
        if not any(self.around[at] == index + 1 and self.word(at) == "=" for at in range(first, last)):
            start, end = self.tokens[first].start, self.tokens[last].end
            yield self.change(start, end, f"!({self.text[start:end]})")

    def of_return(self, index):
        if self.word(index) != "return":
            return
        end = self.end_of_statement(index)
        if end is None:
            return
        value = {self.word(at) for at in range(index + 1, end)}
        if value and value not in DEFAULTS:
            yield self.change(self.tokens[index + 1].start, self.tokens[end].start, "{}")
        # An early one: something else is behind what the condition guards.
        brace = self.around[index]
        if self.follows_condition(index):
            behind = end + 1
        elif self.follows_condition(brace) and self.partner[brace] == end + 1:
            behind = end + 2
        else:
            return
        if self.word(behind) not in ("else", "}"):
            yield self.change(self.tokens[index].start, self.tokens[end].end, ";")

    def of_statement(self, index):
        """A call or an assignment is left out."""
        begins = self.word(index - 1) in (";", "{", "}", "else") or self.follows_condition(index)
        is_name = self.tokens[index].kind == "word" or self.word(index) == "::"
        if not begins or not is_name or self.word(index) in STATEMENTS:
            return
        end = self.end_of_statement(index)
        if end is None:
            return
        head, at = [], index
        while at < end and self.word(at) not in ASSIGNMENTS:
            head.append(self.tokens[at])
            at = self.partner.get(at, at) + 1
        names = all(token.kind == "word" or token.text in (".", "->", "::", "(", "[", "{") for token in head)
        declares = any(one.kind == other.kind == "word" for one, other in zip(head, head[1:]))
        if names and not declares and (at < end or self.word(end - 1) == ")"):
            yield self.change(self.tokens[index].start, self.tokens[end].end, ";")


def drawn(changes, seed, count):
    """Some of the changes: the same ones as long as their lines are, whatever else is changed in the sources."""
    ranked, times = [], Counter()
    for change in changes:
        # The line may stand there more than once.
        text = "\0".join((str(seed), *change.name, str(times[change.name])))
        times[change.name] += 1
        ranked.append((hashlib.sha256(text.encode()).hexdigest(), change))
    return sorted((change for _, change in sorted(ranked)[:count]), key=lambda change: (change.path, change.start, change.text))


def read_equivalents(text):
    """(path, before, after) of each entry, four lines with a proof at the end; ValueError where one has not these."""
    entries = set()
    blocks = "\n".join(line for line in text.splitlines() if not line.startswith("#"))
    for block in filter(None, (block.strip() for block in re.split(r"\n\s*\n", blocks))):
        lines = [line.strip() for line in block.splitlines()]
        if len(lines) != 4:
            raise ValueError(f"an entry has path, line, changed line and proof: {lines[0]}")
        entries.add(tuple(lines[:3]))
    return entries
