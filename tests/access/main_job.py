#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""main_job.py PROGRAM DESKTOP_PROGRAM EXAMPLE LANGUAGE

Does the main job in the desktop window as somebody does who hears the screen and has no mouse:
every control is found on the accessibility bus by its role and name, and used by keys."""
import os
import subprocess
import sys
import tempfile

import pyatspi

from bus import (Desk, active, expect, fail, find, focus, gone, press, wait, walk, window, write)

WORDS = {
    "en": dict(tree="Project tree", formulas="Formulas", folder="Formula Definition",
               aliases="Alias Identifier", formula="New formula", name="Name",
               prog_id="Class Name", call="Call Formula", scan="Scan Time", comment="Comment",
               enabled="Definition enabled", arguments="Arguments", argument="New argument",
               alias_table="Aliases", new_alias="New alias", alias="VBAlias", item="Item Name",
               into="Input Value",
               out="Return Value", ok="OK", cancel="Cancel", help="Help", contents="Contents",
               search="Search", page="Page", code="Code", project="Project", extras="Extras",
               formula_page="Dialog Formula Definition", tree_page="The Project Tree",
               formulas_page="Formulas", aliases_page="Aliases",
               code_page="What Happens in the Code", field_menu=("Cut", "Copy", "Paste"),
               other="de"),
    "de": dict(tree="Projektbaum", formulas="Formeln", folder="Formeldefinitionen",
               aliases="Aliasbezeichner", formula="Neue Formel", name="Name",
               prog_id="Klassenname", call="Formelaufruf", scan="Abtastzeit", comment="Kommentar",
               enabled="Definition aktiv", arguments="Argumente", argument="Neues Argument",
               alias_table="Aliase", new_alias="Neuer Alias", alias="VBAlias", item="Itemname",
               into="Übergabeparameter",
               out="Rückgabewert", ok="OK", cancel="Abbrechen", help="Hilfe", contents="Inhalt",
               search="Suchen", page="Seite", code="Code", project="Projekt", extras="Extras",
               formula_page="Dialog Formeldefinition", tree_page="Der Projektbaum",
               formulas_page="Formeln", aliases_page="Aliase",
               code_page="Was im Code geschieht",
               field_menu=("Ausschneiden", "Kopieren", "Einfügen"), other="en"),
}


def select_node(w, name):
    """Goes through the tree until the node is the selected one."""
    focus(expect("tree table", w["tree"]))
    press("Home")
    for _ in range(20):
        cell = find("table cell", name, find("tree table", w["tree"]))
        if cell and cell.getState().contains(pyatspi.STATE_SELECTED):
            return
        press("Down")
    fail(f"no way to the node \"{name}\"")


def expect_help(w, title):
    """The help shows the page; closes it."""
    contents = wait("help", lambda: find("tree table", w["contents"]))
    wait(f"page \"{title}\"", lambda: any(
        cell.name == title and cell.getState().contains(pyatspi.STATE_SELECTED)
        for cell in walk(contents) if cell.getRoleName() == "table cell"))
    active(w["help"])
    press("Escape")
    wait("end of the help", lambda: not find("tree table", w["contents"]))


def use_real_locale():
    """One that the toolkit translates in; C.UTF-8 is none. Made here: a machine may have no other."""
    for name in ("LC_ALL", "LC_MESSAGES"):
        os.environ.pop(name, None)
    os.environ["LANG"] = "en_US.UTF-8"
    os.environ["LOCPATH"] = tempfile.mkdtemp()
    made = os.path.join(os.environ["LOCPATH"], "en_US.UTF-8")
    subprocess.run(["localedef", "-i", "en_US", "-f", "UTF-8", made], check=True)


def main():
    desk = Desk(*sys.argv[1:5])
    os.environ["LANGUAGE"] = WORDS[desk.language]["other"]  # what --lang says counts
    use_real_locale()
    running = desk.start(desk.database)
    try:
        do_job(WORDS[desk.language])
    finally:
        running.terminate()
        running.wait()
    formulas = desk.run("formula", "list", desk.database)
    if "\tFill\tPumpServer." not in formulas:
        fail("the formula is not in the database:\n" + formulas)
    arguments = desk.run("argument", "list", desk.database, "Fill").split("\t")
    if arguments[3] != "Level" or arguments[5:] != ["true", "true\n"]:
        fail("the argument is not in the database: " + repr(arguments))
    desk.remove()
    print("done")


def do_job(w):
    expect("tree table", w["tree"])
    for name in (w["formulas"], w["aliases"], w["folder"], "Old"):
        expect("table cell", name, find("tree table", w["tree"]))
    for name in (w["project"], w["extras"], w["help"]):
        expect("menu", name)

    # Help on nodes, tables and code.
    for node, page in ((w["formulas"], "tree_page"), (w["folder"], "formulas_page"),
                       (w["aliases"], "aliases_page"), ("Old", "formulas_page")):
        select_node(w, node)
        press("F1")
        expect_help(w, w[page])
        active("Plant.ovs")
    focus(expect("panel", w["code"]))
    press("F1")
    expect_help(w, w["code_page"])
    active("Plant.ovs")

    # A new formula.
    select_node(w, w["folder"])
    press("F8")
    dialog = window(w["formula"])
    name = expect("text", w["name"], dialog)
    for role, label in (("combo box", w["prog_id"]), ("combo box", w["call"]), ("text", w["scan"]),
                        ("text", w["comment"]), ("check box", w["enabled"]),
                        ("push button", w["ok"]), ("push button", w["cancel"]),
                        ("push button", w["help"])):
        expect(role, label, dialog)

    # Its help, by the key and by the button.
    for way in (lambda: press("F1"),
                lambda: find("push button", w["help"], dialog).queryAction().doAction(0)):
        way()
        expect_help(w, w["formula_page"])
        active(w["formula"])

    wait("window with the keyboard", lambda: dialog.getState().contains(pyatspi.STATE_ACTIVE))
    focus(name)
    press("shift+F10")  # the toolkit's own menu
    for entry in w["field_menu"]:
        expect("menu item", entry)
    press("Escape")
    press("ctrl+a")
    write("Fill")
    press("Tab", "Down")  # the first class
    wait("class", lambda: "PumpServer.CPump" in expect("combo box", w["prog_id"], dialog).name)
    focus(name)
    press("Return")
    gone(w["formula"])
    expect("table cell", "Fill", find("tree table", w["tree"]))
    expect("panel", w["code"])

    # An argument of it.
    select_node(w, "Fill")
    press("alt+F6")
    expect("table", w["arguments"])
    press("F8")
    dialog = window(w["argument"])
    focus(expect("text", w["alias"], dialog))
    write("Level")
    for box in (w["into"], w["out"]):
        found = expect("check box", box, dialog)
        if not found.getState().contains(pyatspi.STATE_CHECKED):
            focus(found)
            press("space")
    expect("push button", w["ok"], dialog).queryAction().doAction(0)
    gone(w["argument"])
    expect("table cell", "Level", find("table", w["arguments"]))

    # The aliases.
    select_node(w, w["aliases"])
    expect("table cell", "Tank1.Level", wait("aliases", lambda: find("table", w["alias_table"])))
    press("alt+F6", "F8")
    dialog = window(w["new_alias"])
    expect("text", w["item"], dialog)
    expect("text", w["alias"], dialog)
    press("Escape")
    gone(w["new_alias"])


main()
