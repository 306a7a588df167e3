# SPDX-License-Identifier: MIT
# Warnings and sanitizers shared by every target.
add_library(ov_flags INTERFACE)
target_compile_options(ov_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Wcast-qual
  -Woverloaded-virtual -Wundef -Werror)
# GCC 12 warns of copies and comparisons inside its own library when it optimises: overlapping
# copies where texts are joined (its fault 105651), impossible sizes where vectors are compared.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(ov_flags INTERFACE -Wno-restrict -Wno-stringop-overread)
endif()
if(OV_SANITIZE)
  target_compile_options(ov_flags INTERFACE
    -fsanitize=${OV_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(ov_flags INTERFACE -fsanitize=${OV_SANITIZE})
  # GCC does not see through the checks that it adds itself.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(ov_flags INTERFACE -Wno-maybe-uninitialized)
  endif()
endif()
if(MINGW)
  target_link_options(ov_flags INTERFACE -static)
endif()
