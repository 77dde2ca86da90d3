#!/usr/bin/env python3
"""Plants faults, one at a time, in a copy of src/contacts/ and prints which of them the index's tests
notice. Exit status 0 if they notice all. Needs the native-release tests' prerequisites.

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
          "tests/contacts/naive_phone_index.cpp", "tests/contacts/index_history_test.cpp",
          "tests/contacts/phone_number_index_test.cpp"]

FAULTS = [
    # name, file, text, replacement
    ("leading zero of 00", "phone_number_index.cpp", " && number[1] != '0'", ""),
    ("trunk prefix of five characters", "phone_number_index.cpp",
     "number.size() > kShortestTail && number[0]", "number.size() >= kShortestTail && number[0]"),
    ("stale record kept", "phone_number_index.cpp",
     "    m_postings.RemoveFirst({several.key, TableBit(digit)}, record);\n", ""),
    ("only record kept", "phone_number_index.cpp",
     "  m_postings.RemoveFirst({only.key, TableBit(digit)}, only.first);\n", ""),
    ("single record logged as several", "phone_number_index.cpp", "found->count == 1", "false"),
    ("next key after the first", "phone_number_index.cpp", " && found->key == several.key", ""),
    ("name kept from before", "phone_number_index.cpp", "  match.name.clear();\n", ""),
    ("keys removed for their own type only", "phone_number_index.cpp",
     "if (const auto owner = m_entryIds.Find(entryId)) DeleteKeysOf",
     "if (const auto owner = m_entryIds.Find(entryId); owner && telNumberType == 1) DeleteKeysOf"),
    ("table order", "phone_number_index.cpp",
     "for (int digit = 0; digit <= kLastDigit; ++digit) {\n    if (FindInTable(",
     "for (int digit = kLastDigit; digit >= 0; --digit) {\n    if (FindInTable("),
    ("search ended too early", "phone_number_index.cpp", "candidate.size() > reachable",
     "candidate.size() >= reachable"),
    ("short tails of numbers with pauses", "phone_number_index.cpp",
     "std::max(m_postings.ReachableLength(*tail), kShortestTail - 1)",
     "m_postings.ReachableLength(*tail)"),
    ("pauses kept in a search", "phone_number_index.cpp", "RemovePauseChars(kept)", "kept"),
    ("pauses of the number kept", "phone_number_index.cpp",
     "check ? RemovePauseChars(number) : UpperPauseChars(number)", "UpperPauseChars(number)"),
    ("keys of short numbers in table 1", "number_keys.h",
     "if (number.length < kShortestTail) return TableBit(0);", ""),
    ("tail one character short", "number_keys.h", "static_cast<unsigned>(digit) + 4)",
     "static_cast<unsigned>(digit) + 3)"),
    ("pauses of the key kept", "dial_tail.cpp",
     "check ? RemovePauseChars(text) : UpperPauseChars(text)", "UpperPauseChars(text)"),
    ("case of pause characters", "dial_tail.cpp",
     "check ? RemovePauseChars(text) : UpperPauseChars(text)",
     "check ? RemovePauseChars(text) : text"),
    ("flash not seen", "dial_tail.h", "0x888888888888", "0x888888888880"),
    ("numbers with pauses in one bucket", "number_postings.cpp",
     "EndingOf(KeyInTable(number, digit)) == ending;", "true;"),
    ("any matching key, not the first", "number_postings.cpp",
     "(!found || UnpackDialTail(key) < UnpackDialTail(found->key))", "!found"),
    ("key order of short numbers", "number_postings.cpp",
     "UnpackDialTail(key) < UnpackDialTail(found->key)", "key.symbols < found->key.symbols"),
    ("records of a key not added up", "number_postings.cpp",
     "found->count += posting.count;", "continue;"),
    ("records of other tables found", "number_postings.cpp",
     "    if ((posting.keys.Tables() & TableBit(digit)) == 0) continue;\n", ""),
    ("other numbers counted", "number_postings.cpp", "postings.back().keys == keys && ", ""),
    ("other owners counted", "number_postings.cpp", " && postings.back().record == record", ""),
    ("counted, not appended", "number_postings.cpp", "    ++postings.back().count;\n", ""),
    ("counted across others", "number_postings.cpp",
     "postings.back().keys == keys && postings.back().record == record) {\n"
     "    ++postings.back().count;",
     "postings.front().keys == keys && postings.front().record == record) {\n"
     "    ++postings.front().count;"),
    ("all that are counted removed", "number_postings.cpp", "if (posting.count > 1)", "if (false)"),
    ("kept part lost", "number_postings.cpp",
     "      m_postings.Insert(bucket, i++, {kept, record, 1});\n", ""),
    ("every such record removed", "number_postings.cpp", "    left &= ~removed;\n", ""),
    ("removed from longer tails too", "number_postings.cpp",
     "return left.Tables() & right.Tables() & TablesOfNumber(LastSymbols(number, length));",
     "return left.Tables() & TablesOfNumber(LastSymbols(number, length));"),
    ("other numbers of the bucket removed", "number_postings.cpp",
     "TablesOfNumber(LastSymbols(number, length))", "TablesOfNumber(number)"),
    ("other short numbers removed", "number_postings.cpp",
     "  if (length < kShortestTail && number != right.Number()) return 0;\n", ""),
    ("removed for every owner", "number_postings.cpp",
     "    if (posting.record != record) continue;\n", ""),
    ("item lost when a block grows", "item_blocks.h", "    items[used] = item;\n",
     "    if (used != 4) items[used] = item;\n"),
    ("emptied item left in place", "number_postings.cpp",
     "if (kept.IsEmpty()) m_postings.Release(bucket, i--, postings.size());", ""),
    ("freed block not emptied", "item_blocks.h",
     "    std::fill(items.begin(), items.end(), Item());\n", ""),
    ("owner taken for another", "entry_ids.cpp", "OwnLength(owner) == parts.own.size() &&", ""),
    ("folder of an entry ID ignored", "entry_ids.cpp", "candidate.folder == parts.folder && ", ""),
    ("own part of an entry ID ignored", "entry_ids.cpp",
     " &&\n         std::equal(parts.own.begin(), parts.own.end(), m_texts.begin() + candidate.text)",
     ""),
    ("keys taken and kept", "entry_ids.cpp",
     "  std::fill(keys.begin(), keys.end(), CNumberKeys());\n", ""),
    ("types beyond seven", "number_postings.h", "m_bits & 0xF", "m_bits & 0x7"),
]


def compile_file(source, target, copy):
    subprocess.run(["c++", *FLAGS, f"-I{copy}", f"-I{ROOT / 'src'}", f"-I{ROOT}", "-c", source, "-o", target], check=True,
                   stderr=subprocess.DEVNULL)


def build(copy, sources, objects):
    for source in sources:
        compile_file(source, objects / (source.name + ".o"), copy)
    test = objects / "index_tests"
    subprocess.run(["c++", *map(str, sorted(objects.glob("*.o"))), "-o", test, "-lgmock", "-lgtest",
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
        kept = copy / "kept"
        shutil.copytree(objects, kept)
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
            shutil.copytree(kept, objects, dirs_exist_ok=True)
    sys.exit(1 if missed else 0)


if __name__ == "__main__":
    main()
