// SPDX-License-Identifier: MIT
#error "<windows.h> is not for the core: ask for it through an interface of src/platform"
