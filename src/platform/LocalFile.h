#pragma once

#include <QString>

class QDropEvent;
class QMimeData;

namespace brindlex {

/// The first file of this machine among what is dragged; empty when there is none.
QString localFileOf(const QMimeData& data);

/// Takes that file, which comes over the widget or is dropped on it, as a copy: the event is
/// accepted. Empty, and the event is left alone, when there is none.
QString acceptFile(QDropEvent& event);

}  // namespace brindlex
