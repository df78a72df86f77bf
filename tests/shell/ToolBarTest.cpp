#include "shell/ToolBar.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QBuffer>
#include <QCursor>
#include <QImage>
#include <QMenu>
#include <QTest>
#include <filesystem>

#include "platform/Twips.h"
#include "support/TempFolder.h"

namespace brindlex {
namespace {

std::string jpeg(const QColor& color) {
    QImage image(150, 150, QImage::Format_RGB32);
    image.fill(color);
    QBuffer buffer;
    image.save(&buffer, "JPG", 100);
    return buffer.data().toStdString();
}

std::string file(const std::string& picture) {
    return "Resources/tb_" + picture + ".jpg";
}

/// A toolbar with pictures of one colour: blue, and red where the pointer is.
class ToolBarTest : public testing::Test {
  protected:
    ToolBarTest() {
        for (const char* name : {"new", "open", "save", "cut", "copy", "paste", "find", "comment",
                                 "uncomment", "count"}) {
            folder.put(file(name), jpeg(Qt::blue));
            folder.put(file(name + std::string("_S")), jpeg(Qt::red));
        }
        window.resize(800, 300);
    }
    void show(const QColor& background = Qt::lightGray) {
        const auto log = [this](const char* name) { return [this, name] { ran += name; }; };
        toolBar =
            new ToolBar(folder.path(),
                        {log("tbNEW"), log("tbOPEN"), log("tbSAVE"), log("tbCUT"), log("tbCOPY"),
                         log("tbPASTE"), log("tbFIND"), log("tbCOM"), log("tbUNCOM"), nullptr},
                        &window);
        toolBar->setGeometry(0, 0, Twips::toPixels(33000), Twips::toPixels(330));
        window.setPalette(QPalette(background));
        window.move(100, 100);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    QAbstractButton& button(const char* name) { return *window.findChild<QAbstractButton*>(name); }
    QColor middle(const char* name) {
        return window.grab().toImage().pixelColor(button(name).geometry().center());
    }
    void tickAt(const QPoint& inStrip) {
        QCursor::setPos(toolBar->mapToGlobal(inStrip));
        toolBar->Timer1_Timer();
    }
    std::string hot() {
        std::string names;
        for (const auto* tb : toolBar->findChildren<QAbstractButton*>())
            if (middle(qPrintable(tb->objectName())).red() > 240)
                names += tb->objectName().toStdString() + ' ';
        return names;
    }

    TempFolder folder;
    QWidget window;
    ToolBar* toolBar = nullptr;
    std::string ran;
};

TEST_F(ToolBarTest, EachButtonGoesDownUpAndRunsItsCommand) {
    show();
    const std::tuple<Qt::MouseButton, QPoint, QPoint, bool> gestures[] = {
        {Qt::LeftButton, {12, 12}, {12, 12}, true},
        {Qt::LeftButton, {0, 0}, {-1, -1}, true},  // the edge moves away under the pointer
        {Qt::LeftButton, {9, 9}, {9, 99}, false},
        {Qt::RightButton, {12, 12}, {12, 12}, false}};
    const QList<QAbstractButton*> all = toolBar->findChildren<QAbstractButton*>();
    ASSERT_EQ(all.size(), ToolBar::kButtons);
    for (int i = 0; i < ToolBar::kButtons; ++i) {
        QAbstractButton& tb = *all[i];
        const std::string name = tb.objectName().toStdString();
        SCOPED_TRACE(name);
        const QPoint place = tb.pos();
        for (const auto& [mouse, press, release, clicks] : gestures) {
            ran.clear();
            QTest::mousePress(&tb, mouse, {}, press);
            EXPECT_TRUE(toolBar->ToolbarDown(i));
            EXPECT_EQ(tb.pos(), place + QPoint(Twips::toPixels(10), Twips::toPixels(10)));
            QTest::mouseRelease(&tb, mouse, {}, release);
            EXPECT_FALSE(toolBar->ToolbarDown(i));
            EXPECT_EQ(tb.pos(), place);
            EXPECT_EQ(ran, clicks && name != "tbCOUNT" ? name : "");
        }
    }
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&button("tbCUT"));
    EXPECT_EQ(accessible->role(), QAccessible::Button);
    EXPECT_EQ(accessible->text(QAccessible::Name), "Cut");
    accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([this] { return ran == "tbCUT"; }));
    EXPECT_EQ(button("tbCUT").pos(), QPoint(Twips::toPixels(1320), 0));
}

TEST_F(ToolBarTest, APressThatIsLostLeavesNothingBehind) {
    show();
    QWidget box;
    box.setWindowModality(Qt::ApplicationModal);
    for (QWidget* toShow : {static_cast<QWidget*>(toolBar), &box}) {
        QTest::mousePress(&button("tbSAVE"), Qt::LeftButton, {}, {12, 12});
        toShow->hide();
        toShow->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(toShow->window()));
        EXPECT_FALSE(toolBar->ToolbarDown(2));
        EXPECT_EQ(button("tbSAVE").y(), 0);
        QTest::mouseRelease(&button("tbSAVE"), Qt::LeftButton, {}, {12, 12});
        EXPECT_EQ(ran, "");
    }
    QMenu menu;
    QTest::mousePress(&button("tbSAVE"), Qt::LeftButton, {}, {12, 12});
    menu.popup(QPoint());
    toolBar->Timer1_Timer();
    EXPECT_FALSE(toolBar->ToolbarDown(2));
}

