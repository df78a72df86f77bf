#include "shell/MainLayout.h"

#include <algorithm>
#include <vector>

#include "ShellTest.h"
#include "platform/Twips.h"

namespace brindlex {
namespace {

class MainLayoutTest : public ShellTest {
  protected:
    void startWith(int showTreeView) {
        put("ShowTreeView", QString::number(showTreeView));
        start();
        QCoreApplication::processEvents();
    }
    /// Within the part of the window below the menu.
    QRect place(const char* name) {
        const QWidget& shownControl = control(name);
        const QWidget* frame = shownControl.parentWidget();
        if (frame == control("SB1").parentWidget() || frame == &control("SB2"))
            return shownControl.geometry();
        return frame->geometry();
    }
};

TEST_F(MainLayoutTest, EveryPanelHasItsPlacesAndTheStripsCoverNoText) {
    const struct {
        std::vector<int> panels;
        const char* name;
        QRect place;  ///< in 800 x 800 pixels
    } rows[] = {
        {{1, 0, -1}, "picToolBar", {0, 0, 2200, 22}},
        {{1, 0, -1}, "SB1", {0, 782, 800, 18}},
        {{1, 0}, "KELP_RTBSyntax1", {0, 24, 583, 719}},
        {{1, 0}, "SB2", {0, 741, 800, 41}},
        {{1, 0}, "txtError", {5, 5, 790, 30}},
        {{1}, "TreeView1", {583, 23, 217, 566}},
        {{1}, "Picture1", {583, 588, 217, 153}},
        {{0}, "TreeView2", {583, 23, 217, 734}},
        // alone only the editor moves
        {{-1}, "KELP_RTBSyntax1", {0, 24, 800, 800}},
        {{-1}, "SB2", {0, 684, 921, 41}},
        {{-1}, "txtError", {5, 5, 905, 30}},
    };
    for (const int panel : {1, 0, -1}) {
        SCOPED_TRACE(panel);
        startWith(panel);
        window().resize(window().size() - control("SB1").parentWidget()->size() + QSize(800, 800));
        for (const auto& [panels, name, expected] : rows) {
            if (std::ranges::count(panels, panel) == 0) continue;
            const QRect found = place(name);
            EXPECT_EQ(found, expected) << name << ' ' << found.x() << ' ' << found.y() << ' '
                                       << found.width() << ' ' << found.height();
        }
        for (const QSize& size : {QSize(799, 641), QSize(1200, 900), QSize(340, 340)}) {
            window().resize(size);
            QCoreApplication::processEvents();
            EXPECT_LT(place("SB2").bottom(), place("SB1").top());
            const int clear = std::min(place("SB1").top(), place("SB2").top());
            const QWidget& tree = control("TreeView2");  // no margins of its own
            EXPECT_LE(tree.mapTo(&window(), tree.rect().bottomLeft()).y(),
                      control("SB2").mapTo(&window(), QPoint()).y());
            const QRect view = editor().rtb().geometry().translated(editor().pos());
            EXPECT_LE(view.y() + view.height(), clear) << "covered by a strip";
            EXPECT_GT(view.y() + view.height(), clear - 4) << "width " << size.width();
        }
    }
}

TEST_F(MainLayoutTest, ThePanelsHaveLeastSizesOfTheWindowWithItsFrame) {
    startWith(1);
    const auto least = [this] {
        window().resize(10, 10);
        return window().frameGeometry().size();
    };
    EXPECT_EQ(least(), QSize(Twips::toPixels(5000), Twips::toPixels(5000)));
    trigger("funScriptTar");
    EXPECT_EQ(least(), QSize(Twips::toPixels(5000), Twips::toPixels(4000)));
    trigger("funScriptTar");
    least();
    EXPECT_EQ(window().size(), QSize(10, 10));
    trigger("funShowCmd");
    EXPECT_EQ(window().frameGeometry().size(), QSize(Twips::toPixels(5000), Twips::toPixels(5000)));
}

TEST_F(MainLayoutTest, StripsGrowWithTheFont) {
    startWith(1);
    QFont font = window().font();
    font.setPointSize(40);
    window().setFont(font);
    const int line = QFontMetrics(font).height();
    EXPECT_GE(place("SB1").height(), line);
    EXPECT_GE(place("txtError").height(), line);
    EXPECT_LE(place("SB2").bottom(), place("SB1").top());
}

}  // namespace
}  // namespace brindlex
