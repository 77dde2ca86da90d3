// Compares the index with its rival, the same tables on hash maps, in one run. The two alternate,
// the log is off, and medians are printed. The ratios are what counts.
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

// Processor time of this thread, so that other load on the machine does not count.
double NowInNs() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e9 + static_cast<double>(now.tv_nsec);
}

// Keeps the compiler from removing the computation of the result.
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

// A look-up to measure and its numbers.
struct Race {
  const char* name;
  bool isSearch;
  std::vector<std::string> numbers;
};

template <class Contender>
size_t LookUp(Contender& contender, const Race& race, const std::string& number) {
  return race.isSearch ? contender.Search(number) : contender.Find(number);
}

// A contender of a race, the numbers it looks up, and the time per look-up in each run.
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

void RaceLookUps(const char* title, const SampleBook& book) {
  constexpr int kRounds = 9;
  const auto index = Filled<CIndex>(book);
  const auto hash = book.size() <= 50'000 ? Filled<CHashRival>(book) : nullptr;
  for (const Race& race : RacesOver(book)) {
    Runner<CIndex> ownRunner{index.get(), 10 * kSampleNumbers};
    Runner<CHashRival> hashRunner{hash.get(), kSampleNumbers};
    hashRunner.CheckAgainst(*index, race);
    for (int round = 0; round < kRounds; ++round) {
      ownRunner.Run(race);
      hashRunner.Run(race);
    }
    const double own = Median(ownRunner.runs);
    std::printf("%8zu  %-12s  %-16s %8.1f", book.size(), title, race.name, own);
    PrintRatio(Median(hashRunner.runs), own);
    std::printf("\n");
    std::fflush(stdout);
  }
}

template <class Contender>
void TimeChanges(SampleBook& book, std::vector<double>& builds, std::vector<double>& changes) {
  const auto each = static_cast<double>(book.size());
  malloc_trim(0);  // otherwise this build would pay for freeing the previous one's memory
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
  std::vector<double> builds[2];
  std::vector<double> changes[2];
  for (int round = 0; round < kRounds; ++round) {
    TimeChanges<CIndex>(book, builds[0], changes[0]);
    TimeChanges<CHashRival>(book, builds[1], changes[1]);
  }
  const auto print = [numbersEach](const char* what, const std::vector<double>(&times)[2]) {
    const double own = Median(times[0]);
    std::printf("%8zu  %-16s %8.0f %11.1f\n", numbersEach, what, own, Median(times[1]) / own);
  };
  print("build", builds);
  print("change", changes);
}

// Prints bytes per contact: after the build, after one change of every contact, and after ten more.
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
  std::printf("Look-ups, checked, three numbers a contact: ns, and times as fast as hash maps\n");
  for (const size_t contacts : {500, 5000, 50'000, 500'000}) {
    RaceLookUps("", MakeSampleBook(contacts, kUsualNumbers));
  }
  RaceLookUps("no pauses", MakeSampleBook(kUsualContacts, kUsualNumbers, Pauses::None));
  RaceLookUps("one shared", MakeSharedNumberBook(kUsualContacts));
}

void RunChanges() {
  std::printf("Build and first change of all of 5,000 contacts: ns a contact, times as fast as\n");
  std::printf("%8s  %-16s %8s %11s\n", "numbers", "", "ns", "hash maps");
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
}

struct Section {
  const char* name;
  void (*run)();
};
constexpr Section kSections[] = {
    {"look-ups", RunLookUps}, {"changes", RunChanges}, {"memory", RunMemory}};

int RunSections(const char* wanted) {
  bool isKnown = false;
  for (const Section& section : kSections) {
    if (wanted != nullptr && std::strcmp(section.name, wanted) != 0) continue;
    if (isKnown) std::printf("\n");
    section.run();
    isKnown = true;
  }
  if (!isKnown) Fail("usage: contacts_bench [look-ups | changes | memory]");
  return 0;
}

// Does one operation `times` times; the difference between two such runs gives its cost.
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
