#include "platform/TextPrinter.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QPdfWriter>

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

    struct Case {
        const char* name;
        std::string text;
        std::pair<std::size_t, std::size_t> selected;
        qsizetype pages;
    };
    const Case cases[] = {
        {"nothing", "", {0, 0}, 1},
        {"two full pages", numbered(2 * perPage), {0, 0}, 2},
        {"a line more", numbered(2 * perPage + 1), {0, 0}, 3},
        {"only what is selected", numbered(500), {0, 40}, 1},
        {"a line wraps on paper",
         std::string(static_cast<std::size_t>(24 * perPage), 'x'),
         {0, 0},
         1},
        {"and goes on overleaf",
         std::string(static_cast<std::size_t>(24 * perPage + 1), 'x'),
         {0, 0},
         2},
        {"a very long line",
         std::string(static_cast<std::size_t>(24 * perPage * 60), 'x'),
         {0, 0},
         60},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        view.box().SetText(row.text);
        view.box().select(Offset(row.selected.first), Offset(row.selected.second));
        EXPECT_EQ(pagesOf(printed(view)), row.pages);
    }
}

}  // namespace
}  // namespace brindlex
