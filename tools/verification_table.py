"""House rule: docs/verification.md says of every door function where it was shown."""

import re

DOCUMENT = "docs/verification.md"
_HEADER = re.compile(r"src/os/(\w+\.h)")
_ROW = re.compile(r"\|\s*`(\w+\.h)`\s*\|(.*)")
_FUNCTION = re.compile(r"\b([A-Z]\w*)\s*\(")


def _namespace_level(text):
    """What stands directly in the namespaces: without the bodies of classes, functions and initialisers."""
    text = re.sub(r"\bnamespace[\w\s:]*\{", "", text)
    while True:
        shorter = re.sub(r"\{[^{}]*\}", "", text)
        if shorter == text:
            return text
        text = shorter


def door_functions(file):
    """The functions that a header of the door declares: the first name before a parenthesis in each declaration."""
    bare = "\n".join(line for line in file.bare_lines if not line.startswith("#"))
    found = (_FUNCTION.search(declaration) for declaration in _namespace_level(bare).split(";"))
    return {match[1] for match in found if match}


def door_functions_are_accounted_for(tree):
    document = tree.files.get(DOCUMENT)
    headers = {match[1]: door_functions(file) for file in tree.cpp("src/os/")
               if (match := _HEADER.fullmatch(file.path))}
    headers = {name: functions for name, functions in headers.items() if functions}
    if document is None or not headers:
        return
    rows = {match[1]: (number, set(re.findall(r"`([A-Z]\w*)`", match[2])))
            for number, line in enumerate(document.lines, 1) if (match := _ROW.match(line))}
    for header, functions in headers.items():
        number, named = rows.get(header, (1, set()))
        for function in sorted(functions - named):
            yield document.at(number, f"{header} declares {function}; say in its row where that was shown")
        for name in sorted(named - functions):
            yield document.at(number, f"{header} declares no {name}; drop it from the row")
    for header in sorted(rows.keys() - headers.keys()):
        yield document.at(rows[header][0], f"there is no {header} in src/os with functions; drop the row")


RULES = (door_functions_are_accounted_for,)
