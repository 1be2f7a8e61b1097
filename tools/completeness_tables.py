"""House rule: docs/completeness.md has a row for each command, text, timer and thread, and its rows name what exists."""

import re

DOCUMENT = "docs/completeness.md"
COMMAND_TABLE = "src/uilink/ui_commands.cpp"
TIMERS = "src/core/service_timers.h"
FILE_COPY_COMMAND = "COPYWALLPAPER"  # the one command outside the table, of a record of its own
NOT_SHOWN = "not shown"

# Literals in capital letters count as texts for the UI, wherever they stand, but for these.
NO_TEXTS = {
    "EDID",  # a value in the registry
    "HCONTROL",  # a window class
    "SDI",  # a monitor's connector
    "BINGWEATHER", "MICROSOFT", "MICROSOFTSOLITAIRECOLLECTION", "WINDOWSALARMS", "WINDOWSCALCULATOR",
    "WINDOWSSOUNDRECORDER", "ZUNEVIDEO",  # parts of packages' names
}

_ROW = re.compile(r"\|(.*)\|\s*$")
_QUOTED = re.compile(r"`([^`]+)`")
_COMMAND = re.compile(r'\{L"([^"]+)",\s*Match::')
_TEXT = re.compile(r'L"([A-Z]{2,}=?)"')
_TIMER = re.compile(r"\bk\w+Timer = (\d+);")
_THREAD = re.compile(r'\bStartThread\(L"([^"]+)"')
_TEST = re.compile(r"^TEST(?:_F|_P)?\((\w+),\s*(\w+)\)", re.MULTILINE)


class Row:
    """One row of a table: what it is about, the files that decide, the tests that show it."""

    def __init__(self, number, cells):
        self.number = number
        name = _QUOTED.match(cells[0])
        self.name = name[1] if name else None
        self.files = _QUOTED.findall(cells[-2])
        tests = cells[-1].partition("lab:")
        self.tests, self.lab_tests = _QUOTED.findall(tests[0]), _QUOTED.findall(tests[2])
        self.is_shown = bool(self.tests or self.lab_tests) or NOT_SHOWN in cells[-1]


def tables(document):
    """Heading → (its line, the rows below it); the rows above a table's rule are its header."""
    found, heading, in_body = {}, None, False
    for number, line in enumerate(document.lines, 1):
        if line.startswith("## "):
            heading, in_body = line[3:], False
            found[heading] = (number, [])
        elif heading and (match := _ROW.match(line)):
            cells = [cell.strip() for cell in match[1].split("|")]
            if not any(cell.strip("-") for cell in cells):
                in_body = True
            elif in_body and len(cells) >= 3:
                found[heading][1].append(Row(number, cells))
    return found


def _everywhere(pattern, files):
    return {name for file in files for name in pattern.findall(file.without_comments)}


def what_there_is(tree):
    """Heading → the names that its table must have, no more and no fewer."""
    decisions = [file for file in tree.cpp("src/") if not file.path.startswith("src/os/")]
    only = {path: [file for file in decisions if file.path == path] for path in (COMMAND_TABLE, TIMERS)}
    texts = _everywhere(_TEXT, [file for file in decisions if file.path != COMMAND_TABLE])
    return {
        "Commands of the UI": _everywhere(_COMMAND, only[COMMAND_TABLE]) | {FILE_COPY_COMMAND},
        "Texts to the UI": texts - NO_TEXTS,
        "Timers": _everywhere(_TIMER, only[TIMERS]),
        "Threads": _everywhere(_THREAD, decisions),
    }


def everything_has_its_row(tree):
    document = tree.files.get(DOCUMENT)
    if document is None:
        return
    found = tables(document)
    for heading, names in what_there_is(tree).items():
        number, rows = found.get(heading, (1, []))
        listed = [row.name for row in rows if row.name]
        yield from (document.at(number, f"{heading}: no row for {name}; add one") for name in sorted(names - set(listed)))
        for row in rows:
            if row.name and row.name not in names:
                yield document.at(row.number, f"{heading}: the code has no {row.name}; drop the row")
            elif row.name and listed.count(row.name) > 1:
                yield document.at(row.number, f"{heading}: {row.name} has more than one row; keep one")


def rows_name_what_exists(tree):
    document = tree.files.get(DOCUMENT)
    if document is None:
        return

    def tests_below(folder):
        return {f"{suite}.{name}" for file in tree.cpp(folder) for suite, name in _TEST.findall(file.without_comments)}

    native, lab = tests_below("tests/"), tests_below("lab/")
    for _, rows in tables(document).values():
        for row in rows:
            if not row.files:
                yield document.at(row.number, "names no file; say which one decides")
            if not row.is_shown:
                yield document.at(row.number, f"names no test; name one, or say '{NOT_SHOWN}'")
            missing = [path for path in row.files if path not in tree.paths]
            missing += [test for test in row.tests if test not in native]
            missing += [f"lab: {test}" for test in row.lab_tests if test not in lab]
            yield from (document.at(row.number, f"there is no {name}; name what there is") for name in missing)


RULES = (everything_has_its_row, rows_name_what_exists)
