#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "platform/text/CharacterTable.h"

namespace brindlex {

/// The border between script text, which is bytes of the system's 8-bit code page, and everything
/// else, which is QString. Every byte value goes to Unicode and comes back unchanged.
class CodePage {
  public:
    /// The code page of this system, made once: the ANSI code page where the system has one, else
    /// the Windows code page of the locale's language, 1252 if in doubt.
    static const CodePage& system();
    /// A Windows code page by its number (874, 1250 to 1258); any other number, and one whose table
    /// the toolkit does not know, gives 1252.
    static CodePage windows(int number);

    const CharacterTable& characters() const { return characters_; }
    QString toUnicode(std::string_view bytes) const;
    /// A character that the code page lacks becomes its nearest letter (its base letter, a straight
    /// quote, a hyphen ...), or "?".
    std::string fromUnicode(QStringView text) const;

  private:
    explicit CodePage(CharacterTable characters) : characters_(characters) {}
    CharacterTable characters_;
};

}  // namespace brindlex
