#include "doctor/masking.h"

#include <gmock/gmock.h>

namespace quor::doctor {
namespace {

TEST(MaskingTest, OneCallerStaysOneCallerInFramesAndText) {
  const std::pair<const char*, const char*> lines[] = {
      {"2009/03/07 08:05:09.042 [R] (39) 26 03 21 04 41 4E 4E 41 20 20 4C 45 45 20 20 20 "
       "20 20 20 20 0A A5 51 23 45 67 00 00 00 00 00 00 00 01 00 00 03 0D 0A\r\n",
       "2009/03/07 08:05:09.042 [R] (39) 26 03 21 04 4E 41 4D 45 31 20 20 20 20 20 20 20 20 20 "
       "20 20 0A AA AA AA AA A1 00 00 00 00 00 00 00 01 00 00 03 0D 0A\r\n"},
      {"2009/03/07 08:05:09.043 NoNum: 0x01, NoName: 0x02, LongDistance: 0x01, Name[0]: "
       "0x41, NumberLength: 0x0A, Number: 0551234567, LineTtype: 0x01",
       "2009/03/07 08:05:09.043 NoNum: 0x01, NoName: 0x02, LongDistance: 0x01, Name[0]: 0x4E, "
       "NumberLength: 0x0A, Number: 0000000001, LineTtype: 0x01"},
      // The same number again, then another one.
      {"[S] (16) 2B 32 01 31 30 30 35 35 31 32 33 34 35 36 37 0D",
       "[S] (16) 2B 32 01 31 30 30 30 30 30 30 30 30 30 30 31 0D"},
      {"Call request Line1 (#0551234567) complete. ( request size: 13 )",
       "Call request Line1 (#0000000001) complete. ( request size: 13 )"},
      {"Call request Line1 (#110) complete.", "Call request Line1 (#002) complete."},
      // A caller's number with a space, and digits behind it.
      {"[R] (39) 26 03 21 04 00 4C 45 45 20 20 20 20 20 20 20 20 20 20 20 20 08 A5 50 "
       "23 41 23 00 00 00 00 00 00 00 01 00 00 03 0D 0A",
       "[R] (39) 26 03 21 04 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 08 AA A0 AA A3 AA 00 "
       "00 00 00 00 00 00 01 00 00 03 0D 0A"},
      {"Number: 055 2341, LineTtype: 0x01", "Number: 000 0003, LineTtype: 0x01"},
      {"Contact Data Not Found digit = 4 number = 12P3 entryID = ",
       "Contact Data Not Found digit = 4 number = 00P4 entryID = "},
      // With a pause, as it is dialled and as it is logged.
      {"[S] (12) 2B 32 01 30 36 30 35 35 70 31 32 0D",
       "[S] (12) 2B 32 01 30 36 30 30 30 70 30 35 0D"},
      {"Call request Line1 (#055p12) complete. ( request size: 9 )",
       "Call request Line1 (#000p05) complete. ( request size: 9 )"},
  };
  CMasking masking;
  for (const auto& [line, masked] : lines)
    EXPECT_EQ(masking.Line(line), masked);
}

TEST(MaskingTest, NamesOfMobilesAndFoldersGo) {
  CMasking masking;
  std::string frame = "[R] (61) 26 05 0F";
  std::string expected = frame;
  for (int i = 0; i < 4; ++i) {
    frame += i == 1 ? " 50 61 75 6C 27 73 20 20 20 20 20 20 20 20"
                    : " 00 00 00 00 00 00 00 00 00 00 00 00 00 00";
    expected += i == 1 ? " 4E 41 4D 45 31 20 20 20 20 20 20 20 20 20"
                       : " 00 00 00 00 00 00 00 00 00 00 00 00 00 00";
  }
  EXPECT_EQ(masking.Line(frame + " 0D 0A"), expected + " 0D 0A");
  // The same name in text, with its spaces and without.
  EXPECT_EQ(
      masking.Line("RegInfo: 0x0F, Cell1Name: , Cell2Name: Paul's        , Cell3Name: Paul's, "
                   "Cell4Name: M\xFCller"),
      "RegInfo: 0x0F, Cell1Name: , Cell2Name: NAME1         , Cell3Name: NAME1         , "
      "Cell4Name: NAME2         ");
  EXPECT_EQ(masking.Line("FolderName=Smith family\r\n"), "FolderName=FOLDER3\r\n");
  EXPECT_EQ(CMasking::Paths("C:\\Users\\Mary Smith\\AppData"), "C:\\Users\\USER\\AppData");
  EXPECT_EQ(CMasking::Paths("in c:\\users\\Mary\n\\\\server\\profiles\\MARY\\x, mary\n", "Mary"),
            "in c:\\users\\USER\n\\\\server\\profiles\\USER\\x, mary\n");
}

TEST(MaskingTest, WhatIsNoNumberStays) {
  CMasking masking;
  for (const char* line :
       {"2009/03/07 08:05:09.042 CAddin::OnConnection\r\n",
        "** Error : options failed. (0x80070578)", "[R] (10) 26 01 00 03 01 01 01 0F 0D 0A",
        "Result: 0x00, L1: 0x03, L2: 0x01, CELL: 0x01", "[S] (3) 2B 31 0D",
        "[S] (6) 2B 32 01 30 30 0D", "", "\r\n", "[", "[R] (39)"}) {
    EXPECT_EQ(masking.Line(line), line);
  }
}

TEST(MaskingTest, ABrokenFrameShowsNothing) {
  // A caller-ID frame without its end still contains a name and a number.
  CMasking masking;
  EXPECT_EQ(masking.Line("[I] (12) 26 03 21 04 41 4E 4E 41 20 31 32 33"),
            "[I] (12) 26 03 21 04 58 58 58 58 20 30 30 30");
  EXPECT_EQ(
      masking.Line("[I] (23) 26 03 21 04 41 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 0A A5 51"),
      "[I] (23) 26 03 21 04 58 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 0A AA AA");
}

}  // namespace
}  // namespace quor::doctor
