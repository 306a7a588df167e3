// SPDX-License-Identifier: MIT
#include <wx/dataobj.h>

#include "wx/row_drag.h"

namespace wx {

void RunDrag(wxWindow& source) {
  wxCustomDataObject data{wxDataFormat(kRowFormat)};
  data.SetData(1, "");
  wxDropSource drag(data, &source);
  drag.DoDragDrop(wxDrag_DefaultMove);
}

}  // namespace wx
