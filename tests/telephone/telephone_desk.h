#ifndef QUOR_TESTS_TELEPHONE_TELEPHONE_DESK_H
#define QUOR_TESTS_TELEPHONE_TELEPHONE_DESK_H

#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "telephone/control_rules.h"
#include "telephone/telephone.h"
#include "text/ansi.h"

namespace quor {

using Bytes = std::initializer_list<uint8_t>;

inline constexpr int kToolbarVersion = 11;
inline constexpr int kRibbonVersion = 14;

// A telephone whose every effect becomes one line of a journal, in order, log lines included ("log:
// ..." without the line feed).
class CTelephoneDesk final : private ILogWriter,
                             private IMessageQueue,
                             private ITelephoneControls,
                             private IMessagePopup,
                             private ICallerWindow,
                             private ICallerDirectory,
                             private ICallObserver,
                             private ITickClock,
                             private ISettingsStore {
 public:
  // The telephone owns its state; only tests modify it directly.
  explicit CTelephoneDesk(int appVersion = kToolbarVersion)
      : phone({records, *this, *this, *this, *this, *this, *this, configuration, *this, *this,
               m_log}),
        state(const_cast<TelephoneState&>(phone.State())) {
    phone.SetAppVersion(appVersion);
    m_log.SetEnabled(true);
  }

  // The journal since the last call.
  std::vector<std::string> Journal() { return std::exchange(m_journal, {}); }
  // The same without log lines.
  std::vector<std::string> Deeds() {
    std::vector<std::string> deeds = Journal();
    std::erase_if(deeds, [](const std::string& line) { return line.starts_with("log: "); });
    return deeds;
  }
  // For exhaustive loops: no journal, no log.
  void BeQuiet() { m_log.SetEnabled(false); }

  // Writes a record as the base does and raises its event.
  void Status(uint8_t line1, uint8_t line2, uint8_t cell) {
    records.status = {0, line1, line2, cell, 0, 0};
    phone.Events().OnEventGet(5100, 0);
  }
  void CallerId(uint8_t lineType, std::string_view number, std::string_view name = "",
                uint8_t unitNo = 0) {
    CallerIdRecord& record = records.callerId[static_cast<size_t>(SlotFromLineType(lineType))];
    record.number[number.copy(record.number, 24)] = '\0';
    record.name[name.copy(record.name, 16)] = '\0';
    record.lineType = lineType;
    record.lineUnitNo = unitNo;
    phone.Events().OnEventGet(5102, lineType);
  }
  void SetStates(uint8_t line1, uint8_t line2, uint8_t cell) {
    state.record.line1State = line1;
    state.record.line2State = line2;
    state.record.cellState = cell;
  }

  struct Contact {
    std::wstring fileAs;
    std::wstring number;
    bool readable = true;
  };

  // Inputs that tests set.
  DeviceRecords records;
  Configuration configuration;
  uint32_t tick = 1000000;
  bool postsFail = false;
  int posts = 0;                         // number of posts
  std::map<std::string, Contact> found;  // by the number that finds it, which is its entry ID
  std::function<void()> whileLookingUp;  // runs inside a look-up that pumps messages

 private:
  CDiagnosticLog m_log{*this};
  std::vector<std::string> m_journal;

 public:
  CTelephone phone;
  TelephoneState& state;

 private:
  void Note(std::string line) {
    if (m_log.IsEnabled()) m_journal.push_back(std::move(line));
  }
  static std::string Text(const CallerValue& value) {
    return value.withheldTextId != 0 ? std::to_string(value.withheldTextId)
                                     : "'" + AnsiFromWide(value.text) + "'";
  }

  void WriteLine(std::string_view text) noexcept override {
    Note("log: " + std::string(text.substr(0, text.size() - 1)));
  }
  bool PostDeviceEvent(DeviceEvent, uint8_t) noexcept override { return false; }
  bool PostRequest(WindowRequest request, uint32_t parameter) noexcept override {
    ++posts;
    Note("post " + std::to_string(static_cast<int>(request)) + " " + std::to_string(parameter));
    return !postsFail;
  }
  void SetToolBarState() override { Note("redraw"); }
  void DisableControls() override { Note("disable"); }
  void RedrawControls() override { Note("line buttons"); }
  void PutCallFromCellButton() override { Note("cell menu"); }
  void DisableOtherCellItems(int cell) override { Note("only cell " + std::to_string(cell)); }
  void PutSpeedDialButton() override { Note("speed dial menu"); }
  void PutCallerList() override { Note("caller list"); }
  void PutHistory() override { Note("history"); }
  void SetDialText(std::wstring_view text) override { Note("box '" + AnsiFromWide(text) + "'"); }
  void ShowMessage(int stringId) override { Note("message " + std::to_string(stringId)); }
  void Fill(const CallerValue& name, const CallerValue& number, int slot) override {
    Note("fill " + Text(name) + " " + Text(number) + " " + std::to_string(slot));
  }
  void Show() override { Note("show"); }
  void Hide() override { Note("hide"); }
  void Follow(uint8_t, uint8_t, uint8_t) override { Note("follow"); }
  std::optional<CallerMatch> FindPhoneNumber(std::string_view number, bool check) override {
    Note("find " + std::string(check ? "checked " : "unchecked ") + std::string(number));
    if (whileLookingUp) std::exchange(whileLookingUp, nullptr)();
    const auto contact = found.find(std::string(number));
    if (contact == found.end()) return std::nullopt;
    return CallerMatch{contact->first, {}, nullptr};
  }
  std::optional<CallerMatch> SearchPhoneNumber(std::string_view, bool) override { return {}; }
  std::optional<std::wstring> FindContactFileAs(const CallerMatch& match) override {
    const Contact& contact = found.at(match.entryId);
    return contact.readable ? std::optional(contact.fileAs) : std::nullopt;
  }
  std::optional<std::wstring> FindContactPhoneNumber(const CallerMatch& match) override {
    const Contact& contact = found.at(match.entryId);
    return contact.readable ? std::optional(contact.number) : std::nullopt;
  }
  FormResult DisplayContact(std::string_view entryId) override {
    Note("form " + std::string(entryId));
    return FormResult::Shown;
  }
  FormResult DisplayNewContact(std::wstring_view number) override {
    Note("new form '" + AnsiFromWide(number) + "'");
    return FormResult::Shown;
  }
  void OnRing(int) override {}
  void OnCaller(int, const CallParty&) override {}
  void OnDial(int, const CallParty&) override {}
  void OnDialRefused() override {}
  void OnStates(uint8_t, uint8_t, uint8_t) override {}
  void EndAll() override {}
  uint32_t TickMilliseconds() noexcept override { return tick; }
  void Save() noexcept override { Note("save"); }
};

}  // namespace quor

#endif
