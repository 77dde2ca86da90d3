#!/usr/bin/env python3
"""Plants faults, one at a time, in a copy of src/contacts/ and says which of them the random histories
notice. Exit status 0 if they notice every one. Needs the native-release tests' prerequisites.

    tests/contacts/plant_faults.py [word of a fault's name]
"""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
FLAGS = ["-std=c++20", "-O1"]
OTHERS = ["src/text/dial_chars.cpp", "src/text/format.cpp", "src/module/diagnostic_log.cpp",
          "tests/contacts/naive_phone_index.cpp", "tests/contacts/index_history_test.cpp"]

FAULTS = [
    # name, file, text, what it becomes
    ("leading zero of 00", "phone_number_index.cpp", " && number[1] != '0'", ""),
    ("trunk prefix of five characters", "phone_number_index.cpp",
     "number.size() > kShortestTail && number[0]", "number.size() >= kShortestTail && number[0]"),
    ("stale record kept", "phone_number_index.cpp", "    m_tables.RemoveFirst(key, record);\n    records",
     "    records"),
    ("only record kept", "phone_number_index.cpp",
     "  m_tables.RemoveFirst(key, record);\n  m_log", "  m_log"),
    ("single record told as several", "phone_number_index.cpp", "records.IsSingle()", "false"),
    ("no shorter tail after a stale one", "phone_number_index.cpp",
     "  return SearchTails(UnpackDialTail(LastSymbols(tail, key.tail.length - 1)), check, match);\n",
     "  return false;\n"),
    ("keys forgotten for their own type only", "phone_number_index.cpp",
     "if (const auto id = m_entryIds.Find(entryId)) DeleteKeysOf",
     "if (const auto id = m_entryIds.Find(entryId); id && telNumberType == 1) DeleteKeysOf"),
    ("short numbers in table 1", "phone_number_index.cpp",
     "std::min(DigitOfLength(tail.length), 1);", "1;"),
    ("table order", "phone_number_index.cpp",
     "for (int digit = 0; digit <= kLastDigit; ++digit) {\n      if (FindContactSearchData(digit,",
     "for (int digit = kLastDigit; digit >= 0; --digit) {\n      if (FindContactSearchData(digit,"),
    ("name kept from before", "phone_number_index.cpp", "  match.name.clear();\n", ""),
    ("search ended too early", "search_tables.cpp", "++folded > m_longestKey",
     "++folded >= m_longestKey"),
    ("marks ignored", "phone_number_index.cpp",
     "  if (longest.isMarked) return SearchEveryTail(number, check, match);\n", ""),
    ("pause numbers unmarked", "search_tables.cpp",
     "  if (folded.length >= kShortestTail) m_dialKeys.Mark(LastSymbols(folded, kShortestTail));\n",
     ""),
    ("other keys unmarked", "search_tables.cpp",
     "    m_dialKeys.Mark(ending);\n", ""),
    ("plain search of a number with pauses", "phone_number_index.cpp", " ||\n      HasPauses(tail)) {",
     ") {"),
    ("any matching key, not the first", "search_tables.cpp",
     " && !IsBefore(*candidate, key)", ""),
    ("exact key before the first", "search_tables.cpp",
     "  if (DigitOfLength(tail.length) == digit && !HasPauses(tail)) {",
     "  if (DigitOfLength(tail.length) == digit) {"),
    ("case of pause characters", "search_tables.cpp",
     "WithUpperPauses(*candidate) == WithUpperPauses(number)", "*candidate == number"),
    ("other keys first", "search_tables.cpp", 
     "UnpackDialTail(key.tail) < other->first", "UnpackDialTail(key.tail) > other->first"),
    ("key order of short numbers", "search_tables.cpp",
     "return leftAligned != rightAligned ? leftAligned < rightAligned : left.length < right.length;",
     "return left.symbols < right.symbols;"),
    ("long number with many pauses", "search_tables.cpp", 
     "!(check && number.size()", "!(false && number.size()"),
    ("empty span counted", "tail_table.cpp", "if (!span.Records().IsEmpty()) {\n      longest",
     "{\n      longest"),
    ("parted numbers taken for one", "tail_table.cpp",
     "    if (agreed < span.High()) return {};\n", "    if (agreed < span.High()) return span.Records();\n"),
    ("records shared after a split", "tail_table.cpp", "m_lists.Copy(whole.Records())", "whole.Records()"),
    ("way to longer tails erased", "tail_table.cpp", " || HasLongerTail(span)", ""),
    ("marked ending erased", "tail_table.cpp", " || span.IsMarked()", ""),
    ("gap left open", "tail_table.cpp", "if (!isHomeBetween)", "if (false && !isHomeBetween)"),
    ("length of short numbers", "tail_table.cpp",
     "tail.symbols | uint64_t{tail.length} << kLengthShift", "tail.symbols"),
    ("removed from longer tails too", "tail_table.cpp",
     "if (last < high) place = SplitAfter(place, last);", ""),
    ("added to longer tails too", "tail_table.cpp",
     "if (last < m_spans[place].High()) place = SplitAfter(place, last);", ""),
    ("removed from shorter tails too", "tail_table.cpp", "      if (low < lowDigit) {", "      if (false) {"),
    ("whole run removed", "record_lists.cpp", "if (--m_runs[run].count == 0)", "if (true)"),
    ("last of a ring lost", "record_lists.cpp",
     "    if (list.first.word == run) list.first.word = before;\n", ""),
    ("equal records counted across others", "record_lists.cpp", "m_runs[last].record == record &&",
     "m_runs[m_runs[last].next].record == record &&"),
    ("last run first", "record_lists.cpp", "m_runs[m_runs[list.first.word].next].record",
     "m_runs[list.first.word].record"),
    ("repeats overflow", "record_lists.h", "kMaxRepeats = 62", "kMaxRepeats = 90"),
    ("count of a run overflows", "record_lists.h", "kMaxCount = 15", "kMaxCount = 16"),
    ("types beyond seven", "record_lists.h", "word >> kEntryIdBits)", "word >> kEntryIdBits & 7)"),
    ("case of entry IDs", "entry_id_index.cpp",
     "UnpackHex(stored, HexCase::Lower", "UnpackHex(stored, HexCase::Upper"),
    ("key runs newest first", "entry_id_index.cpp", "  last = place;\n", "  if (last == kNone) last = place;\n"),
    ("end of an entry ID not unpacked", "hex_packing.cpp", "  unpack(half - kBlock);\n", ""),
    ("end of an entry ID not packed", "hex_packing.cpp",
     "  pack(half - kBlock);", ""),
    ("mixed case taken for hexadecimal", "hex_packing.cpp", "return IsZero(lost);",
     "return true;"),
    ("key without records found", "search_tables.cpp", "!key.second.IsEmpty() && ", ""),
    ("entry ID taken for the last one", "entry_id_index.cpp",
     "m_lastId == kNone || text != m_lastText", "m_lastId == kNone"),
    ("number sign taken for a digit", "dial_tail.h", "0xF0F0F0F0F0F0F0F0;", "0xE0E0E0E0E0E0E0E0;"),
    ("another beginning than the text's", "entry_id_index.cpp",
     "m_usualBeginning != 0 && shared.size() == usual.size()", "m_usualBeginning != 0"),
    ("tag left behind", "tail_table.cpp", "      SetTag(gap, m_tags[next]);\n", ""),
    ("first tags not repeated", "tail_table.cpp", "if (place < kGroup)", "if (false)"),
    ("one tag looked at", "tail_table.cpp", "found &= found - 1", "found = 0"),
    ("flash taken for pause", "dial_tail.cpp", "(PauseMarks(tail) >> 2)",
     "(PauseMarks(tail) >> 3)"),
]


