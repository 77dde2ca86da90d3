#ifndef QUOR_TOOLBAR_CONTROL_FACES_H
#define QUOR_TOOLBAR_CONTROL_FACES_H

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "resources/string_table.h"
#include "settings/configuration.h"
#include "telephone/control_rules.h"
#include "telephone/telephone_state.h"
#include "toolbar/toolbar_actions.h"

namespace quor {

// A name as a control's caption: the first 50 characters, with each "&" doubled because a single
// one marks an access key.
std::wstring MenuCaption(std::wstring_view name);

// A number of the selected contact, offered for dialling.
struct DialCandidate {
  std::wstring label;   // its kind and the number
  std::wstring number;  // as the user typed it

  bool operator==(const DialCandidate&) const = default;
};

struct ItemFace {
  std::wstring caption;
  bool enabled = false;
  bool visible = false;
};

// What the telephone's controls show now, on command bar, ribbon and contact windows alike. A
// short-lived view of borrowed data.
class CControlFaces {
 public:
  CControlFaces(const TelephoneState& state, const Configuration& configuration,
                const IStringTable& texts, std::span<const DialCandidate> candidates = {}) noexcept
      : m_state(state), m_configuration(configuration), m_texts(texts), m_candidates(candidates) {}

  // A control by its number (control_rules.h). `withAnswer` selects the rules for a ringing line.
  ItemFace Control(int control, bool withAnswer) const;
  // The same for a command bar, where only a ringing line shows its answer button.
  ItemFace BarControl(int control) const;
  // What a click on a line button (numbered as in control_rules.h) does.
  LineAction ActionOf(int lineButton, bool withAnswer) const noexcept;

  // Faces of menu items, counted from 0; empty for any other index.
  ItemFace Cell(size_t cell) const;
  ItemFace Caller(size_t entry) const;
  // The actions of a speed dial entry: a used entry is called, edited or erased, an empty one
  // added.
  ItemFace SpeedDial(size_t entry) const;
  ItemFace SpeedDial(size_t entry, SpeedDialAction action) const;

  // The face of a contact's number, labelled by its kind (telNumberType 1 to 12) and the number.
  ItemFace ContactNumber(int telNumberType, std::wstring_view number) const;

  // The dial box's list: dialled numbers, newest first, then the candidates.
  size_t DialListCount() const noexcept {
    return m_configuration.histories.size() + m_candidates.size();
  }
  std::wstring DialListItem(size_t entry) const;

  std::wstring Text(int id) const { return m_texts.Text(id); }

 private:
  bool IsInUse(size_t speedDialEntry) const noexcept;

  const TelephoneState& m_state;
  const Configuration& m_configuration;
  const IStringTable& m_texts;
  std::span<const DialCandidate> m_candidates;
};

// Provides the current faces.
class IFaceSource {
 public:
  virtual CControlFaces Faces() const = 0;
  // The text of the ribbon's dial box.
  virtual std::wstring DialText() const = 0;

 protected:
  ~IFaceSource() = default;
};

}  // namespace quor

#endif
