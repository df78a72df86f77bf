#include "document/ScriptFile.h"

#include <new>
#include <string>
#include <string_view>

#include "system/Files.h"
#include "text/LineEnds.h"

namespace brindlex {

namespace {

std::string bytesOf(const Rope& text) {
    std::string bytes;
    bytes.reserve(text.size() + kLineBreak.size());
    text.visitPieces(Range(Offset(0), Offset(text.size())), [&bytes](std::string_view piece) {
        bytes += piece;
        return true;
    });
    bytes += kLineBreak;
    return bytes;
}

}  // namespace

std::optional<Rope> readScript(const QString& path) {
    Rope text;
    const bool isRead = Files::readPieces(path, [&text](std::string_view piece) {
        text.replace(Range::at(Offset(text.size()), 0), piece);
    });
    return isRead ? std::optional(std::move(text)) : std::nullopt;
}

bool writeScript(const QString& path, const Rope& text) try {
    return Files::write(path, bytesOf(text));
} catch (const std::bad_alloc&) {
    return false;
}

}  // namespace brindlex
