#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""manners.py PROGRAM DESKTOP_PROGRAM EXAMPLE

The program starts again where it was left, backs up before the first change and not before, and
restores the backup byte for byte; a crash leaves a log that the next start tells of."""
import glob
import hashlib
import os
import signal
import sys

import pyatspi

from bus import (Desk, active, expect, fail, find, find_application, focus, gone, press, wait, walk,
                 window, write)


def contents(folder):
    """Bytes of every file, without the locks that come and go."""
    return {path: hashlib.sha256(open(path, "rb").read()).hexdigest()
            for path in sorted(glob.glob(folder + "/**", recursive=True))
            if os.path.isfile(path) and path.endswith((".ovs", ".cls", ".vbp", ".bas"))}


def selected(name):
    cell = find("table cell", name, find("tree table", "Project tree"))
    return cell and cell.getState().contains(pyatspi.STATE_SELECTED)


def backups(desk):
    return glob.glob(desk.folder + "/state/ovformula/backups/*/*/files.txt")


def quit_program(running):
    press("ctrl+q")
    running.wait(20)


def main():
    desk = Desk(*sys.argv[1:4], "en")
    before = contents(desk.folder + "/plant")

    # Looking is no change: no backup.
    running = desk.start(desk.database)
    active("Plant.ovs")
    focus(expect("tree table", "Project tree"))
    press("Home", "Down", "Down", "Down")
    wait("selected formula", lambda: selected("Old"))
    quit_program(running)
    if backups(desk):
        fail("a backup was made although nothing was changed")
    if contents(desk.folder + "/plant") != before:
        fail("looking changed a file")

    # The next start, without a word, is where the last one was.
    running = desk.start()
    active("Plant.ovs")
    wait("formula that was selected", lambda: selected("Old"))

    # A change; a backup is made before it.
    focus(expect("tree table", "Project tree"))
    press("F9")
    dialog = window("Formula Old")
    wait("dialog with the keyboard", lambda: dialog.getState().contains(pyatspi.STATE_ACTIVE))
    focus(expect("text", "Name", dialog))
    press("ctrl+a")
    write("Changed")
    press("Return")
    gone("Formula Old")
    wait("new name in the tree", lambda: selected("Changed"))
    if len(backups(desk)) != 1:
        fail("no backup was made before the change")
    if contents(desk.folder + "/plant") == before:
        fail("nothing was changed")

    # Restored from the menu. (By keys: what an action on the bus opens blocks the bus.)
    wait("backup in the menu", lambda: any(
        item.name.startswith("20") for item in items_below(expect("menu", "Project"))))
    press("alt+p", "b", "Return")
    expect("push button", "Yes")
    press("Tab", "space")
    wait("old name in the tree", lambda: find("table cell", "Old",
                                              find("tree table", "Project tree")))
    if contents(desk.folder + "/plant") != before:
        fail("the files are not as they were")
    if len(backups(desk)) != 2:
        fail("the state before the restoring was not kept")

    # A crash.
    running.send_signal(signal.SIGSEGV)
    running.wait(20)
    logs = glob.glob(desk.folder + "/state/ovformula/crash-*.log")
    if len(logs) != 1:
        fail("no log of the crash")
    log = open(logs[0], encoding="utf-8").read()
    if "fault: SIGSEGV" not in log or "dialog FFunction" not in log:
        fail("the log lacks fault or steps:\n" + log)
    if "Changed" in log or "Plant" in log:
        fail("the log has contents of the project:\n" + log)
    if contents(desk.folder + "/plant") != before:
        fail("the crash changed a file")
    running = desk.start()
    wait("word of the crash", lambda: any(
        "ended unexpectedly" in node.name for top in find_application() for node in walk(top)))
    running.terminate()
    running.wait()
    desk.remove()
    print("done")


def items_below(menu):
    for i in range(menu.childCount):
        yield menu[i]
        yield from items_below(menu[i])


main()
