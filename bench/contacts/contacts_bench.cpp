// Times the index against its rivals, side by side: the walk through ordered tables as the tests
// keep it, and the same tables with the keys looked up in ordered and in hash maps. The contenders
// take turns and medians are shown, with the log off; ratios are what to read.
//
//   contacts_bench                      everything
//   contacts_bench instructions OP N    does OP N times on 5,000 contacts, for callgrind; no OP:
//   lists
#include <malloc.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "bench/contacts/contenders.h"
#include "bench/contacts/counted_memory.h"
#include "bench/contacts/sample_book.h"

namespace quor {
namespace {

constexpr size_t kUsualContacts = 5000;
constexpr size_t kUsualNumbers = 3;
constexpr size_t kSampleNumbers = 4096;
constexpr size_t kTargetCache = size_t{512} << 20;  // more than any cache of the machine

// Of this thread's own processor time: what else the machine does is not ours to measure.
double NowInNs() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e9 + static_cast<double>(now.tv_nsec);
}

// Makes the compiler believe that somebody looks at the result.
void KeepResult(uint64_t result) {
  asm volatile("" : : "r"(result) : "memory");
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values.empty() ? 0 : values[values.size() / 2];
}

[[noreturn]] void Fail(const char* what) {
  std::fprintf(stderr, "contacts_bench: %s\n", what);
  std::exit(1);
}

// A look-up to race, and the numbers for it.
struct Race {
  const char* name;
  bool isSearch;
  std::vector<std::string> numbers;
};

template <class Contender>
size_t LookUp(Contender& contender, const Race& race, const std::string& number) {
  return race.isSearch ? contender.Search(number) : contender.Find(number);
}

// Who runs in a race, over how many numbers, and how long one took in each run.
template <class Contender>
struct Runner {
  Contender* contender;
  size_t amount;
  std::vector<double> runs{};

  void Run(const Race& race) {
    if (contender == nullptr) return;
    size_t digest = 0;
    const double start = NowInNs();
    for (size_t i = 0; i < amount; ++i) {
      digest ^= LookUp(*contender, race, race.numbers[i % race.numbers.size()]);
    }
    const double end = NowInNs();
    runs.push_back((end - start) / static_cast<double>(amount));
    KeepResult(digest);
  }

