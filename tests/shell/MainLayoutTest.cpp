#include "shell/MainLayout.h"

#include <QScrollBar>
#include <string>

#include "ShellTest.h"
#include "system/Twips.h"

namespace brindlex {
namespace {

class MainLayoutTest : public ShellTest {
  protected:
    void startWith(int showTreeView) {
        put("ShowTreeView", QString::number(showTreeView));
        start();
        QCoreApplication::processEvents();
    }
    /// The part of the window below the menu gets that size.
    void resizeInner(const QSize& size) {
        window().resize(window().size() - inner().size() + size);
        QCoreApplication::processEvents();
    }
    QWidget& inner() { return *control("SB1").parentWidget(); }
    /// In the part of the window below the menu.
    QRect shown(const QWidget& widget) { return {widget.mapTo(&inner(), QPoint()), widget.size()}; }
};

TEST_F(MainLayoutTest, EveryPanelHasItsPlaces) {
    const struct {
        int panel;
        const char* name;
        QRect place;  ///< in 800 x 800 pixels
    } rows[] = {
        {1, "picToolBar", {0, 0, 2200, 22}},
        {1, "SB1", {0, 782, 800, 18}},
        {1, "KELP_RTBSyntax1", {0, 24, 583, 719}},
        {1, "SB2", {0, 741, 800, 41}},
        {1, "txtError", {5, 746, 790, 30}},
        {1, "TreeView1", {583, 23, 217, 566}},
        {1, "Picture1", {583, 588, 217, 153}},
        {0, "KELP_RTBSyntax1", {0, 24, 583, 719}},
        {0, "TreeView2", {583, 23, 217, 718}},
        // alone only the editor moves
        {-1, "KELP_RTBSyntax1", {0, 24, 800, 800}},
        {-1, "SB2", {0, 684, 921, 41}},
        {-1, "txtError", {5, 689, 905, 30}},
    };
    for (const auto& [panel, name, place] : rows) {
        startWith(panel);
        resizeInner({800, 800});
        EXPECT_EQ(shown(control(name)), place) << name << " beside panel " << panel;
    }
}

TEST_F(MainLayoutTest, TheStripsHideNeitherTextNorScrollBars) {
    const struct {
        int panel;
        QSize inner;
        int viewBottom;
    } rows[] = {
        {1, {799, 641}, 582},  {0, {799, 641}, 582},   {-1, {800, 800}, 782},
        {-1, {900, 740}, 681}, {-1, {1600, 740}, 722}, {-1, {340, 340}, 281},
    };
    std::string text;
    for (int i = 0; i < 120; ++i) text += std::string(i % 9 == 0 ? 300 : 5, 'x') + "\r\n";
    for (const auto& [panel, size, viewBottom] : rows) {
        SCOPED_TRACE(testing::Message() << panel << ": " << size.width() << " x " << size.height());
        startWith(panel);
        editor().SetText(text);
        resizeInner(size);
        RichTextView& view = editor().rtb();
        EXPECT_EQ(shown(view).bottom() + 1, viewBottom);
        const QRect strip = shown(control("SB2"));
        EXPECT_LT(strip.bottom(), shown(control("SB1")).top());
        const QRect viewport = shown(*view.viewport());
        for (Long line = 0; line < editor().GetLineCount(); ++line) {
            editor().SetSelStart(editor().GetCharNr(line) + 1);
            const QRect caret = view.caretRect().translated(viewport.topLeft());
            EXPECT_TRUE(viewport.contains(caret) && !strip.intersects(caret)) << "line " << line;
        }
        QCoreApplication::processEvents();
        const QScrollBar& bar = *view.horizontalScrollBar();
        EXPECT_TRUE(bar.isVisible() && !strip.intersects(shown(bar)));
    }
}

TEST_F(MainLayoutTest, PanelsHaveLeastSizesOfTheWindowAndStripsOfTheFont) {
    startWith(1);
    const auto least = [this](const char* entry) {
        trigger(entry);
        window().resize(10, 10);
        return window().frameGeometry().size();
    };
    EXPECT_EQ(least("funScriptTar"), QSize(Twips::toPixels(5000), Twips::toPixels(4000)));
    EXPECT_LT(least("funScriptTar").width(), 50);
    trigger("funShowCmd");
    EXPECT_EQ(window().frameGeometry().size(), QSize(Twips::toPixels(5000), Twips::toPixels(5000)));
    QFont font = window().font();
    font.setPointSize(40);
    window().setFont(font);
    const int line = QFontMetrics(font).height();
    EXPECT_GE(shown(control("SB1")).height(), line);
    EXPECT_GE(shown(control("txtError")).height(), line);
    EXPECT_LE(shown(control("SB2")).bottom(), shown(control("SB1")).top());
}

}  // namespace
}  // namespace brindlex
