#pragma once

#include <string>
#include <vector>

#include "tests/door.h"

namespace contract {

/// What the events of a service window told, in order: each one's name and values.
inline std::vector<std::string>& Heard() {
  static std::vector<std::string> heard;
  return heard;
}

template <class... Values>
void Hear(std::string what, Values... values) {
  ((what += " " + std::to_string(values)), ...);
  Heard().push_back(what);
}

/// Events that are only heard, without the ids of registered messages.
inline os::ServiceWindowEvents HeardEvents() {
  return {.hotKeyMessage = 0,
          .touchPadStatusMessage = 0,
          .hotKey = [](auto wParam, auto lParam) { Hear("hotKey", wParam, lParam); },
          .touchPadStatus = [](auto wParam, auto lParam) { Hear("touchPad", wParam, lParam); },
          .displayChange = [] { Hear("displayChange"); },
          .copyData = [](auto kind, auto record) { Hear("copyData", kind, record.size()); },
          .rawInput =
              [](const os::RawInput& input) {
                const auto& [sizeMatches, type, device, reportSize, reports] = input;
                Hear("raw", sizeMatches, type, reportSize, reports.size(), reports.empty() ? 0 : reports[0]);
              },
          .command = [](auto id) { Hear("command", id); },
          .timer = [](auto id) { Hear("timer", id); },
          .powerBroadcast = [](auto event) { Hear("power", event); },
          .powerSetting = [](auto setting, auto value) { Hear("setting", static_cast<int>(setting), value); },
          .sessionChange = [](auto event) { Hear("session", event); },
          .queryEndSession = [](auto reason) { Hear("end", reason); },
          .noted = [] { Hear("noted"); },
          .destroy = [] { Hear("destroy"); }};
}

}  // namespace contract
