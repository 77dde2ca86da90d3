#ifndef QUOR_TOOLBAR_TOOLBAR_ACTIONS_H
#define QUOR_TOOLBAR_TOOLBAR_ACTIONS_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quor {

enum class SpeedDialAction { Call, Add, Edit, Erase };
inline constexpr size_t kSpeedDialActionCount = 4;

// What the user does on the toolbar or the ribbon, told to whoever acts on it. Called inside a
// boundary: throwing is allowed. Entries count from 0, newest first; one that a list does not have
// is ignored.
class IToolbarActions {
 public:
  virtual void ClickLine(uint8_t lineType) = 0;  // Line1 or Line2, see line_type.h
  virtual void ClickCell(int cell) = 0;          // 0 = Cell1 .. 3 = Cell4
  virtual void ClickCaller(size_t entry) = 0;
  virtual void ClickSpeedDial(SpeedDialAction action, size_t entry) = 0;
  virtual void ClickOptions() = 0;

  // The dial box of the command bar: a number was typed (index 0) or picked (from 1), to be
  // dialled.
  virtual void ChangeDialBox(std::wstring_view text, int listIndex) = 0;
  // The dial box of the ribbon: a number for the line button that is clicked next.
  virtual void StoreDialText(std::wstring_view text) = 0;

 protected:
  ~IToolbarActions() = default;
};

}  // namespace quor

#endif
