#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QStringView>
#include <QWidget>

namespace brindlex::bench {

/// Types words by key events, a line break now and then.
class Typist {
  public:
    explicit Typist(QWidget& target) : target_(target) {}
    void typeNext() {
        const QChar c = kText[at_++ % kText.size()];
        const int key = c == u'\n' ? int{Qt::Key_Return} : int{c.toUpper().unicode()};
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier,
                        c == u'\n' ? QStringLiteral("\r") : QString(c));
        QApplication::sendEvent(&target_, &press);
    }

  private:
    static constexpr QStringView kText =
        u"wait 150 setstate gate_4 invisible trigger tank_1 stop // then on\n";
    QWidget& target_;
    qsizetype at_ = 0;
};

}  // namespace brindlex::bench
