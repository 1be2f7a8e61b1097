#!/usr/bin/env python3
"""Proves the house rules over every file that git tracks or would track.

Each finding is one line, `file:line: what is wrong and what to do instead`; the exit code is 1 when there is one.
"""

import argparse
import re
import sys
from pathlib import Path

import document_tables
import explorer_rules
import include_rules
import verification_table
from source_tree import Tree

LONGEST_CPP_FILE = 400  # lines
TEST_SHARE = (1 / 4, 1 / 3)  # non-blank lines of test to those of all other code
CODE_FOLDERS = ("src/", "sim/", "explorer/", "lab/", "bench/", "fuzz/", "tools/")

# What only the door may do by itself, who else may, and what everybody else does instead.
OWN_TIME_AND_THREADS = (
    (
        re.compile(r"\bstd::this_thread\b|\bstd::sleep\b|(?<![\w.>])(usleep|nanosleep|clock_nanosleep)\s*\("
                   r"|(?<![\w.>:])sleep\s*\(\s*\d"),
        {"unistd.h"},
        ("explorer/child_process.",),
        "sleeps by itself; call os::Sleep, or let a test advance the virtual time",
    ),
    (
        re.compile(r"\bstd::chrono\b|\bstd::(time|clock|timespec_get)\s*\("
                   r"|(?<![\w.>])(clock_gettime|gettimeofday|GetTickCount(64)?|QueryPerformanceCounter)\s*\("
                   r"|(?<![\w.>])time\s*\(\s*(nullptr|NULL|0|&\s*\w+)\s*\)"),
        {"chrono", "ctime", "time.h", "sys/time.h", "sys/timeb.h"},
        ("bench/",),
        "reads a clock by itself; call os::NowMs",
    ),
    (
        re.compile(r"\bstd::(j?thread|async|condition_variable(_any)?|counting_semaphore|binary_semaphore|latch|barrier"
                   r"|promise|future)\b|(?<![\w.>])(pthread_create|CreateThread|_beginthread(ex)?)\s*\("),
        {"thread", "future", "condition_variable", "semaphore", "latch", "barrier", "stop_token", "pthread.h",
         "threads.h"},
        ("sim/scheduler.",),
        "starts or waits for threads by itself; call os::StartThread and use the waits of the door",
    ),
)


def time_and_threads_behind_the_door(tree):
    for file in tree.cpp("src/", "sim/", "explorer/", "tests/", "bench/", "fuzz/"):
        if file.path.startswith("src/os/win32/"):
            continue
        for calls, headers, excepted, message in OWN_TIME_AND_THREADS:
            if excepted and file.path.startswith(excepted):
                continue
            yield from (file.at(n, f"<{path}> {message}") for n, path, quoted in file.includes
                        if not quoted and path in headers)
            for number, line in enumerate(file.bare_lines, 1):
                if found := calls.search(line):
                    yield file.at(number, f"'{found[0].strip()}' {message}")


# An outcome that is thrown away. A parameter list of C, "(void)", is followed by no name.
DROPPED = re.compile(r"(\(void\)|\bstatic_cast<void>\(|\bstd::ignore\s*=)\s*[\w:(*]")


def dropped_outcomes_have_reasons(tree):
    for file in tree.cpp("src/", "sim/"):
        spoken, before = file.without_comments.split("\n"), ""
        for number, (bare, line) in enumerate(zip(file.bare_lines, file.lines), 1):
            is_commented = before.lstrip().startswith("//") or spoken[number - 1].rstrip() != line.rstrip()
            if DROPPED.search(bare) and not is_commented:
                yield file.at(number, "an outcome is dropped; log a failure (LogFailure), or say why it may be dropped "
                                      "in a comment on this line or above it")
            before = line


def tidy_text(tree):
    for file in tree.files.values():
        if file.text and not file.text.endswith("\n"):
            yield file.at(len(file.lines), "the last line does not end; add a newline")
        for number, line in enumerate(file.lines, 1):
            if line != line.rstrip():
                yield file.at(number, "blanks (or a carriage return) at the end of the line; remove them")
            if file.is_cpp and "\t" in line:
                yield file.at(number, "a tab in C++ code; indent with spaces, write \\t in a literal")


def cpp_files_are_short(tree):
    for file in tree.cpp():
        if len(file.lines) - 1 > LONGEST_CPP_FILE:
            yield file.at(LONGEST_CPP_FILE + 1, f"{len(file.lines) - 1} lines, more than {LONGEST_CPP_FILE}; split the "
                                                "file by its ideas")


RULES = include_rules.RULES + verification_table.RULES + document_tables.RULES + explorer_rules.RULES + (
    time_and_threads_behind_the_door,
    dropped_outcomes_have_reasons,
    tidy_text,
    cpp_files_are_short,
)


def findings(tree):
    return [finding for rule in RULES for finding in rule(tree)]


def test_share(tree):
    """Non-blank lines of test, and of code without the tests."""
    tests = code = 0
    for file in tree.files.values():
        lines = sum(1 for line in file.lines if line.strip()) if file.is_code else 0
        if file.is_test:
            tests += lines
        elif file.path.startswith(CODE_FOLDERS):
            code += lines
    return tests, code


def main(arguments):
    parser = argparse.ArgumentParser(description="Proves the house rules over the tree.")
    parser.add_argument("--root", type=Path, default=Path(__file__).resolve().parent.parent)
    options = parser.parse_args(arguments)

    tree = Tree.of_repository(options.root)
    found = findings(tree)
    print("".join(f"{line}\n" for line in found), end="")

    tests, code = test_share(tree)
    least, most = (share * code for share in TEST_SHARE)
    balanced = least <= tests <= most
    note = "" if balanced else f"; it must have {least:.0f} to {most:.0f}"
    print(f"{len(tree.paths)} files, {len(found)} findings; {tests} lines of test to {code} of other code{note}")
    return 1 if found or not balanced else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
