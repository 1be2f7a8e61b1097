#include "os/files.h"
#include "sim/parts.h"

namespace os {
namespace {

using sim::Machine;

constexpr std::size_t kLongestProgramPath = 260;

Status Outcome(std::uint32_t error) {
  if (error != 0) return Error{error};
  return Done{};
}

}  // namespace

PathKind QueryPath(const std::wstring& path) {
  const auto call = sim::Enter<&QueryPath>();
  return call.failed() ? PathKind::Missing : Machine().files.Kind(path);
}

Status CreateFolder(const std::wstring& path) {
  const auto call = sim::Enter<&CreateFolder>();
  if (call.failed()) return Error{call.error()};
  return Outcome(Machine().files.CreateFolder(path));
}

Status OverwriteByCopy(const std::wstring& from, const std::wstring& to) {
  const auto call = sim::Enter<&OverwriteByCopy>();
  if (call.failed()) return Error{call.error()};
  return Outcome(Machine().files.Copy(from, to, Machine().sessions.ImpersonatingNow()));
}

std::optional<std::wstring> CommonAppDataFolder() {
  const auto call = sim::Enter<&CommonAppDataFolder>();
  if (call.failed()) return std::nullopt;
  return Machine().files.commonAppData;
}

std::wstring OwnProgramPath() {
  const auto call = sim::Enter<&OwnProgramPath>();
  if (call.failed()) return {};
  return Machine().files.ownProgram.substr(0, kLongestProgramPath);
}

std::optional<FileVersion> ReadFileVersion(const std::wstring& path) {
  const auto call = sim::Enter<&ReadFileVersion>();
  if (call.failed()) return std::nullopt;
  return Machine().files.Version(path);
}

}  // namespace os
