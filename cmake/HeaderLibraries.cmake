# SPDX-License-Identifier: MIT
# The header-only libraries of the command line, found for the host. A cross compiler must not see
# the host's other headers, so each library is linked into a folder that holds nothing else.
function(ov_header_library name header)
  find_path(found_${name} ${header} PATHS /usr/include /usr/local/include REQUIRED NO_CACHE)
  get_filename_component(folder ${header} DIRECTORY)
  set(root ${CMAKE_BINARY_DIR}/include/${name})
  file(MAKE_DIRECTORY ${root})
  file(CREATE_LINK ${found_${name}}/${folder} ${root}/${folder} SYMBOLIC)
  add_library(${name} INTERFACE)
  target_include_directories(${name} SYSTEM INTERFACE ${root})
endfunction()

ov_header_library(nlohmann_json nlohmann/json.hpp)
