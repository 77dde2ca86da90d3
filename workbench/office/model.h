#ifndef QUOR_WORKBENCH_OFFICE_MODEL_H
#define QUOR_WORKBENCH_OFFICE_MODEL_H

#include <cstdint>
#include <deque>
#include <exception>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/office/value.h"

namespace quor::workbench {

class CCounted;

// Names of calls. "Items.Item" is a method or a property read, "ContactItem.FullName=" a property
// write; others are "Items.GetIDsOfNames" and "ItemsEvents.Advise". Type names have no leading
// underscore. Where a name selects calls, case and a leading underscore are ignored, "Items.*"
// means every call on that type and "*" every call.

// Makes calls fail. Counting starts when the fault is set: a fault set before the add-in is loaded
// counts from the first call of the session.
struct Fault {
  std::string member = "*";
  uint64_t first = 1;  // from 1
  uint64_t last = 1;   // 0: no end
  // A success code returns an empty result instead (no text, no object, zero); a method is then not
  // executed.
  HRESULT code = E_FAIL;
};

// Runs an action inside one call, before the member does its work: a timer tick, a pump of
// messages, an event. Counted like a fault. Exceptions of the action wait for
// CModel::RethrowHookFailure, because they must not pass through the caller's code.
struct Hook {
  std::string member = "*";
  uint64_t nth = 1;
  std::function<void()> action;
};

// One call of the add-in, or one event delivered to one of its sinks.
struct CallRecord {
  enum class Kind { Call, Event };
  Kind kind = Kind::Call;
  std::string member;     // as above; for an event "Items!ItemAdd", or its id if it has no name
  std::string object;     // a folder's or contact's name or a caption; may be empty
  std::string arguments;  // in the order of declaration, separated by ", "
  std::string result;     // summary of the result; empty if there is none
  HRESULT code = S_OK;    // as returned to the caller, but the error itself for DISP_E_EXCEPTION
  double microseconds = 0;
};

// An object with references from outside the model.
struct HeldObject {
  std::string type;
  std::string name;
  unsigned long references = 0;
};

// Sinks that are still advised on one source.
struct AdvisedSink {
  std::string source;  // type
  std::string name;    // which one
  std::string events;  // "ItemsEvents"
  unsigned long count = 0;
};

// The engine below all objects of the stand-in: counts calls and references, injects failures, runs
// hooks, notifies an observer. One per session, created first and destroyed last. Single-threaded.
class CModel {
 public:
  CModel();
  ~CModel();  // objects still held from outside survive and return CO_E_OBJNOTCONNECTED
  CModel(const CModel&) = delete;
  CModel& operator=(const CModel&) = delete;

  // Failures and hooks. The returned number removes this fault or hook.
  int AddFault(Fault fault);
  int AddHook(Hook hook);
  void Withdraw(int number);
  void WithdrawAll() { m_triggers.clear(); }
  uint64_t FaultsFired() const noexcept { return m_faultsFired; }
  // The call that last failed because of a fault: "Items.Item".
  const std::string& LastFaulted() const noexcept { return m_lastFaulted; }
  // The call entered last.
  const std::string& LastEntered() const noexcept { return m_lastEntered; }
  void RethrowHookFailure();  // throws the first since the last time, if any

  using Observer = std::function<void(const CallRecord&)>;
  void SetObserver(Observer observer) { m_observer = std::move(observer); }  // empty: none

  // Makes each call take this many microseconds longer.
  void SetPace(unsigned microseconds) noexcept;

  // Whether sources release unadvised sinks only when messages are pumped later.
  void DelaySinkRelease(bool on) noexcept { m_delaysSinkRelease = on; }
  bool HoldsOldSinks() const noexcept { return m_oldSinks != 0; }

  // Figures since the start or the last reset.
  uint64_t TotalCalls() const noexcept { return m_totalCalls; }
  double MicrosecondsInModel() const noexcept;  // without the time spent in sinks and hooks
  void ResetFigures();

