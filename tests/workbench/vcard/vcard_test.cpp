#include "workbench/vcard/vcard.h"

#include <gtest/gtest.h>

namespace quor::workbench {
namespace {

TEST(VCard, SaysWhereATextIsWrong) {
  for (const char* bad : {"hello", "FN:x", "BEGIN:VCARD\nFN:x", "BEGIN:VCARD\nBEGIN:VCARD",
                          "BEGIN:VCARD\nTEL;TYPE=car:1\nTEL;TYPE=car:2\nTEL;TYPE=car:3"}) {
    EXPECT_THROW(ReadCards(bad), CCardError) << bad;
  }
}

}  // namespace
}  // namespace quor::workbench
