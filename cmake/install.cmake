# What `cmake --install` puts where: component `runtime` is what a process needs that runs with the library, component
# `development` what is needed to build one, component `dbus` what is needed besides to build one that runs over D-Bus,
# component `tools` what people look at a bus with.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(gorvanet_cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/gorvanet)
set(gorvanet_pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(TARGETS gorvanet
  EXPORT gorvanet-targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development)
install(TARGETS gorvanet_loopback gorvanet_testing
  EXPORT gorvanet-targets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(FILES include/gorvanet.h hosts/loopback/gorvanet_loopback.h hosts/testing/gorvanet_testing.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)

# The targets have the same names here as where they are installed.
set_target_properties(gorvanet_loopback PROPERTIES EXPORT_NAME loopback)
set_target_properties(gorvanet_testing PROPERTIES EXPORT_NAME testing)
add_library(Gorvanet::gorvanet ALIAS gorvanet)
add_library(Gorvanet::loopback ALIAS gorvanet_loopback)
add_library(Gorvanet::testing ALIAS gorvanet_testing)
# C programs link what is C++ inside.
target_link_libraries(gorvanet_loopback INTERFACE $<INSTALL_INTERFACE:stdc++>)

# For pkg-config. The files find their prefix from where they are, so that it can be chosen, and moved, after the build.
set(gorvanet_pc_prefix /)
cmake_path(RELATIVE_PATH gorvanet_pc_prefix BASE_DIRECTORY /${gorvanet_pkgconfig_dir})
get_target_property(gorvanet_host_options gorvanet_loopback INTERFACE_LINK_OPTIONS)
function(install_pc name component)
  configure_file(packaging/${name}.pc.in ${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${gorvanet_pkgconfig_dir} COMPONENT ${component})
endfunction()
install_pc(gorvanet development)
install_pc(gorvanet-loopback development)
install_pc(gorvanet-testing development)

# For find_package. The version file also turns away a consumer whose pointers have another size.
install(EXPORT gorvanet-targets NAMESPACE Gorvanet::
  DESTINATION ${gorvanet_cmake_dir} COMPONENT development)
write_basic_package_version_file(gorvanet-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES packaging/gorvanet-config.cmake ${PROJECT_BINARY_DIR}/gorvanet-config-version.cmake
  DESTINATION ${gorvanet_cmake_dir} COMPONENT development)

# The D-Bus host, where it was built. It has an export of its own: it may be absent where the rest is installed.
if(TARGET gorvanet_dbus)
  install(TARGETS gorvanet_dbus
    EXPORT gorvanet-dbus-targets
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dbus)
  install(FILES hosts/dbus/gorvanet_dbus.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dbus)
  set_target_properties(gorvanet_dbus PROPERTIES EXPORT_NAME dbus)
  add_library(Gorvanet::dbus ALIAS gorvanet_dbus)
  cmake_path(GET GORVANET_LIBSYSTEMD PARENT_PATH gorvanet_libsystemd_dir)
  target_link_directories(gorvanet_dbus INTERFACE $<INSTALL_INTERFACE:${gorvanet_libsystemd_dir}>)
  target_link_libraries(gorvanet_dbus INTERFACE $<INSTALL_INTERFACE:systemd> $<INSTALL_INTERFACE:stdc++>)
  install_pc(gorvanet-dbus dbus)
  install(EXPORT gorvanet-dbus-targets NAMESPACE Gorvanet::
    DESTINATION ${gorvanet_cmake_dir} COMPONENT dbus)
endif()

# The commands find the rest from where they are.
install(PROGRAMS tools/decode/gorvanet-decode
  DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tools)
install(DIRECTORY tools/decode/gorvanet_decode
  DESTINATION ${CMAKE_INSTALL_DATADIR}/gorvanet COMPONENT tools FILES_MATCHING PATTERN *.py PATTERN __pycache__ EXCLUDE)
install(FILES interface/gorvanet.json tools/wireshark/gorvanet.lua
  DESTINATION ${CMAKE_INSTALL_DATADIR}/gorvanet COMPONENT tools)
if(TARGET gorvanet_trace)
  install(TARGETS gorvanet_trace
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/gorvanet COMPONENT tools)
  install(PROGRAMS tools/trace/gorvanet-trace
    DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tools)
endif()
