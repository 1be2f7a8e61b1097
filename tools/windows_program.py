#!/usr/bin/env python3
"""Checks linked Windows programs: each is small, hardened, tells its version and needs nothing but Windows itself."""

import argparse
import re
import struct
import subprocess
import sys
from pathlib import Path

LARGEST_SIZE = 600_000  # bytes; a leap beyond is a library that crept in

# Libraries that every Windows of the supported versions has in its system folder.
WINDOWS_LIBRARIES = re.compile(
    r"(advapi32|cfgmgr32|combase|gdi32|hid|kernel32|msvcrt|ole32|oleaut32|powrprof|propsys|rpcrt4|setupapi|shcore|shell32"
    r"|shlwapi|user32|userenv|version|wevtapi|wtsapi32|ucrtbase|(api|ext)-ms-win-[\w-]+)\.dll",
    re.IGNORECASE,
)

# Bits of the optional header's DllCharacteristics.
HARDENING = {0x0020: "high-entropy addresses", 0x0040: "address randomisation", 0x0100: "no execution of data"}

FIXED_VERSION_SIGNATURE = struct.pack("<I", 0xFEEF04BD)  # VS_FIXEDFILEINFO


def imported_libraries(objdump_listing):
    return re.findall(r"^\s*DLL Name: (\S+)", objdump_listing, re.MULTILINE)


def dll_characteristics(image):
    header = struct.unpack_from("<I", image, 0x3C)[0]
    return struct.unpack_from("<H", image, header + 24 + 70)[0]


def file_version(image):
    """The version resource's file version as four numbers, or None without such a resource."""
    start = image.find(FIXED_VERSION_SIGNATURE)
    if start < 0 or "VS_VERSION_INFO".encode("utf-16-le") not in image:
        return None
    high, low = struct.unpack_from("<II", image, start + 8)
    return (high >> 16, high & 0xFFFF, low >> 16, low & 0xFFFF)


def faults(image, libraries, version):
    """What is wrong with the program, one line each; `version` is the project's, such as (0, 1, 0)."""
    if len(image) >= LARGEST_SIZE:
        yield f"it has {len(image)} bytes; keep it under {LARGEST_SIZE}"
    if not libraries:
        yield "it imports nothing at all: the import table could not be read"
    for library in libraries:
        if not WINDOWS_LIBRARIES.fullmatch(library):
            yield f"it imports {library}, which Windows does not bring; link it statically"
    for bit, name in HARDENING.items():
        if not dll_characteristics(image) & bit:
            yield f"{name} is not switched on; see the linker flags"
    found = file_version(image)
    if found is None:
        yield "it has no version resource"
    elif found[: len(version)] != version:
        yield f"its version resource says {found}, the project says {version}"


def project_version(cmake_lists):
    found = re.search(r"project\([^)]*\bVERSION\s+([\d.]+)", cmake_lists)
    return tuple(int(number) for number in found[1].split("."))


def check(program, objdump, version):
    """Prints what the program is, after what is wrong with it; True when nothing is."""
    listing = subprocess.run([objdump, "-p", program], check=True, capture_output=True, text=True).stdout
    image = program.read_bytes()
    libraries = imported_libraries(listing)
    found = list(faults(image, libraries, version))
    for fault in found:
        print(f"{program.name}: {fault}")
    print(f"{program.name}: {len(image)} bytes, version {file_version(image)}, imports {', '.join(libraries)}")
    return not found


def main(arguments):
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("programs", type=Path, nargs="+", metavar="program")
    parser.add_argument("--objdump", default="x86_64-w64-mingw32-objdump")
    options = parser.parse_args(arguments)

    version = project_version((Path(__file__).resolve().parent.parent / "CMakeLists.txt").read_text())
    sound = [check(program, options.objdump, version) for program in options.programs]
    return 0 if all(sound) else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
