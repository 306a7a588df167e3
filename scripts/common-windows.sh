# SPDX-License-Identifier: MIT
# Shared by the scripts that build for Windows and run under Wine.
windows_compiler=x86_64-w64-mingw32-g++-posix
# What is built once and outlives the build tree.
windows_cache=${OV_WINDOWS_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/ovformula-windows}
