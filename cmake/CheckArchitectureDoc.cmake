# cmake -DDOCUMENT=docs/architecture.md -DGRAPH=<build>/layers/graph.txt -P ...
#
# Fails unless the document's table of layers names the same layers, with
# the same folders and the same layers beneath them, as the build declares.
# The build writes GRAPH at configure time, one "layer | folders | depends"
# line per layer. In the document a row of the table reads
# | `layer` | `folder/`, ... | `layer`, ... | what the layer holds |
# and a folder may end with "/" or not.
cmake_minimum_required(VERSION 3.20)

# The cell as a sorted, space-separated list of plain names.
function(normalise cell out)
  string(REGEX REPLACE "[`,]" " " cell "${cell}")
  string(REGEX REPLACE "/( |$)" " " cell "${cell}")
  string(STRIP "${cell}" cell)
  if(cell STREQUAL "nothing" OR cell STREQUAL "")
    set(${out} "" PARENT_SCOPE)
    return()
  endif()
  string(REGEX REPLACE " +" ";" items "${cell}")
  list(SORT items)
  list(JOIN items " " cell)
  set(${out} "${cell}" PARENT_SCOPE)
endfunction()

# Reads "layer | folders | depends" records into <prefix>_LAYERS and
# <prefix>_<layer>.
function(read_rows lines prefix)
  set(layers "")
  foreach(line ${lines})
    string(REGEX REPLACE "^\\|" "" line "${line}")
    string(REPLACE "|" ";" cells "${line}")
    list(GET cells 0 layer)
    list(GET cells 1 folders)
    list(GET cells 2 depends)
    normalise("${layer}" layer)
    normalise("${folders}" folders)
    normalise("${depends}" depends)
    list(APPEND layers ${layer})
    set(${prefix}_${layer} "folders: ${folders}; stands on: ${depends}" PARENT_SCOPE)
  endforeach()
  set(${prefix}_LAYERS ${layers} PARENT_SCOPE)
endfunction()

file(STRINGS ${GRAPH} built)
file(STRINGS ${DOCUMENT} documented REGEX "^\\| *`[a-z_0-9]+` *\\|")
read_rows("${built}" BUILT)
read_rows("${documented}" DOC)

set(faults "")
foreach(layer ${BUILT_LAYERS})
  if(NOT layer IN_LIST DOC_LAYERS)
    string(APPEND faults "${layer}: built, not in the document\n")
  elseif(NOT BUILT_${layer} STREQUAL DOC_${layer})
    string(APPEND faults "${layer}: built with ${BUILT_${layer}}\n"
                         "  but the document says ${DOC_${layer}}\n")
  endif()
endforeach()
foreach(layer ${DOC_LAYERS})
  if(NOT layer IN_LIST BUILT_LAYERS)
    string(APPEND faults "${layer}: in the document, not built\n")
  endif()
endforeach()
if(faults)
  message(FATAL_ERROR "${DOCUMENT} and the build disagree:\n${faults}")
endif()
