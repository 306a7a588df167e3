// SPDX-License-Identifier: MIT
#include "desktop/formula_strip.h"

#include <wx/hyperlink.h>
#include <wx/sizer.h>

#include "desktop/overview_texts.h"
#include "project/call_type.h"
#include "wx/convert.h"

namespace desktop {

namespace {

constexpr int kGap = 6;  // pixels at 100 %

void ShowText(wxHyperlinkCtrl& link, const std::string& text) {
  const wxString label = wx::ToLabel(text);
  if (link.GetLabel() != label) link.SetLabel(label);
}

}  // namespace

FormulaStrip::FormulaStrip(wxWindow* parent, const texts::TextTable& texts)
    : wxPanel(parent), texts_(texts) {
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  SetSizer(row);
  prog_id_ = MakeLink("cmbProgID", false);
  call_ = MakeLink("cmbType", false);
  state_ = MakeLink("chkEnabled", false);
  comment_ = MakeLink("txtComment", true);
}

// Links turn into visited ones otherwise, which says nothing here.
wxHyperlinkCtrl* FormulaStrip::MakeLink(const char* control, bool fills) {
  auto* link = new wxHyperlinkCtrl(this, wxID_ANY, "-", control, wxDefaultPosition, wxDefaultSize,
                                   wxBORDER_NONE | wxHL_ALIGN_LEFT);
  link->SetVisitedColour(link->GetNormalColour());
  link->SetToolTip(wx::ToWx(Text(kTextEditField)));
  link->Bind(wxEVT_HYPERLINK,
             [this, name = std::string(control)](wxHyperlinkEvent&) { on_field(name); });
  GetSizer()->Add(link, wxSizerFlags(fills ? 1 : 0).CentreVertical().Border(wxALL, FromDIP(kGap)));
  return link;
}

void FormulaStrip::ShowFormula(const store::FormulaRecord& formula) {
  ShowText(*prog_id_, texts_.Text(kTextStripClass, {{"<Class>", formula.prog_id}}));
  ShowText(*call_,
           texts_.Text(kTextStripCall, {{"<Type>", project::CallTypeText(formula, texts_)}}));
  ShowText(*state_, Text(formula.enabled ? kTextStripEnabled : kTextStripDisabled));
  ShowText(*comment_, formula.comment.empty()
                          ? Text(kTextStripNoComment)
                          : texts_.Text(kTextStripComment, {{"<Text>", formula.comment}}));
  if (IsShownOnScreen()) Layout();
}

}  // namespace desktop
