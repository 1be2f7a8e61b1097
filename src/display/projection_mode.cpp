#include "display/projection_mode.h"

#include "core/trace_log.h"

namespace tessaview {

ProcessWide<bool> isInternalMode;
ProcessWide<bool> isCloneMode;
ProcessWide<bool> isExtendMode;
ProcessWide<bool> isExternalMode;

os::Topology CurrentTopology() {
  const auto current = os::QueryDisplayConfiguration(os::DisplayQuery::AllPaths, os::DisplayQuery::DatabaseCurrent);
  return current ? current->topology : os::Topology::None;
}

void QueryWinPMode() {
  for (auto* const mode : {&isInternalMode, &isCloneMode, &isExtendMode, &isExternalMode}) mode->set(false);
  switch (CurrentTopology()) {
    case os::Topology::Internal:
      Log(L"Win + P = INTERNAL Mode (PC screen only) \n");
      return isInternalMode.set(true);
    case os::Topology::Clone:
      Log(L"Win + P = CLONE Mode (Duplicate) \n");
      return isCloneMode.set(true);
    case os::Topology::Extend:
      Log(L"Win + P = EXTEND Mode (Extend) \n");
      return isExtendMode.set(true);
    case os::Topology::External:
      Log(L"Win + P = EXTERNAL Mode (Second screen only) \n");
      return isExternalMode.set(true);
    case os::Topology::None:
      return;
  }
}

}  // namespace tessaview
