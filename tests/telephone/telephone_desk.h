#ifndef QUOR_TESTS_TELEPHONE_TELEPHONE_DESK_H
#define QUOR_TESTS_TELEPHONE_TELEPHONE_DESK_H

#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "telephone/control_rules.h"
#include "telephone/telephone.h"

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
  explicit CTelephoneDesk(int appVersion = kToolbarVersion);

  // The journal since the last call.
  std::vector<std::string> Journal();
  // The same without log lines.
  std::vector<std::string> Deeds();
  // For exhaustive loops: no journal, no log.
  void BeQuiet();

  // Writes a record as the base does and raises its event.
  void Status(uint8_t line1, uint8_t line2, uint8_t cell, uint8_t dial = 0, uint8_t cellSub = 0,
              uint8_t result = 0);
  void Ring(uint8_t lineType);
  void CallerId(uint8_t lineType, std::string_view number, std::string_view name = "",
                uint8_t unitNo = 0);
  void SetStates(uint8_t line1, uint8_t line2, uint8_t cell);

  struct Contact {
    std::wstring fileAs;
    std::wstring number;
    bool readable = true;
    FormResult form = FormResult::Shown;
  };

  // Inputs that tests set.
  DeviceRecords records;
  Configuration configuration;
  uint32_t tick = 1000000;
  bool postsFail = false;
  int posts = 0;                            // number of posts
  std::map<std::string, Contact> found;     // by the number given to FindPhoneNumber
  std::map<std::string, Contact> searched;  // by the number given to SearchPhoneNumber
  FormResult newForm = FormResult::Shown;
  std::function<void()> whileLookingUp;  // runs inside a look-up that pumps messages

 private:
  CDiagnosticLog m_log{*this};
  std::vector<std::string> m_journal;

 public:
  CTelephone phone;
  TelephoneState& state;

 private:
  void Note(std::string line);
  std::optional<CallerMatch> Look(const std::map<std::string, Contact>& where, const char* what,
                                  std::string_view number, bool check);
  const Contact& Opened(std::string_view entryId) const;

  void WriteLine(std::string_view text) noexcept override;
  bool PostDeviceEvent(DeviceEvent event, uint8_t lineType) noexcept override;
  bool PostRequest(WindowRequest request, uint32_t parameter) noexcept override;
  void SetToolBarState() override { Note("redraw"); }
  void DisableControls() override { Note("disable"); }
  void RedrawLineButtons() override { Note("line buttons"); }
  void PutCallFromCellButton() override { Note("cell menu"); }
  void DisableOtherCellItems(int cell) override { Note("only cell " + std::to_string(cell)); }
  void PutSpeedDialButton() override { Note("speed dial menu"); }
  void PutCallerList() override { Note("caller list"); }
  void PutHistory() override { Note("history"); }
  void SetDialText(std::wstring_view text) override;
  void ShowMessage(int stringId) override { Note("message " + std::to_string(stringId)); }
  void Fill(const CallerValue& name, const CallerValue& number, int slot) override;
  void Show() override { Note("show"); }
  void Hide() override { Note("hide"); }
  void Follow(uint8_t line1, uint8_t line2, uint8_t cell) override;
  std::optional<CallerMatch> FindPhoneNumber(std::string_view number, bool check) override;
  std::optional<CallerMatch> SearchPhoneNumber(std::string_view number, bool check) override;
  std::optional<std::wstring> FindContactFileAs(const CallerMatch& match) override;
  std::optional<std::wstring> FindContactPhoneNumber(const CallerMatch& match) override;
  FormResult DisplayContact(std::string_view entryId) override;
  FormResult DisplayNewContact(std::wstring_view number) override;
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
