#include "shell/MainLayout.h"

#include "ShellTest.h"
#include "platform/Twips.h"

namespace brindlex {
namespace {

/// Left, Top, Width, Height in twips, as pixels.
QRect at(double left, double top, double width, double height) {
    const QPoint start(Twips::toPixels(left), Twips::toPixels(top));
    const QPoint end(Twips::toPixels(left + width), Twips::toPixels(top + height));
    return {start, QSize(std::max(0, end.x() - start.x()), std::max(0, end.y() - start.y()))};
}

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
    void expectPlace(const char* name, const QRect& expected) {
        const QRect found = place(name);
        EXPECT_EQ(found, expected) << name << ' ' << found.x() << ' ' << found.y() << ' '
                                   << found.width() << ' ' << found.height();
    }
};

TEST_F(MainLayoutTest, EveryPanelHasItsPlacesAndTheStripsCoverNoText) {
    for (const int panel : {1, 0, -1}) {
        startWith(panel);
        const QWidget& inside = *control("SB1").parentWidget();
        for (const QSize& size : {QSize(799, 641), QSize(1200, 900), QSize(340, 340)}) {
            SCOPED_TRACE(testing::Message() << "panel " << panel << " width " << size.width());
            window().resize(size);
            const double w = Twips::fromPixels(inside.width());
            const double h = Twips::fromPixels(inside.height());
            expectPlace("SB1", at(0, h - 270, w, 270));
            expectPlace("picToolBar", at(0, 0, 33000, 330));
            if (panel == 1) {
                expectPlace("Picture1", at(w - 3255, h - 2295 - 270 - 615, 3255, 2295));
                expectPlace("TreeView1", at(w - 3255, 340, 3255, h - 2295 - 270 - 615 - 330));
            }
            if (panel == 0) expectPlace("TreeView2", at(w - 3255, 340, 3255, h - 270 - 615 - 100));
            if (panel == -1) {  // alone only the editor moves
                expectPlace("KELP_RTBSyntax1", at(0, 360, w, h));
                expectPlace("SB2", at(0, std::min(10260.0, h - 270 - 615), 13815, 615));
                expectPlace("txtError", at(75, 75, 13575, 450));
            } else {
                expectPlace("KELP_RTBSyntax1", at(0, 360, w - 3255, h - 270 - 615 - 330));
                expectPlace("SB2", at(0, h - 615 - 270, w, 615));
                expectPlace("txtError", at(75, 75, w - 150, 450));
            }
            QCoreApplication::processEvents();
            const int clear = std::min(place("SB1").top(), place("SB2").top());
            const QWidget& tree = control("TreeView2");  // no margins of its own
            EXPECT_LE(tree.mapTo(&window(), tree.rect().bottomLeft()).y(),
                      control("SB2").mapTo(&window(), QPoint()).y());
            const QRect view = editor().rtb().geometry().translated(editor().pos());
            EXPECT_LE(view.y() + view.height(), clear) << "covered by a strip";
            EXPECT_GT(view.y() + view.height(), clear - 4);
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
