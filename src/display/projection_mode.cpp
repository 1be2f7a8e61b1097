#include "display/projection_mode.h"

#include "core/trace_log.h"

namespace tessaview {
namespace {

void LogMode(os::Topology topology) {
  switch (topology) {
    case os::Topology::Internal:
      return Log(L"Win + P = INTERNAL Mode (PC screen only) \n");
    case os::Topology::Clone:
      return Log(L"Win + P = CLONE Mode (Duplicate) \n");
    case os::Topology::Extend:
      return Log(L"Win + P = EXTEND Mode (Extend) \n");
    case os::Topology::External:
      return Log(L"Win + P = EXTERNAL Mode (Second screen only) \n");
    case os::Topology::None:
      return;
  }
}

}  // namespace

ProcessWide<bool> isInternalMode;
ProcessWide<bool> isCloneMode;
ProcessWide<bool> isExtendMode;
ProcessWide<bool> isExternalMode;

os::Topology CurrentTopology() {
  const auto current = os::QueryDisplayConfiguration(os::DisplayQuery::AllPaths, os::DisplayQuery::DatabaseCurrent);
  return current ? current->topology : os::Topology::None;
}

// Asked before any flag is touched: another thread may read them meanwhile, and a mode that stays in force shall not
// seem to end.
void QueryWinPMode() {
  const auto topology = CurrentTopology();
  LogMode(topology);
  isInternalMode.set(topology == os::Topology::Internal);
  isCloneMode.set(topology == os::Topology::Clone);
  isExtendMode.set(topology == os::Topology::Extend);
  isExternalMode.set(topology == os::Topology::External);
}

}  // namespace tessaview
