#include "sim/ui.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace sim {
namespace {

constexpr const wchar_t* kClasses[] = {Ui::kMainClass, Ui::kGuideClass, Ui::kVideoClass};
constexpr auto kProgram = L"C:\\Program Files\\WindowsApps\\7C31A0D4.TessaviewMaster\\NorvTessaview.exe";

os::Bytes TextRecord(const std::wstring& text, const UiFields& fields) {
  const auto handle = fields.percent ? static_cast<std::uint32_t>(*fields.percent) : fields.handle;
  return EncodeUiRecord({.text = text, .handle = handle, .rect = fields.rect, .point = fields.point});
}

}  // namespace

template <class Change>
void Ui::ForEachWindow(Change change) {
  for (const auto* className : kClasses) {
    if (auto* window = desktop_.Find(desktop_.Find(className))) change(*window);
  }
}

void Ui::Open(const wchar_t* className) {
  const auto take = [this, className](std::uint64_t kind, os::BytesView bytes) { return Take(className, kind, bytes); };
  desktop_.Open({.className = className,
                 .title = className,
                 .program = kProgram,
                 .responsive = !hung_,
                 .busyUntilMs = busyUntilMs_,
                 .copyData = take});
  scheduler_.SettleStory();
}

void Ui::Close(const wchar_t* className) {
  desktop_.CloseAll(className);
  scheduler_.SettleStory();
}

void Ui::Die() {
  for (const auto* className : kClasses) desktop_.CloseAll(className);
  processes_.End(processes_.IdOf(kProgram));
  hung_ = false;
  busyUntilMs_ = 0;
  scheduler_.SettleStory();
}

void Ui::EndBeforeItsWindows(std::uint32_t lingerMs) {
  ForEachWindow([lingerMs](Window& window) { window.lingersMs = lingerMs; });
  processes_.End(processes_.IdOf(kProgram));
}

os::WindowHandle Ui::MainWindow() const {
  return desktop_.Find(kMainClass);
}

bool Ui::AnyWindow() const {
  return std::any_of(std::begin(kClasses), std::end(kClasses),
                     [&](const auto* className) { return desktop_.Find(className) != os::WindowHandle::None; });
}

// ---- Its thread ----

void Ui::Hang() {
  hung_ = true;
  ForEachWindow([](Window& window) { window.responsive = false; });
}

void Ui::Recover() {
  hung_ = false;
  ForEachWindow([](Window& window) { window.responsive = true; });
  scheduler_.SettleStory();
}

void Ui::Busy(std::uint32_t ms) {
  busyUntilMs_ = scheduler_.NowMs() + ms;
  ForEachWindow([this](Window& window) { window.busyUntilMs = busyUntilMs_; });
  scheduler_.After(ms, [] {});  // whoever waits for an answer gets it then
}

// ---- What its handlers do ----

std::function<bool()> Ui::Take(const wchar_t* className, std::uint64_t kind, os::BytesView bytes) {
  received_.push_back({className, kind, os::Bytes(bytes.begin(), bytes.end())});
  const auto record = kind == kTextKind ? DecodeUiRecord(bytes) : std::nullopt;
  if (record && whenTold) whenTold(record->text);
  const auto asked = std::exchange(askedBack_, {});
  if (asked.empty() && handlingMs_ == 0) return {};
  scheduler_.After(handlingMs_, [] {});
  return [this, asked, endMs = scheduler_.NowMs() + handlingMs_] {
    const auto answered = [this](const auto& each) { return *each || !window_.Exists(); };
    return scheduler_.NowMs() >= endMs && std::all_of(asked.begin(), asked.end(), answered);
  };
}

void Ui::AskBack(const std::wstring& text, const UiFields& fields) {
  if (!window_.LetsThrough(os::kCopyDataMessage)) return;
  const auto answered = askedBack_.emplace_back(std::make_shared<bool>(false));
  window_.Send([=, record = TextRecord(text, fields)](const os::ServiceWindowEvents& events) {
    events.copyData(kTextKind, record);
    *answered = true;
  });
}

// ---- What it got ----

std::vector<std::wstring> Ui::Received() const {
  std::vector<std::wstring> texts;
  for (const auto& [windowClass, kind, bytes] : received_) {
    if (kind != kTextKind) continue;
    const auto record = DecodeUiRecord(bytes);
    texts.push_back(record ? record->text : L"(malformed record)");
  }
  return texts;
}

std::vector<UiRecord> Ui::ReceivedTexts() const {
  std::vector<UiRecord> records;
  for (const auto& [windowClass, kind, bytes] : received_) {
    if (const auto record = DecodeUiRecord(bytes); kind == kTextKind && record) records.push_back(*record);
  }
  return records;
}

std::vector<os::Bytes> Ui::ReceivedReports() const {
  std::vector<os::Bytes> reports;
  for (const auto& [windowClass, kind, bytes] : received_) {
    if (kind == kRawInputKind) reports.push_back(bytes);
  }
  return reports;
}

// ---- What it asks ----

void Ui::Send(const std::wstring& text, const UiFields& fields) {
  SendRaw(kTextKind, TextRecord(text, fields));
}

void Ui::SendFileCopy(const std::wstring& command, const std::wstring& from, const std::wstring& to) {
  SendRaw(kFileCopyKind, EncodeTexts({command, from, to}, 260));
}

void Ui::SendRaw(std::uint64_t kind, os::Bytes record) {
  if (window_.LetsThrough(os::kCopyDataMessage)) {
    window_.Send([=](const os::ServiceWindowEvents& events) { events.copyData(kind, record); });
  }
  scheduler_.SettleStory();
}

}  // namespace sim
