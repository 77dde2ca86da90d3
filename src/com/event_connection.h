#ifndef QUOR_COM_EVENT_CONNECTION_H
#define QUOR_COM_EVENT_CONNECTION_H

#include <functional>
#include <string>

#include "com/com_pointers.h"
#include "module/diagnostic_log.h"

namespace quor {

// The arguments of one event, in the order of its declaration.
class CEventArguments {
 public:
  explicit CEventArguments(const DISPPARAMS& parameters) noexcept : m_parameters(parameters) {}

  // The object at a position; null when it is missing or no object. Not counted: valid during the
  // event.
  IDispatch* Object(UINT position) const noexcept;
  // The text at a position; empty when it is missing or no text.
  std::wstring Text(UINT position) const;

 private:
  const VARIANT* Argument(UINT position) const noexcept;

  const DISPPARAMS& m_parameters;
};

// Called for every event of the connection, by its dispatch id. What it throws is logged and
// dropped.
using EventHandler = std::function<void(DISPID event, const CEventArguments& arguments)>;

class CEventSink;

// The object that event connections are parts of.
class IEventOwner {
 public:
  // Held while an event is handled: Outlook may release the object inside any call that the handler
  // makes.
  virtual IUnknown& Identity() noexcept = 0;
  // Once true, no connection is made any more; one that is being made is undone.
  virtual bool IsShuttingDown() const noexcept = 0;

 protected:
  ~IEventOwner() = default;
};

// One advised connection to a source of events, undone by Unadvise or by destruction. Keeps the
// source, because Outlook stops its events with the last reference to it. The sink that it hands to
// Outlook does not keep the owner alive and ignores events once it is unadvised; as long as a
// source holds it, it keeps the module loaded.
class CEventConnection {
 public:
  // Owner and log must outlive the connection; `name` is a literal for its error lines.
  CEventConnection(IEventOwner& owner, CDiagnosticLog& log, const char* name) noexcept
      : m_owner(owner), m_log(log), m_name(name) {}
  ~CEventConnection() { Unadvise(); }
  CEventConnection(const CEventConnection&) = delete;
  CEventConnection& operator=(const CEventConnection&) = delete;

  bool IsAdvised() const noexcept { return m_point != nullptr; }

  // Connects the handler to the source's connection point for `events`. E_FAIL when already
  // advised; E_ABORT when the owner is shutting down, or when it was unadvised or advised again
  // inside this call; otherwise what the source answers. Never throws. Keep the connection alive
  // during the call.
  HRESULT Advise(IUnknown* source, REFIID events, EventHandler handler) noexcept;

  // Disconnects if advised, silently. Safe inside the connection's own handler.
  void Unadvise() noexcept;

 private:
  HRESULT Connect(IUnknown* source, REFIID events, EventHandler handler);

  IEventOwner& m_owner;
  CDiagnosticLog& m_log;
  const char* m_name;
  IUnknownPtr m_source;
  IConnectionPoint* m_point = nullptr;
  CEventSink* m_sink = nullptr;
  DWORD m_cookie = 0;
  unsigned m_attempt = 0;  // changes with every Advise and Unadvise
};

}  // namespace quor

#endif
