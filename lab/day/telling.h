#pragma once

#include <source_location>
#include <string>

#include "kit/laptop.h"
#include "kit/log.h"

// What the tests play on the laptop goes to a log; and it can be told as it happens, on standard output and on the
// laptop's B panel. Without TellTheDay the functions below tell nobody, and a check that fails is a test that fails.
namespace lab {

/// From now on it is told, in place of GoogleTest's own words, and at its end counted. Logged in the file that the
/// environment variable LAB_LOG names as a Linux path.
void TellTheDay(Laptop& laptop);

[[nodiscard]] bool IsTold();

/// Everything that happens, worth telling or not: of the day that is told, or of the test that runs.
[[nodiscard]] Log& TheLog();

/// A heading: what happens next.
void Chapter(const std::wstring& title);

/// One thing that happened: who did it and what. Any thread.
void Tell(const std::wstring& who, const std::wstring& what);

/// A line that neither happens nor holds: how to read what comes, what the lab cannot show.
void Note(const std::wstring& what);

/// Something that must hold now, told after the lines that led to it: "ok", or "NOT SO". Returns `holds`.
bool Check(bool holds, const std::wstring& what, std::source_location where = std::source_location::current());

/// Takes a picture of both panels, which must work; only when it is told.
void Picture(const std::wstring& name);

}  // namespace lab
