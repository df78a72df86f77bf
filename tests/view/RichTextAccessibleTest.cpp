#include "view/accessibility/RichTextAccessible.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <tuple>
#include <utility>

#include "text/Random.h"
#include "view/RichTextView.h"
#include "view/accessibility/AccessibleEvents.h"

namespace brindlex {
namespace {

class Accessible : public testing::Test {
  protected:
    Accessible() {
        view_.resize(640, 320);
        view_.show();
        face_ = QAccessible::queryAccessibleInterface(&view_);
    }

    QAccessibleTextInterface& text() { return *face_->textInterface(); }
    QAccessibleEditableTextInterface& editor() { return *face_->editableTextInterface(); }

    const CodePage page_ = CodePage::windows(1252);
    RichTextView view_{nullptr, page_};
    QAccessibleInterface* face_ = nullptr;
};

TEST_F(Accessible, UnitsTileTheTextInBothDirections) {
    test::Random random(7);
    std::string all;
    const char* pieces[] = {"wait", " ", "\t", "{", "//x", "\r\n", "_9\xE9", "\r\n\r\n"};
    for (int i = 0; i < 60; ++i) all += pieces[random.below(8)];
    view_.box().SetText(all);
    const QString expected = page_.toUnicode(all);
    const int length = static_cast<int>(expected.size());
    ASSERT_EQ(text().text(0, text().characterCount()), expected);
    for (const auto type :
         {QAccessible::CharBoundary, QAccessible::WordBoundary, QAccessible::LineBoundary,
          QAccessible::ParagraphBoundary, QAccessible::SentenceBoundary}) {
        SCOPED_TRACE(type);
        using Unit = std::tuple<int, int, QString>;
        const auto unit = [&](auto whereabouts, int at) {
            int start = 0;
            int end = 0;
            const QString found = (text().*whereabouts)(at, type, &start, &end);
            return Unit(start, end, found);
        };
        using Text = QAccessibleTextInterface;
        Unit before(0, 0, "");
        for (int at = 0; at < length; at = std::get<1>(before)) {
            const Unit now = unit(&Text::textAtOffset, at);
            const int end = std::get<1>(now);
            ASSERT_GT(end, at);
            ASSERT_EQ(now, Unit(at, end, expected.mid(at, end - at)));
            ASSERT_EQ(unit(&Text::textBeforeOffset, at), before);
            ASSERT_TRUE(at == 0 || unit(&Text::textAfterOffset, std::get<0>(before)) == now);
            before = now;
        }
        EXPECT_EQ(unit(&Text::textAfterOffset, length - 1), Unit(length, length, ""));
        EXPECT_EQ(unit(&Text::textAtOffset, length + 1), Unit(0, 0, ""));
    }
}

TEST_F(Accessible, MovesTheCaretAndEditsAsTheUserMay) {
    view_.box().SetText("one two");
    text().addSelection(4, 7);
    EXPECT_EQ(text().cursorPosition(), 7);
    int start = 0;
    int end = 0;
    text().selection(0, &start, &end);
    EXPECT_EQ(text().text(start, end), "two");
    const QRect place = text().characterRect(5);
    EXPECT_EQ(text().offsetAtPoint(place.center() - QPoint(place.width() / 4, 0)), 5);
    EXPECT_EQ(text().offsetAtPoint(view_.mapToGlobal(QPoint(-50, -50))), -1);
    EXPECT_TRUE(text().characterRect(1000).isNull());
    editor().insertText(3, QString::fromUtf8("\u2192\n"));
    EXPECT_EQ(view_.box().Text(), "one?\r\n two");
    editor().replaceText(0, 4, "1");
    editor().deleteText(1, 4);
    EXPECT_EQ(view_.box().Text(), "1two");
    EXPECT_FALSE(face_->state().readOnly);
    view_.box().SetLocked(true);
    editor().deleteText(0, 1);
    EXPECT_EQ(view_.box().Text(), "1two");
    EXPECT_TRUE(face_->state().readOnly);
}

/// An event in the words "+place text", "-place text", "caret place", "select start end".
QString described(QAccessibleEvent& event) {
    if (const auto* insert = dynamic_cast<QAccessibleTextInsertEvent*>(&event))
        return QString("+%1 %2").arg(insert->changePosition()).arg(insert->textInserted());
    if (const auto* remove = dynamic_cast<QAccessibleTextRemoveEvent*>(&event))
        return QString("-%1 %2").arg(remove->changePosition()).arg(remove->textRemoved());
    if (const auto* select = dynamic_cast<QAccessibleTextSelectionEvent*>(&event))
        return QString("select %1 %2").arg(select->selectionStart()).arg(select->selectionEnd());
    const auto& caret = dynamic_cast<QAccessibleTextCursorEvent&>(event);
    return QString("caret %1").arg(caret.cursorPosition());
}

TEST_F(Accessible, TellsOfEditsCaretAndSelectionWhileSomebodyListens) {
    bool listens = true;
    QStringList log;
    AccessibleEvents events(
        view_, {[&] { return listens; }, [&](auto& event) { log << described(event); }});
    const auto told = [&] { return std::exchange(log, {}); };
    const auto select = [&](std::size_t anchor, std::size_t caret) {
        view_.box().select(Offset(anchor), Offset(caret));
        events.selectionChanged();
    };
    // as the view tells of it
    const auto replace = [&](std::size_t begin, std::size_t length, std::string_view text) {
        view_.box().userReplace(Range::at(Offset(begin), length), text);
        events.textChanged({Range::at(Offset(begin), length), text.size(), 0, 0, {}});
        events.selectionChanged();
    };
    view_.box().SetText("one two");
    select(3, 3);
    EXPECT_EQ(told(), QStringList({"caret 3"}));
    select(3, 7);
    EXPECT_EQ(told(), QStringList({"select 3 7", "caret 7"}));
    replace(3, 4, "!");
    EXPECT_EQ(told(), QStringList({"-3  two", "+3 !", "select 4 4", "caret 4"}));
    listens = false;
    replace(0, 3, "uno");
    EXPECT_EQ(told(), QStringList());
    listens = true;
    replace(0, 3, "one");
    EXPECT_EQ(told(), QStringList({"+0 one", "caret 3"})) << "the removed text is not known";
    replace(0, 3, std::string(1000000, 'x'));
    const QStringList big = told();
    ASSERT_EQ(big.size(), 3);
    EXPECT_LE(big[1].size(), 11000) << "nobody listens to a megabyte";
}

}  // namespace
}  // namespace brindlex
