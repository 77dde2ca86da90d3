#!/usr/bin/env python3
"""Writes the published members of object_model.tsv as a C++ table.

  object_model_table.py FROM TO

Each line of FROM is one member of a type library of Outlook 12 or Office 12; a tab separates the columns:
interface, its IID, the member's name, its DISPID, its kind (get, put, method, get+put), its arguments in
declaration order ("Name:TYPE, ..."), its result. A TYPE is a VARTYPE without VT_, with & where it is passed by
reference, and with the enumeration or interface in brackets. Which arguments are optional is not said. The
value of a property write is not among the arguments: its type is the result's.
"""
import csv
import pathlib
import sys
import uuid

KINDS = {
    "get": "DISPATCH_PROPERTYGET",
    "put": "DISPATCH_PROPERTYPUT",
    "get+put": "DISPATCH_PROPERTYGET | DISPATCH_PROPERTYPUT",
    "method": "DISPATCH_METHOD",
}


def vartype(text):
    name = text.split("(")[0]
    return ("VT_BYREF | " if name.endswith("&") else "") + "VT_" + (name.rstrip("&") or "EMPTY")


def iid(text):
    one = uuid.UUID(text)
    return (f"{{{one.time_low:#x}, {one.time_mid:#x}, {one.time_hi_version:#x}, "
            f"{{{', '.join(map(hex, one.bytes[8:]))}}}}}")


with open(sys.argv[1], newline="", encoding="ascii") as file:
    rows = list(csv.DictReader(file, delimiter="\t"))

arguments, members = [], []
for row in rows:
    own = [one.split(":") for one in row["arguments"].split(", ") if one]
    members.append(f'    {{L"{row["interface"]}", {iid(row["iid"])}, L"{row["member"]}", '
                   f'static_cast<DISPID>({int(row["dispid"], 0) & 0xFFFFFFFF:#x}), {KINDS[row["kind"]]}, '
                   f'std::span(kArguments).subspan({len(arguments)}, {len(own)}), {vartype(row["result"])}}},')
    arguments += [f'    {{L"{name}", {vartype(type)}}},' for name, type in own]

pathlib.Path(sys.argv[2]).write_text("\n".join([
    '#include "workbench/office/published_members.h"',
    "",
    "namespace quor::workbench {",
    "namespace {",
    "",
    "constexpr PublishedArgument kArguments[] = {", *arguments, "};",
    "",
    "constexpr PublishedMember kMembers[] = {", *members, "};",
    "",
    "}  // namespace",
    "",
    "std::span<const PublishedMember> PublishedMembers() noexcept {",
    "  return kMembers;",
    "}",
    "",
    "}  // namespace quor::workbench",
    "",
]), encoding="utf-8")
