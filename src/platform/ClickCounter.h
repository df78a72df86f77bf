#pragma once

#include <QElapsedTimer>
#include <QPoint>

namespace brindlex {

/// Tells a third click from a first one: the toolkit counts up to two. Time and distance are those
/// of the system's double click.
class ClickCounter {
  public:
    /// The toolkit reported a double click.
    void doubleClicked(QPoint at);
    /// The toolkit reported a press: true when it follows close upon the double click.
    bool isTriple(QPoint at);

  private:
    QElapsedTimer sinceDouble_;
    QPoint place_;
};

}  // namespace brindlex
