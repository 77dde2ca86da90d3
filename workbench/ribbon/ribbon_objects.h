#ifndef QUOR_WORKBENCH_RIBBON_RIBBON_OBJECTS_H
#define QUOR_WORKBENCH_RIBBON_RIBBON_OBJECTS_H

#include <string>

#include "workbench/office/automation.h"

// The objects that a ribbon passes to the add-in.

namespace quor::workbench {

class CRibbonHost;

// The ribbon itself, one per document. Fails with E_FAIL after its document is unloaded.
class CRibbonUi final : public CAutomation {
 public:
  CRibbonUi(CModel& model, CRibbonHost& host);

  void Unload() noexcept { m_host = nullptr; }

 private:
  static const CMemberTable& Members();

  CRibbonHost& Host() const;

  CRibbonHost* m_host;
};

// One control in one window's ribbon.
class CRibbonControl final : public CAutomation {
 public:
  // `context` is the explorer or inspector, or null.
  CRibbonControl(CModel& model, std::wstring id, std::wstring tag, CModelPtr<CAutomation> context);
  std::string ObjectName() const override { return Utf8FromWide(m_id); }

 protected:
  void OnGone() noexcept override { m_context = {}; }

 private:
  static const CMemberTable& Members();

  const std::wstring m_id;
  const std::wstring m_tag;
  CModelPtr<CAutomation> m_context;
};

}  // namespace quor::workbench

#endif
