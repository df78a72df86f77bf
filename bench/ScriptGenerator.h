#pragma once

#include <cstddef>
#include <string>

namespace brindlex::bench {

/// A script of at least `bytes` bytes, CR LF line ends, always the same for the same size: blocks
/// with events, commands, operators, strings, comments and names of its own, indented by tabs, in
/// about the shares that mappers' scripts have.
std::string generateScript(std::size_t bytes);

}  // namespace brindlex::bench
