# The default toolchain: the machine's own compiler, made to build for 32-bit i386 where it can build for x86 at all.
#
# CXX and CC choose another compiler (clang++ and clang work as well); CMAKE_TOOLCHAIN_FILE replaces this file.

if(CMAKE_CXX_COMPILER)
  set(gorvanet_cxx ${CMAKE_CXX_COMPILER})
elseif(DEFINED ENV{CXX})
  set(gorvanet_cxx $ENV{CXX})
else()
  set(gorvanet_cxx c++)
endif()

execute_process(
  COMMAND ${gorvanet_cxx} -dumpmachine
  OUTPUT_VARIABLE gorvanet_machine
  ERROR_QUIET
  OUTPUT_STRIP_TRAILING_WHITESPACE)

if(gorvanet_machine MATCHES "^(x86_64|i[3-6]86)-")
  # A plain i686 runs the result: nothing wider than its instructions.
  set(CMAKE_C_FLAGS_INIT "-m32 -march=i686")
  set(CMAKE_CXX_FLAGS_INIT "-m32 -march=i686")
endif()
