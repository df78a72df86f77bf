#pragma once

#include <random>
#include <string>
#include <utility>

#include "support/FakeDesktop.h"
#include "widgets/XPButton.h"

namespace brindlex {

/// A host that a test sets, and that writes down what it is told.
struct TestHost : XPButtonHost {
    bool userMode = true;
    bool displayAsDefault = false;
    ColorValue backColor = kButtonFace;
    QFont font{"Courier New", 11};
    std::string told;

    bool UserMode() const override { return userMode; }
    bool DisplayAsDefault() const override { return displayAsDefault; }
    ColorValue BackColor() const override { return backColor; }
    QString DisplayName() const override { return QStringLiteral("btnOne"); }
    std::optional<QFont> containerFont() const override { return font; }
    void propertyChanged(const QString& key) override { told += key.toStdString() + " "; }
};

inline QImage plainImage(const QSize& size, const QColor& color) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

/// The members that are numbers, with their highest values.
inline constexpr std::pair<void (XPButton::*)(int), int> kNumbers[] = {
    {&XPButton::SetCaptionStyle, 2}, {&XPButton::SetPictureSize, 4},
    {&XPButton::SetPictureAlign, 5}, {&XPButton::SetButtonShape, 7},
    {&XPButton::SetCaptionAlign, 2}, {&XPButton::SetGradientMode, 4},
};

/// Whole numbers from 0 up, the same in each run.
class Dice {
  public:
    explicit Dice(unsigned seed) : random_(seed) {}
    int upTo(int highest) { return static_cast<int>(random_() % (highest + 1U)); }
    void setNumbers(XPButton& button) {
        for (const auto& [set, highest] : kNumbers) (button.*set)(upTo(highest));
    }

  private:
    std::mt19937 random_;
};

}  // namespace brindlex
