#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <set>
#include <vector>

#include "dialogs/msg_pop_dlg.h"
#include "resources/resource_ids.h"
#include "tests/dialogs/dialog_stage.h"

namespace quor {
namespace {

constexpr int kLastText = 1999;
constexpr int kAllDialogs[] = {
    IDD_MESSAGE,          IDD_CALLER,        IDD_LOADING, IDD_SPEED_DIAL_REGIST,
    IDD_SPEED_DIAL_ERASE, IDD_OPTIONS_PANEL, IDD_OPTIONS, IDD_ABOUT};

// The texts that exist in this language; the loader would take missing ones from English.
std::map<int, std::wstring> OwnTexts(const Language& language) {
  std::map<int, std::wstring> texts;
  HMODULE module = GetModuleHandleW(nullptr);
  for (int block = 1; block <= kLastText / 16 + 1; ++block) {
    HRSRC found = FindResourceExW(module, RT_STRING, MAKEINTRESOURCEW(block),
                                  MAKELANGID(language.primary, language.sub));
    if (found == nullptr) continue;
    const auto* next = static_cast<const wchar_t*>(LockResource(LoadResource(module, found)));
    for (int position = 0; position < 16; ++position) {
      const size_t length = *next++;
      if (length > 0) texts[(block - 1) * 16 + position] = std::wstring(next, length);
      next += length;
    }
  }
  return texts;
}

TEST(ResourceTexts, OnlyTagsAndProperNamesReadTheSameEverywhere) {
  const std::set<int> tags = {IDS_DIAL_TAG,         IDS_LINE1_TAG,     IDS_LINE2_TAG,
                              IDS_CALLER_LIST_TAG,  IDS_CELL_TAG,      IDS_OPTIONS_TAG,
                              IDS_SPEED_DIAL_TAG,   IDS_LANGUAGE_NAME, IDS_LANGUAGE_NAME + 1,
                              IDS_LANGUAGE_NAME + 2};
  const auto english = OwnTexts(kLanguages[0]);
  EXPECT_TRUE(english.contains(IDS_PRODUCT_NAME));
  auto french = OwnTexts(kLanguages[1]);
  auto spanish = OwnTexts(kLanguages[2]);
  for (const auto& [id, text] : english) {
    EXPECT_TRUE(!french[id].empty() && !spanish[id].empty()) << id;
    EXPECT_EQ(french[id] == text && spanish[id] == text, tags.contains(id)) << id;
  }
  EXPECT_EQ(french.size(), english.size());
  EXPECT_EQ(spanish.size(), english.size());
}

TEST(ResourceTexts, AnUnknownLanguageSpeaksEnglish) {
  CDialogStage stage;
  stage.resources.SetLanguage(LANG_GERMAN, SUBLANG_GERMAN);
  EXPECT_EQ(stage.resources.Text(IDS_CALLER_LIST), L"Caller list");
  EXPECT_FALSE(stage.resources.DialogTemplate(IDD_CALLER).empty());
  EXPECT_EQ(stage.resources.Text(999), L"");
  EXPECT_TRUE(stage.resources.DialogTemplate(999).empty());
}

INT_PTR CALLBACK NoProcedure(HWND, UINT, WPARAM, LPARAM) {
  return FALSE;
}

// A dialog as a user of this language sees it.
class COpenDialog {
 public:
  COpenDialog(const CDialogStage& stage, int id) : m_resources(stage.resources) {
    const std::vector<std::byte> dialog = stage.resources.DialogTemplate(id);
    m_window = CreateDialogIndirectParamW(stage.resources.Module(),
                                          reinterpret_cast<const DLGTEMPLATE*>(dialog.data()),
                                          stage.outlook, NoProcedure, 0);
  }
  ~COpenDialog() { DestroyWindow(m_window); }
  HWND Window() const { return m_window; }
  const CResourceLoader& Resources() const { return m_resources; }

