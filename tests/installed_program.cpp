// What the simulated laptops of the tests and benchmarks boot: the controller.
#include "core/state.h"
#include "app/start_up.h"
#include "sim/laptop.h"

namespace {

[[maybe_unused]] const bool kInstalled =
    sim::Laptop::Install({.run = tessaview::RunController, .forget = tessaview::State::ResetAll});

}  // namespace
