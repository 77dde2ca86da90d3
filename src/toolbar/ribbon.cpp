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

}  // namespace

// Marks that a callback of Office is running. Its calls may pump messages that change what the
// ribbon shows.
class CRibbon::CAnswering {
 public:
  explicit CAnswering(CRibbon& ribbon) noexcept : m_ribbon(ribbon) { ++m_ribbon.m_answering; }
  ~CAnswering() {
    if (--m_ribbon.m_answering != 0) return;
    const bool deferred = std::ranges::any_of(m_ribbon.m_documents, &Document::deferred);
    if (deferred) m_ribbon.m_queue.PostRequest(WindowRequest::Refresh, 0);
  }
  CAnswering(const CAnswering&) = delete;
  CAnswering& operator=(const CAnswering&) = delete;

 private:
  CRibbon& m_ribbon;
};

// Sets the default result, then the body's.
template <typename Result, typename Body>
HRESULT CRibbon::Answer(const char* where, Result* result, Result standard, Body&& body) noexcept {
  if (result == nullptr) return E_POINTER;
  *result = standard;
  const CAnswering answering(*this);
  GuardCall(m_log, where, [&] { *result = body(); });
  return S_OK;
}

HRESULT CRibbon::Load(IDispatch* ribbon, RibbonWindow window) noexcept {
  GuardCall(m_log, "ribbon onLoad", [&] {
    std::vector<CRibbonUi>& ribbons = m_documents[static_cast<size_t>(window)].ribbons;
    const bool known = std::ranges::any_of(
        ribbons, [ribbon](const CRibbonUi& kept) { return kept.Get() == ribbon; });
    if (ribbon != nullptr && !known) ribbons.emplace_back(ribbon);
  });
  return S_OK;
}

void CRibbon::Release() noexcept {
  // Clear the member first: releasing Office's objects may re-enter.
  const std::array<Document, 2> released = std::exchange(m_documents, {});
}

void CRibbon::Invalidate() noexcept {
  for (Document& document : m_documents)
    Invalidate(document);
}

void CRibbon::InvalidateOnce() noexcept {
  for (Document& document : m_documents) {
    if (document.asked) Invalidate(document);
  }
}

void CRibbon::InvalidateContactsOnce() noexcept {
  Document& contacts = m_documents[static_cast<size_t>(RibbonWindow::Contact)];
  if (contacts.asked) Invalidate(contacts);
}

void CRibbon::InvalidateDeferred() noexcept {
  for (Document& document : m_documents) {
    if (document.deferred) Invalidate(document);
  }
}

void CRibbon::Invalidate(Document& document) noexcept {
  document.deferred = m_answering != 0;
  if (document.deferred) return;
  document.asked = false;
  GuardCall(m_log, "ribbon", [&] {
    // A copy: Office may call back, load or unload inside the call.
    const std::vector<CRibbonUi> ribbons = document.ribbons;
    for (const CRibbonUi& ribbon : ribbons) {
      GuardCall(m_log, "IRibbonUI::Invalidate", [&ribbon] { ribbon.Invalidate(); });
    }
  });
}

void CRibbon::SetAsked() noexcept {
  for (Document& document : m_documents)
    document.asked = true;
}

RibbonControlId CRibbon::ControlFrom(IDispatch* control) {
  if (control == nullptr) return {};
  return RibbonControlIdFrom(CRibbonControl(control).Id());
}

ContactNumber CRibbon::NumberFor(IDispatch* control, const RibbonControlId& parsed) {
  switch (parsed.function) {
    case RibbonFunction::ContactNumber: {
      const int type = static_cast<int>(parsed.index);
      return {type, m_contacts.NumberOf(CRibbonControl(control).Context(), type)};
    }
    case RibbonFunction::ContactMenu:
      return m_contacts.PickedNumber(CRibbonControl(control).Context());
    default:
      return {};
  }
}

ItemFace CRibbon::FaceOf(IDispatch* control) {
  SetAsked();
  const RibbonControlId parsed = ControlFrom(control);
  const ContactNumber number = NumberFor(control, parsed);
  return RibbonFace(m_source.Faces(), parsed, number.telNumberType, number.number);
}

HRESULT CRibbon::GetLabel(IDispatch* control, BSTR* label) noexcept {
  return Answer<BSTR>("GetLabel", label, nullptr,
                      [&] { return BstrFromText(FaceOf(control).caption).Detach(); });
}

