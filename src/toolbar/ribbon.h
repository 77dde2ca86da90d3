#ifndef QUOR_TOOLBAR_RIBBON_H
#define QUOR_TOOLBAR_RIBBON_H

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "com/com_pointers.h"
#include "device/message_queue.h"
#include "module/diagnostic_log.h"
#include "toolbar/contact_numbers.h"
#include "toolbar/control_faces.h"
#include "toolbar/picture_loader.h"
#include "toolbar/ribbon_control_id.h"
#include "toolbar/ribbon_objects.h"
#include "toolbar/toolbar_actions.h"

namespace quor {

// What the ribbon of a contact's window asks and tells. The inspector may be null or no contact's.
class IContactRibbon {
 public:
  // The contact's number of this telNumberType (1 to 12) as the user wrote it; empty when the
  // contact has none. May throw _com_error.
  virtual std::wstring NumberOf(IDispatch* inspector, int telNumberType) = 0;
  // The number that is picked in this window and waits for a line. May throw _com_error.
  virtual ContactNumber PickedNumber(IDispatch* inspector) = 0;
  virtual void DialContact(IDispatch* inspector, int telNumberType) = 0;
  // Whether a control's context is the window of an item: both windows share ids.
  virtual bool IsContactWindow(IDispatch* window) = 0;
  // A button of a line or cell.
  virtual void ClickLine(IDispatch* inspector, uint8_t lineType) = 0;

 protected:
  ~IContactRibbon() = default;
};

// Office's two documents that the add-in fills.
enum class RibbonWindow { Explorer, Contact };

// The bodies of the ribbon's callbacks, and the ribbons they belong to. Every callback lets nothing
// escape: a control that is none of ours, or a question that cannot be answered, gets an empty
// answer and S_OK, since Office shows failures to the user; only a null result pointer is
// E_POINTER.
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

  // Each document has a ribbon object of its own, and may be loaded more than once. All are kept
  // until Release.
  HRESULT Load(IDispatch* ribbon, RibbonWindow window) noexcept;
  void Release() noexcept;

  // Office asks for every face again. A question of Office's that is being answered must not call
  // back: the request then waits for InvalidateDeferred, which WindowRequest::Refresh asks for.
  void Invalidate() noexcept;
  // The same unless it has been done since Office last asked.
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
  // Every onAction of the documents; the control's id tells which.
  HRESULT Clicked(IDispatch* control) noexcept;

 private:
  struct Document {
    std::vector<CRibbonUi> ribbons;
    bool asked = true;      // Office has asked for a face since the last invalidation
    bool deferred = false;  // to be invalidated when no question is being answered
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
  int m_answering = 0;                  // questions of Office's that are being answered
};

}  // namespace quor

#endif
