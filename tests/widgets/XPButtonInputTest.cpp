#include <gtest/gtest.h>

#include <QAccessible>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <cstring>
#include <functional>
#include <set>
#include <utility>

#include "support/Paintings.h"
#include "widgets/TestButton.h"

namespace brindlex {
namespace {

constexpr bool kRepeated = true;

struct Window : QWidget {
    bool takesKeys = false;
    int keyUps = 0;
    void keyReleaseEvent(QKeyEvent*) override { ++keyUps; }
    void keyPressEvent(QKeyEvent* event) override {
        if (!takesKeys) QWidget::keyPressEvent(event);
    }
};

/// A window with two buttons and a line; the first button's events are written down.
class XPButtonInputTest : public testing::Test {
  protected:
    XPButtonInputTest() {
        window.setGeometry(100, 100, 400, 200);
        button->setGeometry(10, 10, 120, 30);
        other->setGeometry(200, 10, 120, 30);
        line->move(10, 100);
        button->SetCaption("&Apply");
        writeDown(button->events, [this](const std::string& event) { log += event; });
        other->events.Click = [this] { log += "other "; };
        pointAt(kOutside);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        line->setFocus();
    }
    ~XPButtonInputTest() override { pointAt(kOutside); }

    static void writeDown(XPButtonEvents& events, const std::function<void(std::string)>& write) {
        const auto mouse = [write](const char* name) {
            return [write, name](int& Button, int& Shift, auto&...) {
                write(name + std::to_string(Button) + (Shift ? "s " : " "));
            };
        };
        const auto number = [write](const char* name) {
            return [write, name](int& code, auto&...) { write(name + std::to_string(code) + " "); };
        };
        const auto plain = [write](const char* name) { return [write, name] { write(name); }; };
        events = {mouse("down"),     mouse("up"),   {},
                  number("keydown"), number("key"), number("keyup"),
                  plain("click "),   number("dbl"), plain("enter "),
                  plain("leave ")};
    }

    /// The mouse as the window system tells of it, at a place of the window.
    void pointAt(QPoint place) {
        QCursor::setPos(window.mapToGlobal(pointer = place));
        if (window.windowHandle()) QTest::mouseMove(window.windowHandle(), place);
    }
    /// Points at the button or away from it (o x), presses, releases and double-clicks there with
    /// the left ([ ] 2) or the right mouse button (< > 4), or types; and expects these events of
    /// it.
    void does(const std::string& signs, const std::string& events) {
        QWindow* const handle = window.windowHandle();
        for (const char sign : signs) {
            const auto is = [sign](const char* any) { return std::strchr(any, sign) != nullptr; };
            const auto mouse = is("<>4") ? Qt::RightButton : Qt::LeftButton;
            if (is("ox")) pointAt(sign == 'o' ? kOnButton : kOutside);
            EXPECT_TRUE(sign != 'x' || stopsHovering());
            if (is("[<")) QTest::mousePress(handle, mouse, {}, pointer);
            if (is("]>")) QTest::mouseRelease(handle, mouse, {}, pointer);
            if (is("24")) QTest::mouseDClick(handle, mouse, {}, pointer);
            if (is("b \r")) QTest::keyClick(button, sign);
        }
        EXPECT_EQ(std::exchange(log, {}), events) << signs;
    }

    bool hovers() const { return button->state().Hovering; }
    bool isDown() const { return button->state().has(XPButtonState::kDown); }
    bool isDefault() const { return button->state().has(XPButtonState::kDefault); }
    bool stopsHovering() {
        return QTest::qWaitFor([this] { return !hovers(); }, 1000);
    }