TEST_F(ToolBarTest, TheButtonsUnderThePointerAreHot) {
    show();
    EXPECT_EQ(middle("tbNEW"), QColor(Qt::lightGray)) << "empty before the first tick";
    const auto hotAt = [this](int x, int y) {
        tickAt({x, y});
        return hot();
    };
    EXPECT_EQ(hotAt(-1, 5) + hotAt(5, -1) + hotAt(5, 26) + hotAt(74, 5), "");
    EXPECT_EQ(hotAt(0, 0), "tbNEW ");
    EXPECT_EQ(hotAt(5, 25), "tbNEW ") << "edges count, and what the strip cuts off";
    EXPECT_EQ(hotAt(23, 5) + hotAt(26, 5), "tbNEW tbOPEN ");
    EXPECT_EQ(hotAt(24, 5), "tbNEW tbOPEN ") << "both";
    EXPECT_EQ(hotAt(240, 5), "tbCOM tbCOUNT ");
    tickAt({12, 5});
    window.move(window.pos() - QPoint(88, 0));
    toolBar->Timer1_Timer();
    EXPECT_EQ(hot(), "tbCUT ") << "the window moved under the pointer";
}

TEST_F(ToolBarTest, AButtonThatIsDownKeepsItsPicture) {
    show();
    tickAt({12, 5});
    QTest::mousePress(&button("tbNEW"), Qt::LeftButton, {}, {12, 5});
    tickAt({36, 5});
    EXPECT_EQ(hot(), "tbNEW tbOPEN ");
    QTest::mouseRelease(&button("tbNEW"), Qt::LeftButton, {}, {36, 5});
    toolBar->startTimer1();
    EXPECT_TRUE(QTest::qWaitFor([this] { return hot() == "tbOPEN "; })) << "the pointer at rest";
}

TEST_F(ToolBarTest, WhereThereIsNoPictureThereIsALetter) {
    const std::string whole = jpeg(Qt::blue);
    folder.put(file("new"), whole.substr(0, whole.size() / 2));
    folder.put(file("open"), "");
    folder.put(file("save"), whole.substr(0, 300) + whole.substr(whole.size() - 2));
    std::filesystem::remove(folder.at(file("cut")));
    folder.put(file("cut") + "/x", "in a folder of that name");
    show();
    tickAt({400, 5});
    const QImage shown = window.grab().toImage();
    for (const char* name : {"tbNEW", "tbOPEN", "tbSAVE", "tbCUT"}) {
        const QImage letter = shown.copy(button(name).geometry() & toolBar->geometry());
        QImage nothing = letter;
        nothing.fill(Qt::lightGray);
        EXPECT_NE(letter, nothing) << name;
        EXPECT_EQ(letter.pixel(0, 0), nothing.pixel(0, 0)) << name << " shows a picture";
    }
}

TEST_F(ToolBarTest, ADarkWindowShowsLightForDarkAndThePicturesAreKept) {
    folder.put(file("new"), jpeg(Qt::white));
    folder.put(file("open"), jpeg(Qt::black));
    folder.put(file("save"), jpeg(QColor(0, 0, 100)));
    const QColor background(40, 40, 40);
    show(background);
    tickAt({400, 5});
    EXPECT_EQ(middle("tbNEW"), background);
    EXPECT_EQ(middle("tbOPEN"), QColor(Qt::white));
    EXPECT_GT(middle("tbSAVE").blue(), 220);
    std::filesystem::remove_all(folder.at("Resources"));
    window.setPalette(QPalette(Qt::lightGray));
    EXPECT_EQ(middle("tbOPEN"), QColor(Qt::black));
}

}  // namespace
}  // namespace brindlex
