#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <set>
#include <vector>

#include "dialogs/modeless_dialog.h"
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

std::set<int> Numbers(const std::map<int, std::wstring>& texts) {
  std::set<int> numbers;
  for (const auto& [id, text] : texts)
    numbers.insert(id);
  return numbers;
}

TEST(ResourceTexts, EveryLanguageHasTheSameNumbers) {
  const std::set<int> english = Numbers(OwnTexts(kLanguages[0]));
  EXPECT_TRUE(english.contains(IDS_PRODUCT_NAME));
  EXPECT_EQ(Numbers(OwnTexts(kLanguages[1])), english);
  EXPECT_EQ(Numbers(OwnTexts(kLanguages[2])), english);
}

TEST(ResourceTexts, OnlyTagsAndProperNamesReadTheSameEverywhere) {
  const std::set<int> tags = {IDS_DIAL_TAG,         IDS_LINE1_TAG,     IDS_LINE2_TAG,
                              IDS_CALLER_LIST_TAG,  IDS_CELL_TAG,      IDS_OPTIONS_TAG,
                              IDS_SPEED_DIAL_TAG,   IDS_LANGUAGE_NAME, IDS_LANGUAGE_NAME + 1,
                              IDS_LANGUAGE_NAME + 2};
  const auto english = OwnTexts(kLanguages[0]);
  const auto french = OwnTexts(kLanguages[1]);
  const auto spanish = OwnTexts(kLanguages[2]);
  for (const auto& [id, text] : english) {
    const bool same = french.at(id) == text && spanish.at(id) == text;
    EXPECT_EQ(same, tags.contains(id)) << id;
  }
}

TEST(ResourceTexts, AnUnknownLanguageSpeaksEnglish) {
  CDialogStage stage;
  stage.resources.SetLanguage(LANG_GERMAN, SUBLANG_GERMAN);
  EXPECT_EQ(stage.resources.Text(IDS_CALLER_LIST), L"Caller list");
  EXPECT_NE(stage.resources.DialogTemplate(IDD_CALLER), nullptr);
  EXPECT_EQ(stage.resources.Text(999), L"");
  EXPECT_EQ(stage.resources.DialogTemplate(999), nullptr);
}

INT_PTR CALLBACK NoProcedure(HWND, UINT, WPARAM, LPARAM) {
  return FALSE;
}

using Template = std::vector<std::byte>;

Template CopyOf(const CDialogStage& stage, int id) {
  const auto* bytes = reinterpret_cast<const std::byte*>(stage.resources.DialogTemplate(id));
  HMODULE module = GetModuleHandleW(nullptr);
  for (const Language& language : kLanguages) {
    const HRSRC found = FindResourceExW(module, RT_DIALOG, MAKEINTRESOURCEW(id),
                                        MAKELANGID(language.primary, language.sub));
    if (LockResource(LoadResource(module, found)) == bytes) {
      return {bytes, bytes + SizeofResource(module, found)};
    }
  }
  return {};
}

// Offset of the font size in an extended template, after header, menu, class and title.
size_t PointSizeIn(const Template& dialog) {
  size_t at = 26;
  const auto word = [&dialog](size_t offset) {
    WORD value = 0;
    std::memcpy(&value, dialog.data() + offset, sizeof value);
    return value;
  };
  for (int text = 0; text < 3; ++text) {
    if (word(at) == 0xFFFF) {
      at += 2 * sizeof(WORD);
      continue;
    }
    while (word(at) != 0)
      at += sizeof(WORD);
    at += sizeof(WORD);
  }
  return at;
}

// A dialog as a user of this language sees it. All sizes depend on the font size, so a font twice
// as large at 96 dpi gives the dialog as on a 192 dpi screen.
class COpenDialog {
 public:
  COpenDialog(const CDialogStage& stage, int id, int percent = 100) {
    Template dialog = CopyOf(stage, id);
    const auto points = static_cast<WORD>(8 * percent / 100);
    std::memcpy(dialog.data() + PointSizeIn(dialog), &points, sizeof points);
    m_window = CreateDialogIndirectParamW(stage.resources.Module(),
                                          reinterpret_cast<DLGTEMPLATE*>(dialog.data()),
                                          stage.outlook, NoProcedure, 0);
  }
  ~COpenDialog() { DestroyWindow(m_window); }
  HWND Window() const { return m_window; }

