# Address and undefined-behaviour sanitizers, for the library and everything that loads it.

set(gorvanet_sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # These two would make the library import C++ runtime symbols.
  list(APPEND gorvanet_sanitizers -fno-sanitize=function,vptr)
endif()
add_compile_options(${gorvanet_sanitizers})
add_link_options(${gorvanet_sanitizers})
