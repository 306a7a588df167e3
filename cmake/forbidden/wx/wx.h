// SPDX-License-Identifier: MIT
#error "<wx/wx.h> is not for the core: ask for it through an interface of src/platform"
