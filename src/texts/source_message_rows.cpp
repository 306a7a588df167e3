// SPDX-License-Identifier: MIT
// Messages of the Visual Basic files.
#include <array>

#include "texts/rows.h"

namespace texts {

std::span<const Row> SourceMessageRows() {
  static constexpr auto kRows = std::to_array<Row>({
      {2800, "Die Codepage <Number> ist unbekannt.", "Code page <Number> is unknown."},
      {2801, "Wählen Sie eine von 874, 932, 936, 949, 950, 1250 bis 1258.",
       "Choose one of 874, 932, 936, 949, 950, 1250 to 1258."},
      {2802, "<Path> ist keine Visual-Basic-Datei.", "<Path> is no Visual Basic file."},
      {2803, "Nennen Sie eine .vbp-, eine .vbg- oder eine Quelldatei wie eine .cls.",
       "Name a .vbp, a .vbg or a source file such as a .cls."},
      {2804, "<Path> ist nicht vorhanden, obwohl <Group> sie nennt.",
       "<Path> does not exist, although <Group> names it."},
      {2805, "Stellen Sie sie wieder her, oder berichtigen Sie die Gruppe.",
       "Restore it, or correct the group."},
      {2806, "<Path> ist kein Projekt, obwohl <Group> sie nennt.",
       "<Path> is no project, although <Group> names it."},
      {2807, "Berichtigen Sie die Gruppe.", "Correct the group."},
      {2808, "<Path> und <Other> sind beide das Projekt <Name>.",
       "<Path> and <Other> both are the project <Name>."},
      {2809, "Nennen Sie das gemeinte (--vbp).", "Name the one that is meant (--vbp)."},
      {2810,
       "Das Zeichen<Character> (<Code>) für <MessagePlace> ist nicht in der Codepage <Number>.",
       "The character<Character> (<Code>) for <MessagePlace> is not in code page <Number>."},
      {2812,
       "Nehmen Sie ein anderes Zeichen, oder öffnen Sie das Projekt mit der Codepage, in der es "
       "geschrieben ist (--code-page).",
       "Use another character, or open the project with the code page that it is written in "
       "(--code-page)."},
      {2813,
       "Der Text für <MessagePlace> hat <Count> Zeichen; Visual Basic erlaubt 1023 in einer Zeile.",
       "The text for <MessagePlace> has <Count> characters; Visual Basic allows 1023 in a line."},
      {2814, "Zeile <Line> von <Path>", "line <Line> of <Path>"},
      {2815, "Kürzen Sie ihn.", "Shorten it."},
      {2816, "<Path> enthält keinen Visual-Basic-Quelltext und bleibt unberührt.",
       "<Path> holds no Visual Basic source text and is left alone."},
      {2817, "<Path> wurde nach dem Lesen von einem anderen Programm geändert.",
       "<Path> was changed by another program after it was read."},
      {2818, "Darin wurde nichts geändert; wiederholen Sie den Vorgang.",
       "Nothing was changed in it; repeat the operation."},
      {2819, "<Path> ist nicht vorhanden.", "<Path> does not exist."},
      {2820, "Stellen Sie sie wieder her, oder berichtigen Sie die Projektdatei.",
       "Restore it, or correct the project file."},
      {2821, "<Path> liegt außerhalb von <Folder>, dem Ordner ihres Projekts.",
       "<Path> lies outside <Folder>, the folder of its project."},
      {2822,
       "Stimmen Sie Änderungen in ihrem Ordner zu (--allow-folder), oder verschieben Sie sie in "
       "das Projekt.",
       "Agree to changes in its folder (--allow-folder), or move it into the project."},
      {2823, "<Path> ist schreibgeschützt.", "<Path> is read-only."},
      {2824,
       "Heben Sie den Schreibschutz auf, oder checken Sie die Datei aus der Versionsverwaltung "
       "aus.",
       "Remove the write protection, or check the file out of version control."},
      {2825, "Die erste Zeile eines Codefensters hat die Nummer 1.",
       "The first line of a code pane has the number 1."},
      {2826, "Zeilen und Spalten einer Markierung beginnen bei 1.",
       "Lines and columns of a selection begin at 1."},
      {2827, "<Path> und <Other> heißen in <Project> beide <Name>; benutzt wird die erste.",
       "<Path> and <Other> both are <Name> in <Project>; the first is used."},
      {2828, "Benennen Sie eine davon um.", "Rename one of them."},
      {2829, "Eine Zeilenzahl darf nicht negativ sein.", "A count of lines cannot be negative."},
      {2830, "<Path> hat keine Zeile <Line>; es sind <Count> Zeilen.",
       "<Path> has no line <Line>; it has <Count> lines."},
      {2831, "<Path> deklariert keine Prozedur <Name> der gesuchten Art.",
       "<Path> declares no procedure <Name> of the kind asked for."},
      {2832, "<Path> ist als UTF-16 gespeichert, das Visual Basic nicht liest.",
       "<Path> is stored as UTF-16, which Visual Basic does not read."},
      {2833, "Speichern Sie sie als ANSI-Text.", "Save it as ANSI text."},
      {2834, "<Path> enthält in Zeile <Line> der Datei ein Nullbyte und bleibt unberührt.",
       "<Path> holds a zero byte in line <Line> of the file and is left alone."},
      {2835, "Stellen Sie sie aus einer Sicherung wieder her, oder entfernen Sie das Byte.",
       "Restore it from a backup, or remove the byte."},
      {2836, "Stellen Sie sie aus einer Sicherung wieder her.", "Restore it from a backup."},
      // The workbench.
      {2840, "Das Modul wurde inzwischen von jemand anderem geändert.",
       "The module was changed by somebody else meanwhile."},
      {2841, "Objekterstellung durch ActiveX-Komponente nicht möglich",
       "ActiveX component can't create object"},
  });
  return kRows;
}

}  // namespace texts
