#include "view/RichTextView.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDrag>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QHash>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QStyleHints>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "support/MarkedText.h"
#include "system/Twips.h"
#include "view/TextMimeData.h"

namespace brindlex {
namespace {

constexpr auto kShift = Qt::ShiftModifier;
constexpr auto kCtrl = Qt::ControlModifier;
constexpr auto kPress = QEvent::MouseButtonPress;
constexpr auto kRelease = QEvent::MouseButtonRelease;
constexpr auto kDouble = QEvent::MouseButtonDblClick;
constexpr auto kMove = QEvent::MouseMove;

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
    /// Plays what stands between blanks: keys as menus name them, and gestures of the mouse on the
    /// left half of the character at an offset, as "press:3".
    void play(const QString& actions) {
        static const QHash<QString, QEvent::Type> kGestures = {
            {"press", kPress}, {"release", kRelease}, {"double", kDouble},
            {"move", kMove},   {"shift", kPress},     {"right", kPress}};
        for (const QString& action : actions.split(' ')) {
            const QString name = action.section(':', 0, 0);
            const QKeyCombination key = QKeySequence::fromString(action)[0];
            if (kGestures.contains(name))
                mouse(kGestures[name], pixel(action.section(':', 1).toUInt()),
                      name == "right" ? Qt::RightButton : Qt::LeftButton,
                      name == "shift" ? kShift : Qt::NoModifier);
            else
                QTest::keyClick(&view_, key.key(), key.keyboardModifiers());
        }
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

    const CodePage page_ = CodePage::windows(1252);
    RichTextView view_{nullptr, page_};
};

// --- Keys ----------------------------------------------------------------------------------------

TEST_F(Input, KeysAndMouseMoveSelectAndEdit) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        // characters, line breaks, overwriting
        {"a|b", "Num+Enter", "a\n|b"},
        {"a|b", "Tab Esc", "a\t|b"},
        {"a|bcd", "Ins X Ins Y", "axy|cd"},
        // deleting
        {"a\nb|c", "Shift+Backspace Backspace", "a|c"},
        {"a|\nb", "Del", "a|b"},
        {"wait sound|", "Ctrl+Backspace", "wait |"},
        {"wait |sound {", "Ctrl+Del", "wait |{"},
        {"one ^two| three", "Ctrl+Del", "one | three"},
        // steps
        {"a|\nb", "Right Right Left", "a\n|b"},
        {"a^bc|d", "Left", "a|bcd"},
        {"wait  500|", "Ctrl+Left Ctrl+Left", "|wait  500"},
        {"x\n\t\ta|b", "Home Home", "x\n|\t\tab"},
        {"ab\nc|d\nef", "Ctrl+Home End", "ab|\ncd\nef"},
        {"ab\nc|d\nef", "Ctrl+End", "ab\ncd\nef|"},
        {"abcd|\nx\nabcd", "Down Down", "abcd\nx\nabcd|"},
        {"abcd|\nx\nabcd", "Down Left Down", "abcd\nx\n|abcd"},
        {"abcd\nx|\nabcd", "Up Y Down", "aybcd\nx|\nabcd"},
        // selecting
        {"a^b|c", "Shift+Left Shift+Left", "|a^bc"},
        {"|wait 5\nab", "Ctrl+Shift+Right Shift+Down", "^wait 5\nab|"},
        {"a|b\nc", "Ctrl+A", "^ab\nc|"},
        // the clipboard and undo belong to the owner; menu shortcuts that no menu took do nothing
        {"a^b|c", "Ctrl+X Ctrl+Z Shift+Del Ctrl+H Ctrl+J Ctrl+U", "a^b|c"},
        // the mouse selects characters
        {"|first line\nsecond", "press:3 move:14", "fir^st line\nse|cond"},
        {"|first line", "press:3 release:3 move:6", "fir|st line"},
        {"fir^st| line", "shift:1", "f|ir^st line"},
        {"f|ir^st line", "right:2", "f|ir^st line"},
        {"f|ir^st line", "right:6", "first |line"},
        // it is on the selection, that might be dragged
        {"one ^two| three", "press:5 move:5", "one ^two| three"},
        {"one ^two| three", "press:5 move:5 release:5", "one t|wo three"},
        // it selects words, and lines with their breaks
        {"wait |500 {one}\nnext", "double:6 move:12", "wait ^500 {one|}\nnext"},
        {"wait |500 {one}\nnext", "double:6 move:1", "|wait 500^ {one}\nnext"},
        {"|a\nbc\nd", "double:3 release:3 press:3 move:0", "|a\nbc\n^d"},
        {"|a\nbc\nd", "double:3 release:3 press:3 move:7", "a\n^bc\nd|"},
    };

