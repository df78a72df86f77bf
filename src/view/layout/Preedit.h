#pragma once

#include <QList>
#include <QString>
#include <QTextLayout>

namespace brindlex {

/// Text of an input method that shows at the caret and is not in the box.
struct Preedit {
    QString text;
    QList<QTextLayout::FormatRange> formats;  ///< by offsets into `text`
    int cursor = 0;                           ///< offset into `text`
    bool cursorVisible = true;
};

}  // namespace brindlex
