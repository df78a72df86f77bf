#include "platform/RichTextAccessible.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <random>

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

TEST_F(Accessible, IsAnEditableTextOfManyLines) {
    ASSERT_NE(face_->textInterface(), nullptr);
    ASSERT_NE(face_->editableTextInterface(), nullptr);
    EXPECT_EQ(face_->role(), QAccessible::EditableText);
    EXPECT_TRUE(face_->state().multiLine);
    EXPECT_TRUE(face_->state().focusable);
    EXPECT_TRUE(face_->state().selectableText);
    EXPECT_FALSE(face_->state().readOnly);
    view_.box().SetLocked(true);
    EXPECT_TRUE(face_->state().readOnly);
}

class AccessibleUnits : public Accessible,
                        public testing::WithParamInterface<QAccessible::TextBoundaryType> {};

TEST_P(AccessibleUnits, TileTheTextInBothDirections) {
    std::mt19937 random(7);
    std::string all;
    const char* pieces[] = {"wait", " ", "\t", "{", "//x", "\r\n", "_9\xE9", "\r\n\r\n"};
    for (int i = 0; i < 60; ++i) all += pieces[random() % 8];
    setText(all);
    const QString expected = page_.toUnicode(all);
    ASSERT_EQ(text().text(0, text().characterCount()), expected);

    QList<int> starts;
    int start = 0;
    int end = 0;
    QString joined;
    for (int at = 0; at < expected.size(); at = end) {
        const QString unit = text().textAtOffset(at, GetParam(), &start, &end);
        ASSERT_EQ(start, at);
        ASSERT_GT(end, start);
        ASSERT_EQ(unit, expected.mid(start, end - start));
        joined += unit;
        starts.append(at);
    }
    EXPECT_EQ(joined, expected);

    for (int i = 1; i < starts.size(); ++i) {
        const QString after = text().textAfterOffset(starts[i - 1], GetParam(), &start, &end);
        ASSERT_EQ(start, starts[i]);
        ASSERT_EQ(after, expected.mid(start, end - start));
        text().textBeforeOffset(starts[i], GetParam(), &start, &end);
        ASSERT_EQ(start, starts[i - 1]);
        ASSERT_EQ(end, starts[i]);
    }
    EXPECT_EQ(text().textBeforeOffset(0, GetParam(), &start, &end), QString());
    EXPECT_EQ(text().textAfterOffset(starts.last(), GetParam(), &start, &end), QString());
    EXPECT_EQ(text().textAtOffset(static_cast<int>(expected.size()) + 1, GetParam(), &start, &end),
              QString());
}

INSTANTIATE_TEST_SUITE_P(, AccessibleUnits,
                         testing::Values(QAccessible::CharBoundary, QAccessible::WordBoundary,
                                         QAccessible::LineBoundary, QAccessible::ParagraphBoundary,
                                         QAccessible::SentenceBoundary));

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
    text().setCursorPosition(4);
    EXPECT_EQ(text().cursorPosition(), 4);
    EXPECT_EQ(text().selectionCount(), 0);
    text().addSelection(4, 7);
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

TEST_F(Accessible, EditsUnlessLocked) {
    setText("one two");
    editor().insertText(3, QString::fromUtf8("\u2192\n"));
    EXPECT_EQ(view_.box().Text(), "one?\r\n two");
    editor().replaceText(0, 4, "1");
    editor().deleteText(1, 4);
    EXPECT_EQ(view_.box().Text(), "1two");
    view_.box().SetLocked(true);
    editor().deleteText(0, 4);
    EXPECT_EQ(view_.box().Text(), "1two");
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
    EXPECT_TRUE(red.contains("font-weight:bold;")) << red.toStdString();
    EXPECT_TRUE(text().attributes(2, &start, &end).contains("font-weight:normal;"));
    EXPECT_EQ(end, 6);
}

TEST_F(Accessible, BringsAStretchIntoView) {
    std::string lines;
    for (int i = 0; i < 300; ++i) lines += "line\r\n";
    setText(lines);
    for (const int offset : {200 * 6, 10 * 6, 290 * 6}) {
        text().scrollToSubstring(offset, offset + 4);
        EXPECT_TRUE(QRect(view_.viewport()->mapToGlobal(QPoint(0, 0)), view_.viewport()->size())
                        .contains(text().characterRect(offset)))
            << offset;
    }
}

/// What a screen reader was told since the last look.
class Told {
  public:
    Told() {
        log().clear();
        QAccessible::setActive(true);
        previous_ = QAccessible::installUpdateHandler(&Told::note);
    }
    ~Told() {
        QAccessible::installUpdateHandler(previous_);
        QAccessible::setActive(false);
    }
    static QStringList take() { return std::exchange(log(), {}); }

  private:
    static QStringList& log() {
        static QStringList lines;
        return lines;
    }
    static void note(QAccessibleEvent* event) {
        if (dynamic_cast<RichTextView*>(event->object()) == nullptr) return;
        if (event->type() == QAccessible::TextInserted) {
            const auto& insert = *static_cast<QAccessibleTextInsertEvent*>(event);
            log() << QString("+%1 %2").arg(insert.changePosition()).arg(insert.textInserted());
        } else if (event->type() == QAccessible::TextRemoved) {
            const auto& remove = *static_cast<QAccessibleTextRemoveEvent*>(event);
            log() << QString("-%1 %2").arg(remove.changePosition()).arg(remove.textRemoved());
        } else if (event->type() == QAccessible::TextCaretMoved) {
            const auto& move = *static_cast<QAccessibleTextCursorEvent*>(event);
            log() << QString("caret %1").arg(move.cursorPosition());
        } else if (event->type() == QAccessible::TextSelectionChanged) {
            const auto& select = *static_cast<QAccessibleTextSelectionEvent*>(event);
            log()
                << QString("select %1 %2").arg(select.selectionStart()).arg(select.selectionEnd());
        }
    }
    QAccessible::UpdateHandler previous_;
};

TEST_F(Accessible, TellsEditsCaretAndSelection) {
    setText("one two");
    const Told told;
    view_.box().SetSelStart(3);
    EXPECT_EQ(Told::take(), QStringList({"caret 3"}));
    view_.box().SetSelLength(4);
    EXPECT_EQ(Told::take(), QStringList({"select 3 7", "caret 7"}));
    view_.box().SetSelText("!");
    EXPECT_EQ(Told::take(), QStringList({"-3  two", "+3 !", "select 4 4", "caret 4"}));
    view_.box().SetText(std::string(1000000, 'x'));
    const QStringList big = Told::take();
    ASSERT_EQ(big.size(), 3);
    EXPECT_LE(big[1].size(), 11000);
}

}  // namespace
}  // namespace brindlex
