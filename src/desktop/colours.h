// SPDX-License-Identifier: MIT
// The colours of our own, for the light and the dark look; dark papers have the grey of the
// system's dark tables. Text is at least 4.5 : 1 against what it stands on.
#pragma once

namespace desktop {

struct CodePalette {
  const char* ink;
  const char* paper;
  const char* margin;  // stands behind the line numbers, which have the colour of comments
  const char* comment;
  const char* keyword;
  const char* string;
  const char* number;
  const char* selection;
  const char* fold;     // signs of folds; that of the procedure with the caret is a keyword's
  const char* unknown;  // under names that nobody declares
};

inline constexpr CodePalette kLightCode = {"#1c2733", "#ffffff", "#f0f2f4", "#5a626b", "#0b4f9e",
                                           "#8a3324", "#7a5400", "#c9dff2", "#b4bcc4", "#c05a3c"};
inline constexpr CodePalette kDarkCode = {"#e3e8ed", "#2d2d2d", "#353535", "#a3adb7", "#74b9ea",
                                          "#e0a08f", "#c8b06a", "#28405a", "#7a848e", "#e0805f"};

// Of lines that are compared; text and paper are the system's.
struct ChangePalette {
  const char* removed;
  const char* added;
  const char* place;
};

inline constexpr ChangePalette kLightChange = {"#a02020", "#1d6b2c", "#0b4f9e"};
inline constexpr ChangePalette kDarkChange = {"#f0a0a0", "#8fd19e", "#74b9ea"};

// Of the picture of the data flow. A formula or item has a fill and a frame.
struct FlowPalette {
  const char* ink;
  const char* paper;
  const char* read;
  const char* write;
  const char* formula;
  const char* formula_frame;
  const char* disabled;
  const char* item;
  const char* item_frame;
  const char* contested;  // an item of several writers, framed like `write`
};

inline constexpr FlowPalette kLightFlow = {"#1c2733", "#ffffff", "#54616e", "#8a3324", "#dcebf7",
                                           "#0b5a8f", "#f4f6f8", "#ffffff", "#54616e", "#fbe3dd"};
inline constexpr FlowPalette kDarkFlow = {"#e3e8ed", "#2d2d2d", "#a3adb7", "#e0a08f", "#1d3a52",
                                          "#74b9ea", "#383838", "#333333", "#a3adb7", "#4a2a23"};

}  // namespace desktop
