# Warnings are errors, for the library, the hosts, the examples and the tests alike.

add_library(gorvanet_warnings INTERFACE)
target_compile_options(gorvanet_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Werror
  # Designated initialisers leave the rest zero, which is meant.
  -Wno-missing-field-initializers
  -Wconversion -Wsign-conversion -Wshadow -Wundef -Wformat=2 -Wcast-qual
  $<$<COMPILE_LANGUAGE:CXX>:-Wmissing-declarations -Wold-style-cast -Wnon-virtual-dtor>
  $<$<COMPILE_LANGUAGE:C>:-Wmissing-prototypes -Wstrict-prototypes>)
