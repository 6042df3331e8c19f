"""A simulated user of the Settings application, who sees and acts through the accessibility tree."""

import contextlib
import os
import subprocess
import tempfile
import warnings

from waiting import until


class SessionBus:
    """A private session bus and the accessibility bus that it starts, whose socket would otherwise replace another's."""

    def __init__(self):
        self.files = tempfile.TemporaryDirectory()
        environment = dict(os.environ, HOME=self.files.name, XDG_RUNTIME_DIR=self.files.name)
        self.daemon = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address"],
                                       env=environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.address = self.daemon.stdout.readline().strip()
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self.address

    def close(self):
        self.daemon.terminate()
        self.daemon.wait()
        self.daemon.stdout.close()
        self.files.cleanup()


class Person:
    """Finds elements by role and name, as a screen reader reads them."""

    def __init__(self, display):
        # Imported here because the import connects to the bus in the environment.
        import gi
        warnings.simplefilter("ignore", DeprecationWarning)
        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi, GLib
        self.atspi, self.glib = Atspi, GLib
        self.display = display
        Atspi.init()
        Atspi.set_timeout(2000, 2000)
        self.desktop = Atspi.get_desktop(0)
        self.desktop.set_cache_mask(Atspi.Cache.NONE)

    # Seeing

    def role(self, element):
        """The role's name as on Debian 12. Newer AT-SPI versions call a push button just a button."""
        name = element.get_role_name()
        return {"button": "push button"}.get(name, name)

    def everything(self, top=None):
        """Yields all elements as pairs of depth and element."""
        # An application may exit during the walk.
        try:
            found = [(0, top or self.desktop)]
            while found:
                depth, element = found.pop()
                yield depth, element
                for index in reversed(range(element.get_child_count())):
                    child = element.get_child_at_index(index)
                    if child:
                        if depth == 0:
                            # Cached state would be stale at once. The mask of an application covers all its elements.
                            child.set_cache_mask(self.atspi.Cache.NONE)
                        found.append((depth + 1, child))
        except self.glib.Error:
            return

    def shown(self, element):
        return element.get_state_set().contains(self.atspi.StateType.SHOWING)

    def look(self, role, name):
        """The last shown element with that role and name: overlays come after the page."""
        last = None
        for _, element in self.everything():
            try:
                if (self.role(element), element.get_name()) == (role, name) and self.shown(element):
                    last = element
            except self.glib.Error:
                pass
        return last

    def sees(self, role, name, deadline=10):
        return until(lambda: self.look(role, name), lambda: f"{role} '{name}' in\n{self.tree()}", deadline)

    def sees_no(self, role, name):
        until(lambda: not self.look(role, name), f"no {role} '{name}'")

    def states(self, element):
        named = self.atspi.StateType
        return {word for word in ("enabled", "checked", "focusable", "focused", "selected", "showing", "editable")
                if element.get_state_set().contains(getattr(named, word.upper()))}

    def tree(self):
        lines = []
        for depth, element in self.everything():
            try:
                lines.append(f"{'  ' * depth}{self.role(element)} '{element.get_name()}' "
                             f"{element.get_description()} {' '.join(sorted(self.states(element)))}")
            except self.glib.Error:
                pass
        return "\n".join(lines)

    # Doing

    def press(self, role, name):
        element = self.sees(role, name)
        names = [element.get_action_name(index) for index in range(element.get_n_actions())]
        # Some buttons end the program before it can answer.
        with contextlib.suppress(self.glib.Error):
            element.do_action(next(names.index(name) for name in ("Press", "Toggle") if name in names))

    def type(self, name, text):
        """Replaces the text of a field, with the keyboard."""
        field = self.sees("text", name)
        self.display.focus()
        self.press_focus(field)
        until(lambda: "focused" in self.states(field), f"the focus on '{name}'")
        self.display.tool("key", "ctrl+a")
        self.display.tool("type", text)
        # By its interface: newer versions of the library have another get_text in every element.
        until(lambda: self.atspi.Text.get_text(field, 0, -1).endswith(text), f"'{text}' in '{name}'")

    @staticmethod
    def press_focus(element):
        names = [element.get_action_name(index) for index in range(element.get_n_actions())]
        element.do_action(names.index("SetFocus"))
