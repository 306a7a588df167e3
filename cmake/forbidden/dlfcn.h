// SPDX-License-Identifier: MIT
#error "<dlfcn.h> is not for the core: ask for it through an interface of src/platform"
