# orvex_generate: runs orvex-gen at build time and adds the classes it writes to
# targets, as protobuf_generate does for .proto files.
#
#   orvex_generate(TARGET target...
#                  SCHEMAS schema.xsd...
#                  [NAMES OutputName...]      one per schema; default: the file's stem, first letter upper
#                  [OUTPUT_DIR dir]           default: ${CMAKE_CURRENT_BINARY_DIR}/orvex-gen
#                  [INCLUDE_PREFIX path]      headers go to OUTPUT_DIR/path and are included as "path/Name.h"
#                  [NAMESPACE name]           C++ namespace, default OrvexGenerated
#                  [SEARCH_PATH dir...]       where included and imported schemas are looked for
#                  [DEPENDS file...])         further files that trigger a rerun (before CMake 3.20,
#                                             list the included and imported schemas here)
#
# OUTPUT_DIR becomes a public include directory of every target. The generator
# writes nothing when a schema has a construct it cannot map, and the build stops
# with the schema file and line.
function(orvex_generate)
  cmake_parse_arguments(ARG "" "OUTPUT_DIR;INCLUDE_PREFIX;NAMESPACE" "TARGET;SCHEMAS;NAMES;SEARCH_PATH;DEPENDS" ${ARGN})
  if(NOT ARG_TARGET OR NOT ARG_SCHEMAS)
    message(FATAL_ERROR "orvex_generate: TARGET and SCHEMAS are required")
  endif()
  if(ARG_NAMES)
    list(LENGTH ARG_NAMES name_count)
    list(LENGTH ARG_SCHEMAS schema_count)
    if(NOT name_count EQUAL schema_count)
      message(FATAL_ERROR "orvex_generate: NAMES must give one name per schema")
    endif()
  endif()
  if(NOT ARG_OUTPUT_DIR)
    set(ARG_OUTPUT_DIR ${CMAKE_CURRENT_BINARY_DIR}/orvex-gen)
  endif()
  if(NOT ARG_NAMESPACE)
    set(ARG_NAMESPACE OrvexGenerated)
  endif()
  set(dir ${ARG_OUTPUT_DIR})
  set(args --namespace ${ARG_NAMESPACE})
  if(ARG_INCLUDE_PREFIX)
    set(dir ${ARG_OUTPUT_DIR}/${ARG_INCLUDE_PREFIX})
    list(APPEND args --include-prefix ${ARG_INCLUDE_PREFIX})
  endif()
  list(APPEND args -o ${dir})
  foreach(path ${ARG_SEARCH_PATH})
    get_filename_component(path ${path} ABSOLUTE)
    list(APPEND args -I ${path})
  endforeach()
  set(outputs)
  set(schemas)
  set(index 0)
  foreach(schema ${ARG_SCHEMAS})
    get_filename_component(schema ${schema} ABSOLUTE)
    if(ARG_NAMES)
      list(GET ARG_NAMES ${index} name)
    else()
      get_filename_component(stem ${schema} NAME_WE)
      string(SUBSTRING ${stem} 0 1 first)
      string(SUBSTRING ${stem} 1 -1 rest)
      string(TOUPPER ${first} first)
      set(name ${first}${rest})
    endif()
    list(APPEND args ${schema}=${name})
    list(APPEND schemas ${schema})
    list(APPEND outputs ${dir}/${name}.h ${dir}/${name}.cpp)
    math(EXPR index "${index} + 1")
  endforeach()
  # With CMake 3.20 and later the generator names every schema it read (included and
  # imported ones too) in a depfile, so that a change to any of them reruns it.
  list(GET ARG_TARGET 0 first_target)
  string(MAKE_C_IDENTIFIER "${first_target}_${name}" rule)
  set(depfile_args)
  if(CMAKE_VERSION VERSION_GREATER_EQUAL 3.20)
    set(depfile ${CMAKE_CURRENT_BINARY_DIR}/orvex_gen_${rule}.d)
    list(APPEND args --depfile ${depfile})
    set(depfile_args DEPFILE ${depfile})
  endif()
  add_custom_command(OUTPUT ${outputs}
    COMMAND OrvexXml::orvex-gen ${args}
    DEPENDS ${schemas} ${ARG_DEPENDS} OrvexXml::orvex-gen
    ${depfile_args}
    COMMENT "Generating classes from ${ARG_SCHEMAS}"
    VERBATIM)
  # One rule for the outputs, however many targets compile them.
  add_custom_target(orvex_gen_${rule} DEPENDS ${outputs})
  foreach(target ${ARG_TARGET})
    target_sources(${target} PRIVATE ${outputs})
    target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${ARG_OUTPUT_DIR}>)
    add_dependencies(${target} orvex_gen_${rule})
  endforeach()
endfunction()
