#include <gtest/gtest.h>

#include <QAccessible>
#include <QPointer>
#include <QTest>
#include <cstring>
#include <functional>
#include <utility>

#include "widgets/TestButton.h"

namespace brindlex {
namespace {

constexpr int kDefault = XPButtonState::kDefault;
constexpr int kDown = XPButtonState::kDown;
constexpr int kOver = XPButtonState::kOver;

/// A window with two buttons; the first button's events are written down.
class XPButtonInputTest : public testing::Test {
  protected:
    XPButtonInputTest() {
        window.setGeometry(100, 100, 400, 200);
        button->setGeometry(10, 10, 120, 30);
        other->setGeometry(200, 10, 120, 30);
        button->SetCaption("&Apply");
        writeDown(*button, [this](const std::string& event) { log += event; });
        pointAt(kOutside);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        window.setFocus();
    }
    ~XPButtonInputTest() override { pointAt(kOutside); }

    static void writeDown(XPButton& button, const std::function<void(std::string)>& write) {
        const auto numbered = [write](const char* name) {
            return [=](int& number, auto&...) { write(name + std::to_string(number) + " "); };
        };
        const auto plain = [write](const char* name) { return [=](auto&...) { write(name); }; };
        button.events = {numbered("down"),    numbered("up"),  {},
                         numbered("keydown"), numbered("key"), numbered("keyup"),
                         plain("click "),     numbered("dbl"), plain("enter "),
                         plain("leave ")};
    }
    /// The mouse as the window system tells of it, at a place of the window.
    void pointAt(QPoint place) {
        QCursor::setPos(window.mapToGlobal(pointer = place));
        if (window.windowHandle()) QTest::mouseMove(window.windowHandle(), place);
    }
    /// What happens, one sign each: the user points at the button or away from it (o x), presses,
    /// releases and double-clicks there with the left ([ ] 2) or the right mouse button (< > 4),
    /// presses and releases the space bar ({ }), types B, Enter, Shift or Alt+A (b \r s a); the
    /// program focuses the button or the window (f w), disables, enables, hides, shows or refreshes
    /// the button (d e h v R).
    void play(const std::string& signs) {
        QWindow* const handle = window.windowHandle();
        for (const char sign : signs) {
            const auto is = [sign](const char* any) { return std::strchr(any, sign) != nullptr; };
            const auto mouse = is("<>4") ? Qt::RightButton : Qt::LeftButton;
            if (is("ox")) pointAt(sign == 'o' ? kOnButton : kOutside);
            EXPECT_TRUE(sign != 'x' || waitFor([this] { return !button || !hovers(); }));
            if (is("[<")) QTest::mousePress(handle, mouse, {}, pointer);
            if (is("]>")) QTest::mouseRelease(handle, mouse, {}, pointer);
            if (is("24")) QTest::mouseDClick(handle, mouse, {}, pointer);
            if (is("{")) QTest::keyPress(handle, Qt::Key_Space);
            if (is("}")) QTest::keyRelease(handle, Qt::Key_Space);
            if (is("b\r")) QTest::keyClick(handle, sign);
            if (is("s")) QTest::keyClick(handle, Qt::Key_Shift);
            if (is("a")) QTest::keyClick(&window, Qt::Key_A, Qt::AltModifier);
            if (is("f")) button->setFocus();
            if (is("w")) window.setFocus();
            if (is("de")) button->SetEnabled(sign == 'e');
            if (is("hv")) button->setVisible(sign == 'v');
            if (is("R")) button->Refresh();
        }
    }
    /// Expects these events of the button, and these flags of its state in the end.
    void expect(const std::string& signs, const std::string& events, int flags) {
        play(signs);
        EXPECT_EQ(std::exchange(log, {}), events) << signs;
        EXPECT_EQ(button->state().ButtonFlags, flags) << signs;
    }

    bool hovers() const { return button->state().Hovering; }
    bool isDown() const { return button->state().has(kDown); }
    bool waitFor(const std::function<bool()>& holds) { return QTest::qWaitFor(holds, 1000); }

