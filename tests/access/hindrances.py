#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""hindrances.py PROGRAM DESKTOP_PROGRAM EXAMPLE

The keyboard goes round the window's parts and is kept by none; a class file that is gone is told
and is no fault of the program."""
import os
import sys

import pyatspi

from bus import Desk, active, expect, fail, find_application, focus, press, wait, walk


def has_keyboard(name):
    """Whether the control of that name, or something in it, has the keyboard."""
    def inside(node):
        return node.getState().contains(pyatspi.STATE_FOCUSED) or any(
            inside(node[i]) for i in range(min(node.childCount, 40)) if node[i] is not None)
    return any(node.name.strip(":") == name and inside(node)
               for top in find_application() for node in walk(top))


def says(part):
    return any(part in node.name for top in find_application() for node in walk(top))


def keyboard_goes_round(desk):
    running = desk.start(desk.database)
    active("Plant.ovs")
    focus(expect("tree table", "Project tree"))
    press("Home", "Down", "Down", "Down", "F6")
    wait("keyboard in the table", lambda: has_keyboard("Arguments"))
    press("F6")
    wait("keyboard out of the table", lambda: not has_keyboard("Arguments"))
    if has_keyboard("Project tree"):
        fail("F6 left the code out")
    press("F6")
    wait("keyboard in the tree", lambda: has_keyboard("Project tree"))
    press("F6", "F6", "Escape")
    wait("keyboard in the tree after Escape", lambda: has_keyboard("Project tree"))
    menus_show_their_entries()
    focus(expect("tree table", "Project tree"))
    press("ctrl+n")
    wait("question for a new project", lambda: says("New project"))
    press("Escape")
    active("Plant.ovs")
    press("ctrl+q")
    running.wait(20)


def menus_show_their_entries():
    """The menus change with the node; what they show has room enough to be read."""
    press("F10", "Right", "Right", "Right")
    edit = expect("menu item", "Edit", expect("menu", "Formulas"))
    wait("room for \"Edit\"", lambda: edit.queryComponent().getExtents(0).width > 100)
    press("Escape", "Escape")


def class_file_is_gone(desk):
    os.remove(desk.folder + "/plant/CPump.cls")
    running = desk.start(desk.database)
    wait("word of the missing file", lambda: says("CPump.cls cannot be opened"))
    press("Return")
    active("Plant.ovs")
    focus(expect("tree table", "Project tree"))
    press("Home", "Down", "Down", "Down")
    wait("word in place of the code", lambda: says("CPump.cls cannot be opened"))
    if says("met a fault"):
        fail("the program took the missing file for a fault of its own")
    press("ctrl+q")
    running.wait(20)


def main():
    desk = Desk(*sys.argv[1:4], "en")
    keyboard_goes_round(desk)
    class_file_is_gone(desk)
    desk.remove()
    print("done")


main()
