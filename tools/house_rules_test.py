#!/usr/bin/env python3
"""Shows that each house rule bites, and that it leaves alone what is allowed."""

import contextlib
import io
import subprocess
import tempfile
import unittest
from pathlib import Path

import house_rules
from explorer_rules import LEFT_OUT
from include_rules import LAYERS
from source_tree import Tree

H = "#pragma once\n"

PROTOCOL, COMPLETENESS, ARCHITECTURE = "docs/ui-protocol.md", "docs/completeness.md", "docs/architecture.md"
COMMANDS, TEXTS = "src/uilink/commands/a.cpp", "src/uilink/channel/ui_texts.h"
AREAS = "src/windows/mover/a.cpp"

COMPLETE = {
    PROTOCOL: "## Commands to the controller\n| text | what happens |\n|---|---|\n"
              "| UP | point; moves it up |\n| …SAY=… | says it |\n"
              "## Texts to the UI\n| text | guide | waited for | behind others | when |\n|---|---|---|---|---|\n"
              "| ON | gets it | until taken |  | it is on |\n| LATE |  | 100 ms | may go stale | it is late |\n"
              "## The overlay's areas\n| panel | UI | layout | overlay | corner | down | pin | up | y |\n"
              "|---|---|---|---|---|---|---|---|---|\n| B | newer | large | raised | -5, 6 | 1 to 2 |  |  | 3 to 4 |\n",
    COMMANDS: 'C k[] = {{L"UP", Match::Exact, Up<1>, nullptr, "point; "\n  "moves it up"},\n'
              '         {L"SAY=", Match::Contains, Say, L"a, \\"b\\" \\n", "says it"}};\n',
    TEXTS: H + 'constexpr UiText kOn{L"ON", Guide::Gets, Wait::Patient, Keep::Always, "it is on"};\n'
               'constexpr UiText kLate{\n  L"LATE", Guide::Misses, Wait::Briefly, Keep::UntilStale,\n  "it is late"};\n',
    COMPLETENESS: "| timer | file |\n|---|---|\n| `17`, each hour | `core/timers.h`, `src/core`, `build/a.cpp` |\n",
    "src/core/timers.h": H + "enum class ServiceTimer : int {\n  Hour = 17,  // not Day = 18\n};\n",
    ARCHITECTURE: "| folder | what |\n|---|---|\n" + "".join(f"| `{folder}/` | it |\n" for folder in LAYERS) +
                  '\n| thread | does |\n|---|---|\n| main | all |\n| "UI launch" | one launch |\n',
    "src/core/a.cpp": 'void F() { os::StartThread(L"UI launch", G); }\n',
    AREAS: "R r[] = {\n    {B, true, true,  Hover, { -5, 6}, {1, 2}, None, None, { 3, 4}},\n};\n", "src/uilink/events/a.cpp": "",
    "fuzz/corpus/ui_records/UP": "", "fuzz/corpus/ui_records/SAY=": "",
}


def changed(path, old, new):
    """The complete tree above with one file's text changed."""
    assert old in COMPLETE[path], old
    return COMPLETE | {path: COMPLETE[path].replace(old, new)}


