// How the displays look and change through the display-configuration interface: as paths from a source to a target,
// each with a mode record for either end.

#include <algorithm>
#include <cstddef>

#include "sim/bytes.h"
#include "sim/displays.h"
#include "sim/system_errors.h"

namespace sim {
namespace {

constexpr std::uint32_t kNoMode = 0xFFFFFFFF;  // DISPLAYCONFIG_PATH_MODE_IDX_INVALID
constexpr std::uint32_t kModeIsSource = 1, kModeIsTarget = 2, kPixels32 = 4;
constexpr std::uint32_t kTopologyFlags = 0xF;  // SDC_TOPOLOGY_*, the same bits as the topology ids
constexpr std::uint32_t kScaleToFit = 128;     // DISPLAYCONFIG_SCALING_PREFERRED
constexpr std::uint32_t kProgressive = 1;

void PutWord(os::DisplayMode& mode, std::size_t at, std::uint32_t value) {
  PutNumber(mode, at, value, 4);
}

os::DisplayMode ModeOf(std::uint32_t kind, std::uint32_t id, const os::AdapterId& adapter) {
  os::DisplayMode mode{};
  PutWord(mode, 0, kind);
  PutWord(mode, 4, id);
  PutWord(mode, 8, adapter.low);
  PutWord(mode, 12, static_cast<std::uint32_t>(adapter.high));
  return mode;
}

os::DisplayMode SourceMode(const Screen& screen) {
  auto mode = ModeOf(kModeIsSource, screen.sourceId, screen.adapter);
  PutWord(mode, 16, screen.width);
  PutWord(mode, 20, screen.height);
  PutWord(mode, 24, kPixels32);
  PutWord(mode, 28, static_cast<std::uint32_t>(screen.x));
  PutWord(mode, 32, static_cast<std::uint32_t>(screen.y));
  return mode;
}

os::DisplayMode TargetMode(const Screen& screen) {
  auto mode = ModeOf(kModeIsTarget, screen.targetId, screen.adapter);
  PutWord(mode, 32, screen.frequency);
  PutWord(mode, 36, 1);
  PutWord(mode, 40, screen.nativeWidth);
  PutWord(mode, 44, screen.nativeHeight);
  PutWord(mode, 60, kProgressive);
  return mode;
}

}  // namespace

std::vector<os::DisplayPath> Displays::Door::Paths(bool onlyActive) const {
  std::vector<os::DisplayPath> paths;
  std::uint32_t modeIndex = 0;
  for (const auto& screen : screens_) {
    if (!screen.plugged || (onlyActive && !screen.attached)) continue;
    paths.push_back(PathOf(screen, screen.attached ? modeIndex : kNoMode));
    if (screen.attached) modeIndex += 2;
  }
  return paths;
}

std::vector<os::DisplayMode> Displays::Door::Modes() const {
  std::vector<os::DisplayMode> modes;
  for (const auto& screen : screens_) {
    if (!screen.OnDesktop()) continue;
    modes.push_back(SourceMode(MirrorsFirst(screen) ? screens_[0] : screen));
    modes.push_back(TargetMode(screen));
  }
  return modes;
}

os::DisplayPath Displays::Door::PathOf(const Screen& screen, std::uint32_t modeIndex) const {
  const auto& source = MirrorsFirst(screen) ? screens_[0] : screen;
  os::DisplayPath path;
  path.source = {.adapter = source.adapter, .id = source.sourceId, .modeIndex = modeIndex};
  path.source.statusFlags = screen.attached ? 1 : 0;
  path.target = {.adapter = screen.adapter,
                 .id = screen.targetId,
                 .modeIndex = modeIndex == kNoMode ? kNoMode : modeIndex + 1,
                 .outputTechnology = screen.outputTechnology,
                 .rotation = screen.rotation,
                 .scaling = kScaleToFit,
                 .refreshNumerator = screen.frequency,
                 .refreshDenominator = 1,
                 .scanLineOrdering = kProgressive,
                 .available = screen.targetAvailable,
                 .statusFlags = screen.attached ? screen.targetStatusFlags : 0};
  path.flags = screen.attached ? screen.pathFlags : screen.pathFlags & ~os::kPathActive;
  return path;
}

std::int32_t Displays::Door::ChangeConfiguration(const std::vector<os::DisplayPath>& paths,
                                                 const std::vector<os::DisplayMode>& modes, std::uint32_t flags) {
  ConfigurationChange change{paths, modes, flags};
  change.result = ApplyConfiguration(change);
  configurationChanges_.push_back(change);
  if (change.result == 0 && (flags & os::kSdcApply) != 0) LayOutAndTell();
  return change.result;
}

/// A change names either a supplied configuration or one of the projections, never both.
std::int32_t Displays::Door::ApplyConfiguration(const ConfigurationChange& change) {
  const bool supplied = (change.flags & os::kSdcUseSuppliedConfig) != 0;
  const bool apply = (change.flags & os::kSdcApply) != 0;
  const auto projection = static_cast<os::Topology>(change.flags & kTopologyFlags);
  if (supplied == (projection != os::Topology::None)) return kInvalidParameter;
  if (supplied == change.paths.empty()) return kInvalidParameter;
  if (supplied) return ApplySupplied(change.paths, apply);
  if (apply) {
    Project(projection);
    StoreProjection(scheduler_.FileTime());
  }
  return 0;
}

/// The supplied paths are the whole configuration: a display without an active path leaves the desktop.
std::int32_t Displays::Door::ApplySupplied(const std::vector<os::DisplayPath>& paths, bool apply) {
  const auto isKnown = [&](const os::DisplayPath& path) {
    const bool isTurn = path.target.rotation >= 1 && path.target.rotation <= os::kRotation270;
    return isTurn && FindTarget(path) != nullptr && FindSource(path) != nullptr;
  };
  if (!std::all_of(paths.begin(), paths.end(), isKnown)) return kInvalidParameter;
  if (!apply) return 0;
  for (auto& screen : screens_) screen.Detach();
  for (const auto& path : paths) {
    if ((path.flags & os::kPathActive) == 0) continue;
    auto& screen = const_cast<Screen&>(*FindTarget(path));
    screen.Attach();
    // The path is what tells the current turn; a display without an area keeps the orientation it last had.
    if (path.target.rotation != screen.rotation) screen.Rotate(path.target.rotation - 1);
  }
  return 0;
}

}  // namespace sim
