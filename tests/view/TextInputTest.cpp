#include "view/RichTextView.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDrag>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMainWindow>
#include <QMimeData>
#include <QStyleHints>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <string>
#include <tuple>
#include <vector>

#include "support/MarkedText.h"
#include "system/Twips.h"
#include "view/TextMimeData.h"

namespace brindlex {
namespace {

/// Texts are marked, with '\n' for a line break.
class Input : public testing::Test {
  protected:
    Input() {
        view_.resize(640, 320);
        view_.show();
        view_.setFocus();
        QApplication::setActiveWindow(&view_);
    }

    void put(QString text) {
        test::putMarked(view_.box(), text.replace("\n", "\r\n").toStdString());
    }
    std::string marked() const {
        std::string text = test::marked(view_.box());
        std::erase(text, '\r');
        return text;
    }
    void strike(const std::vector<QKeyCombination>& keys) {
        for (const QKeyCombination& key : keys)
            QTest::keyClick(&view_, key.key(), key.keyboardModifiers());
    }
    /// A pixel on the left half of the character at `offset`.
    QPoint pixel(std::size_t offset) {
        const QRect place = view_.characterRect(Offset(offset));
        return {place.left() + place.width() / 4, place.center().y()};
    }
    void mouse(QEvent::Type type, QPoint at, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = {}) {
        QMouseEvent event(type, at, view_.viewport()->mapToGlobal(at), button, button, modifiers);
        QApplication::sendEvent(view_.viewport(), &event);
    }
    void mouse(QEvent::Type type, std::size_t at, Qt::MouseButton button = Qt::LeftButton) {
        mouse(type, pixel(at), button);
    }

