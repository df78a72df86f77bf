#pragma once

#include <QString>
#include <QTextDocument>

namespace brindlex {

/// A tool tip that shows `text` to the letter, also where it looks like markup.
inline QString toolTipText(const QString& text) {
    return Qt::mightBeRichText(text) ? "<qt>" + text.toHtmlEscaped() + "</qt>" : text;
}

}  // namespace brindlex
