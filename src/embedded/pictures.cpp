// SPDX-License-Identifier: MIT
#include "embedded/pictures.h"

#include <wx/icon.h>

#include "com/failure.h"
#include "wx/pictures.h"

namespace embedded {

com::Reference<IDispatch> MakePicture(std::string_view name) {
  const wxBitmapBundle bundle = wx::Picture(name);
  if (!bundle.IsOk()) com::Require(E_INVALIDARG);
  wxIcon icon;
  icon.CopyFromBitmap(bundle.GetBitmap(bundle.GetDefaultSize()));
  PICTDESC description = {};
  description.cbSizeofstruct = sizeof description;
  description.picType = PICTYPE_ICON;
  description.icon.hicon = ::CopyIcon(static_cast<HICON>(icon.GetHICON()));
  void* picture = nullptr;
  com::Require(::OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE, &picture));
  return com::Reference<IDispatch>::Take(static_cast<IDispatch*>(picture));
}

}  // namespace embedded