# name → (files, where each finding must be). A finding's text is held against the start "path:line: " and a word of it.
BITES = {
    "windows headers": ({"src/power/a.cpp": "\n#include <Windows.h>\n", "tests/a_test.cpp": "# include <hidsdi.h>\n"},
                        ["src/power/a.cpp:2: <Windows.h> outside", "tests/a_test.cpp:1: <hidsdi.h>"]),
    "time and threads": ({"sim/a.cpp": "auto t = time(nullptr);\n", "sim/ui.cpp": "#include <thread>\nstd::jthread t;\n",
                          "src/core/a.cpp": "int n = 3'600'000; char c = '\"'; std::thread t;\n",
                          "src/power/a.cpp": "// one\nvoid F() { usleep(5); }\n",
                          "tests/a_test.cpp": "#include <chrono>\nauto t = std::chrono::seconds(1);\n"},
                         ["sim/a.cpp:1: 'time(nullptr)' reads", "sim/ui.cpp:1: <thread> starts",
                          "sim/ui.cpp:2: 'std::jthread' starts", "src/core/a.cpp:1: 'std::thread' starts",
                          "src/power/a.cpp:2: 'usleep(' sleeps", "tests/a_test.cpp:1: <chrono> reads",
                          "tests/a_test.cpp:2: 'std::chrono' reads"]),
    "what never happens to the explorer": (
        {"sim/power.h": H + "class Power {\n public:\n  void Plug();\n  void Surge(int by);\n  bool IsOn() const;\n"
                        "  void ForgetAll();\n private:\n  void Burn();\n};\n",
         "explorer/a.cpp": "void F() { power.Plug(); }  // Surge(1)\n", "tools/explorer_rules.py": ""},
        ["sim/power.h:5: Surge never happens", *(f"tools/explorer_rules.py:1: no part offers {name}"
                                                  for name in sorted(LEFT_OUT))]),
    "outcome dropped without a reason": (
        {"src/core/a.cpp": "(void)os::Go();  // as it may\n// may it?\n  if (a) (void)Go();\n\n  std::ignore = Go();\n"
                           "  static_cast<void>(Go(\"// no\"));\n", "sim/a.cpp": "int F(void);\n\n(void)Go();\n"},
        ["sim/a.cpp:3: an outcome is dropped", "src/core/a.cpp:5: an outcome", "src/core/a.cpp:6: an outcome"]),
    "includes": ({"sim/a.cpp": '#include "core/a.h"\n', "sim/a.h": "// #pragma once\n", "src/core/a.h": H,
                  "src/core/b.cpp": "#include <core/a.h>\n", "src/misc/a.h": H,
                  "src/os/win32/b.h": H + '#include "core/a.h"\n', "src/power/a.cpp": '#include "os/win32/b.h"\n',
                  "src/power/b.cpp": '#include "a.h"\n#include "../core/a.h"\n', "src/windows/mover/a.h": H,
                  "src/windows/b.h": H + '#include "windows/mover/a.h"\n'},
                 ["sim/a.cpp:1: \"core/a.h\" is no header of the door", "sim/a.h:1: the header has no",
                  "src/core/b.cpp:1: <core/a.h> is a file of this tree", "src/misc/a.h:1: the folder belongs to no layer",
                  "src/os/win32/b.h:2: os stands below core and includes src/core/a.h",
                  "src/power/a.cpp:1: src/os/win32/b.h is private", "src/power/b.cpp:1: \"a.h\" is not a file of the tree",
                  "src/power/b.cpp:2: \"../core/a.h\" is not a file of the tree",
                  "src/windows/b.h:2: windows stands below windows/mover"]),
    "variables in a header": ({"src/core/a.h": H + "extern State<bool> gA;\ninline int gB{0};\n"},
                              ["src/core/a.h:2: a variable", "src/core/a.h:3: a variable"]),
    # Neither header nor source closes the circle alone: power/a is a.h and a.cpp together.
    "circle of modules": ({"src/power/a.h": H, "src/power/a.cpp": '#include "power/a.h"\n#include "power/b.h"\n',
                           "src/power/b.h": H, "src/power/b.cpp": '#include "power/c.h"\n',
                           "src/power/c.h": H + '#include "power/a.h"\n'},
                          ["src/power/c.h:2: includes run in a circle: power/a → power/b → power/c → power/a; "]),
    "door function not accounted for": (
        {"src/os/a.h": H + "namespace os {\nstruct S { void (*Call)(int); };\n[[nodiscard]] int One(S s = {});\n"
                           "void Two();  // not Three()\n}\n",
         "docs/verification.md": "| door | Wine |\n|---|---|\n| `a.h` | `One`, `Gone` |\n| `b.h` | |\n"},
        ["docs/verification.md:3: a.h declares Two", "docs/verification.md:3: a.h declares no Gone",
         "docs/verification.md:4: there is no b.h"]),
    "command said otherwise": (changed(COMMANDS, "moves it up", "moves it down"),
                               [PROTOCOL + ":4: Commands to the controller: src/uilink/commands/ has no such row",
                                COMMANDS + ":1: " + PROTOCOL + " must have this row once: | UP | point; moves it down |"]),
    "command matched otherwise": (changed(COMMANDS, "Match::Contains", "Match::Exact"),
                                  [PROTOCOL + ":5: Commands", COMMANDS + ":3: docs/ui-protocol.md must have"]),
    "command that is not fuzzed": ({COMMANDS: COMPLETE[COMMANDS]},
                                   [COMMANDS + ":1: the fuzzer has no record", COMMANDS + ":3: the fuzzer has no"]),
    "row twice": (changed(PROTOCOL, "| UP |", "| UP | point; moves it up |\n| UP |"), [COMMANDS + ":1: docs"]),
    "row that cannot be read": (changed(COMMANDS, ' "says it"', " kPhrase"),
                                [PROTOCOL + ":5: Commands", COMMANDS + ":3: the row cannot be read"]),
    "text sent otherwise": (changed(TEXTS, "Wait::Briefly", "Wait::Patient"),
                            [PROTOCOL + ":10: Texts to the UI", TEXTS + ":3: " + PROTOCOL + " must have this row once: "
                             "| LATE |  | until taken | may go stale | it is late |"]),
    "area elsewhere": (changed(AREAS, "{1, 2}", "{1, 3}"), [PROTOCOL + ":14: The overlay's areas", AREAS + ":2: docs"]),
    "timer and thread renamed": (
        changed(COMPLETENESS, "17", "19") | {"src/core/a.cpp": 'bool b = os::StartThread(L"launch", G);\n'},
        [ARCHITECTURE + ":20: the code has no thread UI launch", COMPLETENESS + ":3: the code has no timer 19",
         "src/core/a.cpp:1: the thread launch must have", "src/core/timers.h:2: the timer 17 must have one row"]),
    "layer without a row": (changed(ARCHITECTURE, "| `os/` | it |\n", ""), [ARCHITECTURE + ":1: the rows of folders"]),
    "path that is not there": ({"a/b.md": "`c/d.cpp` `src/a/b.cpp` `core/e` `x/y`\n", "a/c/d.cpp": "", "src/core/e.h": H},
                               ["a/b.md:1: there is no src/a/b.cpp", "a/b.md:1: there is no x/y"]),
    "untidy text": ({"README.md": "one\ntwo \none\r\ntwo", "lab/a.cpp": "int a;\n" * 401, "src/core/a.cpp": "\tint a;\n"},
                    ["README.md:2: blanks", "README.md:3: blanks", "README.md:4: the last line",
                     "lab/a.cpp:401: 401 lines", "src/core/a.cpp:1: a tab"]),
}

