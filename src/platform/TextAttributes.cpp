#include "platform/TextAttributes.h"

#include <QFont>
#include <algorithm>

#include "platform/CodePage.h"
#include "platform/text/RichTextBox.h"

namespace brindlex {
namespace {

QString entry(const char* name, const QString& value) {
    return QLatin1String(name) + QLatin1Char(':') + value + QLatin1Char(';');
}

QString entry(const char* name, const char* value) {
    return entry(name, QLatin1String(value));
}

QString colorEntry(ColorRef color) {
    return entry("color", QStringLiteral("rgb(%1,%2,%3)")
                              .arg(color & 0xFF)
                              .arg(color >> 8 & 0xFF)
                              .arg(color >> 16 & 0xFF));
}

QString fontEntries(const CharFormat& format, const QFont& font, const CodePage& codePage) {
    const QString family =
        format.fontName.empty() ? font.family() : codePage.toUnicode(format.fontName);
    const double points =
        format.fontHalfPoints > 0 ? format.fontHalfPoints / 2.0 : font.pointSizeF();
    return entry("font-family", QLatin1Char('"') + family + QLatin1Char('"')) +
           entry("font-size", QStringLiteral("%1pt").arg(points));
}

}  // namespace

FormatStretch formatStretchAt(const RichTextBox& box, Offset offset) {
    const Range line = box.lineContent(box.rope().lineOf(offset));
    if (line.empty()) return {line, {}};
    const Offset inLine = std::min(offset, line.end() - 1);
    const Range run = box.formatRangeAt(inLine);
    return {{std::max(run.begin(), line.begin()), std::min(run.end(), line.end())},
            box.formatAt(inLine)};
}

QString textAttributes(const CharFormat& format, const QFont& font, const CodePage& codePage) {
    QString all = fontEntries(format, font, codePage) + colorEntry(format.color);
    all += entry("font-weight", format.bold || font.bold() ? "bold" : "normal");
    all += entry("font-style", format.italic || font.italic() ? "italic" : "normal");
    all += entry("text-underline-style", format.underline || font.underline() ? "solid" : "none");
    all += entry("text-line-through-style",
                 format.strikeThrough || font.strikeOut() ? "solid" : "none");
    if (format.charOffset != 0)
        all += entry("text-position", format.charOffset > 0 ? "super" : "sub");
    return all;
}

}  // namespace brindlex
