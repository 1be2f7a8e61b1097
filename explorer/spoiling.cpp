#include "explorer/spoiling.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <random>

namespace explorer {
namespace {

using sim::DoorKey, sim::Spoilt;

enum class When { Never, BeforeAnotherStart };

/// What may not be spoilt in every life, and why.
struct Spared {
  std::string_view door;
  When spoilt;
  const char* why;
};

constexpr Spared kSpared[] = {
    {"os::RegisterServiceWindowClass", When::Never, "without a window there is no controller, as stated"},
    {"os::CreateServiceWindow", When::Never, "the same"},
    {"os::LoadResourceText", When::Never, "the same: the class has its name from there"},
    {"os::CreateNamedMutex", When::Never, "a refusal may mean that another controller is there"},
    {"os::RunsAsSystem", When::Never, "another account copies as itself"},
    {"os::ReadProfileText", When::Never, "what cannot be read is a missing choice, and gets its default"},
    {"os::CommonAppDataFolder", When::Never, "the same"},
    {"os::QueryPath", When::Never, "the same"},
    {"os::ReadProfileNumber", When::Never, "the same"},
    {"os::StartAsUser", When::Never, "a refusal leaves two handles open, as stated"},
    {"os::Lock::lock", When::Never, "of this process alone: it takes as long as its holder, and cannot fail"},
    {"os::Semaphore::Wait", When::Never, "the same"},
    {"os::StartThread", When::BeforeAnotherStart, "each watch has its thread from the start"},
    {"os::HidInterfaces", When::BeforeAnotherStart, "the touch pad is looked for at the start and after hibernation"},
    {"os::OpenHid", When::BeforeAnotherStart, "the same"},
    {"os::QueryHidAttributes", When::BeforeAnotherStart, "the same"},
    {"os::QueryHidCapabilities", When::BeforeAnotherStart, "the same"},
    {"os::HidOutputValues", When::BeforeAnotherStart, "the same"},
    {"os::OpenHidNodes", When::BeforeAnotherStart, "the same"},
    {"os::FirstHardwareIds", When::BeforeAnotherStart, "the same"},
    {"os::EnableHidNode", When::BeforeAnotherStart, "the same"},
    {"os::RegisterRawInput", When::BeforeAnotherStart, "the same"},
    {"os::IsSetupComplete", When::BeforeAnotherStart, "is asked at the start only"},
    {"os::WaitForSetup", When::BeforeAnotherStart, "the same"},
    {"os::AwaitEvent", When::BeforeAnotherStart, "the thread that waits ends with a wait that fails"},
    {"os::CreateFolder", When::BeforeAnotherStart, "the settings file is made at the start only"},
    {"os::NewEvent", When::BeforeAnotherStart, "is made at the start only"},
    {"os::RegisterPowerSetting", When::BeforeAnotherStart, "is registered at the start only"},
    {"os::RegisterSessionEvents", When::BeforeAnotherStart, "the same"},
    {"os::AllowMessage", When::BeforeAnotherStart, "the same"},
    {"os::BecomePerMonitorDpiAware", When::BeforeAnotherStart, "the same"},
    {"os::ConnectToManagement", When::BeforeAnotherStart, "the same"},
    {"os::CreateManagementLocator", When::BeforeAnotherStart, "the same"},
    {"os::SubscribeToProcessStops", When::BeforeAnotherStart, "the same"},
    {"os::SetManagementBlanket", When::BeforeAnotherStart, "the same"},
    {"os::JoinComMultithreaded", When::BeforeAnotherStart, "the same"},
    {"os::InitializeComSecurity", When::BeforeAnotherStart, "the same"},
    {"os::WatchKeyboard", When::BeforeAnotherStart, "the same"},
    {"os::WatchMouse", When::BeforeAnotherStart, "the same"},
    {"os::WatchRegistryKey", When::BeforeAnotherStart, "the same"},
    {"os::WatchSystemLog", When::BeforeAnotherStart, "the same"},
    {"os::WatchWindowEvents", When::BeforeAnotherStart, "the same"},
    {"os::StartTimer", When::BeforeAnotherStart, "the same"},
};

const Spared* FindSpared(std::string_view door) {
  const auto* const found = std::ranges::find(kSpared, door, &Spared::door);
  return found == std::end(kSpared) ? nullptr : found;
}

// The errors that Windows tells of something that is gone, forbidden, busy, late, too small or out of order.
constexpr std::uint32_t kErrors[] = {2, 5, 6, 8, 31, 87, 122, 170, 995, 1400, 1460, 1722, 0x8001'010D, 0x8007'0005};

/// How one door function is spoilt.
struct Habit {
  Spoilt how;
  enum class Pattern { AQuarter, Once, InARow } pattern = Pattern::AQuarter;
  std::size_t from = 1, length = 1;

