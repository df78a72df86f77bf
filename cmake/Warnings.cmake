# The warnings that the code is free of. BRINDLEX_WERROR makes them errors.
add_library(brindlex_options INTERFACE)
if(MSVC)
  target_compile_options(brindlex_options INTERFACE /W4 $<$<BOOL:${BRINDLEX_WERROR}>:/WX> /utf-8 /permissive-)
else()
  target_compile_options(brindlex_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
    $<$<BOOL:${BRINDLEX_WERROR}>:-Werror>)
endif()
target_include_directories(brindlex_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 sees an overlap in `"literal" + string` where there is none.
  target_compile_options(brindlex_options INTERFACE -Wno-restrict)
  if(BRINDLEX_SANITIZE)
    # What the sanitisers add hides from it what <regex> sets.
    target_compile_options(brindlex_options INTERFACE -Wno-maybe-uninitialized)
  endif()
endif()
if(BRINDLEX_SANITIZE)
  target_compile_options(brindlex_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(brindlex_options INTERFACE -fsanitize=address,undefined)
endif()
