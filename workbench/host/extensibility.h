#ifndef QUOR_WORKBENCH_HOST_EXTENSIBILITY_H
#define QUOR_WORKBENCH_HOST_EXTENSIBILITY_H

// clang-format off
#include <windows.h>
#include <oaidl.h>
// clang-format on

// The two interfaces that Outlook calls on an add-in, by vtable. Declared here because there is no
// SDK header; the order of the members is part of the interface.

namespace quor::workbench {

inline constexpr IID kExtensibilityId = {
    0xB65AD801, 0xABAF, 0x11D0, {0xBB, 0x8B, 0x00, 0xA0, 0xC9, 0x0F, 0x27, 0x44}};
inline constexpr IID kRibbonExtensibilityId = {
    0x000C0396, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

struct IExtensibility : IDispatch {
  virtual HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* application, long mode,
                                                 IDispatch* addInInstance, SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnDisconnection(long mode, SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY** custom) = 0;
};

struct IRibbonDocumentSource : IDispatch {
  virtual HRESULT STDMETHODCALLTYPE GetCustomUI(BSTR ribbonId, BSTR* document) = 0;
};

}  // namespace quor::workbench

#endif
