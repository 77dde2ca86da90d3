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
    Machine(0x8664, 0x20B, 112);
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

  void Machine(uint16_t machine, uint16_t kind, size_t directories) {
    Word(0x84, machine);
    Word(0x98, kind);
    Dword(0x98 + directories, 0x1000);
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

TEST_F(CPeImageTest, TellsBitnessAndOrdinals) {
  auto image = ReadPeImage(m_file);
  ASSERT_TRUE(image);
  EXPECT_EQ(image->bitness, 64);
  EXPECT_THAT(image->ordinals, ElementsAre(3, 4, 6));
  EXPECT_TRUE(image->Exports(6));
  EXPECT_FALSE(image->Exports(5));

  Machine(0x14C, 0x10B, 96);
  image = ReadPeImage(m_file);
  ASSERT_TRUE(image);
  EXPECT_EQ(image->bitness, 32);
  EXPECT_THAT(image->ordinals, ElementsAre(3, 4, 6));

  Word(0x84, 0xAA64);  // an ARM machine type
  EXPECT_EQ(ReadPeImage(m_file)->bitness, 0);
}

TEST_F(CPeImageTest, SurvivesWhatIsNoDll) {
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
