// SPDX-License-Identifier: MIT
#include "desktop/flow_canvas.h"

#include <wx/dcbuffer.h>
#include <wx/graphics.h>
#include <wx/math.h>
#include <wx/settings.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

#include "desktop/colours.h"
#include "desktop/flow_texts.h"
#include "wx/convert.h"
#include "wx/native.h"

namespace desktop {

namespace {

using project::FlowLayout;
using project::PictureNode;

constexpr double kPixelsOfPoint = 96.0 / 72;  // at 100 %
constexpr double kFontSize = 11;              // points; as the layout was made for
constexpr double kLeastFont = 4;              // pixels; smaller text is left out
constexpr double kLineHeight = 1.17;          // of the font's size
constexpr double kTipLength = 8, kTipWidth = 6;
constexpr double kMargin = 12;  // points
constexpr double kLeastZoom = 0.1, kMostZoom = 4, kZoomStep = 1.2;
constexpr double kLeastFit = 0.6;  // a picture is not made smaller by itself
constexpr int kClickRange = 4;     // pixels at 100 % that a click may move
constexpr int kKeyStep = 40;

double Half(double length) { return length / 2; }

}  // namespace

FlowCanvas::FlowCanvas(wxWindow* parent, const texts::TextTable& texts)
    : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
               wxWANTS_CHARS | wxFULL_REPAINT_ON_RESIZE),
      texts_(texts) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  wx::SetAccessibleName(*this, wx::ToWx(texts.Text(kTextFlowPicture)));
  wx::SetAccessibleDescription(*this, wx::ToWx(texts.Text(kTextFlowHint)));
  BindEvents();
}

void FlowCanvas::BindEvents() {
  Bind(wxEVT_PAINT, [this](wxPaintEvent&) { OnPaint(); });
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    if (!moved_) FitToWindow();
  });
  const auto refresh = [this](wxFocusEvent& event) {
    event.Skip();
    Refresh();
  };
  Bind(wxEVT_SET_FOCUS, refresh);
  Bind(wxEVT_KILL_FOCUS, refresh);
  Bind(wxEVT_KEY_DOWN, &FlowCanvas::OnKey, this);
  Bind(wxEVT_LEFT_DOWN, &FlowCanvas::OnMouseDown, this);
  Bind(wxEVT_MOTION, &FlowCanvas::OnMouseMove, this);
  Bind(wxEVT_LEFT_UP, &FlowCanvas::OnMouseUp, this);
  Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { pressed_.reset(); });
  Bind(wxEVT_MOUSEWHEEL, [this](wxMouseEvent& event) {
    const double steps = static_cast<double>(event.GetWheelRotation()) / event.GetWheelDelta();
    ZoomAt(event.GetPosition(), std::pow(kZoomStep, steps));
  });
}

void FlowCanvas::ShowPicture(const project::DataFlow& flow, FlowLayout layout,
                             std::optional<PictureNode> centre) {
  ShowMessage("");
  const auto add = [&](bool is_formula, std::size_t index, const FlowLayout::Box& box,
                       const std::vector<std::string>& lines) -> Node& {
    Node& node = nodes_.emplace_back();
    node.node = {is_formula, index};
    node.box = box;
    for (const std::string& line : lines) node.lines.push_back(wx::ToWx(line));
    node.centre = centre && centre->is_formula == is_formula && centre->index == index;
    return node;
  };
  for (std::size_t i = 0; i < flow.formulas.size(); ++i) {
    const store::FormulaRecord& record = flow.formulas[i].record;
    add(true, i, layout.formulas[i], project::FormulaLabel(record, texts_)).disabled =
        !record.enabled;
  }
  for (std::size_t i = 0; i < flow.items.size(); ++i) {
    add(false, i, layout.items[i], project::ItemLabel(flow.items[i], texts_)).contested =
        flow.items[i].writers > 1;
  }
  for (std::size_t i = 0; i < flow.edges.size(); ++i) {
    const project::DataFlow::Edge& edge = flow.edges[i];
    if (layout.edges[i].size() < 4) continue;
    arrows_.push_back(
        {std::move(layout.edges[i]), edge.reads && edge.writes, true, edge.writes, edge.from_code});
  }
  layout_ = std::move(layout);
  FitToWindow();
}

