# find_package(gorvanet) gives
#
#     Gorvanet::gorvanet  the shared library
#     Gorvanet::loopback  the bus inside one process, for tests
#     Gorvanet::testing   the test bench on it, for unit tests

include(${CMAKE_CURRENT_LIST_DIR}/gorvanet-targets.cmake)
