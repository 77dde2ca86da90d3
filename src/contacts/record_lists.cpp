#include "contacts/record_lists.h"

#include <new>

namespace quor {

Record CRecordLists::First(const RecordList& list) const noexcept {
  if (list.repeats != RecordList::kElsewhere) return list.first;
  return m_runs[m_runs[list.first.word].next].record;
}

size_t CRecordLists::Count(const RecordList& list) const noexcept {
  if (list.repeats != RecordList::kElsewhere) return list.repeats;
  size_t count = 0;
  uint32_t run = list.first.word;
  do {
    run = m_runs[run].next;
    count += m_runs[run].count;
  } while (run != list.first.word);
  return count;
}

bool CRecordLists::Contains(const RecordList& list, Record record) const noexcept {
  if (list.repeats != RecordList::kElsewhere) return !list.IsEmpty() && list.first == record;
  uint32_t run = list.first.word;
  do {
    run = m_runs[run].next;
    if (m_runs[run].record == record) return true;
  } while (run != list.first.word);
  return false;
}

void CRecordLists::Append(RecordList& list, Record record) {
  if (list.IsEmpty()) {
    list = {record, 1};
    return;
  }
  if (list.repeats < RecordList::kMaxRepeats && list.first == record) {
    ++list.repeats;
    return;
  }
  uint32_t last = list.first.word;
  if (list.repeats != RecordList::kElsewhere) {
    last = kNone;
    AppendToRing(last, list.first, list.repeats);
  }
  AppendToRing(last, record, 1);
  list.first.word = last;
  list.repeats = RecordList::kElsewhere;
}

bool CRecordLists::RemoveFirst(RecordList& list, Record record) noexcept {
  if (!Contains(list, record)) return false;
  if (list.repeats != RecordList::kElsewhere) {
    --list.repeats;
    return true;
  }
  uint32_t before = list.first.word;
  while (m_runs[m_runs[before].next].record != record) {
    before = m_runs[before].next;
  }
  const uint32_t run = m_runs[before].next;
  if (--m_runs[run].count == 0) {
    m_runs[before].next = m_runs[run].next & kNone;
    if (list.first.word == run) list.first.word = before;
    FreeRun(run);
  }
  Shrink(list);
  return true;
}

RecordList CRecordLists::Copy(const RecordList& list) {
  if (list.repeats != RecordList::kElsewhere) return list;
  uint32_t last = kNone;
  uint32_t run = list.first.word;
  do {
    run = m_runs[run].next;
    AppendToRing(last, m_runs[run].record, m_runs[run].count);
  } while (run != list.first.word);
  RecordList copy;
  copy.first.word = last;
  copy.repeats = RecordList::kElsewhere;
  return copy;
}

uint32_t CRecordLists::NewRun(Record record) {
  if (m_free == kNone) {
    if (m_runs.Size() == kNone) throw std::bad_alloc();
    const uint32_t run = m_runs.Add(1);
    m_runs[run] = {record, kNone, 1};
    return run;
  }
  const uint32_t run = m_free;
  m_free = m_runs[run].next;
  m_runs[run] = {record, kNone, 1};
  return run;
}

void CRecordLists::AppendToRing(uint32_t& last, Record record, uint32_t count) {
  for (; count > 0; --count) {
    if (last != kNone && m_runs[last].record == record && m_runs[last].count < kMaxCount) {
      ++m_runs[last].count;
      continue;
    }
    const uint32_t run = NewRun(record);
    const uint32_t first = last == kNone ? run : m_runs[last].next;
    m_runs[run].next = first & kNone;
    if (last != kNone) m_runs[last].next = run & kNone;
    last = run;
  }
}

void CRecordLists::FreeRun(uint32_t run) noexcept {
  m_runs[run].next = m_free & kNone;
  m_free = run;
}

// A list of one short run needs no place here.
void CRecordLists::Shrink(RecordList& list) noexcept {
  const uint32_t run = list.first.word;
  if (m_runs[run].next == run && m_runs[run].count <= RecordList::kMaxRepeats) {
    list = {m_runs[run].record, m_runs[run].count};
    FreeRun(run);
  }
}

}  // namespace quor
