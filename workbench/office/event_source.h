#ifndef QUOR_WORKBENCH_OFFICE_EVENT_SOURCE_H
#define QUOR_WORKBENCH_OFFICE_EVENT_SOURCE_H

#include <string>
#include <vector>

#include "workbench/office/automation.h"

namespace quor::workbench {

// An object that raises events. IConnectionPointContainer returns one connection point per event
// interface; a sink advised on one of them receives the events that this interface publishes.
//
// Advise rejects a sink without the event interface (CONNECT_E_CANNOTCONNECT); for an unknown
// interface the result is CONNECT_E_NOCONNECTION. Both count as calls and can be made to fail. When
// the last outside reference to the source is released, its sinks are dropped: a connection point
// alone holds nothing.
class CEventSource : public CAutomation, public IConnectionPointContainer {
 public:
  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    return CAutomation::QueryInterface(iid, object);
  }
  STDMETHODIMP_(ULONG) AddRef() override { return AddOutside(); }
  STDMETHODIMP_(ULONG) Release() override { return ReleaseOutside(); }
  STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;
  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }

  // Delivers an event, by its published name, to every sink that is still advised when its turn
  // comes. Arguments in the order of declaration. Meanwhile sinks may advise, unadvise, release the
  // source or call it.
  void Fire(const wchar_t* event, const std::vector<CValue>& arguments = {});
  // The same for an event whose last argument is a Cancel flag; true if a sink set it.
  bool FireCancellable(const wchar_t* event, std::vector<CValue> arguments = {});

  size_t SinkCount() const noexcept { return m_connections.size(); }
  void ReportSinks(std::vector<AdvisedSink>& report) const override;

 protected:
  CEventSource(CModel& model, const CMemberTable& members);
  ~CEventSource() override;

  void* OtherInterface(REFIID iid) override;
  void OnLastOutsideRelease() noexcept override { DropSinks(); }
  void OnGone() noexcept override;

 private:
  friend class CConnectionPoint;
  struct Connection {
    DWORD cookie;
    size_t interfaceIndex;
    IDispatch* sink;  // with a reference
  };

  HRESULT Advise(size_t interfaceIndex, IUnknown* sink, DWORD* cookie);
  HRESULT Unadvise(size_t interfaceIndex, DWORD cookie);
  HRESULT Watched(const CModel::CallSite& site, HRESULT code);
  void DropSinks() noexcept;
  void Deliver(const Connection& connection, const wchar_t* event, DISPPARAMS& parameters,
               const std::string& summary);
  void CheckArguments(const PublishedMember& event, const DISPPARAMS& parameters);

  std::vector<Connection> m_connections;
  std::vector<CModelPtr<class CConnectionPoint>> m_points;
};

}  // namespace quor::workbench

#endif
