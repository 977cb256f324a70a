# find_package(gorvanet) gives
#
#     Gorvanet::gorvanet  the shared library
#     Gorvanet::loopback  the bus inside one process, for tests
#     Gorvanet::testing   the test bench on it, for unit tests
#     Gorvanet::dbus      the bus between processes, over D-Bus, where it is installed
#
# and fails where one of its COMPONENTS is not there: find_package(gorvanet REQUIRED COMPONENTS dbus).

include(${CMAKE_CURRENT_LIST_DIR}/gorvanet-targets.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/gorvanet-dbus-targets.cmake OPTIONAL)

foreach(component IN LISTS gorvanet_FIND_COMPONENTS)
  if(TARGET Gorvanet::${component})
    set(gorvanet_${component}_FOUND TRUE)
  elseif(gorvanet_FIND_REQUIRED_${component})
    set(gorvanet_FOUND FALSE)
    set(gorvanet_NOT_FOUND_MESSAGE "Gorvanet::${component} is not installed")
  endif()
endforeach()
