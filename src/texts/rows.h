// SPDX-License-Identifier: MIT
// The rows of the text table, one file of rows per area. Numbers below 1000 are shared with the
// studio and fixed; texts of our own have numbers from 1000 and always both languages.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "messages/text_number.h"

namespace texts {

// Marks a slot that was left out in the middle of a row; it is looked up as empty text.
inline constexpr const char* kOmitted = nullptr;

// One text. CR LF marks a line break, <Name> a placeholder, & a mnemonic in captions.
struct Row {
  constexpr Row(std::int32_t text, const char* in_german, const char* in_english = kOmitted,
                const char* in_third_slot = nullptr)
      : number{text}, german(in_german), english(in_english), third(in_third_slot) {}

  messages::TextNumber number;
  const char* german;
  const char* english;
  const char* third;  // slot 2, where a row has one
};

// The rows of an area and the numbers that it may use.
struct Area {
  std::string_view name;
  messages::TextNumber first;
  messages::TextNumber last;
  std::span<const Row> rows;
};

std::span<const Row> SharedRows();     // 10 to 999
std::span<const Row> StoreRows();      // 1000 to 1099: operations
std::span<const Row> CodegenRows();    // 1100 to 1199: code generator
std::span<const Row> CliRows();        // 1200 to 1399: command line
std::span<const Row> WorkbenchRows();  // 1400 to 1499: toolkit
std::span<const Row> DesktopRows();    // 1500 to 1599: desktop program
std::span<const Row> DialogRows();     // 1600 to 1699: dialogs and editor window
std::span<const Row> HelpRows();       // 1700 to 1799: report and help
std::span<const Row> EngineRows();     // 1800 to 1899: database and source files
std::span<const Row> HistoryRows();    // 3300 to 3399: titles of operations, history
std::span<const Row> CheckRows();      // 3000 to 3299: check
std::span<const Row> CodeRows();       // 3600 to 3799: code between declarations
std::span<const Row> WindowRows();     // 3800 to 3899: undo, history and check in the window
std::span<const Row> SearchRows();     // 3900 to 3999: finding in code, in the window
std::span<const Row> ComRows();        // 4000 to 4099: the add-in in the studio
std::span<const Row> PaneRows();       // 4200 to 4299: history, check, data flow in the window

std::span<const Row> ConflictRows();  // 4400 to 4449: code changed twice
std::span<const Row> StudioRows();    // 4475 to 4499: the editor in the studio
std::span<const Row> FrameRows();     // 4500 to 4649: the window's tree, messages and options

std::span<const Row> LookRows();    // 4930 to 4989: look of the window
std::span<const Row> CodingRows();  // 4650 to 4749: data flow and writing code in the window
std::span<const Row> NoticeRows();  // 4850 to 4899: notices in the window, rows changed twice

// German texts of the layers below. Their English ones stand in "<layer>/messages.def" (of com:
// provider_messages.def), by the same numbers.
std::span<const Row> FileMessageRows();       // 2000 to 2199: file layer
std::span<const Row> DatabaseMessageRows();   // 2200 to 2599: database engine
std::span<const Row> RecordsetMessageRows();  // 2600 to 2799: connections, recordsets, queries
std::span<const Row> SourceMessageRows();     // 2800 to 2899: Visual Basic files
std::span<const Row> ProviderRows();          // 4450 to 4474: the machine's database provider

std::span<const Row> ListRows();   // 4100 to 4199: lists in the window
std::span<const Row> PlantRows();  // 4300 to 4399: overview of formulas, going to a name

std::span<const Row> ManyRows();  // 4750 to 4849: many at once in the window

std::span<const Row> ExchangeRows();  // 3400 to 3599: import, export, series

std::span<const Area> Areas();

}  // namespace texts
