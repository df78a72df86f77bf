#include <gtest/gtest.h>

#include <QAccessible>
#include <QKeyEvent>
#include <QPointer>
#include <QTest>
#include <cstring>
#include <functional>
#include <utility>

#include "support/Paintings.h"
#include "widgets/TestButton.h"

namespace brindlex {
namespace {

constexpr int kDefault = XPButtonState::kDefault;
constexpr int kDown = XPButtonState::kDown;
constexpr int kOver = XPButtonState::kOver;

struct Window : QWidget {
    bool takesKeys = false;
    int keyUps = 0;
    void keyReleaseEvent(QKeyEvent*) override { ++keyUps; }
    void keyPressEvent(QKeyEvent* event) override { event->setAccepted(takesKeys); }
};

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
    /// program focuses the button or the window (f w), disables, enables, hides, shows, refreshes,
    /// shapes or paints the button (d e h v R S p).
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
            if (is("S")) button->SetButtonShape(2);
            if (is("p")) button->grab(), QCoreApplication::processEvents();
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
    Window window;
    QPointer<XPButton> button{new XPButton(desktop, &window)};
    XPButton* other = new XPButton(desktop, &window);
    QPoint pointer;
    std::string log;
};

TEST_F(XPButtonInputTest, FollowsThePointerWhileItIsThere) {
    int moves = 0;
    button->events.MouseMove = [&](auto&...) { ++moves; };
    expect("o", "enter ", kOver);
    EXPECT_GT(moves, 0);
    QTest::qWait(120);
    EXPECT_TRUE(hovers());
    QEvent left(QEvent::Leave);
    QApplication::sendEvent(button, &left);
    EXPECT_TRUE(waitFor([&] { return !hovers(); })) << "it may be anywhere now";
    pointAt(kOnButton + QPoint(1, 0));
    pointAt({250, 20});
    EXPECT_TRUE(other->state().Hovering);
    EXPECT_TRUE(waitFor([&] { return !hovers(); }));
    EXPECT_FALSE(button->findChild<QTimer*>()->isActive());
    pointAt({10, 10});  // a nipped corner
    expect("x", "leave enter leave ", 0);
    button->events.MouseEnter = [this] { play("o"), log += "enter "; };
    play("hov");
    EXPECT_TRUE(waitFor([&] { return hovers(); })) << "the pointer rests";
    expect("", "enter ", kOver);
}

TEST_F(XPButtonInputTest, ClicksWhenPressedAndReleasedOnIt) {
    expect("o[", "enter down1 ", kOver | kDown | kDefault);
    expect("]", "up1 click ", kOver | kDefault);
    expect("<>", "down2 up2 ", kOver | kDefault);
    expect("2", "down1 up1 click dbl1 down1 up1 click ", kOver | kDefault);
    expect("4", "down2 up2 dbl2 down1 up2 ", kOver | kDefault);
    expect("<[>]", "down2 down1 up2 up1 click ", kOver | kDefault);
    expect("[x", "down1 leave ", kDown | kDefault);
    expect("ox]o", "enter leave up1 enter ", kOver | kDefault);
    button->events.MouseUp = [](int& Button, auto&...) { Button = 2; };
    expect("[]", "down1 ", kOver | kDefault);
    button->events.DblClick = [](int& Button) { Button = 2; };
    expect("2", "down1 down1 ", kOver | kDefault);
    expect("d[]", "", kOver);
}

TEST_F(XPButtonInputTest, IsUpAgainWhenItsReleaseWentElsewhere) {
    button->events = {};
    button->setFocus();
    QTest::keyPress(button, Qt::Key_Space);
    button->SetEnabled(false);
    EXPECT_TRUE(isDown()) << "a disabled button stays as it was";
    button->SetEnabled(true);
    button->setFocus();
    EXPECT_FALSE(isDown());
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

TEST_F(XPButtonInputTest, TakesSpaceAndLeavesArrowsToTheContainer) {
    expect("f{", "keydown32 key32 ", kDown | kDefault);
    expect("}sb", "click keyup32 keydown16 keydown66 key98 keyup66 ", kDefault);
    expect("{w", "keydown32 key32 ", 0);  // its release goes elsewhere
    button->setFocus();
    QTest::simulateEvent(button, true, Qt::Key_Space, Qt::NoModifier, " ", true);
    expect("", "keydown32 key32 ", kDefault);  // repeated: it was pressed elsewhere
    QTest::keyClick(button, Qt::Key_Right);
    EXPECT_TRUE(other->hasFocus());
    QTest::keyClick(other, Qt::Key_Up);
    window.takesKeys = true;
    QTest::keyClick(button, Qt::Key_Down);
    EXPECT_TRUE(button->hasFocus()) << "the container did something else with the key";
    button->events.KeyUp = [](int& KeyCode, int&) { KeyCode = 0; };
    window.keyUps = 0;
    expect("sb", "keydown16 keydown66 key98 ", kDefault);
    EXPECT_EQ(window.keyUps, 0) << "they are consumed";
    button->events.KeyDown = [](int& KeyCode, int&) { KeyCode = 0; };
    expect("b", "", kDefault);
}

TEST_F(XPButtonInputTest, ClicksByItsAccessKeyAndByEnterWhileItIsTheDefault) {
    expect("a", "click ", 0);
    QTest::simulateEvent(&window, true, Qt::Key_A, Qt::AltModifier, "a", true);
    other->SetCaption("&All");
    play("a");
    EXPECT_EQ(log, "") << "which of the two?";
    EXPECT_FALSE(window.hasFocus());
    button->setFocus();
    QTest::simulateEvent(button, true, Qt::Key_Return, Qt::NoModifier, "\r", true);
    expect("\r", "click keyup13 ", kDefault);
    TestHost host;
    XPButton hosted(desktop, &window, &host);
    writeDown(hosted, [this](const std::string& event) { log += event; });
    QTest::keyClick(&hosted, Qt::Key_Return);
    expect("w", "keydown13 key13 keyup13 ", 0);
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

TEST_F(XPButtonInputTest, ShowsWhatIsPressedBeforeAHandlerTakesItsTime) {
    play("fo");
    QCoreApplication::processEvents();
    Paintings paints(*button);
    const auto expectPaint = [&](auto&...) { EXPECT_EQ(std::exchange(paints.count, 0), 1); };
    button->events = {};
    button->events.MouseDown = button->events.MouseUp = expectPaint;
    play("[]");
    button->events.KeyDown = expectPaint;
    button->events.Click = expectPaint;
    play("{}");
}

TEST_F(XPButtonInputTest, LaysOutAndPaintsWhenTheDelayEnds) {
    const auto caption = [this] { return button->frame().layout.CaptionRect; };
    for (const char* end : {"R", "o", "[", "]", "x", "hv", "S", "p"}) {
        QCoreApplication::processEvents();
        button->SetCaption("Waits for its paint event");
        button->DelayDrawing(true);
        QCoreApplication::processEvents();
        const QRect before = caption();
        button->SetCaption("&Apply");
        EXPECT_EQ(caption(), before) << "the paint event that was due does not end the delay";
        button->grab();
        button->DelayDrawing(true);
        QCoreApplication::processEvents();
        EXPECT_EQ(caption(), before) << "delayed anew, before it was done";
        play(end);
        EXPECT_NE(caption(), before) << end;
    }
    button->DelayDrawing(true);
    button->resize(200, 60);
    Paintings paints(*button);
    EXPECT_TRUE(waitFor([&] { return paints.count == 2; })) << "old, then new size";
}

TEST_F(XPButtonInputTest, EachSetThatIsSeenPaintsAFrame) {
    const auto picture = ButtonPicture::bitmap(plainImage({8, 8}, Qt::red));
    const std::function<void()> sets[] = {
        [&] { button->SetCaption("Other"); },
        [&] { button->SetPicture(picture); },
        [&] { button->SetEnabled(!button->Enabled()); },
        [&] { button->SetShowFocusRect(false); },
        [&] { button->SetFont(QFont("Courier New", 14)); },
        [&] { button->SetBackColor(ColorValue(0xFF)); },
        [&] { button->SetGradientMode(1); },
        [&] { button->SetGradientColor(kButtonFace); },
    };
    const auto paintsAfter = [this](const std::function<void()>& set) {
        QCoreApplication::processEvents();
        set();
        Paintings paints(*button);
        QCoreApplication::processEvents();
        return paints.count;
    };
    EXPECT_EQ(paintsAfter([&] { button->SetGradientColor(ColorValue(0)); }), 0)
        << "without a gradient";
    for (const auto& set : sets) EXPECT_EQ(paintsAfter(set), 1) << &set - sets;
    button->DelayDrawing(true);
    for (const auto& set : sets) EXPECT_EQ(paintsAfter(set), 0) << &set - sets;
}

TEST_F(XPButtonInputTest, TellsAssistiveTechnology) {
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(button);
    ASSERT_TRUE(face);
    EXPECT_EQ(face->role(), QAccessible::PushButton);
    button->SetCaption("&Save||&& close");
    EXPECT_EQ(face->text(QAccessible::Name), "Save & close");
    play("f{");
    EXPECT_TRUE(face->state().pressed && face->state().defaultButton && face->state().focused);
    play("}");
    log.clear();
    face->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCoreApplication::processEvents();
    expect("d", "click ", 0);
    EXPECT_FALSE(face->actionInterface()->actionNames().contains("Press"));
}

}  // namespace
}  // namespace brindlex