    static constexpr QPoint kOnButton{50, 20};
    static constexpr QPoint kOnOther{250, 20};
    static constexpr QPoint kOutside{350, 150};
    FakeDesktop desktop;
    Window window;
    XPButton* button = new XPButton(desktop, &window);
    XPButton* other = new XPButton(desktop, &window);
    QLineEdit* line = new QLineEdit(&window);
    QPoint pointer;
    std::string log;
};

TEST_F(XPButtonInputTest, FollowsThePointerWhileItIsThere) {
    int moves = 0;
    button->events.MouseMove = [&](auto&...) { ++moves; };
    does("o", "enter ");
    EXPECT_EQ(button->state().ButtonFlags, XPButtonState::kOver);
    EXPECT_GT(moves, 0);
    QTest::qWait(120);
    EXPECT_TRUE(hovers());
    QEvent left(QEvent::Leave);
    QApplication::sendEvent(button, &left);
    EXPECT_TRUE(stopsHovering()) << "it may be anywhere now";
    pointAt(kOnButton + QPoint(1, 0));
    pointAt({250, 20});
    EXPECT_TRUE(other->state().Hovering);
    EXPECT_TRUE(stopsHovering());
    EXPECT_FALSE(button->findChild<QTimer*>()->isActive());
    pointAt({10, 10});  // a nipped corner
    does("x", "leave enter leave ");
    button->hide();
    pointAt(kOnButton);
    button->events.MouseEnter = [this] { does("o", ""), log += "enter "; };
    button->show();
    EXPECT_TRUE(QTest::qWaitFor([this] { return hovers(); }, 1000)) << "the pointer rests";
    does("", "enter ");
}

TEST_F(XPButtonInputTest, ClicksWhenPressedAndReleasedOnIt) {
    does("o[", "enter down1 ");
    EXPECT_TRUE(button->state().isPressed());
    does("]", "up1 click ");
    does("<", "down2 ");
    EXPECT_FALSE(isDown());
    does(">", "up2 ");
    does("2", "down1 up1 click dbl1 down1 up1 click ");
    does("4", "down2 up2 dbl2 down1 up2 ");
    does("<[>]", "down2 down1 up2 up1 click ");
    does("[x", "down1 leave ");
    EXPECT_EQ(button->state().ButtonFlags, XPButtonState::kDown | XPButtonState::kDefault);
    does("o", "enter ");
    EXPECT_TRUE(button->state().isPressed());
    does("x]", "leave up1 ");
    does("o", "enter ");
    button->events.MouseUp = [](int& Button, auto&...) { Button = 2; };
    does("[]", "down1 ");
    button->events.DblClick = [](int& Button) { Button = 2; };
    does("2", "down1 down1 ");
    EXPECT_FALSE(isDown());
    button->SetEnabled(false);
    does("[]", "");
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
    pointAt(kOnButton);
    does("[", "");
    button->SetEnabled(false);
    does("x]", "");
    button->SetEnabled(true);
    button->setFocus();
    EXPECT_FALSE(isDown());
    does("o[", "");
    button->hide();
    EXPECT_FALSE(isDown());
    does("]", "");
    button->show();
    QWidget box(&window, Qt::Dialog);
    box.setWindowModality(Qt::ApplicationModal);
    const auto releaseInBox = [&box] {
        box.show();
        QTest::mouseRelease(box.windowHandle(), Qt::LeftButton);
        box.hide();
    };
    button->events.MouseDown = [&](auto&...) { releaseInBox(); };
    button->events.Click = [this] { log += "click "; };
    does("[", "");
    EXPECT_TRUE(QTest::qWaitFor([this] { return !isDown(); }, 1000));
    button->events.MouseDown = {};
    does("[", "");
    EXPECT_TRUE(isDown());
    releaseInBox();
    pointAt(kOnButton + QPoint(1, 0));
    EXPECT_FALSE(isDown());
    does("", "");
}

TEST_F(XPButtonInputTest, TakesSpaceAndLeavesArrowsToTheContainer) {
    button->setFocus();
    QTest::keyPress(button, Qt::Key_Space);
    EXPECT_EQ(button->state().ButtonFlags, XPButtonState::kDown | XPButtonState::kDefault);
    QTest::keyRelease(button, Qt::Key_Space);
    QTest::keyClick(button, Qt::Key_Shift);
    does("b", "keydown32 key32 click keyup32 keydown16 keydown66 key98 keyup66 ");
    QTest::keyPress(button, Qt::Key_Space);
    other->setFocus();
    EXPECT_EQ(button->state().ButtonFlags, 0) << "its release goes elsewhere";
    button->setFocus();
    QTest::simulateEvent(button, true, Qt::Key_Space, Qt::NoModifier, " ", kRepeated);
    EXPECT_FALSE(isDown()) << "it was pressed elsewhere";
    does("", "keydown32 key32 keydown32 key32 ");
    QTest::keyClick(button, Qt::Key_Right);
    EXPECT_TRUE(other->hasFocus());
    QTest::keyClick(other, Qt::Key_Up);
    EXPECT_TRUE(button->hasFocus());
    window.takesKeys = true;
    QTest::keyClick(button, Qt::Key_Down);
    EXPECT_TRUE(button->hasFocus()) << "the container did something else with the key";
    does("", "");
    button->events.KeyUp = [](int& KeyCode, int&) { KeyCode = 0; };
    window.keyUps = 0;
    for (const auto key : {Qt::Key_Shift, Qt::Key_Left}) QTest::keyClick(button, key);
    does("b", "keydown16 keydown66 key98 ");
    EXPECT_EQ(window.keyUps, 0) << "they are consumed";
    button->events.KeyDown = [](int& KeyCode, int&) { KeyCode = 0; };
    does("b", "");
}

TEST_F(XPButtonInputTest, ClicksByItsAccessKeyAndByEnterWhileItIsTheDefault) {
    QTest::keyClick(line, Qt::Key_A, Qt::AltModifier);
    QTest::simulateEvent(line, true, Qt::Key_A, Qt::AltModifier, "a", kRepeated);
    does("", "click ");
    other->SetCaption("&All");
    QTest::keyClick(line, Qt::Key_A, Qt::AltModifier);
    does("", "");  // which of the two?
    EXPECT_TRUE(button->hasFocus() || other->hasFocus());
    button->setFocus();
    EXPECT_TRUE(isDefault());
    QTest::simulateEvent(button, true, Qt::Key_Return, Qt::NoModifier, "\r", kRepeated);
    does("\r", "click keyup13 ");
    other->setFocus();
    EXPECT_FALSE(isDefault());
    TestHost host;
    XPButton hosted(desktop, &window, &host);
    writeDown(hosted.events, [this](const std::string& event) { log += event; });
    QTest::keyClick(&hosted, Qt::Key_Return);
    does("", "keydown13 key13 keyup13 ");
}

/// One run for each event of a life: its handler calls deleteLater and waits in a loop of its own.
TEST_F(XPButtonInputTest, MayBeDeletedLaterByAnyOfItsEvents) {
    const auto live = [this] {
        does("o24", "");
        for (const auto key : {Qt::Key_B, Qt::Key_Space, Qt::Key_Return})
            QTest::keyClick(window.windowHandle(), key);
        QTest::keyClick(window.windowHandle(), Qt::Key_A, Qt::AltModifier);
        pointAt(kOutside);
        QTest::qWait(60);
    };
    std::set<std::string> seen;
    for (int last = 1;; ++last) {
        delete std::exchange(button, new XPButton(desktop, &window));
        button->setGeometry(10, 10, 120, 30);
        button->SetCaption("&Apply");
        button->show();
        button->setFocus();
        const QPointer<XPButton> alive(button);
        int raised = 0;
        const auto note = [&](const std::string& event) {
            seen.insert(event.substr(0, event.find_first_of("123456789 ")));
            if (++raised != last) return;
            alive->deleteLater();
            QEventLoop loop;
            QTimer::singleShot(1, &loop, &QEventLoop::quit);
            loop.exec();
            EXPECT_TRUE(alive) << event << "is not over yet";
        };
        writeDown(button->events, note);
        button->events.MouseMove = [&](auto&...) { note("move "); };
        live();
        if (raised < last) break;
        EXPECT_TRUE(QTest::qWaitFor([&] { return !alive; }, 1000)) << last;
        button = nullptr;
    }
    EXPECT_EQ(seen, std::set<std::string>({"enter", "move", "down", "up", "click", "dbl", "leave",
                                           "keydown", "key", "keyup"}));
}

TEST_F(XPButtonInputTest, ShowsWhatIsPressedBeforeAHandlerTakesItsTime) {
    button->setFocus();
    does("o", "enter ");
    QCoreApplication::processEvents();
    Paintings paints(*button);
    const auto expectPaint = [&](auto&...) { EXPECT_EQ(std::exchange(paints.count, 0), 1); };
    button->events = {};
    button->events.MouseDown = button->events.MouseUp = expectPaint;
    does("[]", "");
    button->events.KeyDown = expectPaint;
    button->events.Click = expectPaint;
    does(" ", "");
}

TEST_F(XPButtonInputTest, DrawsNothingWhileDrawingIsDelayed) {
    const auto caption = [this] { return button->frame().layout.CaptionRect; };
    const QRect place = caption();
    button->DelayDrawing(true);
    button->SetCaption("A longer caption");
    EXPECT_EQ(caption(), place);
    button->Refresh();
    EXPECT_NE(caption(), place);
    button->DelayDrawing(true);
    button->SetCaption("&Apply");
    does("o[", "enter down1 ");
    EXPECT_EQ(caption(), place) << "what the user does is shown";
    does("]", "up1 click ");
    button->DelayDrawing(true);
    button->SetCaption("Longer again");
    button->grab();
    button->DelayDrawing(true);
    QCoreApplication::processEvents();
    EXPECT_EQ(caption(), place) << "delayed anew, before it was done";
    button->hide();
    button->show();
    EXPECT_NE(caption(), place) << "what comes on the screen is new";
    QCoreApplication::processEvents();
    button->SetCaption("Waits for its paint event");
    button->DelayDrawing(true);
    QCoreApplication::processEvents();
    const QRect before = caption();
    button->SetCaption("&Apply");
    EXPECT_EQ(caption(), before) << "the paint event that was due does not end the delay";
    button->resize(200, 60);
    Paintings paints(*button);
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count == 2; }, 1000)) << "old, then new size";
    EXPECT_EQ(button->frame().region.RightEdge, 200);
}

