#include "text/Rope.h"

namespace brindlex {

template class BasicRope<512, 8>;

}  // namespace brindlex