    const CodePage page_ = CodePage::windows(1252);
    RichTextView view_{nullptr, page_};
};

constexpr auto kShift = Qt::ShiftModifier;
constexpr auto kCtrl = Qt::ControlModifier;
constexpr auto kPress = QEvent::MouseButtonPress;
constexpr auto kRelease = QEvent::MouseButtonRelease;
constexpr auto kDouble = QEvent::MouseButtonDblClick;
constexpr auto kMove = QEvent::MouseMove;

// --- Keys ----------------------------------------------------------------------------------------

TEST_F(Input, KeysMoveSelectAndEdit) {
    const std::tuple<const char*, std::vector<QKeyCombination>, const char*> rows[] = {
        // characters, line breaks, overwriting
        {"a|b", {Qt::Key_Enter | Qt::KeypadModifier}, "a\n|b"},
        {"a|b", {Qt::Key_Tab, Qt::Key_Escape}, "a\t|b"},
        {"a|bc\nd", {Qt::Key_Insert, Qt::Key_X, Qt::Key_Y, Qt::Key_Z}, "axyz|\nd"},
        {"a|bc", {Qt::Key_Insert, Qt::Key_Insert, Qt::Key_X}, "ax|bc"},
        // deleting
        {"a\n|b", {Qt::Key_Backspace}, "a|b"},
        {"ab|c", {kShift | Qt::Key_Backspace}, "a|c"},
        {"a|\nb", {Qt::Key_Delete}, "a|b"},
        {"wait sound|", {kCtrl | Qt::Key_Backspace}, "wait |"},
        {"wait |sound {", {kCtrl | Qt::Key_Delete}, "wait |{"},
        {"one ^two| three", {kCtrl | Qt::Key_Delete}, "one | three"},
        // steps
        {"a|\nb", {Qt::Key_Right, Qt::Key_Right, Qt::Key_Left}, "a\n|b"},
        {"a^bc|d", {Qt::Key_Left}, "a|bcd"},
        {"wait  500|", {kCtrl | Qt::Key_Left, kCtrl | Qt::Key_Left}, "|wait  500"},
        {"x\n\t\ta|b", {Qt::Key_Home, Qt::Key_Home}, "x\n|\t\tab"},
        {"a|bc\nd", {Qt::Key_End}, "abc|\nd"},
        {"ab\nc|d\nef", {kCtrl | Qt::Key_Home}, "|ab\ncd\nef"},
        {"ab\nc|d\nef", {kCtrl | Qt::Key_End}, "ab\ncd\nef|"},
        {"abcd|\nx\nabcd", {Qt::Key_Down, Qt::Key_Down}, "abcd\nx\nabcd|"},
        {"abcd|\nx\nabcd", {Qt::Key_Down, Qt::Key_Left, Qt::Key_Down}, "abcd\nx\n|abcd"},
        {"abcd\nx|\nabcd", {Qt::Key_Up, Qt::Key_Y, Qt::Key_Down}, "aybcd\nx|\nabcd"},
        // selecting
        {"a^b|c", {kShift | Qt::Key_Left, kShift | Qt::Key_Left}, "|a^bc"},
        {"|wait 5", {kShift | kCtrl | Qt::Key_Right}, "^wait |5"},
        {"ab|\ncd", {kShift | Qt::Key_Down}, "ab^\ncd|"},
        {"a|b\nc", {kCtrl | Qt::Key_A}, "^ab\nc|"},
        // the clipboard and undo belong to the owner; menu shortcuts that no menu took do nothing
        {"a^b|c", {kCtrl | Qt::Key_X, kCtrl | Qt::Key_Z, kShift | Qt::Key_Delete}, "a^b|c"},
        {"a^b|c", {kCtrl | Qt::Key_H, kCtrl | Qt::Key_J, kCtrl | Qt::Key_U}, "a^b|c"},
    };

    for (const auto& [start, keys, expected] : rows) {
        view_.setOverwriteMode(false);
        put(start);
        strike(keys);
        EXPECT_EQ(marked(), expected) << "from " << start;
    }
}

TEST_F(Input, OverwritingIsARemovalAndAnInsertion) {
    std::string log;
    view_.box().onChange = [&] { log += marked() + ' '; };
    view_.setOverwriteMode(true);
    put("a|bc\nd");
    log.clear();
    strike({Qt::Key_X, Qt::Key_Y, Qt::Key_Z});
    EXPECT_EQ(log, "a|c\nd ax|c\nd ax|\nd axy|\nd axyz|\nd ");
    view_.setOverwriteMode(false);
}

TEST_F(Input, PagesKeepTheColumnAndScroll) {
    put("abc|def" + QStringLiteral("\n\nabcdef\nabcdef").repeated(33));
    const std::string start = marked();
    strike({Qt::Key_PageDown, Qt::Key_PageDown});
    const Long line = view_.box().GetLineFromChar(view_.box().SelStart());
    EXPECT_EQ(line, 2 * (view_.linesPerPage() - 1));
    strike({Qt::Key_PageUp, Qt::Key_PageUp});
    EXPECT_EQ(view_.firstVisibleLine().value(), 0U);
    strike({kCtrl | Qt::Key_Down});
    EXPECT_EQ(view_.firstVisibleLine().value(), 1U);
    EXPECT_EQ(marked(), start);
}

// --- Key events ----------------------------------------------------------------------------------

TEST_F(Input, KeyEventsHaveTheirCodes) {
    const std::tuple<int, Qt::KeyboardModifiers, const char16_t*, const char*> rows[] = {
        {Qt::Key_A, kShift, u"A", "down 65 1 press 65 up 65 1 "},
        {Qt::Key_5, Qt::KeypadModifier, u"5", "down 101 0 press 53 up 101 0 "},
        {Qt::Key_ParenLeft, kShift, u"(", "down 57 1 press 40 up 57 1 "},
        {Qt::Key_Delete, {}, u"\x7f", "down 46 0 up 46 0 "},
        {Qt::Key_Backspace, {}, u"\b", "down 8 0 press 8 up 8 0 "},
        {'\n', {}, u"\n", "down 13 0 press 13 up 13 0 "},  // the key Linefeed
        // commands
        {Qt::Key_Z, kCtrl, u"\x1a", "down 90 2 press 26 up 90 2 "},
        {Qt::Key_C, kCtrl | kShift, u"\x03", "down 67 3 up 67 3 "},
        {Qt::Key_Insert, kShift, u"", "down 45 1 press 22 up 45 1 "},
        {Qt::Key_F, Qt::AltModifier, u"f", "down 70 4 up 70 4 "},
        // AltGr in its two forms, a key of no own code, several characters, some that do not fit
        {Qt::Key_BraceLeft, Qt::GroupSwitchModifier, u"{", "down 219 0 press 123 up 219 0 "},
        {Qt::Key_Q, kCtrl | Qt::AltModifier, u"@", "down 81 6 press 64 up 81 6 "},
        {Qt::Key_Eacute, {}, u"\u00e9", "down 231 0 press 233 up 231 0 "},
        {0, {}, u"ab\r\n", "down 231 0 press 97 press 98 press 13 up 231 0 "},
        {0, {}, u"\u0101\u4e2d", "down 231 0 press 97 press 63 up 231 0 "},
    };
    std::string log;
    const auto note = [&log](const char* name) {
        return [&log, name](int& code, int shift) {
            log += name + std::to_string(code) + ' ' + std::to_string(shift) + ' ';
        };
    };
    view_.onKeyDown = note("down ");
    view_.onKeyPress = [&](int& ascii) { log += "press " + std::to_string(ascii) + ' '; };
    view_.onKeyUp = note("up ");
    for (const auto& [key, modifiers, text, events] : rows) {
        log.clear();
        for (const auto kind : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(kind, key, modifiers, QString::fromUtf16(text));
            QApplication::sendEvent(&view_, &event);
        }
        EXPECT_EQ(log, events);
    }
}

TEST_F(Input, AutoRepeatRaisesKeyUpOnce) {
    int ups = 0;
    view_.onKeyUp = [&](int&, int) { ++ups; };
    for (const bool repeats : {true, true, false}) {
        for (const auto kind : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(kind, Qt::Key_A, {}, "a", repeats);
            QApplication::sendEvent(&view_, &event);
        }
    }
    EXPECT_EQ(marked(), "aaa|");
    EXPECT_EQ(ups, 1);
}

TEST_F(Input, HandlersMayShortenTheText) {
    view_.onKeyDown = [&](int&, int) { view_.box().SetText("short"); };
    put("a much longer text with the caret at its end|");
    strike({Qt::Key_Backspace});
    EXPECT_EQ(marked(), "|short");
    view_.onMouseDown = [&](int, int, double, double) { view_.box().SetText(""); };
    mouse(kPress, 5);
    mouse(kRelease, 0);
    EXPECT_EQ(marked(), "|");
}

// --- Shortcuts and focus -------------------------------------------------------------------------

TEST(Shortcuts, GoToTheMenuOrTheView) {
    const std::pair<const char*, bool> cases[] = {
        {"Ctrl+J", true},     {"Ctrl+H", true}, {"Ctrl+A", true},     {"Alt+F", true},
        {"Ctrl+Z", false},    {"Del", false},   {"X", false},         {"Return", false},
        {"Ctrl+Left", false}, {"Esc", false},   {"Shift+Ins", false},
    };
    QMainWindow window;
    auto* view = new RichTextView(&window);
    window.setCentralWidget(view);
    QAction entry(&window);
    bool triggered = false;
    QObject::connect(&entry, &QAction::triggered, [&] { triggered = true; });
    window.addAction(&entry);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    view->setFocus();
    for (const auto& [shortcut, menuGetsIt] : cases) {
        entry.setShortcut(QKeySequence::fromString(shortcut));
        triggered = false;
        const QKeyCombination key = entry.shortcut()[0];
        QTest::keyClick(view, key.key(), key.keyboardModifiers());
        EXPECT_EQ(triggered, menuGetsIt) << shortcut;
    }
}

// --- Mouse ---------------------------------------------------------------------------------------

TEST_F(Input, GesturesSelectCharactersWordsAndLines) {
    using Gestures = std::vector<std::pair<QEvent::Type, std::size_t>>;
    const std::tuple<const char*, Gestures, const char*> rows[] = {
        {"|first line\nsecond", {{kPress, 3}}, "fir|st line\nsecond"},
        {"|first line\nsecond", {{kPress, 3}, {kMove, 14}}, "fir^st line\nse|cond"},
        {"|first line", {{kPress, 3}, {kRelease, 3}, {kMove, 6}}, "fir|st line"},
        // on the selection, that might be dragged
        {"one ^two| three", {{kPress, 5}, {kMove, 5}}, "one ^two| three"},
        {"one ^two| three", {{kPress, 5}, {kMove, 5}, {kRelease, 5}}, "one t|wo three"},
        // by words
        {"wait |500 {one}\nnext", {{kDouble, 6}, {kMove, 12}}, "wait ^500 {one|}\nnext"},
        {"wait |500 {one}\nnext", {{kDouble, 6}, {kMove, 1}}, "|wait 500^ {one}\nnext"},
        {"wait |500 {one}\nnext", {{kDouble, 9}}, "wait 500 ^{|one}\nnext"},
        {"|wait 500\nnext_one", {{kDouble, 18}}, "wait 500\n^next_one|"},
        // by lines with their breaks
        {"|one\ntwo\nthree", {{kDouble, 6}, {kRelease, 6}, {kPress, 6}}, "one\n^two\n|three"},
        {"|one\ntwo\nthree",
         {{kDouble, 6}, {kRelease, 6}, {kPress, 6}, {kMove, 1}},
         "|one\ntwo\n^three"},
        {"|one\ntwo\nthree",
         {{kDouble, 6}, {kRelease, 6}, {kPress, 6}, {kMove, 12}},
         "one\n^two\nthree|"},
    };
    for (const auto& [start, gestures, expected] : rows) {
        put(start);
        for (const auto& [type, at] : gestures) mouse(type, at);
        EXPECT_EQ(marked(), expected) << "from " << start;
    }
}

TEST_F(Input, OtherClicks) {
    put("fir^st| line");
    mouse(kPress, pixel(1), Qt::LeftButton, kShift);
    EXPECT_EQ(marked(), "f|ir^st line");
    mouse(kRelease, 1);
    mouse(kPress, 2, Qt::RightButton);
    EXPECT_EQ(marked(), "f|ir^st line");
    mouse(kPress, 6, Qt::RightButton);
    EXPECT_EQ(marked(), "first |line");
}

TEST_F(Input, MouseEventsComeInTwipsAndInOrder) {
    put("|one two");
    QString log;
    double x = 0;
    const auto note = [&](const char* name) {
        return [&log, &x, name](int button, int shift, double atX, double) {
            log += QString("%1 %2 %3 ").arg(name).arg(button).arg(shift);
            x = atX;
        };
    };
    view_.onMouseDown = note("down");
    view_.onMouseMove = note("move");
    view_.onMouseUp = note("up");
    view_.onClick = [&] { log += "click "; };
    view_.onDblClick = [&] { log += "double "; };
    mouse(kPress, QPoint(30, 5), Qt::LeftButton, kShift | Qt::AltModifier);
    EXPECT_DOUBLE_EQ(x, Twips::fromPixels(30));
    mouse(kMove, QPoint(31, 5));
    mouse(kRelease, QPoint(31, 5));
    log += "| ";
    mouse(kPress, QPoint(30, 5));
    mouse(kRelease, QPoint(-30, 5));
    mouse(kPress, 1, Qt::RightButton);
    mouse(kRelease, 1, Qt::RightButton);
    mouse(kDouble, 1);
    mouse(kRelease, 1);
    EXPECT_EQ(log,
              "down 1 5 move 1 0 up 1 0 click | down 1 0 up 1 0 down 2 0 up 2 0 double up 1 0 ");
}

TEST_F(Input, DraggingBeyondTheEdgeScrollsOn) {
    put("|start" + QStringLiteral("\nline").repeated(300));
    mouse(kPress, 0);
    mouse(kMove, QPoint(5, view_.viewport()->height() + 60));
    EXPECT_TRUE(QTest::qWaitFor([&] { return view_.firstVisibleLine().value() > 40; }, 5000));
    EXPECT_GT(view_.box().SelLength(), 40 * 6);
    mouse(kMove, QPoint(5, -200));
    EXPECT_TRUE(QTest::qWaitFor([&] { return view_.firstVisibleLine().value() == 0; }, 5000));
    mouse(kRelease, 0);
    EXPECT_LT(view_.box().selection().length(), 6U);
}

TEST(TextMimeDataTest, KeepsTheTextOfItsTime) {
    const CodePage page = CodePage::windows(1252);
    Rope text("a\r\n\x80 c");
    const TextMimeData data(text, {Offset(1), Offset(5)}, page);
    text.replace({Offset(0), Offset(4)}, "");
    EXPECT_TRUE(data.hasText());
    EXPECT_EQ(data.text().remove('\r'), QString::fromUtf8("\n\u20ac "));
}

// --- Drag and drop ----------------------------------------------------------------------------

class Drops : public Input {
  protected:
    /// Hovers over the character at `offset` and drops there; true when the drop was taken.
    bool dropAt(std::size_t offset, const QMimeData& data, Qt::KeyboardModifiers modifiers = {}) {
        const QPoint at = pixel(offset);
        QDragEnterEvent enter(at, kActions, &data, Qt::LeftButton, modifiers);
        QApplication::sendEvent(view_.viewport(), &enter);
        QDragMoveEvent move(at, kActions, &data, Qt::LeftButton, modifiers);
        QApplication::sendEvent(view_.viewport(), &move);
        if (!move.isAccepted()) return false;
        QDropEvent drop(at, kActions, &data, Qt::LeftButton, modifiers);
        QApplication::sendEvent(view_.viewport(), &drop);
        return drop.isAccepted();
    }
    static constexpr Qt::DropActions kActions = Qt::CopyAction | Qt::MoveAction;
};

TEST_F(Drops, TextFromOutsideIsInsertedAndSelected) {
    view_.onKeyPress = [](int&) { ADD_FAILURE() << "nothing is typed"; };
    QMimeData data;
    data.setText(QString::fromUtf8("x\ny\u2192"));
    put("ab^cd|ef");
    EXPECT_TRUE(dropAt(1, data));
    EXPECT_EQ(marked(), "a^x\ny?|bcdef");
    view_.box().SetLocked(true);
    EXPECT_FALSE(dropAt(1, data));
    EXPECT_EQ(marked(), "a^x\ny?|bcdef");
}

TEST_F(Drops, AFileIsNeverInserted) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile("/tmp/a map.script")});
    put("a|b");
    EXPECT_FALSE(dropAt(1, data));
    EXPECT_EQ(marked(), "a|b");
}

