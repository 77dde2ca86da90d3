// Any document can be read; what is then saved is read back unchanged and stays within the limits.
#include <fuzzer/FuzzedDataProvider.h>

#include "fuzz/require.h"
#include "settings/configuration_document.h"
#include "settings/entry_text.h"

namespace quor {
namespace {

struct CSpanish final : ISystemLanguage {
  int32_t LanguageNumber() override { return kSpanish; }
};

XmlElement Saved(const XmlElement& document) {
  CSpanish language;
  Configuration configuration;
  ReadConfiguration(document, language, configuration);
  Require(configuration.histories.size() <= kHistoryLimit);
  Require(configuration.callerLists.size() <= kCallerListLimit);
  Require(configuration.speedDials.size() <= kSpeedDialCount);
  return WriteConfiguration(configuration);
}

bool IsSame(const XmlElement& left, const XmlElement& right) {
  return left.name == right.name && left.text == right.text &&
         std::ranges::equal(left.children, right.children, IsSame);
}

std::wstring NextText(FuzzedDataProvider& input) {
  if (input.ConsumeBool()) return std::to_wstring(input.ConsumeIntegral<int64_t>());
  std::wstring text(input.ConsumeIntegralInRange<size_t>(0, 12), L'\0');
  for (wchar_t& unit : text)
    unit = input.ConsumeIntegral<uint16_t>();
  if (input.ConsumeIntegral<uint8_t>() == 0) text.resize(2 * kEntryTextLimit, L'x');
  return text;
}

// Changes some texts, names and child counts.
void Damage(FuzzedDataProvider& input, XmlElement& element) {
  constexpr size_t kSurplus = 30;
  switch (input.ConsumeIntegralInRange(0, 15)) {
    case 0:
      element.name += L'x';
      break;
    case 1:
      if (!element.children.empty()) element.children.resize(kSurplus, element.children.back());
      break;
    case 2:
      element.children.clear();
      break;
    case 3:
    case 4:
    case 5:
      element.text = NextText(input);
  }
  for (XmlElement& child : element.children) {
    if (input.remaining_bytes() != 0) Damage(input, child);
  }
}

XmlElement NextDocument(FuzzedDataProvider& input) {
  Configuration full;
  full.histories.resize(input.ConsumeIntegralInRange<size_t>(0, kHistoryLimit));
  full.callerLists.resize(input.ConsumeIntegralInRange<size_t>(0, kCallerListLimit));
  full.speedDials.resize(input.ConsumeIntegralInRange<size_t>(0, kSpeedDialCount));
  XmlElement document = WriteConfiguration(full);
  Damage(input, document);
  return document;
}

void CheckTexts(const XmlElement& element) {
  Require(StorableText(element.text) == element.text);
  for (const XmlElement& child : element.children)
    CheckTexts(child);
}

}  // namespace
}  // namespace quor

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace quor;
  FuzzedDataProvider input(data, size);
  const XmlElement first = Saved(NextDocument(input));
  CheckTexts(first);
  Require(IsSame(Saved(first), first));
  return 0;
}