HRESULT CRibbon::GetEnabled(IDispatch* control, VARIANT_BOOL* enabled) noexcept {
  return Answer("GetEnabled", enabled, VARIANT_FALSE,
                [&] { return BoolFrom(FaceOf(control).enabled); });
}

HRESULT CRibbon::GetVisible(IDispatch* control, VARIANT_BOOL* visible) noexcept {
  return Answer("GetVisible", visible, VARIANT_FALSE,
                [&] { return BoolFrom(FaceOf(control).visible); });
}

HRESULT CRibbon::GetImage(IDispatch* control, IDispatch** picture) noexcept {
  return Answer<IDispatch*>("GetImage", picture, nullptr, [&]() -> IDispatch* {
    SetAsked();
    const RibbonFunction function = ControlFrom(control).function;
    const int number = RibbonPicture(m_source.Faces(), function);
    return number == 0 ? nullptr : m_pictures.RibbonPicture(number).Detach();
  });
}

HRESULT CRibbon::GetItemCount(IDispatch* control, long* count) noexcept {
  return Answer("GetItemCount", count, 0L, [&] {
    SetAsked();
    if (ControlFrom(control).function != RibbonFunction::DialBox) return 0L;
    return static_cast<long>(m_source.Faces().DialListCount());
  });
}

HRESULT CRibbon::GetItemLabel(IDispatch* control, long index, BSTR* label) noexcept {
  return Answer<BSTR>("GetItemLabel", label, nullptr, [&] {
    const bool asks = index >= 0 && ControlFrom(control).function == RibbonFunction::DialBox;
    const auto entry = static_cast<size_t>(index);
    return BstrFromText(asks ? m_source.Faces().DialListItem(entry) : std::wstring()).Detach();
  });
}

HRESULT CRibbon::GetTextComboBox(IDispatch* control, BSTR* text) noexcept {
  return Answer<BSTR>("GetTextComboBox", text, nullptr, [&] {
    SetAsked();
    const bool asks = ControlFrom(control).function == RibbonFunction::DialBox;
    return BstrFromText(asks ? m_source.DialText() : std::wstring()).Detach();
  });
}

HRESULT CRibbon::ChangeComboBox(IDispatch* control, BSTR text) noexcept {
  GuardCall(m_log, "ChangeComboBox", [&] {
    if (ControlFrom(control).function != RibbonFunction::DialBox) return;
    m_actions.StoreDialText(TextFromBstr(text));
    // The other views have dial boxes of their own.
    InvalidateOnce();
  });
  return S_OK;
}

HRESULT CRibbon::Clicked(IDispatch* control) noexcept {
  GuardCall(m_log, "ribbon click", [&] { Act(control); });
  return S_OK;
}

void CRibbon::Act(IDispatch* control) {
  const RibbonControlId clicked = ControlFrom(control);
  switch (clicked.function) {
    case RibbonFunction::Line1:
      return m_actions.ClickLine(kLine1);
    case RibbonFunction::Line2:
      return m_actions.ClickLine(kLine2);
    case RibbonFunction::Cell:
      return ClickCell(control, clicked.index);
    case RibbonFunction::Caller:
      return m_actions.ClickCaller(clicked.index);
    case RibbonFunction::SpeedDialItem:
      return m_actions.ClickSpeedDial(clicked.action, clicked.index);
    case RibbonFunction::Options:
      return m_actions.ClickOptions();
    case RibbonFunction::ContactNumber:
      return m_contacts.PickNumber(CRibbonControl(control).Context(),
                                   static_cast<int>(clicked.index));
    case RibbonFunction::ContactLine1:
      return m_contacts.ClickLine(CRibbonControl(control).Context(), kLine1);
    case RibbonFunction::ContactLine2:
      return m_contacts.ClickLine(CRibbonControl(control).Context(), kLine2);
    default:
      return;
  }
}

// The contact window's ribbon uses the main window's ids for the cells, but dials its contact.
void CRibbon::ClickCell(IDispatch* control, size_t cell) {
  const IDispatchPtr window = CRibbonControl(control).Context();
  if (!m_contacts.IsContactWindow(window)) return m_actions.ClickCell(static_cast<int>(cell));
  m_contacts.ClickLine(window, static_cast<uint8_t>(kCell1 + cell));
}

}  // namespace quor
