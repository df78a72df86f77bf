#pragma once

#include <QString>
#include <optional>

namespace brindlex {

class RichTextView;

/// Offers the selected text of a view as the system's primary selection, which a middle click
/// pastes. Nothing happens where nothing is selected or where the system has no such selection. The
/// text is copied only when it is asked for.
void offerPrimarySelection(const RichTextView& view);

/// The primary selection as text; unset where the system has none.
std::optional<QString> primarySelection();

}  // namespace brindlex
