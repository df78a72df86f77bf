#pragma once

#include <QString>

class QDropEvent;
class QMimeData;

namespace brindlex {

/// The first file of this machine among what is dragged; empty when there is none.
QString localFileOf(const QMimeData& data);

/// Accepts a drag or drop of such a file as a copy and returns its path. When there is none, the
/// result is empty and the event untouched.
QString acceptFile(QDropEvent& event);

}  // namespace brindlex
