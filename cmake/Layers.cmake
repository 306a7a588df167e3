# SPDX-License-Identifier: MIT
# One target per folder of src/. A folder's headers are written as "folder/header.h" and are
# found only by targets that state the folder as a dependency: each target publishes an include
# root of its own that holds nothing but a link to its folder.

# ov_layer(NAME [CORE] SOURCES... DEPENDS targets... PRIVATE_DEPENDS targets... NEVER layers...)
# DEPENDS names what the layer's headers include, PRIVATE_DEPENDS what only its sources do, NEVER
# what it does not even link through others; tests/layers compares all three with the sources.
# A layer without sources is an interface library. A CORE layer finds cmake/forbidden before the
# system's headers: what it holds are the toolkit, file-system and operating-system headers, each
# an error. (Not on Windows, whose standard library includes some of them itself.)
function(ov_layer name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "CORE" "" "SOURCES;DEPENDS;PRIVATE_DEPENDS;NEVER")
  set_property(GLOBAL APPEND PROPERTY OV_LAYERS ${name})
  foreach(kind DEPENDS PRIVATE_DEPENDS NEVER)
    set_property(GLOBAL PROPERTY OV_${name}_${kind} "${arg_${kind}}")
  endforeach()
  set(root ${CMAKE_BINARY_DIR}/include/${name})
  file(MAKE_DIRECTORY ${root})
  file(CREATE_LINK ${CMAKE_SOURCE_DIR}/src/${name} ${root}/${name} SYMBOLIC)
  if(arg_SOURCES)
    add_library(${name} STATIC ${arg_SOURCES})
    target_include_directories(${name} PUBLIC ${root})
    target_link_libraries(${name} PUBLIC ${arg_DEPENDS} PRIVATE ov_flags ${arg_PRIVATE_DEPENDS})
    if(arg_CORE AND NOT WIN32)
      target_include_directories(${name} BEFORE PRIVATE ${CMAKE_SOURCE_DIR}/cmake/forbidden)
    endif()
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${root})
    target_link_libraries(${name} INTERFACE ${arg_DEPENDS})
  endif()
endfunction()
