# Header-only libraries of the distribution, for both flavours. Their folder beside the native C library's headers must
# not be on the cross compiler's path, so each is linked by name into a folder of the build.
#
#   orv_header_only(TARGET CLI)   makes <CLI/...> of /usr/include known to a target, as system headers

function(orv_header_only target)
  foreach(name IN LISTS ARGN)
    if(NOT EXISTS /usr/include/${name})
      message(FATAL_ERROR "/usr/include/${name} is missing: run scripts/install-packages")
    endif()
    file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/header-only)
    file(CREATE_LINK /usr/include/${name} ${PROJECT_BINARY_DIR}/header-only/${name} SYMBOLIC)
  endforeach()
  target_include_directories(${target} SYSTEM PRIVATE ${PROJECT_BINARY_DIR}/header-only)
endfunction()
