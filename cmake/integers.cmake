# Clang's integer checks in the library, for scripts/analyse: the preset `integers` has this included by project(). What
# they find is reported, and the process goes on. Wraps that are meant are listed in meant_wraps.txt.

set(gorvanet_integer_checks
  -fsanitize=undefined,unsigned-integer-overflow,unsigned-shift-base,implicit-conversion
  # These two would make the library import C++ runtime symbols.
  -fno-sanitize=function,vptr)

function(gorvanet_check_integers)
  set(wraps ${PROJECT_SOURCE_DIR}/cmake/meant_wraps.txt)
  target_compile_options(gorvanet PRIVATE ${gorvanet_integer_checks} -fsanitize-ignorelist=${wraps})
  get_target_property(sources gorvanet SOURCES)
  set_source_files_properties(${sources} PROPERTIES OBJECT_DEPENDS ${wraps})
endfunction()

# The library is defined later; every executable that loads it brings the checks' runtime.
cmake_language(DEFER CALL gorvanet_check_integers)
add_link_options(${gorvanet_integer_checks})