    for (const auto& [start, actions, expected] : rows) {
        put(start);
        play(actions);
        EXPECT_EQ(marked(), expected) << "from " << start << " by " << actions;
    }
}

TEST_F(Input, OverwritingIsARemovalAndAnInsertion) {
    std::string log;
    view_.box().onChange = [&] { log += marked() + ' '; };
    view_.setOverwriteMode(true);
    put("a|bc\nd");
    log.clear();
    play("X Y Z");
    EXPECT_EQ(log, "a|c\nd ax|c\nd ax|\nd axy|\nd axyz|\nd ");
}

TEST_F(Input, PagesKeepTheColumnAndScroll) {
    put("abc|def" + QStringLiteral("\n\nabcdef\nabcdef").repeated(33));
    const std::string start = marked();
    play("PgDown PgDown");
    EXPECT_EQ(view_.box().GetLineFromChar(view_.box().SelStart()), 2 * (view_.linesPerPage() - 1));
    play("PgUp PgUp");
    EXPECT_EQ(view_.firstVisibleLine().value(), 0U);
    play("Ctrl+Down Ctrl+Down Ctrl+Up");
    EXPECT_EQ(view_.firstVisibleLine().value(), 1U);
    EXPECT_EQ(marked(), start);
}

// --- Key events ----------------------------------------------------------------------------------

TEST_F(Input, KeyEventsHaveTheirCodes) {
    const std::tuple<int, Qt::KeyboardModifiers, const char16_t*, const char*> rows[] = {
        {Qt::Key_5, Qt::KeypadModifier, u"5", "down 101 0 press 53 up 101 0 "},
        {Qt::Key_ParenLeft, kShift, u"(", "down 57 1 press 40 up 57 1 "},
        {Qt::Key_Delete, {}, u"\x7f", "down 46 0 up 46 0 "},
        {Qt::Key_Backspace, {}, u"\b", "down 8 0 press 8 up 8 0 "},
        {'\n', {}, u"\n", "down 13 0 press 13 up 13 0 "},  // the key Linefeed
        // commands
        {Qt::Key_Z, kCtrl, u"\x1a", "down 90 2 press 26 up 90 2 "},
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
    const auto send = [&](int key, Qt::KeyboardModifiers modifiers, QString text, bool repeats) {
        for (const auto kind : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(kind, key, modifiers, text, repeats);
            QApplication::sendEvent(&view_, &event);
        }
    };
    for (const auto& [key, modifiers, text, events] : rows) {
        log.clear();
        send(key, modifiers, QString::fromUtf16(text), false);
        EXPECT_EQ(log, events);
    }
    log.clear();
    send(Qt::Key_A, {}, "a", true);
    send(Qt::Key_A, {}, "a", false);
    EXPECT_EQ(log, "down 65 0 press 97 down 65 0 press 97 up 65 0 ");
}

TEST_F(Input, HandlersMayShortenTheText) {
    view_.onKeyDown = [&](int&, int) { view_.box().SetText("short"); };
    put("a much longer text with the caret at its end|");
    play("Backspace");
    EXPECT_EQ(marked(), "|short");
    view_.onMouseDown = [&](int, int, double, double) { view_.box().SetText(""); };
    play("press:5 release:0");
    EXPECT_EQ(marked(), "|");
}

// --- Shortcuts and focus -------------------------------------------------------------------------

TEST_F(Input, ShortcutsGoToTheMenuOrTheView) {
    const std::pair<QString, bool> rows[] = {
        {"Ctrl+J Ctrl+H Ctrl+A Alt+F", true},
        {"Ctrl+Z Del X Return Ctrl+Left Esc Shift+Ins", false},
    };
    QAction entry;
    bool triggered = false;
    QObject::connect(&entry, &QAction::triggered, [&] { triggered = true; });
    view_.addAction(&entry);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view_));
    for (const auto& [shortcuts, menuGetsThem] : rows) {
        for (const QString& shortcut : shortcuts.split(' ')) {
            entry.setShortcut(QKeySequence::fromString(shortcut));
            triggered = false;
            play(shortcut);
            EXPECT_EQ(triggered, menuGetsThem) << shortcut.toStdString();
        }
    }
}

