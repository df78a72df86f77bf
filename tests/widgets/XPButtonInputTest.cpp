#include <gtest/gtest.h>

#include <QAccessible>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>
#include <functional>
#include <memory>
#include <utility>

#include "support/Paintings.h"
#include "widgets/TestButton.h"
#include "widgets/XPButtonForm.h"

namespace brindlex {
namespace {

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
        for (XPButton* b : {button, other}) b->resize(120, 30);
        button->move(10, 10);
        other->move(200, 10);
        line->move(10, 100);
        button->SetCaption("&Apply");
        XPButtonEvents& events = button->events;
        const auto mouse = [this](const char* name) {
            return [this, name](int& Button, int& Shift, float&, float&) {
                log += name + std::to_string(Button) + (Shift ? "s " : " ");
            };
        };
        const auto key = [this](const char* name) {
            return [this, name](int& code, int&) { log += name + std::to_string(code) + " "; };
        };
        events.MouseDown = mouse("down");
        events.MouseUp = mouse("up");
        events.KeyDown = key("keydown");
        events.KeyUp = key("keyup");
        events.KeyPress = [this](int& ascii) { log += "key" + std::to_string(ascii) + " "; };
        events.Click = [this] { log += "click "; };
        events.DblClick = [this](int& b) { log += "dbl" + std::to_string(b) + " "; };
        events.MouseEnter = [this] { log += "enter "; };
        events.MouseLeave = [this] { log += "leave "; };
        other->events.Click = [this] { log += "other "; };
        pointAt({350, 150});
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        line->setFocus();
    }
    ~XPButtonInputTest() override { pointAt({350, 150}); }

    void pointAt(QPoint place) {
        QCursor::setPos(window.mapToGlobal(place));
        if (QWidget* target = window.childAt(place))
            QTest::mouseMove(target, target->mapFrom(&window, place));
    }
    std::string taken() { return std::exchange(log, {}); }
    bool hovers() const { return button->look().Hovering; }

    FakeDesktop desktop;
    Window window;
    XPButton* button = new XPButton(desktop, &window);
    XPButton* other = new XPButton(desktop, &window);
    QLineEdit* line = new QLineEdit(&window);
    std::string log;
};

TEST_F(XPButtonInputTest, FollowsThePointerWhileItIsThere) {
    int moves = 0;
    button->events.MouseMove = [&](auto&...) { ++moves; };
    pointAt({50, 20});
    EXPECT_EQ(taken(), "enter ");
    EXPECT_EQ(button->look().ButtonFlags, XPButtonLook::kOver);
    EXPECT_GT(moves, 0);
    QTest::qWait(120);
    EXPECT_TRUE(hovers());
    QEvent left(QEvent::Leave);
    QApplication::sendEvent(button, &left);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !hovers(); }, 1000)) << "it may be anywhere now";
    pointAt({51, 20});
    EXPECT_EQ(taken(), "leave enter ");
    pointAt({250, 20});
    EXPECT_TRUE(other->look().Hovering);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !hovers(); }, 1000));
    EXPECT_EQ(taken(), "leave ");
    EXPECT_FALSE(button->findChild<QTimer*>()->isActive());
    pointAt({10, 10});  // a nipped corner
    EXPECT_FALSE(hovers());
}

