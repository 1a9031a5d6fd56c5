#[[
Exports IDL from a model as part of a build:

  idlexport_generate([<target>]
    MODEL <file>
    [ARTIFACT <name>...]
    [OUTPUT_DIR <directory>]
    [OUTPUTS_VAR <variable>]
    [MAPPING one-file|module-flat|module-structured]
    [OPTIONS <option>...]
    [DEPENDS <file>...])

The artifacts of the model are exported whenever one of the model's files has changed, by the custom
target <target>, or without one for whatever depends on the files. ARTIFACT can be left out when the
model has one. Paths are relative to the current source directory.

OUTPUT_DIR    where the files go, relative to the current binary directory; left out, a directory
              there that is named like the target, or "idl". Each call needs a directory of its own.
OUTPUTS_VAR   set to the absolute paths of the files. They are known when CMake runs; CMake runs again
              when the model has changed.
OPTIONS       further options of the command.
DEPENDS       other files on which the paths of the outputs depend; those that the model refers to are
              found without it.

What uses the files names them in its DEPENDS; when several targets use them, each also names the
target that makes them, or else they would make them at the same time.

  idlexport_generate(MODEL bank.uml ARTIFACT one_file OUTPUTS_VAR idl)
  add_custom_command(OUTPUT bank.hh COMMAND omniidl -bcxx ${idl} DEPENDS ${idl})

An export that leaves a file as it is does not touch it, so nothing is made of it anew; but makefiles
know that only where there is a target. Files that the model no longer gives are removed.
]]
function(idlexport_generate)
  set(single_keywords MODEL OUTPUT_DIR OUTPUTS_VAR MAPPING)
  set(list_keywords ARTIFACT OPTIONS DEPENDS)
  set(target)
  set(first 0)
  if(ARGC GREATER 0 AND NOT ARGV0 IN_LIST single_keywords AND NOT ARGV0 IN_LIST list_keywords)
    set(target ${ARGV0})
    set(first 1)
  endif()
  set(call "idlexport_generate(${target})")
  cmake_parse_arguments(PARSE_ARGV ${first} arg "" "${single_keywords}" "${list_keywords}")
  _idlexport_check_arguments()
  _idlexport_absolute(arg_MODEL ${CMAKE_CURRENT_SOURCE_DIR})
  if(NOT EXISTS "${arg_MODEL}")
    message(FATAL_ERROR "${call}: there is no model file ${arg_MODEL}")
  endif()
  if(NOT arg_OUTPUT_DIR AND target)
    set(arg_OUTPUT_DIR ${target})
  elseif(NOT arg_OUTPUT_DIR)
    set(arg_OUTPUT_DIR idl)
  endif()
  _idlexport_absolute(arg_OUTPUT_DIR ${CMAKE_CURRENT_BINARY_DIR})
  _idlexport_absolute(arg_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR})

  set(options --quiet --prune --output "${arg_OUTPUT_DIR}" ${arg_OPTIONS})
  foreach(artifact IN LISTS arg_ARTIFACT)
    list(APPEND options --artifact "${artifact}")
  endforeach()
  if(arg_MAPPING)
    list(APPEND options --mapping ${arg_MAPPING})
  endif()
  _idlexport_list_outputs(outputs)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
    "${arg_MODEL}" ${model_files} ${arg_DEPENDS})

  # The stamp says when the export has run last; the files themselves may be older than the model.
  set(stamp "${arg_OUTPUT_DIR}.stamp")
  if(target)
    set(stamp "${CMAKE_CURRENT_BINARY_DIR}/${target}.stamp")
    set(products OUTPUT "${stamp}" BYPRODUCTS ${outputs})
    add_custom_target(${target} DEPENDS "${stamp}")
  else()
    set(products OUTPUT "${stamp}" ${outputs})
  endif()
  cmake_path(RELATIVE_PATH arg_MODEL BASE_DIRECTORY ${CMAKE_SOURCE_DIR} OUTPUT_VARIABLE model_name)
  add_custom_command(
    ${products}
    COMMAND idlexport::idlexport ${options} --stamp "${stamp}" --depfile "${stamp}.d"
            --target "${stamp}" "${arg_MODEL}"
    DEPENDS "${arg_MODEL}" ${arg_DEPENDS} idlexport::idlexport
    DEPFILE "${stamp}.d"
    COMMENT "Exporting IDL from ${model_name}"
    VERBATIM)
  if(arg_OUTPUTS_VAR)
    set(${arg_OUTPUTS_VAR} ${outputs} PARENT_SCOPE)
  endif()
endfunction()

macro(_idlexport_check_arguments)
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR
      "${call}: unknown arguments: ${arg_UNPARSED_ARGUMENTS}")
  endif()
  if(arg_KEYWORDS_MISSING_VALUES)
    message(FATAL_ERROR
      "${call}: nothing behind ${arg_KEYWORDS_MISSING_VALUES}")
  endif()
  if(NOT arg_MODEL)
    message(FATAL_ERROR "${call}: MODEL is missing")
  endif()
endmacro()

# Makes each path in a list absolute.
function(_idlexport_absolute list base)
  set(absolute)
  foreach(path IN LISTS ${list})
    cmake_path(ABSOLUTE_PATH path BASE_DIRECTORY "${base}" NORMALIZE)
    list(APPEND absolute "${path}")
  endforeach()
  set(${list} "${absolute}" PARENT_SCOPE)
endfunction()

# Asks the command for the files that an export with the caller's options would make.
function(_idlexport_list_outputs outputs)
  get_target_property(command idlexport::idlexport LOCATION)
  set(depfile "${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/idlexport_generate.d")
  execute_process(
    COMMAND "${command}" --outputs --depfile "${depfile}" ${options} "${arg_MODEL}"
    OUTPUT_VARIABLE listed ERROR_VARIABLE complaint RESULT_VARIABLE status
    OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT status EQUAL 0)
    # CMake leaves lines alone that are set in.
    string(REGEX REPLACE "\n+" "\n  " reasons "\n${listed}\n${complaint}")
    message(FATAL_ERROR "${call}: there is nothing to export:${reasons}")
  endif()
  string(REPLACE "\n" ";" listed "${listed}")
  _idlexport_absolute(listed "${arg_OUTPUT_DIR}")
  set(${outputs} "${listed}" PARENT_SCOPE)

  # Behind the rule itself stands one without anything to do for each file.
  file(STRINGS "${depfile}" lines REGEX "^[^ ].*:$")
  string(REGEX REPLACE ":(;|$)" "\\1" lines "${lines}")
  string(REGEX REPLACE "\\\\([ #])" "\\1" lines "${lines}")
  string(REPLACE "$$" "$" lines "${lines}")
  set(model_files "${lines}" PARENT_SCOPE)
endfunction()
