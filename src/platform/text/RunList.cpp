#include "platform/text/RunList.h"

namespace brindlex {

template class BasicRunList<64, 8>;

}  // namespace brindlex
