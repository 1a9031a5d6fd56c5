# The language, the warnings and the sanitizers that every target of the project is built with.

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_compile_options(-Wall -Wextra -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # Before version 13 the compiler takes "literal" + string() for an overlapping copy.
  add_compile_options(-Wno-restrict)
endif()
include_directories(${PROJECT_SOURCE_DIR})

# Nobody replaces the functions of a library while it runs, so calls inside it need no detour.
add_compile_options($<$<CONFIG:Release>:-fno-semantic-interposition>)

option(IDLEXPORT_SANITIZE "Build with the address, undefined behaviour and leak sanitizers" OFF)
if(IDLEXPORT_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# Fuzzers watch which code an input reaches, in every part of the project.
option(IDLEXPORT_BUILD_FUZZERS "Build the fuzzers, which takes clang" OFF)
if(IDLEXPORT_BUILD_FUZZERS)
  add_compile_options(-fsanitize=fuzzer-no-link)
  add_link_options(-fsanitize=fuzzer-no-link)
endif()
