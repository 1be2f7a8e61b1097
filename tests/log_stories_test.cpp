// The log is read by people, and by tools that know its words: tests/stories holds it. Each file there is a story of
// steps ("> …"); behind each stands what it puts into the log, thread by thread, and which use it records. Lines that
// came before in the same order are only counted. LOG_STORIES=write writes the files anew with the log as it is now.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <map>
#include <memory>

#include "tests/drags.h"

namespace {

using namespace support;

/// What is left of a step, word by word; a word with blanks stands in quotes.
struct Words : std::wistringstream {
  using std::wistringstream::wistringstream;
  std::wstring Next() {
    std::wstring word;
    *this >> std::quoted(word);
    return word;
  }
  bool Is(const wchar_t* word) { return Next() == word; }
  std::uint32_t Number() { return static_cast<std::uint32_t>(std::stoll(Next(), nullptr, 0)); }
  os::Point Point() { return {static_cast<int>(Number()), static_cast<int>(Number())}; }
  os::Rect Rect() {
    const auto corner = Point(), opposite = Point();
    return {corner.x, corner.y, opposite.x, opposite.y};
  }
};

struct Stage : Laptop {
  using Laptop::Laptop;
  std::map<std::wstring, os::WindowHandle> windows = {};

  void Open(Words& words) {
    Window opened;
    const auto name = words.Next();
    for (auto word = words.Next(); !word.empty(); word = words.Next()) {
      if (word == L"class") opened.className = words.Next();
      if (word == L"title") opened.title = words.Next();
      if (word == L"program") opened.program = words.Next();
      if (word == L"at") opened.area = words.Rect();
      if (word == L"style") opened.style = words.Number();
      if (word == L"owner") opened.owner = windows.at(words.Next());
      if (word == L"stubborn") opened.refusesMoves = true;
      if (word == L"hangs") opened.responsive = false;
    }
    windows[name] = desktop.OpenInForeground(std::move(opened));
    Settle();
  }

  void Send(Words& words) {
    const auto text = words.Next();
    sim::UiFields fields;
    for (auto word = words.Next(); !word.empty(); word = words.Next()) {
      if (word == L"number") fields.handle = words.Number();
      if (word == L"point") fields.point = words.Point();
      if (word == L"rect") fields.rect = words.Rect();
      if (windows.contains(word)) fields.handle = static_cast<std::uint64_t>(windows[word]);
    }
    ui.Send(text, fields);
  }

