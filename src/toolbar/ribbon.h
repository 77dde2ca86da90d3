#ifndef QUOR_TOOLBAR_RIBBON_H
#define QUOR_TOOLBAR_RIBBON_H

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "com/com_pointers.h"
#include "device/message_queue.h"
#include "module/diagnostic_log.h"
#include "toolbar/contact_number.h"
#include "toolbar/control_faces.h"
#include "toolbar/picture_loader.h"
#include "toolbar/ribbon_control_id.h"
#include "toolbar/ribbon_objects.h"
#include "toolbar/toolbar_actions.h"

namespace quor {

// Serves the ribbon of a contact's window. The inspector may be null or show no contact.
class IContactRibbon {
 public:
  // The contact's number of this telNumberType (1 to 12) as the user typed it; empty if the contact
  // has none. May throw _com_error.
  virtual std::wstring NumberOf(IDispatch* inspector, int telNumberType) = 0;
  // The number picked in this window that waits for a line. May throw _com_error.
  virtual ContactNumber PickedNumber(IDispatch* inspector) = 0;
  virtual void PickNumber(IDispatch* inspector, int telNumberType) = 0;
  // Whether a control's context is an item's window; both windows use the same ids.
  virtual bool IsContactWindow(IDispatch* window) = 0;
  // A line or cell button was clicked.
  virtual void ClickLine(IDispatch* inspector, uint8_t lineType) = 0;

 protected:
  ~IContactRibbon() = default;
};

// The two ribbon documents of the add-in.
enum class RibbonWindow { Explorer, Contact };

// The ribbon's callbacks and the ribbon objects. No callback fails, because Office shows failures
// to the user: an unknown control or a failed query gives an empty result and S_OK. Only a null
// result pointer gives E_POINTER.
class CRibbon {
 public:
  // All must outlive the ribbon.
  CRibbon(const IFaceSource& source, IToolbarActions& actions, IContactRibbon& contacts,
          IMessageQueue& queue, CPictureLoader& pictures, CDiagnosticLog& log) noexcept
      : m_source(source),
        m_actions(actions),
        m_contacts(contacts),
        m_queue(queue),
        m_pictures(pictures),
        m_log(log) {}

  // Stores a ribbon object. Each document has its own and may be loaded more than once; all are
  // kept until Release.
  HRESULT Load(IDispatch* ribbon, RibbonWindow window) noexcept;
  void Release() noexcept;

  // Makes Office query every face again. While a callback is running, this is postponed to
  // InvalidateDeferred, which WindowRequest::Refresh calls.
  void Invalidate() noexcept;
  // The same, but at most once until Office has queried a face again.
  void InvalidateOnce() noexcept;
  void InvalidateContactsOnce() noexcept;
  void InvalidateDeferred() noexcept;

  HRESULT GetLabel(IDispatch* control, BSTR* label) noexcept;
  HRESULT GetEnabled(IDispatch* control, VARIANT_BOOL* enabled) noexcept;
  HRESULT GetVisible(IDispatch* control, VARIANT_BOOL* visible) noexcept;
  HRESULT GetImage(IDispatch* control, IDispatch** picture) noexcept;
  HRESULT GetItemCount(IDispatch* control, long* count) noexcept;
  HRESULT GetItemLabel(IDispatch* control, long index, BSTR* label) noexcept;
  HRESULT GetTextComboBox(IDispatch* control, BSTR* text) noexcept;
  HRESULT ChangeComboBox(IDispatch* control, BSTR text) noexcept;
  // Handles every onAction of the documents; the control's id selects the action.
  HRESULT Clicked(IDispatch* control) noexcept;

 private:
  struct Document {
    std::vector<CRibbonUi> ribbons;
    bool asked = true;      // Office has queried a face since the last invalidation
    bool deferred = false;  // invalidate when no callback is running
  };
  class CAnswering;

  template <typename Result, typename Body>
  HRESULT Answer(const char* where, Result* result, Result standard, Body&& body) noexcept;
  void Invalidate(Document& document) noexcept;

  RibbonControlId ControlFrom(IDispatch* control);
  ItemFace FaceOf(IDispatch* control);
  void Act(IDispatch* control);
  void ClickCell(IDispatch* control, size_t cell);
  ContactNumber NumberFor(IDispatch* control, const RibbonControlId& parsed);
  void SetAsked() noexcept;

  const IFaceSource& m_source;
  IToolbarActions& m_actions;
  IContactRibbon& m_contacts;
  IMessageQueue& m_queue;
  CPictureLoader& m_pictures;
  CDiagnosticLog& m_log;
  std::array<Document, 2> m_documents;  // by RibbonWindow
  int m_answering = 0;                  // number of callbacks running
};

}  // namespace quor

#endif
