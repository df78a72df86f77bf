#pragma once

#include <QRectF>
#include <QSize>

#include "shell/SidePanels.h"

class QWidget;

namespace brindlex {

class KELP_RTBSyntax;

/// Where the controls of the main window stand. Lengths are in twips, from the top left corner of
/// the window's inner area (below the menu), except where pixels are named.
///
/// Beside a panel the editor ends at the strip SB2. Alone it covers the window, and SB2 stays where
/// it was: if that leaves enough room beside it or below it, the text goes on there.
class MainLayout {
  public:
    /// The controls, none of them owned. The strips at the bottom lie over what they overlap.
    struct Controls {
        QWidget& inner;  ///< their parent: its size is the window's inner size
        QWidget& picToolBar;
        KELP_RTBSyntax& KELP_RTBSyntax1;
        QWidget& TreeView1;
        QWidget& Picture1;
        QWidget& TreeView2;
        QWidget& SB2;
        QWidget& txtError;
        QWidget& SB1;
    };

    static constexpr double kFirstInnerWidth = 13980;
    static constexpr double kFirstInnerHeight = 11130;

    /// Moves nothing yet.
    explicit MainLayout(const Controls& controls);

    /// The least size of the window with its frame while this panel shows; pixels, 0 for no limit.
    static QSize leastSize(SidePanel panel);
    /// Moves the controls that show for the present inner size.
    void arrange(SidePanel panel);

  private:
    struct Place {
        QWidget& widget;
        QRectF twips;
    };
    static void move(Place& place, const QRectF& twips);
    void growWithFont();
    void arrangeWithCommands(double w, double h);
    void arrangeWithEntities(double w, double h);
    void arrangeAlone(double w, double h);
    void arrangeEditorBeside(const Place& panel, double w, double h);
    void arrangeStrip(double w, double h);
    void keepEditorClear();

    QWidget& inner_;
    Place picToolBar_;
    KELP_RTBSyntax& KELP_RTBSyntax1_;
    QWidget* besideBar_;  // the room left of the editor's horizontal scroll bar
    Place editor_;
    Place TreeView1_;
    Place Picture1_;
    Place TreeView2_;
    Place SB2_;
    Place txtError_;
    Place SB1_;
};

}  // namespace brindlex