  std::vector<HWND> Controls() const {
    std::vector<HWND> controls;
    for (HWND child = GetWindow(m_window, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
      controls.push_back(child);
    }
    return controls;
  }

 private:
  HWND m_window;
};

// Compares the text's width with the control's, in pixels. A tenth must be left over, because fonts
// vary between Windows versions.
void ExpectFits(HWND control, const std::wstring& text, int percent, const std::string& where) {
  RECT room = {};
  GetClientRect(control, &room);
  const LONG_PTR style = GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK;
  const bool isButton = (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON) != 0;
  const bool isCheckBox = isButton && style == BS_AUTOCHECKBOX;
  const bool wraps = room.bottom > 25 * percent / 100 && style != BS_GROUPBOX;
  RECT need = {0, 0, wraps ? room.right * 10 / 11 : 0, 0};
  HDC context = GetDC(control);
  HGDIOBJ before =
      SelectObject(context, reinterpret_cast<HGDIOBJ>(SendMessageW(control, WM_GETFONT, 0, 0)));
  DrawTextW(context, text.c_str(), -1, &need, DT_CALCRECT | (wraps ? DT_WORDBREAK : DT_SINGLELINE));
  SelectObject(context, before);
  ReleaseDC(control, context);
  const LONG border = (isCheckBox ? 20 : isButton ? 8 : 0) * percent / 100;
  EXPECT_LE(need.right * 11 / 10 + border, room.right) << where;
  EXPECT_LE(need.bottom, room.bottom) << where;
  EXPECT_TRUE(text.empty() || need.right > 0) << where;
}

std::string Place(const Language& language, int dialog, int control) {
  return std::string(language.name) + ", dialog " + std::to_string(dialog) + ", control " +
         std::to_string(control);
}

// Checks each dialog with its own texts and with those that are set at run time.
void ExpectTextsFit(const CDialogStage& stage, const Language& language, int percent) {
  const auto place = [&](int dialog, int control) {
    return Place(language, dialog, control) + ", " + std::to_string(percent) + " %";
  };
  for (const int id : kAllDialogs) {
    const COpenDialog dialog(stage, id, percent);
    for (HWND control : dialog.Controls()) {
      ExpectFits(control, TextOf(control), percent, place(id, GetDlgCtrlID(control)));
    }
  }
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
  for (const auto& [id, control, first, last] : given) {
    const COpenDialog dialog(stage, id, percent);
    for (int text = first; text <= last; ++text) {
      ExpectFits(GetDlgItem(dialog.Window(), control), stage.resources.Text(text), percent,
                 place(id, text));
    }
  }
}

TEST(DialogTemplates, NoTextIsClippedInAnyLanguageAtAnyScale) {
  CDialogStage stage;
  RECT usual = {};
  RECT large = {};
  GetClientRect(COpenDialog(stage, IDD_ABOUT).Window(), &usual);
  GetClientRect(COpenDialog(stage, IDD_ABOUT, 200).Window(), &large);
  EXPECT_NEAR(large.right, 2 * usual.right, usual.right / 10);
  for (const Language& language : kLanguages) {
    stage.Speak(language);
    for (const int percent : {100, 150, 200})
      ExpectTextsFit(stage, language, percent);
  }
}

std::vector<std::string> Layout(const COpenDialog& dialog) {
  std::vector<std::string> layout;
  for (HWND control : dialog.Controls()) {
    RECT place = {};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, dialog.Window(), reinterpret_cast<POINT*>(&place), 2);
    std::string line = std::to_string(GetDlgCtrlID(control));
    for (const LONG edge : {place.left, place.top, place.right, place.bottom}) {
      line += ' ' + std::to_string(edge);
    }
    layout.push_back(line);
  }
  return layout;
}

TEST(DialogTemplates, HaveTheSameLayoutInEveryLanguage) {
  CDialogStage stage;
  for (const int id : kAllDialogs) {
    stage.Speak(kLanguages[0]);
    const std::vector<std::string> english = Layout(COpenDialog(stage, id));
    EXPECT_FALSE(english.empty());
    for (const Language& language : kLanguages) {
      stage.Speak(language);
      EXPECT_EQ(Layout(COpenDialog(stage, id)), english) << language.name << ' ' << id;
    }
  }
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

// The panel is inside the options window, so they share their access keys.
TEST(DialogTemplates, AccessKeysDiffer) {
  CDialogStage stage;
  for (const Language& language : kLanguages) {
    stage.Speak(language);
    std::map<int, std::set<wchar_t>> used;
    for (const int id : kAllDialogs) {
      const COpenDialog dialog(stage, id);
      for (HWND control : dialog.Controls()) {
        const wchar_t key = AccessKey(control);
        if (key == L'\0') continue;
        EXPECT_TRUE(used[id == IDD_OPTIONS_PANEL ? IDD_OPTIONS : id].insert(key).second)
            << Place(language, id, GetDlgCtrlID(control));
      }
    }
  }
}

// The tab order goes down the dialog, along a row from left to right, and ends with the buttons.
TEST(DialogTemplates, TabFollowsTheEye) {
  CDialogStage stage;
  for (const int id : kAllDialogs) {
    const COpenDialog dialog(stage, id);
    RECT before = {};
    for (HWND control : dialog.Controls()) {
      if ((GetWindowLongPtrW(control, GWL_STYLE) & WS_TABSTOP) == 0) continue;
      RECT place = {};
      GetWindowRect(control, &place);
      EXPECT_TRUE(place.top >= before.bottom ||
                  (place.top == before.top && place.left >= before.right))
          << id << ", control " << GetDlgCtrlID(control);
      before = place;
    }
  }
}

// A screen reader names a field by the label before it, and the label's access key leads to the
// field.
TEST(DialogTemplates, EveryFieldFollowsItsLabel) {
  CDialogStage stage;
  for (const Language& language : kLanguages) {
    stage.Speak(language);
    for (const int id : kAllDialogs) {
      const COpenDialog dialog(stage, id);
      HWND before = nullptr;
      for (HWND control : dialog.Controls()) {
        const LRESULT code = SendMessageW(control, WM_GETDLGCODE, 0, 0);
        if ((code & (DLGC_HASSETSEL | DLGC_WANTARROWS)) != 0) {
          EXPECT_NE(AccessKey(before), L'\0') << Place(language, id, GetDlgCtrlID(control));
        }
        before = control;
      }
    }
  }
}

}  // namespace
}  // namespace quor
