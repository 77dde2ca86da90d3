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
// write, "Items.GetIDsOfNames" and "ItemsEvents.Advise" are what their names say. Types go without
// the underscore of the type library. Where a call is chosen by name, case does not matter, a
// leading underscore is ignored, "Items.*" means every call on that type and "*" every call.

// Makes calls fail. Counting starts when the fault is set, so a fault set before the add-in is
// loaded counts from the first call of the session.
struct Fault {
  std::string member = "*";
  uint64_t first = 1;  // from 1
  uint64_t last = 1;   // 0: for ever
  // A success code makes the answer empty instead: no text, no object, zero. A method is not even
  // carried out.
  HRESULT code = E_FAIL;
};

// Runs something in the middle of one call, before the member does its work: a timer tick, a pump
// of the message queue, an event. Counted like a fault. What the action throws waits for
// CModel::RethrowHookFailure: it must not pass through the caller's code.
struct Hook {
  std::string member = "*";
  uint64_t nth = 1;
  std::function<void()> action;
};

// One call made by the add-in, or one event delivered to a sink of its.
struct CallRecord {
  enum class Kind { Call, Event };
  Kind kind = Kind::Call;
  std::string member;     // as above; for an event "Items!ItemAdd" with the event's id if unnamed
  std::string object;     // which one: a folder's or contact's name, a caption; may be empty
  std::string arguments;  // declaration order, separated by ", "
  std::string result;     // summary of the returned value; empty for none
  HRESULT code = S_OK;    // what the caller gets; a failure inside DISP_E_EXCEPTION is shown itself
  double microseconds = 0;
};

// An object that is held from outside the object model.
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

// The engine under every object of the stand-in: counts calls and references, injects failures,
// runs hooks, tells an observer. One per session, created first and destroyed last. All on one
// thread.
class CModel {
 public:
  CModel();
  ~CModel();  // objects still held from outside live on, answer CO_E_OBJNOTCONNECTED
  CModel(const CModel&) = delete;
  CModel& operator=(const CModel&) = delete;

  // Failures and hooks. The number returned withdraws the one fault or hook.
  int AddFault(Fault fault);
  int AddHook(Hook hook);
  void Withdraw(int number);
  void WithdrawAll();
  uint64_t FaultsFired() const noexcept { return m_faultsFired; }
  // The call that a fault made fail last: "Items.Item".
  const std::string& LastFaulted() const noexcept { return m_lastFaulted; }
  // The call that faults and hooks were last looked up for.
  const std::string& LastEntered() const noexcept { return m_lastEntered; }
  void RethrowHookFailure();  // the first since the last time; nothing if there was none

  using Observer = std::function<void(const CallRecord&)>;
  void SetObserver(Observer observer) { m_observer = std::move(observer); }  // empty: none

  // Each call takes so many microseconds more from now on.
  void SetPace(unsigned microseconds) noexcept;

  // Whether sources release their sinks on a later pump of messages only.
  void DelaySinkRelease(bool on) noexcept { m_delaysSinkRelease = on; }
  bool HoldsOldSinks() const noexcept { return m_oldSinks != 0; }

  // Figures since the start or the last reset.
  uint64_t TotalCalls() const noexcept { return m_totalCalls; }
  double MicrosecondsInModel() const noexcept;  // without the time spent in sinks and hooks
  void ResetFigures();

  // Accounting. Order of creation, so that a report is the same each time.
  std::vector<HeldObject> HeldFromOutside() const;
  std::vector<AdvisedSink> AdvisedSinks() const;
  bool IsHeldFromOutside(std::string_view type) const;
  // Released once too often, used after its last release, called on a wrong thread: one line each.
  const std::vector<std::string>& Misuses() const noexcept { return m_misuses; }

  // --- for the objects themselves ---

  // One member as the model counts it; owned by a table that lives to the end of the program.
  struct CallSite {
    CallSite() = default;
    CallSite(std::string_view type, std::string_view member);
    std::string key;    // "Items.Item"
    std::string lower;  // the same for comparing
  };
  // Counts the call, runs its hooks, and says what it must answer instead of working, if anything.
  std::optional<HRESULT> Enter(const CallSite& site);
  bool IsObserved() const noexcept { return static_cast<bool>(m_observer); }
  void Observe(const CallRecord& record) const;

  // While one of these lives the time goes to the model, or to code outside it. They nest.
  class CTimeInside;
  class CTimeOutside;

  uint64_t Register(CCounted& object);
  void Unregister(const CCounted& object) noexcept;
  void Bury(CCounted& object);  // dead, kept for a while so that a use after release is noticed
  void RecordMisuse(std::string text);
  // Runs the action on a later pump of this thread's messages; not at all once the model has ended.
  void RunLater(std::function<void()> action);
  // Releases a sink that is no longer advised, now or on a later pump.
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
  int64_t m_dwellTicks = 0;  // in each call, for the pace
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
