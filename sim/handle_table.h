#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <utility>

namespace sim {

/// The open handles of one kind and what stands behind each. Handles are never used twice.
template <class Handle, class Object>
class HandleTable {
 public:
  Handle Open(Object object) {
    last_ += 4;
    objects_.emplace(last_, std::move(object));
    return static_cast<Handle>(last_);
  }

  /// What stands behind a handle; null when it is not open.
  [[nodiscard]] Object* Find(Handle handle) {
    const auto found = objects_.find(static_cast<std::uint64_t>(handle));
    return found == objects_.end() ? nullptr : &found->second;
  }

  template <class Visit>
  void ForEach(Visit visit) const {
    for (const auto& [handle, object] : objects_) visit(object);
  }

  void Close(Handle handle) noexcept { objects_.erase(static_cast<std::uint64_t>(handle)); }
  void CloseAll() { objects_.clear(); }
  [[nodiscard]] std::size_t size() const { return objects_.size(); }

 private:
  std::uint64_t last_ = 0x100;
  std::map<std::uint64_t, Object> objects_;
};

}  // namespace sim