TEST_F(XPButtonInputTest, ClicksWhenPressedAndReleasedOnIt) {
    pointAt({50, 20});
    taken();
    QTest::mousePress(button, Qt::LeftButton, Qt::ShiftModifier, {40, 10});
    EXPECT_TRUE(button->look().isPressed());
    QTest::mouseRelease(button, Qt::LeftButton, {}, {40, 10});
    EXPECT_EQ(taken(), "down1s up1 click ");
    QTest::mouseClick(button, Qt::RightButton, {}, {40, 10});
    EXPECT_EQ(taken(), "down2 up2 ");
    for (const auto mouse : {Qt::LeftButton, Qt::RightButton}) {
        QTest::mouseClick(button, mouse, {}, {40, 10});
        QTest::mouseDClick(button, mouse, {}, {40, 10});
        QTest::mouseRelease(button, mouse, {}, {40, 10});
    }
    EXPECT_EQ(taken(),
              "down1 up1 click dbl1 down1 up1 click "
              "down2 up2 dbl2 down1 up2 ");

    QTest::mousePress(button, Qt::LeftButton, {}, {40, 10});
    QCursor::setPos(window.mapToGlobal(QPoint(350, 150)));
    QTest::mouseMove(button, {340, 140});
    EXPECT_TRUE(QTest::qWaitFor([this] { return !hovers(); }, 1000));
    EXPECT_EQ(button->look().ButtonFlags, XPButtonLook::kDown | XPButtonLook::kDefault);
    QCursor::setPos(window.mapToGlobal(QPoint(50, 20)));
    QTest::mouseMove(button, {40, 10});
    EXPECT_TRUE(button->look().isPressed());
    QCursor::setPos(window.mapToGlobal(QPoint(350, 150)));
    QTest::mouseRelease(button, Qt::LeftButton, {}, {340, 140});
    EXPECT_EQ(taken(), "down1 leave enter up1 ");

    button->events.MouseUp = [](int& Button, auto&...) { Button = 2; };
    QTest::mouseClick(button, Qt::LeftButton, {}, {40, 10});
    EXPECT_EQ(taken(), "down1 ") << "the handler made it another button";
    button->events.DblClick = [](int& Button) { Button = 2; };
    QTest::mouseDClick(button, Qt::LeftButton, {}, {40, 10});
    EXPECT_FALSE(button->look().has(XPButtonLook::kDown));

    button->SetEnabled(false);
    QTest::mouseClick(button, Qt::LeftButton, {}, {40, 10});
    EXPECT_EQ(taken(), "down1 ");
}

TEST_F(XPButtonInputTest, KnowsItsOwnFirstPressAndThePointerThatRests) {
    const QPoint place(40, 10);
    for (const auto mouse : {Qt::LeftButton, Qt::RightButton}) {
        QTest::mouseClick(button, mouse, {}, place);
        pointAt({250, 20});
        pointAt({50, 20});
        EXPECT_TRUE(hovers());
        taken();
        QTest::mouseDClick(button, mouse, {}, place);  // the first one was on the neighbour
        EXPECT_EQ(button->look().isPressed(), mouse == Qt::LeftButton);
        QTest::mouseRelease(button, mouse, {}, place);
        EXPECT_EQ(taken(), mouse == Qt::LeftButton ? "down1 up1 click " : "down2 up2 ");
    }
    QTest::mouseClick(button, Qt::RightButton, {}, place);
    button->press(27);
    QTest::mouseDClick(button, Qt::RightButton, {}, place);
    QTest::mouseRelease(button, Qt::RightButton, {}, place);
    EXPECT_EQ(taken(), "down2 up2 click dbl2 down1 up2 ");
    EXPECT_FALSE(button->look().has(XPButtonLook::kDown));

    pointAt({350, 150});
    EXPECT_TRUE(QTest::qWaitFor([this] { return !hovers(); }, 1000));
    taken();
    button->events.MouseEnter = [this] {
        log += "enter ";
        QTest::mouseMove(button, {41, 10});
    };
    QCursor::setPos(window.mapToGlobal(QPoint(50, 20)));  // the toolkit tells nothing of it
    QTest::mousePress(button, Qt::LeftButton, {}, place);
    EXPECT_TRUE(button->look().isPressed());
    QTest::mouseRelease(button, Qt::LeftButton, {}, place);
    EXPECT_EQ(taken(), "enter down1 up1 click ");
}

TEST_F(XPButtonInputTest, IsUpAgainWhenItsReleaseWentElsewhere) {
    const QPoint place(50, 20);
    QWidget box(&window, Qt::Dialog);
    box.setWindowModality(Qt::ApplicationModal);
    const auto releaseInBox = [&box] {
        box.show();
        QTest::mouseRelease(box.windowHandle(), Qt::LeftButton);
        box.hide();
    };
    const auto press = [&] {
        pointAt(place);
        QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, place);
    };
    const auto isDown = [this] { return button->look().has(XPButtonLook::kDown); };
    press();
    button->events.DblClick = [&](int&) { releaseInBox(); };
    QTest::mouseDClick(button, Qt::LeftButton, {}, {40, 10});
    EXPECT_FALSE(isDown());
    press();
    button->events.DblClick = [&](int&) { button->hide(); };
    QTest::mouseDClick(button, Qt::LeftButton, {}, {40, 10});
    EXPECT_FALSE(isDown()) << "its release goes to what is there instead";
    button->show();
    button->events.MouseDown = [&](auto&...) { releaseInBox(); };
    press();
    EXPECT_FALSE(isDown());
    button->events.MouseDown = {};
    press();
    EXPECT_TRUE(isDown());
    releaseInBox();
    QTest::mouseMove(window.windowHandle(), place + QPoint(1, 0));
    EXPECT_FALSE(isDown());
    press();
    button->SetEnabled(false);
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, place);
    button->SetEnabled(true);
    EXPECT_FALSE(isDown());
}

