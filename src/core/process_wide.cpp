#include "core/process_wide.h"

namespace tessaview {
namespace {

ProcessWideBase* gFirst = nullptr;  // constant-initialised, so ready before the first value registers itself

}  // namespace

ProcessWideBase::ProcessWideBase() : next_(std::exchange(gFirst, this)) {}

void ProcessWideBase::ResetAll() {
  for (auto* value = gFirst; value != nullptr; value = value->next_) value->Reset();
}

}  // namespace tessaview