class InnerDrags : public QObject, public Drops {
  protected:
    InnerDrags() { view_.installEventFilter(this); }
    /// The toolkit's drag came into being: where no mouse can move, it is over in a moment.
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::ChildAdded || !target_) return false;
        QTimer::singleShot(0, &view_, &QDrag::cancel);
        QMimeData data;
        data.setText("unused");
        EXPECT_TRUE(dropAt(*std::exchange(target_, std::nullopt), data, modifiers_));
        return false;
    }

    std::optional<std::size_t> target_;
    Qt::KeyboardModifiers modifiers_;
};

TEST_F(InnerDrags, MoveOrCopyTheSelection) {
    const std::tuple<std::size_t, Qt::KeyboardModifiers, const char*> rows[] = {
        {0, {}, "^two |one three\nfour"},
        {15, {}, "one three\n^two |four"},
        {0, kCtrl, "^two |one two three\nfour"},
        {6, {}, "one ^two |three\nfour"},
    };
    for (const auto& [target, modifiers, expected] : rows) {
        put("one ^two |three\nfour");
        target_ = target;
        modifiers_ = modifiers;
        mouse(kPress, 5);
        mouse(kMove, pixel(5) + QPoint(QApplication::styleHints()->startDragDistance() + 1, 0));
        EXPECT_EQ(marked(), expected);
    }
}

