#include "shell/ScriptFile.h"

#include <new>
#include <string>
#include <string_view>

#include "platform/Files.h"

namespace brindlex {

namespace {

constexpr std::string_view kEnd = "\r\n";

std::string bytesOf(const Rope& text) {
    std::string bytes;
    bytes.reserve(text.size() + kEnd.size());
    text.visitPieces(Range(Offset(0), Offset(text.size())), [&bytes](std::string_view piece) {
        bytes += piece;
        return true;
    });
    bytes += kEnd;
    return bytes;
}

}  // namespace

bool writeScript(const QString& path, const Rope& text) try {
    return Files::write(path, bytesOf(text));
} catch (const std::bad_alloc&) {
    return false;
}

}  // namespace brindlex