def compile_file(source, target, copy):
    subprocess.run(["c++", *FLAGS, f"-I{copy}", f"-I{ROOT / 'src'}", f"-I{ROOT}", "-c", source, "-o", target], check=True,
                   stderr=subprocess.DEVNULL)


def build(copy, sources, objects):
    for source in sources:
        compile_file(source, objects / (source.name + ".o"), copy)
    test = objects / "history"
    subprocess.run(["c++", *map(str, sorted(objects.glob("*.o"))), "-o", test, "-lgtest",
                    "-lgtest_main", "-lpthread"], check=True)
    return test


def is_noticed(test):
    try:
        return subprocess.run([test], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              timeout=120).returncode != 0
    except subprocess.TimeoutExpired:
        return True


def main():
    wanted = sys.argv[1] if len(sys.argv) > 1 else ""
    missed = []
    with tempfile.TemporaryDirectory() as folder:
        copy = pathlib.Path(folder)
        objects = copy / "objects"
        objects.mkdir()
        shutil.copytree(ROOT / "src" / "contacts", copy / "contacts")
        sources = re.search(r"quor_logic\(quor_contacts\s+SOURCES(.*?)DEPENDS",
                            (copy / "contacts/CMakeLists.txt").read_text(), re.DOTALL)
        logic = [copy / "contacts" / name for name in sources.group(1).split()]
        test = build(copy, logic + [ROOT / other for other in OTHERS], objects)
        if is_noticed(test):
            sys.exit("the test fails without any fault")
        for name, file, before, after in FAULTS:
            if wanted not in name:
                continue
            path = copy / "contacts" / file
            sound = path.read_text()
            if sound.count(before) != 1:
                sys.exit(f"{name}: found {sound.count(before)} times in {file}: {before}")
            path.write_text(sound.replace(before, after))
            test = build(copy, [path] if path.suffix == ".cpp" else logic, objects)
            noticed = is_noticed(test)
            print(f"{'noticed' if noticed else 'MISSED ':8} {name}", flush=True)
            if not noticed:
                missed.append(name)
            path.write_text(sound)
            build(copy, [path] if path.suffix == ".cpp" else logic, objects)
    sys.exit(1 if missed else 0)


if __name__ == "__main__":
    main()
