#!/usr/bin/env python3
"""Copies an XML document without comments, indentation and line ends.

  compact_xml.py FROM TO

For documents with text in attributes only, such as the ribbon documents in the DLL.
"""
import pathlib
import re
import sys

text = pathlib.Path(sys.argv[1]).read_text(encoding="utf-8")
text = re.sub(r"<!--.*?-->", "", text, flags=re.DOTALL)
text = re.sub(r">\s+<", "><", text)
pathlib.Path(sys.argv[2]).write_text(re.sub(r"\s+", " ", text).strip(), encoding="utf-8")
