#include "contacts/search_tables.h"

#include <algorithm>
#include <optional>

#include "text/dial_chars.h"

namespace quor {
namespace {

constexpr unsigned kLengthShift = 48;

uint64_t AsOneWord(const DialTail& tail) {
  return tail.symbols | uint64_t{tail.length} << kLengthShift;
}

DialTail FromOneWord(uint64_t word) {
  return {word & ((uint64_t{1} << kLengthShift) - 1), static_cast<unsigned>(word >> kLengthShift)};
}

// As their texts compare.
bool IsBefore(const DialTail& left, const DialTail& right) {
  const uint64_t leftAligned = left.symbols << (4 * (DialTail::kMaxLength - left.length));
  const uint64_t rightAligned = right.symbols << (4 * (DialTail::kMaxLength - right.length));
  return leftAligned != rightAligned ? leftAligned < rightAligned : left.length < right.length;
}

// The key that a number with pause characters has in the table.
std::optional<DialTail> KeyOfNumber(const DialTail& number, int digit) {
  if (digit == 0) return number.length < kShortestTail ? std::optional(number) : std::nullopt;
  if (number.length < KeyLength(digit)) return std::nullopt;
  return LastSymbols(number, KeyLength(digit));
}

}  // namespace

TableKey CSearchTables::MakeKey(int digit, const std::string& text) {
  TableKey key{digit, {}, nullptr};
  if (!PackDialTail(text, key.tail) || DigitOfLength(key.tail.length) != digit) {
    key.otherText = &text;
  }
  return key;
}

void CSearchTables::Append(const TableKey& key, Record record) {
  if (key.otherText == nullptr) {
    AppendTails(key.tail, key.digit, record);
    return;
  }
  const std::string folded = RemovePauseChars(*key.otherText);
  DialTail ending;
  if (folded.size() >= kShortestTail &&
      PackDialTail(LastCharacters(folded, kShortestTail), ending)) {
    m_dialKeys.Mark(ending);
  }
  m_longestKey = std::max(m_longestKey, folded.size());
  m_lists.Append(m_otherKeys[static_cast<size_t>(key.digit)][*key.otherText], record);
  m_hasOtherKeys = true;
}

void CSearchTables::RemoveFirst(const TableKey& key, Record record) {
  if (key.otherText == nullptr) {
    m_dialKeys.RemoveFirst(key.tail, key.digit, record);
    return;
  }
  OtherKeys& keys = m_otherKeys[static_cast<size_t>(key.digit)];
  const auto found = keys.find(*key.otherText);
  if (found != keys.end()) m_lists.RemoveFirst(found->second, record);
}

void CSearchTables::AppendTails(const DialTail& tail, int lowDigit, Record record) {
  if (HasPauses(tail)) RememberPauses(tail);
  m_dialKeys.Append(tail, lowDigit, record);
}

void CSearchTables::RemoveFirstFromTails(const DialTail& tail, int lowDigit, Record record) {
  m_dialKeys.RemoveFirst(tail, lowDigit, record);
}

RecordList CSearchTables::FindFirstKey(int digit, std::string_view number, bool check,
                                       TableKey& key) const {
  key = {digit, {}, nullptr};
  // Nearly every number, in nearly every book.
  if (!m_hasOtherKeys && PackDialTail(number, key.tail) && !HasPauses(key.tail) &&
      DigitOfLength(key.tail.length) == digit) {
    const RecordList records = m_dialKeys.Find(digit, key.tail);
    if (!records.IsEmpty() || m_pauseNumbers.empty()) return records;
  }
  return FindFirstOfManyKeys(digit, number, check, key);
}

RecordList CSearchTables::FindFirstOfManyKeys(int digit, std::string_view number, bool check,
                                              TableKey& key) const {
  const RecordList records = FindFirstDialKey(digit, number, check, key.tail);
  const auto* other = FindFirstOtherKey(digit, number, check);
  if (other == nullptr || (!records.IsEmpty() && UnpackDialTail(key.tail) < other->first)) {
    return records;
  }
  key.otherText = &other->first;
  return other->second;
}

RecordList CSearchTables::Records(const TableKey& key) const {
  if (key.otherText == nullptr) return m_dialKeys.Find(key.digit, key.tail);
  const OtherKeys& keys = m_otherKeys[static_cast<size_t>(key.digit)];
  const auto found = keys.find(*key.otherText);
  return found == keys.end() ? RecordList{} : found->second;
}

size_t CSearchTables::ReachableLength(std::string_view number) const noexcept {
  size_t folded = 0;
  size_t length = 0;
  for (; length < number.size(); ++length) {
    if (!IsPauseChar(number[number.size() - 1 - length]) && ++folded > m_longestKey) break;
  }
  return length;
}

RecordList CSearchTables::FindFirstDialKey(int digit, std::string_view number, bool check,
                                           DialTail& key) const {
  DialTail tail;
  if (!PackDialTail(number, tail) && !(check && number.size() > DialTail::kMaxLength &&
                                       PackDialTail(RemovePauseChars(number), tail))) {
    return {};
  }
  if (check && HasPauses(tail)) tail = WithoutPauses(tail);
  // A key without pause characters comes before those that equal it but for theirs: each of these
  // is a pause character, of higher value, where the former goes on or ends.
  if (DigitOfLength(tail.length) == digit && !HasPauses(tail)) {
    const RecordList records = m_dialKeys.Find(digit, tail);
    if (!records.IsEmpty()) {
      key = tail;
      return records;
    }
  }
  if (m_pauseNumbers.empty()) return {};
  return FindFirstPauseKey(digit, tail, check, key);
}

RecordList CSearchTables::FindFirstPauseKey(int digit, const DialTail& number, bool check,
                                            DialTail& key) const {
  const DialTail folded = WithoutPauses(number);
  const uint64_t first = SymbolsBackwards(folded);
  const uint64_t end = first + (uint64_t{1} << (4 * (DialTail::kMaxLength - folded.length)));
  RecordList found;
  for (auto it = m_pauseNumbers.lower_bound({first, 0});
       it != m_pauseNumbers.end() && it->first < end; ++it) {
    const auto candidate = KeyOfNumber(FromOneWord(it->second), digit);
    if (!candidate || !HasPauses(*candidate)) continue;
    const bool matches = check ? WithoutPauses(*candidate) == folded
                               : WithUpperPauses(*candidate) == WithUpperPauses(number);
    if (!matches || (!found.IsEmpty() && !IsBefore(*candidate, key))) continue;
    const RecordList records = m_dialKeys.Find(digit, *candidate);
    if (records.IsEmpty()) continue;
    key = *candidate;
    found = records;
  }
  return found;
}

const CSearchTables::OtherKeys::value_type* CSearchTables::FindFirstOtherKey(
    int digit, std::string_view number, bool check) const {
  const OtherKeys& keys = m_otherKeys[static_cast<size_t>(digit)];
  const auto fold = check ? RemovePauseChars : UpperPauseChars;
  const std::string folded = fold(number);
  const auto found = std::find_if(keys.begin(), keys.end(), [&](const auto& key) {
    return !key.second.IsEmpty() && fold(key.first) == folded;
  });
  return found == keys.end() ? nullptr : &*found;
}

void CSearchTables::RememberPauses(const DialTail& tail) {
  const DialTail folded = WithoutPauses(tail);
  m_pauseNumbers.insert({SymbolsBackwards(folded), AsOneWord(tail)});
  if (folded.length >= kShortestTail) m_dialKeys.Mark(LastSymbols(folded, kShortestTail));
}

}  // namespace quor
