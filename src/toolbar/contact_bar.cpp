#include "toolbar/contact_bar.h"

#include <utility>

#include "com/com_boundary.h"
#include "device/line_type.h"
#include "text/format.h"
#include "toolbar/contact_window.h"
#include "toolbar/telephone_bar.h"

namespace quor {
namespace {

constexpr wchar_t kMenuTag[] = L"Telephone Contact Dial Tag ";
constexpr wchar_t kLine1Tag[] = L"Telephone Contact Line1 Tag ";
constexpr wchar_t kLine2Tag[] = L"Telephone Contact Line2 Tag ";

std::wstring Tag(const wchar_t* control, unsigned window) {
  return control + DecimalText(window);
}

}  // namespace

// The window may close while its click is handled: get what is needed first, and use no member of
// the control afterwards.

class CContactBar::CNumberItem final : public CMenuItem {
 public:
  CNumberItem(const CCommandBarControls& menu, unsigned number, int telNumberType,
              std::weak_ptr<CContactWindow> window, IEventOwner& owner, CDiagnosticLog& log)
      : CMenuItem(menu, Tag(kMenuTag, number) + L' ' + DecimalText(telNumberType),
                  "contact's number", owner, log),
        m_telNumberType(telNumberType),
        m_window(std::move(window)) {}

 private:
  void OnClick() override {
    if (const auto window = m_window.lock()) window->PickNumber(m_telNumberType);
  }

  int m_telNumberType;
  std::weak_ptr<CContactWindow> m_window;
};

class CContactBar::CLineButton final : public CMenuItem {
 public:
  CLineButton(const CCommandBarControls& bar, const std::wstring& tag, uint8_t lineType,
              IToolbarActions& actions, IEventOwner& owner, CDiagnosticLog& log)
      : CMenuItem(bar, tag, "contact's line button", owner, log),
        m_lineType(lineType),
        m_actions(actions) {
    Button().SetStyle(kButtonIconAndCaption);
  }

  void SetPicture(const ControlLayout& layout, CPictureLoader& pictures) const {
    quor::SetPicture(Button(), layout, pictures);
  }

 private:
  void OnClick() override { m_actions.ClickLine(m_lineType); }

  uint8_t m_lineType;
  IToolbarActions& m_actions;
};

CContactBar::CContactBar(const CCommandBars& bars, const std::wstring& name, unsigned number,
                         CPictureLoader* pictures, const std::weak_ptr<CContactWindow>& window,
                         IToolbarActions& actions, IEventOwner& owner, CDiagnosticLog& log)
    : m_owner(owner), m_log(log), m_bar(MakeBar(bars, name)) {
  try {
    const CCommandBarControls controls = m_bar.Controls();
    AddMenu(controls, number, window);
    AddLine(controls, Tag(kLine1Tag, number), kLine1, kLine1Control, actions, pictures);
    AddLine(controls, Tag(kLine2Tag, number), kLine2, kLine2Control, actions, pictures);
  } catch (...) {
    Remove();
    throw;
  }
}

void CContactBar::AddMenu(const CCommandBarControls& controls, unsigned number,
                          const std::weak_ptr<CContactWindow>& window) {
  m_menu = CCommandBarPopup(controls.Add(kControlPopup));
  m_menu.SetTag(Tag(kMenuTag, number));
  const CCommandBarControls items = m_menu.Controls();
  for (int type = kFirstTelNumberType; type <= kLastTelNumberType; ++type) {
    m_numbers.push_back(std::make_shared<CNumberItem>(items, number, type, window, m_owner, m_log));
  }
}

void CContactBar::AddLine(const CCommandBarControls& controls, const std::wstring& tag,
                          uint8_t lineType, int control, IToolbarActions& actions,
                          CPictureLoader* pictures) {
  const auto button =
      std::make_shared<CLineButton>(controls, tag, lineType, actions, m_owner, m_log);
  if (pictures != nullptr) {
    GuardCall(m_log, "picture of the contact's line button",
              [&] { button->SetPicture(LayoutOf(control), *pictures); });
  }
  m_lines.push_back(button);
}

void CContactBar::Place(const ToolBarRecord& place) {
  const CCommandBar bar = m_bar;
  if (bar) PlaceBar(bar, place, m_log);
}

// Any of these calls may pump messages and close the window: `items` is a copy.
template <typename Item>
void CContactBar::ShowItems(const Items<Item>& items, const ItemFace* faces) {
  for (const auto& item : items) {
    if (!m_bar) return;
    GuardCall(m_log, "contact's control", [&] { item->Show(*faces); });
    ++faces;
  }
}

void CContactBar::Show(const ContactBarFaces& faces) {
  if (!m_bar) return;
  GuardCall(m_log, "contact's dial menu", [&] { m_menuFace.Show(m_menu, faces.menu); });
  const Items<CLineButton> lines = m_lines;
  ShowItems(lines, faces.lines.data());
  const Items<CNumberItem> numbers = m_numbers;
  ShowItems(numbers, faces.numbers.data());
}

void CContactBar::SavePlace(ToolBarRecord& place) noexcept {
  const CCommandBar bar = m_bar;
  if (bar) ReadPlace(bar, place, m_log);
}

void CContactBar::Remove() noexcept {
  // Clear our members first: Release calls into Outlook and may re-enter.
  const CCommandBar bar = std::exchange(m_bar, {});
  const CCommandBarPopup menu = std::exchange(m_menu, {});
  const auto numbers = std::exchange(m_numbers, {});
  const auto lines = std::exchange(m_lines, {});
  for (const auto& item : numbers)
    item->Unadvise();
  for (const auto& button : lines)
    button->Unadvise();
  if (bar) GuardCall(m_log, "deleting the contact's command bar", [&] { bar.Delete(); });
}

}  // namespace quor
