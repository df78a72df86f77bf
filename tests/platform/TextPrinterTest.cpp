#include "platform/TextPrinter.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QPdfWriter>
#include <tuple>

#include "platform/RichTextView.h"

namespace brindlex {
namespace {

qsizetype pagesOf(const QByteArray& pdf) {
    return pdf.count("/Type /Page\n");
}

QByteArray printed(const RichTextView& view) {
    QByteArray pdf;
    QBuffer buffer(&pdf);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setPageSize(QPageSize(QSizeF(4, 6), QPageSize::Inch));
    view.SelPrint(writer);
    return pdf;
}

std::string numbered(int count) {
    std::string text;
    for (int line = 0; line < count; ++line)
        text += (line > 0 ? "\r\n" : "") + std::to_string(line);
    return text;
}

TEST(TextPrinter, PutsPageAfterPageWithinMarginsOfAnInch) {
    RichTextView view;
    QFont font("Courier New");
    font.setPointSizeF(9.75);
    view.SetFont(font);
    // two by four inches: 24 columns of 7.8 pixels at 96 to the inch, and some 26 rows
    view.box().SetText(numbered(20));
    EXPECT_EQ(pagesOf(printed(view)), 1);
    int fitting = 20;
    do view.box().SetText(numbered(++fitting));
    while (pagesOf(printed(view)) == 1 && fitting < 60);
    EXPECT_GE(fitting, 25);
    EXPECT_LE(fitting, 29);
    const int perPage = fitting - 1;

    const auto line = [&](int pages, int more = 0) {
        return std::string(static_cast<std::size_t>(24 * perPage * pages + more), 'x');
    };
    const std::tuple<const char*, std::string, qsizetype> cases[] = {
        {"nothing", "", 1},
        {"two full pages", numbered(2 * perPage), 2},
        {"a line more", numbered(2 * perPage + 1), 3},
        {"a line wraps on paper", line(1), 1},
        {"and goes on overleaf", line(1, 1), 2},
        {"a very long line", line(60), 60},
    };
    for (const auto& [name, text, pages] : cases) {
        view.box().SetText(text);
        EXPECT_EQ(pagesOf(printed(view)), pages) << name;
    }
    view.box().SetSelLength(40);
    EXPECT_EQ(pagesOf(printed(view)), 1) << "only what is selected";
}

}  // namespace
}  // namespace brindlex
