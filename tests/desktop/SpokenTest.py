"""What a screen reader hears of a truss that is drawn without looking: the program runs on an X server and a session
bus of its own, is worked through the desktop's accessibility bus alone, and its announcements are collected there.
Started by SpokenTest.sh as: SpokenTest.py PROGRAM TRUSS"""
import os
import subprocess
import sys
import time

import pyatspi
from gi.repository import GLib

said = []


def listen(event):
    """Readers say an announcement; of older toolkits a notice that comes up in a status bar."""
    if event.type.startswith("object:announcement"):
        said.append(str(event.any_data))
    elif event.detail1 and event.source.getRoleName() == "notification":
        if event.source.parent.getRoleName() == "status bar":
            said.append(event.source.name)


def until(ready, what):
    end = time.time() + 30
    while time.time() < end:
        while GLib.MainContext.default().iteration(False):
            pass
        found = ready()
        if found:
            return found
        time.sleep(0.05)
    raise SystemExit("waited in vain for " + what + "; said so far: " + repr(said))


def application():
    for each in pyatspi.Registry.getDesktop(0):
        if each is not None and "orvane" in (each.name or "").lower() and each.childCount > 0:
            return each
    return None


def find(root, role, name):
    for each in root:
        if each is None or not each.getState().contains(pyatspi.STATE_SHOWING):
            continue
        if each.getRoleName() == role and (each.name or "") == name:
            return each
        below = find(each, role, name)
        if below is not None:
            return below
    return None


def act(on, action):
    actions = on.queryAction()
    names = [actions.getName(i) for i in range(actions.nActions)]
    actions.doAction(names.index(action))


def expect_said(text):
    until(lambda: any(text in each for each in said), repr(text))
    print("said:", text)


def test(program, truss):
    for kind in ("object:state-changed:showing", "object:announcement"):
        pyatspi.Registry.registerEventListener(listen, kind)
    running = subprocess.Popen([program, truss])
    try:
        window = until(application, "the program")
        canvas = until(lambda: find(window, "canvas", "Drawing of the truss"), "the drawing")
        act(find(window, "check box", "Clamp Tool"), "Toggle")
        until(lambda: find(canvas, "spin button", "Cursor x"), "the cursor")
        for name, value in (("Cursor x", 5), ("Cursor y", 7)):
            find(canvas, "spin button", name).queryValue().currentValue = value
        expect_said("(5, 7), grid point")
        act(canvas, "Press")
        expect_said("made clamp at (5, 7), forces not named yet")
        act(find(window, "check box", "Numerical Value Tool"), "Toggle")
        force = until(lambda: next((e for e in canvas if (e.name or "").startswith("force at ")), None), "a force")
        act(force, "Press")
        box = until(lambda: find(canvas, "text", "Fy"), "the box for Fy")
        box.queryEditableText().setTextContents("-1250")
        act(find(canvas, "push button", "OK"), "Press")
        expect_said(", 1250 down")
        act(find(window, "push button", "Next >"), "Press")
        expect_said("Step 2: Name the member and support forces")
    finally:
        running.terminate()
        running.wait()


if __name__ == "__main__":
    os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
    os.environ["QT_QPA_PLATFORM"] = "xcb"
    test(sys.argv[1], sys.argv[2])
