#include "doctor/pe_image.h"

#include <gmock/gmock.h>

namespace quor::doctor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A DLL with one section at file offset 0x200 and address 0x1000 that starts with the exports.
class CPeImageTest : public testing::Test {
 protected:
  CPeImageTest() : m_file(0x400) {
    Word(0, 0x5A4D);
    Dword(0x3C, 0x80);
    Dword(0x80, 0x4550);
    Word(0x84, 0x8664);
    Word(0x98, 0x20B);
    Dword(0x98 + 112, 0x1000);
    Word(0x86, 1);  // number of sections
    Word(0x94, 240);
    const size_t section = 0x98 + 240;
    Dword(section + 12, 0x1000);
    Dword(section + 16, 0x200);
    Dword(section + 20, 0x200);
    Dword(0x200 + 16, 3);  // first ordinal
    Dword(0x200 + 20, 4);
    Dword(0x200 + 28, 0x1100);
    for (const size_t used : {0, 1, 3})
      Dword(0x300 + used * 4, 0x1234);
  }

  void Word(size_t at, uint32_t value) {
    m_file[at] = static_cast<uint8_t>(value);
    m_file[at + 1] = static_cast<uint8_t>(value >> 8);
  }
  void Dword(size_t at, uint32_t value) {
    Word(at, value);
    Word(at + 2, value >> 16);
  }

  std::vector<uint8_t> m_file;
};

// doctor_check.sh reads real DLLs of both bitnesses.
TEST_F(CPeImageTest, SurvivesWhatIsNoDll) {
  EXPECT_THAT(ReadPeImage(m_file)->ordinals, ElementsAre(3, 4, 6));
  for (size_t size = 0; size < m_file.size(); ++size) {
    ReadPeImage(std::span(m_file).first(size));  // cut off anywhere
  }
  EXPECT_FALSE(ReadPeImage({}));
  Dword(0x200 + 28, 0xFFFFFFF0);  // the table lies outside the file
  EXPECT_THAT(ReadPeImage(m_file)->ordinals, IsEmpty());
  Dword(0x200 + 28, 0x11FE);  // the table starts inside the file and leaves it
  Dword(0x200 + 20, 0xFFFFFFFF);
  EXPECT_TRUE(ReadPeImage(m_file));
  Word(0x98, 0x107);
  EXPECT_FALSE(ReadPeImage(m_file));
  Dword(0x3C, 0xFFFFFFFC);
  EXPECT_FALSE(ReadPeImage(m_file));
}

}  // namespace
}  // namespace quor::doctor
