#pragma once

#include <cassert>
#include <cstdint>
#include <functional>
#include <unordered_map>
#include <vector>

namespace brindlex {

/// The number of a format in its FormatTable.
using FormatId = std::uint32_t;

/// Gives each distinct format a small number, so that a run of characters holds a number and not
/// the format. Numbers, and the formats that they stand for, stay where they are for the life of
/// the table; number 0 is the default-made format.
template <typename Format, typename Hash = std::hash<Format>>
class FormatTable {
  public:
    FormatTable() { idOf(Format{}); }
    FormatTable(const FormatTable&) = delete;
    FormatTable& operator=(const FormatTable&) = delete;

    /// Cost: that of a hash of the format.
    FormatId idOf(const Format& format) {
        const auto [entry, isNew] =
            ids_.try_emplace(format, static_cast<FormatId>(formats_.size()));
        if (isNew) {
            formats_.push_back(&entry->first);
        }
        return entry->second;
    }

    const Format& format(FormatId id) const {
        assert(id < formats_.size());
        return *formats_[id];
    }

  private:
    std::unordered_map<Format, FormatId, Hash> ids_;
    std::vector<const Format*> formats_;  // the keys of ids_, which do not move
};

}  // namespace brindlex
