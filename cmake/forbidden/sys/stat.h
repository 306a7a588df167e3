// SPDX-License-Identifier: MIT
#error "<sys/stat.h> is not for the core: ask for it through an interface of src/platform"