TEST_F(XPButtonInputTest, TakesSpaceAndLeavesArrowsToTheContainer) {
    button->setFocus();
    QTest::keyPress(button, Qt::Key_Space);
    EXPECT_EQ(button->look().ButtonFlags, XPButtonLook::kDown | XPButtonLook::kDefault);
    QTest::keyRelease(button, Qt::Key_Space);
    EXPECT_EQ(taken(), "keydown32 key32 click keyup32 ");
    QTest::keyClick(button, Qt::Key_B);
    QTest::keyClick(button, Qt::Key_Shift);
    EXPECT_EQ(taken(), "keydown66 key98 keyup66 keydown16 ");
    QTest::keyPress(button, Qt::Key_Space);
    other->setFocus();
    EXPECT_EQ(button->look().ButtonFlags, 0) << "its release went elsewhere";
    button->setFocus();
    taken();
    QTest::keyClick(button, Qt::Key_Right);
    EXPECT_TRUE(button->hasFocus()) << "the key is posted";
    QCoreApplication::processEvents();
    EXPECT_TRUE(other->hasFocus());
    QTest::keyClick(other, Qt::Key_Up);
    QCoreApplication::processEvents();
    EXPECT_TRUE(button->hasFocus());
    window.takesKeys = true;
    QTest::keyClick(button, Qt::Key_Down);
    QCoreApplication::processEvents();
    EXPECT_TRUE(button->hasFocus()) << "the container did something else with the key";
    EXPECT_EQ(taken(), "");
    constexpr bool kRepeated = true;
    QTest::simulateEvent(button, true, Qt::Key_Space, Qt::NoModifier, " ", kRepeated);
    EXPECT_FALSE(button->look().has(XPButtonLook::kDown)) << "it was pressed elsewhere";
    taken();
    QTest::simulateEvent(button, true, Qt::Key_Return, Qt::NoModifier, "\r", kRepeated);
    EXPECT_EQ(taken(), "");
    window.keyUps = 0;
    button->events.KeyUp = [](int& KeyCode, int&) { KeyCode = 0; };
    for (const auto key : {Qt::Key_Shift, Qt::Key_Left, Qt::Key_B}) QTest::keyClick(button, key);
    EXPECT_EQ(window.keyUps, 0);
}

TEST_F(XPButtonInputTest, HasTheKeysOfItsForm) {
    QTest::keyClick(line, Qt::Key_A, Qt::AltModifier);
    constexpr bool kRepeated = true;
    QTest::simulateEvent(line, true, Qt::Key_A, Qt::AltModifier, "a", kRepeated);
    EXPECT_EQ(taken(), "click ");
    button->setFocus();
    auto* const form = new XPButtonForm(window);
    EXPECT_EQ(form->currentDefault(), button);
    line->setFocus();
    QTest::keyClick(line, Qt::Key_Return);
    form->setDefaultButton(button);
    form->setCancelButton(other);
    EXPECT_TRUE(button->look().has(XPButtonLook::kDefault));
    QTest::keyClick(line, Qt::Key_Enter);
    EXPECT_EQ(taken(), "click ");
    QTest::keyClick(line, Qt::Key_Escape);
    EXPECT_EQ(taken(), "other ");
    other->setFocus();
    EXPECT_FALSE(button->look().has(XPButtonLook::kDefault));
    EXPECT_TRUE(other->look().has(XPButtonLook::kDefault));
    QTest::keyClick(other, Qt::Key_Return);
    EXPECT_EQ(taken(), "other ");
    line->setFocus();
    EXPECT_TRUE(button->look().has(XPButtonLook::kDefault));
    button->SetEnabled(false);
    QTest::keyClick(line, Qt::Key_Return);
    other->hide();
    QTest::keyClick(line, Qt::Key_Escape);
    EXPECT_EQ(taken(), "");
    QWidget elsewhere;
    elsewhere.setAttribute(Qt::WA_ShowWithoutActivating);
    button->SetEnabled(true);
    button->setParent(&elsewhere);
    button->show();
    elsewhere.show();
    EXPECT_FALSE(button->look().has(XPButtonLook::kDefault));
    QTest::keyClick(line, Qt::Key_Return);
    EXPECT_EQ(taken(), "");

    int returns = 0;
    QObject::connect(line, &QLineEdit::returnPressed, [&returns] { ++returns; });
    delete button;
    QTest::keyClick(line, Qt::Key_Return);
    EXPECT_EQ(returns, 1) << "a button that is gone takes no key";
    form->setDefaultButton(other);
    QWidget panel;
    other->setParent(&panel);
    panel.setParent(&window);
    panel.show();
    other->show();
    EXPECT_TRUE(other->look().has(XPButtonLook::kDefault));
    panel.setParent(&elsewhere);
    panel.show();
    EXPECT_FALSE(other->look().has(XPButtonLook::kDefault));
    panel.setParent(&window);
    panel.show();
    EXPECT_TRUE(other->look().has(XPButtonLook::kDefault));
    delete form;
    EXPECT_FALSE(other->look().has(XPButtonLook::kDefault));
    QTest::keyClick(line, Qt::Key_Return);
    EXPECT_EQ(returns, 2);
}

