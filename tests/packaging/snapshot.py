#!/usr/bin/env python3
"""Prints the whole registry and all files of a Wine prefix for comparison, one line per value or file.

  snapshot.py REGISTRY_EXPORT DRIVE

REGISTRY_EXPORT is the output of "regedit /E", DRIVE the prefix's drive_c. Values that Wine itself changes
all the time are left out, and what the stand-in Outlook keeps for itself.
"""
import hashlib
import pathlib
import re
import sys

PASSING = re.compile(
    r"\\Dynamic Data|\\Control\\Video\\|^HKEY_DYN_DATA|\\HARDWARE\\|\\Control\\Print|\\Explorer\\(RecentDocs|FileExts|StreamMRU|"
    r"SessionInfo)|\\RNG\||\\Sessions\\|\\Volatile Environment|\\MountedDevices|^HKEY_USERS\\(?!S-1-5-21)|"
    r"\\Software\\Quor(\\Workbench|$)|^HKEY_CURRENT_CONFIG|^HKEY_CLASSES_ROOT|^HKEY_CURRENT_USER", re.IGNORECASE)


def registry_lines(path):
    text = pathlib.Path(path).read_bytes().decode("utf-16")
    text = re.sub(r"\\\r?\n\s*", "", text)
    key = ""
    for line in text.splitlines():
        if line.startswith("["):
            key = "" if PASSING.search(line[1:-1]) else line[1:-1]
            entry = key
        else:
            entry = f"{key}|{line}" if line else ""
            # Each run of the workbench has a separate folder; and Windows processes pending renames
            # at its start, which Wine does not do.
            if "Shell Folders|\"AppData\"=" in entry or "|\"PendingFileRenameOperations\"=" in entry:
                entry = ""
        if key and entry:
            yield entry


def file_lines(drive):
    drive = pathlib.Path(drive)
    for path in drive.rglob("*"):
        name = path.relative_to(drive).as_posix()
        if re.search(r"(^|/)(temp|inetcache|installer)(/|$)", name, re.IGNORECASE) or path.is_symlink():
            continue
        if path.is_dir():
            content = "folder"
        elif name.startswith("windows/") or name.endswith(".lnk"):
            # Skip the content of Wine's own files (a gigabyte), and of shortcuts, which contain the
            # time of the last access to their target.
            content = path.stat().st_size
        else:
            content = hashlib.sha256(path.read_bytes()).hexdigest()[:16]
        yield f"file {name} {content}"


for line in sorted([*registry_lines(sys.argv[1]), *file_lines(sys.argv[2])]):
    print(line)
