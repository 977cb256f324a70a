# gorvanet_times: the library and every peer that is installed for i386. Peers that are not are left out, and named.

set(directory ${CMAKE_CURRENT_LIST_DIR})
# Debian's place for i386, which CMake does not search on another architecture.
set(i386_libraries /usr/lib/i386-linux-gnu)

find_library(GORVANET_BENCHMARK benchmark PATHS ${i386_libraries} NO_DEFAULT_PATH)
if(NOT GORVANET_BENCHMARK)
  message(STATUS "Left out: all times; Google Benchmark is not installed for i386")
  add_custom_target(gorvanet_times)
  return()
endif()

add_executable(gorvanet_times EXCLUDE_FROM_ALL ${directory}/times.cpp ${directory}/gorvanet.cpp
  ${directory}/yardsticks.cpp)
target_link_libraries(gorvanet_times PRIVATE gorvanet_workloads gorvanet_warnings ${GORVANET_BENCHMARK})
# Peers without their assertions; their headers are not ours to warn about.
target_compile_definitions(gorvanet_times PRIVATE NDEBUG)

function(leave_out peer)
  message(STATUS "Left out: ${peer}, which is not installed for i386")
endfunction()

find_path(GORVANET_MSGPUCK msgpuck.h)
if(GORVANET_MSGPUCK)
  add_library(gorvanet_msgpuck OBJECT ${directory}/msgpuck.c)
  target_compile_definitions(gorvanet_msgpuck PRIVATE NDEBUG)
  target_sources(gorvanet_times PRIVATE ${directory}/msgpack.cpp)
  target_link_libraries(gorvanet_times PRIVATE gorvanet_msgpuck)
else()
  leave_out(MessagePack)
endif()

find_library(GORVANET_LIBMNL mnl PATHS ${i386_libraries} NO_DEFAULT_PATH)
if(GORVANET_LIBMNL)
  target_sources(gorvanet_times PRIVATE ${directory}/netlink.cpp)
  target_link_libraries(gorvanet_times PRIVATE ${GORVANET_LIBMNL})
else()
  leave_out("netlink attributes")
endif()

set(generated ${CMAKE_CURRENT_BINARY_DIR}/generated)
set(schemas ${directory}/schemas)
file(MAKE_DIRECTORY ${generated})
target_include_directories(gorvanet_times SYSTEM PRIVATE ${generated})

find_program(GORVANET_FLATC flatc)
find_path(GORVANET_FLATBUFFERS flatbuffers/flatbuffers.h)
if(GORVANET_FLATC AND GORVANET_FLATBUFFERS)
  add_custom_command(
    OUTPUT ${generated}/records_generated.h
    COMMAND ${GORVANET_FLATC} --cpp -o ${generated} ${schemas}/records.fbs
    DEPENDS ${schemas}/records.fbs)
  target_sources(gorvanet_times PRIVATE ${directory}/flatbuffers.cpp ${generated}/records_generated.h)
else()
  leave_out(FlatBuffers)
endif()

find_program(GORVANET_NANOPB_GENERATOR nanopb_generator.py)
find_library(GORVANET_NANOPB protobuf-nanopb PATHS ${i386_libraries} NO_DEFAULT_PATH)
if(GORVANET_NANOPB_GENERATOR AND GORVANET_NANOPB)
  add_custom_command(
    OUTPUT ${generated}/records.pb.c ${generated}/records.pb.h
    COMMAND ${GORVANET_NANOPB_GENERATOR} -q -D ${generated} -I ${schemas} ${schemas}/records.proto
    DEPENDS ${schemas}/records.proto)
  target_sources(gorvanet_times PRIVATE ${directory}/nanopb.cpp ${generated}/records.pb.c)
  set_source_files_properties(${generated}/records.pb.c PROPERTIES COMPILE_OPTIONS -w)
  target_link_libraries(gorvanet_times PRIVATE ${GORVANET_NANOPB})
else()
  leave_out(nanopb)
endif()

find_library(GORVANET_SYSTEMD systemd PATHS ${i386_libraries} NO_DEFAULT_PATH)
find_path(GORVANET_SD_BUS systemd/sd-bus.h)
if(GORVANET_SYSTEMD AND GORVANET_SD_BUS)
  target_sources(gorvanet_times PRIVATE ${directory}/sd_bus.cpp)
  target_link_libraries(gorvanet_times PRIVATE ${GORVANET_SYSTEMD})
else()
  leave_out(sd-bus)
endif()