TEST_F(XPButtonInputTest, MayBeDestroyedByAnyOfItsEvents) {
    const auto dies = [this](auto event, const std::function<void()>& act) {
        delete button;
        pointAt({350, 150});
        button = new XPButton(desktop, &window);
        button->setGeometry(10, 10, 120, 30);
        button->show();
        button->events.*event = [this](auto&...) { delete std::exchange(button, nullptr); };
        act();
        EXPECT_EQ(button, nullptr);
    };
    const auto click = [this] { QTest::mouseClick(button, Qt::LeftButton); };
    new XPButtonForm(window);

    dies(&XPButtonEvents::MouseDown, [this] { QTest::mousePress(button, Qt::LeftButton); });
    dies(&XPButtonEvents::MouseUp, click);
    dies(&XPButtonEvents::Click, click);
    dies(&XPButtonEvents::DblClick, [&] {
        click();
        QTest::mouseDClick(button, Qt::LeftButton);
    });
    dies(&XPButtonEvents::KeyDown, [this] { QTest::keyPress(button, Qt::Key_B); });
    dies(&XPButtonEvents::Click, [this] { QTest::keyClick(button, Qt::Key_Space); });
    dies(&XPButtonEvents::KeyUp, [this] { QTest::keyClick(button, Qt::Key_B); });
    dies(&XPButtonEvents::Click, [this] {
        button->setFocus();
        QTest::keyClick(button, Qt::Key_Return);
    });
    dies(&XPButtonEvents::MouseEnter, [this] {
        QCursor::setPos(window.mapToGlobal(QPoint(50, 20)));
        QTest::mouseMove(window.windowHandle(), {50, 20});
        QCoreApplication::processEvents();
    });
    dies(&XPButtonEvents::MouseLeave, [this] {
        pointAt({50, 20});
        pointAt({350, 150});
        QTest::qWait(150);
    });
}

TEST_F(XPButtonInputTest, ShowsWhatIsPressedBeforeAHandlerTakesItsTime) {
    pointAt({50, 20});
    button->setFocus();
    QCoreApplication::processEvents();
    Paintings paints(*button);
    const auto expectPaint = [&](auto&...) { EXPECT_EQ(std::exchange(paints.count, 0), 1); };
    button->events = {};
    button->events.MouseDown = expectPaint;
    button->events.MouseUp = expectPaint;
    QTest::mouseClick(button, Qt::LeftButton);
    button->events.KeyDown = expectPaint;
    button->events.Click = expectPaint;
    QTest::keyClick(button, Qt::Key_Space);
}

