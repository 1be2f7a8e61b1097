#include "display/display_query.h"

#include <utility>

#include "core/growing_list.h"

namespace tessaview {
namespace {

/// Displays that come while the system counts them make the list longer than it said.
os::DisplayConfiguration Query(os::DisplayQuery sizes, os::DisplayQuery query) {
  auto told = ReadGrowing([=] { return os::QueryDisplayConfiguration(sizes, query); });
  return told ? std::move(*told) : os::DisplayConfiguration{};
}

}  // namespace

os::DisplayConfiguration ActivePaths() {
  return Query(os::DisplayQuery::OnlyActivePaths, os::DisplayQuery::OnlyActivePaths);
}

os::Topology CurrentTopology() {
  return Query(os::DisplayQuery::AllPaths, os::DisplayQuery::DatabaseCurrent).topology;
}

}  // namespace tessaview
