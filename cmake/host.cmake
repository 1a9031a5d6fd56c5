# The Linux host: the in-memory model, the reader of XMI files and the command.
#
# The command is linked with what it needs, but for the C library: on a small model half of its time
# would go into finding the symbols of shared libraries.

find_package(pugixml REQUIRED)
find_package(CLI11 REQUIRED)
find_package(nlohmann_json REQUIRED)

file(GLOB model_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/model/*.cpp)
# A host that loads the agent shows it these functions.
add_library(idlhost STATIC ${model_sources})
set_target_properties(idlhost PROPERTIES CXX_VISIBILITY_PRESET default
                                         VISIBILITY_INLINES_HIDDEN OFF)

# The profile and the library of primitive types are compiled into the reader as texts.
set(built_in_sources)
foreach(file CORBA.profile.uml CORBA.library.uml)
  string(MAKE_C_IDENTIFIER ${file} name)
  set(source ${PROJECT_BINARY_DIR}/built_in/${name}.cpp)
  add_custom_command(
    OUTPUT ${source}
    COMMAND ${CMAKE_COMMAND} -D INPUT=${PROJECT_SOURCE_DIR}/profile/${file} -D OUTPUT=${source}
            -D NAME=${name} -P ${PROJECT_SOURCE_DIR}/cmake/embed.cmake
    DEPENDS ${PROJECT_SOURCE_DIR}/profile/${file} ${PROJECT_SOURCE_DIR}/cmake/embed.cmake)
  list(APPEND built_in_sources ${source})
endforeach()

file(GLOB xmi_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/xmi/*.cpp
     ${PROJECT_SOURCE_DIR}/xmi/*/*.cpp)
add_library(idlxmi STATIC ${xmi_sources} ${built_in_sources})
if(TARGET pugixml::static)
  set(pugixml pugixml::static)
else()
  set(pugixml pugixml::pugixml)
endif()
target_link_libraries(idlxmi PUBLIC idlhost PRIVATE ${pugixml})

file(GLOB command_sources CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/diagnostics/*.cpp ${PROJECT_SOURCE_DIR}/checks/*.cpp
  ${PROJECT_SOURCE_DIR}/placement/*.cpp ${PROJECT_SOURCE_DIR}/picture/*.cpp
  ${PROJECT_SOURCE_DIR}/command/*.cpp)
list(REMOVE_ITEM command_sources ${PROJECT_SOURCE_DIR}/command/main.cpp)
add_library(idlcommand STATIC ${command_sources})
target_link_libraries(idlcommand
  PUBLIC idlexport_core idlxmi PRIVATE CLI11::CLI11 nlohmann_json::nlohmann_json)
target_compile_definitions(idlcommand PRIVATE IDLEXPORT_VERSION="${PROJECT_VERSION}")

add_executable(idlexport_command command/main.cpp)
set_target_properties(idlexport_command PROPERTIES OUTPUT_NAME idlexport)
target_link_libraries(idlexport_command PRIVATE idlcommand)
if(NOT IDLEXPORT_SANITIZE)
  target_link_options(idlexport_command PRIVATE -static-libstdc++ -static-libgcc)
endif()
