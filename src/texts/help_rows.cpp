// SPDX-License-Identifier: MIT
// Texts of the report and of help.
#include "texts/rows.h"

namespace texts {

namespace {

constexpr Row kRows[] = {
    {1700, "Formelbericht", "Formula report"},
    {1701, "Inhalt", "Contents"},
    {1702, "Formeln der Klasse", "Formulas of class"},
    {1703, "(ohne Klasse)", "(no class)"},
    {1704, "Formelaufruf", "Call type"},
    {1705, "Abtastzeit", "Scan time"},
    {1706, "Zustand", "State"},
    {1707, "aktiv", "enabled"},
    {1708, "nicht aktiv", "not enabled"},
    {1709, "Kommentar", "Comment"},
    {1710, "Argumente", "Arguments"},
    {1711, "Keine Argumente.", "No arguments."},
    {1712, "Alias", "Alias"},
    {1713, "Item", "Item"},
    {1714, "Richtung", "Direction"},
    {1715, "Übergabewert", "input value"},
    {1716, "Rückgabewert", "return value"},
    {1717, "Übergabe- und Rückgabewert", "input and return value"},
    {1718, "keine", "none"},
    {1719, "Im Modul steht keine Prozedur dieses Namens.",
     "The module has no procedure of this name."},
    {1720, "Aliase", "Aliases"},
    {1721, "Typ", "Type"},
    {1722, "Benutzt in", "Used in"},
    {1723, "Unbenutzte Aliase", "Unused aliases"},
    {1724, "Alle Aliase werden benutzt.", "All aliases are used."},
    {1725, "Formeln", "Formulas"},
    {1726, "Das Projekt hat noch keine Formeln.", "The project has no formulas yet."},
    {1727, "de", "en"},
    {1728, "Das Projekt hat noch keine Aliase.", "The project has no aliases yet."},
    // Window of the help.
    {1740, "Hilfe – OrvanaStudio-Formeleditor", "Help – OrvanaStudio Formula Editor"},
    {1741, "Inhalt", "Contents"},
    {1742, "Stichwörter", "Index"},
    {1743, "In der Hilfe suchen", "Search the help"},
    {1744, "Zurück", "Back"},
    {1745, "Vorwärts", "Forward"},
    {1746, "Suche nach „<Text>“", "Search for \"<Text>\""},
    {1747, "Keine Seite enthält „<Text>“. Versuchen Sie ein anderes oder ein kürzeres Wort.",
     "No page contains \"<Text>\". Try another or a shorter word."},
    {1748, "Stichwort", "Index word"},
    {1749, "Hilfeseite", "Help page"},
};

}  // namespace

std::span<const Row> HelpRows() { return kRows; }

}  // namespace texts
