# Counters in the library, for scripts/coverage: the preset `coverage` has this included by project(). The rest of the
# build stays as it is: what the tests themselves reach is of no interest.

function(gorvanet_count_coverage)
  target_compile_options(gorvanet PRIVATE --coverage)
  target_link_options(gorvanet PRIVATE --coverage)
endfunction()

# The library is defined later.
cmake_language(DEFER CALL gorvanet_count_coverage)
