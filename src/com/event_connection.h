#ifndef QUOR_COM_EVENT_CONNECTION_H
#define QUOR_COM_EVENT_CONNECTION_H

#include <functional>
#include <memory>
#include <string>

#include "com/com_pointers.h"
#include "module/diagnostic_log.h"

// ocidl.h requires windows.h first.
#include <ocidl.h>

_COM_SMARTPTR_TYPEDEF(IConnectionPoint, IID_IConnectionPoint);

namespace quor {

// The arguments of one event, in the order of its declaration.
class CEventArguments {
 public:
  explicit CEventArguments(const DISPPARAMS& parameters) noexcept : m_parameters(parameters) {}

  // The object at a position; null if it is missing or not an object. Borrowed: valid during the
  // event.
  IDispatch* Object(UINT position) const noexcept;
  // The text at a position; empty if it is missing or not a text.
  std::wstring Text(UINT position) const;

 private:
  const VARIANT* Argument(UINT position) const noexcept;

  const DISPPARAMS& m_parameters;
};

// Handles every event of the connection, by dispatch id. Exceptions are logged and dropped.
using EventHandler = std::function<void(DISPID event, const CEventArguments& arguments)>;

// The object that owns event connections.
class IEventOwner {
 public:
  // Held while an event is handled: Outlook may release the owner inside any call of the handler.
  virtual IUnknown& Identity() noexcept = 0;
  // Once true, no new connection is made, and a connection being made is undone.
  virtual bool IsShuttingDown() const noexcept = 0;

 protected:
  ~IEventOwner() = default;
};

// One advised connection to an event source, ended by Unadvise or by destruction. Holds the source,
// because Outlook stops its events with the last reference to it. Outlook holds our sink, which
// does not hold the owner, ignores events once unadvised, and keeps the module loaded until
// released.
class CEventConnection {
 public:
  // Owner and log must outlive the connection; `name` is a string literal for error lines.
  CEventConnection(IEventOwner& owner, CDiagnosticLog& log, const char* name) noexcept
      : m_owner(owner), m_log(log), m_name(name) {}
  ~CEventConnection() { Unadvise(); }
  CEventConnection(const CEventConnection&) = delete;
  CEventConnection& operator=(const CEventConnection&) = delete;

  bool IsAdvised() const noexcept { return m_point != nullptr; }

  // Connects the handler to the source's connection point for `events`. Returns E_FAIL if already
  // advised, E_ABORT if the owner is shutting down or if this call re-entered Unadvise or Advise,
  // and otherwise the source's result. Never throws. Keep the connection alive during the call.
  HRESULT Advise(IUnknown* source, REFIID events, EventHandler handler) noexcept;

  // Disconnects if advised; logs nothing. May be called inside the connection's own handler.
  void Unadvise() noexcept;

 private:
  HRESULT Connect(IUnknown* source, REFIID events, EventHandler handler);

  IEventOwner& m_owner;
  CDiagnosticLog& m_log;
  const char* m_name;
  IUnknownPtr m_source;
  IConnectionPointPtr m_point;
  IDispatchPtr m_sink;
  std::shared_ptr<EventHandler> m_handler;  // the sink reaches this object only through the handler
  DWORD m_cookie = 0;
  unsigned m_attempt = 0;  // changes with each Advise and Unadvise
};

}  // namespace quor

#endif
