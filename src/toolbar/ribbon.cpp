#include "toolbar/ribbon.h"

#include <algorithm>
#include <utility>

#include "com/com_boundary.h"
#include "device/line_type.h"
#include "toolbar/ribbon_faces.h"

namespace quor {
namespace {

VARIANT_BOOL BoolFrom(bool value) noexcept {
  return value ? VARIANT_TRUE : VARIANT_FALSE;
}

// Fills in the default answer, then what the body has to say instead.
template <typename Result, typename Body>
HRESULT Answer(CDiagnosticLog& log, const char* where, Result* result, Result standard,
               Body&& body) noexcept {
  if (result == nullptr) return E_POINTER;
  *result = standard;
  GuardCall(log, where, [&] { *result = body(); });
  return S_OK;
}

}  // namespace

HRESULT CRibbon::Load(IDispatch* ribbon) noexcept {
  GuardCall(m_log, "ribbon onLoad", [&] {
    const bool known = std::ranges::any_of(
        m_ribbons, [ribbon](const CRibbonUi& kept) { return kept.Get() == ribbon; });
    if (ribbon != nullptr && !known) m_ribbons.emplace_back(ribbon);
  });
  return S_OK;
}

void CRibbon::Release() noexcept {
  // Letting go of an object of Office's may call back.
  const std::vector<CRibbonUi> released = std::exchange(m_ribbons, {});
}

void CRibbon::Invalidate() noexcept {
  m_asked = false;
  GuardCall(m_log, "ribbon", [this] {
    // A copy: Office may ask, load or unload inside the call.
    const std::vector<CRibbonUi> ribbons = m_ribbons;
    for (const CRibbonUi& ribbon : ribbons) {
      GuardCall(m_log, "IRibbonUI::Invalidate", [&ribbon] { ribbon.Invalidate(); });
    }
  });
}

void CRibbon::InvalidateOnce() noexcept {
  if (m_asked) Invalidate();
}

RibbonControl CRibbon::ControlFrom(IDispatch* control) {
  if (control == nullptr) return {};
  return RibbonControlFromId(CRibbonControl(control).Id());
}

std::wstring CRibbon::Number(IDispatch* control, const RibbonControl& parsed) {
  if (parsed.function != RibbonFunction::ContactNumber) return {};
  return m_contacts.ContactNumber(CRibbonControl(control).Context(),
                                  static_cast<int>(parsed.index));
}

ItemFace CRibbon::FaceOf(IDispatch* control) {
  m_asked = true;
  const RibbonControl parsed = ControlFrom(control);
  return RibbonFace(m_source.Faces(), parsed, Number(control, parsed));
}

HRESULT CRibbon::GetLabel(IDispatch* control, BSTR* label) noexcept {
  return Answer<BSTR>(m_log, "GetLabel", label, nullptr,
                      [&] { return BstrFromText(FaceOf(control).caption).Detach(); });
}

HRESULT CRibbon::GetEnabled(IDispatch* control, VARIANT_BOOL* enabled) noexcept {
  return Answer(m_log, "GetEnabled", enabled, VARIANT_FALSE,
                [&] { return BoolFrom(FaceOf(control).enabled); });
}

HRESULT CRibbon::GetVisible(IDispatch* control, VARIANT_BOOL* visible) noexcept {
  return Answer(m_log, "GetVisible", visible, VARIANT_FALSE,
                [&] { return BoolFrom(FaceOf(control).visible); });
}

HRESULT CRibbon::GetImage(IDispatch* control, IDispatch** picture) noexcept {
  return Answer<IDispatch*>(m_log, "GetImage", picture, nullptr, [&]() -> IDispatch* {
    const int number = RibbonPicture(ControlFrom(control).function);
    return number == 0 ? nullptr : m_pictures.RibbonPicture(number).Detach();
  });
}

HRESULT CRibbon::GetItemCount(IDispatch* control, long* count) noexcept {
  return Answer(m_log, "GetItemCount", count, 0L, [&] {
    m_asked = true;
    if (ControlFrom(control).function != RibbonFunction::DialBox) return 0L;
    return static_cast<long>(m_source.Faces().DialListCount());
  });
}

HRESULT CRibbon::GetItemLabel(IDispatch* control, long index, BSTR* label) noexcept {
  return Answer<BSTR>(m_log, "GetItemLabel", label, nullptr, [&] {
    const bool asks = index >= 0 && ControlFrom(control).function == RibbonFunction::DialBox;
    const size_t entry = static_cast<size_t>(index);
    return BstrFromText(asks ? m_source.Faces().DialListItem(entry) : std::wstring()).Detach();
  });
}

HRESULT CRibbon::GetTextComboBox(IDispatch* control, BSTR* text) noexcept {
  return Answer<BSTR>(m_log, "GetTextComboBox", text, nullptr, [&] {
    m_asked = true;
    const bool asks = ControlFrom(control).function == RibbonFunction::DialBox;
    return BstrFromText(asks ? m_source.DialText() : std::wstring()).Detach();
  });
}

HRESULT CRibbon::ChangeComboBox(IDispatch* control, BSTR text) noexcept {
  GuardCall(m_log, "ChangeComboBox", [&] {
    if (ControlFrom(control).function != RibbonFunction::DialBox) return;
    m_actions.StoreDialText(TextFromBstr(text));
    // The other views have a dial box of their own.
    InvalidateOnce();
  });
  return S_OK;
}

HRESULT CRibbon::Clicked(IDispatch* control) noexcept {
  GuardCall(m_log, "ribbon click", [&] { Act(control); });
  return S_OK;
}

void CRibbon::Act(IDispatch* control) {
  const RibbonControl clicked = ControlFrom(control);
  switch (clicked.function) {
    case RibbonFunction::Line1:
      return m_actions.ClickLine(kLine1);
    case RibbonFunction::Line2:
      return m_actions.ClickLine(kLine2);
    case RibbonFunction::Cell:
      return m_actions.ClickCell(static_cast<int>(clicked.index));
    case RibbonFunction::Caller:
      return m_actions.ClickCaller(clicked.index);
    case RibbonFunction::SpeedDialItem:
      return m_actions.ClickSpeedDial(clicked.action, clicked.index);
    case RibbonFunction::Options:
      return m_actions.ClickOptions();
    case RibbonFunction::ContactNumber:
      return m_contacts.DialContact(CRibbonControl(control).Context(),
                                    static_cast<int>(clicked.index));
    case RibbonFunction::ContactLine1:
      return m_contacts.ClickContactLine(CRibbonControl(control).Context(), kLine1);
    case RibbonFunction::ContactLine2:
      return m_contacts.ClickContactLine(CRibbonControl(control).Context(), kLine2);
    default:
      return;
  }
}

}  // namespace quor
