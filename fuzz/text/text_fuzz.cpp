// Numbers as people write them, and texts converted to and from the ANSI code page.
#include <fuzzer/FuzzedDataProvider.h>

#include "fuzz/require.h"
#include "text/ansi.h"
#include "text/dial_chars.h"

namespace quor {
namespace {

void FilterTwice(const std::string& written) {
  std::string source = written;
  const std::string dialled = FilterDialChars(source);
  Require(source.empty() && dialled.size() <= written.size());
  Require(dialled.find_first_not_of(kDialChars) == std::string::npos);
  std::string again = dialled;
  Require(FilterDialChars(again) == dialled);

  const std::string upper = UpperPauseChars(dialled);
  const std::string without = RemovePauseChars(dialled);
  Require(upper.size() == dialled.size() && RemovePauseChars(upper) == without);
  Require(without.find_first_of("FPfp") == std::string::npos);
}

// A byte converted to UTF-16 and back is unchanged; any other character becomes one byte.
void ConvertBothWays(const std::string& ansi, const std::wstring& wide) {
  Require(AnsiFromWide(WideFromAnsi(ansi)) == ansi);
  const std::string replaced = AnsiFromWide(wide);
  Require(replaced.size() == wide.size());
  Require(AnsiFromWide(WideFromAnsi(replaced)) == replaced);

  const std::wstring bare = WithoutNumberPunctuation(wide);
  Require(bare.size() <= wide.size() && WithoutNumberPunctuation(bare) == bare);
}

}  // namespace
}  // namespace quor

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  FuzzedDataProvider input(data, size);
  std::wstring wide(input.ConsumeIntegralInRange<size_t>(0, 40), L'\0');
  for (wchar_t& unit : wide)
    unit = input.ConsumeIntegral<uint16_t>();
  const std::string ansi = input.ConsumeRemainingBytesAsString();
  quor::FilterTwice(ansi);
  quor::ConvertBothWays(ansi, wide);
  return 0;
}
