#include "com/event_connection.h"

#include <memory>
#include <utility>

#include "com/com_boundary.h"
#include "module/module.h"

namespace quor {

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

// The sink that Outlook holds, possibly longer than the connection exists.
class CEventSink final : public IDispatch {
 public:
  CEventSink(IEventOwner& owner, CDiagnosticLog& log, const char* name, REFIID events,
             EventHandler handler)
      : m_owner(owner),
        m_log(log),
        m_name(name),
        m_events(events),
        m_handler(std::make_shared<EventHandler>(std::move(handler))) {}

  void Detach() noexcept { m_handler.reset(); }

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    if (iid != IID_IUnknown && iid != IID_IDispatch && iid != m_events) {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --m_references;
    if (left == 0) delete this;
    return left;
  }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }

  STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                      EXCEPINFO*, UINT*) override {
    // Hold the handler: it may unadvise this connection, which detaches and releases the sink.
    const std::shared_ptr<EventHandler> handler = m_handler;
    if (handler == nullptr || parameters == nullptr) return S_OK;
    const IDispatchPtr self = this;
    const IUnknownPtr owner = &m_owner.Identity();
    GuardCall(m_log, m_name, [&] { (*handler)(event, CEventArguments(*parameters)); });
    return S_OK;
  }

 private:
  ~CEventSink() = default;

  // Do not use these after the sink is detached: it may outlive them.
  IEventOwner& m_owner;
  CDiagnosticLog& m_log;
  const char* m_name;

  const CModuleLock m_lock;
  const IID m_events;
  std::shared_ptr<EventHandler> m_handler;
  ULONG m_references = 1;
};

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
  IConnectionPointContainer* container = nullptr;
  HRESULT result =
      source->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(&container));
  if (FAILED(result)) return result;
  IConnectionPoint* point = nullptr;
  result = container->FindConnectionPoint(events, &point);
  container->Release();
  if (FAILED(result)) return result;
  if (point == nullptr) return CONNECT_E_NOCONNECTION;

  CEventSink* sink = nullptr;
  try {
    sink = new CEventSink(m_owner, m_log, m_name, events, std::move(handler));
  } catch (...) {
    point->Release();
    throw;
  }
  DWORD cookie = 0;
  result = point->Advise(sink, &cookie);
  if (SUCCEEDED(result) && (attempt != m_attempt || m_owner.IsShuttingDown())) {
    sink->Detach();
    point->Unadvise(cookie);
    result = E_ABORT;
  }
  if (FAILED(result)) {
    sink->Detach();
    sink->Release();
    point->Release();
    return result;
  }
  m_source = kept;
  m_point = point;
  m_sink = sink;
  m_cookie = cookie;
  return S_OK;
}

void CEventConnection::Unadvise() noexcept {
  ++m_attempt;
  if (!IsAdvised()) return;
  // Clear the members first: unadvising calls into Outlook, and a second shutdown may run inside
  // it.
  IConnectionPoint* point = std::exchange(m_point, nullptr);
  CEventSink* sink = std::exchange(m_sink, nullptr);
  const DWORD cookie = m_cookie;
  const IUnknownPtr source = std::exchange(m_source, nullptr);
  sink->Detach();
  const HRESULT result = point->Unadvise(cookie);
  if (FAILED(result)) {
    m_log.Print("** Error : %s unadvise failed. (0x%08X)\n", m_name, static_cast<unsigned>(result));
  }
  sink->Release();
  point->Release();
}

}  // namespace quor
