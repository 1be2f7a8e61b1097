"""The small faults that can be planted in a C++ source: where, and what stands there instead.

Read from the tokens alone, with the formatter's help: operators of two operands stand between blanks. What makes no
sense, the compiler refuses. What is said to the log is left as it is.
"""

import re
from dataclasses import dataclass

OPERATORS = {
    "<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "&&": "||", "||": "&&",
    "+": "-", "-": "+", "*": "/", "/": "*", "+=": "-=", "-=": "+=", "|": "&", "&": "|", "<<": ">>", ">>": "<<",
}
OPERATOR = re.compile(r"(?<=\s)(?:[<>=!]=|[-+]=|&&|\|\||<<|>>|[-+*/<>&|])(?=\s)")
NEGATION = re.compile(r"!(?=[\w(*:])")
CHOICE = re.compile(r"(?<=\s)\?(?=\s)")
TRUTH = re.compile(r"\b(?:true|false)\b")
NUMBER = re.compile(r"(?<![\w.'])(0x[\da-fA-F']+|[\d']+)(\.\d+)?(\w*)")
CONDITION = re.compile(r"\b(?:if|while) \(")
DECIDES = re.compile(r"[!<>=]=|&&|\|\||!|\s[<>]\s")
DECLARATION = re.compile(r"\s*(?:const )?auto[*&]*(?: const)? (\w+) = ")
LEAVING = r"\s*(?:return|continue|break)\b[^;{}]*;"
LEAVES = re.compile(LEAVING + r"|\s*\{(?:[^{}]*;)?" + LEAVING + r"\s*\}")
RETURN = re.compile(r"\breturn (?=\S)[^;]+;")
NOTHING = re.compile(r"return (?:\{\}|0|false|nullptr|std::nullopt);")

# A call whose failure is logged on the way is a call.
LOGGED = re.compile(r"\b(?:os::)?(?:Log(?!Failure\(L\s*,\s*[\w:]+\()\w*|FormatLogText|WriteDebugText)(?:<[^>]*>)?\(")
EMPTY = r"\s*(?:\{[\s;]*\}|;)"
ONLY_LOGS = re.compile(EMPTY + r"(?:\s*else" + EMPTY + r")?(?!\s*else\b)")
# Where a line may begin a statement, and what stands before the statement itself.
BEGINS = re.compile(r"(?:\A|[;{}:)]|\belse)\s*\n *(?=[\w*+-])")
HEAD = re.compile(r"(?:else )?(?:if|for|while) \(")
CALL = re.compile(r"(?:\(void\))?\*?(?!return\b|if\b|for\b|while\b|switch\b)[\w:]+(?:(?:\.|->)\w+|<[^;()]*>)*[(.]")
ASSIGNMENT = re.compile(r"\*?[\w:]+(?:(?:\.|->)\w+|\[[^]]*\])* [-+|&]?= |\+\+|--")


@dataclass(frozen=True)
class Site:
    """A place, from character `start` to `end` of the file's text, and what may stand there instead."""

    kind: str
    start: int
    end: int
    replacements: tuple


def closing(code, opening):
    """Behind the bracket that closes the one at `opening`."""
    depth = 0
    for match in re.compile(r"[(){}[\]]").finditer(code, opening):
        depth += 1 if match[0] in "({[" else -1
        if depth == 0:
            return match.end()
    return len(code)


def semicolon(code, start, end):
    """The first one that stands in no bracket, or else `end`."""
    while start < end and code[start] != ";":
        start = closing(code, start) if code[start] in "([{" else start + 1
    return min(start, end)


def blanked(code, start, end):
    return code[:start] + re.sub(r"[^\n]", " ", code[start:end]) + code[end:]


def plain_code(file):
    """The file's text with blanks for its comments, literals, preprocessor lines and all that is logged."""
    code = re.sub(r"^ *#.*", lambda match: " " * len(match[0]), "\n".join(file.bare_lines), flags=re.MULTILINE)
    for found in LOGGED.finditer(code):
        code = blanked(code, found.start(), closing(code, found.end() - 1))
    for found in CONDITION.finditer(code):
        if logs := ONLY_LOGS.match(code, closing(code, found.end() - 1)):
            code = blanked(code, found.start(), logs.end())
    return code


def operators(code, text):
    for found in OPERATOR.finditer(code):
        yield Site("operator", found.start(), found.end(), (OPERATORS[found[0]],))


def negations(code, text):
    for found in NEGATION.finditer(code):
        yield Site("negation", found.start(), found.end(), ("",))


def choices(code, text):
    for found in CHOICE.finditer(code):
        yield Site("choice", found.start(), found.end(), ("&& false ?", "|| true ?"))


def truths(code, text):
    for found in TRUTH.finditer(code):
        yield Site("truth", found.start(), found.end(), ("false" if found[0] == "true" else "true",))


def numbers(code, text):
    for found in NUMBER.finditer(code):
        value = int(found[1].replace("'", ""), 0 if found[1].startswith("0x") else 10)
        others = sorted({value + 1, max(value - 1, 0), 0} - {value})
        written = (f"{other:#x}" if found[1].startswith("0x") else str(other) for other in others)
        rest = (found[2] or "") + found[3]
        yield Site("number", found.start(), found.end(), tuple(other + rest for other in written))


def conditions(code, text):
    """Those of `if` and `while` without an operator that could be changed instead."""
    for found in CONDITION.finditer(code):
        start, end = found.end(), closing(code, found.end() - 1) - 1
        if (first := semicolon(code, start, end)) < end:
            start = first + 1
        if DECIDES.search(code, start, end):
            continue
        declared = DECLARATION.match(code, start, end)
        opposite = f"{text[start:end]}; !{declared[1]}" if declared else f"!({text[start:end]})"
        yield Site("condition", start, end, (opposite,))


def guards(code, text):
    """`if (…) return …;`, with a block or without; nothing that goes on with `else`."""
    for found in CONDITION.finditer(code):
        leaves = LEAVES.match(code, closing(code, found.end() - 1))
        if found[0].startswith("if") and leaves and not re.match(r"\s*else\b", code[leaves.end():]):
            yield Site("guard", found.start(), leaves.end(), (";",))


def statements(code, text):
    """Calls and assignments that stand by themselves."""
    for begun in BEGINS.finditer(code):
        start = begun.end()
        while head := HEAD.match(code, start):
            start = closing(code, head.end() - 1)
            start += len(code[start:]) - len(code[start:].lstrip())
        end = semicolon(code, start, len(code))
        statement = code[start:end]
        if ASSIGNMENT.match(statement) or (CALL.match(statement) and statement[-1] == ")"):
            yield Site("statement", start, end, ("",))


def returns(code, text):
    for found in RETURN.finditer(code):
        if not NOTHING.match(found[0]):
            yield Site("return", found.start(), found.end(), ("return {};", "return;"))


KINDS = (operators, negations, choices, truths, numbers, conditions, guards, statements, returns)


def sites(file):
    """All of a SourceFile's, in their order."""
    code = plain_code(file)
    return sorted((site for kind in KINDS for site in kind(code, file.text)), key=lambda site: (site.start, site.kind))
