#pragma once

namespace bench {

/// What is printed once all benchmarks have run: how long `name` took, as a multiple of `baseline` of the same run.
/// `goal` is the multiple it should stay below.
struct Ratio {
  const char* name;
  const char* baseline;
  double goal;
};

inline constexpr Ratio kRatios[] = {
    {"LogNobodyHears", "RelaxedLoadAndBranch", 2.0},     {"TouchReportThinning", "RelaxedLoadAndBranch", 20.0},
    {"DispatchBacklightQuery", "DecodeUiRecord", 200.0}, {"DayOfTenThousandEvents", "BootLaptop", 20'000.0},
    {"PlacementCheckUnchanged", "PanelSearch", 0.5},     {"MoveOntoController", "MoveOntoEmptyCallback", 1.5},
};

/// What is printed against a time of its own, in seconds.
struct Limit {
  const char* name;
  double goalSeconds;
};

inline constexpr Limit kLimits[] = {
    {"DayOfTenThousandEvents", 2.0},  {"MouseIdle", 1e-6},       {"MouseInNavigatorBand", 1e-6},
    {"MouseInBTracker", 1e-6},        {"MouseInCTracker", 1e-6}, {"MouseWithUiHung", 1e-6},
    {"LocationChangeFiltered", 2e-7},
};

}  // namespace bench
