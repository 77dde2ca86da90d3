// The add-in's interfaces called from another apartment than Outlook's.

#include <functional>

#include "tests/addin/shipped_addin.h"
#include "workbench/host/worker_thread.h"

namespace quor {
namespace {

class CApartmentsTest : public CShippedAddinTest {
 protected:
  // What the work on another thread gives, while this one handles messages as Outlook's does.
  HRESULT InApartment(DWORD model, std::function<HRESULT()> work) {
    HRESULT result = E_UNEXPECTED;
    const HANDLE done = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    workbench::CWorkerThread thread([&] {
      if (SUCCEEDED(CoInitializeEx(nullptr, model))) {
        result = work();
        CoUninitialize();
      }
      SetEvent(done);
    });
    while (MsgWaitForMultipleObjects(1, &done, FALSE, 10000, QS_ALLINPUT) == WAIT_OBJECT_0 + 1) {
      MSG message;
      while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&message);
    }
    EXPECT_EQ(WaitForSingleObject(done, 0), DWORD{WAIT_OBJECT_0}) << "the call hangs";
    CloseHandle(done);
    return result;
  }
};

HRESULT CallGetLabel(IDispatch* callbacks, IDispatch* control) {
  auto name = const_cast<LPOLESTR>(L"GetLabel");
  DISPID id = DISPID_UNKNOWN;
  HRESULT code = callbacks->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(code)) return code;
  VARIANT argument;
  V_VT(&argument) = VT_DISPATCH;
  V_DISPATCH(&argument) = control;
  DISPPARAMS parameters = {&argument, nullptr, 1, 0};
  VARIANT label;
  VariantInit(&label);
  code = callbacks->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, &label,
                           nullptr, nullptr);
  VariantClear(&label);
  return code;
}

TEST_F(CApartmentsTest, ACallThroughIDispatchComesOnOutlooksThread) {
  IDispatch* control = Control(L"MailCustomButtonLine1");
  for (const DWORD model : {COINIT_APARTMENTTHREADED, COINIT_MULTITHREADED}) {
    IStream* stream = nullptr;
    IStream* controlStream = nullptr;
    ASSERT_EQ(CoMarshalInterThreadInterfaceInStream(IID_IDispatch, Callbacks(), &stream), S_OK);
    ASSERT_EQ(CoMarshalInterThreadInterfaceInStream(IID_IDispatch, control, &controlStream), S_OK);
    EXPECT_EQ(InApartment(model,
                          [&] {
                            IDispatch* callbacks = nullptr;
                            IDispatch* remote = nullptr;
                            CoGetInterfaceAndReleaseStream(stream, IID_IDispatch,
                                                           reinterpret_cast<void**>(&callbacks));
                            CoGetInterfaceAndReleaseStream(controlStream, IID_IDispatch,
                                                           reinterpret_cast<void**>(&remote));
                            if (callbacks == nullptr || remote == nullptr) return E_NOINTERFACE;
                            // Nothing that could marshal the add-in's own interface is registered:
                            // the type library is embedded only.
                            IUnknown* own = nullptr;
                            const HRESULT foreign = callbacks->QueryInterface(
                                __uuidof(ITelephoneAddin), reinterpret_cast<void**>(&own));
                            const HRESULT called = CallGetLabel(callbacks, remote);
                            remote->Release();
                            callbacks->Release();
                            return foreign == E_NOINTERFACE ? called : E_UNEXPECTED;
                          }),
              S_OK);
  }
}

}  // namespace
}  // namespace quor
