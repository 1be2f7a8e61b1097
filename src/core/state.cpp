#include "core/state.h"

namespace tessaview {
namespace {

State* gFirst = nullptr;  // constant-initialised, so ready before the first value registers itself

}  // namespace

State::State() : next_(std::exchange(gFirst, this)) {}

void State::ResetAll() {
  for (auto* value = gFirst; value != nullptr; value = value->next_) value->Reset();
}

}  // namespace tessaview
