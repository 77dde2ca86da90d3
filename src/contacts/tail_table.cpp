#include "contacts/tail_table.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <utility>

namespace quor {
namespace {

constexpr unsigned kLowShift = 48;
constexpr uint64_t kUsed = uint64_t{1} << 63;
constexpr unsigned kSymbolCount = 16;
constexpr size_t kFirstPlaces = 16;

constexpr uint8_t kVacant = 0;
constexpr uint8_t kTagged = 0x80;
constexpr uint64_t kEveryByte = 0x0101010101010101;
constexpr size_t kGroup = sizeof(kEveryByte);  // tags looked at together

// A short number's length is part of its symbols, or "12" would be "#12" without its first one.
constexpr unsigned kLengthShift = 16;

// The top bits of the tags that are vacant.
constexpr uint64_t Vacant(uint64_t tags) noexcept {
  return ~tags & kTagged * kEveryByte;
}

// Which of the tags is the first one whose top bit is set.
constexpr size_t FirstMarked(uint64_t marks) noexcept {
  return static_cast<size_t>(std::countr_zero(marks)) / 8;
}

constexpr std::array<uint64_t, kLastDigit + 1> MakeSymbolMasks() {
  std::array<uint64_t, kLastDigit + 1> masks{(uint64_t{1} << (kLengthShift + 3)) - 1};
  for (int digit = 1; digit <= kLastDigit; ++digit) {
    masks[static_cast<size_t>(digit)] = (uint64_t{1} << (4 * KeyLength(digit))) - 1;
  }
  return masks;
}

constexpr std::array<uint64_t, kLastDigit + 1> kSymbolMasks = MakeSymbolMasks();

constexpr uint64_t SymbolMask(int digit) noexcept {
  return kSymbolMasks[static_cast<size_t>(digit)];
}

uint64_t SymbolsOf(const DialTail& tail) noexcept {
  return tail.length < kShortestTail ? tail.symbols | uint64_t{tail.length} << kLengthShift
                                     : tail.symbols;
}

}  // namespace

void CTailTable::Span::SetRecords(const RecordList& list) noexcept {
  first = list.first;
  key[1] = (key[1] & ~(0x3FU << 24)) | list.repeats << 24;
}

void CTailTable::Span::SetHigh(int digit) noexcept {
  const uint64_t symbols = Symbols() & SymbolMask(digit);
  key[0] = static_cast<uint32_t>(symbols);
  key[1] = (key[1] & ~0x00F0FFFFU) | static_cast<uint32_t>(symbols >> 32) |
           static_cast<uint32_t>(digit) << 20;
}

// What a span is found by: its first digit and the symbols of its shortest tail.
inline uint64_t CTailTable::StartKey(uint64_t symbols, int low) noexcept {
  return (symbols & SymbolMask(low)) | static_cast<uint64_t>(low) << kLowShift;
}

inline uint64_t CTailTable::StartMask(int low) noexcept {
  return SymbolMask(low) | uint64_t{0xF} << kLowShift | kUsed;
}

inline CTailTable::Home CTailTable::HomeOf(uint64_t startKey) const noexcept {
  // 32-bit steps: half of the Outlooks out there are 32-bit processes.
  uint32_t hash =
      static_cast<uint32_t>(startKey) ^ (static_cast<uint32_t>(startKey >> 32) * 0x85EBCA6BU);
  hash *= 0x9E3779B1U;
  hash ^= hash >> 15;
  hash *= 0xC2B2AE35U;
  const uint64_t place = static_cast<uint64_t>(hash) * m_spans.size();
  return {static_cast<size_t>(place >> 32), static_cast<uint8_t>(kTagged | (place >> 25 & 0x7F))};
}

inline uint64_t CTailTable::Tags(size_t place) const noexcept {
  uint64_t tags = 0;
  std::memcpy(&tags, &m_tags[place], kGroup);
  return tags;
}

// The span of which `low` is the first digit, on the way to the symbols.
inline size_t CTailTable::FindStart(uint64_t symbols, int low) const noexcept {
  if (m_spans.empty()) return kNone;
  const uint64_t key = StartKey(symbols, low);
  const uint64_t mask = StartMask(low);
  const Home home = HomeOf(key);
  __builtin_prefetch(&m_spans[home.place]);
  for (size_t first = home.place;;) {
    const uint64_t tags = Tags(first);
    // The lowest byte that is marked is one with the tag; those above it may not be.
    const uint64_t others = tags ^ home.tag * kEveryByte;
    uint64_t found = (others - kEveryByte) & ~others & kTagged * kEveryByte;
    for (; found != 0; found &= found - 1) {
      const size_t place = Wrapped(first + FirstMarked(found));
      if ((m_spans[place].Key() & mask) == (key | kUsed)) return place;
    }
    if (Vacant(tags) != 0) return kNone;
    first = Wrapped(first + kGroup);
  }
}

void CTailTable::SetTag(size_t place, uint8_t tag) noexcept {
  m_tags[place] = tag;
  if (place < kGroup) m_tags[m_spans.size() + place] = tag;
}

// The highest digit of the span at which it still is a tail of the symbols.
inline int CTailTable::AgreedDigit(const Span& span, uint64_t symbols) noexcept {
  const uint64_t difference = span.Symbols() ^ symbols;
  return std::min(span.High(), std::countr_zero(difference) / 4 - 4);
}

RecordList CTailTable::Find(int digit, const DialTail& key) const noexcept {
  const uint64_t symbols = SymbolsOf(key);
  int low = std::min(digit, 1);
  while (low <= digit) {
    const size_t place = FindStart(symbols, low);
    if (place == kNone) return {};
    const Span& span = m_spans[place];
    const int agreed = AgreedDigit(span, symbols);
    if (agreed >= digit) return span.Records();
    if (agreed < span.High()) return {};
    low = span.High() + 1;
  }
  return {};
}

void CTailTable::FindLongest(const DialTail& tail, LongestKey& longest) const noexcept {
  longest = {};
  const int highDigit = DigitOfLength(tail.length);
  for (int low = 1; low <= highDigit;) {
    const size_t place = FindStart(tail.symbols, low);
    if (place == kNone) return;
    const Span& span = m_spans[place];
    const int agreed = AgreedDigit(span, tail.symbols);
    if (low == 1) longest.isMarked = span.IsMarked();
    if (!span.Records().IsEmpty()) {
      longest.digit = std::min(agreed, highDigit);
      longest.records = span.Records();
    }
    if (agreed < span.High()) return;
    low = span.High() + 1;
  }
}

void CTailTable::Mark(const DialTail& ending) {
  size_t place = FindStart(ending.symbols, 1);
  if (place == kNone) place = Create(ending.symbols, 1, 1, {});
  m_spans[place].key[1] |= 1U << 30;
}

void CTailTable::Append(const DialTail& tail, int lowDigit, Record record) {
  const uint64_t symbols = SymbolsOf(tail);
  const int highDigit = DigitOfLength(tail.length);
  int low = std::min(lowDigit, 1);
  while (low <= highDigit) {
    size_t place = FindStart(symbols, low);
    if (place == kNone) {
      if (low < lowDigit) Create(symbols, low, lowDigit - 1, {});
      Create(symbols, std::max(low, lowDigit), highDigit, {record, 1});
      return;
    }
    int last = std::min(AgreedDigit(m_spans[place], symbols), highDigit);
    if (low < lowDigit) last = std::min(last, lowDigit - 1);
    if (last < m_spans[place].High()) place = SplitAfter(place, last);
    if (low >= lowDigit) {
      RecordList list = m_spans[place].Records();
      m_lists.Append(list, record);
      m_spans[place].SetRecords(list);
    }
    low = last + 1;
  }
}

void CTailTable::RemoveFirst(const DialTail& tail, int lowDigit, Record record) {
  const uint64_t symbols = SymbolsOf(tail);
  const int highDigit = DigitOfLength(tail.length);
  int low = std::min(lowDigit, 1);
  while (low <= highDigit) {
    size_t place = FindStart(symbols, low);
    if (place == kNone) break;
    const int agreed = AgreedDigit(m_spans[place], symbols);
    const int high = m_spans[place].High();
    const int last = std::min(agreed, highDigit);
    if (last >= lowDigit && m_lists.Contains(m_spans[place].Records(), record)) {
      if (low < lowDigit) {
        SplitAfter(place, lowDigit - 1);
        low = lowDigit;
        continue;
      }
      if (last < high) place = SplitAfter(place, last);
      RecordList list = m_spans[place].Records();
      m_lists.RemoveFirst(list, record);
      m_spans[place].SetRecords(list);
    }
    if (agreed < high) break;
    low = high + 1;
  }
  EraseUnused(tail);
}

bool CTailTable::HasLongerTail(const Span& span) const noexcept {
  const int next = span.High() + 1;
  if (span.High() == 0 || next > kLastDigit) return false;
  for (uint64_t symbol = 0; symbol < kSymbolCount; ++symbol) {
    const uint64_t symbols = span.Symbols() | symbol << (4 * KeyLength(span.High()));
    if (FindStart(symbols, next) != kNone) return true;
  }
  return false;
}

size_t CTailTable::Create(uint64_t symbols, int low, int high, const RecordList& list) {
  if ((m_used + 1) * 5 > m_spans.size() * 4) Grow();
  const uint64_t key = (symbols & SymbolMask(high)) | static_cast<uint64_t>(low) << kLowShift |
                       static_cast<uint64_t>(high) << (kLowShift + 4) | kUsed;
  Span span;
  span.key = std::bit_cast<std::array<uint32_t, 2>>(key);
  span.SetRecords(list);
  ++m_used;
  return Place(span);
}

size_t CTailTable::Place(const Span& span) noexcept {
  const Home home = HomeOf(span);
  size_t place = home.place;
  uint64_t vacant = Vacant(Tags(place));
  while (vacant == 0) {
    place = Wrapped(place + kGroup);
    vacant = Vacant(Tags(place));
  }
  place = Wrapped(place + FirstMarked(vacant));
  m_spans[place] = span;
  SetTag(place, home.tag);
  return place;
}

// By a half: the table stays between 53 and 80 per cent full.
void CTailTable::Grow() {
  const size_t places = std::max(kFirstPlaces, m_spans.size() + m_spans.size() / 2);
  std::vector<Span> larger(places);
  std::vector<uint8_t> tags(places + kGroup);
  m_tags.swap(tags);
  m_spans.swap(larger);
  for (const Span& span : larger) {
    if (span.IsUsed()) Place(span);
  }
}

// Leaves the digits up to this one where they are and gives those above a span and records of their
// own. Returns where the former are now.
size_t CTailTable::SplitAfter(size_t place, int digit) {
  const Span whole = m_spans[place];
  Create(whole.Symbols(), digit + 1, whole.High(), m_lists.Copy(whole.Records()));
  const size_t lower = FindStart(whole.Symbols(), whole.Low());
  m_spans[lower].SetHigh(digit);
  return lower;
}

// Closes the gap, so that no search stops short of a span that was placed beyond it.
void CTailTable::Erase(size_t place) noexcept {
  size_t gap = place;
  for (size_t next = Wrapped(gap + 1); m_tags[next] != kVacant; next = Wrapped(next + 1)) {
    const size_t home = HomeOf(m_spans[next]).place;
    const bool isHomeBetween = gap < next ? home > gap && home <= next : home > gap || home <= next;
    if (!isHomeBetween) {
      m_spans[gap] = m_spans[next];
      SetTag(gap, m_tags[next]);
      gap = next;
    }
  }
  m_spans[gap] = {};
  SetTag(gap, kVacant);
  --m_used;
}

// Drops the spans on the way to the tail that no longer have records or lead to any.
void CTailTable::EraseUnused(const DialTail& tail) noexcept {
  const uint64_t symbols = SymbolsOf(tail);
  std::array<int, kLastDigit + 1> starts{};
  size_t count = 0;
  const int highDigit = DigitOfLength(tail.length);
  for (int low = std::min(highDigit, 1); low <= highDigit;) {
    const size_t place = FindStart(symbols, low);
    if (place == kNone) break;
    starts[count++] = low;
    if (AgreedDigit(m_spans[place], symbols) < m_spans[place].High()) break;
    low = m_spans[place].High() + 1;
  }
  while (count > 0) {
    const size_t place = FindStart(symbols, starts[--count]);
    const Span& span = m_spans[place];
    if (!span.Records().IsEmpty() || span.IsMarked() || HasLongerTail(span)) return;
    Erase(place);
  }
}

}  // namespace quor
