# Counters in the library, for scripts/coverage: the preset `coverage` has this included by project(). The rest of the
# build stays as it is: what the tests themselves reach is of no interest.

function(gorvanet_count_coverage)
  # A function that is always inlined would count anew wherever it is called.
  target_compile_options(gorvanet PRIVATE --coverage -Dalways_inline=unused)
  target_link_options(gorvanet PRIVATE --coverage)
endfunction()

# The library is defined later.
cmake_language(DEFER CALL gorvanet_count_coverage)