  [[nodiscard]] bool Fires(std::size_t call, std::mt19937& chance) const {
    if (pattern == Pattern::AQuarter) return chance() % 4 == 0;
    return call >= from && call < from + (pattern == Pattern::Once ? 1 : length);
  }
};

/// The same for every compiler: a function is known by its name.
std::uint32_t HashOf(std::string_view text) {
  std::uint32_t hash = 2166136261;
  for (const char each : text) hash = (hash ^ static_cast<unsigned char>(each)) * 16777619;
  return hash;
}

Spoilt DrawHow(const DoorKey& function, std::mt19937& chance) {
  const auto way = static_cast<std::uint32_t>(chance() % 8), which = static_cast<std::uint32_t>(chance());
  if (way == 0) return {.longestAnswer = which % 4};
  // What does not wait by itself takes no time that anybody could notice.
  if (way <= 2 && function.waiting.way != os::Waiting::Instant) return {.delayMs = 1 + which % 700};
  return {.error = kErrors[which % std::size(kErrors)]};
}

std::optional<Habit> DrawHabit(const DoorKey& function, std::mt19937& chance, bool startsAgain) {
  if (chance() % 4 != 0) return std::nullopt;
  const auto* const spared = FindSpared(function.name);
  if (spared != nullptr && (spared->spoilt == When::Never || !startsAgain)) return std::nullopt;
  Habit habit{.how = DrawHow(function, chance)};
  habit.pattern = static_cast<Habit::Pattern>(chance() % 3);
  habit.from = 1 + chance() % 60;
  habit.length = 2 + chance() % 20;
  return habit;
}

}  // namespace

Plan DrawnPlan(std::uint32_t seed, bool startsAgain) {
  struct Site {
    std::mt19937 chance;
    std::optional<Habit> habit;
  };
  return [=, sites = std::map<const DoorKey*, Site>()](const DoorKey& function, std::size_t call) mutable -> Spoilt {
    auto [site, isNew] = sites.try_emplace(&function);
    auto& [chance, habit] = site->second;
    if (isNew) {
      chance.seed(seed ^ HashOf(function.name));
      habit = DrawHabit(function, chance, startsAgain);
    }
    return habit && habit->Fires(call, chance) ? habit->how : Spoilt{};
  };
}

Plan ListedPlan(const SpoiltCalls& calls) {
  return [=](const DoorKey& function, std::size_t call) -> Spoilt {
    const auto found = std::ranges::find_if(
        calls, [&](const SpoiltCall& each) { return each.call == call && each.door == function.name; });
    return found == calls.end() ? Spoilt{} : found->how;
  };
}

Plan Noted(Plan plan, SpoiltCalls& spoilt) {
  return [plan = std::move(plan), &spoilt](const DoorKey& function, std::size_t call) {
    const auto how = plan(function, call);
    if (how.error || how.delayMs != 0 || how.longestAnswer) spoilt.push_back({function.name, call, how});
    return how;
  };
}

}  // namespace explorer
