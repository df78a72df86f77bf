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

TEST_F(MainLayoutTest, NothingHidesAPanelTheTextOrItsScrollBars) {
    const struct {
        int panel;
        QSize inner;
        QRect view;
    } rows[] = {
        {1, {799, 641}, {0, 24, 582, 558}},    {0, {799, 641}, {0, 24, 582, 558}},
        {-1, {800, 800}, {0, 24, 800, 758}},   {-1, {900, 740}, {0, 24, 900, 657}},
        {-1, {1600, 740}, {0, 24, 1600, 698}}, {-1, {340, 340}, {0, 24, 340, 257}},
    };
    std::string text;
    for (int i = 0; i < 120; ++i) text += std::string(i % 9 == 0 ? 300 : 5, 'x') + "\r\n";
    for (const auto& [panel, size, place] : rows) {
        SCOPED_TRACE(testing::Message() << panel << ": " << size.width() << " x " << size.height());
        startWith(panel);
        editor().SetText(text);
        resizeInner(size);
        RichTextView& view = editor().rtb();
        EXPECT_EQ(shown(view), place);
        const QRect strip = shown(control("SB2"));
        QRegion covered = strip;
        for (const char* name : {"picToolBar", "SB1", "TreeView1", "Picture1", "TreeView2"}) {
            if (!control(name).isVisible()) continue;
            // two places in twips may share a row of pixels
            const QRect part = shown(control(name)).adjusted(0, 1, 0, 0);
            EXPECT_FALSE(covered.intersects(part)) << name;
            covered += part;
        }
        EXPECT_FALSE((covered - strip).intersects(place));
        EXPECT_TRUE(inner().rect().contains(covered.boundingRect().bottomLeft()));
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
    window().resize(10, 10);
    EXPECT_EQ(window().frameGeometry().size(), QSize(Twips::toPixels(5000), Twips::toPixels(5000)));
    trigger("funScriptTar");
    window().resize(10, 10);
    EXPECT_EQ(window().frameGeometry().size(), QSize(Twips::toPixels(5000), Twips::toPixels(4000)));
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
