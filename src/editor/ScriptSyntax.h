#pragma once

#include <QString>
#include <array>
#include <string>
#include <vector>

#include "text/Units.h"

namespace brindlex {

class KELP_RTBSyntax;

/// A colour of scripts that the user can choose.
struct UserColor {
    const char* name;
    const char* key;         ///< in the settings store
    const char* firstValue;  ///< decimal text of 0x00BBGGRR
    void (*give)(KELP_RTBSyntax& editor, Long color);
};

inline constexpr std::size_t kUserColorCount = 5;
/// Whatever holds a value for each of them has them in this order.
extern const std::array<UserColor, kUserColorCount> kUserColors;
/// Decimal texts of 0x00BBGGRR.
using UserColorValues = std::array<QString, kUserColorCount>;

/// Gives the editor the word lists and marks of the script language and the user's colours, and
/// colours the text anew. A value that is no number leaves its colours as they are.
void applyScriptSyntax(KELP_RTBSyntax& editor, const UserColorValues& colorValues);

/// The words that completion offers, in the order in which it offers them. Some are empty and some
/// stand there more than once.
std::vector<std::string> scriptKeywords();

}  // namespace brindlex
