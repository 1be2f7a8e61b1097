// What the door asks of Windows about displays, where Wine only pretends to serve it.
#include <windows.h>

#include <gtest/gtest.h>
#include <shellscalingapi.h>

#undef ChangeDisplaySettings  // the door has a function of this name

#include <cstring>
#include <cwchar>
#include <numeric>
#include <tuple>

#include "contract/patched.h"
#include "kit/com_object.h"
#include "os/displays.h"

namespace contract {
namespace {

using os::DisplayQuery;

/// Bytes that all differ from their neighbours.
template <class Record>
void MakeDistinct(Record& record) {
  auto* const bytes = reinterpret_cast<std::uint8_t*>(&record);
  std::iota(bytes, bytes + sizeof record, std::uint8_t{1});
}

DISPLAYCONFIG_PATH_INFO gPath;
DISPLAYCONFIG_MODE_INFO gMode;

TEST(DisplayArguments, APathAndItsModesComeBackAsTheyWere) {
  MakeDistinct(gPath), MakeDistinct(gMode);
  gPath.targetInfo.targetAvailable = TRUE;
  static bool tookTopology;
  static UINT32 sizesFor, queried, changedWith;
  CONTRACT_PATCH(GetDisplayConfigBufferSizes, [](auto flags, auto paths, auto modes) -> LONG {
    sizesFor = flags;
    *paths = *modes = 3;
    return 0;
  });
  CONTRACT_PATCH(QueryDisplayConfig,
                 [](auto flags, auto pathCount, auto paths, auto modeCount, auto modes, auto topology) -> LONG {
                   queried = flags;
                   tookTopology = topology != nullptr;
                   if (tookTopology) *topology = DISPLAYCONFIG_TOPOLOGY_CLONE;
                   if (*pathCount != 3 || *modeCount != 3) return ERROR_INSUFFICIENT_BUFFER;
                   *pathCount = *modeCount = 1;
                   paths[0] = gPath, modes[0] = gMode;
                   return 0;
                 });
  CONTRACT_PATCH(SetDisplayConfig, [](auto pathCount, auto paths, auto modeCount, auto modes, auto flags) -> LONG {
    changedWith = flags;
    if (pathCount == 0 && modeCount == 0) return paths == nullptr && modes == nullptr ? 31 : -1;
    const bool same = pathCount == 1 && modeCount == 1 && std::memcmp(paths, &gPath, sizeof gPath) == 0 &&
                      std::memcmp(modes, &gMode, sizeof gMode) == 0;
    return same ? 0 : -1;
  });

  for (const auto query : {DisplayQuery::AllPaths, DisplayQuery::OnlyActivePaths, DisplayQuery::DatabaseCurrent}) {
    const auto told = os::QueryDisplayConfiguration(DisplayQuery::OnlyActivePaths, query);
    ASSERT_TRUE(told && told->paths.size() == 1 && told->modes.size() == 1);
    EXPECT_TRUE(sizesFor == QDC_ONLY_ACTIVE_PATHS && queried == static_cast<UINT32>(query));
    EXPECT_EQ(tookTopology, query == DisplayQuery::DatabaseCurrent) << "refused with every other query";
    EXPECT_EQ(told->topology, tookTopology ? os::Topology::Clone : os::Topology::None);
    const auto& [source, target, flags] = told->paths[0];
    EXPECT_TRUE(source.modeIndex == gPath.sourceInfo.modeInfoIdx && target.id == gPath.targetInfo.id);
    EXPECT_TRUE(target.rotation == static_cast<UINT32>(gPath.targetInfo.rotation) && flags == gPath.flags);
    EXPECT_EQ(os::ChangeDisplayConfiguration(told->paths, told->modes, 0x6A0), 0);
  }
  EXPECT_EQ(changedWith, 0x6A0U);
  EXPECT_EQ(os::ChangeDisplayConfiguration({}, {}, 0x84), 31) << "null arrays, and the system's code";
}

TEST(DisplayArguments, AChangeOfOneDisplayIsADevmodeOfItsFields) {
  static DEVMODEW mode;
  static DWORD changeFlags;
  CONTRACT_PATCH(ChangeDisplaySettingsExW, [](auto name, auto asked, auto window, auto flags, auto parameter) -> LONG {
    mode = *asked, changeFlags = flags;
    return std::wcscmp(name, L"\\\\.\\DISPLAY2") == 0 && !window && !parameter ? -2 : 0;
  });
  const os::DisplaySettings asked{.fields = os::kDmPosition | os::kDmPelsWidth,
                                  .x = -7,
                                  .y = 1080,
                                  .width = 1920,
                                  .height = 515,
                                  .orientation = 3,
                                  .frequency = 48,
                                  .bitsPerPixel = 32,
                                  .displayFlags = 4,
                                  .fixedOutput = 2};
  EXPECT_EQ(os::ChangeDisplaySettings(L"\\\\.\\DISPLAY2", asked, os::kCdsUpdateRegistry | os::kCdsGlobal), -2);
  EXPECT_EQ(changeFlags, DWORD{CDS_UPDATEREGISTRY | CDS_GLOBAL});
  EXPECT_TRUE(mode.dmSize == 220 && mode.dmFields == (DM_POSITION | DM_PELSWIDTH));
  mode.dmFields = 0xFFFFFFFF;
  CONTRACT_PATCH(EnumDisplaySettingsW, [](auto, auto which, auto told) -> BOOL {
    return told->dmSize == 220 && which == ENUM_CURRENT_SETTINGS ? *told = mode, TRUE : FALSE;
  });
  const auto told = os::CurrentDisplaySettings(L"\\\\.\\DISPLAY2");
  ASSERT_TRUE(told);
  EXPECT_EQ(std::tie(told->x, told->y, told->width, told->height, told->orientation, told->frequency,
                     told->bitsPerPixel, told->displayFlags, told->fixedOutput),
            std::tie(asked.x, asked.y, asked.width, asked.height, asked.orientation, asked.frequency,
                     asked.bitsPerPixel, asked.displayFlags, asked.fixedOutput));
  EXPECT_EQ(told->fields, 0x207C00A0U) << "no field that the door does not carry";
}

TEST(DisplayArguments, AScaleIsTheMonitorsEffectiveHorizontalOne) {
  CONTRACT_PATCH(GetDpiForMonitor, [](auto, auto type, auto horizontal, auto vertical) -> HRESULT {
    *horizontal = type == MDT_EFFECTIVE_DPI ? 144 : 1, *vertical = 120;
    return S_OK;
  });
  EXPECT_EQ(os::MonitorDpi(os::MonitorHandle{5}), 144U);
}

TEST(DisplayArguments, TheWallpaperObjectsPathsKeepTheirOrderAndGaps) {
  EXPECT_EQ(os::WallpaperMonitorPaths(), std::nullopt) << "Wine has no such object";
  static auto object = lab::ComObject()
                           .With(
                               5,
                               +[](void*, UINT at, wchar_t** path) -> HRESULT {
                                 if (at == 1) return *path = nullptr, E_FAIL;
                                 *path = static_cast<wchar_t*>(CoTaskMemAlloc(8));
                                 std::memcpy(*path, at == 0 ? L"one" : L"two", 8);
                                 return S_OK;
                               })
                           .With(
                               6, +[](void*, UINT* count) -> HRESULT { return *count = 3, S_OK; });
  CONTRACT_PATCH(CoCreateInstance,
                 [](auto, auto, auto, auto, auto out) -> HRESULT { return *out = object.Interface(), S_OK; });
  EXPECT_EQ(os::WallpaperMonitorPaths(), (std::vector<std::wstring>{L"one", L"", L"two"}));
  EXPECT_EQ(object.releases(), 1);
}

}  // namespace
}  // namespace contract
