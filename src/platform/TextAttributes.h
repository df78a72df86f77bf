#pragma once

#include <QString>

#include "platform/text/Formats.h"
#include "platform/text/Units.h"

class QFont;

namespace brindlex {

class CodePage;
class RichTextBox;

/// Neighbouring characters of one format.
struct FormatStretch {
    Range range;
    CharFormat format;
};

/// The stretch of equal format on the line of `offset` that holds it; at the end of a line the last
/// one, which is empty in an empty line. Cost: O(log n).
FormatStretch formatStretchAt(const RichTextBox& box, Offset offset);

/// A format as a list "name:value;" in the terms of IAccessible2. `font` is what characters without
/// a font of their own have, `codePage` what names of fonts are written in.
QString textAttributes(const CharFormat& format, const QFont& font, const CodePage& codePage);

}  // namespace brindlex
