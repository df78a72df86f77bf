#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "text/Rope.h"
#include "text/Units.h"

namespace brindlex {

/// What ends a line. The texts of the engine hold no other break and no half of one.
inline constexpr std::string_view kLineBreak = "\r\n";

/// `text` with every lone CR and every lone LF made CR LF. Returns a view of `text` itself when it
/// has no lone one, else a view of `storage`, which is overwritten. Cost: linear; near memory speed
/// when there is no lone one.
std::string_view withCrLf(std::string_view text, std::string& storage);

/// The same for a rope; a rope without lone ones is returned as it is.
Rope withCrLf(const Rope& rope);

/// The longest beginning of `text`, whose breaks are all CR LF, that fits into `room` bytes without
/// splitting a break.
std::string_view cutToRoom(std::string_view text, std::size_t room);

/// Whether `offset` lies between the CR and the LF of a break. All breaks of `rope` are CR LF.
bool splitsBreak(const Rope& rope, Offset offset);

/// Where an insertion at `offset` goes: `offset`, or in front of the break that it splits. All
/// breaks of `rope` are CR LF.
Offset inFrontOfBreak(const Rope& rope, Offset offset);

/// `range`, widened over each break that one of its ends splits. An empty range inside a break
/// moves in front of it.
Range wholeBreaks(const Rope& rope, Range range);

}  // namespace brindlex
