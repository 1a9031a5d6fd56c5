# The agent: a library of its parts, which the command is made from as well, and the shared library
# that hosts load.

file(GLOB agent_sources CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/agent/*.cpp ${PROJECT_SOURCE_DIR}/options/*.cpp
  ${PROJECT_SOURCE_DIR}/types/*.cpp ${PROJECT_SOURCE_DIR}/output/*.cpp
  ${PROJECT_SOURCE_DIR}/tree/*.cpp ${PROJECT_SOURCE_DIR}/scopes/*.cpp)
list(REMOVE_ITEM agent_sources ${PROJECT_SOURCE_DIR}/agent/entry.cpp)

add_library(idlexport_core STATIC ${agent_sources})

# The model API is left undefined: the process that loads the agent provides it.
add_library(idlexport_agent SHARED agent/entry.cpp)
set_target_properties(idlexport_agent PROPERTIES OUTPUT_NAME idlexport)
target_link_libraries(idlexport_agent PRIVATE idlexport_core)
target_link_options(idlexport_agent
  PRIVATE -Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/agent.map)
set_target_properties(idlexport_agent PROPERTIES LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/agent.map)
