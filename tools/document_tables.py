"""House rules: the documents' tables say what the code says, the paths that documents name exist, and each command of the
UI is fuzzed."""

import re

from include_rules import LAYERS

ARCHITECTURE = "docs/architecture.md"
COMPLETENESS = "docs/completeness.md"
PROTOCOL = "docs/ui-protocol.md"
UI_INPUTS = "fuzz/corpus/ui_records/"

_PHRASE = r'((?:"(?:\\.|[^"\\])*"\s*)+)\}'  # adjacent literals are one
_COMMAND_BEGINS = re.compile(r'\{\s*L"[^"]*",\s*Match::')
_COMMAND = re.compile(r'\{\s*L"([^"]+)",\s*Match::(Exact|Contains),[^,]+,\s*(?:nullptr|L"(?:\\.|[^"\\])*"),\s*'
                      + _PHRASE)
_TEXT_BEGINS = re.compile(r"\bUiText k\w+\{")
_TEXT = re.compile(r'UiText k\w+\{\s*L"([^"]+)",\s*Guide::(Gets|Misses),\s*Wait::(Patient|Briefly),'
                   r"\s*Keep::(Always|UntilStale),\s*" + _PHRASE)

_AREAS_BEGIN = re.compile(r"\{[BC],\s*(?:true|false),")
_RANGE = r"(None|\{\s*-?\d+,\s*-?\d+\})"
_AREAS = re.compile(r"\{([BC]),\s*(true|false),\s*(true|false),\s*(\w+),\s*" + r",\s*".join([_RANGE] * 5) + r"\}")

_TIMERS = re.compile(r"\benum class ServiceTimer\b[^{]*\{([^}]*)\}")
_TIMER = re.compile(r"\w+ = (\d+)")
_TIMER_CELL = re.compile(r"`(\d+)`")
_THREAD = re.compile(r'\bStartThread\(L"([^"]+)"')
_THREAD_CELL = re.compile(r'"([^"]+)"')
_FOLDER_CELL = re.compile(r"`([\w/]+)/`")
_PATH = re.compile(r"`([\w-][\w.-]*(?:/[\w.-]+)+)/?`")


def _command_cells(row):
    anywhere = {"Exact": "", "Contains": "…"}[row[2]]
    return anywhere + row[1] + anywhere, _joined(row[3])


def _text_cells(row):
    return (row[1], {"Gets": "gets it", "Misses": ""}[row[2]], {"Patient": "until taken", "Briefly": "100 ms"}[row[3]],
            {"Always": "", "UntilStale": "may go stale"}[row[4]], _joined(row[5]))


def _area_cells(row):
    user = "both" if row[1] == "C" else {"false": "older", "true": "newer"}[row[2]]
    corner, *ranges = [re.findall(r"-?\d+", numbers) for numbers in row.groups()[4:]]
    return (row[1], user, {"false": "normal", "true": "large"}[row[3]],
            {"FirstShow": "first shown", "Normal": "normal", "Hover": "raised"}[row[4]], ", ".join(corner),
            *(" to ".join(numbers) for numbers in ranges))


def _joined(literals):
    return "".join(re.findall(r'"((?:\\.|[^"\\])*)"', literals))


def _line(file, match):
    return file.text.count("\n", 0, match.start()) + 1


def _rows_are_those_of_the_code(tree, heading, folder, begins, row, cells_of):
    """The protocol's rows below a heading are exactly those that the code's rows in the folder come to."""
    document = tree.files.get(PROTOCOL)
    if document is None:
        return
    listed = [(cells, number) for number, section, cells in document.table_rows if section == heading]
    expected = []
    for file in tree.cpp(folder):
        for begin in begins.finditer(file.without_comments):
            match = row.match(file.without_comments, begin.start())
            if match is None:
                yield file.at(_line(file, begin), "the row cannot be read; write it as document_tables.py expects it")
                continue
            expected.append(list(cells_of(match)))
            if [cells for cells, _ in listed].count(expected[-1]) != 1:
                yield file.at(_line(file, match), f"{PROTOCOL} must have this row once: | {' | '.join(expected[-1])} |")
    for cells, number in listed:
        if cells not in expected:
            yield document.at(number, f"{heading}: {folder} has no such row; write what the code says, or drop the row")


