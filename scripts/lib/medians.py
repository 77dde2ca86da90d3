#!/usr/bin/env python3
"""Reads the output of several runs of one scenario, and prints it once with the median of each figure."""

import re
import statistics
import sys

NUMBER = re.compile(r"\d+(?:\.\d+)?(?= (?:ms\b|% of|us |calls|invalidations|callbacks|messages,))")

shown = {}  # event and text without figures -> the figures of each run
moment = ""
for line in sys.stdin:
    line = line.strip()
    if line.startswith("* "):
        moment = line[2:]
    elif NUMBER.search(line):
        figures = [float(number) for number in NUMBER.findall(line)]
        shown.setdefault((moment, NUMBER.sub("#", line)), []).append(figures)

printed = None
for (moment, text), plays in shown.items():
    if moment != printed:
        print(moment)
        printed = moment
    for figures in zip(*plays):
        median = statistics.median(figures)
        exact = f"{median:.0f}" if all(f.is_integer() for f in figures) else f"{median:.1f}"
        text = text.replace("#", exact, 1)
    print(f"  {text}")
