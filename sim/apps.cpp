#include "sim/apps.h"

namespace sim {
namespace {

constexpr std::uint32_t kInvalidHandleResult = 0x8007'0006;  // E_HANDLE
constexpr std::uint32_t kComNotInitialised = 0x8004'01F0;    // CO_E_NOTINITIALIZED
constexpr std::uint32_t kApplicationNotKnown = 0x8027'0254;  // E_APPLICATION_NOT_REGISTERED

}  // namespace

void Apps::SetInstalled(bool installed) {
  uiInstalled = installed;
  processes_[kCheckTool].exitCode = installed ? 1 : 0;
  const auto package = std::wstring(Registry::kPackages) + L"\\7C31A0D4.TessaviewMaster_1.0.0.0_x64__h2kq9vx81tmwe";
  if (installed) {
    registry_.SetText(package, L"Path", L"C:\\Program Files\\WindowsApps\\7C31A0D4.TessaviewMaster");
  } else {
    registry_.RemoveKey(package);
  }
  scheduler_.SettleStory();
}

void Apps::Door::JoinCom() {
  comThreads_.insert(Scheduler::ThreadId());
}

os::Result<os::ActivationManager> Apps::Door::CreateManager() {
  if (!comThreads_.contains(Scheduler::ThreadId())) return os::Error{kComNotInitialised};
  return os::ActivationManager(managers_.Open({}));
}

os::Status Apps::Door::Activate(os::ActivationHandle manager, const std::wstring& appUserModelId,
                                const std::wstring& argument) {
  if (managers_.Find(manager) == nullptr) return os::Error{kInvalidHandleResult};
  activations_.push_back({appUserModelId, argument, scheduler_.NowMs()});
  if (appUserModelId != kUiId || !uiInstalled) return os::Error{kApplicationNotKnown};
  if (uiStartMs) {
    scheduler_.After(*uiStartMs, [this] {
      if (ui_.AnyWindow()) return;  // a second activation only brings the UI to the user
      uiOpensGuide ? ui_.OpenGuide() : ui_.Start();
    });
  }
  return os::Done{};
}

void Apps::Door::EndProcess() {
  comThreads_.clear();
  managers_.CloseAll();
}

}  // namespace sim
