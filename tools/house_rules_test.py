#!/usr/bin/env python3
"""Shows that each house rule bites, and that it leaves alone what is allowed."""

import contextlib
import io
import subprocess
import tempfile
import unittest
from pathlib import Path

import house_rules
from source_tree import Tree

H = "#pragma once\n"

COMPLETE = {
    "docs/completeness.md":
        "## Commands of the UI\n| command | record | file | shown by |\n|---|---|---|---|\n"
        "| `UP` | 102 | `src/uilink/ui_commands.cpp` | `A.One`; lab: `A.Two` |\n"
        "| `COPYWALLPAPER` | 104 | `src/uilink/ui_commands.cpp` | `A.One` |\n"
        "## Texts to the UI\n| text | file | shown by |\n|---|---|---|\n"
        "| `VERSION=` and more | `src/uilink/a.cpp` | lab: `A.Two` |\n"
        "## Timers\n| timer | file | shown by |\n|---|---|---|\n| `17` | `src/core/service_timers.h` | not shown |\n"
        "## Threads\n| thread | file | shown by |\n|---|---|---|\n"
        "| main | `src/uilink/a.cpp` | `A.One` |\n| `UI launch` | `src/uilink/a.cpp` | `A.One` |\n",
    "src/uilink/ui_commands.cpp": 'C kCommands[] = {{L"UP", Match::Exact, Up}};\nbool b = text == L"COPYWALLPAPER";\n',
    "src/uilink/a.cpp": '// not L"GONE"\nauto t = L"VERSION=" + V();\nauto w = L"HCONTROL", x = L"A", y = L"UP_";\n'
                        'void F() { os::StartThread(L"UI launch", G); }\n',
    "src/core/service_timers.h": H + "inline constexpr int kOneTimer = 17;\n",
    "tests/a_test.cpp": "TEST(A, One) {}\n", "lab/tests/a_test.cpp": "TEST_F(A, Two) {}\n",
}


def changed(path, old, new):
    """The complete tree above with one file's text changed."""
    assert old in COMPLETE[path], old
    return COMPLETE | {path: COMPLETE[path].replace(old, new)}


DOCUMENT = "docs/completeness.md"

