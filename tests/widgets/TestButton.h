#pragma once

#include "support/FakeDesktop.h"
#include "widgets/XPButton.h"

namespace brindlex {

/// A host that a test sets.
struct TestHost : XPButtonHost {
    bool userMode = true;
    bool displayAsDefault = false;
    ColorValue backColor = kButtonFace;
    QFont font{"Courier New", 11};

    bool UserMode() const override { return userMode; }
    bool DisplayAsDefault() const override { return displayAsDefault; }
    ColorValue BackColor() const override { return backColor; }
    QString DisplayName() const override { return QStringLiteral("btnOne"); }
    std::optional<QFont> containerFont() const override { return font; }
    void propertyChanged(const QString&) override {}
};

inline QImage plainImage(const QSize& size, const QColor& color) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

}  // namespace brindlex
