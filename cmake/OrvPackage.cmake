# The installed tree (cmake --install) and the ZIP (cpack): bin/, lib/, include/orv/, lib/cmake/orvbase.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(CMAKE_INSTALL_LIBDIR lib)
set(package_folder lib/cmake/orvbase)

set(kinds orvbase)
if(TARGET orvbase_static)
  list(APPEND kinds orvbase_static)
endif()
install(TARGETS ${kinds} EXPORT orvbase
  RUNTIME DESTINATION bin
  LIBRARY DESTINATION lib
  ARCHIVE DESTINATION lib)
install(DIRECTORY include/orv DESTINATION include FILES_MATCHING PATTERN "*.h")
install(FILES ${PROJECT_BINARY_DIR}/include/orv/version.h DESTINATION include/orv)
if(TARGET orvtool)
  install(TARGETS orvtool RUNTIME DESTINATION bin)
endif()

# The DLL shares the compiler's run-time with its hosts, so that exceptions cross the border; both flavours' programs
# find it beside them.
if(WIN32)
  foreach(name libstdc++-6 libgcc_s_seh-1 libwinpthread-1)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}.dll
      OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT IS_ABSOLUTE "${file}")
      set(file /usr/x86_64-w64-mingw32/lib/${name}.dll)
    endif()
    file(COPY ${file} DESTINATION ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
    install(FILES ${file} DESTINATION bin)
  endforeach()
endif()

install(EXPORT orvbase NAMESPACE orv:: DESTINATION ${package_folder} FILE orvbase-targets.cmake)
configure_package_config_file(cmake/orvbase-config.cmake.in ${PROJECT_BINARY_DIR}/orvbase-config.cmake
  INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/orvbase-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/orvbase-config.cmake ${PROJECT_BINARY_DIR}/orvbase-config-version.cmake
  DESTINATION ${package_folder})

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_VENDOR orvbase)
set(CPACK_PACKAGE_FILE_NAME orvbase-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR})
include(CPack)
