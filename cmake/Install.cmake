# Installs the library as a package: the shared library, the headers under <grafel/...>,
# a CMake package (find_package(Grafel) -> Grafel::grafel) and a pkg-config file.
include(CMakePackageConfigHelpers)

install(TARGETS grafel EXPORT GrafelTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

foreach(header IN LISTS GRAFEL_HEADERS)
  file(RELATIVE_PATH rel ${CMAKE_SOURCE_DIR} ${header})
  get_filename_component(dir ${rel} DIRECTORY)
  install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/grafel/${dir})
endforeach()
foreach(header IN LISTS GRAFEL_GENERATED_HEADERS)
  file(RELATIVE_PATH rel ${GRAFEL_GENERATED_DIR}/grafel ${header})
  get_filename_component(dir ${rel} DIRECTORY)
  install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/grafel/${dir})
endforeach()
install(FILES ${GRAFEL_UMBRELLA} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/grafel)

set(config_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Grafel)
install(EXPORT GrafelTargets NAMESPACE Grafel:: DESTINATION ${config_dir})
configure_package_config_file(cmake/GrafelConfig.cmake.in
  ${CMAKE_BINARY_DIR}/GrafelConfig.cmake INSTALL_DESTINATION ${config_dir})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/GrafelConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/GrafelConfig.cmake ${CMAKE_BINARY_DIR}/GrafelConfigVersion.cmake
  DESTINATION ${config_dir})

file(RELATIVE_PATH PC_PREFIX_FROM_PCFILE /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
configure_file(cmake/grafel.pc.in ${CMAKE_BINARY_DIR}/grafel.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/grafel.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
