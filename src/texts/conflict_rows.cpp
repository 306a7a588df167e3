// SPDX-License-Identifier: MIT
// Texts of code that was changed in the window and in its file.
#include "texts/rows.h"

namespace texts {

namespace {

constexpr Row kRows[] = {
    {4400, "Zweimal geändert", "Changed twice"},
    {4401, "Zeile <Line>:", "Line <Line>:"},
    {4402, "&Kopie ablegen...", "&Keep a Copy..."},
    {4403, "Ihren Text als Kopie ablegen", "Keep a copy of your text"},
    {4404, "Textdateien (*.txt)|*.txt|Alle Dateien|*", "Text files (*.txt)|*.txt|All files|*"},
    {4405, "Ihr Text liegt in <File>; gezeigt wird der Stand der Datei.",
     "Your text is in <File>; what is shown is what the file holds."},
    {4406, "Die Kopie lässt sich nicht ablegen.", "The copy cannot be kept."},
};

}  // namespace

std::span<const Row> ConflictRows() { return kRows; }

}  // namespace texts
