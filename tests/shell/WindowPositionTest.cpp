#include "shell/WindowPosition.h"

#include <QScreen>
#include <utility>

#include "ShellTest.h"
#include "system/Twips.h"

namespace brindlex {
namespace {

class WindowPositionTest : public ShellTest {
  protected:
    void startShown() {
        start();
        // The frame comes with the first painting.
        for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
    }
    QRect frame() { return window().frameGeometry(); }
};

TEST_F(WindowPositionTest, ASavedPlaceComesBackWithItsFrame) {
    startShown();
    EXPECT_TRUE(window().screen()->availableGeometry().contains(frame()));
    window().move(51, 42);
    window().resize(555, 444);
    const QRect saved = frame();
    for (int again = 0; again < 2; ++again) {
        trigger("funSavePos");
        startShown();
        EXPECT_EQ(frame(), saved);
    }
    EXPECT_EQ(stored("FormPos_Left"),
              QString::number(Twips::fromPixels(saved.left())).toStdString());
    trigger("funFull");
    trigger("funSavePos");
    EXPECT_EQ(stored("FormPos_State"), "2");
    startShown();
    EXPECT_TRUE(window().isMaximized());
    trigger("funDefault");
    EXPECT_FALSE(window().isMaximized());
    // The screen is 800 x 800: too narrow.
    EXPECT_EQ(frame(), QRect(0, 1, 800, Twips::toPixels(11970)));
}

TEST_F(WindowPositionTest, SizesThatMakeNoSenseAreLeftOut) {
    put("FormPos_Top", "600");
    put("FormPos_Left", "nonsense");
    put("FormPos_Width", "9000.5");
    put("FormPos_Height", "1e999");
    startShown();
    EXPECT_EQ(frame().top(), Twips::toPixels(600));
    EXPECT_EQ(frame().width(), Twips::toPixels(9000.5));
    EXPECT_GT(frame().height(), 100);
    put("FormPos_Width", "-9000");
    put("FormPos_Height", "400000");
    startShown();
    EXPECT_GT(frame().width(), 100);
    EXPECT_LE(frame().height(), 2 * window().screen()->geometry().height()) << "can be painted";
}

TEST_F(WindowPositionTest, AWindowWhoseTitleNoScreenShowsComesBackToOne) {
    put("FormPos_Width", "9000");
    put("FormPos_Height", "9000");
    const std::pair<QPoint, bool> rows[] = {
        {{10, -40}, false}, {{-595, 10}, false}, {{795, 10}, false}, {{-500, 10}, true}};
    for (const auto& [place, stays] : rows) {
        put("FormPos_Left", QString::number(Twips::fromPixels(place.x())));
        put("FormPos_Top", QString::number(Twips::fromPixels(place.y())));
        startShown();
        // The headless platform shifts places left of it and above it by its frame.
        const int moved = (frame().topLeft() - place).manhattanLength();
        EXPECT_EQ(moved <= 2, stays) << place.x() << ' ' << place.y();
    }
}

}  // namespace
}  // namespace brindlex
