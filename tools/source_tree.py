"""The files of the tree as the house rules see them."""

import re
import subprocess
from functools import cached_property
from pathlib import Path, PurePosixPath

CPP_SUFFIXES = {".h", ".cpp", ".c"}
DATA_FOLDER = "fuzz/corpus/"  # inputs that are bytes, whatever they look like
CODE_SUFFIXES = CPP_SUFFIXES | {".py", ".sh"}

# Numbers are matched so that the digit separators in 3'600'000 do not pass for character literals.
_TOKEN = re.compile(
    r"""(?P<raw>R"(?P<mark>[^(\s"]*)\(.*?\)(?P=mark)")
      | (?P<comment>//[^\n]*|/\*.*?\*/)
      | (?P<number>\b\d(?:'?[\w.])*)
      | (?P<text>"(?:\\.|[^"\\\n])*"|'(?:\\.|[^'\\\n])*')""",
    re.DOTALL | re.VERBOSE,
)
_INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"\n]+)[>"]', re.MULTILINE)


def _blanked(text, kinds):
    """`text` with the tokens of these kinds replaced by blanks, line for line."""

    def replace(match):
        kind = next(name for name in ("raw", "comment", "number", "text") if match[name] is not None)
        return re.sub(r"[^\n]", " ", match[0]) if kind in kinds else match[0]

    return _TOKEN.sub(replace, text)


class SourceFile:
    """One text file; `path` is relative to the root of the tree and uses forward slashes."""

    def __init__(self, path, text):
        self.path = path
        self.text = text
        self.name = PurePosixPath(path).name
        self.suffix = PurePosixPath(path).suffix

    @property
    def is_cpp(self):
        return self.suffix in CPP_SUFFIXES

    @property
    def is_code(self):
        return self.suffix in CODE_SUFFIXES or (not self.suffix and self.text.startswith("#!"))

    @property
    def is_test(self):
        in_tests = self.path.startswith(("tests/", "lab/tests/", "lab/contract/"))
        return in_tests or PurePosixPath(self.path).stem.endswith("_test")

    @cached_property
    def lines(self):
        return self.text.split("\n")

    @cached_property
    def bare_lines(self):
        """The lines of a C++ file without its comments and literals."""
        return _blanked(self.text, {"raw", "comment", "text"}).split("\n")

    @cached_property
    def without_comments(self):
        """A C++ file's text without its comments and raw literals."""
        return _blanked(self.text, {"raw", "comment"})

    @cached_property
    def includes(self):
        """(line number, included path, whether it is quoted) of each include of a C++ file."""
        text = self.without_comments
        return [(text.count("\n", 0, m.start()) + 1, m[2], m[1] == '"') for m in _INCLUDE.finditer(text)]

    @cached_property
    def table_rows(self):
        """(line number, heading above, cells) of each row in a document's tables, without the tables' own headers."""
        rows, heading = [], None
        for number, line in enumerate(self.lines, 1):
            if line.startswith("#"):
                heading = line.lstrip("# ")
            elif re.fullmatch(r"\|[-|: ]+\|", line):
                rows.pop()
            elif line.startswith("|"):
                rows.append((number, heading, [cell.strip() for cell in line.strip("|").split("|")]))
        return rows

    def at(self, line, message):
        return f"{self.path}:{line}: {message}"


class Tree:
    """Every text file, by path. Binary files and data are known by path only."""

    def __init__(self, texts, binary_paths=()):
        self.files = {path: SourceFile(path, text) for path, text in sorted(texts.items())}
        self.paths = set(texts) | set(binary_paths)

    @classmethod
    def of_repository(cls, root):
        """What git tracks under `root` and what it would track, had it been added."""
        listing = subprocess.run(
            ["git", "-c", f"safe.directory={root}", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
            cwd=root, check=True, capture_output=True, text=True,
        ).stdout
        texts, binary_paths = {}, []
        for path in filter(None, listing.split("\0")):
            file = Path(root, path)
            if file.is_symlink() or not file.is_file():
                continue
            content = file.read_bytes()
            try:
                if b"\0" in content or path.startswith(DATA_FOLDER):
                    raise ValueError
                texts[path] = content.decode()
            except ValueError:
                binary_paths.append(path)
        return cls(texts, binary_paths)

    def cpp(self, *prefixes):
        return [f for f in self.files.values() if f.is_cpp and f.path.startswith(prefixes or "")]
