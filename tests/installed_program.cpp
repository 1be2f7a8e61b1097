// What the simulated laptops of the tests and benchmarks boot: the controller.
#include "app/start_up.h"
#include "core/state.h"
#include "sim/laptop.h"

namespace {

[[maybe_unused]] const bool kInstalled =
    sim::Laptop::Install({.run = tessaview::RunController, .forget = tessaview::State::ResetAll});

}  // namespace
