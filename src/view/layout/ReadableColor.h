#pragma once

#include <QColor>
#include <QHash>

namespace brindlex {

/// Colours of text as they show on one background. A colour that cannot be read there is shown
/// lighter or darker, in its own hue, so that its contrast (in the sense of WCAG 2) is kReadable at
/// least.
///
/// The colours of scripts are chosen for a light page. On a light background a colour is left as it
/// is unless it nearly vanishes; on a dark one every colour that is hard to read is changed.
class ReadableColor {
  public:
    static constexpr double kReadable = 4.5;
    static constexpr double kVanishing = 1.5;

    explicit ReadableColor(const QColor& background);
    /// Cached for each colour.
    QColor shown(QRgb color) const;
    /// The contrast of two opaque colours, from 1 to 21.
    static double contrast(const QColor& a, const QColor& b);

  private:
    QColor background_;
    bool dark_;
    mutable QHash<QRgb, QColor> shown_;
};

}  // namespace brindlex
