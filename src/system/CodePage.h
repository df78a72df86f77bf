#pragma once

#include <QString>
#include <optional>
#include <string>
#include <string_view>

#include "text/CharacterTable.h"

namespace brindlex {

/// Converts between script text, which is bytes of the system's 8-bit code page, and QString, which
/// is everything else. Every byte value goes to Unicode and comes back unchanged: a byte that the
/// code page leaves undefined is the C1 control of the same value, or above 0x9F a private use
/// character, which no key types.
class CodePage {
  public:
    /// The code page of this system, made once: the ANSI code page where the system has one, else
    /// the one that belongs to the locale.
    static const CodePage& system();
    /// The code page of a locale as the environment names it ("ru_RU.CP1251", "pl_PL.UTF-8"): its
    /// own character set if that has 8 bits, else the Windows code page of its language, 1252 if in
    /// doubt.
    static CodePage ofLocale(const QString& name);
    /// A Windows code page by its number (874, 1250 to 1258); any other number, and one whose table
    /// the toolkit does not know, gives 1252.
    static CodePage windows(int number);

    const CharacterTable& characters() const { return characters_; }
    /// One character for each byte.
    QString toUnicode(std::string_view bytes) const;
    /// For text that is typed or pasted: a character that the code page lacks becomes its nearest
    /// letter (its base letter, a straight quote, a hyphen ...), or "?"; one without a width is
    /// dropped. A letter and its accent may come as two characters.
    std::string fromUnicode(QStringView text) const;
    /// For text that is searched for: nothing when the code page lacks one of its characters.
    std::optional<std::string> encodeExactly(QStringView text) const;

  private:
    explicit CodePage(const CharacterTable& characters) : characters_(characters) {}
    std::string nearest(QStringView cluster) const;
    std::string nearest(char32_t letter) const;

    CharacterTable characters_;
};

}  // namespace brindlex
