#ifndef QUOR_WORKBENCH_OFFICE_EVENT_SOURCE_H
#define QUOR_WORKBENCH_OFFICE_EVENT_SOURCE_H

#include <memory>
#include <string>
#include <vector>

#include "workbench/office/automation.h"

namespace quor::workbench {

// One published event interface of a source; "ItemsEvents.Advise" and "ItemsEvents.Unadvise" are
// the names under which its connections count as calls.
struct EventInterface {
  EventInterface(REFIID eventIid, const char* eventName)
      : iid(eventIid),
        name(eventName),
        advise(eventName, "Advise"),
        unadvise(eventName, "Unadvise") {}

  IID iid;
  const char* name;
  CModel::CallSite advise;
  CModel::CallSite unadvise;
};

struct EventName {
  DISPID id;
  const char* name;  // "ItemAdd", for the transcript
};

// What one type of source raises; lives to the end of the program.
struct EventTable {
  std::vector<EventInterface> interfaces;
  std::vector<EventName> names;
};

// An object that raises events. Answers IConnectionPointContainer with one connection point for
// each of its event interfaces; a sink advised on any of them receives every event.
//
// Advise refuses a sink that does not answer the event interface (CONNECT_E_CANNOTCONNECT); an
// unknown interface is CONNECT_E_NOCONNECTION. Both count as calls and can be made to fail. When
// the last reference from outside to the source goes, its sinks are dropped: a connection point
// alone keeps nothing alive.
class CEventSource : public CAutomation {
 public:
  // Delivers an event to every sink that is advised when its turn comes. Arguments in declaration
  // order. Sinks may unadvise, advise, release the source or call back meanwhile.
  void Fire(DISPID event, std::vector<CValue> arguments = {});
  // The same for an event with a Cancel flag as its last argument; true if a sink set it.
  bool FireCancellable(DISPID event, std::vector<CValue> arguments = {});

  size_t SinkCount() const noexcept { return m_connections.size(); }
  void ReportSinks(std::vector<AdvisedSink>& report) const override;

 protected:
  CEventSource(CModel& model, const CMemberTable& members, const EventTable& events);
  ~CEventSource() override;

  void* OtherInterface(REFIID iid) override;
  void OnLetGo() noexcept override;
  void OnGone() noexcept override;

 private:
  friend class CConnectionPoint;
  class CContainer;
  struct Connection {
    DWORD cookie;
    size_t interfaceIndex;
    IDispatch* sink;  // counted
  };

  HRESULT Advise(size_t interfaceIndex, IUnknown* sink, DWORD* cookie);
  HRESULT Unadvise(size_t interfaceIndex, DWORD cookie);
  HRESULT Watched(const CModel::CallSite& site, HRESULT code);
  void DropSinks() noexcept;
  void Deliver(const Connection& connection, DISPID event, DISPPARAMS& parameters,
               const std::string& summary);
  std::string NameOf(DISPID event) const;

  const EventTable& m_events;
  std::unique_ptr<CContainer> m_container;
  std::vector<Connection> m_connections;
  std::vector<CModelPtr<class CConnectionPoint>> m_points;
};

}  // namespace quor::workbench

#endif
