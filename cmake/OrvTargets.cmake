# The few verbs in which the folders speak.
#
#   orv_family(SOURCES ... [WINDOWS ...] [NATIVE ...])   adds a folder's sources to the library
#   orv_test(NAME SOURCES ... [WINDOWS ...] [NATIVE ...]) one test executable of a family
#   orv_fuzz(NAME)                                        fuzz/NAME.cpp
#   orv_benchmark(NAME LIBRARIES ...)                     benchmarks/bench_NAME.cpp
#
# WINDOWS sources are built for the Windows flavour only, NATIVE ones for the native flavour only.

# Leaves in OUT the sources that this flavour builds.
function(orv_pick_sources out)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;WINDOWS;NATIVE")
  set(picked ${arg_SOURCES})
  if(WIN32)
    list(APPEND picked ${arg_WINDOWS})
  else()
    list(APPEND picked ${arg_NATIVE})
  endif()
  set(${out} ${picked} PARENT_SCOPE)
endfunction()

# One set of objects serves the shared library and, natively, the static one.
function(orv_library)
  add_library(orv_objects OBJECT)
  target_include_directories(orv_objects PUBLIC
    ${PROJECT_SOURCE_DIR}/include ${PROJECT_BINARY_DIR}/include PRIVATE ${PROJECT_SOURCE_DIR})
  target_compile_definitions(orv_objects PRIVATE ORV_BUILDING)
  target_link_libraries(orv_objects PRIVATE orv_warnings)
  orv_link_pugixml(orv_objects)
  orv_header_only(orv_objects rapidjson)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/version.h.in ${PROJECT_BINARY_DIR}/include/orv/version.h @ONLY)
endfunction()

function(orv_family)
  orv_pick_sources(sources ${ARGV})
  list(TRANSFORM sources PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  target_sources(orv_objects PRIVATE ${sources})
endfunction()

function(orv_library_finish)
  find_package(Threads REQUIRED)
  add_library(orvbase SHARED)
  set(kinds orvbase)
  if(WIN32)
    enable_language(RC)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in ${PROJECT_BINARY_DIR}/version.rc @ONLY)
    target_sources(orvbase PRIVATE ${PROJECT_BINARY_DIR}/version.rc)
    set_target_properties(orvbase PROPERTIES PREFIX "" OUTPUT_NAME orvbase)
    target_link_libraries(orvbase PRIVATE version ole32 oleaut32) # version resources of files; the XML service
  else()
    add_library(orvbase_static STATIC)
    set_target_properties(orvbase_static PROPERTIES OUTPUT_NAME orvbase EXPORT_NAME base_static)
    target_compile_definitions(orvbase_static INTERFACE ORV_STATIC)
    # As in a DLL, the library's calls of its own functions go straight to them.
    target_compile_options(orv_objects PRIVATE -fno-semantic-interposition)
    target_link_options(orvbase PRIVATE -Wl,-Bsymbolic-functions)
    set_target_properties(orvbase PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
    list(APPEND kinds orvbase_static)
  endif()
  set_target_properties(orvbase PROPERTIES EXPORT_NAME base)
  foreach(kind IN LISTS kinds)
    target_sources(${kind} PRIVATE $<TARGET_OBJECTS:orv_objects>)
    target_link_libraries(${kind} PUBLIC Threads::Threads)
    orv_link_pugixml(${kind})
    target_include_directories(${kind} PUBLIC
      $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
      $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include>
      $<INSTALL_INTERFACE:include>)
    target_compile_features(${kind} PUBLIC cxx_std_20)
    # The bodies in our headers keep their results in hosts that are built for fused operations.
    target_compile_options(${kind} PUBLIC $<$<CXX_COMPILER_ID:GNU,Clang,AppleClang,IntelLLVM>:-ffp-contract=off>)
    if(NOT WIN32)
      target_compile_options(${kind} PUBLIC -fshort-wchar)
    endif()
  endforeach()
  add_library(orv::base ALIAS orvbase)
endfunction()

# GoogleTest is built from its installed sources, so that it shares our wide character.
function(orv_need_googletest)
  if(TARGET gtest)
    return()
  endif()
  set(INSTALL_GTEST OFF CACHE INTERNAL "")
  set(BUILD_GMOCK OFF CACHE INTERNAL "")
  set(CMAKE_POLICY_DEFAULT_CMP0077 NEW)
  set(BUILD_SHARED_LIBS OFF)
  add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
endfunction()

function(orv_test name)
  orv_need_googletest()
  orv_pick_sources(sources ${ARGN})
  add_executable(test_${name} ${sources} ${PROJECT_SOURCE_DIR}/tests/support/main.cpp)
  target_include_directories(test_${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(test_${name} PRIVATE orv::base orv_warnings orv_test_warnings gtest)
endfunction()

function(orv_fuzz name)
  add_executable(fuzz_${name} ${name}.cpp)
  target_include_directories(fuzz_${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_compile_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
  target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
  target_link_libraries(fuzz_${name} PRIVATE orv::base orv_warnings)
endfunction()

function(orv_benchmark name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LIBRARIES")
  add_executable(bench_${name} bench_${name}.cpp)
  target_link_libraries(bench_${name} PRIVATE orv::base benchmark::benchmark ${arg_LIBRARIES})
endfunction()
