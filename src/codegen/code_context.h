// SPDX-License-Identifier: MIT
// What the generator works with, and where classes and their code stand in it.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "codegen/formula_rows.h"
#include "codegen/templates.h"
#include "platform/studio.h"
#include "platform/vbide.h"
#include "texts/text_table.h"

namespace codegen {

struct CodeContext {
  const texts::TextTable& texts;
  platform::OVItems* items;             // null: every item is a Variant
  platform::ComponentList* components;  // null: no component list is kept
  Templates templates{texts};
  std::unique_ptr<FormulaRows> rows = nullptr;   // null: headers list no arguments
  std::shared_ptr<platform::VBE> vbe = nullptr;  // null: no code is changed
  std::string project = {};                      // of the host
};

// A class and its module; the module is null when there is none.
struct Place {
  std::string prog_id;
  std::shared_ptr<platform::VBComponent> component;
  platform::CodeModule* module = nullptr;

  explicit operator bool() const { return module != nullptr; }
  std::string File() const;  // FileNameOf its component
};

// Name of the component's file without its folder, for messages.
std::string FileNameOf(const platform::VBComponent& component);

// The class of that ProgID. Raises platform::Error when it is there and cannot be read.
Place Locate(const CodeContext& context, std::string_view prog_id);

// The procedure from declaration to end, joined by CR LF; with its header region above it when
// asked. Empty when there is none.
std::string SubText(const Place& place, std::string_view name, bool with_header);

}  // namespace codegen
