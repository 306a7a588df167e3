// SPDX-License-Identifier: MIT
// Texts of many at once in the window: series in dialogs, drag and drop, clipboard,
// scan time.
#include "texts/rows.h"

namespace texts {

namespace {

constexpr Row kRows[] = {
    // Series in dialogs.
    {4750, "<Count> Aliase: <Names>", "<Count> aliases: <Names>"},
    {4752, "oder als &Reihe:", "or as a &series:"},
    {4753, "z. B. Tank{1..20}_Level", "e.g. Tank{1..20}_Level"},
    {4754, "<Count> Argumente: <Names>", "<Count> arguments: <Names>"},
    {4755, "Es gibt keinen Alias <Name>. Legen Sie ihn zuerst an, oder ändern Sie die Reihe.",
     "There is no alias <Name>. Add it first, or change the series."},
    {4756, "Die Aliase werden angelegt", "Adding the aliases"},

    // Drag and drop.
    {4770, "Formeln nach <Class> kopieren: <Count>", "Copy formulas to <Class>: <Count>"},
    {4771, "Argumente zu <Formula> hinzufügen: <Count>", "Add arguments to <Formula>: <Count>"},

    // Clipboard.
    {4780, "Formeln k&opieren", "Copy &Formulas"},
    {4781, "Formeln einfü&gen...", "&Paste Formulas..."},

    // The scan time of several formulas.
    {4790, "Abtast&zeit...", "&Scan Time..."},
    {4791, "Abtastzeit von <Name>", "Scan time of <Name>"},
    {4792, "Abtastzeit von <Count> Formeln", "Scan time of <Count> formulas"},
    {4793, "&Abtastzeit (ms)", "&Scan time (ms)"},
    {4794, "Nur asynchrone Formeln haben eine Abtastzeit: <Count> von <Total> ausgewählten.",
     "Only asynchronous formulas have a scan time: <Count> of <Total> selected."},
    {4795, "Abtastzeit von <Count> Formeln ändern", "Change the scan time of <Count> formulas"},
};

}  // namespace

std::span<const Row> ManyRows() { return kRows; }

}  // namespace texts
