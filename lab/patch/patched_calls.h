#pragma once

#include <array>
#include <string>

#include "patch/import_table.h"

namespace lab::patch {

// Each group answers a few calls that Wine only pretends to serve; lab/README.md gives the reason for each.
std::array<Redirection, 2> TraceCalls();
std::array<Redirection, 4> DisplayCalls();
std::array<Redirection, 3> PowerCalls();
std::array<Redirection, 1> SessionCalls();
std::array<Redirection, 4> TouchCalls();
std::array<Redirection, 2> ProgramCalls();
std::array<Redirection, 2> WindowCalls();
std::array<Redirection, 1> ClockCalls();
std::array<Redirection, 1> ProcessStopCalls();
std::array<Redirection, 3> EventLogCalls();
std::array<Redirection, 1> SetupCalls();
std::array<Redirection, 1> DesktopCalls();

/// Tells the test a line, when one listens: "trace …", "usage …" or "patch …".
void Report(const std::wstring& line);

}  // namespace lab::patch
