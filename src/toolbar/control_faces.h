#ifndef QUOR_TOOLBAR_CONTROL_FACES_H
#define QUOR_TOOLBAR_CONTROL_FACES_H

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "resources/string_table.h"
#include "settings/configuration.h"
#include "telephone/control_state.h"
#include "telephone/telephone_state.h"
#include "toolbar/toolbar_actions.h"

namespace quor {

// A name as the caption of a control: its first 50 characters, with "&" doubled, since a single one
// marks an access key.
std::wstring MenuCaption(std::wstring_view name);

// A number that the user may want to dial now: one of the selected contact's.
struct DialCandidate {
  std::wstring label;   // its kind and itself
  std::wstring number;  // as its owner wrote it

  bool operator==(const DialCandidate&) const = default;
};

struct ItemFace {
  std::wstring caption;
  bool enabled = false;
  bool visible = false;
};

// What the telephone's controls show at this moment, the same on command bar, ribbon and contact
// windows. A short-lived view: it keeps nothing of its own.
class CControlFaces {
 public:
  CControlFaces(const TelephoneState& state, const Configuration& configuration,
                const IStringTable& texts, std::span<const DialCandidate> candidates = {}) noexcept
      : m_state(state), m_configuration(configuration), m_texts(texts), m_candidates(candidates) {}

  // A control by its number (control_state.h). The rules with answer are those of a ringing line.
  std::wstring Caption(int control, bool withAnswer) const;
  bool IsEnabled(int control, bool withAnswer) const noexcept;
  // What a click on a line's button (control_state.h counts them) does.
  LineAction ActionOf(int lineButton, bool withAnswer) const noexcept;
  // Whether a call rings on a line or cell whose button can answer it.
  bool IsRinging() const noexcept;

  // Items of the menus, counted from 0; any other has no face.
  ItemFace Cell(size_t cell) const;
  ItemFace Caller(size_t entry) const;
  // An entry of the speed dial, and what can be done with it: one in use is called, edited and
  // erased, an empty one is added.
  ItemFace SpeedDial(size_t entry) const;
  ItemFace SpeedDial(size_t entry, SpeedDialAction action) const;

  // A number of an open contact, labelled by its kind (telNumberType 1 to 12) and itself.
  ItemFace ContactNumber(int telNumberType, std::wstring_view number) const;

  // The dial box's drop-down list: what was dialled, newest first, then the candidates.
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

// Whoever knows the state gives the view of it.
class IFaceSource {
 public:
  virtual CControlFaces Faces() const = 0;
  // What the ribbon's dial box holds.
  virtual std::wstring DialText() const = 0;

 protected:
  ~IFaceSource() = default;
};

}  // namespace quor

#endif