ALLOWED = {
    "all has its row": COMPLETE,
    "elsewhere": {
        "lab/a.cpp": "#include <hid.h>\n",
        "src/os/win32/a.cpp": "#include <thread>\nvoid F() { std::this_thread::yield(); }\n",
        "sim/scheduler.h": H + "#include <thread>\n#include <condition_variable>\n",
        "bench/a_bench.cpp": "#include <chrono>\n", "sim/a.cpp": "int a;\n" * 400,
        "src/core/a.cpp": '// std::thread\n/*\nusleep(1)\n*/ auto s = LR"(std::async)";\n'
                          'auto t = L"\\"<chrono> std::chrono";\n'
                          "void F() { os::Sleep(50); panel.time(0); Runtime(0); }\n",
    },
    "includes down the layers": {
        "src/os/a.h": H, "src/core/b.h": H + '#include "os/a.h"\n', "src/os/win32/w.h": H,
        "src/uilink/channel/c.h": H + '#include "core/b.h"\ninline constexpr int kOne = 1;\ninline int F(int a);\n',
        "src/windows/mover/d.cpp": '#include "uilink/channel/c.h"\n',
        "src/os/win32/programs/a.cpp": '#include <windows.h>\n#include "windows/mover/d.h"\n#include "resources/r.h"\n',
        "src/windows/mover/d.h": H,
        "resources/r.h": H, "sim/d.h": H, "tests/d_test.cpp": '#include "sim/d.h"\n#include "core/b.h"\n',
    },
    "two ways to one module": {
        "src/power/a.cpp": '#include "power/b.h"\n#include "power/c.h"\n', "src/power/b.h": H + '#include "power/c.h"\n',
        "src/power/c.h": H,
    },
}


class HouseRules(unittest.TestCase):
    def test_each_rule_bites(self):
        for name, (files, expected) in BITES.items():
            with self.subTest(name):
                found = house_rules.findings(Tree(files))
                self.assertEqual(len(found), len(expected), found)
                for finding, start in zip(sorted(found), expected):
                    self.assertTrue(finding.startswith(start), finding)

    def test_what_is_allowed_passes(self):
        for name, files in ALLOWED.items():
            with self.subTest(name):
                self.assertEqual(house_rules.findings(Tree(files)), [])

    def test_share_of_tests_counts_lines_that_say_something(self):
        tree = Tree({"tests/a.h": "a\n\nb\n", "tools/b_test.py": "a\n", "lab/contract/c.cpp": "a\n",
                     "lab/tests/d.h": "a\n", "lab/kit/e.cpp": "a\n", "src/core/a.cpp": "a\n \nb\nc\n",
                     "tools/check_it": "#!/bin/sh\ntrue\n", "docs/a.md": "a\n", "cmake/a.cmake": "a\n"})
        self.assertEqual(house_rules.test_share(tree), (5, 6))

    def test_runs_over_tracked_and_new_files_but_not_over_ignored_ones(self):
        def run():
            with contextlib.redirect_stdout(io.StringIO()) as output:
                return house_rules.main(["--root", folder]), output.getvalue()

        with tempfile.TemporaryDirectory() as folder:
            subprocess.run(["git", "init", "--quiet", folder], check=True)
            files = {".gitignore": "build/\n", "build/a.cpp": "\t", "src/core/tracked.h": H + "//\n" * 6,
                     "tests/a_test.cpp": "int a;\n" * 2, "gone.txt": "one\n", "picture.ico": "\0\xff \n\t"}
            for name, text in files.items():
                (Path(folder) / name).parent.mkdir(parents=True, exist_ok=True)
                (Path(folder) / name).write_bytes(text.encode("latin-1"))
            subprocess.run(["git", "-C", folder, "add", "."], check=True)
            (Path(folder) / "gone.txt").unlink()
            self.assertEqual(run()[0], 0, run()[1])
            (Path(folder) / "src/core/new.cpp").write_text("\tint a;\n" * 5)
            code, output = run()
            self.assertEqual(code, 1)
            self.assertIn("src/core/new.cpp:1: a tab", output)
            self.assertIn("2 lines of test to 12 of other code; it must have 3 to 4", output)


if __name__ == "__main__":
    unittest.main()
