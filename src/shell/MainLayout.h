#pragma once

#include <QRectF>
#include <QSize>

#include "shell/SidePanels.h"

class QWidget;

namespace brindlex {

/// Where the controls of the main window stand. Lengths are in twips, from the top left corner of
/// the window's inner area (below the menu), except where pixels are named.
class MainLayout {
  public:
    /// The controls, none of them owned. Strips at the bottom lie above what they overlap.
    struct Controls {
        QWidget& inner;  ///< their parent: its size is the window's inner size
        QWidget& picToolBar;
        QWidget& KELP_RTBSyntax1;
        QWidget& TreeView1;
        QWidget& Picture1;
        QWidget& TreeView2;
        QWidget& SB2;
        QWidget& txtError;
        QWidget& SB1;
    };

    static constexpr double kFirstInnerWidth = 13980;
    static constexpr double kFirstInnerHeight = 11130;

    /// Puts every control at its first place.
    explicit MainLayout(const Controls& controls);

    /// The least size of the window, frame and all, with this panel; pixels, 0 for no limit.
    static QSize leastSize(SidePanel panel);
    /// Moves the controls for the present inner size.
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
    void keepClearOfStrips(QWidget& widget) const;

    QWidget& inner_;
    Place picToolBar_;
    Place editor_;
    Place TreeView1_;
    Place Picture1_;
    Place TreeView2_;
    Place SB2_;
    Place txtError_;
    Place SB1_;
};

}  // namespace brindlex