  // Accounting, in order of creation, so that every report is the same.
  std::vector<HeldObject> HeldFromOutside() const;
  std::vector<AdvisedSink> AdvisedSinks() const;
  bool IsHeldFromOutside(std::string_view type) const;
  // Misuses, one line each: released once too often, used after the last release, called on a wrong
  // thread.
  const std::vector<std::string>& Misuses() const noexcept { return m_misuses; }

  // --- for the model's objects ---

  // One member for the model's counts; owned by a static table.
  struct CallSite {
    CallSite() = default;
    CallSite(std::string_view type, std::string_view member);
    std::string key;    // "Items.Item"
    std::string lower;  // the same in lower case
  };
  // Counts the call and runs its hooks. Returns the result of an injected fault, if any.
  std::optional<HRESULT> Enter(const CallSite& site);
  bool IsObserved() const noexcept { return static_cast<bool>(m_observer); }
  void Observe(const CallRecord& record) const;

  // Attributes time to the model or to outside code while it exists. They nest.
  class CTimeInside;
  class CTimeOutside;

  uint64_t Register(CCounted& object);
  void Unregister(const CCounted& object) noexcept;
  void Bury(CCounted& object);  // keeps a dead object for a while to notice uses after release
  void RecordMisuse(std::string text) { m_misuses.push_back(std::move(text)); }
  // Runs the action when this thread next pumps messages, but not after the model has ended.
  void RunLater(std::function<void()> action);
  // Releases an unadvised sink, now or when messages are pumped.
  void ReleaseSink(IUnknown& sink);
  bool IsOwnThread() const noexcept { return GetCurrentThreadId() == m_thread; }
  DWORD NextCookie() noexcept { return ++m_lastCookie; }

 private:
  enum class Side { Outside, Inside, Sink };
  struct Trigger {
    int number = 0;
    std::string member;
    uint64_t first = 1;
    uint64_t last = 1;
    uint64_t seen = 0;
    std::optional<HRESULT> code;
    std::function<void()> action;
  };

  int AddTrigger(Trigger trigger);
  static LRESULT CALLBACK LaterProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  Side SwitchSide(Side side) noexcept;

  const DWORD m_thread;
  std::map<uint64_t, CCounted*> m_live;  // by serial number
  std::deque<CCounted*> m_graves;
  uint64_t m_lastSerial = 0;
  DWORD m_lastCookie = 0;
  std::vector<Trigger> m_triggers;
  int m_lastTrigger = 0;
  uint64_t m_faultsFired = 0;
  std::string m_lastFaulted;
  std::string m_lastEntered;
  std::exception_ptr m_hookFailure;
  Observer m_observer;
  uint64_t m_totalCalls = 0;
  Side m_side = Side::Outside;
  int64_t m_sideSince = 0;
  int64_t m_dwellTicks = 0;  // extra time of each call, for the pace
  int64_t m_ticksInside = 0;
  std::vector<std::string> m_misuses;
  HWND m_laterWindow = nullptr;
  std::deque<std::function<void()>> m_later;
  bool m_delaysSinkRelease = false;
  size_t m_oldSinks = 0;
};

class CModel::CTimeInside {
 public:
  explicit CTimeInside(CModel& model) noexcept
      : m_model(model), m_before(model.SwitchSide(Side::Inside)) {}
  ~CTimeInside() { m_model.SwitchSide(m_before); }
  CTimeInside(const CTimeInside&) = delete;
  CTimeInside& operator=(const CTimeInside&) = delete;

 private:
  CModel& m_model;
  Side m_before;
};

class CModel::CTimeOutside {
 public:
  explicit CTimeOutside(CModel& model) noexcept
      : m_model(model), m_before(model.SwitchSide(Side::Sink)) {}
  ~CTimeOutside() { m_model.SwitchSide(m_before); }
  CTimeOutside(const CTimeOutside&) = delete;
  CTimeOutside& operator=(const CTimeOutside&) = delete;

 private:
  CModel& m_model;
  Side m_before;
};

}  // namespace quor::workbench

#endif
