"""A disc service with drives for discs and a reader of memory cards."""

import dbus
import dbusmock

BUS_NAME = "org.freedesktop.UDisks2"
MAIN_OBJ = "/org/freedesktop/UDisks2"
MAIN_IFACE = "org.freedesktop.UDisks2.Manager"
SYSTEM_BUS = False
IS_OBJECT_MANAGER = True

MOUNT = """
folder = '/media/%s'
self.UpdateProperties('org.freedesktop.UDisks2.Filesystem', {'MountPoints': dbus.Array([dbus.ByteArray(folder.encode() + b'\\0')], signature='ay')})
ret = folder
"""
UNMOUNT = "self.UpdateProperties('org.freedesktop.UDisks2.Filesystem', {'MountPoints': dbus.Array([], signature='ay')})"
EJECT = """
block = objects['/org/freedesktop/UDisks2/block_devices/%s']
if block.props.get('org.freedesktop.UDisks2.Filesystem', {}).get('MountPoints'):
    raise dbus.exceptions.DBusException('it is busy', name='org.freedesktop.UDisks2.Error.DeviceBusy')
self.UpdateProperties('org.freedesktop.UDisks2.Drive', {'MediaAvailable': dbus.Boolean(False, variant_level=1)})
"""
REFUSE = "raise dbus.exceptions.DBusException('the disc is scratched', name='org.freedesktop.UDisks2.Error.Failed')"
SLEEP = "import time; time.sleep(1.5); ret = '/too/late'"


def add(mock, device, medium, label, available, mount=None):
    drive = MAIN_OBJ + "/drives/" + device
    block = MAIN_OBJ + "/block_devices/" + device
    media = {"MediaCompatibility": dbus.Array([medium], signature="s"), "MediaAvailable": available}
    name = {"Drive": dbus.ObjectPath(drive), "Device": dbus.ByteArray(b"/dev/" + device.encode() + b"\0"), "IdLabel": label}
    mock.AddObject(drive, BUS_NAME + ".Drive", media, [("Eject", "a{sv}", "", EJECT % device)])
    mock.AddObject(block, BUS_NAME + ".Block", name, [])
    if mount:
        files = dbusmock.get_object(block)
        files.AddProperties(BUS_NAME + ".Filesystem", {"MountPoints": dbus.Array([], signature="ay")})
        files.AddMethods(BUS_NAME + ".Filesystem", [("Mount", "a{sv}", "s", mount), ("Unmount", "a{sv}", "", UNMOUNT)])


def load(mock, parameters):
    add(mock, "sr10", "optical_cd", "FILM2", True)
    add(mock, "sr0", "optical_cd", "FILM1", True, MOUNT % "FILM1")
    add(mock, "sr1", "optical_bd", "", False)
    add(mock, "sr2", "optical_dvd", "SCRATCH", True, REFUSE)
    add(mock, "sr3", "optical_dvd", "SLOW", True, SLEEP)
    add(mock, "mmcblk0", "flash_sd", "CARD", True, MOUNT % "CARD")
