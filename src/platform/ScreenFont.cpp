#include "platform/ScreenFont.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QStringList>

namespace brindlex {

QFont screenFont(const QFont& font) {
    QFont shown = font;
    shown.setKerning(false);
    shown.setStyleStrategy(QFont::PreferNoShaping);
    if (QFontDatabase::hasFamily(font.family())) return shown;
    shown.setStyleHint(QFont::Monospace);
    const QFontInfo substitute(shown);
    const QString family = substitute.fixedPitch()
                               ? substitute.family()
                               : QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
    shown.setFamilies(QStringList(family));
    return shown;
}

}  // namespace brindlex
