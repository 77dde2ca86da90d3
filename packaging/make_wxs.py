#!/usr/bin/env python3
"""Writes the source of a Windows Installer package for wixl.

  make_wxs.py x64|x86 VERSION STAGE RGS... >package.wxs

The registry tables are generated from the DLL's own registration scripts, so that the package and
regsvr32 write the same entries. STAGE holds x86, x64 (each with the DLL), doctor.exe and telephone.ico.
"""
import re
import sys
import uuid
from xml.sax.saxutils import quoteattr

# Must never change: the first identifies packages that replace each other, the others identify what
# is installed.
UPGRADE_CODE = "6A5C4E0E-7B11-4B7E-9A43-3E5B0F1B2C67"
NAMES = uuid.UUID("b4b5e2f0-6d0f-4f0e-8f62-5e0a7c1d9a21")
PUBLISHER = "Quor"
NAME = "Telephone Plug-in"

TOKEN = re.compile(r"\s+|;[^\n]*|'((?:[^']|'')*)'|([{}=])|([^\s'{}=;]+)")


def tokens(text):
    position = 0
    while position < len(text):
        match = TOKEN.match(text, position)
        if not match:
            sys.exit(f"registration script: {text[position:position + 40]!r}")
        position = match.end()
        if match.group(1) is not None:
            yield match.group(1).replace("''", "'")
        elif match.group(2) or match.group(3):
            yield match.group(2) or match.group(3)


def registry_values(text):
    """Every (root, key, name, kind, data) in a script; a key without values has kind None."""
    stream = list(tokens(text))
    position = 0

    def take():
        nonlocal position
        position += 1
        return stream[position - 1]

    def at(word):
        return position < len(stream) and stream[position] == word

    def data():
        kind = take()
        return kind, take()

    def block(root, path):
        take()  # {
        while not at("}"):
            word = take()
            if word == "val":
                name = take()
                take()  # =
                yield (root, path, name, *data())
                continue
            removal = ""
            if word in ("NoRemove", "ForceRemove"):
                removal, word = word, take()
            key = f"{path}\\{word}" if path else word
            default = None
            if at("="):
                take()
                default = data()
            inner = list(block(root, key)) if at("{") else []
            if default:
                yield (root, key, "", *default)
            elif removal != "NoRemove" and not any(entry[1] == key for entry in inner):
                yield (root, key, "", None, None)
            yield from inner
        take()  # }

    while position < len(stream):
        yield from block(take(), "")


def identifier(*words):
    return str(uuid.uuid5(NAMES, "/".join(words))).upper()


def attributes(**values):
    return "".join(f" {name}={quoteattr(str(value))}" for name, value in values.items())


def registry_rows(scripts, bits):
    rows = []
    for root, key, name, kind, data in scripts:
        # HKCR would write to the user's hive if the user has such a key.
        if root == "HKCR":
            root, key = "HKLM", f"Software\\Classes\\{key}"
        if kind is None:
            # "*": created at installation, removed with the rest.
            rows.append(attributes(Root=root, Key=key, Name="*", Type="string", Value=""))
            continue
        data = data.replace("%MODULE%", f"[#Dll{bits}]")
        kind = {"s": "string", "d": "integer"}[kind]
        named = {"Name": name} if name else {}
        rows.append(attributes(Root=root, Key=key, **named, Type=kind, Value=data))
    return [f"            <RegistryValue{row}/>" for row in rows]


def dll_folder(bits, stage, scripts):
    folder = f"x{64 if bits == 64 else 86}"
    win64 = ' Win64="yes"' if bits == 64 else ""
    return [
        f'          <Directory Id="Folder{bits}" Name="{folder}">',
        f'          <Component Id="Component{bits}" Guid="{identifier("dll", str(bits))}"{win64}>',
        f'            <File Id="Dll{bits}" Name="QuorTelephoneToolbar.dll" KeyPath="yes"'
        f' Source={quoteattr(f"{stage}/{folder}/QuorTelephoneToolbar.dll")}/>',
        *registry_rows(scripts, bits),
        "          </Component>",
        "          </Directory>",
    ]


