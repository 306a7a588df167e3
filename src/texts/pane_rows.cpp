// SPDX-License-Identifier: MIT
// History, check and data flow in the window.
#include <array>

#include "texts/rows.h"

namespace texts {

std::span<const Row> PaneRows() {
  static constexpr auto kRows = std::to_array<Row>({
      {4200, "&Verlauf...", "&History..."},
      {4201, "Zeit", "Time"},
      {4202, "Änderung", "Change"},
      {4203, "Stand", "State"},
      {4204, "Wer", "Who"},
      {4205, "Programm", "Program"},
      {4206, "&Diese zurücknehmen", "&Undo This"},
      {4207, "&Diese wiederherstellen", "Redo &This"},
      {4208, "zurückgenommen", "undone"},
      {4209, "Datensätze und Code der Änderung", "Rows and code of the change"},
      {4210, "... und <Count> weitere Zeilen", "... and <Count> more lines"},
      {4211, "Seit der Verlauf geführt wird, wurde an diesem Projekt nichts geändert.",
       "Nothing was changed in this project since its history is kept."},
      {4212, "Erledigt: <Title>", "Done: <Title>"},
      {4213, "Rückgängig", "Undo"},

      {4220, "Projekt &prüfen...", "&Check Project..."},
      {4221, "Schwere", "Severity"},
      {4222, "Kennung", "Code"},
      {4223, "Stelle", "Place"},
      {4224, "Befund", "Finding"},
      {4225, "Fehler", "Error"},
      {4226, "Warnung", "Warning"},
      {4227, "Hinweis", "Hint"},
      {4228, "Befunde", "Findings"},
      {4229, "Erklärung des Befundes", "Explanation of the finding"},
      {4230, "Repar&ieren...", "Repa&ir..."},
      {4231, "Er&neut prüfen", "Check Agai&n"},
      {4232, "Projekt prüfen", "Checking the project"},
      {4233, "Die Prüfung wurde abgebrochen.", "The check was stopped."},
      {4234, "Das Projekt lässt sich nicht prüfen.", "The project cannot be checked."},
      {4235, "Alles stimmt überein: Es wurde nichts gefunden.",
       "Everything is in step: nothing was found."},
      {4236, "Fehler: <Errors>, Warnungen: <Warnings>, Hinweise: <Hints>",
       "Errors: <Errors>, warnings: <Warnings>, hints: <Hints>"},
      {4237, "Das lässt sich von selbst reparieren.", "This can be repaired by itself."},
      {4238, "Das lässt sich nicht reparieren.", "This cannot be repaired."},
      {4239, "Die Reparatur würde nichts ändern. Prüfen Sie erneut.",
       "The repair would change nothing. Check again."},
      {4240, "Reparieren", "Repair"},
      {4241, "Datensätze und Zeilen, die die Reparatur ändert (Befunde: <Count>):",
       "Rows and lines that the repair changes (findings: <Count>):"},
      {4242, "&Reparieren", "&Repair"},
      {4243, "Repariert: <Count>. Befunde, die bleiben: <Left>.",
       "Repaired: <Count>. Findings that are left: <Left>."},

      {4260, "&Verwendungen im Code mit ändern: <Count>", "Change its &uses in the code: <Count>"},
      {4261, "Nicht sicher, darum unverändert: <Places>",
       "Not sure, so left as they are: <Places>"},
  });
  return kRows;
}

}  // namespace texts
