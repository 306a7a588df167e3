# SPDX-License-Identifier: MIT
# Files as part of a program.
#
# ov_embed_files(OUTPUT file.cpp ROOT folder FUNCTION namespace::Name FILES files...) makes a
# source that defines std::span<const namespace::EmbeddedFile> namespace::Name(), declared in
# "namespace/embedded_file.h"; names are relative to ROOT. Run as a script it writes that source.
if(CMAKE_SCRIPT_MODE_FILE AND CMAKE_SCRIPT_MODE_FILE STREQUAL CMAKE_CURRENT_LIST_FILE)
  string(REGEX MATCH "^([a-z]+)::([A-Za-z]+)$" _ "${FUNCTION}")
  set(namespace ${CMAKE_MATCH_1})
  set(function ${CMAKE_MATCH_2})
  set(arrays "")
  set(entries "")
  set(count 0)
  file(STRINGS ${LIST} files)
  foreach(file IN LISTS files)
    file(RELATIVE_PATH name ${ROOT} ${file})
    file(READ ${file} hex HEX)
    string(REGEX REPLACE "(................................)" "\\1\n" hex "${hex}")
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
    string(APPEND arrays "constexpr unsigned char kFile${count}[] = {\n${bytes}0};\n")
    string(APPEND entries "    {\"${name}\", View(kFile${count})},\n")
    math(EXPR count "${count} + 1")
  endforeach()
  file(WRITE ${OUTPUT} "// Made by EmbedFiles.cmake.
#include \"${namespace}/embedded_file.h\"

#include <cstddef>

namespace ${namespace} {
namespace {
${arrays}
// Without the zero that keeps an empty file's array from being empty.
template <std::size_t N>
std::string_view View(const unsigned char (&bytes)[N]) {
  return {reinterpret_cast<const char*>(bytes), N - 1};
}
}  // namespace

std::span<const EmbeddedFile> ${function}() {
  static const EmbeddedFile files[] = {
${entries}  };
  return files;
}
}  // namespace ${namespace}
")
  return()
endif()

function(ov_embed_files)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "OUTPUT;ROOT;FUNCTION" "FILES")
  set(script ${CMAKE_SOURCE_DIR}/cmake/EmbedFiles.cmake)
  list(JOIN arg_FILES "\n" lines)
  file(CONFIGURE OUTPUT ${arg_OUTPUT}.list CONTENT "${lines}\n" @ONLY)
  add_custom_command(OUTPUT ${arg_OUTPUT}
    COMMAND ${CMAKE_COMMAND} -DOUTPUT=${arg_OUTPUT} -DROOT=${arg_ROOT} -DFUNCTION=${arg_FUNCTION}
            -DLIST=${arg_OUTPUT}.list -P ${script}
    DEPENDS ${arg_FILES} ${arg_OUTPUT}.list ${script}
    COMMENT "Embedding ${arg_ROOT}" VERBATIM)
endfunction()
