// SPDX-License-Identifier: MIT
#error "<sqlite3.h> is not for the core: ask for it through an interface of src/platform"
