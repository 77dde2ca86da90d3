#ifndef QUOR_WORKBENCH_RIBBON_RIBBON_HOST_H
#define QUOR_WORKBENCH_RIBBON_RIBBON_HOST_H

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "workbench/ribbon/document.h"
#include "workbench/ribbon/ribbon_objects.h"

namespace quor::workbench {

class CRibbonView;

enum class ResultKind { None, Text, Flag, Number, Picture };

// Figures since the start or the last reset.
struct RibbonFigures {
  uint64_t callbacks = 0;
  double microseconds = 0;     // spent in callbacks
  uint64_t invalidations = 0;  // Invalidate and InvalidateControl
};

// One ribbon document of the add-in, for explorers or contact windows. The windows that show it are
// its views.
//
// What Office would report if set to show add-in errors is a misuse in the model: an invalid
// document, or a callback that is missing, fails or returns a wrong type. The add-in sees no error.
class CRibbonHost {
 public:
  CRibbonHost(CModel& model, RibbonWindow window);
  ~CRibbonHost();
  CRibbonHost(const CRibbonHost&) = delete;
  CRibbonHost& operator=(const CRibbonHost&) = delete;

  // Reads the document, gets the IDispatch with its callbacks from `addIn` and calls onLoad. False
  // if the document is invalid. Call once per document.
  bool Load(IUnknown* addIn, const std::wstring& document);
  bool IsLoaded() const noexcept { return m_addIn != nullptr; }
  // The add-in has ended: its controls disappear, and IRibbonUI objects still held fail.
  void Unload() noexcept;

  // A window starts to show the document. `context` is the explorer or inspector. The host must
  // outlive its views. Callers must hold a view while they call it: a callback may close the
  // window.
  std::shared_ptr<CRibbonView> OpenView(CModelPtr<CAutomation> context);

  const RibbonFigures& Figures() const noexcept { return m_figures; }
  void ResetFigures() { m_figures = {}; }

  // --- for IRibbonUI ---
  void InvalidateAll();
  void InvalidateOne(const std::wstring& id);

  // --- for the views ---
  CModel& Model() const noexcept { return m_model; }
  RibbonWindow Window() const noexcept { return m_window; }
  const RibbonNode* Document() const noexcept { return m_document ? &*m_document : nullptr; }
  void AddView(CRibbonView& view) { m_views.push_back(&view); }
  void RemoveView(const CRibbonView& view) noexcept { std::erase(m_views, &view); }
  void Report(const std::string& message);
  // Calls a callback; arguments in the order of declaration. If it fails or returns a wrong type,
  // reports this and returns nothing.
  std::optional<CValue> Call(const std::string& callback, const std::string& id,
                             const std::vector<CValue>& arguments, ResultKind expected);

 private:
  std::optional<DISPID> FindCallback(const std::string& callback, const std::string& id);
  HRESULT Invoke(DISPID number, const std::vector<CValue>& arguments, VARIANT* result);
  void ObserveAction(const std::string& callback, const std::string& id, HRESULT code);

  CModel& m_model;
  const RibbonWindow m_window;
  IDispatch* m_addIn = nullptr;  // with a reference
  std::optional<RibbonNode> m_document;
  CModelPtr<CRibbonUi> m_ui;
  std::vector<CRibbonView*> m_views;
  std::map<std::string, DISPID> m_ids;
  RibbonFigures m_figures;
  int m_askingDepth = 0;  // nesting of callbacks that supply values
};

}  // namespace quor::workbench

#endif
