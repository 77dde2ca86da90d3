#!/usr/bin/env python3
"""Plants faults, one at a time, in a copy of src/contacts/ and prints which of them the index's tests
notice. Exit status 0 if they notice all. Needs the native-release tests' prerequisites.

    tests/contacts/plant_faults.py
"""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
OTHERS = ["src/text/ansi_native.cpp", "src/text/dial_chars.cpp", "src/text/format.cpp",
          "src/module/diagnostic_log.cpp", "tests/contacts/index_history_test.cpp",
          "tests/contacts/phone_number_index_test.cpp"]

# The text in a source, and what the fault makes of it.
FAULTS = {
    "phone_number_index.cpp": [
        (" && number[1] != '0'", ""),
        ("number.size() > kShortestTail && number[0]",
         "number.size() >= kShortestTail && number[0]"),
        ("    m_postings.RemoveFirst({key, TableBit(digit)}, record);\n", ""),
        ("  m_postings.RemoveFirst({only.key, TableBit(digit)}, only.first);\n", ""),
        ("found->count == 1", "false"),
        (" && found->key == key", ""),
        ("  match.name.clear();\n", ""),
        ("if (const auto owner = m_entryIds.Find(entryId)) DeleteKeysOf",
         "if (const auto owner = m_entryIds.Find(entryId); owner && telNumberType == 1) "
         "DeleteKeysOf"),
        ("for (int digit = 0; digit <= kLastDigit; ++digit) {\n    if (FindInTable(",
         "for (int digit = kLastDigit; digit >= 0; --digit) {\n    if (FindInTable("),
        ("candidate.size() > reachable", "candidate.size() >= reachable"),
        ("std::max(m_postings.ReachableLength(*tail), kShortestTail - 1)",
         "m_postings.ReachableLength(*tail)"),
        ("RemovePauseChars(kept)", "kept"),
        ("check ? RemovePauseChars(number) : UpperPauseChars(number)", "UpperPauseChars(number)"),
    ],
    "number_keys.h": [
        ("if (number.length < kShortestTail) return TableBit(0);", ""),
        ("static_cast<unsigned>(digit) + 4)", "static_cast<unsigned>(digit) + 3)"),
    ],
    "dial_tail.cpp": [
        ("check ? RemovePauseChars(text) : UpperPauseChars(text)", "UpperPauseChars(text)"),
        ("check ? RemovePauseChars(text) : UpperPauseChars(text)",
         "check ? RemovePauseChars(text) : text"),
    ],
    "dial_tail.h": [
        ("0x888888888888", "0x888888888880"),
    ],
    "number_postings.cpp": [
        ("EndingOf(KeyInTable(number, digit)) == ending;", "true;"),
        ("(!found || UnpackDialTail(key) < UnpackDialTail(found->key))", "(!found)"),
        ("UnpackDialTail(key) < UnpackDialTail(found->key)", "key.symbols < found->key.symbols"),
        ("found->count += posting.count;", "continue;"),
        ("    if ((posting.keys.Tables() & TableBit(digit)) == 0) continue;\n", ""),
        ("postings.back().keys == keys && ", ""),
        (" && postings.back().record == record", ""),
        ("    ++postings.back().count;\n", ""),
        ("postings.back().keys == keys && postings.back().record == record) {\n    "
         "++postings.back().count;",
         "postings.front().keys == keys && postings.front().record == record) {\n    "
         "++postings.front().count;"),
        ("if (posting.count > 1)", "if (false)"),
        ("      m_postings.Insert(bucket, i++, {kept, record, 1});\n", ""),
        ("    left &= ~removed;\n", ""),
        ("return left.Tables() & right.Tables() & TablesOfNumber(LastSymbols(number, length));",
         "return left.Tables() & TablesOfNumber(LastSymbols(number, length));"),
        ("TablesOfNumber(LastSymbols(number, length))", "TablesOfNumber(number)"),
        ("  if (length < kShortestTail && number != right.Number()) return 0;\n", ""),
        ("    if (posting.record != record) continue;\n", ""),
        ("if (kept.IsEmpty()) m_postings.Release(bucket, i--, postings.size());", ""),
    ],
    "item_blocks.h": [
        ("    items[used] = item;\n", "    if (used != 4) items[used] = item;\n"),
        ("    std::fill(items.begin(), items.end(), Item());\n", ""),
    ],
    "entry_ids.cpp": [
        ("OwnLength(owner) == parts.own.size() &&", ""),
        ("candidate.folder == parts.folder && ", ""),
        (" &&\n         std::equal(parts.own.begin(), parts.own.end(), m_texts.begin() + "
         "candidate.text)",
         ""),
        ("  std::fill(keys.begin(), keys.end(), CNumberKeys());\n", ""),
    ],
    "number_postings.h": [
        ("m_bits & 0xF", "m_bits & 0x7"),
    ],
}


def compiled(source, copy):
    target = tempfile.NamedTemporaryFile(dir=copy, suffix=".o", delete=False).name
    subprocess.run(["c++", "-std=c++20", "-O1", f"-I{copy}", f"-I{ROOT / 'src'}", f"-I{ROOT}", "-c",
                    source, "-o", target], check=True, stderr=subprocess.DEVNULL)
    return target


def is_noticed(objects, copy):
    subprocess.run(["c++", *objects, "-o", copy / "index_tests", "-lgmock", "-lgtest",
                    "-lgtest_main", "-lpthread"], check=True)
    try:
        return subprocess.run([copy / "index_tests"], stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, timeout=120).returncode != 0
    except subprocess.TimeoutExpired:
        return True


def main():
    missed = 0
    with tempfile.TemporaryDirectory() as folder:
        copy = pathlib.Path(folder)
        shutil.copytree(ROOT / "src" / "contacts", copy / "contacts")
        names = re.search(r"quor_logic\(quor_contacts\s+SOURCES(.*?)DEPENDS",
                          (copy / "contacts/CMakeLists.txt").read_text(), re.DOTALL)
        logic = [copy / "contacts" / name for name in names.group(1).split()]
        sound = {source: compiled(source, copy) for source in logic + [ROOT / o for o in OTHERS]}
        if is_noticed(sound.values(), copy):
            sys.exit("the test fails without any fault")
        for file, faults in FAULTS.items():
            path = copy / "contacts" / file
            text = path.read_text()
            for before, after in faults:
                if text.count(before) != 1:
                    sys.exit(f"found {text.count(before)} times in {file}: {before}")
                path.write_text(text.replace(before, after))
                changed = [path] if path.suffix == ".cpp" else logic
                faulty = sound | {source: compiled(source, copy) for source in changed}
                noticed = is_noticed(faulty.values(), copy)
                missed += not noticed
                print("noticed" if noticed else "MISSED ", f"{file}: {before!r} -> {after!r}",
                      flush=True)
            path.write_text(text)
    sys.exit(1 if missed else 0)


if __name__ == "__main__":
    main()