  void CheckAgainst(CIndex& index, const Race& race) {
    for (size_t i = 0; contender != nullptr && i < std::min<size_t>(amount, 500); ++i) {
      const std::string& number = race.numbers[i % race.numbers.size()];
      if (LookUp(*contender, race, number) != LookUp(index, race, number)) Fail("answers differ");
    }
  }
};

void PrintRatio(double rival, double own) {
  if (rival > 0) {
    std::printf(" %11.0f", rival / own);
  } else {
    std::printf(" %11s", "-");
  }
}

std::vector<Race> RacesOver(const SampleBook& book) {
  return {{"Search, unknown", true, UnknownNumbers(kSampleNumbers)},
          {"Search, known", true, KnownNumbers(book, kSampleNumbers)},
          {"Find, unknown", false, UnknownNumbers(kSampleNumbers)},
          {"Find, known", false, StoredNumbers(book, kSampleNumbers)}};
}

template <class Contender>
std::unique_ptr<Contender> Filled(const SampleBook& book) {
  auto contender = std::make_unique<Contender>();
  contender->Fill(book);
  return contender;
}

void RaceLookUps(size_t contacts) {
  constexpr int kRounds = 9;
  const SampleBook book = MakeSampleBook(contacts, kUsualNumbers);
  const auto index = Filled<CIndex>(book);
  const auto hash = contacts <= 50'000 ? Filled<CHashRival>(book) : nullptr;
  const auto ordered = contacts <= 50'000 ? Filled<COrderedRival>(book) : nullptr;
  const auto walk = contacts <= 50'000 ? Filled<CWalk>(book) : nullptr;
  for (const Race& race : RacesOver(book)) {
    Runner<CIndex> ownRunner{index.get(), 40 * kSampleNumbers};
    Runner<CHashRival> hashRunner{hash.get(), 2 * kSampleNumbers};
    Runner<COrderedRival> orderedRunner{ordered.get(), kSampleNumbers};
    Runner<CWalk> walkRunner{walk.get(), contacts <= kUsualContacts ? 10'000 / contacts : 1};
    hashRunner.CheckAgainst(*index, race);
    orderedRunner.CheckAgainst(*index, race);
    walkRunner.CheckAgainst(*index, race);
    for (int round = 0; round < kRounds; ++round) {
      ownRunner.Run(race);
      hashRunner.Run(race);
      orderedRunner.Run(race);
      if (round < 3) walkRunner.Run(race);
    }
    const double own = Median(ownRunner.runs);
    std::printf("%8zu  %-16s %8.1f", contacts, race.name, own);
    PrintRatio(Median(hashRunner.runs), own);
    PrintRatio(Median(orderedRunner.runs), own);
    PrintRatio(Median(walkRunner.runs), own);
    std::printf("\n");
    std::fflush(stdout);
  }
}

// Reads more than the caches hold, so that nothing of the contenders is left in them.
class CCacheSweeper {
 public:
  CCacheSweeper() : m_memory(kTargetCache / sizeof(uint64_t), 1) {}
  void Sweep() {
    uint64_t sum = 0;
    for (size_t i = 0; i < m_memory.size(); i += 8)
      sum += ++m_memory[i];
    KeepResult(sum);
  }

 private:
  std::vector<uint64_t> m_memory;
};

// A few different numbers each time, so that it is the data that is cold and not only the code.
constexpr size_t kColdNumbers = 32;

template <class Contender>
double TimeCold(Contender& contender, const Race& race, size_t first, CCacheSweeper& sweeper) {
  sweeper.Sweep();
  size_t digest = 0;
  const double start = NowInNs();
  for (size_t i = 0; i < kColdNumbers; ++i) {
    digest ^= LookUp(contender, race, race.numbers[first + i]);
  }
  const double end = NowInNs();
  KeepResult(digest);
  return (end - start) / kColdNumbers;
}

void RaceCold() {
  constexpr size_t kRounds = 41;
  const SampleBook book = MakeSampleBook(kUsualContacts, kUsualNumbers);
  const auto index = Filled<CIndex>(book);
  const auto hash = Filled<CHashRival>(book);
  CCacheSweeper sweeper;
  for (const Race& race : RacesOver(book)) {
    std::vector<double> own;
    std::vector<double> rival;
    for (size_t round = 0; round < kRounds; ++round) {
      own.push_back(TimeCold(*index, race, round * kColdNumbers, sweeper));
      rival.push_back(TimeCold(*hash, race, round * kColdNumbers, sweeper));
    }
    std::printf("%8zu  %-16s %8.0f %11.1f\n", kUsualContacts, race.name, Median(own),
                Median(rival) / Median(own));
  }
}

template <class Contender>
void TimeChanges(SampleBook& book, std::vector<double>& builds, std::vector<double>& changes) {
  const auto each = static_cast<double>(book.size());
  malloc_trim(0);  // or this one would tidy up after the one before
  const double start = NowInNs();
  const auto contender = Filled<Contender>(book);
  const double built = NowInNs();
  contender->Change(book);
  const double changed = NowInNs();
  builds.push_back((built - start) / each);
  changes.push_back((changed - built) / each);
}

void RaceChanges(size_t numbersEach) {
  constexpr int kRounds = 7;
  SampleBook book = MakeSampleBook(kUsualContacts, numbersEach);
  std::vector<double> builds[3];
  std::vector<double> changes[3];
  for (int round = 0; round < kRounds; ++round) {
    TimeChanges<CIndex>(book, builds[0], changes[0]);
    TimeChanges<CHashRival>(book, builds[1], changes[1]);
    TimeChanges<COrderedRival>(book, builds[2], changes[2]);
  }
  const auto print = [numbersEach](const char* what, const std::vector<double>(&times)[3]) {
    const double own = Median(times[0]);
    std::printf("%8zu  %-16s %8.0f %11.1f %11.1f\n", numbersEach, what, own, Median(times[1]) / own,
                Median(times[2]) / own);
  };
  print("build", builds);
  print("change", changes);
}

// Bytes a contact: after the build, and what one and ten more changes of every contact add.
template <class Contender>
void PrintMemory(const char* name, size_t contacts, size_t numbersEach) {
  SampleBook book = MakeSampleBook(contacts, numbersEach);
  const size_t before = BytesInUse();
  const auto perContact = [&](size_t since) {
    return static_cast<double>(BytesInUse() - since) / static_cast<double>(contacts);
  };
  const auto contender = Filled<Contender>(book);
  const size_t built = BytesInUse();
  std::printf("%8zu %4zu  %-12s %8.0f", contacts, numbersEach, name, perContact(before));
  contender->Change(book);
  const size_t changedOnce = BytesInUse();
  std::printf(" %8.0f", perContact(built));
  contender->Change(book);
  std::printf(" %8.0f", perContact(changedOnce));
  for (int i = 0; i < 8; ++i)
    contender->Change(book);
  std::printf(" %8.0f\n", perContact(built));
}

void RunLookUps() {
  std::printf("Look-ups, checked, three numbers a contact: ns, and times as fast as\n");
  std::printf("%8s  %-16s %8s %11s %11s %11s\n", "contacts", "", "ns", "hash maps", "ordered",
              "walk");
  for (const size_t contacts : {500, 5000, 50'000, 500'000})
    RaceLookUps(contacts);
}

void RunCold() {
  std::printf("The same with the caches swept before each: ns, and times as fast as\n");
  std::printf("%8s  %-16s %8s %11s\n", "contacts", "", "ns", "hash maps");
  RaceCold();
}

void RunChanges() {
  std::printf("Build and first change of all of 5,000 contacts: ns a contact, times as fast as\n");
  std::printf("%8s  %-16s %8s %11s %11s\n", "numbers", "", "ns", "hash maps", "ordered");
  for (const size_t numbers : {3, 12})
    RaceChanges(numbers);
}

void RunMemory() {
  std::printf("Memory, bytes a contact: built, then added by changes of every contact\n");
  std::printf("%8s %4s  %-12s %8s %8s %8s %8s\n", "contacts", "nos.", "", "built", "first",
              "second", "ten");
  for (const size_t contacts : {500, 5000, 50'000})
    PrintMemory<CIndex>("index", contacts, 3);
  PrintMemory<CIndex>("index", kUsualContacts, 12);
  PrintMemory<CHashRival>("hash maps", kUsualContacts, 3);
  PrintMemory<CWalk>("walk", kUsualContacts, 3);
  PrintMemory<CWalk>("walk", kUsualContacts, 12);
}

struct Section {
  const char* name;
  void (*run)();
};
constexpr Section kSections[] = {
    {"look-ups", RunLookUps}, {"cold", RunCold}, {"changes", RunChanges}, {"memory", RunMemory}};

int RunSections(const char* wanted) {
  bool isKnown = false;
  for (const Section& section : kSections) {
    if (wanted != nullptr && std::strcmp(section.name, wanted) != 0) continue;
    if (isKnown) std::printf("\n");
    section.run();
    isKnown = true;
  }
  if (!isKnown) Fail("usage: contacts_bench [look-ups | cold | changes | memory]");
  return 0;
}

// Does one operation `times` times over; what it costs is the difference between two such runs.
template <class Contender>
int CountInstructions(const char* operation, size_t times) {
  SampleBook book = MakeSampleBook(kUsualContacts, kUsualNumbers);
  const SampleBook more = MakeSampleBook(2 * kUsualContacts, 1);
  const auto contender = Filled<Contender>(book);
  for (const Race& race : RacesOver(book)) {
    if (std::strcmp(race.name, operation) == 0) {
      Runner<Contender>{contender.get(), times}.Run(race);
      return 0;
    }
  }
  if (std::strcmp(operation, "Add a number") == 0) {
    contender->Fill(std::span(more).first(times));
  } else if (std::strcmp(operation, "Change a contact") == 0) {
    contender->Change(std::span(book).first(times));
  } else {
    Fail("no such operation");
  }
  return 0;
}

}  // namespace
}  // namespace quor

int main(int argc, char** argv) {
  if (argc == 5 && std::strcmp(argv[1], "instructions") == 0) {
    const size_t times = std::strtoul(argv[4], nullptr, 10);
    return std::strcmp(argv[2], "index") == 0
               ? quor::CountInstructions<quor::CIndex>(argv[3], times)
               : quor::CountInstructions<quor::CHashRival>(argv[3], times);
  }
  return quor::RunSections(argc > 1 ? argv[1] : nullptr);
}
