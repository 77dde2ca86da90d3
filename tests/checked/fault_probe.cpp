// Commits one fault, so that a checked build can show that it stops at faults of this kind:
//
//   fault_probe none|overflow|index

#include <climits>
#include <string_view>
#include <vector>

int main(int count, char** arguments) {
  const std::string_view fault = count == 2 ? arguments[1] : "";
  volatile int number = INT_MAX;
  const std::vector<int> numbers(static_cast<size_t>(count));
  if (fault == "overflow") number = number + count;
  if (fault == "index") number = numbers[static_cast<size_t>(count)];
  return fault.empty() ? 2 : 0;
}
