#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "os/displays.h"
#include "sim/registry.h"
#include "sim/scheduler.h"
#include "sim/screen.h"

namespace sim {

/// One change of a single display, as it was asked for.
struct DisplaySettingsChange {
  std::wstring gdiName;
  os::DisplaySettings settings;
  std::uint32_t flags = 0;
  std::int32_t result = 0;
};

/// One change of the whole configuration, as it was asked for.
struct ConfigurationChange {
  std::vector<os::DisplayPath> paths;
  std::vector<os::DisplayMode> modes;
  std::uint32_t flags = 0;
  std::int32_t result = 0;
};

/// The laptop's displays. A new one has the B panel at the top and the C panel below it, extended and turned as they
/// should be.
class Displays {
 public:
  class Door;

  Displays(Scheduler& scheduler, Registry& registry);

  /// What else happens when the system has laid the desktop out: it tells every window.
  void WhenLaidOut(std::function<void()> then) { then_ = std::move(then); }

  /// The built-in panels are always known, also while unplugged.
  [[nodiscard]] Screen& bPanel() { return screens_[0]; }
  [[nodiscard]] Screen& cPanel() { return screens_[1]; }

  /// Adds a display; what was left empty is filled in so that it differs from the others. The reference stays good.
  Screen& AddMonitor(Screen screen);

  /// Adds a display at the top left and makes it the primary one: the others move as they lie, so that the B panel is
  /// at `bPanelAt` instead of (0, 0).
  Screen& AddPrimary(const os::Point& bPanelAt, Screen screen = {});

  /// Unplugs every display.
  void RemoveAll();

  /// A display that is not there yet, and comes in `ms` milliseconds.
  void AppearsAfter(Screen& screen, std::uint32_t ms);

  /// What the user chose with Win+P: extended all displays show their own picture, cloned all show the first one's;
  /// else only the B panel shows one, or only the others.
  void Project(os::Topology choice);

  // What happens to the displays while the controller runs. The system lays the desktop out and tells every window; the
  // laptop settles. A test that changes screens by itself says so with Changed.
  void Changed();
  void UserProjects(os::Topology choice);
  void Dock(Screen& screen);
  void Undock(Screen& screen);

  [[nodiscard]] const std::deque<Screen>& Screens() const { return screens_; }
  [[nodiscard]] const Screen* FindGdiName(const std::wstring& name) const;
  [[nodiscard]] bool MirrorsFirst(const Screen& screen) const;
  /// The place of the primary display; empty while there is none.
  [[nodiscard]] os::Rect PrimaryArea() const;

  /// The projection that the configuration database names; Project changes the displays with it.
  os::Topology topology = os::Topology::Extend;

  /// What the wallpaper object tells instead of the attached displays; an empty path is a display without a picture.
  std::optional<std::vector<std::wstring>> wallpaperPaths;

  [[nodiscard]] const std::vector<DisplaySettingsChange>& SettingsChanges() const { return settingsChanges_; }
  [[nodiscard]] const std::vector<ConfigurationChange>& ConfigurationChanges() const { return configurationChanges_; }
  void ForgetChanges();

 private:
  friend class Firmware;  // whose panel comes and goes with its power
  template <class Wanted>
  const Screen* First(Wanted isIt) const;
  void Leave(Screen& screen);
  void LayOut();
  void LayOutAndTell();
  [[nodiscard]] os::Topology StoredProjection(const std::wstring& name) const;
  void TakeUpNewest();
  void StoreProjection(std::uint64_t fileTime) const;

  Scheduler& scheduler_;
  Registry& registry_;
  std::function<void()> then_;
  std::deque<Screen> screens_;  // never shrinks, so that references stay good
  std::vector<DisplaySettingsChange> settingsChanges_;
  std::vector<ConfigurationChange> configurationChanges_;
};

class Displays::Door : public Displays {
 public:
  using Displays::Displays;

  [[nodiscard]] std::vector<os::DisplayPath> Paths(bool onlyActive) const;
  [[nodiscard]] std::vector<os::DisplayMode> Modes() const;
  [[nodiscard]] const Screen* FindSource(const os::DisplayPath& path) const;
  [[nodiscard]] const Screen* FindTarget(const os::DisplayPath& path) const;
  std::int32_t ChangeSettings(const std::wstring& gdiName, const os::DisplaySettings& settings, std::uint32_t flags);
  std::int32_t ChangeConfiguration(const std::vector<os::DisplayPath>& paths, const std::vector<os::DisplayMode>& modes,
                                   std::uint32_t flags);

  /// A value of a display's device node, its "EDID", kept also while it is unplugged; empty when there is none of it.
  [[nodiscard]] std::optional<os::Bytes> DeviceParameter(const std::wstring& key, const std::wstring& value) const;

 private:
  [[nodiscard]] Screen* Named(const std::wstring& gdiName);
  [[nodiscard]] os::DisplayPath PathOf(const Screen& screen, std::uint32_t modeIndex) const;
  std::int32_t ApplyConfiguration(const ConfigurationChange& change);
  std::int32_t ApplySupplied(const std::vector<os::DisplayPath>& paths, bool apply);
};

}  // namespace sim
