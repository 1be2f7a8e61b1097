#include "display/panel_nudge.h"

#include <cstdint>
#include <string>

#include "core/trace_log.h"
#include "display/monitor_change.h"
#include "display/panel_search.h"
#include "os/clock.h"

namespace tessaview {
namespace {

constexpr std::uint64_t kBudgetMs = 3000;
constexpr std::uint32_t kPauseMs = 500;

class Stopwatch {
 public:
  [[nodiscard]] std::uint64_t ElapsedMs() const { return os::NowMs() - start_; }

 private:
  std::uint64_t start_ = os::NowMs();
};

bool HasCPanel(PanelsFound found) {
  return found == PanelsFound::Both || found == PanelsFound::OnlyC;
}

/// Searches until the C panel is there or the time is over; the last outcome.
PanelsFound WaitForCPanel(const Stopwatch& time) {
  auto found = EnumDisplayDevice();
  Log(L"[MoveCPanelMonitorOnePixel] Start Move CPanel");
  while (!HasCPanel(found) && time.ElapsedMs() < kBudgetMs) {
    os::Sleep(kPauseMs);
    found = EnumDisplayDevice();
  }
  Log(L"[MoveCPanelMonitorOnePixel] isCPanelFound Time : %d ", time.ElapsedMs());
  return found;
}

void MoveUntilTaken(const std::wstring& gdiName, const MonitorChange& change, const Stopwatch& time) {
  while (time.ElapsedMs() < kBudgetMs) {
    if (SetMonitorEx(gdiName, change)) return;
    Log(L"[MoveCPanelMonitorOnePixel] SetMonitorEx Failed");
    os::Sleep(kPauseMs);
  }
}

/// Goes by the time alone, whether the last change was taken or not.
void TellOutcome(std::uint64_t elapsedMs) {
  Log(L"[MoveCPanelMonitorOnePixel] Time : %d ", elapsedMs);
  if (elapsedMs <= kBudgetMs) {
    Log(L"[MoveCPanelMonitorOnePixel] SetMonitorEx Sucess");
  } else {
    Log(L"[MoveCPanelMonitorOnePixel] Time Out");
  }
}

}  // namespace

void MoveCPanelMonitorOnePixel() {
  const Stopwatch time;
  if (!HasCPanel(WaitForCPanel(time))) return Log(L"[MoveCPanelMonitorOnePixel] isCPanelFound Time Out");
  const auto panels = gPanelDisplayInfo();
  if (!panels.bPanel.isFound) return Log(L"[MoveCPanelMonitorOnePixel] GetBPanelParameter FALSE");
  if (!panels.cPanel.isFound) return Log(L"[MoveCPanelMonitorOnePixel] GetCPanelParameter FALSE");

  const auto b = panels.bPanel.SettingsView(), c = panels.cPanel.SettingsView();
  Log(L"[MoveCPanelMonitorOnePixel] BPanel : (x,y,w,h) = (%d,%d,%d,%d)", b.X, b.Y, b.Width, b.Height);
  Log(L"[MoveCPanelMonitorOnePixel] CPanel : (x,y,w,h) = (%d,%d,%d,%d)", c.X, c.Y, c.Width, c.Height);
  Log(L"[MoveCPanelMonitorOnePixel] Change C monitor position");
  MoveUntilTaken(panels.cPanel.gdiDeviceName, {.x = c.X + 1, .y = b.Y + b.Height}, time);
  TellOutcome(time.ElapsedMs());
}

}  // namespace tessaview
