#pragma once

#include <QString>
#include <array>
#include <string>
#include <vector>

namespace brindlex {

class KELP_RTBSyntax;

/// Gives the editor the word lists and marks of the script language and the user's colours, and
/// colours the text anew. `colorValues` are decimal texts of 0x00BBGGRR: normal text, comments,
/// strings, reserved words, operators; one that is no number leaves its colours as they are.
void applyScriptSyntax(KELP_RTBSyntax& editor, const std::array<QString, 5>& colorValues);

/// The words that completion offers, in the order in which it offers them. Some are empty and some
/// stand there more than once.
std::vector<std::string> scriptKeywords();

}  // namespace brindlex
