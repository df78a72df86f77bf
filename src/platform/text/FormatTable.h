#pragma once

#include <cstdint>
#include <vector>

namespace brindlex {

/// The number of a format in its FormatTable.
using FormatId = std::uint32_t;

/// Gives each distinct format a small number, so that a run of characters holds a number and not
/// the format. Numbers stay valid for the life of the table; number 0 is the default-made format.
template <typename Format>
class FormatTable {
  public:
    FormatId idOf(const Format& format);
    const Format& format(FormatId id) const { return formats_[id]; }

  private:
    std::vector<Format> formats_{Format{}};
};

}  // namespace brindlex
