#!/usr/bin/env python3
"""Replaces the creation time in a type library of widl, so that the same IDL gives the same file.

  reset_type_library_time.py FILE

widl writes the time into two consecutive custom data values: a text and a number of seconds (13 00 is
its type, VT_UI4; 57 is padding).
"""
import re
import sys

TIMES = re.compile(rb"(Created by WIDL version [0-9.]+ at ).{24}(\nW*\x13\0).{4}", re.DOTALL)

with open(sys.argv[1], "r+b") as file:
    library, found = TIMES.subn(rb"\1Thu Jan  1 00:00:00 1970\2\0\0\0\0", file.read())
    if found != 1:
        sys.exit(f"{sys.argv[1]}: expected 1 time stamp, found {found}")
    file.seek(0)
    file.write(library)
