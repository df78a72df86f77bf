#include "platform/RichTextAccessible.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <random>
#include <tuple>
#include <utility>

#include "platform/AccessibleEvents.h"
#include "platform/RichTextView.h"

namespace brindlex {
namespace {

class Accessible : public testing::Test {
  protected:
    Accessible() {
        view_.resize(640, 320);
        view_.show();
        face_ = QAccessible::queryAccessibleInterface(&view_);
    }

    void setText(std::string_view text) { view_.box().SetText(text); }
    QAccessibleTextInterface& text() { return *face_->textInterface(); }
    QAccessibleEditableTextInterface& editor() { return *face_->editableTextInterface(); }

    const CodePage page_ = CodePage::windows(1252);
    RichTextView view_{nullptr, page_};
    QAccessibleInterface* face_ = nullptr;
};

TEST_F(Accessible, UnitsTileTheTextInBothDirections) {
    std::mt19937 random(7);
    std::string all;
    const char* pieces[] = {"wait", " ", "\t", "{", "//x", "\r\n", "_9\xE9", "\r\n\r\n"};
    for (int i = 0; i < 60; ++i) all += pieces[random() % 8];
    setText(all);
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
        Unit before;
        EXPECT_EQ(unit(&Text::textBeforeOffset, 0), Unit(0, 0, ""));
        for (int at = 0; at < length; at = std::get<1>(before)) {
            const Unit now = unit(&Text::textAtOffset, at);
            const int end = std::get<1>(now);
            ASSERT_GT(end, at);
            ASSERT_EQ(now, Unit(at, end, expected.mid(at, end - at)));
            if (at > 0) {
                ASSERT_EQ(unit(&Text::textAfterOffset, std::get<0>(before)), now);
                ASSERT_EQ(unit(&Text::textBeforeOffset, at), before);
            }
            before = now;
        }
        EXPECT_EQ(unit(&Text::textAfterOffset, length - 1), Unit(length, length, ""));
        EXPECT_EQ(unit(&Text::textAtOffset, length + 1), Unit(0, 0, ""));
    }
}

TEST_F(Accessible, FindsTheCharacterUnderAPointOfTheScreen) {
    setText("first line\r\n  second\r\n\r\nlast");
    for (const int offset : {0, 4, 9, 12, 15, 24, 27}) {
        const QRect place = text().characterRect(offset);
        EXPECT_EQ(text().offsetAtPoint(place.center() - QPoint(place.width() / 4, 0)), offset);
    }
    EXPECT_EQ(text().offsetAtPoint(view_.mapToGlobal(QPoint(-50, -50))), -1);
    EXPECT_TRUE(text().characterRect(1000).isNull());
}

TEST_F(Accessible, MovesCaretAndSelection) {
    setText("one two three");
    text().addSelection(4, 7);
    EXPECT_EQ(text().cursorPosition(), 7);
    int start = 0;
    int end = 0;
    text().selection(0, &start, &end);
    EXPECT_EQ(text().text(start, end), "two");
    EXPECT_EQ(text().textAtOffset(-2, QAccessible::WordBoundary, &start, &end), " ");
    text().removeSelection(0);
    EXPECT_EQ(text().selectionCount(), 0);
    text().setCursorPosition(-1);
    EXPECT_EQ(text().cursorPosition(), 13);
}

TEST_F(Accessible, IsATextThatMayBeEditedUnlessLocked) {
    EXPECT_EQ(face_->role(), QAccessible::EditableText);
    EXPECT_TRUE(face_->state().multiLine);
    EXPECT_FALSE(face_->state().readOnly);
    setText("one two");
    editor().insertText(3, QString::fromUtf8("\u2192\n"));
    EXPECT_EQ(view_.box().Text(), "one?\r\n two");
    editor().replaceText(0, 4, "1");
    editor().deleteText(1, 4);
    EXPECT_EQ(view_.box().Text(), "1two");
    view_.box().SetLocked(true);
    EXPECT_TRUE(face_->state().readOnly);
}

TEST_F(Accessible, TellsFormatsAndTheirReach) {
    setText("plain red\r\nnext");
    view_.box().SetSelStart(6);
    view_.box().SetSelLength(3);
    view_.box().SetSelColor(0x0000C0);
    view_.box().SetSelBold(true);
    int start = 0;
    int end = 0;
    const QString red = text().attributes(7, &start, &end);
    EXPECT_EQ(start, 6);
    EXPECT_EQ(end, 9);
    EXPECT_TRUE(red.contains("color:rgb(192,0,0);")) << red.toStdString();
    EXPECT_TRUE(text().attributes(2, &start, &end).contains("font-weight:normal;"));
    EXPECT_EQ(end, 6);
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

class AccessibleTold : public Accessible {
  protected:
    /// Replaces text as code does and tells of it as the view does.
    void replace(std::size_t begin, std::size_t length, std::string_view text) {
        view_.box().userReplace(Range::at(Offset(begin), length), text);
        events_.textChanged({Range::at(Offset(begin), length), text.size(), 0, 0, {}});
        events_.selectionChanged();
    }
    void select(std::size_t anchor, std::size_t caret) {
        view_.box().select(Offset(anchor), Offset(caret));
        events_.selectionChanged();
    }
    QStringList told() { return std::exchange(log_, {}); }

    bool listens_ = true;

  private:
    QStringList log_;
    AccessibleEvents events_{view_,
                             {[this] { return listens_; },
                              [this](QAccessibleEvent& event) { log_ << described(event); }}};
};

TEST_F(AccessibleTold, EditsCaretAndSelection) {
    setText("one two");
    select(3, 3);
    EXPECT_EQ(told(), QStringList({"caret 3"}));
    select(3, 7);
    EXPECT_EQ(told(), QStringList({"select 3 7", "caret 7"}));
    replace(3, 4, "!");
    EXPECT_EQ(told(), QStringList({"-3  two", "+3 !", "select 4 4", "caret 4"}));
    replace(4, 0, "");
    EXPECT_EQ(told(), QStringList());
    replace(0, 4, std::string(1000000, 'x'));
    const QStringList big = told();
    ASSERT_EQ(big.size(), 3);
    EXPECT_LE(big[1].size(), 11000) << "nobody listens to a megabyte";
}

TEST_F(AccessibleTold, NothingOfWhatHappenedBeforeSomebodyListened) {
    setText("one two");
    listens_ = false;
    select(3, 3);
    replace(0, 3, "1");
    EXPECT_EQ(told(), QStringList());
    listens_ = true;
    replace(0, 1, "one");
    EXPECT_EQ(told(), QStringList({"+0 one", "caret 3"})) << "the removed text is not known";
    replace(0, 1, "");
    EXPECT_EQ(told(), QStringList({"-0 o", "caret 0"}));
}

}  // namespace
}  // namespace brindlex