void FlowCanvas::ShowMessage(const std::string& message) {
  message_ = wx::ToWx(message);
  layout_ = {};
  nodes_.clear();
  arrows_.clear();
  under_mouse_ = nullptr;
  moved_ = false;
  UnsetToolTip();
  Refresh();
}

// --- What is where ---

double FlowCanvas::Scale() const { return zoom_ * kPixelsOfPoint * FromDIP(100) / 100; }

wxPoint2DDouble FlowCanvas::ToPixels(const FlowLayout::Point& point) const {
  return {origin_.m_x + point.x * Scale(), origin_.m_y + point.y * Scale()};
}

wxPoint FlowCanvas::PlaceOf(const PictureNode& node) const {
  const auto& boxes = node.is_formula ? layout_.formulas : layout_.items;
  const wxPoint2DDouble pixels = ToPixels(boxes[node.index].centre);
  return {wxRound(pixels.m_x), wxRound(pixels.m_y)};
}

const FlowCanvas::Node* FlowCanvas::NodeAt(const wxPoint& pixel) const {
  for (const Node& node : nodes_) {
    const wxPoint2DDouble centre = ToPixels(node.box.centre);
    const double x = std::abs(pixel.x - centre.m_x) / (Half(node.box.width) * Scale());
    const double y = std::abs(pixel.y - centre.m_y) / (Half(node.box.height) * Scale());
    if (node.node.is_formula ? std::max(x, y) <= 1 : x * x + y * y <= 1) return &node;
  }
  return nullptr;
}

// All of it when that can be read; otherwise around the node that it is about.
void FlowCanvas::FitToWindow() {
  moved_ = false;
  Refresh();
  const wxSize room = GetClientSize();
  if (!HasPicture() || room.x <= 0 || room.y <= 0) return;
  zoom_ = 1;
  const double width = (layout_.width + 2 * kMargin) * Scale();
  const double height = (layout_.height + 2 * kMargin) * Scale();
  zoom_ = std::clamp(std::min(room.x / width, room.y / height), kLeastFit, 1.0);
  FlowLayout::Point middle = {Half(layout_.width), Half(layout_.height)};
  const bool all = layout_.width * Scale() <= room.x && layout_.height * Scale() <= room.y;
  const auto centre = std::ranges::find(nodes_, true, &Node::centre);
  if (!all && centre != nodes_.end()) middle = centre->box.centre;
  origin_ = {Half(room.x) - middle.x * Scale(), Half(room.y) - middle.y * Scale()};
}

void FlowCanvas::ZoomAt(const wxPoint& pixel, double factor) {
  if (!HasPicture()) return;
  const double before = zoom_;
  zoom_ = std::clamp(zoom_ * factor, kLeastZoom, kMostZoom);
  const wxPoint2DDouble at(pixel);
  origin_ = at + (origin_ - at) * (zoom_ / before);
  moved_ = true;
  Refresh();
}

void FlowCanvas::Move(double x, double y) {
  origin_ += wxPoint2DDouble(x, y);
  moved_ = true;
  Refresh();
}

// --- Mouse and keys ---

void FlowCanvas::OnMouseDown(wxMouseEvent& event) {
  SetFocus();
  pressed_ = event.GetPosition();
  dragging_ = false;
  CaptureMouse();
}

void FlowCanvas::OnMouseMove(wxMouseEvent& event) {
  const wxPoint at = event.GetPosition();
  if (pressed_) {
    const wxPoint way = at - *pressed_;
    dragging_ = dragging_ || std::max(std::abs(way.x), std::abs(way.y)) > FromDIP(kClickRange);
    if (!dragging_) return;
    pressed_ = at;
    SetCursor(wxCURSOR_SIZING);
    return Move(way.x, way.y);
  }
  const Node* node = NodeAt(at);
  SetCursor(node ? wxCURSOR_HAND : wxCURSOR_ARROW);
  if (std::exchange(under_mouse_, node) == node) return;
  wxString text;
  if (node) {
    for (const wxString& line : node->lines) text += (text.empty() ? "" : "\n") + line;
  }
  node ? SetToolTip(text) : UnsetToolTip();
}

