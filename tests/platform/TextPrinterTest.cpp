#include "platform/TextPrinter.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QPdfWriter>

#include "platform/RichTextView.h"

namespace brindlex {
namespace {

qsizetype pagesOf(const RichTextView& view) {
    QByteArray pdf;
    QBuffer buffer(&pdf);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setPageSize(QPageSize(QSizeF(4, 6), QPageSize::Inch));
        view.SelPrint(writer);
    }
    return pdf.count("/Type /Page\n");
}

TEST(TextPrinter, PutsPageAfterPageWithinMarginsOfAnInch) {
    RichTextView view;
    QFont font("Courier New");
    font.setPointSizeF(9.75);
    view.SetFont(font);
    const auto pages = [&](const std::string& text) {
        view.box().SetText(text);
        return pagesOf(view);
    };
    // two by four inches: 24 columns of 7.8 pixels at 96 to the inch, and some 26 rows
    const auto lines = [](int count) {
        return QByteArray("x\r\n").repeated(count).chopped(2).toStdString();
    };
    int fitting = 24;
    while (pages(lines(fitting + 1)) == 1 && fitting < 60) ++fitting;
    EXPECT_LE(fitting, 28);
    EXPECT_EQ(pages(lines(fitting)), 1);
    EXPECT_EQ(pages(lines(2 * fitting)), 2);
    EXPECT_EQ(pages(lines(2 * fitting + 1)), 3);
    EXPECT_EQ(pages(""), 1);
    const auto line = [&](int length) {
        return std::string(static_cast<std::size_t>(length), 'x');
    };
    EXPECT_EQ(pages(line(24 * fitting)), 1);
    EXPECT_EQ(pages(line(24 * fitting + 1)), 2) << "a line goes on overleaf";
    EXPECT_EQ(pages(line(24 * fitting * 60)), 60);
    view.box().SetSelLength(40);
    EXPECT_EQ(pagesOf(view), 1) << "only what is selected";
}

}  // namespace
}  // namespace brindlex
