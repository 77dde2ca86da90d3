#ifndef QUOR_TESTS_ADDIN_SHIPPED_ADDIN_H
#define QUOR_TESTS_ADDIN_SHIPPED_ADDIN_H

#include <gtest/gtest.h>

#include "module/quor_telephone_toolbar.h"
#include "workbench/ribbon/ribbon_objects.h"

namespace quor {

// The DLL as it was built, loaded as COM loads it, with an add-in that is not connected: its
// ribbon callbacks work with defaults. In the end nothing may be left of it.
class CShippedAddinTest : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  template <typename Function>
  Function* Export(const char* name) const {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(m_dll, name)));
  }
  IDispatch* Callbacks() const noexcept { return m_callbacks; }
  // A control of the ribbon, as Office hands it over; counted by the model.
  IDispatch* Control(const wchar_t* id);
  const std::vector<std::string>& Misuses() const { return m_model->Misuses(); }

 private:
  HMODULE m_dll = nullptr;
  IDispatch* m_callbacks = nullptr;
  std::optional<workbench::CModel> m_model;
  std::vector<workbench::CModelPtr<workbench::CRibbonControl>> m_controls;
};

}  // namespace quor

#endif