void FlowCanvas::OnMouseUp(wxMouseEvent& event) {
  if (HasCapture()) ReleaseMouse();
  if (!std::exchange(pressed_, std::nullopt) || dragging_) return;
  const Node* node = NodeAt(event.GetPosition());
  if (node && on_node) on_node(PictureNode(node->node));  // the picture may change by it
}

void FlowCanvas::OnKey(wxKeyEvent& event) {
  const wxSize room = GetClientSize();
  const wxPoint middle(room.x / 2, room.y / 2);
  const int step = FromDIP(kKeyStep);
  switch (event.GetKeyCode()) {
    case WXK_LEFT:
      return Move(step, 0);
    case WXK_RIGHT:
      return Move(-step, 0);
    case WXK_UP:
      return Move(0, step);
    case WXK_DOWN:
      return Move(0, -step);
    case '+':
    case '=':
    case WXK_NUMPAD_ADD:
      return ZoomAt(middle, kZoomStep);
    case '-':
    case WXK_NUMPAD_SUBTRACT:
      return ZoomAt(middle, 1 / kZoomStep);
    case '0':
    case WXK_NUMPAD0:
    case WXK_HOME:
      return FitToWindow();
    case WXK_TAB:
      Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward
                                 : wxNavigationKeyEvent::IsForward);
      return;
    default:
      event.Skip();
  }
}

// --- Drawing ---

void FlowCanvas::OnPaint() {
  wxAutoBufferedPaintDC dc(this);
  const bool dark = wxSystemSettings::GetAppearance().IsUsingDarkBackground();
  const FlowPalette& palette = dark ? kDarkFlow : kLightFlow;
  dc.SetBackground(wxColour(palette.paper));
  dc.Clear();
  const wxRect room = GetClientRect();
  if (!message_.empty()) {
    dc.SetFont(GetFont());
    dc.SetTextForeground(wxColour(palette.ink));
    const int margin = FromDIP(static_cast<int>(kMargin));
    wxString text;
    // By words, as wide as there is room.
    for (const wxString& word : wxSplit(message_, ' ', '\0')) {
      const wxString line = text.AfterLast('\n') + " " + word;
      text += (text.empty()                                         ? ""
               : dc.GetTextExtent(line).x > room.width - 2 * margin ? "\n"
                                                                    : " ") +
              word;
    }
    dc.DrawLabel(text, wxRect(room).Deflate(margin), wxALIGN_LEFT | wxALIGN_TOP);
  }
  if (HasPicture()) {
    const std::unique_ptr<wxGraphicsContext> gc(wxGraphicsContext::CreateFromUnknownDC(dc));
    for (const Arrow& arrow : arrows_) DrawArrow(*gc, arrow, palette);
    for (const Node& node : nodes_) DrawNode(*gc, node, palette);
  }
  if (HasFocus()) {
    dc.SetBrush(*wxTRANSPARENT_BRUSH);
    dc.SetPen(wxPen(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT), FromDIP(2)));
    dc.DrawRectangle(room);
  }
}

void FlowCanvas::DrawNode(wxGraphicsContext& gc, const Node& node,
                          const FlowPalette& palette) const {
  const double scale = Scale();
  const wxPoint2DDouble centre = ToPixels(node.box.centre);
  const bool formula = node.node.is_formula;
  const char* fill = formula ? (node.disabled ? palette.disabled : palette.formula)
                             : (node.contested ? palette.contested : palette.item);
  const char* frame = formula ? (node.disabled ? palette.read : palette.formula_frame)
                              : (node.contested ? palette.write : palette.item_frame);
  wxGraphicsPenInfo pen(wxColour(frame), (node.centre ? 3 : 1) * std::max(scale, 0.7));
  if (node.disabled) pen.Style(wxPENSTYLE_SHORT_DASH);
  gc.SetPen(gc.CreatePen(pen));
  gc.SetBrush(wxBrush(wxColour(fill)));
  const auto draw = [&](double smaller) {
    const double width = node.box.width * scale - 2 * smaller;
    const double height = node.box.height * scale - 2 * smaller;
    const double x = centre.m_x - Half(width), y = centre.m_y - Half(height);
    formula ? gc.DrawRectangle(x, y, width, height) : gc.DrawEllipse(x, y, width, height);
  };
  draw(0);
  if (node.contested) draw(3 * scale);
  DrawLabel(gc, node, palette);
}

