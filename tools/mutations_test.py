"""Shows where faults can be planted, and where not."""

import unittest

import mutations
from source_tree import SourceFile

# A statement and all that may become of it; None where nothing stands any more.
CASES = {
    "return a <= b && c;": {"return a < b && c;", "return a <= b || c;", "return {};", "return;"},
    "x = left + 0x10;": {"x = left - 0x10;", "x = left + 0x0;", "x = left + 0xf;", "x = left + 0x11;", ";"},
    "const auto y = 1'000 * z;": {f"const auto y = {n} * z;" for n in (0, 999, 1001)} | {"const auto y = 1'000 / z;"},
    "window->Show(true);": {"window->Show(false);", ";"},
    "if (!Reached()) return;": {"if (Reached()) return;", ";"},
    "if (const auto at = Place()) Move(*at);": {"if (const auto at = Place(); !at) Move(*at);",
                                                "if (const auto at = Place()) ;"},
    "if (IsOn()) {\n    Log(L\"on, %d\", 1);\n    return;\n  }\n": {
        "if (!(IsOn())) {\n    Log(L\"on, %d\", 1);\n    return;\n  }\n", ";\n"},
    "Use(open ? near : far);": {"Use(open && false ? near : far);", "Use(open || true ? near : far);", ";"},
    "LogFailure(L\"It cannot be had\", os::Get(thing));": {";"},
    # What is logged, said in comments and texts, declared, or nothing already.
    "Log(L\"%d and %d\", a + 1, !b);  // a < b && true": set(),
    "if (isOn) {\n    Log(L\"on\");\n  } else {\n    Log(L\"off\");\n  }": set(),
    "const Lock lock(gMutex);": set(),
    "const wchar_t* const text = L\"1 < 2\";": set(),
    "return std::nullopt;": set(),
}


class Mutations(unittest.TestCase):
    def test_each_fault_is_planted_and_no_other(self):
        for statement, expected in CASES.items():
            text = f"#include <a>\nvoid F() {{\n  {statement}\n}}\n"
            planted = {text[:site.start] + other + text[site.end:]
                       for site in mutations.sites(SourceFile("src/a.cpp", text)) for other in site.replacements}
            self.assertEqual(planted, {text.replace(statement, changed) for changed in expected})


if __name__ == "__main__":
    unittest.main()
