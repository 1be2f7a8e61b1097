"""House rule: whatever the simulated laptop offers to happen, happens to the explorer's laptops."""

import re

# The parts of a laptop that stories act on.
PARTS = ("apps", "desktop", "displays", "file_system", "firmware", "hooks", "hot_key", "input", "kernel_objects",
         "management", "mouse", "power", "processes", "screen", "service_window", "services", "sessions",
         "settings_view", "touch_controller", "trace_session", "ui")

# What does not happen there, and why not.
LEFT_OUT = {
    "Add": "another touch device is there from the beginning, or not at all",
    "AddFolder": "files of others matter to COPYWALLPAPER alone, whose refusals have tests of their own",
    "AddProgram": "the same",
    "AddTextFile": "the same",
    "DenyElsewhere": "then another controller is there, and this one leaves",
    "DragTitleBar": "as Throw",
    "End": "a process is ended with its UI",
    "GiveTo": "whose a program is, is seen when it begins",
    "HoldElsewhere": "the same as DenyElsewhere",
    "Input": "the parts use it themselves",
    "KeepFromUsers": "the same as AddFolder",
    "Move": "a program that moves its own window is nothing to the controller",
    "Post": "the parts use it themselves",
    "Project": "as UserProjects, untold",
    "RemoveAll": "a laptop without any display shows nothing that could be looked at",
    "SendRaw": "as Noise",
    "SetGeneration": "a machine stays what it is",
    "SetReadOnly": "settings that cannot be written are those of a spoilt call",
    "Signal": "as Add, of an event",
    "SignOut": "as SignInAgain",
    "UseF6": "as PressF6 and EndF6",
    "WhenLaidOut": "is the machine's own",
    "WhenLoggedOff": "the same",
    "WhenOneEnds": "the same",
}

_CLASS = re.compile(r"^class (\w+) \{(.*?)^ private:", re.DOTALL | re.MULTILINE)
_DEED = re.compile(r"^  (?:static )?(?:void|bool|[A-Z]\w+&|std::uint32_t|os::\w+) ([A-Z]\w*)\(([^;{]*?)\)( const)?(;| \{)",
                   re.MULTILINE)


def deeds(header):
    """(line number, name) of what can be done to the part that a header declares, without what only tells."""
    if found := _CLASS.search(header.text):
        for deed in _DEED.finditer(found[2]):
            if not deed[3] and not deed[1].startswith(("Forget", "Clear")):  # what was seen, nothing happens by it
                yield header.text.count("\n", 0, found.start(2) + deed.start(1)) + 1, deed[1]


def everything_happens(tree):
    explorer = "\n".join(file.without_comments for file in tree.cpp("explorer/"))
    if not explorer:
        return
    offered = set()
    for part in PARTS:
        if header := tree.files.get(f"sim/{part}.h"):
            for line, name in deeds(header):
                offered.add(name)
                if name not in LEFT_OUT and not re.search(rf"\b{name}\(", explorer):
                    yield header.at(line, f"{name} never happens to the explorer's laptops; add it to "
                                          "explorer/stimuli.cpp, or say in tools/explorer_rules.py why not")
    for name in sorted(LEFT_OUT.keys() - offered):
        if offered:
            yield tree.files["tools/explorer_rules.py"].at(1, f"no part offers {name}; drop it from the table")


RULES = (everything_happens,)