def doctor_component(architecture, stage, win64):
    return [
        f'          <Component Id="Doctor" Guid="{identifier("doctor", architecture)}"{win64}>',
        f'            <File Id="DoctorExe" Name="doctor.exe" KeyPath="yes" Source={quoteattr(stage + "/doctor.exe")}/>',
        f'            <Shortcut Id="DoctorShortcut" Directory="ProgramMenuFolder" Name="{NAME} Doctor"'
        ' Target="[#DoctorExe]"/>',
        "          </Component>",
    ]


def program_folder(parent, name, parts):
    return [
        f'      <Directory Id="{parent}">',
        f'        <Directory Id="{name}" Name="{NAME}">',
        *parts,
        "        </Directory>",
        "      </Directory>",
    ]


def folders(architecture, stage, scripts):
    if architecture == "x86":
        return program_folder("ProgramFilesFolder", "INSTALLDIR", [
            *doctor_component(architecture, stage, ""), *dll_folder(32, stage, scripts)])
    # A 32-bit component must not be in the folder for 64-bit programs.
    return [
        *program_folder("ProgramFiles64Folder", "INSTALLDIR", [
            *doctor_component(architecture, stage, ' Win64="yes"'), *dll_folder(64, stage, scripts)]),
        *program_folder("ProgramFilesFolder", "INSTALLDIR32", dll_folder(32, stage, scripts)),
    ]


def package(architecture, version, stage, scripts):
    yield '<?xml version="1.0" encoding="utf-8"?>'
    yield '<Wix xmlns="http://schemas.microsoft.com/wix/2006/wi">'
    yield "  <Product" + attributes(Id=identifier("product", architecture, version), Name=NAME,
                                    Language=1033, Version=version, Manufacturer=PUBLISHER,
                                    UpgradeCode=UPGRADE_CODE) + ">"
    yield "    <Package" + attributes(Id="*", Description=f"{NAME} {version}", Manufacturer=PUBLISHER,
                                      InstallerVersion=300, Compressed="yes",
                                      InstallScope="perMachine", Languages=1033) + "/>"
    yield '    <Media Id="1" Cabinet="files.cab" EmbedCab="yes"/>'
    if architecture == "x86":
        yield ('    <Condition Message="This is a 64-bit Windows: use the x64 package, which serves 32-bit'
               ' and 64-bit Outlook.">NOT VersionNT64</Condition>')
    yield '    <MajorUpgrade DowngradeErrorMessage="A newer version is installed."/>'
    yield f'    <Icon Id="telephone.ico" SourceFile={quoteattr(stage + "/telephone.ico")}/>'
    yield '    <Property Id="ARPPRODUCTICON" Value="telephone.ico"/>'
    yield f'    <Property Id="ARPCONTACT" Value="{PUBLISHER}"/>'
    yield '    <Property Id="ARPNOMODIFY" Value="1"/>'
    yield '    <Directory Id="TARGETDIR" Name="SourceDir">'
    yield '      <Directory Id="ProgramMenuFolder"/>'
    yield from folders(architecture, stage, scripts)
    yield "    </Directory>"
    yield f'    <Feature Id="Main" Title="{NAME}" Level="1">'
    for component in ("Doctor", "Component32") + (("Component64",) if architecture == "x64" else ()):
        yield f'      <ComponentRef Id="{component}"/>'
    yield "    </Feature>"
    yield "  </Product>"
    yield "</Wix>"


def main():
    architecture, version, stage, *paths = sys.argv[1:]
    scripts = [value for path in paths for value in registry_values(open(path, encoding="ascii").read())]
    print("\n".join(package(architecture, version, stage, scripts)))


if __name__ == "__main__":
    main()
