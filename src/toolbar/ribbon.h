#ifndef QUOR_TOOLBAR_RIBBON_H
#define QUOR_TOOLBAR_RIBBON_H

#include <cstdint>
#include <string>
#include <vector>

#include "com/com_pointers.h"
#include "module/diagnostic_log.h"
#include "toolbar/control_faces.h"
#include "toolbar/picture_loader.h"
#include "toolbar/ribbon_control.h"
#include "toolbar/ribbon_objects.h"
#include "toolbar/toolbar_actions.h"

namespace quor {

// What the ribbon of a contact's window asks and tells. The inspector may be null or no contact's.
class IContactRibbon {
 public:
  // The contact's number of this telNumberType (1 to 12) as the user wrote it; empty when the
  // contact has none. May throw _com_error.
  virtual std::wstring ContactNumber(IDispatch* inspector, int telNumberType) = 0;
  virtual void DialContact(IDispatch* inspector, int telNumberType) = 0;
  virtual void ClickContactLine(IDispatch* inspector, uint8_t lineType) = 0;

 protected:
  ~IContactRibbon() = default;
};

// The bodies of the ribbon's callbacks, and the ribbons they belong to. Every callback lets nothing
// escape: a control that is none of ours, or a question that cannot be answered, gets an empty
// answer and S_OK, since Office shows failures to the user; only a null result pointer is
// E_POINTER.
class CRibbon {
 public:
  // All must outlive the ribbon.
  CRibbon(const IFaceSource& source, IToolbarActions& actions, IContactRibbon& contacts,
          CPictureLoader& pictures, CDiagnosticLog& log) noexcept
      : m_source(source),
        m_actions(actions),
        m_contacts(contacts),
        m_pictures(pictures),
        m_log(log) {}

  // The explorer's document and that of contact windows have a ribbon object each, and either may
  // be loaded more than once. All are kept, invalidated and released together.
  HRESULT Load(IDispatch* ribbon) noexcept;
  void Release() noexcept;

  void Invalidate() noexcept;
  // Invalidates unless that has been done since Office last asked.
  void InvalidateOnce() noexcept;

  HRESULT GetLabel(IDispatch* control, BSTR* label) noexcept;
  HRESULT GetEnabled(IDispatch* control, VARIANT_BOOL* enabled) noexcept;
  HRESULT GetVisible(IDispatch* control, VARIANT_BOOL* visible) noexcept;
  HRESULT GetImage(IDispatch* control, IDispatch** picture) noexcept;
  HRESULT GetItemCount(IDispatch* control, long* count) noexcept;
  HRESULT GetItemLabel(IDispatch* control, long index, BSTR* label) noexcept;
  HRESULT GetTextComboBox(IDispatch* control, BSTR* text) noexcept;
  HRESULT ChangeComboBox(IDispatch* control, BSTR text) noexcept;
  // Every onAction of the documents; the control's id tells which.
  HRESULT Clicked(IDispatch* control) noexcept;

 private:
  RibbonControl ControlFrom(IDispatch* control);
  ItemFace FaceOf(IDispatch* control);
  void Act(IDispatch* control);
  std::wstring Number(IDispatch* control, const RibbonControl& parsed);

  const IFaceSource& m_source;
  IToolbarActions& m_actions;
  IContactRibbon& m_contacts;
  CPictureLoader& m_pictures;
  CDiagnosticLog& m_log;
  std::vector<CRibbonUi> m_ribbons;
  bool m_asked = true;  // Office has asked for a face since the last invalidation
};

}  // namespace quor

#endif
