"""House rules about headers: the one door to Windows, paths, layers, no circles, no variables."""

import re

# Headers that exist on Windows only, in lower case: Windows itself does not care, and neither does the rule.
WINDOWS_HEADER = re.compile(
    r"(ddk/.*|wdm|ntddk|ntifs|win(dows|dowsx|base|def|error|ioctl|nls|nt|ntl|reg|res|svc|user|termutil|sock2?|ternl)"
    r"|hid(sdi|pi|usage|class|port)|setupapi|cfgmgr32|devguid|devpkey|initguid|guiddef|dbt|usb\w*"
    r"|shlobj(_core)?|shlwapi|shellapi|shellscalingapi|shobjidl(_core)?|shtypes|knownfolders|propkey|propsys"
    r"|powrprof|powersetting|userenv|wtsapi32|tlhelp32|psapi|evnt(prov|race|cons)|traceloggingprovider|wbem\w*"
    r"|appmodel|oobenotification|processthreadsapi|libloaderapi|comdef|comutil|combaseapi|objbase|ole2|oleauto|oaidl"
    r"|unknwn|physicalmonitorenumerationapi|highlevelmonitorconfigurationapi|conio|process|direct|tchar|io)\.h"
)
# Not indented, so outside of classes and functions.
_VARIABLE = re.compile(r"(extern|(inline|static)\s+(?!const))[^(]*[;={]")

# Folders below which a quoted include may start; the lab's own programs also start at lab/.
INCLUDE_ROOTS = ("src/", "")

# The folders of src/ from the ground up: a file includes files of its own folder and of those before it. The door's
# Windows side, os/win32, is private to itself; the programs' entries stand there and see what start-up sees.
LAYERS = [
    "os",
    "core",
    "display",
    "touch",
    "uilink/channel",
    "power",
    "windows",
    "appid",
    "windows/mover",
    "lifecycle",
    "uilink/commands",
    "uilink/events",
    "app",
]
WINDOWS_SIDE = "src/os/win32/"
PROGRAMS = WINDOWS_SIDE + "programs/"


def windows_headers_behind_the_door(tree):
    for file in tree.cpp():
        if file.path.startswith((WINDOWS_SIDE, "lab/")):
            continue
        for line, path, _ in file.includes:
            if WINDOWS_HEADER.fullmatch(path.lower()):
                yield file.at(line, f"<{path}> outside {WINDOWS_SIDE} and lab; call a door function of src/os instead")


def _resolve(tree, file, path):
    """The file of the tree that a quoted include names, or None."""
    roots = INCLUDE_ROOTS + (("lab/",) if file.path.startswith("lab/") else ())
    if "\\" in path or any(part in (".", "..") for part in path.split("/")):
        return None
    return next((root + path for root in roots if root + path in tree.paths), None)


def simulated_laptop_knows_the_door_only(tree):
    for file in tree.cpp("sim/"):
        for line, path, quoted in file.includes:
            if quoted and not re.fullmatch(r"(os|sim)/[^/]+", path):
                yield file.at(line, f'"{path}" is no header of the door; the simulated laptop does it by its own code')


def includes_start_at_a_root(tree):
    for file in tree.cpp():
        for line, path, quoted in file.includes:
            if quoted and _resolve(tree, file, path) is None:
                yield file.at(line, f'"{path}" is not a file of the tree; write the path as seen from src/ or from the '
                                    'root, such as "power/panel_power.h" or "sim/laptop.h"')
            if not quoted and _resolve(tree, file, path) is not None:
                yield file.at(line, f'<{path}> is a file of this tree; include it with quotes')


def headers_say_pragma_once(tree):
    for file in tree.cpp():
        if file.suffix == ".h" and not re.search(r"^#pragma once$", file.text, re.MULTILINE):
            yield file.at(1, "the header has no '#pragma once'; add it")


def _module(path):
    """A header and its .cpp are one module, named by their path below src/ without suffix."""
    return path.removeprefix("src/").rpartition(".")[0]


def _includes_within_src(tree):
    """(file, line, included path) of each include of one src/ file by another module of src/."""
    for file in tree.cpp("src/"):
        for line, path, quoted in file.includes:
            target = _resolve(tree, file, path) if quoted else None
            if target and target.startswith("src/") and _module(target) != _module(file.path):
                yield file, line, target


def _folder(path):
    """The layer that a file belongs to: its folder of src/."""
    if path.startswith(PROGRAMS):
        return "app"
    return path.removeprefix("src/").rpartition("/")[0].removesuffix("/win32")


def includes_go_down_the_layers(tree):
    for file in tree.cpp("src/"):
        if _folder(file.path) not in LAYERS:
            yield file.at(1, "the folder belongs to no layer; move the file, or give the folder its place in LAYERS of "
                             "include_rules.py")
    for file, line, target in _includes_within_src(tree):
        own, other = _folder(file.path), _folder(target)
        if target.startswith(WINDOWS_SIDE) and not file.path.startswith(WINDOWS_SIDE):
            yield file.at(line, f"{target} is private to the Windows side; include a header of src/{other} instead")
        elif own in LAYERS and other in LAYERS and LAYERS.index(other) > LAYERS.index(own):
            yield file.at(line, f"{own} stands below {other} and includes {target}; move what is needed down, or let "
                                "the upper layer hand it in")


def headers_export_no_variable(tree):
    for file in tree.cpp("src/"):
        if file.suffix != ".h" or file.path.startswith("src/os/"):
            continue
        for number, line in enumerate(file.bare_lines, 1):
            if _VARIABLE.match(line):
                yield file.at(number, "a variable in a header; keep it in the .cpp that owns it, behind functions")


def no_include_circles(tree):
    graph = {}
    for file, line, target in _includes_within_src(tree):
        graph.setdefault(_module(file.path), {}).setdefault(_module(target), (file, line))

    done, reported = set(), set()

    def visit(module, trail):
        if module in trail:
            circle = trail[trail.index(module):]
            if frozenset(circle) not in reported:
                reported.add(frozenset(circle))
                file, line = graph[circle[-1]][module]
                yield file.at(line, f"includes run in a circle: {' → '.join(circle + [module])}; "
                                    "move what both need into a file of its own")
            return
        if module in done:
            return
        for target in graph.get(module, {}):
            yield from visit(target, trail + [module])
        done.add(module)

    for module in graph:
        yield from visit(module, [])


RULES = (
    windows_headers_behind_the_door,
    simulated_laptop_knows_the_door_only,
    includes_start_at_a_root,
    headers_say_pragma_once,
    includes_go_down_the_layers,
    no_include_circles,
    headers_export_no_variable,
)
