#ifndef QUOR_TESTS_TOOLBAR_TEST_OWNER_H
#define QUOR_TESTS_TOOLBAR_TEST_OWNER_H

#include "com/event_connection.h"

namespace quor {

// Outlives every connection of the test.
class CTestOwner final : public IEventOwner, private IUnknown {
 public:
  IUnknown& Identity() noexcept override { return *this; }
  bool IsShuttingDown() const noexcept override { return shuttingDown; }
  bool shuttingDown = false;

 private:
  STDMETHODIMP QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
};

}  // namespace quor

#endif