TEST_F(XPButtonInputTest, EachSetThatIsSeenPaintsAFrame) {
    constexpr ColorValue kRed(0x0000FF);
    const auto picture = ButtonPicture::bitmap(plainImage({8, 8}, Qt::red));
    const std::function<void()> sets[] = {
        [&] { button->SetCaption("Other"); },
        [&] { button->SetPicture(picture); },
        [&] { button->SetPictureSize(2); },
        [&] { button->SetEnabled(!button->Enabled()); },
        [&] { button->SetShowFocusRect(false); },
        [&] { button->SetFont(QFont("Courier New", 14)); },
        [&] { button->SetForeColor(kRed); },
        [&] { button->SetBackColor(kRed); },
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
    EXPECT_EQ(paintsAfter([&] { button->SetGradientColor(kRed); }), 0) << "without a gradient";
    for (const auto& set : sets) EXPECT_EQ(paintsAfter(set), 1) << &set - sets;
    button->DelayDrawing(true);
    for (const auto& set : sets) EXPECT_EQ(paintsAfter(set), 0) << &set - sets;
    EXPECT_EQ(paintsAfter([&] { button->SetButtonShape(2); }), 1) << "ends the delay";
}

TEST_F(XPButtonInputTest, TellsAssistiveTechnology) {
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(button);
    ASSERT_TRUE(face);
    EXPECT_EQ(face->role(), QAccessible::PushButton);
    button->SetCaption("&Save||&& close");
    EXPECT_EQ(face->text(QAccessible::Name), "Save & close");
    button->setFocus();
    QTest::keyPress(button, Qt::Key_Space);
    EXPECT_TRUE(face->state().pressed && face->state().defaultButton && face->state().focused);
    QTest::keyRelease(button, Qt::Key_Space);
    log.clear();
    face->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCoreApplication::processEvents();
    does("", "click ");
    button->SetEnabled(false);
    EXPECT_FALSE(face->actionInterface()->actionNames().contains("Press"));
}

}  // namespace
}  // namespace brindlex
