# SPDX-License-Identifier: MIT
"""The desktop program as somebody uses it who hears the screen: found on the accessibility bus by
role and name, worked by keys."""
import os
import shutil
import subprocess
import sys
import tempfile
import time

import pyatspi

PATIENCE = 20  # seconds


def fail(text):
    print("FAILED:", text)
    if "OV_PICTURE" in os.environ:
        subprocess.run(["import", "-window", "root", os.environ["OV_PICTURE"]], check=False)
    application = find_application()
    if application:
        dump(application)
    sys.exit(1)


def dump(node, depth=0):
    print("  " * depth + node.getRoleName(), repr(name_of(node)))
    for i in range(min(node.childCount, 30)):
        if depth < 14 and node[i] is not None:
            dump(node[i], depth + 1)


def wait(what, condition):
    end = time.time() + PATIENCE
    while time.time() < end:
        try:
            result = condition()
        except Exception:  # the widget went while it was looked at
            result = None
        if result:
            return result
        time.sleep(0.1)
    fail("no " + what)


def find_application():
    for application in pyatspi.Registry.getDesktop(0):
        if application is not None and application.name == "ovformula-desktop":
            return application
    return None


def name_of(node):
    """The name as a screen reader says it: the control's own, or that of its label."""
    for relation in node.getRelationSet():
        if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY:
            return relation.getTarget(0).name
    return node.name


def showing(node):
    return node.getState().contains(pyatspi.STATE_SHOWING)


def walk(node):
    """Everything below a node that is shown; of a table its first cells."""
    yield node
    for i in range(min(node.childCount, 120)):
        child = node[i]
        if child is not None and showing(child):
            yield from walk(child)


def find(role, name, root=None):
    root = root or find_application()
    for window in ([root] if root.getRole() != pyatspi.ROLE_APPLICATION else root):
        for node in walk(window):
            if node.getRoleName() == role and name_of(node).strip(":") == name:
                return node
    return None


def expect(role, name, root=None):
    return wait(f"{role} \"{name}\"", lambda: find(role, name, root))


def window(title):
    return wait(f"window \"{title}\"", lambda: next(
        (w for w in find_application() if w.name == title and showing(w)), None))


def active(title_part):
    """Waits until the window has the keyboard."""
    return wait(f"active window \"{title_part}\"", lambda: next(
        (w for w in find_application()
         if title_part in w.name and w.getState().contains(pyatspi.STATE_ACTIVE)), None))


def gone(title):
    wait(f"end of window \"{title}\"", lambda: not any(
        w.name == title and showing(w) for w in find_application()))


def press(*keys):
    for key in keys:
        subprocess.run(["xdotool", "key", "--clearmodifiers", key], check=True)
        time.sleep(0.15)


def write(text):
    subprocess.run(["xdotool", "type", "--clearmodifiers", "--delay", "30", text], check=True)


def focus(node):
    node.queryComponent().grabFocus()
    time.sleep(0.3)


class Desk:
    """A project of its own in a folder of its own, and the programs."""

    def __init__(self, program, desktop, example, language):
        self.program, self.desktop, self.language = program, desktop, language
        self.folder = tempfile.mkdtemp()
        os.environ["HOME"] = self.folder
        os.environ["XDG_STATE_HOME"] = self.folder + "/state"
        os.environ["XDG_CONFIG_HOME"] = self.folder + "/config"
        shutil.copytree(example, self.folder + "/plant")
        self.database = self.folder + "/plant/Plant.ovs"
        self.run("new", self.database, "--vbp", self.folder + "/plant/PumpServer.vbp")
        self.run("alias", "add", self.database, "Tank1.Level", "Level")
        self.run("formula", "add", self.database, "--name", "Old", "--class", "PumpServer.CPump")

    def run(self, *arguments):
        return subprocess.run([self.program, *arguments, "--lang", self.language], check=True,
                              stdout=subprocess.PIPE, text=True).stdout

    def start(self, *arguments):
        running = subprocess.Popen([self.desktop, "--lang", self.language, *arguments])
        wait("application", find_application)
        return running

    def remove(self):
        shutil.rmtree(self.folder)
