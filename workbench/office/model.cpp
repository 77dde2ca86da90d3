#include "workbench/office/model.h"

#include <algorithm>
#include <utility>

#include "workbench/office/automation.h"

namespace quor::workbench {
namespace {

constexpr size_t kGraves = 20000;
constexpr UINT kRunLater = WM_APP;
constexpr wchar_t kLaterClass[] = L"quor workbench later";

// The processor's time-stamp counter. A start-up scan enters and leaves the model some 150,000
// times; the system's clock would cost as much as the work measured.
int64_t Ticks() noexcept {
  return static_cast<int64_t>(__builtin_ia32_rdtsc());
}

struct Moment {
  int64_t ticks = Ticks();
  int64_t counter = 0;

  Moment() noexcept {
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    counter = now.QuadPart;
  }
};

const Moment g_start;

double MicrosecondsPerTick() noexcept {
  LARGE_INTEGER frequency;
  QueryPerformanceFrequency(&frequency);
  const Moment now;
  const auto elapsed = static_cast<double>(now.counter - g_start.counter);
  return elapsed * 1e6 /
         (static_cast<double>(now.ticks - g_start.ticks) * static_cast<double>(frequency.QuadPart));
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), [](char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + 32) : character;
  });
  return lower;
}

// Normalises a call's name for faults and hooks.
std::string Pattern(std::string_view member) {
  if (!member.empty() && member.front() == '_') member.remove_prefix(1);
  return Lower(member);
}

bool Matches(const std::string& pattern, const std::string& lowerKey) {
  if (!pattern.ends_with('*')) return pattern == lowerKey;
  return lowerKey.starts_with(std::string_view(pattern).substr(0, pattern.size() - 1));
}

}  // namespace

CModel::CallSite::CallSite(std::string_view type, std::string_view member)
    : key(std::string(type) + '.' + std::string(member)), lower(Lower(key)) {}

CModel::CModel() : m_thread(GetCurrentThreadId()), m_sideSince(Ticks()) {}

CModel::~CModel() {
  if (m_laterWindow) DestroyWindow(m_laterWindow);
  while (!m_graves.empty()) {
    CCounted* body = m_graves.front();
    m_graves.pop_front();
    delete body;
  }
  for (const auto& [serial, object] : m_live)
    object->Orphan();
}

LRESULT CALLBACK CModel::LaterProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* const self = reinterpret_cast<CModel*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message != kRunLater || !self) return DefWindowProcW(window, message, wParam, lParam);
  const std::function<void()> action = std::move(self->m_later.front());
  self->m_later.pop_front();
  action();
  return 0;
}

void CModel::RunLater(std::function<void()> action) {
  if (!m_laterWindow) {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = LaterProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kLaterClass;
    RegisterClassW(&windowClass);
    m_laterWindow = CreateWindowExW(0, kLaterClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                    windowClass.hInstance, nullptr);
    SetWindowLongPtrW(m_laterWindow, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  }
  m_later.push_back(std::move(action));
  PostMessageW(m_laterWindow, kRunLater, 0, 0);
}

void CModel::ReleaseSink(IUnknown& sink) {
  if (!m_delaysSinkRelease) {
    sink.Release();
    return;
  }
  ++m_oldSinks;
  RunLater([this, &sink] {
    --m_oldSinks;
    sink.Release();
  });
}

int CModel::AddTrigger(Trigger trigger) {
  trigger.number = ++m_lastTrigger;
  m_triggers.push_back(std::move(trigger));
  return m_lastTrigger;
}

int CModel::AddFault(Fault fault) {
  return AddTrigger({0,
                     Pattern(fault.member),
                     std::max<uint64_t>(fault.first, 1),
                     fault.last,
                     0,
                     fault.code,
                     {}});
}

int CModel::AddHook(Hook hook) {
  const uint64_t nth = std::max<uint64_t>(hook.nth, 1);
  return AddTrigger({0, Pattern(hook.member), nth, nth, 0, std::nullopt, std::move(hook.action)});
}

void CModel::Withdraw(int number) {
  std::erase_if(m_triggers, [number](const Trigger& one) { return one.number == number; });
}

void CModel::SetPace(unsigned microseconds) noexcept {
  m_dwellTicks = static_cast<int64_t>(microseconds / MicrosecondsPerTick());
}

std::optional<HRESULT> CModel::Enter(const CallSite& site) {
  ++m_totalCalls;
  if (m_dwellTicks != 0) {
    for (const int64_t since = Ticks(); Ticks() - since < m_dwellTicks;) {
    }
  }
  if (m_triggers.empty()) return std::nullopt;

  m_lastEntered = site.key;
  std::optional<HRESULT> answer;
  std::vector<std::function<void()>> actions;
  for (Trigger& trigger : m_triggers) {
    if (!Matches(trigger.member, site.lower) || ++trigger.seen < trigger.first) continue;
    if (trigger.code.has_value()) {
      if (!answer.has_value()) answer = trigger.code;
    } else {
      actions.push_back(trigger.action);
    }
  }
  if (answer.has_value()) {
    ++m_faultsFired;
    m_lastFaulted = site.key;
  }
  std::erase_if(m_triggers,
                [](const Trigger& one) { return one.last != 0 && one.seen >= one.last; });
  // Run the actions last: they may call the model, set faults or end the session.
  for (const auto& action : actions) {
    const CTimeOutside outside(*this);
    try {
      action();
    } catch (...) {
      if (m_hookFailure == nullptr) m_hookFailure = std::current_exception();
    }
  }
  return answer;
}

void CModel::RethrowHookFailure() {
  if (m_hookFailure != nullptr) std::rethrow_exception(std::exchange(m_hookFailure, nullptr));
}

void CModel::Observe(const CallRecord& record) const {
  if (!m_observer) return;
  const Observer observer = m_observer;
  observer(record);
}

CModel::Side CModel::SwitchSide(Side side) noexcept {
  const int64_t now = Ticks();
  if (m_side == Side::Inside) m_ticksInside += now - m_sideSince;
  m_sideSince = now;
  return std::exchange(m_side, side);
}

double CModel::MicrosecondsInModel() const noexcept {
  return static_cast<double>(m_ticksInside) * MicrosecondsPerTick();
}

void CModel::ResetFigures() {
  m_totalCalls = 0;
  m_ticksInside = 0;
}

std::vector<HeldObject> CModel::HeldFromOutside() const {
  std::vector<HeldObject> held;
  for (const auto& [serial, object] : m_live) {
    if (object->References() == 0) continue;
    held.push_back({object->TypeName(), object->ObjectName(), object->References()});
  }
  return held;
}

std::vector<AdvisedSink> CModel::AdvisedSinks() const {
  std::vector<AdvisedSink> sinks;
  for (const auto& [serial, object] : m_live)
    object->ReportSinks(sinks);
  return sinks;
}

bool CModel::IsHeldFromOutside(std::string_view type) const {
  return std::any_of(m_live.begin(), m_live.end(), [type](const auto& entry) {
    return entry.second->References() != 0 && entry.second->TypeName() == type;
  });
}

uint64_t CModel::Register(CCounted& object) {
  m_live.emplace(++m_lastSerial, &object);
  return m_lastSerial;
}

void CModel::Unregister(const CCounted& object) noexcept {
  m_live.erase(object.m_serial);
}

void CModel::Bury(CCounted& object) {
  m_graves.push_back(&object);
  if (m_graves.size() <= kGraves) return;
  CCounted* oldest = m_graves.front();
  m_graves.pop_front();
  delete oldest;
}

}  // namespace quor::workbench
