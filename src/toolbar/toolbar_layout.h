#ifndef QUOR_TOOLBAR_TOOLBAR_LAYOUT_H
#define QUOR_TOOLBAR_TOOLBAR_LAYOUT_H

#include <array>
#include <cstddef>
#include <string>

#include "telephone/control_rules.h"
#include "toolbar/toolbar_actions.h"

namespace quor {

// The command bar's controls, their order and their identification.

enum class ControlKind { ComboBox, Button, Popup };

struct ControlLayout {
  int control;  // see control_rules.h
  ControlKind kind;
  // Office's key for the control; an event goes to every sink with the same tag.
  const wchar_t* tag;
  int picture;  // resource ids; 0: none
  int mask;
};

// In the order on the bar.
extern const std::array<ControlLayout, kControlCount> kToolbarLayout;

const ControlLayout& LayoutOf(int control) noexcept;

// Unique tag of a menu item.
std::wstring ItemTag(const ControlLayout& menu, size_t item);
std::wstring SpeedDialItemTag(size_t entry, SpeedDialAction action);

}  // namespace quor

#endif