    static constexpr QPoint kOnButton{50, 20};
    static constexpr QPoint kOutside{350, 150};
    FakeDesktop desktop;
    QWidget window;
    QPointer<XPButton> button{new XPButton(desktop, &window)};
    XPButton* other = new XPButton(desktop, &window);
    QPoint pointer;
    std::string log;
};

TEST_F(XPButtonInputTest, FollowsThePointerWhileItIsThere) {
    expect("o", "enter ", kOver);
    QTest::qWait(120);
    EXPECT_TRUE(hovers());
    QEvent left(QEvent::Leave);
    QApplication::sendEvent(button, &left);
    EXPECT_TRUE(waitFor([&] { return !hovers(); })) << "it may be anywhere now";
    expect("", "leave ", 0);
    play("hov");
    EXPECT_TRUE(waitFor([&] { return hovers(); })) << "the pointer rests";
}

TEST_F(XPButtonInputTest, ClicksByMouseAndKeys) {
    const struct {
        const char *signs, *events;
        int flags;
    } rows[] = {
        {"o[", "enter down1 ", kOver | kDown | kDefault},
        {"]", "up1 click ", kOver | kDefault},
        {"<>", "down2 up2 ", kOver | kDefault},
        {"2", "down1 up1 click dbl1 down1 up1 click ", kOver | kDefault},
        {"4", "down2 up2 dbl2 down1 up2 ", kOver | kDefault},
        {"<[>]", "down2 down1 up2 up1 click ", kOver | kDefault},
        {"[x", "down1 leave ", kDown | kDefault},
        {"ox]o", "enter leave up1 enter ", kOver | kDefault},
        {"d[]", "", kOver},
        {"exf{", "leave keydown32 key32 ", kDown | kDefault},
        {"}sb", "click keyup32 keydown16 keydown66 key98 keyup66 ", kDefault},
        {"{w", "keydown32 key32 ", 0},  // its release goes elsewhere
        {"a", "click ", 0},
    };
    for (const auto& row : rows) expect(row.signs, row.events, row.flags);
    other->SetCaption("&All");
    play("a");
    EXPECT_EQ(log, "") << "which of the two?";
}

TEST_F(XPButtonInputTest, IsUpAgainWhenItsReleaseWentElsewhere) {
    button->events = {};
    expect("o[dx]ef", "", kDefault);
    play("o[h");
    EXPECT_FALSE(isDown());
    play("]v");
    QWidget box(&window, Qt::Dialog);
    box.setWindowModality(Qt::ApplicationModal);
    button->events.Click = [this] { log += "click "; };
    expect("[", "", kDefault | kDown | kOver);
    box.show();
    QTest::mouseRelease(box.windowHandle(), Qt::LeftButton);
    box.hide();
    pointAt(kOnButton + QPoint(1, 0));
    EXPECT_FALSE(isDown());
    EXPECT_EQ(log, "");
}

TEST_F(XPButtonInputTest, TakesEnterWhileItIsTheDefaultAndLeavesArrowsToTheContainer) {
    expect("f\r", "click keyup13 ", kDefault);
    QTest::simulateEvent(button, true, Qt::Key_Return, Qt::NoModifier, "\r", true);
    QTest::simulateEvent(button, true, Qt::Key_Space, Qt::NoModifier, " ", true);
    expect("", "keydown32 key32 ", kDefault);  // repeated: they were pressed elsewhere
    QTest::keyClick(button, Qt::Key_Right);
    EXPECT_TRUE(other->hasFocus());
}

/// One run for each event of a life: its handler calls deleteLater and waits in a loop of its own.
TEST_F(XPButtonInputTest, MayBeDeletedLaterByAnyOfItsEvents) {
    int last = 1;
    for (;; ++last) {
        delete button;
        button = new XPButton(desktop, &window);
        button->setGeometry(10, 10, 120, 30);
        button->SetCaption("&Apply");
        int raised = 0;
        const auto note = [&](const std::string& event) {
            if (++raised != last) return;
            button->deleteLater();
            QEventLoop loop;
            QTimer::singleShot(1, &loop, &QEventLoop::quit);
            loop.exec();
            EXPECT_TRUE(button) << event << "is not over yet";
        };
        writeDown(*button, note);
        button->events.MouseMove = [&](auto&...) { note("move "); };
        play("vfo24b{}\rax");
        if (raised < last) break;
        EXPECT_TRUE(waitFor([&] { return !button; })) << last;
    }
    EXPECT_GT(last, 20) << "each event was raised";
}

TEST_F(XPButtonInputTest, LaysOutAndPaintsWhenTheDelayEnds) {
    const auto caption = [this] { return button->frame().layout.CaptionRect; };
    for (const char* end : {"R", "o", "[", "]", "x", "hv"}) {
        QCoreApplication::processEvents();
        button->SetCaption("Waits for its paint event");
        button->DelayDrawing(true);
        QCoreApplication::processEvents();
        const QRect before = caption();
        button->SetCaption("&Apply");
        EXPECT_EQ(caption(), before) << "the paint event that was due does not end the delay";
        play(end);
        EXPECT_NE(caption(), before) << end;
    }
}

TEST_F(XPButtonInputTest, TellsAssistiveTechnology) {
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(button);
    button->SetCaption("&Save||&& close");
    EXPECT_EQ(face->text(QAccessible::Name), "Save & close");
    play("f{");
    EXPECT_TRUE(face->state().pressed && face->state().defaultButton && face->state().focused);
    expect("}d", "keydown32 key32 click keyup32 ", 0);
    EXPECT_FALSE(face->actionInterface()->actionNames().contains("Press"));
}

}  // namespace
}  // namespace brindlex
