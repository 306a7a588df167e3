// SPDX-License-Identifier: MIT
// Texts of notices about an open project, and of rows that were changed by two.
#include "texts/rows.h"

namespace texts {

namespace {

constexpr Row kRows[] = {
    // What other programs changed.
    {4850,
     "Außerhalb geändert: <Files>. Datensätze und Code stimmen nicht überein (Fehler: <Errors>, "
     "Warnungen: <Warnings>).",
     "Changed outside: <Files>. Rows and code are out of step (errors: <Errors>, warnings: "
     "<Warnings>)."},
    {4851, " und <Count> weitere", " and <Count> more"},
    {4852, "Projekt &prüfen...", "&Check Project..."},

    // Rows that were changed twice.
    {4860, "<Name> wurde inzwischen auch von jemand anderem geändert.",
     "<Name> was changed by somebody else meanwhile, too."},
    {4861, "<Member>: gespeichert ist „<Theirs>“, Sie haben „<Mine>“ eingegeben.",
     "<Member>: \"<Theirs>\" is stored, you entered \"<Mine>\"."},
    {4862, "&Gespeicherten Stand übernehmen", "&Take the Stored Version"},
    {4863, "Mit meinem Stand &überschreiben", "&Overwrite with Mine"},
    {4864, "ja", "yes"},
    {4865, "nein", "no"},
};

}  // namespace

std::span<const Row> NoticeRows() { return kRows; }

}  // namespace texts