// --- Input methods ----------------------------------------------------------------------------

class Composing : public Input {
  protected:
    void compose(const QString& preedit) {
        QInputMethodEvent event(preedit, {});
        QApplication::sendEvent(&view_, &event);
    }
    void commit(const QString& text, int from = 0, int length = 0) {
        QInputMethodEvent event;
        event.setCommitString(text, from, length);
        QApplication::sendEvent(&view_, &event);
    }
    QVariant ask(Qt::InputMethodQuery query) { return view_.inputMethodQuery(query); }
};

TEST_F(Composing, CommitsLikeTyping) {
    std::string seen;
    view_.onKeyPress = [&](int& ascii) {
        seen += static_cast<char>(ascii);
        if (ascii == 'x') ascii = 0;
    };
    put("a^bc|d");
    compose("ni");
    EXPECT_EQ(marked(), "a^bc|d");
    commit(QString::fromUtf8("\u00e9x\u4e2d"));
    EXPECT_EQ(marked(), "a\xE9?|d");
    EXPECT_EQ(seen, "\xE9x?");
    EXPECT_EQ(view_.preedit(), "");
    commit("new", -2, 2);
    EXPECT_EQ(marked(), "anew|d");
    commit("", -1, 2);
    EXPECT_EQ(marked(), "ane|");
    commit("z", -100, 100);
    EXPECT_EQ(marked(), "z|");
}