def commands_are_those_of_the_code(tree):
    yield from _rows_are_those_of_the_code(tree, "Commands to the controller", "src/uilink/commands/", _COMMAND_BEGINS,
                                           _COMMAND, _command_cells)


def commands_are_fuzzed(tree):
    for file in tree.cpp("src/uilink/commands/"):
        for command in _COMMAND.finditer(file.without_comments):
            if (seed := UI_INPUTS + command[1]) not in tree.paths:
                yield file.at(_line(file, command), f"the fuzzer has no record to begin with; printf f{command[1]} >{seed}")


def texts_are_those_of_the_code(tree):
    yield from _rows_are_those_of_the_code(tree, "Texts to the UI", "src/uilink/channel/", _TEXT_BEGINS, _TEXT,
                                           _text_cells)


def areas_are_those_of_the_code(tree):
    yield from _rows_are_those_of_the_code(tree, "The overlay's areas", "src/windows/mover/", _AREAS_BEGIN, _AREAS,
                                           _area_cells)


def _one_row_each(tree, path, what, cell, places):
    """Each name of the code has one row in the document; `places` are its names, each with the line that has it."""
    document = tree.files.get(path)
    if document is None:
        return
    rows = [(match[1], number) for number, _, cells in document.table_rows if (match := cell.match(cells[0]))]
    for name, (file, line) in places.items():
        if [other for other, _ in rows].count(name) != 1:
            yield file.at(line, f"the {what} {name} must have one row in {path}; add it, or keep only one")
    for name, number in rows:
        if name not in places:
            yield document.at(number, f"the code has no {what} {name}; drop the row")


def timers_have_their_rows(tree):
    places = {}
    for file in tree.cpp("src/core/"):
        for timers in _TIMERS.finditer(file.without_comments):
            places |= {timer[1]: (file, _line(file, timers)) for timer in _TIMER.finditer(timers[1])}
    yield from _one_row_each(tree, COMPLETENESS, "timer", _TIMER_CELL, places)


def threads_have_their_rows(tree):
    places = {thread[1]: (file, _line(file, thread)) for file in tree.cpp("src/")
              for thread in _THREAD.finditer(file.without_comments)}
    yield from _one_row_each(tree, ARCHITECTURE, "thread", _THREAD_CELL, places)


def layers_are_pictured(tree):
    document = tree.files.get(ARCHITECTURE)
    if document is None:
        return
    first_cells = (_FOLDER_CELL.fullmatch(cells[0]) for _, _, cells in document.table_rows)
    if [match[1] for match in first_cells if match] != LAYERS:
        yield document.at(1, "the rows of folders are not LAYERS of include_rules.py; give each its row, in its order: "
                             + ", ".join(LAYERS))


def named_paths_exist(tree):
    """In backquotes, as seen from the root, from src/ or from the document. The change log speaks of the past."""
    known = {path.removesuffix(".h") for path in tree.paths} | tree.paths
    known |= {path[:end.start()] for path in tree.paths for end in re.finditer("/", path)}
    for file in tree.files.values():
        if file.suffix != ".md" or file.name == "CHANGELOG.md":
            continue
        roots = ("", "src/", file.path.removesuffix(file.name))
        for number, line in enumerate(file.lines, 1):
            for path in _PATH.findall(line):
                if not path.startswith("build/") and not any(root + path in known for root in roots):
                    yield file.at(number, f"there is no {path}; name what there is")


RULES = (
    commands_are_those_of_the_code,
    commands_are_fuzzed,
    texts_are_those_of_the_code,
    areas_are_those_of_the_code,
    timers_have_their_rows,
    threads_have_their_rows,
    layers_are_pictured,
    named_paths_exist,
)
