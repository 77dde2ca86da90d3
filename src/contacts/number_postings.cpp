#include "contacts/number_postings.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace quor {
namespace {

// The last five characters, pause characters left out; they select the bucket.
DialTail EndingOf(const DialTail& key) {
  return LastSymbols(FoldPauses(key, true), kShortestTail);
}

uint32_t HashOf(const DialTail& ending) noexcept {
  const auto mixed = (ending.symbols << 3 | ending.length) * 0x9E3779B97F4A7C15;
  return static_cast<uint32_t>(mixed >> 32);
}

// The tables in which both numbers have the same key.
TableMask CommonTables(const CNumberKeys& left, const CNumberKeys& right) noexcept {
  const DialTail number = left.Number();
  const unsigned length = CommonEnding(number, right.Number());
  if (length < kShortestTail && number != right.Number()) return 0;
  return left.Tables() & right.Tables() & TablesOfNumber(LastSymbols(number, length));
}

// Calls `inBucket(ending, keys)` for each bucket that holds some of the keys, with those keys.
template <class InBucket>
void ForEachBucket(const CNumberKeys& keys, InBucket inBucket) {
  const DialTail number = keys.Number();
  for (TableMask tables = keys.Tables(); tables != 0;) {
    int digit = static_cast<int>(std::bit_width(tables)) - 1;
    const DialTail longest = KeyInTable(number, digit);
    const DialTail ending = EndingOf(longest);
    TableMask inside = 0;
    for (; digit >= 0 && EndingOf(KeyInTable(number, digit)) == ending; --digit) {
      inside |= tables & TableBit(digit);
    }
    inBucket(ending, CNumberKeys(longest, inside));
    tables &= ~inside;
  }
}

}  // namespace

std::vector<uint32_t> CMetOwners::Distinct() const {
  std::vector<uint32_t> owners;
  if (!m_first) return owners;
  owners.reserve(m_more.size() + 1);
  owners.push_back(*m_first);
  owners.insert(owners.end(), m_more.begin(), m_more.end());
  // Contacts scanned one after the other come in order; sorting thousands would take 0.2 ms.
  if (!std::ranges::is_sorted(owners)) std::ranges::sort(owners);
  owners.erase(std::unique(owners.begin(), owners.end()), owners.end());
  return owners;
}

void CNumberPostings::Append(const CNumberKeys& keys, CRecord record) {
  ForEachBucket(keys, [&](const DialTail& ending, const CNumberKeys& inside) {
    AppendToBucket(Bucket(ending), inside, record);
  });
}

void CNumberPostings::RemoveFirst(const CNumberKeys& keys, CRecord record) {
  ForEachBucket(keys, [&](const DialTail& ending, const CNumberKeys& inside) {
    if (FindBucket(ending) != kNoPlace) RemoveFromBucket(Bucket(ending), inside, record);
  });
}

std::optional<CNumberPostings::KeyRecords> CNumberPostings::FindFirstKey(int digit,
                                                                         const DialTail& number,
                                                                         bool check) const {
  if (number.length > static_cast<unsigned>(digit) + 4) return std::nullopt;
  std::optional<KeyRecords> found;
  CMetOwners owners;
  for (const Posting& posting : PostingsNear(number)) {
    if ((posting.keys.Tables() & TableBit(digit)) == 0) continue;
    const DialTail key = KeyInTable(posting.keys.Number(), digit);
    const bool isFoundKey = found && found->key == key;
    if (!isFoundKey && FoldPauses(key, check) != number) continue;
    if (check) owners.Add(posting.record.Owner());
    if (isFoundKey) {
      found->count += posting.count;
    } else if (!found || UnpackDialTail(key) < UnpackDialTail(found->key)) {
      found = KeyRecords{key, posting.record, posting.count, {}};
    }
  }
  if (found) found->owners = std::move(owners);
  return found;
}

unsigned CNumberPostings::ReachableLength(const DialTail& number) const {
  unsigned length = 0;
  for (const Posting& posting : PostingsNear(number)) {
    length = std::max(length, CommonEnding(FoldPauses(posting.keys.Number(), true), number));
  }
  return length;
}

uint32_t CNumberPostings::FindBucket(const DialTail& ending) const {
  return m_buckets.Find(HashOf(ending),
                        [&](uint32_t bucket) { return EndingAt(bucket) == ending; });
}

uint32_t& CNumberPostings::Bucket(const DialTail& ending) {
  return m_buckets.Slot(
      HashOf(ending), [&](uint32_t bucket) { return EndingAt(bucket) == ending; },
      [this](uint32_t bucket) { return HashOf(EndingAt(bucket)); });
}

DialTail CNumberPostings::EndingAt(uint32_t bucket) const {
  return EndingOf(m_postings.Front(bucket).keys.Number());
}

std::span<const CNumberPostings::Posting> CNumberPostings::PostingsNear(
    const DialTail& number) const {
  const uint32_t bucket = FindBucket(EndingOf(number));
  if (bucket == kNoPlace) return {};
  return m_postings.Items(bucket);
}

void CNumberPostings::AppendToBucket(uint32_t& bucket, const CNumberKeys& keys, CRecord record) {
  if (bucket == kNoPlace) bucket = m_postings.NewBlock();
  const std::span<Posting> postings = m_postings.Items(bucket);
  if (!postings.empty() && postings.back().keys == keys && postings.back().record == record) {
    ++postings.back().count;
  } else {
    m_postings.Insert(bucket, postings.size(), {keys, record, 1});
  }
}

void CNumberPostings::RemoveFromBucket(uint32_t& bucket, const CNumberKeys& keys, CRecord record) {
  std::span<Posting> postings = m_postings.Items(bucket);
  TableMask left = keys.Tables();
  for (size_t i = 0; i < postings.size() && left != 0; ++i) {
    Posting& posting = postings[i];
    if (posting.record != record) continue;
    const TableMask removed = CommonTables(posting.keys, {keys.Number(), left});
    if (removed == 0) continue;
    left &= ~removed;
    const CNumberKeys kept(posting.keys.Number(), posting.keys.Tables() & ~removed);
    if (posting.count > 1) {
      --posting.count;
      if (kept.IsEmpty()) continue;
      m_postings.Insert(bucket, i++, {kept, record, 1});
    } else {
      posting.keys = kept;
      if (kept.IsEmpty()) m_postings.Release(bucket, i--, postings.size());
    }
    postings = m_postings.Items(bucket);
  }
}

}  // namespace quor
