#ifndef QUOR_COM_EVENT_CONNECTION_H
#define QUOR_COM_EVENT_CONNECTION_H

#include <functional>

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

 private:
  const VARIANT* Argument(UINT position) const noexcept;

  const DISPPARAMS& m_parameters;
};

// Called for every event of the connection, by its dispatch id. What it throws is logged and
// dropped.
using EventHandler = std::function<void(DISPID event, const CEventArguments& arguments)>;

class CEventSink;

// One advised connection to a source of events, undone by Unadvise or by destruction. Keeps the
// source, because Outlook stops its events with the last reference to it; the sink it hands to
// Outlook holds nothing of ours and goes silent as soon as it is unadvised, whoever still holds it.
class CEventConnection {
 public:
  // The log must outlive the connection; `name` is a literal for its error lines.
  CEventConnection(CDiagnosticLog& log, const char* name) noexcept : m_log(log), m_name(name) {}
  ~CEventConnection() { Unadvise(); }
  CEventConnection(const CEventConnection&) = delete;
  CEventConnection& operator=(const CEventConnection&) = delete;

  bool IsAdvised() const noexcept { return m_point != nullptr; }

  // Connects the handler to the source's connection point for `events`. E_FAIL when already
  // advised; otherwise what the source answers. Never throws.
  HRESULT Advise(IUnknown* source, REFIID events, EventHandler handler) noexcept;

  // Disconnects if advised, silently. Safe inside the connection's own handler.
  void Unadvise() noexcept;

 private:
  HRESULT Connect(IUnknown* source, REFIID events, EventHandler handler);

  CDiagnosticLog& m_log;
  const char* m_name;
  IUnknownPtr m_source;
  IConnectionPoint* m_point = nullptr;
  CEventSink* m_sink = nullptr;
  DWORD m_cookie = 0;
};

}  // namespace quor

#endif
