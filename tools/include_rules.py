"""House rules about includes: the one door to Windows, paths, layers, no circles."""

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
WINDOWS_FOLDERS = ("src/os/win32/", "lab/")

# Folders below which a quoted include may start; the lab's own programs also start at lab/.
INCLUDE_ROOTS = ("src/", "")

# Module (path below src/, no suffix) → layer; the first match counts. A file includes its own layer and lower ones.
LAYERS = (
    (4, "start-up", re.compile(r"core/start_up|os/win32/(package_check/)?program")),
    (1, "foundation", re.compile(r"uilink/(ui_channel|ui_record|ui_sender|ui_state)")),
    (3, "UI commands and events", re.compile(r"uilink/.*")),
    (2, "subsystems", re.compile(r"(power|display|windows|appid|lifecycle|touch)/.*")),
    (1, "foundation", re.compile(r"core/.*")),
    (1, "real door", re.compile(r"os/win32/.*")),
    (0, "door", re.compile(r"os/[^/]*")),
)


def windows_headers_behind_the_door(tree):
    for file in tree.cpp():
        if file.path.startswith(WINDOWS_FOLDERS):
            continue
        for line, path, _ in file.includes:
            if WINDOWS_HEADER.fullmatch(path.lower()):
                yield file.at(line, f"<{path}> outside src/os/win32 and lab; call a door function of src/os instead")


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


def _layer(module):
    return next(((rank, name) for rank, name, pattern in LAYERS if pattern.fullmatch(module)), None)


def includes_go_down_the_layers(tree):
    for file in tree.cpp("src/"):
        if _layer(_module(file.path)) is None:
            yield file.at(1, "the file belongs to no layer; move it, or give its folder a layer in include_rules.py")
    for file, line, target in _includes_within_src(tree):
        if target.startswith("src/os/win32/") and not file.path.startswith("src/os/win32/"):
            yield file.at(line, f"{target} is private to the real door; include the door's header in src/os instead")
            continue
        own, other = _layer(_module(file.path)), _layer(_module(target))
        if own and other and other[0] > own[0]:
            yield file.at(line, f"{own[1]} includes {target} of the layer above ({other[1]}); move what is needed down, "
                                "or let the upper layer hand it in")


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
)
