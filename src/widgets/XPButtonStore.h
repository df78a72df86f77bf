#pragma once

#include "widgets/XPButtonMembers.h"

namespace brindlex {

class PropertyBag;

/// Everything of a button that is stored.
struct XPButtonRecord {
    XPButtonMembers members;
    XPButtonWindowMembers window;
};

/// The defaults that the place of a button gives.
struct XPButtonDefaults {
    ColorValue BackColor = kButtonFace;
    QFont Font;
};

/// A member that is absent, of a wrong type or outside its table has its default.
XPButtonRecord readRecord(const PropertyBag& bag, const XPButtonDefaults& defaults);
/// Leaves out what equals its default: read with the same defaults the record comes back as it was.
void writeRecord(PropertyBag& bag, const XPButtonRecord& record, const XPButtonDefaults& defaults);

}  // namespace brindlex
