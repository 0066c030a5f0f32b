"""Everything on the display, as a screen reader reads it."""

import dbus

CHECK_BOX = 7
ON_SCREEN = dbus.UInt32(0)


class Screen:
    """All windows, over the accessibility bus."""

    def __init__(self):
        launcher = dbus.SessionBus().get_object("org.a11y.Bus", "/org/a11y/bus")
        self.bus = dbus.bus.BusConnection(launcher.GetAddress(dbus_interface="org.a11y.Bus"))

    def call(self, node, interface, method, *arguments):
        proxy = self.bus.get_object(*node, introspect=False)
        return proxy.get_dbus_method(method, "org.a11y.atspi." + interface)(*arguments)

    def name(self, node):
        proxy = self.bus.get_object(*node, introspect=False)
        return str(proxy.Get("org.a11y.atspi.Accessible", "Name", dbus_interface=dbus.PROPERTIES_IFACE))

    def children(self, node):
        return [(str(bus), str(path)) for bus, path in self.call(node, "Accessible", "GetChildren")]

    def is_showing(self, node):
        return bool(int(self.call(node, "Accessible", "GetState")[0]) & 1 << 25)

    def is_enabled(self, node):
        return bool(int(self.call(node, "Accessible", "GetState")[0]) & 1 << 8)

    def is_switch(self, node):
        return int(self.call(node, "Accessible", "GetRole")) == CHECK_BOX

    def is_on(self, node):
        return bool(int(self.call(node, "Accessible", "GetState")[0]) & 1 << 4)

    def window(self, title):
        for application in self.children(("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")):
            for window in self.children(application):
                if self.name(window) == title and self.is_showing(window):
                    return window
        return None

    def below(self, node):
        for child in self.children(node):
            if self.is_showing(child):
                yield child
                yield from self.below(child)

    def find(self, title, name, suits=lambda node: True):
        try:
            window = self.window(title)
            found = (node for node in self.below(window) if self.name(node) == name and suits(node))
            return next(found, None) if window else None
        except dbus.DBusException:
            return None  # It went while it was looked at.

    def texts(self, title):
        try:
            window = self.window(title)
            return [name for name in map(self.name, self.below(window)) if name] if window else []
        except dbus.DBusException:
            return []

    def role(self, node):
        return str(self.call(node, "Accessible", "GetRoleName"))

    def extents(self, node):
        """Left, top, width and height, on the screen."""
        return tuple(map(int, self.call(node, "Component", "GetExtents", ON_SCREEN)))

    def centre(self, node):
        left, top, width, height = self.extents(node)
        return left + width // 2, top + height // 2
