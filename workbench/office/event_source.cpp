#include "workbench/office/event_source.h"

#include <algorithm>
#include <map>
#include <new>
#include <utility>

namespace quor::workbench {
namespace {

// Names an object in an event's arguments, so that the transcript shows which contact it was.
std::string ArgumentSummary(const VARIANT& value) {
  const CAutomation* object =
      V_VT(&value) == VT_DISPATCH ? ModelObjectBehind(V_DISPATCH(&value)) : nullptr;
  if (object == nullptr) return Summary(value);
  const std::string name = object->ObjectName();
  return name.empty() ? object->TypeName() : object->TypeName() + ' ' + name;
}

}  // namespace

// One event interface of a source. Has its own reference count and does not hold the source.
class CConnectionPoint final : public CCounted, public IConnectionPoint {
 public:
  CConnectionPoint(CModel& model, CEventSource& source, size_t index)
      : CCounted(model), m_source(&source), m_index(index), m_type(source.TypeName()) {}

  std::string TypeName() const override { return "ConnectionPoint"; }
  std::string ObjectName() const override { return m_type; }
  void Detach() noexcept { m_source = nullptr; }

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    const bool known = iid == IID_IUnknown || iid == IID_IConnectionPoint;
    *object = known ? static_cast<IConnectionPoint*>(this) : nullptr;
    if (!known) return E_NOINTERFACE;
    AddOutside();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return AddOutside(); }
  STDMETHODIMP_(ULONG) Release() override { return ReleaseOutside(); }
  STDMETHODIMP GetConnectionInterface(IID* iid) override {
    if (iid == nullptr) return E_POINTER;
    if (m_source == nullptr) return CO_E_OBJNOTCONNECTED;
    *iid = m_source->MemberTable().Events()[m_index].iid;
    return S_OK;
  }
  STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override {
    if (container == nullptr) return E_POINTER;
    *container = nullptr;
    if (m_source == nullptr) return CO_E_OBJNOTCONNECTED;
    return m_source->QueryInterface(IID_IConnectionPointContainer,
                                    reinterpret_cast<void**>(container));
  }
  STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override {
    if (const HRESULT usable = Usability(); FAILED(usable)) return usable;
    if (m_source == nullptr) return CO_E_OBJNOTCONNECTED;
    return m_source->Advise(m_index, sink, cookie);
  }
  STDMETHODIMP Unadvise(DWORD cookie) override {
    if (const HRESULT usable = Usability(); FAILED(usable)) return usable;
    return m_source == nullptr ? CONNECT_E_NOCONNECTION : m_source->Unadvise(m_index, cookie);
  }
  STDMETHODIMP EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

 private:
  CEventSource* m_source;
  const size_t m_index;
  const std::string m_type;
};

STDMETHODIMP CEventSource::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
  if (point == nullptr) return E_POINTER;
  *point = nullptr;
  const auto& interfaces = MemberTable().Events();
  for (size_t index = 0; index < m_points.size(); ++index) {
    if (interfaces[index].iid != iid) continue;
    return m_points[index]->QueryInterface(IID_IConnectionPoint, reinterpret_cast<void**>(point));
  }
  return CONNECT_E_NOCONNECTION;
}

CEventSource::CEventSource(CModel& model, const CMemberTable& members)
    : CAutomation(model, members) {}

CEventSource::~CEventSource() = default;

void* CEventSource::OtherInterface(REFIID iid) {
  if (iid != IID_IConnectionPointContainer || MemberTable().Events().empty()) return nullptr;
  if (m_points.empty()) {
    for (size_t index = 0; index < MemberTable().Events().size(); ++index) {
      m_points.push_back(MakeObject<CConnectionPoint>(Model(), *this, index));
    }
  }
  return static_cast<IConnectionPointContainer*>(this);
}

HRESULT CEventSource::Watched(const CModel::CallSite& site, HRESULT code) {
  if (Model().IsObserved()) {
    Model().Observe({CallRecord::Kind::Call, site.key, ObjectName(), {}, {}, code, 0});
  }
  return code;
}

