# Layers. Every folder of the source tree is one library target, and the
# layers a target stands on are its declared link dependencies. A file may
# include headers of its own layer and of the layers below it, never of a
# layer above or beside it: each layer's includes are checked before the layer
# compiles (CheckLayerIncludes.cmake), so an upward include fails the build.
# docs/architecture.md draws the same graph; a test compares the two.

set(QUORL_LAYER_CHECKER ${CMAKE_CURRENT_LIST_DIR}/CheckLayerIncludes.cmake)

# quorl_add_layer(<target> [FOLDERS dir...] [RECURSE] [FILES file...]
#                 [EXCLUDE file...] [DEPENDS layer...] [TYPE STATIC|OBJECT])
#
# Makes the layer's library from the .cpp files of its folders (and of their
# subfolders with RECURSE) and of FILES, less EXCLUDE; paths are relative to
# the source root. The .h and .y files found beside them belong to the layer
# too. The folders are globbed at every build, so a new file joins its layer
# without an edit here. A layer with no .cpp file yet (a back end still to
# come, a header-only boundary) is an interface library.
function(quorl_add_layer target)
  cmake_parse_arguments(ARG "RECURSE" "TYPE" "FOLDERS;FILES;EXCLUDE;DEPENDS" ${ARGN})
  if(NOT ARG_TYPE)
    set(ARG_TYPE STATIC)
  endif()
  set(glob GLOB)
  if(ARG_RECURSE)
    set(glob GLOB_RECURSE)
  endif()
  set(files "")
  foreach(folder ${ARG_FOLDERS})
    file(${glob} found CONFIGURE_DEPENDS
      ${PROJECT_SOURCE_DIR}/${folder}/*.cpp
      ${PROJECT_SOURCE_DIR}/${folder}/*.h
      ${PROJECT_SOURCE_DIR}/${folder}/*.y)
    list(APPEND files ${found})
  endforeach()
  foreach(file ${ARG_FILES})
    list(APPEND files ${PROJECT_SOURCE_DIR}/${file})
  endforeach()
  foreach(file ${ARG_EXCLUDE})
    list(REMOVE_ITEM files ${PROJECT_SOURCE_DIR}/${file})
  endforeach()
  list(REMOVE_DUPLICATES files)
  set(sources ${files})
  list(FILTER sources INCLUDE REGEX "\\.cpp$")

  if(sources)
    add_library(${target} ${ARG_TYPE} ${sources})
    target_link_libraries(${target} PUBLIC ${ARG_DEPENDS})
  else()
    add_library(${target} INTERFACE)
    target_link_libraries(${target} INTERFACE ${ARG_DEPENDS})
  endif()

  set(below "")
  foreach(dep ${ARG_DEPENDS})
    get_property(alias GLOBAL PROPERTY QUORL_LAYER_ALIAS_${dep})
    if(alias)
      list(APPEND below ${alias})
    else()
      list(APPEND below ${dep})
    endif()
  endforeach()
  set_property(GLOBAL APPEND PROPERTY QUORL_LAYERS ${target})
  set_property(GLOBAL PROPERTY QUORL_LAYER_FILES_${target} ${files})
  set_property(GLOBAL PROPERTY QUORL_LAYER_FOLDERS_${target} ${ARG_FOLDERS} ${ARG_FILES})
  set_property(GLOBAL PROPERTY QUORL_LAYER_DEPENDS_${target} ${below})
endfunction()

# quorl_layer_alias(<target> <layer>...): a library that is not a layer but
# stands for layers (a bundle of them, or another build of one), so that a
# layer may depend on it.
function(quorl_layer_alias target)
  set_property(GLOBAL PROPERTY QUORL_LAYER_ALIAS_${target} ${ARGN})
endfunction()

# The layers that `target` stands on, directly or through others.
function(quorl_layers_below target out)
  get_property(direct GLOBAL PROPERTY QUORL_LAYER_DEPENDS_${target})
  set(result "")
  foreach(dep ${direct})
    list(APPEND result ${dep})
    quorl_layers_below(${dep} deeper)
    list(APPEND result ${deeper})
  endforeach()
  list(REMOVE_DUPLICATES result)
  set(${out} ${result} PARENT_SCOPE)
endfunction()

# Called once every layer exists. Writes what the checks read into
# <build>/layers/ and makes every layer wait for the check of its includes.
# `include_dirs` are searched after the including file's folder and the
# source root, as the compiler does.
function(quorl_check_layers)
  cmake_parse_arguments(ARG "" "" "INCLUDE_DIRS" ${ARGN})
  set(dir ${PROJECT_BINARY_DIR}/layers)
  get_property(layers GLOBAL PROPERTY QUORL_LAYERS)

  set(owners "")
  set(graph "")
  foreach(layer ${layers})
    get_property(files GLOBAL PROPERTY QUORL_LAYER_FILES_${layer})
    foreach(file ${files})
      file(RELATIVE_PATH relative ${PROJECT_SOURCE_DIR} ${file})
      string(APPEND owners "set(\"OWNER/${relative}\" ${layer})\n")
    endforeach()
    get_property(folders GLOBAL PROPERTY QUORL_LAYER_FOLDERS_${layer})
    get_property(direct GLOBAL PROPERTY QUORL_LAYER_DEPENDS_${layer})
    list(SORT direct)
    list(JOIN folders " " folderText)
    list(JOIN direct " " dependText)
    string(APPEND graph "${layer} | ${folderText} | ${dependText}\n")
  endforeach()
  file(WRITE ${dir}/owners.cmake "${owners}")
  file(WRITE ${dir}/graph.txt "${graph}")

  foreach(layer ${layers})
    get_property(files GLOBAL PROPERTY QUORL_LAYER_FILES_${layer})
    quorl_layers_below(${layer} below)
    file(WRITE ${dir}/${layer}.cmake
      "set(LAYER ${layer})\nset(LAYER_FILES \"${files}\")\nset(LAYER_BELOW \"${below}\")\n")
    add_custom_command(OUTPUT ${dir}/${layer}.checked
      COMMAND ${CMAKE_COMMAND}
        -DLAYER_FILE=${dir}/${layer}.cmake
        -DOWNERS_FILE=${dir}/owners.cmake
        -DSOURCE_DIR=${PROJECT_SOURCE_DIR}
        "-DINCLUDE_DIRS=${ARG_INCLUDE_DIRS}"
        -DSTAMP=${dir}/${layer}.checked
        -P ${QUORL_LAYER_CHECKER}
      DEPENDS ${files} ${dir}/${layer}.cmake ${dir}/owners.cmake
              ${QUORL_LAYER_CHECKER}
      COMMENT "Checking that ${layer} includes only its own layers"
      VERBATIM)
    add_custom_target(${layer}_includes ALL DEPENDS ${dir}/${layer}.checked)
    add_dependencies(${layer} ${layer}_includes)
  endforeach()
endfunction()