  /// The log since the last call, a line each.
  Texts Log() {
    std::multimap<std::wstring, std::wstring> byThread;
    for (std::size_t at = 0; at < trace.Lines().size(); ++at) byThread.emplace(trace.Writers()[at], trace.Lines()[at]);
    for (const auto& use : trace.Usage()) byThread.emplace(L"usage", use);
    EXPECT_TRUE(trace.Malformed().empty());
    trace.Clear();
    Texts log;
    for (auto& [thread, line] : byThread) {
      for (std::size_t at; (at = line.find(L'\n')) != std::wstring::npos;) line.replace(at, 1, L"\\n");
      log.push_back((thread == L"main" ? L"" : thread + L": ") + L"\"" + line + L"\"");
    }
    return log;
  }
};

/// What happens at a step, by its first word.
const std::map<std::wstring, void (*)(Stage& laptop, Words& words)> kDeeds{
    {L"boot", [](auto& l, auto&) { l.Boot(); }},
    {L"in-use", [](auto& l, auto&) { l.Boot(), l.ui.Send(L"ALIVE"), l.trace.Clear(); }},
    {L"wait", [](auto& l, auto& w) { l.Advance(w.Number()); }},
    {L"setup-ends", [](auto& l, auto&) { l.sessions.FinishSetup(); }},
    {L"firmware", [](auto& l, auto& w) { l.firmware.driverInstalled = w.Is(L"there"); }},
    {L"shop", [](auto& l, auto&) { l.services.Set(L"RetailDemo", sim::Services::kRunning); }},
    {L"session", [](auto& l, auto& w) { w.Is(L"locked") ? l.sessions.Lock() : l.sessions.Unlock(); }},
    {L"project", [](auto& l, auto& w) { l.displays.UserProjects(static_cast<Topology>(w.Number())); }},
    {L"win-p", [](auto& l, auto&) { l.input.PressWinP(); }},
    {L"panel-off", [](auto& l, auto&) { l.firmware.SetRegister(Firmware::kPower, Firmware::kPanelOff); }},
    {L"turn-b", [](auto& l, auto& w) { l.displays.bPanel().Rotate(w.Number()), l.displays.Changed(); }},
    {L"turn-c", [](auto& l, auto& w) { l.displays.cPanel().Rotate(w.Number()), l.displays.Changed(); }},
    {L"unplug-c", [](auto& l, auto&) { l.displays.Undock(l.displays.cPanel()); }},
    {L"virtual-monitor",
     [](auto& l, auto&) {
       l.displays.wallpaperPaths = Texts{L"", L"DISPLAY#TSB8888#a"};
     }},
    {L"4k", [](auto& l, auto&) { l.displays.bPanel().width = 3840, l.displays.bPanel().height = 2160; }},
    {L"secure-desktop", [](auto& l, auto&) { l.sessions.ShowSecureDesktop(); }},
    {L"kill-ui", [](auto& l, auto&) { l.processes.End(l.processes.IdOf(kUiProgram)); }},
    {L"install-ui", [](auto& l, auto&) { l.apps.InstallUi(); }},
    {L"no-touch-screen", [](auto& l, auto&) { l.touch.touchScreen().plugged = false; }},
    {L"lid", [](auto& l, auto& w) { w.Is(L"open") ? l.power.OpenLid() : l.power.CloseLid(); }},
    {L"lid-action", [](auto& l, auto& w) { l.power.SetLidAction(static_cast<Power::LidAction>(w.Number())); }},
    {L"display", [](auto& l, auto& w) { l.power.SetDisplay(static_cast<Power::Display>(w.Number())); }},
    {L"saver", [](auto& l, auto& w) { l.power.BatterySaver(w.Is(L"on")); }},
    {L"mains", [](auto& l, auto& w) { w.Is(L"on") ? l.power.Plug() : l.power.Unplug(); }},
    {L"broadcast", [](auto& l, auto& w) { l.power.Broadcast(w.Number()); }},
    {L"hibernate", [](auto& l, auto&) { l.power.HibernateAndWake(); }},
    {L"choose", [](auto& l, auto& w) { l.settings.Set(L"Tessaview", w.Next()); }},
    {L"press-f6", [](auto& l, auto&) { l.hotKey.PressF6(); }},
    {L"f6", [](auto& l, auto& w) { l.hotKey.PressF6(static_cast<int>(w.Number())), l.hotKey.EndF6(w.Number()); }},
    {L"touch-pad", [](auto& l, auto& w) { l.hotKey.TouchPadStatus(3, w.Number()); }},
    {L"flip", [](auto& l, auto& w) { l.firmware.Flip(w.Is(L"over")), l.hotKey.FlipChanged(); }},
    {L"open", [](auto& l, auto& w) { l.Open(w); }},
    {L"ui", [](auto& l, auto& w) { l.Send(w); }},
    {L"copy", [](auto& l, auto& w) { l.ui.SendFileCopy(L"COPYWALLPAPER", w.Next(), L"C:\\out.jpg"); }},
    {L"grab", [](auto& l, auto& w) { l.mouse.Grab(l.windows.at(w.Next()), kPress); }},
    {L"grab-on-c", [](auto& l, auto& w) { l.mouse.Grab(l.windows.at(w.Next()), kPressOnC); }},
    {L"move", [](auto& l, auto& w) { Reach(l, w.Point()); }},
    {L"drop", [](auto& l, auto&) { l.mouse.Drop(); }},
};

/// A story with the log as it is now.
Texts Play(const Texts& story) {
  Texts played, log;
  std::unique_ptr<Stage> laptop;
  for (const auto& line : story) {
    const bool isStep = line.starts_with(L">");
    if (isStep || line.empty() || line.starts_with(L"#")) played.push_back(line);
    if (!isStep) continue;
    Words words(line.substr(1));
    const auto deed = words.Next();
    if (deed == L"laptop") {  // the saved power, or "none" at all; the generation; "new" while Windows is being set up
      const auto saved = words.Next();
      const bool isNone = saved == L"none";
      laptop.reset();
      laptop = std::make_unique<Stage>(sim::LaptopOptions{.saved = isNone ? std::nullopt : std::optional(saved),
                                                          .generation = static_cast<int>(words.Number()),
                                                          .setupComplete = !words.Is(L"new"),
                                                          .uiRunning = !isNone});
      continue;
    }
    kDeeds.at(deed)(*laptop, words);
    const auto told = std::ssize(log);
    std::ranges::move(laptop->Log(), std::back_inserter(log));
    for (auto logged = log.begin() + told; logged != log.end();) {
      const auto before = std::find(std::make_reverse_iterator(logged), log.rend(), *logged);
      const auto same = before == log.rend() ? 0 : std::mismatch(logged, log.end(), before.base() - 1).first - logged;
      played.push_back(same < 8 ? *logged : L"... " + std::to_wstring(same) + L" lines as before, from " + *logged);
      logged += same < 8 ? 1 : same;
    }
  }
  return played;
}

class LogStory : public testing::TestWithParam<const char*> {};

TEST_P(LogStory, StandsInTheLog) {
  const auto path = std::filesystem::path(__FILE__).parent_path() / "stories" / (GetParam() + std::string(".log"));
  Texts story;
  std::wifstream file(path);
  for (std::wstring line; std::getline(file, line);) story.push_back(line);
  const auto played = Play(story);
  EXPECT_FALSE(played.empty());
  if (std::getenv("LOG_STORIES") != nullptr) {
    std::wofstream anew(path);
    for (const auto& line : played) anew << line << L'\n';
  } else if (story != played) {
    const auto [was, is] = std::mismatch(story.begin(), story.end(), played.begin(), played.end());
    std::wstring before;
    for (auto at = was - std::min<std::ptrdiff_t>(was - story.begin(), 5); at != was; ++at) before += *at + L'\n';
    ADD_FAILURE_AT(path.c_str(), static_cast<int>(was - story.begin()) + 1)
        << "behind\n"
        << before << "the story has\n"
        << (was == story.end() ? L"its end" : *was) << "\nand the log\n"
        << (is == played.end() ? L"nothing more" : *is) << "\nto take the log over: LOG_STORIES=write";
  }
}

INSTANTIATE_TEST_SUITE_P(, LogStory,
                         testing::Values("start", "projection", "lid_and_display", "f6", "throws", "commands",
                                         "ui_life"));

}  // namespace