HRESULT CEventSource::Advise(size_t interfaceIndex, IUnknown* sink, DWORD* cookie) {
  if (sink == nullptr || cookie == nullptr) return E_POINTER;
  *cookie = 0;
  try {
    const CModelPtr<CEventSource> self(this);
    const CModel::CTimeInside inside(Model());
    const EventInterface& events = MemberTable().Events()[interfaceIndex];
    const std::optional<HRESULT> answer = Model().Enter(events.advise);
    if (answer.has_value() && FAILED(*answer)) return Watched(events.advise, *answer);
    IDispatch* dispatch = nullptr;
    const HRESULT found = sink->QueryInterface(events.iid, reinterpret_cast<void**>(&dispatch));
    if (FAILED(found) || dispatch == nullptr)
      return Watched(events.advise, CONNECT_E_CANNOTCONNECT);
    m_connections.push_back({Model().NextCookie(), interfaceIndex, dispatch});
    *cookie = m_connections.back().cookie;
    return Watched(events.advise, S_OK);
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

HRESULT CEventSource::Unadvise(size_t interfaceIndex, DWORD cookie) {
  try {
    const CModelPtr<CEventSource> self(this);
    const CModel::CTimeInside inside(Model());
    const EventInterface& events = MemberTable().Events()[interfaceIndex];
    const std::optional<HRESULT> answer = Model().Enter(events.unadvise);
    if (answer.has_value() && FAILED(*answer)) return Watched(events.unadvise, *answer);
    const auto connection =
        std::find_if(m_connections.begin(), m_connections.end(), [&](const Connection& one) {
          return one.cookie == cookie && one.interfaceIndex == interfaceIndex;
        });
    if (connection == m_connections.end()) return Watched(events.unadvise, CONNECT_E_NOCONNECTION);
    IDispatch* sink = connection->sink;
    m_connections.erase(connection);
    Model().ReleaseSink(*sink);
    return Watched(events.unadvise, S_OK);
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

void CEventSource::Fire(const wchar_t* event, const std::vector<CValue>& arguments) {
  const CModelPtr<CEventSource> self(this);
  std::string summary;
  std::vector<VARIANT> reversed = ReversedArguments(arguments);
  if (Model().IsObserved()) {
    for (const CValue& argument : arguments) {
      if (!summary.empty()) summary += ", ";
      summary += ArgumentSummary(argument.Get());
    }
  }
  DISPPARAMS parameters = {reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  // Sinks may be added or removed while others are called; a removed sink is not called any more.
  const std::vector<Connection> turns = m_connections;
  for (const Connection& turn : turns) {
    const bool connected =
        std::any_of(m_connections.begin(), m_connections.end(),
                    [&turn](const Connection& one) { return one.cookie == turn.cookie; });
    if (connected) Deliver(turn, event, parameters, summary);
  }
}

bool CEventSource::FireCancellable(const wchar_t* event, std::vector<CValue> arguments) {
  VARIANT_BOOL cancel = VARIANT_FALSE;
  arguments.push_back(CValue::Reference(cancel));
  Fire(event, arguments);
  return cancel != VARIANT_FALSE;
}

void CEventSource::Deliver(const Connection& connection, const wchar_t* event,
                           DISPPARAMS& parameters, const std::string& summary) {
  const EventInterface& events = MemberTable().Events()[connection.interfaceIndex];
  const PublishedMember* published = FindPublished(events.publishedName, event, DISPATCH_METHOD);
  if (published == nullptr) return;  // a later interface's event
  CheckArguments(*published, parameters);
  IDispatch* sink = connection.sink;
  sink->AddRef();
  LARGE_INTEGER start;
  LARGE_INTEGER end;
  LARGE_INTEGER frequency;
  HRESULT code = S_OK;
  {
    const CModel::CTimeOutside outside(Model());
    QueryPerformanceCounter(&start);
    code = sink->Invoke(published->id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                        nullptr, nullptr, nullptr);
    QueryPerformanceCounter(&end);
  }
  sink->Release();
  if (!Model().IsObserved()) return;
  QueryPerformanceFrequency(&frequency);
  CallRecord record;
  record.kind = CallRecord::Kind::Event;
  record.member = TypeName() + '!' + Utf8FromWide(event);
  record.object = ObjectName();
  record.arguments = summary;
  record.code = code;
  record.microseconds = static_cast<double>(end.QuadPart - start.QuadPart) * 1e6 /
                        static_cast<double>(frequency.QuadPart);
  Model().Observe(record);
}

// A fault of the stand-in's own.
void CEventSource::CheckArguments(const PublishedMember& event, const DISPPARAMS& parameters) {
  bool same = parameters.cArgs == event.arguments.size();
  for (UINT at = 0; same && at < parameters.cArgs; ++at) {
    const VARTYPE type = event.arguments[at].type;
    same = type == VT_VARIANT || type == V_VT(&parameters.rgvarg[parameters.cArgs - 1 - at]);
  }
  if (!same)
    Model().RecordMisuse(TypeName() + '!' + Utf8FromWide(event.name) + " with other arguments");
}

void CEventSource::ReportSinks(std::vector<AdvisedSink>& report) const {
  std::map<size_t, unsigned long> counts;
  for (const Connection& connection : m_connections)
    ++counts[connection.interfaceIndex];
  for (const auto& [index, count] : counts) {
    report.push_back({TypeName(), ObjectName(), MemberTable().Events()[index].name, count});
  }
}

void CEventSource::DropSinks() noexcept {
  const std::vector<Connection> dropped = std::exchange(m_connections, {});
  for (const Connection& connection : dropped)
    Model().ReleaseSink(*connection.sink);
}

void CEventSource::OnGone() noexcept {
  DropSinks();
  for (const auto& point : m_points)
    point->Detach();
  m_points.clear();
}

}  // namespace quor::workbench
