#ifndef QUOR_TOOLBAR_TOOLBAR_LAYOUT_H
#define QUOR_TOOLBAR_TOOLBAR_LAYOUT_H

#include <array>
#include <cstddef>
#include <string>

#include "telephone/control_state.h"
#include "toolbar/toolbar_actions.h"

namespace quor {

// The command bar: which controls it has, in which order, and what identifies them.

enum class ControlKind { ComboBox, Button, Popup };

struct ControlLayout {
  int control;  // see control_state.h
  ControlKind kind;
  // Identifies the control to Office, which sends an event to every sink of the same tag.
  const wchar_t* tag;
  int picture;  // resource numbers; 0: the control has none
  int mask;
};

// In the order in which they stand on the bar.
extern const std::array<ControlLayout, kControlCount> kToolbarLayout;

const ControlLayout& LayoutOf(int control) noexcept;

// Tags of menu items, each different from every other.
std::wstring ItemTag(const ControlLayout& menu, size_t item);
std::wstring SpeedDialItemTag(size_t entry, SpeedDialAction action);

}  // namespace quor

#endif
