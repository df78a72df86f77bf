#pragma once

#include <QMimeData>
#include <utility>

#include "system/CodePage.h"
#include "text/Rope.h"
#include "text/Units.h"

namespace brindlex {

/// A part of a text for the clipboard, the primary selection or a drag: plain text with the line
/// ends of the system. It keeps the text as it is when this is made, at the cost of a pointer, and
/// converts it once, when somebody asks for it.
class TextMimeData : public QMimeData {
  public:
    /// `range` lies within `text`.
    TextMimeData(Rope text, Range range, const CodePage& codePage)
        : text_(std::move(text)), range_(range), codePage_(codePage) {}

    QStringList formats() const override;
    bool hasFormat(const QString& mimeType) const override;

  protected:
    QVariant retrieveData(const QString& mimeType, QMetaType type) const override;

  private:
    Rope text_;
    Range range_;
    CodePage codePage_;  // a copy: the system's clipboard outlives every owner
    mutable QString converted_;
};

}  // namespace brindlex
