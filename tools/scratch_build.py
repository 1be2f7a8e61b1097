"""A copy of the tree with its native tests built, in which one source at a time is changed and put back."""

import os
import re
import resource
import shlex
import shutil
import subprocess
import time
from contextlib import contextmanager
from pathlib import Path

SEEDS = 20  # of each program that plays random ones
MOST_MEMORY = 8 << 30  # bytes; a loop that never ends may fill a list on its way
FLAGS = "-O0 -w -D_GLIBCXX_ASSERTIONS"
FIRST = "tests/controller_tests"  # has the stories, and finds the most


class Outcome:
    """What running a program of tests came to."""

    def __init__(self, failed, output, seconds):
        self.failed = failed
        self.seconds = seconds
        # The test that failed; of a program that died, the one that ran.
        named = re.findall(r"^\[  FAILED  \] ([\w/]+\.[\w/]+)", output, re.M)
        began = re.findall(r"^\[ RUN      \] (\S+)", output, re.M)
        self.test = (named or began or [None])[-1] if failed else None


class ScratchBuild:
    def __init__(self, tree, folder, jobs):
        """Copies the tree's texts below `folder` and builds them there; what is there from an earlier run is kept."""
        self.tree, self.sources, self.build, self.jobs = tree, folder / "tree", folder / "build", jobs
        for path, file in tree.files.items():
            self.write(path, file.text)
        linker = " -fuse-ld=lld" if shutil.which("ld.lld") else ""
        subprocess.run(
            ["cmake", "-S", self.sources, "-B", self.build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=None",
             "-DCMAKE_CXX_COMPILER=" + os.environ.get("CXX", "clang++-14"), "-DCMAKE_CXX_FLAGS=" + FLAGS,
             "-DCMAKE_EXE_LINKER_FLAGS=" + linker, "-DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST"],
            check=True, stdout=subprocess.DEVNULL)
        targets = self._ninja("-t", "targets", "all").stdout
        programs = re.findall(r"^(tests/\w+_tests): CXX_EXECUTABLE", targets, re.M)
        self.programs = sorted(programs, key=lambda program: program != FIRST)
        if not self.make(*self.programs):
            raise SystemExit(self._ninja(*self.programs).stdout)

    def write(self, path, text):
        """Leaves a file alone that has this text already."""
        file = self.sources / path
        file.parent.mkdir(parents=True, exist_ok=True)
        if not file.is_file() or file.read_text() != text:
            file.write_text(text)

    def _ninja(self, *arguments):
        return subprocess.run(["ninja", "-C", self.build, f"-j{self.jobs}", *arguments], capture_output=True, text=True)

    def make(self, *targets):
        """False when something does not compile."""
        return self._ninja(*targets).returncode == 0

    def object_of(self, path):
        return f"CMakeFiles/controller.dir/{path}.o"

    @contextmanager
    def changed(self, path, text):
        """A source of the controller has this text meanwhile. What it compiled to is put back, too, with times that
        spare the next build from compiling it again; the library of all is made anew."""
        source, compiled = self.sources / path, self.build / self.object_of(path)
        kept = [(file, file.read_bytes(), file.stat()) for file in (compiled, source)]
        source.write_text(text)
        try:
            yield
        finally:
            recompiled = compiled.stat() if compiled.is_file() else kept[0][2]
            for (file, content, _), times in zip(kept, (recompiled, kept[1][2])):
                file.write_bytes(content)
                os.utime(file, ns=(times.st_atime_ns, times.st_mtime_ns))
            (self.build / "libcontroller.a").unlink(missing_ok=True)

    def compiled(self, path):
        """What a source of the controller compiles to; None when it does not."""
        target = self.object_of(path)
        return (self.build / target).read_bytes() if self.make(target) else None

    def optimised(self, path):
        """The same, optimised: sources that differ and mean the same often do not differ here."""
        command = self._ninja("-t", "commands", "-s", self.object_of(path)).stdout.strip().splitlines()[-1]
        command = re.sub(r" -Xclang \S+", "", command).replace("-O0", "-O2").split(" -o ")[0]
        done = subprocess.run([*shlex.split(command), "-o", "-", "-c", self.sources / path], cwd=self.build,
                              check=True, capture_output=True)
        return done.stdout

    def run(self, program, tests="*", limit=600):
        """Links a program and runs its tests up to the first that fails. `limit` is in seconds of the processor's time;
        a program that waits for ever ends after a multiple of it."""
        if not self.make(program):
            raise RuntimeError(f"{program} does not link")

        def limits():
            resource.setrlimit(resource.RLIMIT_CPU, (limit, limit))
            resource.setrlimit(resource.RLIMIT_AS, (MOST_MEMORY, MOST_MEMORY))
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

        seeds = Path(program).name.removesuffix("_tests").upper() + "_SEEDS"
        environment = os.environ | {"GTEST_FAIL_FAST": "1", "GTEST_COLOR": "no", "GTEST_FILTER": tests,
                                    seeds: str(SEEDS)}
        began = time.monotonic()
        process = subprocess.Popen([self.build / program], cwd=self.build, env=environment, preexec_fn=limits,
                                   stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace")
        try:
            output, _ = process.communicate(timeout=20 * limit)
        except subprocess.TimeoutExpired:
            process.kill()
            output, _ = process.communicate()
        return Outcome(process.returncode != 0, output, time.monotonic() - began)
