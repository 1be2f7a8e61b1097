#include "display/projection_mode.h"

#include "core/state.h"
#include "core/trace_log.h"
#include "display/display_query.h"

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

Shared<os::Topology> gProjection{os::Topology::None};

}  // namespace

os::Topology ProjectionMode() {
  return gProjection.get();
}

bool isInternalMode() {
  return gProjection.get() == os::Topology::Internal;
}
bool isCloneMode() {
  return gProjection.get() == os::Topology::Clone;
}
bool isExtendMode() {
  return gProjection.get() == os::Topology::Extend;
}
bool isExternalMode() {
  return gProjection.get() == os::Topology::External;
}

void QueryWinPMode() {
  const auto topology = CurrentTopology();
  LogMode(topology);
  gProjection.set(topology);
}

}  // namespace tessaview