// The first line names the node. Lines that are wider here than where the layout was made become
// smaller.
void FlowCanvas::DrawLabel(wxGraphicsContext& gc, const Node& node,
                           const FlowPalette& palette) const {
  double size = kFontSize * Scale();
  if (size < kLeastFont) return;
  const auto set_font = [&](bool bold) {
    gc.SetFont(gc.CreateFont(size, "DejaVu Sans", bold ? wxFONTFLAG_BOLD : wxFONTFLAG_DEFAULT,
                             wxColour(palette.ink)));
  };
  const auto width_of = [&](const wxString& line) {
    double width = 0, height = 0;
    gc.GetTextExtent(line, &width, &height);
    return width;
  };
  double widest = 0;
  for (const wxString& line : node.lines) {
    set_font(&line == node.lines.data());
    widest = std::max(widest, width_of(line));
  }
  const double room = node.box.width * Scale() * (node.node.is_formula ? 0.94 : 0.86);
  size *= std::min(1.0, room / std::max(widest, 1.0));
  const double step = size * kLineHeight;
  const wxPoint2DDouble centre = ToPixels(node.box.centre);
  double y = centre.m_y - Half(step * static_cast<double>(node.lines.size()));
  for (const wxString& line : node.lines) {
    set_font(&line == node.lines.data());
    gc.DrawText(line, centre.m_x - Half(width_of(line)), y);
    y += step;
  }
}

void FlowCanvas::DrawArrow(wxGraphicsContext& gc, const Arrow& arrow,
                           const FlowPalette& palette) const {
  const wxColour colour(arrow.writes ? palette.write : palette.read);
  wxGraphicsPenInfo pen(colour, (arrow.writes ? 1.6 : 1) * std::max(Scale(), 0.7));
  if (!arrow.from_code) pen.Style(wxPENSTYLE_SHORT_DASH);
  gc.SetPen(gc.CreatePen(pen));
  wxGraphicsPath path = gc.CreatePath();
  std::vector<wxPoint2DDouble> points;
  for (const FlowLayout::Point& point : arrow.curve) points.push_back(ToPixels(point));
  path.MoveToPoint(points.front());
  for (std::size_t i = 1; i + 2 < points.size(); i += 3)
    path.AddCurveToPoint(points[i], points[i + 1], points[i + 2]);
  gc.StrokePath(path);
  gc.SetBrush(wxBrush(colour));
  gc.SetPen(gc.CreatePen(wxGraphicsPenInfo(colour)));
  if (arrow.at_end) DrawTip(gc, points[points.size() - 2], points.back());
  if (arrow.at_begin) DrawTip(gc, points[1], points.front());
}

void FlowCanvas::DrawTip(wxGraphicsContext& gc, wxPoint2DDouble from, wxPoint2DDouble at) const {
  wxPoint2DDouble along = at - from;
  const double length = along.GetVectorLength();
  if (length == 0) return;
  along = along * (Scale() / length);
  const wxPoint2DDouble across(-along.m_y, along.m_x);
  const wxPoint2DDouble tip = at + along * kTipLength;
  wxGraphicsPath path = gc.CreatePath();
  path.MoveToPoint(at + across * Half(kTipWidth));
  path.AddLineToPoint(tip);
  path.AddLineToPoint(at - across * Half(kTipWidth));
  path.CloseSubpath();
  gc.FillPath(path);
}

}  // namespace desktop