# name → (files, where each finding must be). A finding's text is held against the start "path:line: " and a word of it.
BITES = {
    "windows header": ({"src/power/a.cpp": "\n#include <Windows.h>\n"}, ["src/power/a.cpp:2: <Windows.h> outside"]),
    "windows header in a test": ({"tests/a_test.cpp": "# include <hidsdi.h>\n"}, ["tests/a_test.cpp:1: <hidsdi.h>"]),
    "sleep": ({"src/power/a.cpp": "// one\nvoid F() { usleep(5); }\n"}, ["src/power/a.cpp:2: 'usleep(' sleeps"]),
    "clock": ({"tests/a_test.cpp": "#include <chrono>\nauto t = std::chrono::seconds(1);\n"},
              ["tests/a_test.cpp:1: <chrono> reads", "tests/a_test.cpp:2: 'std::chrono' reads"]),
    "time": ({"sim/a.cpp": "auto t = time(nullptr);\n"}, ["sim/a.cpp:1: 'time(nullptr)' reads"]),
    "thread": ({"sim/ui.cpp": "#include <thread>\nstd::jthread t;\n"},
               ["sim/ui.cpp:1: <thread> starts", "sim/ui.cpp:2: 'std::jthread' starts"]),
    "thread after odd literals": ({"src/core/a.cpp": "int n = 3'600'000; char c = '\"'; std::thread t;\n"},
                                  ["src/core/a.cpp:1: 'std::thread' starts"]),
    "laptop that knows the program": ({"src/core/a.h": H, "sim/a.cpp": '#include "core/a.h"\n'},
                                      ["sim/a.cpp:1: \"core/a.h\" is no header of the door"]),
    "include beside the file": ({"src/power/a.h": H, "src/power/b.cpp": '#include "a.h"\n'},
                                ["src/power/b.cpp:1: \"a.h\" is not a file of the tree"]),
    "include upwards": ({"src/core/a.h": H, "src/power/b.cpp": '#include "../core/a.h"\n'},
                        ["src/power/b.cpp:1: \"../core/a.h\" is not a file of the tree"]),
    "own file in angle brackets": ({"src/core/a.h": H, "src/core/b.cpp": "#include <core/a.h>\n"},
                                   ["src/core/b.cpp:1: <core/a.h> is a file of this tree"]),
    "no pragma once": ({"sim/a.h": "// #pragma once\n"}, ["sim/a.h:1: the header has no"]),
    "unknown layer": ({"src/misc/a.h": H}, ["src/misc/a.h:1: the file belongs to no layer"]),
    "door includes foundation": ({"src/core/a.h": H, "src/os/b.h": H + '#include "core/a.h"\n'},
                                 ["src/os/b.h:2: door includes src/core/a.h"]),
    "subsystem includes commands": ({"src/uilink/ui_commands.h": H,
                                     "src/touch/a.cpp": '#include "uilink/ui_commands.h"\n'},
                                    ["src/touch/a.cpp:1: subsystems includes"]),
    "private header of the real door": ({"src/os/win32/w.h": H, "src/power/a.cpp": '#include "os/win32/w.h"\n'},
                                        ["src/power/a.cpp:1: src/os/win32/w.h is private"]),
    # Neither header nor source closes the circle alone: power/a is a.h and a.cpp together.
    "circle of modules": ({"src/power/a.h": H, "src/power/a.cpp": '#include "power/a.h"\n#include "display/b.h"\n',
                           "src/display/b.h": H, "src/display/b.cpp": '#include "touch/c.h"\n',
                           "src/touch/c.h": H + '#include "power/a.h"\n'},
                          ["src/power/a.cpp:2: includes run in a circle: display/b → touch/c → power/a → display/b; "]),
    "door function not accounted for": (
        {"src/os/a.h": H + "namespace os {\nstruct S { void (*Call)(int); };\n[[nodiscard]] int One(S s = {});\n"
                           "void Two();  // not Three()\n}\n",
         "docs/verification.md": "| door | Wine |\n|---|---|\n| `a.h` | `One`, `Gone` |\n| `b.h` | |\n"},
        ["docs/verification.md:3: a.h declares Two", "docs/verification.md:3: a.h declares no Gone",
         "docs/verification.md:4: there is no b.h"]),
    "command without a row": (changed("src/uilink/ui_commands.cpp", "Up}", 'Up}, {L"DOWN", Match::Contains, Down}'),
                              [DOCUMENT + ":1: Commands of the UI: no row for DOWN"]),
    "row without a command": (changed("src/uilink/ui_commands.cpp", '{L"UP", Match::Exact, Up}', ""),
                              [DOCUMENT + ":4: Commands of the UI: the code has no UP"]),
    "text without a row": (changed("src/uilink/a.cpp", "HCONTROL", "IAMBACK"),
                           [DOCUMENT + ":6: Texts to the UI: no row for IAMBACK"]),
    "text of a comment only": (changed("src/uilink/a.cpp", "auto t", "// auto t"),
                               [DOCUMENT + ":9: Texts to the UI: the code has no VERSION="]),
    "timer and thread renamed": (
        changed(DOCUMENT, "`17`", "`18`") | {"src/uilink/a.cpp": COMPLETE["src/uilink/a.cpp"].replace("UI l", "l")},
        [DOCUMENT + ":10: Timers: no row for 17", DOCUMENT + ":13: Timers: the code has no 18",
         DOCUMENT + ":14: Threads: no row for launch", DOCUMENT + ":18: Threads: the code has no UI launch"]),
    "row twice": (changed(DOCUMENT, "| main |", "| `UI launch` |"),
                  [DOCUMENT + ":17: Threads: UI launch has more", DOCUMENT + ":18: Threads: UI launch has more"]),
    "file and tests that are not there": (
        changed(DOCUMENT, "`src/uilink/ui_commands.cpp` | `A.One`; lab: `A.Two`", "`src/b.cpp` | `A.Two`; lab: `A.One`"),
        [DOCUMENT + ":4: there is no A.Two", DOCUMENT + ":4: there is no lab: A.One",
         DOCUMENT + ":4: there is no src/b.cpp"]),
    "row that names nothing": (changed(DOCUMENT, "| main | `src/uilink/a.cpp` | `A.One` |", "| main | somewhere | |"),
                               [DOCUMENT + ":17: names no file", DOCUMENT + ":17: names no test"]),
    "tab": ({"src/core/a.cpp": "\tint a;\n"}, ["src/core/a.cpp:1: a tab"]),
    "trailing blank": ({"README.md": "one\ntwo \n"}, ["README.md:2: blanks"]),
    "carriage return": ({"README.md": "one\r\n"}, ["README.md:1: blanks"]),
    "no last newline": ({"README.md": "one\ntwo"}, ["README.md:2: the last line"]),
    "long file": ({"lab/a.cpp": "int a;\n" * 401}, ["lab/a.cpp:401: 401 lines"]),
    "pointing outside": ({"docs/a.md": "as Part " + "3.2 says\nits Spec" + "ification\n"},
                         ["docs/a.md:1: 'Part 3", "docs/a.md:2: 'Spec"]),
}

