# The XML library behind data/tree_xml*.cpp and data/pugixml_utils.cpp, in its narrow mode.
#
#   orv_link_pugixml(TARGET)   natively the installed package; for Windows, from Debian's sources, compiled once
#
# Neither its headers nor its objects are part of the library's interface.

function(orv_link_pugixml target)
  if(NOT WIN32)
    find_package(pugixml REQUIRED)
    target_link_libraries(${target} PRIVATE pugixml::pugixml)
    return()
  endif()
  if(NOT TARGET orv_pugixml)
    set(sources ${PROJECT_BINARY_DIR}/third-party/pugixml)
    execute_process(COMMAND ${PROJECT_SOURCE_DIR}/scripts/get-debian-source pugixml ${sources}
      COMMAND_ERROR_IS_FATAL ANY)
    add_library(orv_pugixml STATIC EXCLUDE_FROM_ALL ${sources}/src/pugixml.cpp)
    target_include_directories(orv_pugixml SYSTEM PUBLIC ${sources}/src)
  endif()
  target_link_libraries(${target} PRIVATE orv_pugixml)
endfunction()