TEST_F(Composing, ClickAndLossOfFocusCommit) {
    put("abc|");
    compose("xy");
    mouse(kPress, 0);
    mouse(kRelease, 0);
    EXPECT_EQ(marked(), "|abcxy");
    EXPECT_EQ(view_.preedit(), "");
    compose("z");
    QFocusEvent lost(QEvent::FocusOut);
    QApplication::sendEvent(&view_, &lost);
    EXPECT_EQ(marked(), "z|abcxy");
    view_.box().SetLocked(true);
    commit("q");
    EXPECT_EQ(marked(), "z|abcxy");
}

TEST_F(Composing, AnswersAboutTheCaretsLine) {
    put("first\nsec^on|d\nthird");
    const std::pair<Qt::InputMethodQuery, QVariant> answers[] = {
        {Qt::ImEnabled, true},        {Qt::ImSurroundingText, "second"},
        {Qt::ImCursorPosition, 5},    {Qt::ImAnchorPosition, 3},
        {Qt::ImAbsolutePosition, 12}, {Qt::ImCurrentSelection, "on"},
    };
    for (const auto& [query, answer] : answers) EXPECT_EQ(ask(query), answer) << query;
    EXPECT_TRUE(ask(Qt::ImCursorRectangle).toRect().intersects(view_.rect()));
    view_.box().SetLocked(true);
    EXPECT_FALSE(ask(Qt::ImEnabled).toBool());
    EXPECT_TRUE(ask(Qt::ImReadOnly).toBool());
}

TEST_F(Composing, AnswersForAHugeLineStaySmall) {
    view_.box().SetText(std::string(300000, 'a') + std::string(300000, 'b'));
    view_.box().SetSelStart(300000);
    EXPECT_EQ(ask(Qt::ImSurroundingText).toString(), QString(500, 'a') + QString(500, 'b'));
    EXPECT_EQ(ask(Qt::ImCursorPosition).toInt(), 500);
}

}  // namespace
}  // namespace brindlex
