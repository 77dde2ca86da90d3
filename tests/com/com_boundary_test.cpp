#include "com/com_boundary.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace quor {
namespace {

struct CLines final : ILogWriter {
  void WriteLine(std::string_view line) noexcept override { text += line; }
  std::string text;
};

TEST(ComBoundary, EveryExceptionBecomesItsResultAndALine) {
  const struct {
    void (*thrower)();
    HRESULT result;
    const char* line;
  } rows[] = {
      {[] { throw _com_error(E_ACCESSDENIED); }, E_ACCESSDENIED, "0x80070005"},
      // An exception with a success code must still be a failure.
      {[] { throw _com_error(S_FALSE); }, E_FAIL, "0x80004005"},
      {[] { throw std::bad_alloc(); }, E_OUTOFMEMORY, "0x8007000E"},
      {[] { throw std::runtime_error("x"); }, E_UNEXPECTED, "0x8000FFFF"},
      {[] { throw 1; }, E_UNEXPECTED, "0x8000FFFF"},
  };
  for (const auto& row : rows) {
    CLines lines;
    CDiagnosticLog log(lines);
    log.SetEnabled(true);
    const auto body = [&row]() -> HRESULT {
      row.thrower();
      return S_OK;
    };
    EXPECT_EQ(GuardComCall(log, "tick", body), row.result);
    EXPECT_EQ(lines.text, "** Error : tick failed. (" + std::string(row.line) + ")\n");
    EXPECT_FALSE(GuardCall(log, "tick", row.thrower));
  }
}

TEST(ComTexts, KeepNulsAndNullIsEmpty) {
  const std::wstring text(L"a\0b", 3);
  EXPECT_EQ(TextFromBstr(BstrFromText(text)), text);
  EXPECT_EQ(TextFromBstr(VariantFromText(text).bstrVal), text);
  EXPECT_EQ(TextFromBstr(nullptr), L"");
}

}  // namespace
}  // namespace quor
