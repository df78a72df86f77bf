#include "shell/MainLayout.h"

#include <QFontMetrics>
#include <QScrollBar>
#include <QWidget>
#include <algorithm>

#include "editor/KELP_RTBSyntax.h"
#include "system/Twips.h"

namespace brindlex {
namespace {

constexpr double kToolBarHeight = 330;
constexpr double kToolBarWidth = 33000;
constexpr double kEditorTop = 360;
constexpr double kStatusHeight = 270;
constexpr double kStripHeight = 615;
constexpr double kStripInset = 75;
constexpr double kListHeight = 450;  // of txtError in a strip of kStripHeight

/// The height of a line of the widget's font with `padding` pixels round it.
double lineHeight(const QWidget& widget, int padding) {
    return Twips::fromPixels(widget.fontMetrics().height() + padding);
}

/// What the widget holds ends at the height `bottom` of its parent, in pixels.
void endContentsAt(QWidget& widget, int bottom) {
    const int below = widget.y() + widget.height() - bottom;
    widget.setContentsMargins(0, 0, 0, std::clamp(below, 0, widget.height()));
}

}  // namespace

MainLayout::MainLayout(const Controls& controls)
    : inner_(controls.inner),
      picToolBar_{controls.picToolBar, {0, 0, kToolBarWidth, kToolBarHeight}},
      KELP_RTBSyntax1_(controls.KELP_RTBSyntax1),
      besideBar_(new QWidget(&controls.KELP_RTBSyntax1)),
      editor_{controls.KELP_RTBSyntax1, {0, kEditorTop, 10605, 9435}},
      TreeView1_{controls.TreeView1, {10560, 360, 3255, 7815}},
      Picture1_{controls.Picture1, {10560, 8160, 3255, 2295}},
      TreeView2_{controls.TreeView2, {10560, 360, 3255, 7815}},
      SB2_{controls.SB2, {0, 10260, 13815, kStripHeight}},
      txtError_{controls.txtError, {kStripInset, kStripInset, 13575, kListHeight}},
      SB1_{controls.SB1, {0, 10860, 13980, kStatusHeight}} {
    KELP_RTBSyntax1_.rtb().addScrollBarWidget(besideBar_, Qt::AlignLeft);
}

QSize MainLayout::leastSize(SidePanel panel) {
    switch (panel) {
        case SidePanel::Commands:
            return {Twips::toPixels(5000), Twips::toPixels(5000)};
        case SidePanel::Entities:
            return {Twips::toPixels(5000), Twips::toPixels(4000)};
        case SidePanel::None:
            break;
    }
    return {0, 0};
}

void MainLayout::move(Place& place, const QRectF& twips) {
    place.twips = twips;
    const QPoint topLeft(Twips::toPixels(twips.left()), Twips::toPixels(twips.top()));
    const QPoint end(Twips::toPixels(twips.right()), Twips::toPixels(twips.bottom()));
    place.widget.setGeometry(topLeft.x(), topLeft.y(), std::max(0, end.x() - topLeft.x()),
                             std::max(0, end.y() - topLeft.y()));
}

void MainLayout::arrange(SidePanel panel) {
    const double w = Twips::fromPixels(inner_.width());
    const double h = Twips::fromPixels(inner_.height());
    growWithFont();
    move(picToolBar_, picToolBar_.twips);
    move(SB1_, {0, h - SB1_.twips.height(), w, SB1_.twips.height()});
    switch (panel) {
        case SidePanel::Commands:
            arrangeWithCommands(w, h);
            break;
        case SidePanel::Entities:
            arrangeWithEntities(w, h);
            break;
        case SidePanel::None:
            arrangeAlone(w, h);
            break;
    }
    endContentsAt(TreeView2_.widget, SB2_.widget.y());
    keepEditorClear();
}

void MainLayout::growWithFont() {
    SB1_.twips.setHeight(std::max(kStatusHeight, lineHeight(SB1_.widget, 2)));
    const double strip = std::max(kStripHeight, 2 * kStripInset + lineHeight(txtError_.widget, 10));
    // Strip and list keep their first difference in height.
    txtError_.twips.setHeight(strip - (kStripHeight - kListHeight));
    SB2_.twips.setHeight(strip);
}

void MainLayout::arrangeWithCommands(double w, double h) {
    const double strips = SB1_.twips.height() + SB2_.twips.height();
    const QRectF pane = Picture1_.twips;
    const QRectF tree = TreeView1_.twips;
    move(Picture1_, {w - pane.width(), h - pane.height() - strips, pane.width(), pane.height()});
    move(TreeView1_, {w - tree.width(), editor_.twips.top() - 20, tree.width(),
                      h - pane.height() - strips - picToolBar_.twips.height()});
    arrangeStrip(w, h);
    arrangeEditorBeside(TreeView1_, w, h);
}

void MainLayout::arrangeWithEntities(double w, double h) {
    const QRectF tree = TreeView2_.twips;
    move(TreeView2_, {w - tree.width(), editor_.twips.top() - 20, tree.width(),
                      h - SB1_.twips.height() - SB2_.twips.height() - 100});
    arrangeEditorBeside(TreeView2_, w, h);
    arrangeStrip(w, h);
}

void MainLayout::arrangeAlone(double w, double h) {
    // The strip keeps its place. A window too small for that shows it further up for now.
    const QRectF kept = SB2_.twips;
    QRectF shown = kept;
    shown.moveTop(std::min(kept.top(), h - SB1_.twips.height() - kept.height()));
    move(SB2_, shown);
    SB2_.twips = kept;
    move(txtError_, txtError_.twips);
    move(editor_, {editor_.twips.left(), editor_.twips.top(), w, h});
}

void MainLayout::arrangeEditorBeside(const Place& panel, double w, double h) {
    move(editor_, {editor_.twips.left(), editor_.twips.top(), w - panel.twips.width(),
                   h - SB1_.twips.height() - SB2_.twips.height() - picToolBar_.twips.height()});
}

void MainLayout::arrangeStrip(double w, double h) {
    const QRectF strip = SB2_.twips;
    move(SB2_, {strip.left(), h - strip.height() - SB1_.twips.height(), w, strip.height()});
    const QRectF list = txtError_.twips;
    move(txtError_, {list.left(), list.top(), w - 2 * kStripInset, list.height()});
}

void MainLayout::keepEditorClear() {
    RichTextView& view = KELP_RTBSyntax1_.rtb();
    const int bar = view.horizontalScrollBar()->sizeHint().height();
    const QRect strip = SB2_.widget.geometry();
    const int bottom = SB1_.widget.y();
    const int below = bottom - (strip.y() + strip.height());
    const int beside = inner_.width() - (strip.x() + strip.width());
    const bool textGoesOn = below >= 3 * bar || beside >= 10 * bar;
    endContentsAt(KELP_RTBSyntax1_, textGoesOn ? bottom : strip.y());
    besideBar_->setFixedWidth(textGoesOn && below < bar ? strip.width() : 0);
    const int top = strip.y() - KELP_RTBSyntax1_.y();
    view.setCover(top, textGoesOn ? top + strip.height() : top);
}

}  // namespace brindlex
