#include "com/event_connection.h"

#include <utility>

#include "com/com_boundary.h"
#include "com/com_object.h"

namespace quor {
namespace {

_COM_SMARTPTR_TYPEDEF(IConnectionPointContainer, IID_IConnectionPointContainer);

// The sink that Outlook holds, possibly longer than the connection exists.
class CEventSink final : public CComObject<IDispatch> {
 public:
  CEventSink(IEventOwner& owner, CDiagnosticLog& log, const char* name, REFIID events,
             const std::shared_ptr<EventHandler>& handler) noexcept
      : m_owner(owner), m_log(log), m_name(name), m_events(events), m_handler(handler) {}

  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }

  STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                      EXCEPINFO*, UINT*) override {
    // Hold the handler: it may unadvise this connection, which drops it and releases the sink.
    const std::shared_ptr<EventHandler> handler = m_handler.lock();
    if (handler == nullptr || parameters == nullptr) return S_OK;
    const IDispatchPtr self = this;
    const IUnknownPtr owner = &m_owner.Identity();
    GuardCall(m_log, m_name, [&] { (*handler)(event, CEventArguments(*parameters)); });
    return S_OK;
  }

 private:
  void* FindInterface(REFIID iid) noexcept override {
    const bool known = iid == IID_IUnknown || iid == IID_IDispatch || iid == m_events;
    return known ? static_cast<IDispatch*>(this) : nullptr;
  }

  // Do not use these once the handler is gone: the sink may outlive them.
  IEventOwner& m_owner;
  CDiagnosticLog& m_log;
  const char* m_name;

  const IID m_events;
  const std::weak_ptr<EventHandler> m_handler;  // owned by the connection while it is advised
};

}  // namespace

const VARIANT* CEventArguments::Argument(UINT position) const noexcept {
  if (position >= m_parameters.cArgs) return nullptr;
  const VARIANT* argument = &m_parameters.rgvarg[m_parameters.cArgs - 1 - position];
  return V_VT(argument) == (VT_BYREF | VT_VARIANT) ? V_VARIANTREF(argument) : argument;
}

IDispatch* CEventArguments::Object(UINT position) const noexcept {
  const VARIANT* argument = Argument(position);
  if (argument == nullptr) return nullptr;
  switch (V_VT(argument)) {
    case VT_DISPATCH:
      return V_DISPATCH(argument);
    case VT_BYREF | VT_DISPATCH:
      return *V_DISPATCHREF(argument);
    default:
      return nullptr;
  }
}

std::wstring CEventArguments::Text(UINT position) const {
  const VARIANT* argument = Argument(position);
  if (argument == nullptr) return {};
  switch (V_VT(argument)) {
    case VT_BSTR:
      return TextFromBstr(V_BSTR(argument));
    case VT_BYREF | VT_BSTR:
      return TextFromBstr(*V_BSTRREF(argument));
    default:
      return {};
  }
}

HRESULT CEventConnection::Advise(IUnknown* source, REFIID events, EventHandler handler) noexcept {
  if (IsAdvised()) return E_FAIL;
  if (source == nullptr) return E_POINTER;
  if (m_owner.IsShuttingDown()) return E_ABORT;
  try {
    return Connect(source, events, std::move(handler));
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

HRESULT CEventConnection::Connect(IUnknown* source, REFIID events, EventHandler handler) {
  const IUnknownPtr kept = source;
  const unsigned attempt = ++m_attempt;
  IConnectionPointContainerPtr container;
  HRESULT result =
      source->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(&container));
  if (FAILED(result)) return result;
  IConnectionPointPtr point;
  result = container->FindConnectionPoint(events, &point);
  if (FAILED(result)) return result;
  if (point == nullptr) return CONNECT_E_NOCONNECTION;

  auto shared = std::make_shared<EventHandler>(std::move(handler));
  const IDispatchPtr sink(new CEventSink(m_owner, m_log, m_name, events, shared), false);
  DWORD cookie = 0;
  result = point->Advise(sink, &cookie);
  if (SUCCEEDED(result) && (attempt != m_attempt || m_owner.IsShuttingDown())) {
    shared.reset();
    point->Unadvise(cookie);
    result = E_ABORT;
  }
  if (FAILED(result)) return result;
  m_source = kept;
  m_point = point;
  m_sink = sink;
  m_handler = std::move(shared);
  m_cookie = cookie;
  return S_OK;
}

void CEventConnection::Unadvise() noexcept {
  ++m_attempt;
  if (!IsAdvised()) return;
  // Clear the members first: unadvising calls into Outlook, and a second shutdown may run inside
  // it.
  const IUnknownPtr source = std::exchange(m_source, nullptr);
  const IConnectionPointPtr point = std::exchange(m_point, nullptr);
  const IDispatchPtr sink = std::exchange(m_sink, nullptr);
  const DWORD cookie = m_cookie;
  m_handler.reset();
  const HRESULT result = point->Unadvise(cookie);
  if (FAILED(result)) {
    m_log.Print("** Error : %s unadvise failed. (0x%08X)\n", m_name, static_cast<unsigned>(result));
  }
}

}  // namespace quor
