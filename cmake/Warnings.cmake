# SPDX-License-Identifier: MIT
# Warnings and sanitizers shared by every target.
add_library(ov_flags INTERFACE)
target_compile_options(ov_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Wcast-qual
  -Woverloaded-virtual -Wundef -Werror)
# What GCC says of data flow changes with the optimiser and its inlining, and is mostly said of its
# own library: overlapping copies where texts are joined (its fault 105651), impossible sizes where
# vectors are compared, values of an empty optional. Clang-tidy and the sanitizers look for the same.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(ov_flags INTERFACE -Wno-restrict -Wno-stringop-overread
    -Wno-stringop-overflow -Wno-array-bounds -Wno-maybe-uninitialized)
endif()
if(OV_SANITIZE)
  target_compile_options(ov_flags INTERFACE
    -fsanitize=${OV_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(ov_flags INTERFACE -fsanitize=${OV_SANITIZE})
endif()
if(MINGW)
  target_link_options(ov_flags INTERFACE -static)
endif()
