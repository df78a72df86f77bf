#include "editor/ByteTable.h"

namespace brindlex {
namespace {

std::uint8_t flagIf(bool holds, ByteFlag flag) {
    return holds ? flag : ByteFlag{};
}

bool mayBegin(std::string_view mark, char byte) {
    return mark.empty() || mark.front() == byte;
}

}  // namespace

ByteTable::ByteTable(const CharacterTable& characters, const WordClassifier& classifier,
                     std::string_view commentMark, std::string_view stringMark) {
    for (std::size_t value = 0; value < traits_.size(); ++value) {
        const char byte = static_cast<char>(value);
        traits_[value].lower = static_cast<std::uint8_t>(characters.lower(byte));
        traits_[value].flags |= flagIf(byte == ' ' || byte == '\t', kBlank);
        traits_[value].flags |= flagIf(mayBegin(commentMark, byte), kCommentFirst);
        traits_[value].flags |= flagIf(mayBegin(stringMark, byte), kStringFirst);
        traits_[value].flags |= flagIf(classifier.isDelimiterByte(byte), kDelimiter);
    }
}

}  // namespace brindlex
