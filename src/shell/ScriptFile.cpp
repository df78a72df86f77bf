#include "shell/ScriptFile.h"

#include <string>
#include <string_view>

#include "platform/Files.h"

namespace brindlex {

bool writeScript(const QString& path, const Rope& text) {
    constexpr std::string_view kEnd = "\r\n";
    std::string bytes;
    bytes.reserve(text.size() + kEnd.size());
    text.visitPieces(Range(Offset(0), Offset(text.size())), [&bytes](std::string_view piece) {
        bytes += piece;
        return true;
    });
    bytes += kEnd;
    return Files::write(path, bytes);
}

}  // namespace brindlex
