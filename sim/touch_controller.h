#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "os/hid.h"
#include "sim/handle_table.h"
#include "sim/hid_collection.h"
#include "sim/scheduler.h"
#include "sim/service_window.h"

namespace sim {

/// One request to enable or disable a device node.
struct NodeSwitch {
  std::wstring hardwareId;
  bool enable = false;
};

/// One request for raw input, or for an end of it.
struct RawInputRequest {
  std::uint16_t usagePage = 0, usage = 0;
  std::uint32_t flags = 0;
  os::WindowHandle target = os::WindowHandle::None;
  std::uint32_t error = 0;  // 0, or why it was refused
};

/// The laptop's HID bus with the C panel's touch controller on it: a touch screen, a touch pad, and a collection that
/// takes the mode-switch report. A mouse and media keys of another maker come first.
class TouchController {
 public:
  class Door;

  TouchController(Scheduler& scheduler, ServiceWindow& window);

  [[nodiscard]] HidCollection& touchScreen() { return *touchScreen_; }
  [[nodiscard]] HidCollection& touchPad() { return *touchPad_; }
  [[nodiscard]] HidCollection& modeSwitch() { return *modeSwitch_; }
  [[nodiscard]] HidCollection& mouse() { return collections_[0]; }
  /// Adds a collection at the end of the system's order; the reference stays good.
  HidCollection& Add(HidCollection collection);

  // ---- stories ----
  /// Takes the whole controller off the bus, or brings it back, at once or in `ms` milliseconds.
  void Unplug();
  void Plug();
  void PlugAfter(std::uint32_t ms);

  /// A finger on the touch screen sends `reports` reports, then it is lifted; the laptop settles after each story.
  void Contact(int reports = 1);
  void Lift();
  /// The touch screen, or any other collection sends one report, as it stands.
  void Report(os::Bytes report) { ReportFrom(*touchScreen_, std::move(report)); }
  void ReportFrom(const HidCollection& collection, os::Bytes report);
  /// Like ReportFrom; `input` says what is odd about the record, its device and reports are filled in. With a report
  /// size it carries as many reports as the bytes make up.
  void Deliver(const HidCollection& collection, os::Bytes reports, os::RawInput input);

  /// How long a collection that has arrived is missing in the list of raw devices; it reports all the same.
  std::uint32_t rawListLateMs = 0;

  // ---- what became of it ----
  [[nodiscard]] const std::vector<os::Bytes>& OutputReports() const { return outputReports_; }
  /// The pad has been told to be a cursor pad since it was last plugged in or enabled.
  [[nodiscard]] bool InCursorMode() const { return inCursorMode_; }
  [[nodiscard]] const std::vector<NodeSwitch>& NodeSwitches() const { return nodeSwitches_; }
  [[nodiscard]] const std::vector<RawInputRequest>& RawInputRequests() const { return rawInputRequests_; }
  /// Whether the reports of a usage page go to a window, also while another window has the focus.
  [[nodiscard]] bool RawInputReaches(std::uint16_t usagePage) const { return sinks_.contains(usagePage); }
  [[nodiscard]] std::size_t OpenHandles() const { return handles_.size(); }
  [[nodiscard]] std::size_t OpenNodeLists() const { return nodeLists_.size(); }

 private:
  struct OpenCollection {
    HidCollection* collection = nullptr;
    std::uint32_t arrivals = 0;  // how often the collection had come back when it was opened
  };
  [[nodiscard]] static bool IsController(const HidCollection& collection);
  void Arrived(HidCollection& collection);
  void GiveRawHandle(HidCollection& collection);
  [[nodiscard]] bool IsOpen(const HidCollection& collection) const;

  Scheduler& scheduler_;
  ServiceWindow& window_;
  std::deque<HidCollection> collections_;  // never shrinks, so that references stay good
  HidCollection* touchScreen_;
  HidCollection* touchPad_;
  HidCollection* modeSwitch_;
  bool inCursorMode_ = false;
  std::uint64_t lastRawHandle_ = 0x1FFFF;
  std::vector<os::Bytes> outputReports_;
  std::vector<NodeSwitch> nodeSwitches_;
  std::vector<RawInputRequest> rawInputRequests_;
  std::map<std::uint16_t, os::WindowHandle> sinks_;
  HandleTable<os::HidHandle, OpenCollection> handles_;
  HandleTable<os::HidNodesHandle, std::vector<HidCollection*>> nodeLists_;
};

class TouchController::Door : public TouchController {
 public:
  using TouchController::TouchController;

  [[nodiscard]] const std::deque<HidCollection>& Collections() const { return collections_; }
  os::Result<os::HidHandle> Open(const std::wstring& path);
  void Close(os::HidHandle device) noexcept { handles_.Close(device); }
  /// The collection behind an open handle; null when it went away meanwhile.
  [[nodiscard]] const HidCollection* Find(os::HidHandle device);
  /// The working collection behind a raw handle; null when it is gone.
  [[nodiscard]] const HidCollection* Find(os::RawDevice device) const;
  [[nodiscard]] std::vector<os::RawDevice> RawDevices() const;
  /// Takes as long as the collection needs, or until a write is given up.
  bool Write(os::HidHandle device, os::BytesView report);
  std::uint32_t RegisterRawInput(RawInputRequest request);
  os::HidNodesHandle OpenNodes();
  void Close(os::HidNodesHandle nodes) noexcept { nodeLists_.Close(nodes); }
  [[nodiscard]] std::vector<std::wstring> FirstHardwareIds(os::HidNodesHandle nodes);
  /// A collection that anybody has open is not disabled before the next start.
  os::Result<os::NodeChange> SwitchNode(os::HidNodesHandle nodes, std::size_t index, bool enable);
  /// The process is gone, and all it held.
  void EndProcess();
};

}  // namespace sim
