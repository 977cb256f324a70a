# Clang's counters in the library, for scripts/mcdc: the preset `mcdc` has this included by project().

function(gorvanet_count_conditions)
  set(counters -fprofile-instr-generate -fcoverage-mapping -fcoverage-mcdc)
  target_compile_options(gorvanet PRIVATE ${counters})
  target_link_options(gorvanet PRIVATE ${counters})
  # The counters are written at exit, which takes the start files.
  get_target_property(options gorvanet LINK_OPTIONS)
  list(REMOVE_ITEM options -nostartfiles)
  set_target_properties(gorvanet PROPERTIES LINK_OPTIONS "${options}")
endfunction()

# The library is defined later.
cmake_language(DEFER CALL gorvanet_count_conditions)
