#include "sim/touch_controller.h"

#include <algorithm>
#include <array>
#include <utility>

#include "sim/system_errors.h"
#include "sim/text.h"

namespace sim {
namespace {

// The beginning of the report after which the pad moves the cursor, its report id first.
constexpr std::array<std::uint8_t, 12> kCursorMode{3, 0x00, 0x09, 0xA1, 0x00, 0x00, 0x0F, 0x00, 0x00, 0x00, 0x08, 0x70};

constexpr std::uint8_t kTouching = 1;

bool TakesReport(const HidCollection& collection, os::BytesView report) {
  if (report.empty() || report.size() != collection.capabilities.outputReportLength) return false;
  const auto& values = collection.outputValues;
  return std::any_of(values.begin(), values.end(), [&](const auto& value) { return value.reportId == report[0]; });
}

os::Bytes ScreenReport(const HidCollection& screen, std::uint8_t flags) {
  os::Bytes report(screen.capabilities.inputReportLength);
  report[0] = kScreenReport;
  report[1] = flags;
  return report;
}

/// What the system checks of a registration before it takes it.
bool IsPlausible(const RawInputRequest& request) {
  const auto has = [&](std::uint32_t flag) { return (request.flags & flag) != 0; };
  const bool hasTarget = request.target != os::WindowHandle::None;
  if (request.usagePage == 0 || has(os::kRawInputPageOnly) == (request.usage != 0)) return false;
  if (has(os::kRawInputRemove)) return !hasTarget;
  return !has(os::kRawInputSink) || hasTarget;
}

}  // namespace

TouchController::TouchController(Scheduler& scheduler, ServiceWindow& window) : scheduler_(scheduler), window_(window) {
  Add(MakeMouse());
  Add(MakeMediaKeys());
  touchScreen_ = &Add(MakeTouchScreen());
  touchPad_ = &Add(MakeTouchPad());
  modeSwitch_ = &Add(MakeModeSwitch());
}

HidCollection& TouchController::Add(HidCollection collection) {
  GiveRawHandle(collection);
  collections_.push_back(std::move(collection));
  return collections_.back();
}

bool TouchController::IsController(const HidCollection& collection) {
  return collection.attributes.vendorId == kTouchVendor && collection.attributes.productId == kTouchProduct;
}

/// A handle that was given away never comes back.
void TouchController::GiveRawHandle(HidCollection& collection) {
  lastRawHandle_ += 2;
  collection.raw = static_cast<os::RawDevice>(lastRawHandle_);
}

bool TouchController::IsOpen(const HidCollection& collection) const {
  bool isOpen = collection.heldByAnother;
  handles_.ForEach([&](const OpenCollection& open) {
    isOpen = isOpen || (open.collection == &collection && open.arrivals == collection.arrivals);
  });
  return isOpen;
}

void TouchController::Arrived(HidCollection& collection) {
  ++collection.arrivals;
  GiveRawHandle(collection);
  collection.listedFromMs = scheduler_.NowMs() + rawListLateMs;
  if (IsController(collection)) inCursorMode_ = false;
}

void TouchController::Unplug() {
  for (auto& collection : collections_) {
    if (IsController(collection)) collection.plugged = false;
  }
}

void TouchController::Plug() {
  for (auto& collection : collections_) {
    if (!IsController(collection) || std::exchange(collection.plugged, true)) continue;
    Arrived(collection);
  }
}

void TouchController::PlugAfter(std::uint32_t ms) {
  Unplug();
  scheduler_.After(ms, [this] { Plug(); });
}

void TouchController::Contact(int reports) {
  for (int i = 0; i < reports; ++i) Report(ScreenReport(*touchScreen_, kTouching));
}

void TouchController::Lift() {
  Report(ScreenReport(*touchScreen_, 0));
}

void TouchController::ReportFrom(const HidCollection& collection, os::Bytes report) {
  os::RawInput input;
  input.type = os::kRawInputHid;
  Deliver(collection, std::move(report), input);
}

void TouchController::Deliver(const HidCollection& collection, os::Bytes reports, os::RawInput input) {
  if (!collection.Works() || !RawInputReaches(collection.capabilities.usagePage)) return;
  input.device = collection.raw;
  if (input.reportSize == 0) input.reportSize = static_cast<std::uint32_t>(reports.size());
  window_.Post([input, reports = std::move(reports)](const os::ServiceWindowEvents& events) {
    auto arrived = input;
    arrived.reports = reports;
    events.rawInput(arrived);
  });
  scheduler_.SettleStory();
}

// ---- The door ----

os::Result<os::HidHandle> TouchController::Door::Open(const std::wstring& path) {
  const auto isIt = [&](const HidCollection& c) { return c.Works() && Lower(c.path) == Lower(path); };
  const auto found = std::find_if(collections_.begin(), collections_.end(), isIt);
  if (found == collections_.end()) return os::Error{kFileNotFound};
  if (found->exclusive) return os::Error{kAccessDenied};
  return handles_.Open({&*found, found->arrivals});
}

const HidCollection* TouchController::Door::Find(os::HidHandle device) {
  const auto* open = handles_.Find(device);
  if (open == nullptr || !open->collection->Works()) return nullptr;
  return open->arrivals == open->collection->arrivals ? open->collection : nullptr;
}

const HidCollection* TouchController::Door::Find(os::RawDevice device) const {
  const auto isIt = [=](const HidCollection& collection) { return collection.raw == device && collection.Works(); };
  const auto found = std::find_if(collections_.begin(), collections_.end(), isIt);
  return found == collections_.end() ? nullptr : &*found;
}

std::vector<os::RawDevice> TouchController::Door::RawDevices() const {
  std::vector<os::RawDevice> devices;
  for (const auto& collection : collections_) {
    if (collection.Works() && collection.listedFromMs <= scheduler_.NowMs()) devices.push_back(collection.raw);
  }
  return devices;
}

bool TouchController::Door::Write(os::HidHandle device, os::BytesView report) {
  const auto* collection = Find(device);
  if (collection == nullptr || !TakesReport(*collection, report)) return false;
  if (const auto ms = collection->takesReportMs; ms > 0) {
    scheduler_.WaitUntil([] { return false; }, scheduler_.DeadlineIn(std::min(ms, os::kHidWriteLimitMs)));
    if (ms > os::kHidWriteLimitMs || Find(device) == nullptr) return false;
  }
  outputReports_.emplace_back(report.begin(), report.end());
  const bool isCursorMode =
      report.size() >= kCursorMode.size() && std::equal(kCursorMode.begin(), kCursorMode.end(), report.begin());
  if (isCursorMode && IsController(*collection)) inCursorMode_ = true;
  return true;
}

std::uint32_t TouchController::Door::RegisterRawInput(RawInputRequest request) {
  request.error = IsPlausible(request) ? 0 : kInvalidParameter;
  rawInputRequests_.push_back(request);
  if (request.error != 0) return request.error;
  const bool removes = (request.flags & os::kRawInputRemove) != 0;
  const bool reachesAlways = (request.flags & os::kRawInputSink) != 0;
  if (removes || !reachesAlways) sinks_.erase(request.usagePage);
  if (!removes && reachesAlways) sinks_[request.usagePage] = request.target;
  return 0;
}

os::HidNodesHandle TouchController::Door::OpenNodes() {
  std::vector<HidCollection*> nodes;
  for (auto& collection : collections_) {
    if (collection.plugged) nodes.push_back(&collection);  // a disabled node is still there
  }
  return nodeLists_.Open(std::move(nodes));
}

std::vector<std::wstring> TouchController::Door::FirstHardwareIds(os::HidNodesHandle nodes) {
  std::vector<std::wstring> ids;
  const auto* list = nodeLists_.Find(nodes);
  if (list == nullptr) return ids;
  for (const auto* node : *list) ids.push_back(node->FirstId());
  return ids;
}

os::Result<os::NodeChange> TouchController::Door::SwitchNode(os::HidNodesHandle nodes, std::size_t index, bool enable) {
  const auto* list = nodeLists_.Find(nodes);
  if (list == nullptr || index >= list->size()) return os::Error{kNoMoreItems};
  if (!(*list)[index]->plugged) return os::Error{kNotFound};
  auto& node = *(*list)[index];
  nodeSwitches_.push_back({node.FirstId(), enable});
  if (!enable && node.enabled && IsOpen(node)) return os::NodeChange::AfterRestart;
  const bool comesBack = enable && !node.enabled;
  node.enabled = enable;
  if (comesBack) Arrived(node);
  return os::NodeChange::Now;
}

void TouchController::Door::EndProcess() {
  handles_.CloseAll();
  nodeLists_.CloseAll();
  sinks_.clear();
}

}  // namespace sim