ALLOWED = {
    "all has its row": COMPLETE,
    "windows headers at their place": {"src/os/win32/a.cpp": "#include <windows.h>\n", "lab/a.cpp": "#include <hidsdi.h>\n"},
    "the door sleeps": {"src/os/win32/a.cpp": "#include <thread>\nvoid F() { std::this_thread::yield(); }\n"},
    "the scheduler runs threads": {"sim/scheduler.h": H + "#include <thread>\n#include <condition_variable>\n"},
    "benchmarks read the clock": {"bench/a_bench.cpp": "#include <chrono>\n"},
    "words in comments and literals": {"src/core/a.cpp": '// std::thread\n/*\nusleep(1)\n*/ auto s = LR"(std::async)";\n'
                                                         'auto t = L"\\"<chrono> std::chrono";\n'},
    "calls through the door": {"src/core/a.cpp": "void F() { os::Sleep(50); panel.time(0); Runtime(0); }\n"},
    "includes down the layers": {
        "src/os/a.h": H, "src/core/b.h": H + '#include "os/a.h"\n', "src/uilink/ui_channel.h": H + '#include "core/b.h"\n',
        "src/power/c.cpp": '#include "uilink/ui_channel.h"\n', "src/power/c.h": H,
        "src/uilink/ui_commands.cpp": '#include "power/c.h"\n', "src/uilink/ui_commands.h": H,
        "src/core/start_up.cpp": '#include "uilink/ui_commands.h"\n', "src/core/start_up.h": H,
        "src/os/win32/program.cpp": '#include "core/start_up.h"\n#include "resources/resource.h"\n',
        "resources/resource.h": H, "sim/d.h": H, "tests/d_test.cpp": '#include "sim/d.h"\n#include "core/b.h"\n',
    },
    "two ways to one module": {
        "src/power/a.cpp": '#include "power/b.h"\n#include "power/c.h"\n', "src/power/b.h": H + '#include "power/c.h"\n',
        "src/power/c.h": H,
    },
    "short enough": {"sim/a.cpp": "int a;\n" * 400},
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
        tree = Tree({"tests/a_test.cpp": "a\n\nb\n", "tools/b_test.py": "a\n", "src/core/a.cpp": "a\n \nb\nc\nd\n",
                     "tools/check_it": "#!/bin/sh\ntrue\n", "docs/a.md": "a\n", "cmake/a.cmake": "a\n"})
        self.assertEqual(house_rules.test_share(tree), (3, 6))

    def test_runs_over_tracked_and_new_files_but_not_over_ignored_ones(self):
        def run(*arguments):
            with contextlib.redirect_stdout(io.StringIO()) as output:
                code = house_rules.main(["--root", str(root), *arguments])
            return code, output.getvalue()

        with tempfile.TemporaryDirectory() as folder:
            root = Path(folder)
            subprocess.run(["git", "init", "--quiet", folder], check=True)
            files = {".gitignore": "build/\n", "build/a.cpp": "\t", "src/core/tracked.h": H, "gone.txt": "one\n"}
            for name, text in files.items():
                (root / name).parent.mkdir(parents=True, exist_ok=True)
                (root / name).write_text(text)
            (root / "picture.ico").write_bytes(b"\0\xff \n\t")
            subprocess.run(["git", "-C", folder, "add", "."], check=True)
            (root / "gone.txt").unlink()
            self.assertEqual(run()[0], 0, run()[1])
            self.assertEqual(run("--ratio-strict")[0], 1)

            (root / "src/core/new.cpp").write_text("\tint a;\n")
            code, output = run()
            self.assertEqual(code, 1)
            self.assertIn("src/core/new.cpp:1: a tab", output)


if __name__ == "__main__":
    unittest.main()
