#!/usr/bin/env python3
"""Shows that each fault of a Windows program is found, on images made up for it."""

import struct
import unittest

import windows_program


def image(characteristics=0x0160, version=(0, 1, 0, 7), size=2000):
    content = bytearray(size)
    struct.pack_into("<I", content, 0x3C, 0x80)
    struct.pack_into("<H", content, 0x80 + 24 + 70, characteristics)
    if version:
        name = "VS_VERSION_INFO".encode("utf-16-le")
        content[0x200 : 0x200 + len(name)] = name
        a, b, c, d = version
        struct.pack_into("<IIII", content, 0x240, 0xFEEF04BD, 0x10000, a << 16 | b, c << 16 | d)
    return bytes(content)


class WindowsProgram(unittest.TestCase):
    def test_each_fault_is_found(self):
        good = ["KERNEL32.dll", "USER32.dll", "api-ms-win-core-synch-l1-2-0.dll"]
        cases = {
            "sound": (image(), good, None),
            "too large": (image(size=600_000), good, "600000 bytes"),
            "compiler's runtime": (image(), good + ["libgcc_s_seh-1.dll"], "libgcc_s_seh-1.dll"),
            "thread library": (image(), ["libwinpthread-1.dll"], "libwinpthread-1.dll"),
            "unreadable": (image(), [], "import table"),
            "fixed address": (image(characteristics=0x0120), good, "address randomisation"),
            "executable data": (image(characteristics=0x0060), good, "execution of data"),
            "no version": (image(version=None), good, "no version resource"),
            "old version": (image(version=(0, 0, 9, 0)), good, "(0, 0, 9, 0)"),
        }
        for name, (program, libraries, expected) in cases.items():
            with self.subTest(name):
                found = list(windows_program.faults(program, libraries, (0, 1, 0)))
                self.assertEqual(len(found), 0 if expected is None else 1, found)
                self.assertTrue(expected is None or expected in found[0], found)

    def test_reads_the_listing_and_the_project_version(self):
        listing = "The Import Tables\n\tDLL Name: HID.DLL\n\tvma: Hint\n\tDLL Name: KERNEL32.dll\n"
        self.assertEqual(windows_program.imported_libraries(listing), ["HID.DLL", "KERNEL32.dll"])
        self.assertEqual(windows_program.project_version("project(X VERSION 1.20.3 LANGUAGES C)"), (1, 20, 3))


if __name__ == "__main__":
    unittest.main()
