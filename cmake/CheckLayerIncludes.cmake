# cmake -DLAYER_FILE=... -DOWNERS_FILE=... -DSOURCE_DIR=... [-DINCLUDE_DIRS=...]
#       [-DSTAMP=...] -P CheckLayerIncludes.cmake
#
# Fails when a file of the layer includes a header that belongs to a layer it
# does not stand on. A quoted include is looked for beside the including file,
# then in the source root, then in INCLUDE_DIRS, as the compiler looks for it;
# a header that belongs to no layer (a system header, a generated parser
# header) is not checked. Writes STAMP when all is well.
cmake_minimum_required(VERSION 3.20)
include(${LAYER_FILE})
include(${OWNERS_FILE})

set(faults "")
foreach(file ${LAYER_FILES})
  if(NOT EXISTS ${file})
    continue()
  endif()
  file(STRINGS ${file} lines REGEX "^[ \t]*#[ \t]*include[ \t]*\"")
  file(RELATIVE_PATH from ${SOURCE_DIR} ${file})
  get_filename_component(here ${file} DIRECTORY)
  foreach(line ${lines})
    string(REGEX REPLACE "^[ \t]*#[ \t]*include[ \t]*\"([^\"]+)\".*" "\\1" name "${line}")
    set(found "")
    foreach(base ${here} ${SOURCE_DIR} ${INCLUDE_DIRS})
      if(EXISTS ${base}/${name})
        get_filename_component(found ${base}/${name} ABSOLUTE)
        break()
      endif()
    endforeach()
    if(NOT found)
      continue()
    endif()
    file(RELATIVE_PATH target ${SOURCE_DIR} ${found})
    set(owner "${OWNER/${target}}")
    if(owner STREQUAL "" OR owner STREQUAL LAYER)
      continue()
    endif()
    if(NOT owner IN_LIST LAYER_BELOW)
      string(APPEND faults
        "${from}: includes ${target}, which belongs to ${owner}; "
        "${LAYER} does not stand on ${owner}\n")
    endif()
  endforeach()
endforeach()

if(faults)
  # Unformatted, one fault a line, so that each names its file plainly.
  message(NOTICE "${faults}")
  message(FATAL_ERROR "${LAYER}: includes that run up or across the layers "
    "(docs/architecture.md says what each layer may use)")
endif()
if(STAMP)
  file(TOUCH ${STAMP})
endif()
