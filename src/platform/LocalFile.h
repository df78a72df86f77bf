#pragma once

#include <QString>

class QMimeData;

namespace brindlex {

/// The first file of this machine among what is dragged; empty when there is none.
QString localFileOf(const QMimeData& data);

}  // namespace brindlex
