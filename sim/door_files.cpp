#include "os/files.h"
#include "sim/parts.h"
#include "sim/system_errors.h"

namespace os {
namespace {

using sim::Machine;

constexpr std::size_t kLongestProgramPath = 260;

}  // namespace

PathKind QueryPath(const std::wstring& path) {
  const auto call = sim::Enter<&QueryPath>();
  return call.failed() ? PathKind::Missing : Machine().files.Kind(path);
}

Status CreateFolder(const std::wstring& path) {
  if (const auto call = sim::Enter<&CreateFolder>(); call.failed()) return Error{call.error()};
  return sim::Outcome(Machine().files.CreateFolder(path));
}

Result<Bytes> ReadFileStart(const std::wstring& path, std::size_t size) {
  const auto call = sim::Enter<&ReadFileStart>();
  if (call.failed()) return Error{call.error()};
  return Machine().files.ReadStart(path, call.Shortened(size), Machine().sessions.ActingAs().has_value());
}

Status OverwriteByCopy(const std::wstring& from, const std::wstring& to) {
  if (const auto call = sim::Enter<&OverwriteByCopy>(); call.failed()) return Error{call.error()};
  return sim::Outcome(Machine().files.Copy(from, to, Machine().sessions.ActingAs()));
}

std::optional<std::wstring> CommonAppDataFolder() {
  if (sim::Enter<&CommonAppDataFolder>().failed()) return std::nullopt;
  return Machine().files.commonAppData;
}

std::wstring OwnProgramPath() {
  if (sim::Enter<&OwnProgramPath>().failed()) return {};
  return Machine().files.ownProgram.substr(0, kLongestProgramPath);
}

std::optional<FileVersion> ReadFileVersion(const std::wstring& path) {
  if (sim::Enter<&ReadFileVersion>().failed()) return std::nullopt;
  return Machine().files.Version(path);
}

}  // namespace os
