#!/usr/bin/env python3
"""style_test.py PRISMO2_SETTINGS: the window follows the desktop portal's light or dark style."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

from display import Display
from person import SessionBus
from waiting import until

NO_PREFERENCE, DARK, LIGHT = range(3)
BLACK, PALE = "000000", "f2f2f7"
INTERFACE = """
<node><interface name="org.freedesktop.portal.Settings">
<method name="Read"><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/></method>
<signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface></node>"""
PATH = "/org/freedesktop/portal/desktop"
SETTING = "org.freedesktop.appearance", "color-scheme"


class Portal:
    """A desktop portal with a single setting."""

    def __init__(self, address, scheme):
        from gi.repository import Gio, GLib
        self.gio, self.glib, self.scheme = Gio, GLib, scheme
        flags = Gio.DBusConnectionFlags
        self.bus = Gio.DBusConnection.new_for_address_sync(
            address, flags.AUTHENTICATION_CLIENT | flags.MESSAGE_BUS_CONNECTION, None, None)
        self.bus.register_object(PATH, Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0], self.read, None, None)
        self.bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
                           GLib.Variant("(su)", ("org.freedesktop.portal.Desktop", 0)), None, Gio.DBusCallFlags.NONE, -1, None)

    def close(self):
        self.bus.close_sync()

    def read(self, _bus, _sender, _path, _interface, _method, arguments, invocation):
        if arguments.unpack() == SETTING:
            scheme = self.glib.Variant("v", self.glib.Variant("u", self.scheme))
            invocation.return_value(self.glib.Variant("(v)", (scheme,)))
        else:
            invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", "no such setting")

    def change(self, scheme):
        self.scheme = scheme
        for group, value in (SETTING[0], scheme), ("org.example.other", LIGHT if scheme == DARK else DARK):
            told = self.glib.Variant("(ssv)", (group, SETTING[1], self.glib.Variant("u", value)))
            self.bus.emit_signal(None, PATH, "org.freedesktop.portal.Settings", "SettingChanged", told)

    def serve(self):
        while self.glib.MainContext.default().iteration(False):
            pass


class Style(unittest.TestCase):
    program = None

    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.world = pathlib.Path(directory.name)
        for made in "root", "runtime":
            (self.world / made).mkdir(mode=0o700)
        self.display = Display(390, 780)
        self.addCleanup(self.display.close)
        self.bus = SessionBus()
        self.addCleanup(self.bus.close)

    def portal(self, scheme):
        portal = Portal(self.bus.address, scheme)
        self.addCleanup(portal.close)
        return portal

    def open(self, *options):
        environment = {"PATH": os.environ["PATH"], "HOME": str(self.world), "XDG_RUNTIME_DIR": str(self.world / "runtime"),
                       "DISPLAY": self.display.name, "LANG": "C.UTF-8", "DBUS_SESSION_BUS_ADDRESS": self.bus.address}
        process = subprocess.Popen([self.program, "--root", self.world / "root", *options], env=environment)
        self.addCleanup(process.wait)
        self.addCleanup(process.terminate)
        until(self.display.windows, "the window")

    def assert_background(self, color, portal=None):
        """Checks the page's background below its rows."""
        def seen():
            if portal:
                portal.serve()
            point = self.display.run("import", "-silent", "-window", "root", "-crop", "1x1+195+700", "-depth", "8", "rgb:-",
                                     text=False)
            return point.hex()
        until(lambda: seen() == color, lambda: f"{color}; it is {seen()}")

    def test_window_is_dark_on_a_dark_desktop(self):
        portal = self.portal(DARK)
        self.open()
        self.assert_background(BLACK, portal)

    def test_window_follows_style_changes(self):
        portal = self.portal(LIGHT)
        self.open()
        self.assert_background(PALE, portal)
        portal.change(DARK)
        self.assert_background(BLACK, portal)
        portal.change(NO_PREFERENCE)
        self.assert_background(PALE, portal)

    def test_style_option_overrides_the_desktop(self):
        portal = self.portal(DARK)
        self.open("--style", "light")
        self.assert_background(PALE, portal)

    def test_window_uses_the_palette_without_a_portal(self):
        self.open()
        self.assert_background(PALE)


if __name__ == "__main__":
    Style.program = os.path.abspath(sys.argv.pop(1))
    unittest.main()
