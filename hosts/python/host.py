#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""A host in Python: opens the feature window on a few features of its own. Needs PyQt5.

Usage: host.py LIBRARY [PICTURE]     with PICTURE it saves one of the window after 2 s, and ends
"""
import ctypes
import sys

from PyQt5 import QtCore, QtWidgets

INTEGER, BOOLEAN, COMMAND, FLOAT, STRING, ENUMERATION = 2, 3, 4, 5, 6, 9
READ_WRITE = 4
UNKNOWN_FEATURE = -1


class IntegerValue(ctypes.Structure):
    _fields_ = [("value", ctypes.c_int64), ("maximum", ctypes.c_int64), ("minimum", ctypes.c_int64),
                ("increment", ctypes.c_int64), ("reserved", ctypes.c_uint32 * 16)]


class FloatValue(ctypes.Structure):
    _fields_ = [("value", ctypes.c_float), ("maximum", ctypes.c_float), ("minimum", ctypes.c_float),
                ("reserved", ctypes.c_uint32 * 4)]


class StringValue(ctypes.Structure):
    _fields_ = [("value", ctypes.c_char * 256), ("maximum_length", ctypes.c_int64),
                ("reserved", ctypes.c_uint32 * 2)]


class DeviceInfo(ctypes.Structure):
    _fields_ = [("type", ctypes.c_uint32), ("name", ctypes.c_char * 128),
                ("reserved", ctypes.c_ubyte * 16)]


# Name: element of the description, value. What a real host asks its camera for.
FEATURES = {"Width": ["Integer", 640], "Gain": ["Float", 1.5], "ReverseX": ["Boolean", False],
            "DeviceUserID": ["String", "Python"], "TriggerSoftware": ["Command", None]}

DESCRIPTION = "<RegisterDescription>" + "".join(
    f"<{tag} Name='{name}'/>" for name, (tag, _) in FEATURES.items()) + (
    "<Category Name='Root'><pFeature>Camera</pFeature></Category><Category Name='Camera'>" +
    "".join(f"<pFeature>{name}</pFeature>" for name in FEATURES) +
    "</Category></RegisterDescription>")


# The callbacks are called from several threads; one step under Python's own lock is enough here.
def get_feature(kind, name, record, _user):
    value = FEATURES.get(name.decode(), [None, None])[1]
    if value is None:
        return UNKNOWN_FEATURE
    if kind == INTEGER:
        ctypes.cast(record, ctypes.POINTER(IntegerValue))[0] = IntegerValue(value, 1920, 16, 16)
    elif kind == FLOAT:
        ctypes.cast(record, ctypes.POINTER(FloatValue))[0] = FloatValue(value, 24.0, 0.0)
    elif kind == BOOLEAN:
        ctypes.cast(record, ctypes.POINTER(ctypes.c_ubyte))[0] = value
    elif kind == STRING:
        ctypes.cast(record, ctypes.POINTER(StringValue))[0] = StringValue(value.encode(), 32)
    return 0


def set_feature(kind, name, text, _user):
    read = {INTEGER: int, FLOAT: float, BOOLEAN: lambda one: one == "1", STRING: str}.get(kind)
    if read:
        FEATURES[name.decode()][1] = read(text.decode())
    print("set", name.decode(), text.decode(), flush=True)
    return 0


def get_mode(name, mode, _user):
    mode[0] = READ_WRITE if name.decode() in FEATURES else 0
    return 0


def main(library_path, picture=None):
    application = QtWidgets.QApplication(sys.argv)
    library = ctypes.CDLL(library_path)
    void, text, integer = ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int
    callbacks = (ctypes.CFUNCTYPE(integer, integer, text, void, void)(get_feature),
                 ctypes.CFUNCTYPE(integer, integer, text, text, void)(set_feature),
                 ctypes.CFUNCTYPE(integer, text, ctypes.POINTER(integer), void)(get_mode))
    library.OB_FT_Init(DESCRIPTION.encode(), None, None)
    library.OB_FT_SetDeviceInfo(ctypes.byref(DeviceInfo(1, b"Python camera")))
    library.OB_FT_SetCallBackFunc(*callbacks, None, None, None)
    library.OB_FT_Start(None, 0)
    if picture:
        window = next(w for w in application.topLevelWidgets() if w.isVisible())
        QtCore.QTimer.singleShot(2000, lambda: (window.grab().save(picture), application.quit()))
    application.exec_()
    library.OB_FT_Release()


if __name__ == "__main__":
    main(*sys.argv[1:])
