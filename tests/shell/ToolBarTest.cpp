#include "shell/ToolBar.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QBuffer>
#include <QCursor>
#include <QImage>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <filesystem>

#include "ShellTest.h"
#include "system/Twips.h"

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
        toolBar = new ToolBar(
            folder.path(), [this](const QString& entry) { ran += entry.toStdString() + ' '; },
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
    void pointTo(const QPoint& inStrip) { QCursor::setPos(toolBar->mapToGlobal(inStrip)); }
    std::string hotAt(int x, int y) {
        pointTo({x, y});
        toolBar->Timer1_Timer();
        return hot();
    }
    std::string hot() {
        std::string names;
        for (const auto* tb : toolBar->findChildren<QAbstractButton*>())
            if (middle(qPrintable(tb->objectName())).red() > 240)
                names += tb->objectName().toStdString() + ' ';
        return names;
    }
    bool becomesHot(const std::string& names) {
        return QTest::qWaitFor([&] { return hot() == names; });
    }

    TempFolder folder;
    QWidget window;
    ToolBar* toolBar = nullptr;
    std::string ran;
};

TEST_F(ToolBarTest, EachButtonGoesDownUpAndRunsItsCommand) {
    show();
    for (QAbstractButton* tb : toolBar->findChildren<QAbstractButton*>()) {
        const QPoint place = tb->pos();
        QTest::mousePress(tb, Qt::LeftButton, {}, {0, 0});
        EXPECT_EQ(tb->pos(), place + QPoint(Twips::toPixels(10), Twips::toPixels(10)));
        QTest::mouseRelease(tb, Qt::LeftButton, {}, {-1, -1});  // the edge moved off the pointer
        EXPECT_EQ(tb->pos(), place);
    }
    EXPECT_EQ(ran,
              "funNew funOpen funSave funCut funCopy funPaste funSearch funComBlock funUnComBlock "
              "funCount ");
    ran.clear();
    QTest::mousePress(&button("tbCUT"), Qt::LeftButton, {}, {9, 9});
    QTest::mouseRelease(&button("tbCUT"), Qt::LeftButton, {}, {9, 99});
    QTest::mousePress(&button("tbCUT"), Qt::RightButton, {}, {12, 12});
    EXPECT_TRUE(toolBar->ToolbarDown(3));
    QTest::mouseRelease(&button("tbCUT"), Qt::RightButton, {}, {12, 12});
    EXPECT_EQ(ran, "");
    EXPECT_EQ(button("tbCUT").accessibleName(), "Cut");
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

TEST_F(ToolBarTest, TheButtonsUnderThePointerAreHotButForThoseThatAreDown) {
    show();
    EXPECT_EQ(middle("tbNEW"), QColor(Qt::lightGray)) << "empty before the first tick";
    EXPECT_EQ(hotAt(-1, 5) + hotAt(5, -1) + hotAt(5, 26) + hotAt(74, 5), "");
    EXPECT_EQ(hotAt(0, 0) + hotAt(5, 25), "tbNEW tbNEW ") << "edges count, also those cut off";
    EXPECT_EQ(hotAt(23, 5) + hotAt(26, 5), "tbNEW tbOPEN ");
    EXPECT_EQ(hotAt(24, 5), "tbNEW tbOPEN ") << "both";
    QTest::mousePress(&button("tbNEW"), Qt::LeftButton, {}, {12, 5});
    EXPECT_EQ(hotAt(36, 5), "tbNEW tbOPEN ");
    QTest::mouseRelease(&button("tbNEW"), Qt::LeftButton, {}, {36, 5});
    toolBar->startTimer1();
    EXPECT_TRUE(becomesHot("tbOPEN ")) << "the pointer at rest";
}

TEST_F(ToolBarTest, TheTimerRestsWhereNothingIsHotAndMissesNoPointer) {
    show();
    const QTimer& timer = *toolBar->findChild<QTimer*>("Timer1");
    toolBar->startTimer1();
    for (const QPoint& away : {QPoint(400, 200), QPoint(0, -40)}) {
        pointTo({100, 25});
        EXPECT_TRUE(becomesHot("tbCUT "));
        pointTo(away);
        EXPECT_TRUE(becomesHot("") && QTest::qWaitFor([&] { return !timer.isActive(); }));
    }
    window.move(window.pos() - QPoint(100, 50));
    EXPECT_TRUE(becomesHot("tbCUT ")) << "the window moved";
    QWidget cover;  // that gets the events of the pointer
    cover.setGeometry(window.geometry());
    cover.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&cover));
    pointTo({140, 5});
    EXPECT_TRUE(becomesHot("tbPASTE "));
}

TEST_F(ToolBarTest, PicturesFollowTheBackgroundAndLettersStandInForThem) {
    const std::string whole = jpeg(Qt::blue);
    folder.put(file("new"), jpeg(Qt::white));
    folder.put(file("open"), jpeg(Qt::black));
    folder.put(file("cut"), whole.substr(0, whole.size() / 2));
    folder.put(file("copy"), whole.substr(0, 300) + whole.substr(whole.size() - 2));
    folder.put(file("paste"), "");
    show(QColor(40, 40, 40));
    hotAt(400, 5);
    EXPECT_EQ(middle("tbNEW"), QColor(40, 40, 40));
    EXPECT_EQ(middle("tbOPEN"), QColor(Qt::white));
    EXPECT_GT(middle("tbSAVE").blue(), 220);
    std::filesystem::remove_all(folder.at("Resources"));
    window.setPalette(QPalette(Qt::lightGray));
    EXPECT_EQ(middle("tbOPEN"), QColor(Qt::black)) << "kept";
    const QImage shown = window.grab().toImage();
    for (const char* name : {"tbCUT", "tbCOPY", "tbPASTE"}) {
        const QImage letter = shown.copy(button(name).geometry() & toolBar->geometry());
        QImage nothing = letter;
        nothing.fill(Qt::lightGray);
        EXPECT_NE(letter, nothing) << name;
        EXPECT_EQ(letter.pixel(0, 0), nothing.pixel(0, 0)) << name << " shows a picture";
    }
}

TEST_F(ShellTest, AButtonRunsTheCommandOfItsEntryAlsoWhileThatIsDisabled) {
    start();
    emit control<QMenu>("funEdit").aboutToShow();
    EXPECT_FALSE(control<QAction>("funCut").isEnabled());
    window().funSelectAll_Click();
    for (const char* name : {"tbCUT", "tbCOUNT", "tbCOM"}) control<QAbstractButton>(name).click();
    EXPECT_EQ(editor().Text(), "//");
}

}  // namespace
}  // namespace brindlex