  std::vector<HWND> Controls() const {
    std::vector<HWND> controls;
    for (HWND child = GetWindow(m_window, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
      controls.push_back(child);
    }
    return controls;
  }

 private:
  const CResourceLoader& m_resources;
  HWND m_window;
};

// The message font of Windows Vista and later at 96 dpi: Segoe UI 9, 12 pixels high, line height
// 15. Calculated from the font's advance widths, because the test machine does not have the font.
class CSegoeFace {
 public:
  static constexpr LONG kUnitWidth = 7;    // pixels in 4 horizontal dialog units
  static constexpr LONG kLineHeight = 15;  // pixels in 8 vertical dialog units

  static SIZE Room(HWND control) {
    const bool hasEdge = (GetWindowLongPtrW(control, GWL_EXSTYLE) & WS_EX_CLIENTEDGE) != 0;
    const LONG edges = hasEdge ? 4 : 0;
    const SIZE whole = SizeIn(GetParent(control), control);
    return {whole.cx - edges, whole.cy - edges};
  }
  // Size of `window`, which is the dialog or one of its controls.
  static SIZE SizeIn(HWND dialog, HWND window) {
    RECT place = {};
    GetWindowRect(window, &place);
    RECT shown = {0, 0, 4, 8};
    MapDialogRect(dialog, &shown);
    return {MulDiv(place.right - place.left, kUnitWidth, shown.right),
            MulDiv(place.bottom - place.top, kLineHeight, shown.bottom)};
  }
  // Size of a text in lines of this width, or in one line if it is 0.
  static SIZE Need(const std::wstring& text, LONG lineWidth) {
    SIZE need = {0, 0};
    LONG line = 0;
    LONG blank = 0;  // blank between the line and the next word
    const auto newLine = [&] {
      need.cx = std::max(need.cx, line);
      need.cy += kLineHeight;
      line = blank = 0;
    };
    for (size_t begin = 0; begin < text.size();) {
      const size_t end = std::min(text.find_first_of(L" \n", begin), text.size());
      const LONG word = WidthOf(std::wstring_view(text).substr(begin, end - begin));
      if (lineWidth != 0 && line != 0 && line + blank + word > lineWidth) newLine();
      line += blank + word;
      blank = 0;
      if (end < text.size() && text[end] == L'\n') newLine();
      if (end < text.size() && text[end] == L' ') blank = WidthOf(L" ");
      begin = end + 1;
    }
    if (!text.empty()) newLine();
    return need;
  }
  static LONG WidthOf(std::wstring_view text) {
    LONG width = 0;
    for (size_t at = 0; at < text.size(); ++at) {
      if (text[at] == L'&' && at + 1 < text.size()) continue;  // underlines the next
      width += (AdvanceOf(text[at]) * kSize + kUnitsPerSize / 2) / kUnitsPerSize;
    }
    return width;
  }

 private:
  static constexpr LONG kSize = 12;
  static constexpr LONG kUnitsPerSize = 2048;

