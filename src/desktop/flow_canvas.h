// SPDX-License-Identifier: MIT
#pragma once

#include <wx/geometry.h>
#include <wx/window.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "project/data_flow.h"
#include "project/data_flow_layout.h"
#include "project/data_flow_picture.h"
#include "texts/text_table.h"

class wxGraphicsContext;
class wxGraphicsFont;

namespace desktop {

struct FlowPalette;

// The picture of a data flow, which can be moved and zoomed: by dragging and the wheel, by the
// arrow keys, + and -; 0 shows all of it. A node that is clicked is chosen.
class FlowCanvas : public wxWindow {
 public:
  // The texts outlive it.
  FlowCanvas(wxWindow* parent, const texts::TextTable& texts);

  // `centre`: the node that the picture is about.
  void ShowPicture(const project::DataFlow& flow, project::FlowLayout layout,
                   std::optional<project::PictureNode> centre);
  // In place of a picture.
  void ShowMessage(const std::string& message);
  bool HasPicture() const { return layout_.width > 0; }

  // Where the node is seen, in pixels; for tests.
  wxPoint PlaceOf(const project::PictureNode& node) const;
  double Zoom() const { return zoom_; }

  std::function<void(const project::PictureNode&)> on_node;

 private:
  struct Node {
    project::PictureNode node;
    project::FlowLayout::Box box;
    std::vector<wxString> lines;
    bool disabled = false;
    bool contested = false;
    bool centre = false;
  };
  struct Arrow {
    std::vector<project::FlowLayout::Point> curve;
    bool at_begin = false;
    bool at_end = false;
    bool writes = false;
    bool from_code = true;
  };

  void BindEvents();
  void OnPaint();
  void OnMouseDown(wxMouseEvent& event);
  void OnMouseMove(wxMouseEvent& event);
  void OnMouseUp(wxMouseEvent& event);
  void OnKey(wxKeyEvent& event);

  void DrawNode(wxGraphicsContext& gc, const Node& node, const FlowPalette& palette) const;
  void DrawLabel(wxGraphicsContext& gc, const Node& node, const FlowPalette& palette) const;
  void DrawArrow(wxGraphicsContext& gc, const Arrow& arrow, const FlowPalette& palette) const;
  void DrawTip(wxGraphicsContext& gc, wxPoint2DDouble from, wxPoint2DDouble at) const;

  double Scale() const;  // pixels of a point
  wxPoint2DDouble ToPixels(const project::FlowLayout::Point& point) const;
  const Node* NodeAt(const wxPoint& pixel) const;
  void FitToWindow();
  void ZoomAt(const wxPoint& pixel, double factor);
  void Move(double x, double y);

  const texts::TextTable& texts_;
  project::FlowLayout layout_;
  std::vector<Node> nodes_;
  std::vector<Arrow> arrows_;
  wxString message_;
  double zoom_ = 1;
  wxPoint2DDouble origin_;  // pixel of the picture's upper left corner
  bool moved_ = false;      // by the user: the picture no longer follows the window's size
  std::optional<wxPoint> pressed_;
  bool dragging_ = false;
  const Node* under_mouse_ = nullptr;
};

}  // namespace desktop
