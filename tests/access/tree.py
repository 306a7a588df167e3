#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""tree.py PROGRAM DESKTOP_PROGRAM EXAMPLE

What somebody who hears the screen learns of the project tree: its nodes by role and name, which one
is selected, what opens and closes, groups with their numbers, formulas that are not enabled, and
what the filter leaves."""
import sys

import pyatspi

from bus import Desk, active, expect, fail, find, focus, press, wait, walk, write

TREE = "Project tree"


def tree():
    return find("tree table", TREE)


def cells():
    return [cell for cell in walk(tree()) if cell.getRoleName() == "table cell" and cell.name]


def names():
    return [cell.name for cell in cells()]


def expect_names(wanted):
    wait(f"nodes {wanted}, but {names()}", lambda: names() == wanted)


def has(name, state):
    return any(cell.name == name and cell.getState().contains(state) for cell in cells())


def expect_state(name, state, wanted=True):
    wait(f"node \"{name}\" {'' if wanted else 'not '}{pyatspi.stateToString(state)}",
         lambda: has(name, state) == wanted)


def choose_view(letter):
    press("alt+v", letter)
    active("Plant.ovs")


def main():
    desk = Desk(*sys.argv[1:4], "en")
    desk.run("formula", "add", desk.database, "--name", "Cool", "--class", "PumpServer.CTank",
             "--comment", "in summer", "--disabled")
    running = desk.start(desk.database)
    active("Plant.ovs")
    expect("tree table", TREE)
    head = ["Formulas", "Alias Identifier", "Formula Definition"]
    expect_names(head + ["Old", "Cool (not enabled)"])

    # The keyboard: one node is selected and focused, and it is the one that the keys say.
    focus(tree())
    press("Home", "Down")
    expect_state("Alias Identifier", pyatspi.STATE_SELECTED)
    expect_state("Old", pyatspi.STATE_SELECTED, False)
    if sum(cell.getState().contains(pyatspi.STATE_SELECTED) for cell in cells()) != 1:
        fail("more than one node is selected")

    # What has nodes below it opens and closes; a formula does not.
    press("Down")
    expect_state("Formula Definition", pyatspi.STATE_EXPANDABLE)
    expect_state("Formula Definition", pyatspi.STATE_EXPANDED)
    expect_state("Old", pyatspi.STATE_EXPANDABLE, False)
    press("Left")
    expect_state("Formula Definition", pyatspi.STATE_EXPANDED, False)
    expect_names(head)
    press("Right")
    expect_names(head + ["Old", "Cool (not enabled)"])

    # Groups say what they are and how many formulas they have.
    choose_view("a")
    expect_names(head + ["PumpServer.CPump (1)", "PumpServer.CTank (1)"])
    focus(tree())
    press("Home", "Down", "Down", "Down", "Right")
    expect_state("PumpServer.CPump (1)", pyatspi.STATE_EXPANDED)
    expect_names(head + ["PumpServer.CPump (1)", "Old", "PumpServer.CTank (1)"])
    choose_view("l")
    expect_names(head + ["Old", "Cool (not enabled)"])

    # The filter is a field with a name, above the tree, and says how much it leaves.
    press("ctrl+f")
    field = expect("text", "Filter the project tree")
    wait("filter with the keyboard", lambda: field.getState().contains(pyatspi.STATE_FOCUSED))
    write("summer")
    expect_names(head + ["Cool (not enabled)"])
    expect("label", "1 of 2 formulas")
    press("Return")
    expect_state("Cool (not enabled)", pyatspi.STATE_SELECTED)
    wait("tree with the keyboard", lambda: tree().getState().contains(pyatspi.STATE_FOCUSED))
    active("Formula Cool")
    running.terminate()
    running.wait()
    desk.remove()
    print("done")


main()
