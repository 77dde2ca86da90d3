#ifndef QUOR_TOOLBAR_USER_ACTIONS_H
#define QUOR_TOOLBAR_USER_ACTIONS_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "resources/string_table.h"
#include "settings/configuration.h"
#include "telephone/telephone.h"
#include "toolbar/contact_number.h"
#include "toolbar/control_faces.h"
#include "toolbar/toolbar_actions.h"

namespace quor {

// What the user's actions need besides the telephone. Any call may pump messages.
class IActionWindows {
 public:
  // The contact selected in the main window now; without numbers if there is none.
  virtual SelectedContact FindSelectedContact() = 0;
  // Shows that a number waits in the dial box for a line.
  virtual void ShowWaitingNumber() = 0;

  // `offered` is the suggestion for an entry that is still empty.
  virtual void EditSpeedDial(size_t index, const SpeedDialEntry& entry,
                             const SpeedDialEntry& offered) = 0;
  virtual void EraseSpeedDial(size_t index, const SpeedDialEntry& entry) = 0;
  virtual void OpenOptions() = 0;

 protected:
  ~IActionWindows() = default;
};

// Applies the user's actions on toolbar, ribbon and contact windows to the telephone. A number from
// a list or a contact keeps its punctuation where it is shown and loses it when it is dialled:
// "+49 (30) 555-0199" is dialled as "49305550199".
class CUserActions final : public IToolbarActions {
 public:
  // All must outlive the object.
  CUserActions(CTelephone& telephone, const Configuration& configuration, const IStringTable& texts,
               IActionWindows& windows) noexcept
      : m_telephone(telephone),
        m_configuration(configuration),
        m_texts(texts),
        m_windows(windows) {}

  // Offers the selected contact's numbers in the dial box. True if the offer has changed.
  bool OfferSelection();
  // Withdraws the offer and the number waiting in the dial box.
  void Clear();
  const std::vector<DialCandidate>& Candidates() const noexcept { return m_candidates; }

  // IToolbarActions
  void ClickLine(uint8_t lineType) override;
  void ClickCell(int cell) override;
  void ClickCaller(size_t entry) override;
  void ClickSpeedDial(SpeedDialAction action, size_t entry) override;
  void ClickOptions() override { m_windows.OpenOptions(); }
  void OnChangeComboBox(std::wstring_view text, int listIndex) override;
  void StoreDialText(std::wstring_view text) override;
  bool PickNumber(std::wstring_view number) override;
  bool DialsAtOnce(uint8_t lineType) const override;
  bool DialOnLine(uint8_t lineType, std::wstring_view number) override;

 private:
  void DialNumber(std::wstring_view number);
  SpeedDialEntry OfferedEntry();
  // The number to dial for a text of the dial box; nothing if no candidate has this label.
  std::optional<std::wstring> CandidateNumber(std::wstring_view text) const;

  CTelephone& m_telephone;
  const Configuration& m_configuration;
  const IStringTable& m_texts;
  IActionWindows& m_windows;
  std::vector<DialCandidate> m_candidates;
};

}  // namespace quor

#endif
