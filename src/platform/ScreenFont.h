#pragma once

#include <QFont>

namespace brindlex {

/// The font that shows text set in `font`: the font itself, or where it is not installed the face
/// that the system holds to be the same, if that is fixed-pitch, else the system's fixed-pitch one.
/// Every character of it has the same width whatever stands beside it (no kerning, no ligatures).
QFont screenFont(const QFont& font);

}  // namespace brindlex