// --- Mouse ---------------------------------------------------------------------------------------

TEST_F(Input, MouseEventsComeInTwipsAndInOrder) {
    QString log;
    const auto note = [&log](const char* name) {
        return [&log, name](int button, int shift, double x, double) {
            log += QString("%1 %2 %3 %4 ").arg(name).arg(button).arg(shift).arg(Twips::toPixels(x));
        };
    };
    view_.onMouseDown = note("down");
    view_.onMouseMove = note("move");
    view_.onMouseUp = note("up");
    view_.onClick = [&] { log += "click "; };
    view_.onDblClick = [&] { log += "double "; };
    mouse(kPress, QPoint(30, 5), Qt::LeftButton, kShift | Qt::AltModifier);
    mouse(kMove, QPoint(31, 5));
    mouse(kRelease, QPoint(31, 5));
    EXPECT_EQ(std::exchange(log, {}), "down 1 5 30 move 1 0 31 up 1 0 31 click ");
    mouse(kPress, QPoint(30, 5));
    mouse(kRelease, QPoint(-30, 5));
    mouse(kPress, QPoint(30, 5), Qt::RightButton);
    mouse(kRelease, QPoint(30, 5), Qt::RightButton);
    EXPECT_EQ(std::exchange(log, {}), "down 1 0 30 up 1 0 -30 down 2 0 30 up 2 0 30 ");
    mouse(kDouble, QPoint(30, 5));
    mouse(kRelease, QPoint(30, 5));
    EXPECT_EQ(log, "double up 1 0 30 ");
}

TEST_F(Input, DraggingBeyondTheEdgeScrollsOn) {
    put("|start" + QStringLiteral("\nline").repeated(300));
    play("press:0");
    mouse(kMove, QPoint(5, view_.viewport()->height() + 60));
    EXPECT_TRUE(QTest::qWaitFor([&] { return view_.firstVisibleLine().value() > 40; }, 5000));
    EXPECT_GT(view_.box().SelLength(), 40 * 6);
    mouse(kMove, QPoint(5, -200));
    EXPECT_TRUE(QTest::qWaitFor([&] { return view_.firstVisibleLine().value() == 0; }, 5000));
    play("release:0");
    EXPECT_LT(view_.box().selection().length(), 6U);
}

TEST(TextMimeDataTest, KeepsTheTextOfItsTime) {
    const CodePage page = CodePage::windows(1252);
    Rope text("a\r\n\x80 c");
    const TextMimeData data(text, {Offset(1), Offset(5)}, page);
    text.replace({Offset(0), Offset(4)}, "");
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
        if (!enter.isAccepted() || !move.isAccepted()) return false;
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
        play("press:5");
        mouse(kMove, pixel(5) + QPoint(QApplication::styleHints()->startDragDistance() + 1, 0));
        EXPECT_EQ(marked(), expected);
    }
}

// --- Input methods ----------------------------------------------------------------------------

class Composing : public Input {
  protected:
    void compose(const QString& preedit, int cursor) {
        QInputMethodEvent event(preedit, {{QInputMethodEvent::Cursor, cursor, 1, QVariant()}});
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
    const int before = view_.caretRect().left();
    compose("ni", 1);
    EXPECT_EQ(marked(), "a^bc|d");
    EXPECT_GT(view_.caretRect().left(), before);
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
    compose("xy", 2);
    play("press:0 release:0");
    EXPECT_EQ(marked(), "|abcxy");
    EXPECT_EQ(view_.preedit(), "");
    compose("z", 1);
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
    // of a huge line it tells no more than it may
    view_.box().SetText(std::string(300000, 'a') + std::string(300000, 'b'));
    view_.box().SetSelStart(300000);
    EXPECT_EQ(ask(Qt::ImSurroundingText).toString(), QString(500, 'a') + QString(500, 'b'));
    EXPECT_EQ(ask(Qt::ImCursorPosition).toInt(), 500);
}

}  // namespace
}  // namespace brindlex
