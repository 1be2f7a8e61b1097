#pragma once

#include <array>
#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

#include "day/telling.h"
#include "kit/laptop.h"
#include "kit/laptop_state.h"
#include "kit/log.h"
#include "kit/story.h"

namespace lab {

/// A day in the laptop's life: the laptop, the story that is told of it, and a log of everything, telling or not, in
/// the file that the environment variable LAB_LOG names as a Linux path. It lives as long as the process, as its laptop
/// must.
class Day {
 public:
  Day();

  /// The next part of the story, once the controller has finished with the one before.
  void Chapter(const std::wstring& title);

  /// Something happens to the laptop. What is asked for below is looked for from here on.
  void Happens(const std::wstring& what);

  /// A line that neither happens nor holds: how to read what comes, what the lab cannot show.
  void Note(const std::wstring& what) { story_.Tell(L"note", what); }

  /// Something that must hold now, told after the lines that led to it. Returns `holds`.
  bool Check(bool holds, const std::wstring& what);

  // Each waits until its line has come since the last Happens; false when it has not in time.
  [[nodiscard]] bool Traced(const std::wstring& text) const { return laptop_.trace.WaitFor(text, since_.trace); }
  [[nodiscard]] bool UiHeard(const std::wstring& text) const { return laptop_.uiTalk.WaitFor(text, since_.uiTalk); }
  [[nodiscard]] bool Asked(const std::wstring& request) const {
    return laptop_.requests.WaitFor(request, since_.requests);
  }
  [[nodiscard]] bool PadGot(const std::wstring& report) const {
    return laptop_.reports.WaitFor(report, since_.reports);
  }
  [[nodiscard]] bool Used(const std::wstring& event) const { return laptop_.usage.WaitFor(event, since_.usage); }

  /// What the UI heard since the last Happens, so far.
  [[nodiscard]] std::vector<std::wstring> UiTalk() const { return laptop_.uiTalk.Since(since_.uiTalk); }

  /// Whether the settings file comes to hold these: Tessaview, Backlight, BacklightDC, PowerSaving, Mode.
  [[nodiscard]] static bool SettingsAre(const std::array<std::string, 5>& expected);

  /// Takes a picture of both panels; must work.
  void Picture(const std::wstring& name);

  /// Ends the story: counts, and the pictures' paths. The exit code, 0 only when everything went as it should.
  int Summary();

  [[nodiscard]] Laptop& laptop() { return laptop_; }

  /// What cannot be told to Wine itself; there once the laptop has booted.
  [[nodiscard]] static LaptopState& State() { return *SharedLaptopState(); }

 private:
  struct Marks {
    std::size_t trace, usage, uiTalk, requests, reports;
  };

  Log log_;
  Story story_;
  std::mutex telling_;
  Marks since_{};
  std::vector<std::wstring> pictures_;
  Laptop laptop_;
};

}  // namespace lab
