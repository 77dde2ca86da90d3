#ifndef QUOR_WORKBENCH_RIBBON_RIBBON_OBJECTS_H
#define QUOR_WORKBENCH_RIBBON_RIBBON_OBJECTS_H

#include <memory>
#include <string>

#include "workbench/office/automation.h"

// The objects that a ribbon passes to the add-in. Both are dual: callers may use the vtable or
// IDispatch. Both kinds of call count as calls on "RibbonUI" and "RibbonControl" and can be made to
// fail.

namespace quor::workbench {

class CRibbonHost;

struct IRibbonUI : public IDispatch {
  virtual HRESULT STDMETHODCALLTYPE Invalidate() = 0;
  virtual HRESULT STDMETHODCALLTYPE InvalidateControl(BSTR controlId) = 0;
  virtual HRESULT STDMETHODCALLTYPE InvalidateControlMso(BSTR controlId) = 0;
  virtual HRESULT STDMETHODCALLTYPE ActivateTab(BSTR controlId) = 0;
  virtual HRESULT STDMETHODCALLTYPE ActivateTabMso(BSTR controlId) = 0;
  virtual HRESULT STDMETHODCALLTYPE ActivateTabQ(BSTR controlId, BSTR space) = 0;
};

struct IRibbonControl : public IDispatch {
  virtual HRESULT STDMETHODCALLTYPE get_Id(BSTR* id) = 0;
  virtual HRESULT STDMETHODCALLTYPE get_Context(IDispatch** context) = 0;
  virtual HRESULT STDMETHODCALLTYPE get_Tag(BSTR* tag) = 0;
};

// The ribbon itself, one per document. Fails with E_FAIL after its document is unloaded.
class CRibbonUi final : public CAutomation {
 public:
  CRibbonUi(CModel& model, CRibbonHost& host);
  ~CRibbonUi() override;

  IDispatch* Face() noexcept { return Dispatch(); }  // the pointer for the add-in
  void Unload() noexcept { m_host = nullptr; }

 protected:
  IDispatch* Dispatch() noexcept override;

 private:
  class CFace;
  static const CMemberTable& Members();

  CRibbonHost& Host() const;
  void Invalidate();
  void InvalidateControl(const CArguments& arguments);
  void InvalidateBuiltIn(const CArguments& arguments);
  void ActivateTab(const CArguments& arguments);

  CRibbonHost* m_host;
  std::unique_ptr<CFace> m_face;
};

// One control in one window's ribbon.
class CRibbonControl final : public CAutomation {
 public:
  // `context` is the explorer or inspector, or null.
  CRibbonControl(CModel& model, std::wstring id, std::wstring tag, CModelPtr<CAutomation> context);
  ~CRibbonControl() override;

  IDispatch* Face() noexcept { return Dispatch(); }
  std::string ObjectName() const override { return Utf8FromWide(m_id); }

 protected:
  IDispatch* Dispatch() noexcept override;
  void OnGone() noexcept override { m_context = {}; }

 private:
  class CFace;
  static const CMemberTable& Members();

  std::wstring Id() const { return m_id; }
  CModelPtr<CAutomation> Context() const { return m_context; }
  std::wstring Tag() const { return m_tag; }

  const std::wstring m_id;
  const std::wstring m_tag;
  CModelPtr<CAutomation> m_context;
  std::unique_ptr<CFace> m_face;
};

}  // namespace quor::workbench

#endif