  // An accent does not change a letter's width.
  static LONG AdvanceOf(wchar_t character) {
    static constexpr LONG kFromSpaceToTilde[] = {
        561,  582,  803,  1210, 1104, 1675, 1639, 471,  619,  619,  854,  1401, 444,  819,
        444,  799,  1104, 1104, 1104, 1104, 1104, 1104, 1104, 1104, 1104, 1104, 444,  444,
        1401, 1401, 1401, 918,  1956, 1321, 1174, 1268, 1436, 1036, 999,  1406, 1454, 545,
        731,  1189, 963,  1840, 1532, 1544, 1147, 1544, 1225, 1087, 1073, 1407, 1272, 1913,
        1208, 1133, 1168, 619,  776,  619,  1401, 850,  549,  1042, 1204, 946,  1206, 1071,
        641,  1206, 1158, 496,  496,  1018, 496,  1764, 1158, 1200, 1204, 1206, 711,  869,
        694,  1158, 981,  1479, 940,  990,  927,  619,  490,  619,  1401};
    wchar_t letters[4] = {};
    FoldStringW(MAP_COMPOSITE, &character, 1, letters, 4);
    wchar_t plain = letters[0];
    if (plain == L'\u2019') plain = L'\'';
    if (plain == L'\u00A0') plain = L' ';
    if (plain == L'\u00BF') plain = L'?';
    if (plain == L'\u00B0' || plain == L'\u00BA') plain = L'0';  // narrower
    const bool known = plain >= L' ' && plain <= L'~';
    EXPECT_TRUE(known) << "no width for character " << static_cast<int>(character);
    return known ? kFromSpaceToTilde[plain - L' '] : 0;
  }
};

// A tenth must be left over, because fonts vary between Windows versions.
void ExpectFits(HWND control, const std::wstring& text, const std::string& where) {
  const SIZE room = CSegoeFace::Room(control);
  const LONG_PTR style = GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK;
  const LRESULT code = SendMessageW(control, WM_GETDLGCODE, 0, 0);
  const bool isButton = (code & DLGC_BUTTON) != 0;
  const bool isCheckBox = isButton && style == BS_AUTOCHECKBOX;
  const bool isList = (code & (DLGC_WANTARROWS | DLGC_HASSETSEL)) == DLGC_WANTARROWS;
  const bool wraps = room.cy > 25 && !isButton && !isList;
  const SIZE need = CSegoeFace::Need(text, wraps ? room.cx * 10 / 11 : 0);
  const LONG border = isCheckBox ? 20 : isList ? 28 : isButton ? 8 : 0;
  EXPECT_LE(need.cx * 11 / 10 + border, room.cx) << where;
  EXPECT_LE(need.cy, room.cy) << where;
}

std::string Place(const Language& language, int dialog, int control) {
  return std::string(language.name) + ", dialog " + std::to_string(dialog) + ", control " +
         std::to_string(control);
}

template <typename Check>
void ForEachDialog(const Check& check) {
  CDialogStage stage;
  for (const Language& language : kLanguages) {
    stage.Speak(language);
    for (const int id : kAllDialogs)
      check(language, id, COpenDialog(stage, id));
  }
}

// Checks each dialog with its own texts and with those that are set at run time.
TEST(DialogTemplates, NoTextIsClippedInAnyLanguage) {
  const struct {
    int dialog;
    int control;
    int first;
    int last;
  } given[] = {{IDD_MESSAGE, IDC_MESSAGE_TEXT, IDS_DEVICE_NOT_CONNECTED, IDS_CELL_BUSY},
               {IDD_CALLER, IDC_CALLER_NAME, IDS_LONG_DISTANCE, IDS_UNKNOWN},
               {IDD_CALLER, IDC_CALLER_LINE, IDS_SLOT_NAME, IDS_SLOT_NAME + 5},
               {IDD_OPTIONS_PANEL, IDC_OPTIONS_LANGUAGE, IDS_LANGUAGE_NAME, IDS_LANGUAGE_NAME + 2},
               {IDD_OPTIONS_PANEL, IDC_OPTIONS_POP_UP, IDS_POP_UP_MODE, IDS_POP_UP_MODE + 2},
               {IDD_ABOUT, IDC_ABOUT_BASE, IDS_BASE_CONNECTED, IDS_BASE_NOT_CONNECTED},
               {IDD_ABOUT, IDC_ABOUT_BASE, IDS_BASE_NO_LIBRARY, IDS_BASE_NO_ORDINAL},
               {IDD_ABOUT, IDC_ABOUT_CONTACTS, IDS_CONTACTS_READING, IDS_CONTACTS_LIMIT},
               {IDD_ABOUT, IDC_ABOUT_CONFIGURATION_STATE, IDS_CONFIGURATION_UNREADABLE,
                IDS_CONFIGURATION_NO_FOLDER},
               {IDD_ABOUT, IDC_ABOUT_ARCHITECTURE, IDS_32_BIT, IDS_64_BIT}};
  ForEachDialog([&](const Language& language, int id, const COpenDialog& dialog) {
    for (HWND control : dialog.Controls())
      ExpectFits(control, TextOf(control), Place(language, id, GetDlgCtrlID(control)));
    for (const auto& row : given) {
      for (int text = row.first; row.dialog == id && text <= row.last; ++text) {
        ExpectFits(GetDlgItem(dialog.Window(), row.control), dialog.Resources().Text(text),
                   Place(language, id, text));
      }
    }
  });
}

// A dialog unit is a quarter of the average width of the 52 letters, as the dialog manager
// calculates.
TEST(DialogTemplates, SegoeUnitsFollowFromItsWidths) {
  const LONG letters = CSegoeFace::WidthOf(L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
  EXPECT_EQ((letters / 26 + 1) / 2, CSegoeFace::kUnitWidth);
}

// Outlook's options have about 380 x 330 pixels for a page.
TEST(DialogTemplates, ThePanelFitsIntoOutlooksOptions) {
  CDialogStage stage;
  const COpenDialog dialog(stage, IDD_OPTIONS_PANEL);
  const SIZE size = CSegoeFace::SizeIn(dialog.Window(), dialog.Window());
  EXPECT_LE(size.cx, 380);
  EXPECT_LE(size.cy, 330);
}

TEST(DialogTemplates, WearTheMessageFont) {
  NONCLIENTMETRICSW metrics = {};
  metrics.cbSize = sizeof metrics;
  ASSERT_TRUE(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0));
  CDialogStage stage;
  CMsgPopDlg dialog(stage.host);
  dialog.SetOwner(stage.outlook);
  dialog.ShowMessage(IDS_LINE_BUSY);
  LOGFONTW font = {};
  GetObjectW(reinterpret_cast<HGDIOBJ>(SendMessageW(dialog.Window(), WM_GETFONT, 0, 0)),
             sizeof font, &font);
  EXPECT_STREQ(font.lfFaceName, metrics.lfMessageFont.lfFaceName);
  EXPECT_EQ(font.lfHeight, metrics.lfMessageFont.lfHeight);
}

// The letter that reaches or presses the control with Alt: the one after "&"; for a button without
// "&" the first letter. NUL if there is none.
wchar_t AccessKey(HWND control) {
  const std::wstring text = TextOf(control);
  const size_t mark = text.find(L'&');
  const bool isButton = (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON) != 0;
  if (mark == std::wstring::npos && !isButton) return L'\0';
  wchar_t letter = text.at(mark == std::wstring::npos ? 0 : mark + 1);
  CharUpperBuffW(&letter, 1);
  return letter;
}

TEST(DialogTemplates, HaveTheSameLayoutInEveryLanguage) {
  std::map<int, std::string> english;
  ForEachDialog([&](const Language& language, int id, const COpenDialog& dialog) {
    std::string layout;
    for (HWND control : dialog.Controls()) {
      RECT place = {};
      GetWindowRect(control, &place);
      MapWindowPoints(nullptr, dialog.Window(), reinterpret_cast<POINT*>(&place), 2);
      layout += std::to_string(GetDlgCtrlID(control)) + ':';
      for (const LONG edge : {place.left, place.top, place.right, place.bottom})
        layout += ' ' + std::to_string(edge);
      layout += '\n';
    }
    EXPECT_EQ(english.emplace(id, layout).first->second, layout) << language.name << ' ' << id;
  });
}

// Access keys differ; the panel is inside the options window and shares its keys. The tab order
// goes down the dialog, along a row from left to right, and ends with the buttons. A screen reader
// names a field by the label before it, and the label's access key leads to the field.
TEST(DialogTemplates, AreUsedWithTheKeyboardAlone) {
  std::set<std::tuple<const char*, int, wchar_t>> used;
  ForEachDialog([&](const Language& language, int id, const COpenDialog& dialog) {
    RECT tabStop = {};
    wchar_t keyBefore = L'\0';
    for (HWND control : dialog.Controls()) {
      SCOPED_TRACE(Place(language, id, GetDlgCtrlID(control)));
      const wchar_t key = AccessKey(control);
      const int window = id == IDD_OPTIONS_PANEL ? IDD_OPTIONS : id;
      EXPECT_TRUE(key == L'\0' || used.insert({language.name, window, key}).second);
      const LRESULT code = SendMessageW(control, WM_GETDLGCODE, 0, 0);
      const bool isField = (code & (DLGC_HASSETSEL | DLGC_WANTARROWS)) != 0;
      EXPECT_TRUE(!isField || keyBefore != L'\0');
      keyBefore = key;
      if ((GetWindowLongPtrW(control, GWL_STYLE) & WS_TABSTOP) == 0) continue;
      RECT place = {};
      GetWindowRect(control, &place);
      EXPECT_TRUE(place.top >= tabStop.bottom ||
                  (place.top == tabStop.top && place.left >= tabStop.right));
      tabStop = place;
    }
  });
}

}  // namespace
}  // namespace quor
