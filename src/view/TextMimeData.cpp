#include "view/TextMimeData.h"

#include <QVariant>

namespace brindlex {
namespace {

const QString& plainText() {
    static const QString name = QStringLiteral("text/plain");
    return name;
}

#ifdef Q_OS_WIN
constexpr bool kSystemHasCrLf = true;
#else
constexpr bool kSystemHasCrLf = false;
#endif

}  // namespace

QStringList TextMimeData::formats() const {
    return {plainText()};
}

bool TextMimeData::hasFormat(const QString& mimeType) const {
    return mimeType == plainText();
}

QVariant TextMimeData::retrieveData(const QString& mimeType, QMetaType type) const {
    if (!hasFormat(mimeType)) return QMimeData::retrieveData(mimeType, type);
    if (converted_.isEmpty()) {
        converted_ = codePage_.toUnicode(text_.bytes(range_));
        if (!kSystemHasCrLf) converted_.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    }
    return converted_;
}

}  // namespace brindlex