TEST_F(XPButtonInputTest, DrawsNothingWhileDrawingIsDelayed) {
    window.grab();
    const QImage before = button->grab().toImage();
    const QRect place = button->layoutRects().CaptionRect;
    button->DelayDrawing(true);
    button->SetBackColor(ColorValue(0xFF));
    button->SetCaption("A longer caption");
    EXPECT_EQ(button->layoutRects().CaptionRect, place);
    button->Refresh();
    EXPECT_NE(button->layoutRects().CaptionRect, place);
    EXPECT_NE(button->grab().toImage(), before);
    button->DelayDrawing(true);
    button->SetCaption("Short");
    QTest::mousePress(button, Qt::LeftButton);
    const QRect shortPlace = button->layoutRects().CaptionRect;
    EXPECT_NE(shortPlace, place) << "what the user does is shown";
    QTest::mouseRelease(button, Qt::LeftButton);
    button->DelayDrawing(true);
    button->SetCaption("Longer again");
    button->grab();
    button->DelayDrawing(true);
    QCoreApplication::processEvents();
    EXPECT_EQ(button->layoutRects().CaptionRect, shortPlace) << "delayed anew, before it was done";

    button->hide();
    button->SetBackColor(ColorValue(0xFF00));
    button->DelayDrawing(true);
    button->SetBackColor(ColorValue(0xFF0000));
    button->show();
    const QImage first = button->grab().toImage();
    button->Refresh();
    EXPECT_EQ(first, button->grab().toImage()) << "a hidden button is painted as it then is";
}

TEST_F(XPButtonInputTest, EachSetThatIsSeenPaintsAFrame) {
    const ButtonPicture picture = ButtonPicture::bitmap(plainImage({8, 8}, Qt::red));
    constexpr ColorValue kRed(0x0000FF);
    const std::pair<const char*, std::function<void()>> sets[] = {
        {"Caption", [&] { button->SetCaption("Other"); }},
        {"CaptionAlign", [&] { button->SetCaptionAlign(0); }},
        {"CaptionStyle", [&] { button->SetCaptionStyle(1); }},
        {"ButtonShape", [&] { button->SetButtonShape(2); }},
        {"Picture", [&] { button->SetPicture(picture); }},
        {"PictureAlign", [&] { button->SetPictureAlign(2); }},
        {"PictureSize", [&] { button->SetPictureSize(2); }},
        {"Enabled", [&] { button->SetEnabled(false); }},
        {"ShowFocusRect", [&] { button->SetShowFocusRect(false); }},
        {"Font", [&] { button->SetFont(QFont("Courier New", 14)); }},
        {"ForeColor", [&] { button->SetForeColor(kRed); }},
        {"BackColor", [&] { button->SetBackColor(kRed); }},
        {"GotFocusBorderColor", [&] { button->SetGotFocusBorderColor(kRed); }},
        {"HoverBorderColor", [&] { button->SetHoverBorderColor(kRed); }},
        {"GradientMode", [&] { button->SetGradientMode(1); }},
        {"GradientColor", [&] { button->SetGradientColor(kButtonFace); }},
    };
    const auto paintsAfter = [this](const std::function<void()>& set) {
        QCoreApplication::processEvents();
        set();
        Paintings paints(*button);
        QCoreApplication::processEvents();
        return paints.count;
    };
    EXPECT_EQ(paintsAfter([&] { button->SetGradientColor(kRed); }), 0) << "without a gradient";
    for (const auto& [name, set] : sets) EXPECT_EQ(paintsAfter(set), 1) << name;

    button->DelayDrawing(true);
    button->SetEnabled(true);
    for (const auto& [name, set] : sets) {
        if (name == std::string("ButtonShape")) continue;  // ends it
        EXPECT_EQ(paintsAfter(set), 0) << name;
    }
    button->Refresh();
    button->SetCaption("Waits for its paint event");
    button->DelayDrawing(true);
    button->resize(200, 60);
    Paintings paints(*button);
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count == 2; }, 1000)) << "old, then new size";
    EXPECT_EQ(button->frame().size, QSize(200, 60));
}

TEST_F(XPButtonInputTest, TellsAssistiveTechnology) {
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(button);
    ASSERT_TRUE(face);
    EXPECT_EQ(face->role(), QAccessible::PushButton);
    button->SetCaption("&Save||&& close");
    EXPECT_EQ(face->text(QAccessible::Name), "Save & close");
    button->setFocus();
    EXPECT_TRUE(face->state().defaultButton && face->state().focused);
    QTest::keyPress(button, Qt::Key_Space);
    EXPECT_TRUE(face->state().pressed);
    QTest::keyRelease(button, Qt::Key_Space);
    taken();
    face->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCoreApplication::processEvents();
    EXPECT_EQ(taken(), "click ");
    button->SetEnabled(false);
    EXPECT_FALSE(face->actionInterface()->actionNames().contains("Press"));
    EXPECT_TRUE(face->state().disabled);
}

}  // namespace
}  // namespace brindlex
