# SPDX-License-Identifier: MIT
# One target per folder of src/. A folder's headers are written as "folder/header.h" and are
# found only by targets that state the folder as a dependency: each target publishes an include
# root of its own that holds nothing but a link to its folder.

# ov_layer(NAME SOURCES... DEPENDS targets... PRIVATE_DEPENDS targets...)
# A layer without sources is an interface library.
function(ov_layer name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;DEPENDS;PRIVATE_DEPENDS")
  set(root ${CMAKE_BINARY_DIR}/include/${name})
  file(MAKE_DIRECTORY ${root})
  file(CREATE_LINK ${CMAKE_SOURCE_DIR}/src/${name} ${root}/${name} SYMBOLIC)
  if(arg_SOURCES)
    add_library(${name} STATIC ${arg_SOURCES})
    target_include_directories(${name} PUBLIC ${root})
    target_link_libraries(${name} PUBLIC ${arg_DEPENDS} PRIVATE ov_flags ${arg_PRIVATE_DEPENDS})
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${root})
    target_link_libraries(${name} INTERFACE ${arg_DEPENDS})
  endif()
endfunction()
