#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/text/Rope.h"
#include "platform/text/Units.h"

namespace brindlex {

/// `text` with every lone CR and every lone LF made CR LF: a view of `text` itself when there is
/// none, else of `storage`, which is overwritten. Linear; without lone ones near memory speed.
std::string_view withCrLf(std::string_view text, std::string& storage);

/// The longest beginning of `text`, whose breaks are all CR LF, that fits into `room` bytes without
/// breaking a pair.
std::string_view cutToRoom(std::string_view text, std::size_t room);

/// Where an insertion at `offset` goes: `offset`, or in front of the CR of the pair it splits. All
/// breaks of `rope` are CR LF.
Offset inFrontOfPair(const Rope& rope, Offset offset);

/// `range` widened over the pairs that its ends split. An empty one goes in front of the pair.
Range wholePairs(const Rope& rope, Range range);

}  // namespace brindlex
