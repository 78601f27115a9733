# Compiler settings that hold for every target of this project.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)

# The wide character has 16 bits in both flavours. Everything in one program must agree on that, GoogleTest included.
if(NOT WIN32)
  add_compile_options(-fshort-wchar)
endif()

# Results of floating-point expressions are part of the contract: no contraction into fused operations.
add_compile_options(-ffp-contract=off)

# Warnings for our own code; always errors.
add_library(orv_warnings INTERFACE)
target_compile_options(orv_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Werror
  -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual
  -Wcast-align -Wformat=2 -Wimplicit-fallthrough -Wnull-dereference -Wdouble-promotion -Wundef)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(orv_warnings INTERFACE -Wduplicated-cond -Wlogical-op -Wuseless-cast)
endif()

# What tests may do: GoogleTest's code, once inlined, sets off the first, and tables of formats need the second.
add_library(orv_test_warnings INTERFACE)
target_compile_options(orv_test_warnings INTERFACE -Wno-null-dereference -Wno-format-nonliteral)

# ORV_SANITIZE is a list for -fsanitize=, set by the presets "asan" and "fuzz".
set(ORV_SANITIZE "" CACHE STRING "Sanitizers to build with")
if(ORV_SANITIZE)
  add_compile_options(-fsanitize=${ORV_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${ORV_SANITIZE})
  if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
    add_compile_options(-fsanitize-ignorelist=${CMAKE_CURRENT_LIST_DIR}/sanitizer-ignore.txt)
  endif()
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()

option(ORV_COVERAGE "Instrument for coverage" OFF)
if(ORV_COVERAGE)
  add_compile_options(--coverage)
  add_link_options(--coverage)
endif()
