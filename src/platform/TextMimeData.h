#pragma once

#include <QMimeData>
#include <utility>

#include "platform/CodePage.h"
#include "platform/text/Rope.h"
#include "platform/text/Units.h"

namespace brindlex {

/// A stretch of a text on its way to another program, as plain text with the system's line ends. It
/// keeps the text as it was when this was made, at the cost of a pointer, and makes the plain text
/// when somebody asks for it.
class TextMimeData : public QMimeData {
  public:
    /// `codePage` outlives this object; `range` lies within `text`.
    TextMimeData(Rope text, Range range, const CodePage& codePage)
        : text_(std::move(text)), range_(range), codePage_(codePage) {}

    QStringList formats() const override;
    bool hasFormat(const QString& mimeType) const override;

  protected:
    QVariant retrieveData(const QString& mimeType, QMetaType type) const override;

  private:
    Rope text_;
    Range range_;
    const CodePage& codePage_;
};

}  // namespace brindlex
