// A table behind opaque handles: each key is used once, so that a stale handle resolves to nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <utility>

namespace ovrin::layer {

// Keys of all tables come from one counter: a handle of one kind never resolves in the table of another.
inline std::uintptr_t NextHandleKey() {
    static std::uintptr_t last = 0;
    return ++last;
}

template<typename Handle, typename Object>
class HandleTable {
public:
    Handle Add(std::unique_ptr<Object> object) {
        const std::uintptr_t key = NextHandleKey();
        objects_.emplace(key, std::move(object));
        return reinterpret_cast<Handle>(key);
    }

    // Null for a handle that is null, stale or of another kind.
    [[nodiscard]] Object *Find(const void *handle) const {
        const auto entry = objects_.find(reinterpret_cast<std::uintptr_t>(handle));
        return entry == objects_.end() ? nullptr : entry->second.get();
    }

    // Null if there was none.
    std::unique_ptr<Object> Remove(const void *handle) {
        const auto entry = objects_.find(reinterpret_cast<std::uintptr_t>(handle));
        if (entry == objects_.end()) {
            return nullptr;
        }
        std::unique_ptr<Object> object = std::move(entry->second);
        objects_.erase(entry);
        return object;
    }

    // In the order of their keys, which is that of their making.
    template<typename Visit>
    void ForEach(Visit visit) const {
        for (const auto &[key, object] : objects_) {
            visit(*object);
        }
    }

    [[nodiscard]] std::size_t Count() const { return objects_.size(); }

private:
    std::map<std::uintptr_t, std::unique_ptr<Object>> objects_;
};

} // namespace ovrin::layer
